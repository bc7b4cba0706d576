#ifndef CONFIRMATIONTOGGLEBUTTONIMPL_H
#define CONFIRMATIONTOGGLEBUTTONIMPL_H

#include "ConfirmationImpl.h"
#include "ToggleButtonImpl.h"

/*!
  A toggle button that asks first. PromptStyle 1 asks before switching on
  (state "Off" or "Stopped"), 2 before switching off ("On" or "Running"),
  3 always, anything else never; a no leaves the button as it is.
*/
class ConfirmationToggleButtonImpl : public ToggleButtonImpl, public ConfirmationImpl
{
    Q_OBJECT
    Q_PROPERTY(QString DialogText READ dialogText WRITE setDialogText)
    Q_PROPERTY(int ButtonStyle READ buttonStyle WRITE setButtonStyle)
    Q_PROPERTY(int PromptStyle READ promptStyle WRITE setPromptStyle)

public:
    explicit ConfirmationToggleButtonImpl(QWidget* parent = nullptr);

public slots:
    void pressedEvent() override;

private:
    bool asksNow() const;
};

#endif // CONFIRMATIONTOGGLEBUTTONIMPL_H
