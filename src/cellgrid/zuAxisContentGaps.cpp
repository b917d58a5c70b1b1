// An axis in which items that are only counted stand anywhere.
#include "cellgrid/zuAxisContent.h"
#include "cellgrid/zuBabGridCell.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>
#include <vector>

namespace korvane {

void TAxisContentList::AllowGaps(TMethod<void(int)> load)
{
    m_loadGap = std::move(load);
    if (m_loadGap && m_presence == nullptr) {
        if (!IsFullyLoaded()) {
            throw std::logic_error("Items are not loaded");
        }
        auto presence = std::make_unique<TRunSequence>();
        presence->Insert(0, Count(), 1);
        m_presence = std::move(presence);
    } else if (!m_loadGap && m_presence != nullptr) {
        for (int index = 0; index < Count();) {
            const TRunSequence::TRun run = m_presence->RunAt(index);
            if (run.Value != 0) {
                index = run.First + run.Count;
            } else {
                EraseCounted(run.First, run.Count);
            }
        }
        m_presence.reset();
        ListIndexesOutOfDate(0);
    }
}

/// Of an item that is not loaded: the position that it would get.
int TAxisContentList::PositionInGaps(int index) const
{
    return static_cast<int>(m_presence->OffsetOf(index));
}

TAxisContentItem *TAxisContentList::EnsureLoadedInGap(int index)
{
    if (!IsPresent(index)) {
        const std::weak_ptr<bool> lives = m_lives;
        const auto load = m_loadGap; // a handler may end the gaps
        load(index);
        if (lives.expired()) {
            return nullptr;
        }
    }
    return FindLoaded(index);
}

void TAxisContentList::InsertCounted(int index, int count, bool hide)
{
    const int room = std::numeric_limits<int>::max() - Count();
    count = std::min(count, room);
    index = std::clamp(index, std::min(m_fixedCount, Count()), Count());
    if (count <= 0) {
        return;
    }
    CountChanged(index, count, TPresence::Counted);
    if (hide) {
        m_extents.Fill(index, count, 0);
    }
    m_gridCell.ChangeInUnloaded(*this);
}

void TAxisContentList::EraseCounted(int index, int count)
{
    index = std::max(index, m_fixedCount);
    if (index >= Count() || count <= 0 || IsPresent(index)) {
        return;
    }
    const TRunSequence::TRun run = m_presence->RunAt(index);
    CountChanged(index, -std::min(count, run.First + run.Count - index));
    m_gridCell.ChangeInUnloaded(*this);
}

int TAxisContentList::EraseCountedWithoutSize(int first, int end)
{
    for (int index = first; index < end;) {
        const TRunSequence::TRun run = m_extents.RunAt(index);
        const int behind = std::min(end, run.First + run.Count);
        if (run.Value == 0) {
            EraseCounted(index, behind - index);
            end -= behind - index;
        } else {
            index = behind;
        }
    }
    return end;
}

TAxisContentItem *TAxisContentList::LoadAt(int index, TObject *value)
{
    if (index < m_fixedCount || index >= Count() || IsPresent(index)) {
        return InsertNew(std::clamp(index, std::min(m_fixedCount, Count()), Count()), value);
    }
    auto created = CreateItem(value);
    TAxisContentItem *item = created.get();
    Place(PositionInGaps(index), std::move(created));
    m_presence->Fill(index, 1, 1);
    item->m_hide = m_extents.ValueAt(index) == 0;
    UpdateHiddenItemsList(*item, item->m_hide);
    ++m_changes;
    m_gridCell.InsertingAxisItem(*this, index);
    return item;
}

void TAxisContentList::UnloadAt(int index, bool hide)
{
    TAxisContentItem *item = FindLoaded(index);
    if (item == nullptr || index < m_fixedCount) {
        return;
    }
    m_gridCell.DroppingAxisItem(*this, index);
    const bool forgetSize = item->GetHide() || item->GetUserSizeActive();
    Take(PositionInGaps(index));
    m_presence->Fill(index, 1, 0);
    if (hide || forgetSize) {
        m_extents.Fill(index, 1, hide ? 0 : TRunSequence::kDefault);
    }
    ++m_changes;
}

void TAxisContentList::MoveRange(int from, int to, int count)
{
    if (count < 0 || std::min(from, to) < 0 || std::max(from, to) > Count() - count) {
        throw std::out_of_range("List index out of bounds");
    }
    if (count == 0 || from == to) {
        return;
    }
    std::vector<TAxisContentItem *> items;
    const int position = PositionInGaps(from);
    for (int left = PositionInGaps(from + count) - position; left > 0; --left) {
        items.push_back(m_loaded.Erase(position));
    }
    m_presence->Move(from, to, count);
    m_extents.Move(from, to, count);
    int place = PositionInGaps(to);
    for (TAxisContentItem *item : items) {
        m_loaded.Insert(place++, item);
    }
    ++m_changes;
    m_gridCell.MovedRows(*this, from, to, count);
}

bool TAxisContentList::IsShown(int first, int end) const
{
    if (m_protectFrom >= 0 && first <= m_protectTo && end > m_protectFrom) {
        return true;
    }
    // The last layout named them from the first to the last, the head before the others.
    int k = 0;
    while (k < m_visibles.Size() && IndexOf(*m_visibles.At(k)) < m_fixedCount) {
        ++k;
    }
    return k < m_visibles.Size() && end > IndexOf(*m_visibles.At(k))
           && first <= IndexOf(*m_visibles.At(m_visibles.Size() - 1));
}

void TAxisContentList::KeepForLayout(int first, int last)
{
    m_protectFrom = first;
    m_protectTo = last;
}

} // namespace korvane
