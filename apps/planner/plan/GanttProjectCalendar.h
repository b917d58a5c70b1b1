// The calendar of a GanttProject file.
#pragma once

#include "plan/PlanBuilder.h"
#include "plan/PlanXml.h"

namespace korvane::planner {

/// Reads the children of the current `calendars` element and adds the one calendar that they make
/// up to the plan.
void ReadGanttProjectCalendar(PlanXml &xml, PlanBuilder &builder);

/// Adds the calendar of a file that has none: Monday to Friday.
void AddGanttProjectCalendar(PlanBuilder &builder);

} // namespace korvane::planner
