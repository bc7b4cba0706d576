// NumpadEntryImpl on a plain QLineEdit: the editing keys, the unit column,
// hex mode, the real-time arrows and steps, and pictures of the three layouts.
#include "NumpadEntryImpl.h"
#include "TestSupport.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

namespace {

struct PadOptions
{
    QList<QString> units;
    bool hex = false;
    bool realTime = false;
    double lower = -1000.0;
    double upper = 1000.0;
    int precision = 2;
};

PadOptions realTimeOptions(int precision, double lower = -1000.0, double upper = 1000.0)
{
    PadOptions options;
    options.realTime = true;
    options.precision = precision;
    options.lower = lower;
    options.upper = upper;
    return options;
}

std::unique_ptr<NumpadEntryImpl> makePad(QLineEdit* field, const PadOptions& options = PadOptions(),
                                         QWidget* parent = nullptr)
{
    return std::make_unique<NumpadEntryImpl>(field, parent, &options.units, options.hex, 260, 380, options.realTime,
                                             options.lower, options.upper, options.precision);
}

QLineEdit* echoOf(NumpadEntryImpl& pad) { return pad.findChild<QLineEdit*>(); }

void press(NumpadEntryImpl& pad, const QString& key)
{
    QPushButton* button = pad.getButton(key);
    QVERIFY2(button, qPrintable(key));
    button->click();
}

void pressRepeatedly(NumpadEntryImpl& pad, int times)
{
    for (int i = 0; i < qAbs(times); ++i)
        press(pad, times > 0 ? QStringLiteral("incr") : QStringLiteral("decr"));
}

bool laidOut(NumpadEntryImpl& pad, const QString& key)
{
    QPushButton* button = pad.getButton(key);
    return button && button->isVisibleTo(&pad);
}

} // namespace

class TestNumpad : public QObject
{
    Q_OBJECT

private slots:
    void editingKeys_data();
    void editingKeys();
    void keysWithoutFieldDoNothing();
    void pointFollowsPrecision();
    void hexMode();
    void unitColumn();
    void frameKeysAndEcho();
    void arrows_data();
    void arrows();
    void cursorMarksSteppedDigit_data();
    void cursorMarksSteppedDigit();
    void stepBeyondAShorterValueResets();
    void pictures();
};

void TestNumpad::editingKeys_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<int>("selectFrom"); // -1: no selection, the cursor at cursorAt
    QTest::addColumn<int>("cursorAt");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("result");
    QTest::addColumn<int>("cursorAfter");
    QTest::addColumn<QString>("signal"); // "changed", "cleared" or ""

    QTest::newRow("digit replaces the selection") << "12.5" << 0 << 0 << "7" << "7" << 1 << "changed";
    QTest::newRow("digit at the cursor") << "12" << -1 << 1 << "3" << "132" << 2 << "changed";
    QTest::newRow("backspace before the cursor") << "123" << -1 << 2 << "bksp" << "13" << 1 << "changed";
    QTest::newRow("backspace at the start") << "123" << -1 << 0 << "bksp" << "123" << 0 << "";
    QTest::newRow("backspace leaving a sign") << "-5" << -1 << 2 << "bksp" << "" << 0 << "cleared";
    QTest::newRow("backspace to empty") << "5" << -1 << 1 << "bksp" << "" << 0 << "cleared";
    QTest::newRow("sign on empty") << "" << -1 << 0 << "plmin" << "-" << 1 << "changed";
    QTest::newRow("sign replaces a selection") << "12" << 0 << 0 << "plmin" << "-" << 1 << "changed";
    QTest::newRow("sign removed") << "-12" << -1 << 3 << "plmin" << "12" << 2 << "changed";
    QTest::newRow("sign added in front") << "12" << -1 << 1 << "plmin" << "-12" << 3 << "changed";
    QTest::newRow("point on empty") << "" << -1 << 0 << "dot" << "0." << 2 << "changed";
    QTest::newRow("point at the cursor") << "12" << -1 << 1 << "dot" << "1.2" << 2 << "changed";
    QTest::newRow("point over a selection with a point") << "1.5" << 0 << 0 << "dot" << "0." << 2 << "changed";
    QTest::newRow("second point refused") << "1.5" << -1 << 3 << "dot" << "1.5" << 3 << "";
    QTest::newRow("clear") << "1.5" << -1 << 3 << "clear" << "" << 0 << "cleared";
}

void TestNumpad::editingKeys()
{
    QFETCH(QString, start);
    QFETCH(int, selectFrom);
    QFETCH(int, cursorAt);
    QFETCH(QString, key);
    QFETCH(QString, result);
    QFETCH(int, cursorAfter);
    QFETCH(QString, signal);

    QLineEdit field;
    auto pad = makePad(&field);
    pad->setText(start);
    if (selectFrom >= 0)
        field.setSelection(selectFrom, start.size() - selectFrom);
    else
        field.setCursorPosition(cursorAt);
    QSignalSpy changed(pad.get(), qOverload<>(&NumpadEntryImpl::valueChanged));
    QSignalSpy cleared(pad.get(), &BaseEntryImpl::clearEntry);

    press(*pad, key);
    QCOMPARE(field.text(), result);
    QCOMPARE(echoOf(*pad)->text(), result);
    QCOMPARE(field.cursorPosition(), cursorAfter);
    QCOMPARE(changed.count(), signal == QLatin1String("changed") ? 1 : 0);
    QCOMPARE(cleared.count(), signal == QLatin1String("cleared") ? 1 : 0);
}

void TestNumpad::keysWithoutFieldDoNothing()
{
    auto pad = makePad(nullptr);
    pad->setValue(QStringLiteral("12"));
    QSignalSpy changed(pad.get(), qOverload<>(&NumpadEntryImpl::valueChanged));
    QSignalSpy cleared(pad.get(), &BaseEntryImpl::clearEntry);
    for (const char* key : {"5", "bksp", "plmin", "dot", "clear"})
        press(*pad, QLatin1String(key));
    QCOMPARE(echoOf(*pad)->text(), QStringLiteral("12"));
    QCOMPARE(changed.count() + cleared.count(), 0);
}

void TestNumpad::pointFollowsPrecision()
{
    QLineEdit field;
    auto pad = makePad(&field, realTimeOptions(0));
    QPushButton* dot = pad->getButton(QStringLiteral("dot"));
    QVERIFY(!dot->isEnabled());
    pad->changePrecision(2);
    QVERIFY(dot->isEnabled());
    pad->changePrecision(0);
    QVERIFY(!dot->isEnabled());
}

void TestNumpad::hexMode()
{
    QLineEdit field;
    PadOptions options;
    options.hex = true;
    options.realTime = true;
    options.units = {QStringLiteral("B")};
    auto pad = makePad(&field, options);

    QVERIFY(!pad->realtimeUpdate());
    QVERIFY(!pad->getButton(QStringLiteral("uparrow")));
    for (const char* key : {"A", "C", "D", "F", "enter", "9"})
        QVERIFY2(laidOut(*pad, QLatin1String(key)), key);
    for (const char* key : {"plmin", "dot"})
        QVERIFY2(!pad->getButton(QLatin1String(key))->isEnabled(), key);
    QVERIFY(!pad->findChild<QPushButton*>(QStringLiteral("RotateEntry"))->isEnabled());
    pad->changePrecision(3);
    QVERIFY(!pad->getButton(QStringLiteral("dot"))->isEnabled());

    // A unit named like a hex digit must not take the digit's place.
    QPushButton* digitB = nullptr;
    for (QPushButton* button : pad->findChildren<QPushButton*>()) {
        if (button->text() == QLatin1String("B") && button->isVisibleTo(pad.get()))
            digitB = button;
    }
    QVERIFY(digitB);
    QCOMPARE(digitB->objectName(), QStringLiteral("kbBtn"));
    digitB->click();
    QCOMPARE(field.text(), QStringLiteral("B"));
}

void TestNumpad::unitColumn()
{
    QLineEdit field;
    PadOptions options;
    options.units = {QStringLiteral("Hz"), QStringLiteral("kHz")};
    auto pad = makePad(&field, options);
    QSignalSpy unit(pad.get(), &NumpadEntryImpl::updateUnit);

    QCOMPARE(pad->getButton(QStringLiteral("Hz"))->objectName(), QStringLiteral("unit"));
    QCOMPARE(pad->getButton(QStringLiteral("kHz"))->objectName(), QStringLiteral("lastUnit"));
    QVERIFY(laidOut(*pad, QStringLiteral("kHz")));
    QVERIFY(!laidOut(*pad, QStringLiteral("enter")));
    press(*pad, QStringLiteral("kHz"));
    QCOMPARE(unit.takeFirst().at(0).toString(), QStringLiteral("kHz"));

    pad->setUnitList({QStringLiteral("dB"), QStringLiteral("W")});
    QVERIFY(!pad->getButton(QStringLiteral("Hz")));
    QCOMPARE(pad->getButton(QStringLiteral("W"))->objectName(), QStringLiteral("lastUnit"));
    QVERIFY(laidOut(*pad, QStringLiteral("W")));

    // Without units Enter submits, with its own label.
    pad->setUnitList({});
    QVERIFY(!pad->getButton(QStringLiteral("W")));
    QVERIFY(laidOut(*pad, QStringLiteral("enter")));
    press(*pad, QStringLiteral("enter"));
    QCOMPARE(unit.takeFirst().at(0).toString(), QStringLiteral("Enter"));
}

void TestNumpad::frameKeysAndEcho()
{
    QLineEdit field;
    auto pad = makePad(&field);
    QCOMPARE(pad->size(), QSize(260, 380)); // the field places the pad before it is ever shown
    QCOMPARE(pad->getButton(QStringLiteral("5"))->focusProxy(), &field);

    QSignalSpy rotate(pad.get(), &NumpadEntryImpl::rotateEntryMechanism);
    QSignalSpy cancel(pad.get(), &BaseEntryImpl::cancelEntry);
    pad->findChild<QPushButton*>(QStringLiteral("RotateEntry"))->click();
    press(*pad, QStringLiteral("cancel"));
    QCOMPARE(rotate.count(), 1);
    QCOMPARE(rotate.at(0).at(0).toString(), QStringLiteral("NumpadEntry"));
    QCOMPARE(cancel.count(), 1);

    // Outside real time the echo opens fully selected, like the field.
    pad->setValue(QStringLiteral("3.14"));
    QCOMPARE(echoOf(*pad)->selectedText(), QStringLiteral("3.14"));
}

void TestNumpad::arrows_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");
    QTest::addColumn<int>("stepChanges"); // x10 presses when positive, /10 presses when negative
    QTest::addColumn<QString>("arrow");
    QTest::addColumn<QString>("sent");
    QTest::newRow("up") << "5.00" << 0.0 << 10.0 << 0 << "uparrow" << "6.00";
    QTest::newRow("down") << "5.00" << 0.0 << 10.0 << 0 << "downarrow" << "4.00";
    QTest::newRow("up onto the limit") << "9.00" << 0.0 << 10.0 << 0 << "uparrow" << "10.00";
    QTest::newRow("beyond the upper limit re-sends") << "9.50" << 0.0 << 10.0 << 0 << "uparrow" << "9.50";
    QTest::newRow("beyond the lower limit re-sends") << "0.50" << 0.0 << 10.0 << 0 << "downarrow" << "0.50";
    QTest::newRow("finest step is the last digit") << "12.50" << -1e3 << 1e3 << -3 << "uparrow" << "12.51";
    QTest::newRow("coarsest step is the value's size") << "12.50" << -1e3 << 1e3 << 3 << "uparrow" << "112.50";
    QTest::newRow("upper limit caps the step") << "500.00" << 0.0 << 600.0 << 3 << "uparrow" << "600.00";
    QTest::newRow("lower limit caps a negative step") << "-50.00" << -80.0 << 0.0 << 2 << "downarrow" << "-60.00";
    QTest::newRow("zero steps by ten at most") << "0.00" << -1e3 << 1e3 << 3 << "uparrow" << "10.00";
}

void TestNumpad::arrows()
{
    QFETCH(QString, start);
    QFETCH(double, lower);
    QFETCH(double, upper);
    QFETCH(int, stepChanges);
    QFETCH(QString, arrow);
    QFETCH(QString, sent);
    QLineEdit field;
    auto pad = makePad(&field, realTimeOptions(2, lower, upper));
    QSignalSpy value(pad.get(), qOverload<QString>(&NumpadEntryImpl::valueChanged));
    pad->setValue(start);
    pressRepeatedly(*pad, stepChanges);
    press(*pad, arrow);
    QCOMPARE(value.count(), 1);
    QCOMPARE(value.at(0).at(0).toString(), sent);
    QCOMPARE(echoOf(*pad)->text(), sent);
}

void TestNumpad::cursorMarksSteppedDigit_data()
{
    QTest::addColumn<int>("stepChanges");
    QTest::addColumn<QString>("marked");
    QTest::newRow("units") << 0 << "12";
    QTest::newRow("tens") << 1 << "1";
    QTest::newRow("tenths") << -1 << "12.3";
    QTest::newRow("hundredths") << -2 << "2.34";
    QTest::newRow("thousandths") << -3 << "345";
}

void TestNumpad::cursorMarksSteppedDigit()
{
    QFETCH(int, stepChanges);
    QFETCH(QString, marked);
    QLineEdit field;
    auto pad = makePad(&field, realTimeOptions(3));
    pad->setValue(QStringLiteral("12.345"));
    pad->updateCursorPosition();
    pressRepeatedly(*pad, stepChanges);
    QCOMPARE(echoOf(*pad)->selectedText(), marked);
}

void TestNumpad::stepBeyondAShorterValueResets()
{
    QLineEdit field;
    auto pad = makePad(&field, realTimeOptions(0));
    pad->setValue(QStringLiteral("50"));
    pressRepeatedly(*pad, 2);
    pad->setValue(QStringLiteral("5"));
    pad->updateCursorPosition();
    QCOMPARE(echoOf(*pad)->cursorPosition(), 0);
    press(*pad, QStringLiteral("uparrow"));
    QCOMPARE(echoOf(*pad)->text(), QStringLiteral("6"));
}

void TestNumpad::pictures()
{
    QWidget screen;
    screen.setObjectName(QStringLiteral("screen"));
    screen.setStyleSheet(QStringLiteral("QWidget#screen { background-color: #101418; }"));
    screen.resize(300, 420);
    QLineEdit field(&screen);
    field.hide();

    const auto picture = [&](const PadOptions& options, const QString& value, const QString& name) {
        auto pad = makePad(&field, options, &screen);
        pad->move(20, 20);
        pad->setValue(value);
        if (pad->realtimeUpdate())
            pad->updateCursorPosition();
        screen.show();
        pad->show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen));
        QVERIFY(!TestSupport::savePng(&screen, name).isNull());
    };

    picture(PadOptions(), QStringLiteral("12.50"), QStringLiteral("numpad_normal"));
    PadOptions realTime = realTimeOptions(2);
    realTime.units = {QStringLiteral("Hz"), QStringLiteral("kHz"), QStringLiteral("MHz"), QStringLiteral("GHz")};
    picture(realTime, QStringLiteral("12.50"), QStringLiteral("numpad_realtime_units"));
    PadOptions hex;
    hex.hex = true;
    picture(hex, QStringLiteral("1F"), QStringLiteral("numpad_hex"));
}

QTEST_MAIN(TestNumpad)
#include "tst_numpad.moc"
