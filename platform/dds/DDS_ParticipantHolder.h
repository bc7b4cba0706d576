#ifndef DDS_PARTICIPANTHOLDER_H
#define DDS_PARTICIPANTHOLDER_H

#include <fastdds/dds/domain/DomainParticipant.hpp>
#include <fastdds/dds/publisher/qos/DataWriterQos.hpp>
#include <fastdds/dds/subscriber/qos/DataReaderQos.hpp>
#include <fastdds/dds/topic/TypeSupport.hpp>

#include <map>
#include <mutex>
#include <string>

namespace Brenmoor {

/*!
  Owner of the process's one DDS domain participant and of the topics made
  in it.

  All traffic stays on this machine: shared memory, and UDP on 127.0.0.1
  only. The domain id comes from RV_DDS_DOMAIN (0 to 232, default 0), so
  that test programs running side by side never meet. Fast DDS creates a
  topic name only once per participant, so topics are shared between all
  readers and writers of the process and deleted with their last user.
*/
class DDS_ParticipantHolder
{
public:
    //! The process's holder, made on first use; never null.
    static DDS_ParticipantHolder* instance();

    //! Null when the participant could not be created.
    eprosima::fastdds::dds::DomainParticipant* participant() const;
    int domainId() const;

    //! The topic of that name, made on first use; null on failure. Thread-safe.
    eprosima::fastdds::dds::Topic* acquireTopic(const std::string& name, eprosima::fastdds::dds::TypeSupport& type);
    //! Gives up one use; the last deletes the topic.
    void releaseTopic(eprosima::fastdds::dds::Topic* topic);

    //! Settings every reader of the project adds to its own.
    static void keepLocal(eprosima::fastdds::dds::DataReaderQos& qos);
    /*!
      Settings of every writer of the project (the engine's). Their
      liveliness lasts one second from the last assertLiveliness().
    */
    static eprosima::fastdds::dds::DataWriterQos writerQos();
    //! Says that this process's writers are alive; a writing process calls it several times a second.
    void assertLiveliness();

    static int domainIdFromEnvironment();

    /*!
      Removes the shared-memory files that processes which ended without an
      orderly shutdown (killed, crashed) left behind, with Fast DDS's own
      cleaner ("fastdds shm clean"), waiting for it at most a few seconds.
      For the start of a program, before its participant exists.
    */
    static void removeSegmentsOfDeadProcesses();

private:
    DDS_ParticipantHolder();
    ~DDS_ParticipantHolder();

    struct SharedTopic
    {
        eprosima::fastdds::dds::Topic* topic = nullptr;
        int users = 0;
    };

    int m_domainId = 0;
    eprosima::fastdds::dds::DomainParticipant* m_participant = nullptr;
    std::mutex m_topicsMutex;
    std::map<std::string, SharedTopic> m_topics;
};

} // namespace Brenmoor

#endif // DDS_PARTICIPANTHOLDER_H
