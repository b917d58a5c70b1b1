// A grid of cells, that of a view or one in a cell, as assistive tools see it.
#pragma once

#include "cellgrid/qt/zuBabGridView.h"
#include "foundation/zuExport.h"

#include <QAccessible>

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace korvane {

/// A table whose cells are those of a grid behind the heads, hidden and unloaded ones included; its
/// children are all crossings row by row, heads first. A cell is told by its place and is made when
/// somebody asks for it, so that a million rows cost nothing.
class KORVANE_WIDGETS_API TGridTableAccessible : public QAccessibleTableInterface
{
public:
    TGridTableAccessible() = default;
    TGridTableAccessible(const TGridTableAccessible &) = delete;
    TGridTableAccessible &operator=(const TGridTableAccessible &) = delete;
    ~TGridTableAccessible() override { ForgetCells(); }

    /// The view in which the grid is shown; it outlives this.
    virtual TBabGridView_Custom &View() const = 0;
    /// Nil once the grid is gone.
    virtual TBabGridCell *Grid() const = 0;
    /// The parent of the crossings.
    virtual QAccessibleInterface *OwnInterface() const = 0;

    /// The interface of a crossing by real indexes; null where there is none.
    QAccessibleInterface *Crossing(int column, int row) const;
    /// -1 where the number would be too great.
    int IndexOfCrossing(int column, int row) const;
    /// Crossings that have a number: what is too many for an int is cut.
    int CrossingCount() const;
    /// By the number that IndexOfCrossing gives, or at a point of the screen; null where there is
    /// none. What a grid in a cell shows belongs to that cell.
    QAccessibleInterface *CrossingOf(int index) const;
    QAccessibleInterface *CrossingAt(QPoint screen) const;
    /// Number of a crossing of any table; -1 for what is none, or no longer.
    static int IndexOfCell(const QAccessibleInterface *child);
    /// Columns and rows of the heads; 0 once the grid is gone.
    int FixedColumns() const { return Grid() != nullptr ? Grid()->Columns().FixedCount() : 0; }
    int FixedRows() const { return Grid() != nullptr ? Grid()->Rows().FixedCount() : 0; }

    /// Tables have neither.
    QAccessibleInterface *caption() const override { return nullptr; }
    QAccessibleInterface *summary() const override { return nullptr; }
    /// Indexes of the table's columns and rows begin behind the heads. Null where there is no cell.
    QAccessibleInterface *cellAt(int row, int column) const override;
    int rowCount() const override;
    int columnCount() const override;
    /// The text of the header of a column; the number of a row, from 1.
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    /// Cells that are selected, those of selected rows included. The list ends after 10,000.
    int selectedCellCount() const override;
    QList<QAccessibleInterface *> selectedCells() const override;
    /// Columns all of whose rows are selected.
    int selectedColumnCount() const override { return static_cast<int>(selectedColumns().size()); }
    QList<int> selectedColumns() const override;
    bool isColumnSelected(int column) const override;
    /// Adds a column to the selection, or takes it out, and tells of the change. False where there
    /// is none, or when the view selects one cell at most.
    bool selectColumn(int column) override { return SelectColumns(column, true); }
    bool unselectColumn(int column) override { return SelectColumns(column, false); }
    /// Rows all of whose columns are selected; the list, and the count with it, ends after 10,000.
    int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    QList<int> selectedRows() const override;
    bool isRowSelected(int row) const override;
    /// As for columns.
    bool selectRow(int row) override { return SelectRows(row, true); }
    bool unselectRow(int row) override { return SelectRows(row, false); }
    /// Drops the interfaces of all cells; they are made anew when somebody asks.
    void modelChange(QAccessibleTableModelChangeEvent * /*event*/) override { ForgetCells(); }

private:
    void ForgetCells();
    bool SelectColumns(int column, bool selected) const;
    bool SelectRows(int row, bool selected) const;
    bool SelectBlock(const TCellRange &range, bool selected) const;
    /// What is selected, cut to the cells that there are.
    std::vector<TCellRange> SelectedRanges() const;

    mutable std::unordered_map<std::uint64_t, QAccessible::Id> m_cells; ///< by row and column
};

/// The table of a grid in the view, or null.
KORVANE_WIDGETS_API TGridTableAccessible *GridTableOf(TBabGridView_Custom &view,
                                                      TBabGridCell &grid);

} // namespace korvane
