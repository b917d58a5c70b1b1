// How what the user changes comes into cells.
#include "cellgrid/zuBabGridFollow.h"
#include "cellgrid/zuBabGridUserChange.h"
#include "foundation/zuDateUtils.h"
#include "foundation/zuFormat.h"
#include "foundation/zuTranslate.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace korvane {

namespace {

std::string NotUnderstood(TColumnKind kind, const std::string &text)
{
    switch (kind) {
    case TColumnKind::tckDate:
        return WithArguments(Translate("TzuGrid", "\"%1\" is no date. An example: %2"),
                             {text, FormatDate({}, EncodeDate(2025, 12, 31))});
    case TColumnKind::tckTime:
        return WithArguments(Translate("TzuGrid", "\"%1\" is no time of day. An example: %2"),
                             {text, FormatTime({}, EncodeTime(17, 30, 0, 0))});
    default:
        return WithArguments(Translate("TzuGrid", "\"%1\" does not fit here."), {text});
    }
}

/// The choice that equals the text but for the case of ASCII letters, or null.
const std::string *FindChoice(const std::vector<std::string> &items, const std::string &text)
{
    const auto same = [](char a, char b) {
        const auto lower = [](char c) {
            return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
        };
        return lower(a) == lower(b);
    };
    const auto exact = std::find(items.begin(), items.end(), text);
    const auto found =
        exact != items.end()
            ? exact
            : std::find_if(items.begin(), items.end(), [&](const auto &item) {
                  return std::equal(item.begin(), item.end(), text.begin(), text.end(), same);
              });
    return found == items.end() ? nullptr : &*found;
}

} // namespace

TBabGridEdit::TChoices TBabGridEdit::ChoicesOf(TGridCellAt at)
{
    const TFollow follow(*this, at);
    TAxisContentItem *column = at.Grid->Columns().getAxisContentItem(at.Column);
    TAxisContentItem *row = at.Grid->Rows().getAxisContentItem(at.Row);
    const bool made = at.Grid->FindCell(*column, *row) == nullptr;
    TBabCell *cell = &at.Grid->GetCell(*column, *row);
    const std::string before = cell->Text();
    OnBeforeEditWithCombo(this, cell);
    if (!follow.IsThere()) {
        return {};
    }
    column = at.Grid->Columns().getAxisContentItem(at.Column);
    row = at.Grid->Rows().getAxisContentItem(at.Row);
    cell = column != nullptr && row != nullptr ? at.Grid->FindCell(*column, *row) : nullptr;
    const auto *simple = dynamic_cast<const TBabSimpleCell *>(cell);
    if (simple == nullptr) {
        return {};
    }
    TChoices choices;
    if (const auto *combo = dynamic_cast<const TBabCellData_Combo *>(&simple->Data())) {
        choices = {combo->Items, combo->Items.empty() || combo->FreeText};
    }
    if (made && simple->Text() == before && simple->LayoutProp() == nullptr) {
        at.Grid->Matris().RemoveCell(*column, *row);
    }
    return choices;
}

/// What there is at a cell now; false when it is gone.
bool TBabGridEdit::Resolve(const TFollow &follow, TCellEdit &edit)
{
    if (!follow.IsThere()) {
        return false;
    }
    edit.At = follow.At();
    edit.Column = edit.At.Grid->Columns().getAxisContentItem(edit.At.Column);
    edit.Row =
        edit.Column != nullptr ? edit.At.Grid->Rows().getAxisContentItem(edit.At.Row) : nullptr;
    edit.Cell = edit.Row != nullptr ? edit.At.Grid->FindCell(*edit.Column, *edit.Row) : nullptr;
    return edit.Row != nullptr;
}

/// Brings the text into the form in which the cell would show it.
bool TBabGridEdit::Understand(const TFollow &follow, TCellEdit &edit, std::string &reason)
{
    const TColumnKind kind = KindOf(edit.At);
    if (kind == TColumnKind::tckCombo && !edit.Text.empty()) {
        const TChoices choices = ChoicesOf(edit.At);
        if (!Resolve(follow, edit)) {
            return false;
        }
        const std::string *choice = FindChoice(choices.Items, edit.Text);
        if (choice == nullptr && !choices.FreeText) {
            reason =
                WithArguments(Translate("TzuGrid", "\"%1\" is none of the choices."), {edit.Text});
            return false;
        }
        edit.Text = choice != nullptr ? *choice : edit.Text;
    }
    std::unique_ptr<TBabCell> made;
    const TBabCell *model = edit.Cell;
    if (model == nullptr) {
        made = RootCell().OnCreateCell(edit.At.Grid, edit.Column, edit.Row);
        model = made.get();
        if (!Resolve(follow, edit)) {
            return false;
        }
    }
    const auto *simple = dynamic_cast<const TBabSimpleCell *>(model);
    if (simple != nullptr && !simple->Data().Understand(edit.Text)) {
        reason = NotUnderstood(kind, edit.Text);
        return false;
    }
    return true;
}

bool TBabGridEdit::Store(TGridCellAt at, const std::string &text, std::string &reason)
{
    const TFollow follow(*this, at);
    try {
        TCellEdit edit;
        if (!Resolve(follow, edit)) {
            return false;
        }
        edit.Before = at.Grid->CellText(*edit.Column, *edit.Row);
        edit.Text = text;
        if (edit.Text == edit.Before) {
            return true;
        }
        if (!follow.IsThere() || !Understand(follow, edit, reason)) {
            return false;
        }
        // The way that a text is shown may leave something out that is not to be lost.
        return edit.Text == edit.Before || StoreAllowed(follow, edit, reason);
    } catch (const std::exception &error) {
        reason = error.what();
        return false;
    }
}

bool TBabGridEdit::StoreAllowed(const TFollow &follow, TCellEdit &edit, std::string &reason)
{
    OnEditStop(this, edit);
    if (!edit.Allow || !follow.IsThere()) {
        reason =
            edit.Reason.empty() ? Translate("TzuGrid", "This change is not allowed.") : edit.Reason;
        return false;
    }
    // The handler may have moved the cell, or made one.
    if (!Resolve(follow, edit)) {
        return false;
    }
    if (!Write(follow, edit, reason)) {
        return false;
    }
    if (Resolve(follow, edit)) {
        OnCellEdited(this, edit);
    }
    return true;
}

bool TBabGridEdit::Write(const TFollow &follow, TCellEdit &edit, std::string &reason)
{
    bool stored = false;
    if (edit.Cell == nullptr) {
        RootCell().OnSetCellText(edit.At.Grid, edit.Column, edit.Row, edit.Text, stored);
        if (!Resolve(follow, edit)) {
            return stored;
        }
        if (stored) {
            edit.Row->SetAutoSize(TAxisContentItem::kNotMeasured);
            LayoutOutOfDate();
            return true;
        }
        edit.Cell = &edit.At.Grid->GetCell(*edit.Column, *edit.Row);
    }
    if (!edit.Cell->SetText(edit.Text)) {
        reason = NotUnderstood(KindOf(edit.At), edit.Text);
        return false;
    }
    return true;
}

void TBabGridEdit::ToggleCheckBox(const TGridCellAt &at)
{
    TGridCellAt place = at;
    const TFollow follow(*this, place);
    if (!CommitEdit() || !follow.IsThere() || KindOf(place) != TColumnKind::tckBool
        || !MayEdit(place)) {
        return;
    }
    TAxisContentItem *column = place.Grid->Columns().getAxisContentItem(place.Column);
    TAxisContentItem *row = place.Grid->Rows().getAxisContentItem(place.Row);
    const std::string text = place.Grid->CellText(*column, *row);
    std::string reason;
    bool stored = false;
    AsUserChange(TGridUserChange::ucEdit, [&] {
        return stored = follow.IsThere()
                        && Store(place, text.empty() || text == "0" ? "1" : "0", reason);
    });
    if (!stored && follow.IsThere()) {
        m_editHost.ShowRefusal(CellRect(place), reason);
    }
}

} // namespace korvane
