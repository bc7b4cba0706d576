#ifndef NUMERICENTRYSTYLE_H
#define NUMERICENTRYSTYLE_H

#include <QString>

/*!
  The style sheets of a numeric field, one per size word ("Max", "Min",
  "Thumb") and per shape: with a unit selector the value box rounds its
  left corners only and joins the selector; without one it rounds all four.
  With the lock image, a disabled box shows the padlock at its top right.
*/
class NumericEntryStyle
{
public:
    static QString withUnit(const QString& size, bool lockImage);
    static QString plain(const QString& size, bool lockImage);
    //! Appended to the sheets of a field that can only be read.
    static QString readOnlySuffix();
};

#endif // NUMERICENTRYSTYLE_H
