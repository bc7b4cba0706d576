#include "SimEngine.h"

#include "DDS_ParticipantHolder.h"
#include <fastdds/dds/domain/DomainParticipant.hpp>

#include "ORB_Wrapper.h"
#include "SimAttribute.h"
#include "SimAttributeServant.h"
#include "SimControlServant.h"
#include "SimDirectoryServant.h"
#include "SimPublisher.h"
#include "SimSampleQueue.h"
#include "SimTicker.h"

#include <atomic>
#include <iostream>
#include <stdexcept>

namespace {

// Each engine gets a POA of its own, so that its end can wait for the calls under way.
PortableServer::POA_ptr createEnginePoa()
{
    static std::atomic<int> s_engines{0};
    PortableServer::POA_var root = ORB_Wrapper::rootPoa();
    PortableServer::POAManager_var manager = root->the_POAManager();
    const std::string name = "SimEngine" + std::to_string(++s_engines);
    return root->create_POA(name.c_str(), manager, CORBA::PolicyList());
}

} // namespace

SimEngine::SimEngine()
    : m_publisher(std::make_unique<SimPublisher>())
    , m_queue(std::make_unique<SimSampleQueue>())
    , m_poa(createEnginePoa())
{
    CORBA::Object_var directory = activate(new SimDirectoryServant(*this));
    m_directory = Brenmoor::AttributeDirectory::_narrow(directory);
    CORBA::Object_var control = activate(new SimControlServant(*this));
    m_control = SimEngineControl::Control::_narrow(control);
    m_ticker = std::make_unique<SimTicker>(tickPeriod, [this] { tick(); });
}

SimEngine::~SimEngine()
{
    m_ticker.reset();
    for (auto& entry : m_entries)
        entry.second.attribute->close();
    // Waits for calls under way (a delayed set() has just been woken), then releases every servant.
    try {
        m_poa->destroy(false, true);
    } catch (const CORBA::Exception& error) {
        std::cerr << "SimEngine: cannot destroy its POA: " << error._name() << std::endl;
    }
}

void SimEngine::addAttribute(const SimAttributeSetup& setup)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_entries.count(setup.name))
        throw std::invalid_argument("SimEngine: \"" + setup.name + "\" is declared twice");
    auto attribute = std::make_unique<SimAttribute>(setup, *m_publisher, *m_queue);
    CORBA::Object_var object = activate(SimAttributeServant::create(*attribute));
    Entry entry{std::move(attribute), Brenmoor::EngineReadingBase::_narrow(object)};
    m_entries.emplace(setup.name, std::move(entry));
    m_order.push_back(setup.name);
}

Brenmoor::AttributeDirectory_ptr SimEngine::directory() const
{
    return Brenmoor::AttributeDirectory::_duplicate(m_directory);
}

SimEngineControl::Control_ptr SimEngine::control() const
{
    return SimEngineControl::Control::_duplicate(m_control);
}

Brenmoor::EngineReadingBase_ptr SimEngine::attribute(const std::string& name) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_entries.find(name);
    if (it == m_entries.end())
        return Brenmoor::EngineReadingBase::_nil();
    return Brenmoor::EngineReadingBase::_duplicate(it->second.reference);
}

std::vector<std::string> SimEngine::names() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_order;
}

SimValue SimEngine::value(const std::string& name) const { return find(name).value(); }

void SimEngine::setValue(const std::string& name, const SimValue& value) { find(name).apply(value); }

void SimEngine::setEnumEntries(const std::string& name, const std::vector<SimEnumEntry>& entries)
{
    find(name).setEnumEntries(entries);
}

void SimEngine::setLimits(const std::string& name, const SimLimits& limits) { find(name).setLimits(limits); }

void SimEngine::lock(const std::string& name, const Brenmoor::LockerID& owner) { find(name).lock(owner); }

void SimEngine::unlock(const std::string& name) { find(name).unlock(); }

void SimEngine::failNextSet(const std::string& name, unsigned count, const SimFailure& failure)
{
    find(name).failNextSet(count, failure);
}

void SimEngine::hangNextSet(const std::string& name, unsigned count, std::chrono::milliseconds delay)
{
    find(name).hangNextSet(count, delay);
}

unsigned SimEngine::setCount(const std::string& name) const { return find(name).setCount(); }

std::optional<SimValue> SimEngine::lastSetValue(const std::string& name) const { return find(name).lastSetValue(); }

std::optional<Brenmoor::LockerID> SimEngine::lastLocker(const std::string& name) const
{
    return find(name).lastLocker();
}

void SimEngine::setQuitHandler(std::function<void()> handler)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_quitHandler = std::move(handler);
}

void SimEngine::requestQuit()
{
    std::function<void()> handler;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        handler = m_quitHandler;
    }
    if (handler)
        handler();
}

// Attributes are never removed before the engine ends, so the reference stays valid unlocked.
SimAttribute& SimEngine::find(const std::string& name) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_entries.find(name);
    if (it == m_entries.end())
        throw std::out_of_range("SimEngine: no attribute \"" + name + "\"");
    return *it->second.attribute;
}

CORBA::Object_ptr SimEngine::activate(PortableServer::ServantBase* servant)
{
    // The POA keeps its own reference; ours goes at the end of this scope.
    PortableServer::Servant_var<PortableServer::ServantBase> owned(servant);
    PortableServer::ObjectId_var id = m_poa->activate_object(servant);
    return m_poa->id_to_reference(id);
}

void SimEngine::tick()
{
    // Stops with the engine, hung or dead: its readers then see it gone.
    Brenmoor::DDS_ParticipantHolder::instance()->assertLiveliness();
    const auto now = SimSimulator::Clock::now();
    std::lock_guard<std::mutex> lock(m_mutex);
    for (auto& entry : m_entries)
        entry.second.attribute->advanceSimulation(now);
}
