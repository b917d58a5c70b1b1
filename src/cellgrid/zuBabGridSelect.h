// The core of a grid view: focus, selection and the keyboard.
#pragma once

#include "cellgrid/zuBabGridLayout.h"
#include "cellgrid/zuBabGridPaint.h"
#include "foundation/zuExport.h"
#include "foundation/zuPublished.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

/// Where the focus can go.
enum class TGridMove : std::uint8_t {
    Left,
    Right,
    Up,
    Down,
    PageUp,
    PageDown,
    RowBegin,
    RowEnd,
    First,
    Last,
    Next, ///< to the right, then to the next row
    Previous,
    Enter, ///< into the grid in the cell
    Leave  ///< to the cell that the grid is in
};

/// What becomes of the selection when a cell is chosen.
enum class TGridChoice : std::uint8_t {
    Set,    ///< the cell alone
    Extend, ///< the block from the anchor to the cell
    Toggle, ///< the cell beside the others, or no longer
    Keep    ///< as it is
};

/// One grid at a time has a selection; the focus is a cell of any grid.
class KORVANE_CORE_API TBabGridSelectCore : public TBabGridLayoutCore
{
public:
    using TBabGridLayoutCore::TBabGridLayoutCore;

    /// An event without more to say.
    using TNotify = TMethod<void(TObject *theGrid)>;

    /// Whether whole rows are selected; false by default. A change clears the selection.
    bool RowSelect() const { return m_rowSelect; }
    void SetRowSelect(bool value);
    /// Whether more than one cell or row can be selected; false by default. A change clears the
    /// selection.
    bool MultiSelect() const { return m_multiSelect; }
    void SetMultiSelect(bool value);
    /// Whether the cell with the focus has a frame; true by default.
    bool FocusRects() const { return m_focusRects; }
    void SetFocusRects(bool value);

    /// Whether the row, the header or the button under the mouse is marked.
    bool HotTrack() const { return m_hotTrack; }
    void SetHotTrack(bool value);
    /// Whether lines in the column of a tree join nodes with their parents.
    bool TreeLines() const { return m_treeLines; }
    void SetTreeLines(bool value);

    /// The cell with the focus; no grid when there is none.
    TGridCellAt FocusCell() const { return m_focus; }
    /// Gives a cell behind the heads the focus, selects by the choice and scrolls to it. False when
    /// there is no such cell, or it is hidden.
    bool ChooseCell(const TGridCellAt &at, TGridChoice choice);
    /// Selects from the anchor's to the cell's column or row as a whole.
    void SelectColumn(const TGridCellAt &at, TGridChoice choice);
    /// Selects the whole row, beside others when several may be, or nothing of it; the focus stays.
    void SelectRow(const TGridCellAt &at, bool selected) override;
    /// All cells behind the heads of the grid with the focus; nothing without MultiSelect.
    void SelectAll();
    /// The focus stays.
    void ClearSelection();
    /// Whether the crossing is selected, whether it is in view or not.
    bool IsSelected(const TGridCellAt &at) const
    {
        return at.Grid != nullptr && at.Grid->Selection().IsSelected(at.Column, at.Row);
    }
    /// The grid that has the selection; the view's when nothing is selected.
    TBabGridCell &SelectedGrid();

    /// False when there is nowhere to go.
    bool MoveFocus(TGridMove move, TGridChoice choice);
    /// Expands or collapses the node of the crossing's row. False when there is nothing to do.
    bool ExpandNode(const TGridCellAt &at, bool expand);
    /// Expands the node of the crossing's row and all below it.
    bool ExpandNodeBelow(const TGridCellAt &at);
    /// What Left and Right do in the column of a tree beyond moving: expand, collapse, and go to
    /// the parent from where Left leads nowhere. False when they move.
    bool MoveInTree(TGridMove move);
    /// The cell that a move leads to.
    TGridCellAt CellAfter(TGridMove move);
    /// Gives the focus to the next row, from the focus on and around, whose text in the focus'
    /// column begins with the text, whatever the case of ASCII letters. Searches what is loaded.
    bool FindText(std::string_view text, bool fromNext);

    /// The selected block of cells as lines of tab-separated texts, and as an HTML table. Hidden
    /// columns and rows are left out; without a selection it is the focused cell.
    std::string SelectionAsText();
    std::string SelectionAsHtml();

    /// Where a paint goes. On paper, and in a print slice, there are no marks of selection, focus,
    /// mouse and search, and the picture on screen is left as it is.
    enum class TPaintOn : std::uint8_t { Screen, Paper };
    /// Paints everything on the canvas, whose font is the grid's.
    void Paint(TCanvas &canvas, TPaintOn on = TPaintOn::Screen);

    /// Each cell behind the heads is about to be painted; see the types. Must not change the grid.
    TOnBeforeRenderCell OnBeforeRenderCell;
    TOnUserRenderCell OnUserRenderCell;
    /// What is selected, the cell with the focus, or the scroll position is another one now.
    TPublished<TNotify> OnSelectionChanged;
    TPublished<TNotify> OnFocusCellChanged;
    TPublished<TNotify> OnTopLeftChanged;
    TNotify OnInvalidate; ///< rows may lie elsewhere from the next layout on

protected:
    void TopLeftChanged() override { OnTopLeftChanged(this); }
    void LayoutLost() override { OnInvalidate(this); }
    void HiddenChanged() override;
    void AddToPictureMove(TGridPictureMove &move) override;
    void CountChanged(TAxisContentList *list, int index, int by) override;
    void ItemsMoved(TAxisContentList *list, int from, int to, int count) override;
    void RowsReordered(TAxisContentList *list, int first, const std::vector<int> &order) override;
    void SubGridGoes(TBabGridCell *grid) override;
    void SelectionEventOf(TBabGridCell &grid) override;
    void SelectionEventFired() override { OnSelectionChanged(this); }
    /// Another cell has the focus; before OnFocusCellChanged.
    virtual void FocusCellMoved() {}
    /// Before the focus goes to another cell; false keeps it.
    virtual bool MayLeaveCell() { return true; }
    /// Where the mouse rests on the view; nothing when it is elsewhere, or held.
    void SetMousePlace(std::optional<TPoint> place);
    /// What the view looks for now; painted where it stands.
    virtual std::string_view MarkedText() const { return {}; }
    /// Whether there is such a cell, behind the heads.
    bool IsCell(const TGridCellAt &at) const;
    /// The cell that the grid is of another grid; nothing for the view's.
    TGridCellAt CellOf(TBabGridCell &grid) const;

private:
    void Select(const TGridCellAt &at, TGridChoice choice);
    TCellRange RangeTo(const TGridCellAt &at) const;
    void SelectionChanged(TBabGridCell &grid);
    void SetFocusCell(const TGridCellAt &at);
    TGridCellAt RowAway(int rows) const;
    TGridCellAt ColumnAway(int columns) const;
    TGridCellAt PageAway(int direction);
    TGridCellAt FirstCell() const;
    TGridCellAt LastCell() const;
    static IBabTreeRow *NodeOfRow(const TGridCellAt &at);
    TGridHot HotNow();
    TRect StripOf(const TGridHot &hot);
    template <typename BeginRow, typename Visit>
    void ForEachSelected(const BeginRow &beginRow, const Visit &visit);

    TGridCellAt m_focus;
    TGridCellAt m_anchor;
    TBabGridCell *m_selectedGrid = nullptr;
    std::optional<TPoint> m_mouse;
    TGridHot m_hot; ///< as it was painted last
    bool m_rowSelect = false;
    bool m_multiSelect = false;
    bool m_focusRects = true;
    bool m_hotTrack = true;
    bool m_treeLines = true;
};

} // namespace korvane
