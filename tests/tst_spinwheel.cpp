// SpinWheelImpl on its own: turns of the finger with known timestamps and
// the steps they give, the limits, the digit keys, and a picture.
#include "SpinWheelImpl.h"
#include "TestSupport.h"
#include "WheelGestures.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include <limits>
#include <memory>

using namespace WheelGestures;

namespace {

const double notANumber = std::numeric_limits<double>::quiet_NaN();

std::unique_ptr<SpinWheelImpl> makeWheel(const QString& value, double lower, double upper, int precision)
{
    auto wheel = std::make_unique<SpinWheelImpl>(nullptr, lower, upper, precision, 260, 330);
    wheel->setValue(value);
    wheel->show();
    return wheel;
}

void click(SpinWheelImpl& wheel, const char* key, int times = 1)
{
    auto* button = wheel.findChild<QPushButton*>(QLatin1String(key));
    QVERIFY2(button, key);
    for (int i = 0; i < times; ++i)
        button->click();
}

QStringList sent(const QSignalSpy& spy)
{
    QStringList values;
    for (const QList<QVariant>& arguments : spy)
        values << arguments.at(0).toString();
    return values;
}

} // namespace

class TestSpinWheel : public QObject
{
    Q_OBJECT

private slots:
    void turnsGiveSteps_data();
    void turnsGiveSteps();
    void pressOffTheCircleStartsNothing();
    void markerFollowsOnlyWhileTouched();
    void digitKeysRespectTheValue();
    void keysSpeakForTheWheel();
    void looks_data();
    void looks();
};

void TestSpinWheel::turnsGiveSteps_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");
    QTest::addColumn<int>("precision");
    //! x10 (positive) or /10 (negative) presses before the turn.
    QTest::addColumn<int>("digitShift");
    QTest::addColumn<Path>("path");
    QTest::addColumn<QStringList>("values");

    // Five samples make a speed, five speeds of one sign and more than five
    // analyses since the last step make a step: the 15th touch steps first,
    // then every 7th.
    const Path clockwise = steady(0.3, 0.1, 10, 30);
    QTest::newRow("clockwise") << "10" << 0.0 << 100.0 << 0 << 0 << clockwise << QStringList{"11", "12", "13"};
    QTest::newRow("counter-clockwise")
        << "10" << 0.0 << 100.0 << 0 << 0 << steady(3.3, -0.1, 10, 30) << QStringList{"9", "8", "7"};
    QTest::newRow("one touch short of a step")
        << "10" << 0.0 << 100.0 << 0 << 0 << steady(0.3, 0.1, 10, 14) << QStringList();
    QTest::newRow("a fast turn still steps by one")
        << "10" << 0.0 << 100.0 << 0 << 0 << steady(0.3, 0.2, 1, 15) << QStringList{"11"};
    // Touches that share a time add nothing to the speed, yet the others still turn it.
    Path paired;
    for (int i = 0; i < 15; ++i)
        paired << Touch{0.3 + 0.1 * i, qint64(i / 2) * 20};
    QTest::newRow("touches sharing a time") << "10" << 0.0 << 100.0 << 0 << 0 << paired << QStringList{"11"};
    // After a reversal five speeds of the new sign must gather first.
    QTest::newRow("reversal") << "10" << 0.0 << 100.0 << 0 << 0 << then(steady(0.3, 0.1, 10, 15), -0.1, 10, 6)
                              << QStringList{"11"};
    QTest::newRow("reversal, then a step back")
        << "10" << 0.0 << 100.0 << 0 << 0 << then(steady(0.3, 0.1, 10, 15), -0.1, 10, 7)
        << QStringList{"11", "10"};
    QTest::newRow("a step past the upper limit is dropped")
        << "99" << 0.0 << 100.0 << 0 << 0 << clockwise << QStringList{"100"};
    QTest::newRow("a small upper limit is reached")
        << "10" << 0.0 << 11.0 << 0 << 0 << clockwise << QStringList{"11"};
    QTest::newRow("a step past the lower limit is dropped")
        << "1" << 0.0 << 100.0 << 0 << 0 << steady(3.3, -0.1, 10, 30) << QStringList{"0"};
    QTest::newRow("opened above the upper limit") << "150" << 0.0 << 100.0 << 0 << 0 << clockwise << QStringList();
    QTest::newRow("equal limits") << "5" << 5.0 << 5.0 << 0 << 0 << clockwise << QStringList();
    QTest::newRow("inverted limits") << "10" << 100.0 << 0.0 << 0 << 0 << clockwise << QStringList();
    QTest::newRow("limits not a number") << "10" << notANumber << notANumber << 0 << 0 << clockwise << QStringList();
    QTest::newRow("infinite limits") << "10" << -qInf() << qInf() << 0 << 0 << clockwise
                                     << QStringList{"11", "12", "13"};
    QTest::newRow("hundredths") << "1.00" << 0.0 << 100.0 << 2 << -2 << clockwise
                                << QStringList{"1.01", "1.02", "1.03"};
    QTest::newRow("tens") << "15" << 0.0 << 100.0 << 0 << 1 << clockwise << QStringList{"25", "35", "45"};
    QTest::newRow("no digit behind the precision")
        << "10" << 0.0 << 100.0 << 0 << -1 << clockwise << QStringList{"11", "12", "13"};
    QTest::newRow("no digit above the value") << "5" << 0.0 << 100.0 << 0 << 2 << clockwise
                                              << QStringList{"15", "25", "35"};
}

void TestSpinWheel::turnsGiveSteps()
{
    QFETCH(QString, value);
    QFETCH(double, lower);
    QFETCH(double, upper);
    QFETCH(int, precision);
    QFETCH(int, digitShift);
    QFETCH(Path, path);
    QFETCH(QStringList, values);
    std::unique_ptr<SpinWheelImpl> wheel = makeWheel(value, lower, upper, precision);
    click(*wheel, digitShift > 0 ? "Increment" : "Decrement", std::abs(digitShift));
    QSignalSpy changed(wheel.get(), &SpinWheelImpl::valueChanged);

    turn(*wheel, path);

    QCOMPARE(sent(changed), values);
    const QString shown = wheel->findChild<QLineEdit*>()->text();
    QCOMPARE(shown, values.isEmpty() ? value : values.last());
}

// The square frame's corners lie outside the circle: a press there drags
// the pop-up instead of turning the dial.
void TestSpinWheel::pressOffTheCircleStartsNothing()
{
    std::unique_ptr<SpinWheelImpl> wheel = makeWheel(QStringLiteral("10"), 0.0, 100.0, 0);
    QSignalSpy changed(wheel.get(), &SpinWheelImpl::valueChanged);
    const QPoint corner = dialOf(*wheel)->mapTo(wheel.get(), QPoint(4, 200));
    auto* marker = wheel->findChild<QPushButton*>(QStringLiteral("SpinWheelMarker"));

    send(*wheel, QEvent::MouseButtonPress, corner);
    QVERIFY(!marker->isVisible());
    for (const Touch& touch : steady(0.3, 0.1, 10, 30))
        send(*wheel, QEvent::MouseMove, onDial(*wheel, touch.radians));
    send(*wheel, QEvent::MouseButtonRelease, corner);

    QVERIFY(changed.isEmpty());
    QVERIFY(!marker->isVisible());
}

void TestSpinWheel::markerFollowsOnlyWhileTouched()
{
    std::unique_ptr<SpinWheelImpl> wheel = makeWheel(QStringLiteral("10"), 0.0, 100.0, 0);
    auto* marker = wheel->findChild<QPushButton*>(QStringLiteral("SpinWheelMarker"));
    QVERIFY(!marker->isVisible());

    turn(*wheel, steady(0.0, 0.5 * M_PI, 10, 2), false);

    // A quarter turn clockwise puts the marker's centre 70 pixels below the dial's.
    QVERIFY(marker->isVisible());
    QCOMPARE(marker->geometry().topLeft() + QPoint(32, 32), QPoint(110, 110 + 70));
    send(*wheel, QEvent::MouseButtonRelease, onDial(*wheel, 0.5 * M_PI));
    QVERIFY(!marker->isVisible());
}

void TestSpinWheel::digitKeysRespectTheValue()
{
    std::unique_ptr<SpinWheelImpl> wheel = makeWheel(QStringLiteral("12.50"), 0.0, 100.0, 2);
    QLineEdit* readOut = wheel->findChild<QLineEdit*>();
    wheel->updateCursorPosition();
    QCOMPARE(readOut->selectedText(), QStringLiteral("12"));

    // The marked digit ends the selection.
    click(*wheel, "Decrement");
    QCOMPARE(readOut->selectedText(), QStringLiteral("12.5"));
    click(*wheel, "Increment", 2);
    QCOMPARE(readOut->selectedText(), QStringLiteral("1"));

    wheel->setValue(QStringLiteral("3.25"));
    wheel->resetStep();
    wheel->updateCursorPosition();
    QCOMPARE(readOut->selectedText(), QStringLiteral("3"));
}

void TestSpinWheel::keysSpeakForTheWheel()
{
    std::unique_ptr<SpinWheelImpl> wheel = makeWheel(QStringLiteral("10"), 0.0, 100.0, 0);
    QSignalSpy closed(wheel.get(), &SpinWheelImpl::closeEntry);
    QSignalSpy cancelled(wheel.get(), &SpinWheelImpl::cancelEntry);
    QSignalSpy rotated(wheel.get(), &SpinWheelImpl::rotateEntryMechanism);

    click(*wheel, "Enter");
    click(*wheel, "Cancel");
    click(*wheel, "RotateEntry");

    QCOMPARE(closed.count(), 1);
    QCOMPARE(cancelled.count(), 1);
    QCOMPARE(rotated.count(), 1);
    QCOMPARE(rotated.first().at(0).toString(), QStringLiteral("SpinWheel"));
}

void TestSpinWheel::looks_data()
{
    QTest::addColumn<bool>("opaque");
    QTest::newRow("spinwheel") << false;
    QTest::newRow("spinwheel-notransparency") << true;
}

void TestSpinWheel::looks()
{
    QFETCH(bool, opaque);
    qApp->setProperty("-notransparency", opaque ? QStringLiteral("true") : QString());
    QWidget screen;
    screen.setObjectName(QStringLiteral("screen"));
    screen.setStyleSheet(QStringLiteral("QWidget#screen { background-color: #203040; }"));
    screen.resize(300, 370);
    auto* wheel = new SpinWheelImpl(&screen, 0.0, 1000.0, 2, 260, 330);
    wheel->move(20, 20);
    wheel->setValue(QStringLiteral("123.45"));
    wheel->updateCursorPosition();
    screen.show();
    turn(*wheel, steady(0.2, 0.3, 10, 3), false);

    const QImage picture = TestSupport::savePng(&screen, QString::fromLatin1(QTest::currentDataTag()));
    qApp->setProperty("-notransparency", QVariant());
    QCOMPARE(picture.size(), screen.size());
    // The marker glows on the dial where the finger is.
    const QPoint marker = wheel->mapTo(&screen, onDial(*wheel, 0.8, 70.0));
    QVERIFY(qGray(picture.pixel(marker)) > 150);
    // Opaque, the panel hides the screen behind it; translucent, it tints it.
    const QRgb panel = picture.pixel(wheel->mapTo(&screen, QPoint(200, 200)));
    QCOMPARE(panel == qRgb(0, 0, 0), opaque);
}

QTEST_MAIN(TestSpinWheel)
#include "tst_spinwheel.moc"
