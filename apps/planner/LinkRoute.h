// Ways of dependency lines between bars.
#pragma once

#include "foundation/zuTypes.h"
#include "plan/Plan.h"

#include <array>
#include <cstddef>
#include <span>

namespace korvane::planner {

/// A bar or a symbol that a link meets, as it is drawn, in pixels.
struct LinkEnd
{
    TRect Rect;
    bool IsSymbol = false; ///< a diamond: met at its corners
};

/// Horizontal and vertical lines from the end of the predecessor that the link's type names to that
/// of the successor, where an arrow stands. Lines keep clear of the names beside the bars where the
/// dates leave room for that.
class LinkRoute
{
public:
    static constexpr int kArrowLength = 5;
    static constexpr int kArrowHalfWidth = 3;

    LinkRoute(PlanLinkType type, const LinkEnd &predecessor, const LinkEnd &successor);

    std::span<const TPoint> Line() const { return {m_points.data(), m_count}; }
    /// The tip first.
    std::array<TPoint, 3> ArrowHead() const;

private:
    void Add(TPoint point) { m_points.at(m_count++) = point; }
    void RouteAcross(const LinkEnd &from, const LinkEnd &to, int direction);
    void RouteAround(const LinkEnd &from, const LinkEnd &to, int direction);

    std::array<TPoint, 4> m_points{};
    std::size_t m_count = 0;
};

} // namespace korvane::planner
