#include "LinkRoute.h"

#include <algorithm>

namespace korvane::planner {

namespace {

/// How far a line stands off the end of a bar before it turns.
constexpr int kClearance = 7;
/// Where lines leave or enter the upper or lower edge of a bar, counted from its end.
constexpr int kNotch = 4;

int MiddleX(const TRect &rect)
{
    return rect.Left + rect.Width() / 2;
}

int MiddleY(const TRect &rect)
{
    return rect.Top + rect.Height() / 2;
}

/// The end of a bar: the right one for direction 1, the left one for -1. Lines include their end
/// points, so that the last column of the bar is the end.
int EndX(const TRect &rect, int direction)
{
    return direction > 0 ? rect.Right - 1 : rect.Left;
}

/// Where a vertical line meets the bar near an end.
int NotchX(const LinkEnd &end, int direction)
{
    if (end.IsSymbol || end.Rect.Width() <= 2 * kNotch) {
        return MiddleX(end.Rect);
    }
    return EndX(end.Rect, direction) - direction * kNotch;
}

/// The edge of a bar that faces what lies below (or above) it.
int FacingY(const TRect &rect, bool facesDown)
{
    return facesDown ? rect.Bottom : rect.Top - 1;
}

} // namespace

LinkRoute::LinkRoute(PlanLinkType type, const LinkEnd &predecessor, const LinkEnd &successor)
{
    switch (type) {
    case PlanLinkType::FinishToStart:
        RouteAcross(predecessor, successor, 1);
        break;
    case PlanLinkType::StartToFinish:
        RouteAcross(predecessor, successor, -1);
        break;
    case PlanLinkType::StartToStart:
        RouteAround(predecessor, successor, -1);
        break;
    case PlanLinkType::FinishToFinish:
        RouteAround(predecessor, successor, 1);
        break;
    }
}

/// From one end to the other kind of end; `direction` 1 leads to later times.
void LinkRoute::RouteAcross(const LinkEnd &from, const LinkEnd &to, int direction)
{
    const bool down = MiddleY(to.Rect) >= MiddleY(from.Rect);
    const int leaveX = NotchX(from, direction);
    const int enterX = NotchX(to, -direction);
    const int toX = EndX(to.Rect, -direction);
    // Off the upper or lower edge, so that the name beside the bar stays free.
    Add({leaveX, FacingY(from.Rect, down)});
    if ((toX - leaveX) * direction >= kArrowLength + kNotch) {
        Add({leaveX, MiddleY(to.Rect)});
        Add({toX, MiddleY(to.Rect)});
        return;
    }
    // No room beside the successor, or it lies before the end that it follows.
    const int edgeY = FacingY(to.Rect, !down);
    const int betweenY = edgeY + (down ? -1 : 1) * (kArrowLength + 1);
    Add({leaveX, betweenY});
    Add({enterX, betweenY});
    Add({enterX, edgeY});
}

/// From one end to the same kind of end, on that side of both: 1 for the finishes.
void LinkRoute::RouteAround(const LinkEnd &from, const LinkEnd &to, int direction)
{
    const int fromX = EndX(from.Rect, direction);
    const int toX = EndX(to.Rect, direction);
    const int farther = direction > 0 ? std::max(fromX, toX) : std::min(fromX, toX);
    const int turnX = farther + direction * (kClearance + kArrowLength - 2);
    Add({fromX, MiddleY(from.Rect)});
    Add({turnX, MiddleY(from.Rect)});
    Add({turnX, MiddleY(to.Rect)});
    Add({toX, MiddleY(to.Rect)});
}

std::array<TPoint, 3> LinkRoute::ArrowHead() const
{
    const TPoint tip = m_points.at(m_count - 1);
    const TPoint before = m_points.at(m_count - 2);
    if (before.Y == tip.Y) {
        const int base = tip.X + (before.X < tip.X ? -kArrowLength : kArrowLength);
        return {tip, {base, tip.Y - kArrowHalfWidth}, {base, tip.Y + kArrowHalfWidth}};
    }
    const int base = tip.Y + (before.Y < tip.Y ? -kArrowLength : kArrowLength);
    return {tip, {tip.X - kArrowHalfWidth, base}, {tip.X + kArrowHalfWidth, base}};
}

} // namespace korvane::planner
