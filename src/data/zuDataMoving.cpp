#include "data/zuDataMoving.h"

#include <unordered_set>

namespace korvane {

int IndexInList(const TzuDataEntity &entity)
{
    const TzuDataList *list = entity.GetDataList();
    return list != nullptr ? list->UnloadedBefore() + list->IndexOf(&entity) : 0;
}

TLivingEntities::TLivingEntities(const std::vector<TzuDataEntity *> &entities)
{
    for (TzuDataEntity *entity : entities) {
        m_watches.push_back(entity != nullptr ? std::make_unique<TzuLifeWatch>(*entity) : nullptr);
    }
}

TLivingEntities::~TLivingEntities()
{
    while (!m_watches.empty()) {
        m_watches.pop_back(); // watches end in the reverse order of their beginning
    }
}

bool TLivingEntities::AllLive() const
{
    return std::all_of(m_watches.begin(), m_watches.end(), [](const auto &watch) {
        return watch == nullptr || static_cast<bool>(*watch);
    });
}

namespace {

/// Brings an entity before another one of the list, or to the list's end.
void Place(TzuDataEntity &entity, TzuDataList &list, const TzuDataEntity *before)
{
    if (entity.GetDataList() != &list) {
        entity.ChangeOwner(&list, before != nullptr ? list.IndexOf(before) : list.LoadedCount());
        return;
    }
    const int from = IndexInList(entity);
    const int to = before != nullptr ? IndexInList(*before) : list.Count();
    const int place = to > from ? to - 1 : to;
    if (place != from) {
        entity.Move(place);
    }
}

} // namespace

void MoveEntitiesInto(const std::vector<TzuDataEntity *> &entities, TzuDataList &list, int index)
{
    // A handler may change what this was called with.
    const std::vector<TzuDataEntity *> moved = entities;
    const std::unordered_set<const TzuDataEntity *> set(moved.begin(), moved.end());
    const TLivingEntities living(moved);
    const TzuLifeWatch listLives(list);
    TzuDataEntity *before = nullptr;
    for (int i = std::max(index, 0); listLives && before == nullptr && i < list.Count(); ++i) {
        TzuDataEntity *entity = list.GetItems(i);
        before = set.contains(entity) ? nullptr : entity;
    }
    if (listLives && before == nullptr) {
        list.EnsureLoadedItem(list.Count() - 1); // its end is the block's
    }
    const TLivingEntities target({before});
    for (std::size_t i = 0; i < moved.size() && listLives && target.AllLive(); ++i) {
        if (living.Lives(i)) {
            Place(*moved[i], list, before);
        }
    }
}

} // namespace korvane
