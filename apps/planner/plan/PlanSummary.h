// A plan in figures.
#pragma once

#include "plan/Plan.h"

#include <QJsonObject>

namespace korvane::planner {

/// For interval sets `rows`, `items`, `start` and `finish`, else `tasks`, `milestones`, `summaries`
/// (as the file marks them), `links`, `resources`, and `start` and `finish` as ISO 8601 date-times
/// or null.
QJsonObject Summarize(const Plan &plan);

} // namespace korvane::planner
