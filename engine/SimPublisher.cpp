#include "SimPublisher.h"

#include "DDS_ParticipantHolder.h"

#include <fastdds/dds/domain/DomainParticipant.hpp>
#include <fastdds/dds/publisher/DataWriter.hpp>
#include <fastdds/dds/publisher/Publisher.hpp>

#include <iostream>

using namespace eprosima::fastdds::dds;

namespace {

DomainParticipant* participant()
{
    return Brenmoor::DDS_ParticipantHolder::instance()->participant();
}

} // namespace

SimPublisher::SimPublisher()
{
    if (DomainParticipant* owner = participant())
        m_publisher = owner->create_publisher(PUBLISHER_QOS_DEFAULT);
    if (!m_publisher)
        std::cerr << "SimEngine: cannot create a DDS publisher; values are served but not published" << std::endl;
}

SimPublisher::~SimPublisher()
{
    for (const Entry& entry : m_entries) {
        m_publisher->delete_datawriter(entry.writer);
        Brenmoor::DDS_ParticipantHolder::instance()->releaseTopic(entry.topic);
    }
    if (m_publisher)
        participant()->delete_publisher(m_publisher);
}

DataWriter* SimPublisher::createWriter(const std::string& topicName, TypeSupport type)
{
    if (!m_publisher)
        return nullptr;
    Topic* topic = Brenmoor::DDS_ParticipantHolder::instance()->acquireTopic(topicName, type);
    DataWriter* writer = topic ? m_publisher->create_datawriter(topic, Brenmoor::DDS_ParticipantHolder::writerQos()) : nullptr;
    if (!writer) {
        std::cerr << "SimEngine: cannot create a writer for topic \"" << topicName << "\"" << std::endl;
        Brenmoor::DDS_ParticipantHolder::instance()->releaseTopic(topic);
        return nullptr;
    }
    m_entries.push_back({topic, writer});
    return writer;
}
