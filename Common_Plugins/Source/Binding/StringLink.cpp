#include "StringLink.h"

#include "GlobalImpl.h"

const LinkFamily StringLink::family{{QStringLiteral("EngineAttribString"), QStringLiteral("EngineReadingString")},
                                    &StringLink::make};

StringLink::StringLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface)
    : AttributeLink(frame, attr)
    , m_reading(Brenmoor::EngineReadingString::_narrow(attr))
    , m_settable(interface == AttribString)
{
    if (m_settable)
        m_setting = Brenmoor::EngineAttribString::_narrow(attr);
}

AttributeLink* StringLink::make(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface)
{
    return new StringLink(frame, attr, interface);
}

bool StringLink::isNarrowed() const
{
    return !CORBA::is_nil(m_reading) && (!m_settable || !CORBA::is_nil(m_setting));
}

bool StringLink::isSettable() const
{
    return m_settable;
}

QString StringLink::value() const
{
    const CORBA::String_var text = m_reading->value();
    return QString::fromUtf8(text.in());
}

void StringLink::set(const QString& text) const
{
    if (CORBA::is_nil(m_setting))
        throw CORBA::BAD_OPERATION();
    m_setting->set(GlobalImpl::getLockerID(), text.toUtf8().constData());
}

void StringLink::follow(boost::function<void(const char*, const QString&)> onValue) const
{
    followTopic<CORBA::String_var>(topic(), [onValue](const char* topic, const CORBA::String_var& text) {
        onValue(topic, QString::fromUtf8(text.in()));
    });
}
