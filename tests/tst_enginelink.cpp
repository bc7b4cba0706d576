// The interface's link to the engine as an operator lives it: the engine
// killed, hung and coming back, shown on every widget without a touch,
// never holding the interface thread, and the binder that binds a form
// again once the engine answers. Against an engine process over real CORBA
// and DDS.
#include "BoundedExit.h"
#include "EngineBinder.h"
#include "EngineLink.h"
#include "GlobalImpl.h"
#include "ProgressBar.h"
#include "QRVStatusBar.h"
#include "SimEngineProcess.h"
#include "TestSupport.h"
#include "ToggleButtonImpl.h"

#include <Brenmoor.hh>

#include <QFile>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThread>
#include <QThreadPool>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

namespace {

// A frame that lets the test make engine calls the way widgets do.
class Probe : public WidgetBaseImpl
{
public:
    using WidgetBaseImpl::callEngine;
};

QProgressBar* barOf(QWidget* widget) { return widget->findChild<QProgressBar*>(); }
bool veiled(QWidget* widget)
{
    const auto* overlay = widget->findChild<QPushButton*>(QStringLiteral("LockOverlay"));
    return !overlay->isHidden() && overlay->text() == QStringLiteral("No engine link");
}

// A screen as a form would make it, two bars on one reading and a toggle,
// handed to a binder of the engine at \a reference.
struct Screen
{
    explicit Screen(const QString& reference)
        : binder(reference)
        , bound(&binder, &EngineBinder::bound)
    {
        widget.setObjectName(QStringLiteral("LinkScreen"));
        widget.resize(320, 200);
        widget.setStyleSheet(QStringLiteral("QWidget#LinkScreen { background-color: #101418; }"));
        auto* layout = new QVBoxLayout(&widget);
        for (ProgressBar*& bar : bars) {
            bar = new ProgressBar;
            bar->setAttributeName(QStringLiteral("Stage"));
            bar->setLabel(QStringLiteral("Stage"));
            bar->setUpdateDelay(0);
            layout->addWidget(bar);
        }
        toggle = new ToggleButtonImpl;
        toggle->setAttributeName(QStringLiteral("Power"));
        layout->addWidget(toggle);
        binder.setRetryInterval(100);
        binder.addScreen(&widget);
    }
    QList<WidgetBaseImpl*> all() const { return {bars[0], bars[1], toggle}; }
    bool allVeiled() const
    {
        return std::all_of(bars, bars + 2, [](ProgressBar* bar) { return veiled(bar); }) && veiled(toggle);
    }
    bool allShow(int percent) const
    {
        return barOf(bars[0])->value() == percent * 10 && barOf(bars[1])->value() == percent * 10
            && !veiled(bars[0]) && !veiled(bars[1]) && !veiled(toggle);
    }

    QWidget widget;
    ProgressBar* bars[2] = {};
    ToggleButtonImpl* toggle = nullptr;
    EngineBinder binder;
    QSignalSpy bound;
};

int countOf(const QSignalSpy& spy, const QString& prefix)
{
    int count = 0;
    for (const QList<QVariant>& message : spy)
        count += message.first().toString().startsWith(prefix) ? 1 : 0;
    return count;
}

} // namespace

class TestEngineLink : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void aLossVeilsBoundWidgetsAndStopsCalls();
    void binderFollowsAnEngineThatDiesAndComesBack();
    void binderFollowsAnEngineThatHangsAndGoesOn();
    void bindingAHungEngineLeavesTheInterfaceFree();
    void oversizedReplyIsNotALostEngine();
    void unknownNameSaysSoOnItsVeil();
    void silenceIsALossOnlyWhenTheEngineFailsTheCheck_data();
    void silenceIsALossOnlyWhenTheEngineFailsTheCheck();

private:
    bool startEngine(SimEngineProcess& engine, const QString& scenario = QStringLiteral(RV_TEST_DATA "/enginelink.json"))
    {
        if (engine.start(scenario))
            return true;
        qWarning() << engine.errorString();
        return false;
    }

    QRVStatusBar* m_statusBar = nullptr;
};

void TestEngineLink::initTestCase()
{
    m_statusBar = new QRVStatusBar;
    GlobalImpl::getInstance()->setStatusBar(m_statusBar);
}

void TestEngineLink::init()
{
    // Each case starts from a live link, as after a host's binding.
    EngineLink::instance()->reportLive();
    QTest::qWait(10);
}

void TestEngineLink::unknownNameSaysSoOnItsVeil()
{
    SimEngineProcess engine;
    QVERIFY(startEngine(engine));
    QWidget screen;
    screen.resize(320, 130);
    auto* layout = new QVBoxLayout(&screen);
    auto* known = new ProgressBar;
    known->setAttributeName(QStringLiteral("Stage"));
    layout->addWidget(known);
    auto* unknown = new ProgressBar;
    unknown->setAttributeName(QStringLiteral("Nope"));
    layout->addWidget(unknown);
    EngineBinder binder(engine.iorFile());
    QSignalSpy problems(&binder, &EngineBinder::problem);
    QSignalSpy bound(&binder, &EngineBinder::bound);
    binder.addScreen(&screen);
    QTRY_COMPARE_WITH_TIMEOUT(bound.count(), 1, 10000);

    // Not a lost engine: the one widget says what is wrong with it.
    const auto* overlay = unknown->findChild<QPushButton*>(QStringLiteral("LockOverlay"));
    QVERIFY(!overlay->isHidden());
    QCOMPARE(overlay->text(), QStringLiteral("No such attribute"));
    QVERIFY(!veiled(known));
    QVERIFY(!EngineLink::instance()->isLost());
    QCOMPARE(problems.count(), 1);
    QVERIFY(problems.first().first().toString().contains(QStringLiteral("\"Nope\"")));
    TestSupport::savePng(&screen, QStringLiteral("enginelink_unknown_name"));
}

void TestEngineLink::silenceIsALossOnlyWhenTheEngineFailsTheCheck_data()
{
    QTest::addColumn<bool>("withCheck");
    QTest::addColumn<QString>("checkSays");
    QTest::addColumn<bool>("lost");
    // A killed engine's writer, still listed beside its successor's, falls silent: the engine answers.
    QTest::newRow("engine answers") << true << QString() << false;
    QTest::newRow("engine gone") << true << QStringLiteral("CORBA::TRANSIENT") << true;
    QTest::newRow("nobody to ask") << false << QString() << true;
}

void TestEngineLink::silenceIsALossOnlyWhenTheEngineFailsTheCheck()
{
    QFETCH(bool, withCheck);
    QFETCH(QString, checkSays);
    QFETCH(bool, lost);
    std::atomic<int> checks{0};
    if (withCheck)
        EngineLink::instance()->setSilenceCheck([&checks, checkSays] {
            ++checks;
            // As long as a question to the engine takes: the other reports come meanwhile.
            QThread::msleep(100);
            return checkSays;
        });
    // Every reader of the engine reports at once.
    for (int reader = 0; reader < 5; ++reader)
        EngineLink::instance()->reportSilence();
    if (lost)
        QTRY_VERIFY(EngineLink::instance()->isLost());
    else
        QTest::qWait(200);
    QCOMPARE(EngineLink::instance()->isLost(), lost);
    QCOMPARE(checks.load(), withCheck ? 1 : 0);
    EngineLink::instance()->setSilenceCheck({});
    QThreadPool::globalInstance()->waitForDone();
}

void TestEngineLink::aLossVeilsBoundWidgetsAndStopsCalls()
{
    Probe bound;
    Probe designed; // never bound, as in a form designer
    bound.bindAttribute(nullptr);

    QSignalSpy messages(m_statusBar, &QRVStatusBar::messageAdded);
    EngineLink::instance()->reportLost(QStringLiteral("CORBA::TRANSIENT"));
    EngineLink::instance()->reportLost(QStringLiteral("CORBA::COMM_FAILURE"));
    QTRY_VERIFY(bound.isEngineLinkLost());
    QVERIFY(!designed.isEngineLinkLost());
    QTest::qWait(50);
    QCOMPARE(messages.count(), 1);
    QCOMPARE(messages.first().first().toString(), QStringLiteral("Engine link lost (CORBA::TRANSIENT)"));

    // Once lost, nothing asks the engine: no call waits for it.
    bool called = false;
    QCOMPARE(designed.callEngine([&called] { called = true; }), WidgetBaseImpl::EngineCall::LinkLost);
    QVERIFY(!called);
    EngineLink::instance()->reportLive();
    QCOMPARE(designed.callEngine([&called] { called = true; }), WidgetBaseImpl::EngineCall::Done);
    QVERIFY(called);
    QTRY_COMPARE(countOf(messages, QStringLiteral("Engine link restored")), 1);
}

void TestEngineLink::binderFollowsAnEngineThatDiesAndComesBack()
{
    SimEngineProcess engine;
    QVERIFY(startEngine(engine));
    Screen screen(engine.iorFile());
    QTRY_COMPARE_WITH_TIMEOUT(screen.bound.count(), 1, 10000);
    QCOMPARE(screen.bound.first().first().toInt(), 3);
    QVERIFY(screen.allShow(25));
    QCOMPARE(screen.toggle->getState(), QStringLiteral("On"));

    SimEngineControl::Control_var first = engine.control();
    first->setLong("Stage", 30);
    QTRY_VERIFY_WITH_TIMEOUT(screen.allShow(30), 5000);

    QSignalSpy messages(m_statusBar, &QRVStatusBar::messageAdded);
    engine.kill();
    QTRY_VERIFY_WITH_TIMEOUT(screen.allVeiled(), 5000);
    QCOMPARE(countOf(messages, QStringLiteral("Engine link lost")), 1);
    TestSupport::savePng(&screen.widget, QStringLiteral("enginelink_lost"));

    // A touch on a veiled toggle changes nothing on its own.
    screen.toggle->pressedEvent();
    QCOMPARE(screen.toggle->getState(), QStringLiteral("On"));

    // A new engine on the same reference: every widget follows it.
    QVERIFY(engine.restart());
    SimEngineControl::Control_var control = engine.control();
    QTRY_COMPARE_WITH_TIMEOUT(screen.bound.count(), 2, 10000);
    QTRY_VERIFY(screen.allShow(25));
    control->setLong("Stage", 60);
    QTRY_VERIFY_WITH_TIMEOUT(screen.allShow(60), 5000);
    QCOMPARE(countOf(messages, QStringLiteral("Engine link restored")), 1);
    TestSupport::savePng(&screen.widget, QStringLiteral("enginelink_restored"));

    // Sends go to the new engine.
    screen.toggle->pressedEvent();
    QTRY_COMPARE_WITH_TIMEOUT(screen.toggle->getState(), QStringLiteral("Off"), 5000);

    // The readers of the new binding watch the new engine too: a hang shows
    // by its liveliness (about a second), long before discovery would drop it.
    engine.pause();
    QTRY_VERIFY_WITH_TIMEOUT(screen.allVeiled(), 2500);
    engine.resume();
}

void TestEngineLink::binderFollowsAnEngineThatHangsAndGoesOn()
{
    SimEngineProcess engine;
    QVERIFY(startEngine(engine));
    SimEngineControl::Control_var control = engine.control();
    Screen screen(engine.iorFile());
    QTRY_COMPARE_WITH_TIMEOUT(screen.bound.count(), 1, 10000);
    control->setLong("Stage", 30);
    QTRY_VERIFY_WITH_TIMEOUT(screen.allShow(30), 5000);

    engine.pause();
    QTRY_VERIFY_WITH_TIMEOUT(screen.allVeiled(), 5000);
    engine.resume();
    QTRY_COMPARE_WITH_TIMEOUT(screen.bound.count(), 2, 10000);
    control->setLong("Stage", 80);
    QTRY_VERIFY_WITH_TIMEOUT(screen.allShow(80), 5000);
}

void TestEngineLink::bindingAHungEngineLeavesTheInterfaceFree()
{
    SimEngineProcess engine;
    QVERIFY(startEngine(engine));
    engine.pause();
    int ticks = 0;
    QTimer heartbeat;
    connect(&heartbeat, &QTimer::timeout, this, [&ticks] { ++ticks; });
    heartbeat.start(20);
    Screen screen(engine.iorFile());
    // The look-up waits for the hung engine on a worker: the interface
    // thread goes on serving events meanwhile, and the widgets that could
    // not be bound show it.
    QTRY_VERIFY_WITH_TIMEOUT(screen.allVeiled(), 5000);
    QVERIFY2(ticks >= 10, qPrintable(QStringLiteral("%1 ticks").arg(ticks)));
    QCOMPARE(screen.bound.count(), 0);
    for (WidgetBaseImpl* widget : screen.all())
        QVERIFY(widget->isBindingAttempted());

    // A toggle whose binding failed does not act on its own.
    const QString before = screen.toggle->getState();
    screen.toggle->pressedEvent();
    QCOMPARE(screen.toggle->getState(), before);

    engine.resume();
    QTRY_COMPARE_WITH_TIMEOUT(screen.bound.count(), 1, 10000);
    QTRY_VERIFY(screen.allShow(25));
}

void TestEngineLink::oversizedReplyIsNotALostEngine()
{
    // A label larger than the ORB takes in one message.
    QTemporaryDir folder;
    const QString scenario = folder.filePath(QStringLiteral("huge.json"));
    QFile file(scenario);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"attributes":[{"name":"Stage","kind":"EngineReadingLong","value":25},)"
               R"({"name":"Mode","kind":"EngineAttribEnum","value":0,"enum":[{"value":0,"label":")"
               + QByteArray(10 * 1024 * 1024, 'x') + R"("}]}]})");
    file.close();
    SimEngineProcess engine;
    QVERIFY(startEngine(engine, scenario));
    Brenmoor::AttributeDirectory_var directory = engine.directory();

    Probe probe;
    probe.bindAttribute(directory->find("Mode"));
    const WidgetBaseImpl::EngineCall outcome = probe.callEngine([&] {
        Brenmoor::EngineAttribEnum_var mode = Brenmoor::EngineAttribEnum::_narrow(directory->find("Mode"));
        Brenmoor::EngineAttribEnumParams_var params = mode->params();
    });
    QCOMPARE(outcome, WidgetBaseImpl::EngineCall::Refused);
    QVERIFY(!probe.isEngineLinkLost());
    QVERIFY(!EngineLink::instance()->isLost());

    // The engine is healthy: the next widget binds and follows it.
    ProgressBar bar;
    bar.bindAttribute(directory->find("Stage"));
    QCOMPARE(barOf(&bar)->value(), 250);
}

RV_TEST_MAIN_BOUNDED_EXIT(TestEngineLink, QApplication)
#include "tst_enginelink.moc"
