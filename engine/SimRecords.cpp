#include "SimRecords.h"

#include <cmath>

namespace SimRecords {

namespace {

void copyUnits(const SimUnits& in, Brenmoor::VALUE_UNITS::Units& out)
{
    out.scale = in.scale.c_str();
    out.base = in.base.c_str();
}

// The meter's limit records hold the whole range with the limit as value.
Brenmoor::VALUE_DOUBLE::VALUE limitRecord(const SimAttributeState& state, double limit)
{
    Brenmoor::VALUE_DOUBLE::VALUE out;
    copyUnits(state.units, out.units);
    out.lowerLimit = state.limits.lower;
    out.upperLimit = state.limits.upper;
    out.currentValue = limit;
    return out;
}

CORBA::Long asLong(double number)
{
    return static_cast<CORBA::Long>(std::llround(number));
}

} // namespace

void makeRecord(const SimAttributeState& state, CORBA::Long& out)
{
    out = static_cast<CORBA::Long>(std::get<std::int64_t>(state.value));
}

void makeRecord(const SimAttributeState& state, CORBA::LongLong& out)
{
    out = std::get<std::int64_t>(state.value);
}

void makeRecord(const SimAttributeState& state, CORBA::Double& out)
{
    out = std::get<double>(state.value);
}

void makeRecord(const SimAttributeState& state, CORBA::Boolean& out)
{
    out = std::get<bool>(state.value);
}

void makeRecord(const SimAttributeState& state, std::string& out)
{
    out = std::get<std::string>(state.value);
}

void makeRecord(const SimAttributeState& state, Brenmoor::VALUE_LONG::VALUE& out)
{
    copyUnits(state.units, out.units);
    out.lowerLimit = asLong(state.limits.lower);
    out.upperLimit = asLong(state.limits.upper);
    makeRecord(state, out.currentValue);
}

void makeRecord(const SimAttributeState& state, Brenmoor::VALUE_DOUBLE::VALUE& out)
{
    copyUnits(state.units, out.units);
    out.lowerLimit = state.limits.lower;
    out.upperLimit = state.limits.upper;
    makeRecord(state, out.currentValue);
}

void makeRecord(const SimAttributeState& state, Brenmoor::MeterReading::Reading& out)
{
    const double value = std::get<double>(state.value);
    const auto& items = state.meter.items;
    out.readings.length(static_cast<CORBA::ULong>(items.size()));
    for (CORBA::ULong i = 0; i < out.readings.length(); ++i) {
        copyUnits(state.units, out.readings[i].units);
        out.readings[i].value = value + items[i].offset;
        out.readings[i].type = items[i].type;
    }
    out.lowerLimit = limitRecord(state, state.limits.lower);
    out.upperLimit = limitRecord(state, state.limits.upper);
    const auto& flags = state.meter.flags;
    out.flag0 = flags[0];
    out.flag1 = flags[1];
    out.flag2 = flags[2];
    out.flag3 = flags[3] || value > state.limits.upper;
    out.flag4 = flags[4];
    out.flag5 = flags[5];
    out.flag6 = flags[6];
}

void makeRecord(const SimAttributeState& state, Brenmoor::BASIC_TRACE::BT_DATA& out)
{
    const auto& samples = std::get<std::vector<float>>(state.value);
    out.pointCount = static_cast<CORBA::Long>(samples.size());
    copyUnits(state.xUnits, out.xUnit);
    copyUnits(state.units, out.yUnit);
    out.start = static_cast<float>(state.limits.lower);
    out.stop = static_cast<float>(state.limits.upper);
    out.samples.length(static_cast<CORBA::ULong>(samples.size()));
    for (CORBA::ULong i = 0; i < out.samples.length(); ++i)
        out.samples[i] = samples[i];
}

void makeRecord(const SimAttributeState& state, Brenmoor::ComplexDoubleSeq& out)
{
    const auto& points = std::get<std::vector<std::complex<double>>>(state.value);
    out.length(static_cast<CORBA::ULong>(points.size()));
    for (CORBA::ULong i = 0; i < out.length(); ++i) {
        out[i].i = points[i].real();
        out[i].q = points[i].imag();
    }
}

void makeRecord(const SimAttributeState& state, Brenmoor::LimitsLong& out)
{
    out.lower = asLong(state.limits.lower);
    out.upper = asLong(state.limits.upper);
    out.step = asLong(state.limits.step);
}

void makeRecord(const SimAttributeState& state, Brenmoor::LimitsDouble& out)
{
    out.lower = state.limits.lower;
    out.upper = state.limits.upper;
    out.step = state.limits.step;
}

void makeRecord(const SimAttributeState& state, Brenmoor::EngineAttribEnumParams& out)
{
    out.length(static_cast<CORBA::ULong>(state.enumEntries.size()));
    for (CORBA::ULong i = 0; i < out.length(); ++i) {
        out[i].value = state.enumEntries[i].value;
        out[i].label = state.enumEntries[i].label.c_str();
        out[i].enabled = state.enumEntries[i].enabled;
    }
}

SimValue fromArgument(CORBA::Long in) { return std::int64_t{in}; }
SimValue fromArgument(CORBA::LongLong in) { return std::int64_t{in}; }
SimValue fromArgument(CORBA::Double in) { return in; }
SimValue fromArgument(CORBA::Boolean in) { return bool{in}; }
SimValue fromArgument(const char* in) { return std::string(in ? in : ""); }
SimValue fromArgument(const Brenmoor::VALUE_LONG::VALUE& in) { return std::int64_t{in.currentValue}; }
SimValue fromArgument(const Brenmoor::VALUE_DOUBLE::VALUE& in) { return in.currentValue; }

double numberOf(const SimValue& value)
{
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        return static_cast<double>(*whole);
    if (const auto* real = std::get_if<double>(&value))
        return *real;
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? 1.0 : 0.0;
    return 0.0;
}

} // namespace SimRecords
