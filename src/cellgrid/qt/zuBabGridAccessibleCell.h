// A cell of a grid as assistive tools see it.
#pragma once

#include "cellgrid/qt/zuBabGridAccessibleTable.h"
#include "foundation/qt/zuAccessible.h"
#include "foundation/zuExport.h"

namespace korvane {

/// A crossing of a table, told by its place. Where it holds a grid, its only child is the table of
/// that.
class KORVANE_WIDGETS_API TGridCellAccessible : public TAccessibleLeaf,
                                                public QAccessibleTableCellInterface
{
public:
    /// Of the crossing with these real indexes; the table outlives it.
    TGridCellAccessible(const TGridTableAccessible &table, int column, int row)
        : m_table(table)
        , m_column(column)
        , m_row(row)
    {
    }
    ~TGridCellAccessible() override;

    /// No grid once the table's is gone.
    TGridCellAt At() const { return {m_table.Grid(), m_column, m_row}; }
    /// As given to the constructor.
    const TGridTableAccessible &Table() const { return m_table; }
    /// The grid that is in the crossing now, or nil.
    TBabGridCell *InnerGrid() const;
    /// The table of a grid in the cell, or null; made when it is first asked for, and ours.
    TGridTableAccessible *InnerTable() const;

    /// False once the column, the row or the grid is gone.
    bool isValid() const override;
    /// That of the view.
    QWindow *window() const override { return m_table.View().window()->windowHandle(); }
    /// A header in the head's rows and columns, else a cell.
    QAccessible::Role role() const override;
    /// The table; its children are the crossings.
    QAccessibleInterface *parent() const override { return m_table.OwnInterface(); }
    /// The table of a grid in the cell is the only child.
    int childCount() const override { return InnerGrid() != nullptr ? 1 : 0; }
    QAccessibleInterface *child(int index) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    /// In pixels of the screen, also beyond the view's edges; empty where the column or row is
    /// hidden.
    QRect rect() const override;
    /// Name and value are the text that is shown, for which the row is loaded; none of check boxes
    /// and of cells that hold grids.
    QString text(QAccessible::Text text) const override;
    /// Headers tell whether they are seen and enabled; cells also tell of focus, selection, check
    /// box, tree node, and whether they can be edited.
    QAccessible::State state() const override;
    /// A table cell with actions.
    void *interface_cast(QAccessible::InterfaceType type) override;

    /// Whether the crossing is in the selection, as a cell or with its row.
    bool isSelected() const override { return View().IsSelected(At()); }
    /// The first header of the column, or of the row; none without heads.
    QList<QAccessibleInterface *> columnHeaderCells() const override;
    QList<QAccessibleInterface *> rowHeaderCells() const override;
    /// Indexes begin behind the heads, whose own ones are negative; a cell takes up one of each.
    int columnIndex() const override { return m_column - m_table.FixedColumns(); }
    int rowIndex() const override { return m_row - m_table.FixedRows(); }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    /// The same as parent().
    QAccessibleInterface *table() const override { return parent(); }

    /// Cells take the focus; check boxes and tree nodes with a button are toggled. Headers, and
    /// what is not valid, do nothing, nor does a name that is not in the list.
    QStringList actionNames() const override;
    void doAction(const QString &name) override;

private:
    TBabGridView_Custom &View() const { return m_table.View(); }
    const TBabColumn *ColumnInfo() const;
    bool IsCheckBox() const;
    const IBabTreeRow *Node() const;
    std::string CellText() const;

    const TGridTableAccessible &m_table;
    int m_column;
    int m_row;
    mutable QAccessible::Id m_inner = 0;
};

} // namespace korvane
