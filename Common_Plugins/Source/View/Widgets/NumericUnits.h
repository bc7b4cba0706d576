#ifndef NUMERICUNITS_H
#define NUMERICUNITS_H

#include "Units.h"

#include <QList>
#include <QMap>
#include <QMutex>
#include <QString>

#include <functional>
#include <optional>

/*!
  The units of a numeric field: the table of units that the form's Units
  property offers, keyed by position, and the units a value is in on its
  way through the field.

  The engine gives a value in the wire unit, which goes back out with every
  send; the field holds the value in the base unit and shows it in the
  display unit. DDS threads read and follow these three while the interface
  thread changes them, so they are guarded; the table and the broadcast
  unit belong to the interface thread.
*/
class NumericUnits
{
public:
    //! Whether two units share a base unit, and so may stand for each other.
    using BaseUnitsMatch = std::function<bool(const Kelvane::Value::Units&, const Kelvane::Value::Units&)>;

    //! What a send needs of the units, taken at once.
    struct ForSend
    {
        Kelvane::Value::Units wireUnit;
        QString displayLabel;
    };

    explicit NumericUnits(BaseUnitsMatch baseUnitsMatch);

    //! Reads the "|"-joined \a descriptions into the table; \a owner names the field in the line for a bad one.
    void setUnitListString(const QString& descriptions, const QString& owner);
    QString unitListString() const;
    bool contains(long key) const;
    Kelvane::Value::Units unit(long key, const Kelvane::Value::Units& fallback = Kelvane::Value::Units()) const;
    //! Every unit of the table in key order; false, with the parser's \a error, if a description was unreadable.
    bool allUnits(QList<Kelvane::Value::Units>* units, QString* error) const;
    //! The keys of the units to offer, in order: with the filter, those of the base unit only.
    QList<long> offeredKeys() const;
    bool filterByBaseUnit() const;
    void setFilterByBaseUnit(bool filter);

    Kelvane::Value::Units baseUnit() const;
    Kelvane::Value::Units displayUnit() const;
    void setBaseUnit(const Kelvane::Value::Units& unit);
    //! A value given with a unit description brings the base unit along.
    void takeBaseUnit(const QString& description);
    void setDisplayUnit(const Kelvane::Value::Units& unit);
    //! The engine's unit becomes wire, base and display unit at once.
    void setWireUnit(const Kelvane::Value::Units& wire);
    //! A plain number has no unit to show or to send.
    void setUnitless();
    //! Takes \a wire as the new base unit when the filter asks for it; true if it did.
    bool followBaseUnit(const Kelvane::Value::Units& wire, bool alsoDisplay);
    //! \a value from the base unit into \a to.
    double converted(double value, const Kelvane::Value::Units& to) const;
    //! \a value in the base unit, as the display unit reads it.
    double inDisplayUnit(double value) const;
    //! \a value in the display unit, as the base unit reads it.
    double inBaseUnit(double value) const;
    ForSend forSend() const;

    void setBroadcastUnit(const QString& description);
    void clearBroadcastUnit();
    //! \a number, shown in the display unit, as the broadcast unit reads it.
    double broadcast(double number) const;

private:
    BaseUnitsMatch m_baseUnitsMatch;
    QString m_unitListString;
    QMap<long, Kelvane::Value::Units> m_unitTable;
    //! The parser's word on the first unreadable description.
    std::optional<QString> m_unreadable;
    bool m_filterByBaseUnit = false;
    std::optional<Kelvane::Value::Units> m_broadcastUnit;
    //! The unit as the engine gave it; it goes back out with every value.
    Kelvane::Value::Units m_wireUnit;
    Kelvane::Value::Units m_baseUnit;
    Kelvane::Value::Units m_displayUnit;
    //! Guards the three units above against the DDS threads.
    mutable QMutex m_unitMutex;
};

#endif // NUMERICUNITS_H
