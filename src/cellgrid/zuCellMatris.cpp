#include "cellgrid/zuCellMatris.h"

#include "cellgrid/zuAxisContent.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace korvane {

/// The cells of one row by the id of their column.
class TCellMatris::TCellsOfRow : public TObject
{
public:
    using TEntry = std::pair<std::uint32_t, std::unique_ptr<TBabCell>>;

    std::vector<TEntry>::iterator Find(std::uint32_t column)
    {
        return std::lower_bound(
            Cells.begin(), Cells.end(), column,
            [](const TEntry &entry, std::uint32_t id) { return entry.first < id; });
    }
    bool Holds(std::vector<TEntry>::iterator at, std::uint32_t column) const
    {
        return at != Cells.end() && at->first == column;
    }

    std::vector<TEntry> Cells; ///< by column
};

TCellMatris::TCellsOfRow *TCellMatris::CellsOf(const TAxisContentItem &row)
{
    return static_cast<TCellsOfRow *>(row.m_cells.get());
}

TBabCell *TCellMatris::FindCell(const TAxisContentItem &column, const TAxisContentItem &row) const
{
    TCellsOfRow *cells = CellsOf(row);
    if (cells == nullptr) {
        return nullptr;
    }
    const auto at = cells->Find(column.m_id);
    return cells->Holds(at, column.m_id) ? at->second.get() : nullptr;
}

TBabCell &TCellMatris::PutCell(TAxisContentItem &column, TAxisContentItem &row,
                               std::unique_ptr<TBabCell> cell)
{
    if (row.m_cells == nullptr) {
        row.m_cells = std::make_unique<TCellsOfRow>();
    }
    cell->m_gridCell = &m_gridCell;
    cell->m_column = &column;
    cell->m_row = &row;
    TBabCell &result = *cell;
    TCellsOfRow &cells = *CellsOf(row);
    const auto at = cells.Find(column.m_id);
    if (cells.Holds(at, column.m_id)) {
        at->second = std::move(cell);
    } else {
        cells.Cells.emplace(at, column.m_id, std::move(cell));
        ++m_cellCount;
    }
    return result;
}

void TCellMatris::RemoveCell(const TAxisContentItem &column, TAxisContentItem &row)
{
    TCellsOfRow *cells = CellsOf(row);
    if (cells == nullptr) {
        return;
    }
    const auto at = cells->Find(column.m_id);
    if (cells->Holds(at, column.m_id)) {
        const auto gone = std::move(at->second);
        cells->Cells.erase(at);
        --m_cellCount;
    }
}

void TCellMatris::RowGoes(TAxisContentItem &row)
{
    if (row.m_cells != nullptr) {
        m_cellCount -= static_cast<int>(CellsOf(row)->Cells.size());
        row.m_cells.reset();
    }
}

void TCellMatris::ColumnGoes(const TAxisContentItem &column, const TAxisContentList &rows)
{
    if (m_cellCount == 0) {
        return;
    }
    for (int position = 0; position < rows.LoadedCount(); ++position) {
        RemoveCell(column, *rows.getLoadedAxisContentItem(position));
    }
}

} // namespace korvane
