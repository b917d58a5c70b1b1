#include "data/zuDataListLevels.h"

#include "data/zuDataListTrav.h"

#include <algorithm>

namespace korvane {

namespace {

bool IsSelected(const TzuDataEntity *entity)
{
    return entity != nullptr && entity->GetSelected();
}

/// Whether a look at every item of the list would find none selected, and would load none.
bool IsKnownUnselected(const TzuDataList *list)
{
    return list == nullptr || (list->IsFullyLoaded() && list->SelectedCount() == 0);
}

void GoToFirstSelected(TDataListTrav &walk)
{
    walk.First();
    while (!walk.Eof()) {
        if (IsKnownUnselected(walk.DataList())) {
            walk.NextList();
        } else if (IsSelected(walk.DataEntity())) {
            return;
        } else {
            walk.Next();
        }
    }
}

void SetSelected(TzuDataEntity *entity, bool selected)
{
    if (entity != nullptr) {
        entity->SetSelected(selected);
    }
}

} // namespace

TzuDataList *TzuDataList2lev::GetDataList(int index)
{
    while (index >= Count()) {
        const int count = Count();
        bool fixable = false;
        OnMissingIndex(this, index, fixable);
        if (!fixable || Count() <= count) {
            return nullptr;
        }
    }
    return Member(index);
}

void TzuDataList2lev::ClearSelections()
{
    const TzuLifeWatch self(*this);
    for (int i = 0; self && i < Count(); ++i) {
        TzuDataList *list = Member(i);
        if (list->IsFullyLoaded()) {
            list->ClearSelections();
            continue;
        }
        const TzuLifeWatch listLives(*list);
        for (int item = 0; listLives && item < list->Count(); ++item) {
            SetSelected(list->GetItems(item), false);
        }
    }
}

TzuDataEntity *TzuDataList2lev::FindSelected()
{
    const TzuLifeWatch self(*this);
    for (int i = 0; self && i < Count(); ++i) {
        TzuDataList *list = Member(i);
        if (IsKnownUnselected(list)) {
            continue;
        }
        const TzuLifeWatch listLives(*list);
        for (int item = 0; listLives && item < list->Count(); ++item) {
            if (TzuDataEntity *entity = list->GetItems(item); IsSelected(entity)) {
                return entity;
            }
        }
    }
    return nullptr;
}

void TzuDataList2lev::SelectDataEntity(TzuDataEntity *entity)
{
    SetSelected(entity, true);
}

/// Leaves the walk at the first selected entity, with nothing selected any more; at its end when
/// nothing was.
bool TzuDataList2lev::LeaveSelection(TDataListTrav &walk)
{
    GoToFirstSelected(walk);
    if (walk.Eof()) {
        return false;
    }
    ClearSelections();
    return true;
}

void TzuDataList2lev::SelectNext()
{
    const TzuLifeWatch self(*this);
    TDataListTrav walk(this);
    if (LeaveSelection(walk)) {
        walk.Next();
    }
    if (self && walk.Eof()) {
        walk.First();
    }
    if (self && !walk.Eof()) {
        SetSelected(walk.DataEntity(), true);
    }
}

void TzuDataList2lev::SelectPrev()
{
    const TzuLifeWatch self(*this);
    TDataListTrav walk(this);
    const bool found = LeaveSelection(walk);
    if (found) {
        walk.Prev();
    }
    if (self && (!found || walk.BOF())) {
        walk.Last();
    }
    if (self && !walk.BOF()) {
        SetSelected(walk.DataEntity(), true);
    }
}

} // namespace korvane
