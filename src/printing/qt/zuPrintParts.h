// What prints of several components are made of.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"
#include "printing/zuPrintLayout.h"

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <string>

class QPainter;

namespace korvane {

class TzuDateScaler;
class TzuOffscreenPaint;

/// Of frames, and of lines between cells.
inline const QColor kPrintFrameColor(96, 96, 96);
inline const QColor kPrintLineColor(216, 216, 216);
/// Behind captions of heads.
inline const QColor kPrintHeadColor(240, 240, 240);
/// Of lines around and between parts, in paper pixels.
inline constexpr double kPrintLine = 0.35;
/// Between a cell's edge and its text, in pixels of content.
inline constexpr int kPrintPadding = 5;
/// Of a group that goes on on another page, the innermost ones.
inline constexpr int kMostPrintHeadings = 4;

/// White paper and black ink, whatever the theme on screen.
KORVANE_WIDGETS_API QPalette PaperPalette();
/// A control that only draws for paper.
KORVANE_WIDGETS_API void UsePaper(TzuOffscreenPaint &control);
/// The font in pixels, so that no device makes points of its own density of it, and without
/// ligatures, so that readers of a document find its texts letter by letter.
KORVANE_WIDGETS_API QFont PaperFont(QFont font);
/// Ink that can be read on white paper.
KORVANE_WIDGETS_API QColor ReadableOnPaper(const QColor &color);

/// The part of a page whose texts are the page's own: the body, with what lies before the first
/// pages.
KORVANE_WIDGETS_API QRectF OwnTexts(const QRectF &body, const TPrintPage &page);

/// Of a page's rows: "1 - 40" by their numbers, from 1.
KORVANE_WIDGETS_API std::string RowRangeText(const TPrintRows &rows, const TPageSpan &span);
/// The first and the last day of a part of an axis; once where they are one.
KORVANE_WIDGETS_API std::string DayRangeText(const TzuDateScaler &axis, const TPageSpan &span);
/// "from – to"; once where both are the same.
KORVANE_WIDGETS_API QString RangeText(const QString &from, const QString &to);

/// The frame around a page's content, and the lines behind its labels and its head, where there are
/// any.
KORVANE_WIDGETS_API void PaintFrame(QPainter &painter, const QSizeF &content, double labelWidth,
                                    double headHeight);
/// A caption with lines at its right and lower edge, elided to the cell.
KORVANE_WIDGETS_API void PaintHeadCell(QPainter &painter, const QRectF &cell,
                                       const QString &caption, Qt::Alignment alignment);

} // namespace korvane
