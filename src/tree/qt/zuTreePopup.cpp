#include "tree/qt/zuTreePopup.h"

#include "tree/qt/zuTreeComBasic.h"

#include <algorithm>

namespace korvane {

TzuTreePopup::TzuTreePopup(TzuTree_ComBasic &tree)
    : QMenu(&tree)
    , m_tree(tree)
{
    Build();
    connect(this, &QMenu::aboutToShow, this, &TzuTreePopup::Update);
}

void TzuTreePopup::SetLevels(int levels)
{
    m_levels = std::max(levels, 1);
}

void TzuTreePopup::Build()
{
    m_expandAll = addAction(tr("E&xpand All"), this, [this] { m_tree.FullExpand(); });
    m_collapseAll = addAction(tr("&Collapse All"), this, [this] { m_tree.FullCollapse(); });
    m_levelMenu = addMenu(tr("Expand to &Level"));
    addSeparator();
    BuildSort();
    addSeparator();
    m_edit = addAction(tr("&Edit"), this, [this] {
        if (TzuDataEntity_Tree *entity = m_tree.PopupEntity()) {
            entity->EditText();
        }
    });
    m_edit->setShortcut(Qt::Key_F2);
    m_edit->setShortcutContext(Qt::WidgetShortcut); // shown only: the tree handles the key
    m_delete = addAction(tr("&Delete"), this, &TzuTreePopup::DeleteNow);
    m_delete->setShortcut(QKeySequence::Delete);
    m_delete->setShortcutContext(Qt::WidgetShortcut);
}

void TzuTreePopup::BuildSort()
{
    m_sortMenu = addMenu(tr("&Sort"));
    m_sortMenu->addAction(tr("&Ascending"), this, [this] { SortNow(false, false); });
    m_sortMenu->addAction(tr("&Descending"), this, [this] { SortNow(true, false); });
    m_sortMenu->addSeparator();
    m_sortMenu->addAction(tr("All Levels A&scending"), this, [this] { SortNow(false, true); });
    m_sortMenu->addAction(tr("All Levels D&escending"), this, [this] { SortNow(true, true); });
}

void TzuTreePopup::BuildLevels()
{
    m_levelMenu->clear();
    const int levels = m_tree.MaxLevels() > 0 ? std::min(m_levels, m_tree.MaxLevels()) : m_levels;
    for (int level = 1; level <= levels; ++level) {
        m_levelMenu->addAction(tr("Level &%1").arg(level), this,
                               [this, level] { m_tree.ShowLevels(level); });
    }
}

void TzuTreePopup::Update()
{
    BuildLevels();
    const bool any = m_tree.CountVisible() > 0;
    const TzuDataEntity_Tree *entity = m_tree.PopupEntity();
    for (QAction *action : {m_expandAll, m_collapseAll, m_levelMenu->menuAction()}) {
        action->setEnabled(any);
    }
    m_sortMenu->menuAction()->setVisible(m_tree.AllowSort());
    m_sortMenu->menuAction()->setEnabled(any);
    m_edit->setVisible(!m_tree.ReadOnly());
    TzuDataEntity_Tree *editable = m_tree.PopupEntity();
    m_edit->setEnabled(editable != nullptr && editable->GetCanEdit());
    m_delete->setVisible(m_tree.AllowDelete());
    m_delete->setEnabled(entity != nullptr || m_tree.SelectedCount() > 0);
}

/// One level is that of the entity and its siblings.
void TzuTreePopup::SortNow(bool descending, bool allLevels)
{
    const TzuDataEntity_Tree *entity = m_tree.PopupEntity();
    m_tree.SortByUser({entity != nullptr ? entity->ParentNode() : nullptr,
                       descending ? TSortDirection::Descending : TSortDirection::Ascending,
                       allLevels});
}

/// The selected entities when the menu's own is one of them.
void TzuTreePopup::DeleteNow()
{
    TzuDataEntity_Tree *entity = m_tree.PopupEntity();
    if (entity != nullptr && !entity->GetSelected()) {
        m_tree.DeleteByUser({entity});
    } else {
        m_tree.DeleteSelected();
    }
}

} // namespace korvane
