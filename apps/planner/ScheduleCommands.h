// What the command line does with calendars and programmes.
#pragma once

#include "CommandLine.h"

namespace korvane::planner {

class ISchedulePages;
struct SchedulePage;

/// Whether a file is a calendar or a programme, and so not a plan.
bool IsScheduleFile(const QString &fileName);
/// Filter of a file dialog.
QString ScheduleDialogFilter();
/// What a range on the command line asks for: see RenderSchedule.
SchedulePage PageFor(const ISchedulePages &pages, const RenderRequest &request);
/// As PrintSummary for plans. The range is that of the occurrences that count.
ExitCode PrintScheduleSummary(const QString &fileName, const RenderRequest &request);
/// As RenderPlan for plans: the days of a calendar from --from up to --to, or the week that is
/// nearest to now and has events in it; of a programme the day of --from, or the first one. Needs a
/// QApplication.
ExitCode RenderSchedule(const QString &fileName, const RenderRequest &request);

} // namespace korvane::planner
