#ifndef VALUE_OBJECT_H
#define VALUE_OBJECT_H

#include "Units.h"

namespace Kelvane::Value {

//! A number with its unit. Only Value_object<double> is built.
template <typename T>
class Value_object
{
public:
    Value_object() = default;
    Value_object(const T& value, const Units& unit) : m_value(value), m_unit(unit) {}

    const T& Get_value() const { return m_value; }
    const Units& Get_unit() const { return m_unit; }
    void Set_value(const T& value) { m_value = value; }
    //! Converts the number into \a unit and takes it on; another base unit changes nothing.
    void Convert_to(const Units& unit);

private:
    T m_value{};
    Units m_unit;
};

extern template class Value_object<double>;

} // namespace Kelvane::Value

#endif // VALUE_OBJECT_H
