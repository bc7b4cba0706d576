// ToggleButtonImpl against the simulated engine: every transition of its
// state machine, the lock pill, and sends that fail.
#include "BoundedExit.h"
#include "GlobalImpl.h"
#include "QRVStatusBar.h"
#include "SimEngine.h"
#include "SimEngineProcess.h"
#include "TestSupport.h"
#include "ToggleButtonImpl.h"

#include <Brenmoor.hh>

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

namespace {

// The pill is the only label; the face is the button named "Label" (the
// frame's overlay is another button).
QLabel* pillOf(ToggleButtonImpl& button) { return button.findChild<QLabel*>(); }
QPushButton* faceOf(ToggleButtonImpl& button) { return button.findChild<QPushButton*>(QStringLiteral("Label")); }
void touch(ToggleButtonImpl& button) { QTest::mouseClick(faceOf(button), Qt::LeftButton); }
Brenmoor::LockerID otherLocker() { return Brenmoor::LockerID{7, 7}; }

} // namespace

class TestToggleButton : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void samplesSetTheState();
    void touchSendsTheOppositeAndWaits_data();
    void touchSendsTheOppositeAndWaits();
    void touchWhileLoadingSendsNothing();
    void unboundButtonJustToggles();
    void lockShowsInThePill();
    void pressIgnoredWhileAnotherWidgetHoldsTheEntryMechanism();
    void newOnTextWhileOn();
    void unknownActiveStateShowsLoading();
    void refusedSendRevertsToTheEngineState();
    void transportFailureEndsDisconnected();
    void controlTouchOnlyFlipsDebug();
    void engineKilledDuringASend();
    void looks();

private:
    // Binds and waits until the button's readers have matched the engine's
    // writers: topics are volatile, and samples of earlier cases must be in.
    void bind(ToggleButtonImpl& button)
    {
        button.bindAttribute(m_engine->attribute("Power"));
        QTest::qWait(500);
    }

    std::unique_ptr<SimEngine> m_engine;
    QRVStatusBar* m_statusBar = nullptr;
};

void TestToggleButton::initTestCase()
{
    m_engine = std::make_unique<SimEngine>();
    SimAttributeSetup setup;
    setup.name = "Power";
    setup.kind = SimKind::AttribBoolean;
    setup.value = true;
    m_engine->addAttribute(setup);
    m_statusBar = new QRVStatusBar;
    GlobalImpl::getInstance()->setStatusBar(m_statusBar);
}

void TestToggleButton::init()
{
    m_engine->unlock("Power");
    m_engine->setValue("Power", true);
}

void TestToggleButton::cleanup()
{
    QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), nullptr);
}

void TestToggleButton::samplesSetTheState()
{
    ToggleButtonImpl button;
    bind(button);
    QCOMPARE(button.getState(), QStringLiteral("On"));
    m_engine->setValue("Power", false);
    QTRY_COMPARE(button.getState(), QStringLiteral("Off"));
    QCOMPARE(pillOf(button)->objectName(), QStringLiteral("Off"));
    m_engine->setValue("Power", true);
    QTRY_COMPARE(button.getState(), QStringLiteral("On"));
    QCOMPARE(button.getActiveState(), ToggleButtonImpl::On);
}

void TestToggleButton::touchSendsTheOppositeAndWaits_data()
{
    QTest::addColumn<bool>("engineValue");
    QTest::addColumn<QString>("after");
    QTest::newRow("On sends false") << true << "Off";
    QTest::newRow("Off sends true") << false << "On";
}

void TestToggleButton::touchSendsTheOppositeAndWaits()
{
    QFETCH(bool, engineValue);
    QFETCH(QString, after);
    m_engine->setValue("Power", engineValue);
    ToggleButtonImpl button;
    bind(button);
    const unsigned sets = m_engine->setCount("Power");
    // Hold the engine's answer so that the wait can be seen.
    m_engine->hangNextSet("Power", 1, std::chrono::milliseconds(300));

    touch(button);
    QCOMPARE(button.getState(), QStringLiteral("Loading"));
    QTRY_COMPARE(button.getState(), after);
    QCOMPARE(m_engine->setCount("Power"), sets + 1);
    QCOMPARE(std::get<bool>(*m_engine->lastSetValue("Power")), !engineValue);
    QCOMPARE(m_engine->lastLocker("Power")->processId, GlobalImpl::getLockerID().processId);
}

void TestToggleButton::touchWhileLoadingSendsNothing()
{
    ToggleButtonImpl button;
    bind(button);
    button.setButtonState(QStringLiteral("Loading"));
    const unsigned sets = m_engine->setCount("Power");
    touch(button);
    QTest::qWait(200);
    QCOMPARE(m_engine->setCount("Power"), sets);
    QCOMPARE(button.getState(), QStringLiteral("Loading"));
}

void TestToggleButton::unboundButtonJustToggles()
{
    ToggleButtonImpl button;
    QSignalSpy changes(&button, &ToggleButtonImpl::changeState);
    touch(button);
    QCOMPARE(button.getState(), QStringLiteral("Off"));
    touch(button);
    QCOMPARE(button.getState(), QStringLiteral("On"));
    QCOMPARE(changes.count(), 2);
}

void TestToggleButton::lockShowsInThePill()
{
    m_engine->lock("Power", otherLocker());
    ToggleButtonImpl button;
    bind(button);
    QCOMPARE(pillOf(button)->text(), QStringLiteral("Locked-On"));
    QCOMPARE(pillOf(button)->objectName(), QStringLiteral("Locked"));
    QVERIFY(!faceOf(button)->isEnabled());
    // The frame's overlay stays out of it.
    QVERIFY(button.findChild<QPushButton*>(QStringLiteral("LockOverlay"))->isHidden());

    button.setButtonState(QStringLiteral("Loading"));
    QCOMPARE(pillOf(button)->text(), QStringLiteral("Locked-Loading"));

    m_engine->unlock("Power");
    QTRY_COMPARE(pillOf(button)->text(), QStringLiteral("Loading"));
    QVERIFY(faceOf(button)->isEnabled());
}

void TestToggleButton::pressIgnoredWhileAnotherWidgetHoldsTheEntryMechanism()
{
    ToggleButtonImpl button;
    bind(button);
    QWidget keypadOwner;
    GlobalImpl::getInstance()->setEntryMechanism(&keypadOwner);
    const unsigned sets = m_engine->setCount("Power");
    touch(button);
    QTest::qWait(200);
    QCOMPARE(button.getState(), QStringLiteral("On"));
    QCOMPARE(m_engine->setCount("Power"), sets);
    QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), &keypadOwner);
    GlobalImpl::getInstance()->releaseEntryMechanism(&keypadOwner);
}

void TestToggleButton::newOnTextWhileOn()
{
    ToggleButtonImpl button;
    button.setOnText(QStringLiteral("Running"));
    QCOMPARE(pillOf(button)->text(), QStringLiteral("Running"));
    // The state is still the old text, which is no longer a state word.
    touch(button);
    QCOMPARE(button.getState(), QStringLiteral("On"));
}

void TestToggleButton::unknownActiveStateShowsLoading()
{
    ToggleButtonImpl button;
    button.setActiveState(ToggleButtonImpl::State_t(7));
    QCOMPARE(pillOf(button)->text(), QStringLiteral("Loading"));
    QCOMPARE(button.getActiveState(), ToggleButtonImpl::Loading);
}

void TestToggleButton::refusedSendRevertsToTheEngineState()
{
    ToggleButtonImpl button;
    button.setAttributeName(QStringLiteral("Power"));
    bind(button);
    SimFailure failure;
    failure.kind = SimFailure::Kind::Locked;
    m_engine->failNextSet("Power", 1, failure);
    QSignalSpy messages(m_statusBar, &QRVStatusBar::messageAdded);

    touch(button);
    QTRY_COMPARE(messages.count(), 1);
    QCOMPARE(messages.first().first().toString(), QStringLiteral("Power threw an exception while sending: Off"));
    QTRY_COMPARE(button.getState(), QStringLiteral("On"));
    QVERIFY(!button.isEngineLinkLost());
}

void TestToggleButton::transportFailureEndsDisconnected()
{
    ToggleButtonImpl button;
    button.setAttributeName(QStringLiteral("Power"));
    bind(button);
    SimFailure failure;
    failure.kind = SimFailure::Kind::Transient;
    m_engine->failNextSet("Power", 1, failure);
    QSignalSpy messages(m_statusBar, &QRVStatusBar::messageAdded);

    touch(button);
    QTRY_VERIFY(button.isEngineLinkLost());
    QTRY_COMPARE(messages.count(), 1);
    QVERIFY(messages.first().first().toString().contains(QStringLiteral("CORBA::TRANSIENT")));
    QCOMPARE(button.getState(), QStringLiteral("Loading"));
    // No more sends after the link is gone.
    const unsigned sets = m_engine->setCount("Power");
    button.setButtonState(QStringLiteral("On"));
    touch(button);
    QTest::qWait(200);
    QCOMPARE(m_engine->setCount("Power"), sets);
}

void TestToggleButton::controlTouchOnlyFlipsDebug()
{
    ToggleButtonImpl button;
    button.resize(200, 50);
    QSignalSpy display(&button, &WidgetBaseImpl::DisplayEntryMechanism);
    QTest::mouseRelease(&button, Qt::LeftButton, Qt::ControlModifier, QPoint(5, 5));
    QVERIFY(button.getSuppressDebug());
    QCOMPARE(display.count(), 0);
    QTest::mouseRelease(&button, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QVERIFY(button.getSuppressDebug());
}

void TestToggleButton::engineKilledDuringASend()
{
    SimEngineProcess engine;
    QVERIFY2(engine.start(QStringLiteral(RV_DEMO_SCENARIO)), qPrintable(engine.errorString()));
    Brenmoor::AttributeDirectory_var directory = engine.directory();
    SimEngineControl::Control_var control = engine.control();
    ToggleButtonImpl button;
    button.setAttributeName(QStringLiteral("Run"));
    button.bindAttribute(directory->find("Run"));
    QCOMPARE(button.getState(), QStringLiteral("Off"));

    control->hangNextSet("Run", 1, 5000);
    touch(button);
    QTest::qWait(300); // the worker now waits inside set()
    engine.kill();
    QTRY_VERIFY_WITH_TIMEOUT(button.isEngineLinkLost(), 5000);
    // The send never landed: the button shows the wait or the engine's last value.
    QVERIFY(button.getState() != QStringLiteral("On"));
}

void TestToggleButton::looks()
{
    QWidget screen;
    screen.setStyleSheet(QStringLiteral("QWidget#screen { background-color: #101418; }"));
    screen.setObjectName(QStringLiteral("screen"));
    screen.resize(640, 80);
    const QStringList states{QStringLiteral("On"), QStringLiteral("Off"), QStringLiteral("Loading")};
    for (int i = 0; i < 4; ++i) {
        auto* button = new ToggleButtonImpl(&screen);
        button->setGeometry(8 + i * 156, 16, 148, 48);
        button->setLabel(i < 3 ? states.at(i) : QStringLiteral("Locked"));
        button->setButtonState(states.value(i, QStringLiteral("On")));
        if (i == 3)
            button->setLockState(true);
    }
    const QImage image = TestSupport::savePng(&screen, QStringLiteral("togglebutton_states"));
    QVERIFY(!image.isNull());
}

RV_TEST_MAIN_BOUNDED_EXIT(TestToggleButton, QApplication)
#include "tst_togglebutton.moc"
