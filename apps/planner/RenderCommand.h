// planner --render: a picture of a plan, without a window.
#pragma once

#include "CommandLine.h"

namespace korvane::planner {

/// Needs a QApplication, on any platform. Prints one line on standard error when it fails.
ExitCode RenderPlan(const QString &fileName, const ReadOptions &options,
                    const RenderRequest &request);

} // namespace korvane::planner
