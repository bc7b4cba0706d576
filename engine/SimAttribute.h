#ifndef SIMATTRIBUTE_H
#define SIMATTRIBUTE_H

#include "SimAttributeSetup.h"
#include "SimAttributeState.h"
#include "SimFailure.h"
#include "SimSimulator.h"
#include "SimTopicWriter.h"

#include <Brenmoor.hh>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>

class SimPublisher;

/*!
  One simulated engine attribute: its value with units, limits and
  enumerator list, its lock, and the faults a test has asked for. It answers
  its servant's calls (on ORB threads) and the engine's control calls (on
  any other), each under the attribute's mutex, and publishes every change
  on its topics through the engine's sample queue.
*/
class SimAttribute
{
public:
    //! Throws std::invalid_argument when the value or simulation does not suit the kind.
    SimAttribute(const SimAttributeSetup& setup, SimPublisher& publisher, SimSampleQueue& queue);
    SimAttribute(const SimAttribute&) = delete;
    SimAttribute& operator=(const SimAttribute&) = delete;

    //! Topic names: "rv/attr/<name>" for the value, with "/lock", "/params", "/limits" after it.
    static std::string valueTopicOf(const std::string& name);

    const std::string& name() const { return m_name; }
    SimKind kind() const { return m_kind; }
    std::string topic() const { return valueTopicOf(m_name); }
    std::string lockTopic() const { return topic() + "/lock"; }
    std::string paramsTopic() const { return topic() + "/params"; }
    std::string limitsTopic() const { return topic() + "/limits"; }

    //! The value, limits or enumerator list in the interface's record; Record as in SimRecords.
    template <class Record>
    Record record() const;

    bool isWritableBy(const Brenmoor::LockerID& locker) const;
    /*!
      A client's set(): counted and remembered, then delayed or failed if so
      asked, refused when locked by another or out of limits, else applied
      and published. Throws the engine's exceptions.
    */
    void receiveSet(const Brenmoor::LockerID& locker, const SimValue& value);

    SimValue value() const;
    //! Changes the value as the engine would, whatever the limits and locks.
    void apply(const SimValue& value);
    void setEnumEntries(const std::vector<SimEnumEntry>& entries);
    void setLimits(const SimLimits& limits);
    void lock(const Brenmoor::LockerID& owner);
    void unlock();
    void failNextSet(unsigned count, const SimFailure& failure);
    void hangNextSet(unsigned count, std::chrono::milliseconds delay);

    unsigned setCount() const;
    std::optional<SimValue> lastSetValue() const;
    std::optional<Brenmoor::LockerID> lastLocker() const;

    void advanceSimulation(SimSimulator::Clock::time_point now);
    //! Ends publishing and wakes a hung set(); the engine is going away.
    void close();

private:
    void checkSettable() const;
    void checkAccepts(const SimValue& value) const;
    void checkInRange(const SimValue& value) const;
    bool writableBy(const Brenmoor::LockerID& locker) const;
    void delaySetIfAsked(std::unique_lock<std::mutex>& guard);
    void failSetIfAsked();
    //! A text the scenario names as refused is turned away as a bad parameter.
    void checkNotRefused(const SimValue& value) const;
    void applyLocked(const SimValue& value);
    void reshapeLocked(const std::vector<SimEnumEntry>& entries);
    void publishValueLocked();
    void publishSignalLocked(SimTopicWriter& writer);

    const std::string m_name;
    const SimKind m_kind;

    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    SimAttributeState m_state;
    const std::vector<SimEnumEntry> m_setupEntries;
    const std::vector<std::string> m_refusedTexts;
    SimSimulator m_simulator;
    std::optional<Brenmoor::LockerID> m_owner;
    unsigned m_failuresLeft = 0;
    SimFailure m_failure;
    unsigned m_hangsLeft = 0;
    std::chrono::milliseconds m_hang{0};
    unsigned m_setCount = 0;
    std::optional<SimValue> m_lastSetValue;
    std::optional<Brenmoor::LockerID> m_lastLocker;
    bool m_closed = false;

    SimTopicWriter m_valueWriter;
    SimTopicWriter m_lockWriter;
    SimTopicWriter m_paramsWriter;
    SimTopicWriter m_limitsWriter;
};

#endif // SIMATTRIBUTE_H
