// The tree component: a tree view whose nodes display a hierarchy of entities.
#pragma once

#include "foundation/zuCanvas.h"
#include "tree/zuTree.h"

#include <QBasicTimer>
#include <QIcon>
#include <QList>
#include <QTreeView>

#include <cstdint>

class QHelpEvent;

namespace korvane {

class TTreeNodeDelegate;
class TTreeNodeModel;

enum class TBorderStyle : std::uint8_t { bsNone, bsSingle };
enum class TDragMode : std::uint8_t { dmManual, dmAutomatic };

/// The vertical scroll range in rows: the first row shown is Position, Min <= Position <= Max, and
/// Page rows are shown whole.
struct TScrollInfo
{
    int Min = 0;
    int Max = 0;
    int Page = 0;
    int Position = 0;

    friend bool operator==(const TScrollInfo &, const TScrollInfo &) = default;
};

/// All behaviour of the tree. Rows have one height and scroll row by row. The view's model is the
/// tree's own; its items are not to be changed through it.
class TzuTree_ComBasic : public QTreeView,
                         private ITreeHost,
                         private ITreeNodeObserver,
                         public TTreeCore
{
    Q_OBJECT

public:
    explicit TzuTree_ComBasic(QWidget *parent = nullptr);
    ~TzuTree_ComBasic() override;

    TColor Color() const { return m_color; }
    void SetColor(TColor color);
    const TFont &Font() const { return m_font; }
    /// The colour of the font is that of the captions.
    void SetFont(const TFont &font);
    TBorderStyle BorderStyle() const;
    void SetBorderStyle(TBorderStyle style);
    TDragMode DragMode() const;
    void SetDragMode(TDragMode mode);
    QCursor Cursor() const { return viewport()->cursor(); }
    void SetCursor(const QCursor &cursor) { viewport()->setCursor(cursor); }
    /// Whether the selection is shown only while the tree has the focus.
    bool HideSelection() const { return m_hideSelection; }
    void SetHideSelection(bool hide);
    /// Whether the caption under the pointer is underlined.
    bool HotTrack() const { return m_hotTrack; }
    void SetHotTrack(bool track);
    /// Whether a caption that does not fit shows as a tooltip.
    bool ToolTips() const { return m_toolTips; }
    void SetToolTips(bool show) { m_toolTips = show; }
    bool MultiSelect() const;
    void SetMultiSelect(bool multi);
    /// Whether a node is expanded when the user makes it the current one.
    bool AutoExpand() const { return m_autoExpand; }
    void SetAutoExpand(bool expand) { m_autoExpand = expand; }
    /// Whether the selection fills the whole row rather than the caption's part.
    bool RowSelect() const { return m_rowSelect; }
    void SetRowSelect(bool select);
    bool ShowButtons() const { return m_showButtons; }
    void SetShowButtons(bool show);
    bool ShowLines() const { return m_showLines; }
    void SetShowLines(bool show);
    /// Whether the right button makes the node under it the current one.
    bool RightClickSelect() const { return m_rightClickSelect; }
    void SetRightClickSelect(bool select) { m_rightClickSelect = select; }
    /// In pixels per level.
    int Indent() const { return indentation(); }
    void SetIndent(int indent) { setIndentation(indent); }
    /// What the entities' image indexes refer to.
    const QList<QIcon> &Images() const { return m_images; }
    void SetImages(QList<QIcon> images);

    /// In pixels; by default what the font and the icons need.
    int RowHeight() const;
    /// 0 returns to the default.
    void SetRowHeight(int height);
    TScrollInfo ScrollInfo() const;
    /// Scrolls by a number of rows.
    virtual void Scroll(int delta);

    /// Brings nodes, layout and scroll range up to date at once, as a paint does.
    void EnsureLayout();

    void doItemsLayout() override;

protected:
    /// The rows moved against the client area, or the scroll range changed. May run within a layout
    /// or a paint: only note it and repaint.
    virtual void ScrollInfoChanged();
    void CurrentChanged() override;

    bool viewportEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;
    void drawBranches(QPainter *painter, const QRect &rect,
                      const QModelIndex &index) const override;
    void initViewItemOption(QStyleOptionViewItem *option) const override;

private:
    friend class TTreeNodeDelegate;

    // ITreeHost
    void InvalidateTree() override;
    TTreeGeometry Geometry() const override;
    void SetTopRow(int row) override;
    void SelectNode(TTreeNode_zuSub *node) override;
    void EditNode(TTreeNode_zuSub &node) override;

    // ITreeNodeObserver
    void BeginNodes(int changes) override;
    void BeforeChange(const TNodeChangeInfo &change) override;
    void AfterChange(const TNodeChangeInfo &change) override;
    void EndNodes() override;
    void NodeChanged(TTreeNode_zuSub &node, TNodeAspect aspect) override;
    void AllExpansionsChanged() override;

    // Not to be used from outside: the tree would not hear of it.
    using QTreeView::collapseAll;
    using QTreeView::expandAll;
    using QTreeView::expandToDepth;
    using QTreeView::setItemDelegate;
    using QTreeView::setModel;

    void AttachModel();
    void ShowExpansion(const TTreeNode_zuSub &node);
    void ShowExpansions(const TTreeNode_zuSub &top);
    void ShowSelection();
    void ExpansionByUser(const QModelIndex &index, bool expanded);
    void HandleScrollInfo();
    void RowHeightChanged();
    bool ShowCaptionTip(const QHelpEvent &event);
    QStyleOptionViewItem viewOptionFor(const QModelIndex &index) const;

    TTreeNodeModel *m_model;
    TTreeNodeDelegate *m_delegate;
    QBasicTimer m_updateTimer;
    QList<QIcon> m_images;
    TFont m_font;
    TColor m_color = clWindow;
    TScrollInfo m_scrollInfo;
    int m_rowHeight = 0;             ///< set by hand; 0 when by default
    mutable int m_autoRowHeight = 0; ///< 0 until measured
    int m_wantedTopRow = -1;         ///< to be applied when the layout is made
    int m_mirroring = 0;             ///< the view is being made to follow the tree
    bool m_hideSelection = true;
    bool m_hotTrack = false;
    bool m_toolTips = true;
    bool m_autoExpand = false;
    bool m_rowSelect = false;
    bool m_showButtons = true;
    bool m_showLines = true;
    bool m_rightClickSelect = false;
};

/// The component proper: publishes the tree for the designer.
class TzuTree : public TzuTree_ComBasic
{
    Q_OBJECT
    Q_PROPERTY(bool HideSelection READ HideSelection WRITE SetHideSelection)
    Q_PROPERTY(bool HotTrack READ HotTrack WRITE SetHotTrack)
    Q_PROPERTY(bool ToolTips READ ToolTips WRITE SetToolTips)
    Q_PROPERTY(bool MultiSelect READ MultiSelect WRITE SetMultiSelect)
    Q_PROPERTY(bool AutoExpand READ AutoExpand WRITE SetAutoExpand)
    Q_PROPERTY(bool RowSelect READ RowSelect WRITE SetRowSelect)
    Q_PROPERTY(bool ShowButtons READ ShowButtons WRITE SetShowButtons)
    Q_PROPERTY(bool ShowLines READ ShowLines WRITE SetShowLines)
    Q_PROPERTY(bool RightClickSelect READ RightClickSelect WRITE SetRightClickSelect)
    Q_PROPERTY(bool LoadOnDemand READ LoadOnDemand WRITE SetLoadOnDemand)
    Q_PROPERTY(int Indent READ Indent WRITE SetIndent)
    Q_PROPERTY(int AutoExpandLevels READ AutoExpandLevels WRITE SetAutoExpandLevels)
    Q_PROPERTY(int RowHeight READ RowHeight WRITE SetRowHeight)

public:
    using TzuTree_ComBasic::TzuTree_ComBasic;
    ~TzuTree() override;

Q_SIGNALS:
    void entityInserted(korvane::TzuDataEntity_Tree *entity);
    /// The entity is about to go; do not keep it.
    void entityDeleted(korvane::TzuDataEntity_Tree *entity);
    void entityExpanded(korvane::TzuDataEntity_Tree *entity);
    void entityCollapsed(korvane::TzuDataEntity_Tree *entity);
    void currentEntityChanged(korvane::TzuDataEntity_Tree *entity);

protected:
    void _InsertItem(TzuDataEntity_Tree *entity) override;
    void _DeleteItem(TzuDataEntity_Tree *entity) override;
    void Expand(TzuDataEntity_Tree *entity) override;
    void Collapse(TzuDataEntity_Tree *entity) override;
    void CurrentChanged() override;
};

} // namespace korvane
