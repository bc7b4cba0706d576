#ifndef NUMERICENTRYMECHANISMS_H
#define NUMERICENTRYMECHANISMS_H

#include "EntryPlacement.h"

#include <QPointer>
#include <QStringList>

class NumericEntryImpl;
class NumpadEntryImpl;
class SliderImpl;
class SpinWheelImpl;
class QWidget;

/*!
  The entry mechanisms of a numeric field and where they open: the keypad,
  the spin wheel and the slider, made once the field is bound to a
  settable attribute and told of the field's units, precision and limits.
  The keypad opens on the main screen beside the field's box and its unit
  selector; its rotate key hands over to the wheel, the wheel's to the
  slider and the slider's back to the keypad, each lined up with where the
  keypad opened and kept on the screen. Part of the field, whose slots it
  drives.
*/
class NumericEntryMechanisms
{
public:
    explicit NumericEntryMechanisms(NumericEntryImpl* field);
    ~NumericEntryMechanisms();
    NumericEntryMechanisms(const NumericEntryMechanisms&) = delete;
    NumericEntryMechanisms& operator=(const NumericEntryMechanisms&) = delete;

    void addNumpad(bool isHex, bool realtimeUpdate);
    //! \a lower and \a upper in the base unit.
    void addSpinWheel(double lower, double upper);
    //! A slider with one ruler when \a single, else the coarse and fine double slider; limits in the base unit.
    void addSliderControl(bool single, double lower, double upper);
    NumpadEntryImpl* numpad() const;
    SpinWheelImpl* spinWheel() const;
    SliderImpl* slider() const;
    //! Any mechanism at all.
    bool exists() const;

    /*!
      Opens the keypad beside the box; \a selectorWidth 0 without a visible
      unit selector. False without a keypad: the others open only by rotation.
    */
    bool open(int selectorWidth);
    //! Hands over from the mechanism named \a entry to the next one.
    void rotate(const QString& entry);
    void close();
    void raise();
    //! A mechanism that sends each step as it moves is open.
    bool isStepping() const;
    //! An open mechanism that sends as it moves starts again from the box's value.
    void followField();
    //! Blanks the slider's read-out, as the keypad's Clear does the field.
    void clearSlider();
    void setUnitList(const QStringList& labels);
    void changePrecision(int precision);
    //! The stepping mechanisms run between the limits, in the unit of \a key.
    void updateSliderBounds(long key);

private:
    void showNumpad();
    void showSpinWheel();
    void showSlider();
    //! The mechanisms live on the screen, above every window of the form.
    void moveToScreen();
    QList<QWidget*> mechanisms() const;

    NumericEntryImpl* const m_field;
    // Guarded: a mechanism on the screen may die with the screen before the field.
    QPointer<NumpadEntryImpl> m_numpad;
    QPointer<SpinWheelImpl> m_wheel;
    QPointer<SliderImpl> m_slider;
    EntryPlacement m_placement;
};

#endif // NUMERICENTRYMECHANISMS_H
