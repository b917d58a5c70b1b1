#include "cellgrid/zuAxisContent.h"

#include "cellgrid/zuBabGridCell.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>

namespace korvane {

TAxisContentList::TAxisContentList(TBabGridCell &gridCell, int defaultSize)
    : m_gridCell(gridCell)
    , m_extents(defaultSize)
{
}

TAxisContentList::~TAxisContentList()
{
    *m_lives = false;
    while (!m_loaded.Empty()) {
        Take(m_loaded.Size() - 1);
    }
}

bool TAxisContentList::IsRowAxis() const
{
    return this == &m_gridCell.Rows();
}

TBabGridCellForViewer *TAxisContentList::Viewer() const
{
    return m_gridCell.GetViewerGridCell();
}

void TAxisContentList::SetFixedCount(int count)
{
    m_fixedCount = count;
    ListIndexesOutOfDate(0);
    ++m_changes;
}

bool TAxisContentList::IsLoaded(int index) const
{
    if (m_presence != nullptr) {
        return IsPresent(index);
    }
    return index < m_fixedCount
           || (index >= m_unloadedBefore && index - m_unloadedBefore < m_loaded.Size());
}

bool TAxisContentList::IsPresent(int index) const
{
    if (m_presence != nullptr) {
        return index >= 0 && index < Count() && m_presence->ValueAt(index) != 0;
    }
    const int position = IndexConvert_RealToLoaded(index);
    return position >= (index < m_fixedCount ? 0 : m_fixedCount) && position < m_loaded.Size();
}

TAxisContentItem *TAxisContentList::getAxisContentItem(int index)
{
    return index < m_fixedCount ? FindLoaded(index) : EnsureLoadedItem(index);
}

// --- placing and taking --------------------------------------------------------------------------

std::unique_ptr<TAxisContentItem> TAxisContentList::CreateItem(TObject *value)
{
    return std::unique_ptr<TAxisContentItem>(new TAxisContentItem(this, value, ++m_lastId));
}

void TAxisContentList::Place(int position, std::unique_ptr<TAxisContentItem> item)
{
    // With gaps indexes are not cached.
    const int index = m_presence != nullptr ? 0 : IndexConvert_LoadedToReal(position);
    m_loaded.Insert(position, item.get(), index);
    item.release();
}

std::unique_ptr<TAxisContentItem> TAxisContentList::Take(int position)
{
    std::unique_ptr<TAxisContentItem> item(m_loaded.Erase(position));
    UpdateHiddenItemsList(*item, false);
    if (item->InVisibleList()) {
        m_visibles.Erase(m_visibles.IndexOf(item.get()));
    }
    return item;
}

/// Keeps what counts all items in step after `by` came at the index, or went from it.
void TAxisContentList::CountChanged(int index, int by, TPresence came)
{
    ++m_changes;
    if (by > 0) {
        m_extents.Insert(index, by, TRunSequence::kDefault);
    } else {
        m_extents.Erase(index, -by);
    }
    if (m_presence != nullptr && by > 0) {
        m_presence->Insert(index, by, came == TPresence::Loaded ? 1 : 0);
    } else if (m_presence != nullptr) {
        m_presence->Erase(index, -by);
    }
    m_gridCell.AxisCountChanged(*this, index, by);
}

void TAxisContentList::SizeChanged(TAxisContentItem &item)
{
    m_extents.Fill(IndexOf(item), 1, item.WantedSize());
    ++m_changes;
}

TAxisContentItem *TAxisContentList::AddNew(TObject *value)
{
    const std::weak_ptr<bool> lives = m_lives;
    if (m_presence == nullptr) {
        EnsureLoadedItem(Count() - 1);
    }
    if (lives.expired()) {
        return nullptr;
    }
    auto created = CreateItem(value);
    TAxisContentItem *item = created.get();
    const int end = Count();
    Place(m_loaded.Size(), std::move(created));
    CountChanged(m_presence != nullptr ? end : IndexConvert_LoadedToReal(m_loaded.Size() - 1), 1);
    m_gridCell.InsertingAxisItem(*this, Count() - 1);
    return item;
}

TAxisContentItem *TAxisContentList::InsertNew(int index, TObject *value)
{
    if (m_loadNesting >= 1) {
        throw std::logic_error("Not allowed to add items during load");
    }
    if (index < 0 || index > Count()) {
        throw std::out_of_range("List index out of bounds");
    }
    const std::weak_ptr<bool> lives = m_lives;
    if (m_presence == nullptr) {
        EnsureLoadedItem(index == Count() ? index - 1 : index);
    }
    if (lives.expired()) {
        return nullptr;
    }
    auto created = CreateItem(value);
    TAxisContentItem *item = created.get();
    Place(IndexConvert_RealToLoaded(index), std::move(created));
    CountChanged(index, 1);
    ListIndexesOutOfDate(index);
    m_gridCell.InsertingAxisItem(*this, index);
    return item;
}

void TAxisContentList::AddUnloaded(int count)
{
    if (m_presence != nullptr) {
        InsertCounted(Count(), count, false);
        return;
    }
    const int room = std::numeric_limits<int>::max() - Count();
    const int added = std::clamp(count, -m_unloadedAfter, room);
    const int end = Count();
    m_unloadedAfter += added;
    CountChanged(added < 0 ? end + added : end, added);
    m_gridCell.ChangeInUnloaded(*this);
}

void TAxisContentList::Move(int from, int to)
{
    if (m_presence != nullptr) {
        MoveRange(from, to, 1);
        return;
    }
    const std::weak_ptr<bool> lives = m_lives;
    const bool keptBefore = std::exchange(m_keepLoaded, true);
    try {
        getAxisContentItem(from);
        getAxisContentItem(to);
    } catch (...) {
        if (!lives.expired()) {
            m_keepLoaded = keptBefore;
        }
        throw;
    }
    if (lives.expired()) {
        return;
    }
    m_keepLoaded = keptBefore;
    if (!IsPresent(from) || !IsPresent(to)) {
        throw std::out_of_range("List index out of bounds");
    }
    TAxisContentItem *item = m_loaded.Erase(IndexConvert_RealToLoaded(from));
    m_loaded.Insert(IndexConvert_RealToLoaded(to), item, to);
    m_extents.Move(from, to);
    ++m_changes;
    ListIndexesOutOfDate(std::min(from, to));
    m_gridCell.MowingAxisItem(*this, from, to);
}

void TAxisContentList::Drop(int index)
{
    if (index < 0 || index >= Count()) {
        return;
    }
    if (IsPresent(index)) {
        m_gridCell.DroppingAxisItem(*this, index);
        const auto dropped = Take(IndexConvert_RealToLoaded(index));
        CountChanged(index, -1);
        ListIndexesOutOfDate(index);
        return;
    }
    if (m_presence != nullptr) {
        EraseCounted(index, 1);
        return;
    }
    const bool after = m_unloadedBefore == 0 || (index >= m_unloadedBefore && m_unloadedAfter > 0);
    --(after ? m_unloadedAfter : m_unloadedBefore);
    CountChanged(index, -1);
    RenumberBlock();
}

void TAxisContentList::DeleteOfUnloaded(int from, int to)
{
    if (to < from || m_presence != nullptr) {
        return;
    }
    if (TBabGridCellForViewer *viewer = Viewer()) {
        const std::weak_ptr<bool> lives = m_lives;
        viewer->OnDeleteOfUnloaded(&m_gridCell, IsRowAxis(), from, to);
        if (lives.expired() || to < from) {
            return;
        }
    }
    const std::int64_t length = std::int64_t{to} - from + 1;
    const auto shrink = [length](int &unloaded) {
        const auto gone = static_cast<int>(std::min<std::int64_t>(unloaded, length));
        unloaded -= gone;
        return gone;
    };
    if (m_unloadedBefore > from && m_unloadedBefore > to) {
        const int gone = shrink(m_unloadedBefore);
        CountChanged(std::clamp(from, m_fixedCount, m_fixedCount + m_unloadedBefore), -gone);
        RenumberBlock();
    }
    const int blockEnd = m_loaded.Size() + m_unloadedBefore;
    if (blockEnd < from && to >= from) {
        const int gone = shrink(m_unloadedAfter);
        CountChanged(std::clamp(from, blockEnd, blockEnd + m_unloadedAfter), -gone);
    }
}

void TAxisContentList::CommonClear(int keep)
{
    const std::weak_ptr<bool> lives = m_lives;
    for (int position = m_loaded.Size() - 1; position >= keep; --position) {
        Drop(IndexConvert_LoadedToReal(position));
    }
    if (m_presence != nullptr) {
        EraseCounted(keep, Count());
        return;
    }
    if (m_unloadedAfter > 0) {
        const int first = m_loaded.Size() + m_unloadedBefore;
        DeleteOfUnloaded(first, first + m_unloadedAfter - 1);
        if (lives.expired()) {
            return;
        }
        const int left = std::exchange(m_unloadedAfter, 0);
        CountChanged(Count(), -left);
    }
    if (m_unloadedBefore > 0) {
        DeleteOfUnloaded(0, m_unloadedBefore - 1);
        if (lives.expired()) {
            return;
        }
        const int left = std::exchange(m_unloadedBefore, 0);
        CountChanged(std::min(m_fixedCount, Count()), -left);
        RenumberBlock();
    }
}

void TAxisContentList::Reorder(const std::vector<TAxisContentItem *> &items)
{
    std::vector<TAxisContentItem *> all = m_loaded.Items();
    const int behindHead = IndexConvert_LoadedToReal(m_fixedCount);
    const auto head = all.begin() + std::min<std::ptrdiff_t>(m_fixedCount, std::ssize(all));
    if (std::ssize(items) != all.end() - head || (m_presence != nullptr && !IsFullyLoaded())) {
        throw std::invalid_argument("Not the items of this list");
    }
    m_gridCell.ReorderingAxisItems(*this, behindHead, items);
    std::copy(items.begin(), items.end(), head);
    m_loaded.Reorder(all);
    // Equal neighbours are told at once.
    int first = 0;
    for (int i = 1; i <= std::ssize(items); ++i) {
        const int size = items[static_cast<std::size_t>(first)]->WantedSize();
        if (i == std::ssize(items) || items[static_cast<std::size_t>(i)]->WantedSize() != size) {
            m_extents.Fill(behindHead + first, i - first, size);
            first = i;
        }
    }
    ++m_changes;
    ListIndexesOutOfDate(behindHead);
}

int TAxisContentList::NearestShown(int index, int step) const
{
    while (index >= 0 && index < Count()) {
        const TRunSequence::TRun run = m_extents.RunAt(index);
        if (run.Value != 0) {
            return index;
        }
        index = step > 0 ? run.First + run.Count : run.First - 1;
    }
    return -1;
}

int TAxisContentList::NearestLoaded(int index, int step) const
{
    if (index < 0 || index >= Count()) {
        return -1;
    }
    if (m_presence != nullptr) {
        const TRunSequence::TRun run = m_presence->RunAt(index);
        index = run.Value != 0 ? index : step > 0 ? run.First + run.Count : run.First - 1;
    } else if (!IsPresent(index)) {
        // In the head, or before or behind the block.
        const int begin = m_fixedCount + m_unloadedBefore;
        const int end = m_loaded.Size() + m_unloadedBefore;
        index = step > 0 ? std::max(index, begin) : index < begin ? m_fixedCount - 1 : end - 1;
    }
    return IsPresent(index) ? index : -1;
}

int TAxisContentList::CountWithoutSize() const
{
    int count = 0;
    for (int index = 0; index < Count();) {
        const TRunSequence::TRun run = m_extents.RunAt(index);
        count += run.Value == 0 ? run.Count : 0;
        index = run.First + run.Count;
    }
    return count;
}

// --- shown and hidden items ----------------------------------------------------------------------

void TAxisContentList::AddToVisible(TAxisContentItem &item)
{
    if (!item.InVisibleList()) {
        m_visibles.Append(&item);
    }
}

void TAxisContentList::ClearVisibles()
{
    m_visibles.Clear();
    m_protectFrom = m_protectTo = -1;
}

void TAxisContentList::UpdateHiddenItemsList(TAxisContentItem &item, bool hide)
{
    if (hide != item.m_countedAsHidden) {
        item.m_countedAsHidden = hide;
        m_hiddenCount += hide ? 1 : -1;
    }
}

void TAxisContentList::SetHidden(int first, int last, bool hide)
{
    if (first > last) {
        return;
    }
    m_extents.Fill(first, last - first + 1, hide ? 0 : TRunSequence::kDefault);
    const int end = IndexConvert_RealToLoaded(last + 1);
    for (int position = IndexConvert_RealToLoaded(first); position < end; ++position) {
        TAxisContentItem &item = *m_loaded.At(position);
        item.m_hide = hide;
        UpdateHiddenItemsList(item, hide);
        if (!hide && item.WantedSize() != TRunSequence::kDefault) {
            m_extents.Fill(IndexConvert_LoadedToReal(position), 1, item.WantedSize());
        }
    }
    ++m_changes;
}

// --- index maintenance ---------------------------------------------------------------------------

void TAxisContentList::ListIndexesOutOfDate(int index)
{
    m_firstStaleIndex = std::min(m_firstStaleIndex, index);
    m_indexesOutOfDate = true;
}

void TAxisContentList::EnsureListIndexes()
{
    if (m_indexesOutOfDate) {
        UpdateListIndexesFrom(m_firstStaleIndex);
        m_indexesOutOfDate = false;
        m_firstStaleIndex = Count();
    }
}

void TAxisContentList::UpdateListIndexesFrom(int index)
{
    if (m_presence != nullptr) {
        return;
    }
    const int first = std::max(0, IndexConvert_RealToLoaded(index));
    if (first < m_fixedCount) {
        m_loaded.NumberFrom(first, first);
    }
    const int behindHead = std::max(first, m_fixedCount);
    m_loaded.NumberFrom(behindHead, IndexConvert_LoadedToReal(behindHead));
}

/// After unloaded items before the block went: the loaded ones are renumbered at once, so that
/// nothing becomes stale.
void TAxisContentList::RenumberBlock()
{
    m_loaded.NumberFrom(m_fixedCount, IndexConvert_LoadedToReal(m_fixedCount));
}

int TAxisContentList::ListIndexOf(const TAxisContentItem &item)
{
    if (m_presence != nullptr) {
        return IndexOf(item);
    }
    EnsureListIndexes();
    return m_loaded.Number(m_loaded.IndexOf(&item));
}

} // namespace korvane
