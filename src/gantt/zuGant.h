// The Gantt chart without its widgets: data, row geometry and painting.
#pragma once

#include "data/zuDataEntityPack.h"
#include "data/zuDataTraveser.h"
#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"
#include "gantt/zuGantDataKeeper.h"
#include "gantt/zuGantLinks.h"
#include "gantt/zuGantRow.h"
#include "gantt/zuGantRowList.h"
#include "gantt/zuGantTypes.h"

#include <array>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace korvane {

class TDateScalerGestures;

/// What the chart asks of the controls around it.
class KORVANE_CORE_API IGantHost
{
public:
    virtual ~IGantHost() = default;

    /// The time axis, the only owner of the visible time.
    virtual TDateScalerGestures &Scaler() = 0;
    virtual const TDateScalerGestures &Scaler() const = 0;
    /// Brings the row tree, or the grid in its place, up to date and appends its lines on screen,
    /// top to bottom.
    virtual void CollectVisibleNodes(std::vector<TVisibleNode> &nodes) = 0;

    /// Requests a repaint of the area; several requests before a paint cause one.
    virtual void InvalidateArea() = 0;
    /// Size of the area, or of the page that is printed, in pixels.
    virtual TSize AreaSize() const = 0;
    /// Where the area is drawn now: the offscreen image or the printer.
    virtual TCanvas &AreaCanvas() = 0;
    /// How much larger than on screen a print is drawn; 1 each on screen.
    virtual TPrintScale AreaPrintScale() const = 0;
    /// Enlarges the canvas font while printing; called after every change of the font.
    virtual void PrintResizeAreaFont() = 0;

    /// Another item is the active one, or none.
    virtual void ActiveItemChanged() {}

    /// Whether selection, focus and the link pointed at are marked; a print leaves them out.
    virtual bool ShowsMarks() const { return true; }
    /// A link has been drawn along these lines, in painted pixels.
    virtual void LinkDrawn(const TzuDataEntity_Link & /*link*/, std::span<const TPoint> /*line*/) {}
};

/// The state and the rules of a Gantt chart. Time items lie in layers on rows; links join them.
///
/// A chart is created in two steps: construct, then InitializeData, which calls the factories.
class KORVANE_CORE_API TGantCore : public TObject, protected TGantDataKeeper
{
public:
    /// `component` is what event handlers receive as the chart; it may be null.
    TGantCore(IGantHost &host, TzuGant_ComBasic *component);
    /// Calls FinalizeData.
    ~TGantCore() override;

    /// As given to the constructor; the host outlives the chart.
    IGantHost &Host() { return m_host; }
    const IGantHost &Host() const { return m_host; }

    /// False before the lists are created and once they are released.
    bool HasData() const { return m_rows != nullptr && !m_destroying; }

    /// The rows, owned by the chart. Not to be asked for without data.
    TGantRowList &GantRows() { return *m_rows; }
    const TGantRowList &GantRows() const { return *m_rows; }
    /// Every row's layers, for walks over all time items.
    TzuDataList3lev &AllTimeItems() { return *m_store; }

    /// The links, owned by the chart, in the order in which they are drawn.
    TzuDataList &GetLinks() { return *m_links; }

    /// Appends a white, square, editable item to a layer (0-based), which is created when missing.
    /// Null when the row is, or when a handler has removed the item.
    TzuDataEntity_Spanbar *AddSpanbarToGantRow(TGantRow *row, int layer);
    /// The same on the row of a tree node; null when the node has none.
    TzuDataEntity_Spanbar *AddSpanbar(TzuDataEntity_Tree *node, int layer);
    /// The same on the row of a node of the grid.
    TzuDataEntity_Spanbar *GridNode_AddSpanbar(TzuDataEntity_GridTreeNode *node, int layer);
    /// Removes and frees an item with all its links. Null and items in no list are ignored.
    void RemoveSpanbar(TzuDataEntity_Spanbar *item);
    /// Appends a link in the default style and colour; the caller sets its ends.
    TzuDataEntity_Link &AddLink();
    /// Deletes every link that starts or ends at the item, last to first.
    void DropAllLinks(const TzuDataEntity_Spanbar &item);
    /// The first item, row by row, with the user reference. Walks all items.
    TzuDataEntity_Spanbar *FindSpanbarObjectFromUserReference(const void *reference);

    /// The item that keyboard operations apply to; drawn with the focus frame.
    TzuDataEntity_Spanbar *ActiveDataEntity() const { return m_active; }
    void SetActiveDataEntity(TzuDataEntity_Spanbar *item);
    /// The topmost visible item at a point of the area, or null.
    TzuDataEntity_Spanbar *GetDataEntityFromXY(int x, int y) const;
    /// The link whose line, as last painted, runs closest to a point of the area, no farther from
    /// it than 3 pixels; of equally close ones the topmost. Null when there is none. A link drawn
    /// by OnUserDrawLinks is found where OnLinkRoute says that it runs. Costs the links on screen.
    TzuDataEntity_Link *GetLinkFromXY(int x, int y) const;
    /// The link that the mouse points at; drawn thicker.
    TzuDataEntity_Link *HoverLink() const { return m_hoverLink; }
    void SetHoverLink(TzuDataEntity_Link *link);

    /// Both colours of the background, which mixes them as a checkerboard of single pixels; silver
    /// and gray by default.
    TColor GantBackColor() const { return m_backColor; }
    void SetGantBackColor(TColor color);
    TColor GantPyjamasColor() const { return m_pyjamasColor; }
    void SetGantPyjamasColor(TColor color);
    /// Whether alternate major periods of the axis are shaded; false by default.
    bool VerticalPyjamas() const { return m_verticalPyjamas; }
    void SetVerticalPyjamas(bool on);
    /// Whether the axis' minor marks are continued as lines through the area, not the major ones
    /// alone; false by default.
    bool DrawShortLines() const { return m_drawShortLines; }
    void SetDrawShortLines(bool on);
    /// lsOneEndVisible by default.
    TLinkShow LinkShow() const { return m_linkShow; }
    void SetLinkShow(TLinkShow show);
    /// What AddLink gives a new link, tlsDefault in blue by default; other links keep theirs.
    TLinkStyle DefaultLinkStyle() const { return m_defaultLinkStyle; }
    void SetDefaultLinkStyle(TLinkStyle style) { m_defaultLinkStyle = style; }
    TColor DefaultLinkColor() const { return m_defaultLinkColor; }
    void SetDefaultLinkColor(TColor color) { m_defaultLinkColor = color; }
    /// Images of style sbsImage, and of the grid's columns with icons unless the grid was given a
    /// list of its own; observed, null by default.
    const TImageList *ImageList() const { return m_imageList; }
    virtual void SetImageList(const TImageList *images);
    /// Font of item texts, style 1, 2 or 3; any other number means 1.
    const TFont &FontTimeItemStyle(int style) const;
    void SetFontTimeItemStyle(int style, const TFont &font);
    /// Whether the rows are those of the grid's nodes rather than of the row tree's; false by
    /// default.
    bool UseGridNotTree() const { return m_useGrid; }
    /// Rows of the other kind keep their items, but are not shown.
    virtual void SetUseGridNotTree(bool value);
    /// Whether the row is of the kind that is shown.
    bool RowTypeCheckOK(const TGantRow &row) const;
    /// How much higher rows are while printing than their rectangles say. Those of a grid come from
    /// the printed grid and are not enlarged once more.
    double RowPrintScale() const { return m_rowsFromTree ? m_host.AreaPrintScale().Y : 1.0; }
    /// Height in pixels of the tree row measured last; stands in where a height is needed without a
    /// row.
    int CurrentRowHeight() const { return m_currentRowHeight; }

    /// Draws the whole area on the host's canvas.
    virtual void GantAreaPaint();
    /// The tile of the background: 2 by 2 pixels, back and pyjamas colour as a checkerboard.
    const TBrush &BackgroundBrush() const { return m_backgroundBrush; }
    /// The background that OnUserDrawBackground replaces; handlers may call it and draw on top.
    void DefaultBackGround(const TRect &rect, TCanvas &canvas) const;
    /// The lines between rows and at the marks of the axis, a part of the default background.
    void DrawRowBackgound(const TRect &rect, TCanvas &canvas) const;
    /// Draws one item into its rectangle, selection and focus marks included.
    void DrawContent(TzuDataEntity_Spanbar &item, const TRect &rect);
    /// The part of an item's rectangle that is drawn.
    TRect InsetRect(const TzuDataEntity_Spanbar &item, const TRect &rect) const;
    /// Takes the rectangles of the rows on screen afresh from the row tree.
    void UpdateRects();

    /// An item dropped on another row is handed to OnTimeChangeRow, a copied one to OnTimeCopy.
    /// False when nobody handles it: nothing has moved then. An override that creates the new item
    /// itself returns it in `result`, which is null otherwise.
    virtual bool TimeMoveRow(TzuDataEntity_Spanbar &item, TGantRow &row, TGantRow &newRow,
                             TDateTime start, TDateTime stop, TzuDataEntity_Spanbar *&result);
    virtual bool TimeCopy(TzuDataEntity_Spanbar &item, TGantRow &row, TGantRow &newRow,
                          TDateTime start, TDateTime stop, TzuDataEntity_Spanbar *&result);

    /// Items have come to the list, left it or moved in it.
    TPublished<TOnContentChanged> OnContentChanged_Spanbar;
    /// Once for each item whose mark has changed.
    TPublished<TOnSelectionChanged> OnSelectionChanged_Spanbar;
    /// The item is about to go: its links are gone, its values can still be read.
    TPublished<TOnDeleteItem> OnDeleteItem_Spanbar;
    /// The item is in its list.
    TPublished<TOnInsertItem> OnInsertItem_Spanbar;
    /// The item has announced its values (DoInfoPush); after OnChangeDataEntity_Spanbar.
    TPublished<TOnInfoPush> OnValueChanged_Spanbar;
    /// May change the item's CanEdit before it is read.
    TPublished<TOnBeforeCanEditItem> OnBeforeCanEditItem_Spanbar;
    /// As OnValueChanged_Spanbar, before it.
    TPublished<TOnInfoPush_Spanbar> OnChangeDataEntity_Spanbar;
    /// Once for each link whose mark has changed.
    TPublished<TOnSelectionChanged> OnSelectionChanged_Link;
    /// An item that is not loaded is needed; a loaded one may go, if the handler says so.
    TPublished<TOnGantVirtualLoad> OnVirtualLoad_Spanbar;
    TOnGantVirtualUnLoad OnVirtualUnLoad_Spanbar;
    /// See TimeMoveRow and TimeCopy.
    TPublished<TOnTimeCopyOrChangeRow> OnTimeChangeRow;
    TPublished<TOnTimeCopyOrChangeRow> OnTimeCopy;
    /// Before the item is moved to its sub-row. When a handler throws, the row stays as it was.
    TPublished<TOnCollisionDetected> OnCollisionDetected;
    /// The row is in the list and has its node, after it has come and before it goes.
    TPublished<TGantRowNotify> OnAfterAddGantRow;
    TPublished<TGantRowNotify> OnBeforeFreeGantRow;
    /// Set, it makes the rows in place of CreateRow.
    TUserCreateGantRow OnUserCreateGantRow;
    /// Drawing in place of the chart. Handlers that draw must not add or remove nodes, items or
    /// links.
    TOnUserDrawTime OnUserDrawTime;
    TOnUserDrawLinks OnUserDrawLinks;
    /// Asked before OnUserDrawLinks, so that such links can be pointed at and marked.
    TOnLinkRoute OnLinkRoute;
    /// Draws below everything in place of DefaultBackGround; draws above all items and links.
    TOnUserDrawContent OnUserDrawBackground;
    TOnUserDrawContent OnUserDrawForeground;

protected:
    friend class TGantRow;
    friend class TGantRowList;

    /// The chart as event handlers receive it; may be null.
    TzuGant_ComBasic *Component() const { return m_component; }

    /// Creates lists and controllers through the factories. Called once, from the most derived
    /// constructor that lets its class' factories take part.
    void InitializeData();
    /// Releases rows, items and links; handlers see no chart that is half gone. Called from the
    /// destructor of the class whose parts the handlers use.
    void FinalizeData();

    /// Factories of InitializeData, which also wires what they make.
    virtual std::unique_ptr<TzuDataList> CreateLinkList();
    virtual std::unique_ptr<TGantRowList> CreateRowList();
    /// The result is owned by the row list.
    virtual TGantRow *CreateRow(TzuDataEntity_Tree *treeNode, TzuDataEntity_GridTreeNode *gridNode);
    /// The results are wired already. The row's layers own the first, the list of all items the
    /// second.
    virtual TzuDataList_GantRow *CreateDataList_GantRow();
    virtual TzuDataList2lev *CreateDataList2Lev();
    /// Wired by InitializeData.
    virtual std::unique_ptr<TzuDataList3lev> CreateDataList3Lev();

    /// What the lists of items and links tell: each asks for a repaint and fires its event.
    virtual void _OnInsertItem(TzuDataEntity *item);
    virtual void _OnDeleteItem(TzuDataEntity *item);
    virtual void _OnContentChanged(TzuDataList *list);
    virtual void _OnInfoPush(TzuDataEntity *item);
    virtual void _OnSelectionChanged(TzuDataList *list, TzuDataEntity *item);

    /// Around an item's move to another list.
    virtual void _OnBeforeChangeOwner(TzuDataEntity * /*item*/) {}
    virtual void _OnAfterChangeOwner(TzuDataEntity * /*item*/) {}

    /// As above: what the lists of items and links tell.
    virtual void _OnBeforeCanEditItem(TzuDataEntity *item);
    virtual void _OnVirtualLoadTimeItem(TzuDataEntity *item);
    virtual void _OnVirtualUnLoadTimeItem(TzuDataEntity *item, bool &canUnload);
    virtual void _OnDeleteItem_Link(TzuDataEntity *link);
    virtual void _OnSelectionChanged_Link(TzuDataList *list, TzuDataEntity *link);
    void _OnItemFreed(const TzuDataEntity_Spanbar *item) override;
    void _OnLinkFreed(const TzuDataEntity_Link *link) override;
    /// Has the application draw an item of style sbsUser.
    virtual void UserDrawTime(TzuDataEntity_Spanbar &item, const TRect &rect, TCanvas &canvas);
    /// Sets the font of a style before a text is drawn.
    void _OnTimeItemSyleSet(const TzuTimeItemTextCollection &collection, TCanvas &canvas,
                            int style);

private:
    void WireTimeItemController();
    void ReInitBitmap();
    void UpdateSubColumnsOf(const TzuDataList *list) const;
    bool Holds(const TzuDataEntity_Spanbar &item) const;
    void DoBackground();
    void DoVerticalPyjamas(const TRect &rect, TCanvas &canvas) const;
    void RenderLinks();
    void CollectLinksOnScreen();
    std::vector<TzuDataEntity_Spanbar *> LinkedItems(TzuDataList &layer) const;
    void RenderLink(TzuDataEntity_Link &link);
    void RenderUserLink(TzuDataEntity_Link &link, TLinkPoints points, TLinkMark mark);
    void ForgetLink(const TzuDataEntity_Link *link);
    TLinkEnd LinkEndOf(const TzuDataEntity_Spanbar &item) const;
    void DrawShape(TzuDataEntity_Spanbar &item, const TRect &rect, TCanvas &canvas);
    TRect AreaRect() const;

    /// A link on screen and where it runs.
    struct TShownLink
    {
        TzuDataEntity_Link *Link;
        std::optional<TLinkRoute> Route;
        std::vector<TPoint> UserRoute; ///< without Route

        std::span<const TPoint> Line() const
        {
            return Route ? Route->Line() : std::span<const TPoint>(UserRoute);
        }
    };

    IGantHost &m_host;
    TzuGant_ComBasic *m_component;
    TzuListController m_timeItemController;
    TzuListController m_linkController;
    std::unique_ptr<TzuDataList> m_links;
    std::unique_ptr<TzuDataList3lev> m_store;
    std::unique_ptr<TGantRowList> m_rows;
    std::array<TFont, 3> m_itemFonts;
    std::vector<TVisibleNode> m_visibleNodes; ///< kept for its capacity
    /// Links at items on screen, with their index in the link list, in list order.
    std::vector<std::pair<int, TzuDataEntity_Link *>> m_drawnLinks;
    std::vector<TShownLink> m_shownLinks; ///< as last painted, bottom to top
    TzuDataEntity_Link *m_hoverLink = nullptr;
    TzuDataEntity_Spanbar *m_active = nullptr;
    const TImageList *m_imageList = nullptr;
    TOnStyleSet m_onStyleSet;
    TBrush m_backgroundBrush;
    TColor m_backColor = clSilver;
    TColor m_pyjamasColor = clGray;
    TColor m_defaultLinkColor = clBlue;
    int m_currentRowHeight = 18;
    unsigned m_linkPass = 0;
    TLinkShow m_linkShow = TLinkShow::lsOneEndVisible;
    TLinkStyle m_defaultLinkStyle = TLinkStyle::tlsDefault;
    bool m_verticalPyjamas = false;
    bool m_drawShortLines = false;
    bool m_useGrid = false;
    bool m_rowsFromTree = true; ///< those placed last
    bool m_destroying = false;
};

} // namespace korvane
