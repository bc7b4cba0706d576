#include "Units.h"

namespace Kelvane::Value {

const Units C_Empty;

bool operator==(const UnitScale& a, const UnitScale& b)
{
    return a.logarithmic == b.logarithmic && a.exponent == b.exponent && a.reference == b.reference;
}

bool operator==(const BaseUnit& a, const BaseUnit& b)
{
    return a.symbol == b.symbol;
}

bool operator==(const Units& a, const Units& b)
{
    return a.scale == b.scale && a.base == b.base;
}

} // namespace Kelvane::Value
