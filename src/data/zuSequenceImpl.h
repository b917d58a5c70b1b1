// The operations of TSequence.
#pragma once

#include "data/zuSequence.h"

#include <numeric>

namespace korvane {

template <typename T, typename Place, TNumbering numbering>
int TSequence<T, Place, numbering>::OrderOf(int position) const
{
    const auto &starts = m_chunks->Starts;
    const int recent = m_chunks->Recent;
    if (recent < m_chunks->Count() && starts[recent] <= position && position < starts[recent + 1]) {
        return recent;
    }
    const auto behind = std::upper_bound(starts.begin(), starts.end() - 1, position);
    return m_chunks->Recent = static_cast<int>(behind - starts.begin()) - 1;
}

template <typename T, typename Place, TNumbering numbering>
int TSequence<T, Place, numbering>::IndexOf(const T *item) const
{
    if (!m_chunks) {
        return m_slots.Find(item);
    }
    int found = -1;
    this->ForEachChunk(item, [&](std::uint32_t id) {
        // An item may say where it stands in another sequence.
        if (id >= m_chunks->OrderOfId.size() || m_chunks->OrderOfId[id] < 0) {
            return;
        }
        const int order = m_chunks->OrderOfId[id];
        const int start = m_chunks->Starts[order];
        if (found < 0 || start < found) {
            const int slot = m_chunks->Slots[order].Find(item);
            found = slot < 0 ? found : start + slot;
        }
    });
    return found;
}

template <typename T, typename Place, TNumbering numbering>
int TSequence<T, Place, numbering>::Number(int position) const
    requires(numbering == TNumbering::PerItem)
{
    Check(position, Size());
    if (!m_chunks) {
        return m_slots.Number(position);
    }
    const int order = OrderOf(position);
    const int slot = position - m_chunks->Starts[order];
    return m_chunks->Consecutive[order] != 0 ? m_chunks->Firsts[order] + slot
                                             : m_chunks->Slots[order].Number(slot);
}

template <typename T, typename Place, TNumbering numbering>
void TSequence<T, Place, numbering>::NumberFrom(int position,
                                                int number) requires(numbering
                                                                     == TNumbering::PerItem)
{
    if (position >= Size()) {
        return;
    }
    Check(position, Size());
    if (!m_chunks) {
        for (int p = position; p < m_slots.Size(); ++p) {
            m_slots.Number(p) = number + (p - position);
        }
        return;
    }
    auto &chunks = *m_chunks;
    int order = OrderOf(position);
    const int slot = position - chunks.Starts[order];
    if (slot != 0) {
        if (chunks.Consecutive[order] == 0 || chunks.Firsts[order] + slot != number) {
            chunks.SpellOut(order);
            for (int s = slot; s < chunks.Slots[order].Size(); ++s) {
                chunks.Slots[order].Number(s) = number + (s - slot);
            }
        }
        ++order;
    }
    std::fill(chunks.Consecutive.begin() + order, chunks.Consecutive.end(), std::uint8_t{1});
    std::transform(chunks.Starts.begin() + order, chunks.Starts.end() - 1,
                   chunks.Firsts.begin() + order,
                   [offset = number - position](int start) { return start + offset; });
}

template <typename T, typename Place, TNumbering numbering>
void TSequence<T, Place, numbering>::Insert(int position, T *item, int number)
{
    Check(position, Size() + 1);
    if (!m_chunks && m_slots.IsFull()) {
        BecomeChunked();
    }
    if (!m_chunks) {
        m_slots.Insert(position, item, number);
        this->Put(item, 0);
        return;
    }
    auto &chunks = *m_chunks;
    const int order = MakeRoom(OrderOf(position), position);
    const int slot = position - chunks.Starts[order];
    if constexpr (kNumbered) {
        const int size = chunks.Slots[order].Size();
        if (size == 0) {
            chunks.Consecutive[order] = 1;
            chunks.Firsts[order] = number;
        } else if (slot != size || chunks.Firsts[order] + slot != number) {
            chunks.SpellOut(order);
        }
    }
    chunks.Slots[order].Insert(slot, item, number);
    chunks.Shift(order, 1);
    this->Put(item, chunks.Ids[order]);
}

template <typename T, typename Place, TNumbering numbering>
T *TSequence<T, Place, numbering>::Erase(int position)
{
    Check(position, Size());
    if (!m_chunks) {
        T *item = m_slots.Item(position);
        m_slots.Erase(position);
        this->Take(item, 0);
        return item;
    }
    auto &chunks = *m_chunks;
    const int order = OrderOf(position);
    const int slot = position - chunks.Starts[order];
    auto &chunk = chunks.Slots[order];
    T *item = chunk.Item(slot);
    if constexpr (kNumbered) {
        if (slot == 0) {
            ++chunks.Firsts[order];
        } else if (slot != chunk.Size() - 1) {
            chunks.SpellOut(order);
        }
    }
    chunk.Erase(slot);
    chunks.Shift(order, -1);
    this->Take(item, chunks.Ids[order]);
    Shrink(order);
    return item;
}

template <typename T, typename Place, TNumbering numbering>
T *TSequence<T, Place, numbering>::Replace(int position, T *item)
{
    Check(position, Size());
    const int order = m_chunks ? OrderOf(position) : 0;
    T *&slot = m_chunks ? m_chunks->Slots[order].Item(position - m_chunks->Starts[order])
                        : m_slots.Item(position);
    const std::uint32_t id = m_chunks ? m_chunks->Ids[order] : 0;
    T *old = std::exchange(slot, item);
    this->Take(old, id);
    this->Put(item, id);
    return old;
}

template <typename T, typename Place, TNumbering numbering>
void TSequence<T, Place, numbering>::Reorder(const std::vector<T *> &items)
{
    const auto forEachChunk = [&](const auto &visit) {
        for (int order = 0; m_chunks && order < m_chunks->Count(); ++order) {
            visit(m_chunks->Slots[order], m_chunks->Ids[order]);
        }
        if (!m_chunks) {
            visit(m_slots, 0U);
        }
    };
    forEachChunk([&](Chunk &chunk, std::uint32_t id) {
        std::for_each(chunk.begin(), chunk.end(), [&](T *item) { this->Take(item, id); });
    });
    auto next = items.begin();
    forEachChunk([&](Chunk &chunk, std::uint32_t id) {
        for (int slot = 0; slot < chunk.Size(); ++slot, ++next) {
            chunk.Item(slot) = *next;
            this->Put(*next, id);
        }
    });
}

template <typename T, typename Place, TNumbering numbering>
void TSequence<T, Place, numbering>::Clear()
{
    while (!Empty()) {
        Erase(Size() - 1);
    }
}

template <typename T, typename Place, TNumbering numbering>
template <typename Accepts>
int TSequence<T, Place, numbering>::FindFrom(int position, const Accepts &accepts) const
{
    if (position >= Size()) {
        return Size();
    }
    int order = m_chunks ? OrderOf(position) : 0;
    int start = m_chunks ? m_chunks->Starts[order] : 0;
    while (start < Size()) {
        const Chunk &chunk = m_chunks ? m_chunks->Slots[order] : m_slots;
        const auto first = chunk.begin() + std::max(0, position - start);
        const auto found = std::find_if(first, chunk.end(), accepts);
        if (found != chunk.end()) {
            return start + static_cast<int>(found - chunk.begin());
        }
        start += chunk.Size();
        ++order;
    }
    return Size();
}

template <typename T, typename Place, TNumbering numbering>
std::vector<T *> TSequence<T, Place, numbering>::Items() const
{
    std::vector<T *> result;
    result.reserve(static_cast<std::size_t>(Size()));
    FindFrom(0, [&](T *item) {
        result.push_back(item);
        return false;
    });
    return result;
}

// --- chunks --------------------------------------------------------------------------------------

template <typename T, typename Place, TNumbering numbering>
void TSequence<T, Place, numbering>::Chunks::InsertChunk(int order)
{
    auto id = static_cast<std::uint32_t>(OrderOfId.size());
    if (FreeIds.empty()) {
        OrderOfId.push_back(order);
    } else {
        id = FreeIds.back();
        FreeIds.pop_back();
    }
    Slots.emplace(Slots.begin() + order);
    Starts.insert(Starts.begin() + order, Starts[order]);
    if constexpr (kNumbered) {
        Firsts.insert(Firsts.begin() + order, 0);
        Consecutive.insert(Consecutive.begin() + order, 1);
    }
    Ids.insert(Ids.begin() + order, id);
    for (int o = order; o < Count(); ++o) {
        OrderOfId[Ids[o]] = o;
    }
}

template <typename T, typename Place, TNumbering numbering>
void TSequence<T, Place, numbering>::Chunks::EraseChunk(int order)
{
    OrderOfId[Ids[order]] = -1;
    FreeIds.push_back(Ids[order]);
    Slots.erase(Slots.begin() + order);
    Starts.erase(Starts.begin() + order);
    if constexpr (kNumbered) {
        Firsts.erase(Firsts.begin() + order);
        Consecutive.erase(Consecutive.begin() + order);
    }
    Ids.erase(Ids.begin() + order);
    for (int o = order; o < Count(); ++o) {
        OrderOfId[Ids[o]] = o;
    }
}

template <typename T, typename Place, TNumbering numbering>
void TSequence<T, Place, numbering>::Chunks::SpellOut(int order)
{
    if constexpr (kNumbered) {
        if (std::exchange(Consecutive[order], std::uint8_t{0}) != 0) {
            for (int slot = 0; slot < Slots[order].Size(); ++slot) {
                Slots[order].Number(slot) = Firsts[order] + slot;
            }
        }
    }
}

/// The chunk that takes an item at the position: the one that stands there, unless it is full. Runs
/// of insertions at either end fill chunks to the brim; elsewhere a full chunk is halved.
template <typename T, typename Place, TNumbering numbering>
int TSequence<T, Place, numbering>::MakeRoom(int order, int position)
{
    auto &chunks = *m_chunks;
    if (!chunks.Slots[order].IsFull()) {
        return order;
    }
    if (position == Size()) {
        chunks.InsertChunk(order + 1);
        return order + 1;
    }
    if (position == chunks.Starts[order]) {
        if (order > 0 && !chunks.Slots[order - 1].IsFull()) {
            return order - 1;
        }
        chunks.InsertChunk(order);
        return order;
    }
    const int half = Chunk::kCapacity / 2;
    SplitInto(order, half);
    return position - chunks.Starts[order] > half ? order + 1 : order;
}

/// Moves the chunk from `firstSlot` on into a new chunk behind.
template <typename T, typename Place, TNumbering numbering>
void TSequence<T, Place, numbering>::SplitInto(int order, int firstSlot)
{
    auto &chunks = *m_chunks;
    chunks.InsertChunk(order + 1);
    auto &head = chunks.Slots[order];
    auto &tail = chunks.Slots[order + 1];
    head.MoveTail(firstSlot, tail);
    chunks.Starts[order + 1] = chunks.Starts[order] + head.Size();
    if constexpr (kNumbered) {
        chunks.Consecutive[order + 1] = chunks.Consecutive[order];
        chunks.Firsts[order + 1] = chunks.Firsts[order] + firstSlot;
    }
    for (T *item : tail) {
        this->Move(item, chunks.Ids[order], chunks.Ids[order + 1]);
    }
}

/// Moves the next chunk's items into this chunk.
template <typename T, typename Place, TNumbering numbering>
void TSequence<T, Place, numbering>::Merge(int order)
{
    auto &chunks = *m_chunks;
    auto &head = chunks.Slots[order];
    auto &tail = chunks.Slots[order + 1];
    if constexpr (kNumbered) {
        const bool continued = chunks.Consecutive[order] != 0 && chunks.Consecutive[order + 1] != 0
                               && chunks.Firsts[order] + head.Size() == chunks.Firsts[order + 1];
        if (!continued) {
            chunks.SpellOut(order);
            chunks.SpellOut(order + 1);
        }
    }
    for (T *item : tail) {
        this->Move(item, chunks.Ids[order + 1], chunks.Ids[order]);
    }
    tail.MoveTail(0, head);
    chunks.EraseChunk(order + 1);
}

template <typename T, typename Place, TNumbering numbering>
void TSequence<T, Place, numbering>::Shrink(int order)
{
    auto &chunks = *m_chunks;
    const int size = chunks.Slots[order].Size();
    if (Size() <= kMergeBelow) {
        BecomePlain();
    } else if (size == 0) {
        chunks.EraseChunk(order);
    } else if (size < kMergeBelow) {
        if (order + 1 < chunks.Count() && size + chunks.Slots[order + 1].Size() <= kMergedAtMost) {
            Merge(order);
        } else if (order > 0 && size + chunks.Slots[order - 1].Size() <= kMergedAtMost) {
            Merge(order - 1);
        }
    }
}

template <typename T, typename Place, TNumbering numbering>
void TSequence<T, Place, numbering>::BecomeChunked()
{
    m_chunks = std::make_unique<Chunks>();
    m_chunks->InsertChunk(0);
    m_chunks->Slots[0] = std::move(m_slots);
    m_chunks->Starts[1] = m_chunks->Slots[0].Size();
    if constexpr (kNumbered) {
        m_chunks->Consecutive[0] = 0;
    }
    this->BeginChunks();
    for (T *item : m_chunks->Slots[0]) {
        this->Put(item, m_chunks->Ids[0]);
    }
}

template <typename T, typename Place, TNumbering numbering>
void TSequence<T, Place, numbering>::BecomePlain()
{
    const auto chunks = std::move(m_chunks);
    this->EndChunks();
    for (int order = 0; order < chunks->Count(); ++order) {
        chunks->SpellOut(order);
        chunks->Slots[order].MoveTail(0, m_slots);
    }
    for (T *item : m_slots) {
        this->Put(item, 0);
    }
}

} // namespace korvane
