#ifndef NUMERICENTRYMECHANISMS_H
#define NUMERICENTRYMECHANISMS_H

#include "EntryPlacement.h"

#include <QStringList>

class NumericEntryImpl;
class NumpadEntryImpl;

/*!
  The entry mechanisms of a numeric field and where they open: the keypad,
  made once the field is bound to a settable attribute, opened on the main
  screen beside the field's box and its unit selector, told of the field's
  units, precision and limits. Part of the field, whose slots it drives.
*/
class NumericEntryMechanisms
{
public:
    explicit NumericEntryMechanisms(NumericEntryImpl* field);
    ~NumericEntryMechanisms();
    NumericEntryMechanisms(const NumericEntryMechanisms&) = delete;
    NumericEntryMechanisms& operator=(const NumericEntryMechanisms&) = delete;

    void addNumpad(bool isHex, bool realtimeUpdate);
    NumpadEntryImpl* numpad() const;
    //! Opens the keypad beside the box; \a selectorWidth 0 without a visible unit selector.
    void open(int selectorWidth);
    void close();
    void raise();
    void setUnitList(const QStringList& labels);
    void changePrecision(int precision);
    //! A real-time keypad's slider runs between the limits, in the unit of \a key.
    void updateSliderBounds(long key);

private:
    NumericEntryImpl* const m_field;
    NumpadEntryImpl* m_numpad = nullptr;
    EntryPlacement m_placement;
};

#endif // NUMERICENTRYMECHANISMS_H
