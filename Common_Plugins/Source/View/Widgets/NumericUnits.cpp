#include "NumericUnits.h"

#include "ValueHelper.h"

#include <QDebug>
#include <QStringList>

#include <algorithm>

using Kelvane::Value::Units;

NumericUnits::NumericUnits(BaseUnitsMatch baseUnitsMatch)
    : m_baseUnitsMatch(std::move(baseUnitsMatch))
{
}

void NumericUnits::setUnitListString(const QString& descriptions, const QString& owner)
{
    m_unitListString = descriptions;
    m_unitTable.clear();
    m_unreadable.reset();
    const QStringList parts = descriptions.split(QLatin1Char('|'), Qt::SkipEmptyParts);
    for (int i = 0; i < parts.size(); ++i) {
        Units unit;
        QString error;
        // A bad description costs its own entry only.
        if (!ValueHelper::parseUnits(parts.at(i), &unit, &error)) {
            qDebug() << "UserInterface -" << owner << "ignores the unit" << parts.at(i) << ":" << error;
            if (!m_unreadable)
                m_unreadable = error;
            continue;
        }
        m_unitTable.insert(i, unit);
    }
}

QString NumericUnits::unitListString() const { return m_unitListString; }
bool NumericUnits::contains(long key) const { return m_unitTable.contains(key); }
Units NumericUnits::unit(long key, const Units& fallback) const { return m_unitTable.value(key, fallback); }
bool NumericUnits::filterByBaseUnit() const { return m_filterByBaseUnit; }
void NumericUnits::setFilterByBaseUnit(bool filter) { m_filterByBaseUnit = filter; }

bool NumericUnits::allUnits(QList<Units>* units, QString* error) const
{
    if (m_unreadable) {
        *error = *m_unreadable;
        return false;
    }
    *units = m_unitTable.values();
    return true;
}

QList<long> NumericUnits::offeredKeys() const
{
    QList<long> keys = m_unitTable.keys();
    if (!m_filterByBaseUnit)
        return keys;
    const Units base = baseUnit();
    keys.erase(std::remove_if(keys.begin(), keys.end(),
                              [&](long key) { return !m_baseUnitsMatch(m_unitTable.value(key), base); }),
               keys.end());
    return keys;
}

Units NumericUnits::baseUnit() const
{
    QMutexLocker lock(&m_unitMutex);
    return m_baseUnit;
}

Units NumericUnits::displayUnit() const
{
    QMutexLocker lock(&m_unitMutex);
    return m_displayUnit;
}

void NumericUnits::setBaseUnit(const Units& unit)
{
    QMutexLocker lock(&m_unitMutex);
    m_baseUnit = unit;
}

void NumericUnits::takeBaseUnit(const QString& description)
{
    setBaseUnit(ValueHelper::convertToUnits(description));
}

void NumericUnits::setDisplayUnit(const Units& unit)
{
    QMutexLocker lock(&m_unitMutex);
    m_displayUnit = unit;
}

void NumericUnits::setWireUnit(const Units& wire)
{
    QMutexLocker lock(&m_unitMutex);
    m_wireUnit = wire;
    m_baseUnit = wire;
    m_displayUnit = wire;
}

void NumericUnits::setUnitless()
{
    const Units unitless = ValueHelper::convertToUnits(QStringLiteral("0,0,0:1;;;;"));
    QMutexLocker lock(&m_unitMutex);
    m_baseUnit = unitless;
    m_displayUnit = unitless;
}

bool NumericUnits::followBaseUnit(const Units& wire, bool alsoDisplay)
{
    // The rule may be a field's own, which may ask for the base unit: it runs unlocked.
    if (!m_filterByBaseUnit || m_baseUnitsMatch(wire, baseUnit()))
        return false;
    QMutexLocker lock(&m_unitMutex);
    m_wireUnit = wire;
    m_baseUnit = wire;
    if (alsoDisplay)
        m_displayUnit = wire;
    return true;
}

double NumericUnits::converted(double value, const Units& to) const
{
    return ValueHelper::convertValue(value, baseUnit(), to);
}

double NumericUnits::inDisplayUnit(double value) const
{
    QMutexLocker lock(&m_unitMutex);
    return ValueHelper::convertValue(value, m_baseUnit, m_displayUnit);
}

double NumericUnits::inBaseUnit(double value) const
{
    QMutexLocker lock(&m_unitMutex);
    return ValueHelper::convertValue(value, m_displayUnit, m_baseUnit);
}

NumericUnits::ForSend NumericUnits::forSend() const
{
    QMutexLocker lock(&m_unitMutex);
    return {m_wireUnit, ValueHelper::getUnitString(m_displayUnit)};
}

void NumericUnits::setBroadcastUnit(const QString& description)
{
    m_broadcastUnit = ValueHelper::convertToUnits(description);
}

void NumericUnits::clearBroadcastUnit()
{
    m_broadcastUnit.reset();
}

double NumericUnits::broadcast(double number) const
{
    return m_broadcastUnit ? ValueHelper::convertValue(number, displayUnit(), *m_broadcastUnit) : number;
}
