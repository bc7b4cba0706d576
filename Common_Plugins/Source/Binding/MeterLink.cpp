#include "MeterLink.h"

const LinkFamily MeterLink::family{{QStringLiteral("EngineReadingMeterReading")}, &MeterLink::make};

MeterLink::MeterLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr)
    : AttributeLink(frame, attr)
    , m_meter(Brenmoor::EngineReadingMeterReading::_narrow(attr))
{
}

AttributeLink* MeterLink::make(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int)
{
    return new MeterLink(frame, attr);
}

bool MeterLink::isNarrowed() const
{
    return !CORBA::is_nil(m_meter);
}

Brenmoor::MeterReading::ReadingList* MeterLink::value() const
{
    return m_meter->value();
}

void MeterLink::follow(boost::function<void(const char*, const Brenmoor::MeterReading::Reading&)> onValue) const
{
    followTopic<Brenmoor::MeterReading::Reading>(topic(), std::move(onValue));
}
