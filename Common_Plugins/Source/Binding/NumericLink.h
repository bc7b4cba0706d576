#ifndef NUMERICLINK_H
#define NUMERICLINK_H

#include "AttributeLink.h"
#include "Units.h"

#include <atomic>
#include <limits>

//! One value of a numeric attribute, in the attribute's own unit.
struct NumericSample
{
    double value = 0.0;
    //! The unit the engine gave; unitless for plain numbers.
    Kelvane::Value::Units units;
    //! The upper limit a value record carries with it; NaN for a value that carries none.
    double upperLimit = std::numeric_limits<double>::quiet_NaN();
    //! A meter's state: no value to show, a doubtful one, or over the limit.
    bool noValue = false;
    bool doubtful = false;
    bool overLimit = false;
};

/*!
  Every attribute a numeric field can show: whole and real numbers, the
  same as value records that carry their unit, settable or read only, and
  one chosen reading of a meter. The link hides which of the nine
  interfaces it speaks; a caller asks what kind of number it is.
*/
class NumericLink : public AttributeLink
{
public:
    enum Interface
    {
        AttribLong = 1 << 0,
        AttribDouble = 1 << 1,
        AttribValueLong = 1 << 2,
        AttribValueDouble = 1 << 3,
        ReadingDouble = 1 << 4,
        ReadingValueDouble = 1 << 5,
        ReadingLong = 1 << 6,
        ReadingValueLong = 1 << 7,
        ReadingMeter = 1 << 8,
        AnyNumber = (1 << 9) - 1
    };
    static const LinkFamily family;

    enum class Number
    {
        Long,
        Double,
        ValueLong,
        ValueDouble,
        Meter
    };

    Number number() const;
    bool isSettable() const;
    //! Sent and shown as a whole number.
    bool isWhole() const;
    //! The engine gives a unit with each value.
    bool carriesUnits() const;

    /*!
      The value now (for a meter, its first reading); false, and nothing
      read, for a meter without readings. \a readingTypes, when given, gets
      the types of a meter's readings (peak, RMS, ...), in their order.
    */
    virtual bool read(NumericSample* sample, QList<long>* readingTypes = nullptr) const = 0;
    //! The limits in the attribute's unit; false for a reading, which has none.
    virtual bool limits(double* lower, double* upper) const = 0;
    //! Sends \a number, in the attribute's unit \a wire; throws CORBA::BAD_OPERATION on a reading.
    virtual void set(double number, const Kelvane::Value::Units& wire) const = 0;
    //! \a onValue gets each new value on a DDS thread.
    virtual void follow(boost::function<void(const char*, const NumericSample&)> onValue) const = 0;
    //! \a onChange learns of new limits; a reading has none to follow.
    virtual void followLimits(boost::function<void(const char*)> onChange) const = 0;
    //! Which of a meter's readings the samples give from now on.
    void selectReading(long index);

protected:
    NumericLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, Number number, bool settable);

    long selectedReading() const;

private:
    static AttributeLink* make(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface);

    const Number m_number;
    const bool m_settable;
    std::atomic<long> m_readingIndex{0};
};

#endif // NUMERICLINK_H
