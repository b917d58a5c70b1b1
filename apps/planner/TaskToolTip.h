// What the tooltips of bars and links say.
#pragma once

#include "plan/Plan.h"

#include <QString>

namespace korvane::planner {

/// Rich text: name, dates, duration, how much is done, who works on it, and the beginning of the
/// notes. The task has dates.
QString TaskToolTip(const Plan &plan, int task);
/// Rich text: the tasks, type and lag.
QString LinkToolTip(const Plan &plan, int link);

} // namespace korvane::planner
