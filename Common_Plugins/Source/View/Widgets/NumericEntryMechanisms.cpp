#include "NumericEntryMechanisms.h"

#include "GlobalImpl.h"
#include "NumericEntryImpl.h"
#include "NumpadEntryImpl.h"
#include "SystemModule.h"

#include <QLineEdit>

NumericEntryMechanisms::NumericEntryMechanisms(NumericEntryImpl* field)
    : m_field(field)
{
}

// The keypad lives on another window than the field.
NumericEntryMechanisms::~NumericEntryMechanisms()
{
    delete m_numpad;
}

NumpadEntryImpl* NumericEntryMechanisms::numpad() const
{
    return m_numpad;
}

void NumericEntryMechanisms::addNumpad(bool isHex, bool realtimeUpdate)
{
    NumericEntryImpl* field = m_field;
    const QList<QString> units = field->m_unitSelector.labels();
    m_numpad = new NumpadEntryImpl(field->m_valueEdit, field->window(), &units, isHex, 260, 380, realtimeUpdate,
                                   field->m_units.inDisplayUnit(field->m_lowerLimit),
                                   field->m_units.inDisplayUnit(field->m_upperLimit), field->m_precision);
    m_numpad->hide();
    QObject::connect(m_numpad, &BaseEntryImpl::cancelEntry, field, &NumericEntryImpl::restoreValue);
    QObject::connect(m_numpad, &NumpadEntryImpl::updateUnit, field, &NumericEntryImpl::setUnit);
    QObject::connect(m_numpad, &NumpadEntryImpl::updateUnit, field, &NumericEntryImpl::enterValue);
    QObject::connect(m_numpad, qOverload<QString>(&NumpadEntryImpl::valueChanged), field,
                     &NumericEntryImpl::setAndEnterValue);
    QObject::connect(m_numpad, qOverload<>(&NumpadEntryImpl::valueChanged), field, &NumericEntryImpl::noteEntry);
    QObject::connect(m_numpad, &BaseEntryImpl::clearEntry, field, &NumericEntryImpl::noteEntry);
    QObject::connect(m_numpad, &NumpadEntryImpl::rotateEntryMechanism, field,
                     &NumericEntryImpl::rotateEntryMechanism);
}

void NumericEntryMechanisms::open(int selectorWidth)
{
    QWidget* screen = GlobalImpl::getInstance()->systemModule()->getSystemScreen(QStringLiteral("MainWindow"));
    if (screen && m_numpad->parentWidget() != screen)
        m_numpad->setParent(screen);
    const QLineEdit* box = m_field->m_valueEdit;
    m_placement = EntryPlacement::place(m_numpad, box, selectorWidth);
    m_numpad->setValue(box->text());
    if (m_numpad->realtimeUpdate())
        m_numpad->updateCursorPosition();
    m_numpad->show();
    m_numpad->raise();
}

void NumericEntryMechanisms::close()
{
    if (m_numpad)
        m_numpad->hide();
}

void NumericEntryMechanisms::raise()
{
    if (m_numpad)
        m_numpad->raise();
}

void NumericEntryMechanisms::setUnitList(const QStringList& labels)
{
    if (m_numpad)
        m_numpad->setUnitList(labels);
}

void NumericEntryMechanisms::changePrecision(int precision)
{
    if (m_numpad)
        m_numpad->changePrecision(precision);
}

void NumericEntryMechanisms::updateSliderBounds(long key)
{
    if (!m_numpad || !m_numpad->realtimeUpdate())
        return;
    const NumericUnits& units = m_field->m_units;
    const Kelvane::Value::Units unit = units.unit(key, units.baseUnit());
    m_numpad->updateLimits(units.converted(m_field->m_lowerLimit, unit), units.converted(m_field->m_upperLimit, unit));
}
