#include "ConfirmationPushButton.h"

ConfirmationPushButtonImpl::ConfirmationPushButtonImpl(QWidget* parent)
    : Kelvane::gui::PushButtonImpl(parent)
    , ConfirmationImpl(this)
{
    setObjectName(QStringLiteral("ConfirmationPushButton"));
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Maximum);
}

void ConfirmationPushButtonImpl::buttonClicked()
{
    if (promptStyle() == 0 || (promptStyle() > 0 && displayPrompt()))
        Kelvane::gui::PushButtonImpl::buttonClicked();
    releaseLock();
}
