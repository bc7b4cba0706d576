#include "DDS_ParticipantHolder.h"

#include <fastdds/dds/domain/DomainParticipantFactory.hpp>
#include <fastdds/dds/topic/Topic.hpp>
#include <fastdds/rtps/transport/UDPv4TransportDescriptor.h>
#include <fastdds/rtps/transport/shared_mem/SharedMemTransportDescriptor.h>
#include <fastrtps/utils/IPLocator.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <thread>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

using namespace eprosima::fastdds::dds;
using eprosima::fastrtps::rtps::IPLocator;
using eprosima::fastrtps::rtps::Locator_t;

namespace Brenmoor {

namespace {

DomainParticipantQos localParticipantQos()
{
    DomainParticipantQos qos = PARTICIPANT_QOS_DEFAULT;
    qos.name("rvui");
    // The defaults bind every interface and join multicast: keep to this machine.
    qos.transport().use_builtin_transports = false;

    auto shm = std::make_shared<eprosima::fastdds::rtps::SharedMemTransportDescriptor>();
    shm->port_queue_capacity(8192);
    qos.transport().user_transports.push_back(shm);

    auto udp = std::make_shared<eprosima::fastdds::rtps::UDPv4TransportDescriptor>();
    udp->interfaceWhiteList.emplace_back("127.0.0.1");
    qos.transport().user_transports.push_back(udp);

    Locator_t loopback;
    IPLocator::setIPv4(loopback, 127, 0, 0, 1);
    qos.wire_protocol().builtin.initialPeersList.push_back(loopback);
    qos.wire_protocol().builtin.metatrafficUnicastLocatorList.push_back(loopback);
    qos.wire_protocol().default_unicast_locator_list.push_back(loopback);
    // A process that died or hangs before any of its writers said it was
    // alive is dropped within seconds, not the default twenty.
    qos.wire_protocol().builtin.discovery_config.leaseDuration = eprosima::fastrtps::Duration_t(3, 0);
    qos.wire_protocol().builtin.discovery_config.leaseDuration_announcementperiod =
        eprosima::fastrtps::Duration_t(1, 0);
    return qos;
}

} // namespace

DDS_ParticipantHolder* DDS_ParticipantHolder::instance()
{
    // Lives until the process ends: subscriptions may outlive every widget.
    static DDS_ParticipantHolder* holder = new DDS_ParticipantHolder;
    return holder;
}

DDS_ParticipantHolder::DDS_ParticipantHolder()
    : m_domainId(domainIdFromEnvironment())
{
    m_participant = DomainParticipantFactory::get_instance()->create_participant(m_domainId, localParticipantQos());
    if (!m_participant)
        std::cerr << "DDS_ParticipantHolder: cannot create the participant of domain " << m_domainId << std::endl;
}

DDS_ParticipantHolder::~DDS_ParticipantHolder() = default;

DomainParticipant* DDS_ParticipantHolder::participant() const { return m_participant; }

int DDS_ParticipantHolder::domainId() const { return m_domainId; }

int DDS_ParticipantHolder::domainIdFromEnvironment()
{
    const char* text = std::getenv("RV_DDS_DOMAIN");
    if (!text || !*text)
        return 0;
    char* end = nullptr;
    const long id = std::strtol(text, &end, 10);
    if (*end != '\0' || id < 0 || id > 232) {
        std::cerr << "DDS_ParticipantHolder: RV_DDS_DOMAIN must be 0 to 232, not \"" << text << "\"; using 0" << std::endl;
        return 0;
    }
    return static_cast<int>(id);
}

void DDS_ParticipantHolder::assertLiveliness()
{
    if (m_participant)
        m_participant->assert_liveliness();
}

void DDS_ParticipantHolder::removeSegmentsOfDeadProcesses()
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    char program[] = "fastdds";
    char verb[] = "shm";
    char action[] = "clean";
    char* arguments[] = {program, verb, action, nullptr};
    pid_t pid = 0;
    const int spawned = posix_spawnp(&pid, program, &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    if (spawned != 0) {
        std::cerr << "DDS_ParticipantHolder: no \"fastdds shm clean\"; files of dead processes stay in /dev/shm"
                  << std::endl;
        return;
    }
    // Bounded: a start never hangs on the cleaner.
    for (int waited = 0; waited < 100; ++waited) {
        if (waitpid(pid, nullptr, WNOHANG) == pid)
            return;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    ::kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
}

Topic* DDS_ParticipantHolder::acquireTopic(const std::string& name, TypeSupport& type)
{
    if (!m_participant)
        return nullptr;
    std::lock_guard<std::mutex> lock(m_topicsMutex);
    SharedTopic& shared = m_topics[name];
    if (!shared.topic) {
        if (type.register_type(m_participant) != ReturnCode_t::RETCODE_OK) {
            m_topics.erase(name);
            return nullptr;
        }
        shared.topic = m_participant->create_topic(name, type.get_type_name(), TOPIC_QOS_DEFAULT);
        if (!shared.topic) {
            m_topics.erase(name);
            return nullptr;
        }
    }
    ++shared.users;
    return shared.topic;
}

void DDS_ParticipantHolder::releaseTopic(Topic* topic)
{
    if (!topic)
        return;
    std::lock_guard<std::mutex> lock(m_topicsMutex);
    const auto it = m_topics.find(topic->get_name());
    if (it == m_topics.end() || it->second.topic != topic)
        return;
    if (--it->second.users > 0)
        return;
    m_participant->delete_topic(topic);
    m_topics.erase(it);
}

void DDS_ParticipantHolder::keepLocal(DataReaderQos& qos)
{
    // Samples written right after matching were lost with data sharing on.
    qos.data_sharing().off();
}

DataWriterQos DDS_ParticipantHolder::writerQos()
{
    DataWriterQos qos = DATAWRITER_QOS_DEFAULT;
    qos.data_sharing().off();
    qos.reliability().kind = RELIABLE_RELIABILITY_QOS;
    // The current value only, kept for readers that match later.
    qos.durability().kind = TRANSIENT_LOCAL_DURABILITY_QOS;
    qos.history().kind = KEEP_LAST_HISTORY_QOS;
    qos.history().depth = 1;
    // Readers learn within about a second that this process died or hangs.
    // Asserted by the owner of the participant at its own pace (see
    // assertLiveliness): automatic liveliness was seen to assert only with data.
    qos.liveliness().kind = MANUAL_BY_PARTICIPANT_LIVELINESS_QOS;
    qos.liveliness().lease_duration = eprosima::fastrtps::Duration_t(1, 0);
    qos.liveliness().announcement_period = eprosima::fastrtps::Duration_t(0, 250000000);
    // A late reader otherwise waits up to four seconds for its first sample.
    qos.reliable_writer_qos().times.heartbeatPeriod = eprosima::fastrtps::Duration_t(0, 100000000);
    return qos;
}

} // namespace Brenmoor
