// The widget frame bound to the simulated engine over real CORBA and real
// DDS: reading at bind time, following samples, lock state, the update
// delay, teardown while a DDS thread waits on the interface thread, and a
// lost engine link.
#include "BoundedExit.h"
#include "GlobalImpl.h"
#include "ProgressBar.h"
#include "QRVStatusBar.h"
#include "SimAttribute.h"
#include "SimEngine.h"
#include "SimEngineProcess.h"
#include "TestSupport.h"
#include "WidgetBaseImpl.h"

#include <Brenmoor.hh>

#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QtConcurrent>
#include <QtTest>

#include <boost/bind/bind.hpp>

#include <atomic>
#include <mutex>
#include <thread>

using namespace boost::placeholders;

namespace {

// A frame that lets the test subscribe to any payload and see what arrives.
class Probe : public WidgetBaseImpl
{
public:
    using WidgetBaseImpl::subscribeToDDS;
    ~Probe() override { releaseSubscriptions(); }

    template<class T>
    void follow(const std::string& topic, std::function<void(const char*, const T&)> seen)
    {
        subscribeToDDS<T>(topic.c_str(), boost::function<void(const char*, T)>(
                                             [seen](const char* t, T value) { seen(t, value); }));
    }
    int subscriptionCount() const { return m_subscriptions.size(); }
};

QProgressBar* barOf(QWidget* widget) { return widget->findChild<QProgressBar*>(); }
QPushButton* overlayOf(QWidget* widget) { return widget->findChild<QPushButton*>(QStringLiteral("LockOverlay")); }

Brenmoor::LockerID otherLocker() { return Brenmoor::LockerID{1, 2}; }

} // namespace

class TestBinding : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void progressBarFollowsTheEngine();
    void progressBarIgnoresOtherInterfaces();
    void lockStateAtBindAndOnLockSamples();
    void updateDelayKeepsTheLastValue();
    void payloadsArriveDeepCopied();
    void untaggedPayloadIsReportedButDelivered();
    void widgetsOnOneAttributeShareItsTopic();
    void destroyedRightAfterBinding();
    void destroyedWhileADdsThreadWaitsOnTheInterfaceThread();
    void destroyedWhileAnotherWidgetsSampleWaits();
    void lostEngineLinkShowsOnceAndStays();
    void engineProcessDiesUnderAWidget();

private:
    Brenmoor::EngineReadingBase_ptr attribute(const std::string& name) { return m_engine->attribute(name); }

    std::unique_ptr<SimEngine> m_engine;
    QRVStatusBar* m_statusBar = nullptr;
};

void TestBinding::initTestCase()
{
    m_engine = std::make_unique<SimEngine>();
    auto add = [this](const std::string& name, SimKind kind, SimValue value) {
        SimAttributeSetup setup;
        setup.name = name;
        setup.kind = kind;
        setup.value = value;
        m_engine->addAttribute(setup);
    };
    add("Progress", SimKind::ReadingLong, std::int64_t(42));
    add("Burst", SimKind::ReadingLong, std::int64_t(0));
    add("Busy", SimKind::ReadingLong, std::int64_t(0));
    add("Temperature", SimKind::ReadingDouble, 21.5);
    add("Span", SimKind::AttribLong, std::int64_t(10));
    add("Label", SimKind::AttribString, std::string("first"));
    add("Trace", SimKind::BasicTrace, std::vector<float>{1.0f, 2.0f, 3.0f});
    add("IQ", SimKind::ReadingComplexTrace, std::vector<std::complex<double>>{{1.0, -1.0}});
    m_statusBar = new QRVStatusBar;
    GlobalImpl::getInstance()->setStatusBar(m_statusBar);
}

void TestBinding::progressBarFollowsTheEngine()
{
    ProgressBar bar;
    bar.bindAttribute(attribute("Progress"));
    QCOMPARE(barOf(&bar)->value(), 420);

    // Made before the reader has matched, the change still arrives: the
    // engine keeps its last value for readers that come late.
    m_engine->setValue("Progress", std::int64_t(55));
    QTRY_COMPARE(barOf(&bar)->value(), 550);
    m_engine->setValue("Progress", std::int64_t(100));
    QTRY_COMPARE(barOf(&bar)->value(), 1000);
}

void TestBinding::progressBarIgnoresOtherInterfaces()
{
    ProgressBar bar;
    bar.bindAttribute(attribute("Temperature"));
    m_engine->setValue("Temperature", 30.0);
    QTest::qWait(300);
    QCOMPARE(barOf(&bar)->value(), 700);
}

void TestBinding::lockStateAtBindAndOnLockSamples()
{
    m_engine->lock("Span", otherLocker());
    WidgetBaseImpl widget;
    widget.resize(120, 40);
    widget.bindAttribute(attribute("Span"));
    QVERIFY(!overlayOf(&widget)->isHidden());

    // A lock sample carries no state: the frame asks the engine again.
    m_engine->unlock("Span");
    QTRY_VERIFY(overlayOf(&widget)->isHidden());
    m_engine->lock("Span", otherLocker());
    QTRY_VERIFY(!overlayOf(&widget)->isHidden());
    m_engine->lock("Span", GlobalImpl::getLockerID());
    QTRY_VERIFY(overlayOf(&widget)->isHidden());
    m_engine->unlock("Span");
}

void TestBinding::updateDelayKeepsTheLastValue()
{
    ProgressBar bar;
    bar.setUpdateDelay(300);
    bar.bindAttribute(attribute("Burst"));
    QTest::qWait(500); // let the reader match before the burst
    int shown = 0;
    connect(barOf(&bar), &QProgressBar::valueChanged, this, [&shown] { ++shown; });

    for (int percent = 1; percent <= 20; ++percent)
        m_engine->setValue("Burst", std::int64_t(percent));

    // The last value of the burst arrives when its window ends.
    QTRY_COMPARE_WITH_TIMEOUT(barOf(&bar)->value(), 200, 3000);
    QVERIFY2(shown < 20, qPrintable(QStringLiteral("%1 deliveries for 20 samples").arg(shown)));
}

void TestBinding::payloadsArriveDeepCopied()
{
    Probe probe;
    probe.setUpdateDelay(0);
    std::mutex mutex;
    QString text;
    std::vector<float> trace;
    std::string topicSeen;
    probe.follow<CORBA::String_var>(SimAttribute::valueTopicOf("Label"),
                                    [&](const char* topic, const CORBA::String_var& value) {
                                        std::lock_guard<std::mutex> lock(mutex);
                                        text = QString::fromUtf8(value.in());
                                        topicSeen = topic;
                                    });
    probe.follow<Brenmoor::BASIC_TRACE::BT_DATA>(SimAttribute::valueTopicOf("Trace"),
                                                 [&](const char*, const Brenmoor::BASIC_TRACE::BT_DATA& value) {
                                                     std::lock_guard<std::mutex> lock(mutex);
                                                     trace.assign(value.samples.get_buffer(),
                                                                  value.samples.get_buffer() + value.samples.length());
                                                 });
    QCOMPARE(probe.subscriptionCount(), 2);

    m_engine->setValue("Label", std::string("Zweiter Wert \xc2\xb5V"));
    m_engine->setValue("Trace", std::vector<float>{4.0f, 5.0f, 6.0f, 7.0f});
    QTRY_VERIFY([&] { std::lock_guard<std::mutex> lock(mutex); return trace.size() == 4 && !text.isEmpty(); }());
    std::lock_guard<std::mutex> lock(mutex);
    QCOMPARE(text, QStringLiteral("Zweiter Wert \u00b5V"));
    QCOMPARE(trace, (std::vector<float>{4.0f, 5.0f, 6.0f, 7.0f}));
    QCOMPARE(topicSeen, SimAttribute::valueTopicOf("Label"));
}

void TestBinding::untaggedPayloadIsReportedButDelivered()
{
    Probe probe;
    std::atomic<int> points{0};
    QTest::ignoreMessage(QtDebugMsg, "UserInterface - ERROR: Unknown subscriber type");
    probe.follow<Brenmoor::ComplexDoubleSeq>(SimAttribute::valueTopicOf("IQ"),
                                             [&points](const char*, const Brenmoor::ComplexDoubleSeq& value) {
                                                 points = static_cast<int>(value.length());
                                             });
    QCOMPARE(probe.subscriptionCount(), 0);
    m_engine->setValue("IQ", std::vector<std::complex<double>>{{1, 2}, {3, 4}, {5, 6}});
    QTRY_COMPARE(points.load(), 3);
}

void TestBinding::widgetsOnOneAttributeShareItsTopic()
{
    // Fast DDS makes a topic name once per participant: both readers use
    // one topic, and the first teardown must not take it from the second.
    auto* first = new ProgressBar;
    ProgressBar second;
    first->setUpdateDelay(0);
    second.setUpdateDelay(0);
    first->bindAttribute(attribute("Progress"));
    second.bindAttribute(attribute("Progress"));
    m_engine->setValue("Progress", std::int64_t(12));
    QTRY_COMPARE(barOf(first)->value(), 120);
    QTRY_COMPARE(barOf(&second)->value(), 120);

    delete first;
    m_engine->setValue("Progress", std::int64_t(13));
    QTRY_COMPARE(barOf(&second)->value(), 130);

    // A widget bound after the teardown gets the topic again.
    ProgressBar third;
    third.setUpdateDelay(0);
    third.bindAttribute(attribute("Progress"));
    m_engine->setValue("Progress", std::int64_t(14));
    QTRY_COMPARE(barOf(&third)->value(), 140);
}

void TestBinding::destroyedRightAfterBinding()
{
    for (int i = 0; i < 5; ++i) {
        auto* bar = new ProgressBar;
        bar->bindAttribute(attribute("Progress"));
        delete bar; // waits for the set-up threads, never for ever
    }
}

namespace {

// Ends the process loudly if the interface thread is stuck in a teardown.
class TeardownWatchdog
{
public:
    TeardownWatchdog()
        : m_thread([this] {
            for (int i = 0; i < 200 && !m_done; ++i)
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
            if (!m_done)
                qFatal("teardown deadlocked against a blocked DDS thread");
        })
    {
    }
    ~TeardownWatchdog()
    {
        m_done = true;
        m_thread.join();
    }

private:
    std::atomic<bool> m_done{false};
    std::thread m_thread;
};

} // namespace

void TestBinding::destroyedWhileADdsThreadWaitsOnTheInterfaceThread()
{
    {
        const TeardownWatchdog watchdog;
        auto* bar = new ProgressBar;
        bar->setUpdateDelay(0);
        bar->bindAttribute(attribute("Busy"));
        QTest::qWait(500);
        // The interface thread now sleeps without running events: the DDS
        // thread's blocking emission for this sample waits on it.
        m_engine->setValue("Busy", std::int64_t(33));
        QThread::msleep(300);
        delete bar;
    }

    // The engine and DDS still work for the next widget.
    ProgressBar next;
    next.bindAttribute(attribute("Busy"));
    QCOMPARE(barOf(&next)->value(), 330);
}

void TestBinding::destroyedWhileAnotherWidgetsSampleWaits()
{
    // The sample for the bar waits on the interface thread while Fast DDS
    // holds the writer's lock; taking the probe's reader off the same
    // writer needs that lock.
    ProgressBar bar;
    bar.setUpdateDelay(0);
    bar.bindAttribute(attribute("Busy"));
    auto* probe = new Probe;
    probe->setUpdateDelay(0);
    probe->follow<int>(SimAttribute::valueTopicOf("Busy"), [](const char*, int) {});
    QTest::qWait(500);
    {
        const TeardownWatchdog watchdog;
        for (long long value = 40; value < 43; ++value) {
            m_engine->setValue("Busy", std::int64_t(value));
            QThread::msleep(100);
        }
        delete probe;
    }
    QTRY_COMPARE(barOf(&bar)->value(), 420);
}

void TestBinding::lostEngineLinkShowsOnceAndStays()
{
    QWidget screen;
    screen.setObjectName(QStringLiteral("SpectrumScreen"));
    screen.resize(300, 120);
    screen.setStyleSheet(QStringLiteral("background-color: #101418;"));
    auto* bar = new ProgressBar(&screen);
    bar->setGeometry(10, 10, 280, 60);
    bar->setAttributeName(QStringLiteral("Progress"));
    bar->setLabel(QStringLiteral("Progress"));
    bar->bindAttribute(attribute("Progress"));
    QSignalSpy messages(m_statusBar, &QRVStatusBar::messageAdded);

    // Sends fail on workers; each reports, the interface tells it once.
    QFuture<void> first = QtConcurrent::run([bar] { bar->disconnectCORBA(QStringLiteral("CORBA::TRANSIENT")); });
    QFuture<void> second = QtConcurrent::run([bar] { bar->disconnectCORBA(QStringLiteral("CORBA::COMM_FAILURE")); });
    first.waitForFinished();
    second.waitForFinished();
    QVERIFY(bar->isEngineLinkLost());
    QTRY_COMPARE(messages.count(), 1);
    QTest::qWait(100);
    QCOMPARE(messages.count(), 1);
    QVERIFY(messages.first().first().toString().startsWith(QStringLiteral("Engine link lost (CORBA::")));

    QPushButton* overlay = overlayOf(bar);
    QVERIFY(!overlay->isHidden());
    QCOMPARE(overlay->text(), QStringLiteral("No engine link"));
    bar->setWidgetLocked(false);
    QVERIFY(!overlay->isHidden());
    TestSupport::savePng(&screen, QStringLiteral("progressbar_engine_link_lost"));
}

void TestBinding::engineProcessDiesUnderAWidget()
{
    SimEngineProcess engine;
    QVERIFY2(engine.start(QStringLiteral(RV_TEST_DATA "/binding.json")), qPrintable(engine.errorString()));
    Brenmoor::AttributeDirectory_var directory = engine.directory();
    SimEngineControl::Control_var control = engine.control();

    // Two widgets on one attribute: both must learn, whichever notices first.
    auto* bar = new ProgressBar;
    ProgressBar twin;
    bar->setUpdateDelay(0);
    bar->bindAttribute(directory->find("Stage"));
    twin.bindAttribute(directory->find("Stage"));
    control->setLong("Stage", 7);
    QTRY_COMPARE_WITH_TIMEOUT(barOf(bar)->value(), 70, 10000);
    QSignalSpy messages(m_statusBar, &QRVStatusBar::messageAdded);

    // Nobody touches anything: the engine's silence alone shows the loss.
    engine.kill();
    QTRY_VERIFY_WITH_TIMEOUT(bar->isEngineLinkLost() && twin.isEngineLinkLost(), 5000);
    QTRY_VERIFY(!overlayOf(&twin)->isHidden());
    QCOMPARE(overlayOf(&twin)->text(), QStringLiteral("No engine link"));
    QTest::qWait(200);
    QCOMPARE(messages.count(), 1);
    QVERIFY(messages.first().first().toString().startsWith(QStringLiteral("Engine link lost")));
    QCOMPARE(barOf(bar)->value(), 70);
    delete bar; // no hang, no crash with the engine gone
}

RV_TEST_MAIN_BOUNDED_EXIT(TestBinding, QApplication)
#include "tst_binding.moc"
