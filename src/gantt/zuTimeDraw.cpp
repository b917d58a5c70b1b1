#include "gantt/zuTimeDraw.h"

#include "foundation/zuGraphStuffDraw.h"

#include <algorithm>
#include <array>
#include <vector>

namespace korvane {

namespace {

constexpr int kLineWidth = 2;
/// Half the height of the marks at a line's ends.
constexpr int kEndMark = 4;
constexpr int kWaveLength = 12;
constexpr int kWaveHeight = 3;

void Frame(TCanvas &canvas, const TRect &rect, TColor color)
{
    canvas.SetBrushColor(color);
    canvas.FrameRect(rect);
}

TRect Shrunk(const TRect &rect, int by)
{
    return {rect.Left + by, rect.Top + by, rect.Right - by, rect.Bottom - by};
}

/// From the left corner on, clockwise.
std::array<TPoint, 4> RombPoints(const TRect &rect, const TCanvas &canvas)
{
    const TRect safe = TzuTimeDraw::W95Safe(rect, canvas);
    const int middleX = safe.Left + safe.Width() / 2;
    const int middleY = safe.MiddleY();
    return {TPoint{safe.Left, middleY}, TPoint{middleX, safe.Top}, TPoint{safe.Right, middleY},
            TPoint{middleX, safe.Bottom}};
}

} // namespace

void TzuTimeDraw::DrawTime(TColor color, const TRect &rect, TCanvas &canvas)
{
    const TRect safe = W95Safe(rect, canvas);
    const TColor fill = canvas.ResolveColor(color);
    canvas.FillRect(safe, fill);
    Frame(canvas, safe, GStuff::TintColor(fill, kEdgeTint));
}

void TzuTimeDraw::DrawTimeHollow(TColor color, const TRect &rect, TCanvas &canvas)
{
    Frame(canvas, W95Safe(rect, canvas), canvas.ResolveColor(color));
}

void TzuTimeDraw::CoolOutline(TColor color, const TRect &rect, TCanvas &canvas)
{
    const TRect safe = W95Safe(rect, canvas);
    const TColor fill = canvas.ResolveColor(color);
    canvas.FillRect(safe, fill);
    Frame(canvas, safe, GStuff::TintColor(fill, kEdgeTint));
    const TRect inner = Shrunk(safe, 1);
    if (inner.Width() < 2 || inner.Height() < 2) {
        return;
    }
    const TColor light = GStuff::TintColor(fill, 45);
    const TColor dark = GStuff::TintColor(fill, -18);
    canvas.FillRect({inner.Left, inner.Top, inner.Right, inner.Top + 1}, light);
    canvas.FillRect({inner.Left, inner.Top, inner.Left + 1, inner.Bottom}, light);
    canvas.FillRect({inner.Left + 1, inner.Bottom - 1, inner.Right, inner.Bottom}, dark);
    canvas.FillRect({inner.Right - 1, inner.Top + 1, inner.Right, inner.Bottom}, dark);
}

void TzuTimeDraw::DrawPipe(TColor color, const TRect &rect, TCanvas &canvas)
{
    const TRect safe = W95Safe(rect, canvas);
    const TColor fill = canvas.ResolveColor(color);
    const TColor edge = GStuff::TintColor(fill, -40);
    const TColor shine = GStuff::TintColor(fill, 55);
    const int cap = std::min(safe.Height() / 2, safe.Width() / 2);
    const int shineY = safe.Top + safe.Height() * 2 / 5;
    const TRect body{safe.Left + cap / 2, safe.Top, safe.Right - cap / 2, safe.Bottom};
    const TSmoothScope smooth(canvas);
    canvas.SetPen({edge, 1, TPenStyle::psSolid});
    canvas.SetBrushColor(GStuff::TintColor(fill, -25));
    canvas.Ellipse({safe.Left, safe.Top, safe.Left + cap, safe.Bottom});
    canvas.FillGradient({body.Left, body.Top, body.Right, shineY}, GStuff::TintColor(fill, -20),
                        shine);
    canvas.FillGradient({body.Left, shineY, body.Right, body.Bottom}, shine, edge);
    canvas.SetBrushColor(GStuff::TintColor(fill, 25));
    canvas.Ellipse({safe.Right - cap, safe.Top, safe.Right, safe.Bottom});
}

void TzuTimeDraw::LineOutline(TColor color, const TRect &rect, TCanvas &canvas, TLineEnds ends)
{
    const TRect safe = W95Safe(rect, canvas);
    const int middle = safe.MiddleY();
    const TColor fill = canvas.ResolveColor(color);
    canvas.FillRect(
        {safe.Left, middle - kLineWidth / 2, safe.Right, middle - kLineWidth / 2 + kLineWidth},
        fill);
    if (ends == TLineEnds::leMarks) {
        const int top = std::max(safe.Top, middle - kEndMark);
        const int bottom = std::min(safe.Bottom, middle + kEndMark);
        canvas.FillRect({safe.Left, top, safe.Left + kLineWidth, bottom}, fill);
        canvas.FillRect({safe.Right - kLineWidth, top, safe.Right, bottom}, fill);
    }
}

void TzuTimeDraw::WaveOutline(TColor color, const TRect &rect, TCanvas &canvas)
{
    const TRect safe = W95Safe(rect, canvas);
    const int middle = safe.MiddleY();
    const int height = std::min(kWaveHeight, std::max(1, safe.Height() / 2 - 1));
    // The wave hangs on the item's own start, so that it does not creep while the axis scrolls.
    const std::int64_t phase = (static_cast<std::int64_t>(safe.Left) - rect.Left) % kWaveLength;
    constexpr std::array<int, 12> kShape{0, 5, 9, 10, 9, 5, 0, -5, -9, -10, -9, -5};
    static_assert(kShape.size() == kWaveLength);

    std::vector<TPoint> points;
    points.reserve(static_cast<std::size_t>(std::max(safe.Width(), 0)));
    for (int x = safe.Left; x < safe.Right; ++x) {
        const auto step = static_cast<std::size_t>((x - safe.Left + phase) % kWaveLength);
        points.push_back(
            {x, middle - (kShape.at(step) * height + (kShape.at(step) > 0 ? 5 : -5)) / 10});
    }
    if (points.size() < 2) {
        return;
    }
    const TSmoothScope smooth(canvas);
    canvas.SetPen({color, kLineWidth, TPenStyle::psSolid});
    canvas.Polyline(points);
}

void TzuTimeDraw::RombOutline(TColor color, const TRect &rect, TCanvas &canvas)
{
    const TColor fill = canvas.ResolveColor(color);
    const TSmoothScope smooth(canvas);
    canvas.SetPen({GStuff::TintColor(fill, kEdgeTint), 1, TPenStyle::psSolid});
    canvas.SetBrushColor(fill);
    canvas.Polygon(RombPoints(rect, canvas));
}

void TzuTimeDraw::SelectRomb(const TRect &rect, TCanvas &canvas)
{
    constexpr int kWidth = 3;
    std::array<TPoint, 5> outline{};
    std::ranges::copy(RombPoints(rect, canvas), outline.begin());
    outline.back() = outline.front();
    const TSmoothScope smooth(canvas);
    canvas.SetPen({clHighlight, kWidth, TPenStyle::psSolid});
    canvas.Polyline(outline);
}

void TzuTimeDraw::DrawImage(const TImageList *images, int index, const TRect &rect, TCanvas &canvas)
{
    if (images != nullptr) {
        canvas.DrawImage(rect, *images, index);
    }
}

void TzuTimeDraw::DoSelectContent(const TRect &rect, TCanvas &canvas)
{
    GStuff::DoSelectContent(W95Safe(rect, canvas), canvas);
}

TRect TzuTimeDraw::W95Safe(const TRect &rect, const TCanvas &canvas)
{
    return GStuff::W95Safe(rect, canvas);
}

} // namespace korvane
