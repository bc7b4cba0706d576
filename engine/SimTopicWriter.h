#ifndef SIMTOPICWRITER_H
#define SIMTOPICWRITER_H

#include "SimSampleQueue.h"

#include <chrono>
#include <cstdint>
#include <utility>

namespace eprosima::fastdds::dds {
class DataWriter;
}

/*!
  The engine's side of one topic: stamps each sample's header with the next
  serial and the time, and has the sample queue write it. The DataWriter
  belongs to SimPublisher; a writer without one posts nothing. Not
  thread-safe: the attribute that owns it posts under its own mutex.
*/
class SimTopicWriter
{
public:
    SimTopicWriter() = default;
    SimTopicWriter(eprosima::fastdds::dds::DataWriter* writer, SimSampleQueue& queue);

    template <class Sample>
    void post(Sample sample)
    {
        if (!m_writer)
            return;
        sample.header().serial(++m_serial);
        sample.header().stampNs(nowNs());
        // The job holds no pointer to this object: the queue may outlive the attribute.
        m_queue->post([writer = m_writer, sample = std::move(sample)]() mutable { write(writer, &sample); });
    }

private:
    static std::int64_t nowNs();
    static void write(eprosima::fastdds::dds::DataWriter* writer, void* sample);

    eprosima::fastdds::dds::DataWriter* m_writer = nullptr;
    SimSampleQueue* m_queue = nullptr;
    std::uint64_t m_serial = 0;
};

#endif // SIMTOPICWRITER_H
