#include "gantt/zuGantLinks.h"

#include <cmath>
#include <limits>

namespace korvane {

namespace {

constexpr int kStubGap = 10;
constexpr int kArrowSize = 3;
constexpr int kSelectedBand = 5;
constexpr int kHoveredWidth = 3;
/// Length of the last, horizontal segment of a default route, so that the arrow head stands clear.
constexpr int kApproach = 8;

int MiddleX(const TRect &rect)
{
    return rect.Left + rect.Width() / 2;
}

/// Rectangle spanned by two points, as half-open as a line's pixels are.
TRect Spanned(TPoint a, TPoint b)
{
    return {std::min(a.X, b.X), std::min(a.Y, b.Y), std::max(a.X, b.X) + 1, std::max(a.Y, b.Y) + 1};
}

int Sign(int value)
{
    return (value > 0) - (value < 0);
}

} // namespace

bool IsLinkShown(const TLinkEnd &first, const TLinkEnd &second, TLinkShow show)
{
    switch (show) {
    case TLinkShow::lsOneEndVisible:
        return first.InView || second.InView;
    case TLinkShow::lsBothEndsVisible:
        return first.InView && second.InView;
    case TLinkShow::lsAlways:
        return first.OnScreen || second.OnScreen;
    }
    return false;
}

TLinkPoints LinkPoints(const TLinkEnd &first, const TLinkEnd &second, TLinkStyle style)
{
    TRect a = first.Rect;
    TRect b = second.Rect;
    if (!first.OnScreen) {
        a = b.Translated({b.Width() + kStubGap, 0});
    }
    if (!second.OnScreen) {
        b = a.Translated({-(a.Width() + kStubGap), 0});
    }

    const bool leftwards = MiddleX(a) >= MiddleX(b);
    TLinkPoints points;
    points.Start = {leftwards ? a.Left : a.Right, a.MiddleY()};
    points.End = {leftwards ? b.Right : b.Left, b.MiddleY()};
    points.Heading = leftwards ? -1 : 1;
    if (style == TLinkStyle::tlsMSProject) {
        points.End.Y = a.Top >= b.Top ? b.Bottom : b.Top;
    }
    return points;
}

TLinkRoute::TLinkRoute(TLinkPoints points, TLinkStyle style)
{
    const auto [start, end, heading] = points;
    if (style != TLinkStyle::tlsDefault) {
        m_line = {start, TPoint{end.X, start.Y}, end};
        m_lineCount = 3;
        AimArrowHead(m_line[1]);
        return;
    }
    // Where the items touch or overlap in time there is no room between them: the route then turns
    // back over the first item, so that the arrow head still stands outside the second.
    const int turn = end.X - heading * kApproach;
    m_line = {start, TPoint{turn, start.Y}, TPoint{turn, end.Y}, end};
    m_lineCount = 4;
    AimArrowHead(m_line[2]);
}

void TLinkRoute::AimArrowHead(TPoint from)
{
    const TPoint tip = m_line.at(m_lineCount - 1);
    const bool horizontal = from.Y == tip.Y && from.X != tip.X;
    if (horizontal) {
        const int base = tip.X - Sign(tip.X - from.X) * kArrowSize;
        m_arrowHead = {tip, TPoint{base, tip.Y - kArrowSize}, TPoint{base, tip.Y + kArrowSize}};
    } else {
        const int sign = tip.Y < from.Y ? -1 : 1;
        const int base = tip.Y - sign * kArrowSize;
        m_arrowHead = {tip, TPoint{tip.X - kArrowSize, base}, TPoint{tip.X + kArrowSize, base}};
    }
}

bool TLinkRoute::LinePassesThroughWindow(const TRect &window) const
{
    for (std::size_t i = 1; i < m_lineCount; ++i) {
        if (Spanned(m_line.at(i - 1), m_line.at(i)).Intersects(window)) {
            return true;
        }
    }
    return false;
}

TRect TLinkRoute::Bounds() const
{
    TRect bounds = Spanned(m_line.front(), m_line.front());
    const auto include = [&bounds](TPoint point) {
        bounds.Left = std::min(bounds.Left, point.X);
        bounds.Top = std::min(bounds.Top, point.Y);
        bounds.Right = std::max(bounds.Right, point.X + 1);
        bounds.Bottom = std::max(bounds.Bottom, point.Y + 1);
    };
    std::ranges::for_each(Line(), include);
    std::ranges::for_each(m_arrowHead, include);
    return bounds;
}

double DistanceToLine(std::span<const TPoint> line, TPoint point)
{
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 1; i < line.size(); ++i) {
        const double dx = double(line[i].X) - line[i - 1].X;
        const double dy = double(line[i].Y) - line[i - 1].Y;
        const double px = double(point.X) - line[i - 1].X;
        const double py = double(point.Y) - line[i - 1].Y;
        const double length = dx * dx + dy * dy;
        // How far along the segment its closest point lies.
        const double along = length > 0 ? std::clamp((px * dx + py * dy) / length, 0.0, 1.0) : 0.0;
        least = std::min(least, std::hypot(px - along * dx, py - along * dy));
    }
    return least;
}

void DrawLinkMark(TCanvas &canvas, std::span<const TPoint> line, TLinkMark mark, TColor color)
{
    if (mark == TLinkMark::None) {
        return;
    }
    const bool selected = mark == TLinkMark::Selected;
    canvas.SetPen({selected ? clHighlight : color, selected ? kSelectedBand : kHoveredWidth,
                   TPenStyle::psSolid});
    canvas.Polyline(line);
}

void DrawLink(TCanvas &canvas, const TLinkRoute &route, TLinkStyle style, TColor color,
              TLinkMark mark)
{
    if (!route.LinePassesThroughWindow(canvas.ClipRect())) {
        return;
    }
    DrawLinkMark(canvas, route.Line(), mark, color);
    canvas.SetPen({color, 1, TPenStyle::psSolid});
    canvas.Polyline(route.Line());

    const auto head = route.ArrowHead();
    if (style == TLinkStyle::tlsDefault) {
        canvas.Line(head[0], head[1]);
        canvas.Line(head[1], head[2]);
        canvas.Line(head[2], head[0]);
        return;
    }
    const TBrush before = canvas.Brush();
    canvas.SetBrushColor(color);
    canvas.Polygon(head);
    canvas.SetBrush(before);
}

} // namespace korvane
