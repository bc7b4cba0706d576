#ifndef VALUEHELPER_H
#define VALUEHELPER_H

#include "Value_object.h"

namespace Brenmoor {
namespace VALUE_UNITS {
struct Units;
}
namespace VALUE_DOUBLE {
struct VALUE;
}
} // namespace Brenmoor

/*!
  Reads, writes, labels and converts units (the grammar is in Units.h).

  Malformed input never crashes: parseUnits() answers false with an error
  naming the fault and its character position, and convertToUnits() throws
  Kelvane::Value::UnitError with that text, for descriptions and wire units
  alike (a wire unit is read as the description scale + ":" + base).
  All members are static and safe from any thread.
*/
class ValueHelper
{
public:
    //! \throws Kelvane::Value::UnitError
    static Kelvane::Value::Units convertToUnits(const QString& description);
    //! \throws Kelvane::Value::UnitError
    static Kelvane::Value::Units convertToUnits(Brenmoor::VALUE_UNITS::Units wire);
    static Brenmoor::VALUE_UNITS::Units toWireUnits(const Kelvane::Value::Units& unit);
    //! On failure \a out is untouched and \a error (when given) says what is wrong and where.
    static bool parseUnits(const QString& text, Kelvane::Value::Units* out, QString* error);
    static QString toDescription(const Kelvane::Value::Units& unit);

    /*!
      Units of different base units do not convert: the value comes back
      unchanged and one "UserInterface -" line is logged. A level of nothing
      (0 W in dBm) is -inf, of a negative value NaN; -inf dBm is 0 W.
    */
    static double convertValue(double value, const Kelvane::Value::Units& from, const Kelvane::Value::Units& to);
    static double convertValue(long value, const Kelvane::Value::Units& from, const Kelvane::Value::Units& to);
    //! \throws Kelvane::Value::UnitError
    static Kelvane::Value::Value_object<double> convertValue(Brenmoor::VALUE_DOUBLE::VALUE value);

    /*!
      The prefixed unit in which the larger magnitude of the two reads from
      1 to below 1000, kept within p to T. Levels, the unitless base, two values that
      are both zero or not finite, and values of different base units keep
      the unit of \a a.
    */
    static Kelvane::Value::Units bestFitUnit(const Kelvane::Value::Value_object<double>& a,
                                             const Kelvane::Value::Value_object<double>& b);

    //! The label in selectors and logs; empty for unitless.
    static QString getUnitString(const Kelvane::Value::Units& unit);
    static void printUnit(const Kelvane::Value::Units& unit);
};

#endif // VALUEHELPER_H
