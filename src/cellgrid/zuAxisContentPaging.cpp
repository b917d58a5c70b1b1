// Loading and unloading of an axis.
#include "cellgrid/zuAxisContent.h"
#include "cellgrid/zuBabGridCell.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace korvane {

/// The bracket around a load; closed also when a handler throws.
class TAxisContentList::TLoading
{
public:
    explicit TLoading(TAxisContentList &list)
        : m_list(list)
        , m_lives(list.m_lives)
    {
        ++list.m_loadNesting;
    }
    TLoading(const TLoading &) = delete;
    TLoading &operator=(const TLoading &) = delete;
    ~TLoading()
    {
        if (ListLives()) {
            --m_list.m_loadNesting;
        }
    }
    bool ListLives() const { return !m_lives.expired(); }

private:
    TAxisContentList &m_list;
    std::weak_ptr<bool> m_lives;
};

std::optional<TAxisContentList::TRange> TAxisContentList::RangeToLoad(int index) const
{
    const int blockEnd = m_loaded.Size() + m_unloadedBefore;
    const int blockBegin = m_fixedCount + m_unloadedBefore;
    if (index >= m_fixedCount && index < blockBegin) {
        return TRange{index, blockBegin - 1, TBlockEnd::Front};
    }
    if (index >= blockEnd) {
        return TRange{blockEnd, index, TBlockEnd::Back};
    }
    return std::nullopt;
}

TAxisContentItem *TAxisContentList::EnsureLoadedItem(int index)
{
    if (index < m_fixedCount || index >= Count()) {
        return nullptr;
    }
    if (m_presence != nullptr) {
        return EnsureLoadedInGap(index);
    }
    const std::weak_ptr<bool> lives = m_lives;
    auto range = RangeToLoad(index);
    if (range && range->To - range->From + 1 + m_loaded.Size() > kMaxLoaded && !m_keepLoaded) {
        UnloadAll();
        if (lives.expired()) {
            return nullptr;
        }
        index = std::min(index, Count() - 1);
        if (index < m_fixedCount) {
            return nullptr;
        }
        if (m_loaded.Size() == m_fixedCount) {
            const int unloaded = m_unloadedBefore + m_unloadedAfter;
            m_unloadedBefore = std::min(index, unloaded);
            m_unloadedAfter = unloaded - m_unloadedBefore;
        }
        // What could not be unloaded may be nearer now, or the item itself.
        range = RangeToLoad(index);
    }
    if (range) {
        LoadItems(range->From, range->To, range->End);
    }
    return lives.expired() ? nullptr : FindLoaded(index);
}

void TAxisContentList::LoadItems(int from, int to, TBlockEnd end)
{
    const TLoading loading(*this);
    m_protectFrom = from;
    m_protectTo = to;
    const bool atFront = end == TBlockEnd::Front;
    int &unloaded = atFront ? m_unloadedBefore : m_unloadedAfter;
    for (int step = from; step <= to; ++step) {
        const bool counted = unloaded > 0;
        unloaded -= counted ? 1 : 0;
        const int position = atFront ? std::min(m_fixedCount, m_loaded.Size()) : m_loaded.Size();
        Place(position, CreateItem(nullptr));
        const int index = IndexConvert_LoadedToReal(position);
        if (!counted) {
            CountChanged(index, 1);
            ListIndexesOutOfDate(index);
        }
        ++m_changes;
        m_gridCell.InsertingAxisItem(*this, index);
    }
    CallVirtualLoad({from, to, end});
    if (loading.ListLives()) {
        m_gridCell.ChangeInUnloaded(*this);
    }
}

void TAxisContentList::CallVirtualLoad(const TRange &range)
{
    TBabGridCellForViewer *viewer = Viewer();
    if (viewer == nullptr || !viewer->OnVirtualLoad) {
        return;
    }
    const std::weak_ptr<bool> lives = m_lives;
    const bool atFront = range.End == TBlockEnd::Front;
    m_lastLoadAtFront = atFront;
    const auto handler = viewer->OnVirtualLoad;
    for (int step = 0; step <= range.To - range.From && !lives.expired(); ++step) {
        TAxisContentItem *item = FindLoaded(atFront ? range.To - step : range.From + step);
        if (item != nullptr) {
            handler(&m_gridCell, item, IsRowAxis());
        }
    }
}

void TAxisContentList::Unload(int index, TBlockEnd toward)
{
    if (!IsPresent(index)) {
        throw std::out_of_range("List index out of bounds");
    }
    const bool toFront = toward == TBlockEnd::Front;
    bool counted = true;
    TAxisContentItem *item = FindLoaded(index);
    if (TBabGridCellForViewer *viewer = Viewer()) {
        const std::weak_ptr<bool> lives = m_lives;
        viewer->OnAxisItemUnload(&m_gridCell, item, IsRowAxis(), counted);
        if (!lives.expired()) {
            viewer->OnVirtualUnLoad(&m_gridCell, item, IsRowAxis(), counted);
        }
        if (lives.expired()) {
            return;
        }
        if (FindLoaded(index) != item) {
            return; // a handler took it
        }
    }
    m_gridCell.DroppingAxisItem(*this, index);
    const bool forgetSize = item->GetHide() || item->GetUserSizeActive();
    Take(IndexConvert_RealToLoaded(index));
    ++m_changes;
    if (!counted) {
        CountChanged(index, -1);
        if (toFront) {
            ListIndexesOutOfDate(m_unloadedBefore);
        }
        return;
    }
    ++(toFront ? m_unloadedBefore : m_unloadedAfter);
    if (forgetSize) {
        m_extents.Fill(index, 1, TRunSequence::kDefault);
    }
}

void TAxisContentList::UnloadIntervall(TAxisContentItem &item, int &first, int &last)
{
    first = last = item.ListIndex();
    if (TBabGridCellForViewer *viewer = Viewer()) {
        viewer->OnUnloadIntervall(&m_gridCell, &item, IsRowAxis(), first, last);
    }
    if (last < first) {
        throw std::logic_error("Incorrect intervall");
    }
}

bool TAxisContentList::CanUnload(TAxisContentItem &item)
{
    const int index = item.ListIndex();
    if (FindLoaded(index) != &item) {
        throw std::logic_error("Index fu");
    }
    if (item.InVisibleList() || m_gridCell.HasSelectedCell(*this, index)) {
        return false;
    }
    bool canUnload = false;
    if (TBabGridCellForViewer *viewer = Viewer()) {
        viewer->OnCanUnload(&m_gridCell, &item, IsRowAxis(), canUnload);
    }
    return canUnload;
}

/// Whether all loaded items of an interval may go.
bool TAxisContentList::MayUnloadAll(int first, int last)
{
    const std::weak_ptr<bool> lives = m_lives;
    for (int index = first; index <= last; ++index) {
        TAxisContentItem *item = FindLoaded(index);
        if (item == nullptr || !CanUnload(*item) || lives.expired()) {
            return false;
        }
    }
    return true;
}

/// The items at one end of the block that go together, as far as they are loaded; nothing when they
/// have to stay.
std::optional<TAxisContentList::TRange> TAxisContentList::IntervalToUnload(TBlockEnd end)
{
    const bool front = end == TBlockEnd::Front;
    const int position = front ? m_fixedCount : m_loaded.Size() - 1;
    const int index = IndexConvert_LoadedToReal(position);
    if (IsProtected(index)) {
        return std::nullopt;
    }
    const std::weak_ptr<bool> lives = m_lives;
    int first = 0;
    int last = 0;
    UnloadIntervall(*m_loaded.At(position), first, last);
    if (lives.expired()) {
        return std::nullopt;
    }
    if (front) {
        first = index;
        last = std::clamp(last, index,
                          std::max(index, IndexConvert_LoadedToReal(m_loaded.Size() - 1)));
    } else {
        last = index;
        first = std::clamp(first, std::min(index, IndexConvert_LoadedToReal(m_fixedCount)), index);
    }
    return MayUnloadAll(first, last) ? std::optional(TRange{first, last, end}) : std::nullopt;
}

/// Unloads the interval at one end of the block; false when it stays.
bool TAxisContentList::PurgeAt(TBlockEnd end)
{
    const auto interval = IntervalToUnload(end);
    if (!interval) {
        return false;
    }
    const std::weak_ptr<bool> lives = m_lives;
    for (int last = interval->To; last >= interval->From && !lives.expired(); --last) {
        // At the front what is left moves up.
        const bool front = end == TBlockEnd::Front;
        const int index = front ? IndexConvert_LoadedToReal(m_fixedCount) : last;
        if (IsPresent(index)) {
            Unload(index, end);
        }
    }
    return !lives.expired();
}

void TAxisContentList::Purge()
{
    if (m_presence != nullptr) {
        return; // who allowed gaps unloads
    }
    const std::weak_ptr<bool> lives = m_lives;
    for (const TBlockEnd end : {TBlockEnd::Front, TBlockEnd::Back}) {
        // Handlers may add items, but not for ever.
        for (int left = m_loaded.Size(); left > 0 && !lives.expired(); --left) {
            if (m_keepLoaded || m_loaded.Size() <= m_fixedCount || !PurgeAt(end)) {
                break;
            }
        }
        if (lives.expired()) {
            return;
        }
    }
}

void TAxisContentList::UnloadAll()
{
    const std::weak_ptr<bool> lives = m_lives;
    m_gridCell.SetSelected(false);
    if (!lives.expired()) {
        ClearVisibles();
        Purge();
    }
}

} // namespace korvane
