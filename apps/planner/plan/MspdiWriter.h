// Writes project plans in the XML interchange format with the namespace
// http://schemas.microsoft.com/project.
#pragma once

#include "plan/Plan.h"
#include "plan/PlanReader.h"
#include "plan/PlanSource.h"

#include <optional>

namespace korvane::planner {

/// Writes the plan so that MspdiReader reads the same plan again.
///
/// With the source that the plan was read from, only what has changed since is written anew, and
/// all the rest stays to the byte: elements that the plan does not know, their order, comments and
/// indentation. Tasks are told apart by their UIDs. Elements of deleted tasks and their assignments
/// go; blank rows stay behind the task that they followed. Row numbers, outline numbers and levels
/// are renewed when the outline has changed. The text is UTF-8 in any case.
///
/// Without a source the whole document is new. Items whose UIDs the format cannot use (0, none, or
/// one that is taken) get others, there and in the plan that is read back.
///
/// `target` is open for writing. Returns what went wrong. The first half of the progress is the
/// reading of the source, the second one the writing of the tasks; its counts have no unit. It
/// cannot be cancelled.
std::optional<QString> WriteMspdi(const Plan &plan, const PlanSource *source, QIODevice &target,
                                  IProgress &progress);

inline std::optional<QString> WriteMspdi(const Plan &plan, const PlanSource *source,
                                         QIODevice &target)
{
    NoProgress progress;
    return WriteMspdi(plan, source, target, progress);
}
/// That the target has not taken everything; devices that take a part leave the reason open.
QString WriteFailure();

} // namespace korvane::planner
