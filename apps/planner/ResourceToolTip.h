// What the tooltips of a resource say.
#pragma once

#include "plan/ResourceLoad.h"

#include <QString>

namespace korvane::planner {

/// Rich text: by how much the resource is used beyond its limit, and when; the first stretches,
/// neighbours joined. Its name alone when `over` is empty.
QString ResourceToolTip(const PlanResource &resource, std::span<const LoadStretch> over);

} // namespace korvane::planner
