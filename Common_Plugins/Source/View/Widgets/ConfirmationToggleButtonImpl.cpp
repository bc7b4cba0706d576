#include "ConfirmationToggleButtonImpl.h"

ConfirmationToggleButtonImpl::ConfirmationToggleButtonImpl(QWidget* parent)
    : ToggleButtonImpl(parent)
    , ConfirmationImpl(this)
{
    setObjectName(QStringLiteral("ConfirmationToggleButton"));
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Maximum);
}

bool ConfirmationToggleButtonImpl::asksNow() const
{
    // The literal state words, not the button's texts: a button with other
    // texts is asked only under style 3.
    const QString state = getState();
    switch (promptStyle()) {
    case 1: return state == QLatin1String("Off") || state == QLatin1String("Stopped");
    case 2: return state == QLatin1String("On") || state == QLatin1String("Running");
    case 3: return true;
    default: return false;
    }
}

void ConfirmationToggleButtonImpl::pressedEvent()
{
    if (!asksNow() || displayPrompt())
        ToggleButtonImpl::pressedEvent();
    releaseLock();
}
