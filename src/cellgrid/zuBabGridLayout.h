// The core of a grid view: where cells lie, and what is at a point.
#pragma once

#include "cellgrid/zuBabColumn.h"
#include "cellgrid/zuBabGridBlock.h"
#include "cellgrid/zuBabGridCell.h"
#include "cellgrid/zuBabGridHost.h"
#include "cellgrid/zuGridPicture.h"
#include "foundation/zuExport.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace korvane {

/// Lays out the viewer's grid and the grids in its cells. Everything that is shown comes from the
/// same bands: painting, hit testing and the rectangles asked for. A layout costs what is shown;
/// rows whose height depends on their content are measured when they come into view, and count with
/// the default height until then.
class KORVANE_CORE_API TBabGridLayoutCore : public TObject
{
public:
    static constexpr int kPadding = 4;     ///< pixels between a border and text
    static constexpr int kGrip = 4;        ///< how near to a border counts as on it
    static constexpr int kCheckBox = 13;   ///< side of the box, in pixels
    static constexpr int kImage = 16;      ///< room for an image, in pixels
    static constexpr int kTreeIndent = 16; ///< per level; the button lies in the last one

    /// Whether a single line stands in the middle of `height`, where the layout wants it at an edge
    /// but it hardly fits.
    static constexpr bool StandsInMiddle(int height, int lineHeight)
    {
        return height - lineHeight < lineHeight / 2;
    }

    /// The host outlives the core and is not called during construction.
    explicit TBabGridLayoutCore(IBabGridHost &host);
    /// Grids in cells go first.
    ~TBabGridLayoutCore() override;

    /// The grid of the view; the columns and rows that an application fills are its axes.
    TBabGridCellForViewer &RootCell() { return *m_root; }
    const TBabGridCellForViewer &RootCell() const { return *m_root; }
    /// The cell at real indexes, made when it does not exist; nil when there is no such crossing.
    TBabCell *GetCell(int column, int row) { return m_root->GetCell(column, row); }
    /// See TBabGridCell; of the view's grid.
    bool ExtendLastColumnToWidth() const { return m_root->ExtendLastColumnToWidth(); }
    void SetExtendLastColumnToWidth(bool extend);
    /// Look of cells without a layout of their own or of their column.
    const TLayoutProp &DefaultLayoutProp() const { return m_defaultLayout; }
    TLayoutProp &DefaultLayoutProp() { return m_defaultLayout; }

    /// Everything is laid out anew before it is needed next, and painted.
    void LayoutOutOfDate();
    /// Brings the layout up to date; nothing when it is.
    void EnsureLayout();
    /// Whether EnsureLayout would do something.
    bool IsLayoutOutOfDate() const { return m_outOfDate; }
    /// How the picture that was painted last becomes the next one; nothing when all of it is to be
    /// painted.
    std::optional<TGridPictureMove> PictureMove();
    /// The painter's: see TGridPicture.
    void PaintedGroupsInside() { m_picture.HasGroupsInside(); }
    /// The viewer's grid as it is shown now.
    const TGridBlock &Shown();
    /// While a slice is given, it is laid out and painted in place of the view, without selection
    /// and focus; scroll positions stay. Observed; null returns to the view.
    void SetPrintSlice(const TGridPrintSlice *slice);
    /// What a sub-grid shows within its cell's rectangle, as far as it lies within the clip.
    TGridBlock ShownIn(TBabGridCell &grid, const TRect &area, const TRect &clip);

    /// How far the part behind the fixed columns and rows is scrolled, in pixels.
    std::int64_t ScrollX() const { return m_scrollX; }
    std::int64_t ScrollY() const { return m_scrollY; }
    /// Both come into the range that the content allows.
    void ScrollTo(std::int64_t x, std::int64_t y);
    /// The largest values that ScrollTo takes; 0 when all fits.
    std::int64_t MaxScrollX() const;
    std::int64_t MaxScrollY() const;
    /// Extent of the scrolling part of the view.
    TSize PageSize() const;
    /// Scrolls so that the row that is `rows` away from the first scrolling one comes to the top.
    void ScrollRows(int rows);
    /// The first crossing behind the fixed ones that is shown; no grid when there is none.
    TGridCellAt GetTopLeftCell();
    /// Scrolls as little as shows the crossing.
    void MakeVisible(const TGridCellAt &at);

    /// Where a crossing lies, whether it is in view or not; empty when there is none or it is
    /// hidden.
    TRect CellRect(const TGridCellAt &at);
    /// What lies at a point of the view; columns and rows that are not loaded count as well.
    TGridHit HitTest(TPoint point);
    /// Where the content of a cell is drawn; without lines, icon and padding.
    TRect ContentRect(const TGridCellAt &at, const TRect &cell) const;
    /// The part of a cell that the first line of its text stands in: buttons, icons and check boxes
    /// stand beside or in it. Without the line at the bottom.
    TRect LineRect(const TGridCellAt &at, const TRect &cell) const;
    TRect CheckBoxRect(const TGridCellAt &at, const TRect &cell) const;
    /// The row's node where the crossing lies in the column of a tree, else nil.
    static IBabTreeRow *TreeNodeAt(const TGridCellAt &at);
    /// What a click has to hit to expand or collapse the node; empty without a button.
    TRect TreeButtonRect(const TGridCellAt &at, const TRect &cell) const;

    /// The column that an item stands for; nil for plain text.
    static TBabColumn *ColumnOf(const TAxisContentItem &item);
    /// The layout of the cell, or that of its column, or the default one.
    const TLayoutProp &LayoutOf(const TBabGridCell &grid, const TAxisContentItem &column,
                                const TAxisContentItem &row) const;
    /// The layout's font with UseFontInfo, else the grid's in the layout's FrontColor.
    TFont FontOf(const TLayoutProp &layout) const;
    /// Width that the column's shown cells and its header ask for.
    int BestColumnWidth(const TGridCellAt &at);
    /// Height that the row's loaded cells ask for, in pixels; at least the default.
    int BestRowHeight(const TGridCellAt &at);
    /// The text of a cell when it does not fit into it, else nothing.
    std::string CutText(const TGridCellAt &at);

protected:
    /// As given to the constructor.
    IBabGridHost &Host() const { return m_host; }
    /// What is shown stays where it is, but is to be painted anew.
    void InvalidatePicture();
    /// To be called when everything that is shown, or the part that PictureMove asked for, is about
    /// to be painted.
    void PictureFollows() { m_picture.Remember(m_shown); }
    /// Adds what else is to be painted anew.
    virtual void AddToPictureMove(TGridPictureMove &) {}
    /// Nil while the view is shown.
    const TGridPrintSlice *PrintSlice() const { return m_printSlice; }
    /// Before a layout changes what is shown at the top left.
    virtual void TopLeftChanged() {}
    /// The layout was up to date until now.
    virtual void LayoutLost() {}
    /// Columns or rows were hidden or shown.
    virtual void HiddenChanged() {}
    /// What the grid's events of the same names tell.
    virtual void CountChanged(TAxisContentList *, int /*index*/, int /*by*/) {}
    virtual void ItemsMoved(TAxisContentList *, int /*from*/, int /*to*/, int /*count*/) {}
    /// Rows from `first` on are about to take another order, as TCellSelection::RowsReordered says.
    virtual void RowsReordered(TAxisContentList *, int /*first*/,
                               const std::vector<int> & /*order*/)
    {
    }

    /// A grid in a cell is about to go; the selection of some grid has changed.
    virtual void SubGridGoes(TBabGridCell *) {}
    virtual void SelectionEventFired() {}
    /// A row is to be selected, or deselected; `at` is a crossing of it.
    virtual void SelectRow(const TGridCellAt & /*at*/, bool /*selected*/) {}
    /// Before SelectionEventFired, while the grid is certain to exist.
    virtual void SelectionEventOf(TBabGridCell & /*grid*/) {}

private:
    struct TSpan
    {
        int Near = 0;
        int Far = 0;
    };
    /// One axis of a grid in pixels: where it begins, how far it is scrolled, and what of it shows.
    struct TAxisView
    {
        int Origin = 0;
        std::int64_t Scroll = 0;
        TSpan Shown;
        int ExtendTo = 0; ///< where the last item ends at least; 0 for wherever it does
    };

    void OnAxisEvent(TSingleEventListener *listener);
    void OnCellEvent(TSingleEventListener *listener);
    void LoseLayout();
    void OnHideEvent(TSingleEventListener *listener);
    void OnSelectionEvent(TSingleEventListener *listener);
    void ClampScroll();
    void UpdateDefaultHeight();
    void Load(TAxisContentList &list, int first, int last);
    TGridBands BandsOf(TAxisContentList &list, const TAxisView &view);
    /// The rectangle that a grid is laid out in: the view's, or its cell's.
    TRect AreaOf(TBabGridCell &grid);
    TGridBlock BlockOf(TBabGridCell &grid, const TRect &area, const TRect &clip);
    TGridBlock BlockOfPrint();
    TGridBlock BlockOfView();
    std::int64_t ScrollOf(const TAxisContentList &list) const;
    bool MeasureRows(TGridBlock &block);
    int MeasuredHeight(TBabGridCell &grid, TAxisContentItem &column, TAxisContentItem &row,
                       const TRect &cell);
    TGridHit HitIn(const TGridBlock &block, TPoint point);
    static const TGridBand *BandAt(const TGridBands &bands, int pixel);
    static const TGridBand *BorderAt(const TGridBands &bands, int pixel);
    TSpan SpanOf(const TAxisContentList &list, int index, const TAxisView &view) const;

    IBabGridHost &m_host;
    std::unique_ptr<TBabGridCellForViewer> m_root;
    TLayoutProp m_defaultLayout;
    TSingleEventListener m_axisListener;
    TSingleEventListener m_hideListener;
    TSingleEventListener m_sizeListener;
    TSingleEventListener m_cellListener;
    TSingleEventListener m_selectionListener;
    TGridBlock m_shown;
    TGridPicture m_picture;
    const TGridPrintSlice *m_printSlice = nullptr;
    std::shared_ptr<char> m_lives = std::make_shared<char>();
    std::int64_t m_scrollX = 0;
    std::int64_t m_scrollY = 0;
    int m_textHeight = 0; ///< of a line in the grid's font
    bool m_outOfDate = true;
    bool m_layingOut = false;
};

} // namespace korvane
