// DDS_Subscriber: how a widget's update delay becomes the separation of its
// deliveries, and that samples without data (a disposed or unregistered
// instance) never reach the widget.
#include "BoundedExit.h"
#include "DDS_ParticipantHolder.h"
#include "DDS_Subscriber.h"
#include "DDS_UpdateSeparation.h"

#include <fastdds/dds/domain/DomainParticipant.hpp>
#include <fastdds/dds/publisher/DataWriter.hpp>
#include <fastdds/dds/publisher/Publisher.hpp>

#include <QMutex>
#include <QTimer>
#include <QtTest>

#include <memory>

using Brenmoor::DDS_ParticipantHolder;
using namespace eprosima::fastdds::dds;
using namespace std::chrono_literals;

namespace {

/*
  The long sample with one fixed key. Fast DDS disposes and unregisters
  instances of keyed topics only, and the engine's topics have none; a
  subscription shares a topic made before it, so it reads this one.
*/
class KeyedLong : public TQMM_DDS::ATTR_LONGPubSubType
{
public:
    KeyedLong()
    {
        setName("tst_ddssubscriber::KeyedLong");
        m_isGetKeyDefined = true;
    }

    bool getKey(void*, eprosima::fastrtps::rtps::InstanceHandle_t* handle, bool) override
    {
        *handle = eprosima::fastrtps::rtps::InstanceHandle_t();
        handle->value[0] = 1;
        return true;
    }
};

// What the widget's callback got, on the DDS thread.
class Received
{
public:
    void add(int value)
    {
        QMutexLocker lock(&m_mutex);
        m_values << value;
    }
    QList<int> values() const
    {
        QMutexLocker lock(&m_mutex);
        return m_values;
    }

private:
    mutable QMutex m_mutex;
    QList<int> m_values;
};

} // namespace

class TestDdsSubscriber : public QObject
{
    Q_OBJECT

private slots:
    void updateDelayIsTheSeparation_data();
    void updateDelayIsTheSeparation();
    void samplesWithoutDataMakeNoCallback_data();
    void samplesWithoutDataMakeNoCallback();

private:
    TypeSupport m_keyedLong{new KeyedLong};
};

void TestDdsSubscriber::updateDelayIsTheSeparation_data()
{
    QTest::addColumn<int>("delayMs");
    QTest::addColumn<qint64>("seconds");
    QTest::addColumn<qint64>("nanoseconds");
    QTest::newRow("1500") << 1500 << qint64(1) << qint64(500000000);
    QTest::newRow("0: none") << 0 << qint64(0) << qint64(0);
    QTest::newRow("the default 100") << 100 << qint64(0) << qint64(100000000);
    QTest::newRow("whole seconds") << 2000 << qint64(2) << qint64(0);
    QTest::newRow("negative: none") << -20 << qint64(0) << qint64(0);
}

void TestDdsSubscriber::updateDelayIsTheSeparation()
{
    QFETCH(int, delayMs);
    const std::chrono::nanoseconds separation = Brenmoor::updateSeparation(delayMs);
    QTEST(qint64(separation / 1s), "seconds");
    QTEST(qint64((separation % 1s).count()), "nanoseconds");
}

void TestDdsSubscriber::samplesWithoutDataMakeNoCallback_data()
{
    QTest::addColumn<bool>("dispose"); // else unregister
    QTest::newRow("disposed instance") << true;
    QTest::newRow("unregistered instance") << false;
}

void TestDdsSubscriber::samplesWithoutDataMakeNoCallback()
{
    QFETCH(bool, dispose);
    DDS_ParticipantHolder* holder = DDS_ParticipantHolder::instance();
    DomainParticipant* participant = holder->participant();
    QVERIFY(participant);
    const std::string topicName = std::string("tst_ddssubscriber/") + QTest::currentDataTag();
    Topic* topic = holder->acquireTopic(topicName, m_keyedLong);
    QVERIFY(topic);
    Publisher* publisher = participant->create_publisher(PUBLISHER_QOS_DEFAULT);
    DataWriterQos qos = DDS_ParticipantHolder::writerQos();
    // Else an unregistered instance is disposed as well.
    qos.writer_data_lifecycle().autodispose_unregistered_instances = false;
    DataWriter* writer = publisher->create_datawriter(topic, qos);
    QVERIFY(writer);
    // The writer says it is alive, as the engine does on its tick.
    QTimer liveliness;
    connect(&liveliness, &QTimer::timeout, [holder] { holder->assertLiveliness(); });
    liveliness.start(200);

    Received received;
    auto subscription = std::make_unique<Brenmoor::DDS_Subscriber<int>>(
        topicName.c_str(), [&received](const char*, int value) { received.add(value); }, 0ns);
    subscription->start(TRANSIENT_LOCAL_DURABILITY_QOS);
    QTRY_VERIFY(subscription->isLive());
    PublicationMatchedStatus matched;
    QTRY_VERIFY(writer->get_publication_matched_status(matched) == ReturnCode_t::RETCODE_OK
                && matched.current_count == 1);

    TQMM_DDS::ATTR_LONG sample;
    sample.value(1);
    QVERIFY(writer->write(&sample));
    QTRY_COMPARE(received.values(), QList<int>{1});
    const ReturnCode_t ended = dispose ? writer->dispose(&sample, HANDLE_NIL)
                                       : writer->unregister_instance(&sample, HANDLE_NIL);
    QCOMPARE(ended, ReturnCode_t::RETCODE_OK);
    // Taken on its own, before the next value can join it.
    QTest::qWait(300);
    sample.value(2);
    QVERIFY(writer->write(&sample));
    QTRY_COMPARE(received.values(), (QList<int>{1, 2}));

    publisher->delete_datawriter(writer);
    participant->delete_publisher(publisher);
    subscription.reset();
    holder->releaseTopic(topic);
}

RV_TEST_MAIN_BOUNDED_EXIT(TestDdsSubscriber, QCoreApplication)
#include "tst_ddssubscriber.moc"
