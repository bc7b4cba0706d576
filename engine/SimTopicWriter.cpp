#include "SimTopicWriter.h"

#include <fastdds/dds/publisher/DataWriter.hpp>
#include <fastdds/dds/topic/Topic.hpp>

#include <iostream>

SimTopicWriter::SimTopicWriter(eprosima::fastdds::dds::DataWriter* writer, SimSampleQueue& queue)
    : m_writer(writer)
    , m_queue(&queue)
{
}

std::int64_t SimTopicWriter::nowNs()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::system_clock::now().time_since_epoch()).count();
}

void SimTopicWriter::write(eprosima::fastdds::dds::DataWriter* writer, void* sample)
{
    // A reliable write fails when a slow reader keeps the history full; the sample is dropped.
    if (!writer->write(sample))
        std::cerr << "SimEngine: write on topic \"" << writer->get_topic()->get_name() << "\" failed" << std::endl;
}
