#ifndef SIMATTRIBUTESETUP_H
#define SIMATTRIBUTESETUP_H

#include "SimKind.h"
#include "SimValue.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

//! A unit as the engine sends it: scale part and base-unit part ("0,3,0", "Hz;;;;").
struct SimUnits
{
    std::string scale;
    std::string base;
};

//! Lower and upper bound of a numeric attribute, in its base unit.
struct SimLimits
{
    double lower = 0.0;
    double upper = 0.0;
    double step = 1.0;
};

struct SimEnumEntry
{
    std::int32_t value = 0;
    std::string label;
    bool enabled = true;
};

//! One item of a meter reading: its type (0 "Peak Positive" ... 8) and its distance from the value.
struct SimMeterItem
{
    std::int32_t type = 0;
    double offset = 0.0;
};

/*!
  How a meter reading is made from the attribute's value: one item per
  entry, and the seven flags as they stand. The over-limit flag (flag3)
  also rises by itself while the value is past the upper limit.
*/
struct SimMeter
{
    std::vector<SimMeterItem> items{SimMeterItem{}};
    std::array<bool, 7> flags{};
};

/*!
  A change the engine makes by itself, so that a screen shows live values.
  Ramp runs from min to max once per period and starts again; drain falls
  from max to min over one period and climbs back over the next, as a
  battery that runs down and is charged (both move at every tick); walk moves by
  up to a tenth of the range once per period; toggle flips a boolean (a
  number swaps between min and max); cycle steps an enum to its next enabled
  entry (a number counts up by one from min to max, a text goes to the next
  of its texts); reshape changes an enum's list once per period, dropping
  its last entry and then restoring it.
*/
struct SimSimulation
{
    enum class Kind { None, Ramp, Drain, Walk, Toggle, Cycle, Reshape };
    Kind kind = Kind::None;
    int periodMs = 1000;
    double min = 0.0;
    double max = 100.0;
    std::vector<std::string> texts;  //!< UTF-8, what a text's cycle goes through
};

//! Everything the engine needs to declare one attribute.
struct SimAttributeSetup
{
    std::string name;
    SimKind kind = SimKind::ReadingLong;
    std::optional<SimValue> value;    //!< empty: zero, false, "" or no samples
    std::optional<SimLimits> limits;  //!< empty: the whole range of the value's type
    SimUnits units;                   //!< of the value; of the y axis for a trace
    SimUnits xUnits;                  //!< of a trace's x axis
    std::vector<SimEnumEntry> enumEntries;
    SimMeter meter;                   //!< of a meter reading
    SimSimulation simulation;
    std::vector<std::string> refusedTexts;  //!< UTF-8; a set() of one of these is refused
};

#endif // SIMATTRIBUTESETUP_H
