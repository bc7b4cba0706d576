#ifndef ORB_WRAPPER_H
#define ORB_WRAPPER_H

#include <omniORB4/CORBA.h>

#include <string>

/*!
  The process's one ORB, set up the same way in every program of the
  project: calls time out after 1.5 s (the default waits for ever, and a hung
  engine would freeze the caller), strings travel as UTF-8, and the ORB
  listens on 127.0.0.1 only.
*/
class ORB_Wrapper
{
public:
    //! The ORB, initialised on first use. Thread-safe.
    static CORBA::ORB_ptr orb();
    //! The root POA, activated; for processes that serve objects.
    static PortableServer::POA_ptr rootPoa();

    static CORBA::Object_ptr objectFromString(const std::string& ior);
    static std::string objectToString(CORBA::Object_ptr object);

    //! Call time-out in milliseconds.
    static constexpr int callTimeoutMs = 1500;

    //! Ends the ORB; later calls to orb() are not allowed.
    static void shutdown();
};

#endif // ORB_WRAPPER_H
