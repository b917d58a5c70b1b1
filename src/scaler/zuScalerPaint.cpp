// Painting of the date scaler.
#include "foundation/zuDateUtils.h"
#include "foundation/zuFormat.h"
#include "foundation/zuRound.h"
#include "scaler/zuScaler.h"
#include "scaler/zuScalerLabelRow.h"

#include <algorithm>
#include <array>

namespace korvane {

namespace {

constexpr int kButtonSize = 20;

/// Pixels times a factor plus an offset, kept where canvases can still calculate with it.
int Place(int offset, std::int64_t pixels, int factor)
{
    constexpr std::int64_t kFar = 1 << 24;
    return static_cast<int>(std::clamp(offset + pixels * factor, -kFar, kFar));
}

/// The colour that lies the given part of the way, in percent, between two colours.
TColor Mixed(const TCanvas &canvas, TColor from, TColor to, unsigned percent)
{
    const TColor a = canvas.ResolveColor(from);
    const TColor b = canvas.ResolveColor(to);
    const auto mix = [percent](unsigned x, unsigned y) {
        return (x * (100 - percent) + y * percent) / 100;
    };
    return Rgb(mix(RedOf(a), RedOf(b)), mix(GreenOf(a), GreenOf(b)), mix(BlueOf(a), BlueOf(b)));
}

enum class TButtonState : unsigned char { Released, Held };

/// A triangle with its point first and its light side between the point and the second corner.
void DrawArrow(TCanvas &canvas, const std::array<TPoint, 3> &corners, TButtonState state)
{
    const bool held = state == TButtonState::Held;
    const TColor light = held ? clGray : clWhite;
    const TColor shade = held ? clWhite : clGray;
    const TColor face = Mixed(canvas, clBtnFace, clBtnText, held ? 40 : 20);
    canvas.SetBrush({face, TBrushStyle::bsSolid, {}});
    canvas.SetPen({shade, 1, TPenStyle::psClear});
    canvas.Polygon(corners);
    canvas.SetPen({shade, 1, TPenStyle::psSolid});
    canvas.Line(corners[1], corners[2]);
    canvas.Line(corners[2], corners[0]);
    canvas.SetPenColor(light);
    canvas.Line(corners[0], corners[1]);
}

void FillRounded(TCanvas &canvas, const TRect &box)
{
    const TSmoothScope smooth(canvas);
    const int right = box.Right - 1;
    const int bottom = box.Bottom - 1;
    const std::array corners{
        TPoint{box.Left + 3, box.Top},    TPoint{right - 3, box.Top},
        TPoint{right - 1, box.Top + 1},   TPoint{right, box.Top + 3},
        TPoint{right, bottom - 3},        TPoint{right - 1, bottom - 1},
        TPoint{right - 3, bottom},        TPoint{box.Left + 3, bottom},
        TPoint{box.Left + 1, bottom - 1}, TPoint{box.Left, bottom - 3},
        TPoint{box.Left, box.Top + 3},    TPoint{box.Left + 1, box.Top + 1},
    };
    canvas.Polygon(corners);
}

/// The labels of one row, drawn in the order of the axis; those that would crowd are left out.
class TLabelRow
{
public:
    /// `cross` is the row's distance from the edge of the target beside the axis.
    TLabelRow(const TScaleTarget &target, bool horizontal, int cross)
        : m_target(target)
        , m_horizontal(horizontal)
        , m_cross(cross)
    {
    }

    void Draw(std::string_view text, int centre)
    {
        const TSize extent = m_target.Canvas.TextExtent(text);
        const TRect &rect = m_target.Rect;
        if (m_horizontal) {
            const int left = centre - extent.Width / 2;
            if (Claim(left, extent.Width, rect.Width())) {
                DrawAt({rect.Left + left, rect.Top + m_cross}, extent, text);
            }
            return;
        }
        const int top = centre - extent.Height / 2;
        if (top > extent.Height && Claim(top, extent.Height, rect.Height())) {
            text = ShortenedLabel(m_target.Canvas, text, rect.Width() - m_cross);
            const TSize shown{std::min(extent.Width, rect.Width() - m_cross), extent.Height};
            DrawAt({rect.Left + m_cross, rect.Top + top}, shown, text);
        }
    }

private:
    /// Whether a label fits there: wholly on the axis, and clear of the one before.
    bool Claim(int from, int length, int axisLength)
    {
        const bool fits = from > 0 && from + length <= axisLength
                          && from > m_last + length + LabelGap(m_horizontal);
        m_last = fits ? from : m_last;
        return fits;
    }

    void DrawAt(TPoint at, TSize extent, std::string_view text) const
    {
        if (m_target.Background) {
            const TRect label{at.X, at.Y, at.X + extent.Width, at.Y + extent.Height};
            m_target.Canvas.FillRect(BehindLabel(m_target.Rect, label, m_horizontal),
                                     *m_target.Background);
        }
        m_target.Canvas.TextOut(at, text);
    }

    const TScaleTarget &m_target;
    bool m_horizontal;
    int m_cross;
    int m_last = -1000; ///< where the last label drawn begins
};

} // namespace

void TDateScalerCore::DoThePaint(TCanvas &canvas, const TRect &rect)
{
    if (rect.Width() <= 0 || rect.Height() < 0) {
        return;
    }
    const TSize size = m_host.ClientSize();
    const TScaleTarget target{canvas, rect, size.Width > 0 ? rect.Width() / size.Width : 0,
                              size.Height > 0 ? rect.Height() / size.Height : 0,
                              BackgroundOf(canvas)};
    m_majorPixels.clear();
    m_minorPixels.clear();
    DrawScaleMarks(m_primaryMarks, target);
    DrawScaleMarks(m_secondaryMarks, target);
    if (!Dragging()) {
        DrawScaleMarksText(m_primaryMarks, target, TScaleRow::Minor);
    }
    DrawScaleMarksText(m_secondaryMarks, target, TScaleRow::Major);
    if (!m_host.GetIsPrinting()) {
        DrawScrollButtons(canvas);
        if (m_indicatorOn) {
            DrawScaleIndicator(target);
        }
    }
    AnnounceChange();
}

std::optional<TColor> TDateScalerCore::BackgroundOf(const TCanvas &canvas) const
{
    const TBrush &brush = canvas.Brush();
    const bool known = !m_host.GetIsPrinting() && brush.Style == TBrushStyle::bsSolid;
    return known ? std::optional(brush.Color) : std::nullopt;
}

void TDateScalerCore::DrawScaleMarks(TScaleMarkList &marks, const TScaleTarget &target)
{
    UpdatePixels();
    for (TScaleMark &mark : marks) {
        mark.Pixel = MarkPixel(mark);
        (mark.IsMajor ? m_majorPixels : m_minorPixels).push_back(mark.Pixel);
        // Unless a pass colours them, ticks have to show on dark palettes as well.
        target.Canvas.SetPenColor(mark.Color == 0 ? clBtnText : mark.Color);
        const int length = mark.IsMajor ? kMajorTick : kMinorTick;
        DrawTick(target, mark.Pixel, length);
        if (mark.HiddenAfter) {
            DrawTick(target, mark.Pixel + 1, length);
        }
        if (mark.AfterHidden) {
            DrawTick(target, mark.Pixel - 1, length);
        }
    }
}

void TDateScalerCore::DrawTick(const TScaleTarget &target, std::int64_t pixel, int length) const
{
    const TRect &rect = target.Rect;
    if (m_horizontal) {
        const int x = Place(rect.Left, pixel, target.XFactor);
        const int height = m_host.ClientSize().Height;
        target.Canvas.Line({x, rect.Bottom}, {x, Place(rect.Top, height - length, target.YFactor)});
    } else {
        const int y = Place(rect.Top, pixel, target.YFactor);
        target.Canvas.Line({rect.Right, y}, {Place(rect.Right, -length, target.XFactor), y});
    }
}

void TDateScalerCore::SetLabelFont(TCanvas &canvas, TScalerFont font) const
{
    canvas.SetFont(FontOf(font));
    m_host.PrintResizeFont();
}

void TDateScalerCore::DrawScaleMarksText(const TScaleMarkList &marks, const TScaleTarget &target,
                                         TScaleRow row)
{
    const bool major = row == TScaleRow::Major;
    const double enlarged = m_horizontal ? m_host.GetScaley() : m_host.GetScalex();
    const int cross = RoundToPixel(enlarged * RowOffset(row));
    const int factor = m_horizontal ? target.XFactor : target.YFactor;
    const TDateTime step = major ? MajorStep() : MinorStep();
    TLabelRow labels(target, m_horizontal, cross);
    for (std::size_t index = 0; index < marks.size(); ++index) {
        const TScaleMark &mark = marks[index];
        if (mark.Text.empty()) {
            continue;
        }
        SetLabelFont(target.Canvas, mark.Font);
        const TLabelSpan span = SpanOfLabel(marks, index, step, GetScaleLen());
        labels.Draw(mark.Text, Place(0, span.Centre(), factor));
    }
}

void TDateScalerCore::DrawScrollButtons(TCanvas &canvas)
{
    const TSize size = m_host.ClientSize();
    m_stepDownRect = {1, 1, kButtonSize, kButtonSize};
    const TSmoothScope smooth(canvas);
    const auto state = [](bool held) { return held ? TButtonState::Held : TButtonState::Released; };
    const TButtonState down = state(StepDownPressed());
    const TButtonState up = state(StepUpPressed());
    if (m_horizontal) {
        m_stepUpRect = {size.Width - kButtonSize, 1, size.Width + 1, kButtonSize};
        const int right = m_stepUpRect.Left;
        DrawArrow(canvas, {TPoint{5, 10}, {14, 5}, {14, 15}}, down);
        DrawArrow(canvas, {TPoint{right + 14, 10}, {right + 5, 5}, {right + 5, 15}}, up);
    } else {
        m_stepUpRect = {1, size.Height - kButtonSize, kButtonSize, size.Height};
        const int bottom = m_stepUpRect.Top;
        DrawArrow(canvas, {TPoint{10, 5}, {5, 14}, {15, 14}}, down);
        DrawArrow(canvas, {TPoint{10, bottom + 14}, {5, bottom + 5}, {15, bottom + 5}}, up);
    }
}

void TDateScalerCore::DrawScaleIndicator(const TScaleTarget &target)
{
    if (m_indicatorPixel < 0 || m_indicatorPixel >= GetScaleLen()) {
        return;
    }
    switch (m_indicatorStyle) {
    case TIndicatorStyle::isNone:
        break;
    case TIndicatorStyle::isNormal:
        NormalIndicator(target);
        break;
    case TIndicatorStyle::isColorfull:
        ColorFullIndicator(target);
        break;
    }
}

void TDateScalerCore::NormalIndicator(const TScaleTarget &target) const
{
    TCanvas &canvas = target.Canvas;
    const TRect &rect = target.Rect;
    canvas.SetPen({clHighlight, 1, TPenStyle::psSolid});
    canvas.SetBrushColor(clHighlight);
    std::array<TPoint, 3> marker;
    if (m_horizontal) {
        const int x = Place(rect.Left, m_indicatorPixel, target.XFactor);
        canvas.Line({x, rect.Top}, {x, rect.Bottom - 1});
        marker = {TPoint{x - 4, rect.Top}, {x + 4, rect.Top}, {x, rect.Top + 5}};
    } else {
        const int y = Place(rect.Top, m_indicatorPixel, target.YFactor);
        canvas.Line({rect.Left, y}, {rect.Right - 1, y});
        marker = {TPoint{rect.Left, y - 4}, {rect.Left, y + 4}, {rect.Left + 5, y}};
    }
    const TSmoothScope smooth(canvas);
    canvas.Polygon(marker);
}

std::string TDateScalerCore::IndicatorText() const
{
    const TDateTime date = PixelToDate(m_indicatorPixel);
    const std::string day = FormatDate(DateFormat(), date);
    return MinorStep() < kDay ? day + ' ' + FormatTime(TimeFormat(), date) : day;
}

void TDateScalerCore::ColorFullIndicator(const TScaleTarget &target) const
{
    constexpr int kPadding = 4;
    TCanvas &canvas = target.Canvas;
    const TRect &rect = target.Rect;
    SetLabelFont(canvas, TScalerFont::sTextFont1);
    const std::string text = IndicatorText();
    const TSize extent = canvas.TextExtent(text);
    const TSize size{extent.Width + 2 * kPadding, extent.Height + 2};
    TRect band = rect;
    TPoint at{rect.Left + 1, rect.Top + 1};
    if (m_horizontal) {
        const int x = Place(rect.Left, m_indicatorPixel, target.XFactor);
        band.Left = x - 1;
        band.Right = x + 2;
        at.X = std::max(std::min(x - size.Width / 2, rect.Right - size.Width - 1), rect.Left + 1);
    } else {
        const int y = Place(rect.Top, m_indicatorPixel, target.YFactor);
        band.Top = y - 1;
        band.Bottom = y + 2;
        at.Y = std::max(std::min(y - size.Height / 2, rect.Bottom - size.Height - 1), rect.Top + 1);
    }
    canvas.FillRect(band, clHighlight);
    canvas.SetPen({clHighlight, 1, TPenStyle::psSolid});
    FillRounded(canvas, {at.X, at.Y, at.X + size.Width, at.Y + size.Height});
    TFont font = canvas.Font();
    font.Color = clHighlightText;
    canvas.SetFont(font);
    canvas.TextOut({at.X + kPadding, at.Y + 1}, text);
}

} // namespace korvane
