#ifndef SIMATTRIBUTESTATE_H
#define SIMATTRIBUTESTATE_H

#include "SimAttributeSetup.h"
#include "SimValue.h"

#include <vector>

//! What an attribute's records are made of: its value and what goes with it.
struct SimAttributeState
{
    SimValue value;
    SimLimits limits;
    SimUnits units;
    SimUnits xUnits;
    std::vector<SimEnumEntry> enumEntries;
    SimMeter meter;
};

#endif // SIMATTRIBUTESTATE_H
