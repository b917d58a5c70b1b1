#include "cellgrid/zuBabGridSelect.h"

#include "cellgrid/zuAxisPlace.h"

#include <algorithm>
#include <utility>

namespace korvane {

void TBabGridSelectCore::SetRowSelect(bool value)
{
    if (value != m_rowSelect) {
        m_rowSelect = value;
        ClearSelection();
        InvalidatePicture();
    }
}

void TBabGridSelectCore::SetMultiSelect(bool value)
{
    if (value != m_multiSelect) {
        m_multiSelect = value;
        ClearSelection();
    }
}

void TBabGridSelectCore::SetFocusRects(bool value)
{
    if (value != m_focusRects) {
        m_focusRects = value;
        InvalidatePicture();
    }
}

void TBabGridSelectCore::SetTreeLines(bool value)
{
    if (value != m_treeLines) {
        m_treeLines = value;
        InvalidatePicture();
    }
}

// --- selecting -----------------------------------------------------------------------------------

bool TBabGridSelectCore::IsCell(const TGridCellAt &at) const
{
    return at.Grid != nullptr && at.Column >= at.Grid->Columns().FixedCount()
           && at.Column < at.Grid->Columns().Count() && at.Row >= at.Grid->Rows().FixedCount()
           && at.Row < at.Grid->Rows().Count();
}

TBabGridCell &TBabGridSelectCore::SelectedGrid()
{
    return m_selectedGrid != nullptr ? *m_selectedGrid : RootCell();
}

void TBabGridSelectCore::SelectionChanged(TBabGridCell &grid)
{
    RootCell().SelectionEvent.TriggerEvent(&grid);
}

bool TBabGridSelectCore::ChooseCell(const TGridCellAt &at, TGridChoice choice)
{
    if (!IsCell(at) || at.Grid->Rows().SizeAt(at.Row) == 0
        || at.Grid->Columns().SizeAt(at.Column) == 0) {
        return false;
    }
    if (at != m_focus) {
        if (!MayLeaveCell() || !IsCell(at)) {
            return false;
        }
        SetFocusCell(at);
    }
    if (IsCell(at)) {
        Select(at, choice);
        MakeVisible(at);
    }
    return true;
}

TCellRange TBabGridSelectCore::RangeTo(const TGridCellAt &at) const
{
    const TGridCellAt from = m_anchor.Grid == at.Grid && m_multiSelect ? m_anchor : at;
    TCellRange range{std::min(from.Column, at.Column), std::min(from.Row, at.Row),
                     std::max(from.Column, at.Column), std::max(from.Row, at.Row)};
    if (m_rowSelect) {
        range.FirstColumn = 0;
        range.LastColumn = TCellSelection::kAllColumns;
    }
    return range;
}

void TBabGridSelectCore::Select(const TGridCellAt &at, TGridChoice choice)
{
    if (choice == TGridChoice::Keep) {
        return;
    }
    if (m_selectedGrid != nullptr && m_selectedGrid != at.Grid) {
        m_selectedGrid->SetSelected(false);
    }
    m_selectedGrid = at.Grid;
    TCellSelection &selection = at.Grid->Selection();
    const bool toggle = choice == TGridChoice::Toggle && m_multiSelect;
    if (choice != TGridChoice::Extend || m_anchor.Grid != at.Grid) {
        m_anchor = at;
    }
    if (toggle && selection.IsSelected(at.Column, at.Row)) {
        selection.Deselect(RangeTo(at));
    } else {
        if (!toggle) {
            selection.Clear();
        }
        selection.Select(RangeTo(at));
    }
    SelectionChanged(*at.Grid);
}

void TBabGridSelectCore::SelectColumn(const TGridCellAt &at, TGridChoice choice)
{
    const TAxisContentList &rows = at.Grid->Rows();
    const int first = rows.FixedCount();
    if (m_rowSelect || !m_multiSelect || rows.Count() <= first) {
        return;
    }
    const int from =
        choice == TGridChoice::Extend && m_anchor.Grid == at.Grid ? m_anchor.Column : at.Column;
    if (choice != TGridChoice::Toggle) {
        ClearSelection();
    }
    m_selectedGrid = at.Grid;
    m_anchor = {at.Grid, from, first};
    at.Grid->Selection().Select(
        {std::min(from, at.Column), first, std::max(from, at.Column), rows.Count() - 1});
    SelectionChanged(*at.Grid);
}

void TBabGridSelectCore::SelectRow(const TGridCellAt &at, bool selected)
{
    if (at.Grid == nullptr || at.Row < at.Grid->Rows().FixedCount()) {
        return;
    }
    TCellSelection &selection = at.Grid->Selection();
    if (selected && (!m_multiSelect || m_selectedGrid != at.Grid)) {
        ClearSelection();
    }
    const TCellRange row{0, at.Row, TCellSelection::kAllColumns, at.Row};
    selected ? selection.Select(row) : selection.Deselect(row);
    SelectionChanged(*at.Grid);
}

/// One grid at a time has a selection, whoever changed it.
void TBabGridSelectCore::SelectionEventOf(TBabGridCell &grid)
{
    if (!grid.Selection().Empty() && &grid != m_selectedGrid) {
        TBabGridCell *before = std::exchange(m_selectedGrid, &grid);
        if (before != nullptr) {
            before->SetSelected(false);
        }
    }
}

void TBabGridSelectCore::SelectAll()
{
    if (m_multiSelect) {
        TBabGridCell &grid = m_focus ? *m_focus.Grid : RootCell();
        if (m_selectedGrid != nullptr && m_selectedGrid != &grid) {
            m_selectedGrid->SetSelected(false);
        }
        m_selectedGrid = &grid;
        grid.SetSelected(true);
    }
}

void TBabGridSelectCore::ClearSelection()
{
    if (TBabGridCell *grid = std::exchange(m_selectedGrid, nullptr)) {
        grid->SetSelected(false);
    }
}

void TBabGridSelectCore::SetFocusCell(const TGridCellAt &at)
{
    if (at != m_focus) {
        m_focus = at;
        InvalidatePicture();
        FocusCellMoved();
        OnFocusCellChanged(this);
    }
}

// --- following changes ---------------------------------------------------------------------------

void TBabGridSelectCore::CountChanged(TAxisContentList *list, int index, int by)
{
    const bool rows = list->IsRowAxis();
    for (TGridCellAt *at : {&m_focus, &m_anchor}) {
        if (at->Grid != &list->getGridCell()) {
            continue;
        }
        int &place = rows ? at->Row : at->Column;
        const int shifted = ShiftedPlace(place, index, by);
        // What stood there is gone: its neighbour takes the focus.
        place = shifted >= 0 ? shifted : std::min(index, list->Count() - 1);
        if (!IsCell(*at)) {
            *at = {};
        }
    }
}

void TBabGridSelectCore::ItemsMoved(TAxisContentList *list, int from, int to, int count)
{
    for (TGridCellAt *at : {&m_focus, &m_anchor}) {
        if (at->Grid == &list->getGridCell()) {
            int &place = list->IsRowAxis() ? at->Row : at->Column;
            place = PlaceAfterMove(place, from, to, count);
        }
    }
}

void TBabGridSelectCore::RowsReordered(TAxisContentList *list, int first,
                                       const std::vector<int> &order)
{
    for (TGridCellAt *at : {&m_focus, &m_anchor}) {
        if (at->Grid == &list->getGridCell()) {
            at->Row = PlaceAfterReorder(at->Row, first, order);
        }
    }
}

/// The focus goes from a hidden cell to the nearest one that is shown, from that of a collapsed
/// node's child to the node.
void TBabGridSelectCore::HiddenChanged()
{
    const auto shown = [](const TAxisContentList &list, int index) {
        const int before = list.NearestShown(index, -1);
        return before >= list.FixedCount() ? before : list.NearestShown(index, 1);
    };
    if (m_focus) {
        const TGridCellAt at{m_focus.Grid, shown(m_focus.Grid->Columns(), m_focus.Column),
                             shown(m_focus.Grid->Rows(), m_focus.Row)};
        if (at != m_focus && IsCell(at)) {
            SetFocusCell(at);
            Select(at, m_selectedGrid == at.Grid ? TGridChoice::Set : TGridChoice::Keep);
        }
    }
}

void TBabGridSelectCore::SubGridGoes(TBabGridCell *grid)
{
    if (m_focus.Grid == grid) {
        m_focus = {};
    }
    if (m_anchor.Grid == grid) {
        m_anchor = {};
    }
    if (m_hot.At.Grid == grid) {
        m_hot = {};
    }
    if (m_selectedGrid == grid) {
        m_selectedGrid = nullptr;
    }
    LayoutOutOfDate();
}

// --- painting ------------------------------------------------------------------------------------

/// The dots of the focus rectangle stay where they are, and in a grid in a cell the row's mark.
void TBabGridSelectCore::AddToPictureMove(TGridPictureMove &move)
{
    TGridCellAt at = m_focus;
    while (at && at.Grid != &RootCell()) {
        at = CellOf(*at.Grid);
    }
    const TRect rect = at ? CellRect(at).Intersected(move.Area) : TRect();
    if (!rect.IsEmpty()) {
        move.Anew.push_back(rect);
    }
    if (const TGridHot now = HotNow(); now != m_hot) {
        for (const TRect &strip : {StripOf(m_hot), StripOf(now)}) {
            if (!strip.IsEmpty()) {
                move.Anew.push_back(strip);
            }
        }
    }
}

void TBabGridSelectCore::Paint(TCanvas &canvas, TPaintOn on)
{
    EnsureLayout();
    TGridPaintState state{m_focus, Host().GridHasFocus(), m_focusRects,    Host().GridImages(),
                          this,    OnBeforeRenderCell,    OnUserRenderCell};
    state.TreeLines = m_treeLines;
    if (const TGridPrintSlice *print = PrintSlice(); print != nullptr || on == TPaintOn::Paper) {
        state.HasFocus = false;
        state.Marks = false;
        state.FontChosen = print != nullptr ? print->FontChosen : TMethod<void()>();
    } else {
        state.MarkedText = MarkedText();
        state.Hot = m_hot = HotNow();
        PictureFollows();
    }
    TBabGridPainter(*this, canvas, state).Paint();
}

} // namespace korvane
