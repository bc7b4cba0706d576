// The subscription machinery, instantiated here once per payload type for
// the whole interface, and the frame's operations that start subscriptions.
#include "DDS_Subscriber.h"
#include "DDS_UpdateSeparation.h"
#include "EngineLink.h"
#include "WidgetBaseImpl.h"

std::chrono::nanoseconds Brenmoor::updateSeparation(int delayMs)
{
    if (delayMs <= 0)
        return std::chrono::nanoseconds(0);
    const long seconds = delayMs / 1000;
    const long nanoseconds = (delayMs - seconds * 1000) * 1000000L;
    return std::chrono::seconds(seconds) + std::chrono::nanoseconds(nanoseconds);
}

namespace {

template<class T>
Brenmoor::DDS_BaseObj* startSubscription(const char* topic, typename Brenmoor::DDS_Payload<T>::Callback callback,
                                         int delayMs)
{
    auto* subscription
        = new Brenmoor::DDS_Subscriber<T>(topic, std::move(callback), Brenmoor::updateSeparation(delayMs));
    // The engine's writers fall silent together when it dies or hangs.
    subscription->setWritersLostHandler([] { EngineLink::instance()->reportSilence(); });
    // Transient-local rather than volatile: a change between the binding read
    // and the reader's match would otherwise stay unseen until the next one.
    subscription->start(eprosima::fastdds::dds::TRANSIENT_LOCAL_DURABILITY_QOS);
    return subscription;
}

} // namespace

template<class T>
void WidgetBaseImpl::subscribeToDDS(const char* topic, boost::function<void(const char*, T)> callback)
{
    addSubscription(Brenmoor::DDS_Payload<T>::tag, startSubscription<T>(topic, std::move(callback), m_updateDelay));
}

void WidgetBaseImpl::subscribeToVoidDDS(const char* topic, boost::function<void(const char*)> callback)
{
    addSubscription(Brenmoor::DDS_Payload<Brenmoor::DDS_Void>::tag,
                    startSubscription<Brenmoor::DDS_Void>(topic, std::move(callback), m_updateDelay));
}

#define RV_SUBSCRIPTION(T_)                                                                      \
    template class Brenmoor::DDS_SubscriberBase<T_, void(const char*, T_)>;                      \
    template void WidgetBaseImpl::subscribeToDDS<T_>(const char*, boost::function<void(const char*, T_)>);

RV_SUBSCRIPTION(double)
RV_SUBSCRIPTION(int)
RV_SUBSCRIPTION(long long)
RV_SUBSCRIPTION(bool)
RV_SUBSCRIPTION(CORBA::String_var)
RV_SUBSCRIPTION(Brenmoor::VALUE_DOUBLE::VALUE)
RV_SUBSCRIPTION(Brenmoor::VALUE_LONG::VALUE)
RV_SUBSCRIPTION(Brenmoor::BASIC_TRACE::BT_DATA)
RV_SUBSCRIPTION(Brenmoor::ComplexDoubleSeq)
RV_SUBSCRIPTION(Brenmoor::MeterReading::Reading)
template class Brenmoor::DDS_SubscriberBase<Brenmoor::DDS_Void, void(const char*, Brenmoor::DDS_Void)>;
