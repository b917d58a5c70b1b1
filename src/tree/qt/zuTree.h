// The tree component: a tree view whose nodes display a hierarchy of entities.
#pragma once

#include "foundation/zuCanvas.h"
#include "tree/zuTree.h"

#include <QTreeView>

#include <cstdint>

namespace korvane {

class TTreeNodeDelegate;
class TTreeNodeModel;
class TzuImageList;

enum class TBorderStyle : std::uint8_t { bsNone, bsSingle };

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

    /// System colours are looked up in the application's palette when they are set.
    TColor Color() const { return m_color; }
    void SetColor(TColor color);
    /// Its colour is that of the captions.
    TFont Font() const;
    void SetFont(const TFont &font);
    TBorderStyle BorderStyle() const;
    void SetBorderStyle(TBorderStyle style);
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
    /// What the entities' image indexes refer to; observed. Nil shows no images.
    const TzuImageList *Images() const { return m_images; }
    void SetImages(const TzuImageList *images);

    /// In pixels; by default what the font and the icons need.
    int RowHeight() const;
    /// 0 returns to the default.
    void SetRowHeight(int height);
    /// As of the last update of the display.
    TScrollInfo ScrollInfo() const;
    /// Scrolls by a number of rows.
    virtual void Scroll(int delta);

    /// Brings nodes, layout and scroll range up to date at once, as a paint does.
    void EnsureLayout();

    void doItemsLayout() override;

protected:
    /// The rows moved against the client area, or the scroll range changed. May run within a layout
    /// or a paint: only note it and ask for a repaint.
    virtual void ScrollInfoChanged() {}
    void AfterUpdateDisplay() override;

    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                 const QModelIndex &index) const override;
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
    void LoseCurrent() override;
    void EditNode(TTreeNode_zuSub &node) override;

    // ITreeNodeObserver
    void BeginNodes(int changes) override;
    void BeforeChange(const TNodeChangeInfo &change) override;
    void AfterChange(const TNodeChangeInfo &change) override;
    void EndNodes() override;
    void NodeChanged(TTreeNode_zuSub &node, TNodeAspect aspect) override;
    void AllExpansionsChanged() override;
    void BeforeRelease() override;

    // Not to be used from outside: the tree would not hear of it.
    using QTreeView::collapseAll;
    using QTreeView::expandAll;
    using QTreeView::expandToDepth;
    using QTreeView::setItemDelegate;
    using QTreeView::setModel;

    class TMirroring;

    void DetachModel();
    void AttachModel();
    void BringViewUpToDate();
    void ShowStates(const TTreeNode_zuSub &top);
    void ShowInserted(const TTreeNode_zuSub &node);
    void ShowExpansion(TTreeNode_zuSub &node);
    void ShowSelection();
    void MarkSelected(const QItemSelection &selection, bool selected);
    void NodeToggled(const QModelIndex &index, bool expanded);
    void RepaintRow(const TTreeNode_zuSub &node);
    void ApplyTopRow();
    void HandleScrollInfo();
    void PostUpdate();
    int PageRows() const;
    int LastTopRow() const;
    int DefaultRowHeight() const;
    void DrawLines(QPainter &painter, const QRect &rect, const QModelIndex &index) const;
    bool ShowElidedCaption(const QPoint &at, const QPoint &globalAt);

    TTreeNodeModel *m_model;
    TTreeNodeDelegate *m_delegate;
    const TzuImageList *m_images = nullptr;
    TColor m_color = clWindow;
    TColor m_fontColor = clWindowText;
    TScrollInfo m_scrollInfo;
    int m_rowHeight = 0;             ///< set by hand; 0 when by default
    mutable int m_autoRowHeight = 0; ///< 0 until measured
    int m_wantedTopRow = -1;         ///< to be applied once the layout is made
    int m_changesSinceLayout = 0;
    int m_selectionsSinceLayout = 0;
    int m_mirroring = 0;      ///< the view is being made to follow the tree
    unsigned m_structure = 0; ///< counts the changes to the nodes
    bool m_layouting = false;
    bool m_updatePosted = false;
    bool m_released = false;
    bool m_selectionOutOfDate = false;
    bool m_hideSelection = false;
    bool m_hotTrack = false;
    bool m_toolTips = true;
    bool m_autoExpand = false;
    bool m_rowSelect = false;
    bool m_showButtons = true;
    bool m_showLines = false;
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
    /// One entity or many.
    void entityExpanded();
    void entityCollapsed();
    /// See GetCurrentDataEntity.
    void currentEntityChanged();

protected:
    void _InsertItem(TzuDataEntity_Tree *entity) override;
    void _DeleteItem(TzuDataEntity_Tree *entity) override;
    void Expand(TzuDataEntity_Tree *entity) override;
    void Collapse(TzuDataEntity_Tree *entity) override;
    void DoCurrentChanged() override;
};

} // namespace korvane
