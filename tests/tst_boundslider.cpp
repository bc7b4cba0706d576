// The bound horizontal and vertical sliders against the simulated engine,
// and Slider, the touch-jumping QSlider beneath them.
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

// Laid out, so that a touch lands where the test means it to.
std::unique_ptr<BoundSlider> makeSlider(Qt::Orientation orientation)
{
    const bool horizontal = orientation == Qt::Horizontal;
    std::unique_ptr<BoundSlider> widget(horizontal ? static_cast<BoundSlider*>(new HorizontalSliderImpl)
                                                   : new VerticalSliderImpl);
    widget->resize(horizontal ? QSize(240, 60) : QSize(60, 240));
    widget->show();
    return widget;
}

// A touch \a fraction of the way from the slider's minimum towards its maximum,
// sent as the window system does: an ignored event goes on to the parent.
void touch(Slider* slider, QEvent::Type type, double fraction)
{
    const bool horizontal = slider->orientation() == Qt::Horizontal;
    const int along = int(((horizontal ? slider->width() : slider->height()) - 13) * fraction + 0.5);
    const QPoint at = horizontal ? QPoint(along, slider->height() / 2)
                                 : QPoint(slider->width() / 2, slider->height() - along);
    QMouseEvent event(type, at, slider->mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(slider, &event);
}

Slider* sliderOf(QWidget& widget) { return widget.findChild<Slider*>(); }

void tap(Slider* slider, double fraction)
{
    touch(slider, QEvent::MouseButtonPress, fraction);
    touch(slider, QEvent::MouseButtonRelease, fraction);
}

bool veiled(QWidget* widget)
{
    const auto* overlay = widget->findChild<QPushButton*>(QStringLiteral("LockOverlay"));
    return !overlay->isHidden() && overlay->text() == QStringLiteral("No engine link");
}

// Both sliders in the look of \a size, on the instrument's background.
struct Screen
{
    explicit Screen(const QString& size = QStringLiteral("Min"))
    {
        horizontal->changeSize(size);
        vertical->changeSize(size);
        horizontal->setLabel(QStringLiteral("Gain, horizontal"));
        vertical->setLabel(QStringLiteral("Gain"));
        widget.setObjectName(QStringLiteral("screen"));
        widget.setStyleSheet(QStringLiteral("QWidget#screen { background-color: #101418; }"));
        auto* layout = new QHBoxLayout(&widget);
        layout->addWidget(horizontal, 1, Qt::AlignTop);
        layout->addWidget(vertical);
        widget.resize(360, 200);
        widget.show();
    }
    QWidget widget;
    HorizontalSliderImpl* horizontal = new HorizontalSliderImpl;
    VerticalSliderImpl* vertical = new VerticalSliderImpl;
};

} // namespace

class TestBoundSlider : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void sliderJumpsToTheTouch_data();
    void sliderJumpsToTheTouch();
    void rangeAndValueShown_data();
    void rangeAndValueShown();
    void onlyTheLiftSendsAndSamplesWait();
    void unboundOrRefused_data();
    void unboundOrRefused();
    void killedEngineShowsWithoutATouch();
    void destroyedWhileSamplesFlow();
    void looks();

private:
    //! Binds and waits until the widget's reader has matched the engine's writer.
    void bind(BoundSlider& widget, const QString& name)
    {
        widget.bindAttribute(m_engine->attribute(name.toStdString()));
        QTest::qWait(300);
    }
    unsigned sets() const { return m_engine->setCount("Gain") + m_engine->setCount("Trim"); }

    std::unique_ptr<SimEngine> m_engine;
};

void TestBoundSlider::initTestCase()
{
    m_engine = std::make_unique<SimEngine>();
    const auto add = [this](const char* name, SimKind kind, SimValue value, std::optional<SimLimits> limits) {
        SimAttributeSetup setup;
        setup.name = name;
        setup.kind = kind;
        setup.value = std::move(value);
        setup.limits = limits;
        if (kind == SimKind::AttribValueDouble)
            setup.units = SimUnits{"10,0,0", "1;;;;"};
        m_engine->addAttribute(setup);
    };
    add("Gain", SimKind::AttribLong, std::int64_t{40}, SimLimits{0, 99, 1});
    // Limits that are not whole numbers, and limits wider than an int.
    add("Trim", SimKind::AttribValueDouble, 12.8, SimLimits{-10.7, 60.9, 0.1});
    add("Centre", SimKind::AttribValueDouble, 1e9, SimLimits{1e3, 6e9, 1});
    add("Count", SimKind::ReadingLong, std::int64_t{5}, std::nullopt);
    GlobalImpl::getInstance()->setStatusBar(new QRVStatusBar);
}

void TestBoundSlider::init()
{
    // Each case starts from a live link, as after a host's binding.
    EngineLink::instance()->reportLive();
    m_engine->setValue("Gain", std::int64_t{40});
    m_engine->setValue("Trim", 12.8);
}

void TestBoundSlider::sliderJumpsToTheTouch_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<int>("extent");
    QTest::addColumn<double>("fraction"); // of the length left once the handle's 13 pixels are taken off
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("expected");

    QTest::newRow("beyond the right edge") << Qt::Horizontal << 113 << 4.0 << 0 << 100 << 100;
    QTest::newRow("negative range cuts towards zero") << Qt::Horizontal << 113 << 0.26 << -10 << 10 << -4;
    QTest::newRow("range wider than an int") << Qt::Horizontal << 113 << 0.5 << INT_MIN << INT_MAX << 0;
    // Positions along a vertical slider count from its bottom, where the minimum is.
    QTest::newRow("vertical, 30 from the bottom") << Qt::Vertical << 113 << 0.3 << 0 << 100 << 30;
    QTest::newRow("vertical, below the bottom edge") << Qt::Vertical << 113 << -0.2 << 0 << 100 << 0;
    // Too short to point into: the touch leaves the value as it was.
    QTest::newRow("as long as the handle") << Qt::Horizontal << 13 << 0.5 << 0 << 100 << 1;
    QTest::newRow("shorter than the handle") << Qt::Vertical << 6 << 0.5 << 0 << 100 << 1;
}

void TestBoundSlider::sliderJumpsToTheTouch()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(int, extent);
    QFETCH(double, fraction);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, expected);
    Slider slider(orientation);
    slider.setRange(minimum, maximum);
    const int before = minimum == INT_MIN ? 12345 : minimum + 1;
    slider.setValue(before);
    slider.resize(orientation == Qt::Horizontal ? QSize(extent, 30) : QSize(30, extent));
    QSignalSpy values(&slider, &Slider::newValue);

    tap(&slider, fraction);
    QCOMPARE(slider.value(), expected);
    QCOMPARE(values.count(), expected == before ? 0 : 1);

    // A wheel would change the value without a lift to send it.
    QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&slider, &wheel);
    QCOMPARE(slider.value(), expected);
}

void TestBoundSlider::rangeAndValueShown_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("then"); // "set": by the form; "sample": by the engine
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("shown");

    // A horizontal slider is given 5 to 50 by its form, a vertical one keeps 0 to 99.
    QTest::newRow("long keeps the form's range") << Qt::Horizontal << "Gain" << "" << 0.0 << 5 << 50 << 40;
    QTest::newRow("value double, limits cut towards zero") << Qt::Horizontal << "Trim" << "" << 0.0 << -10 << 60 << 12;
    QTest::newRow("value double beyond an int") << Qt::Horizontal << "Centre" << "" << 0.0 << 1000 << INT_MAX
                                                << 1000000000;
    QTest::newRow("set beyond the top") << Qt::Horizontal << "Gain" << "set" << 150.0 << 5 << 50 << 50;
    QTest::newRow("set below the bottom") << Qt::Vertical << "Gain" << "set" << -5.0 << 0 << 99 << 0;
    // The engine's own changes pass its limits.
    QTest::newRow("sample beyond the top") << Qt::Horizontal << "Gain" << "sample" << 150.0 << 5 << 50 << 50;
    QTest::newRow("sample cut towards zero") << Qt::Horizontal << "Trim" << "sample" << -7.6 << -10 << 60 << -7;
}

void TestBoundSlider::rangeAndValueShown()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(QString, name);
    QFETCH(QString, then);
    QFETCH(double, value);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, shown);
    auto widget = makeSlider(orientation);
    if (auto* horizontal = dynamic_cast<HorizontalSliderImpl*>(widget.get())) {
        horizontal->setSliderMin(5);
        horizontal->setSliderMax(50);
    }
    bind(*widget, name);
    if (then == QStringLiteral("set"))
        widget->setSliderValue(int(value));
    else if (then == QStringLiteral("sample"))
        m_engine->setValue(name.toStdString(),
                           name == QStringLiteral("Gain") ? SimValue(std::int64_t(value)) : SimValue(value));
    QTRY_COMPARE(sliderOf(*widget)->value(), shown);
    QCOMPARE(sliderOf(*widget)->minimum(), minimum);
    QCOMPARE(sliderOf(*widget)->maximum(), maximum);
}

// One slider suffices: a value double is sent, and a vertical slider moved, in the cases below.
void TestBoundSlider::onlyTheLiftSendsAndSamplesWait()
{
    auto widget = makeSlider(Qt::Horizontal);
    auto witness = makeSlider(Qt::Horizontal);
    bind(*widget, "Gain");
    bind(*witness, "Gain");
    Slider* slider = sliderOf(*widget);
    const unsigned before = sets();

    touch(slider, QEvent::MouseButtonPress, 0.1);
    touch(slider, QEvent::MouseMove, 0.5);
    touch(slider, QEvent::MouseMove, 0.8);
    const int chosen = slider->value();
    QVERIFY(chosen > 40);
    // The engine's sample reaches the witness, but the finger keeps the slider.
    m_engine->setValue("Gain", std::int64_t{5});
    QTRY_COMPARE(sliderOf(*witness)->value(), 5);
    QTest::qWait(100);
    QCOMPARE(slider->value(), chosen);
    // Sends are made on the interface thread: had a move sent, it would be counted by now.
    QCOMPARE(sets(), before);

    // The lift sends the finger's value, not the one the engine gave meanwhile.
    touch(slider, QEvent::MouseButtonRelease, 0.8);
    QCOMPARE(sets(), before + 1);
    QCOMPARE(SimRecords::numberOf(m_engine->value("Gain")), double(chosen));
    QTRY_COMPARE(sliderOf(*witness)->value(), chosen);
    QCOMPARE(slider->value(), chosen);

    // A touch that ends on the widget beside the slider sends what the slider shows.
    QTest::mouseRelease(widget.get(), Qt::LeftButton, Qt::NoModifier, QPoint(1, 1));
    QCOMPARE(sets(), before + 2);
    QVERIFY(!widget->isLocked());
}

void TestBoundSlider::unboundOrRefused_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<QString>("boundTo"); // empty: nil
    QTest::addColumn<int>("refusal");     // -1: none
    QTest::addColumn<int>("shown");       // after the lift

    // Free: the slider stays where the finger left it, and nothing is sent.
    QTest::newRow("bound to nil") << Qt::Horizontal << "" << -1 << 59;
    QTest::newRow("bound to a reading") << Qt::Horizontal << "Count" << -1 << 59;
    QTest::newRow("vertical, bound to a value double") << Qt::Vertical << "Trim" << -1 << 59;
    // Refused: the engine's value comes back.
    QTest::newRow("long, locked") << Qt::Horizontal << "Gain" << int(SimFailure::Kind::Locked) << 40;
    QTest::newRow("value double, unknown failure") << Qt::Horizontal << "Trim" << int(SimFailure::Kind::Unknown) << 12;
}

void TestBoundSlider::unboundOrRefused()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(QString, boundTo);
    QFETCH(int, refusal);
    QFETCH(int, shown);
    auto widget = makeSlider(orientation);
    if (boundTo.isEmpty())
        widget->bindAttribute(nullptr);
    else
        bind(*widget, boundTo);
    const bool sends = refusal >= 0;
    if (sends) {
        SimFailure failure;
        failure.kind = SimFailure::Kind(refusal);
        m_engine->failNextSet(boundTo.toStdString(), 1, failure);
    }
    const unsigned before = sets();
    Slider* slider = sliderOf(*widget);

    tap(slider, 0.6);
    QCOMPARE(sets(), before + (sends ? 1 : 0));
    QCOMPARE(slider->value(), shown);
    QVERIFY(!widget->isEngineLinkLost());
    if (!sends)
        return;
    const std::string name = boundTo.toStdString();
    QCOMPARE(int(SimRecords::numberOf(m_engine->value(name))), shown);
    // Refused once is not refused for good: the next lift lands.
    tap(slider, 0.6);
    QCOMPARE(sets(), before + 2);
    QTRY_COMPARE(int(SimRecords::numberOf(m_engine->value(name))), slider->value());
}

void TestBoundSlider::killedEngineShowsWithoutATouch()
{
    SimEngineProcess engine;
    QVERIFY2(engine.start(QStringLiteral(RV_DEMO_SCENARIO)), qPrintable(engine.errorString()));
    Brenmoor::AttributeDirectory_var directory = engine.directory();
    Screen screen;
    screen.horizontal->bindAttribute(directory->find("Gain"));
    screen.vertical->bindAttribute(directory->find("Gain"));
    QVERIFY(!veiled(screen.horizontal) && !veiled(screen.vertical));

    engine.kill();
    QTRY_VERIFY_WITH_TIMEOUT(veiled(screen.horizontal) && veiled(screen.vertical), 5000);
    TestSupport::savePng(&screen.widget, QStringLiteral("boundslider_engine_lost"));
    // A lift on a lost engine asks nothing of it, and so cannot wait for it.
    screen.horizontal->setSliderValue();
    QVERIFY(!screen.horizontal->isLocked());
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
        auto widget = makeSlider(round % 2 ? Qt::Horizontal : Qt::Vertical);
        widget->bindAttribute(m_engine->attribute(round % 4 == 1 ? "Trim" : "Gain"));
        QSignalSpy moves(sliderOf(*widget), &QAbstractSlider::valueChanged);
        QTRY_VERIFY(moves.count() > 3);
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
        QCOMPARE(sliderOf(*screen.horizontal)->maximumHeight(), size == QStringLiteral("Max") ? 32 : 28);
        QCOMPARE(sliderOf(*screen.vertical)->maximumWidth(), size == QStringLiteral("Max") ? 32 : 28);
    }
}

RV_TEST_MAIN_BOUNDED_EXIT(TestBoundSlider, QApplication)
#include "tst_boundslider.moc"
