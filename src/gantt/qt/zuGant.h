// The Gantt chart control as the form designer and applications know it.
#pragma once

#include "foundation/qt/zuNamedImages.h"
#include "foundation/qt/zuNamedMenu.h"
#include "foundation/qt/zuSignalTies.h"
#include "foundation/zuExport.h"
#include "gantt/qt/zuGantComBasic.h"
#include "grid/qt/zuGrid.h"

#include <QColor>
#include <QDateTime>
#include <QDrag>
#include <QMenu>

#include <array>

namespace korvane {

/// The Gantt chart control with its designer properties and signals. Properties named after a part
/// (...Tree, ...Scaler) are those of the part.
class KORVANE_WIDGETS_API TzuGant : public TzuGant_ComBasic
{
    Q_OBJECT
    /// Published properties; each is described at the function that it reads.
    Q_PROPERTY(QColor ColorTree READ ColorTree WRITE SetColorTree)
    Q_PROPERTY(QFont FontTree READ FontTree WRITE SetFontTree)
    Q_PROPERTY(QCursor CursorTree READ CursorTree WRITE setCursorTree)
    Q_PROPERTY(BorderKind BorderStyleTree READ BorderStyleTree WRITE SetBorderStyleTree)
    Q_PROPERTY(bool HideSelectionTree READ HideSelectionTree WRITE SetHideSelectionTree)
    Q_PROPERTY(bool HotTrackTree READ HotTrackTree WRITE SetHotTrackTree)
    Q_PROPERTY(bool ToolTipsTree READ ToolTipsTree WRITE SetToolTipsTree)
    Q_PROPERTY(bool MultiSelectTree READ MultiSelectTree WRITE SetMultiSelectTree)
    Q_PROPERTY(bool AutoExpandTree READ AutoExpandTree WRITE SetAutoExpandTree)
    Q_PROPERTY(bool RowSelectTree READ RowSelectTree WRITE SetRowSelectTree)
    Q_PROPERTY(bool ShowButtonsTree READ ShowButtonsTree WRITE SetShowButtonsTree)
    Q_PROPERTY(bool ShowLinesTree READ ShowLinesTree WRITE SetShowLinesTree)
    Q_PROPERTY(bool RightClickSelectTree READ RightClickSelectTree WRITE SetRightClickSelectTree)
    Q_PROPERTY(int IndentTree READ IndentTree WRITE SetIndentTree)
    Q_PROPERTY(int AutoExpandLevelsTree READ AutoExpandLevelsTree WRITE SetAutoExpandLevelsTree)
    Q_PROPERTY(int MaxLevelsTree READ MaxLevelsTree WRITE SetMaxLevelsTree)
    Q_PROPERTY(
        korvane::TzuTree_ComBasic::TDragMode DragModeTree READ DragModeTree WRITE SetDragModeTree)
    Q_PROPERTY(QCursor DragCursorTree READ DragCursorTree WRITE setDragCursorTree)
    Q_PROPERTY(QString DateFormat READ DateFormat WRITE SetDateFormat)
    Q_PROPERTY(QString TimeFormat READ TimeFormat WRITE SetTimeFormat)
    Q_PROPERTY(bool IndicatorOn READ IndicatorOn WRITE SetIndicatorOn)
    Q_PROPERTY(int PixelsForModeSwitch READ PixelsForModeSwitch WRITE SetPixelsForModeSwitch)
    Q_PROPERTY(double Scale READ Scale WRITE SetScale DESIGNABLE false STORED false)
    Q_PROPERTY(double ZoomFactor READ Get_ZoomFactor WRITE Set_ZoomFactor)
    Q_PROPERTY(QDateTime Start READ StartDateTime WRITE SetStartDateTime)
    Q_PROPERTY(QDateTime Stop READ StopDateTime WRITE SetStopDateTime)
    Q_PROPERTY(QColor ColorScaler READ ColorScaler WRITE SetColorScaler)
    Q_PROPERTY(QFont FontScaler READ FontScaler WRITE SetFontScaler)
    Q_PROPERTY(QCursor CursorScaler READ CursorScaler WRITE setCursorScaler)
    Q_PROPERTY(int FirstDayOfWeekScaler READ FirstDayOfWeekScaler WRITE SetFirstDayOfWeekScaler)
    Q_PROPERTY(bool RescaleWithCtrl READ RescaleWithCtrl WRITE SetRescaleWithCtrl)
    Q_PROPERTY(QColor GantBackColor READ BackColor WRITE SetBackColor)
    Q_PROPERTY(QColor GantPyjamasColor READ PyjamasColor WRITE SetPyjamasColor)
    Q_PROPERTY(QColor DefaultLinkColor READ LinkColor WRITE SetLinkColor)
    Q_PROPERTY(LinkForm DefaultLinkStyle READ LinkKind WRITE SetLinkKind)
    Q_PROPERTY(LinkFilter LinkShow READ LinksShown WRITE SetLinksShown)
    Q_PROPERTY(QCursor CursorGantArea READ CursorGantArea WRITE setCursorGantArea)
    Q_PROPERTY(bool DrawShortLines READ DrawShortLines WRITE SetDrawShortLines)
    Q_PROPERTY(bool VerticalPyjamas READ VerticalPyjamas WRITE SetVerticalPyjamas)
    Q_PROPERTY(bool MoveInTimeWhenMoveRow READ MoveInTimeWhenMoveRow WRITE SetMoveInTimeWhenMoveRow)
    Q_PROPERTY(bool MoveOver12Then24 READ MoveOver12Then24 WRITE SetMoveOver12Then24)
    Q_PROPERTY(bool StartDragWhenTimeMoveOutside READ StartDragWhenTimeMoveOutside WRITE
                   SetStartDragWhenTimeMoveOutside)
    Q_PROPERTY(QFont FontTimeItemStyle1 READ ItemFont1 WRITE SetItemFont1)
    Q_PROPERTY(QFont FontTimeItemStyle2 READ ItemFont2 WRITE SetItemFont2)
    Q_PROPERTY(QFont FontTimeItemStyle3 READ ItemFont3 WRITE SetItemFont3)
    Q_PROPERTY(int ScalerHeight READ GetScalerHeight WRITE SetScalerHeight)
    Q_PROPERTY(int TreeWidth READ TreeWidth WRITE SetTreeWidth)
    Q_PROPERTY(bool UseTabSheets READ GetTabSheetsONOFF WRITE SetTabSheetsONOFF)
    Q_PROPERTY(bool UseGridNotTree READ UseGridNotTree WRITE SetUseGridNotTree)
    Q_PROPERTY(bool GridFocusRects READ GridFocusRects WRITE SetGridFocusRects)
    Q_PROPERTY(QByteArray Grid_CellLayouts READ Grid_CellLayoutsText WRITE SetGrid_CellLayoutsText)
    Q_PROPERTY(QByteArray Grid_Columns READ Grid_ColumnsText WRITE SetGrid_ColumnsText)
    Q_PROPERTY(QByteArray Grid_SubGrids READ Grid_SubGridsText WRITE SetGrid_SubGridsText)
    Q_PROPERTY(QString Grid_HeaderTexts READ Grid_HeaderTexts WRITE SetGrid_HeaderTexts)
    Q_PROPERTY(QString Grid_SubGridHeaderTexts READ Grid_SubGridHeaderTexts WRITE
                   SetGrid_SubGridHeaderTexts)
    Q_PROPERTY(bool Grid_HasHeaders READ Grid_HasHeaders WRITE SetGrid_HasHeaders)
    Q_PROPERTY(bool Grid_HasInfoCol READ Grid_HasInfoCol WRITE SetGrid_HasInfoCol)
    Q_PROPERTY(bool Grid_RowSelect READ Grid_RowSelect WRITE SetGrid_RowSelect)
    Q_PROPERTY(bool Grid_ExtendLastColumnToWidth READ Grid_ExtendLastColumnToWidth WRITE
                   SetGrid_ExtendLastColumnToWidth)
    Q_PROPERTY(bool Grid_UserSortEnable READ Grid_UserSortEnable WRITE SetGrid_UserSortEnable)
    Q_PROPERTY(bool Grid_MultiSelect READ Grid_MultiSelect WRITE SetGrid_MultiSelect)
    Q_PROPERTY(QByteArray PopupMenu READ PopupMenuNames WRITE SetPopupMenuNames)
    Q_PROPERTY(
        QByteArray PopupMenuGantArea READ PopupMenuGantAreaNames WRITE SetPopupMenuGantAreaNames)
    Q_PROPERTY(
        QByteArray PopupMenuTreeview READ PopupMenuTreeviewNames WRITE SetPopupMenuTreeviewNames)
    Q_PROPERTY(QByteArray PopupMenuScaler READ PopupMenuScalerNames WRITE SetPopupMenuScalerNames)
    Q_PROPERTY(QByteArray ImageList READ ImageListText WRITE SetImageListText)

public:
    /// TBorderStyle for the designer.
    enum BorderKind { bsNone, bsSingle };
    Q_ENUM(BorderKind)
    /// TLinkStyle for the designer.
    enum LinkForm { tlsDefault, tlsMSProject, tlsUserDraw };
    Q_ENUM(LinkForm)
    /// TLinkShow for the designer.
    enum LinkFilter { lsOneEndVisible, lsBothEndsVisible, lsAlways };
    Q_ENUM(LinkFilter)

    /// Parts as for the base.
    explicit TzuGant(QWidget *parent = nullptr,
                     TConstruction construction = TConstruction::Complete);

    /// Of the row tree: what the properties of TzuTree_ComBasic with these names say.
    QColor ColorTree() const;
    void SetColorTree(const QColor &value);
    QFont FontTree() const;
    void SetFontTree(const QFont &value);
    QCursor CursorTree() const { return Tree().Cursor(); }
    void SetCursorTree(const QCursor &value) { Tree().SetCursor(value); }
    BorderKind BorderStyleTree() const { return static_cast<BorderKind>(Tree().BorderStyle()); }
    void SetBorderStyleTree(BorderKind kind)
    {
        Tree().SetBorderStyle(static_cast<TBorderStyle>(kind));
    }
    bool HideSelectionTree() const { return Tree().HideSelection(); }
    void SetHideSelectionTree(bool value) { Tree().SetHideSelection(value); }
    bool HotTrackTree() const { return Tree().HotTrack(); }
    void SetHotTrackTree(bool value) { Tree().SetHotTrack(value); }
    bool ToolTipsTree() const { return Tree().ToolTips(); }
    void SetToolTipsTree(bool value) { Tree().SetToolTips(value); }
    bool MultiSelectTree() const { return Tree().MultiSelect(); }
    void SetMultiSelectTree(bool value) { Tree().SetMultiSelect(value); }
    bool AutoExpandTree() const { return Tree().AutoExpand(); }
    void SetAutoExpandTree(bool value) { Tree().SetAutoExpand(value); }
    bool RowSelectTree() const { return Tree().RowSelect(); }
    void SetRowSelectTree(bool value) { Tree().SetRowSelect(value); }
    bool ShowButtonsTree() const { return Tree().ShowButtons(); }
    void SetShowButtonsTree(bool value) { Tree().SetShowButtons(value); }
    bool ShowLinesTree() const { return Tree().ShowLines(); }
    void SetShowLinesTree(bool value) { Tree().SetShowLines(value); }
    bool RightClickSelectTree() const { return Tree().RightClickSelect(); }
    void SetRightClickSelectTree(bool value) { Tree().SetRightClickSelect(value); }
    int IndentTree() const { return Tree().Indent(); }
    void SetIndentTree(int value) { Tree().SetIndent(value); }
    int AutoExpandLevelsTree() const { return Tree().AutoExpandLevels(); }
    void SetAutoExpandLevelsTree(int value) { Tree().SetAutoExpandLevels(value); }
    int MaxLevelsTree() const { return Tree().MaxLevels(); }
    void SetMaxLevelsTree(int value) { Tree().SetMaxLevels(value); }
    TzuTree_ComBasic::TDragMode DragModeTree() const { return Tree().DragMode(); }
    void SetDragModeTree(TzuTree_ComBasic::TDragMode value) { Tree().SetDragMode(value); }
    QCursor DragCursorTree() const { return Tree().DragCursor(); }
    void SetDragCursorTree(const QCursor &value) { Tree().SetDragCursor(value); }

    /// Of the time axis: what TzuDateScaler says. A QDateTime is local time.
    bool IndicatorOn() const { return DateScaler().IndicatorOn(); }
    void SetIndicatorOn(bool value) { DateScaler().SetIndicatorOn(value); }
    int PixelsForModeSwitch() const { return DateScaler().PixelsForModeSwitch(); }
    void SetPixelsForModeSwitch(int value) { DateScaler().SetPixelsForModeSwitch(value); }
    QDateTime StartDateTime() const;
    void SetStartDateTime(const QDateTime &start);
    QDateTime StopDateTime() const;
    void SetStopDateTime(const QDateTime &stop);
    QColor ColorScaler() const { return DateScaler().ColorAsQColor(); }
    void SetColorScaler(const QColor &value) { DateScaler().SetColor(value); }
    QCursor CursorScaler() const { return DateScaler().cursor(); }
    void SetCursorScaler(const QCursor &value) { DateScaler().setCursor(value); }
    bool RescaleWithCtrl() const { return DateScaler().RescaleWithCtrl(); }
    void SetRescaleWithCtrl(bool value) { DateScaler().SetRescaleWithCtrl(value); }

    /// Of the area: what TGantCore says of its colours and links, and of the item fonts 1, 2 and 3.
    QColor BackColor() const;
    void SetBackColor(const QColor &color);
    QColor PyjamasColor() const;
    void SetPyjamasColor(const QColor &color);
    QColor LinkColor() const;
    void SetLinkColor(const QColor &color);
    LinkForm LinkKind() const { return static_cast<LinkForm>(DefaultLinkStyle()); }
    void SetLinkKind(LinkForm kind) { SetDefaultLinkStyle(static_cast<TLinkStyle>(kind)); }
    LinkFilter LinksShown() const { return static_cast<LinkFilter>(LinkShow()); }
    void SetLinksShown(LinkFilter shown) { SetLinkShow(static_cast<TLinkShow>(shown)); }
    QFont ItemFont1() const { return ItemFont(1); }
    void SetItemFont1(const QFont &font) { SetItemFont(1, font); }
    QFont ItemFont2() const { return ItemFont(2); }
    void SetItemFont2(const QFont &font) { SetItemFont(2, font); }
    QFont ItemFont3() const { return ItemFont(3); }
    void SetItemFont3(const QFont &font) { SetItemFont(3, font); }

    /// Of the grid, which is made when one of these is used: what TzuGrid says.
    bool GridFocusRects() { return Grid().FocusRects(); }
    void SetGridFocusRects(bool value) { Grid().SetFocusRects(value); }
    bool Grid_HasHeaders() { return Grid().HasHeaders(); }
    void SetGrid_HasHeaders(bool value) { Grid().SetHasHeaders(value); }
    bool Grid_HasInfoCol() { return Grid().HasInfoCol(); }
    void SetGrid_HasInfoCol(bool value) { Grid().SetHasInfoCol(value); }
    bool Grid_RowSelect() { return Grid().RowSelect(); }
    void SetGrid_RowSelect(bool value) { Grid().SetRowSelect(value); }
    bool Grid_ExtendLastColumnToWidth() { return Grid().ExtendLastColumnToWidth(); }
    void SetGrid_ExtendLastColumnToWidth(bool value) { Grid().SetExtendLastColumnToWidth(value); }
    bool Grid_UserSortEnable() { return Grid().UserSortEnable(); }
    void SetGrid_UserSortEnable(bool value) { Grid().SetUserSortEnable(value); }
    bool Grid_MultiSelect() { return Grid().MultiSelect(); }
    void SetGrid_MultiSelect(bool value) { Grid().SetMultiSelect(value); }
    TzuGrid_Columns &Grid_Columns() { return Grid().Columns(); }
    TzuGrid_SubGrids &Grid_SubGrids() { return Grid().SubGrids(); }
    TzuCellLayouts &Grid_CellLayouts() { return Grid().CellLayouts(); }
    /// As forms store them, see TzuGrid.
    QByteArray Grid_ColumnsText() { return Grid().ColumnsText(); }
    void SetGrid_ColumnsText(const QByteArray &text) { Grid().SetColumnsText(text); }
    QByteArray Grid_SubGridsText() { return Grid().SubGridsText(); }
    void SetGrid_SubGridsText(const QByteArray &text) { Grid().SetSubGridsText(text); }
    QByteArray Grid_CellLayoutsText() { return Grid().CellLayoutsText(); }
    void SetGrid_CellLayoutsText(const QByteArray &text) { Grid().SetCellLayoutsText(text); }

    /// Captions of columns, one per line, see TzuGrid.
    QString Grid_HeaderTexts() { return Grid().HeaderTexts(); }
    void SetGrid_HeaderTexts(const QString &texts) { Grid().SetHeaderTexts(texts); }
    QString Grid_SubGridHeaderTexts() { return Grid().SubGridHeaderTexts(); }
    void SetGrid_SubGridHeaderTexts(const QString &texts) { Grid().SetSubGridHeaderTexts(texts); }
    /// The same by the names that code made of forms needs for cursors.
    void setCursorTree(const QCursor &cursor) { SetCursorTree(cursor); }
    void setDragCursorTree(const QCursor &cursor) { SetDragCursorTree(cursor); }
    void setCursorScaler(const QCursor &cursor) { SetCursorScaler(cursor); }
    void setCursorGantArea(const QCursor &cursor) { SetCursorGantArea(cursor); }

    /// Context menus of the whole chart and of its parts; observed. Null when there is none;
    /// the tree has one of its own by default.
    QMenu *PopupMenu() const { return m_menus.at(WholeChart).Menu(*this); }
    void SetPopupMenu(QMenu *menu);
    QMenu *PopupMenuGantArea() const { return m_menus.at(AreaPart).Menu(*this); }
    void SetPopupMenuGantArea(QMenu *menu);
    QMenu *PopupMenuTreeview() { return Tree().PopupMenu(); }
    void SetPopupMenuTreeview(QMenu *menu) { Tree().SetPopupMenu(menu); }
    QMenu *PopupMenuScaler() const { return m_menus.at(AxisPart).Menu(*this); }
    void SetPopupMenuScaler(QMenu *menu);
    /// The same by name, as forms store them, see TNamedMenu; names take the place of a menu.
    QByteArray PopupMenuNames() const { return m_menus.at(WholeChart).Names(); }
    void SetPopupMenuNames(const QByteArray &names);
    QByteArray PopupMenuGantAreaNames() const { return m_menus.at(AreaPart).Names(); }
    void SetPopupMenuGantAreaNames(const QByteArray &names);
    QByteArray PopupMenuTreeviewNames() const { return Tree().PopupMenuNames(); }
    void SetPopupMenuTreeviewNames(const QByteArray &names) { Tree().SetPopupMenuNames(names); }
    QByteArray PopupMenuScalerNames() const { return m_menus.at(AxisPart).Names(); }
    void SetPopupMenuScalerNames(const QByteArray &names);

    /// The images of items by name, as forms store them, see TNamedImages. They take the place of
    /// ImageList, unless they are none.
    QByteArray ImageListText() const { return m_images.Text(); }
    void SetImageListText(const QByteArray &text);

Q_SIGNALS:
    // Those of events come behind the handler, see TPublished. What is deleted or removed is about
    // to go; do not keep it. Items clicked may be null.

    // Time items and links.
    /// Items have come, gone or moved.
    ///
    /// What is deleted or removed is about to go: do not keep it.
    void timeItemsChanged();

    /// An item has come, is about to go, has announced its values, was selected or deselected.
    void timeItemInserted(korvane::TzuDataEntity_Spanbar *item);
    void timeItemDeleted(korvane::TzuDataEntity_Spanbar *item);
    /// OnChangeDataEntity_Spanbar and OnValueChanged_Spanbar.
    void timeItemChanged(korvane::TzuDataEntity_Spanbar *item);
    /// The item was selected or deselected.
    void timeItemSelectionChanged(korvane::TzuDataEntity_Spanbar *item);
    /// OnBeforeCanEditItem_Spanbar: the receiver answers with SetCanEdit.
    void timeItemEditAsked(korvane::TzuDataEntity_Spanbar *item);
    /// The user has asked to edit the item (OnEditDataEntity_Spanbar).
    void timeItemEditWanted(korvane::TzuDataEntity_Spanbar *item);
    /// The item is not loaded, and about to be needed.
    void timeItemWanted(korvane::TzuDataEntity_Spanbar *item);
    /// Dropped on a row; the receiver does the moving or copying (OnTimeChangeRow, OnTimeCopy).
    void timeItemMoveWanted(korvane::TzuDataEntity_Spanbar *item, korvane::TGantRow *row,
                            korvane::TGantRow *newRow, const QDateTime &start,
                            const QDateTime &stop);
    void timeItemCopyWanted(korvane::TzuDataEntity_Spanbar *item, korvane::TGantRow *row,
                            korvane::TGantRow *newRow, const QDateTime &start,
                            const QDateTime &stop);
    /// OnCollisionDetected.
    void timeItemSubRowChanged(korvane::TzuDataEntity_Spanbar *item, int subRow);
    /// All that one action selects or not (OnAfterSelectionChanged).
    void selectedItemsChanged();
    /// A link was selected or deselected.
    void linkSelectionChanged(korvane::TzuDataEntity_Link *link);
    /// The user has asked to edit the link (OnEditDataEntity_Link).
    void linkEditWanted(korvane::TzuDataEntity_Link *link);
    /// The receiver makes the link (OnDependencyAction).
    void linkDrawn(korvane::TzuDataEntity_Spanbar *first, korvane::TzuDataEntity_Spanbar *second);
    /// OnDependencyHint.
    void linkHintWanted(const korvane::TzuDataEntity_Spanbar *first,
                        const korvane::TzuDataEntity_Spanbar *second, korvane::TGestureHint *hint);
    /// OnHintInfo; the length in days.
    void hintInfo(korvane::TzuDataEntity_Spanbar *item, const QDateTime &start,
                  const QDateTime &stop, double length);
    /// OnBeginUserChange and OnEndUserChange.
    void userChangeBegun(korvane::TGantUserChange kind);
    void userChangeEnded(korvane::TGantUserChange kind, bool changed);
    /// A row has come with its node, or is about to go.
    void rowAdded(korvane::TGantRow *row);
    void rowRemoved(korvane::TGantRow *row);
    /// The row of the tree's current node is another; it may be null.
    void activeRowChanged(korvane::TGantRow *row);
    /// Of the row tree: nodes have come, gone or moved; one has come, is about to go.
    void nodesChanged();
    void nodeInserted(korvane::TzuDataEntity_Tree *node);
    void nodeDeleted(korvane::TzuDataEntity_Tree *node);
    /// OnValueChanged_Tree and OnChangeDataEntity_Tree.
    void nodeChanged(korvane::TzuDataEntity_Tree *node);
    /// The node was selected or deselected.
    void nodeSelectionChanged(korvane::TzuDataEntity_Tree *node);
    /// OnBeforeCanEditItem_Tree: the receiver answers with SetCanEdit.
    void nodeEditAsked(korvane::TzuDataEntity_Tree *node);
    /// Drags over the row tree, see TTreeDragEvents; the receiver may change the drag.
    void treeDragStarted(korvane::TTreeDrag *drag);
    void treeDraggedOver(korvane::TTreeDrag *drag);
    void treeDropped(korvane::TTreeDrag *drag);
    /// A button went down in the area, the right one with both signals, or the left one went down
    /// twice. Null beside all items.
    void areaClicked(korvane::TzuDataEntity_Spanbar *item);
    void areaRightClicked(korvane::TzuDataEntity_Spanbar *item);
    void areaDoubleClicked(korvane::TzuDataEntity_Spanbar *item);
    /// Any button in the area, its position in area pixels.
    void areaMousePressed(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint at);
    void areaMouseMoved(Qt::KeyboardModifiers modifiers, QPoint at);
    void areaMouseReleased(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint at);
    /// Items are carried out of the chart (OnGantAreaStartDrag, OnGantAreaEndDrag).
    void areaDragStarted(QDrag *drag);
    void areaDragEnded(Qt::DropAction action);
    /// Something is dragged over the area, is dropped there; the receiver accepts it or not.
    void areaDraggedOver(QDragMoveEvent *event);
    void areaDropped(QDropEvent *event);
    /// The axis shows another time; after a paint.
    void scalerChanged(const QDateTime &start, const QDateTime &stop);
    /// The user has moved the splitter; the width is in pixels.
    void splitterMoved(int treeWidth);
    /// OnAlignNeed; the width is in pixels.
    void alignNeeded(const QDateTime &start, const QDateTime &stop, int treeWidth);
    /// OnRealignScrollbar, in lines of the tree.
    void scrollbarRealigned(int position, int min, int max, int pageSize, bool enabled);
    /// The chart has another size.
    void resized();

    // The grid in place of the tree.
    /// Other rows or columns have come to its top left corner.
    void gridTopLeftChanged();
    /// The rows were sorted by the column (OnColumnSort_Grid).
    void gridColumnSorted(korvane::TzuGrid_Column *column);
    /// A row is to be filled; is about to be dropped.
    void gridRowWanted(korvane::TBabGridCell *grid, korvane::TAxisContentItem *row);
    void gridRowUnloading(korvane::TBabGridCell *grid, korvane::TAxisContentItem *row);

protected:
    void ChangeInTree() override;
    void SplitterMoved(TzuSplitter *sender) override;

private:
    enum TPart : std::uint8_t { WholeChart, AreaPart, AxisPart, PartCount };

    void TieItems();
    void TieRows();
    void TieArea();
    void TieFrame();
    QFont ItemFont(int style) const;
    void SetItemFont(int style, const QFont &font);
    QWidget &WidgetOf(TPart part);
    void MenuChanged(TPart part);
    void PopUp(TPart part, QPoint at);

    TSignalTies m_signals;
    std::array<TNamedMenu, PartCount> m_menus;
    TNamedImages m_images;
};

} // namespace korvane
