// The row tree of the Gantt chart.
#pragma once

#include "foundation/zuExport.h"
#include "tree/qt/zuTree.h"

#include <QPointer>

class QScrollBar;

namespace korvane {

class TGantRow;
class TzuGant_ComBasic;

/// What the row tree tells, as members of the chart. Called after the tree's own events.
struct TGantTreeEvents
{
    /// Nodes have come, gone or moved in the list.
    TPublished<TOnContentChanged> OnContentChanged_Tree;
    TPublished<TOnSelectionChanged> OnSelectionChanged_Tree; ///< for each node whose mark changed
    /// Before the tree's own; the node still has its row.
    TPublished<TOnDeleteItem> OnDeleteItem_Tree;
    TPublished<TOnInsertItem> OnInsertItem_Tree; ///< the node has its row
    /// The node has announced its values (DoInfoPush).
    TPublished<TOnInfoPush> OnValueChanged_Tree;
    TPublished<TTreeEntityNotify> OnChangeDataEntity_Tree; ///< after OnValueChanged_Tree
    /// May change the node's CanEdit before it is read.
    TPublished<TOnBeforeCanEditItem> OnBeforeCanEditItem_Tree;
    /// The tree's drag events, see TTreeDragEvents; they go here as long as the tree's own slots
    /// are not set anew.
    TPublished<TOnTreeDrag> OnTreeStartDrag;
    TPublished<TOnTreeDrag> OnTreeDragOver;
    TPublished<TOnTreeDrag> OnTreeDragDrop;
};

/// A tree whose nodes are the rows of a chart: it makes and frees the rows, tells the chart when
/// lines move, and shows its vertical position on a scroll bar outside itself.
class KORVANE_WIDGETS_API TGantTree : public TzuTree_ComBasic
{
    Q_OBJECT

public:
    /// The chart outlives the tree.
    TGantTree(TzuGant_ComBasic &gant, QWidget *parent);
    ~TGantTree() override;

    /// Moves the current node to the previous (delta < 0) or next visible one, whatever the size.
    void Scroll(int delta) override;

    /// The bar to keep in step with the tree; observed.
    void SetVertScrollExternal(QScrollBar *bar);
    /// Asks for UpdateExternalScroll soon.
    void ExternalScrollOutOfDate();
    /// Takes range, page and position over to the bar at once.
    void UpdateExternalScroll();

protected:
    /// Tells the chart when the current node or its row is another than last time.
    void RefreshSelection();

    void _InsertItem(TzuDataEntity_Tree *entity) override;
    void _DeleteItem(TzuDataEntity_Tree *entity) override;
    void _OnVisibleChanged(TzuDataEntity_Tree *entity) override;
    void _OnContentChanged(TzuDataList_Tree *list) override;
    void _OnSelectionChanged(TzuDataList *list, TzuDataEntity_Tree *entity) override;
    void _OnInfoPush(TzuDataEntity_Tree *entity) override;
    void _OnBeforeCanEditItem(TzuDataEntity_Tree *entity) override;
    void DoCurrentChanged() override;
    void Expand(TzuDataEntity_Tree *entity) override;
    void Collapse(TzuDataEntity_Tree *entity) override;
    void AfterUpdateDisplay() override;
    void ScrollInfoChanged() override;

    /// Scrolls as Scroll does.
    void wheelEvent(QWheelEvent *event) override;

private:
    void LinesMoved();
    void OnExternalScroll(int position);
    void UpdateExternalScroll_Deferred(TObject *parameter);

    TzuGant_ComBasic &m_gant;
    QPointer<QScrollBar> m_externalBar;
    TScrollInfo m_seen; ///< as of the last update of the external bar
    // As of the last RefreshSelection.
    TzuDataEntity_Tree *m_seenCurrent = nullptr;
    TGantRow *m_seenRow = nullptr;
    bool m_handlingExternalBar = false;
};

} // namespace korvane
