// The bound horizontal and vertical sliders against the simulated engine:
// where a touch puts the slider, that only the lift sends, the range a
// value record brings, engine samples, refusals, a lost engine, and
// teardown while samples flow. Slider, the touch-jumping QSlider beneath
// them, is tested on its own first.
#include "BoundedExit.h"
#include "EngineLink.h"
#include "GlobalImpl.h"
#include "HorizontalSliderImpl.h"
#include "QRVStatusBar.h"
#include "SimEngine.h"
#include "SimEngineProcess.h"
#include "SimRecords.h"
#include "Slider.h"
#include "TestSupport.h"
#include "VerticalSliderImpl.h"

#include <Brenmoor.hh>

#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include <atomic>
#include <climits>
#include <memory>
#include <thread>

using Kelvane::gui::BoundSlider;
using Kelvane::gui::HorizontalSliderImpl;
using Kelvane::gui::VerticalSliderImpl;

namespace {

enum class Shape
{
    Horizontal,
    Vertical
};

std::unique_ptr<BoundSlider> makeSlider(Shape shape)
{
    std::unique_ptr<BoundSlider> widget;
    if (shape == Shape::Horizontal)
        widget = std::make_unique<HorizontalSliderImpl>();
    else
        widget = std::make_unique<VerticalSliderImpl>();
    widget->setAttributeName(QStringLiteral("Slider"));
    widget->setLabel(QStringLiteral("Slider"));
    widget->resize(shape == Shape::Horizontal ? QSize(240, 60) : QSize(60, 240));
    // Laid out, so that a touch lands where the test means it to.
    widget->show();
    return widget;
}

Slider* sliderOf(BoundSlider& widget) { return widget.findChild<Slider*>(); }

// A point \a fraction of the way from the slider's minimum towards its maximum.
QPoint pointAt(Slider* slider, double fraction)
{
    const int length = (slider->orientation() == Qt::Horizontal ? slider->width() : slider->height()) - 13;
    const int along = int(length * fraction + 0.5);
    if (slider->orientation() == Qt::Horizontal)
        return QPoint(along, slider->height() / 2);
    return QPoint(slider->width() / 2, slider->height() - along);
}

// Mouse events as the window system delivers them: an ignored one goes on to the parent.
void send(QWidget* widget, QEvent::Type type, const QPoint& pos)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, pos, widget->mapToGlobal(pos), button, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void press(Slider* slider, double fraction) { send(slider, QEvent::MouseButtonPress, pointAt(slider, fraction)); }
void move(Slider* slider, double fraction) { send(slider, QEvent::MouseMove, pointAt(slider, fraction)); }
void lift(Slider* slider, double fraction) { send(slider, QEvent::MouseButtonRelease, pointAt(slider, fraction)); }

bool veiled(QWidget* widget)
{
    const auto* overlay = widget->findChild<QPushButton*>(QStringLiteral("LockOverlay"));
    return !overlay->isHidden() && overlay->text() == QStringLiteral("No engine link");
}

// A screen of a horizontal and a vertical slider in the look of \a size, on the instrument's background.
struct Screen
{
    explicit Screen(const QString& size = QStringLiteral("Min"))
    {
        horizontal->changeSize(size);
        vertical->changeSize(size);
        widget.setObjectName(QStringLiteral("screen"));
        widget.setStyleSheet(QStringLiteral("QWidget#screen { background-color: #101418; }"));
        auto* layout = new QHBoxLayout(&widget);
        layout->addWidget(horizontal, 1, Qt::AlignTop);
        layout->addWidget(vertical);
        horizontal->setLabel(QStringLiteral("Gain, horizontal"));
        vertical->setLabel(QStringLiteral("Gain"));
        widget.resize(360, 200);
        widget.show();
    }
    QWidget widget;
    HorizontalSliderImpl* horizontal = new HorizontalSliderImpl;
    VerticalSliderImpl* vertical = new VerticalSliderImpl;
};

SimAttributeSetup attribute(const char* name, SimKind kind, SimValue value, std::optional<SimLimits> limits = {})
{
    SimAttributeSetup setup;
    setup.name = name;
    setup.kind = kind;
    setup.value = std::move(value);
    setup.limits = limits;
    if (kind == SimKind::AttribValueDouble)
        setup.units = SimUnits{"10,0,0", "1;;;;"};
    return setup;
}

} // namespace

Q_DECLARE_METATYPE(Shape)

class TestBoundSlider : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void sliderJumpsToTheTouch_data();
    void sliderJumpsToTheTouch();
    void wheelLeavesTheSliderAlone();
    void engineValuesOnTheSlider_data();
    void engineValuesOnTheSlider();
    void onlyTheLiftSends_data();
    void onlyTheLiftSends();
    void engineSamplesWaitForTheFinger();
    void bindingAValueRecordSetsTheRange_data();
    void bindingAValueRecordSetsTheRange();
    void unboundSliderMovesFreelyAndSendsNothing_data();
    void unboundSliderMovesFreelyAndSendsNothing();
    void refusalPutsTheEngineValueBack_data();
    void refusalPutsTheEngineValueBack();
    void killedEngineShowsWithoutATouch();
    void destroyedWhileSamplesFlow();
    void looks();

private:
    //! Binds and waits until the widget's reader has matched the engine's writer.
    void bind(BoundSlider& widget, const char* name)
    {
        widget.bindAttribute(m_engine->attribute(name));
        QTest::qWait(300);
    }

    std::unique_ptr<SimEngine> m_engine;
};

void TestBoundSlider::initTestCase()
{
    m_engine = std::make_unique<SimEngine>();
    m_engine->addAttribute(attribute("Gain", SimKind::AttribLong, std::int64_t{40}, SimLimits{0, 99, 1}));
    // Limits that are not whole numbers: the range is cut towards zero.
    m_engine->addAttribute(attribute("Trim", SimKind::AttribValueDouble, 12.8, SimLimits{-10.7, 60.9, 0.1}));
    // Limits wider than an int.
    m_engine->addAttribute(attribute("Centre", SimKind::AttribValueDouble, 1e9, SimLimits{1e3, 6e9, 1}));
    m_engine->addAttribute(attribute("Count", SimKind::ReadingLong, std::int64_t{5}));
    GlobalImpl::getInstance()->setStatusBar(new QRVStatusBar);
}

void TestBoundSlider::init()
{
    // Each case starts from a live link, as after a host's binding.
    EngineLink::instance()->reportLive();
    m_engine->setValue("Gain", std::int64_t{40});
    m_engine->setValue("Trim", 12.8);
}

void TestBoundSlider::cleanup()
{
    qApp->setProperty("-systype", QVariant());
    QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), nullptr);
}

void TestBoundSlider::sliderJumpsToTheTouch_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<int>("extent");
    QTest::addColumn<int>("along");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("expected");

    // 113 pixels long: 100 to point at once the handle's 13 are taken off.
    QTest::newRow("horizontal, middle") << Qt::Horizontal << 113 << 50 << 0 << 100 << 50;
    QTest::newRow("horizontal, left end") << Qt::Horizontal << 113 << 0 << 0 << 100 << 0;
    QTest::newRow("horizontal, under the handle's allowance") << Qt::Horizontal << 113 << 105 << 0 << 100 << 100;
    QTest::newRow("horizontal, beyond the right edge") << Qt::Horizontal << 113 << 400 << 0 << 100 << 100;
    QTest::newRow("horizontal, beyond the left edge") << Qt::Horizontal << 113 << -30 << 0 << 100 << 0;
    QTest::newRow("negative range cuts towards zero") << Qt::Horizontal << 113 << 26 << -10 << 10 << -4;
    QTest::newRow("range wider than an int") << Qt::Horizontal << 113 << 50 << INT_MIN << INT_MAX << 0;
    // Positions along a vertical slider count from its bottom, where the minimum is.
    QTest::newRow("vertical, 30 from the bottom") << Qt::Vertical << 113 << 30 << 0 << 100 << 30;
    QTest::newRow("vertical, top") << Qt::Vertical << 113 << 113 << 0 << 100 << 100;
    QTest::newRow("vertical, below the bottom edge") << Qt::Vertical << 113 << -20 << 0 << 100 << 0;
    // Too short to point into: the touch leaves the value as it was.
    QTest::newRow("as long as the handle") << Qt::Horizontal << 13 << 5 << 0 << 100 << 1;
    QTest::newRow("shorter than the handle") << Qt::Vertical << 6 << 3 << 0 << 100 << 1;
}

void TestBoundSlider::sliderJumpsToTheTouch()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(int, extent);
    QFETCH(int, along);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, expected);
    Slider slider(orientation);
    slider.setRange(minimum, maximum);
    const int before = minimum == INT_MIN ? 12345 : minimum + 1;
    slider.setValue(before);
    slider.resize(orientation == Qt::Horizontal ? QSize(extent, 30) : QSize(30, extent));
    QSignalSpy values(&slider, &Slider::newValue);
    QSignalSpy released(&slider, &QAbstractSlider::sliderReleased);

    const QPoint at = orientation == Qt::Horizontal ? QPoint(along, 15) : QPoint(15, extent - along);
    send(&slider, QEvent::MouseButtonPress, at);
    QCOMPARE(slider.value(), expected);
    QCOMPARE(values.count(), expected == before ? 0 : 1);
    if (!values.isEmpty())
        QCOMPARE(values.first().first().toInt(), expected);
    send(&slider, QEvent::MouseButtonRelease, at);
    QCOMPARE(released.count(), 1);
}

void TestBoundSlider::wheelLeavesTheSliderAlone()
{
    Slider slider(Qt::Horizontal);
    slider.setValue(30);
    QWheelEvent wheel(QPointF(10, 10), QPointF(10, 10), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&slider, &wheel);
    QCOMPARE(slider.value(), 30);
    QVERIFY(!wheel.isAccepted());
}

void TestBoundSlider::engineValuesOnTheSlider_data()
{
    QTest::addColumn<Shape>("shape");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("sample");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("shown");
    QTest::newRow("set beyond the top") << Shape::Horizontal << "Gain" << false << 150.0 << 99;
    QTest::newRow("set below the bottom") << Shape::Vertical << "Gain" << false << -5.0 << 0;
    QTest::newRow("sample, long") << Shape::Horizontal << "Gain" << true << 70.0 << 70;
    QTest::newRow("sample, long, vertical") << Shape::Vertical << "Gain" << true << 3.0 << 3;
    // The engine's own changes pass its limits.
    QTest::newRow("sample beyond the top") << Shape::Horizontal << "Gain" << true << 150.0 << 99;
    QTest::newRow("sample below the bottom") << Shape::Vertical << "Gain" << true << -5.0 << 0;
    QTest::newRow("sample, value double cut") << Shape::Horizontal << "Trim" << true << 33.9 << 33;
    QTest::newRow("sample, negative value double cut towards zero") << Shape::Horizontal << "Trim" << true << -7.6 << -7;
}

void TestBoundSlider::engineValuesOnTheSlider()
{
    QFETCH(Shape, shape);
    QFETCH(QString, name);
    QFETCH(bool, sample);
    QFETCH(double, value);
    QFETCH(int, shown);
    const std::string attributeName = name.toStdString();
    auto widget = makeSlider(shape);
    bind(*widget, attributeName.c_str());
    if (!sample)
        widget->setSliderValue(int(value));
    else if (name == QStringLiteral("Gain"))
        m_engine->setValue(attributeName, std::int64_t(value));
    else
        m_engine->setValue(attributeName, value);
    QTRY_COMPARE(sliderOf(*widget)->value(), shown);
}

void TestBoundSlider::onlyTheLiftSends_data()
{
    QTest::addColumn<Shape>("shape");
    QTest::addColumn<QString>("name");
    QTest::newRow("horizontal, long") << Shape::Horizontal << "Gain";
    QTest::newRow("horizontal, value double") << Shape::Horizontal << "Trim";
    QTest::newRow("vertical, long") << Shape::Vertical << "Gain";
}

void TestBoundSlider::onlyTheLiftSends()
{
    QFETCH(Shape, shape);
    QFETCH(QString, name);
    const std::string attributeName = name.toStdString();
    auto widget = makeSlider(shape);
    bind(*widget, attributeName.c_str());
    Slider* slider = sliderOf(*widget);
    const unsigned sets = m_engine->setCount(attributeName);

    press(slider, 0.1);
    move(slider, 0.5);
    move(slider, 0.8);
    // Sends are made on the interface thread: had a move sent, it would be counted by now.
    QCOMPARE(m_engine->setCount(attributeName), sets);
    const int chosen = slider->value();
    QVERIFY(chosen > 40);

    lift(slider, 0.8);
    QCOMPARE(m_engine->setCount(attributeName), sets + 1);
    QCOMPARE(SimRecords::numberOf(m_engine->value(attributeName)), double(chosen));
    QTRY_COMPARE(slider->value(), chosen);

    // A touch that ends on the widget beside the slider sends what the slider shows.
    QTest::mouseRelease(widget.get(), Qt::LeftButton, Qt::NoModifier, QPoint(1, 1));
    QCOMPARE(m_engine->setCount(attributeName), sets + 2);
    QVERIFY(!widget->isLocked());
}

void TestBoundSlider::engineSamplesWaitForTheFinger()
{
    auto widget = makeSlider(Shape::Horizontal);
    auto witness = makeSlider(Shape::Horizontal);
    bind(*widget, "Gain");
    bind(*witness, "Gain");
    Slider* slider = sliderOf(*widget);

    press(slider, 0.8);
    const int chosen = slider->value();
    m_engine->setValue("Gain", std::int64_t{5});
    QTRY_COMPARE(sliderOf(*witness)->value(), 5);
    QTest::qWait(100);
    QCOMPARE(slider->value(), chosen);

    // The lift sends the finger's value, not the one the engine gave meanwhile.
    lift(slider, 0.8);
    QCOMPARE(SimRecords::numberOf(m_engine->value("Gain")), double(chosen));
    QTRY_COMPARE(sliderOf(*witness)->value(), chosen);
    QTRY_COMPARE(slider->value(), chosen);
}

void TestBoundSlider::bindingAValueRecordSetsTheRange_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("value");
    QTest::newRow("long keeps the form's range") << "Gain" << 5 << 50 << 40;
    QTest::newRow("value double, limits cut towards zero") << "Trim" << -10 << 60 << 12;
    QTest::newRow("value double beyond an int") << "Centre" << 1000 << INT_MAX << 1000000000;
}

void TestBoundSlider::bindingAValueRecordSetsTheRange()
{
    QFETCH(QString, name);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, value);
    HorizontalSliderImpl widget;
    widget.setSliderMin(5);
    widget.setSliderMax(50);
    widget.bindAttribute(m_engine->attribute(name.toStdString()));
    QCOMPARE(widget.getSliderMin(), minimum);
    QCOMPARE(widget.getSliderMax(), maximum);
    QCOMPARE(sliderOf(widget)->value(), value);
}

void TestBoundSlider::unboundSliderMovesFreelyAndSendsNothing_data()
{
    QTest::addColumn<Shape>("shape");
    QTest::addColumn<QString>("boundTo");
    QTest::newRow("horizontal, never bound") << Shape::Horizontal << QString();
    QTest::newRow("horizontal, bound to nil") << Shape::Horizontal << "nil";
    QTest::newRow("horizontal, bound to a reading") << Shape::Horizontal << "Count";
    QTest::newRow("vertical, bound to a value double") << Shape::Vertical << "Trim";
}

void TestBoundSlider::unboundSliderMovesFreelyAndSendsNothing()
{
    QFETCH(Shape, shape);
    QFETCH(QString, boundTo);
    auto widget = makeSlider(shape);
    if (boundTo == QStringLiteral("nil"))
        widget->bindAttribute(nullptr);
    else if (!boundTo.isEmpty())
        bind(*widget, boundTo.toStdString().c_str());
    const unsigned gainSets = m_engine->setCount("Gain");
    const unsigned trimSets = m_engine->setCount("Trim");
    Slider* slider = sliderOf(*widget);

    press(slider, 0.2);
    move(slider, 0.6);
    lift(slider, 0.6);
    QCOMPARE(slider->value(), 59);
    QCOMPARE(m_engine->setCount("Gain"), gainSets);
    QCOMPARE(m_engine->setCount("Trim"), trimSets);
    QVERIFY(!widget->isEngineLinkLost());
}

void TestBoundSlider::refusalPutsTheEngineValueBack_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("engineValue");
    QTest::newRow("locked") << "Gain" << int(SimFailure::Kind::Locked) << 40;
    QTest::newRow("out of range") << "Gain" << int(SimFailure::Kind::DataOutOfRange) << 40;
    QTest::newRow("bad parameter") << "Gain" << int(SimFailure::Kind::BadParam) << 40;
    QTest::newRow("value double, unknown failure") << "Trim" << int(SimFailure::Kind::Unknown) << 12;
}

void TestBoundSlider::refusalPutsTheEngineValueBack()
{
    QFETCH(QString, name);
    QFETCH(int, kind);
    QFETCH(int, engineValue);
    const std::string attributeName = name.toStdString();
    auto widget = makeSlider(Shape::Horizontal);
    bind(*widget, attributeName.c_str());
    Slider* slider = sliderOf(*widget);
    QCOMPARE(slider->value(), engineValue);
    SimFailure failure;
    failure.kind = SimFailure::Kind(kind);
    m_engine->failNextSet(attributeName, 1, failure);
    const unsigned sets = m_engine->setCount(attributeName);

    press(slider, 0.9);
    QVERIFY(slider->value() != engineValue);
    lift(slider, 0.9);
    QCOMPARE(m_engine->setCount(attributeName), sets + 1);
    QCOMPARE(slider->value(), engineValue);
    QCOMPARE(int(SimRecords::numberOf(m_engine->value(attributeName))), engineValue);
    QVERIFY(!widget->isEngineLinkLost());

    // Refused once is not refused for good: the next lift lands.
    press(slider, 0.9);
    lift(slider, 0.9);
    QCOMPARE(m_engine->setCount(attributeName), sets + 2);
    QTRY_COMPARE(int(SimRecords::numberOf(m_engine->value(attributeName))), slider->value());
}

void TestBoundSlider::killedEngineShowsWithoutATouch()
{
    SimEngineProcess engine;
    QVERIFY2(engine.start(QStringLiteral(RV_DEMO_SCENARIO)), qPrintable(engine.errorString()));
    Brenmoor::AttributeDirectory_var directory = engine.directory();
    Screen screen;
    HorizontalSliderImpl* horizontal = screen.horizontal;
    VerticalSliderImpl* vertical = screen.vertical;
    horizontal->bindAttribute(directory->find("Gain"));
    vertical->bindAttribute(directory->find("Gain"));
    QVERIFY(!veiled(horizontal) && !veiled(vertical));

    engine.kill();
    QTRY_VERIFY_WITH_TIMEOUT(veiled(horizontal) && veiled(vertical), 5000);
    TestSupport::savePng(&screen.widget, QStringLiteral("boundslider_engine_lost"));

    // A lift on a lost engine asks nothing of it, and so cannot wait for it.
    horizontal->setSliderValue();
    vertical->setSliderValue();
    QVERIFY(horizontal->isEngineLinkLost() && vertical->isEngineLinkLost());
    QVERIFY(!horizontal->isLocked());
}

void TestBoundSlider::destroyedWhileSamplesFlow()
{
    std::atomic<bool> running{true};
    std::thread engineSide([this, &running] {
        for (std::int64_t i = 0; running; ++i) {
            m_engine->setValue("Gain", i % 100);
            m_engine->setValue("Trim", double(i % 50) + 0.5);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    });
    for (int round = 0; round < 6; ++round) {
        auto horizontal = makeSlider(Shape::Horizontal);
        auto vertical = makeSlider(Shape::Vertical);
        horizontal->bindAttribute(m_engine->attribute(round % 2 ? "Trim" : "Gain"));
        vertical->bindAttribute(m_engine->attribute("Gain"));
        QSignalSpy horizontalMoves(sliderOf(*horizontal), &QAbstractSlider::valueChanged);
        QSignalSpy verticalMoves(sliderOf(*vertical), &QAbstractSlider::valueChanged);
        QTRY_VERIFY(horizontalMoves.count() > 3 && verticalMoves.count() > 3);
    }
    running = false;
    engineSide.join();
}

void TestBoundSlider::looks()
{
    for (const QString& size : {QStringLiteral("Min"), QStringLiteral("Max")}) {
        Screen screen(size);
        screen.horizontal->setSliderValue(30);
        screen.vertical->setSliderValue(70);
        QVERIFY(!TestSupport::savePng(&screen.widget, QStringLiteral("boundslider_") + size.toLower()).isNull());
        QCOMPARE(screen.horizontal->findChild<Slider*>()->maximumHeight(), size == QStringLiteral("Max") ? 32 : 28);
        QCOMPARE(screen.vertical->findChild<Slider*>()->maximumWidth(), size == QStringLiteral("Max") ? 32 : 28);
    }
    // A handheld starts in the large look; a word the sliders do not know changes nothing.
    qApp->setProperty("-systype", QStringLiteral("handheld"));
    VerticalSliderImpl handheld;
    const QString max = handheld.styleSheet();
    QVERIFY(max.contains(QStringLiteral("max-width: 32px")));
    handheld.changeSize(QStringLiteral("Thumb"));
    QCOMPARE(handheld.styleSheet(), max);
}

RV_TEST_MAIN_BOUNDED_EXIT(TestBoundSlider, QApplication)
#include "tst_boundslider.moc"
