#include "cellgrid/zuBabGridSelect.h"

#include "cellgrid/zuAxisPlace.h"
#include "cellgrid/zuCellTable.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

bool BeginsWith(std::string_view text, std::string_view beginning)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return text.size() >= beginning.size()
           && std::equal(beginning.begin(), beginning.end(), text.begin(),
                         [lower](char a, char b) { return lower(a) == lower(b); });
}

} // namespace

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

// --- selecting
// ------------------------------------------------------------------------------------

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

// --- following changes
// ----------------------------------------------------------------------------

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

void TBabGridSelectCore::ItemMoved(TAxisContentList *list, int from, int to)
{
    for (TGridCellAt *at : {&m_focus, &m_anchor}) {
        if (at->Grid == &list->getGridCell()) {
            int &place = list->IsRowAxis() ? at->Row : at->Column;
            place = PlaceAfterMove(place, from, to);
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
    if (m_selectedGrid == grid) {
        m_selectedGrid = nullptr;
    }
    LayoutOutOfDate();
}

// --- keyboard
// -------------------------------------------------------------------------------------

TGridCellAt TBabGridSelectCore::FirstCell() const
{
    TBabGridCell *grid = m_focus ? m_focus.Grid : const_cast<TBabGridCellForViewer *>(&RootCell());
    const TGridCellAt at{grid, grid->Columns().NearestShown(grid->Columns().FixedCount(), 1),
                         grid->Rows().NearestShown(grid->Rows().FixedCount(), 1)};
    return IsCell(at) ? at : TGridCellAt();
}

TGridCellAt TBabGridSelectCore::LastCell() const
{
    TBabGridCell *grid = m_focus ? m_focus.Grid : const_cast<TBabGridCellForViewer *>(&RootCell());
    const TGridCellAt at{grid, grid->Columns().NearestShown(grid->Columns().Count() - 1, -1),
                         grid->Rows().NearestShown(grid->Rows().Count() - 1, -1)};
    return IsCell(at) ? at : TGridCellAt();
}

TGridCellAt TBabGridSelectCore::ColumnAway(int columns) const
{
    const TGridCellAt at{m_focus.Grid,
                         m_focus.Grid->Columns().NearestShown(m_focus.Column + columns, columns),
                         m_focus.Row};
    return IsCell(at) ? at : TGridCellAt();
}

TGridCellAt TBabGridSelectCore::RowAway(int rows) const
{
    const TGridCellAt at{m_focus.Grid, m_focus.Column,
                         m_focus.Grid->Rows().NearestShown(m_focus.Row + rows, rows)};
    return IsCell(at) ? at : TGridCellAt();
}

/// The cell that lies a page further, less one row, or the last one on the way.
TGridCellAt TBabGridSelectCore::PageAway(int direction)
{
    const TAxisContentList &rows = m_focus.Grid->Rows();
    const int fixed = rows.FixedCount();
    const int page = std::max(1, PageSize().Height - rows.SizeAt(m_focus.Row));
    const std::int64_t begin = rows.OffsetOf(fixed);
    const std::int64_t wanted =
        std::clamp<std::int64_t>(rows.OffsetOf(m_focus.Row) + std::int64_t{direction} * page, begin,
                                 std::max(begin, rows.TotalSize() - 1));
    const TGridCellAt at{m_focus.Grid, m_focus.Column, rows.IndexAt(wanted)};
    return IsCell(at) && at.Row != m_focus.Row ? at : RowAway(direction);
}

/// The cell of the parent that the grid is.
TGridCellAt TBabGridSelectCore::CellOf(TBabGridCell &grid) const
{
    TBabGridCell *parent = grid.GridCell();
    if (parent == nullptr) {
        return {};
    }
    return {parent, parent->Columns().IndexOf(*grid.Column()), parent->Rows().IndexOf(*grid.Row())};
}

TGridCellAt TBabGridSelectCore::CellAfter(TGridMove move)
{
    if (!m_focus) {
        return move == TGridMove::Leave ? TGridCellAt() : FirstCell();
    }
    const TGridCellAt first = FirstCell();
    const TGridCellAt last = LastCell();
    switch (move) {
    case TGridMove::Left:
        return ColumnAway(-1);
    case TGridMove::Right:
        return ColumnAway(1);
    case TGridMove::Up:
    case TGridMove::Down: {
        const TGridCellAt next = RowAway(move == TGridMove::Up ? -1 : 1);
        return next ? next : CellOf(*m_focus.Grid); // out of a grid in a cell
    }
    case TGridMove::PageUp:
        return PageAway(-1);
    case TGridMove::PageDown:
        return PageAway(1);
    case TGridMove::RowBegin:
        return {m_focus.Grid, first.Column, m_focus.Row};
    case TGridMove::RowEnd:
        return {m_focus.Grid, last.Column, m_focus.Row};
    case TGridMove::First:
        return first;
    case TGridMove::Last:
        return last;
    case TGridMove::Next:
    case TGridMove::Previous: {
        const int step = move == TGridMove::Next ? 1 : -1;
        TGridCellAt next = ColumnAway(step);
        if (!next) {
            next = RowAway(step);
            next.Column = step > 0 ? first.Column : last.Column;
        }
        return next;
    }
    case TGridMove::Enter: {
        const TAxisContentItem *column = m_focus.Grid->Columns().FindLoaded(m_focus.Column);
        const TAxisContentItem *row = m_focus.Grid->Rows().FindLoaded(m_focus.Row);
        auto *inner = column != nullptr && row != nullptr
                          ? dynamic_cast<TBabGridCell *>(m_focus.Grid->FindCell(*column, *row))
                          : nullptr;
        if (inner == nullptr) {
            return {};
        }
        const TGridCellAt at{inner, inner->Columns().NearestShown(inner->Columns().FixedCount(), 1),
                             inner->Rows().NearestShown(inner->Rows().FixedCount(), 1)};
        return IsCell(at) ? at : TGridCellAt();
    }
    case TGridMove::Leave:
        return CellOf(*m_focus.Grid);
    }
    return {};
}

bool TBabGridSelectCore::MoveFocus(TGridMove move, TGridChoice choice)
{
    const TGridCellAt at = CellAfter(move);
    return at && at != m_focus && ChooseCell(at, choice);
}

bool TBabGridSelectCore::ExpandNode(const TGridCellAt &at, bool expand)
{
    const TAxisContentItem *row = at ? at.Grid->Rows().FindLoaded(at.Row) : nullptr;
    IBabTreeRow *node = row != nullptr ? at.Grid->TreeRowOf(*row) : nullptr;
    if (node == nullptr || !node->HasTreeButton() || node->IsTreeExpanded() == expand
        || !MayLeaveCell()) {
        return false;
    }
    // Leaving the cell may have changed the rows.
    row = at.Grid->Rows().FindLoaded(at.Row);
    node = row != nullptr ? at.Grid->TreeRowOf(*row) : nullptr;
    if (node != nullptr) {
        node->SetTreeExpanded(expand);
    }
    return true;
}

bool TBabGridSelectCore::MoveInTree(TGridMove move)
{
    const IBabTreeRow *node = m_focus ? TreeNodeAt(m_focus) : nullptr;
    if (node == nullptr || (move != TGridMove::Left && move != TGridMove::Right)) {
        return false;
    }
    if (ExpandNode(m_focus, move == TGridMove::Right)) {
        return true;
    }
    const TAxisContentItem *parent = node->ParentRow();
    if (move == TGridMove::Right || ColumnAway(-1) || parent == nullptr) {
        return false;
    }
    return ChooseCell({m_focus.Grid, m_focus.Column, m_focus.Grid->Rows().IndexOf(*parent)},
                      TGridChoice::Set);
}

bool TBabGridSelectCore::FindText(std::string_view text, bool fromNext)
{
    const TGridCellAt start = m_focus ? m_focus : FirstCell();
    if (!start || text.empty()) {
        return false;
    }
    TAxisContentList &rows = start.Grid->Rows();
    TAxisContentItem *column = start.Grid->Columns().getAxisContentItem(start.Column);
    const int count = rows.Count() - rows.FixedCount();
    for (int step = fromNext ? 1 : 0; column != nullptr && step < count + (fromNext ? 1 : 0);
         ++step) {
        const int row = rows.FixedCount() + (start.Row - rows.FixedCount() + step) % count;
        TAxisContentItem *item = rows.FindLoaded(row);
        if (item != nullptr && !item->GetHide()
            && BeginsWith(start.Grid->CellText(*column, *item), text)) {
            return ChooseCell({start.Grid, start.Column, row}, TGridChoice::Set);
        }
    }
    return false;
}

// --- copying
// --------------------------------------------------------------------------------------

/// Calls visit(text, selected) for each column with a selected cell, in each row with one.
template <typename BeginRow, typename Visit>
void TBabGridSelectCore::ForEachSelected(const BeginRow &beginRow, const Visit &visit)
{
    TBabGridCell &grid = SelectedGrid();
    TCellSelection selection;
    auto ranges = grid.Selection().Ranges();
    if (ranges.empty() && m_focus.Grid == &grid) {
        ranges.push_back({m_focus.Column, m_focus.Row, m_focus.Column, m_focus.Row});
    }
    const int lastColumn = grid.Columns().Count() - 1;
    std::vector<bool> columns(static_cast<std::size_t>(lastColumn) + 1);
    for (const TCellRange &range : ranges) {
        for (int c = range.FirstColumn; c <= std::min(range.LastColumn, lastColumn); ++c) {
            columns[static_cast<std::size_t>(c)] = c >= grid.Columns().FixedCount();
        }
        selection.Select(range);
    }
    for (int row = selection.NextRow(0); row >= 0; row = selection.NextRow(row + 1)) {
        TAxisContentItem *rowItem = grid.Rows().getAxisContentItem(row);
        if (rowItem == nullptr || rowItem->GetHide()) {
            continue;
        }
        beginRow();
        for (int c = 0; c <= lastColumn; ++c) {
            TAxisContentItem *column = grid.Columns().getAxisContentItem(c);
            if (columns[static_cast<std::size_t>(c)] && column != nullptr && !column->GetHide()) {
                visit(selection.IsSelected(c, row) ? grid.CellText(*column, *rowItem)
                                                   : std::string());
            }
        }
    }
}

std::string TBabGridSelectCore::SelectionAsText()
{
    std::string text;
    bool firstRow = true;
    bool firstCell = true;
    ForEachSelected(
        [&] {
            text += std::exchange(firstRow, false) ? "" : "\n";
            firstCell = true;
        },
        [&](const std::string &cell) {
            text += std::exchange(firstCell, false) ? "" : "\t";
            text += TabbedField(cell);
        });
    return text;
}

std::string TBabGridSelectCore::SelectionAsHtml()
{
    std::string html = "<table>";
    bool firstRow = true;
    ForEachSelected([&] { html += std::exchange(firstRow, false) ? "<tr>" : "</tr>\n<tr>"; },
                    [&](const std::string &cell) {
                        html += "<td>";
                        html += HtmlField(cell);
                        html += "</td>";
                    });
    return html + (firstRow ? "</table>" : "</tr></table>");
}

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
}

void TBabGridSelectCore::Paint(TCanvas &canvas)
{
    EnsureLayout();
    TGridPaintState state{m_focus, Host().GridHasFocus(), m_focusRects,    Host().GridImages(),
                          this,    OnBeforeRenderCell,    OnUserRenderCell};
    if (const TGridPrintSlice *print = PrintSlice()) {
        state.HasFocus = false;
        state.Marks = false;
        state.FontChosen = print->FontChosen;
    } else {
        PictureFollows();
    }
    TBabGridPainter(*this, canvas, state).Paint();
}

} // namespace korvane
