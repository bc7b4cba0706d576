#ifndef SIMSCENARIO_H
#define SIMSCENARIO_H

#include "SimAttributeSetup.h"

#include <QByteArray>
#include <QString>

#include <vector>

class SimEngine;

/*!
  A scenario file: the attributes an engine serves, as JSON.

    { "attributes": [
        { "name": "Frequency", "kind": "EngineAttribDouble", "value": 1e9,
          "limits": { "lower": 1e3, "upper": 6e9, "step": 1e6 },
          "units": "0,0,0:Hz;;;;",
          "simulation": { "kind": "walk", "period_ms": 500, "min": 1e9, "max": 2e9 } },
        { "name": "Mode", "kind": "EngineAttribEnum", "value": 0,
          "enum": [ { "value": 0, "label": "Auto" }, { "value": 1, "label": "Manual", "enabled": false } ] } ] }

  "kind" is the bare interface name. "value" is a number, boolean or
  string as the kind wants, an array of numbers for a basic trace and of
  [i, q] pairs for a complex one; a trace's x axis runs over its limits in
  "x_units". Units are unit descriptions, as a form's unit list has them.
  A meter reading may say what it is made of:
    "meter": { "items": [ { "type": 0 }, { "type": 4, "offset": -3 } ], "flags": [ 1 ] }
  each item a reading type (0 "Peak Positive" ... 8) at that distance from
  the value, and the flags (0 to 6) that stay raised. A text may cycle
  through a list and refuse some texts when set:
    "simulation": { "kind": "cycle", "period_ms": 2000, "texts": [ "a", "b" ] },
    "refuse": [ "forbidden" ]
  Everything but name and kind may be left out; what is given must have
  the type and range the engine sends it in (32-bit whole numbers for a
  long's value and limits, floats for a basic trace). A name is unique, at
  most 240 bytes of UTF-8 without control characters, as it becomes part
  of DDS topic names. Limits need lower <= upper and a positive step; a
  simulation's period is 1 ms to a day, and its min <= max lie in the
  range of the kind.
*/
class SimScenario
{
public:
    //! Throws std::runtime_error naming the attribute and what is wrong with it.
    static std::vector<SimAttributeSetup> parse(const QByteArray& json);
    //! Reads the file and declares its attributes; throws std::runtime_error.
    static void load(const QString& path, SimEngine& engine);
};

#endif // SIMSCENARIO_H
