// The menu of a tree.
#pragma once

#include "foundation/zuExport.h"

#include <QMenu>

namespace korvane {

class TzuTree_ComBasic;

/// What a user may do with a tree by a menu: expand and collapse, sort, edit, delete. Acts on the
/// tree's PopupEntity; what is not allowed is disabled, what the tree never allows is left out.
class KORVANE_WIDGETS_API TzuTreePopup : public QMenu
{
    Q_OBJECT

public:
    /// Owned by the tree.
    explicit TzuTreePopup(TzuTree_ComBasic &tree);

    /// How many entries "Expand to Level" has, 5 by default; no more than the tree's MaxLevels,
    /// when it has any.
    int Levels() const { return m_levels; }
    void SetLevels(int levels);

private:
    void Build();
    void BuildLevels();
    void BuildSort();
    void Update();
    void SortNow(bool descending, bool allLevels);
    void DeleteNow();

    TzuTree_ComBasic &m_tree;
    QMenu *m_levelMenu = nullptr;
    QMenu *m_sortMenu = nullptr;
    QAction *m_expandAll = nullptr;
    QAction *m_collapseAll = nullptr;
    QAction *m_edit = nullptr;
    QAction *m_delete = nullptr;
    int m_levels = 5;
};

} // namespace korvane
