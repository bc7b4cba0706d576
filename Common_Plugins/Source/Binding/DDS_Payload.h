#ifndef DDS_PAYLOAD_H
#define DDS_PAYLOAD_H

#include "DDS_Conversions.h"

#include <TQMM_DDSPubSubTypes.h>

#include <boost/function.hpp>

namespace Brenmoor {

//! The payload of a payload-free topic (lock, parameter and limit changes).
struct DDS_Void
{
};

/*!
  What a subscription needs to know of one payload type T: the DDS sample
  and its type support, the tag in a widget's list of subscriptions (-1:
  none), and how the payload is copied out of a sample.
*/
template<class T>
struct DDS_Payload;

#define RV_DDS_PAYLOAD(T_, SAMPLE_, TAG_, COPY_)                                    \
    template<>                                                                      \
    struct DDS_Payload<T_>                                                          \
    {                                                                               \
        using Sample = TQMM_DDS::SAMPLE_;                                           \
        using PubSubType = TQMM_DDS::SAMPLE_##PubSubType;                          \
        using Callback = boost::function<void(const char*, T_)>;                   \
        static constexpr int tag = TAG_;                                            \
        static T_ copy(const Sample& sample) { COPY_ }                              \
        static void call(const Callback& f, const char* topic, const T_& value)    \
        {                                                                           \
            f(topic, value);                                                        \
        }                                                                           \
    };

RV_DDS_PAYLOAD(double, ATTR_DOUBLE, 0, return sample.value();)
RV_DDS_PAYLOAD(int, ATTR_LONG, 1, return sample.value();)
RV_DDS_PAYLOAD(long long, ATTR_LONGLONG, 2, return sample.value();)
RV_DDS_PAYLOAD(bool, ATTR_BOOLEAN, 3, return sample.value();)
RV_DDS_PAYLOAD(CORBA::String_var, ATTR_STRING, 4, return CORBA::string_dup(sample.value().c_str());)
RV_DDS_PAYLOAD(VALUE_DOUBLE::VALUE, ATTR_VALUE_DOUBLE, 5,
               VALUE_DOUBLE::VALUE v; DDS_Conversions::fromSample(sample.value(), v); return v;)
RV_DDS_PAYLOAD(VALUE_LONG::VALUE, ATTR_VALUE_LONG, 6,
               VALUE_LONG::VALUE v; DDS_Conversions::fromSample(sample.value(), v); return v;)
RV_DDS_PAYLOAD(BASIC_TRACE::BT_DATA, ATTR_BASIC_TRACE, 7,
               BASIC_TRACE::BT_DATA v; DDS_Conversions::fromSample(sample.value(), v); return v;)
RV_DDS_PAYLOAD(ComplexDoubleSeq, ATTR_COMPLEX_TRACE, -1,
               ComplexDoubleSeq v; DDS_Conversions::fromSample(sample.value(), v); return v;)
RV_DDS_PAYLOAD(MeterReading::Reading, ATTR_METER_READING, 12,
               MeterReading::Reading v; DDS_Conversions::fromSample(sample.value(), v); return v;)

#undef RV_DDS_PAYLOAD

template<>
struct DDS_Payload<DDS_Void>
{
    using Sample = TQMM_DDS::ATTR_VOID;
    using PubSubType = TQMM_DDS::ATTR_VOIDPubSubType;
    using Callback = boost::function<void(const char*)>;
    static constexpr int tag = 8;
    static DDS_Void copy(const Sample&) { return {}; }
    static void call(const Callback& f, const char* topic, const DDS_Void&) { f(topic); }
};

} // namespace Brenmoor

#endif // DDS_PAYLOAD_H
