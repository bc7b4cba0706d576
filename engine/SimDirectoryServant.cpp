#include "SimDirectoryServant.h"

#include "SimEngine.h"

SimDirectoryServant::SimDirectoryServant(const SimEngine& engine)
    : m_engine(engine)
{
}

Brenmoor::EngineReadingBase_ptr SimDirectoryServant::find(const char* name)
{
    Brenmoor::EngineReadingBase_ptr attribute = m_engine.attribute(name);
    if (CORBA::is_nil(attribute))
        throw Brenmoor::AttributeDirectory::UnknownAttribute(name);
    return attribute;
}

Brenmoor::NameSeq* SimDirectoryServant::names()
{
    const std::vector<std::string> names = m_engine.names();
    auto* result = new Brenmoor::NameSeq;
    result->length(static_cast<CORBA::ULong>(names.size()));
    for (CORBA::ULong i = 0; i < result->length(); ++i)
        (*result)[i] = names[i].c_str();
    return result;
}
