#include "printing/qt/zuPrintPaper.h"

#include "printing/qt/zuPrintParts.h"

#include <QFontMetricsF>
#include <QPageSize>
#include <QPainter>

#include <algorithm>

namespace korvane {

namespace {

constexpr double kMarginMillimetres = 12;
/// Between header or footer and the content, in lines.
constexpr double kLineGap = 0.6;
constexpr double kHairline = 0.5;
constexpr double kCropLength = 14;
constexpr double kCropDistance = 4;
constexpr double kGlueWidth = 8;

double ToPaperPixels(double points)
{
    return points * kPaperDotsPerInch / 72;
}

} // namespace

TPrintPaper::TPrintPaper()
    : m_layout(
        QPageSize(QPageSize::A4), QPageLayout::Portrait,
        QMarginsF(kMarginMillimetres, kMarginMillimetres, kMarginMillimetres, kMarginMillimetres),
        QPageLayout::Millimeter)
    , m_header{"{title}", {}, "{date}"}
    , m_footer{"{file}", "{range}", "{page} / {pages}"}
    , m_font(QStringLiteral("Arial"))
{
    // In pixels: the same on every device, which is scaled as a whole.
    m_font.setPixelSize(11);
}

QSizeF TPrintPaper::SheetSize() const
{
    const QSizeF points = m_layout.fullRect(QPageLayout::Point).size();
    return {ToPaperPixels(points.width()), ToPaperPixels(points.height())};
}

QRectF TPrintPaper::Inner() const
{
    const QMarginsF margins = m_layout.margins(QPageLayout::Point);
    return QRectF(QPointF(0, 0), SheetSize())
        .adjusted(ToPaperPixels(margins.left()), ToPaperPixels(margins.top()),
                  -ToPaperPixels(margins.right()), -ToPaperPixels(margins.bottom()));
}

double TPrintPaper::LineHeight() const
{
    return QFontMetricsF(m_font).height();
}

/// Around the content; margins count.
double TPrintPaper::MarkRoom() const
{
    return m_cropMarks ? kCropDistance + kCropLength + 1 : m_glueMarks ? LineHeight() : 0;
}

QRectF TPrintPaper::Room() const
{
    const QRectF inner = Inner();
    const QSizeF sheet = SheetSize();
    const double marks = MarkRoom();
    const auto indent = [&](const TPrintLine &line, double margin) {
        return line.IsEmpty() ? std::max(marks - margin, 0.0)
                              : LineHeight() + std::max(LineHeight() * kLineGap, marks);
    };
    return inner.adjusted(std::max(marks - inner.left(), 0.0), indent(m_header, inner.top()),
                          -std::max(marks - (sheet.width() - inner.right()), 0.0),
                          -indent(m_footer, sheet.height() - inner.bottom()));
}

void TPrintPaper::Paint(QPainter &painter, const TPrintFields &fields, const QRectF &content,
                        const TPrintEdges &edges, const TPrintPage &page) const
{
    const QRectF inner = Inner();
    const double line = LineHeight();
    painter.setFont(PaperFont(m_font));
    painter.setPen(Qt::black);
    PaintLine(painter, m_header, {inner.left(), inner.top(), inner.width(), line}, fields);
    PaintLine(painter, m_footer, {inner.left(), inner.bottom() - line, inner.width(), line},
              fields);
    if (m_cropMarks) {
        PaintCropMarks(painter, content);
    }
    if (m_glueMarks) {
        PaintGlueMarks(painter, content, edges, page);
    }
}

void TPrintPaper::PaintLine(QPainter &painter, const TPrintLine &line, const QRectF &place,
                            const TPrintFields &fields) const
{
    const QFontMetricsF metrics(m_font);
    const auto text = [&](const std::string &pattern) {
        return QString::fromStdString(ExpandPrintFields(pattern, fields)).simplified();
    };
    // The middle comes first; the sides share what it leaves.
    const QString center = metrics.elidedText(text(line.Center), Qt::ElideRight, place.width());
    const double half = metrics.horizontalAdvance(center) / 2;
    const double side = center.isEmpty()
                            ? place.width()
                                  * (line.Right.empty()  ? 1
                                     : line.Left.empty() ? 0
                                                         : 0.6)
                            : place.width() / 2 - half - metrics.averageCharWidth() * 2;
    const double otherSide = center.isEmpty() ? place.width() - side : side;
    painter.drawText(place, Qt::AlignHCenter | Qt::AlignVCenter, center);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                     metrics.elidedText(text(line.Left), Qt::ElideRight, side));
    painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter,
                     metrics.elidedText(text(line.Right), Qt::ElideRight, otherSide));
}

void TPrintPaper::PaintCropMarks(QPainter &painter, const QRectF &content) const
{
    painter.setPen(QPen(Qt::black, kHairline));
    const auto across = [&](double x, double y, int direction) {
        painter.drawLine(QPointF(x + direction * kCropDistance, y),
                         QPointF(x + direction * (kCropDistance + kCropLength), y));
    };
    const auto down = [&](double x, double y, int direction) {
        painter.drawLine(QPointF(x, y + direction * kCropDistance),
                         QPointF(x, y + direction * (kCropDistance + kCropLength)));
    };
    for (const double y : {content.top(), content.bottom()}) {
        across(content.left(), y, -1);
        across(content.right(), y, 1);
    }
    for (const double x : {content.left(), content.right()}) {
        down(x, content.top(), -1);
        down(x, content.bottom(), 1);
    }
}

void TPrintPaper::PaintGlueMarks(QPainter &painter, const QRectF &content, const TPrintEdges &edges,
                                 const TPrintPage &page) const
{
    const QBrush hatching(QColor(160, 160, 160), Qt::BDiagPattern);
    if (edges.Right) {
        painter.fillRect(QRectF(content.right(), content.top(), kGlueWidth, content.height()),
                         hatching);
    }
    if (edges.Bottom) {
        painter.fillRect(QRectF(content.left(), content.bottom(), content.width(), kGlueWidth),
                         hatching);
    }
    // Columns as letters, rows as numbers, as on a map: A1, B1, ... Z1, AA1.
    QString name;
    for (int column = page.Column + 1; column > 0; column = (column - 1) / 26) {
        name.prepend(QChar(u'A' + (column - 1) % 26));
    }
    name += QString::number(page.Row + 1);
    QFont font = m_font;
    font.setPixelSize(std::max(m_font.pixelSize() - 2, 6));
    painter.setFont(font);
    painter.setPen(QColor(96, 96, 96));
    const double height = QFontMetricsF(font).height();
    constexpr double kIndent = 4; // clear of the crop mark
    painter.drawText(
        QRectF(content.left() + kIndent, content.top() - height, content.width(), height),
        Qt::AlignLeft | Qt::AlignBottom, name);
}

} // namespace korvane
