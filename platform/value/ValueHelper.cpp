#include "ValueHelper.h"

#include "UnitError.h"

#include <Brenmoor.hh>

#include <QDebug>
#include <QVector>

#include <algorithm>
#include <cmath>

using Kelvane::Value::BaseUnit;
using Kelvane::Value::UnitScale;
using Kelvane::Value::Units;
using Kelvane::Value::Value_object;

namespace {

constexpr int MaxDescriptionLength = 64;
constexpr int MaxSymbolLength = 16;
constexpr int MaxNumberLength = 4;
constexpr int ScaleFieldCount = 3;
constexpr int BaseFieldCount = 5;
constexpr int LargestExponent = 12;
constexpr int PercentExponent = -2;
constexpr int MilliExponent = -3;

bool isUnitless(const BaseUnit& base)
{
    return base.symbol == QLatin1String("1");
}

bool isPrefixExponent(int exponent)
{
    return exponent % 3 == 0 && std::abs(exponent) <= LargestExponent;
}

QString prefix(int exponent)
{
    static constexpr const char16_t* prefixes[] = {u"p", u"n", u"\u00B5", u"m", u"", u"k", u"M", u"G", u"T"};
    // Only a record filled in by hand can hold another exponent.
    if (!isPrefixExponent(exponent))
        return QStringLiteral("1e%1 ").arg(exponent);
    return QString::fromUtf16(prefixes[(exponent + LargestExponent) / 3]);
}

// Dividing for negative exponents keeps 1 mW at 0.001 W to the last bit.
double scaled(double value, int exponent)
{
    const double factor = std::pow(10.0, std::abs(exponent));
    return exponent >= 0 ? value * factor : value / factor;
}

double toBase(double value, const UnitScale& scale)
{
    if (!scale.logarithmic)
        return scaled(value, scale.exponent);
    return std::pow(10.0, scale.reference + value / scale.logarithmic);
}

double fromBase(double value, const UnitScale& scale)
{
    if (!scale.logarithmic)
        return scaled(value, -scale.exponent);
    return scale.logarithmic * (std::log10(value) - scale.reference);
}

double convertScale(double value, const UnitScale& from, const UnitScale& to)
{
    if (from == to)
        return value;
    // Between levels of one kind the shift in dB is exact and cannot overflow.
    if (from.logarithmic && from.logarithmic == to.logarithmic)
        return value + from.logarithmic * (from.reference - to.reference);
    return fromBase(toBase(value, from), to);
}

// What a value amounts to in its base unit, for fitting; 0 when it cannot be fitted.
double magnitude(const Value_object<double>& value)
{
    const double inBase = std::abs(toBase(value.Get_value(), value.Get_unit().scale));
    return std::isfinite(inBase) ? inBase : 0.0;
}

QString scaleText(const UnitScale& scale)
{
    return QStringLiteral("%1,%2,%3").arg(int(scale.logarithmic)).arg(int(scale.exponent)).arg(int(scale.reference));
}

QString baseText(const BaseUnit& base)
{
    return base.symbol + QStringLiteral(";;;;");
}

bool fail(QString* error, const QString& message)
{
    if (error)
        *error = message;
    return false;
}

//! A piece of a description and the character (counted from 1) at which it starts.
struct Field
{
    QString text;
    int position = 1;
};

QVector<Field> split(const Field& whole, QChar separator)
{
    QVector<Field> fields;
    int position = whole.position;
    for (const QString& text : whole.text.split(separator)) {
        fields.append({text, position});
        position += text.size() + 1;
    }
    return fields;
}

bool readNumber(const Field& field, const char* name, int* number, QString* error)
{
    bool ok = false;
    *number = field.text.toInt(&ok);
    if (ok && field.text.size() <= MaxNumberLength && QString::number(*number) == field.text)
        return true;
    return fail(error, QStringLiteral("%1 \"%2\" at character %3 is not a plainly written whole number from -999 to 999")
                           .arg(QLatin1String(name), field.text)
                           .arg(field.position));
}

bool refuseNumber(const Field& field, const char* name, const char* rule, QString* error)
{
    return fail(error, QStringLiteral("%1 %2 at character %3: %4")
                           .arg(QLatin1String(name), field.text)
                           .arg(field.position)
                           .arg(QLatin1String(rule)));
}

bool readScale(const QVector<Field>& fields, bool unitless, UnitScale* scale, QString* error)
{
    int logarithmic = 0;
    int exponent = 0;
    int reference = 0;
    if (!readNumber(fields[0], "logarithmic factor", &logarithmic, error)
        || !readNumber(fields[1], "exponent", &exponent, error) || !readNumber(fields[2], "reference", &reference, error))
        return false;
    if (logarithmic != 0 && logarithmic != 10 && logarithmic != 20)
        return refuseNumber(fields[0], "logarithmic factor", "use 0 (linear), 10 (power level) or 20 (amplitude level)",
                            error);
    const bool level = logarithmic != 0;
    if (level && exponent != 0)
        return refuseNumber(fields[1], "exponent", "a level takes no prefix, write 0", error);
    if (!level && reference != 0)
        return refuseNumber(fields[2], "reference", "a linear unit has no reference, write 0", error);
    const int prefixed = level ? reference : exponent;
    const Field& prefixField = level ? fields[2] : fields[1];
    const char* prefixName = level ? "reference" : "exponent";
    if (unitless && prefixed != 0 && (level || prefixed != PercentExponent))
        return refuseNumber(prefixField, prefixName, "the unitless base takes 0, or -2 (%) on a linear unit", error);
    if (!unitless && !isPrefixExponent(prefixed))
        return refuseNumber(prefixField, prefixName, "use -12 to 12 in steps of 3", error);
    *scale = {static_cast<unsigned char>(logarithmic), static_cast<qint8>(exponent), static_cast<qint8>(reference)};
    return true;
}

bool isSymbol(const QString& text)
{
    if (text == QLatin1String("1"))
        return true;
    if (text.isEmpty() || text.size() > MaxSymbolLength || !text.front().isLetter())
        return false;
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.isLetterOrNumber() || c == QLatin1Char('/'); });
}

bool readBase(const QVector<Field>& fields, BaseUnit* base, QString* error)
{
    const Field& symbol = fields[0];
    if (!isSymbol(symbol.text))
        return fail(error, QStringLiteral("symbol \"%1\" at character %2: write 1 for unitless, or a letter and then "
                                          "letters, digits or '/', at most %3 in all")
                               .arg(symbol.text)
                               .arg(symbol.position)
                               .arg(MaxSymbolLength));
    // "0,0,0:dBm;;;;" would show dBm but never convert to mW.
    if (symbol.text.startsWith(QLatin1String("dB")))
        return fail(error, QStringLiteral("symbol \"%1\" at character %2: write a level with its logarithmic factor, "
                                          "dBm as 10,0,-3:W;;;;")
                               .arg(symbol.text)
                               .arg(symbol.position));
    for (int i = 1; i < fields.size(); ++i) {
        if (!fields[i].text.isEmpty())
            return fail(error, QStringLiteral("base field %1 at character %2 is reserved and must be empty")
                                   .arg(i + 1)
                                   .arg(fields[i].position));
    }
    base->symbol = symbol.text;
    return true;
}

bool isForbidden(QChar c)
{
    return !c.isPrint() || c.isSpace() || c == QLatin1Char('|');
}

} // namespace

Units ValueHelper::convertToUnits(const QString& description)
{
    Units unit;
    QString error;
    if (!parseUnits(description, &unit, &error))
        throw Kelvane::Value::UnitError(error.toStdString());
    return unit;
}

Units ValueHelper::convertToUnits(Brenmoor::VALUE_UNITS::Units wire)
{
    return convertToUnits(QString::fromUtf8(wire.scale.in()) + QLatin1Char(':') + QString::fromUtf8(wire.base.in()));
}

Brenmoor::VALUE_UNITS::Units ValueHelper::toWireUnits(const Units& unit)
{
    Brenmoor::VALUE_UNITS::Units wire;
    wire.scale = scaleText(unit.scale).toUtf8().constData();
    wire.base = baseText(unit.base).toUtf8().constData();
    return wire;
}

bool ValueHelper::parseUnits(const QString& text, Units* out, QString* error)
{
    if (text.isEmpty())
        return fail(error, QStringLiteral("the unit description is empty"));
    if (text.size() > MaxDescriptionLength)
        return fail(error, QStringLiteral("the unit description has %1 characters; at most %2 are allowed")
                               .arg(text.size())
                               .arg(MaxDescriptionLength));
    const auto forbidden = std::find_if(text.begin(), text.end(), isForbidden);
    if (forbidden != text.end())
        return fail(error, QStringLiteral("character U+%1 at character %2 is not allowed in a unit description "
                                          "(no spaces, control characters or '|')")
                               .arg(forbidden->unicode(), 4, 16, QLatin1Char('0'))
                               .arg(forbidden - text.begin() + 1));
    const QVector<Field> parts = split({text, 1}, QLatin1Char(':'));
    if (parts.size() != 2)
        return fail(error, QStringLiteral("the unit description needs one ':' between scale and base, it has %1")
                               .arg(parts.size() - 1));
    const QVector<Field> scaleFields = split(parts[0], QLatin1Char(','));
    if (scaleFields.size() != ScaleFieldCount)
        return fail(error, QStringLiteral("the scale \"%1\" needs %2 fields separated by ',', it has %3")
                               .arg(parts[0].text)
                               .arg(ScaleFieldCount)
                               .arg(scaleFields.size()));
    const QVector<Field> baseFields = split(parts[1], QLatin1Char(';'));
    if (baseFields.size() != BaseFieldCount)
        return fail(error, QStringLiteral("the base \"%1\" at character %2 needs %3 fields separated by ';', it has %4")
                               .arg(parts[1].text)
                               .arg(parts[1].position)
                               .arg(BaseFieldCount)
                               .arg(baseFields.size()));
    Units unit;
    if (!readBase(baseFields, &unit.base, error) || !readScale(scaleFields, isUnitless(unit.base), &unit.scale, error))
        return false;
    *out = unit;
    return true;
}

QString ValueHelper::toDescription(const Units& unit)
{
    return scaleText(unit.scale) + QLatin1Char(':') + baseText(unit.base);
}

double ValueHelper::convertValue(double value, const Units& from, const Units& to)
{
    if (from.base == to.base)
        return convertScale(value, from.scale, to.scale);
    qDebug().noquote() << "UserInterface - ValueHelper::convertValue: no conversion from" << toDescription(from) << "to"
                       << toDescription(to) << "as their base units differ; the value stays" << value;
    return value;
}

double ValueHelper::convertValue(long value, const Units& from, const Units& to)
{
    return convertValue(static_cast<double>(value), from, to);
}

Value_object<double> ValueHelper::convertValue(Brenmoor::VALUE_DOUBLE::VALUE value)
{
    return {value.currentValue, convertToUnits(value.units)};
}

Units ValueHelper::bestFitUnit(const Value_object<double>& a, const Value_object<double>& b)
{
    Units fitted = a.Get_unit();
    const double largest = std::max(magnitude(a), magnitude(b));
    if (fitted.scale.logarithmic || isUnitless(fitted.base) || !(fitted.base == b.Get_unit().base) || largest == 0.0)
        return fitted;
    const int decade = static_cast<int>(std::floor(std::log10(largest)));
    const int thousands = decade >= 0 ? decade / 3 : (decade - 2) / 3;
    fitted.scale.exponent = static_cast<qint8>(std::clamp(3 * thousands, -LargestExponent, LargestExponent));
    return fitted;
}

QString ValueHelper::getUnitString(const Units& unit)
{
    const UnitScale& scale = unit.scale;
    if (isUnitless(unit.base)) {
        if (scale.logarithmic)
            return QStringLiteral("dB");
        return scale.exponent == PercentExponent ? QStringLiteral("%") : QString();
    }
    if (!scale.logarithmic)
        return prefix(scale.exponent) + unit.base.symbol;
    if (unit.base.symbol == QLatin1String("W") && scale.reference == MilliExponent)
        return QStringLiteral("dBm");
    return QStringLiteral("dB") + prefix(scale.reference) + unit.base.symbol;
}

void ValueHelper::printUnit(const Units& unit)
{
    qDebug().noquote() << "UserInterface - unit" << toDescription(unit) << ('"' + getUnitString(unit) + '"');
}
