#include "NumericEntryMechanisms.h"

#include "GlobalImpl.h"
#include "NumericEntryImpl.h"
#include "DoubleSliderImpl.h"
#include "NumpadEntryImpl.h"
#include "SingleSliderImpl.h"
#include "SpinWheelImpl.h"
#include "SystemModule.h"

#include <QLineEdit>

namespace {

//! Replaces the mechanism \a held by \a made, a hidden one.
template<class Mechanism>
void replace(QPointer<Mechanism>& held, Mechanism* made)
{
    delete held.data();
    held = made;
    made->hide();
}

} // namespace

NumericEntryMechanisms::NumericEntryMechanisms(NumericEntryImpl* field)
    : m_field(field)
{
}

// The mechanisms live on another window than the field.
NumericEntryMechanisms::~NumericEntryMechanisms()
{
    qDeleteAll(mechanisms());
}

NumpadEntryImpl* NumericEntryMechanisms::numpad() const { return m_numpad; }
SpinWheelImpl* NumericEntryMechanisms::spinWheel() const { return m_wheel; }
SliderImpl* NumericEntryMechanisms::slider() const { return m_slider; }
bool NumericEntryMechanisms::exists() const { return !mechanisms().isEmpty(); }

void NumericEntryMechanisms::addNumpad(bool isHex, bool realtimeUpdate)
{
    NumericEntryImpl* field = m_field;
    const QList<QString> units = field->m_unitSelector.labels();
    replace(m_numpad, new NumpadEntryImpl(field->m_valueEdit, field->window(), &units, isHex, 260, 380,
                                          realtimeUpdate, field->m_units.inDisplayUnit(field->m_lowerLimit),
                                          field->m_units.inDisplayUnit(field->m_upperLimit), field->m_precision));
    QObject::connect(m_numpad, &BaseEntryImpl::cancelEntry, field, &NumericEntryImpl::restoreValue);
    QObject::connect(m_numpad, &NumpadEntryImpl::updateUnit, field, &NumericEntryImpl::setUnit);
    QObject::connect(m_numpad, &NumpadEntryImpl::updateUnit, field, &NumericEntryImpl::enterValue);
    QObject::connect(m_numpad, qOverload<QString>(&NumpadEntryImpl::valueChanged), field,
                     &NumericEntryImpl::setAndEnterValue);
    QObject::connect(m_numpad, qOverload<>(&NumpadEntryImpl::valueChanged), field, &NumericEntryImpl::noteEntry);
    QObject::connect(m_numpad, &BaseEntryImpl::clearEntry, field, &NumericEntryImpl::noteEntry);
    QObject::connect(m_numpad, &BaseEntryImpl::clearEntry, field, &NumericEntryImpl::clearSlider);
    QObject::connect(m_numpad, &NumpadEntryImpl::rotateEntryMechanism, field,
                     &NumericEntryImpl::rotateEntryMechanism);
}

void NumericEntryMechanisms::addSpinWheel(double lower, double upper)
{
    NumericEntryImpl* field = m_field;
    replace(m_wheel, new SpinWheelImpl(field->window(), field->m_units.inDisplayUnit(lower),
                                       field->m_units.inDisplayUnit(upper), field->m_precision, 260, 330));
    QObject::connect(m_wheel, &SpinWheelImpl::valueChanged, field, &NumericEntryImpl::setAndEnterValue);
    QObject::connect(m_wheel, &SpinWheelImpl::closeEntry, field, &NumericEntryImpl::sliderCloseSlot);
    QObject::connect(m_wheel, &SpinWheelImpl::cancelEntry, field, &NumericEntryImpl::restoreValue);
    QObject::connect(m_wheel, &SpinWheelImpl::rotateEntryMechanism, field, &NumericEntryImpl::rotateEntryMechanism);
}

void NumericEntryMechanisms::addSliderControl(bool single, double lower, double upper)
{
    NumericEntryImpl* field = m_field;
    const double shownLower = field->m_units.inDisplayUnit(lower);
    const double shownUpper = field->m_units.inDisplayUnit(upper);
    SingleSliderImpl* rotating = nullptr;
    if (single)
        replace<SliderImpl>(m_slider, rotating = new SingleSliderImpl(field->window(), 0.0, shownLower, shownUpper,
                                                                      field->m_precision));
    else
        replace<SliderImpl>(m_slider,
                            new DoubleSliderImpl(field->window(), 0.0, shownLower, shownUpper, field->m_precision));
    QObject::connect(m_slider, &SliderImpl::valueChanged, field, &NumericEntryImpl::sliderSetSlot);
    QObject::connect(m_slider, &SliderImpl::closeEntry, field, &NumericEntryImpl::sliderCloseSlot);
    QObject::connect(m_slider, &SliderImpl::cancelEntry, field, &NumericEntryImpl::restoreValue);
    // The double slider takes no part in the rotation.
    if (rotating)
        QObject::connect(rotating, &SingleSliderImpl::rotateEntryMechanism, field,
                         &NumericEntryImpl::rotateEntryMechanism);
}

bool NumericEntryMechanisms::open(int selectorWidth)
{
    moveToScreen();
    if (!m_numpad)
        return false;
    m_placement = EntryPlacement::place(m_numpad, m_field->m_valueEdit, selectorWidth);
    m_numpad->setValue(m_field->m_valueEdit->text());
    if (m_numpad->realtimeUpdate())
        m_numpad->updateCursorPosition();
    m_numpad->show();
    m_numpad->raise();
    return true;
}

// Keypad, wheel, slider and back to the keypad; a mechanism the field lacks is passed over.
void NumericEntryMechanisms::rotate(const QString& entry)
{
    if (entry == QLatin1String("NumpadEntry") && m_numpad) {
        if (m_wheel) {
            m_numpad->hide();
            showSpinWheel();
        } else if (m_slider) {
            m_numpad->hide();
            showSlider();
        }
    } else if (entry == QLatin1String("SpinWheel") && m_wheel) {
        m_wheel->hide();
        if (m_slider)
            showSlider();
        else
            showNumpad();
    } else if (entry == QLatin1String("SingleSlider") && m_slider) {
        m_slider->hide();
        showNumpad();
    }
}

void NumericEntryMechanisms::close()
{
    for (QWidget* mechanism : mechanisms())
        mechanism->hide();
}

void NumericEntryMechanisms::raise()
{
    for (QWidget* mechanism : mechanisms())
        mechanism->raise();
}

bool NumericEntryMechanisms::isStepping() const
{
    return (m_wheel && m_wheel->isVisible()) || (m_slider && m_slider->isVisible())
           || (m_numpad && m_numpad->isVisible() && m_numpad->realtimeUpdate());
}

void NumericEntryMechanisms::followField()
{
    const QString text = m_field->m_valueEdit->text();
    if (m_wheel && m_wheel->isVisible()) {
        m_wheel->setValue(text);
        m_wheel->updateCursorPosition();
    }
    if (m_slider && m_slider->isVisible()) {
        m_slider->setValue(text, m_field->getUnit());
        m_slider->updateCursorPosition();
    }
    if (m_numpad && m_numpad->isVisible() && m_numpad->realtimeUpdate()) {
        m_numpad->setValue(text);
        m_numpad->updateCursorPosition();
    }
}

void NumericEntryMechanisms::clearSlider()
{
    if (m_slider)
        m_slider->clear();
}

void NumericEntryMechanisms::setUnitList(const QStringList& labels)
{
    if (m_numpad)
        m_numpad->setUnitList(labels);
}

void NumericEntryMechanisms::changePrecision(int precision)
{
    if (m_slider)
        m_slider->changePrecision(precision);
    if (m_wheel)
        m_wheel->changePrecision(precision);
    if (m_numpad)
        m_numpad->changePrecision(precision);
}

void NumericEntryMechanisms::updateSliderBounds(long key)
{
    const NumericUnits& units = m_field->m_units;
    const Kelvane::Value::Units unit = units.unit(key, units.baseUnit());
    const double lower = units.converted(m_field->m_lowerLimit, unit);
    const double upper = units.converted(m_field->m_upperLimit, unit);
    if (m_slider)
        m_slider->updateLimits(lower, upper);
    if (m_wheel)
        m_wheel->updateLimits(lower, upper);
    // A keypad that never steps keeps the limits it was made with.
    if (m_numpad && m_numpad->realtimeUpdate())
        m_numpad->updateLimits(lower, upper);
}

void NumericEntryMechanisms::showNumpad()
{
    const QSize size = m_numpad->size();
    m_numpad->move(m_placement.checkEntryWidthPos(size.width()), m_placement.checkEntryHeightPos(size.height()));
    m_numpad->setValue(m_field->m_valueEdit->text());
    if (m_numpad->realtimeUpdate())
        m_numpad->updateCursorPosition();
    m_numpad->show();
    m_numpad->raise();
}

// The wheel shares the keypad's lower edge when the keypad opened above the field.
void NumericEntryMechanisms::showSpinWheel()
{
    m_wheel->setValue(m_field->m_valueEdit->text());
    m_wheel->updateCursorPosition();
    const QSize size = m_wheel->size();
    const int x = m_placement.checkEntryWidthPos(size.width());
    int y = m_placement.checkEntryHeightPos(size.height());
    if (y == m_placement.entryY() && m_placement.isAbove())
        y = m_placement.entryY() + m_placement.padSize().height() - size.height();
    m_wheel->move(x, y);
    m_wheel->show();
    m_wheel->raise();
}

// Below the field the slider shares the keypad's upper edge, above it the
// lower one; opened left of the field it shares the right edge.
void NumericEntryMechanisms::showSlider()
{
    m_slider->setValue(m_field->m_valueEdit->text(), m_field->getUnit());
    m_slider->updateCursorPosition();
    const QSize size = m_slider->size();
    const QSize pad = m_placement.padSize();
    int x = m_placement.checkEntryWidthPos(size.width());
    if (m_placement.isLeft() && x == m_placement.entryX())
        x = m_placement.entryX() + pad.width() - size.width();
    const int y = m_placement.isAbove() ? m_placement.entryY() + pad.height() - size.height() : m_placement.entryY();
    m_slider->move(x, y);
    m_slider->show();
    m_slider->raise();
}

void NumericEntryMechanisms::moveToScreen()
{
    QWidget* screen = GlobalImpl::getInstance()->systemModule()->getSystemScreen(QStringLiteral("MainWindow"));
    if (!screen)
        return;
    for (QWidget* mechanism : mechanisms()) {
        if (mechanism->parentWidget() != screen)
            mechanism->setParent(screen);
    }
}

QList<QWidget*> NumericEntryMechanisms::mechanisms() const
{
    QList<QWidget*> made;
    for (QWidget* mechanism : std::initializer_list<QWidget*>{m_numpad, m_wheel, m_slider}) {
        if (mechanism)
            made << mechanism;
    }
    return made;
}
