// planner --print, which needs no window.
#pragma once

#include "CommandLine.h"

namespace korvane {
class TzuPrintDocument;
}

namespace korvane::planner {

/// Saves the pages as the file's suffix says; several pages of pictures into numbered files. False
/// when cancelled. Throws std::runtime_error with a text for the user.
bool SavePages(TzuPrintDocument &document, const QString &fileName, int dotsPerInch);

/// Prints a plan. Needs a QApplication, on any platform. Prints one line on standard error when it
/// fails.
ExitCode PrintPlan(const QString &fileName, const ReadOptions &options, const PrintRequest &request,
                   const RenderRequest &range);
/// Likewise a calendar: the days of the range, or else the week in which it begins; or a programme:
/// all days, or the one that the range begins with.
ExitCode PrintSchedule(const QString &fileName, const PrintRequest &request,
                       const RenderRequest &range);

} // namespace korvane::planner
