// KeyboardEntryImpl on a plain QLineEdit: typing on both pages and on any Unicode
// text, Shift and its caps lock, the portrait geometry, the two sizes, pictures.
#include "KeyboardEntryImpl.h"
#include "TestSupport.h"

#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QtTest>

namespace {

//! Sets the "-res" start-up switch for the life of the guard.
struct Resolution
{
    explicit Resolution(const QByteArray& res) { qApp->setProperty("-res", res.isEmpty() ? QVariant() : res); }
    ~Resolution() { qApp->setProperty("-res", QVariant()); }
};

void press(KeyboardEntryImpl& keyboard, const QString& key)
{
    QPushButton* button = keyboard.getButton(key);
    // A key of the page not shown cannot be touched.
    QVERIFY2(button && button->isVisibleTo(&keyboard), qPrintable(key));
    button->click();
}

} // namespace

class TestKeyboard : public QObject
{
    Q_OBJECT

private slots:
    void typing_data();
    void typing();
    void portraitScreen();
    void enterAndCancel();
    void sizes();
};

void TestKeyboard::typing_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<int>("cursorAt");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QString>("result");
    QTest::addColumn<int>("cursorAfter");
    QTest::addColumn<int>("pageAfter");

    const QString smile = QStringLiteral("\U0001F600");
    const QString cjk = QStringLiteral("\u65e5\u672c");
    QTest::newRow("lower case") << "" << 0 << QStringList{"h", "i"} << "hi" << 2 << 0;
    QTest::newRow("upper case stays after a letter") << "" << 0 << QStringList{"shift", "H", "I"} << "HI" << 2 << 1;
    QTest::newRow("caps lock stays") << "" << 0 << QStringList{"shift", "SHIFT", "A", "B"} << "AB" << 2 << 1;
    QTest::newRow("caps lock off") << "" << 0 << QStringList{"shift", "A", "SHIFT", "SHIFT", "b"} << "Ab" << 2 << 0;
    QTest::newRow("digits on either page") << "" << 0 << QStringList{"1", "shift", "2", "0"} << "120" << 3 << 1;
    QTest::newRow("space on either page") << "a" << 1 << QStringList{"space", "shift", "SPACE"} << "a  " << 3 << 1;
    QTest::newRow("marks") << "" << 0 << QStringList{"hyphen", "underscore", "slash", "dot"} << "-_/." << 4 << 0;
    QTest::newRow("at the cursor") << "ac" << 1 << QStringList{"b"} << "abc" << 2 << 0;
    QTest::newRow("clear") << "abc" << 3 << QStringList{"clear"} << "" << 0 << 0;
    QTest::newRow("backspace at the start") << "abc" << 0 << QStringList{"bksp"} << "abc" << 0 << 0;
    QTest::newRow("backspace in upper case") << "abc" << 2 << QStringList{"shift", "BKSP"} << "ac" << 1 << 1;
    QTest::newRow("backspace over CJK") << cjk + "x" << 2 << QStringList{"bksp"} << cjk.left(1) + "x" << 1 << 0;
    QTest::newRow("backspace over an emoji") << "a" + smile + smile << 5 << QStringList{"bksp"} << "a" + smile << 3
                                             << 0;
    QTest::newRow("letter beside an emoji") << smile + "x" << 2 << QStringList{"b"} << smile + "bx" << 3 << 0;
}

void TestKeyboard::typing()
{
    QFETCH(QString, start);
    QFETCH(int, cursorAt);
    QFETCH(QStringList, keys);
    QFETCH(QString, result);
    QFETCH(int, cursorAfter);
    QFETCH(int, pageAfter);
    QLineEdit field(start);
    field.setCursorPosition(cursorAt);
    KeyboardEntryImpl keyboard(&field, nullptr, 680, 325);
    keyboard.setValue(start);
    for (const QString& key : keys)
        press(keyboard, key);
    QCOMPARE(field.text(), result);
    QCOMPARE(keyboard.findChild<QLineEdit*>()->text(), result);
    QCOMPARE(field.cursorPosition(), cursorAfter);
    QCOMPARE(keyboard.findChild<QStackedWidget*>()->currentIndex(), pageAfter);
}

void TestKeyboard::portraitScreen()
{
    for (const QByteArray& res : {QByteArray(), QByteArray("480x800")}) {
        const Resolution resolution(res);
        QWidget screen;
        screen.resize(res.isEmpty() ? QSize(720, 365) : QSize(520, 320));
        QLineEdit field(QStringLiteral("Trace_07.csv"));
        KeyboardEntryImpl keyboard(&field, &screen, 680, 325);
        // The field places the keyboard by its size before it is ever shown.
        QCOMPARE(keyboard.size(), res.isEmpty() ? QSize(680, 325) : QSize(480, 280));
        keyboard.retranslate();
        QCOMPARE(keyboard.getButton(QStringLiteral("cancel"))->text(), res.isEmpty() ? "Cancel" : "Cncl");
        keyboard.move(20, 20);
        keyboard.setValue(field.text());
        if (!res.isEmpty()) {
            press(keyboard, QStringLiteral("shift"));
            press(keyboard, QStringLiteral("SHIFT"));
        }
        screen.show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen));
        TestSupport::savePng(&screen, res.isEmpty() ? "keyboard_min" : "keyboard_480x800_caps");
    }
}

void TestKeyboard::enterAndCancel()
{
    QLineEdit field(QStringLiteral("abc"));
    KeyboardEntryImpl keyboard(&field, nullptr, 680, 325);
    QCOMPARE(keyboard.getButton(QStringLiteral("a"))->focusProxy(), &field);
    QSignalSpy enter(&keyboard, &KeyboardEntryImpl::enterPressed);
    QSignalSpy cancel(&keyboard, &BaseEntryImpl::cancelEntry);
    for (const char* key : {"enter", "shift", "ENTER", "cancel"})
        press(keyboard, QLatin1String(key));
    QCOMPARE(enter.count(), 2);
    QCOMPARE(cancel.count(), 1);
    QCOMPARE(field.text(), QStringLiteral("abc"));
}

void TestKeyboard::sizes()
{
    QWidget screen;
    screen.resize(1280, 800);
    QLineEdit field(QStringLiteral("Trace_07.csv"));
    KeyboardEntryImpl keyboard(&field, &screen, 680, 325);
    keyboard.setValue(field.text());
    screen.show();
    QVERIFY(QTest::qWaitForWindowExposed(&screen));
    QPushButton* letter = keyboard.getButton(QStringLiteral("q"));
    QLayout* panel = keyboard.getEntryMechanismLayout();
    emit keyboard.changeSize(QStringLiteral("Max"));
    keyboard.changeSizeSlot(QStringLiteral("Max"));
    QCOMPARE(letter->font().pixelSize(), 72);
    QCOMPARE(panel->contentsMargins(), QMargins(0, 24, 0, 24));
    // The echo spans the grown panel, as it did the first one.
    QCOMPARE(keyboard.findChild<QLineEdit*>()->width(), keyboard.getMainFrame()->width() - 20);
    QCoreApplication::processEvents(); // the margins' new layout
    TestSupport::savePng(&screen, QStringLiteral("keyboard_max"));
    keyboard.changeSizeSlot(QStringLiteral("Min"));
    QCOMPARE(letter->font().pixelSize(), 40);
    QCOMPARE(panel->contentsMargins(), QMargins());
}

QTEST_MAIN(TestKeyboard)
#include "tst_keyboard.moc"
