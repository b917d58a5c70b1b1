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
    TGridCellAccessible(const TGridTableAccessible &table, int column, int row)
        : m_table(table)
        , m_column(column)
        , m_row(row)
    {
    }
    ~TGridCellAccessible() override;

    /// No grid once the table's is gone.
    TGridCellAt At() const { return {m_table.Grid(), m_column, m_row}; }
    const TGridTableAccessible &Table() const { return m_table; }
    /// The grid that is in the crossing now, or nil.
    TBabGridCell *InnerGrid() const;
    /// The table of a grid in the cell.
    TGridTableAccessible *InnerTable() const;

    bool isValid() const override;
    QWindow *window() const override { return m_table.View().window()->windowHandle(); }
    QAccessible::Role role() const override;
    QAccessibleInterface *parent() const override { return m_table.OwnInterface(); }
    int childCount() const override { return InnerGrid() != nullptr ? 1 : 0; }
    QAccessibleInterface *child(int index) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QRect rect() const override;
    QString text(QAccessible::Text text) const override;
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    bool isSelected() const override { return View().IsSelected(At()); }
    QList<QAccessibleInterface *> columnHeaderCells() const override;
    QList<QAccessibleInterface *> rowHeaderCells() const override;
    int columnIndex() const override { return m_column - m_table.FixedColumns(); }
    int rowIndex() const override { return m_row - m_table.FixedRows(); }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface *table() const override { return parent(); }

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
