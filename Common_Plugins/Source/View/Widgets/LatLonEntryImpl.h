#ifndef LATLONENTRYIMPL_H
#define LATLONENTRYIMPL_H

#include "BaseEntryImpl.h"

class QVBoxLayout;

/*!
  A keypad for one geographical coordinate in degrees and decimal minutes,
  such as 51°30.25N: digits, point, degree sign and the two hemisphere
  letters of its mode, with Enter or a column of unit keys. Typing keeps to
  the form of the coordinate; Enter or a unit key hands the text to the host
  through updateUnit() only when it is a complete position within range, and
  otherwise tells the operator why under the read-out. No field of this
  library opens it; a host wires it.
*/
class LatLonEntryImpl : public BaseEntryImpl
{
    Q_OBJECT

public:
    enum LatLonMode { Longitude = 0, Latitude = 1 };

    //! \a units may be null; without units the Enter key submits.
    LatLonEntryImpl(QObject* target, LatLonMode mode, QWidget* parent, const QList<QString>* units, int width,
                    int height);

    //! Replaces the keys that submit; without labels the Enter key submits.
    void setUnitList(const QList<QString>& labels);

    /*!
      Degrees, the degree sign, whole minutes, a point, one to four decimals
      and the hemisphere letter of \a mode at the end; at most 90° of latitude
      or 180° of longitude, and minutes below 60. When \a text is no such
      position and \a reason is given, it receives a short explanation for
      the operator.
    */
    static bool isValidPosition(const QString& text, LatLonMode mode, QString* reason = nullptr);

signals:
    //! For the host, which decides when the pad is done.
    void closeEntry();
    //! Enter or a unit key submitted a valid position; \a unit is the key's label.
    void updateUnit(QString unit);

protected:
    void Initialize() override;

private slots:
    void buttonPress() override;
    void submit();

private:
    void createButtons();

    QVBoxLayout* m_unitLayout = nullptr;
    QList<QString> m_unitList;
    LatLonMode m_mode;
};

#endif // LATLONENTRYIMPL_H
