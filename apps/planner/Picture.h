// Pictures of charts in files.
#pragma once

#include "PictureFormat.h"

#include <QString>
#include <QWidget>

#include <optional>

namespace korvane::planner {

class PlanView;

/// What a picture shows.
struct PictureSubject
{
    QWidget &Widget;
    QString Title;
    QWidgetList Parts; ///< that make it up, from bottom to top
};

/// Draws a widget as large as it is into a file, as for charts.
std::optional<QString> SavePicture(const PictureSubject &subject, const QString &fileName,
                                   double ratio);

/// Draws the chart as large as it is, without its scroll bar, into a file. PNG pictures have
/// `ratio` device pixels per pixel; PDF and SVG consist of text and lines and ignore it.
/// Returns why that failed, in one line; nothing when the file is complete.
std::optional<QString> SavePicture(PlanView &chart, const QString &fileName, double ratio);

} // namespace korvane::planner
