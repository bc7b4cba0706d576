#ifndef DDS_DATAREADERLISTENER_H
#define DDS_DATAREADERLISTENER_H

#include <fastdds/dds/subscriber/DataReaderListener.hpp>

#include <atomic>

namespace Brenmoor {

template<class T, class F>
class DDS_SubscriberBase;

/*!
  Hands each sample of a reader to its subscription, on the DDS thread.
  Nothing may leave a listener towards Fast DDS: the subscription reports
  its own failures.
*/
template<class T>
class DDS_DataReaderListener : public eprosima::fastdds::dds::DataReaderListener
{
public:
    void setSubscription(DDS_SubscriberBase<T, void(const char*, T)>* subscription) { m_subscription = subscription; }
    void detach() { m_subscription = nullptr; }

    void on_data_available(eprosima::fastdds::dds::DataReader* reader) override
    {
        if (auto* subscription = m_subscription.load())
            subscription->takeAndDeliver(reader);
    }

    void on_liveliness_changed(eprosima::fastdds::dds::DataReader*,
                               const eprosima::fastdds::dds::LivelinessChangedStatus& status) override
    {
        // A writer stopped saying it is alive: its process died or hangs.
        // Fast DDS's alive count is not to be trusted for this: a reader
        // made while the writer was already alive never counts it.
        if (status.not_alive_count_change > 0)
            if (auto* subscription = m_subscription.load())
                subscription->writersLost();
    }

    void on_subscription_matched(eprosima::fastdds::dds::DataReader*,
                                 const eprosima::fastdds::dds::SubscriptionMatchedStatus& status) override
    {
        // The last writer left: an engine that ended, or died before it ever said it was alive.
        if (status.current_count == 0 && status.current_count_change < 0)
            if (auto* subscription = m_subscription.load())
                subscription->writersLost();
    }

private:
    std::atomic<DDS_SubscriberBase<T, void(const char*, T)>*> m_subscription{nullptr};
};

} // namespace Brenmoor

#endif // DDS_DATAREADERLISTENER_H
