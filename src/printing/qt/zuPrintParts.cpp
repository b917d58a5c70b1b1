#include "printing/qt/zuPrintParts.h"

#include "foundation/qt/zuConvert.h"
#include "scaler/qt/zuScaler.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>

namespace korvane {

QPalette PaperPalette()
{
    QPalette palette(QColor(240, 240, 240), Qt::white);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(0, 90, 160));
    return palette;
}

void UsePaper(TzuOffscreenPaint &control)
{
    control.setPalette(PaperPalette());
    control.setFrameShape(QFrame::NoFrame);
    control.SetColor(clWindow);
}

QFont PaperFont(QFont font)
{
    font.setPixelSize(QFontInfo(font).pixelSize());
    font.setLetterSpacing(QFont::PercentageSpacing, 100);
    return font;
}

QColor ReadableOnPaper(const QColor &color)
{
    constexpr int kLightest = 150;
    return qGray(color.rgb()) > kLightest ? QColor(Qt::black) : color;
}

QRectF OwnTexts(const QRectF &body, const TPrintPage &page)
{
    constexpr double kFar = 1 << 24;
    return body.adjusted(page.Column == 0 ? -kFar : 0, page.Row == 0 ? -kFar : 0, 0, 0);
}

std::string RowRangeText(const TPrintRows &rows, const TPageSpan &span)
{
    return std::to_string(rows.RowAt(span.From) + 1) + " \u2013 "
           + std::to_string(rows.RowFrom(span.To));
}

std::string DayRangeText(const TzuDateScaler &axis, const TPageSpan &span)
{
    const auto day = [&](double pixel) {
        const TDateTime date = axis.PixelToDate(static_cast<int>(pixel));
        return QLocale().toString(ToQDateTime(date).date(), QLocale::ShortFormat);
    };
    return FromQt(RangeText(day(span.From), day(span.To - 1)));
}

QString RangeText(const QString &from, const QString &to)
{
    return from == to ? from : from + QStringLiteral(" \u2013 ") + to;
}

void PaintFrame(QPainter &painter, const QSizeF &content, double labelWidth, double headHeight)
{
    painter.setPen(QPen(kPrintFrameColor, kPrintLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(QPointF(0, 0), content));
    if (headHeight > 0) {
        painter.drawLine(QPointF(0, headHeight), QPointF(content.width(), headHeight));
    }
    if (labelWidth > 0) {
        painter.drawLine(QPointF(labelWidth, 0), QPointF(labelWidth, content.height()));
    }
}

void PaintHeadCell(QPainter &painter, const QRectF &cell, const QString &caption,
                   Qt::Alignment alignment)
{
    painter.fillRect(cell, kPrintHeadColor);
    painter.setPen(QPen(kPrintFrameColor, kPrintLine));
    painter.drawLine(cell.topRight(), cell.bottomRight());
    painter.drawLine(cell.bottomLeft(), cell.bottomRight());
    const QRectF place = cell.adjusted(kPrintPadding, 0, -kPrintPadding, 0);
    painter.setPen(Qt::black);
    painter.drawText(
        place, alignment | Qt::TextSingleLine,
        QFontMetricsF(painter.font()).elidedText(caption, Qt::ElideRight, place.width()));
}

} // namespace korvane
