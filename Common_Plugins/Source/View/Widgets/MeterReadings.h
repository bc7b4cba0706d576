#ifndef METERREADINGS_H
#define METERREADINGS_H

#include <QStringList>

class QWidget;
class ReadingSelector;

namespace Brenmoor {
namespace MeterReading { struct Reading; }
}

/*!
  What the widgets that show a meter attribute share: the names of the
  readings in a meter sample (peak, live, RMS, ...) and the selector
  through which the operator picks one of them.
*/
class MeterReadings
{
public:
    //! "Peak Positive" ... "Average Negative" for 0 to 8; anything else is "".
    static QString translateReadingType(long type);
    //! One name per reading of \a reading, in its order.
    static QStringList names(const Brenmoor::MeterReading::Reading& reading);
    /*!
      Offers \a names in \a widget and returns it to be followed; null, and
      nothing changed, if it is not a ReadingSelector.
    */
    static ReadingSelector* offerTo(QWidget* widget, const QStringList& names);
};

#endif // METERREADINGS_H
