// MeterBarImpl bound to the simulated engine: limit labels in the unit
// that fits, the reading and unit chosen through registered selectors of
// any kind, the state colours the flags give, the sizes, and teardown
// while samples flow.
#include "BoundedExit.h"
#include "ComboBoxImpl.h"
#include "GlobalImpl.h"
#include "MeterBarImpl.h"
#include "MeterBar_Bar.h"
#include "MeterBar_Scale.h"
#include "QRVUtil.h"
#include "NumericEntryImpl.h"
#include "QRVStatusBar.h"
#include "ReadingSelector.h"
#include "SimEngine.h"
#include "TestSupport.h"
#include "UnitSelector.h"
#include "ValueHelper.h"

#include <Brenmoor.hh>

#include <QFrame>
#include <QLabel>
#include <QtTest>

#include <atomic>
#include <cmath>
#include <limits>
#include <thread>

namespace {

const SimUnits dBm{"10,0,-3", "W;;;;"};
const SimUnits volt{"0,0,0", "V;;;;"};
const SimUnits unitless{"0,0,0", "1;;;;"};

SimAttributeSetup meterAttribute(const char* name, double value, SimLimits limits, SimUnits units,
                                 SimMeter meter = {})
{
    SimAttributeSetup setup;
    setup.name = name;
    setup.kind = SimKind::ReadingMeterReading;
    setup.value = value;
    setup.limits = limits;
    setup.units = std::move(units);
    setup.meter = std::move(meter);
    return setup;
}

SimMeter raised(std::initializer_list<int> flags)
{
    SimMeter meter;
    for (int flag : flags)
        meter.flags[static_cast<std::size_t>(flag)] = true;
    return meter;
}

// The labels as the operator reads them (trimmed for display): upper first.
QStringList limitLabels(const MeterBarImpl& meter)
{
    QStringList texts;
    for (const QLabel* label : meter.findChildren<QLabel*>(QStringLiteral("MetBar_Scale")))
        if (label->metaObject()->className() == QByteArray("MeterBar_Scale"))
            texts << label->text();
    return texts;
}

enum class Hue { None, Green, Red, Blue, Yellow, Grey };

Hue hueOf(QRgb pixel)
{
    const int r = qRed(pixel), g = qGreen(pixel), b = qBlue(pixel);
    if (qAlpha(pixel) < 128)
        return Hue::None;
    if (g > r + 40 && g > b + 40)
        return Hue::Green;
    if (r > g + 60 && r > b + 60)
        return Hue::Red;
    if (b > r + 40 && b > g + 20)
        return Hue::Blue;
    if (r > b + 60 && g > b + 60)
        return Hue::Yellow;
    if (std::abs(r - g) < 30 && std::abs(g - b) < 30 && r > 60)
        return Hue::Grey;
    return Hue::None;
}

// The bar as painted, on nothing: what it leaves empty stays transparent.
QImage pictureOf(MeterBar_Bar* bar)
{
    QImage image(bar->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    bar->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

// The colour the bar fills with, read off the picture: the commonest hue.
Hue barHue(MeterBar_Bar* bar)
{
    const QImage image = pictureOf(bar);
    QMap<Hue, int> counts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ++counts[hueOf(image.pixel(x, y))];
    counts.remove(Hue::None);
    Hue best = Hue::None;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        if (best == Hue::None || it.value() > counts.value(best))
            best = it.key();
    return best;
}

// How much of an upright bar is filled, from the bottom, along its middle.
double filledFraction(MeterBar_Bar* bar)
{
    const QImage image = pictureOf(bar);
    int filled = 0;
    for (int y = 0; y < image.height(); ++y)
        filled += hueOf(image.pixel(image.width() / 2, y)) != Hue::None;
    return image.height() > 0 ? double(filled) / image.height() : 0.0;
}

// Changes an attribute about once a millisecond from a thread of its own while it lives.
class Feeder
{
public:
    Feeder(SimEngine& engine, const char* name)
        : m_thread([this, &engine, name] {
            for (double value = 0; m_running; value = std::fmod(value + 7.0, 100.0)) {
                engine.setValue(name, value);
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
        })
    {
    }
    ~Feeder()
    {
        m_running = false;
        m_thread.join();
    }

private:
    std::atomic<bool> m_running{true};
    std::thread m_thread;
};

} // namespace

Q_DECLARE_METATYPE(Hue)

// A reading chooser that is no combo box: it keeps what it is offered.
class ReadingChooser : public QWidget, public ReadingSelector
{
    Q_OBJECT
    Q_INTERFACES(ReadingSelector)

public:
    void offerReadings(const QStringList& names) override { offered = names; }
    QMetaObject::Connection followReadingChoice(QObject* receiver, std::function<void(long)> onChoice) override
    {
        return connect(this, &ReadingChooser::picked, receiver, std::move(onChoice));
    }

    QStringList offered;

signals:
    void picked(long index);
};

// A unit chooser that is no numeric field: dBm or mW, mW chosen.
class PowerUnitChooser : public QWidget, public UnitSelector
{
    Q_OBJECT
    Q_INTERFACES(UnitSelector)

public:
    bool selectableUnits(QList<Kelvane::Value::Units>* units, QString*) const override
    {
        *units = {ValueHelper::convertToUnits(QStringLiteral("10,0,-3:W;;;;")),
                  ValueHelper::convertToUnits(QStringLiteral("0,-3,0:W;;;;"))};
        return true;
    }
    long selectedUnitKey() const override { return 1; }
    QMetaObject::Connection followUnitChoice(QObject* receiver, std::function<void(long)> onChoice) override
    {
        return connect(this, &PowerUnitChooser::chosen, receiver, std::move(onChoice));
    }

signals:
    void chosen(long key);
};

class TestMeterBarImpl : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void limitsInTheUnitThatFits();
    void readingAndUnitFromSelectors();
    void selectorsOfAnyKind();
    void stateFromFlags_data();
    void stateFromFlags();
    void nanReadingChangesNothing();
    void levelFloorShowsTheLowerLimit_data();
    void levelFloorShowsTheLowerLimit();
    void precisionOfSmallLimits();
    void sizes();
    void limitLabelsStayInside_data();
    void limitLabelsStayInside();
    void wrongAttributesLeaveItUnbound();
    void destroyedWhileSamplesFlow();
    void laidDownWhileSamplesFlow();
    void looks();

private:
    MeterBarImpl* boundMeter(const char* name, int delay = 0);
    //! Says the value again until \a seen holds: a writer may learn of a new reader late.
    template<class Seen>
    bool engineSays(const char* name, double value, Seen seen)
    {
        for (int i = 0; i < 20; ++i) {
            m_engine->setValue(name, value);
            if (QTest::qWaitFor(seen, 250))
                return true;
        }
        return false;
    }

    std::unique_ptr<SimEngine> m_engine;
    QWidget* m_screen = nullptr;
};

void TestMeterBarImpl::initTestCase()
{
    m_screen = new QWidget;
    m_screen->resize(800, 480);
    m_screen->setObjectName(QStringLiteral("screen"));
    m_screen->setStyleSheet(QStringLiteral("QWidget#screen { background-color: #101418; }"));
    m_screen->show();
    GlobalImpl::getInstance()->setStatusBar(new QRVStatusBar);

    m_engine = std::make_unique<SimEngine>();
    SimMeter levels;
    levels.items = {{0, 0.0}, {2, -6.0}, {4, -40.0}};
    m_engine->addAttribute(meterAttribute("Level", -10.0, {-80, 0, 1}, dBm, levels));
    m_engine->addAttribute(meterAttribute("DeepLevel", -100.0, {-400, 0, 1}, dBm));
    m_engine->addAttribute(meterAttribute("Voltage", 0.0012, {0, 0.002, 1}, volt));
    m_engine->addAttribute(meterAttribute("Ratio", 0.01, {0, 0.05, 1}, unitless));
    m_engine->addAttribute(meterAttribute("Normal", 50.0, {0, 100, 1}, unitless));
    m_engine->addAttribute(meterAttribute("Over", 150.0, {0, 100, 1}, unitless));
    m_engine->addAttribute(meterAttribute("OverAndEmpty", 150.0, {0, 100, 1}, unitless, raised({0})));
    m_engine->addAttribute(meterAttribute("Empty", 50.0, {0, 100, 1}, unitless, raised({0})));
    m_engine->addAttribute(meterAttribute("Warning", 50.0, {0, 100, 1}, unitless, raised({2})));
    m_engine->addAttribute(meterAttribute("Floor", 50.0, {0, 100, 1}, unitless, raised({6})));
    m_engine->addAttribute(meterAttribute("DoubtfulFloor", 50.0, {0, 100, 1}, unitless, raised({1, 6})));
    m_engine->addAttribute(meterAttribute("Settled", 50.0, {0, 100, 1}, unitless, raised({4})));
    SimAttributeSetup plain;
    plain.name = "Plain";
    plain.kind = SimKind::ReadingDouble;
    plain.value = 1.0;
    m_engine->addAttribute(plain);
    m_engine->addAttribute(meterAttribute("NoReadings", 1.0, {0, 10, 1}, unitless, SimMeter{{}, {}}));
}

void TestMeterBarImpl::cleanup()
{
    qDeleteAll(m_screen->findChildren<MeterBarImpl*>(QString(), Qt::FindDirectChildrenOnly));
    qApp->setProperty("-size", QVariant());
}

MeterBarImpl* TestMeterBarImpl::boundMeter(const char* name, int delay)
{
    auto* meter = new MeterBarImpl(m_screen);
    meter->setGeometry(20, 20, 200, 300);
    meter->setAttributeName(QString::fromLatin1(name));
    meter->setUpdateDelay(delay);
    meter->show();
    meter->bindAttribute(m_engine->attribute(name));
    return meter;
}

void TestMeterBarImpl::limitsInTheUnitThatFits()
{
    // 0 to 0.002 V reads best in mV; binding writes one decimal.
    MeterBarImpl* meter = boundMeter("Voltage");
    QCOMPARE(limitLabels(*meter), QStringList({"2.0 mV", "0.0 mV"}));
    QVERIFY(std::abs(filledFraction(meter->barWidget()) - 0.6) < 0.03);

    QVERIFY(engineSays("Voltage", 0.0005, [meter] { return std::abs(filledFraction(meter->barWidget()) - 0.25) < 0.02; }));
    QCOMPARE(limitLabels(*meter), QStringList({"2.0 mV", "0.0 mV"}));
    QCOMPARE(barHue(meter->barWidget()), Hue::Green);
}

void TestMeterBarImpl::readingAndUnitFromSelectors()
{
    MeterBarImpl* meter = boundMeter("Level");
    ComboBoxImpl readings(false, m_screen);
    meter->registerReadingSelector(&readings);
    QCOMPARE(readings.getText(), QStringLiteral("Peak Positive"));
    QLabel notASelector;
    meter->registerReadingSelector(&notASelector);

    // Peak -10 dBm of -80..0 fills seven eighths; RMS is 40 dB lower.
    QVERIFY(engineSays("Level", -10.0, [meter] { return filledFraction(meter->barWidget()) > 0.8; }));
    readings.setEnum(2);
    emit readings.updateEnum(2);
    QVERIFY(engineSays("Level", -10.0, [meter] { return std::abs(filledFraction(meter->barWidget()) - 0.375) < 0.03; }));
    QCOMPARE(limitLabels(*meter), QStringList({"0.0 dBm", "-80.0 dBm"}));

    // A registered field forces its unit: from the level to milliwatts and back.
    NumericEntryImpl units(m_screen, QStringLiteral("Unit"));
    units.setUnitListString(QStringLiteral("10,0,-3:W;;;;|0,-3,0:W;;;;"));
    meter->registerUnitSelector(&units);
    units.setIndex(1L);
    QVERIFY(engineSays("Level", -10.0, [meter] { return limitLabels(*meter).value(0) == QLatin1String("1.0 mW"); }));
    QCOMPARE(limitLabels(*meter).value(1), QStringLiteral("0.00000001 mW"));
    units.setIndex(0L);
    QVERIFY(engineSays("Level", -10.0, [meter] { return limitLabels(*meter).value(0) == QLatin1String("0.0 dBm"); }));

    // A unit of another base unit is refused sample by sample; the meter keeps its picture.
    NumericEntryImpl hertz(m_screen, QStringLiteral("Hz"));
    hertz.setUnitListString(QStringLiteral("0,0,0:Hz;;;;"));
    meter->registerUnitSelector(&hertz);
    meter->setCurrentUnit(2);
    m_engine->setValue("Level", -70.0);
    QTest::qWait(300);
    QCOMPARE(limitLabels(*meter).value(0), QStringLiteral("0.0 dBm"));
}

void TestMeterBarImpl::selectorsOfAnyKind()
{
    MeterBarImpl* meter = boundMeter("Level");
    ReadingChooser readings;
    meter->registerReadingSelector(&readings);
    QCOMPARE(readings.offered, QStringList({"Peak Positive", "Live Positive", "RMS"}));
    emit readings.picked(2);
    // RMS, 40 dB below the peak of -10 dBm, fills three eighths of -80..0.
    QVERIFY(engineSays("Level", -10.0, [meter] { return std::abs(filledFraction(meter->barWidget()) - 0.375) < 0.03; }));

    PowerUnitChooser chooser;
    meter->registerUnitSelector(&chooser);
    QVERIFY(engineSays("Level", -10.0, [meter] { return limitLabels(*meter).value(0) == QLatin1String("1.0 mW"); }));
    emit chooser.chosen(0);
    QVERIFY(engineSays("Level", -10.0, [meter] { return limitLabels(*meter).value(0) == QLatin1String("0.0 dBm"); }));

    // One unreadable unit refuses the whole selector: its keys would name other units.
    emit chooser.chosen(1);
    NumericEntryImpl broken(m_screen, QStringLiteral("Unit"));
    broken.setUnitListString(QStringLiteral("10,0,-3:W;;;;|nonsense|0,-3,0:W;;;;"));
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression("ignores a unit selector with an unreadable unit"));
    meter->registerUnitSelector(&broken);
    broken.setIndex(0L);
    m_engine->setValue("Level", -10.0);
    QTest::qWait(300);
    QCOMPARE(limitLabels(*meter).value(0), QStringLiteral("1.0 mW"));
}

void TestMeterBarImpl::stateFromFlags_data()
{
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<Hue>("hue");
    QTest::newRow("no flag") << "Normal" << Hue::Green;
    QTest::newRow("over limit") << "Over" << Hue::Red;
    QTest::newRow("over limit beats no value") << "OverAndEmpty" << Hue::Red;
    QTest::newRow("no value") << "Empty" << Hue::Grey;
    QTest::newRow("warning") << "Warning" << Hue::Yellow;
    QTest::newRow("floor") << "Floor" << Hue::Blue;
    QTest::newRow("doubtful beats floor") << "DoubtfulFloor" << Hue::Grey;
    QTest::newRow("other engine state") << "Settled" << Hue::Grey;
}

void TestMeterBarImpl::stateFromFlags()
{
    QFETCH(QString, attribute);
    QFETCH(Hue, hue);
    const std::string name = attribute.toStdString();
    MeterBarImpl* meter = boundMeter(name.c_str());
    const double value = std::get<double>(m_engine->value(name));
    QVERIFY(engineSays(name.c_str(), value, [meter, hue] { return barHue(meter->barWidget()) == hue; }));
    TestSupport::savePng(meter, QStringLiteral("meter_state_") + attribute);
}

void TestMeterBarImpl::nanReadingChangesNothing()
{
    MeterBarImpl* meter = boundMeter("Normal");
    QVERIFY(engineSays("Normal", 25.0, [meter] { return std::abs(filledFraction(meter->barWidget()) - 0.25) < 0.02; }));
    // Samples of 25 sent while waiting for it may still be on their way.
    QTest::qWait(400);
    const QImage before = pictureOf(meter->barWidget());
    m_engine->setValue("Normal", std::numeric_limits<double>::quiet_NaN());
    QTest::qWait(300);
    QCOMPARE(pictureOf(meter->barWidget()), before);
}

void TestMeterBarImpl::levelFloorShowsTheLowerLimit_data()
{
    QTest::addColumn<double>("reading"); // dBm, of -400 to 0
    QTest::addColumn<double>("filled");
    QTest::newRow("-301 is the floor: the lower limit") << -301.0 << 0.0;
    QTest::newRow("-300.5 is the floor too") << -300.5 << 0.0;
    QTest::newRow("-300 shows itself") << -300.0 << 0.25;
}

void TestMeterBarImpl::levelFloorShowsTheLowerLimit()
{
    QFETCH(double, reading);
    QFETCH(double, filled);
    MeterBarImpl* meter = boundMeter("DeepLevel");
    // From a half-full bar, so that an empty one is the reading's doing.
    QVERIFY(engineSays("DeepLevel", -200.0,
                       [meter] { return std::abs(filledFraction(meter->barWidget()) - 0.5) < 0.02; }));
    QVERIFY(engineSays("DeepLevel", reading,
                       [meter, filled] { return std::abs(filledFraction(meter->barWidget()) - filled) < 0.01; }));
    QCOMPARE(limitLabels(*meter), QStringList({"0.0 dBm", "-400.0 dBm"}));
}

void TestMeterBarImpl::precisionOfSmallLimits()
{
    // A unitless reading keeps its unit; 0.05 needs two decimals once samples flow.
    MeterBarImpl* meter = boundMeter("Ratio");
    QCOMPARE(limitLabels(*meter), QStringList({"0.1", "0.0"}));
    QVERIFY(engineSays("Ratio", 0.02, [meter] { return limitLabels(*meter).value(0) == QLatin1String("0.05"); }));
    QCOMPARE(limitLabels(*meter).value(1), QStringLiteral("0.0"));
}

void TestMeterBarImpl::sizes()
{
    MeterBarImpl meter(m_screen);
    meter.show();
    auto* frame = meter.findChild<QFrame*>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(frame);
    meter.changeSize(QStringLiteral("Max"));
    QCOMPARE(frame->maximumWidth(), 170);
    QVERIFY(!meter.horizontal());

    qApp->setProperty("-size", QStringLiteral("small_portrait"));
    meter.changeSize(QStringLiteral("Max"));
    QCOMPARE(frame->maximumWidth(), 85);

    meter.changeSize(QStringLiteral("Thumb"));
    QVERIFY(meter.horizontal());
    QCOMPARE(frame->maximumHeight(), 30);
    QCOMPARE(frame->minimumHeight(), 30);
    for (const QLabel* label : meter.findChildren<QLabel*>(QStringLiteral("MetBar_Scale")))
        QVERIFY(!label->isVisible());
    QVERIFY(meter.findChild<QFrame*>(QStringLiteral("leftCap")));

    meter.changeSize(QStringLiteral("Min"));
    QVERIFY(!meter.horizontal());
    QCOMPARE(frame->maximumWidth(), 85);
    QVERIFY(meter.findChild<QFrame*>(QStringLiteral("topCap")));
}

void TestMeterBarImpl::limitLabelsStayInside_data()
{
    QTest::addColumn<QString>("size");
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("whole");
    // A width of 0 stands for the meter's minimum size hint.
    QTest::newRow("Min, as wide as on the demo's screen") << "Min" << 190 << true;
    QTest::newRow("Min at its minimum size hint") << "Min" << 0 << true;
    QTest::newRow("Max at its minimum size hint") << "Max" << 0 << true;
    QTest::newRow("Min squeezed") << "Min" << 120 << false;
    QTest::newRow("Max squeezed") << "Max" << 190 << false;
}

void TestMeterBarImpl::limitLabelsStayInside()
{
    QFETCH(QString, size);
    QFETCH(int, width);
    QFETCH(bool, whole);
    QWidget panel(m_screen);
    panel.setObjectName(QStringLiteral("panel"));
    panel.setStyleSheet(QStringLiteral("QWidget#panel { background-color: #101418; }"));
    panel.setGeometry(0, 0, 400, 320);
    auto* meter = new MeterBarImpl(&panel);
    meter->setAttributeName(QStringLiteral("Level"));
    meter->changeSize(size);
    meter->setUpdateDelay(0);
    meter->setGeometry(10, 10, width > 0 ? width : 190, 300);
    panel.show();
    meter->bindAttribute(m_engine->attribute("Level"));
    QVERIFY(engineSays("Level", -10.0, [meter] { return filledFraction(meter->barWidget()) > 0.8; }));
    if (width == 0)
        meter->resize(meter->minimumSizeHint().width(), meter->height());
    QTest::qWait(50);

    const QList<MeterBar_Scale*> labels = meter->findChildren<MeterBar_Scale*>();
    QCOMPARE(labels.size(), 2);
    for (const MeterBar_Scale* label : labels) {
        QVERIFY2(meter->rect().contains(label->geometry()),
                 qPrintable(QStringLiteral("\"%1\" at %2..%3 in a meter %4 wide")
                                .arg(label->text())
                                .arg(label->x())
                                .arg(label->geometry().right())
                                .arg(meter->width())));
        if (whole)
            QVERIFY2(QRVUtil::labelWidthFor(label, label->text()) <= label->width(), qPrintable(label->text()));
    }
    TestSupport::savePng(&panel, QStringLiteral("meter_labels_%1")
                                     .arg(QString::fromLatin1(QTest::currentDataTag()).replace(QLatin1Char(' '), QLatin1Char('_')).remove(QLatin1Char(',')).remove(QLatin1Char('\''))));
}

void TestMeterBarImpl::wrongAttributesLeaveItUnbound()
{
    MeterBarImpl* plain = boundMeter("Plain");
    QCOMPARE(limitLabels(*plain), QStringList({"2000 MHz", "10 KHz"}));

    auto* empty = new MeterBarImpl(m_screen);
    QVERIFY_EXCEPTION_THROWN(empty->bindAttribute(m_engine->attribute("NoReadings")), CORBA::BAD_PARAM);

    auto* pastTheEnd = new MeterBarImpl(m_screen);
    pastTheEnd->setReadingIndex(3);
    QVERIFY_EXCEPTION_THROWN(pastTheEnd->bindAttribute(m_engine->attribute("Level")), CORBA::BAD_PARAM);

    // A selector that offers more readings than a sample has costs that sample only.
    MeterBarImpl* meter = boundMeter("Normal");
    meter->setReadingIndex(5);
    m_engine->setValue("Normal", 80.0);
    QTest::qWait(300);
    meter->setReadingIndex(0);
    QVERIFY(engineSays("Normal", 80.0, [meter] { return filledFraction(meter->barWidget()) > 0.75; }));
}

void TestMeterBarImpl::destroyedWhileSamplesFlow()
{
    // Each sample draws on the DDS thread and waits for this thread to take
    // the repaint; meters go while that happens.
    const Feeder feeder(*m_engine, "Normal");
    for (int i = 0; i < 10; ++i) {
        MeterBarImpl* meter = boundMeter("Normal");
        QTest::qWait(50 + 20 * i);
        QThread::msleep(20);
        delete meter;
    }
}

void TestMeterBarImpl::laidDownWhileSamplesFlow()
{
    MeterBarImpl* meter = boundMeter("Normal");
    const Feeder feeder(*m_engine, "Normal");
    for (int i = 0; i < 20; ++i) {
        meter->changeSize(i % 2 ? QStringLiteral("Thumb") : QStringLiteral("Min"));
        QTest::qWait(10);
    }
    QVERIFY(meter->horizontal());
    QTRY_VERIFY(barHue(meter->barWidget()) == Hue::Green);
}

void TestMeterBarImpl::looks()
{
    // Every state upright and lying down, as the operator sees them.
    const char* const names[] = {"Normal", "Over", "Empty", "Warning", "Floor", "Voltage"};
    QWidget panel(m_screen);
    panel.setGeometry(0, 0, 1030, 400);
    panel.setObjectName(QStringLiteral("panel"));
    panel.setStyleSheet(QStringLiteral("QWidget#panel { background-color: #101418; }"));
    panel.show();
    QList<MeterBarImpl*> meters;
    int column = 0;
    for (const char* name : names) {
        auto* upright = new MeterBarImpl(&panel);
        upright->setGeometry(10 + column * 170, 10, 165, 300);
        auto* lying = new MeterBarImpl(&panel);
        lying->changeSize(QStringLiteral("Thumb"));
        lying->setGeometry(10 + column * 170, 340, 150, 40);
        for (MeterBarImpl* meter : {upright, lying}) {
            meter->setUpdateDelay(0);
            meter->show();
            meter->bindAttribute(m_engine->attribute(name));
            meters << meter;
        }
        ++column;
    }
    QTest::qWait(500);
    for (const char* name : names)
        m_engine->setValue(name, std::get<double>(m_engine->value(name)));
    QTest::qWait(500);
    const QImage image = TestSupport::savePng(&panel, QStringLiteral("meter_states"));
    QVERIFY(!image.isNull());
    qDeleteAll(meters);
}

RV_TEST_MAIN_BOUNDED_EXIT(TestMeterBarImpl, QApplication)
#include "tst_meterbarimpl.moc"
