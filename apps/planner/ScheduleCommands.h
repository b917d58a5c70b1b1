// What the command line does with calendars and programmes.
#pragma once

#include "CommandLine.h"

namespace korvane::planner {

/// Whether a file is a calendar or a programme, and so not a plan.
bool IsScheduleFile(const QString &fileName);
/// As PrintSummary for plans. The range is that of the occurrences that count.
ExitCode PrintScheduleSummary(const QString &fileName, const RenderRequest &request);

} // namespace korvane::planner
