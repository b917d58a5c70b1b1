// Cells that are kept track of while handlers change the grid.
#pragma once

#include "cellgrid/zuBabGridEdit.h"

namespace korvane {

/// While it lives the place of a cell follows the cell. For locals only: they end in the reverse
/// order of their beginning.
class TBabGridEdit::TFollow
{
public:
    /// Both are observed; `at` becomes the cell's new place, or no grid once the cell is gone.
    TFollow(TBabGridEdit &edit, TGridCellAt &at);
    TFollow(const TFollow &) = delete;
    TFollow &operator=(const TFollow &) = delete;
    ~TFollow();

    /// Whether the view and the cell still exist.
    bool IsThere() const { return !m_life.expired() && m_at.Grid != nullptr; }

    /// Where the cell is now.
    const TGridCellAt &At() const { return m_at; }

private:
    TBabGridEdit &m_edit;
    std::weak_ptr<char> m_life;
    TGridCellAt &m_at;
};

} // namespace korvane
