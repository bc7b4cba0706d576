#include "AttributeLink.h"

#include "WidgetBaseImpl.h"

AttributeLink::AttributeLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr)
    : m_frame(frame)
    , m_attribute(Brenmoor::EngineReadingBase::_duplicate(attr))
{
}

AttributeLink::~AttributeLink() = default;

Brenmoor::EngineReadingBase_ptr AttributeLink::attribute() const
{
    return m_attribute.in();
}

QByteArray AttributeLink::topic() const
{
    const CORBA::String_var topic = m_attribute->topic();
    return QByteArray(topic.in());
}

template<class T>
void AttributeLink::followTopic(const QByteArray& topic, boost::function<void(const char*, T)> callback) const
{
    m_frame->subscribeToDDS<T>(topic.constData(), std::move(callback));
}

void AttributeLink::followVoidTopic(const QByteArray& topic, boost::function<void(const char*)> callback) const
{
    m_frame->subscribeToVoidDDS(topic.constData(), std::move(callback));
}

// The payloads the links follow; the subscriptions themselves are made once, with the frame.
template void AttributeLink::followTopic<int>(const QByteArray&, boost::function<void(const char*, int)>) const;
template void AttributeLink::followTopic<double>(const QByteArray&, boost::function<void(const char*, double)>) const;
template void AttributeLink::followTopic<bool>(const QByteArray&, boost::function<void(const char*, bool)>) const;
template void AttributeLink::followTopic<Brenmoor::VALUE_DOUBLE::VALUE>(
    const QByteArray&, boost::function<void(const char*, Brenmoor::VALUE_DOUBLE::VALUE)>) const;
template void AttributeLink::followTopic<Brenmoor::VALUE_LONG::VALUE>(
    const QByteArray&, boost::function<void(const char*, Brenmoor::VALUE_LONG::VALUE)>) const;
template void AttributeLink::followTopic<Brenmoor::MeterReading::Reading>(
    const QByteArray&, boost::function<void(const char*, Brenmoor::MeterReading::Reading)>) const;
template void AttributeLink::followTopic<CORBA::String_var>(const QByteArray&,
                                                            boost::function<void(const char*, CORBA::String_var)>) const;
template void AttributeLink::followTopic<Brenmoor::BASIC_TRACE::BT_DATA>(
    const QByteArray&, boost::function<void(const char*, Brenmoor::BASIC_TRACE::BT_DATA)>) const;
template void AttributeLink::followTopic<Brenmoor::ComplexDoubleSeq>(
    const QByteArray&, boost::function<void(const char*, Brenmoor::ComplexDoubleSeq)>) const;
