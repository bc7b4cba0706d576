#ifndef SIMSAMPLEQUEUE_H
#define SIMSAMPLEQUEUE_H

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

/*!
  The engine's one thread for DDS writes. In one process Fast DDS delivers
  to a reader's listener on the writer's thread; a widget's listener may
  wait for the interface thread, which may itself be inside a set() of this
  engine. Writing from here keeps such chains from closing into a deadlock,
  and keeps samples in the order they were queued.
*/
class SimSampleQueue
{
public:
    SimSampleQueue();
    //! Writes what is still queued, then ends the thread.
    ~SimSampleQueue();
    SimSampleQueue(const SimSampleQueue&) = delete;
    SimSampleQueue& operator=(const SimSampleQueue&) = delete;

    void post(std::function<void()> write);

private:
    void run();

    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::deque<std::function<void()>> m_jobs;
    bool m_stopping = false;
    std::thread m_thread;
};

#endif // SIMSAMPLEQUEUE_H
