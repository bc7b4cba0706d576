// Confirmation buttons: which prompt and button styles ask, what each
// answer does, and that closing the top window cancels the question.
#include "BoundedExit.h"
#include "ConfirmationPushButton.h"
#include "ConfirmationToggleButtonImpl.h"
#include "ContainerDialog.h"
#include "ContainerImpl.h"
#include "GlobalImpl.h"
#include "SimEngine.h"
#include "SystemModule.h"
#include "TestSupport.h"

#include <Brenmoor.hh>

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

namespace {

ContainerDialog* openDialog()
{
    QWidget* screen = GlobalImpl::getInstance()->systemModule()->getSystemScreen(QStringLiteral("MainWindow"));
    for (ContainerDialog* dialog : screen->findChildren<ContainerDialog*>())
        if (dialog->isVisible())
            return dialog;
    return nullptr;
}

// Answers the next question with the button of that label, once it is up;
// records what the question looked like.
struct Answer
{
    explicit Answer(const QString& label, std::function<void(ContainerDialog*)> instead = {})
    {
        QTimer::singleShot(50, &context, [this, label, instead] { answer(label, instead); });
    }
    void answer(const QString& label, const std::function<void(ContainerDialog*)>& instead)
    {
        ContainerDialog* dialog = openDialog();
        if (!dialog) {
            QTimer::singleShot(20, &context, [this, label, instead] { answer(label, instead); });
            return;
        }
        asked = true;
        if (auto* text = dialog->findChild<QLabel*>(QStringLiteral("dialog_text")))
            question = text->text();
        // The answers sit in the content frame, named after their labels.
        for (auto* button : dialog->getContainerFrame()->findChildren<Kelvane::gui::PushButtonImpl*>())
            buttons << button->objectName();
        if (instead) {
            instead(dialog);
            return;
        }
        auto* button = dialog->findChild<Kelvane::gui::PushButtonImpl*>(label);
        QVERIFY(button);
        QTest::mouseClick(button->findChild<QPushButton*>(QStringLiteral("PushButton")), Qt::LeftButton);
    }
    QObject context; // pending polls end with the answer
    bool asked = false;
    QString question;
    QStringList buttons;
};

} // namespace

class TestConfirmation : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void buttonLists();
    void pushButtonPromptAndButtonStyles_data();
    void pushButtonPromptAndButtonStyles();
    void toggleAsksBeforeTheRightSwitch_data();
    void toggleAsksBeforeTheRightSwitch();
    void closingTheTopWindowCancels();
    void confirmedCommandReachesTheEngine();

private:
    QWidget m_mainWindow;
    std::unique_ptr<SimEngine> m_engine;
};

void TestConfirmation::initTestCase()
{
    m_mainWindow.resize(800, 480);
    m_mainWindow.setObjectName(QStringLiteral("MainWindow"));
    GlobalImpl::getInstance()->systemModule()->addSystemScreen(QStringLiteral("MainWindow"), &m_mainWindow);
    m_mainWindow.show();
    m_engine = std::make_unique<SimEngine>();
    SimAttributeSetup setup;
    setup.name = "Preset";
    setup.kind = SimKind::AttribBoolean;
    setup.value = false;
    m_engine->addAttribute(setup);
}

void TestConfirmation::buttonLists()
{
    QCOMPARE(ConfirmationImpl::buttonList(0), QStringLiteral("Cancel,0|OK,1"));
    QCOMPARE(ConfirmationImpl::buttonList(1), QStringLiteral("No,0|Yes,1"));
    QCOMPARE(ConfirmationImpl::buttonList(2), QStringLiteral("OK,0"));
    QCOMPARE(ConfirmationImpl::buttonList(3), QStringLiteral("OK,1"));
    QCOMPARE(ConfirmationImpl::buttonList(4), QString());
}

void TestConfirmation::pushButtonPromptAndButtonStyles_data()
{
    QTest::addColumn<int>("promptStyle");
    QTest::addColumn<int>("buttonStyle");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("asks");
    QTest::addColumn<bool>("acts");
    QTest::newRow("prompt 0 acts at once") << 0 << 1 << QString() << false << true;
    QTest::newRow("below 0 never acts") << -1 << 1 << QString() << false << false;
    QTest::newRow("No/Yes, yes") << 1 << 1 << "Yes" << true << true;
    QTest::newRow("No/Yes, no") << 1 << 1 << "No" << true << false;
    QTest::newRow("Cancel/OK, OK") << 1 << 0 << "OK" << true << true;
    QTest::newRow("Cancel/OK, cancel") << 1 << 0 << "Cancel" << true << false;
    QTest::newRow("OK meaning no never acts") << 1 << 2 << "OK" << true << false;
    QTest::newRow("OK meaning yes") << 1 << 3 << "OK" << true << true;
}

void TestConfirmation::pushButtonPromptAndButtonStyles()
{
    QFETCH(int, promptStyle);
    QFETCH(int, buttonStyle);
    QFETCH(QString, answer);
    QFETCH(bool, asks);
    QFETCH(bool, acts);

    ConfirmationPushButtonImpl button;
    QCOMPARE(button.objectName(), QStringLiteral("ConfirmationPushButton"));
    button.setProperty("PromptStyle", promptStyle);
    button.setProperty("ButtonStyle", buttonStyle);
    button.setProperty("DialogText", QStringLiteral("Load the factory preset?"));
    QSignalSpy clicked(&button, &Kelvane::gui::PushButtonImpl::clicked);
    Answer reply(answer);

    button.buttonClicked();
    QTest::qWait(asks ? 0 : 200);
    QCOMPARE(reply.asked, asks);
    QCOMPARE(clicked.count(), acts ? 1 : 0);
    if (asks) {
        QCOMPARE(reply.question, QStringLiteral("Load the factory preset?"));
        QCOMPARE(reply.buttons.size(), ConfirmationImpl::buttonList(buttonStyle).count(QLatin1Char('|')) + 1);
    }
    QCOMPARE(openDialog(), nullptr);
}

void TestConfirmation::toggleAsksBeforeTheRightSwitch_data()
{
    QTest::addColumn<int>("promptStyle");
    QTest::addColumn<QString>("state");
    QTest::addColumn<bool>("asks");
    QTest::newRow("1 asks before switching on") << 1 << "Off" << true;
    QTest::newRow("1 does not ask before switching off") << 1 << "On" << false;
    QTest::newRow("2 asks before switching off") << 2 << "On" << true;
    QTest::newRow("2 does not ask before switching on") << 2 << "Off" << false;
    QTest::newRow("3 always asks") << 3 << "On" << true;
    QTest::newRow("0 never asks") << 0 << "Off" << false;
}

void TestConfirmation::toggleAsksBeforeTheRightSwitch()
{
    QFETCH(int, promptStyle);
    QFETCH(QString, state);
    QFETCH(bool, asks);

    ConfirmationToggleButtonImpl button;
    button.setProperty("PromptStyle", promptStyle);
    button.setButtonState(state);
    const QString opposite = state == QLatin1String("On") ? QStringLiteral("Off") : QStringLiteral("On");

    // Answer no: the unbound button toggles only when nobody asked.
    Answer reply(QStringLiteral("No"));
    button.pressedEvent();
    QTest::qWait(asks ? 0 : 200);
    QCOMPARE(reply.asked, asks);
    QCOMPARE(button.getState(), asks ? state : opposite);

    Answer yes(QStringLiteral("Yes"));
    button.setButtonState(state);
    button.pressedEvent();
    QTest::qWait(asks ? 0 : 200);
    QCOMPARE(button.getState(), opposite);
}

void TestConfirmation::closingTheTopWindowCancels()
{
    ContainerImpl top(&m_mainWindow);
    top.setObjectName(QStringLiteral("TopContainerObject"));
    auto* button = new ConfirmationPushButtonImpl(&top);
    button->setDialogText(QStringLiteral("Stop the running measurement and discard its results?"));
    QSignalSpy clicked(button, &Kelvane::gui::PushButtonImpl::clicked);
    QImage picture;
    Answer reply(QString(), [&top, &picture, this](ContainerDialog*) {
        picture = TestSupport::savePng(&m_mainWindow, QStringLiteral("confirmation_question"));
        top.close();
    });

    button->buttonClicked();
    QVERIFY(reply.asked);
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(reply.buttons.size(), 2);
    QVERIFY(!picture.isNull());
}

void TestConfirmation::confirmedCommandReachesTheEngine()
{
    ConfirmationPushButtonImpl button;
    button.bindAttribute(m_engine->attribute("Preset"));
    const unsigned sets = m_engine->setCount("Preset");
    Answer reply(QStringLiteral("Yes"));
    button.buttonClicked();
    QTRY_COMPARE(m_engine->setCount("Preset"), sets + 1);
    QCOMPARE(std::get<bool>(*m_engine->lastSetValue("Preset")), true);
}

RV_TEST_MAIN_BOUNDED_EXIT(TestConfirmation, QApplication)
#include "tst_confirmation.moc"
