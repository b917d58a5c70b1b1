#include "cellgrid/zuBabGridEdit.h"

#include "cellgrid/zuAxisPlace.h"
#include "cellgrid/zuBabGridFollow.h"
#include "cellgrid/zuBabGridUserChange.h"

#include <algorithm>
#include <utility>

namespace korvane {

TBabGridEdit::TBabGridEdit(IBabGridHost &host, IBabGridEditHost &editHost)
    : TBabGridGestures(host)
    , m_editHost(editHost)
    , m_followed{&m_edited, &m_tabFrom, &m_tabTo}
{
}

void TBabGridEdit::SetReadOnly(bool value)
{
    if (value != m_readOnly) {
        m_readOnly = value;
        CancelEdit();
    }
}

TColumnKind TBabGridEdit::KindOf(const TGridCellAt &at)
{
    const TAxisContentItem *item = at.Grid->Columns().FindLoaded(at.Column);
    const TBabColumn *column = item != nullptr ? ColumnOf(*item) : nullptr;
    return column != nullptr ? column->Kind() : TColumnKind::tckSimpleEdit;
}

bool TBabGridEdit::MayEdit(TGridCellAt at)
{
    TAxisContentItem *column =
        IsCell(at) ? at.Grid->Columns().getAxisContentItem(at.Column) : nullptr;
    TAxisContentItem *row =
        column != nullptr ? at.Grid->Rows().getAxisContentItem(at.Row) : nullptr;
    if (row == nullptr || m_readOnly || HoldsGrids(KindOf(at), at.Grid->ShowsTree())) {
        return false;
    }
    const TBabColumn *info = ColumnOf(*column);
    const TBabCell *cell = at.Grid->FindCell(*column, *row);
    if ((info != nullptr && info->ReadOnly()) || (cell != nullptr && cell->ReadOnly())) {
        return false;
    }
    bool allow = true;
    const TFollow follow(*this, at);
    OnBeforeEdit(this, at, allow);
    return allow && follow.IsThere();
}

// --- the editor ----------------------------------------------------------------------------------

bool TBabGridEdit::BeginEdit(TGridCellAt at, TEditBegin how, std::string_view typed)
{
    if (IsEditing() && m_edited == at) {
        return true;
    }
    const TFollow follow(*this, at);
    const auto isThere = [&follow] { return follow.IsThere(); };
    if (!IsCell(at) || KindOf(at) == TColumnKind::tckBool || !CommitEdit() || !isThere()
        || !MayEdit(at) || !isThere()
        || !ChooseCell(at, IsSelected(at) ? TGridChoice::Keep : TGridChoice::Set) || !isThere()) {
        return false;
    }
    TChoices choices;
    if (KindOf(at) == TColumnKind::tckCombo) {
        choices = ChoicesOf(at);
        if (!isThere()) {
            return false;
        }
    }
    TAxisContentItem *column = at.Grid->Columns().getAxisContentItem(at.Column);
    TAxisContentItem *row = at.Grid->Rows().getAxisContentItem(at.Row);
    if (column == nullptr || row == nullptr) {
        return false;
    }
    m_before = at.Grid->CellText(*column, *row);
    if (!isThere()) {
        return false;
    }
    ++m_edits;
    m_edited = at;
    m_how = how;
    m_editKind = KindOf(at);
    m_editHost.OpenEditor({at, m_editKind, how,
                           how == TEditBegin::Replace ? std::string(typed) : m_before,
                           std::move(choices.Items), choices.FreeText});
    PlaceEditor();
    return true;
}

bool TBabGridEdit::CommitEdit()
{
    if (!IsEditing()) {
        return true;
    }
    if (m_committing) {
        return false;
    }
    const std::string text = m_editHost.EditorText();
    if (text == m_before) {
        EndEdit();
        return true;
    }
    const std::weak_ptr<char> life(m_life);
    std::string reason;
    bool stored = false;
    const int edit = m_edits;
    m_committing = true;
    AsUserChange(TGridUserChange::ucEdit, [&] { return stored = Store(m_edited, text, reason); });
    if (life.expired()) {
        return false;
    }
    m_committing = false;
    if (!IsEditing() || edit != m_edits) {
        return true; // a handler did away with the cell
    }
    if (!stored) {
        m_editHost.ShowRefusal(CellRect(m_edited), reason);
        return false;
    }
    EndEdit();
    return true;
}

void TBabGridEdit::CancelEdit()
{
    if (IsEditing() && !m_committing) {
        EndEdit();
    }
}

void TBabGridEdit::EndEdit()
{
    m_edited = {};
    m_editHost.CloseEditor();
}

void TBabGridEdit::ShowEditedCell()
{
    if (IsEditing()) {
        MakeVisible(m_edited);
        PlaceEditor();
    }
}

void TBabGridEdit::PlaceEditor()
{
    if (IsEditing()) {
        m_editHost.PlaceEditor(CellRect(m_edited), ClipOf(*m_edited.Grid));
    }
}

/// Where cells of the grid behind the heads may show.
TRect TBabGridEdit::ClipOf(const TBabGridCell &grid)
{
    if (&grid == &RootCell()) {
        const TSize size = Host().GridSize();
        const TPoint fixedEnd = Shown().FixedEnd;
        return {fixedEnd.X, fixedEnd.Y, size.Width, size.Height};
    }
    TBabGridCell &parent = *grid.GridCell();
    const TRect cell = CellRect(
        {&parent, parent.Columns().IndexOf(*grid.Column()), parent.Rows().IndexOf(*grid.Row())});
    return cell.Intersected(ClipOf(parent));
}

// --- keys ----------------------------------------------------------------------------------------

bool TBabGridEdit::FinishAndMove(TGridMove move)
{
    const std::weak_ptr<char> life(m_life);
    const bool done = CommitEdit();
    if (done && !life.expired()) {
        MoveFocus(move, TGridChoice::Set);
    }
    return true;
}

bool TBabGridEdit::EditorKey(TEditKey key)
{
    const bool memo = m_editKind == TColumnKind::tckMemo;
    const bool combo = m_editKind == TColumnKind::tckCombo;
    const bool arrows = m_how == TEditBegin::Replace && !memo;
    switch (key) {
    case TEditKey::Enter:
    case TEditKey::ShiftEnter:
        EnterMove(key == TEditKey::ShiftEnter);
        return true;
    case TEditKey::Tab:
    case TEditKey::ShiftTab:
        TabMove(key == TEditKey::ShiftTab);
        return true;
    case TEditKey::Escape:
        CancelEdit();
        return true;
    case TEditKey::F2:
        // From typing in place of the text to editing it, and back.
        m_how = m_how == TEditBegin::Replace ? TEditBegin::AtEnd : TEditBegin::Replace;
        return true;
    case TEditKey::Left:
        return arrows && FinishAndMove(TGridMove::Left);
    case TEditKey::Right:
        return arrows && FinishAndMove(TGridMove::Right);
    case TEditKey::Up:
        return !memo && !combo && FinishAndMove(TGridMove::Up);
    case TEditKey::Down:
        return !memo && !combo && FinishAndMove(TGridMove::Down);
    case TEditKey::PageUp:
        return !memo && !combo && FinishAndMove(TGridMove::PageUp);
    case TEditKey::PageDown:
        return !memo && !combo && FinishAndMove(TGridMove::PageDown);
    }
    return false;
}

bool TBabGridEdit::TabMove(bool back)
{
    const std::weak_ptr<char> life(m_life);
    const TGridCellAt from = FocusCell();
    if (!CommitEdit() || life.expired()) {
        return false;
    }
    const bool goesOn =
        m_tabTo == FocusCell() && m_tabFrom.Grid == from.Grid && m_tabFrom.Row == from.Row && from;
    if (!goesOn) {
        m_tabFrom = FocusCell();
    }
    const bool moved = MoveFocus(back ? TGridMove::Previous : TGridMove::Next, TGridChoice::Set);
    if (!life.expired()) {
        m_tabTo = FocusCell();
    }
    return moved;
}

bool TBabGridEdit::EnterMove(bool up)
{
    const std::weak_ptr<char> life(m_life);
    if (!CommitEdit() || life.expired()) {
        return false;
    }
    TGridCellAt to = CellAfter(up ? TGridMove::Up : TGridMove::Down);
    const bool afterTabs = FocusCell() && m_tabTo == FocusCell() && m_tabFrom.Grid == to.Grid
                           && m_tabFrom.Row == FocusCell().Row;
    if (afterTabs && IsCell({to.Grid, m_tabFrom.Column, to.Row})) {
        to.Column = m_tabFrom.Column;
    }
    m_tabTo = {};
    return to && to != FocusCell() && ChooseCell(to, TGridChoice::Set);
}

void TBabGridEdit::CellDoubleClicked(const TGridCellAt &at)
{
    BeginEdit(at, TEditBegin::AtEnd);
}

void TBabGridEdit::DropRows(const TGridRowDrop &drop)
{
    AsUserChange(TGridUserChange::ucMove, [&] {
        TBabGridGestures::DropRows(drop);
        return true;
    });
}

// --- following changes ---------------------------------------------------------------------------

TBabGridEdit::TFollow::TFollow(TBabGridEdit &edit, TGridCellAt &at)
    : m_edit(edit)
    , m_life(edit.m_life)
    , m_at(at)
{
    edit.m_followed.push_back(&at);
}

TBabGridEdit::TFollow::~TFollow()
{
    if (!m_life.expired()) {
        m_edit.m_followed.pop_back();
    }
}

/// Calls `change` for the place that each followed cell of the list's grid has on its axis; -1 from
/// it says that the cell is gone.
template <typename Change>
void TBabGridEdit::ChangePlaces(const TAxisContentList &list, const Change &change)
{
    const bool wasEditing = IsEditing();
    for (TGridCellAt *at : m_followed) {
        if (at->Grid == &list.getGridCell()) {
            int &place = list.IsRowAxis() ? at->Row : at->Column;
            place = change(place);
            if (place < 0) {
                *at = {};
            }
        }
    }
    if (wasEditing && !IsEditing()) {
        m_editHost.CloseEditor();
    }
}

void TBabGridEdit::CountChanged(TAxisContentList *list, int index, int by)
{
    TBabGridGestures::CountChanged(list, index, by);
    ChangePlaces(*list, [=](int place) { return ShiftedPlace(place, index, by); });
}

void TBabGridEdit::ItemsMoved(TAxisContentList *list, int from, int to, int count)
{
    TBabGridGestures::ItemsMoved(list, from, to, count);
    ChangePlaces(*list, [=](int place) { return PlaceAfterMove(place, from, to, count); });
}

void TBabGridEdit::RowsReordered(TAxisContentList *list, int first, const std::vector<int> &order)
{
    TBabGridGestures::RowsReordered(list, first, order);
    ChangePlaces(*list, [&](int place) { return PlaceAfterReorder(place, first, order); });
}

void TBabGridEdit::SubGridGoes(TBabGridCell *grid)
{
    const bool wasEditing = IsEditing();
    for (TGridCellAt *at : m_followed) {
        if (at->Grid == grid) {
            *at = {};
        }
    }
    if (wasEditing && !IsEditing()) {
        m_editHost.CloseEditor();
    }
    TBabGridGestures::SubGridGoes(grid);
}

} // namespace korvane
