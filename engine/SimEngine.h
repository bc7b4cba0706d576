#ifndef SIMENGINE_H
#define SIMENGINE_H

#include "SimAttributeSetup.h"
#include "SimFailure.h"
#include "SimValue.h"

#include <Brenmoor.hh>
#include <SimControl.hh>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

class SimAttribute;
class SimPublisher;
class SimSampleQueue;
class SimTicker;

/*!
  A simulated measurement engine: serves any set of attributes as real
  CORBA objects of the Brenmoor interfaces, found through an
  AttributeDirectory, and publishes every change on the attributes' DDS
  topics, as the instrument's engine does. Tests and the demo declare the
  attributes, drive them as the engine would, and provoke the failures a
  client must survive: limits, locks, exceptions, a set() that hangs.

  Topics: "rv/attr/<name>" carries the value; "rv/attr/<name>/lock",
  "/params" and "/limits" announce lock, enumerator list and limit changes.

  The objects live in a POA of the engine's own under the ORB's root POA;
  destroying the engine, which must happen before ORB_Wrapper::shutdown(),
  waits for calls under way, then deletes its DDS writers. Control calls are thread-safe. They throw std::out_of_range for
  an unknown name and std::invalid_argument for what the attribute cannot
  take (a value of another type, a lock on a reading, ...).
*/
class SimEngine
{
public:
    SimEngine();
    ~SimEngine();
    SimEngine(const SimEngine&) = delete;
    SimEngine& operator=(const SimEngine&) = delete;

    //! Declares an attribute, with its topics' writers; throws std::invalid_argument if it cannot be.
    void addAttribute(const SimAttributeSetup& setup);

    //! New references, owned by the caller.
    Brenmoor::AttributeDirectory_ptr directory() const;
    SimEngineControl::Control_ptr control() const;
    //! Nil for an unknown name.
    Brenmoor::EngineReadingBase_ptr attribute(const std::string& name) const;
    //! In the order of declaration.
    std::vector<std::string> names() const;

    SimValue value(const std::string& name) const;
    //! Changes a value as the engine would, regardless of limits and locks, and publishes it.
    void setValue(const std::string& name, const SimValue& value);
    //! Publishes on the params topic.
    void setEnumEntries(const std::string& name, const std::vector<SimEnumEntry>& entries);
    //! Publishes on the limits topic, and the value, whose record may carry the limits.
    void setLimits(const std::string& name, const SimLimits& limits);
    //! Only the owner may set until unlock(); both publish on the lock topic.
    void lock(const std::string& name, const Brenmoor::LockerID& owner);
    void unlock(const std::string& name);

    //! The next `count` set() calls raise the failure instead of setting.
    void failNextSet(const std::string& name, unsigned count, const SimFailure& failure);
    //! The next `count` set() calls answer only after the delay, then go on as usual.
    void hangNextSet(const std::string& name, unsigned count, std::chrono::milliseconds delay);
    //! Every set() received, failed ones included.
    unsigned setCount(const std::string& name) const;
    std::optional<SimValue> lastSetValue(const std::string& name) const;
    std::optional<Brenmoor::LockerID> lastLocker(const std::string& name) const;

    //! What the control interface's quit() does; by default nothing.
    void setQuitHandler(std::function<void()> handler);
    void requestQuit();

    //! How often simulations move.
    static constexpr std::chrono::milliseconds tickPeriod{100};

private:
    struct Entry
    {
        std::unique_ptr<SimAttribute> attribute;
        Brenmoor::EngineReadingBase_var reference;
    };

    SimAttribute& find(const std::string& name) const;
    CORBA::Object_ptr activate(PortableServer::ServantBase* servant);
    void tick();

    std::unique_ptr<SimPublisher> m_publisher;
    std::unique_ptr<SimSampleQueue> m_queue;
    PortableServer::POA_var m_poa;
    mutable std::mutex m_mutex;
    std::map<std::string, Entry> m_entries;
    std::vector<std::string> m_order;
    std::function<void()> m_quitHandler;
    Brenmoor::AttributeDirectory_var m_directory;
    SimEngineControl::Control_var m_control;
    std::unique_ptr<SimTicker> m_ticker;
};

#endif // SIMENGINE_H
