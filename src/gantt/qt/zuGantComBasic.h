// The behaviour of the Gantt chart control: row tree, date scaler, drawn area and scroll bar.
#pragma once

#include "foundation/qt/zuOffscreenPaint.h"
#include "foundation/zuExport.h"
#include "gantt/qt/zuGantEvents.h"
#include "gantt/qt/zuGantTabs.h"
#include "gantt/qt/zuGantTree.h"
#include "gantt/zuGantKeys.h"
#include "grid/zuGrid.h"
#include "scaler/qt/zuScaler.h"

#include <QCursor>
#include <QFrame>
#include <QString>

#include <memory>
#include <optional>
#include <string_view>
#include <utility>

class QScrollBar;

namespace korvane {

class IGantPrintView;
class TGantAreaInput;
class TGantAreaKeys;
class TGraphHintWindow;
class TzuGrid;
class TzuSplitter;

/// All behaviour of the Gantt chart control.
///
/// The chart arranges a row tree on the left and, right of a splitter, a date scaler above the
/// drawn area with a vertical scroll bar. The date scaler is the only owner of the visible time; a
/// spacer of the scaler's height keeps the lines of the tree level with the rows of the area. It
/// shows the 15 days before and after today until told otherwise.
///
/// A grid can stand in for the row tree. Its rows are a tree as well, and each of its nodes has a
/// row in the chart, as high as it is in the grid. The rows of both are kept while the other one is
/// shown. The grid scrolls with its own bars; below the area the chart leaves room for the
/// horizontal one, and the grid's header ends where the axis does.
///
/// Tab goes from the tree to the area, the axis, the tabs and the splitter; a window gives its
/// first focus to the tree, and setFocus() on the chart to the area.
///
/// Parts are created through virtual factories. A subclass that overrides one constructs its base
/// with TConstruction::WithoutParts and calls InitializeInConstructor() first thing in its own
/// constructor.
class KORVANE_WIDGETS_API TzuGant_ComBasic : public QFrame,
                                             public TGantKeys,
                                             public TGantTreeEvents,
                                             private IGantHost,
                                             private IGantInputHost
{
    Q_OBJECT

public:
    /// Whether a constructor makes the parts, or leaves that to the subclass.
    enum class TConstruction { Complete, WithoutParts };

    /// Without rows; 350 by 250 pixels large as long as no layout says otherwise.
    explicit TzuGant_ComBasic(QWidget *parent = nullptr,
                              TConstruction construction = TConstruction::Complete);
    ~TzuGant_ComBasic() override;

    /// Axis and row tree; owned by the chart. While a print is drawn, the axis is that of the
    /// print.
    TzuDateScaler &DateScaler() { return PaintedAxis(); }
    const TzuDateScaler &DateScaler() const { return PaintedAxis(); }
    TGantTree &Tree() { return *m_tree; }
    const TGantTree &Tree() const { return *m_tree; }
    /// The grid, made when it is first asked for: its rows are a tree, several of them can be
    /// selected, and it has one column.
    TzuGrid &Grid();
    /// Whether the grid has been made.
    bool HasGrid() const { return m_grid != nullptr; }
    /// The drawn area, the scroll bar of its rows, and the splitter between tree and area; owned by
    /// the chart. While a print is drawn, the area is that of the print.
    TzuOffscreenPaint &GantArea() { return PaintedArea(); }
    QScrollBar &VertScrollBar() { return *m_scrollBar; }
    TzuSplitter &Splitter() { return *m_splitter; }
    /// The strip above the tree, as high as the axis. Empty; an application may put widgets in it.
    QWidget &TreeSpacer() { return *m_treeSpacer; }
    /// The tab sheets, hidden until UseTabSheets.
    TGantPageControl &PageControl() { return *m_pages; }
    /// Tells what a gesture in the area changes. Its static place is the tree's spacer.
    TGraphHintWindow &HintWindow() { return *m_hintWindow; }

    /// Appends a node to the top level, and with it a row. Null when a handler removed it.
    TzuDataEntity_Tree *AddRootDataEntityTree(std::string_view text = {});
    /// Appends a node below another, or to the top level for null. Throws std::length_error beyond
    /// kMaxTreeText code points; the node has come then.
    TzuDataEntity_Tree *AddDataEntityTree(TzuDataEntity_Tree *parent, std::string_view text = {});
    /// Number of lines of the tree, those scrolled away included.
    int CountVisibleTreeViewItems() { return Lines().CountShown(); }
    /// Expands every node, so that each row has its line, and scrolls to the current one.
    void MakeSureAllVisibleInTree();
    /// The lines of the row tree, or of the grid in its place.
    IGantLines &Lines() const override;

    void SetUseGridNotTree(bool value) override;
    void SetImageList(const TImageList *images) override;
    /// The row of the current node, or null.
    TGantRow *GetActiveGantRow() { return Lines().CurrentRow(); }

    /// Whether axis and area lie on a tab sheet, "Gant", with other sheets beside it.
    bool GetTabSheetsONOFF() const;
    void SetTabSheetsONOFF(bool on);
    /// Appends a sheet under its window title. The chart owns it from now on. Null and a sheet that
    /// is there already are ignored.
    void AddTabSheet(QWidget *sheet, TOnTabRowChange onRowChange = {},
                     TOnTabChanging onChanging = {}, TOnTabChange onChange = {});

    /// Height of the axis and of the spacers beside it, in pixels; 45 by default.
    int GetScalerHeight() const;
    void SetScalerHeight(int pixels);
    /// Width of the row tree, in pixels; 100 by default.
    int TreeWidth() const;
    void SetTreeWidth(int pixels);

    /// The visible time, half-open; 15 days before and after the day of construction by default.
    TDateTime Start() const { return PaintedAxis().GetStart(); }
    void SetStart(TDateTime start) { m_scaler->SetStart(start); }
    TDateTime Stop() const { return PaintedAxis().GetStop(); }
    void SetStop(TDateTime stop) { m_scaler->SetStop(stop); }
    /// Days per pixel; setting it keeps the start.
    double Scale() const { return PaintedAxis().GetScale(); }
    void SetScale(double scale) { m_scaler->SetScale(scale); }
    /// By what a notch of the wheel multiplies the scale; 0.9 by default.
    double Get_ZoomFactor() const { return m_scaler->ZoomFactor(); }
    void Set_ZoomFactor(double factor) { m_scaler->SetZoomFactor(factor); }
    /// Formats of the labels of dates and of times; "YYMMDD" and "HH:MM:SS" by default.
    QString DateFormat() const;
    void SetDateFormat(const QString &format);
    QString TimeFormat() const;
    void SetTimeFormat(const QString &format);
    /// 1 = Sunday ... 7 = Saturday, 2 by default; other values are ignored.
    int FirstDayOfWeekScaler() const { return m_scaler->FirstDayOfWeek(); }
    void SetFirstDayOfWeekScaler(int day) { m_scaler->SetFirstDayOfWeek(day); }
    /// Font of the axis' labels. It is set for all three rows; the getter tells that of the first.
    QFont FontScaler() const;
    void SetFontScaler(const QFont &font);

    /// Sets the visible time and the width of the tree without firing OnAlignNeed, so that a saved
    /// view can be restored.
    void SetScaleAndTree(TDateTime start, TDateTime stop, int treeWidth);
    /// Brackets nest; scaler, area and tree refresh once, at the end.
    void BeginUpdate();
    void EndUpdate();
    /// The same as handlers.
    void BeginUpdateNotifyCompatible(TObject * /*sender*/) { BeginUpdate(); }
    void EndUpdateNotifyCompatible(TObject * /*sender*/) { EndUpdate(); }
    /// Refreshes scaler, tree and area, each unless it is the sender.
    void RefreshOthers(const QWidget *sender);
    /// Refreshes everything.
    void RePaint();

    /// Draws for a print from now on: on the view's area, along its axis, with its rows. Null goes
    /// back to what is on screen, which has stayed as it was. The view is observed.
    void SetPrintView(IGantPrintView *view);
    /// The area; while a page is printed, all that the pages show side by side. What handlers of
    /// drawing events place within it stands in the same place on each page that shows it.
    TRect WholeArea() const;

    /// The pointer over the area where it is over nothing that can be dragged.
    QCursor CursorGantArea() const { return m_areaCursor; }
    void SetCursorGantArea(const QCursor &cursor);

    /// The chart has another size.
    TPublished<TOnGantNotify> OnResize;
    /// After OnAlignNeed; a handler may limit the visible time.
    TPublished<TOnScalerChange> OnScalerChange;
    /// Not fired by SetScaleAndTree.
    TPublished<TOnAlignNeed> OnAlignNeed;
    /// Not while the grid is shown, which has a bar of its own.
    TPublished<TOnRealignScrollbar> OnRealignScrollbar;
    /// Axis or area enlarges a font for printing.
    TzuOffscreenPaint::TOnPrintResizeFont OnPrintResizeFont;
    /// Of items that are carried out of the chart, see StartDragWhenTimeMoveOutside.
    TPublished<TOnGantAreaStartDrag> OnGantAreaStartDrag;
    TPublished<TOnGantAreaEndDrag> OnGantAreaEndDrag;
    /// Something is dragged over the area; the handler accepts it or not. Without a handler
    /// everything is accepted, if there is one of OnGantAreaDragDrop.
    TPublished<TOnGantAreaDragOver> OnGantAreaDragOver;
    /// Something accepted was dropped on the area.
    TPublished<TOnGantAreaDragDrop> OnGantAreaDragDrop;

    // The grid.
    /// Other rows or columns have come to the top left corner.
    TPublished<TOnGantNotify> OnGridTopLeftChanged;
    /// Image of a row in the grid's first column, where that has icons; that of the node on entry.
    TOnGetIconIndex OnGridGetIconIndex;
    /// OnVirtualLoad, OnVirtualUnLoad and OnColumnSort of the grid, as long as those are not set
    /// anew.
    TPublished<TOnGridVirtualNotify> OnVirtualLoad_Grid;
    TPublished<TOnGridVirtualNotify> OnVirtualUnLoad_Grid;
    TPublished<TOnGridColumn> OnColumnSort_Grid;

protected:
    /// Creates the parts through the factories.
    void InitializeInConstructor();

    /// Factories of InitializeInConstructor. The parent owns the result.
    virtual TzuDateScaler *CreateDateScaler(QWidget *parent);
    virtual TGantTree *CreateTree(QWidget *parent);
    /// Called when the grid is first asked for.
    virtual TzuGrid *CreateGrid(QWidget *parent);

    /// The user has moved the splitter; the tree holder's resize has been handled already.
    virtual void SplitterMoved(TzuSplitter * /*sender*/) {}

    /// A sheet is about to be left; another one has come to the front; the active row is another.
    virtual void PageChanging(TGantPageControl *sender, bool &allow);
    virtual void PageChange(TGantPageControl *sender);
    virtual void ChangeInTree();

    /// Keep the parts level with each other. A focus on the chart goes on to the area.
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    friend class TGantAreaInput;
    friend class TGantTree;

    void CreateParts();
    void CreateTreeSide(QWidget &holder);
    void CreateAreaSide(QWidget &holder);
    void CreateScrollSide(QWidget &holder);
    template <typename Call>
    void ForActivePage(const Call &call);
    void LevelTreeSpacer();
    void HandleTreeAlign();
    void AlignNeeded();
    void ScaleChanged(TObject *sender);
    void RealignScrollbar(const TScrollInfo &info);
    void _OnPrintResizeFont(TzuOffscreenPaint *caller, int &fontSize, bool &defaultResize);
    void GantAreaWheelScroll(QWheelEvent &event);
    void InvalidateRows() { InvalidateArea(); }
    void CreateGridSide();
    void PartFromGrid();
    void UpdateGridFrame();
    void GridTreeIntegrationEvents(TzuGridTree *tree, TGridTreeEvent event,
                                   TzuDataEntity_GridTreeNode *node);
    void GridRowAdded(TzuDataEntity_GridTreeNode *node);
    void GridRowRemoved(TzuDataEntity_GridTreeNode *node);
    void GridtopLeftChanged(TObject *sender);
    void GridFocusChanged(TObject *sender);
    void InvalidateGA(TObject *sender);
    void DoGridGetIconIndex(TzuGrid_Column *column, TAxisContentItem *row, TBabCell *cell,
                            int &index);

    // IGantHost
    TDateScalerGestures &Scaler() override { return PaintedAxis(); }
    const TDateScalerGestures &Scaler() const override { return PaintedAxis(); }
    void CollectVisibleNodes(std::vector<TVisibleNode> &nodes) override;
    void InvalidateArea() override;
    TSize AreaSize() const override;
    TCanvas &AreaCanvas() override;
    TPrintScale AreaPrintScale() const override;
    void PrintResizeAreaFont() override;
    void ActiveItemChanged() override;
    bool ShowsMarks() const override { return m_printView == nullptr; }
    void LinkDrawn(const TzuDataEntity_Link &link, std::span<const TPoint> line) override;
    TzuOffscreenPaint &PaintedArea() const;
    TzuDateScaler &PaintedAxis() const;

    // IGantInputHost
    void FocusArea() override;
    bool AreaHasFocus() const override;
    void SetAreaCursor(TGantCursor cursor) override;
    void InvalidateOverlay(const TRect &rect) override;
    void RefreshAroundArea() override;
    TRect ChartRect() const override;
    void SetGestureTimer(bool on) override;
    void ShowGestureHint(const TGestureHint &hint, TPoint at) override;
    void HideGestureHint() override;
    void StartItemDrag(const TItemDragData &items) override;
    void SelectionChanged() override;

    TzuSplitter *m_splitter = nullptr;
    QWidget *m_treeHolder = nullptr;
    QWidget *m_treeSpacer = nullptr;
    QWidget *m_areaHolder = nullptr;
    QWidget *m_scrollHolder = nullptr;
    QWidget *m_scrollSpacer = nullptr;
    QScrollBar *m_scrollBar = nullptr;
    TGantPageControl *m_pages = nullptr;
    TzuDateScaler *m_scaler = nullptr;
    QWidget *m_areaFoot = nullptr; ///< as high as the grid's scroll bar
    TGantTree *m_tree = nullptr;
    TzuGrid *m_grid = nullptr;
    TzuOffscreenPaint *m_area = nullptr;
    IGantPrintView *m_printView = nullptr;
    TGraphHintWindow *m_hintWindow = nullptr;
    std::unique_ptr<IGantLines> m_treeLines;
    std::unique_ptr<IGantLines> m_gridLines;
    /// The current row when it was last told of, which is compared alone; nothing when it is gone.
    std::optional<TGantRow *> m_seenGridRow{nullptr};
    bool m_tellingGridRow = false;
    std::unique_ptr<TGantAreaKeys> m_keys;
    QCursor m_areaCursor;
    TGantCursor m_shownCursor = TGantCursor::Area;
    std::unique_ptr<TGantAreaInput> m_input;
    /// The times of a SetScaleAndTree that the scaler has yet to report.
    std::optional<std::pair<TDateTime, TDateTime>> m_restoredTimes;
    bool m_settingScaleAndTree = false;
};

} // namespace korvane
