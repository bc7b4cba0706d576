#ifndef UNITS_H
#define UNITS_H

#include <QMetaType>
#include <QString>

/*
  Unit descriptions. A description is the text form of one Units record: it
  is written in a .ui file's Units property (a list joins descriptions with
  "|"), and it travels on the wire split at its ':' (the text before it in
  `scale`, the text after it in `base`).

      description = scale ":" base
      scale       = logarithmic "," exponent "," reference
      base        = symbol ";" ";" ";" ";"

  logarithmic  0 for a linear unit; for a level (a logarithmic unit) the
               factor before log10: 10 for a power, 20 for an amplitude.
  exponent     linear units: decimal exponent of the prefix, -12 (p) to 12 (T)
               in steps of 3; on the unitless base only 0, or -2 for %.
               A level takes no prefix: 0.
  reference    levels: decimal exponent of the base-unit value that reads 0
               (dBm: -3, that is 1 mW), -12 to 12 in steps of 3; 0 on the
               unitless base. A linear unit has none: 0.
  symbol       the base unit without prefix: "1" for unitless, otherwise a
               letter and then letters, digits or '/', at most 16 of them,
               not beginning with "dB" (a level is written with its factor).
               The four fields after it are reserved and stay empty.

  Numbers are written as QString::number writes them (no '+', no leading
  zeros, no "-0"), and nothing else is allowed: no spaces, no '|', at most
  64 characters. So each unit has exactly one text, which round-trips
  unchanged through the record and the wire form.

  The label is derived: prefix and symbol ("kHz", "µs", "bit/s"), nothing for
  unitless and "%" for its -2; a level reads "dB", the prefix of its reference
  and the symbol ("dBW", "dBµV"), with the usual "dBm" for 1 mW and plain
  "dB" on the unitless base.

      "0,0,0:1;;;;"    unitless         "0,-2,0:1;;;;"   %
      "0,6,0:Hz;;;;"   MHz              "0,-6,0:s;;;;"   µs
      "10,0,-3:W;;;;"  dBm              "10,0,0:1;;;;"   dB (power ratio)
      "20,0,-6:V;;;;"  dBµV             "0,3,0:bit/s;;;;" kbit/s

  UnitDescriptions.h holds these texts for the common units.
*/

namespace Kelvane::Value {

//! How a unit relates to its base unit. The first byte tells a level from a linear unit.
struct UnitScale
{
    unsigned char logarithmic = 0; //!< 0 linear; 10 a power level, 20 an amplitude level
    qint8 exponent = 0;            //!< decimal exponent of a linear unit's prefix
    qint8 reference = 0;           //!< decimal exponent of the base value at which a level reads 0
};

//! Units convert into each other exactly when their base parts are equal.
struct BaseUnit
{
    QString symbol = QStringLiteral("1");
};

//! A unit, copied by value and across threads (it is a metatype).
struct Units
{
    UnitScale scale;
    BaseUnit base;
};

bool operator==(const UnitScale& a, const UnitScale& b);
bool operator==(const BaseUnit& a, const BaseUnit& b);
bool operator==(const Units& a, const Units& b);

/*!
  The start value of every unit member: the unitless unit "0,0,0:1;;;;",
  equal to a default-constructed Units. A member that never received a unit
  therefore converts, prints and travels like any other, and its empty label
  hides a widget's unit selector.
*/
extern const Units C_Empty;

} // namespace Kelvane::Value

Q_DECLARE_METATYPE(Kelvane::Value::Units)

#endif // UNITS_H
