// Entities in order of time.
#pragma once

#include "foundation/zuTypes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <iterator>
#include <limits>
#include <vector>

namespace korvane {

/// Finds the items that lie within a stretch of time. Costs the items that are found,
/// and little for the others; adding and removing one costs about the same at any size.
///
/// Items have GetStartDateTime and GetStopDateTime, and are observed. Their times must not change
/// while they are in the index.
template <typename Item>
class TTimeIndex
{
public:
    /// Of different items.
    explicit TTimeIndex(const std::vector<Item *> &items);

    void Add(Item &item);
    /// Nothing when the item is not in the index.
    void Remove(Item &item);
    std::size_t Count() const { return m_count; }
    /// All items, in order of time.
    std::vector<Item *> Items() const;

    /// Appends the items that touch the time from..to, both included, in no particular order. An
    /// item that stops before it starts counts as its start.
    void Find(TDateTime from, TDateTime to, std::vector<Item *> &items) const;

private:
    /// Not a number is before everything as a start and after everything as a stop.
    struct TEntry
    {
        explicit TEntry(Item &item);

        bool IsBefore(const TEntry &other) const;

        TDateTime Start;
        TDateTime Stop;
        Item *Owner;
    };
    struct TBlock
    {
        std::vector<TEntry> Entries; ///< never empty
        TDateTime LastStop;

        void UpdateLastStop();
    };
    /// Where a block is divided. Neighbours that hold less than half of it together become one.
    static constexpr std::size_t kMostEntries = 512;
    static constexpr double kForever = std::numeric_limits<double>::infinity();

    using TBlocks = std::vector<TBlock>;

    TBlocks::iterator BlockFor(const TEntry &entry);
    void Split(TBlocks::iterator block);
    void MergeWithNext(TBlocks::iterator block);

    TBlocks m_blocks; ///< one after the other in time
    std::size_t m_count = 0;
};

template <typename Item>
TTimeIndex<Item>::TEntry::TEntry(Item &item)
    : Start(item.GetStartDateTime())
    , Stop(item.GetStopDateTime())
    , Owner(&item)
{
    Start = std::isnan(Start) ? -kForever : Start;
    Stop = std::isnan(Stop) ? kForever : std::max(Start, Stop);
}

template <typename Item>
bool TTimeIndex<Item>::TEntry::IsBefore(const TEntry &other) const
{
    return Start != other.Start ? Start < other.Start : std::less()(Owner, other.Owner);
}

template <typename Item>
void TTimeIndex<Item>::TBlock::UpdateLastStop()
{
    LastStop = std::ranges::max_element(Entries, {}, &TEntry::Stop)->Stop;
}

template <typename Item>
TTimeIndex<Item>::TTimeIndex(const std::vector<Item *> &items)
    : m_count(items.size())
{
    std::vector<TEntry> entries;
    entries.reserve(items.size());
    for (Item *item : items) {
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
template <typename Item>
typename TTimeIndex<Item>::TBlocks::iterator TTimeIndex<Item>::BlockFor(const TEntry &entry)
{
    const auto after = std::ranges::partition_point(
        m_blocks, [&entry](const TBlock &block) { return !entry.IsBefore(block.Entries.front()); });
    return after == m_blocks.begin() ? after : std::prev(after);
}

template <typename Item>
void TTimeIndex<Item>::Add(Item &item)
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

template <typename Item>
void TTimeIndex<Item>::Split(TBlocks::iterator block)
{
    const auto middle =
        block->Entries.begin() + static_cast<std::ptrdiff_t>(block->Entries.size() / 2);
    TBlock second{{middle, block->Entries.end()}, 0};
    block->Entries.erase(middle, block->Entries.end());
    block->UpdateLastStop();
    second.UpdateLastStop();
    m_blocks.insert(std::next(block), std::move(second));
}

template <typename Item>
void TTimeIndex<Item>::Remove(Item &item)
{
    const TEntry entry(item);
    const auto block = m_blocks.empty() ? m_blocks.end() : BlockFor(entry);
    if (block == m_blocks.end()) {
        return;
    }
    const auto place = std::ranges::partition_point(
        block->Entries, [&entry](const TEntry &other) { return other.IsBefore(entry); });
    if (place == block->Entries.end() || place->Owner != &item) {
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

template <typename Item>
void TTimeIndex<Item>::MergeWithNext(TBlocks::iterator block)
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

template <typename Item>
std::vector<Item *> TTimeIndex<Item>::Items() const
{
    std::vector<Item *> items;
    Find(-kForever, kForever, items);
    return items;
}

template <typename Item>
void TTimeIndex<Item>::Find(TDateTime from, TDateTime to, std::vector<Item *> &items) const
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
                items.push_back(entry.Owner);
            }
        }
    }
}

} // namespace korvane
