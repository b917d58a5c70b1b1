// The paged list in which every component holds its entities.
#pragma once

#include "data/zuDataEntity.h"
#include "data/zuEntityClass.h"
#include "data/zuListController.h"
#include "data/zuSequence.h"
#include "foundation/zuExport.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace korvane {

/// Beyond this many loaded items a virtual list is purged before it loads more.
inline constexpr int kMaxLoaded = 500;

/// The order of a sort.
enum class TSortDirection : std::uint8_t { Ascending, Descending };
/// One end of the loaded block.
enum class TBlockEnd : std::uint8_t { Front, Back };

/// How a list's sequence finds the chunk that holds an entity.
struct TDataEntityPlace
{
    /// For the list alone to write.
    static std::uint32_t &Of(TzuDataEntity &entity) { return entity.m_chunk; }
};

/// An ordered list of entities of which one contiguous block is present as objects; the items
/// before and after the block are only counted, and are created when they are asked for. The list
/// creates and owns its entities. Main thread only.
///
/// An index counts all items; a position counts within the loaded block. Cached indexes are
/// refreshed lazily, from the lowest index that a change touched. Deleting an item that is not
/// loaded, loading and unloading make no index stale, so that indexes cached before stay as they
/// are.
///
/// To release a list use FreeWheneverPossible; the destructor alone leaves its entities behind.
class KORVANE_CORE_API TzuDataList : public TzuExposable
{
public:
    TzuDataList() = default;
    ~TzuDataList() override;

    /// Releases every loaded entity, first to last, and forgets the others. Handlers that run
    /// meanwhile see a list of the entities that are still to be released.
    void CleanForFree() override;
    /// Releases an entity that is in the list no longer.
    virtual void FreeDataEntity(TzuDataEntity *entity);
    /// Second step of creation. The controller is not owned and outlives the list.
    virtual void AfterCreate(TzuListController *controller, EntityClass entityClass);
    /// Announces that many further items at the end without creating them. Fires OnContentChanged,
    /// then OnCountChanged.
    virtual void AddUnloaded(int count);

    /// What AfterCreate was given; nil, and no class, before.
    TzuListController *Controller() const { return m_controller; }
    const EntityClass &GetEntityClass() const { return m_entityClass; }

    /// How many items there are, how many of them are objects, and how many are only counted before
    /// and after these.
    bool IsFullyLoaded() const { return m_unloadedBefore == 0 && m_unloadedAfter == 0; }
    int Count() const { return m_unloadedBefore + m_items.Size() + m_unloadedAfter; }
    int LoadedCount() const { return m_items.Size(); }
    int UnloadedBefore() const { return m_unloadedBefore; }
    int UnloadedAfter() const { return m_unloadedAfter; }
    /// False for every index outside 0..Count()-1.
    bool IsLoaded(int index) const
    {
        return index >= m_unloadedBefore && index - m_unloadedBefore < m_items.Size();
    }
    /// Throws std::out_of_range when the loaded block has no such position.
    TzuDataEntity *GetLoaded(int position) const { return m_items.At(position); }
    /// The entity at an index, loaded when need be; nil when there is no such index.
    TzuDataEntity *GetItems(int index) { return EnsureLoadedItem(index); }
    TzuDataEntity *EnsureLoadedItem(int index);

    /// A new entity of this list that is not placed in it.
    std::unique_ptr<TzuDataEntity> CreateItem();
    /// Creates an entity at a position of the loaded block. Returns nil when a handler released it.
    /// Throws std::out_of_range when the block has no such position.
    TzuDataEntity *InsertItem(int position);
    /// Creates an entity at an index 0..Count. Returns and throws as InsertItem.
    TzuDataEntity *Insert(int index);

    /// The same at the end.
    TzuDataEntity *Add() { return Insert(Count()); }
    /// Deletes the item at the entity's ListIndex; nothing when the entity was taken out already.
    void Remove(TzuDataEntity *entity);
    /// Deletes the item at an index; nothing when there is none. An item that is not loaded only
    /// leaves the count.
    void Delete(int index);
    /// Deletes every item, from the last to the first, and fires OnCountChanged.
    void Clear();
    /// Sorts all items, loading them, by the controller's OnEntityCompare, stably (also when
    /// descending: backwards as a whole). Without that handler nothing happens. When the comparison
    /// changes the list, the order stays as it is.
    void Sort(TSortDirection direction = TSortDirection::Ascending);

    /// Position in the loaded block; -1 when the entity is not in it.
    int IndexOf(const TzuDataEntity *entity) const { return m_items.IndexOf(entity); }
    /// The first loaded entity that the function accepts, or nil.
    TzuDataEntity *FindDataEntity(const TFindFunc &accepts) const;

    /// Number of loaded entities that are selected.
    int SelectedCount() const { return m_selectedCount; }
    /// Position of the first selected entity in the loaded block, or -1.
    int FirstSelected() const;
    /// Deselects every loaded entity; each change fires OnSelectionChanged.
    void ClearSelections();
    /// Calls the event for each loaded entity that is selected, in loaded order.
    void IteratorOfSelectedDataEntities(const TSelectedDataEntityEvent &event);
    /// Fires OnSelectionChanged.
    void SelectionChanged(TzuDataList *list, TzuDataEntity *entity) const;

    /// Number of loaded entities that are visible.
    int VisibleCount() const;
    /// Whether there is such an item, loaded or not; false before AfterCreate.
    bool ValidIndexDataEntity(int index) const
    {
        return m_created && index >= 0 && index < Count();
    }
    /// Whether there is such an item, and it is visible. Loads it.
    bool VisibleIndexDataEntity(int index);
    /// How many items up to and including the index are visible, less 1; -1 before the first item.
    /// Loads what it passes.
    int ListIndexToVisibleIndex(int index);
    /// The first index up to which one more than `visibleIndex` items are visible; -1 when there is
    /// none. -1 therefore asks for a hidden first item. Loads what it passes.
    int VisibleIndexToListIndex(int visibleIndex);

    /// Cleared by EnsureListIndexes.
    bool IndexesOutOfDate() const { return m_indexesOutOfDate; }
    /// The lowest index from which cached indexes may be stale.
    int FirstStaleIndex() const { return m_firstStaleIndex; }
    /// Nothing is renumbered until an index is asked for.
    void ListIndexesOutOfDate(int index);
    /// Refreshes what is stale. Throws as UpdateListIndexesFrom.
    void EnsureListIndexes();
    /// Gives the loaded entities from this index on their index. Throws std::out_of_range when the
    /// index lies before the loaded block.
    void UpdateListIndexesFrom(int index);

    /// Creates the items `from`..`to` (both included) at one end of the block. At the front they
    /// come to lie in reverse of the indexes that they are given; fires OnLoadItem for each.
    void LoadItems(int from, int to, TBlockEnd end);
    /// Frees a loaded item without any event, unless the class keeps it; it is counted on at the
    /// given side of the block. Throws std::out_of_range when it is not loaded.
    void Unload(int index, TBlockEnd toward);
    /// OnCanUnload's verdict; false without a handler.
    bool CanUnload(TzuDataEntity *entity) const;
    /// Unloads from both ends of the block as far as OnCanUnload allows.
    void Purge();
    /// Clears the selection, then purges.
    void UnloadAll();

protected:
    /// An entity has come into the loaded block, or has left it. Not called for entities that are
    /// freed while the list holds them.
    virtual void Joined(TzuDataEntity & /*entity*/) {}
    virtual void Left(TzuDataEntity & /*entity*/) {}
    /// The loaded entities stand in another order.
    virtual void Reordered() {}
    /// `by` items that are only counted came at a place among these, or are about to go from there.
    /// Not called for items that are loaded or unloaded.
    virtual void CountedChanged(int /*place*/, int /*by*/) {}
    /// The entity was only counted until now, at a place among those that are; OnLoadItem follows.
    virtual void BecameLoaded(TzuDataEntity & /*entity*/, int /*place*/) {}
    /// An entity is about to be unloaded; false keeps it. May change the list.
    virtual bool MayUnload(TzuDataEntity & /*entity*/) { return true; }
    /// The entity that was asked about is only counted now.
    virtual void BecameCounted(int /*place*/) {}
    /// From where EnsureListIndexes refreshes; what is stale may lie before the loaded block.
    virtual int FirstToRefresh() const { return m_firstStaleIndex; }

private:
    friend class TzuDataEntity;
    friend class TDataListTrav;

    class KeepLoaded;
    struct LoadRange
    {
        int From;
        int To;
        TBlockEnd End;
    };

    LoadRange RangeToLoad(int index) const;
    void Place(int position, TzuDataEntity *entity, int cachedIndex);
    TzuDataEntity *Take(int position);
    TzuDataEntity *TakeSilently(int position);
    void MoveLoaded(int from, int to);
    void Forget(TzuDataEntity *entity);
    void ForgetCounted();
    void ReleaseLoaded();
    std::vector<TzuDataEntity *> LoadedAll();
    int FindSelectedFrom(int position) const;
    template <typename Handle>
    void ForEachSelected(const Handle &handle);
    template <auto Slot, typename... Args>
    void Fire(Args... args) const
    {
        if (m_controller != nullptr) {
            (m_controller->*Slot)(args...);
        }
    }

    bool m_created = false;
    bool m_indexesOutOfDate = false;
    /// Set while something holds pointers to all loaded entities.
    bool m_keepLoaded = false;
    /// Set once a traverser has the list in its travel list.
    bool m_travelled = false;
    int m_firstStaleIndex = 0;
    int m_unloadedBefore = 0;
    int m_unloadedAfter = 0;
    int m_selectedCount = 0;
    /// Counts the entities that came and went.
    std::uint32_t m_changes = 0;
    TzuListController *m_controller = nullptr;
    EntityClass m_entityClass;
    /// The loaded block; its numbers are the cached indexes.
    TSequence<TzuDataEntity, TPlaceInItem<TzuDataEntity, TDataEntityPlace>, TNumbering::PerItem>
        m_items;
};

} // namespace korvane
