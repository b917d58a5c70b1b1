// Loading rows without losing the selection.
#pragma once

#include "cellgrid/zuBabGridCell.h"

#include <utility>

namespace korvane {

/// While it lives the cells of a grid count as deselected, so that rows may be unloaded; the
/// selection by indexes is none of theirs.
class TKeepSelection
{
public:
    /// The grid outlives the object.
    explicit TKeepSelection(TBabGridCell &grid)
        : m_grid(grid)
        , m_kept(std::exchange(grid.Selection(), TCellSelection()))
    {
    }
    TKeepSelection(const TKeepSelection &) = delete;
    TKeepSelection &operator=(const TKeepSelection &) = delete;
    ~TKeepSelection() { m_grid.Selection() = std::move(m_kept); }

private:
    TBabGridCell &m_grid;
    TCellSelection m_kept;
};

} // namespace korvane
