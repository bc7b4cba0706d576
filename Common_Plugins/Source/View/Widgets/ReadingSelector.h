#ifndef READINGSELECTOR_H
#define READINGSELECTOR_H

#include <QMetaObject>
#include <QObject>
#include <QStringList>

#include <functional>

/*!
  A widget in which the operator picks one of the readings that a meter
  sample carries (peak, live, RMS, ...), for a widget that shows one
  reading at a time. A reading is known by its index in the sample.
*/
class ReadingSelector
{
public:
    virtual ~ReadingSelector() = default;

    //! Offers \a names, each under its index, the first chosen.
    virtual void offerReadings(const QStringList& names) = 0;
    //! Calls \a onChoice with the index of each reading picked while \a receiver lives.
    virtual QMetaObject::Connection followReadingChoice(QObject* receiver, std::function<void(long)> onChoice) = 0;
};

Q_DECLARE_INTERFACE(ReadingSelector, "com.ruvell.ReadingSelector/1.0")

#endif // READINGSELECTOR_H
