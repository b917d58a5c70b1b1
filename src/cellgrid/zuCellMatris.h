// The cells of a grid that exist.
#pragma once

#include "cellgrid/zuBabCell.h"
#include "cellgrid/zuCellSelection.h"
#include "foundation/zuExport.h"

#include <memory>

namespace korvane {

class TAxisContentItem;
class TAxisContentList;

/// Cells exist once something was put into them; what they share with their column needs none. A
/// cell costs memory where it stands only, and follows its row and column when those move.
class KORVANE_CORE_API TCellMatris : public TObject
{
public:
    /// The grid outlives its cells.
    explicit TCellMatris(TBabGridCell &gridCell)
        : m_gridCell(gridCell)
    {
    }

    /// Nil when the cell does not exist.
    TBabCell *FindCell(const TAxisContentItem &column, const TAxisContentItem &row) const;
    /// The cell replaces the one that is there.
    TBabCell &PutCell(TAxisContentItem &column, TAxisContentItem &row,
                      std::unique_ptr<TBabCell> cell);
    /// Frees it; nothing when there is none.
    void RemoveCell(const TAxisContentItem &column, TAxisContentItem &row);
    /// Number of cells that exist.
    int CellCount() const { return m_cellCount; }
    /// What goes with a row or a column that is about to go.
    void RowGoes(TAxisContentItem &row);
    void ColumnGoes(const TAxisContentItem &column, const TAxisContentList &rows);

    /// Which crossings are selected, whether they have a cell or not.
    TCellSelection &Selection() { return m_selection; }
    const TCellSelection &Selection() const { return m_selection; }

private:
    class TCellsOfRow;

    static TCellsOfRow *CellsOf(const TAxisContentItem &row);

    TBabGridCell &m_gridCell;
    TCellSelection m_selection;
    int m_cellCount = 0;
};

} // namespace korvane
