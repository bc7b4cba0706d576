#ifndef DDS_SUBSCRIBERBASE_H
#define DDS_SUBSCRIBERBASE_H

#include "DDS_BaseObj.h"
#include "DDS_DataReaderListener.h"
#include "DDS_DeliveryThrottle.h"
#include "DDS_ParticipantHolder.h"
#include "DDS_Payload.h"

#include <fastdds/dds/subscriber/DataReader.hpp>
#include <fastdds/dds/subscriber/SampleInfo.hpp>
#include <fastdds/dds/subscriber/Subscriber.hpp>
#include <fastdds/dds/topic/Topic.hpp>

#include <boost/thread/thread.hpp>

#include <atomic>
#include <iostream>
#include <optional>
#include <string>

namespace Brenmoor {

/*!
  One widget's subscription to one topic of payload T.

  The DDS entities are set up on a short-lived thread of their own, so the
  interface thread never waits for DDS; samples arrive on a DDS thread and
  go to the callback through a throttle that enforces the update delay.
  Once retired, no sample reaches the callback any more. The destructor,
  which runs on the disposal thread, waits until set-up has ended, then
  deletes the entities.
*/
template<class T, class F>
class DDS_SubscriberBase : public DDS_BaseObj
{
public:
    using Payload = DDS_Payload<T>;
    using Callback = typename Payload::Callback;

    DDS_SubscriberBase(const char* topicName, Callback callback, std::chrono::nanoseconds separation);
    ~DDS_SubscriberBase() override;

    virtual void FinishedInitSubBase();
    //! Waits, in 1 ms steps, until the set-up thread has ended.
    void waitForInitDone() const override;
    //! True once the set-up thread has ended, whether it succeeded or not.
    bool initEnded() const { return m_initEnded; }
    //! True when the reader exists and samples flow.
    bool isLive() const { return m_initDone; }
    const std::string& topicName() const { return m_topicName; }

    //! Set-up, on its own thread. Throws Connection_errors::Not_Connected.
    static void InitSubBase(DDS_SubscriberBase* sub, long seconds, unsigned long nanoseconds,
                            eprosima::fastdds::dds::DurabilityQosPolicyKind kind);
    //! Starts InitSubBase on a detached thread; its failures are reported there.
    void start(eprosima::fastdds::dds::DurabilityQosPolicyKind kind);

    //! On the DDS thread: takes every sample the reader holds and delivers the newest payload.
    void takeAndDeliver(eprosima::fastdds::dds::DataReader* reader);

private:
    struct TypedRecord
    {
        typename Payload::Sample sample;
        eprosima::fastdds::dds::TypeSupport typeSupport{new typename Payload::PubSubType};
    };

    //! Takes one sample, keeping its payload if it is the newest; false when there is none to take.
    bool takeSample(eprosima::fastdds::dds::DataReader* reader, std::optional<T>& newest);
    void deliver(const T& value);
    void markInitEnded() { m_initEnded = true; }

    TypedRecord* m_holder = new TypedRecord;
    eprosima::fastdds::dds::Topic* m_topic = nullptr;
    eprosima::fastdds::dds::DataReader* m_reader = nullptr;
    const std::string m_topicName;
    eprosima::fastdds::dds::Subscriber* m_subscriber = nullptr;
    DDS_DataReaderListener<T> m_listener;
    const Callback m_callback;
    std::atomic<bool> m_initDone{false};
    std::atomic<bool> m_initEnded{false};
    DDS_DeliveryThrottle m_throttle;
};

template<class T, class F>
DDS_SubscriberBase<T, F>::DDS_SubscriberBase(const char* topicName, Callback callback,
                                             std::chrono::nanoseconds separation)
    : m_topicName(topicName)
    , m_callback(std::move(callback))
    , m_throttle(separation)
{
}

template<class T, class F>
DDS_SubscriberBase<T, F>::~DDS_SubscriberBase()
{
    waitForInitDone();
    m_listener.detach();
    m_throttle.cancel();
    DDS_ParticipantHolder* holder = DdsBase();
    if (m_subscriber) {
        // Deletes the reader before its listener goes with this object.
        m_subscriber->delete_contained_entities();
        m_reader = nullptr;
        holder->participant()->delete_subscriber(m_subscriber);
    }
    holder->releaseTopic(m_topic);
    delete m_holder;
}

template<class T, class F>
void DDS_SubscriberBase<T, F>::FinishedInitSubBase()
{
    m_initDone = true;
}

template<class T, class F>
void DDS_SubscriberBase<T, F>::waitForInitDone() const
{
    while (!m_initEnded)
        boost::this_thread::sleep(boost::get_system_time() + boost::posix_time::milliseconds(1));
}

template<class T, class F>
void DDS_SubscriberBase<T, F>::start(eprosima::fastdds::dds::DurabilityQosPolicyKind kind)
{
    const auto separation = m_throttle.separation();
    const long seconds = static_cast<long>(separation.count() / 1000000000);
    const unsigned long nanoseconds = static_cast<unsigned long>(separation.count() % 1000000000);
    boost::thread([this, seconds, nanoseconds, kind] {
        // Whatever happens, the destructor must not wait for ever.
        boost::this_thread::at_thread_exit([this] { markInitEnded(); });
        try {
            InitSubBase(this, seconds, nanoseconds, kind);
        } catch (const Connection_errors::Not_Connected&) {
            // Already written to the error stream; the widget stays without live values.
        }
    }).detach();
}

template<class T, class F>
void DDS_SubscriberBase<T, F>::InitSubBase(DDS_SubscriberBase* sub, long seconds, unsigned long nanoseconds,
                                           eprosima::fastdds::dds::DurabilityQosPolicyKind kind)
{
    using namespace eprosima::fastdds::dds;
    const std::string F_ = __PRETTY_FUNCTION__;
    auto fail = [&F_](const std::string& what) {
        const std::string text = F_ + what;
        std::cerr << text << std::endl;
        throw Connection_errors::Not_Connected(text.c_str());
    };

    DDS_ParticipantHolder* holder = DdsBase();
    DomainParticipant* participant = holder->participant();
    if (!participant)
        fail(" err: Participant NULL");
    sub->m_subscriber = participant->create_subscriber(SUBSCRIBER_QOS_DEFAULT, nullptr, StatusMask::all());
    if (!sub->m_subscriber)
        fail(" err: create_subscriber");
    sub->m_topic = holder->acquireTopic(sub->m_topicName, sub->m_holder->typeSupport);
    if (!sub->m_topic)
        fail(" err: Participant->create_topic [" + sub->m_holder->typeSupport.get_type_name() + "] [" +
             sub->m_topicName + "]");

    DataReaderQos qos;
    if (sub->m_subscriber->get_default_datareader_qos(qos) != ReturnCode_t::RETCODE_OK)
        std::cout << "DDS_Subscriber:: ERROR: create_datareader failed" << std::endl;
    qos.durability().kind = kind;
    // Only the newest value matters to a screen; with transient-local
    // durability a reader made at any moment starts with the current one.
    qos.history().kind = KEEP_LAST_HISTORY_QOS;
    qos.history().depth = 1;
    qos.time_based_filter().minimum_separation = eprosima::fastrtps::Duration_t(static_cast<int32_t>(seconds),
                                                                                static_cast<uint32_t>(nanoseconds));
    // A screen must not miss the last value of a burst.
    qos.reliability().kind = RELIABLE_RELIABILITY_QOS;
    // Watching the writers' liveliness tells a dead or hung engine; their
    // lease must not be longer than this.
    qos.liveliness().lease_duration = eprosima::fastrtps::Duration_t(1, 0);
    DDS_ParticipantHolder::keepLocal(qos);

    sub->m_listener.setSubscription(sub);
    sub->m_reader = sub->m_subscriber->create_datareader(sub->m_topic, qos, &sub->m_listener, StatusMask::all());
    if (!sub->m_reader)
        fail(" err: Subscriber->create_datareader");
    boost::this_thread::at_thread_exit([sub] { sub->FinishedInitSubBase(); });
}

template<class T, class F>
void DDS_SubscriberBase<T, F>::takeAndDeliver(eprosima::fastdds::dds::DataReader* reader)
{
    // Everything the reader holds is taken and only the newest shown: a
    // backlog formed while the widget was busy never leaves it behind.
    std::optional<T> newest;
    while (takeSample(reader, newest)) {
    }
    if (newest)
        deliver(*newest);
}

template<class T, class F>
bool DDS_SubscriberBase<T, F>::takeSample(eprosima::fastdds::dds::DataReader* reader, std::optional<T>& newest)
{
    using namespace eprosima::fastdds::dds;
    SampleInfo info;
    ReturnCode_t result = ReturnCode_t::RETCODE_OK;
    try {
        result = reader->take_next_sample(&m_holder->sample, &info);
    } catch (const std::exception& error) {
        // Any peer on the domain may send what our types cannot read: that
        // costs the sample, never the process.
        std::cerr << m_topicName << ": a sample that cannot be read was dropped: " << error.what() << std::endl;
        return false;
    }
    if (result == ReturnCode_t::RETCODE_NO_DATA)
        return false;
    if (result != ReturnCode_t::RETCODE_OK) {
        std::cerr << __PRETTY_FUNCTION__ << " take_next_sample error." << std::endl;
        return false;
    }
    if (info.valid_data)
        newest = Payload::copy(m_holder->sample);
    else if (info.instance_state == NOT_ALIVE_DISPOSED_INSTANCE_STATE)
        std::cout << __PRETTY_FUNCTION__ << " instance is disposed" << std::endl;
    else if (info.instance_state == NOT_ALIVE_NO_WRITERS_INSTANCE_STATE)
        std::cout << __PRETTY_FUNCTION__ << " instance is unregistered" << std::endl;
    else
        std::cerr << __PRETTY_FUNCTION__ << " ERROR: received unknown instance state" << std::endl;
    return true;
}

template<class T, class F>
void DDS_SubscriberBase<T, F>::deliver(const T& value)
{
    m_throttle.offer([this, value] {
        const Delivery delivery(*this);
        if (!delivery.allowed())
            return;
        try {
            Payload::call(m_callback, m_topicName.c_str(), value);
        } catch (const boost::bad_function_call& error) {
            std::cerr << m_topicName << ": " << error.what() << std::endl;
        } catch (const CORBA::Exception& error) {
            // A sample the widget cannot use costs that sample, never the host.
            std::cerr << m_topicName << ": the sample was refused: " << error._name() << std::endl;
        } catch (const std::exception& error) {
            std::cerr << m_topicName << ": the sample was refused: " << error.what() << std::endl;
        }
    });
}

} // namespace Brenmoor

#endif // DDS_SUBSCRIBERBASE_H
