#include "foundation/zuOutline.h"

#include "foundation/zuGraphStuffDraw.h"
#include "foundation/zuRound.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace korvane {

namespace {

constexpr TColor kDark = Rgb(0x20, 0x20, 0x20);
constexpr TColor kLight = clWhite;
constexpr int kDash = 4;
constexpr int kHeadLength = 10;
constexpr int kHeadHalfWidth = 4;
/// Above this number of outlines the area around all is drawn again instead of each.
constexpr std::size_t kManyOutlines = 16;

TRect Grown(const TRect &rect, int by)
{
    return {rect.Left - by, rect.Top - by, rect.Right + by, rect.Bottom + by};
}

/// Points of an arrow head whose tip is at `to`.
std::array<TPoint, 3> ArrowHead(TPoint from, TPoint to)
{
    const double dx = to.X - from.X;
    const double dy = to.Y - from.Y;
    const double length = std::max(std::hypot(dx, dy), 1.0);
    const double ux = dx / length;
    const double uy = dy / length;
    const auto at = [&](double along, double across) {
        return TPoint{to.X + RoundToPixel(-ux * along - uy * across),
                      to.Y + RoundToPixel(-uy * along + ux * across)};
    };
    return {to, at(kHeadLength, kHeadHalfWidth), at(kHeadLength, -kHeadHalfWidth)};
}

} // namespace

void TOutlineDraw::Frame(const TRect &rect, TCanvas &canvas)
{
    const TRect safe = GStuff::W95Safe(rect, canvas);
    canvas.SetBrushColor(kLight);
    canvas.FrameRect(Grown(safe, 1));
    canvas.FrameRect(Grown(safe, -1));
    canvas.SetBrushColor(kDark);
    canvas.FrameRect(safe);
}

void TOutlineDraw::RubberBand(const TRect &rect, TCanvas &canvas)
{
    const TRect safe = GStuff::W95Safe(rect, canvas);
    canvas.SetBrushColor(kLight);
    canvas.FrameRect(safe);
    canvas.SetBrushColor(kDark);
    for (int x = safe.Left; x < safe.Right; x += 2 * kDash) {
        const int right = std::min(x + kDash, safe.Right);
        canvas.FillRect({x, safe.Top, right, safe.Top + 1});
        canvas.FillRect({x, safe.Bottom - 1, right, safe.Bottom});
    }
    for (int y = safe.Top; y < safe.Bottom; y += 2 * kDash) {
        const int bottom = std::min(y + kDash, safe.Bottom);
        canvas.FillRect({safe.Left, y, safe.Left + 1, bottom});
        canvas.FillRect({safe.Right - 1, y, safe.Right, bottom});
    }
}

void TOutlineDraw::Arrow(TPoint from, TPoint to, TCanvas &canvas)
{
    const TSmoothScope smooth(canvas);
    const std::array line{from, to};
    const auto head = ArrowHead(from, to);
    canvas.SetPen({kLight, 4, TPenStyle::psSolid});
    canvas.SetBrushColor(kLight);
    canvas.Polyline(line);
    canvas.Polygon(head);
    canvas.SetPen({kDark, 2, TPenStyle::psSolid});
    canvas.Polyline(line);
    canvas.SetPen({kDark, 1, TPenStyle::psSolid});
    canvas.SetBrushColor(kDark);
    canvas.Polygon(head);
}

TRect TOutlineDraw::BoundsOfFrame(const TRect &rect)
{
    return Grown(rect, 1);
}

TRect TOutlineDraw::BoundsOfArrow(TPoint from, TPoint to)
{
    const TRect line{std::min(from.X, to.X), std::min(from.Y, to.Y), std::max(from.X, to.X),
                     std::max(from.Y, to.Y)};
    return Grown(line, kHeadLength + 2);
}

TRect United(const TRect &a, const TRect &b)
{
    if (a.IsEmpty()) {
        return b;
    }
    if (b.IsEmpty()) {
        return a;
    }
    return {std::min(a.Left, b.Left), std::min(a.Top, b.Top), std::max(a.Right, b.Right),
            std::max(a.Bottom, b.Bottom)};
}

TRect TGestureFeedback::Bounds() const
{
    TRect bounds = Band;
    for (const TRect &frame : Frames) {
        bounds = United(bounds, TOutlineDraw::BoundsOfFrame(frame));
    }
    if (HasArrow) {
        bounds = United(bounds, TOutlineDraw::BoundsOfArrow(ArrowFrom, ArrowTo));
    }
    return bounds;
}

std::vector<TRect> TGestureFeedback::DirtyRects() const
{
    if (Frames.size() > kManyOutlines || HasArrow) {
        return {Bounds()};
    }
    std::vector<TRect> rects;
    for (const TRect &frame : Frames) {
        rects.push_back(TOutlineDraw::BoundsOfFrame(frame));
    }
    if (!Band.IsEmpty()) {
        rects.push_back(Band);
    }
    return rects;
}

TRect RubberBandRect(TPoint press, TPoint mouse)
{
    return {std::min(press.X, mouse.X), std::min(press.Y, mouse.Y), std::max(press.X, mouse.X) + 1,
            std::max(press.Y, mouse.Y) + 1};
}

TSelectHow RubberBandRule(const TShiftState &atPress)
{
    if (atPress.Ctrl) {
        return TSelectHow::Toggle;
    }
    return atPress.Shift ? TSelectHow::Add : TSelectHow::Replace;
}

} // namespace korvane
