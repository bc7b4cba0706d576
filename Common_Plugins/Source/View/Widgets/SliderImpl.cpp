#include "SliderImpl.h"

SliderImpl::SliderImpl(QWidget* parent)
    : ContainerImpl(parent)
{
    setObjectName(QStringLiteral("slider"));
}

void SliderImpl::setValue(const QString&, const QString&) {}
void SliderImpl::updateValue(const QString&, const QString&) {}
void SliderImpl::updateCursorPosition() {}
void SliderImpl::clear() {}
int SliderImpl::getWidth() const { return 0; }
int SliderImpl::getHeight() const { return 0; }
double SliderImpl::getPower() const { return 0.0; }
void SliderImpl::increment() {}
void SliderImpl::decrement() {}

