#include "SimAttribute.h"

#include "DDS_Conversions.h"
#include "SimPublisher.h"
#include "SimRecords.h"

#include <TQMM_DDSPubSubTypes.h>

#include <algorithm>
#include <cfloat>
#include <limits>
#include <stdexcept>
#include <type_traits>

using eprosima::fastdds::dds::TypeSupport;

namespace {

// The sample type and its type support for each record of a value topic.
template <class Record> struct SampleOf;
template <> struct SampleOf<CORBA::Long> { using Sample = TQMM_DDS::ATTR_LONG; using Type = TQMM_DDS::ATTR_LONGPubSubType; };
template <> struct SampleOf<CORBA::LongLong> { using Sample = TQMM_DDS::ATTR_LONGLONG; using Type = TQMM_DDS::ATTR_LONGLONGPubSubType; };
template <> struct SampleOf<CORBA::Double> { using Sample = TQMM_DDS::ATTR_DOUBLE; using Type = TQMM_DDS::ATTR_DOUBLEPubSubType; };
template <> struct SampleOf<CORBA::Boolean> { using Sample = TQMM_DDS::ATTR_BOOLEAN; using Type = TQMM_DDS::ATTR_BOOLEANPubSubType; };
template <> struct SampleOf<std::string> { using Sample = TQMM_DDS::ATTR_STRING; using Type = TQMM_DDS::ATTR_STRINGPubSubType; };
template <> struct SampleOf<Brenmoor::VALUE_LONG::VALUE> { using Sample = TQMM_DDS::ATTR_VALUE_LONG; using Type = TQMM_DDS::ATTR_VALUE_LONGPubSubType; };
template <> struct SampleOf<Brenmoor::VALUE_DOUBLE::VALUE> { using Sample = TQMM_DDS::ATTR_VALUE_DOUBLE; using Type = TQMM_DDS::ATTR_VALUE_DOUBLEPubSubType; };
template <> struct SampleOf<Brenmoor::MeterReading::Reading> { using Sample = TQMM_DDS::ATTR_METER_READING; using Type = TQMM_DDS::ATTR_METER_READINGPubSubType; };
template <> struct SampleOf<Brenmoor::BASIC_TRACE::BT_DATA> { using Sample = TQMM_DDS::ATTR_BASIC_TRACE; using Type = TQMM_DDS::ATTR_BASIC_TRACEPubSubType; };
template <> struct SampleOf<Brenmoor::ComplexDoubleSeq> { using Sample = TQMM_DDS::ATTR_COMPLEX_TRACE; using Type = TQMM_DDS::ATTR_COMPLEX_TRACEPubSubType; };

template <class Record, class Sample>
void fillSample(const Record& record, Sample& sample)
{
    if constexpr (std::is_arithmetic_v<Record> || std::is_same_v<Record, std::string>)
        sample.value(record);
    else
        DDS_Conversions::toSample(record, sample.value());
}

// What differs between value topics: the sample type, and how the state becomes a sample.
struct PayloadOps
{
    TypeSupport (*type)();
    void (*publish)(const SimAttributeState& state, SimTopicWriter& writer);
};

template <class Record>
PayloadOps opsFor()
{
    using Traits = SampleOf<Record>;
    return {[] { return TypeSupport(new typename Traits::Type()); },
            [](const SimAttributeState& state, SimTopicWriter& writer) {
                typename Traits::Sample sample;
                fillSample(SimRecords::record<Record>(state), sample);
                writer.post(std::move(sample));
            }};
}

PayloadOps payloadOps(SimPayload payload)
{
    switch (payload) {
    case SimPayload::Long: return opsFor<CORBA::Long>();
    case SimPayload::LongLong: return opsFor<CORBA::LongLong>();
    case SimPayload::Double: return opsFor<CORBA::Double>();
    case SimPayload::Boolean: return opsFor<CORBA::Boolean>();
    case SimPayload::String: return opsFor<std::string>();
    case SimPayload::ValueLong: return opsFor<Brenmoor::VALUE_LONG::VALUE>();
    case SimPayload::ValueDouble: return opsFor<Brenmoor::VALUE_DOUBLE::VALUE>();
    case SimPayload::MeterReading: return opsFor<Brenmoor::MeterReading::Reading>();
    case SimPayload::BasicTrace: return opsFor<Brenmoor::BASIC_TRACE::BT_DATA>();
    case SimPayload::ComplexTrace: return opsFor<Brenmoor::ComplexDoubleSeq>();
    }
    throw std::logic_error("SimEngine: payload without a sample type");
}

SimLimits wholeRange(SimPayload payload)
{
    switch (payload) {
    case SimPayload::Long:
    case SimPayload::ValueLong:
        return {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max(), 1.0};
    case SimPayload::Double:
    case SimPayload::ValueDouble:
    case SimPayload::MeterReading:
        return {-DBL_MAX, DBL_MAX, 1.0};
    default:
        return {};
    }
}

SimTopicWriter writerFor(bool wanted, const std::string& topic, TypeSupport type, SimPublisher& publisher,
                         SimSampleQueue& queue)
{
    if (!wanted)
        return {};
    return SimTopicWriter(publisher.createWriter(topic, type), queue);
}

TypeSupport signalType()
{
    return TypeSupport(new TQMM_DDS::ATTR_VOIDPubSubType());
}

bool sameLocker(const Brenmoor::LockerID& a, const Brenmoor::LockerID& b)
{
    return a.processId == b.processId && a.startStamp == b.startStamp;
}

[[noreturn]] void raise(const SimFailure& failure)
{
    using Kind = SimFailure::Kind;
    switch (failure.kind) {
    case Kind::DataOutOfRange:
        throw Brenmoor::Operation_errors::DataOutOfRange(failure.actual, failure.lower, failure.upper);
    case Kind::Locked:
        throw Brenmoor::Operation_errors::Locked("locked by the engine");
    case Kind::BadParam:
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    case Kind::Transient:
        throw CORBA::TRANSIENT(0, CORBA::COMPLETED_NO);
    case Kind::CommFailure:
        throw CORBA::COMM_FAILURE(0, CORBA::COMPLETED_MAYBE);
    case Kind::Unknown:
        break;
    }
    throw CORBA::UNKNOWN(0, CORBA::COMPLETED_MAYBE);
}

} // namespace

SimAttribute::SimAttribute(const SimAttributeSetup& setup, SimPublisher& publisher, SimSampleQueue& queue)
    : m_name(setup.name)
    , m_kind(setup.kind)
    , m_state{setup.value.value_or(simPayloadZero(simKindInfo(setup.kind).payload)),
              setup.limits.value_or(wholeRange(simKindInfo(setup.kind).payload)),
              setup.units, setup.xUnits, setup.enumEntries, setup.meter}
    , m_setupEntries(setup.enumEntries)
    , m_refusedTexts(setup.refusedTexts)
    , m_simulator(setup.simulation)
{
    if (m_name.empty())
        throw std::invalid_argument("SimEngine: an attribute needs a name");
    checkAccepts(m_state.value);
    if (!SimSimulator::suits(setup.simulation, m_kind))
        throw std::invalid_argument("SimEngine: the simulation of \"" + m_name + "\" does not suit its kind");

    const SimKindInfo& info = simKindInfo(m_kind);
    m_valueWriter = writerFor(true, topic(), payloadOps(info.payload).type(), publisher, queue);
    m_lockWriter = writerFor(info.settable, lockTopic(), signalType(), publisher, queue);
    m_paramsWriter = writerFor(info.enumerated, paramsTopic(), signalType(), publisher, queue);
    m_limitsWriter = writerFor(info.limited, limitsTopic(), signalType(), publisher, queue);
    // The writer keeps it for readers that match later, and its liveliness starts with it.
    const std::lock_guard<std::mutex> guard(m_mutex);
    publishValueLocked();
}

std::string SimAttribute::valueTopicOf(const std::string& name)
{
    return "rv/attr/" + name;
}

template <class Record>
Record SimAttribute::record() const
{
    std::lock_guard<std::mutex> guard(m_mutex);
    return SimRecords::record<Record>(m_state);
}

template CORBA::Long SimAttribute::record<CORBA::Long>() const;
template CORBA::LongLong SimAttribute::record<CORBA::LongLong>() const;
template CORBA::Double SimAttribute::record<CORBA::Double>() const;
template CORBA::Boolean SimAttribute::record<CORBA::Boolean>() const;
template std::string SimAttribute::record<std::string>() const;
template Brenmoor::VALUE_LONG::VALUE SimAttribute::record<Brenmoor::VALUE_LONG::VALUE>() const;
template Brenmoor::VALUE_DOUBLE::VALUE SimAttribute::record<Brenmoor::VALUE_DOUBLE::VALUE>() const;
template Brenmoor::MeterReading::Reading SimAttribute::record<Brenmoor::MeterReading::Reading>() const;
template Brenmoor::BASIC_TRACE::BT_DATA SimAttribute::record<Brenmoor::BASIC_TRACE::BT_DATA>() const;
template Brenmoor::ComplexDoubleSeq SimAttribute::record<Brenmoor::ComplexDoubleSeq>() const;
template Brenmoor::LimitsLong SimAttribute::record<Brenmoor::LimitsLong>() const;
template Brenmoor::LimitsDouble SimAttribute::record<Brenmoor::LimitsDouble>() const;
template Brenmoor::EngineAttribEnumParams SimAttribute::record<Brenmoor::EngineAttribEnumParams>() const;

bool SimAttribute::isWritableBy(const Brenmoor::LockerID& locker) const
{
    std::lock_guard<std::mutex> guard(m_mutex);
    return writableBy(locker);
}

void SimAttribute::receiveSet(const Brenmoor::LockerID& locker, const SimValue& value)
{
    std::unique_lock<std::mutex> guard(m_mutex);
    ++m_setCount;
    m_lastSetValue = value;
    m_lastLocker = locker;
    delaySetIfAsked(guard);
    failSetIfAsked();
    if (!writableBy(locker))
        throw Brenmoor::Operation_errors::Locked("held by another locker");
    checkInRange(value);
    checkNotRefused(value);
    applyLocked(value);
}

SimValue SimAttribute::value() const
{
    std::lock_guard<std::mutex> guard(m_mutex);
    return m_state.value;
}

void SimAttribute::apply(const SimValue& value)
{
    checkAccepts(value);
    std::lock_guard<std::mutex> guard(m_mutex);
    applyLocked(value);
}

void SimAttribute::setEnumEntries(const std::vector<SimEnumEntry>& entries)
{
    if (!simKindInfo(m_kind).enumerated)
        throw std::invalid_argument("SimEngine: \"" + m_name + "\" has no enumerator list");
    std::lock_guard<std::mutex> guard(m_mutex);
    m_state.enumEntries = entries;
    publishSignalLocked(m_paramsWriter);
}

void SimAttribute::setLimits(const SimLimits& limits)
{
    if (limits.lower > limits.upper)
        throw std::invalid_argument("SimEngine: the lower limit of \"" + m_name + "\" is above its upper limit");
    std::lock_guard<std::mutex> guard(m_mutex);
    m_state.limits = limits;
    publishSignalLocked(m_limitsWriter);
    // The value records of several kinds carry the limits too.
    publishValueLocked();
}

void SimAttribute::lock(const Brenmoor::LockerID& owner)
{
    checkSettable();
    std::lock_guard<std::mutex> guard(m_mutex);
    m_owner = owner;
    publishSignalLocked(m_lockWriter);
}

void SimAttribute::unlock()
{
    checkSettable();
    std::lock_guard<std::mutex> guard(m_mutex);
    m_owner.reset();
    publishSignalLocked(m_lockWriter);
}

void SimAttribute::failNextSet(unsigned count, const SimFailure& failure)
{
    checkSettable();
    std::lock_guard<std::mutex> guard(m_mutex);
    m_failuresLeft = count;
    m_failure = failure;
}

void SimAttribute::hangNextSet(unsigned count, std::chrono::milliseconds delay)
{
    checkSettable();
    std::lock_guard<std::mutex> guard(m_mutex);
    m_hangsLeft = count;
    m_hang = delay;
}

unsigned SimAttribute::setCount() const
{
    std::lock_guard<std::mutex> guard(m_mutex);
    return m_setCount;
}

std::optional<SimValue> SimAttribute::lastSetValue() const
{
    std::lock_guard<std::mutex> guard(m_mutex);
    return m_lastSetValue;
}

std::optional<Brenmoor::LockerID> SimAttribute::lastLocker() const
{
    std::lock_guard<std::mutex> guard(m_mutex);
    return m_lastLocker;
}

void SimAttribute::advanceSimulation(SimSimulator::Clock::time_point now)
{
    std::lock_guard<std::mutex> guard(m_mutex);
    const std::optional<SimValue> next = m_simulator.advance(now, m_state);
    if (next && *next != m_state.value)
        applyLocked(*next);
    if (const auto list = m_simulator.nextList(now, m_state, m_setupEntries))
        reshapeLocked(*list);
}

void SimAttribute::reshapeLocked(const std::vector<SimEnumEntry>& entries)
{
    m_state.enumEntries = entries;
    publishSignalLocked(m_paramsWriter);
    // A value that left the list moves to the first entry, as an engine would.
    const std::int64_t current = std::get<std::int64_t>(m_state.value);
    const bool listed = std::any_of(entries.begin(), entries.end(),
                                    [&](const SimEnumEntry& e) { return e.value == current; });
    if (!listed && !entries.empty())
        applyLocked(std::int64_t{entries.front().value});
}

void SimAttribute::close()
{
    {
        std::lock_guard<std::mutex> guard(m_mutex);
        m_closed = true;
    }
    m_wake.notify_all();
}

void SimAttribute::checkSettable() const
{
    if (!simKindInfo(m_kind).settable)
        throw std::invalid_argument("SimEngine: \"" + m_name + "\" is a reading; clients cannot set it");
}

void SimAttribute::checkAccepts(const SimValue& value) const
{
    if (!simPayloadAccepts(simKindInfo(m_kind).payload, value))
        throw std::invalid_argument(std::string("SimEngine: value of the wrong type for \"") + m_name + "\", a "
                                    + simKindInfo(m_kind).interfaceName);
}

void SimAttribute::checkInRange(const SimValue& value) const
{
    const SimKindInfo& info = simKindInfo(m_kind);
    const double actual = SimRecords::numberOf(value);
    if (info.limited && (actual < m_state.limits.lower || actual > m_state.limits.upper))
        throw Brenmoor::Operation_errors::DataOutOfRange(actual, m_state.limits.lower, m_state.limits.upper);
    if (!info.enumerated)
        return;
    const auto& entries = m_state.enumEntries;
    const bool offered = std::any_of(entries.begin(), entries.end(),
                                     [&](const SimEnumEntry& e) { return e.enabled && e.value == actual; });
    if (offered)
        return;
    const auto [lowest, highest] = std::minmax_element(
        entries.begin(), entries.end(), [](const SimEnumEntry& a, const SimEnumEntry& b) { return a.value < b.value; });
    const bool none = entries.empty();
    throw Brenmoor::Operation_errors::DataOutOfRange(actual, none ? 0.0 : lowest->value, none ? 0.0 : highest->value);
}

bool SimAttribute::writableBy(const Brenmoor::LockerID& locker) const
{
    return !m_owner || sameLocker(*m_owner, locker);
}

void SimAttribute::delaySetIfAsked(std::unique_lock<std::mutex>& guard)
{
    if (m_hangsLeft == 0)
        return;
    --m_hangsLeft;
    // Waiting on the condition frees the mutex, so reads go on meanwhile.
    m_wake.wait_for(guard, m_hang, [this] { return m_closed; });
}

void SimAttribute::checkNotRefused(const SimValue& value) const
{
    const std::string* text = std::get_if<std::string>(&value);
    if (text && std::find(m_refusedTexts.begin(), m_refusedTexts.end(), *text) != m_refusedTexts.end())
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
}

void SimAttribute::failSetIfAsked()
{
    if (m_failuresLeft == 0)
        return;
    --m_failuresLeft;
    raise(m_failure);
}

void SimAttribute::applyLocked(const SimValue& value)
{
    m_state.value = value;
    publishValueLocked();
}

void SimAttribute::publishValueLocked()
{
    if (!m_closed)
        payloadOps(simKindInfo(m_kind).payload).publish(m_state, m_valueWriter);
}

void SimAttribute::publishSignalLocked(SimTopicWriter& writer)
{
    if (!m_closed)
        writer.post(TQMM_DDS::ATTR_VOID());
}
