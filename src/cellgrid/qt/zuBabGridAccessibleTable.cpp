#include "cellgrid/qt/zuBabGridAccessibleTable.h"

#include "cellgrid/qt/zuBabGridAccessible.h"
#include "cellgrid/qt/zuBabGridAccessibleCell.h"

#include <algorithm>
#include <limits>

namespace korvane {

namespace {

/// Selections of more cells than this are told by their first cells.
constexpr int kMostSelected = 10'000;

int Limited(std::int64_t count)
{
    return static_cast<int>(std::min<std::int64_t>(count, std::numeric_limits<int>::max()));
}

} // namespace

void TGridTableAccessible::ForgetCells()
{
    for (const auto &cell : m_cells) {
        QAccessible::deleteAccessibleInterface(cell.second);
    }
    m_cells.clear();
}

QAccessibleInterface *TGridTableAccessible::Crossing(int column, int row) const
{
    const TBabGridCell *grid = Grid();
    const bool exists = grid != nullptr && column >= 0 && column < grid->Columns().Count()
                        && row >= 0 && row < grid->Rows().Count();
    if (!exists) {
        return nullptr;
    }
    const std::uint64_t key =
        static_cast<std::uint64_t>(row) << 32U | static_cast<unsigned>(column);
    const auto [place, isNew] = m_cells.try_emplace(key, 0);
    if (isNew) {
        place->second =
            QAccessible::registerAccessibleInterface(new TGridCellAccessible(*this, column, row));
    }
    return QAccessible::accessibleInterface(place->second);
}

int TGridTableAccessible::IndexOfCrossing(int column, int row) const
{
    const std::int64_t columns = Grid() != nullptr ? Grid()->Columns().Count() : 0;
    const std::int64_t index = row * columns + column;
    return index > std::numeric_limits<int>::max() ? -1 : static_cast<int>(index);
}

int TGridTableAccessible::CrossingCount() const
{
    const TBabGridCell *grid = Grid();
    return grid != nullptr ? Limited(std::int64_t{grid->Rows().Count()} * grid->Columns().Count())
                           : 0;
}

QAccessibleInterface *TGridTableAccessible::CrossingOf(int index) const
{
    const int columns = Grid() != nullptr ? Grid()->Columns().Count() : 0;
    return index >= 0 && columns > 0 ? Crossing(index % columns, index / columns) : nullptr;
}

/// What is in a grid in a cell is that cell's.
QAccessibleInterface *TGridTableAccessible::CrossingAt(QPoint screen) const
{
    const TGridHit hit = View().HitTest(View().ToGrid(View().mapFromGlobal(screen)));
    TGridCellAt at = hit.At;
    while (at.Grid != nullptr && at.Grid != Grid()) {
        TBabGridCell *parent = at.Grid->GridCell();
        at = parent != nullptr ? TGridCellAt{parent, parent->Columns().IndexOf(*at.Grid->Column()),
                                             parent->Rows().IndexOf(*at.Grid->Row())}
                               : TGridCellAt();
    }
    return at ? Crossing(at.Column, at.Row) : nullptr;
}

int TGridTableAccessible::IndexOfCell(const QAccessibleInterface *child)
{
    const auto *cell = dynamic_cast<const TGridCellAccessible *>(child);
    return cell != nullptr && cell->isValid()
               ? cell->Table().IndexOfCrossing(cell->At().Column, cell->At().Row)
               : -1;
}

TGridTableAccessible *GridTableOf(TBabGridView_Custom &view, TBabGridCell &grid)
{
    if (TBabGridCell *parent = grid.GridCell()) {
        const auto *table = GridTableOf(view, *parent);
        const auto *cell =
            table != nullptr ? dynamic_cast<TGridCellAccessible *>(table->Crossing(
                parent->Columns().IndexOf(*grid.Column()), parent->Rows().IndexOf(*grid.Row())))
                             : nullptr;
        return cell != nullptr ? cell->InnerTable() : nullptr;
    }
    return dynamic_cast<TBabGridAccessible *>(QAccessible::queryAccessibleInterface(&view));
}

// --- rows and columns ----------------------------------------------------------------------------

QAccessibleInterface *TGridTableAccessible::cellAt(int row, int column) const
{
    return row < 0 || column < 0 ? nullptr : Crossing(FixedColumns() + column, FixedRows() + row);
}

int TGridTableAccessible::rowCount() const
{
    return Grid() != nullptr ? Grid()->Rows().Count() - FixedRows() : 0;
}

int TGridTableAccessible::columnCount() const
{
    return Grid() != nullptr ? Grid()->Columns().Count() - FixedColumns() : 0;
}

QString TGridTableAccessible::columnDescription(int column) const
{
    QAccessibleInterface *header = FixedRows() > 0 ? Crossing(FixedColumns() + column, 0) : nullptr;
    return header != nullptr ? header->text(QAccessible::Name) : QString();
}

QString TGridTableAccessible::rowDescription(int row) const
{
    return QString::number(row + 1);
}

// --- the selection -------------------------------------------------------------------------------

std::vector<TCellRange> TGridTableAccessible::SelectedRanges() const
{
    if (Grid() == nullptr) {
        return {};
    }
    auto ranges = Grid()->Selection().Ranges();
    for (TCellRange &range : ranges) {
        range.FirstColumn = std::max(range.FirstColumn, FixedColumns());
        range.LastColumn = std::min(range.LastColumn, Grid()->Columns().Count() - 1);
    }
    return ranges;
}

int TGridTableAccessible::selectedCellCount() const
{
    std::int64_t count = 0;
    for (const TCellRange &range : SelectedRanges()) {
        count += std::int64_t{range.LastColumn - range.FirstColumn + 1}
                 * (range.LastRow - range.FirstRow + 1);
    }
    return Limited(count);
}

QList<QAccessibleInterface *> TGridTableAccessible::selectedCells() const
{
    QList<QAccessibleInterface *> cells;
    for (const TCellRange &range : SelectedRanges()) {
        for (int row = range.FirstRow; row <= range.LastRow; ++row) {
            for (int column = range.FirstColumn; column <= range.LastColumn; ++column) {
                if (cells.size() == kMostSelected) {
                    return cells;
                }
                cells << Crossing(column, row);
            }
        }
    }
    return cells;
}

bool TGridTableAccessible::isColumnSelected(int column) const
{
    const int index = FixedColumns() + column;
    int rows = 0;
    for (const TCellRange &range : SelectedRanges()) {
        const bool in = range.FirstColumn <= index && index <= range.LastColumn;
        rows += in ? range.LastRow - range.FirstRow + 1 : 0;
    }
    return rows > 0 && rows == rowCount();
}

QList<int> TGridTableAccessible::selectedColumns() const
{
    QList<int> columns;
    for (int column = 0; column < columnCount(); ++column) {
        if (isColumnSelected(column)) {
            columns << column;
        }
    }
    return columns;
}

bool TGridTableAccessible::isRowSelected(int row) const
{
    const int index = FixedRows() + row;
    for (int column = 0; column < columnCount(); ++column) {
        if (!Grid()->Selection().IsSelected(FixedColumns() + column, index)) {
            return false;
        }
    }
    return columnCount() > 0;
}

QList<int> TGridTableAccessible::selectedRows() const
{
    QList<int> rows;
    for (const TCellRange &range : SelectedRanges()) {
        for (int row = range.FirstRow; row <= range.LastRow && rows.size() < kMostSelected; ++row) {
            const int index = row - FixedRows();
            if (isRowSelected(index) && (rows.isEmpty() || rows.back() != index)) {
                rows << index;
            }
        }
    }
    return rows;
}

bool TGridTableAccessible::SelectBlock(const TCellRange &range, bool selected) const
{
    const bool exists =
        Grid() != nullptr && range.FirstColumn >= FixedColumns() && range.FirstRow >= FixedRows()
        && range.FirstColumn < Grid()->Columns().Count() && range.FirstRow < Grid()->Rows().Count();
    if (!exists || !View().MultiSelect()) {
        return false;
    }
    selected ? Grid()->Selection().Select(range) : Grid()->Selection().Deselect(range);
    View().RootCell().SelectionEvent.TriggerEvent(Grid());
    return true;
}

bool TGridTableAccessible::SelectColumns(int column, bool selected) const
{
    const int index = FixedColumns() + column;
    return SelectBlock({index, FixedRows(), index, FixedRows() + rowCount() - 1}, selected);
}

bool TGridTableAccessible::SelectRows(int row, bool selected) const
{
    const int index = FixedRows() + row;
    return SelectBlock({FixedColumns(), index, TCellSelection::kAllColumns, index}, selected);
}

} // namespace korvane
