#include "data/zuDataList.h"

#include "data/zuDataListTrav.h"

#include <algorithm>
#include <utility>

namespace korvane {

TzuDataList::~TzuDataList()
{
    // Entities left behind are nobody's; they must not look for this list when they go.
    m_items.FindFrom(0, [](TzuDataEntity *entity) {
        entity->m_chunk = kNoChunk;
        entity->m_list = nullptr;
        return false;
    });
    if (m_travelled) {
        TDataListTrav::ListReleased(this);
    }
}

void TzuDataList::CleanForFree()
{
    ReleaseLoaded();
}

void TzuDataList::FreeDataEntity(TzuDataEntity *entity)
{
    entity->FreeWheneverPossible();
}

void TzuDataList::AfterCreate(TzuListController *controller, EntityClass entityClass)
{
    m_created = true;
    m_controller = controller;
    m_entityClass = std::move(entityClass);
    ListIndexesOutOfDate(0);
}

// --- placing and taking --------------------------------------------------------------------------

void TzuDataList::Place(int position, TzuDataEntity *entity, int cachedIndex)
{
    m_items.Insert(position, entity, cachedIndex);
    entity->m_list = this;
    m_selectedCount += entity->m_selected ? 1 : 0;
    ++m_changes;
    Joined(*entity);
}

TzuDataEntity *TzuDataList::Take(int position)
{
    TzuDataEntity *entity = TakeSilently(position);
    Left(*entity);
    return entity;
}

TzuDataEntity *TzuDataList::TakeSilently(int position)
{
    const int cachedIndex = m_items.Number(position);
    TzuDataEntity *entity = m_items.Erase(position);
    entity->m_listIndex = cachedIndex;
    m_selectedCount -= entity->m_selected ? 1 : 0;
    ++m_changes;
    return entity;
}

void TzuDataList::MoveLoaded(int from, int to)
{
    TzuDataEntity *entity = Take(from);
    Place(to, entity, entity->m_listIndex);
}

/// Lets go of an entity that is freed while it is in the block.
void TzuDataList::Forget(TzuDataEntity *entity)
{
    const int position = m_items.IndexOf(entity);
    TakeSilently(position);
    ListIndexesOutOfDate(m_unloadedBefore + position);
}

/// Releases what is loaded. Entities that handlers add meanwhile are released without events, so
/// that it comes to an end.
void TzuDataList::ReleaseLoaded()
{
    const TzuLifeWatch self(*this);
    ForgetCounted();
    for (int left = m_items.Size(); left > 0 && !m_items.Empty(); --left) {
        ListIndexesOutOfDate(0);
        FreeDataEntity(Take(0));
        if (!self) {
            return;
        }
    }
    while (!m_items.Empty()) {
        TzuDataEntity *entity = Take(m_items.Size() - 1);
        entity->m_list = nullptr;
        FreeDataEntity(entity);
        if (!self) {
            return;
        }
    }
    ForgetCounted();
}

void TzuDataList::ForgetCounted()
{
    if (!IsFullyLoaded()) {
        CountedChanged(0, -m_unloadedBefore - m_unloadedAfter);
        m_unloadedBefore = m_unloadedAfter = 0;
    }
}

// --- inserting and deleting ----------------------------------------------------------------------

std::unique_ptr<TzuDataEntity> TzuDataList::CreateItem()
{
    auto entity = m_entityClass.Create();
    entity->AfterCreate(this);
    entity->m_list = this;
    return entity;
}

TzuDataEntity *TzuDataList::InsertItem(int position)
{
    const TzuLifeWatch self(*this);
    auto created = CreateItem();
    if (!self) {
        return nullptr;
    }
    // Deselecting what no view has seen yet is no event; selecting it in the end is.
    const bool selected = std::exchange(created->m_selected, false);
    Place(position, created.get(), 0);
    TzuDataEntity *entity = created.release();
    const TzuLifeWatch entityLives(*entity);
    ListIndexesOutOfDate(m_unloadedBefore + position);
    Fire<&TzuListController::OnInsertItem>(entity);
    if (self) {
        Fire<&TzuListController::OnContentChanged>(this);
    }
    if (entityLives && selected) {
        entity->SetSelected(true);
    }
    return entityLives ? entity : nullptr;
}

TzuDataEntity *TzuDataList::Insert(int index)
{
    const TzuLifeWatch self(*this);
    EnsureLoadedItem(index);
    if (self && index == Count() && index >= 1) {
        EnsureLoadedItem(index - 1);
    }
    return self ? InsertItem(index - m_unloadedBefore) : nullptr;
}

void TzuDataList::Remove(TzuDataEntity *entity)
{
    // What is not in a list any more, or not yet, has no index of its own.
    if (entity != nullptr && entity->IsPlaced()) {
        Delete(entity->ListIndex());
    }
}

void TzuDataList::Delete(int index)
{
    if (index < 0 || index >= Count()) {
        return;
    }
    if (IsLoaded(index)) {
        TzuDataEntity *entity = Take(index - m_unloadedBefore);
        ListIndexesOutOfDate(index);
        FreeDataEntity(entity);
    } else if (index < m_unloadedBefore) {
        CountedChanged(index, -1);
        --m_unloadedBefore;
    } else {
        CountedChanged(index - m_items.Size(), -1);
        --m_unloadedAfter;
    }
}

void TzuDataList::Clear()
{
    const TzuLifeWatch self(*this);
    for (int position = m_items.Size() - 1; position >= 0; --position) {
        if (position < m_items.Size()) {
            Remove(m_items.At(position));
        }
        if (!self) {
            return;
        }
    }
    ReleaseLoaded();
    if (self) {
        Fire<&TzuListController::OnCountChanged>(this);
    }
}

// --- looking up ----------------------------------------------------------------------------------

TzuDataEntity *TzuDataList::FindDataEntity(const TFindFunc &accepts) const
{
    if (!accepts) {
        return nullptr;
    }
    const TzuLifeWatch self(*this);
    for (int position = 0; self && position < m_items.Size(); ++position) {
        TzuDataEntity *entity = m_items.At(position);
        if (accepts(entity)) {
            return entity;
        }
    }
    return nullptr;
}

/// Calls `handle` for each selected entity in loaded order. It may change the list; entities that
/// were there already are neither skipped nor handled twice, and it is called no more often than
/// there were entities.
template <typename Handle>
void TzuDataList::ForEachSelected(const Handle &handle)
{
    const TzuLifeWatch self(*this);
    int position = 0;
    for (int left = m_items.Size(); self && left > 0 && m_selectedCount > 0; --left) {
        position = FindSelectedFrom(position);
        if (position >= m_items.Size()) {
            return;
        }
        TzuDataEntity *entity = m_items.At(position);
        const TzuLifeWatch entityLives(*entity);
        handle(entity);
        const int now = self && entityLives ? m_items.IndexOf(entity) : -1;
        position = now >= 0 ? now + 1 : position;
    }
}

int TzuDataList::FirstSelected() const
{
    const int position = m_selectedCount == 0 ? m_items.Size() : FindSelectedFrom(0);
    return position < m_items.Size() ? position : -1;
}

int TzuDataList::FindSelectedFrom(int position) const
{
    return m_items.FindFrom(position, [](auto *item) { return item->GetSelected(); });
}

void TzuDataList::ClearSelections()
{
    ForEachSelected([](TzuDataEntity *entity) { entity->SetSelected(false); });
}

void TzuDataList::IteratorOfSelectedDataEntities(const TSelectedDataEntityEvent &event)
{
    ForEachSelected([this, event](TzuDataEntity *entity) { event(this, entity); });
}

void TzuDataList::SelectionChanged(TzuDataList *list, TzuDataEntity *entity) const
{
    Fire<&TzuListController::OnSelectionChanged>(list, entity);
}

int TzuDataList::VisibleCount() const
{
    int count = 0;
    for (int position = 0; position < m_items.Size(); ++position) {
        count += m_items.At(position)->GetVisible() ? 1 : 0;
    }
    return count;
}

bool TzuDataList::VisibleIndexDataEntity(int index)
{
    if (!ValidIndexDataEntity(index)) {
        return false;
    }
    const TzuDataEntity *entity = EnsureLoadedItem(index);
    return entity != nullptr && entity->GetVisible();
}

int TzuDataList::ListIndexToVisibleIndex(int index)
{
    const TzuLifeWatch self(*this);
    int visibleIndex = -1;
    for (int i = 0; self && i <= index && i < Count(); ++i) {
        visibleIndex += VisibleIndexDataEntity(i) ? 1 : 0;
    }
    return visibleIndex;
}

int TzuDataList::VisibleIndexToListIndex(int visibleIndex)
{
    const TzuLifeWatch self(*this);
    int counter = -1;
    const int count = Count();
    for (int i = 0; self && i < count; ++i) {
        counter += VisibleIndexDataEntity(i) ? 1 : 0;
        if (counter == visibleIndex) {
            return i;
        }
    }
    return -1;
}

// --- index maintenance ---------------------------------------------------------------------------

void TzuDataList::ListIndexesOutOfDate(int index)
{
    m_firstStaleIndex = std::min(m_firstStaleIndex, index);
    m_indexesOutOfDate = true;
}

void TzuDataList::EnsureListIndexes()
{
    if (m_indexesOutOfDate) {
        UpdateListIndexesFrom(FirstToRefresh());
        m_indexesOutOfDate = false;
        m_firstStaleIndex = Count();
    }
}

void TzuDataList::UpdateListIndexesFrom(int index)
{
    m_items.NumberFrom(index - m_unloadedBefore, index);
}

} // namespace korvane
