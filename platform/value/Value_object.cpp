#include "Value_object.h"

#include "ValueHelper.h"

namespace Kelvane::Value {

template <typename T>
void Value_object<T>::Convert_to(const Units& unit)
{
    m_value = ValueHelper::convertValue(m_value, m_unit, unit);
    if (m_unit.base == unit.base)
        m_unit = unit;
}

template class Value_object<double>;

} // namespace Kelvane::Value
