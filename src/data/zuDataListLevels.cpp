#include "data/zuDataListLevels.h"

#include "data/zuDataListTrav.h"

#include <algorithm>

namespace korvane {

namespace {

/// Walks on to the first selected entity, passing over lists that are known to have none.
void GoToSelected(TDataListTrav &walk)
{
    const auto selectedHere = [&walk] {
        const TzuDataEntity *entity = walk.DataEntity();
        return entity != nullptr && entity->GetSelected();
    };
    walk.First();
    while (!walk.Eof() && !selectedHere()) {
        walk.Next();
    }
}

void SelectHere(const TDataListTrav &walk)
{
    if (TzuDataEntity *entity = walk.DataEntity()) {
        entity->SetSelected(true);
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
    for (int i = 0; i < Count(); ++i) {
        TzuDataList *list = Member(i);
        for (int item = 0; item < list->Count(); ++item) {
            if (TzuDataEntity *entity = list->GetItems(item)) {
                entity->SetSelected(false);
            }
        }
    }
}

TzuDataEntity *TzuDataList2lev::FindSelected()
{
    for (int i = 0; i < Count(); ++i) {
        TzuDataList *list = Member(i);
        for (int item = 0; item < list->Count(); ++item) {
            TzuDataEntity *entity = list->GetItems(item);
            if (entity != nullptr && entity->GetSelected()) {
                return entity;
            }
        }
    }
    return nullptr;
}

void TzuDataList2lev::SelectDataEntity(TzuDataEntity *entity)
{
    if (entity != nullptr) {
        entity->SetSelected(true);
    }
}

void TzuDataList2lev::SelectNext()
{
    TDataListTrav walk(this);
    GoToSelected(walk);
    if (walk.Eof()) {
        walk.First();
    } else {
        ClearSelections();
        walk.Next();
        if (walk.Eof()) {
            walk.First();
        }
    }
    if (!walk.Eof()) {
        SelectHere(walk);
    }
}

void TzuDataList2lev::SelectPrev()
{
    TDataListTrav walk(this);
    GoToSelected(walk);
    if (walk.Eof()) {
        walk.Last();
    } else {
        ClearSelections();
        walk.Prev();
        if (walk.BOF()) {
            walk.Last();
        }
    }
    if (!walk.BOF()) {
        SelectHere(walk);
    }
}

} // namespace korvane
