#ifndef SIMKIND_H
#define SIMKIND_H

#include "SimValue.h"

#include <optional>
#include <string>

/*!
  The attribute interfaces the simulated engine serves, one kind per
  interface, and what each offers: its names in TypeInfo, the payload of its
  value topic, and whether clients may set it, see limits or an enumerator
  list.
*/
enum class SimKind {
    ReadingLong,
    ReadingLongLong,
    ReadingDouble,
    ReadingBoolean,
    ReadingString,
    ReadingValueLong,
    ReadingValueDouble,
    ReadingMeterReading,
    ReadingComplexTrace,
    BasicTrace,
    AttribBoolean,
    AttribLong,
    AttribDouble,
    AttribValueLong,
    AttribValueDouble,
    AttribLongLong,
    AttribString,
    AttribEnum
};

//! The payload of a value topic; each maps onto one TQMM_DDS::ATTR_* sample.
enum class SimPayload {
    Long,
    LongLong,
    Double,
    Boolean,
    String,
    ValueLong,
    ValueDouble,
    MeterReading,
    BasicTrace,
    ComplexTrace
};

struct SimKindInfo
{
    SimKind kind;
    const char* interfaceName;  //!< the interface's bare name, as typeInfo() tells it
    const char* typeName;       //!< the value type word of typeInfo()
    SimPayload payload;
    bool settable;    //!< an EngineAttrib* interface: set(), lock topic
    bool limited;     //!< limits() and a limits topic
    bool enumerated;  //!< params() and a params topic
};

const SimKindInfo& simKindInfo(SimKind kind);
//! The kind serving the interface of that bare name, if any.
std::optional<SimKind> simKindNamed(const std::string& interfaceName);

//! Whether a value of that alternative fits the payload (whole numbers also in range).
bool simPayloadAccepts(SimPayload payload, const SimValue& value);
//! The value an attribute of that payload starts with when none is given.
SimValue simPayloadZero(SimPayload payload);

#endif // SIMKIND_H
