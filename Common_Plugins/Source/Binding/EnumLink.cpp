#include "EnumLink.h"

#include "GlobalImpl.h"

const LinkFamily EnumLink::family{{QStringLiteral("EngineAttribEnum")}, &EnumLink::make};

EnumLink::EnumLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr)
    : AttributeLink(frame, attr)
    , m_enum(Brenmoor::EngineAttribEnum::_narrow(attr))
{
}

AttributeLink* EnumLink::make(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int)
{
    return new EnumLink(frame, attr);
}

bool EnumLink::isNarrowed() const
{
    return !CORBA::is_nil(m_enum);
}

QList<EnumLink::Entry> EnumLink::entries() const
{
    const Brenmoor::EngineAttribEnumParams_var params = m_enum->params();
    QList<Entry> entries;
    for (CORBA::ULong i = 0; i < params->length(); ++i) {
        const Brenmoor::EnumDetails& details = params.in()[i];
        entries.append({long(details.value), QString::fromUtf8(details.label.in()), bool(details.enabled)});
    }
    return entries;
}

long EnumLink::value() const
{
    return m_enum->value();
}

void EnumLink::set(long value) const
{
    m_enum->set(GlobalImpl::getLockerID(), CORBA::Long(value));
}

void EnumLink::follow(boost::function<void(const char*, int)> onValue, boost::function<void(const char*)> onList) const
{
    followTopic<int>(topic(), std::move(onValue));
    followVoidTopic(paramsTopic(), std::move(onList));
}

QByteArray EnumLink::paramsTopic() const
{
    const CORBA::String_var topic = m_enum->paramsTopic();
    return QByteArray(topic.in());
}
