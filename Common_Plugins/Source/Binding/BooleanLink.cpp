#include "BooleanLink.h"

#include "GlobalImpl.h"

const LinkFamily BooleanLink::family{
    {QStringLiteral("EngineAttribBoolean"), QStringLiteral("EngineReadingBoolean")}, &BooleanLink::make};

BooleanLink::BooleanLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface)
    : AttributeLink(frame, attr)
    , m_reading(Brenmoor::EngineReadingBoolean::_narrow(attr))
    , m_settable(interface == AttribBoolean)
{
    if (m_settable)
        m_setting = Brenmoor::EngineAttribBoolean::_narrow(attr);

}

AttributeLink* BooleanLink::make(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface)
{
    return new BooleanLink(frame, attr, interface);
}

bool BooleanLink::isNarrowed() const
{
    return !CORBA::is_nil(m_reading) && (!m_settable || !CORBA::is_nil(m_setting));
}

bool BooleanLink::value() const
{
    return m_reading->value();
}

void BooleanLink::set(bool on) const
{
    if (CORBA::is_nil(m_setting))
        throw CORBA::BAD_OPERATION();
    m_setting->set(GlobalImpl::getLockerID(), on);
}

void BooleanLink::follow(boost::function<void(const char*, bool)> onValue) const
{
    followTopic<bool>(topic(), std::move(onValue));
}
