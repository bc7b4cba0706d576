#include "KeypadBase.h"

KeypadBase::KeypadBase(QWidget* parent)
    : QWidget(parent)
{
}
