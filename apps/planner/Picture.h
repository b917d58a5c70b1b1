// Pictures of charts in files.
#pragma once

#include "PictureFormat.h"

#include <QString>

#include <optional>

namespace korvane::planner {

class PlanChart;

/// Draws the chart as large as it is, without its scroll bar, into a file. PNG pictures have
/// `ratio` device pixels per pixel; PDF and SVG consist of text and lines and ignore it.
/// Returns why that failed, in one line; nothing when the file is complete.
std::optional<QString> SavePicture(PlanChart &chart, const QString &fileName, double ratio);

} // namespace korvane::planner
