#ifndef CONFIRMATIONPUSHBUTTON_H
#define CONFIRMATIONPUSHBUTTON_H

#include "ConfirmationImpl.h"
#include "PushButtonImpl.h"

/*!
  A command button that asks first: with PromptStyle above 0 it shows
  DialogText with the answers of ButtonStyle and acts only on a yes; 0 acts
  at once; below 0 never acts.
*/
class ConfirmationPushButtonImpl : public Kelvane::gui::PushButtonImpl, public ConfirmationImpl
{
    Q_OBJECT
    Q_PROPERTY(QString DialogText READ dialogText WRITE setDialogText)
    Q_PROPERTY(int ButtonStyle READ buttonStyle WRITE setButtonStyle)
    Q_PROPERTY(int PromptStyle READ promptStyle WRITE setPromptStyle)

public:
    explicit ConfirmationPushButtonImpl(QWidget* parent = nullptr);

public slots:
    void buttonClicked() override;
};

#endif // CONFIRMATIONPUSHBUTTON_H
