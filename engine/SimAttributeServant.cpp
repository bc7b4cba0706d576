#include "SimAttributeServant.h"

#include "SimAttribute.h"
#include "SimRecords.h"

#include <Brenmoor.hh>

namespace SimAttributeServant {

namespace {

// How a record leaves value() and arrives in set(), by the C++ mapping:
// fixed-size values by value, strings and variable-size records by pointer.
template <class Record>
struct Wire
{
    using Return = Record;
    using In = Record;
    static Return out(Record record) { return record; }
};

template <class Record>
struct VariableWire
{
    using Return = Record*;
    using In = const Record&;
    static Return out(Record record) { return new Record(std::move(record)); }
};

template <>
struct Wire<std::string>
{
    using Return = char*;
    using In = const char*;
    static Return out(const std::string& record) { return CORBA::string_dup(record.c_str()); }
};

template <> struct Wire<Brenmoor::VALUE_LONG::VALUE> : VariableWire<Brenmoor::VALUE_LONG::VALUE> {};
template <> struct Wire<Brenmoor::VALUE_DOUBLE::VALUE> : VariableWire<Brenmoor::VALUE_DOUBLE::VALUE> {};
template <> struct Wire<Brenmoor::MeterReading::Reading> : VariableWire<Brenmoor::MeterReading::Reading> {};
template <> struct Wire<Brenmoor::BASIC_TRACE::BT_DATA> : VariableWire<Brenmoor::BASIC_TRACE::BT_DATA> {};

// Servants live in the engine's POA, which the engine destroys, waiting for
// calls under way, before its attributes go; a plain reference is safe.
template <class Skeleton>
class BaseServant : public Skeleton
{
public:
    explicit BaseServant(SimAttribute& attribute) : m_attribute(attribute) {}

    Brenmoor::TypeInfo* typeInfo() override
    {
        const SimKindInfo& info = simKindInfo(m_attribute.kind());
        auto* result = new Brenmoor::TypeInfo;
        result->interfaceName = info.interfaceName;
        result->typeName = info.typeName;
        return result;
    }

    char* topic() override { return CORBA::string_dup(m_attribute.topic().c_str()); }

protected:
    SimAttribute& m_attribute;
};

template <class Skeleton, class Record>
class ReadingServant : public BaseServant<Skeleton>
{
public:
    using BaseServant<Skeleton>::BaseServant;

    typename Wire<Record>::Return value() override
    {
        return Wire<Record>::out(this->m_attribute.template record<Record>());
    }
};

template <class Skeleton, class Record>
class AttribServant : public ReadingServant<Skeleton, Record>
{
public:
    using ReadingServant<Skeleton, Record>::ReadingServant;

    char* lockTopic() override { return CORBA::string_dup(this->m_attribute.lockTopic().c_str()); }

    CORBA::Boolean isWritableBy(const Brenmoor::LockerID& locker) override
    {
        return this->m_attribute.isWritableBy(locker);
    }

    void set(const Brenmoor::LockerID& locker, typename Wire<Record>::In v) override
    {
        this->m_attribute.receiveSet(locker, SimRecords::fromArgument(v));
    }
};

template <class Skeleton, class Record, class Limits>
class LimitedServant : public AttribServant<Skeleton, Record>
{
public:
    using AttribServant<Skeleton, Record>::AttribServant;

    Limits limits() override { return this->m_attribute.template record<Limits>(); }
    char* limitsTopic() override { return CORBA::string_dup(this->m_attribute.limitsTopic().c_str()); }
};

class EnumServant : public AttribServant<POA_Brenmoor::EngineAttribEnum, CORBA::Long>
{
public:
    using AttribServant::AttribServant;

    Brenmoor::EngineAttribEnumParams* params() override
    {
        return new Brenmoor::EngineAttribEnumParams(m_attribute.record<Brenmoor::EngineAttribEnumParams>());
    }

    char* paramsTopic() override { return CORBA::string_dup(m_attribute.paramsTopic().c_str()); }
};

} // namespace

PortableServer::ServantBase* create(SimAttribute& a)
{
    namespace POA = POA_Brenmoor;
    namespace B = Brenmoor;
    switch (a.kind()) {
    case SimKind::ReadingLong: return new ReadingServant<POA::EngineReadingLong, CORBA::Long>(a);
    case SimKind::ReadingLongLong: return new ReadingServant<POA::EngineReadingLongLong, CORBA::LongLong>(a);
    case SimKind::ReadingDouble: return new ReadingServant<POA::EngineReadingDouble, CORBA::Double>(a);
    case SimKind::ReadingBoolean: return new ReadingServant<POA::EngineReadingBoolean, CORBA::Boolean>(a);
    case SimKind::ReadingString: return new ReadingServant<POA::EngineReadingString, std::string>(a);
    case SimKind::ReadingValueLong: return new ReadingServant<POA::EngineReadingValueLong, B::VALUE_LONG::VALUE>(a);
    case SimKind::ReadingValueDouble: return new ReadingServant<POA::EngineReadingValueDouble, B::VALUE_DOUBLE::VALUE>(a);
    case SimKind::ReadingMeterReading: return new ReadingServant<POA::EngineReadingMeterReading, B::MeterReading::Reading>(a);
    case SimKind::ReadingComplexTrace: return new BaseServant<POA::EngineReadingComplexTrace>(a);
    case SimKind::BasicTrace: return new ReadingServant<POA::EngineBasicTrace, B::BASIC_TRACE::BT_DATA>(a);
    case SimKind::AttribBoolean: return new AttribServant<POA::EngineAttribBoolean, CORBA::Boolean>(a);
    case SimKind::AttribLong: return new LimitedServant<POA::EngineAttribLong, CORBA::Long, B::LimitsLong>(a);
    case SimKind::AttribDouble: return new LimitedServant<POA::EngineAttribDouble, CORBA::Double, B::LimitsDouble>(a);
    case SimKind::AttribValueLong: return new LimitedServant<POA::EngineAttribValueLong, B::VALUE_LONG::VALUE, B::LimitsLong>(a);
    case SimKind::AttribValueDouble: return new LimitedServant<POA::EngineAttribValueDouble, B::VALUE_DOUBLE::VALUE, B::LimitsDouble>(a);
    case SimKind::AttribLongLong: return new AttribServant<POA::EngineAttribLongLong, CORBA::LongLong>(a);
    case SimKind::AttribString: return new AttribServant<POA::EngineAttribString, std::string>(a);
    case SimKind::AttribEnum: return new EnumServant(a);
    }
    return nullptr;
}

} // namespace SimAttributeServant
