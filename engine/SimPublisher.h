#ifndef SIMPUBLISHER_H
#define SIMPUBLISHER_H

#include <fastdds/dds/topic/TypeSupport.hpp>

#include <string>
#include <vector>

namespace eprosima::fastdds::dds {
class DataWriter;
class Publisher;
class Topic;
}

/*!
  Owner of every DDS entity of one engine: its publisher, the writers, and
  its uses of the participant's shared topics. They are released together,
  writers before the publisher, when the engine ends.
*/
class SimPublisher
{
public:
    SimPublisher();
    ~SimPublisher();
    SimPublisher(const SimPublisher&) = delete;
    SimPublisher& operator=(const SimPublisher&) = delete;

    //! A writer on the topic of that name, with the project's writer settings; null on failure.
    eprosima::fastdds::dds::DataWriter* createWriter(const std::string& topicName,
                                                     eprosima::fastdds::dds::TypeSupport type);

private:
    struct Entry
    {
        eprosima::fastdds::dds::Topic* topic = nullptr;
        eprosima::fastdds::dds::DataWriter* writer = nullptr;
    };

    eprosima::fastdds::dds::Publisher* m_publisher = nullptr;
    std::vector<Entry> m_entries;
};

#endif // SIMPUBLISHER_H
