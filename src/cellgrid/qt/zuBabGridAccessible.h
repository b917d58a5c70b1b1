// A grid view as assistive tools see it.
#pragma once

#include "cellgrid/qt/zuBabGridView.h"
#include "foundation/zuExport.h"

#include <QAccessibleWidget>

#include <cstdint>
#include <unordered_map>

namespace korvane {

/// A table whose cells are those of the view's grid behind the heads, hidden and unloaded ones
/// included; its children are all crossings row by row, heads first. A cell is told by its place
/// and is made when somebody asks for it, so that a million rows cost nothing.
class KORVANE_WIDGETS_API TBabGridAccessible : public QAccessibleWidget,
                                               public QAccessibleTableInterface
{
public:
    explicit TBabGridAccessible(TBabGridView_Custom &view)
        : QAccessibleWidget(&view, QAccessible::Table)
    {
    }
    ~TBabGridAccessible() override;

    TBabGridView_Custom &View() const { return *static_cast<TBabGridView_Custom *>(object()); }
    TBabGridCell &Grid() const { return View().RootCell(); }
    /// The interface of a crossing by real indexes; null where there is none.
    QAccessibleInterface *Crossing(int column, int row) const;
    /// -1 where the number would be too great.
    int IndexOfCrossing(int column, int row) const;

    void *interface_cast(QAccessible::InterfaceType type) override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *focusChild() const override;

    QAccessibleInterface *caption() const override { return nullptr; }
    QAccessibleInterface *summary() const override { return nullptr; }
    QAccessibleInterface *cellAt(int row, int column) const override;
    int rowCount() const override;
    int columnCount() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedCellCount() const override;
    QList<QAccessibleInterface *> selectedCells() const override;
    int selectedColumnCount() const override { return static_cast<int>(selectedColumns().size()); }
    QList<int> selectedColumns() const override;
    bool isColumnSelected(int column) const override;
    bool selectColumn(int column) override;
    bool unselectColumn(int column) override;
    int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    QList<int> selectedRows() const override;
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool unselectRow(int row) override;
    void modelChange(QAccessibleTableModelChangeEvent *event) override;

private:
    bool SelectBlock(const TCellRange &range, bool selected) const;
    /// What is selected, cut to the cells that there are.
    std::vector<TCellRange> SelectedRanges() const;

    mutable std::unordered_map<std::uint64_t, QAccessible::Id> m_cells; ///< by row and column
};

/// Tells assistive tools that another cell has the focus, that the selection changed, and that
/// there are other rows or columns.
KORVANE_WIDGETS_API void TellGridFocus(TBabGridView_Custom &view);
KORVANE_WIDGETS_API void TellGridSelection(TBabGridView_Custom &view);
KORVANE_WIDGETS_API void TellGridReset(TBabGridView_Custom &view);

} // namespace korvane
