// What has to be written into the elements of calendars.
#pragma once

#include "plan/MspdiMarkup.h"

namespace korvane::planner {

/// All fields of a calendar that other calendars are based on.
XmlFields MspdiCalendarFields(const PlanCalendar &calendar, const MspdiMarkup &markup);

} // namespace korvane::planner
