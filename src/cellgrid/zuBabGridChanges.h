// What the parts of the layout share.
#pragma once

#include "cellgrid/zuBabGridCell.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace korvane {

/// Coordinates far away are drawn as if they were at the end of the range.
inline int ToPixel(std::int64_t value)
{
    return static_cast<int>(std::clamp<std::int64_t>(value, -kFarAway, kFarAway));
}

/// Tells whether handlers changed a grid, or one that it is in, and with that the items at hand.
class TGridChanges
{
public:
    /// The grid, and those that it is in, are observed.
    explicit TGridChanges(const TBabGridCell &grid)
    {
        for (const TBabGridCell *each = &grid; each != nullptr; each = each->GridCell()) {
            m_seen.push_back({each, CountOf(*each)});
        }
    }
    /// From the outermost grid on, since what is in a changed one may be gone.
    bool Happened() const
    {
        return std::any_of(m_seen.rbegin(), m_seen.rend(),
                           [](const auto &seen) { return CountOf(*seen.first) != seen.second; });
    }

private:
    static std::uint64_t CountOf(const TBabGridCell &grid)
    {
        return grid.Columns().Changes() + grid.Rows().Changes();
    }
    std::vector<std::pair<const TBabGridCell *, std::uint64_t>> m_seen;
};

} // namespace korvane
