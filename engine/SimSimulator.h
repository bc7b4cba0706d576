#ifndef SIMSIMULATOR_H
#define SIMSIMULATOR_H

#include "SimAttributeSetup.h"
#include "SimAttributeState.h"

#include <chrono>
#include <optional>
#include <random>

/*!
  The running simulation of one attribute: tells, at each tick of the
  engine, the value the attribute moves to, if it moves.
*/
class SimSimulator
{
public:
    using Clock = std::chrono::steady_clock;

    explicit SimSimulator(const SimSimulation& simulation, Clock::time_point start = Clock::now());

    //! Whether this simulation can drive an attribute of that kind.
    static bool suits(const SimSimulation& simulation, SimKind kind);

    //! The next value, when the simulation moves at `now`.
    std::optional<SimValue> advance(Clock::time_point now, const SimAttributeState& state);
    //! The next enumerator list, when a reshape moves at `now`: \a whole without its last entry, or whole again.
    std::optional<std::vector<SimEnumEntry>> nextList(Clock::time_point now, const SimAttributeState& state,
                                                      const std::vector<SimEnumEntry>& whole);

private:
    bool due(Clock::time_point now);
    double nextNumber(Clock::time_point now, double current);
    //! Periods gone since the start, counted within a cycle of \a cycle periods: from 0 up to \a cycle.
    double periodsSinceStart(Clock::time_point now, int cycle) const;
    static SimValue nextEntry(const SimAttributeState& state);
    //! The text after \a current in the cycle; the first after the last or after one not in it.
    std::string nextText(const std::string& current) const;

    SimSimulation m_simulation;
    Clock::time_point m_start;
    Clock::time_point m_nextDue;
    std::minstd_rand m_random;
};

#endif // SIMSIMULATOR_H
