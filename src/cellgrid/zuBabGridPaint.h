// Painting of a grid and of the grids in its cells.
#pragma once

#include "cellgrid/zuBabGridLayout.h"
#include "foundation/zuExport.h"
#include "foundation/zuMethod.h"

#include <array>
#include <string>
#include <string_view>

namespace korvane {

/// A cell that is about to be painted, and how.
struct TCellRender
{
    /// The cell; all are observed.
    TBabGridCell *Grid = nullptr;
    TAxisContentItem *Column = nullptr;
    TAxisContentItem *Row = nullptr;
    TBabCell *Cell = nullptr; ///< nil where nothing was put into the crossing
    TRect Rect;               ///< with its lines, at the right and below
    /// How it is marked; the colours say so already.
    bool Selected = false;
    bool Focused = false;
    TColor BackColor = clWindow;
    TColor FrontColor = clWindowText;
    TFont Font{};       ///< its colour does not count
    std::string Text{}; ///< that it shows
};
/// May change colours, font and text. Like the next one for cells behind the heads that hold no
/// grid, which move as they are when the view scrolls.
using TOnBeforeRenderCell = TMethod<void(TObject *theGrid, TCellRender &theCell)>;
/// Draws the content itself and sets `handled`, or leaves it to the grid. The canvas is clipped to
/// the cell without its lines, which are the grid's, and filled.
using TOnUserRenderCell =
    TMethod<void(TObject *theGrid, TCanvas &canvas, const TCellRender &theCell, bool &handled)>;

/// What a paint shows beyond the cells themselves.
struct TGridPaintState
{
    TGridCellAt Focus;                  ///< the cell with the focus; no grid for none
    bool HasFocus = false;              ///< the view has the keyboard
    bool FocusRects = true;             ///< a frame marks it
    const TImageList *Images = nullptr; ///< nil draws none
    TObject *View = nullptr;            ///< what handlers get as the grid
    /// Of the core; empty ones are skipped.
    TOnBeforeRenderCell BeforeRender;
    TOnUserRenderCell UserRender;
    bool Marks = true;                ///< selection, focus and the focus' row
    TMethod<void()> FontChosen = {};  ///< after every change of the canvas' font
    bool TreeLines = true;            ///< join nodes with their parents
    TGridHot Hot = {};                ///< what is marked under the mouse
    std::string_view MarkedText = {}; ///< marked where it stands
};

/// Paints once: the blocks of the core, fixed and scrolling parts from the same bands.
class KORVANE_CORE_API TBabGridPainter
{
public:
    /// All are observed and outlive the painter.
    TBabGridPainter(TBabGridLayoutCore &core, TCanvas &canvas, const TGridPaintState &state);

    /// Paints everything that the core shows.
    void Paint();

private:
    struct TColumnLook
    {
        const TBabColumn *Column = nullptr;
        TColumnKind Kind = TColumnKind::tckSimpleEdit;
        bool Groups = false;
        bool Grids = false; ///< its cells hold grids
        bool Tree = false;
    };
    struct TCellPlace
    {
        const TGridBlock &Block;
        const TGridBand &Column;
        const TGridBand &Row;
        TRect Rect;
    };
    struct TTextLook
    {
        bool Right = false;
        bool Center = false;
        bool VertCenter = true;
        bool Bottom = false;
        bool Wrap = false;
        bool Ellipsis = false;
    };

    void PaintBlock(const TGridBlock &block);
    void PaintPart(const TGridBlock &block, bool fixedColumns, bool fixedRows);
    void PaintColumn(const TGridBlock &block, const TGridBand &column, bool fixedRows);
    void PaintCell(const TCellPlace &place, const TColumnLook &look, const TRect &textRect);
    void PaintContent(const TCellPlace &place, const TColumnLook &look, const TRect &textRect,
                      const TCellRender &cell);
    void PaintSubGrid(const TCellPlace &place);
    bool PaintedByUser(const TCellRender &cell);
    void PaintHeadGround(const TRect &rect, bool hot);
    void PaintHeader(const TCellPlace &place, const TColumnLook &look);
    void PaintRowHeader(const TCellPlace &place);
    void PaintTreeLines(const TCellPlace &place, TColor color);
    void PaintTreeButton(const TCellPlace &place, TColor color);
    void PaintSortMark(const TRect &rect, TSortMark mark);
    void PaintCheckBox(const TRect &box, bool checked, TColor color);
    void PaintText(std::string_view text, const TRect &rect, const TTextLook &look);
    bool SurelyFits(std::string_view text, int width);
    void PaintLine(std::string_view text, const TRect &rect, int top, const TTextLook &look);
    void PaintFrame(const TRect &rect, const TLayoutProp &layout);
    void PaintFrameLine(TPoint from, TPoint to, TFrameOption side, const TLayoutProp &layout);
    /// Along the inner edge of a cell.
    void RightLine(const TRect &rect, TColor color);
    void BottomLine(const TRect &rect, TColor color);
    void PaintLines(const TCellPlace &place, bool joinedBelow);
    void PaintFocus(const TGridBlock &block);
    bool IsHotRow(const TCellPlace &place) const;
    bool IsHot(const TCellPlace &place, TGridPart part) const;
    void PaintMarks(std::string_view line, TPoint at, const TRect &rect);
    void SetFont(TFont font, TColor color);
    void ChooseFont(const TFont &font);
    bool JoinsAbove(const TGridBlock &block, const TGridBand &column, const TGridBand &row) const;
    static TTextLook LookOf(const TLayoutProp &layout);
    bool IsInClip(const TRect &rect) const;
    TColor Mixed(TColor from, TColor to, unsigned percent) const;

    TBabGridLayoutCore &m_core;
    TCanvas &m_canvas;
    TGridPaintState m_state;
    bool m_mirrored; ///< what is not symmetrical and not to be mirrored is turned back
    std::array<int, 128> m_advances{}; ///< of characters in the canvas' font; 0 where unknown
    TFont m_gridFont;
    TColor m_cellColor = clWindow; ///< of the cell that is being painted
    TColor m_window;
    TColor m_lines;
    TColor m_headerLines;
};

} // namespace korvane
