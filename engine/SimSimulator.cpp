#include "SimSimulator.h"

#include "SimRecords.h"

#include <algorithm>
#include <cmath>

using Kind = SimSimulation::Kind;

SimSimulator::SimSimulator(const SimSimulation& simulation, Clock::time_point start)
    : m_simulation(simulation)
    , m_start(start)
    , m_nextDue(start + std::chrono::milliseconds(simulation.periodMs))
{
}

bool SimSimulator::suits(const SimSimulation& simulation, SimKind kind)
{
    const SimKindInfo& info = simKindInfo(kind);
    if (simulation.kind == Kind::None)
        return true;
    if (simulation.periodMs <= 0 || simulation.max < simulation.min)
        return false;
    if (info.enumerated)
        return simulation.kind == Kind::Cycle || simulation.kind == Kind::Reshape;
    switch (info.payload) {
    case SimPayload::Boolean:
        return simulation.kind == Kind::Toggle;
    case SimPayload::String:
        return simulation.kind == Kind::Cycle && !simulation.texts.empty();
    case SimPayload::BasicTrace:
    case SimPayload::ComplexTrace:
        return false;
    default:
        return true;
    }
}

std::optional<SimValue> SimSimulator::advance(Clock::time_point now, const SimAttributeState& state)
{
    if (m_simulation.kind == Kind::None || m_simulation.kind == Kind::Reshape || !due(now))
        return std::nullopt;
    if (const bool* flag = std::get_if<bool>(&state.value))
        return SimValue(!*flag);
    if (const std::string* text = std::get_if<std::string>(&state.value))
        return SimValue(nextText(*text));
    if (!state.enumEntries.empty())
        return nextEntry(state);
    const double next = nextNumber(now, SimRecords::numberOf(state.value));
    if (std::holds_alternative<std::int64_t>(state.value))
        return SimValue(static_cast<std::int64_t>(std::llround(next)));
    return SimValue(next);
}

bool SimSimulator::due(Clock::time_point now)
{
    // A ramp and a drain move at every tick; the others once per period.
    if (m_simulation.kind == Kind::Ramp || m_simulation.kind == Kind::Drain)
        return true;
    if (now < m_nextDue)
        return false;
    m_nextDue += std::chrono::milliseconds(m_simulation.periodMs);
    if (m_nextDue <= now)  // after a stall, do not catch up tick by tick
        m_nextDue = now + std::chrono::milliseconds(m_simulation.periodMs);
    return true;
}

double SimSimulator::nextNumber(Clock::time_point now, double current)
{
    const double span = m_simulation.max - m_simulation.min;
    switch (m_simulation.kind) {
    case Kind::Ramp:
        return m_simulation.min + span * periodsSinceStart(now, 1);
    case Kind::Drain: {
        // Down over the first period, back up over the second.
        const double phase = periodsSinceStart(now, 2);
        return phase < 1.0 ? m_simulation.max - span * phase : m_simulation.min + span * (phase - 1.0);
    }
    case Kind::Walk: {
        std::uniform_real_distribution<double> step(-span / 10.0, span / 10.0);
        return std::clamp(current + step(m_random), m_simulation.min, m_simulation.max);
    }
    case Kind::Toggle:
        return current == m_simulation.max ? m_simulation.min : m_simulation.max;
    case Kind::Cycle:
        return current + 1.0 > m_simulation.max ? m_simulation.min : current + 1.0;
    case Kind::None:
    case Kind::Reshape:
        break;
    }
    return current;
}

double SimSimulator::periodsSinceStart(Clock::time_point now, int cycle) const
{
    const std::int64_t elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(now - m_start).count();
    const std::int64_t cycleMs = std::int64_t{m_simulation.periodMs} * cycle;
    return static_cast<double>(elapsed % cycleMs) / m_simulation.periodMs;
}

std::optional<std::vector<SimEnumEntry>> SimSimulator::nextList(Clock::time_point now, const SimAttributeState& state,
                                                                const std::vector<SimEnumEntry>& whole)
{
    if (m_simulation.kind != Kind::Reshape || whole.empty() || !due(now))
        return std::nullopt;
    if (state.enumEntries.size() < whole.size())
        return whole;
    return std::vector<SimEnumEntry>(whole.begin(), whole.end() - 1);
}

std::string SimSimulator::nextText(const std::string& current) const
{
    const std::vector<std::string>& texts = m_simulation.texts;
    const auto it = std::find(texts.begin(), texts.end(), current);
    return it == texts.end() || it + 1 == texts.end() ? texts.front() : *(it + 1);
}

SimValue SimSimulator::nextEntry(const SimAttributeState& state)
{
    const std::int64_t current = std::get<std::int64_t>(state.value);
    const auto& entries = state.enumEntries;
    auto it = std::find_if(entries.begin(), entries.end(), [&](const SimEnumEntry& e) { return e.value == current; });
    const std::size_t from = it == entries.end() ? 0 : static_cast<std::size_t>(it - entries.begin()) + 1;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const SimEnumEntry& candidate = entries[(from + i) % entries.size()];
        if (candidate.enabled)
            return std::int64_t{candidate.value};
    }
    return current;
}
