// The small pop-ups and helpers: the wait spinner, the yes/no prompt, the
// line edit that reverts, and the labelled text line of the browsers.
#include "ContainerDialog.h"
#include "GlobalImpl.h"
#include "PopupDialog.h"
#include "PushButtonImpl.h"
#include "RevertableLineEdit.h"
#include "ScreenOverlay.h"
#include "SystemModule.h"
#include "TestSupport.h"
#include "TextWidget.h"
#include "WaitSpinner.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QTranslator>
#include <QtTest>

namespace {

// A language in which the browsers' "Look in" reads "Suchen in".
class GermanCaptions : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        return QLatin1String(context) == "TextWidget" && QLatin1String(source) == "Look in" ? "Suchen in" : QString();
    }
};

/*!
  Answers the next question on \a screen once its event loop runs, with the
  button labelled \a label or, for an empty one, the close control; notes
  the text and the buttons in \a asked, and hands the dialog to \a look first.
*/
void answerNextQuestion(QWidget* screen, QStringList* asked, const QString& label,
                        std::function<void(ContainerDialog*)> look = {})
{
    QTimer::singleShot(0, screen, [=] {
        auto* dialog = screen->findChild<ContainerDialog*>();
        QVERIFY(dialog);
        const QLabel* text = dialog->findChild<QLabel*>(QStringLiteral("dialog_text"));
        *asked << dialog->findChild<QLabel*>(QStringLiteral("ContainerTitle"))->text() << text->text();
        QCOMPARE(text->alignment(), Qt::AlignLeft | Qt::AlignTop);
        for (auto* button : dialog->getContainerFrame()->findChildren<Kelvane::gui::PushButtonImpl*>())
            *asked << button->buttonText();
        if (look)
            look(dialog);
        QWidget* press = label.isEmpty()
                             ? dialog->findChild<QWidget*>(QStringLiteral("ContainerClose"))
                             : dialog->findChild<QWidget*>(label)->findChild<QPushButton*>(QStringLiteral("PushButton"));
        QTest::mouseClick(press, Qt::LeftButton);
    });
}

} // namespace

class TestPopups : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void spinnerRingsWrapAfter126Steps();
    void spinnerCentresItsText();
    void promptAnswers_data();
    void promptAnswers();
    void dialogTitleAndResultCode();
    void lineEditReverts();
    void textWidget();

private:
    QWidget m_screen;
};

void TestPopups::initTestCase()
{
    m_screen.resize(800, 480);
    m_screen.setObjectName(QStringLiteral("screen"));
    m_screen.setStyleSheet(QStringLiteral("QWidget#screen { background-color: #101418; }"));
    GlobalImpl::getInstance()->systemModule()->addSystemScreen(QStringLiteral("MainWindow"), &m_screen);
    m_screen.show();
}

// Steps of 0.1 from 0, back to 0 at the first angle beyond 12.56636: the
// 126th step shows the rings as they started.
void TestPopups::spinnerRingsWrapAfter126Steps()
{
    WaitSpinner spinner(&m_screen, false);
    spinner.findChild<QTimer*>()->stop();
    spinner.resize(160, 160);
    const QImage start = spinner.grab().toImage();
    for (int step = 1; step <= 125; ++step) {
        spinner.timeOverEvent();
        if (step == 1 || step == 125)
            QVERIFY(spinner.grab().toImage() != start);
    }
    spinner.timeOverEvent();
    QCOMPARE(spinner.grab().toImage(), start);
}

void TestPopups::spinnerCentresItsText()
{
    // A corner of the screen, so that the overlay's rounded corners show.
    QWidget corner(&m_screen);
    corner.setObjectName(QStringLiteral("screen"));
    corner.setGeometry(0, 0, 240, 240);
    auto* overlay = new ScreenOverlay(&corner);
    overlay->setGeometry(20, 20, 200, 200);
    auto* spinner = new WaitSpinner(overlay, true);
    spinner->setGeometry(20, 20, 160, 160);
    spinner->findChild<QTimer*>()->stop();
    for (int step = 0; step < 8; ++step)
        spinner->timeOverEvent();
    spinner->setTextDouble(0.256);
    spinner->alignText();
    corner.show();

    const QLabel* text = spinner->findChild<QLabel*>(QStringLiteral("text"));
    QCOMPARE(text->text(), QStringLiteral("26%"));
    QCOMPARE(text->size(), text->sizeHint());
    QVERIFY((text->geometry().center() - QPoint(80, 80)).manhattanLength() <= 2);
    TestSupport::savePng(&corner, QStringLiteral("popups-waitspinner"));
}

void TestPopups::promptAnswers_data()
{
    QTest::addColumn<int>("promptType");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QStringList>("buttons");
    QTest::addColumn<bool>("yes");
    QTest::newRow("0 OK") << 0 << "OK" << QStringList{"Cancel", "OK"} << true;
    QTest::newRow("0 Cancel") << 0 << "Cancel" << QStringList{"Cancel", "OK"} << false;
    QTest::newRow("1 Yes") << 1 << "Yes" << QStringList{"No", "Yes"} << true;
    QTest::newRow("1 closed") << 1 << "" << QStringList{"No", "Yes"} << false;
    QTest::newRow("2 OK means no") << 2 << "OK" << QStringList{"OK"} << false;
    QTest::newRow("3 OK means yes") << 3 << "OK" << QStringList{"OK"} << true;
    QTest::newRow("unknown type, no buttons") << 9 << "" << QStringList{} << false;
}

void TestPopups::promptAnswers()
{
    QFETCH(int, promptType);
    QFETCH(QString, answer);
    QFETCH(QStringList, buttons);
    QFETCH(bool, yes);
    PopupDialog prompt;
    prompt.setMessage(QStringLiteral("Are you sure you want to remove \"trace.csv\"?"));
    prompt.setPromptType(promptType);
    QStringList asked;
    answerNextQuestion(&m_screen, &asked, answer);
    QCOMPARE(prompt.displayPrompt(), yes);
    QCOMPARE(asked, QStringList({QString(), prompt.message()}) + buttons);
    // Built afresh for each question and gone once it is answered.
    QVERIFY(!m_screen.findChild<ContainerDialog*>());
}

void TestPopups::dialogTitleAndResultCode()
{
    QStringList asked;
    answerNextQuestion(&m_screen, &asked, QStringLiteral("Keep"), [](ContainerDialog* dialog) {
        TestSupport::savePng(dialog, QStringLiteral("popups-prompt"));
    });
    const QString text = QStringLiteral("The script \"sweep.py\" has changes that are not saved. Keep editing it, "
                                        "or discard the changes and close it?");
    QCOMPARE(PopupDialog().displayDialog(QStringLiteral("Unsaved Script"), text, QStringLiteral("Discard,2|Keep,5")),
             5);
    QCOMPARE(asked, (QStringList{"Unsaved Script", text, "Discard", "Keep"}));
}

void TestPopups::lineEditReverts()
{
    // Nothing stored yet: the constructor's text is not kept.
    RevertableLineEdit edit(QStringLiteral("12:30:00"), nullptr);
    edit.revert();
    QCOMPARE(edit.text(), QString());
    edit.setText(QStringLiteral("08:15:00"));
    edit.store();
    edit.setText(QStringLiteral("typed over"));
    edit.revert();
    QCOMPARE(edit.text(), QStringLiteral("08:15:00"));
}

void TestPopups::textWidget()
{
    GermanCaptions german;
    QCoreApplication::installTranslator(&german);
    TextWidget widget(&m_screen, QStringLiteral("Look in"));
    const QLabel* caption = widget.findChild<QLabel*>();
    QCOMPARE(caption->text(), QStringLiteral("Suchen in"));
    // The owner calls retranslate() once per change of language; a second
    // call in the same language shows the source text again.
    widget.retranslate();
    QCOMPARE(caption->text(), QStringLiteral("Look in"));
    widget.retranslate();
    QCOMPARE(caption->text(), QStringLiteral("Suchen in"));
    QCoreApplication::removeTranslator(&german);

    // A second addition to the sheet replaces the first.
    const QLineEdit* edit = widget.findChild<QLineEdit*>();
    widget.setCSS(QStringLiteral("QLineEdit { color: red; }"));
    widget.ensurePolished();
    QCOMPARE(edit->palette().color(QPalette::Text), QColor(Qt::red));
    widget.setCSS(QStringLiteral("QLabel { color: green; }"));
    widget.ensurePolished();
    QCOMPARE(edit->palette().color(QPalette::Text), QColor(Qt::white));
    QCOMPARE(caption->palette().color(QPalette::WindowText), QColor(QStringLiteral("green")));
}

QTEST_MAIN(TestPopups)
#include "tst_popups.moc"
