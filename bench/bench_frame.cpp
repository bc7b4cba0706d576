// What the widget frame costs the interface thread: building a frame, a
// touch that takes and gives back the entry mechanism, and a lock event
// that shows and hides the overlay. Prints p50 and p99 in microseconds.
#include "GlobalImpl.h"
#include "WidgetBaseImpl.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

void report(const char* what, int rounds, const std::function<void()>& step)
{
    std::vector<qint64> samples;
    samples.reserve(rounds);
    QElapsedTimer timer;
    for (int i = 0; i < rounds; ++i) {
        timer.start();
        step();
        samples.push_back(timer.nsecsElapsed());
    }
    std::sort(samples.begin(), samples.end());
    std::printf("%-28s p50 %8.1f us   p99 %8.1f us   (%d rounds)\n", what,
                samples[samples.size() / 2] / 1000.0, samples[samples.size() * 99 / 100] / 1000.0, rounds);
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    QWidget screen;
    screen.resize(800, 480);
    screen.show();

    report("construct + destroy frame", 2000, [&] { delete new WidgetBaseImpl(&screen); });

    WidgetBaseImpl frame(&screen);
    frame.setGeometry(10, 10, 200, 60);
    frame.show();
    QObject::connect(&frame, &WidgetBaseImpl::DisplayEntryMechanism, &frame, &WidgetBaseImpl::releaseLock);
    report("touch: take + give back lock", 5000, [&] {
        QMouseEvent release(QEvent::MouseButtonRelease, QPointF(20, 20), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&frame, &release);
    });
    report("lock event: overlay on + off", 2000, [&] {
        frame.setWidgetLocked(true);
        frame.setWidgetLocked(false);
    });
    return 0;
}
