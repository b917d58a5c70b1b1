// The columns or the rows of a cell grid: a paged list with a fixed head.
#pragma once

#include "cellgrid/zuAxisItem.h"
#include "cellgrid/zuRunSequence.h"
#include "data/zuDataList.h"
#include "data/zuSequence.h"
#include "foundation/zuExport.h"
#include "foundation/zuMethod.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace korvane {

class TBabGridCell;
class TBabGridCellForViewer;

/// One axis of a cell grid: a fixed head that is always loaded, then items of which one contiguous
/// block is loaded; those before and after the block are only counted and are created when they are
/// asked for. Items that are shown are never unloaded.
///
/// With AllowGaps items that are only counted stand anywhere, which is how the rows of a tree come
/// and go; then there is no block, and who allowed it loads and unloads the items.
///
/// A real index counts all items; a position counts the loaded ones. Every change is reported to
/// the grid cell, and the handlers of the viewer's grid cell load and unload. They may change the
/// list. Lookups and changes cost a logarithm and a few steps along the loaded chunks.
class KORVANE_CORE_API TAxisContentList : public TObject
{
public:
    /// The grid cell outlives the axis; `defaultSize` is in pixels.
    TAxisContentList(TBabGridCell &gridCell, int defaultSize);
    ~TAxisContentList() override;

    /// The grid whose axis this is, and which of its two.
    TBabGridCell &getGridCell() const { return m_gridCell; }
    bool IsRowAxis() const;

    /// Numbers of items: all, hidden or not, those that are loaded, and those that the last layout
    /// showed.
    int Count() const
    {
        return m_presence != nullptr ? m_presence->Count()
                                     : m_loaded.Size() + m_unloadedBefore + m_unloadedAfter;
    }
    int LoadedCount() const { return m_loaded.Size(); }
    bool IsFullyLoaded() const { return LoadedCount() == Count(); }
    int VisibleCount() const { return m_visibles.Size(); }
    /// Number of loaded items that are hidden.
    int GetHiddenRowCount() const { return m_hiddenCount; }
    /// Number of items that take no room, loaded or not. Costs the runs of equal sizes.
    int CountWithoutSize() const;
    /// Numbers of items that are only counted, before and behind the block; 0 with gaps.
    int UnloadedBefore() const { return m_unloadedBefore; }
    int UnloadedAfter() const { return m_unloadedAfter; }
    /// Items of the head; 0 by default. The caller sees to it that they are loaded.
    int FixedCount() const { return m_fixedCount; }
    void SetFixedCount(int count);
    /// Compares with UnloadedBefore alone, so that with a head and unloaded items behind it the
    /// last of those count as loaded; IsPresent tells the truth.
    bool IsLoaded(int index) const;
    /// Whether the item is loaded; false for indexes that do not exist.
    bool IsPresent(int index) const;
    /// Between real index and position; of items that are loaded.
    int IndexConvert_RealToLoaded(int index) const
    {
        return index < m_fixedCount    ? index
               : m_presence != nullptr ? PositionInGaps(index)
                                       : index - m_unloadedBefore;
    }
    int IndexConvert_LoadedToReal(int position) const
    {
        return position < m_fixedCount ? position
               : m_presence != nullptr ? m_presence->IndexAt(position)
                                       : position + m_unloadedBefore;
    }

    /// The item at a real index, loaded on demand; nil when there is none.
    TAxisContentItem *getAxisContentItem(int index);
    /// The item if it is loaded, else nil; never loads.
    TAxisContentItem *FindLoaded(int index) const
    {
        return IsPresent(index) ? m_loaded.At(IndexConvert_RealToLoaded(index)) : nullptr;
    }
    /// The nearest loaded item from the index on, in steps of 1 or -1; -1 when there is none.
    int NearestLoaded(int index, int step) const;
    /// Throw std::out_of_range. The second one counts what the last layout showed.
    TAxisContentItem *getLoadedAxisContentItem(int position) const { return m_loaded.At(position); }
    TAxisContentItem *getVisibleAxisContentItem(int k) const { return m_visibles.At(k); }
    /// Real index of an item of this list; costs no refreshing of the others.
    int IndexOf(const TAxisContentItem &item) const
    {
        return IndexConvert_LoadedToReal(m_loaded.IndexOf(&item));
    }

    /// Appends an item, loading the last one. Nil when a handler released the axis. `value` is
    /// observed.
    TAxisContentItem *AddNew(TObject *value);
    /// Throws std::logic_error while items are being loaded, std::out_of_range beyond 0..Count.
    TAxisContentItem *InsertNew(int index, TObject *value);
    /// Announces that many further items at the end without creating them.
    void AddUnloaded(int count);
    /// Loads what lies between. Throws std::out_of_range.
    void Move(int from, int to);
    /// Nothing when there is no such item. One that is not loaded only leaves the count.
    void Drop(int index);
    /// Removes items that are only counted; the viewer's handler may change the range. Both tests
    /// use the raw counts, and a range that starts right behind the block leaves the tail alone.
    void DeleteOfUnloaded(int from, int to);
    /// Remove everything, or all behind the head, from the last item to the first.
    void Clear() { CommonClear(0); }
    void ClearKeepFixedItems() { CommonClear(m_fixedCount); }
    /// Puts the loaded items behind the head in another order. Throws std::invalid_argument, and
    /// changes nothing, for another number of items.
    void Reorder(const std::vector<TAxisContentItem *> &items);
    /// A copy, the head included.
    std::vector<TAxisContentItem *> LoadedItems() const { return m_loaded.Items(); }

    /// The item at a real index behind the head; loads it and what lies between it and the block.
    TAxisContentItem *EnsureLoadedItem(int index);
    /// Creates the items `from`..`to` (both included) at one end of the block.
    void LoadItems(int from, int to, TBlockEnd end);
    /// Within LoadItems; and whether the last of these was at the front.
    bool IsLoading() const { return m_loadNesting > 0; }
    bool LastLoadAtFront() const { return m_lastLoadAtFront; }
    /// Throws std::out_of_range when the item is not loaded.
    void Unload(int index, TBlockEnd toward);
    /// The items that may only go together with this one. Throws std::logic_error when a handler
    /// turned the interval round.
    void UnloadIntervall(TAxisContentItem &item, int &first, int &last);
    /// Neither shown nor with a selected cell, and the viewer's handler agrees. Throws
    /// std::logic_error when the item is not where its index says.
    bool CanUnload(TAxisContentItem &item);
    /// Unloads from both ends of the block as far as it is allowed.
    void Purge();
    /// Deselects, forgets what is shown, and purges.
    void UnloadAll();

    /// The view fills these anew at each layout.
    void AddToVisible(TAxisContentItem &item);
    void ClearVisibles();
    /// Keeps the number of hidden items; for the items alone.
    void UpdateHiddenItemsList(TAxisContentItem &item, bool hide);
    /// SetHide of the items `first`..`last` (both included) without the hide event, which is the
    /// caller's to fire. Those that are only counted, in an axis with gaps, take no room or the
    /// default size.
    void SetHidden(int first, int last, bool hide);

    /// Items that are only counted may stand anywhere behind the head; `load` is called when one is
    /// asked for, and is to call LoadAt. All items have to be loaded. Nil ends it and drops what is
    /// only counted.
    void AllowGaps(TMethod<void(int index)> load);
    bool HasGaps() const { return m_presence != nullptr; }
    // Of an axis with gaps alone. Indexes are cut to the range that exists.
    /// `count` items that are only counted come at the index.
    void InsertCounted(int index, int count, bool hide);
    /// Items from the index on that are only counted go; loaded ones end it.
    void EraseCounted(int index, int count);
    /// Of the counted items `first`..`end - 1` those go that take no room; returns where the others
    /// end then.
    int EraseCountedWithoutSize(int first, int end);
    /// The counted item at the index comes to be. It is hidden when it took no room.
    TAxisContentItem *LoadAt(int index, TObject *value);
    /// The loaded item at the index is only counted from now on, `hide` without room.
    void UnloadAt(int index, bool hide);
    /// The items `from`..`from + count - 1`, loaded or not, come to stand from `to` on, counted
    /// without them.
    void MoveRange(int from, int to, int count);
    /// Whether any of the items `first`..`end - 1` is shown, or is about to be: what
    /// KeepForLayout named since the last layout was done.
    bool IsShown(int first, int end) const;
    void KeepForLayout(int first, int last);
    /// Forgets what the last layout showed, so that it may go when far items are wanted.
    void ForgetShown() { m_visibles.Clear(); }

    /// Cached indexes: whether they may be stale and from where, and their refreshing. An item that
    /// is asked for its index brings all up to date.
    bool IndexesOutOfDate() const { return m_indexesOutOfDate; }
    int FirstStaleIndex() const { return m_firstStaleIndex; }
    void EnsureListIndexes();
    void ListIndexesOutOfDate(int index);
    void UpdateListIndexesFrom(int index);
    int ListIndexOf(const TAxisContentItem &item);

    /// Pixels. Items that are not loaded keep the size that was measured, or the default; hidden
    /// ones have 0. Indexes out of range throw std::out_of_range.
    int DefaultSize() const { return m_extents.Default(); }
    void SetDefaultSize(int size) { m_extents.SetDefault(size); }
    int SizeAt(int index) const { return m_extents.ExtentAt(index); }
    /// Where the item begins, from the beginning of the axis; also for Count.
    std::int64_t OffsetOf(int index) const { return m_extents.OffsetOf(index); }
    /// Sum of all sizes, in pixels.
    std::int64_t TotalSize() const { return m_extents.Total(); }
    /// The item at an offset, or the nearest one that is not hidden; -1 when there is none.
    int IndexAt(std::int64_t offset) const { return m_extents.IndexAt(offset); }
    /// The nearest item from the index on, in steps of 1 or -1, that is not hidden; -1 when none.
    int NearestShown(int index, int step) const;
    /// Counts the changes of what the axis holds and how large it is.
    std::uint64_t Changes() const { return m_changes; }

private:
    friend class TAxisContentItem;

    class TLoading;
    struct TRange
    {
        int From;
        int To;
        TBlockEnd End;
    };
    using TLoaded =
        TSequence<TAxisContentItem, TPlaceInItem<TAxisContentItem, TAxisContentItem::LoadedPlace>,
                  TNumbering::PerItem>;

    TBabGridCellForViewer *Viewer() const;
    int PositionInGaps(int index) const;
    TAxisContentItem *EnsureLoadedInGap(int index);
    std::unique_ptr<TAxisContentItem> CreateItem(TObject *value);
    void Place(int position, std::unique_ptr<TAxisContentItem> item);
    /// Takes the item out of all sequences; its cells go with it.
    std::unique_ptr<TAxisContentItem> Take(int position);
    enum class TPresence : std::uint8_t { Counted, Loaded };
    void CountChanged(int index, int by, TPresence came = TPresence::Loaded);
    void SizeChanged(TAxisContentItem &item);
    void CommonClear(int keep);
    void RenumberBlock();
    std::optional<TRange> RangeToLoad(int index) const;
    void CallVirtualLoad(const TRange &range);
    bool MayUnloadAll(int first, int last);
    std::optional<TRange> IntervalToUnload(TBlockEnd end);
    bool PurgeAt(TBlockEnd end);
    bool IsProtected(int index) const { return index >= m_protectFrom && index <= m_protectTo; }

    TBabGridCell &m_gridCell;
    TLoaded m_loaded; ///< its numbers are the cached indexes
    TSequence<TAxisContentItem, TPlaceInItem<TAxisContentItem, TAxisContentItem::VisiblePlace>>
        m_visibles;
    TRunSequence m_extents;                   ///< by real index
    std::unique_ptr<TRunSequence> m_presence; ///< with gaps: 1 for what is loaded, 0 for the others
    TMethod<void(int)> m_loadGap;
    std::shared_ptr<bool> m_lives = std::make_shared<bool>(true); ///< false once destroyed
    std::uint64_t m_changes = 0;
    int m_loadNesting = 0;
    int m_firstStaleIndex = 0;
    int m_unloadedBefore = 0;
    int m_unloadedAfter = 0;
    int m_fixedCount = 0;
    int m_hiddenCount = 0;
    int m_protectFrom = -1;
    int m_protectTo = -1;
    std::uint32_t m_lastId = 0;
    bool m_lastLoadAtFront = false;
    bool m_indexesOutOfDate = true;
    bool m_keepLoaded = false; ///< nothing is purged
};

} // namespace korvane
