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

void NumericUnits::setDescriptions(const QString& descriptions, const QString& owner)
{
    m_descriptions = descriptions;
    m_table.clear();
    m_unreadable.clear();
    const QStringList parts = descriptions.split(QLatin1Char('|'), Qt::SkipEmptyParts);
    for (int i = 0; i < parts.size(); ++i) {
        Units unit;
        QString error;
        // A bad description costs its own entry only.
        if (!ValueHelper::parseUnits(parts.at(i), &unit, &error)) {
            qDebug() << "UserInterface -" << owner << "ignores the unit" << parts.at(i) << ":" << error;
            if (m_unreadable.isNull())
                m_unreadable = error;
            continue;
        }
        m_table.insert(i, unit);
    }
}

QString NumericUnits::descriptions() const { return m_descriptions; }
bool NumericUnits::contains(long key) const { return m_table.contains(key); }
Units NumericUnits::unit(long key, const Units& fallback) const { return m_table.value(key, fallback); }
bool NumericUnits::filterByBaseUnit() const { return m_filterByBaseUnit; }
void NumericUnits::setFilterByBaseUnit(bool filter) { m_filterByBaseUnit = filter; }

bool NumericUnits::allUnits(QList<Units>* units, QString* error) const
{
    if (!m_unreadable.isNull()) {
        *error = m_unreadable;
        return false;
    }
    units->clear();
    for (long key : sortedKeys())
        *units << m_table.value(key);
    return true;
}

QList<long> NumericUnits::sortedKeys() const
{
    QList<long> keys = m_table.keys();
    std::sort(keys.begin(), keys.end());
    return keys;
}

QList<long> NumericUnits::offeredKeys() const
{
    QList<long> keys = sortedKeys();
    if (!m_filterByBaseUnit)
        return keys;
    const Units base = baseUnit();
    keys.erase(std::remove_if(keys.begin(), keys.end(),
                              [&](long key) { return !m_baseUnitsMatch(m_table.value(key), base); }),
               keys.end());
    return keys;
}

Units NumericUnits::baseUnit() const
{
    QMutexLocker lock(&m_mutex);
    return m_baseUnit;
}

Units NumericUnits::displayUnit() const
{
    QMutexLocker lock(&m_mutex);
    return m_displayUnit;
}

void NumericUnits::setBaseUnit(const Units& unit)
{
    QMutexLocker lock(&m_mutex);
    m_baseUnit = unit;
}

void NumericUnits::takeBaseUnit(const QString& description)
{
    setBaseUnit(ValueHelper::convertToUnits(description));
}

void NumericUnits::setDisplayUnit(const Units& unit)
{
    QMutexLocker lock(&m_mutex);
    m_displayUnit = unit;
}

void NumericUnits::setWireUnit(const Units& wire)
{
    QMutexLocker lock(&m_mutex);
    m_wireUnit = wire;
    m_baseUnit = wire;
    m_displayUnit = wire;
}

void NumericUnits::setUnitless()
{
    const Units unitless = ValueHelper::convertToUnits(QStringLiteral("0,0,0:1;;;;"));
    QMutexLocker lock(&m_mutex);
    m_baseUnit = unitless;
    m_displayUnit = unitless;
}

bool NumericUnits::followBaseUnit(const Units& wire, bool alsoDisplay)
{
    // The rule may be a field's own, which may ask for the base unit: it runs unlocked.
    if (!m_filterByBaseUnit || m_baseUnitsMatch(wire, baseUnit()))
        return false;
    QMutexLocker lock(&m_mutex);
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
    QMutexLocker lock(&m_mutex);
    return ValueHelper::convertValue(value, m_baseUnit, m_displayUnit);
}

NumericUnits::ForSend NumericUnits::forSend() const
{
    QMutexLocker lock(&m_mutex);
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
