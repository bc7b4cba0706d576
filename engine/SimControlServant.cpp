#include "SimControlServant.h"

#include "SimEngine.h"

#include <chrono>
#include <stdexcept>

namespace {

SimFailure failureOf(const SimEngineControl::InjectedFailure& in)
{
    using Kind = SimFailure::Kind;
    SimFailure out;
    switch (in.kind) {
    case SimEngineControl::DATA_OUT_OF_RANGE: out.kind = Kind::DataOutOfRange; break;
    case SimEngineControl::LOCKED: out.kind = Kind::Locked; break;
    case SimEngineControl::SYSTEM_UNKNOWN: out.kind = Kind::Unknown; break;
    case SimEngineControl::SYSTEM_BAD_PARAM: out.kind = Kind::BadParam; break;
    case SimEngineControl::SYSTEM_TRANSIENT: out.kind = Kind::Transient; break;
    case SimEngineControl::SYSTEM_COMM_FAILURE: out.kind = Kind::CommFailure; break;
    default: throw std::invalid_argument("unknown failure kind");
    }
    out.actual = in.actual;
    out.lower = in.lower;
    out.upper = in.upper;
    return out;
}

std::vector<SimEnumEntry> entriesOf(const Brenmoor::EngineAttribEnumParams& in)
{
    std::vector<SimEnumEntry> out;
    for (CORBA::ULong i = 0; i < in.length(); ++i)
        out.push_back({in[i].value, in[i].label.in(), in[i].enabled});
    return out;
}

} // namespace

SimControlServant::SimControlServant(SimEngine& engine)
    : m_engine(engine)
{
}

// The engine reports a bad name or value with a standard exception.
template <class Call>
auto SimControlServant::guarded(Call call) -> decltype(call())
{
    try {
        return call();
    } catch (const std::exception& error) {
        throw SimEngineControl::BadRequest(error.what());
    }
}

void SimControlServant::setLong(const char* name, CORBA::LongLong v)
{
    guarded([&] { m_engine.setValue(name, std::int64_t{v}); });
}

void SimControlServant::setDouble(const char* name, CORBA::Double v)
{
    guarded([&] { m_engine.setValue(name, v); });
}

void SimControlServant::setBoolean(const char* name, CORBA::Boolean v)
{
    guarded([&] { m_engine.setValue(name, bool{v}); });
}

void SimControlServant::setString(const char* name, const char* v)
{
    guarded([&] { m_engine.setValue(name, std::string(v)); });
}

void SimControlServant::setEnumEntries(const char* name, const Brenmoor::EngineAttribEnumParams& entries)
{
    guarded([&] { m_engine.setEnumEntries(name, entriesOf(entries)); });
}

void SimControlServant::setLimits(const char* name, CORBA::Double lower, CORBA::Double upper, CORBA::Double step)
{
    guarded([&] { m_engine.setLimits(name, {lower, upper, step}); });
}

void SimControlServant::lock(const char* name, const Brenmoor::LockerID& owner)
{
    guarded([&] { m_engine.lock(name, owner); });
}

void SimControlServant::unlock(const char* name)
{
    guarded([&] { m_engine.unlock(name); });
}

void SimControlServant::failNextSet(const char* name, CORBA::ULong count, const SimEngineControl::InjectedFailure& failure)
{
    guarded([&] { m_engine.failNextSet(name, count, failureOf(failure)); });
}

void SimControlServant::hangNextSet(const char* name, CORBA::ULong count, CORBA::ULong milliseconds)
{
    guarded([&] { m_engine.hangNextSet(name, count, std::chrono::milliseconds(milliseconds)); });
}

CORBA::ULong SimControlServant::setCount(const char* name)
{
    return guarded([&] { return m_engine.setCount(name); });
}

void SimControlServant::quit()
{
    m_engine.requestQuit();
}
