#ifndef IPENTRYIMPL_H
#define IPENTRYIMPL_H

#include "NumpadEntryImpl.h"

/*!
  The keypad that a text field in IP mode opens for an address in dotted
  digits: the numeric keypad without a sign, whose point key types as many
  points as it is pressed. Enter hands the address to the field through
  enterPressed() only when it is well formed; otherwise the pad tells the
  operator why under its read-out and keeps the text for correcting.
*/
class IPEntryImpl : public NumpadEntryImpl
{
    Q_OBJECT

public:
    IPEntryImpl(QObject* target, QWidget* parent, int width, int height);

    /*!
      Four parts between dots, each 0 to 255 written in decimal digits
      without a leading zero. When \a text is no such address and \a reason
      is given, it receives a short explanation for the operator.
    */
    static bool isValidAddress(const QString& text, QString* reason = nullptr);

signals:
    //! Enter was pressed on a well-formed address.
    void enterPressed();

protected slots:
    void buttonPress() override;

protected:
    bool acceptsEntry() override;
};

#endif // IPENTRYIMPL_H
