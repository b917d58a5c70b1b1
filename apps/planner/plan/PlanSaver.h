// Saves plans into files, so that nothing is lost when that fails.
#pragma once

#include "plan/Plan.h"
#include "plan/PlanSource.h"

#include <optional>

namespace korvane::planner {

/// Writes the plan as project XML, compressed when the name ends in ".gz", beside the file and puts
/// it in the file's place when it is complete and on the disk. Until then the former file stays as
/// it is. Its permissions are kept, and so is a symbolic link, whose target is replaced. Returns
/// what went wrong.
std::optional<QString> SavePlan(const Plan &plan, const PlanSource *source,
                                const QString &fileName);

} // namespace korvane::planner
