#ifndef DDS_DELIVERYTHROTTLE_H
#define DDS_DELIVERYTHROTTLE_H

#include <chrono>
#include <functional>
#include <mutex>

namespace Brenmoor {

/*!
  Keeps deliveries of one subscription at least a minimum separation apart,
  since Fast DDS ignores the reader's time-based filter.

  A sample offered inside the window is kept (a newer one replaces it) and
  delivered when the window ends, from a process-wide timer thread: a screen
  never keeps showing a stale value because the last update came too soon.
  A separation of zero delivers every sample at once, on the caller's thread.
*/
class DDS_DeliveryThrottle
{
public:
    using Clock = std::chrono::steady_clock;
    using Delivery = std::function<void()>;

    explicit DDS_DeliveryThrottle(std::chrono::nanoseconds separation);
    ~DDS_DeliveryThrottle();
    DDS_DeliveryThrottle(const DDS_DeliveryThrottle&) = delete;
    DDS_DeliveryThrottle& operator=(const DDS_DeliveryThrottle&) = delete;

    //! Delivers now, or keeps \a delivery for the end of the window.
    void offer(Delivery delivery);
    //! Drops a kept delivery and waits for one that is running; later offers are ignored.
    void cancel();

    std::chrono::nanoseconds separation() const { return m_separation; }

private:
    friend class DDS_DeliveryTimer;
    //! Called by the timer thread when the window has ended.
    void deliverKept();

    const std::chrono::nanoseconds m_separation;
    std::mutex m_mutex;
    Clock::time_point m_lastDelivery;
    Delivery m_kept;
    bool m_cancelled = false;
};

} // namespace Brenmoor

#endif // DDS_DELIVERYTHROTTLE_H
