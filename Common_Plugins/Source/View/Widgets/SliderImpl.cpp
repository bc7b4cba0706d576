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

QString SliderImpl::confirmPressedRule(const QString& selector)
{
    return QStringLiteral("%1:pressed { border-color: #0f0; background-color: qlineargradient(x1:0, y1:0, x2:0, y2:1,"
                          " stop:0 rgba(0,255,0,125), stop:0.4 rgba(0,0,0,150), stop:0.6 rgba(0,0,0,150),"
                          " stop:1 rgba(0,255,0,125)); }")
        .arg(selector);
}
