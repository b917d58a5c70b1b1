#include "tree/qt/zuTreeAccessible.h"

#include "foundation/qt/zuConvert.h"
#include "tree/zuTreeData.h"

#include <QWindow>

namespace korvane {

namespace {

class TTreeRowAccessible : public TAccessibleLeaf
{
public:
    TTreeRowAccessible(const TTreeAccessible &tree, int row)
        : m_tree(tree)
        , m_row(row)
    {
    }

    int Row() const { return m_row; }

    bool isValid() const override { return m_row < m_tree.childCount(); }
    QWindow *window() const override { return m_tree.window(); }
    QAccessible::Role role() const override { return QAccessible::TreeItem; }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(&Tree());
    }

    QRect rect() const override
    {
        const QModelIndex index = Index();
        const QRect item = index.isValid() ? Tree().visualRect(index) : QRect();
        return {Tree().viewport()->mapToGlobal(item.topLeft()), item.size()};
    }
    QString text(QAccessible::Text text) const override
    {
        return text == QAccessible::Name ? Index().data().toString() : QString();
    }
    QAccessible::State state() const override;

    QStringList actionNames() const override
    {
        return IsExpandable() ? QStringList{setFocusAction(), toggleAction()}
                              : QStringList{setFocusAction()};
    }
    void doAction(const QString &name) override;

private:
    TzuTree_ComBasic &Tree() const { return m_tree.Tree(); }
    /// Null for a placeholder.
    TzuDataEntity_Tree *Entity() const { return Tree().GetDataEntityFromRow(m_row); }
    QModelIndex Index() const { return Tree().IndexOfRow(m_row); }
    bool IsExpandable() const { return Tree().model()->hasChildren(Index()) && isValid(); }

    const TTreeAccessible &m_tree;
    int m_row;
};

QAccessible::State TTreeRowAccessible::state() const
{
    QAccessible::State state;
    const QModelIndex index = Index();
    if (!index.isValid()) {
        state.invalid = true;
        return state;
    }
    const TzuTree_ComBasic &tree = Tree();
    const TzuDataEntity_Tree *entity = Entity();
    state.expandable = IsExpandable();
    state.expanded = state.expandable && tree.isExpanded(index);
    state.collapsed = state.expandable && !state.expanded;
    state.focusable = true;
    state.focused = index == tree.currentIndex() && tree.hasFocus();
    state.selectable = entity != nullptr;
    state.selected = entity != nullptr && entity->GetSelected();
    state.multiSelectable = tree.MultiSelect();
    state.readOnly = tree.ReadOnly();
    state.disabled = !tree.isEnabled();
    state.offscreen = !tree.viewport()->rect().intersects(tree.visualRect(index));
    return state;
}

void TTreeRowAccessible::doAction(const QString &name)
{
    const QModelIndex index = Index();
    if (name == setFocusAction()) {
        Tree().setFocus();
        Tree().setCurrentIndex(index);
    } else if (name == toggleAction() && Tree().isExpanded(index)) {
        Tree().collapse(index);
    } else if (name == toggleAction()) {
        Tree().expand(index);
    }
}

} // namespace

QAccessibleInterface *TTreeAccessible::child(int index) const
{
    if (index < 0 || index >= childCount()) {
        return nullptr;
    }
    return m_rows.At(index, [this](int row) { return new TTreeRowAccessible(*this, row); });
}

QAccessibleInterface *TTreeAccessible::childAt(int x, int y) const
{
    const QWidget &viewport = *Tree().viewport();
    const QPoint at = viewport.mapFromGlobal(QPoint(x, y));
    return viewport.rect().contains(at) ? child(Tree().RowOfIndex(Tree().indexAt(at))) : nullptr;
}

int TTreeAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    const auto *row = dynamic_cast<const TTreeRowAccessible *>(child);
    return row != nullptr && row->isValid() ? row->Row() : -1;
}

QAccessibleInterface *TTreeAccessible::focusChild() const
{
    return Tree().hasFocus() ? child(Tree().RowOfIndex(Tree().currentIndex())) : nullptr;
}

void TellCurrentRow(TzuTree_ComBasic &tree)
{
    const int row = tree.RowOfIndex(tree.currentIndex());
    if (!QAccessible::isActive() || row < 0 || !tree.hasFocus()) {
        return;
    }
    QAccessibleEvent event(&tree, QAccessible::Focus);
    event.setChild(row);
    QAccessible::updateAccessibility(&event);
}

} // namespace korvane
