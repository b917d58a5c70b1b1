#include "cellgrid/zuGridPicture.h"

#include <algorithm>
#include <cstdlib>

namespace korvane {

namespace {

bool SameBand(const TGridBand &a, const TGridBand &b)
{
    return a.Item == b.Item && a.Index == b.Index && a.Fixed == b.Fixed;
}

/// How far the bands behind the fixed ones moved; nothing when they did not all move alike.
std::optional<int> MoveOf(const TGridBands &before, const TGridBands &after)
{
    std::optional<int> by;
    auto old = before.begin();
    for (const TGridBand &band : after) {
        while (old != before.end() && old->Index < band.Index) {
            ++old;
        }
        if (old == before.end()) {
            break;
        }
        if (old->Index != band.Index) {
            continue;
        }
        const int moved = band.Near - old->Near;
        const bool alike = SameBand(*old, band) && band.Far - old->Far == moved
                           && (band.Fixed ? moved == 0 : by.value_or(moved) == moved);
        if (!alike) {
            return std::nullopt;
        }
        if (!band.Fixed) {
            by = moved;
        }
    }
    return by;
}

} // namespace

void TGridPicture::Remember(const TGridBlock &shown)
{
    m_shown = shown;
    m_known = true;
}

std::optional<TGridPictureMove> TGridPicture::MoveTo(const TGridBlock &shown) const
{
    // Where device pixels are not logical ones the edge is painted with what came into view.
    constexpr int kEdge = 1;
    if (!m_known || m_groupsInside || m_shown.Grid != shown.Grid || m_shown.Area != shown.Area
        || m_shown.FixedEnd != shown.FixedEnd) {
        return std::nullopt;
    }
    const auto x = MoveOf(m_shown.Columns, shown.Columns);
    const auto y = MoveOf(m_shown.Rows, shown.Rows);
    if (!x || !y || (*x != 0 && *y != 0)) {
        return std::nullopt;
    }
    TGridPictureMove move{shown.Area, {*x, *y}, {}};
    TRect anew = shown.Area;
    if (*y != 0) {
        move.Area.Top = shown.FixedEnd.Y;
        anew.Top = *y < 0 ? shown.Area.Bottom + *y - kEdge : shown.FixedEnd.Y;
        anew.Bottom = *y < 0 ? shown.Area.Bottom : shown.FixedEnd.Y + *y + kEdge;
    } else if (*x != 0) {
        move.Area.Left = shown.FixedEnd.X;
        anew.Left = *x < 0 ? shown.Area.Right + *x - kEdge : shown.FixedEnd.X;
        anew.Right = *x < 0 ? shown.Area.Right : shown.FixedEnd.X + *x + kEdge;
    }
    if (std::abs(*x) >= move.Area.Width() || std::abs(*y) >= move.Area.Height()) {
        return std::nullopt;
    }
    if (*x != 0 || *y != 0) {
        move.Anew.push_back(anew.Intersected(move.Area));
    }
    return move;
}

} // namespace korvane
