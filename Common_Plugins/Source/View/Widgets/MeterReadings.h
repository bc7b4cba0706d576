#ifndef METERREADINGS_H
#define METERREADINGS_H

#include <QStringList>

class ComboBoxImpl;
class QWidget;

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
      Lists \a names in \a combobox, each under its index, the first chosen,
      and returns it to be connected; null, and nothing changed, if it is
      not a ComboBoxImpl.
    */
    static ComboBoxImpl* offerTo(QWidget* combobox, const QStringList& names);
};

#endif // METERREADINGS_H
