// A grid view as assistive tools see it.
#pragma once

#include "cellgrid/qt/zuBabGridAccessibleTable.h"
#include "foundation/zuExport.h"

#include <QAccessibleWidget>

namespace korvane {

/// The table of the view's grid. A cell that holds a grid has this as its child.
class KORVANE_WIDGETS_API TBabGridAccessible : public QAccessibleWidget, public TGridTableAccessible
{
public:
    /// The view is observed.
    explicit TBabGridAccessible(TBabGridView_Custom &view)
        : QAccessibleWidget(&view, QAccessible::Table)
    {
    }

    TBabGridView_Custom &View() const override
    {
        return *static_cast<TBabGridView_Custom *>(object());
    }
    TBabGridCell *Grid() const override { return &View().RootCell(); }
    QAccessibleInterface *OwnInterface() const override
    {
        return QAccessible::queryAccessibleInterface(&View());
    }

    /// As Qt asks for children: all crossings row by row, heads first.
    void *interface_cast(QAccessible::InterfaceType type) override;
    int childCount() const override { return CrossingCount(); }
    QAccessibleInterface *child(int index) const override { return CrossingOf(index); }
    QAccessibleInterface *childAt(int x, int y) const override { return CrossingAt({x, y}); }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return IndexOfCell(child);
    }
    QAccessibleInterface *focusChild() const override;
};

/// Tells assistive tools that another cell has the focus.
KORVANE_WIDGETS_API void TellGridFocus(TBabGridView_Custom &view);
/// Tells them that the selection of the grid has changed.
KORVANE_WIDGETS_API void TellGridSelection(TBabGridView_Custom &view);
/// Tells them that there are other rows or columns.
KORVANE_WIDGETS_API void TellGridReset(TBabGridView_Custom &view);

} // namespace korvane
