#ifndef SIMTICKER_H
#define SIMTICKER_H

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

//! A thread that calls its function once per period until it is destroyed.
class SimTicker
{
public:
    SimTicker(std::chrono::milliseconds period, std::function<void()> onTick);
    //! Returns once the thread has ended; a tick under way is finished first.
    ~SimTicker();
    SimTicker(const SimTicker&) = delete;
    SimTicker& operator=(const SimTicker&) = delete;

private:
    void run();

    const std::chrono::milliseconds m_period;
    const std::function<void()> m_onTick;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_stopping = false;
    std::thread m_thread;
};

#endif // SIMTICKER_H
