// The slider entry mechanisms: drags, flicks and settling of the ruler,
// limits at every value sent, the step keys and the marked digit, odd limits
// and values, the double slider's two rulers, and pictures of both.
#include "DoubleSliderImpl.h"
#include "SingleSliderImpl.h"
#include "SliderBarImpl.h"
#include "SliderIndicatorImpl.h"
#include "TestSupport.h"

#include <QAbstractEventDispatcher>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>
#include <limits>
#include <memory>

namespace {

constexpr double noLimit = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();

//! A path of the finger: ticks to the right of the press (x) at milliseconds after it (y).
using Path = QVector<QPointF>;

// A finger on a ruler, with the ruler's clock in its hand: each sample of a drag has the time the path gives
// it, and once the finger lifts every step of the motion is \a frame ms later, however late the timer fires.
class Finger
{
    Q_DISABLE_COPY(Finger)

public:
    explicit Finger(SliderBarImpl* bar, int frame = 25) : m_bar(bar), m_frame(frame) {}
    ~Finger()
    {
        if (m_bar)
            m_bar->gestureClock().setSource({});
    }

    //! Presses and follows \a path without lifting.
    void down(const Path& path = {})
    {
        m_now = 0;
        m_x = 0;
        m_bar->gestureClock().setSource([this] { return m_now; });
        send(QEvent::MouseButtonPress, Qt::LeftButton);
        for (const QPointF& point : path) {
            m_now = qint64(point.y());
            m_x = int(std::lround(point.x() * (m_bar->width() / 7)));
            send(QEvent::MouseMove, Qt::LeftButton);
        }
    }
    void release()
    {
        send(QEvent::MouseButtonRelease, Qt::NoButton);
        m_bar->gestureClock().setSource([this] { return m_now += m_frame; });
    }
    void drag(const Path& path)
    {
        down(path);
        release();
    }

private:
    void send(QEvent::Type type, Qt::MouseButtons buttons)
    {
        const QPoint local(m_bar->width() / 2 + m_x, m_bar->height() / 2);
        QMouseEvent event(type, local, m_bar->mapToGlobal(local), Qt::LeftButton, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(m_bar, &event);
    }

    QPointer<SliderBarImpl> m_bar;
    const int m_frame;
    qint64 m_now = 0;
    int m_x = 0;
};

bool moving(QObject* bar) { return !QAbstractEventDispatcher::instance()->registeredTimers(bar).isEmpty(); }

QList<double> values(const QSignalSpy& spy, int from = 0)
{
    QList<double> sent;
    for (int i = from; i < spy.count(); ++i)
        sent.append(spy.at(i).at(0).toString().toDouble());
    return sent;
}

struct Slider
{
    std::unique_ptr<SingleSliderImpl> widget;
    SliderBarImpl* bar = nullptr;
    QLineEdit* reading = nullptr;
};

//! A single slider on the screen, as the field opens it.
Slider openSlider(const QString& value, double lower, double upper, int precision = 0)
{
    Slider slider;
    slider.widget = std::make_unique<SingleSliderImpl>(nullptr, 0.0, lower, upper, precision);
    slider.bar = slider.widget->findChild<SliderBarImpl*>(QStringLiteral("sliderBar"));
    slider.reading = slider.widget->findChild<QLineEdit*>(QStringLiteral("SliderReading"));
    slider.widget->setValue(value, QStringLiteral("Hz"));
    slider.widget->updateCursorPosition();
    slider.widget->show();
    if (!QTest::qWaitForWindowExposed(slider.widget.get()))
        qWarning("slider not exposed");
    return slider;
}

void click(QWidget* slider, const char* key) { slider->findChild<QPushButton*>(QLatin1String(key))->click(); }

std::unique_ptr<DoubleSliderImpl> openDouble(const QString& value, double upper, int precision)
{
    auto slider = std::make_unique<DoubleSliderImpl>(nullptr, 0.0, 0.0, upper, precision);
    slider->setValue(value, QStringLiteral("V"));
    slider->show();
    if (!QTest::qWaitForWindowExposed(slider.get()))
        qWarning("slider not exposed");
    return slider;
}

// The read-out draws its digits in white.
bool showsDigits(QWidget* readOut)
{
    const QImage image = readOut->grab().toImage();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) > 240)
                return true;
    return false;
}

} // namespace

class TestSlider : public QObject
{
    Q_OBJECT

private slots:
    void gestures_data();
    void gestures();
    void coastInterrupted_data();
    void coastInterrupted();
    void oddLimitsAndValues_data();
    void oddLimitsAndValues();
    void touchesThatMoveNothing();
    void stepKeys_data();
    void stepKeys();
    void markedDigit_data();
    void markedDigit();
    void landscapeAndOpaqueVariants();
    void labelWindow_data();
    void labelWindow();
    void doubleSliderBarsFollowEachOther_data();
    void doubleSliderBarsFollowEachOther();
    void pictures();
};

void TestSlider::gestures_data()
{
    QTest::addColumn<double>("value"); // between 0 and 200
    QTest::addColumn<Path>("path");
    QTest::addColumn<double>("lowest"); // where the ruler may come to rest
    QTest::addColumn<double>("highest");
    QTest::addColumn<bool>("sendsWhileCoasting");

    // A finger to the right lowers the value; below 400 px/s (half the finger's speed) a release settles.
    QTest::newRow("slow, short of half a tick") << 100.0 << Path{{0.1, 100}, {0.3, 500}} << 100.0 << 100.0 << false;
    QTest::newRow("slow, past half a tick") << 100.0 << Path{{0.2, 100}, {0.7, 500}} << 99.0 << 99.0 << false;
    QTest::newRow("slow, leftwards") << 100.0 << Path{{-0.2, 100}, {-1.6, 600}} << 102.0 << 102.0 << false;
    QTest::newRow("300 px/s settles where it is") << 100.0 << Path{{0.1, 10}, {2.36, 210}} << 98.0 << 98.0 << false;
    QTest::newRow("flick right coasts on") << 100.0 << Path{{0.2, 10}, {3.2, 110}} << 0.0 << 96.0 << true;
    QTest::newRow("flick left coasts on") << 100.0 << Path{{-0.2, 10}, {-3.2, 110}} << 104.0 << 200.0 << true;
    QTest::newRow("flick at the upper limit stops there") << 198.0 << Path{{-0.2, 10}, {-6.0, 60}} << 200.0 << 200.0
                                                          << false;
    QTest::newRow("flick onto the upper limit") << 190.0 << Path{{-0.2, 10}, {-4.2, 110}} << 200.0 << 200.0 << true;
    QTest::newRow("flick at the lower limit stops there") << 2.0 << Path{{0.2, 10}, {6.0, 60}} << 0.0 << 0.0 << false;
    QTest::newRow("drag far beyond the widget") << 100.0 << Path{{1.0, 100}, {400.0, 900}} << 0.0 << 0.0 << false;
}

void TestSlider::gestures()
{
    QFETCH(double, value);
    QFETCH(Path, path);
    QFETCH(double, lowest);
    QFETCH(double, highest);
    QFETCH(bool, sendsWhileCoasting);

    Slider slider = openSlider(QString::number(value), 0.0, 200.0);
    // Steps that show as nothing at precision 0 are refused: the ticks stay whole units.
    for (double step : {0.0, 0.001, -5.0})
        slider.widget->setStep(step);
    QSignalSpy sent(slider.widget.get(), &SliderImpl::valueChanged);
    Finger finger(slider.bar);
    finger.down(path);
    const int beforeRelease = sent.count();
    finger.release();
    QTRY_VERIFY(!moving(slider.bar));

    const QList<double> all = values(sent);
    QVERIFY(!all.isEmpty());
    for (double v : all)
        QVERIFY2(v >= 0.0 && v <= 200.0, qPrintable(QString::number(v)));
    const double rest = all.last();
    QVERIFY2(rest >= lowest && rest <= highest, qPrintable(QString::number(rest)));
    QCOMPARE(slider.reading->text(), QString::number(rest));
    QCOMPARE(slider.bar->currentValue(), rest);
    const QList<double> afterRelease = values(sent, beforeRelease);
    // Coasting sends each tick it passes before the value it settles on.
    QCOMPARE(afterRelease.size() > 1 && afterRelease.first() != rest, sendsWhileCoasting);
}

void TestSlider::coastInterrupted_data()
{
    QTest::addColumn<QString>("by");
    QTest::newRow("a press commits the value passed") << "press";
    QTest::newRow("hidden, it stops at once") << "hide";
    QTest::newRow("destroyed, its timer goes with it") << "destroy";
}

void TestSlider::coastInterrupted()
{
    QFETCH(QString, by);
    Slider slider = openSlider(QStringLiteral("500"), 0.0, 1000.0);
    QSignalSpy sent(slider.widget.get(), &SliderImpl::valueChanged);
    Finger finger(slider.bar);
    finger.drag({{0.2, 10}, {6.2, 110}});
    QTRY_VERIFY(values(sent).last() < 490.0);
    const double passed = values(sent).last();

    if (by == QStringLiteral("destroy")) {
        slider.widget.reset();
        QTest::qWait(100);
        return;
    }
    int count = 0;
    if (by == QStringLiteral("hide")) {
        slider.widget->hide();
        count = sent.count();
    } else {
        finger.down();
        QVERIFY(!moving(slider.bar));
        const double committed = values(sent).last();
        QVERIFY2(std::abs(committed - passed) <= 1.0, qPrintable(QStringLiteral("%1 %2").arg(committed).arg(passed)));
        QCOMPARE(slider.bar->currentValue(), committed);
        // The press began a new gesture: lifting the finger without a move is a tap, which sends nothing.
        count = sent.count();
        finger.release();
    }
    QVERIFY(!moving(slider.bar));
    QTest::qWait(100);
    QCOMPARE(sent.count(), count);
}

void TestSlider::oddLimitsAndValues_data()
{
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");
    QTest::addColumn<QString>("value");
    QTest::addColumn<double>("least"); // the values sent must lie between these
    QTest::addColumn<double>("most");

    QTest::newRow("equal limits") << 100.0 << 100.0 << "100" << 100.0 << 100.0;
    QTest::newRow("limits the wrong way round") << 200.0 << 0.0 << "100" << 0.0 << 200.0;
    QTest::newRow("no lower limit") << noLimit << 200.0 << "100" << -inf << 200.0;
    QTest::newRow("no upper limit") << 0.0 << noLimit << "100" << 0.0 << inf;
    QTest::newRow("infinite limits") << -inf << inf << "100" << -inf << inf;
    QTest::newRow("value above the upper limit") << 0.0 << 200.0 << "500" << 0.0 << 200.0;
    QTest::newRow("value far below the lower limit") << 0.0 << 200.0 << "-1e12" << 0.0 << 200.0;
    QTest::newRow("value that is no number") << 0.0 << 200.0 << "nan" << 0.0 << 200.0;
}

void TestSlider::oddLimitsAndValues()
{
    QFETCH(double, lower);
    QFETCH(double, upper);
    QFETCH(QString, value);
    QFETCH(double, least);
    QFETCH(double, most);

    Slider slider = openSlider(value, lower, upper);
    QSignalSpy sent(slider.widget.get(), &SliderImpl::valueChanged);
    // Slowing down ten times as fast, a flick coasts a tenth as far: far enough for these limits.
    Finger finger(slider.bar, 250);
    for (const Path& path : {Path{{0.2, 10}, {4.2, 110}}, Path{{-0.2, 10}, {-4.2, 110}}}) {
        finger.drag(path);
        QTRY_VERIFY(!moving(slider.bar));
    }
    click(slider.widget.get(), "stepUp");
    click(slider.widget.get(), "stepDown");
    QVERIFY(!sent.isEmpty());
    for (double v : values(sent))
        QVERIFY2(v >= least && v <= most, qPrintable(QString::number(v)));
}

void TestSlider::touchesThatMoveNothing()
{
    // A ruler not yet given a size has no ticks to drag.
    SingleSliderImpl unshown(nullptr, 0.0, 0.0, 200.0, 0);
    unshown.setValue(QStringLiteral("100"), QString());
    auto* bar = unshown.findChild<SliderBarImpl*>();
    QSignalSpy sent(&unshown, &SliderImpl::valueChanged);
    Finger(bar).drag({{0.2, 10}, {4.0, 60}});
    QVERIFY(!moving(bar));
    QCOMPARE(sent.count(), 0);

    // The gap under the read-out is no handle to drag the pop-up by.
    Slider slider = openSlider(QStringLiteral("10"), 0.0, 200.0);
    auto* gap = slider.widget->findChild<QFrame*>(QStringLiteral("MainFrame"))
                    ->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    const QPoint before = slider.widget->pos();
    QTest::mousePress(gap, Qt::LeftButton, Qt::NoModifier, QPoint(20, 5));
    QTest::mouseMove(gap, QPoint(120, 40));
    QTest::mouseRelease(gap, Qt::LeftButton, Qt::NoModifier, QPoint(120, 40));
    QCOMPARE(slider.widget->pos(), before);
}

void TestSlider::stepKeys_data()
{
    QTest::addColumn<QString>("value"); // between 0 and 200
    QTest::addColumn<int>("precision");
    QTest::addColumn<QStringList>("keys"); // "drag": two ticks to the right, slowly
    QTest::addColumn<QString>("sent");     // the last value sent, and shown
    QTest::addColumn<QString>("then");     // a value from outside, if any
    QTest::addColumn<double>("power");     // of the step after all that

    const QStringList tens{"incStep", "stepUp", "stepDown"};
    QTest::newRow("+ at the upper limit sends it again") << "200" << 0 << QStringList{"stepUp"} << "200" << "" << 0.0;
    QTest::newRow("+ stops at the upper limit") << "199.5" << 1 << QStringList{"stepUp"} << "200.0" << "" << 0.0;
    QTest::newRow("+ from below the lower limit") << "-5" << 0 << QStringList{"stepUp"} << "0" << "" << 0.0;
    QTest::newRow("+ by the tens after x10") << "50" << 0 << QStringList{"incStep", "stepUp"} << "60" << "" << 1.0;
    QTest::newRow("- by the tenths after /10") << "50.0" << 1 << QStringList{"decStep", "stepDown"} << "49.9" << ""
                                               << -1.0;
    QTest::newRow("/10 goes no finer than shown") << "50" << 0 << QStringList{"decStep", "stepUp"} << "51" << "" << 0.0;
    // A new value resets the step to the units; the slider's own do not.
    QTest::newRow("the slider's own keys keep the step") << "50" << 0 << tens << "50" << "" << 1.0;
    QTest::newRow("the same value again keeps it") << "50" << 0 << tens << "50" << "50" << 1.0;
    QTest::newRow("another value resets it") << "50" << 0 << tens << "50" << "60" << 0.0;
    QTest::newRow("a dragged value sent back resets it") << "50" << 0 << (tens + QStringList{"drag"}) << "30" << "30"
                                                         << 0.0;
    QTest::newRow("after Enter the dragged value is the field's") << "50" << 0 << (tens + QStringList{"drag", "enter"})
                                                                  << "30" << "30" << 1.0;
}

void TestSlider::stepKeys()
{
    QFETCH(QString, value);
    QFETCH(int, precision);
    QFETCH(QStringList, keys);
    QFETCH(QString, sent);
    QFETCH(QString, then);
    QFETCH(double, power);

    Slider slider = openSlider(value, 0.0, 200.0, precision);
    QSignalSpy spy(slider.widget.get(), &SliderImpl::valueChanged);
    for (const QString& key : keys) {
        if (key != QStringLiteral("drag")) {
            click(slider.widget.get(), qPrintable(key));
            continue;
        }
        Finger finger(slider.bar);
        finger.drag({{0.2, 100}, {2.0, 600}});
        QTRY_VERIFY(!moving(slider.bar));
    }
    if (!keys.contains(QStringLiteral("drag"))) // each + and - sends once, x10 and /10 nothing
        QCOMPARE(spy.count(), keys.filter(QStringLiteral("step")).size());
    QVERIFY(!spy.isEmpty());
    QCOMPARE(spy.last().at(0).toString(), sent);
    QCOMPARE(slider.reading->text(), sent);
    if (!then.isEmpty())
        slider.widget->setValue(then, QStringLiteral("Hz"));
    QCOMPARE(slider.widget->getPower(), power);
}

void TestSlider::markedDigit_data()
{
    QTest::addColumn<double>("power");
    QTest::addColumn<QString>("marked"); // in 12.34

    QTest::newRow("units") << 0.0 << "12";
    QTest::newRow("tens") << 1.0 << "1";
    QTest::newRow("tenths") << -1.0 << "12.3";
    QTest::newRow("hundredths") << -2.0 << "2.34";
    QTest::newRow("left of the text marks nothing") << 3.0 << "";
    QTest::newRow("right of the text marks its end") << -6.0 << ".34";
}

void TestSlider::markedDigit()
{
    QFETCH(double, power);
    QFETCH(QString, marked);

    Slider slider = openSlider(QStringLiteral("12.34"), -1000.0, 1000.0, 2);
    slider.widget->setPower(power);
    slider.widget->updateCursorPosition();
    QCOMPARE(slider.reading->selectedText(), marked);
    QCOMPARE(slider.widget->getPower(), power); // the read-out never resets the step
}

// On a landscape screen the read-out is touched before it is marked; on an
// opaque one the panel hides what lies behind it.
void TestSlider::landscapeAndOpaqueVariants()
{
    qApp->setProperty("-size", QStringLiteral("landscape"));
    qApp->setProperty("-notransparency", QStringLiteral("true"));
    Slider slider = openSlider(QStringLiteral("12.34"), -1000.0, 1000.0, 2);
    qApp->setProperty("-size", QVariant());
    qApp->setProperty("-notransparency", QVariant());
    slider.widget->setPower(-1.0);
    slider.widget->updateCursorPosition();
    QCOMPARE(slider.reading->selectedText(), QStringLiteral("12.3"));

    const QImage picture = TestSupport::savePng(slider.widget.get(), QStringLiteral("slider_single_notransparency"));
    QCOMPARE(picture.pixel(slider.widget->width() - 30, 100), qRgb(0, 0, 0));
}

void TestSlider::labelWindow_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("precision");
    QTest::addColumn<double>("power");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");

    QTest::newRow("1234 by tens shows 123") << "1234" << 0 << 1.0 << 0 << 3;
    QTest::newRow("1234 by units shows 234") << "1234" << 0 << 0.0 << 1 << 4;
    QTest::newRow("a short value keeps its first digit") << "5" << 0 << 2.0 << 0 << 1;
    QTest::newRow("tenths take the point along") << "12.345" << 3 << -1.0 << 0 << 4;
    QTest::newRow("hundredths") << "12.345" << 3 << -2.0 << 1 << 5;
    QTest::newRow("thousandths") << "12.345" << 3 << -3.0 << 3 << 6;
    QTest::newRow("units before the point") << "12.345" << 3 << 0.0 << -1 << 2;
}

void TestSlider::labelWindow()
{
    QFETCH(QString, text);
    QFETCH(int, precision);
    QFETCH(double, power);
    QFETCH(int, start);
    QFETCH(int, end);

    SliderBarImpl bar(nullptr, 0.0, -1e6, 1e6, precision);
    bar.setStepExponent(power);
    int gotStart = -99, gotEnd = -99;
    bar.getBound(text, gotStart, gotEnd);
    QCOMPARE(gotStart, start);
    QCOMPARE(gotEnd, end);
}

void TestSlider::doubleSliderBarsFollowEachOther_data()
{
    QTest::addColumn<QString>("dragged");
    QTest::addColumn<QString>("follower");
    QTest::addColumn<double>("rest");
    QTest::newRow("coarse ruler") << "topSliderBar" << "btmSliderBar" << 10.5;
    QTest::newRow("fine ruler") << "btmSliderBar" << "topSliderBar" << 12.3;
}

void TestSlider::doubleSliderBarsFollowEachOther()
{
    QFETCH(QString, dragged);
    QFETCH(QString, follower);
    QFETCH(double, rest);

    const auto slider = openDouble(QStringLiteral("12.5"), 100.0, 1);
    auto* bar = slider->findChild<SliderBarImpl*>(dragged);
    auto* other = slider->findChild<SliderBarImpl*>(follower);
    // Values from outside leave each ruler on its own digit.
    QCOMPARE(slider->findChild<SliderBarImpl*>(QStringLiteral("btmSliderBar"))->stepDigit().exponent(), -1.0);
    QCOMPARE(slider->findChild<SliderBarImpl*>(QStringLiteral("topSliderBar"))->stepDigit().exponent(), 0.0);

    QSignalSpy barSent(bar, &SliderBarImpl::valueChanged);
    QSignalSpy sent(slider.get(), &SliderImpl::valueChanged);
    Finger finger(bar);
    finger.drag({{0.2, 100}, {2.0, 600}});
    QTRY_VERIFY(!moving(bar));
    QCOMPARE(sent.count(), barSent.count());
    QCOMPARE(values(sent).last(), rest);
    QCOMPARE(other->currentValue(), rest);

    // clear() blanks the read-out only: the rulers stay, and nothing is sent.
    auto* readOut = slider->findChild<SliderIndicatorImpl*>();
    QVERIFY(showsDigits(readOut));
    const int count = sent.count();
    slider->clear();
    QVERIFY(!showsDigits(readOut));
    QCOMPARE(sent.count(), count);
    QCOMPARE(bar->currentValue(), rest);
    QCOMPARE(other->currentValue(), rest);
}

void TestSlider::pictures()
{
    Slider single = openSlider(QStringLiteral("12.34"), 0.0, 14.5, 2);
    QVERIFY(!TestSupport::savePng(single.widget.get(), QStringLiteral("slider_single")).isNull());
    // By tenths near the lower limit: the ruler shades what lies below it.
    Slider fine = openSlider(QStringLiteral("0.34"), 0.0, 14.5, 2);
    click(fine.widget.get(), "decStep");
    QVERIFY(!TestSupport::savePng(fine.widget.get(), QStringLiteral("slider_single_tenths")).isNull());

    // The double slider's markers are read from the working directory.
    QTemporaryDir directory;
    QVERIFY(directory.isValid() && QDir(directory.path()).mkdir(QStringLiteral("images")));
    for (bool pointsDown : {true, false}) {
        QImage image(24, 14, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::white);
        painter.drawPolygon(pointsDown ? QPolygon({{0, 0}, {24, 0}, {12, 14}})
                                       : QPolygon({{0, 14}, {24, 14}, {12, 0}}));
        painter.end();
        image.save(directory.filePath(pointsDown ? "images/inverted_triangle.png" : "images/triangle.png"));
    }
    const QString home = QDir::currentPath();
    QDir::setCurrent(directory.path());
    const auto two = openDouble(QStringLiteral("12.34"), 14.5, 2);
    QVERIFY(!TestSupport::savePng(two.get(), QStringLiteral("slider_double")).isNull());
    QDir::setCurrent(home);
}

QTEST_MAIN(TestSlider)
#include "tst_slider.moc"
