// What the widget frame costs the interface thread: building a frame, a
// touch that takes and gives back the entry mechanism, and a lock event
// that shows and hides the overlay. Prints p50 and p99 in microseconds.
#include "BenchReport.h"
#include "GlobalImpl.h"
#include "WidgetBaseImpl.h"

#include <QApplication>
#include <QMouseEvent>

int main(int argc, char* argv[])
{
    benchDefaultToOffscreen();
    QApplication app(argc, argv);
    QWidget screen;
    screen.resize(800, 480);
    screen.show();

    benchReport("construct + destroy frame", 2000, [&] { delete new WidgetBaseImpl(&screen); });

    WidgetBaseImpl frame(&screen);
    frame.setGeometry(10, 10, 200, 60);
    frame.show();
    QObject::connect(&frame, &WidgetBaseImpl::DisplayEntryMechanism, &frame, &WidgetBaseImpl::releaseLock);
    benchReport("touch: take + give back lock", 5000, [&] {
        QMouseEvent release(QEvent::MouseButtonRelease, QPointF(20, 20), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&frame, &release);
    });
    benchReport("lock event: overlay on + off", 2000, [&] {
        frame.setWidgetLocked(true);
        frame.setWidgetLocked(false);
    });
    return 0;
}
