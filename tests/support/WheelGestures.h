#ifndef WHEELGESTURES_H
#define WHEELGESTURES_H

#include <QEvent>
#include <QMetaType>
#include <QPoint>
#include <QVector>

class QFrame;
class SpinWheelImpl;

//! A finger on the dial: its angle in radians and the milliseconds since the press.
struct Touch
{
    double radians;
    qint64 milliseconds;
};
using Path = QVector<Touch>;
Q_DECLARE_METATYPE(Path)

namespace WheelGestures {

//! \a count touches from \a start, each \a delta further and \a interval later than the one before.
Path steady(double start, double delta, int interval, int count, qint64 from = 0);
//! \a path followed by \a count more touches from where it ended.
Path then(Path path, double delta, int interval, int count);

QFrame* dialOf(SpinWheelImpl& wheel);
//! The point of the wheel at \a radians on a circle of \a reach about the dial's centre.
QPoint onDial(SpinWheelImpl& wheel, double radians, double reach = 90.0);
//! A mouse event of \a type at \a at, in the wheel's coordinates.
void send(SpinWheelImpl& wheel, QEvent::Type type, const QPoint& at);
//! Runs the finger along \a path, the wheel's clock reading the path's times.
void turn(SpinWheelImpl& wheel, const Path& path, bool lift = true);

} // namespace WheelGestures

#endif // WHEELGESTURES_H
