// The formats of pictures, by the names of their files.
#pragma once

#include "plan/PlannerText.h"

#include <QFileInfo>
#include <QString>

#include <cstdint>
#include <optional>

namespace korvane::planner {

enum class PictureFormat : std::uint8_t { Png, Pdf, Svg };

/// By the suffix of the file name; nothing for other suffixes.
inline std::optional<PictureFormat> PictureFormatOf(const QString &fileName)
{
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    if (suffix == QLatin1String("png")) {
        return PictureFormat::Png;
    }
    if (suffix == QLatin1String("pdf")) {
        return PictureFormat::Pdf;
    }
    if (suffix == QLatin1String("svg")) {
        return PictureFormat::Svg;
    }
    return std::nullopt;
}

/// Filter of a file dialog, one entry per format.
inline QString PictureDialogFilter()
{
    return PlannerText::tr("PNG image (*.png);;PDF document (*.pdf);;SVG drawing (*.svg)");
}

} // namespace korvane::planner
