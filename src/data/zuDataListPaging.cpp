// Loading, unloading and sorting of a data list.
#include "data/zuDataList.h"
#include "data/zuMergeSort.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace korvane {

/// While it lives nothing is purged.
class TzuDataList::KeepLoaded
{
public:
    explicit KeepLoaded(TzuDataList &list)
        : m_list(list)
        , m_lives(list)
        , m_before(std::exchange(list.m_keepLoaded, true))
    {
    }
    ~KeepLoaded()
    {
        if (m_lives) {
            m_list.m_keepLoaded = m_before;
        }
    }

private:
    TzuDataList &m_list;
    TzuLifeWatch m_lives;
    bool m_before;
};

void TzuDataList::AddUnloaded(int count)
{
    const TzuLifeWatch self(*this);
    const int room = std::numeric_limits<int>::max() - m_items.Size() - m_unloadedBefore;
    const std::int64_t unloaded = std::int64_t{m_unloadedAfter} + count;
    const auto after = static_cast<int>(std::clamp<std::int64_t>(unloaded, 0, room));
    const int by = after - m_unloadedAfter;
    if (by < 0) {
        CountedChanged(m_unloadedBefore + after, by);
    }
    m_unloadedAfter = after;
    if (by > 0) {
        CountedChanged(m_unloadedBefore + after - by, by);
    }
    Fire<&TzuListController::OnContentChanged>(this);
    if (self) {
        Fire<&TzuListController::OnCountChanged>(this);
    }
}

TzuDataEntity *TzuDataList::EnsureLoadedItem(int index)
{
    if (index < 0 || index >= Count()) {
        return nullptr;
    }
    if (IsLoaded(index)) {
        return m_items.At(index - m_unloadedBefore);
    }
    const TzuLifeWatch self(*this);
    LoadRange range = RangeToLoad(index);
    if (range.To - range.From + m_items.Size() > kMaxLoaded) {
        UnloadAll();
        if (!self || Count() <= 0) {
            return nullptr;
        }
        index = std::min(index, Count() - 1);
        if (IsLoaded(index)) {
            return m_items.At(index - m_unloadedBefore);
        }
        if (m_items.Empty()) {
            m_unloadedAfter += m_unloadedBefore - index;
            m_unloadedBefore = index;
        }
        range = RangeToLoad(index);
    }
    LoadItems(range.From, range.To, range.End);
    return self && IsLoaded(index) ? m_items.At(index - m_unloadedBefore) : nullptr;
}

TzuDataList::LoadRange TzuDataList::RangeToLoad(int index) const
{
    if (index < m_unloadedBefore) {
        return {index, m_unloadedBefore - 1, TBlockEnd::Front};
    }
    const int blockEnd = m_items.Size() + m_unloadedBefore;
    return {blockEnd > 0 ? std::min(index, blockEnd) : index, index, TBlockEnd::Back};
}

void TzuDataList::LoadItems(int from, int to, TBlockEnd end)
{
    const TzuLifeWatch self(*this);
    if (m_unloadedBefore == 0 && Count() == m_unloadedAfter) {
        m_unloadedAfter = Count() - from;
        m_unloadedBefore = from;
    }
    const bool atFront = end == TBlockEnd::Front;
    int &unloaded = atFront ? m_unloadedBefore : m_unloadedAfter;
    for (int index = from; index <= to; ++index) {
        auto entity = CreateItem();
        if (!self) {
            return;
        }
        TzuDataEntity *loaded = entity.release();
        Place(atFront ? 0 : m_items.Size(), loaded, index);
        if (unloaded > 0) {
            --unloaded;
            BecameLoaded(*loaded, m_unloadedBefore);
        }
    }
    for (int step = 0; step <= to - from && self; ++step) {
        const int index = atFront ? to - step : from + step;
        if (IsLoaded(index)) {
            Fire<&TzuListController::OnLoadItem>(m_items.At(index - m_unloadedBefore));
        }
    }
}

void TzuDataList::Unload(int index, TBlockEnd toward)
{
    const TzuDataEntity *entity = m_items.At(index - m_unloadedBefore);
    const TzuLifeWatch self(*this);
    if (!MayUnload(*m_items.At(index - m_unloadedBefore)) || !self || !IsLoaded(index)
        || m_items.At(index - m_unloadedBefore) != entity) {
        return;
    }
    delete Take(index - m_unloadedBefore);
    const bool toFront = toward == TBlockEnd::Front;
    ++(toFront ? m_unloadedBefore : m_unloadedAfter);
    BecameCounted(toFront ? m_unloadedBefore - 1 : m_unloadedBefore);
    if (m_items.Empty()) {
        m_unloadedAfter += m_unloadedBefore;
        m_unloadedBefore = 0;
    }
}

bool TzuDataList::CanUnload(TzuDataEntity *entity) const
{
    bool canUnload = false;
    if (m_controller != nullptr) {
        m_controller->OnCanUnload(entity, canUnload);
    }
    return canUnload;
}

void TzuDataList::Purge()
{
    const TzuLifeWatch self(*this);
    for (const auto end : {TBlockEnd::Front, TBlockEnd::Back}) {
        const auto position = [&] { return end == TBlockEnd::Front ? 0 : m_items.Size() - 1; };
        // The handler may add items, but not for ever.
        for (int left = m_items.Size(); left > 0 && !m_items.Empty() && !m_keepLoaded; --left) {
            TzuDataEntity *entity = m_items.At(position());
            const bool canUnload = CanUnload(entity);
            if (!self) {
                return;
            }
            if (!canUnload) {
                break;
            }
            if (!m_items.Empty() && m_items.At(position()) == entity) {
                const auto changes = m_changes;
                Unload(m_unloadedBefore + position(), end);
                if (!self) {
                    return;
                }
                if (changes == m_changes) {
                    break; // it is kept
                }
            }
        }
    }
}

void TzuDataList::UnloadAll()
{
    const TzuLifeWatch self(*this);
    ClearSelections();
    if (self) {
        Purge();
    }
}

void TzuDataList::Sort(TSortDirection direction)
{
    if (m_controller == nullptr || !m_controller->OnEntityCompare) {
        return;
    }
    const TzuLifeWatch self(*this);
    auto items = LoadedAll();
    if (!self) {
        return;
    }
    const auto changes = m_changes;
    MergeSort(items, [&](TzuDataEntity *a, TzuDataEntity *b) {
        // After a change of the list the pointers are not to be trusted.
        return self && changes == m_changes && m_controller->OnEntityCompare(a, b) < 0;
    });
    if (!self) {
        return;
    }
    if (changes == m_changes) {
        if (direction == TSortDirection::Descending) {
            std::reverse(items.begin(), items.end());
        }
        m_items.Reorder(items);
        Reordered();
    }
    ListIndexesOutOfDate(0);
    Fire<&TzuListController::OnContentChanged>(this);
}

/// Loads every item and returns them in order. Nothing is unloaded on the way, as a list that pages
/// otherwise would.
std::vector<TzuDataEntity *> TzuDataList::LoadedAll()
{
    const TzuLifeWatch self(*this);
    const KeepLoaded keep(*this);
    const int count = Count();
    for (int index = 0; self && index < count; ++index) {
        EnsureLoadedItem(index);
    }
    return self ? m_items.Items() : std::vector<TzuDataEntity *>();
}

} // namespace korvane
