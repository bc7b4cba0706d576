#include "CommandLink.h"

#include "GlobalImpl.h"

const LinkFamily CommandLink::family{{QStringLiteral("EngineAttribBoolean"), QStringLiteral("EngineAttribLong")},
                                     &CommandLink::make};

CommandLink::CommandLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface)
    : AttributeLink(frame, attr)
{
    if (interface == AttribBoolean)
        m_boolean = Brenmoor::EngineAttribBoolean::_narrow(attr);
    else
        m_long = Brenmoor::EngineAttribLong::_narrow(attr);
}

AttributeLink* CommandLink::make(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface)
{
    return new CommandLink(frame, attr, interface);
}

bool CommandLink::isNarrowed() const
{
    return !CORBA::is_nil(m_boolean) || !CORBA::is_nil(m_long);
}

void CommandLink::trigger() const
{
    if (!CORBA::is_nil(m_boolean))
        m_boolean->set(GlobalImpl::getLockerID(), true);
    else
        m_long->set(GlobalImpl::getLockerID(), 1);
}
