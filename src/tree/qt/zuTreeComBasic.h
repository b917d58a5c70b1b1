// The behaviour of the tree component: a tree view whose nodes display a hierarchy of entities.
#pragma once

#include "foundation/qt/zuNamedMenu.h"
#include "foundation/zuExport.h"
#include "tree/qt/zuCustomTreeView.h"
#include "tree/qt/zuTreeDrag.h"
#include "tree/qt/zuTreeTypes.h"
#include "tree/zuTreeUser.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QString>

#include <memory>
#include <optional>

class QMenu;

namespace korvane {

class TTreeCaptionEdit;
class TTreeNodeDelegate;
class TzuImageList;

/// All behaviour of the tree. The view's model is the tree's own; its items are not to be changed
/// through it. A caption that is being edited when its node goes, because the entity moves
/// elsewhere or is hidden, goes on being edited where it is shown again; otherwise the entity takes
/// the text.
class KORVANE_WIDGETS_API TzuTree_ComBasic : public TCustomTreeView,
                                             private ITreeHost,
                                             private ITreeNodeObserver,
                                             public TTreeUserCore,
                                             public TTreeDragEvents
{
    Q_OBJECT

public:
    /// Who begins a drag of entities.
    enum TDragMode { // plain, as code made of forms needs it
        dmManual,    ///< the application calls BeginDrag
        dmAutomatic  ///< the user drags with the left button
    };
    Q_ENUM(TDragMode)
    /// Called for each row that is drawn; the handler may change the look, and must not destroy the
    /// tree.
    using TOnCustomDrawItem =
        TMethod<void(TObject *theTree, TzuDataEntity_Tree *theDataEntity, TTreeItemLook &look)>;

    /// Empty. Takes drops, and edits captions by F2 and by a click on the selected one.
    explicit TzuTree_ComBasic(QWidget *parent = nullptr);
    ~TzuTree_ComBasic() override;

    /// System colours are looked up in the application's palette when they are set; clWindow by
    /// default.
    TColor Color() const { return m_color; }
    void SetColor(TColor color);
    /// Its colour is that of the captions; clWindowText by default.
    TFont Font() const;
    void SetFont(const TFont &font);
    /// bsSingle by default.
    TBorderStyle BorderStyle() const;
    void SetBorderStyle(TBorderStyle style);
    /// Over the rows.
    QCursor Cursor() const { return viewport()->cursor(); }
    void SetCursor(const QCursor &cursor) { viewport()->setCursor(cursor); }
    /// Whether the selection is shown only while the tree has the focus; false by default.
    bool HideSelection() const { return m_hideSelection; }
    void SetHideSelection(bool hide);
    /// Whether the caption under the pointer is underlined; false by default.
    bool HotTrack() const { return m_hotTrack; }
    void SetHotTrack(bool track);
    /// Whether a caption that does not fit shows as a tooltip; true by default.
    bool ToolTips() const { return m_toolTips; }
    void SetToolTips(bool show) { m_toolTips = show; }

    void SetMultiSelect(bool multi) override;
    /// Whether the selection fills the whole row rather than the caption's part; false by default.
    bool RowSelect() const { return m_rowSelect; }
    void SetRowSelect(bool select);
    /// Whether nodes that can be expanded have a button; true by default.
    bool ShowButtons() const { return m_showButtons; }
    void SetShowButtons(bool show);
    /// Whether lines join the nodes; false by default.
    bool ShowLines() const { return m_showLines; }
    void SetShowLines(bool show);
    /// Whether the right button makes the node under it the current one; false by default.
    bool RightClickSelect() const { return m_rightClickSelect; }
    void SetRightClickSelect(bool select) { m_rightClickSelect = select; }
    /// In pixels per level; the style's indentation by default.
    int Indent() const { return indentation(); }
    void SetIndent(int indent) { setIndentation(indent); }
    /// What the entities' image indexes refer to; observed. Nil shows no images.
    const TzuImageList *Images() const { return m_images; }
    void SetImages(const TzuImageList *images);

    /// As of the last update of the display.
    TScrollInfo ScrollInfo() const;
    /// Scrolls by a number of rows, down when positive, as far as the rows go.
    virtual void Scroll(int delta);

    /// Who begins a drag to other places, or out of the tree as text: the captions, one per line.
    /// dmManual by default.
    TDragMode DragMode() const { return m_dragMode; }
    void SetDragMode(TDragMode mode) { m_dragMode = mode; }
    /// Its picture shows while dragging; one without picture leaves the platform's own.
    const QCursor &DragCursor() const { return m_dragCursor; }
    void SetDragCursor(const QCursor &cursor) { m_dragCursor = cursor; }
    /// How long a drag rests on a node before the node is expanded, in milliseconds; 700 by
    /// default.
    int autoExpandDelay() const { return m_autoExpandDelay; }
    void setAutoExpandDelay(int milliseconds) { m_autoExpandDelay = milliseconds; }
    /// Drags the topmost selected entities until they are dropped; for a handler of the mouse.
    void BeginDrag();

    /// Shown for the right button and the menu key; by default a TzuTreePopup. Observed; nil shows
    /// none.
    QMenu *PopupMenu();
    void SetPopupMenu(QMenu *menu);
    /// The same by name, as forms store it, see TNamedMenu; empty goes back to the tree's own.
    QByteArray PopupMenuNames() const { return m_namedMenu.Names(); }
    void SetPopupMenuNames(const QByteArray &names) { m_namedMenu.SetNames(names); }
    /// The entity for which the menu was opened, or else the current one.
    TzuDataEntity_Tree *PopupEntity();

    /// A row is about to be drawn.
    TOnCustomDrawItem OnCustomDrawItem;

    /// Brings nodes, selection and editor up to date at once, as a paint does.
    void EnsureLayout();

    /// As SelectAll.
    void selectAll() override { SelectAll(); }
    /// Makes the next row current whose caption begins with what was typed.
    void keyboardSearch(const QString &typed) override;

protected:
    /// The rows moved against the client area, or the scroll range changed. May run within a layout
    /// or a paint: only note it and ask for a repaint.
    virtual void ScrollInfoChanged() {}

    void AfterUpdateDisplay() override;
    int CompareCaptions(std::string_view the1, std::string_view the2) const override;
    /// Decides how a row is drawn; fires OnCustomDrawItem.
    virtual void zuCustomDrawItem(TzuDataEntity_Tree &entity, TTreeItemLook &look);

    void EntityLeaves(TzuDataEntity_Tree &entity, bool forGood) override;
    /// Runs a drag that was begun.
    virtual Qt::DropAction ExecDrag(QDrag &drag);

    /// Qt's events, translated for the rules of the tree; a paint first brings the display up to
    /// date.
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    /// Selecting is the tree's own business.
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;
    /// What the view does with entities: captions, current one and selection are theirs.
    void commitData(QWidget *editor) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;
    /// A row looks as zuCustomDrawItem has decided.
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                 const QModelIndex &index) const override;
    void drawBranches(QPainter *painter, const QRect &rect,
                      const QModelIndex &index) const override;
    void initViewItemOption(QStyleOptionViewItem *option) const override;
    /// What the font and the icons need.
    int DefaultRowHeight() const override;

    void ToggleNode(TTreeNode_zuSub &node, bool expand) override;

private:
    friend class TTreeDragging;
    friend class TTreeNodeDelegate;

    // ITreeHost
    void InvalidateTree() override;
    TTreeGeometry Geometry() const override;
    void SetTopRow(int row) override;
    void SelectNode(TTreeNode_zuSub *node) override;
    void ShowCurrent(TTreeNode_zuSub &node) override;
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
    using TCustomTreeView::setItemDelegate;
    using TCustomTreeView::setModel;

    using TCustomTreeView::RowRect; // and not that of the core

    class TMirroring;

    void BringViewUpToDate();
    void ShowSelection();
    void MarkSelected(const QItemSelection &selection, bool selected);
    void EditorOpened(TTreeCaptionEdit &editor, TzuDataEntity_Tree *entity);
    void EditorGone(const TTreeCaptionEdit &editor);
    void ResumeEditing();
    bool IsOnItem(const TTreeNode_zuSub &node, const QPoint &point) const;
    bool IsOnCaption(const TTreeNode_zuSub &node, const QPoint &point) const;
    bool ShowsFocus() const;
    void FollowPointer(const QEvent &event);
    void ScrollTowards(int y);
    void MakeVisibleIfCurrent();
    void HandleScrollInfo();
    void PostUpdate();
    TTreeItemLook LookOf(const TTreeNode_zuSub &node, const QModelIndex &index) const;
    void DrawLines(QPainter &painter, const QRect &rect, const QModelIndex &index) const;
    bool ShowElidedCaption(const QPoint &at, const QPoint &globalAt);

    TTreeNodeDelegate *m_delegate;
    std::unique_ptr<TTreeDragging> m_dragging;
    QPointer<QMenu> m_popupMenu;
    TNamedMenu m_namedMenu;
    TzuDataEntity_Tree *m_popupEntity = nullptr;
    TzuDataEntity_Tree *m_editedEntity = nullptr; ///< nil when the user has closed the editor
    std::optional<QString> m_rescuedText;         ///< typed into an editor that went with its node
    QCursor m_dragCursor;
    QString m_search;         ///< typed so far
    QElapsedTimer m_searched; ///< since the last letter
    QPoint m_pressPoint;
    QPoint m_pointer{-1, -1}; ///< where the mouse hovers
    const TzuImageList *m_images = nullptr;
    TColor m_color = clWindow;
    TColor m_fontColor = clWindowText;
    TScrollInfo m_scrollInfo;
    int m_autoExpandDelay = 700;
    int m_mirroring = 0;      ///< the view is being made to follow the tree
    unsigned m_structure = 0; ///< counts the changes to the nodes
    TDragMode m_dragMode = TDragMode::dmManual;
    bool m_ownPopup = true;      ///< PopupMenu was not set
    bool m_pressing = false;     ///< the view handles a press
    bool m_pressedItem = false;  ///< and the button is still down
    bool m_pressedAgain = false; ///< on the only selected entity
    bool m_updatePosted = false;
    bool m_released = false;
    bool m_selectionOutOfDate = false;
    bool m_hideSelection = false;
    bool m_hotTrack = false;
    bool m_toolTips = true;
    bool m_rowSelect = false;
    bool m_showButtons = true;
    bool m_showLines = false;
    bool m_rightClickSelect = false;
};

} // namespace korvane
