#ifndef DDS_CONVERSIONS_H
#define DDS_CONVERSIONS_H

#include <Brenmoor.hh>
#include <TQMM_DDS.h>

/*!
  The one place where engine records and DDS samples are copied into each
  other: receivers turn samples into Brenmoor records, the engine does the
  reverse. Every copy is deep: strings and sequences are duplicated.
*/
namespace DDS_Conversions {

void fromSample(const TQMM_DDS::Unit& in, Brenmoor::VALUE_UNITS::Units& out);
void fromSample(const TQMM_DDS::ValueDouble& in, Brenmoor::VALUE_DOUBLE::VALUE& out);
void fromSample(const TQMM_DDS::ValueLong& in, Brenmoor::VALUE_LONG::VALUE& out);
void fromSample(const TQMM_DDS::MeterReading& in, Brenmoor::MeterReading::Reading& out);
void fromSample(const TQMM_DDS::BasicTrace& in, Brenmoor::BASIC_TRACE::BT_DATA& out);
void fromSample(const std::vector<TQMM_DDS::ComplexDouble>& in, Brenmoor::ComplexDoubleSeq& out);

void toSample(const Brenmoor::VALUE_UNITS::Units& in, TQMM_DDS::Unit& out);
void toSample(const Brenmoor::VALUE_DOUBLE::VALUE& in, TQMM_DDS::ValueDouble& out);
void toSample(const Brenmoor::VALUE_LONG::VALUE& in, TQMM_DDS::ValueLong& out);
void toSample(const Brenmoor::MeterReading::Reading& in, TQMM_DDS::MeterReading& out);
void toSample(const Brenmoor::BASIC_TRACE::BT_DATA& in, TQMM_DDS::BasicTrace& out);
void toSample(const Brenmoor::ComplexDoubleSeq& in, std::vector<TQMM_DDS::ComplexDouble>& out);

} // namespace DDS_Conversions

#endif // DDS_CONVERSIONS_H
