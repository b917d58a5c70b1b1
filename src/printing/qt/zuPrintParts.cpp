#include "printing/qt/zuPrintParts.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/zuTranslate.h"
#include "scaler/qt/zuScaler.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <stdexcept>

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

namespace {

void SetLength(TzuDateScaler &axis, int length, int thickness)
{
    axis.resize(axis.Horizontal() ? length : thickness, axis.Horizontal() ? thickness : length);
}

} // namespace

std::unique_ptr<TzuDateScaler> MakeWholeAxis(const TzuDateScaler &shown,
                                             std::pair<TDateTime, TDateTime> range, double scale,
                                             int thickness)
{
    constexpr int kLongestAxis = 50'000'000;
    const auto [from, to] = range;
    if (!(to > from)) {
        throw std::runtime_error(Translate("TzuPrinting", "The time to print is empty"));
    }
    if (!(scale > 0)) {
        throw std::runtime_error(Translate("TzuPrinting", "The time axis has no scale"));
    }
    auto axis = std::make_unique<TzuDateScaler>();
    axis->BeginUpdate();
    axis->AssignLook(shown);
    axis->EndUpdate();
    // Hidden time makes room for more; how much shows only once the axis has it.
    TDateTime hidden = 0;
    constexpr int kRounds = 4;
    for (int round = 0; round < kRounds; ++round) {
        const double pixels = std::ceil((to - from - hidden) / scale);
        if (pixels > kLongestAxis) {
            throw std::runtime_error(
                Translate("TzuPrinting", "The time to print is too long at this scale"));
        }
        const int length = std::max(static_cast<int>(pixels), 1);
        axis->BeginUpdate();
        SetLength(*axis, length, thickness);
        axis->SetRange(from, from + length * scale);
        axis->EndUpdate();
        if (axis->HiddenSpan() == hidden) {
            break;
        }
        hidden = axis->HiddenSpan();
    }
    return axis;
}

void SetUpPageAxis(TzuDateScaler &axis, const TzuDateScaler &whole, const TPageSpan &span,
                   int thickness)
{
    const int from = static_cast<int>(span.From);
    const int length = static_cast<int>(span.To) - from;
    const TDateTime start = whole.PixelToDate(from);
    axis.BeginUpdate();
    axis.AssignLook(whole);
    SetLength(axis, length, thickness);
    axis.SetRange(start, start + length * whole.GetScale());
    axis.EndUpdate();
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
