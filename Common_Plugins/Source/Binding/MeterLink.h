#ifndef METERLINK_H
#define METERLINK_H

#include "AttributeLink.h"

/*!
  A meter (EngineReadingMeterReading): a list of readings of one measured
  quantity, with the scale's limits and the state flags, as one record.
*/
class MeterLink : public AttributeLink
{
public:
    enum Interface
    {
        ReadingMeter = 1
    };
    static const LinkFamily family;

    bool isNarrowed() const override;
    //! Owned by the caller.
    Brenmoor::MeterReading::ReadingList* value() const;
    void follow(boost::function<void(const char*, const Brenmoor::MeterReading::Reading&)> onValue) const;

private:
    MeterLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr);
    static AttributeLink* make(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface);

    Brenmoor::EngineReadingMeterReading_var m_meter;
};

#endif // METERLINK_H
