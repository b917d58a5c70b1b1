// Entities in order of time.
#pragma once

#include "foundation/zuTypes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

namespace korvane {

/// Finds the items that lie within a stretch of time. Costs the items that are found,
/// and little for the others; adding and removing one costs about the same at any size.
///
/// Items have GetStartDateTime and GetStopDateTime, and are observed. Their times must not change
/// while they are in the index.
///
/// Items are held in blocks of some hundred. Notes is what a user of the index keeps about a block,
/// made anew with its default constructor whenever one of the block's items changes.
template <typename Item, typename Notes>
class TNotedTimeIndex
{
public:
    /// Not a number is before everything as a start and after everything as a stop.
    struct TEntry
    {
        /// Takes the times down.
        explicit TEntry(Item &item);

        /// By start; equal ones in an order that stays the same.
        bool IsBefore(const TEntry &other) const;

        /// A stop before the start counts as the start.
        TDateTime Start;
        TDateTime Stop;
        Item *Owner;
    };
    /// Some entries in order of their start.
    using TEntries = std::vector<TEntry>;

    /// Of different items.
    explicit TNotedTimeIndex(const std::vector<Item *> &items);

    /// An item that is not in the index yet.
    void Add(Item &item);
    /// Nothing when the item is not in the index.
    void Remove(Item &item);
    /// Something else than the times of an item in the index has changed.
    void Touch(Item &item);
    /// The same of all items.
    void TouchAll();
    /// Number of items.
    std::size_t Count() const { return m_count; }
    /// All items, in order of time.
    std::vector<Item *> Items() const;

    /// Appends the items that touch the time from..to, both included, in no particular order. An
    /// item that stops before it starts counts as its start.
    void Find(TDateTime from, TDateTime to, std::vector<Item *> &items) const;
    /// Calls handle(entries, notes) for the blocks that may hold items of that time, one after the
    /// other in time. Entries are in order of their start.
    template <typename Handle>
    void ForEachBlock(TDateTime from, TDateTime to, const Handle &handle);

private:
    struct TBlock
    {
        TEntries Entries; ///< never empty
        TDateTime LastStop;
        Notes Noted;

        void UpdateLastStop();
        typename TEntries::iterator PlaceOf(const TEntry &entry);
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

template <typename Item, typename Notes>
TNotedTimeIndex<Item, Notes>::TEntry::TEntry(Item &item)
    : Start(item.GetStartDateTime())
    , Stop(item.GetStopDateTime())
    , Owner(&item)
{
    Start = std::isnan(Start) ? -kForever : Start;
    Stop = std::isnan(Stop) ? kForever : std::max(Start, Stop);
}

template <typename Item, typename Notes>
bool TNotedTimeIndex<Item, Notes>::TEntry::IsBefore(const TEntry &other) const
{
    return Start != other.Start ? Start < other.Start : std::less()(Owner, other.Owner);
}

template <typename Item, typename Notes>
void TNotedTimeIndex<Item, Notes>::TBlock::UpdateLastStop()
{
    LastStop = std::ranges::max_element(Entries, {}, &TEntry::Stop)->Stop;
}

template <typename Item, typename Notes>
typename std::vector<typename TNotedTimeIndex<Item, Notes>::TEntry>::iterator
TNotedTimeIndex<Item, Notes>::TBlock::PlaceOf(const TEntry &entry)
{
    return std::ranges::partition_point(
        Entries, [&entry](const TEntry &other) { return other.IsBefore(entry); });
}

template <typename Item, typename Notes>
TNotedTimeIndex<Item, Notes>::TNotedTimeIndex(const std::vector<Item *> &items)
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
        TBlock block{{from, to}, 0, {}};
        block.UpdateLastStop();
        m_blocks.push_back(std::move(block));
    }
}

/// The last block that begins at or before the entry, else the first.
template <typename Item, typename Notes>
typename TNotedTimeIndex<Item, Notes>::TBlocks::iterator
TNotedTimeIndex<Item, Notes>::BlockFor(const TEntry &entry)
{
    const auto after = std::ranges::partition_point(
        m_blocks, [&entry](const TBlock &block) { return !entry.IsBefore(block.Entries.front()); });
    return after == m_blocks.begin() ? after : std::prev(after);
}

template <typename Item, typename Notes>
void TNotedTimeIndex<Item, Notes>::Add(Item &item)
{
    const TEntry entry(item);
    ++m_count;
    if (m_blocks.empty()) {
        m_blocks.push_back({{entry}, entry.Stop, {}});
        return;
    }
    const auto block = BlockFor(entry);
    const auto place = block->PlaceOf(entry);
    block->Entries.insert(place, entry);
    block->Noted = {};
    block->LastStop = std::max(block->LastStop, entry.Stop);
    if (block->Entries.size() > kMostEntries) {
        Split(block);
    }
}

template <typename Item, typename Notes>
void TNotedTimeIndex<Item, Notes>::Split(TBlocks::iterator block)
{
    const auto middle =
        block->Entries.begin() + static_cast<std::ptrdiff_t>(block->Entries.size() / 2);
    TBlock second{{middle, block->Entries.end()}, 0, {}};
    block->Entries.erase(middle, block->Entries.end());
    block->Noted = {};
    block->UpdateLastStop();
    second.UpdateLastStop();
    m_blocks.insert(std::next(block), std::move(second));
}

template <typename Item, typename Notes>
void TNotedTimeIndex<Item, Notes>::Remove(Item &item)
{
    const TEntry entry(item);
    const auto block = m_blocks.empty() ? m_blocks.end() : BlockFor(entry);
    if (block == m_blocks.end()) {
        return;
    }
    const auto place = block->PlaceOf(entry);
    if (place == block->Entries.end() || place->Owner != &item) {
        return;
    }
    block->Entries.erase(place);
    block->Noted = {};
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

template <typename Item, typename Notes>
void TNotedTimeIndex<Item, Notes>::MergeWithNext(TBlocks::iterator block)
{
    const auto next = std::next(block);
    if (next == m_blocks.end()
        || block->Entries.size() + next->Entries.size() >= kMostEntries / 2) {
        return;
    }
    block->Entries.insert(block->Entries.end(), next->Entries.begin(), next->Entries.end());
    block->LastStop = std::max(block->LastStop, next->LastStop);
    block->Noted = {};
    m_blocks.erase(next);
}

template <typename Item, typename Notes>
std::vector<Item *> TNotedTimeIndex<Item, Notes>::Items() const
{
    std::vector<Item *> items;
    Find(-kForever, kForever, items);
    return items;
}

template <typename Item, typename Notes>
void TNotedTimeIndex<Item, Notes>::Find(TDateTime from, TDateTime to,
                                        std::vector<Item *> &items) const
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

template <typename Item, typename Notes>
void TNotedTimeIndex<Item, Notes>::Touch(Item &item)
{
    if (!m_blocks.empty()) {
        BlockFor(TEntry(item))->Noted = {};
    }
}

template <typename Item, typename Notes>
void TNotedTimeIndex<Item, Notes>::TouchAll()
{
    for (TBlock &block : m_blocks) {
        block.Noted = {};
    }
}

template <typename Item, typename Notes>
template <typename Handle>
void TNotedTimeIndex<Item, Notes>::ForEachBlock(TDateTime from, TDateTime to, const Handle &handle)
{
    for (TBlock &block : m_blocks) {
        if (block.Entries.front().Start > to) {
            return;
        }
        if (block.LastStop >= from) {
            handle(std::as_const(block.Entries), block.Noted);
        }
    }
}

/// Nothing is kept about a block.
struct TNoNotes
{
};

/// An index without notes.
template <typename Item>
using TTimeIndex = TNotedTimeIndex<Item, TNoNotes>;

} // namespace korvane
