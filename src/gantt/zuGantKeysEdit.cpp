// What keys do with what is selected: marks, edits and deletions.
#include "gantt/zuGantKeys.h"
#include "gantt/zuGantSelectionImpl.h"

#include <vector>

namespace korvane {

bool TGantKeys::Select(TSelectHow how)
{
    TzuDataEntity_Spanbar *active = ActiveDataEntity();
    if (active == nullptr) {
        return false;
    }
    SetAnchor(active);
    if (how == TSelectHow::Toggle) {
        active->SetSelected(!active->GetSelected());
    } else {
        SelectOnly(*active);
    }
    return true;
}

bool TGantKeys::Cancel()
{
    if (GestureRunning()) {
        CancelGesture();
        return true;
    }
    const bool any = SelectedCount() > 0 || !SelectedLinks().empty();
    ClearSelection();
    return any;
}

bool TGantKeys::Edit()
{
    if (OnEditDataEntity_Link && SelectedCount() == 0) {
        const std::vector<TzuDataEntity_Link *> links = SelectedLinks();
        if (links.size() == 1) {
            OnEditDataEntity_Link(Component(), links.front());
            return true;
        }
    }
    TzuDataEntity_Spanbar *active = ActiveDataEntity();
    if (active == nullptr) {
        return false;
    }
    if (!OnEditDataEntity_Spanbar) {
        DoDblClickGantArea(active);
        return true;
    }
    Keep(active);
    if (!active->GetCanEdit() || ActiveDataEntity() != active) {
        return false;
    }
    OnEditDataEntity_Spanbar(Component(), active);
    return true;
}

bool TGantKeys::DeleteSelected()
{
    if (!OnAskDelete) {
        return false;
    }
    std::vector<TzuDataEntity_Spanbar *> items = SelectedItems();
    KeepAll(items);
    bool asked = false;
    ChangeSelection([&] {
        std::erase_if(items, [this](TzuDataEntity_Spanbar *item) {
            return WasFreed(item) || !item->GetCanEdit();
        });
        std::erase_if(items, [this](TzuDataEntity_Spanbar *item) { return WasFreed(item); });
        asked = !items.empty() || !SelectedLinks().empty();
        if (asked) {
            AskAndDelete(items);
        }
    });
    return asked;
}

void TGantKeys::AskAndDelete(const std::vector<TzuDataEntity_Spanbar *> &items)
{
    const std::vector<TzuDataEntity_Link *> links = SelectedLinks();
    AsUserChange(TGantUserChange::ucDelete, [&] {
        bool allow = false;
        OnAskDelete(Component(), items, links, allow);
        if (allow) {
            DeleteAll(items, links);
        }
        return AnyFreed();
    });
}

/// Where the active item goes, the one closest to it becomes active.
void TGantKeys::DeleteAll(const std::vector<TzuDataEntity_Spanbar *> &items,
                          const std::vector<TzuDataEntity_Link *> &links)
{
    const TzuDataEntity_Spanbar *active = ActiveDataEntity();
    TGantRow *row = active != nullptr ? active->GetRow() : nullptr;
    if (row == nullptr) {
        RemoveAll(items, links);
        return;
    }
    const TDateTime date = active->GetStartDateTime();
    const TzuLifeWatch rowLives(*row);
    RemoveAll(items, links);
    if (ActiveDataEntity() == nullptr && rowLives) {
        SetActiveDataEntity(FindNeighbourClosest(*row, date));
    }
}

void TGantKeys::RemoveAll(const std::vector<TzuDataEntity_Spanbar *> &items,
                          const std::vector<TzuDataEntity_Link *> &links)
{
    // Lists are quickest to delete from behind.
    for (auto link = links.rbegin(); link != links.rend(); ++link) {
        if (!WasFreed(*link)) {
            GetLinks().Remove(*link);
        }
    }
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        if (!WasFreed(*item)) {
            RemoveSpanbar(*item);
        }
    }
}

} // namespace korvane
