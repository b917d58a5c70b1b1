// Moving the focus by keys, in trees and to what is typed.
#include "cellgrid/zuBabGridSelect.h"

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

IBabTreeRow *TBabGridSelectCore::NodeOfRow(const TGridCellAt &at)
{
    const TAxisContentItem *row = at ? at.Grid->Rows().FindLoaded(at.Row) : nullptr;
    return row != nullptr ? at.Grid->TreeRowOf(*row) : nullptr;
}

bool TBabGridSelectCore::ExpandNode(const TGridCellAt &at, bool expand)
{
    IBabTreeRow *node = NodeOfRow(at);
    if (node == nullptr || !node->HasTreeButton() || node->IsTreeExpanded() == expand
        || !MayLeaveCell()) {
        return false;
    }
    node = NodeOfRow(at); // leaving the cell may have changed the rows
    if (node != nullptr) {
        node->SetTreeExpanded(expand);
    }
    return true;
}

bool TBabGridSelectCore::ExpandNodeBelow(const TGridCellAt &at)
{
    if (NodeOfRow(at) == nullptr || !MayLeaveCell()) {
        return false;
    }
    IBabTreeRow *node = NodeOfRow(at);
    if (node != nullptr) {
        node->ExpandTreeBelow();
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
    const TAxisContentList &rows = start.Grid->Rows();
    TAxisContentItem *column = start.Grid->Columns().getAxisContentItem(start.Column);
    const int fixed = rows.FixedCount();
    // From the focus to the end, then from the beginning; at last the focus itself once more.
    for (const auto &[first, last] : {std::pair(start.Row + (fromNext ? 1 : 0), rows.Count() - 1),
                                      std::pair(fixed, start.Row - (fromNext ? 0 : 1))}) {
        int row = column != nullptr ? rows.NearestLoaded(first, 1) : -1;
        for (; row >= 0 && row <= last; row = rows.NearestLoaded(row + 1, 1)) {
            TAxisContentItem *item = rows.FindLoaded(row);
            if (item != nullptr && !item->GetHide()
                && BeginsWith(start.Grid->CellText(*column, *item), text)) {
                return ChooseCell({start.Grid, start.Column, row}, TGridChoice::Set);
            }
        }
    }
    return false;
}

} // namespace korvane
