#include "SimKind.h"

#include <algorithm>
#include <array>
#include <complex>
#include <cstdint>
#include <limits>

namespace {

using P = SimPayload;

// In the order of SimKind.
constexpr std::array<SimKindInfo, 18> s_kinds = {{
    {SimKind::ReadingLong, "EngineReadingLong", "long", P::Long, false, false, false},
    {SimKind::ReadingLongLong, "EngineReadingLongLong", "longlong", P::LongLong, false, false, false},
    {SimKind::ReadingDouble, "EngineReadingDouble", "double", P::Double, false, false, false},
    {SimKind::ReadingBoolean, "EngineReadingBoolean", "boolean", P::Boolean, false, false, false},
    {SimKind::ReadingString, "EngineReadingString", "string", P::String, false, false, false},
    {SimKind::ReadingValueLong, "EngineReadingValueLong", "ValueLong", P::ValueLong, false, false, false},
    {SimKind::ReadingValueDouble, "EngineReadingValueDouble", "ValueDouble", P::ValueDouble, false, false, false},
    {SimKind::ReadingMeterReading, "EngineReadingMeterReading", "MeterReading", P::MeterReading, false, false, false},
    {SimKind::ReadingComplexTrace, "EngineReadingComplexTrace", "ComplexTrace", P::ComplexTrace, false, false, false},
    {SimKind::BasicTrace, "EngineBasicTrace", "BasicTrace", P::BasicTrace, false, false, false},
    {SimKind::AttribBoolean, "EngineAttribBoolean", "boolean", P::Boolean, true, false, false},
    {SimKind::AttribLong, "EngineAttribLong", "long", P::Long, true, true, false},
    {SimKind::AttribDouble, "EngineAttribDouble", "double", P::Double, true, true, false},
    {SimKind::AttribValueLong, "EngineAttribValueLong", "ValueLong", P::ValueLong, true, true, false},
    {SimKind::AttribValueDouble, "EngineAttribValueDouble", "ValueDouble", P::ValueDouble, true, true, false},
    {SimKind::AttribLongLong, "EngineAttribLongLong", "longlong", P::LongLong, true, false, false},
    {SimKind::AttribString, "EngineAttribString", "string", P::String, true, false, false},
    {SimKind::AttribEnum, "EngineAttribEnum", "enum", P::Long, true, false, true},
}};

bool fitsLong(std::int64_t value)
{
    return value >= std::numeric_limits<std::int32_t>::min() && value <= std::numeric_limits<std::int32_t>::max();
}

} // namespace

const SimKindInfo& simKindInfo(SimKind kind)
{
    return s_kinds[static_cast<std::size_t>(kind)];
}

std::optional<SimKind> simKindNamed(const std::string& interfaceName)
{
    const auto it = std::find_if(s_kinds.begin(), s_kinds.end(),
                                 [&](const SimKindInfo& info) { return interfaceName == info.interfaceName; });
    if (it == s_kinds.end())
        return std::nullopt;
    return it->kind;
}

bool simPayloadAccepts(SimPayload payload, const SimValue& value)
{
    switch (payload) {
    case P::Long:
    case P::ValueLong:
        return std::holds_alternative<std::int64_t>(value) && fitsLong(std::get<std::int64_t>(value));
    case P::LongLong:
        return std::holds_alternative<std::int64_t>(value);
    case P::Double:
    case P::ValueDouble:
    case P::MeterReading:
        return std::holds_alternative<double>(value);
    case P::Boolean:
        return std::holds_alternative<bool>(value);
    case P::String:
        return std::holds_alternative<std::string>(value);
    case P::BasicTrace:
        return std::holds_alternative<std::vector<float>>(value);
    case P::ComplexTrace:
        return std::holds_alternative<std::vector<std::complex<double>>>(value);
    }
    return false;
}

SimValue simPayloadZero(SimPayload payload)
{
    switch (payload) {
    case P::Long:
    case P::LongLong:
    case P::ValueLong:
        return std::int64_t{0};
    case P::Double:
    case P::ValueDouble:
    case P::MeterReading:
        return 0.0;
    case P::Boolean:
        return false;
    case P::String:
        return std::string();
    case P::BasicTrace:
        return std::vector<float>();
    case P::ComplexTrace:
        return std::vector<std::complex<double>>();
    }
    return false;
}
