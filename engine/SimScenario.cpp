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

#include <cmath>
#include <stdexcept>

namespace {

[[noreturn]] void fail(const QString& where, const QString& what)
{
    throw std::runtime_error(QStringLiteral("scenario: %1: %2").arg(where, what).toStdString());
}

double numberIn(const QJsonValue& json, const QString& where)
{
    if (!json.isDouble())
        fail(where, QStringLiteral("a number is needed"));
    return json.toDouble();
}

std::int64_t wholeNumberIn(const QJsonValue& json, const QString& where)
{
    const double number = numberIn(json, where);
    if (std::floor(number) != number)
        fail(where, QStringLiteral("a whole number is needed"));
    return static_cast<std::int64_t>(number);
}

SimValue valueIn(const QJsonValue& json, SimPayload payload, const QString& where)
{
    switch (payload) {
    case SimPayload::Long:
    case SimPayload::LongLong:
    case SimPayload::ValueLong:
        return wholeNumberIn(json, where);
    case SimPayload::Double:
    case SimPayload::ValueDouble:
    case SimPayload::MeterReading:
        return numberIn(json, where);
    case SimPayload::Boolean:
        if (!json.isBool())
            fail(where, QStringLiteral("true or false is needed"));
        return json.toBool();
    case SimPayload::String:
        if (!json.isString())
            fail(where, QStringLiteral("a string is needed"));
        return json.toString().toStdString();
    case SimPayload::BasicTrace: {
        std::vector<float> samples;
        for (const QJsonValue& sample : json.toArray())
            samples.push_back(static_cast<float>(numberIn(sample, where)));
        return samples;
    }
    case SimPayload::ComplexTrace: {
        std::vector<std::complex<double>> points;
        for (const QJsonValue& point : json.toArray())
            points.emplace_back(numberIn(point.toArray().at(0), where), numberIn(point.toArray().at(1), where));
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
    const QString text = json.toString();
    Kelvane::Value::Units units;
    QString error;
    if (!ValueHelper::parseUnits(text, &units, &error))
        fail(where, error);
    const int colon = text.indexOf(QLatin1Char(':'));
    return {text.left(colon).toStdString(), text.mid(colon + 1).toStdString()};
}

SimLimits limitsIn(const QJsonObject& json, const QString& where)
{
    return {numberIn(json.value("lower"), where + "/limits/lower"), numberIn(json.value("upper"), where + "/limits/upper"),
            json.value("step").toDouble(1.0)};
}

std::vector<SimEnumEntry> entriesIn(const QJsonArray& json, const QString& where)
{
    std::vector<SimEnumEntry> entries;
    for (const QJsonValue& entry : json) {
        const QJsonObject object = entry.toObject();
        entries.push_back({static_cast<std::int32_t>(wholeNumberIn(object.value("value"), where + "/enum/value")),
                           object.value("label").toString().toStdString(), object.value("enabled").toBool(true)});
    }
    return entries;
}

// "meter": { "items": [ { "type": 0, "offset": 0 }, ... ], "flags": [ 1 ] } names the raised flags.
SimMeter meterIn(const QJsonObject& json, const QString& where)
{
    SimMeter meter;
    if (json.contains("items")) {
        meter.items.clear();
        for (const QJsonValue& item : json.value("items").toArray()) {
            const QJsonObject object = item.toObject();
            const std::int64_t type = wholeNumberIn(object.value("type"), where + "/items/type");
            if (type < 0 || type > 8)
                fail(where + "/items/type", QStringLiteral("a reading type from 0 to 8 is needed"));
            meter.items.push_back({static_cast<std::int32_t>(type), object.value("offset").toDouble(0.0)});
        }
    }
    for (const QJsonValue& flag : json.value("flags").toArray()) {
        const std::int64_t index = wholeNumberIn(flag, where + "/flags");
        if (index < 0 || index >= static_cast<std::int64_t>(meter.flags.size()))
            fail(where + "/flags", QStringLiteral("a flag from 0 to 6 is needed"));
        meter.flags[static_cast<std::size_t>(index)] = true;
    }
    return meter;
}

SimSimulation simulationIn(const QJsonObject& json, const QString& where)
{
    static const QMap<QString, SimSimulation::Kind> kinds = {{"ramp", SimSimulation::Kind::Ramp},
                                                             {"walk", SimSimulation::Kind::Walk},
                                                             {"toggle", SimSimulation::Kind::Toggle},
                                                             {"cycle", SimSimulation::Kind::Cycle},
                                                             {"reshape", SimSimulation::Kind::Reshape}};
    const QString kind = json.value("kind").toString();
    if (!kinds.contains(kind))
        fail(where, QStringLiteral("unknown simulation \"%1\"").arg(kind));
    SimSimulation simulation;
    simulation.kind = kinds.value(kind);
    simulation.periodMs = json.value("period_ms").toInt(simulation.periodMs);
    simulation.min = json.value("min").toDouble(simulation.min);
    simulation.max = json.value("max").toDouble(simulation.max);
    return simulation;
}

SimAttributeSetup attributeIn(const QJsonObject& json)
{
    SimAttributeSetup setup;
    setup.name = json.value("name").toString().toStdString();
    const QString where = QString::fromStdString(setup.name);
    if (setup.name.empty())
        fail(QStringLiteral("attribute"), QStringLiteral("a name is needed"));
    const std::optional<SimKind> kind = simKindNamed(json.value("kind").toString().toStdString());
    if (!kind)
        fail(where, QStringLiteral("unknown kind \"%1\"").arg(json.value("kind").toString()));
    setup.kind = *kind;
    if (json.contains("value"))
        setup.value = valueIn(json.value("value"), simKindInfo(*kind).payload, where + "/value");
    if (json.contains("limits"))
        setup.limits = limitsIn(json.value("limits").toObject(), where);
    setup.units = unitsIn(json.value("units"), where + "/units");
    setup.xUnits = unitsIn(json.value("x_units"), where + "/x_units");
    setup.enumEntries = entriesIn(json.value("enum").toArray(), where);
    if (json.contains("meter"))
        setup.meter = meterIn(json.value("meter").toObject(), where + "/meter");
    if (json.contains("simulation"))
        setup.simulation = simulationIn(json.value("simulation").toObject(), where + "/simulation");
    if (setup.value && !simPayloadAccepts(simKindInfo(*kind).payload, *setup.value))
        fail(where, QStringLiteral("the value is outside the range of the kind"));
    if (!SimSimulator::suits(setup.simulation, *kind))
        fail(where, QStringLiteral("the simulation does not suit the kind"));
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
    for (const QJsonValue& attribute : document.object().value("attributes").toArray())
        setups.push_back(attributeIn(attribute.toObject()));
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
