#include "BooleanLink.h"

#include "GlobalImpl.h"

const LinkFamily BooleanLink::family{
    {QStringLiteral("EngineAttribBoolean"), QStringLiteral("EngineReadingBoolean")}, &BooleanLink::make};

BooleanLink::BooleanLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface)
    : AttributeLink(frame, attr)
    , m_boolean(attr, interface == AttribBoolean)
{
}

AttributeLink* BooleanLink::make(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface)
{
    return new BooleanLink(frame, attr, interface);
}

bool BooleanLink::isNarrowed() const
{
    return m_boolean.isNarrowed();
}

bool BooleanLink::value() const
{
    return m_boolean.reading()->value();
}

void BooleanLink::set(bool on) const
{
    m_boolean.setting()->set(GlobalImpl::getLockerID(), on);
}

void BooleanLink::follow(boost::function<void(const char*, bool)> onValue) const
{
    followTopic<bool>(topic(), std::move(onValue));
}
