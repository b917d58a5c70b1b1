#include "gantt/zuGantTimeIndex.h"

#include "gantt/zuGantData.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <limits>

namespace korvane {

namespace {

/// Where a block is divided. Neighbours that hold less than half of it together become one.
constexpr std::size_t kMostEntries = 512;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

} // namespace

TGantTimeIndex::TEntry::TEntry(TzuDataEntity_Spanbar &item)
    : Start(item.GetStartDateTime())
    , Stop(item.GetStopDateTime())
    , Item(&item)
{
    Start = std::isnan(Start) ? -kInfinity : Start;
    Stop = std::isnan(Stop) ? kInfinity : std::max(Start, Stop);
}

bool TGantTimeIndex::TEntry::IsBefore(const TEntry &other) const
{
    return Start != other.Start ? Start < other.Start : std::less()(Item, other.Item);
}

void TGantTimeIndex::TBlock::UpdateLastStop()
{
    LastStop = std::ranges::max_element(Entries, {}, &TEntry::Stop)->Stop;
}

TGantTimeIndex::TGantTimeIndex(const std::vector<TzuDataEntity_Spanbar *> &items)
    : m_count(items.size())
{
    std::vector<TEntry> entries;
    entries.reserve(items.size());
    for (TzuDataEntity_Spanbar *item : items) {
        entries.emplace_back(*item);
    }
    std::ranges::sort(entries, [](const TEntry &a, const TEntry &b) { return a.IsBefore(b); });
    constexpr std::size_t kFirstFill = kMostEntries / 2;
    for (std::size_t i = 0; i < entries.size(); i += kFirstFill) {
        const auto from = entries.begin() + static_cast<std::ptrdiff_t>(i);
        const auto to =
            entries.begin() + static_cast<std::ptrdiff_t>(std::min(i + kFirstFill, entries.size()));
        TBlock block{{from, to}, 0};
        block.UpdateLastStop();
        m_blocks.push_back(std::move(block));
    }
}

/// The last block that begins at or before the entry, else the first.
TGantTimeIndex::TBlocks::iterator TGantTimeIndex::BlockFor(const TEntry &entry)
{
    const auto after = std::ranges::partition_point(
        m_blocks, [&entry](const TBlock &block) { return !entry.IsBefore(block.Entries.front()); });
    return after == m_blocks.begin() ? after : std::prev(after);
}

void TGantTimeIndex::Add(TzuDataEntity_Spanbar &item)
{
    const TEntry entry(item);
    ++m_count;
    if (m_blocks.empty()) {
        m_blocks.push_back({{entry}, entry.Stop});
        return;
    }
    const auto block = BlockFor(entry);
    const auto place = std::ranges::partition_point(
        block->Entries, [&entry](const TEntry &other) { return other.IsBefore(entry); });
    block->Entries.insert(place, entry);
    block->LastStop = std::max(block->LastStop, entry.Stop);
    if (block->Entries.size() > kMostEntries) {
        Split(block);
    }
}

void TGantTimeIndex::Split(TBlocks::iterator block)
{
    const auto middle =
        block->Entries.begin() + static_cast<std::ptrdiff_t>(block->Entries.size() / 2);
    TBlock second{{middle, block->Entries.end()}, 0};
    block->Entries.erase(middle, block->Entries.end());
    block->UpdateLastStop();
    second.UpdateLastStop();
    m_blocks.insert(std::next(block), std::move(second));
}

void TGantTimeIndex::Remove(TzuDataEntity_Spanbar &item)
{
    const TEntry entry(item);
    const auto block = m_blocks.empty() ? m_blocks.end() : BlockFor(entry);
    if (block == m_blocks.end()) {
        return;
    }
    const auto place = std::ranges::partition_point(
        block->Entries, [&entry](const TEntry &other) { return other.IsBefore(entry); });
    if (place == block->Entries.end() || place->Item != &item) {
        return;
    }
    block->Entries.erase(place);
    --m_count;
    if (block->Entries.empty()) {
        m_blocks.erase(block);
        return;
    }
    if (block->LastStop == entry.Stop) {
        block->UpdateLastStop();
    }
    MergeWithNext(block);
}

void TGantTimeIndex::MergeWithNext(TBlocks::iterator block)
{
    const auto next = std::next(block);
    if (next == m_blocks.end()
        || block->Entries.size() + next->Entries.size() >= kMostEntries / 2) {
        return;
    }
    block->Entries.insert(block->Entries.end(), next->Entries.begin(), next->Entries.end());
    block->LastStop = std::max(block->LastStop, next->LastStop);
    m_blocks.erase(next);
}

std::vector<TzuDataEntity_Spanbar *> TGantTimeIndex::Items() const
{
    std::vector<TzuDataEntity_Spanbar *> items;
    Find(-kInfinity, kInfinity, items);
    return items;
}

void TGantTimeIndex::Find(TDateTime from, TDateTime to,
                          std::vector<TzuDataEntity_Spanbar *> &items) const
{
    for (const TBlock &block : m_blocks) {
        if (block.Entries.front().Start > to) {
            return;
        }
        if (block.LastStop < from) {
            continue;
        }
        for (const TEntry &entry : block.Entries) {
            if (entry.Start > to) {
                return;
            }
            if (entry.Stop >= from) {
                items.push_back(entry.Item);
            }
        }
    }
}

} // namespace korvane
