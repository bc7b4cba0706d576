#include "StringLink.h"

#include "GlobalImpl.h"

const LinkFamily StringLink::family{{QStringLiteral("EngineAttribString"), QStringLiteral("EngineReadingString")},
                                    &StringLink::make};

StringLink::StringLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface)
    : AttributeLink(frame, attr)
    , m_text(attr, interface == AttribString)
{
}

AttributeLink* StringLink::make(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface)
{
    return new StringLink(frame, attr, interface);
}

bool StringLink::isNarrowed() const
{
    return m_text.isNarrowed();
}

bool StringLink::isSettable() const
{
    return m_text.isSettable();
}

QString StringLink::value() const
{
    const CORBA::String_var text = m_text.reading()->value();
    return QString::fromUtf8(text.in());
}

void StringLink::set(const QString& text) const
{
    m_text.setting()->set(GlobalImpl::getLockerID(), text.toUtf8().constData());
}

void StringLink::follow(boost::function<void(const char*, const QString&)> onValue) const
{
    followTopic<CORBA::String_var>(topic(), [onValue](const char* topic, const CORBA::String_var& text) {
        onValue(topic, QString::fromUtf8(text.in()));
    });
}
