#include "Picture.h"

#include "PlanView.h"
#include "foundation/qt/zuSplitter.h"
#include "plan/PlannerText.h"

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

bool SavePng(QWidget &widget, QIODevice &file, double ratio)
{
    const QSize size = (QSizeF(widget.size()) * ratio).toSize();
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) {
        return false;
    }
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    widget.render(&image);
    return image.convertToFormat(QImage::Format_RGB32).save(&file, "PNG");
}

bool SavePdf(const PictureSubject &subject, QIODevice &file)
{
    QPdfWriter writer(&file);
    writer.setTitle(subject.Title);
    writer.setCreator(QStringLiteral("Korvane planner"));
    writer.setResolution(kDotsPerInch);
    const QSizeF points = QSizeF(subject.Widget.size()) * kPointsPerInch / kDotsPerInch;
    writer.setPageSize(QPageSize(points, QPageSize::Point, {}, QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    QPainter painter;
    if (!painter.begin(&writer)) {
        return false;
    }
    subject.Widget.render(&painter);
    return painter.end();
}

/// SVG drawings made by the toolkit know no clipping: what a part draws beyond its bounds is
/// covered by the next one, and at the right and bottom edge by the end of the drawing.
void RenderPartByPart(const PictureSubject &subject, QPainter &painter)
{
    painter.fillRect(subject.Widget.rect(), subject.Widget.palette().window());
    for (QWidget *part : subject.Parts) {
        part->render(&painter, part->mapTo(&subject.Widget, QPoint()));
    }
}

bool SaveSvg(const PictureSubject &subject, QIODevice &file)
{
    QSvgGenerator generator;
    generator.setOutputDevice(&file);
    generator.setTitle(subject.Title);
    generator.setResolution(kDotsPerInch);
    generator.setSize(subject.Widget.size());
    generator.setViewBox(subject.Widget.rect());
    QPainter painter;
    if (!painter.begin(&generator)) {
        return false;
    }
    RenderPartByPart(subject, painter);
    return painter.end();
}

bool Save(const PictureSubject &subject, QIODevice &file, PictureFormat format, double ratio)
{
    switch (format) {
    case PictureFormat::Png:
        return SavePng(subject.Widget, file, ratio);
    case PictureFormat::Pdf:
        return SavePdf(subject, file);
    case PictureFormat::Svg:
        return SaveSvg(subject, file);
    }
    return false;
}

} // namespace

std::optional<QString> SavePicture(const PictureSubject &subject, const QString &fileName,
                                   double ratio)
{
    const auto format = PictureFormatOf(fileName);
    if (!format) {
        return PlannerText::tr("pictures are .png, .pdf or .svg files");
    }
    QSaveFile file(fileName);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly)) {
        return file.errorString();
    }
    if (!Save(subject, file, *format, ratio)) {
        file.cancelWriting();
        return PlannerText::tr("the picture could not be drawn");
    }
    return file.commit() ? std::nullopt : std::optional(file.errorString());
}

std::optional<QString> SavePicture(PlanView &chart, const QString &fileName, double ratio)
{
    const bool hasBar = chart.IsScrollBarShown();
    chart.SetScrollBarShown(false);
    QWidgetList parts = {&chart.GantArea(), &chart.DateScaler()};
    if (chart.Splitter().isVisible()) {
        parts.append(&chart.Splitter());
    }
    parts.append(chart.Tree().parentWidget());
    auto error = SavePicture({chart, chart.GetPlan().Name, parts}, fileName, ratio);
    chart.SetScrollBarShown(hasBar);
    return error;
}

} // namespace korvane::planner
