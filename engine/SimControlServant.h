#ifndef SIMCONTROLSERVANT_H
#define SIMCONTROLSERVANT_H

#include <SimControl.hh>

class SimEngine;

//! SimEngine's control calls offered over CORBA, for an engine in another process.
class SimControlServant : public POA_SimEngineControl::Control
{
public:
    explicit SimControlServant(SimEngine& engine);

    void setLong(const char* name, CORBA::LongLong v) override;
    void setDouble(const char* name, CORBA::Double v) override;
    void setBoolean(const char* name, CORBA::Boolean v) override;
    void setString(const char* name, const char* v) override;
    void setEnumEntries(const char* name, const Brenmoor::EngineAttribEnumParams& entries) override;
    void setLimits(const char* name, CORBA::Double lower, CORBA::Double upper, CORBA::Double step) override;
    void lock(const char* name, const Brenmoor::LockerID& owner) override;
    void unlock(const char* name) override;
    void failNextSet(const char* name, CORBA::ULong count, const SimEngineControl::InjectedFailure& failure) override;
    void hangNextSet(const char* name, CORBA::ULong count, CORBA::ULong milliseconds) override;
    CORBA::ULong setCount(const char* name) override;
    void quit() override;

private:
    template <class Call>
    auto guarded(Call call) -> decltype(call());

    SimEngine& m_engine;
};

#endif // SIMCONTROLSERVANT_H
