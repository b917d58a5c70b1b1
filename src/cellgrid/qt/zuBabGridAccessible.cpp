#include "cellgrid/qt/zuBabGridAccessible.h"

#include "foundation/qt/zuAccessibleArea.h"

namespace korvane {

void *TBabGridAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface *>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface *TBabGridAccessible::focusChild() const
{
    if (QWidget *field = View().EditorField()) {
        return QAccessible::queryAccessibleInterface(field);
    }
    const TGridCellAt focus = View().FocusCell();
    const auto *table = View().hasFocus() && focus ? GridTableOf(View(), *focus.Grid) : nullptr;
    return table != nullptr ? table->Crossing(focus.Column, focus.Row) : nullptr;
}

void TellGridFocus(TBabGridView_Custom &view)
{
    const TGridCellAt focus = view.FocusCell();
    if (!QAccessible::isActive() || !focus || !view.hasFocus()) {
        return;
    }
    if (const auto *table = GridTableOf(view, *focus.Grid)) {
        TellFocus(table->Crossing(focus.Column, focus.Row));
    }
}

void TellGridSelection(TBabGridView_Custom &view)
{
    TellSelectionWithin(view);
}

void TellGridReset(TBabGridView_Custom &view)
{
    if (QAccessible::isActive()) {
        QAccessibleTableModelChangeEvent event(&view, QAccessibleTableModelChangeEvent::ModelReset);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace korvane
