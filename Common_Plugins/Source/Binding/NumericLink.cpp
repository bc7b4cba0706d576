#include "NumericLink.h"
#include "SettableReference.h"

#include "GlobalImpl.h"
#include "ValueHelper.h"

#include <QDebug>

using Kelvane::Value::Units;

namespace {

// A settable attribute is read through the reading interface it extends.
template<class Reading, class Setting>
class NarrowedNumber : public NumericLink
{
public:
    NarrowedNumber(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, Number number, bool settable)
        : NumericLink(frame, attr, number, settable)
        , m_narrowed(attr, settable)
    {
    }

    bool isNarrowed() const override { return m_narrowed.isNarrowed(); }

    bool limits(double* lower, double* upper) const override
    {
        if (!isSettable())
            return false;
        const auto limits = m_narrowed.setting()->limits();
        *lower = limits.lower;
        *upper = limits.upper;
        return true;
    }

    void followLimits(boost::function<void(const char*)> onChange) const override
    {
        if (!isSettable())
            return;
        const CORBA::String_var limitsTopic = m_narrowed.setting()->limitsTopic();
        followVoidTopic(QByteArray(limitsTopic.in()), std::move(onChange));
    }

protected:
    SettableReference<Reading, Setting> m_narrowed;
};

template<class Reading, class Setting, class Payload>
class PlainNumber final : public NarrowedNumber<Reading, Setting>
{
public:
    using NarrowedNumber<Reading, Setting>::NarrowedNumber;

    bool read(NumericSample* sample, QList<long>*) const override
    {
        sample->value = double(this->m_narrowed.reading()->value());
        return true;
    }

    void set(double number, const Units&) const override
    {
        this->m_narrowed.setting()->set(GlobalImpl::getLockerID(), Payload(number));
    }

    void follow(boost::function<void(const char*, const NumericSample&)> onValue) const override
    {
        this->template followTopic<Payload>(this->topic(), [onValue](const char* topic, Payload value) {
            NumericSample sample;
            sample.value = double(value);
            onValue(topic, sample);
        });
    }
};

template<class Reading, class Setting, class Record>
class RecordNumber final : public NarrowedNumber<Reading, Setting>
{
public:
    using NarrowedNumber<Reading, Setting>::NarrowedNumber;

    bool read(NumericSample* sample, QList<long>*) const override
    {
        const typename Record::_var_type record = this->m_narrowed.reading()->value();
        *sample = sampleOf(record.in());
        return true;
    }

    void set(double number, const Units& wire) const override
    {
        Record record{};
        record.units = ValueHelper::toWireUnits(wire);
        record.currentValue = decltype(record.currentValue)(number);
        this->m_narrowed.setting()->set(GlobalImpl::getLockerID(), record);
    }

    void follow(boost::function<void(const char*, const NumericSample&)> onValue) const override
    {
        this->template followTopic<Record>(this->topic(), [onValue](const char* topic, const Record& record) {
            onValue(topic, sampleOf(record));
        });
    }

private:
    static NumericSample sampleOf(const Record& record)
    {
        NumericSample sample;
        sample.value = double(record.currentValue);
        sample.units = ValueHelper::convertToUnits(record.units);
        sample.upperLimit = double(record.upperLimit);
        return sample;
    }
};

class MeterNumber final : public NumericLink
{
public:
    MeterNumber(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr)
        : NumericLink(frame, attr, Number::Meter, false)
        , m_meter(Brenmoor::EngineReadingMeterReading::_narrow(attr))
    {
    }

    bool isNarrowed() const override { return !CORBA::is_nil(m_meter); }
    bool limits(double*, double*) const override { return false; }
    void set(double, const Units&) const override { throw CORBA::BAD_OPERATION(); }
    void followLimits(boost::function<void(const char*)>) const override {}

    bool read(NumericSample* sample, QList<long>* readingTypes) const override
    {
        const Brenmoor::MeterReading::ReadingList_var list = m_meter->value();
        if (list->readings.length() == 0)
            return false;
        for (CORBA::ULong i = 0; readingTypes && i < list->readings.length(); ++i)
            readingTypes->append(list->readings[i].type);
        *sample = sampleOf(list.in(), 0);
        return true;
    }

    void follow(boost::function<void(const char*, const NumericSample&)> onValue) const override
    {
        followTopic<Brenmoor::MeterReading::Reading>(
            topic(), [this, onValue](const char* topic, const Brenmoor::MeterReading::Reading& reading) {
                if (reading.readings.length() == 0) {
                    qDebug() << "UserInterface - >>>>> Error meter reading structure empty.";
                    return;
                }
                const long index = selectedReading();
                // The selector offered a reading this list does not have.
                if (index < 0 || CORBA::ULong(index) >= reading.readings.length())
                    throw CORBA::BAD_PARAM();
                onValue(topic, sampleOf(reading, CORBA::ULong(index)));
            });
    }

private:
    static NumericSample sampleOf(const Brenmoor::MeterReading::Reading& reading, CORBA::ULong index)
    {
        NumericSample sample;
        sample.value = reading.readings[index].value;
        sample.units = ValueHelper::convertToUnits(reading.readings[index].units);
        sample.noValue = reading.flag0;
        sample.doubtful = reading.flag1;
        sample.overLimit = reading.flag3;
        return sample;
    }

    Brenmoor::EngineReadingMeterReading_var m_meter;
};

} // namespace

const LinkFamily NumericLink::family{
    {QStringLiteral("EngineAttribLong"), QStringLiteral("EngineAttribDouble"), QStringLiteral("EngineAttribValueLong"),
     QStringLiteral("EngineAttribValueDouble"), QStringLiteral("EngineReadingDouble"),
     QStringLiteral("EngineReadingValueDouble"), QStringLiteral("EngineReadingLong"),
     QStringLiteral("EngineReadingValueLong"), QStringLiteral("EngineReadingMeterReading")},
    &NumericLink::make,
    // A plain number that will not narrow is not worth a line; a value record is.
    NumericLink::ReadingDouble | NumericLink::ReadingLong};

NumericLink::NumericLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, Number number, bool settable)
    : AttributeLink(frame, attr)
    , m_number(number)
    , m_settable(settable)
{
}

AttributeLink* NumericLink::make(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface)
{
    using namespace Brenmoor;
    const bool settable = interface & (AttribLong | AttribDouble | AttribValueLong | AttribValueDouble);
    switch (interface) {
    case AttribLong:
    case ReadingLong:
        return new PlainNumber<EngineReadingLong, EngineAttribLong, CORBA::Long>(frame, attr, Number::Long, settable);
    case AttribDouble:
    case ReadingDouble:
        return new PlainNumber<EngineReadingDouble, EngineAttribDouble, CORBA::Double>(frame, attr, Number::Double,
                                                                                       settable);
    case AttribValueLong:
    case ReadingValueLong:
        return new RecordNumber<EngineReadingValueLong, EngineAttribValueLong, VALUE_LONG::VALUE>(
            frame, attr, Number::ValueLong, settable);
    case AttribValueDouble:
    case ReadingValueDouble:
        return new RecordNumber<EngineReadingValueDouble, EngineAttribValueDouble, VALUE_DOUBLE::VALUE>(
            frame, attr, Number::ValueDouble, settable);
    default:
        return new MeterNumber(frame, attr);
    }
}

NumericLink::Number NumericLink::number() const { return m_number; }
bool NumericLink::isSettable() const { return m_settable; }
bool NumericLink::isWhole() const { return m_number == Number::Long || m_number == Number::ValueLong; }

bool NumericLink::carriesUnits() const
{
    return m_number == Number::ValueLong || m_number == Number::ValueDouble || m_number == Number::Meter;
}

void NumericLink::selectReading(long index)
{
    m_readingIndex = index;
}

long NumericLink::selectedReading() const
{
    return m_readingIndex;
}
