#include "DDS_Conversions.h"

namespace DDS_Conversions {

void fromSample(const TQMM_DDS::Unit& in, Brenmoor::VALUE_UNITS::Units& out)
{
    out.scale = in.scale().c_str();
    out.base = in.base().c_str();
}

void fromSample(const TQMM_DDS::ValueDouble& in, Brenmoor::VALUE_DOUBLE::VALUE& out)
{
    fromSample(in.units(), out.units);
    out.lowerLimit = in.lowerLimit();
    out.upperLimit = in.upperLimit();
    out.currentValue = in.currentValue();
}

void fromSample(const TQMM_DDS::ValueLong& in, Brenmoor::VALUE_LONG::VALUE& out)
{
    fromSample(in.units(), out.units);
    out.lowerLimit = in.lowerLimit();
    out.upperLimit = in.upperLimit();
    out.currentValue = in.currentValue();
}

void fromSample(const TQMM_DDS::MeterReading& in, Brenmoor::MeterReading::Reading& out)
{
    out.readings.length(static_cast<CORBA::ULong>(in.readings().size()));
    for (CORBA::ULong i = 0; i < out.readings.length(); ++i) {
        const TQMM_DDS::ReadingData& reading = in.readings()[i];
        fromSample(reading.units(), out.readings[i].units);
        out.readings[i].value = reading.value();
        out.readings[i].type = reading.type();
    }
    fromSample(in.lowerLimit(), out.lowerLimit);
    fromSample(in.upperLimit(), out.upperLimit);
    out.flag0 = in.flag0();
    out.flag1 = in.flag1();
    out.flag2 = in.flag2();
    out.flag3 = in.flag3();
    out.flag4 = in.flag4();
    out.flag5 = in.flag5();
    out.flag6 = in.flag6();
}

void fromSample(const TQMM_DDS::BasicTrace& in, Brenmoor::BASIC_TRACE::BT_DATA& out)
{
    out.pointCount = in.pointCount();
    fromSample(in.xUnit(), out.xUnit);
    fromSample(in.yUnit(), out.yUnit);
    out.start = in.start();
    out.stop = in.stop();
    out.samples.length(static_cast<CORBA::ULong>(in.samples().size()));
    for (CORBA::ULong i = 0; i < out.samples.length(); ++i)
        out.samples[i] = in.samples()[i];
}

void fromSample(const std::vector<TQMM_DDS::ComplexDouble>& in, Brenmoor::ComplexDoubleSeq& out)
{
    out.length(static_cast<CORBA::ULong>(in.size()));
    for (CORBA::ULong i = 0; i < out.length(); ++i) {
        out[i].i = in[i].i();
        out[i].q = in[i].q();
    }
}

void toSample(const Brenmoor::VALUE_UNITS::Units& in, TQMM_DDS::Unit& out)
{
    out.scale(in.scale.in());
    out.base(in.base.in());
}

void toSample(const Brenmoor::VALUE_DOUBLE::VALUE& in, TQMM_DDS::ValueDouble& out)
{
    toSample(in.units, out.units());
    out.lowerLimit(in.lowerLimit);
    out.upperLimit(in.upperLimit);
    out.currentValue(in.currentValue);
}

void toSample(const Brenmoor::VALUE_LONG::VALUE& in, TQMM_DDS::ValueLong& out)
{
    toSample(in.units, out.units());
    out.lowerLimit(in.lowerLimit);
    out.upperLimit(in.upperLimit);
    out.currentValue(in.currentValue);
}

void toSample(const Brenmoor::MeterReading::Reading& in, TQMM_DDS::MeterReading& out)
{
    out.readings().resize(in.readings.length());
    for (CORBA::ULong i = 0; i < in.readings.length(); ++i) {
        toSample(in.readings[i].units, out.readings()[i].units());
        out.readings()[i].value(in.readings[i].value);
        out.readings()[i].type(in.readings[i].type);
    }
    toSample(in.lowerLimit, out.lowerLimit());
    toSample(in.upperLimit, out.upperLimit());
    out.flag0(in.flag0);
    out.flag1(in.flag1);
    out.flag2(in.flag2);
    out.flag3(in.flag3);
    out.flag4(in.flag4);
    out.flag5(in.flag5);
    out.flag6(in.flag6);
}

void toSample(const Brenmoor::BASIC_TRACE::BT_DATA& in, TQMM_DDS::BasicTrace& out)
{
    out.pointCount(in.pointCount);
    toSample(in.xUnit, out.xUnit());
    toSample(in.yUnit, out.yUnit());
    out.start(in.start);
    out.stop(in.stop);
    out.samples().assign(in.samples.get_buffer(), in.samples.get_buffer() + in.samples.length());
}

void toSample(const Brenmoor::ComplexDoubleSeq& in, std::vector<TQMM_DDS::ComplexDouble>& out)
{
    out.resize(in.length());
    for (CORBA::ULong i = 0; i < in.length(); ++i) {
        out[i].i(in[i].i);
        out[i].q(in[i].q);
    }
}

} // namespace DDS_Conversions
