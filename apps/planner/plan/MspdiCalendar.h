// The calendars of a project XML file.
#pragma once

#include "plan/PlanBuilder.h"
#include "plan/PlanXml.h"

namespace korvane::planner {

/// Reads the children of the current `Calendar` element and adds the calendar to the plan if it is
/// a base calendar. Those derived for single resources are not used.
void ReadMspdiCalendar(PlanXml &xml, PlanBuilder &builder);

} // namespace korvane::planner
