#include "data/zuDataEntity.h"

#include "data/zuDataList.h"

#include <algorithm>
#include <stdexcept>

namespace korvane {

TzuDataEntity::~TzuDataEntity()
{
    if (IsPlaced()) {
        m_list->Forget(this);
    }
}

void TzuDataEntity::CleanForFree()
{
    TzuDataList *list = GetDataList();
    if (list == nullptr) {
        return;
    }
    const TzuLifeWatch self(*this);
    const TzuLifeWatch listLives(*list);
    list->Fire<&TzuListController::OnDeleteItem>(this);
    if (listLives) {
        list->Fire<&TzuListController::OnContentChanged>(list);
    }
    if (self) {
        m_cleaned = true;
    }
}

void TzuDataEntity::SetVisible(bool visible)
{
    if (m_visible == visible) {
        return;
    }
    m_visible = visible;
    if (TzuDataList *list = GetDataList()) {
        list->Fire<&TzuListController::OnVisibleChanged>(this);
    }
}

void TzuDataEntity::AfterCreate(TzuDataList *list)
{
    if (!IsPlaced()) {
        m_list = list;
    }
    SetVisible(true);
}

void TzuDataEntity::SetSelected(bool selected)
{
    if (m_selected == selected) {
        return;
    }
    m_selected = selected;
    if (IsPlaced()) {
        m_list->m_selectedCount += selected ? 1 : -1;
    }
    if (TzuDataList *list = GetDataList()) {
        list->SelectionChanged(list, this);
    }
}

bool TzuDataEntity::GetCanEdit()
{
    const TzuLifeWatch self(*this);
    if (TzuDataList *list = GetDataList()) {
        list->Fire<&TzuListController::OnBeforeCanEditItem>(this);
    }
    return self && m_canEdit;
}

int TzuDataEntity::ListIndex() const
{
    if (TzuDataList *list = GetDataList()) {
        list->EnsureListIndexes();
    }
    return IsPlaced() ? m_list->m_items.Number(m_list->IndexOf(this)) : m_listIndex;
}

void TzuDataEntity::Move(int newIndex)
{
    TzuDataList *list = GetDataList();
    if (list == nullptr || !IsPlaced()) {
        return;
    }
    const TzuLifeWatch self(*this);
    const TzuLifeWatch listLives(*list);
    const int oldIndex = ListIndex();
    list->EnsureLoadedItem(newIndex);
    // Loading may have unloaded the entity.
    if (!self || !listLives || !list->IsLoaded(oldIndex) || !list->IsLoaded(newIndex)) {
        throw std::out_of_range("List index out of bounds");
    }
    list->MoveLoaded(oldIndex - list->UnloadedBefore(), newIndex - list->UnloadedBefore());
    list->ListIndexesOutOfDate(std::min(oldIndex, newIndex));
    list->Fire<&TzuListController::OnHandlePerformedMove>(this, oldIndex, newIndex);
}

void TzuDataEntity::ChangeOwner(TzuDataList *newList, int position)
{
    TzuDataList *oldList = GetDataList();
    if (newList == nullptr || oldList == nullptr || newList == oldList || !IsPlaced()
        || !newList->GetEntityClass().IsClassOf(*this)) {
        return;
    }
    const TzuLifeWatch self(*this);
    const TzuLifeWatch oldLives(*oldList);
    const TzuLifeWatch newLives(*newList);
    oldList->Fire<&TzuListController::OnBeforeChangeOwner>(this);
    if (!self || !oldLives || !newLives || GetDataList() != oldList || !IsPlaced()) {
        return;
    }
    if (position < 0 || position > newList->LoadedCount()) {
        throw std::out_of_range("List index out of bounds");
    }
    const int oldIndex = ListIndex();
    oldList->Take(oldList->IndexOf(this));
    oldList->ListIndexesOutOfDate(oldIndex);
    newList->Place(position, this, oldIndex);
    newList->ListIndexesOutOfDate(position);
    newList->Fire<&TzuListController::OnAfterChangeOwner>(this);
    if (newLives) {
        newList->Fire<&TzuListController::OnContentChanged>(newList);
    }
    if (oldLives) {
        oldList->Fire<&TzuListController::OnContentChanged>(oldList);
    }
}

void TzuDataEntity::DoInfoPush()
{
    if (TzuDataList *list = GetDataList()) {
        list->Fire<&TzuListController::OnInfoPush>(this);
    }
}

} // namespace korvane
