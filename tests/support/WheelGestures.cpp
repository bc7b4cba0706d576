#include "WheelGestures.h"

#include "SpinWheelImpl.h"

#include <QApplication>
#include <QFrame>
#include <QMouseEvent>

#include <cmath>

namespace WheelGestures {

Path steady(double start, double delta, int interval, int count, qint64 from)
{
    Path path;
    for (int i = 0; i < count; ++i)
        path << Touch{start + delta * i, from + qint64(interval) * i};
    return path;
}

Path then(Path path, double delta, int interval, int count)
{
    const Touch last = path.last();
    return path + steady(last.radians + delta, delta, interval, count, last.milliseconds + interval);
}

QFrame* dialOf(SpinWheelImpl& wheel) { return wheel.findChild<QFrame*>(QStringLiteral("SpinFrame")); }

QPoint onDial(SpinWheelImpl& wheel, double radians, double reach)
{
    const QPoint centre = dialOf(wheel)->mapTo(&wheel, QPoint(110, 110));
    return centre + QPoint(int(std::lround(std::cos(radians) * reach)), int(std::lround(std::sin(radians) * reach)));
}

void send(SpinWheelImpl& wheel, QEvent::Type type, const QPoint& at)
{
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, wheel.mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
    QApplication::sendEvent(&wheel, &event);
}

void turn(SpinWheelImpl& wheel, const Path& path, bool lift)
{
    qint64 now = 0;
    wheel.gestureClock().setSource([&now] { return now; });
    for (int i = 0; i < path.size(); ++i) {
        now = path.at(i).milliseconds;
        send(wheel, i == 0 ? QEvent::MouseButtonPress : QEvent::MouseMove, onDial(wheel, path.at(i).radians));
    }
    if (lift)
        send(wheel, QEvent::MouseButtonRelease, onDial(wheel, path.last().radians));
    wheel.gestureClock().setSource({});
}

} // namespace WheelGestures
