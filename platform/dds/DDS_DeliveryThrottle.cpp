#include "DDS_DeliveryThrottle.h"

#include <condition_variable>
#include <map>
#include <thread>

namespace Brenmoor {

/*
  One thread for the whole process runs the kept deliveries when their
  windows end. cancel() removes a throttle and waits while its delivery
  runs, so a throttle is never used after its owner is gone.
*/
class DDS_DeliveryTimer
{
public:
    static DDS_DeliveryTimer& instance()
    {
        // Never destroyed: subscriptions may be torn down during exit.
        static DDS_DeliveryTimer* timer = new DDS_DeliveryTimer;
        return *timer;
    }

    void schedule(DDS_DeliveryThrottle* throttle, DDS_DeliveryThrottle::Clock::time_point due)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_due.emplace(due, throttle);
        m_wake.notify_one();
    }

    void remove(DDS_DeliveryThrottle* throttle)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        for (auto it = m_due.begin(); it != m_due.end();)
            it = it->second == throttle ? m_due.erase(it) : std::next(it);
        m_idle.wait(lock, [&] { return m_running != throttle; });
    }

private:
    DDS_DeliveryTimer()
    {
        std::thread([this] { run(); }).detach();
    }

    void run()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        for (;;) {
            if (m_due.empty()) {
                m_wake.wait(lock);
                continue;
            }
            const auto first = m_due.begin();
            // A copy: remove() may free the node while this thread waits.
            const DDS_DeliveryThrottle::Clock::time_point due = first->first;
            if (due > DDS_DeliveryThrottle::Clock::now()) {
                m_wake.wait_until(lock, due);
                continue;
            }
            m_running = first->second;
            m_due.erase(first);
            lock.unlock();
            m_running->deliverKept();
            lock.lock();
            m_running = nullptr;
            m_idle.notify_all();
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::condition_variable m_idle;
    std::multimap<DDS_DeliveryThrottle::Clock::time_point, DDS_DeliveryThrottle*> m_due;
    DDS_DeliveryThrottle* m_running = nullptr;
};

DDS_DeliveryThrottle::DDS_DeliveryThrottle(std::chrono::nanoseconds separation)
    : m_separation(separation)
{
}

DDS_DeliveryThrottle::~DDS_DeliveryThrottle()
{
    cancel();
}

void DDS_DeliveryThrottle::offer(Delivery delivery)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_cancelled)
        return;
    const Clock::time_point now = Clock::now();
    const bool windowOver = m_separation.count() == 0 || now - m_lastDelivery >= m_separation;
    if (m_kept || !windowOver) {
        const bool scheduled = static_cast<bool>(m_kept);
        m_kept = std::move(delivery);
        if (!scheduled)
            DDS_DeliveryTimer::instance().schedule(this, m_lastDelivery + m_separation);
        return;
    }
    m_lastDelivery = now;
    lock.unlock();
    delivery();
}

void DDS_DeliveryThrottle::deliverKept()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_cancelled || !m_kept)
        return;
    Delivery delivery = std::move(m_kept);
    m_kept = nullptr;
    m_lastDelivery = Clock::now();
    lock.unlock();
    delivery();
}

void DDS_DeliveryThrottle::cancel()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_cancelled = true;
        m_kept = nullptr;
    }
    DDS_DeliveryTimer::instance().remove(this);
}

} // namespace Brenmoor
