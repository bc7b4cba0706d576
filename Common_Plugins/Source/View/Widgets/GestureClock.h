#ifndef GESTURECLOCK_H
#define GESTURECLOCK_H

#include <QtGlobal>

#include <functional>

/*!
  Milliseconds since the finger went down, by which a touch mechanism
  weighs the speed of a gesture. It reads the system's monotonic clock; a
  test gives it a clock of its own, so that a drag with known timestamps
  gives known speeds without sleeping.
*/
class GestureClock
{
public:
    //! Reads the milliseconds from \a source from now on; an empty one restores the system's clock.
    void setSource(std::function<qint64()> source);
    void start();
    //! Milliseconds since start(); 0 before it.
    int elapsed() const;

private:
    qint64 now() const;

    std::function<qint64()> m_source;
    qint64 m_start = 0;
    bool m_started = false;
};

#endif // GESTURECLOCK_H
