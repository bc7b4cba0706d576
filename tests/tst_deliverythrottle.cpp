#include "DDS_DeliveryThrottle.h"

#include <QtTest>

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

using Brenmoor::DDS_DeliveryThrottle;
using namespace std::chrono_literals;

// The update delay as the library enforces it, since Fast DDS ignores the
// reader's time-based filter.
class TestDeliveryThrottle : public QObject
{
    Q_OBJECT

private slots:
    void zeroSeparationDeliversEverythingAtOnce();
    void aBurstEndsWithItsLastValue();
    void cancelDropsTheKeptValueAndLaterOffers();
    void cancelWhileTheTimerWaitsForIt();
};

namespace {
struct Recorder
{
    void add(int value)
    {
        std::lock_guard<std::mutex> lock(mutex);
        values.push_back(value);
    }
    std::vector<int> seen()
    {
        std::lock_guard<std::mutex> lock(mutex);
        return values;
    }
    std::mutex mutex;
    std::vector<int> values;
};
} // namespace

void TestDeliveryThrottle::zeroSeparationDeliversEverythingAtOnce()
{
    DDS_DeliveryThrottle throttle(0ns);
    Recorder recorder;
    for (int i = 0; i < 5; ++i)
        throttle.offer([&recorder, i] { recorder.add(i); });
    QCOMPARE(recorder.seen(), (std::vector<int>{0, 1, 2, 3, 4}));
}

void TestDeliveryThrottle::aBurstEndsWithItsLastValue()
{
    DDS_DeliveryThrottle throttle(200ms);
    Recorder recorder;
    for (int i = 1; i <= 50; ++i)
        throttle.offer([&recorder, i] { recorder.add(i); });
    // The first goes at once; the rest of the burst is one delivery at the window's end.
    QCOMPARE(recorder.seen(), std::vector<int>{1});
    QTRY_COMPARE_WITH_TIMEOUT(recorder.seen().size(), size_t(2), 2000);
    QCOMPARE(recorder.seen().back(), 50);
    QTest::qWait(300);
    QCOMPARE(recorder.seen().size(), size_t(2));
}

void TestDeliveryThrottle::cancelDropsTheKeptValueAndLaterOffers()
{
    Recorder recorder;
    {
        DDS_DeliveryThrottle throttle(100ms);
        throttle.offer([&recorder] { recorder.add(1); });
        throttle.offer([&recorder] { recorder.add(2); });
        throttle.cancel();
        throttle.offer([&recorder] { recorder.add(3); });
    }
    QTest::qWait(250);
    QCOMPARE(recorder.seen(), std::vector<int>{1});
}

void TestDeliveryThrottle::cancelWhileTheTimerWaitsForIt()
{
    // The timer thread waits for the earliest window's end; cancelling that
    // throttle frees its entry, and the next schedule wakes the timer, which
    // must not read the freed entry (caught by the sanitised build).
    Recorder recorder;
    auto waiting = std::make_unique<DDS_DeliveryThrottle>(10s);
    waiting->offer([&recorder] { recorder.add(1); });
    waiting->offer([&recorder] { recorder.add(2); });
    QTest::qWait(50);
    waiting.reset();

    DDS_DeliveryThrottle next(50ms);
    next.offer([&recorder] { recorder.add(3); });
    next.offer([&recorder] { recorder.add(4); });
    QTRY_COMPARE_WITH_TIMEOUT(recorder.seen(), (std::vector<int>{1, 3, 4}), 2000);
}

QTEST_MAIN(TestDeliveryThrottle)
#include "tst_deliverythrottle.moc"
