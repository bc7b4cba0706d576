#ifndef UNITSELECTOR_H
#define UNITSELECTOR_H

#include "Units.h"

#include <QList>
#include <QMetaObject>
#include <QObject>

#include <functional>

/*!
  A widget in which the operator chooses a unit, for another widget to show
  its figures in the same unit. A unit is known by its key: its position in
  the list of selectable units.
*/
class UnitSelector
{
public:
    virtual ~UnitSelector() = default;

    /*!
      The selectable units in key order. False, with the reason in \a error
      and \a units untouched, if one of them cannot be read: a list without
      it would give every later key another unit.
    */
    virtual bool selectableUnits(QList<Kelvane::Value::Units>* units, QString* error) const = 0;
    virtual long selectedUnitKey() const = 0;
    //! Calls \a onChoice with each newly chosen key while \a receiver lives.
    virtual QMetaObject::Connection followUnitChoice(QObject* receiver, std::function<void(long)> onChoice) = 0;
};

Q_DECLARE_INTERFACE(UnitSelector, "com.ruvell.UnitSelector/1.0")

#endif // UNITSELECTOR_H
