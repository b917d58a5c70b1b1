// Wall clocks of calendars on the time axis.
#pragma once

#include "agenda/AgendaZone.h"
#include "foundation/zuTypes.h"

#include <cmath>

namespace korvane::planner {

/// 1970-01-01 on the time axis.
inline constexpr TDateTime kAgendaEpoch = 25'569;

/// To the nearest second.
inline AgendaSeconds SecondsOfDate(TDateTime date)
{
    return std::llround((date - kAgendaEpoch) * static_cast<TDateTime>(kSecondsPerDay));
}

inline TDateTime DateOfSeconds(AgendaSeconds seconds)
{
    return kAgendaEpoch + static_cast<TDateTime>(seconds) / static_cast<TDateTime>(kSecondsPerDay);
}

} // namespace korvane::planner
