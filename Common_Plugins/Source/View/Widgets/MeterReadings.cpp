#include "MeterReadings.h"

#include "ComboBoxImpl.h"
#include "ComboBoxListStruct.h"

#include <Brenmoor.hh>

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

ComboBoxImpl* MeterReadings::offerTo(QWidget* combobox, const QStringList& names)
{
    auto* selector = qobject_cast<ComboBoxImpl*>(combobox);
    if (!selector)
        return nullptr;
    QList<ComboBoxListStruct> list;
    for (int i = 0; i < names.size(); ++i)
        list << ComboBoxListStruct(i, names.at(i), true);
    selector->setList(list, 0);
    return selector;
}
