#ifndef UNITERROR_H
#define UNITERROR_H

#include <stdexcept>

namespace Kelvane::Value {

//! A unit description or wire unit that does not follow the grammar in Units.h.
class UnitError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace Kelvane::Value

#endif // UNITERROR_H
