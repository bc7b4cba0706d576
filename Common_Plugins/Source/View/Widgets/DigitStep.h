#ifndef DIGITSTEP_H
#define DIGITSTEP_H

class QLineEdit;
class QString;

/*!
  The digit that an entry mechanism's stepping changes: one step adds 10 to
  the power of exponent(). x10 and /10 move it one place left or right, but
  never behind the precision shown nor in front of the leading digit of the
  value or of the limit on the value's side. The digit is marked in the
  mechanism's read-out by a selection that ends at cursorPosition().
*/
class DigitStep
{
public:
    double exponent() const;
    void setExponent(double exponent);
    //! What one step adds.
    double size() const;
    //! Back to the units digit.
    void reset();
    //! Moves the digit by \a places (1 left, -1 right); false, and no move, when the rule forbids it.
    bool change(double places, double value, double lower, double upper, int precision);

    //! Where the selection marking the digit ends in \a text; negative when the digit lies left of the text.
    int cursorPosition(const QString& text) const;
    //! How many characters the selection spans, backwards from the cursor.
    int markedLength() const;
    /*!
      Marks the digit in \a readOut and returns the cursor position; a digit
      left of the text goes back to the units digit, marked at the start.
    */
    int markIn(QLineEdit* readOut);

private:
    double m_exponent = 0.0;
};

#endif // DIGITSTEP_H
