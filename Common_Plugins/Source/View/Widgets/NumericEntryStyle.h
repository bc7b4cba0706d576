#ifndef NUMERICENTRYSTYLE_H
#define NUMERICENTRYSTYLE_H

#include <QString>

/*!
  The style sheets of a numeric field, one per size word ("Max", "Min",
  "Thumb") and per shape: with a unit selector the value box rounds its
  left corners only and joins the selector; without one it rounds all four.
  With the lock image, a disabled box shows the padlock at its top right.
  A field keeps one of these for the sheets it applies.
*/
class NumericEntryStyle
{
public:
    static QString withUnit(const QString& size, bool lockImage);
    static QString plain(const QString& size, bool lockImage);
    //! Appended to the sheets of a field that can only be read.
    static QString readOnlySuffix();
    //! What the small ("Thumb") field shows of \a text.
    static QString thumbCut(const QString& text);

    //! Makes the six sheets anew, with or without the lock image.
    void build(bool lockImage);
    //! Gives the sheets the read-only look; the small field without a selector keeps its white border.
    void markReadOnly();
    //! The sheet of the size word \a size; null for a word that has none.
    const QString* sheet(const QString& size, bool withUnit) const;

private:
    QString m_unitMax, m_unitMin, m_unitThumb;
    QString m_plainMax, m_plainMin, m_plainThumb;
};

#endif // NUMERICENTRYSTYLE_H
