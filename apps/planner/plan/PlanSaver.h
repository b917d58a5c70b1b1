// Saves plans into files, so that nothing is lost when that fails.
#pragma once

#include "plan/Plan.h"
#include "plan/PlanReader.h"
#include "plan/PlanSource.h"

#include <functional>
#include <optional>

namespace korvane::planner {

/// Writes into an open device; returns what went wrong.
using WriteFunction = std::function<std::optional<QString>(QIODevice &)>;

/// Writes a file, compressed when its name ends in ".gz", beside the one that is there and puts it
/// in that one's place when it is complete and on the disk. Until then the former file stays as it
/// is. Its permissions are kept, and so is a symbolic link, whose target is replaced. Returns what
/// went wrong.
std::optional<QString> SaveFile(const QString &fileName, const WriteFunction &write);

/// Saves the plan as project XML. The progress is told as for WriteMspdi.
std::optional<QString> SavePlan(const Plan &plan, const PlanSource *source, const QString &fileName,
                                IProgress &progress);

/// A save that nobody watches.
inline std::optional<QString> SavePlan(const Plan &plan, const PlanSource *source,
                                       const QString &fileName)
{
    NoProgress progress;
    return SavePlan(plan, source, fileName, progress);
}

} // namespace korvane::planner
