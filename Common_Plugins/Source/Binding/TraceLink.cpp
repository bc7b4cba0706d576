#include "TraceLink.h"

const LinkFamily TraceLink::family{{QStringLiteral("EngineBasicTrace"), QStringLiteral("EngineReadingComplexTrace")},
                                   &TraceLink::make};

TraceLink::TraceLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface)
    : AttributeLink(frame, attr)
{
    if (interface == BasicTrace)
        m_basic = Brenmoor::EngineBasicTrace::_narrow(attr);
    else
        m_complex = Brenmoor::EngineReadingComplexTrace::_narrow(attr);
}

AttributeLink* TraceLink::make(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface)
{
    return new TraceLink(frame, attr, interface);
}

bool TraceLink::isNarrowed() const
{
    return !CORBA::is_nil(m_basic) || !CORBA::is_nil(m_complex);
}

bool TraceLink::isComplex() const
{
    return !CORBA::is_nil(m_complex);
}

Brenmoor::BASIC_TRACE::BT_DATA* TraceLink::value() const
{
    if (CORBA::is_nil(m_basic))
        throw CORBA::BAD_OPERATION();
    return m_basic->value();
}

void TraceLink::follow(boost::function<void(const char*, const Brenmoor::BASIC_TRACE::BT_DATA&)> onTrace,
                       boost::function<void(const char*, const Brenmoor::ComplexDoubleSeq&)> onComplex) const
{
    // A complex trace's payload has no tag of its own: the frame keeps its
    // subscription apart, and tears it down with the widget all the same.
    if (isComplex())
        followTopic<Brenmoor::ComplexDoubleSeq>(topic(), std::move(onComplex));
    else
        followTopic<Brenmoor::BASIC_TRACE::BT_DATA>(topic(), std::move(onTrace));
}
