// The small status widgets: the battery, the flag lamp, the status-bar
// icon and the alert row, alone and bound to the simulated engine.
#include "AlertItem.h"
#include "BatteryStatusIndicatorImpl.h"
#include "BoundedExit.h"
#include "FlagStatusImpl.h"
#include "SimEngine.h"
#include "StatusBarIcon.h"
#include "TestSupport.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

using Kelvane::gui::BatteryStatusIndicatorImpl;
using MakeWidget = std::function<WidgetBaseImpl*()>;
Q_DECLARE_METATYPE(MakeWidget)

namespace {

const QColor orange(255, 127, 3);
const QColor red(Qt::red);
const QColor green(Qt::green);
const QColor selectedDot(0xe0, 0x48, 0x48);
const double notANumber = std::numeric_limits<double>::quiet_NaN();

// The background of the lamp in the sheet it shows now.
QString lampColour(FlagStatusImpl& flag)
{
    static const QRegularExpression rule(QStringLiteral("QLabel#button \\{[^}]*background: ([^;]+);"));
    return rule.match(flag.findChild<QFrame*>(QStringLiteral("base"))->styleSheet()).captured(1);
}

QTimer* blinkTimer(FlagStatusImpl& flag) { return flag.findChild<QTimer*>(); }

// The rightmost column that shows the charge, -1 for none. The time text,
// in a font far taller than the battery, covers parts of every row.
int chargeExtent(BatteryStatusIndicatorImpl& battery)
{
    const QImage image = battery.grab().toImage();
    for (int x = image.width() - 1; x >= 0; --x)
        for (int y = 0; y < image.height(); ++y)
            if (image.pixelColor(x, y) == battery.getFillColor())
                return x;
    return -1;
}

QColor centreOf(QWidget& screen, QWidget* part)
{
    return screen.grab().toImage().pixelColor(part->mapTo(&screen, part->rect().center()));
}

// A screen of the instrument's dark colour.
void darken(QWidget& screen, int width, int height)
{
    QPalette dark = screen.palette();
    dark.setColor(QPalette::Window, QColor(0x10, 0x14, 0x18));
    screen.setPalette(dark);
    screen.setAutoFillBackground(true);
    screen.resize(width, height);
}

} // namespace

class TestStatusWidgets : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { m_engine.reset(); }
    void batteryCharge_data();
    void batteryCharge();
    void batteryLevels();
    void flagStates_data();
    void flagStates();
    void blinkModeChangesPhaseOnceASecond();
    void flagLooks();
    void statusBarIconShowsItsPicture();
    void alertDetails_data();
    void alertDetails();
    void alertSelection();
    void liveValues();
    void wrongAttributeLeavesItUnbound();
    void destroyedWhileSamplesFlow_data();
    void destroyedWhileSamplesFlow();

private:
    std::unique_ptr<SimEngine> m_engine;
};

void TestStatusWidgets::initTestCase()
{
    m_engine = std::make_unique<SimEngine>();
    SimAttributeSetup battery;
    battery.name = "Battery";
    battery.kind = SimKind::AttribValueDouble;
    battery.limits = SimLimits{0.0, 600.0, 1.0};
    battery.units = SimUnits{"0,0,0", "1;;;;"};
    battery.simulation = {SimSimulation::Kind::Drain, 3000, 0.0, 600.0, {}};
    SimAttributeSetup overload;
    overload.name = "Overload";
    overload.kind = SimKind::ReadingBoolean;
    overload.simulation = {SimSimulation::Kind::Toggle, 100, 0.0, 0.0, {}};
    // Both move at every tick of the engine.
    m_engine->addAttribute(battery);
    m_engine->addAttribute(overload);
}

void TestStatusWidgets::batteryCharge_data()
{
    QTest::addColumn<double>("minutes");
    QTest::addColumn<double>("maxMinutes");
    QTest::addColumn<int>("step");
    QTest::addColumn<double>("percent");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("colour");
    const double endless = std::numeric_limits<double>::infinity();
    QTest::newRow("half of 180 minutes") << 90.0 << 180.0 << 0 << 50.0 << "01:30" << orange;
    QTest::newRow("20 percent is red") << 36.0 << 180.0 << 0 << 20.0 << "00:36" << red;
    QTest::newRow("60 percent is orange") << 108.0 << 180.0 << 0 << 60.0 << "01:48" << orange;
    QTest::newRow("above 60 is green") << 170.5 << 200.0 << 0 << 85.25 << "02:50" << green;
    QTest::newRow("below empty, unclamped") << -90.0 << 180.0 << 0 << -50.0 << "-1:-30" << red;
    // The steps scale the text by the first full charge, 100 minutes, not by the last one given.
    QTest::newRow("increment at 99.5 fills") << 99.5 << 100.0 << 1 << 100.0 << "01:40" << green;
    QTest::newRow("increment at 98") << 98.0 << 100.0 << 1 << 99.0 << "01:39" << green;
    QTest::newRow("increment of 30 of 60") << 30.0 << 60.0 << 1 << 51.0 << "00:51" << orange;
    QTest::newRow("decrement at 0.5 empties") << 0.5 << 100.0 << -1 << 0.0 << "00:00" << red;
    QTest::newRow("a full charge of 0") << 30.0 << 0.0 << 0 << endless << "00:30" << green;
    QTest::newRow("NaN minutes") << notANumber << 600.0 << 0 << notANumber << "--:--" << QColor();
    QTest::newRow("minutes beyond any clock") << 1e300 << 1e-300 << 0 << endless << "--:--" << green;
}

void TestStatusWidgets::batteryCharge()
{
    QFETCH(double, minutes);
    QFETCH(double, maxMinutes);
    QFETCH(int, step);
    QFETCH(double, percent);
    QFETCH(QString, text);
    QFETCH(QColor, colour);
    BatteryStatusIndicatorImpl battery;
    if (!std::isfinite(percent))
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("BatteryStatusIndicator: .* has no charge")));
    battery.setBatteryStatus(minutes, maxMinutes);
    if (step > 0)
        battery.incrementBatteryStatus();
    else if (step < 0)
        battery.decrementBatteryStatus();
    QCOMPARE(battery.getPercent(), percent);
    QCOMPARE(battery.getTimeText(), text);
    if (colour.isValid())
        QCOMPARE(battery.getFillColor(), colour);
}

void TestStatusWidgets::batteryLevels()
{
    // Minutes of 300, the last two without a finite charge.
    const QList<QPair<double, double>> charges{{15, 300}, {60, 300}, {135, 300}, {180, 300},
                                                {255, 300}, {300, 300}, {notANumber, 300}, {30, 0}};
    QWidget screen;
    darken(screen, 230, 40 * charges.size() + 10);
    QList<int> extents;
    for (int i = 0; i < charges.size(); ++i) {
        auto* battery = new BatteryStatusIndicatorImpl(&screen);
        battery->setGeometry(15, 10 + 40 * i, 200, 30);
        if (i >= 6)
            QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("has no charge")));
        battery->setBatteryStatus(charges.at(i).first, charges.at(i).second);
        extents << chargeExtent(*battery);
    }
    // The fill grows with the charge; an unknown charge fills nothing, an endless one the whole body.
    QVERIFY(std::is_sorted(extents.begin(), extents.begin() + 6, std::less_equal<>()));
    QCOMPARE(extents.at(6), -1);
    QVERIFY(extents.at(7) >= extents.at(5));
    QVERIFY(!TestSupport::savePng(&screen, QStringLiteral("battery_levels")).isNull());
}

void TestStatusWidgets::flagStates_data()
{
    QTest::addColumn<bool>("blinkMode");
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("lamp");
    QTest::newRow("tripped") << false << "Tripped" << "Tripped" << "#fc0";
    QTest::newRow("running, steady") << false << "Running" << "Running" << "#fc0";
    QTest::newRow("an unknown word") << false << "Blinking" << "Normal" << "#222";
    // Blinking, the lamp lights at the first tick.
    QTest::newRow("running, blinking") << true << "Running" << "Running" << "#222";
    QTest::newRow("an unknown word, blink mode") << true << "Blinking" << "Normal" << "#222";
}

void TestStatusWidgets::flagStates()
{
    QFETCH(bool, blinkMode);
    QFETCH(QString, word);
    QFETCH(QString, state);
    QFETCH(QString, lamp);
    FlagStatusImpl flag;
    QVERIFY(flag.setProperty("ConfigureBlinkMode", blinkMode));
    flag.setState(word);
    flag.changeSize(QStringLiteral("Max"));
    QCOMPARE(flag.getState(), state);
    QCOMPARE(lampColour(flag), lamp);
    QCOMPARE(blinkTimer(flag)->isActive(), blinkMode && state == QStringLiteral("Running"));
}

void TestStatusWidgets::blinkModeChangesPhaseOnceASecond()
{
    FlagStatusImpl flag;
    flag.setProperty("ConfigureBlinkMode", true);
    flag.setState(QStringLiteral("Running"));
    QTimer* timer = blinkTimer(flag);
    QCOMPARE(timer->interval(), 1000);
    // Five seconds, one timeout each.
    QStringList phases;
    for (int second = 0; second < 5; ++second) {
        QVERIFY(QMetaObject::invokeMethod(timer, "timeout"));
        phases << lampColour(flag);
    }
    QCOMPARE(phases, QStringList({"#fc0", "#222", "#fc0", "#222", "#fc0"}));
    // Another true reading keeps the rhythm; a false one ends it dark.
    flag.setState(QStringLiteral("Running"));
    QCOMPARE(lampColour(flag), QStringLiteral("#fc0"));
    flag.setState(QStringLiteral("Normal"));
    QVERIFY(!timer->isActive());
    QCOMPARE(flag.getState(), QStringLiteral("Normal"));
    QCOMPARE(lampColour(flag), QStringLiteral("#222"));
}

void TestStatusWidgets::flagLooks()
{
    QWidget screen;
    darken(screen, 420, 50);
    const QStringList states{QStringLiteral("Normal"), QStringLiteral("Tripped"), QStringLiteral("Running")};
    for (int i = 0; i < states.size(); ++i) {
        auto* flag = new FlagStatusImpl(&screen);
        flag->setGeometry(10 + 140 * i, 5, 130, 40);
        flag->updateFlagStatusLabel(states.at(i));
        flag->setState(QStringLiteral("Tripped"));
        // A new tripped colour shows from the next trip on.
        flag->setProperty("TrippedLedColor", QStringLiteral("red"));
        QCOMPARE(lampColour(*flag), QStringLiteral("#fc0"));
        flag->setState(states.at(i));
    }
    const QList<FlagStatusImpl*> flags = screen.findChildren<FlagStatusImpl*>();
    QCOMPARE(lampColour(*flags.at(1)), QStringLiteral("red"));
    QVERIFY(!TestSupport::savePng(&screen, QStringLiteral("flagstatus_states")).isNull());
}

void TestStatusWidgets::statusBarIconShowsItsPicture()
{
    // This test is the host that supplies the default picture, a green circle.
    QWidget screen;
    darken(screen, 92, 50);
    auto* icon = new StatusBarIcon(&screen);
    icon->setGeometry(5, 5, 40, 40);
    auto* alert = new StatusBarIcon(&screen);
    alert->setGeometry(47, 5, 40, 40);
    QCOMPARE(icon->imageName(), QStringLiteral("statusicon_default.png"));
    // Named after its parts were polished, before it shows.
    alert->setImageName(QStringLiteral("error_radio_selected.png"));
    QCOMPARE(alert->imageName(), QStringLiteral("error_radio_selected.png"));
    QCOMPARE(centreOf(screen, alert->findChild<QLabel*>(QStringLiteral("Icon"))), selectedDot);
    const QColor host = centreOf(screen, icon->findChild<QLabel*>(QStringLiteral("Icon")));
    QVERIFY2(host.green() > 2 * host.red(), qPrintable(host.name()));
    QVERIFY(!TestSupport::savePng(&screen, QStringLiteral("statusbaricon")).isNull());
}

void TestStatusWidgets::alertDetails_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("details");
    QTest::newRow("after the first separator") << "Engine: Overload: input" << "Overload: input";
    QTest::newRow("no separator") << "Level:-3" << "Level:-3";
    QTest::newRow("nothing after it") << "Engine: " << "";
}

void TestStatusWidgets::alertDetails()
{
    QFETCH(QString, text);
    QFETCH(QString, details);
    AlertItem item(text);
    QCOMPARE(item.data(), text);
    QCOMPARE(item.details(), details);
}

void TestStatusWidgets::alertSelection()
{
    QWidget screen;
    screen.resize(360, 60);
    auto* item = new AlertItem(QStringLiteral("Engine: Overload on the input"), &screen);
    item->setGeometry(0, 0, 360, 60);
    QSignalSpy reported(item, &AlertItem::itemSelected);
    auto* radio = item->findChild<QPushButton*>(QStringLiteral("radio_btn"));
    // The first look is taken after the first touch: the row is polished late.
    QTest::mouseClick(radio, Qt::LeftButton);
    QCOMPARE(centreOf(screen, radio), selectedDot);
    item->setSelected(true);
    QTest::mouseClick(radio, Qt::LeftButton);
    QVERIFY(!item->selected());
    QCOMPARE(centreOf(screen, radio), QColor(Qt::white));
    QCOMPARE(reported.count(), 2);
    QCOMPARE(reported.at(0).at(0).toString(), item->data());
    QCOMPARE(reported.at(1).at(0).toString(), QString());
    item->setSelected(true);
    QVERIFY(item->selected());
    QVERIFY(!TestSupport::savePng(&screen, QStringLiteral("alertitem_selected")).isNull());
}

void TestStatusWidgets::liveValues()
{
    BatteryStatusIndicatorImpl battery;
    battery.bindAttribute(m_engine->attribute("Battery"));
    FlagStatusImpl flag;
    flag.setSuppressDebug(true);
    flag.bindAttribute(m_engine->attribute("Overload"));

    // The charge moves, on the scale of the record's upper limit, and the text tells the same minutes.
    const double first = battery.getPercent();
    QTRY_VERIFY_WITH_TIMEOUT(battery.getPercent() != first, 5000);
    const QStringList clock = battery.getTimeText().split(QLatin1Char(':'));
    const int minutes = clock.value(0).toInt() * 60 + clock.value(1).toInt();
    QVERIFY(battery.getPercent() >= 0.0 && battery.getPercent() <= 100.0);
    QVERIFY2(std::fabs(minutes - 6.0 * battery.getPercent()) <= 1.0, qPrintable(battery.getTimeText()));

    QTRY_COMPARE_WITH_TIMEOUT(flag.getState(), QStringLiteral("Tripped"), 5000);
    QTRY_COMPARE_WITH_TIMEOUT(flag.getState(), QStringLiteral("Normal"), 5000);
}

void TestStatusWidgets::wrongAttributeLeavesItUnbound()
{
    BatteryStatusIndicatorImpl battery;
    battery.setAttributeName(QStringLiteral("Overload"));
    QTest::ignoreMessage(QtDebugMsg, ">>>>>Expected Enumeration type but received: EngineReadingBoolean (Overload)");
    battery.bindAttribute(m_engine->attribute("Overload"));
    FlagStatusImpl flag;
    flag.setAttributeName(QStringLiteral("Battery"));
    QTest::ignoreMessage(QtDebugMsg, ">>>>>Expected Boolean type but received: EngineAttribValueDouble (Battery)");
    flag.bindAttribute(m_engine->attribute("Battery"));
    QTest::qWait(500);
    QCOMPARE(battery.getTimeText(), QStringLiteral("01:40"));
    QCOMPARE(flag.getState(), QStringLiteral("Normal"));
}

void TestStatusWidgets::destroyedWhileSamplesFlow_data()
{
    QTest::addColumn<MakeWidget>("make");
    QTest::addColumn<QString>("attribute");
    QTest::newRow("battery") << MakeWidget([] { return new BatteryStatusIndicatorImpl; }) << "Battery";
    QTest::newRow("flag") << MakeWidget([] { return new FlagStatusImpl; }) << "Overload";
}

void TestStatusWidgets::destroyedWhileSamplesFlow()
{
    QFETCH(MakeWidget, make);
    QFETCH(QString, attribute);
    for (int i = 0; i < 6; ++i) {
        WidgetBaseImpl* widget = make();
        widget->setSuppressDebug(true);
        widget->setUpdateDelay(0);
        widget->bindAttribute(m_engine->attribute(attribute.toStdString()));
        QTest::qWait(50 + 40 * i);
        delete widget;
        QCoreApplication::processEvents();
    }
}

RV_TEST_MAIN_BOUNDED_EXIT(TestStatusWidgets, QApplication)
#include "tst_statuswidgets.moc"
