#ifndef NUMERICENTRYBINDING_H
#define NUMERICENTRYBINDING_H

#include <QString>

#include <functional>

class NumericEntryImpl;
class NumericLink;
struct NumericSample;

namespace Kelvane {
namespace Value {
struct Units;
}
}

/*!
  What a numeric field does with the engine through its NumericLink: it
  reads the value, unit and limits at binding and starts following; turns
  each sample into the text the field shows; shows the engine's value at
  an Enter; and sends an entered value from a worker, putting the field
  right when the engine refuses it. Part of the field, which it works on
  directly.
*/
class NumericEntryBinding
{
public:
    explicit NumericEntryBinding(NumericEntryImpl* field);

    //! Binds the field to \a number, by the kind of number it speaks.
    void bind(NumericLink* number);
    //! Takes \a sample into the field and returns the text to show; on a DDS thread.
    QString takeSample(const NumericLink* number, const NumericSample& sample);
    /*!
      An Enter of \a text in the field of a settable attribute: the box shows
      the engine's value until the engine's sample brings the new one, which
      goes out from a worker. A refusal puts back what the box showed.
    */
    void enter(const NumericLink* number, const QString& text);
    //! The operator touched a key, typed or was given a text.
    void noteEntry();
    //! Sends \a value, in the base unit, from a worker.
    void startSend(const NumericLink* number, double value);
    //! Shows the engine's present value in the box; false when the engine could not be asked.
    bool showEngineValue(const NumericLink* number);
    //! Reads the limits again, after the engine said they changed.
    void updateLimits(const NumericLink* number);

    //! A whole number as the field shows it.
    static QString wholeNumberText(long value, bool hex);

private:
    //! What a worker needs of the field to send one value; taken on the interface thread.
    struct Outgoing;

    void bindSettable(const NumericLink* number);
    void bindReading(const NumericLink* number);
    void bindMeter(const NumericLink* meter);
    void readValue(const NumericLink* number);
    //! The unit of a value record becomes the field's base unit, and its units are offered anew.
    void takeWireUnit(const Kelvane::Value::Units& wire);
    QString sampleText(const NumericLink* number, const NumericSample& sample) const;
    double enteredNumber(const NumericLink* number, const QString& text) const;
    void logReceived(double number, const Kelvane::Value::Units& unit) const;

    void sendDouble(const NumericLink* number, const Outgoing& out);
    void sendLong(const NumericLink* number, const Outgoing& out);
    void send(const Outgoing& out, const std::function<void()>& call, const char* format);
    void reportOutOfRange(const QString& text, const QString& actual, const QString& lower, const QString& upper);

    NumericEntryImpl* const m_field;
    //! Nothing entered since the last send: an Enter in the same unit has nothing to send.
    bool m_nothingEnteredSinceSend = false;
    QString m_unitOfLastSend;
};

#endif // NUMERICENTRYBINDING_H
