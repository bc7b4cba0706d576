#include "ORB_Wrapper.h"

#include <mutex>
#include <string>

namespace {

std::once_flag s_orbOnce;
CORBA::ORB_var s_orb;

void initOrb()
{
    // Options in code: a misspelt option in the environment is silently ignored.
    const std::string timeout = std::to_string(ORB_Wrapper::callTimeoutMs);
    const char* options[][2] = {
        {"clientCallTimeOutPeriod", timeout.c_str()},
        {"nativeCharCodeSet", "UTF-8"},
        {"endPoint", "giop:tcp:127.0.0.1:"},
        {nullptr, nullptr}};
    int argc = 0;
    s_orb = CORBA::ORB_init(argc, nullptr, "omniORB4", options);
}

} // namespace

CORBA::ORB_ptr ORB_Wrapper::orb()
{
    std::call_once(s_orbOnce, initOrb);
    return s_orb.in();
}

PortableServer::POA_ptr ORB_Wrapper::rootPoa()
{
    CORBA::Object_var object = orb()->resolve_initial_references("RootPOA");
    PortableServer::POA_var poa = PortableServer::POA::_narrow(object);
    PortableServer::POAManager_var manager = poa->the_POAManager();
    manager->activate();
    return poa._retn();
}

CORBA::Object_ptr ORB_Wrapper::objectFromString(const std::string& ior)
{
    return orb()->string_to_object(ior.c_str());
}

std::string ORB_Wrapper::objectToString(CORBA::Object_ptr object)
{
    CORBA::String_var text = orb()->object_to_string(object);
    return std::string(text.in());
}

void ORB_Wrapper::shutdown()
{
    if (!CORBA::is_nil(s_orb)) {
        s_orb->destroy();
        s_orb = CORBA::ORB::_nil();
    }
}
