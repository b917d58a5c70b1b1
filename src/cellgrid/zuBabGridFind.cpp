#include "cellgrid/zuBabGridFind.h"

#include "cellgrid/zuCellText.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

/// The nearest row from the index on, in steps of 1 or -1, that is searched; -1 when there is none.
int SearchedRow(const TBabGridCell &grid, int index, int step)
{
    const TAxisContentList &rows = grid.Rows();
    const int fixed = rows.FixedCount();
    const int begin = fixed + rows.UnloadedBefore();
    const int end = rows.Count() - rows.UnloadedAfter();
    index = step > 0 ? std::max(index, begin) : std::min(index, end - 1);
    while (index >= begin && index < end) {
        index = rows.NearestLoaded(index, step);
        const TAxisContentItem *row = index >= begin ? rows.FindLoaded(index) : nullptr;
        if (row == nullptr) {
            return -1;
        }
        if (!row->GetHide()) {
            return index;
        }
        const IBabTreeRow *node = grid.TreeRowOf(*row);
        if (node != nullptr && node->CanShowTreeRow()) {
            return index;
        }
        index = node != nullptr ? index + step : rows.NearestShown(index, step);
    }
    return -1;
}

TBabGridCell *GridIn(const TGridCellAt &at)
{
    const TAxisContentItem *column = at.Grid->Columns().FindLoaded(at.Column);
    const TAxisContentItem *row = at.Grid->Rows().FindLoaded(at.Row);
    return column != nullptr && row != nullptr
               ? dynamic_cast<TBabGridCell *>(at.Grid->FindCell(*column, *row))
               : nullptr;
}

int ShownColumn(const TBabGridCell &grid, int index, int step)
{
    const int column = grid.Columns().NearestShown(index, step);
    return column >= grid.Columns().FixedCount() ? column : -1;
}

bool IsAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80U; });
}

} // namespace

TBabGridFind::TBabGridFind(IBabGridHost &host, IBabGridEditHost &editHost)
    : TBabGridEdit(host, editHost)
{
    Follow(m_start);
    Follow(m_at);
}

// --- the way -------------------------------------------------------------------------------------

TGridCellAt TBabGridFind::FirstIn(TBabGridCell &grid) const
{
    const TGridCellAt at{&grid, ShownColumn(grid, grid.Columns().FixedCount(), 1),
                         SearchedRow(grid, grid.Rows().FixedCount(), 1)};
    return at.Column < 0 || at.Row < 0 ? TGridCellAt() : at;
}

TGridCellAt TBabGridFind::LastIn(TBabGridCell &grid) const
{
    const TGridCellAt at{&grid, ShownColumn(grid, grid.Columns().Count() - 1, -1),
                         SearchedRow(grid, grid.Rows().Count() - 1, -1)};
    return at.Column < 0 || at.Row < 0 ? TGridCellAt() : at;
}

/// A grid's cells come behind the cell that it is.
TGridCellAt TBabGridFind::NextCell(TGridCellAt at) const
{
    if (TBabGridCell *inner = GridIn(at)) {
        if (const TGridCellAt first = FirstIn(*inner)) {
            return first;
        }
    }
    for (; at; at = CellOf(*at.Grid)) {
        const int column = ShownColumn(*at.Grid, at.Column + 1, 1);
        if (column >= 0) {
            return {at.Grid, column, at.Row};
        }
        const int row = SearchedRow(*at.Grid, at.Row + 1, 1);
        if (row >= 0) {
            return {at.Grid, FirstIn(*at.Grid).Column, row};
        }
    }
    return {};
}

TGridCellAt TBabGridFind::DeepestLast(TGridCellAt at) const
{
    while (TBabGridCell *inner = at ? GridIn(at) : nullptr) {
        const TGridCellAt last = LastIn(*inner);
        if (!last) {
            break;
        }
        at = last;
    }
    return at;
}

TGridCellAt TBabGridFind::PreviousCell(TGridCellAt at) const
{
    const int column = ShownColumn(*at.Grid, at.Column - 1, -1);
    if (column >= 0) {
        return DeepestLast({at.Grid, column, at.Row});
    }
    const int row = SearchedRow(*at.Grid, at.Row - 1, -1);
    if (row >= 0) {
        return DeepestLast({at.Grid, LastIn(*at.Grid).Column, row});
    }
    return CellOf(*at.Grid);
}

/// The cell that is looked at next; nothing past the end.
TGridCellAt TBabGridFind::Step(const TGridCellAt &from) const
{
    return m_from == TGridFindFrom::Previous ? PreviousCell(from) : NextCell(from);
}

// --- searching -----------------------------------------------------------------------------------

void TBabGridFind::BeginFind(std::string text, TGridFindFrom from)
{
    if (text != m_text) {
        m_text = std::move(text);
        m_folded = IsAscii(m_text) ? m_text : FoldCase(m_text);
        InvalidatePicture();
    }
    m_from = from;
    m_wentRound = false;
    m_start = IsCell(FocusCell()) ? FocusCell() : FirstIn(RootCell());
    m_at = m_start;
    m_lookHere = from == TGridFindFrom::Here || !FocusCell();
    m_state = m_text.empty() || !m_at ? TGridFindState::Idle : TGridFindState::Searching;
    if (m_text.empty() || !OnFind) {
        return;
    }
    TGridFind find{m_text, from, false, {}};
    const std::weak_ptr<char> life = Life();
    OnFind(this, find);
    if (!life.expired() && find.Handled) {
        m_at = find.Found;
        m_state = m_at ? Choose() : End(TGridFindState::NotFound);
    }
}

void TBabGridFind::CancelFind()
{
    if (m_state == TGridFindState::Searching) {
        End(TGridFindState::Idle);
    }
}

TGridFindState TBabGridFind::End(TGridFindState state)
{
    m_start = m_at = {};
    return m_state = state;
}

TGridFindState TBabGridFind::FindOn(int cells)
{
    const std::weak_ptr<char> life = Life();
    for (; m_state == TGridFindState::Searching && cells > 0; --cells) {
        if (!m_at) {
            return End(TGridFindState::Idle); // the cell is gone
        }
        const bool here = std::exchange(m_lookHere, false);
        TGridCellAt at = here ? m_at : Step(m_at);
        if (!at) {
            at = m_from == TGridFindFrom::Previous ? DeepestLast(LastIn(RootCell()))
                                                   : FirstIn(RootCell());
            if (!at || std::exchange(m_wentRound, true)) {
                return End(TGridFindState::NotFound);
            }
        }
        m_at = at;
        const bool matches = Matches(m_at);
        if (life.expired()) {
            return TGridFindState::Idle;
        }
        if (matches && m_at) {
            return Choose();
        }
        if (m_at == m_start && !here) {
            return End(TGridFindState::NotFound);
        }
    }
    return m_state;
}

bool TBabGridFind::Matches(const TGridCellAt &at) const
{
    TAxisContentItem *column = at.Grid->Columns().FindLoaded(at.Column);
    TAxisContentItem *row = at.Grid->Rows().FindLoaded(at.Row);
    const TBabColumn *info = column != nullptr ? ColumnOf(*column) : nullptr;
    const bool noText =
        info != nullptr
        && (info->Kind() == TColumnKind::tckBool || HoldsGrids(info->Kind(), at.Grid->ShowsTree()));
    if (column == nullptr || row == nullptr || noText) {
        return false;
    }
    const std::weak_ptr<char> life = Life();
    const std::string text = at.Grid->CellText(*column, *row);
    if (life.expired()) {
        return false;
    }
    return IsAscii(m_text) ? FindCaseless(text, m_text) != std::string::npos
                           : FoldCase(text).find(m_folded) != std::string::npos;
}

TGridFindState TBabGridFind::Choose()
{
    const std::weak_ptr<char> life = Life();
    const TAxisContentItem *row = m_at.Grid->Rows().FindLoaded(m_at.Row);
    IBabTreeRow *node = row != nullptr && row->GetHide() ? m_at.Grid->TreeRowOf(*row) : nullptr;
    if (node != nullptr) {
        node->ShowTreeRow();
    }
    if (life.expired()) {
        return TGridFindState::Idle;
    }
    const bool chosen = m_at && ChooseCell(m_at, TGridChoice::Set);
    if (life.expired()) {
        return TGridFindState::Idle;
    }
    return End(chosen ? TGridFindState::Found : TGridFindState::NotFound);
}

} // namespace korvane
