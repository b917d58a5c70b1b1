// Moving entities to other lists and places.
#pragma once

#include "data/zuDataEntityPack.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace korvane {

/// Index among all items of the entity's list, loaded or not; 0 in no list. Unlike ListIndex it
/// refreshes nothing.
int IndexInList(const TzuDataEntity &entity);

/// Which of some entities still exist, for locals. Nil lives for ever.
class TLivingEntities
{
public:
    /// Watches these until its end; watches end in the reverse order of their beginning.
    explicit TLivingEntities(const std::vector<TzuDataEntity *> &entities);
    TLivingEntities(const TLivingEntities &) = delete;
    TLivingEntities &operator=(const TLivingEntities &) = delete;
    ~TLivingEntities();

    /// By the place in what was given.
    bool Lives(std::size_t index) const
    {
        return m_watches[index] == nullptr || static_cast<bool>(*m_watches[index]);
    }
    bool AllLive() const;

private:
    std::vector<std::unique_ptr<TzuLifeWatch>> m_watches;
};

/// Brings entities into a list, in their order, before what stands at an index of it; those of them
/// that stand there already count. An index of Count or more is behind the last item. Handlers may
/// do away with entities, which are left out then, and with the list or what stands at the index,
/// which ends the moving.
void MoveEntitiesInto(const std::vector<TzuDataEntity *> &entities, TzuDataList &list, int index);

/// Whether the entities may come below the parent (nil: to the top): nothing comes below itself.
template <typename Entity>
bool MayComeBelow(const std::vector<Entity *> &entities, const Entity *parent)
{
    const auto isMoved = [&entities](const Entity *entity) {
        return std::find(entities.begin(), entities.end(), entity) != entities.end();
    };
    for (const Entity *above = parent; above != nullptr; above = above->ParentNode()) {
        if (isMoved(above)) {
            return false;
        }
    }
    return !entities.empty() && !isMoved(nullptr);
}

} // namespace korvane
