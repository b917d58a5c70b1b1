// What the tooltip of a task's bar says.
#pragma once

#include "plan/Plan.h"

#include <QString>

namespace korvane::planner {

/// Rich text: name, dates, duration, how much is done, who works on it, and the beginning of the
/// notes. The task has dates.
QString TaskToolTip(const Plan &plan, int task);

} // namespace korvane::planner
