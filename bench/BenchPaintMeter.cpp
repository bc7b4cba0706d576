#include "BenchPaintMeter.h"

#include <QElapsedTimer>

BenchPaintMeter::BenchPaintMeter(QEvent::Type type)
    : m_type(type)
{
}

bool BenchPaintMeter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != m_type || m_painting)
        return false;
    m_painting = true;
    QElapsedTimer timer;
    timer.start();
    watched->event(event);
    microseconds.push_back(double(timer.nsecsElapsed()) / 1000.0);
    m_painting = false;
    return true;
}
