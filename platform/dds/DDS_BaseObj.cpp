#include "DDS_BaseObj.h"

#include "DDS_ParticipantHolder.h"

#include <fastdds/dds/domain/DomainParticipantFactory.hpp>

#include <condition_variable>
#include <cstdlib>
#include <deque>
#include <mutex>
#include <thread>

namespace Brenmoor {

namespace {

/*
  One thread for the whole process deletes retired DDS entity owners, in
  the order they were handed over. It is never destroyed, like the
  participant it talks to.
*/
class DisposalThread
{
public:
    static DisposalThread& instance()
    {
        static DisposalThread* thread = new DisposalThread;
        return *thread;
    }

    void dispose(DDS_BaseObj* object)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        // Past the drain at exit Fast DDS may already be gone: the process
        // ends, and the object with it.
        if (m_exiting)
            return;
        m_queue.push_back(object);
        m_wake.notify_all();
    }

    void waitUntilEmpty()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_idle.wait(lock, [this] { return m_queue.empty() && !m_deleting; });
    }

private:
    DisposalThread()
    {
        std::thread([this] { run(); }).detach();
        // The drain must run before Fast DDS's own teardown at exit, which
        // must not meet a deletion, or a set-up still under way: Fast DDS's
        // singletons are made first, so that they are destroyed after it.
        // A host may end right after binding, before any set-up made them.
        eprosima::fastdds::dds::DomainParticipantFactory::get_instance();
        std::atexit([] { instance().drainAtExit(); });
    }

    void drainAtExit()
    {
        waitUntilEmpty();
        std::lock_guard<std::mutex> lock(m_mutex);
        m_exiting = true;
    }

    void run()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        for (;;) {
            m_wake.wait(lock, [this] { return !m_queue.empty(); });
            DDS_BaseObj* object = m_queue.front();
            m_queue.pop_front();
            m_deleting = true;
            lock.unlock();
            // The set-up thread may still be using the object as a whole.
            object->waitForInitDone();
            delete object;
            lock.lock();
            m_deleting = false;
            m_idle.notify_all();
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::condition_variable m_idle;
    std::deque<DDS_BaseObj*> m_queue;
    bool m_deleting = false;
    bool m_exiting = false;
};

} // namespace

DDS_BaseObj::~DDS_BaseObj() = default;

void DDS_BaseObj::waitForInitDone() const {}

DDS_ParticipantHolder* DDS_BaseObj::DdsBase()
{
    return DDS_ParticipantHolder::instance();
}

void DDS_BaseObj::dispose(DDS_BaseObj* object)
{
    if (object)
        DisposalThread::instance().dispose(object);
}

void DDS_BaseObj::waitForDisposals()
{
    DisposalThread::instance().waitUntilEmpty();
}

void DDS_BaseObj::writersLost()
{
    if (m_writersLost && !m_retired)
        m_writersLost();
}

DDS_BaseObj::Delivery::Delivery(DDS_BaseObj& object)
    : m_object(object)
{
    // Counted before the check, so that retire() followed by delivering()
    // never misses a delivery that saw the object still live.
    ++m_object.m_deliveries;
}

DDS_BaseObj::Delivery::~Delivery()
{
    --m_object.m_deliveries;
}

} // namespace Brenmoor
