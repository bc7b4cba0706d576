#ifndef SIMRECORDS_H
#define SIMRECORDS_H

#include "SimAttributeState.h"
#include "SimValue.h"

#include <Brenmoor.hh>

#include <string>

/*!
  Copies between an attribute's state and the records of the engine
  interfaces: makeRecord() builds what value(), limits() and params() return
  and what goes into a sample; fromArgument() takes the value out of a set()
  argument. A VALUE record brings units and limits of the client's own; the
  engine keeps its own and takes only the current value.
*/
namespace SimRecords {

void makeRecord(const SimAttributeState& state, CORBA::Long& out);
void makeRecord(const SimAttributeState& state, CORBA::LongLong& out);
void makeRecord(const SimAttributeState& state, CORBA::Double& out);
void makeRecord(const SimAttributeState& state, CORBA::Boolean& out);
void makeRecord(const SimAttributeState& state, std::string& out);
void makeRecord(const SimAttributeState& state, Brenmoor::VALUE_LONG::VALUE& out);
void makeRecord(const SimAttributeState& state, Brenmoor::VALUE_DOUBLE::VALUE& out);
void makeRecord(const SimAttributeState& state, Brenmoor::MeterReading::Reading& out);
void makeRecord(const SimAttributeState& state, Brenmoor::BASIC_TRACE::BT_DATA& out);
void makeRecord(const SimAttributeState& state, Brenmoor::ComplexDoubleSeq& out);
void makeRecord(const SimAttributeState& state, Brenmoor::LimitsLong& out);
void makeRecord(const SimAttributeState& state, Brenmoor::LimitsDouble& out);
void makeRecord(const SimAttributeState& state, Brenmoor::EngineAttribEnumParams& out);

template <class Record>
Record record(const SimAttributeState& state)
{
    Record out{};
    makeRecord(state, out);
    return out;
}

SimValue fromArgument(CORBA::Long in);
SimValue fromArgument(CORBA::LongLong in);
SimValue fromArgument(CORBA::Double in);
SimValue fromArgument(CORBA::Boolean in);
SimValue fromArgument(const char* in);
SimValue fromArgument(const Brenmoor::VALUE_LONG::VALUE& in);
SimValue fromArgument(const Brenmoor::VALUE_DOUBLE::VALUE& in);

//! A number-valued state as a double (the value checked against limits); 0 for others.
double numberOf(const SimValue& value);

} // namespace SimRecords

#endif // SIMRECORDS_H
