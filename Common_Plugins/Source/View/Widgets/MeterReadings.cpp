#include "MeterReadings.h"

#include "ReadingSelector.h"

#include <Brenmoor.hh>

#include <QWidget>

QString MeterReadings::translateReadingType(long type)
{
    static const char* const labels[] = {"Peak Positive",  "Peak Negative",   "Live Positive",
                                         "Live Negative",  "RMS",             "Crest Positive",
                                         "Crest Negative", "Average Positive", "Average Negative"};
    return type >= 0 && type < 9 ? QString::fromLatin1(labels[type]) : QString();
}

QStringList MeterReadings::names(const Brenmoor::MeterReading::Reading& reading)
{
    QStringList list;
    for (CORBA::ULong i = 0; i < reading.readings.length(); ++i)
        list << translateReadingType(reading.readings[i].type);
    return list;
}

ReadingSelector* MeterReadings::offerTo(QWidget* widget, const QStringList& names)
{
    auto* selector = qobject_cast<ReadingSelector*>(widget);
    if (selector)
        selector->offerReadings(names);
    return selector;
}
