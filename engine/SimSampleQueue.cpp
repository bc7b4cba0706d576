#include "SimSampleQueue.h"

SimSampleQueue::SimSampleQueue()
    : m_thread([this] { run(); })
{
}

SimSampleQueue::~SimSampleQueue()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

void SimSampleQueue::post(std::function<void()> write)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_jobs.push_back(std::move(write));
    }
    m_wake.notify_one();
}

void SimSampleQueue::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_wake.wait(lock, [this] { return m_stopping || !m_jobs.empty(); });
        if (m_jobs.empty())
            return;
        std::function<void()> job = std::move(m_jobs.front());
        m_jobs.pop_front();
        lock.unlock();
        job();
        lock.lock();
    }
}
