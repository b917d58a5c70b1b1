// Calendars in figures.
#pragma once

#include "agenda/AgendaOccurrences.h"

#include <QJsonObject>

namespace korvane::planner {

/// `calendars`, `events` (the VEVENT components of the file) and `occurrences`: those that start in
/// the range, by the wall clocks of their own zones. An end of the range that is not given leaves
/// it open; `occurrences` is null when they have no end.
QJsonObject Summarize(const Agenda &agenda, const std::optional<AgendaSeconds> &from = {},
                      const std::optional<AgendaSeconds> &to = {});

} // namespace korvane::planner
