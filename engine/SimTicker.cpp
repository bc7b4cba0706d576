#include "SimTicker.h"

SimTicker::SimTicker(std::chrono::milliseconds period, std::function<void()> onTick)
    : m_period(period)
    , m_onTick(std::move(onTick))
    , m_thread([this] { run(); })
{
}

SimTicker::~SimTicker()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

void SimTicker::run()
{
    auto next = std::chrono::steady_clock::now() + m_period;
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_wake.wait_until(lock, next, [this] { return m_stopping; })) {
        lock.unlock();
        m_onTick();
        lock.lock();
        next += m_period;
    }
}
