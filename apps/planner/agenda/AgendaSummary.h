// Calendars and programmes in figures.
#pragma once

#include "agenda/AgendaOccurrences.h"
#include "agenda/Programme.h"

#include <QJsonObject>

namespace korvane::planner {

/// `calendars`, `events` (the VEVENT components of the file) and `occurrences`: those that start in
/// the range, by the wall clocks of their own zones. An end of the range that is not given leaves
/// it open; `occurrences` is null when they have no end.
QJsonObject Summarize(const Agenda &agenda, const std::optional<AgendaSeconds> &from = {},
                      const std::optional<AgendaSeconds> &to = {});
/// `rooms`, `days` and `events`.
QJsonObject Summarize(const Programme &programme);

} // namespace korvane::planner
