#include "SimScenario.h"

#include "SimEngine.h"
#include "SimSimulator.h"
#include "Units.h"
#include "ValueHelper.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <stdexcept>

namespace {

// Fast DDS keeps a topic's name in 255 bytes of its discovery data, and an
// attribute's longest topics are "rv/attr/<name>/params" and ".../limits".
constexpr int longestName = 255 - int(sizeof("rv/attr/") - 1) - int(sizeof("/params") - 1);
constexpr int longestPeriodMs = 24 * 60 * 60 * 1000;

[[noreturn]] void fail(const QString& where, const QString& what)
{
    throw std::runtime_error(QStringLiteral("scenario: %1: %2").arg(where, what).toStdString());
}

QJsonObject objectIn(const QJsonValue& json, const QString& where)
{
    if (!json.isObject())
        fail(where, QStringLiteral("an object is needed"));
    return json.toObject();
}

QJsonArray listIn(const QJsonValue& json, const QString& where)
{
    if (!json.isArray())
        fail(where, QStringLiteral("a list is needed"));
    return json.toArray();
}

bool booleanIn(const QJsonValue& json, const QString& where)
{
    if (!json.isBool())
        fail(where, QStringLiteral("true or false is needed"));
    return json.toBool();
}

QString stringIn(const QJsonValue& json, const QString& where)
{
    if (!json.isString())
        fail(where, QStringLiteral("a string is needed"));
    return json.toString();
}

// CORBA and DDS strings end at the first NUL, so a client would see less than was written.
std::string sentStringIn(const QJsonValue& json, const QString& where)
{
    const QString text = stringIn(json, where);
    if (text.contains(QChar(0)))
        fail(where, QStringLiteral("no NUL characters are allowed"));
    return text.toStdString();
}

// JSON has no NaN or infinity, but a value that is not finite must never reach a conversion.
double numberIn(const QJsonValue& json, const QString& where)
{
    if (!json.isDouble())
        fail(where, QStringLiteral("a number is needed"));
    const double number = json.toDouble();
    if (!std::isfinite(number))
        fail(where, QStringLiteral("a finite number is needed"));
    return number;
}

// Checked on the double before converting it: a conversion out of range is undefined.
std::int64_t wholeNumberIn(const QJsonValue& json, const QString& where, double lowest, double highest,
                           const QString& range)
{
    const double number = numberIn(json, where);
    if (std::floor(number) != number)
        fail(where, QStringLiteral("a whole number is needed"));
    if (!(number >= lowest && number <= highest))
        fail(where, range);
    return static_cast<std::int64_t>(number);
}

// 2^63 is a double but no int64; the double below it is the highest that converts.
const double lowest64 = -0x1p63;
const double highest64 = std::nextafter(0x1p63, 0.0);
constexpr double lowest32 = std::numeric_limits<std::int32_t>::min();
constexpr double highest32 = std::numeric_limits<std::int32_t>::max();

std::int64_t wholeNumber64In(const QJsonValue& json, const QString& where)
{
    return wholeNumberIn(json, where, lowest64, highest64,
                         QStringLiteral("a whole number within the 64-bit range is needed"));
}

std::int32_t wholeNumber32In(const QJsonValue& json, const QString& where)
{
    return static_cast<std::int32_t>(wholeNumberIn(json, where, lowest32, highest32,
                                                   QStringLiteral("a whole number within the 32-bit range is needed")));
}

// A basic trace's samples and x range travel as floats.
float floatIn(const QJsonValue& json, const QString& where)
{
    const double number = numberIn(json, where);
    if (std::abs(number) > std::numeric_limits<float>::max())
        fail(where, QStringLiteral("a number within the range of a float is needed"));
    return static_cast<float>(number);
}

SimValue valueIn(const QJsonValue& json, SimPayload payload, const QString& where)
{
    switch (payload) {
    case SimPayload::Long:
    case SimPayload::ValueLong:
        return std::int64_t{wholeNumber32In(json, where)};
    case SimPayload::LongLong:
        return wholeNumber64In(json, where);
    case SimPayload::Double:
    case SimPayload::ValueDouble:
    case SimPayload::MeterReading:
        return numberIn(json, where);
    case SimPayload::Boolean:
        return booleanIn(json, where);
    case SimPayload::String:
        return sentStringIn(json, where);
    case SimPayload::BasicTrace: {
        std::vector<float> samples;
        for (const QJsonValue& sample : listIn(json, where))
            samples.push_back(floatIn(sample, where));
        return samples;
    }
    case SimPayload::ComplexTrace: {
        std::vector<std::complex<double>> points;
        for (const QJsonValue& point : listIn(json, where)) {
            if (!point.isArray() || point.toArray().size() != 2)
                fail(where, QStringLiteral("an [i, q] pair of numbers is needed for each point"));
            points.emplace_back(numberIn(point.toArray().at(0), where), numberIn(point.toArray().at(1), where));
        }
        return points;
    }
    }
    fail(where, QStringLiteral("no value of this kind"));
}

// A unit is written as its description; the engine sends the two halves.
SimUnits unitsIn(const QJsonValue& json, const QString& where)
{
    if (json.isUndefined())
        return {};
    const QString text = stringIn(json, where);
    Kelvane::Value::Units units;
    QString error;
    if (!ValueHelper::parseUnits(text, &units, &error))
        fail(where, error);
    const int colon = text.indexOf(QLatin1Char(':'));
    return {text.left(colon).toStdString(), text.mid(colon + 1).toStdString()};
}

// Whole-number kinds send their limits as 32-bit numbers, a basic trace its x range as floats.
double limitIn(const QJsonValue& json, SimPayload payload, const QString& where)
{
    switch (payload) {
    case SimPayload::Long:
    case SimPayload::ValueLong:
        return wholeNumber32In(json, where);
    case SimPayload::BasicTrace:
        return floatIn(json, where);
    default:
        return numberIn(json, where);
    }
}

SimLimits limitsIn(const QJsonValue& json, SimPayload payload, const QString& where)
{
    const QJsonObject object = objectIn(json, where);
    SimLimits limits;
    limits.lower = limitIn(object.value("lower"), payload, where + "/lower");
    limits.upper = limitIn(object.value("upper"), payload, where + "/upper");
    if (limits.lower > limits.upper)
        fail(where + "/lower", QStringLiteral("above the upper limit"));
    if (object.contains("step")) {
        limits.step = limitIn(object.value("step"), payload, where + "/step");
        if (limits.step <= 0.0)
            fail(where + "/step", QStringLiteral("a positive number is needed"));
    }
    return limits;
}

std::vector<SimEnumEntry> entriesIn(const QJsonValue& json, SimKind kind, const QString& where)
{
    if (!simKindInfo(kind).enumerated)
        fail(where, QStringLiteral("an %1 has no enumerator list").arg(simKindInfo(kind).interfaceName));
    std::vector<SimEnumEntry> entries;
    for (const QJsonValue& entry : listIn(json, where)) {
        const QJsonObject object = objectIn(entry, where);
        SimEnumEntry parsed;
        parsed.value = wholeNumber32In(object.value("value"), where + "/value");
        if (object.contains("label"))
            parsed.label = sentStringIn(object.value("label"), where + "/label");
        if (object.contains("enabled"))
            parsed.enabled = booleanIn(object.value("enabled"), where + "/enabled");
        // A client finds an entry's label by its value.
        if (std::any_of(entries.begin(), entries.end(), [&](const SimEnumEntry& e) { return e.value == parsed.value; }))
            fail(where + "/value", QStringLiteral("%1 is listed twice").arg(parsed.value));
        entries.push_back(parsed);
    }
    return entries;
}

// "meter": { "items": [ { "type": 0, "offset": 0 }, ... ], "flags": [ 1 ] } names the raised flags.
SimMeter meterIn(const QJsonValue& json, SimKind kind, const QString& where)
{
    if (simKindInfo(kind).payload != SimPayload::MeterReading)
        fail(where, QStringLiteral("an %1 has no meter reading").arg(simKindInfo(kind).interfaceName));
    const QJsonObject object = objectIn(json, where);
    SimMeter meter;
    if (object.contains("items")) {
        meter.items.clear();
        for (const QJsonValue& item : listIn(object.value("items"), where + "/items")) {
            const QJsonObject fields = objectIn(item, where + "/items");
            SimMeterItem parsed;
            const QString need = QStringLiteral("a reading type from 0 to 8 is needed");
            const std::int64_t type = wholeNumberIn(fields.value("type"), where + "/items/type", 0, 8, need);
            parsed.type = static_cast<std::int32_t>(type);
            if (fields.contains("offset"))
                parsed.offset = numberIn(fields.value("offset"), where + "/items/offset");
            meter.items.push_back(parsed);
        }
    }
    if (object.contains("flags")) {
        const double lastFlag = static_cast<double>(meter.flags.size() - 1);
        for (const QJsonValue& flag : listIn(object.value("flags"), where + "/flags")) {
            const std::int64_t index = wholeNumberIn(flag, where + "/flags", 0, lastFlag,
                                                     QStringLiteral("a flag from 0 to 6 is needed"));
            meter.flags[static_cast<std::size_t>(index)] = true;
        }
    }
    return meter;
}

// The bounds a simulation moves a value between, which must be values of the kind.
double simulationBoundIn(const QJsonValue& json, SimPayload payload, const QString& where)
{
    const double bound = numberIn(json, where);
    bool fits = true;
    switch (payload) {
    case SimPayload::Long:
    case SimPayload::ValueLong:
        fits = bound >= lowest32 && bound <= highest32;
        break;
    case SimPayload::LongLong:
        fits = bound >= lowest64 && bound <= highest64;
        break;
    default:
        break;
    }
    if (!fits)
        fail(where, QStringLiteral("outside the range of the kind"));
    return bound;
}

std::vector<std::string> textsIn(const QJsonValue& json, const QString& where)
{
    std::vector<std::string> texts;
    const QJsonArray list = listIn(json, where);
    for (int i = 0; i < list.size(); ++i)
        texts.push_back(sentStringIn(list.at(i), where + QStringLiteral("/%1").arg(i)));
    return texts;
}

SimSimulation simulationIn(const QJsonValue& json, SimKind kind, const QString& where)
{
    static const QMap<QString, SimSimulation::Kind> kinds = {{"ramp", SimSimulation::Kind::Ramp},
                                                             {"drain", SimSimulation::Kind::Drain},
                                                             {"walk", SimSimulation::Kind::Walk},
                                                             {"toggle", SimSimulation::Kind::Toggle},
                                                             {"cycle", SimSimulation::Kind::Cycle},
                                                             {"reshape", SimSimulation::Kind::Reshape}};
    const QJsonObject object = objectIn(json, where);
    const QString name = stringIn(object.value("kind"), where + "/kind");
    if (!kinds.contains(name))
        fail(where + "/kind", QStringLiteral("unknown simulation \"%1\"").arg(name));
    SimSimulation simulation;
    simulation.kind = kinds.value(name);
    if (object.contains("period_ms"))
        simulation.periodMs = static_cast<int>(
            wholeNumberIn(object.value("period_ms"), where + "/period_ms", 1, longestPeriodMs,
                          QStringLiteral("a whole number from 1 to %1 is needed").arg(longestPeriodMs)));
    const SimPayload payload = simKindInfo(kind).payload;
    if (object.contains("min"))
        simulation.min = simulationBoundIn(object.value("min"), payload, where + "/min");
    if (object.contains("max"))
        simulation.max = simulationBoundIn(object.value("max"), payload, where + "/max");
    if (simulation.min > simulation.max)
        fail(where + "/min", QStringLiteral("above max"));
    if (object.contains("texts"))
        simulation.texts = textsIn(object.value("texts"), where + "/texts");
    return simulation;
}

// The name becomes part of DDS topic names and of every complaint about the attribute.
std::string nameIn(const QJsonValue& json, const QString& where)
{
    const QString name = json.toString();
    if (!json.isString() || name.isEmpty())
        fail(where, QStringLiteral("a name is needed"));
    if (std::any_of(name.begin(), name.end(), [](QChar c) { return c.category() == QChar::Other_Control; }))
        fail(where, QStringLiteral("no control characters are allowed"));
    const QByteArray utf8 = name.toUtf8();
    if (utf8.size() > longestName)
        fail(where,
             QStringLiteral("at most %1 bytes of UTF-8 are allowed, it has %2").arg(longestName).arg(utf8.size()));
    return utf8.toStdString();
}

SimAttributeSetup attributeIn(const QJsonValue& json, int position)
{
    const QString place = QStringLiteral("attribute %1").arg(position);
    const QJsonObject object = objectIn(json, place);
    SimAttributeSetup setup;
    setup.name = nameIn(object.value("name"), place + "/name");
    const QString where = QString::fromStdString(setup.name);
    const std::optional<SimKind> kind = simKindNamed(object.value("kind").toString().toStdString());
    if (!kind)
        fail(where + "/kind", QStringLiteral("unknown kind \"%1\"").arg(object.value("kind").toString()));
    setup.kind = *kind;
    const SimPayload payload = simKindInfo(*kind).payload;
    if (object.contains("value"))
        setup.value = valueIn(object.value("value"), payload, where + "/value");
    if (object.contains("limits"))
        setup.limits = limitsIn(object.value("limits"), payload, where + "/limits");
    setup.units = unitsIn(object.value("units"), where + "/units");
    setup.xUnits = unitsIn(object.value("x_units"), where + "/x_units");
    if (object.contains("enum"))
        setup.enumEntries = entriesIn(object.value("enum"), *kind, where + "/enum");
    if (object.contains("meter"))
        setup.meter = meterIn(object.value("meter"), *kind, where + "/meter");
    if (object.contains("simulation"))
        setup.simulation = simulationIn(object.value("simulation"), *kind, where + "/simulation");
    if (object.contains("refuse"))
        setup.refusedTexts = textsIn(object.value("refuse"), where + "/refuse");
    if (setup.value && !simPayloadAccepts(payload, *setup.value))
        fail(where + "/value", QStringLiteral("the value is outside the range of the kind"));
    if (!SimSimulator::suits(setup.simulation, *kind))
        fail(where + "/simulation", QStringLiteral("the simulation does not suit the kind"));
    return setup;
}

} // namespace

std::vector<SimAttributeSetup> SimScenario::parse(const QByteArray& json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (document.isNull())
        fail(QStringLiteral("JSON"), error.errorString());
    if (!document.object().value("attributes").isArray())
        fail(QStringLiteral("JSON"), QStringLiteral("an \"attributes\" list is needed"));
    std::vector<SimAttributeSetup> setups;
    std::set<std::string> names;
    for (const QJsonValue& attribute : document.object().value("attributes").toArray()) {
        setups.push_back(attributeIn(attribute, static_cast<int>(setups.size()) + 1));
        if (!names.insert(setups.back().name).second)
            fail(QString::fromStdString(setups.back().name) + "/name", QStringLiteral("declared twice"));
    }
    return setups;
}

void SimScenario::load(const QString& path, SimEngine& engine)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        fail(path, file.errorString());
    for (const SimAttributeSetup& setup : parse(file.readAll())) {
        try {
            engine.addAttribute(setup);
        } catch (const std::invalid_argument& error) {
            throw std::runtime_error(std::string("scenario: ") + error.what());
        }
    }
}
