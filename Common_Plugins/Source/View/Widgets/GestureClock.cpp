#include "GestureClock.h"

#include <chrono>

void GestureClock::setSource(std::function<qint64()> source) { m_source = std::move(source); }

void GestureClock::start()
{
    m_start = now();
    m_started = true;
}

int GestureClock::elapsed() const { return m_started ? int(now() - m_start) : 0; }

qint64 GestureClock::now() const
{
    if (m_source)
        return m_source();
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}
