#include "Picture.h"

#include "PlanChart.h"
#include "foundation/qt/zuSplitter.h"

#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>

namespace korvane::planner {

namespace {

/// Widgets are laid out in pixels of this size, on paper as on screen.
constexpr int kDotsPerInch = 96;
constexpr int kPointsPerInch = 72;

bool SavePng(PlanChart &chart, QIODevice &file, double ratio)
{
    const QSize size = (QSizeF(chart.size()) * ratio).toSize();
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) {
        return false;
    }
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    chart.render(&image);
    return image.convertToFormat(QImage::Format_RGB32).save(&file, "PNG");
}

bool SavePdf(PlanChart &chart, QIODevice &file)
{
    QPdfWriter writer(&file);
    writer.setTitle(chart.GetPlan().Name);
    writer.setCreator(QStringLiteral("Korvane planner"));
    writer.setResolution(kDotsPerInch);
    const QSizeF points = QSizeF(chart.size()) * kPointsPerInch / kDotsPerInch;
    writer.setPageSize(QPageSize(points, QPageSize::Point, {}, QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    QPainter painter;
    if (!painter.begin(&writer)) {
        return false;
    }
    chart.render(&painter);
    return painter.end();
}

/// SVG drawings made by the toolkit know no clipping: what a part draws beyond its bounds is
/// covered by the next one, and at the right and bottom edge by the end of the drawing.
void RenderPartByPart(PlanChart &chart, QPainter &painter)
{
    painter.fillRect(chart.rect(), chart.palette().window());
    QWidgetList parts = {&chart.GantArea(), &chart.DateScaler()};
    if (chart.Splitter().isVisible()) {
        parts.append(&chart.Splitter());
    }
    parts.append(chart.Tree().parentWidget());
    for (QWidget *part : parts) {
        part->render(&painter, part->mapTo(&chart, QPoint()));
    }
}

bool SaveSvg(PlanChart &chart, QIODevice &file)
{
    QSvgGenerator generator;
    generator.setOutputDevice(&file);
    generator.setTitle(chart.GetPlan().Name);
    generator.setResolution(kDotsPerInch);
    generator.setSize(chart.size());
    generator.setViewBox(chart.rect());
    QPainter painter;
    if (!painter.begin(&generator)) {
        return false;
    }
    RenderPartByPart(chart, painter);
    return painter.end();
}

bool Save(PlanChart &chart, QIODevice &file, PictureFormat format, double ratio)
{
    switch (format) {
    case PictureFormat::Png:
        return SavePng(chart, file, ratio);
    case PictureFormat::Pdf:
        return SavePdf(chart, file);
    case PictureFormat::Svg:
        return SaveSvg(chart, file);
    }
    return false;
}

} // namespace

std::optional<QString> SavePicture(PlanChart &chart, const QString &fileName, double ratio)
{
    const auto format = PictureFormatOf(fileName);
    if (!format) {
        return QStringLiteral("pictures are .png, .pdf or .svg files");
    }
    QSaveFile file(fileName);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly)) {
        return file.errorString();
    }
    const bool hasBar = chart.IsScrollBarShown();
    chart.SetScrollBarShown(false);
    const bool saved = Save(chart, file, *format, ratio);
    chart.SetScrollBarShown(hasBar);
    if (!saved) {
        file.cancelWriting();
        return QStringLiteral("the picture could not be drawn");
    }
    return file.commit() ? std::nullopt : std::optional(file.errorString());
}

} // namespace korvane::planner
