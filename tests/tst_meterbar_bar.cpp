#include "MeterBar_Bar.h"
#include "MeterBar_HorizontalScale.h"
#include "MeterBar_Scale.h"
#include "QRVUtil.h"
#include "TestSupport.h"

#include <QSignalSpy>
#include <QtTest>

#include <atomic>
#include <limits>
#include <memory>
#include <thread>

class TestMeterBarBar : public QObject
{
    Q_OBJECT

private slots:
    void fillAndColourFollowReading_data();
    void fillAndColourFollowReading();
    void limitThatOnlyChangesSignIsNotTaken();
    void oddLimitsStillGiveAPicture_data();
    void oddLimitsStillGiveAPicture();
    void readingsFromAnotherThread();
    void scaleText_data();
    void scaleText();
    void scaleKeepsToItsRoom();
};

namespace {

enum Colour { None, Green, Red, Blue, Yellow, Grey, Other };

QStringList* s_log = nullptr;
void collect(QtMsgType, const QMessageLogContext&, const QString& message) { s_log->append(message); }

// The bar over a black panel, where its unfilled part stays black.
std::unique_ptr<MeterBar_Bar> makeBar(bool horizontal)
{
    auto bar = std::make_unique<MeterBar_Bar>();
    QPalette palette = bar->palette();
    palette.setColor(QPalette::Window, Qt::black);
    bar->setPalette(palette);
    bar->setAutoFillBackground(true);
    bar->resize(horizontal ? QSize(200, 40) : QSize(40, 200));
    // A bar learns its size from the resize event, as on a screen.
    bar->show();
    bar->setHorizontal(horizontal);
    return bar;
}

const char* orientation(bool horizontal) { return horizontal ? "horizontal" : "vertical"; }

Colour colourOf(QRgb p)
{
    const QColor c(p);
    if (c.value() <= 60)
        return None;
    if (c.hsvSaturation() < 60)
        return Grey;
    const int hue = c.hue();
    return hue < 20 || hue > 340 ? Red : hue < 70 ? Yellow : hue < 170 ? Green : hue < 260 ? Blue : Other;
}

// The painted stretch along the middle line, as fractions of the length
// from the top or the left, leaving out the two pixels at either end where
// the base lines are; {-1, -1} when nothing is painted.
QPair<double, double> paintedStretch(const QImage& image, bool horizontal)
{
    const int length = horizontal ? image.width() : image.height();
    int first = -1, last = -1;
    for (int i = 2; i < length - 2; ++i) {
        if (colourOf(horizontal ? image.pixel(i, image.height() / 2) : image.pixel(image.width() / 2, i)) != None) {
            first = first < 0 ? i : first;
            last = i;
        }
    }
    return first < 0 ? qMakePair(-1.0, -1.0) : qMakePair(double(first) / length, double(last + 1) / length);
}

} // namespace

Q_DECLARE_METATYPE(Colour)

void TestMeterBarBar::fillAndColourFollowReading_data()
{
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<QList<double>>("readingLowerUpper");
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<double>("from"); // The painted stretch; equal ends mean empty.
    QTest::addColumn<double>("to");
    QTest::addColumn<Colour>("colour");
    struct Row
    {
        QByteArray name;
        QList<double> values;
        int state;
        const char* unit;
        double vFrom, vTo, hFrom, hTo;
        Colour colour;
    };
    QVector<Row> rows = {
        {"zero reading shows nothing", {0, 0, 100}, 0, "V", 0, 0, 0, 0, None},
        {"half", {50, 0, 100}, 0, "V", 0.5, 1, 0, 0.5, Green},
        {"over the range is full", {150, 0, 100}, 0, "V", 0, 1, 0, 1, Green},
        {"state 2 is full whatever the reading", {10, 0, 100}, 2, "V", 0, 1, 0, 1, Red},
        {"state 6 keeps the geometry of a reading", {30, 0, 100}, 6, "V", 0.7, 1, 0, 0.3, Grey},
        {"fractional limits fill just under half", {0.7, 0, 1.5}, 0, "V", 8.0 / 15, 1, 0, 7.0 / 15, Green},
        {"limits beyond 1e9 scale the reading too", {2.5e9, 0, 1e10}, 0, "V", 0.75, 1, 0, 0.25, Green},
        {"-90 dB of -100 to 0", {-90, -100, 0}, 0, "dB", 0.9, 1, 0, 0.1, Green},
        {"-90 DB counts as dB", {-90, -100, 0}, 0, "DB", 0.9, 1, 0, 0.1, Green},
        {"-90 Db counts as dB", {-90, -100, 0}, 0, "Db", 0.9, 1, 0, 0.1, Green},
        {"-90 V hangs from the upper limit", {-90, -100, 0}, 0, "V", 0, 0.9, 0.1, 1, Green},
        {"across zero, below zero", {-50, -100, 100}, 0, "V", 0.5, 0.75, 0.25, 0.5, Green},
        {"across zero, under the range", {-150, -100, 100}, 0, "V", 0.5, 1, 0, 0.5, Green},
    };
    // Across zero every state fills part of the bar; state 3, pinned to the
    // lower end, shows nothing on a bar that starts at zero.
    const Colour colours[] = {Green, Red, Red, Blue, Grey, Yellow, Grey, Grey, Grey};
    for (int state = 0; state <= 8; ++state) {
        const QByteArray name = "state " + QByteArray::number(state) + " across zero";
        if (state == 2)
            rows.append({name, {50, -100, 100}, state, "V", 0, 0.5, 0.5, 1, Red});
        else if (state == 3)
            rows.append({name, {50, -100, 100}, state, "V", 0.5, 1, 0, 0.5, Blue});
        else
            rows.append({name, {50, -100, 100}, state, "V", 0.25, 0.5, 0.5, 0.75, colours[state]});
    }
    for (bool h : {false, true})
        for (const Row& row : qAsConst(rows))
            QTest::addRow("%s %s", orientation(h), row.name.constData())
                << h << row.values << row.state << QString::fromLatin1(row.unit) << (h ? row.hFrom : row.vFrom)
                << (h ? row.hTo : row.vTo) << row.colour;
}

void TestMeterBarBar::fillAndColourFollowReading()
{
    QFETCH(bool, horizontal);
    QFETCH(QList<double>, readingLowerUpper);
    QFETCH(int, state);
    QFETCH(QString, unit);
    QFETCH(double, from);
    QFETCH(double, to);
    QFETCH(Colour, colour);
    auto bar = makeBar(horizontal);
    bar->updateReading(readingLowerUpper[0], readingLowerUpper[1], readingLowerUpper[2], state, unit);
    const QString name = QString::fromLatin1(QTest::currentDataTag()).replace(QRegularExpression("\\W+"), "_");
    const QImage image = TestSupport::savePng(bar.get(), "meterbar_" + name);

    const auto painted = paintedStretch(image, horizontal);
    const QString found = QStringLiteral("%1..%2").arg(painted.first).arg(painted.second);
    if (from == to) {
        QVERIFY2(painted.first == -1, qPrintable(found));
        return;
    }
    QVERIFY2(qAbs(painted.first - from) <= 0.02, qPrintable(found));
    QVERIFY2(qAbs(painted.second - to) <= 0.02, qPrintable(found));
    const int middle = int((from + to) / 2 * (horizontal ? image.width() : image.height()));
    QCOMPARE(colourOf(horizontal ? image.pixel(middle, 20) : image.pixel(20, middle)), colour);
}

void TestMeterBarBar::limitThatOnlyChangesSignIsNotTaken()
{
    auto bar = makeBar(false);
    bar->updateReading(50, -100, 100);
    const QImage acrossZero = bar->grab().toImage();
    bar->updateReading(50, 100, 100);
    QCOMPARE(bar->grab().toImage(), acrossZero);
    bar->updateReading(50, 0, 100);
    QVERIFY(bar->grab().toImage() != acrossZero);
}

void TestMeterBarBar::oddLimitsStillGiveAPicture_data()
{
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<QList<double>>("readingLowerUpper");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<bool>("reported");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    struct Row
    {
        const char* name;
        QList<double> values;
        const char* unit;
        bool reported;
    };
    const Row rows[] = {
        {"equal limits", {50, 50, 50}, "V", false},
        {"lower above upper, both positive", {75, 100, 50}, "V", false},
        {"lower above upper, upper zero", {5, 10, 0}, "V", true},
        {"tiny limits that round to zero", {1e-301, 1e-300, 3e-300}, "V", true},
        {"NaN reading", {nan, 0, 100}, "V", false},
        {"NaN reading in dB", {nan, -100, 0}, "dB", false},
        {"NaN lower limit with a new upper one", {5, nan, 50}, "V", false},
        {"infinite limits", {-inf, -inf, inf}, "V", false},
        {"infinite reading", {inf, 0, 100}, "V", false},
        {"huge reading in dB", {-1e300, -100, 0}, "dB", false},
        {"huge limits", {1, -1e300, 1e300}, "V", false},
        {"limits beyond the rescale steps", {1, 0, 1.2345678901234e25}, "V", false},
    };
    for (bool h : {false, true})
        for (const Row& row : rows)
            QTest::addRow("%s %s", orientation(h), row.name) << h << row.values << QString::fromLatin1(row.unit)
                                                             << row.reported;
}

// Neither a crash, nor a hang, nor a missing picture.
void TestMeterBarBar::oddLimitsStillGiveAPicture()
{
    QFETCH(bool, horizontal);
    QFETCH(QList<double>, readingLowerUpper);
    QFETCH(QString, unit);
    QFETCH(bool, reported);
    auto bar = makeBar(horizontal);
    QStringList log;
    s_log = &log;
    const QtMessageHandler previous = qInstallMessageHandler(collect);
    bar->updateReading(readingLowerUpper[0], readingLowerUpper[1], readingLowerUpper[2], 0, unit);
    // The same limits again keep the window of the first reading; state 3 pins the bar.
    bar->updateReading(readingLowerUpper[0] / 2, readingLowerUpper[1], readingLowerUpper[2], 3, unit);
    qInstallMessageHandler(previous);
    QCOMPARE(bar->grab().toImage().size(), bar->size());
    QCOMPARE(log.filter(QStringLiteral("UserInterface - ERROR: Meter unexpected limits")).size(), reported ? 2 : 0);
}

void TestMeterBarBar::readingsFromAnotherThread()
{
    auto bar = makeBar(false);
    bar->show();
    QVERIFY(QTest::qWaitForWindowExposed(bar.get()));
    // As the meter connects it: the feeding thread waits until the GUI thread took the request.
    connect(bar.get(), &MeterBar_Bar::redraw, bar.get(), QOverload<>::of(&QWidget::update),
            Qt::BlockingQueuedConnection);
    std::atomic<int> redraws{0};
    connect(bar.get(), &MeterBar_Bar::redraw, bar.get(), [&redraws] { ++redraws; }, Qt::DirectConnection);

    std::atomic<bool> done{false};
    std::thread feeder([&] {
        for (int i = 0; i < 300; ++i)
            bar->updateReading(i % 101, 0, 100, i % 3 == 0 ? 5 : 0, QStringLiteral("V"));
        done = true;
    });
    bool sizesKept = true;
    while (!done) {
        QCoreApplication::processEvents();
        bar->repaint();
        sizesKept = sizesKept && bar->grab().toImage().size() == bar->size();
    }
    feeder.join();
    QVERIFY(sizesKept);
    QCOMPARE(redraws.load(), 300);

    // The last reading, 97 in the normal state, is what shows.
    const QImage last = TestSupport::savePng(bar.get(), QStringLiteral("meterbar_from_thread"));
    QVERIFY(qAbs(paintedStretch(last, false).first - 0.03) <= 0.02);
    QCOMPARE(colourOf(last.pixel(20, 100)), Green);
}

void TestMeterBarBar::scaleText_data()
{
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<int>("firstMargin");
    QTest::addColumn<int>("laterMargin");
    QTest::newRow("vertical") << false << 45 << 45;
    QTest::newRow("horizontal") << true << 15 << 18;
}

void TestMeterBarBar::scaleText()
{
    QFETCH(bool, horizontal);
    QFETCH(int, firstMargin);
    QFETCH(int, laterMargin);
    QWidget meter;
    MeterBar_ScaleBase* scale = horizontal ? static_cast<MeterBar_ScaleBase*>(new MeterBar_HorizontalScale("100 V", &meter))
                                           : new MeterBar_Scale("100 V", &meter);
    QCOMPARE(scale->objectName(), QStringLiteral("MetBar_Scale"));
    const QFontMetrics metrics = scale->fontMetrics();
    QCOMPARE(scale->width(), metrics.horizontalAdvance("100 V") + firstMargin);

    const QString raw = QStringLiteral("  -20 dBm\\nupper limit ");
    scale->setText(raw);
    QCOMPARE(scale->text(), QStringLiteral("-20 dBm\nupper limit"));
    QCOMPARE(scale->width(), QRVUtil::calculateStringWidth(metrics, raw) + laterMargin);
    QCOMPARE(QRVUtil::calculateStringWidth(metrics, scale->text()), metrics.horizontalAdvance("upper limit"));
    // The same text again, however padded, is not laid out again.
    scale->setFixedWidth(7);
    scale->setText(QStringLiteral("-20 dBm\\nupper limit"));
    QCOMPARE(scale->width(), 7);

    std::thread other([scale] { scale->setTextNonGuiThread(QStringLiteral(" 42 ")); });
    other.join();
    QCOMPARE(scale->text(), QStringLiteral("-20 dBm\nupper limit")); // queued to the GUI thread
    QTRY_COMPARE(scale->text(), QStringLiteral("42"));

    scale->setGeometry(12, 40, scale->width(), 31);
    if (auto* h = qobject_cast<MeterBar_HorizontalScale*>(scale))
        h->updateHPos(150);
    else
        static_cast<MeterBar_Scale*>(scale)->updateVPos(100);
    QCOMPARE(scale->pos(), horizontal ? QPoint(150 - scale->width() / 2, 40) : QPoint(12, 100 - 15));
    // On a dark panel, as in the meter, where the light dash shows.
    scale->setStyleSheet(QStringLiteral("background: #1c2530; color: white;"));
    TestSupport::savePng(scale, QStringLiteral("meterbar_%1scale").arg(horizontal ? "horizontal" : ""));
}

void TestMeterBarBar::scaleKeepsToItsRoom()
{
    QWidget meter;
    meter.setStyleSheet(QStringLiteral("QWidget { background: #1c2530; } QLabel#MetBar_Scale { color: #fff;"
                                       " border: 4px solid #4a90c8; border-radius: 14px; margin: 0px 0px 0px 14px;"
                                       " padding: 0px 0px 0px 10px; }"));
    meter.resize(200, 120);
    auto* scale = new MeterBar_Scale(QStringLiteral("10 KHz"), &meter);
    meter.show();
    QVERIFY(QTest::qWaitForWindowExposed(&meter));
    QSignalSpy widthChanges(scale, &MeterBar_ScaleBase::textWidthChanged);
    scale->setText(QStringLiteral(" -80.0 dBm"));
    QCOMPARE(widthChanges.count(), 1);
    const int wanted = scale->width();
    QVERIFY(scale->wholeTextWidth() <= wanted);

    // Short room: no wider than the room, however long the text.
    scale->setRoom(70);
    QCOMPARE(scale->width(), 70);
    scale->setText(QStringLiteral(" -100.0 dBm"));
    QCOMPARE(widthChanges.count(), 2);
    QCOMPARE(scale->width(), 70);
    QVERIFY(scale->wholeTextWidth() > scale->width());
    QCOMPARE(scale->text(), QStringLiteral("-100.0 dBm"));
    scale->move(10, 10);
    TestSupport::savePng(&meter, QStringLiteral("meterbar_scale_elided"));

    // Room to spare: the width the text asks for.
    scale->setRoom(500);
    QVERIFY(scale->width() > 70);
    QVERIFY(scale->width() < 500);
    scale->setRoom(-1);
    QCOMPARE(scale->width(), QRVUtil::calculateStringWidth(scale->fontMetrics(), QStringLiteral(" -100.0 dBm")) + 45);
    scale->setText(QStringLiteral("-100.0 dBm"));
    QCOMPARE(widthChanges.count(), 2);
}

QTEST_MAIN(TestMeterBarBar)
#include "tst_meterbar_bar.moc"
