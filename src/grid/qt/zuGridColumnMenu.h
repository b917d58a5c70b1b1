// What a user does with a grid's columns by a menu.
#pragma once

#include "cellgrid/zuBabGridLayout.h"
#include "foundation/zuExport.h"

#include <QMenu>

namespace korvane {

class TzuGrid;
class TzuGrid_Column;

/// Sorting, fitting, sizing, moving, showing and hiding columns. Made for one opening: by a right
/// click on a header, or by the menu key for the column with the focus.
class KORVANE_WIDGETS_API TzuGridColumnMenu : public QMenu
{
    Q_OBJECT

public:
    /// The crossing says which column was pointed at; none is needed.
    TzuGridColumnMenu(TzuGrid &grid, const TGridCellAt &at);

private:
    void BuildSort(TzuGrid_Column &column);
    void BuildSize();
    void BuildMove();
    void BuildChooser(TzuGrid_Column *column);
    void Resize(int by);
    void Move(int step);
    /// The column pointed at, unless it went while the menu was open.
    TzuGrid_Column *Column() const;
    int ColumnIndex() const;
    bool IsLastShown(const TzuGrid_Column &column) const;

    TzuGrid &m_grid;
    const TzuGrid_Column *m_column = nullptr; ///< compared only
};

} // namespace korvane
