// Painting of the schema area.
#include "foundation/zuGraphStuffDraw.h"
#include "foundation/zuRound.h"
#include "scaler/zuScalerGestures.h"
#include "schema/zuSchema.h"

#include <algorithm>
#include <ranges>

namespace korvane {

TRect TSchemaCore::AreaRect() const
{
    const TSize size = m_host.AreaSize();
    return {0, 0, size.Width, size.Height};
}

void TSchemaCore::SchemaPaint()
{
    TCanvas &canvas = m_host.AreaCanvas();
    const TRect area = AreaRect();
    WorkOutSubCols(ColumnsAt({0, ColumnRoom()})); // which may widen columns
    DoBackground(canvas, 0, 0, area.Width(), area.Height());
    OnDrawBackground(m_component, area, canvas);
    DoForeGround();
    OnDrawForeground(m_component, area, canvas);
}

int TSchemaCore::Scaled(bool alongColumns, int pixel) const
{
    const TPrintScale scale = m_host.AreaPrintScale();
    return RoundToPixel(pixel * (alongColumns != m_flipView ? scale.X : scale.Y));
}

void TSchemaCore::DoBackground(TCanvas &canvas, int x, int y, int w, int h) const
{
    constexpr int kFocusInset = 2;
    const TRect area{0, 0, w, h};
    canvas.SetBrushColor(m_color);
    if (!m_host.AreaIsPrinting()) { // the paper stays white
        canvas.FillRect({x, y, x + w, y + h});
        if (x != 0 || y != 0) {
            canvas.FillRect(area);
        }
    }
    DrawStripes(canvas, area);
    canvas.SetBrushColor(m_color);
    DrawMarks(canvas, area);
    DrawColumnLines(canvas, area);
    if (m_host.AreaHasFocus()) {
        canvas.SetBrushColor(clWhite);
        canvas.DrawFocusRect({kFocusInset, kFocusInset, w - kFocusInset, h - kFocusInset});
    }
}

/// A checkerboard of two by two pixels.
void TSchemaCore::ReInitBitmap()
{
    m_pyjamas = m_color == m_pyjamasColor
                    ? TBrush{m_pyjamasColor, TBrushStyle::bsSolid, {}}
                    : TBrush{m_color,
                             TBrushStyle::bsPattern,
                             {m_color, m_pyjamasColor, m_pyjamasColor, m_color}};
}

/// Every other column, and behind the last one as many as there is room for.
void TSchemaCore::DrawStripes(TCanvas &canvas, const TRect &area) const
{
    const TPixelSpan across = AlongTime(area);
    const int end = AlongColumns(area).To;
    const int line = m_flipView ? 1 : 0;
    const int defaultSize = std::max(m_columns->DefaultSize_FW(m_flipView), 1);
    canvas.SetBrush(m_host.AreaIsPrinting() ? TBrush{m_pyjamasColor, TBrushStyle::bsSolid, {}}
                                            : m_pyjamas);
    int far = 0;
    for (int col = m_columns->TopLeftCol(); Scaled(true, far) < end; ++col) {
        const TPixelSpan column = m_columns->IsCol(col)
                                      ? ColumnToPixels(col)
                                      : TPixelSpan{far + line, far + line + defaultSize};
        far = column.To;
        const TPixelSpan stripe{Scaled(true, column.From), std::min(Scaled(true, far), end)};
        if (col % 2 != 0 && stripe.Length() > 0) {
            canvas.FillRect(m_flipView ? TRect{across.From, stripe.From, across.To, stripe.To}
                                       : TRect{stripe.From, across.From, stripe.To, across.To});
        }
    }
}

/// A line through the area where an axis has a pixel.
void TSchemaCore::LineAcross(TCanvas &canvas, const TRect &area, int pixel, bool alongColumns) const
{
    const int at = Scaled(alongColumns, pixel);
    const bool upright = alongColumns != m_flipView;
    if (at < 0 || at >= (upright ? area.Right : area.Bottom)) {
        return;
    }
    if (upright) {
        canvas.Line({at, 0}, {at, area.Bottom - 1});
    } else {
        canvas.Line({0, at}, {area.Right - 1, at});
    }
}

void TSchemaCore::DrawMarks(TCanvas &canvas, const TRect &area) const
{
    constexpr int kDense = 30;
    const TDateScalerCore &scaler = m_host.Scaler();
    if (m_drawShortLines) {
        const TScaleMarkList &marks = scaler.PrimaryMarks();
        const bool dense =
            marks.size() >= 2
            && scaler.GetPixelFromScaleMark(marks[1]) - scaler.GetPixelFromScaleMark(marks[0])
                   < kDense;
        canvas.SetPen({m_shortLineColor, 1, TPenStyle::psSolid});
        for (std::size_t i = 0; i < marks.size(); i += dense ? 2 : 1) {
            LineAcross(canvas, area, scaler.GetPixelFromScaleMark(marks[i]), false);
        }
    }
    canvas.SetPen({m_lineColor, 1, TPenStyle::psSolid});
    for (const TScaleMark &mark : scaler.SecondaryMarks()) {
        LineAcross(canvas, area, scaler.GetPixelFromScaleMark(mark), false);
    }
}

void TSchemaCore::DrawColumnLines(TCanvas &canvas, const TRect &area) const
{
    const int end = AlongColumns(area).To;
    for (int col = m_columns->TopLeftCol(); m_columns->IsCol(col); ++col) {
        const int far = m_columns->GetFarSideOffset(col);
        if (Scaled(true, far) >= end) {
            return;
        }
        LineAcross(canvas, area, far, true);
    }
}

void TSchemaCore::DoForeGround()
{
    TCanvas &canvas = m_host.AreaCanvas();
    const auto shown = ShownIn(AreaRect());
    for (const TShownTime &time : std::views::reverse(shown)) {
        DrawContent(*time.Time, time.Rect, canvas);
    }
}

void TSchemaCore::DrawContent(TzuDataEntity_SchemaTime &time, const TRect &rect, TCanvas &canvas)
{
    if (OnDrawTimeContent) {
        OnDrawTimeContent(m_component, &time, rect, canvas);
    } else {
        DefaultDrawContent(time, rect, canvas);
    }
    if (!m_host.DrawsForScreen()) {
        return;
    }
    const TRect safe = GStuff::W95Safe(rect, canvas);
    if (time.GetSelected()) {
        GStuff::DoSelectContent(safe, canvas);
    }
    if (&time == m_active) {
        canvas.DrawFocusRect({safe.Left + 1, safe.Top + 1, safe.Right - 1, safe.Bottom - 1});
    }
}

void TSchemaCore::DefaultDrawContent(const TzuDataEntity_SchemaTime &time, const TRect &rect,
                                     TCanvas &canvas) const
{
    const TRect safe = GStuff::W95Safe(rect, canvas);
    canvas.FillRect(safe, time.Color());
    for (const TzuSchemaText &text : time.Texts()) {
        const TPoint at{rect.Left + text.Pos().X, rect.Top + text.Pos().Y};
        const TRect clip{at.X, at.Y, rect.Right - 1, rect.Bottom - 1};
        if (!text.Text().empty() && !clip.IsEmpty()) {
            EnterTextStyle(canvas, text.Style());
            canvas.TextRect(clip, at, text.Text());
        }
    }
    canvas.SetBrushColor(time.FrameColor());
    canvas.FrameRect(safe);
}

void TSchemaCore::EnterTextStyle(TCanvas &canvas, int style) const
{
    canvas.SetFont(style >= 1 && style <= 3 ? TextFont(style) : m_host.ComponentFont());
    if (m_host.AreaIsPrinting()) {
        m_host.PrintResizeAreaFont();
    }
}

} // namespace korvane
