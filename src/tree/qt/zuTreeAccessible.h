// The tree as assistive tools see it.
#pragma once

#include "foundation/qt/zuAccessible.h"
#include "foundation/zuExport.h"
#include "tree/qt/zuTreeComBasic.h"

#include <QAccessibleWidget>

namespace korvane {

/// A tree whose children are its rows, top to bottom, those scrolled away included. A row is told
/// by its place: it has the caption and the states of the node that stands there when it is asked,
/// and can be expanded, collapsed and made the current one.
class KORVANE_WIDGETS_API TTreeAccessible : public QAccessibleWidget
{
public:
    /// The tree is observed.
    explicit TTreeAccessible(TzuTree_ComBasic &tree)
        : QAccessibleWidget(&tree, QAccessible::Tree)
    {
    }

    /// The control that this is about.
    TzuTree_ComBasic &Tree() const { return *static_cast<TzuTree_ComBasic *>(object()); }

    /// Rows, those scrolled away included.
    int childCount() const override { return Tree().CountVisible(); }
    /// Null, or -1, where there is no row.
    QAccessibleInterface *child(int index) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *focusChild() const override;

private:
    mutable TAccessibleParts m_rows;
};

/// Tells assistive tools that another row of a tree that has the focus is the current one.
KORVANE_WIDGETS_API void TellCurrentRow(TzuTree_ComBasic &tree);

} // namespace korvane
