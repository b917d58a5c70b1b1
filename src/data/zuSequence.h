// An ordered sequence of pointers that knows the position of each.
#pragma once

#include "data/zuSequencePlace.h"
#include "data/zuSlots.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <vector>

namespace korvane {

/// Whether items of a sequence carry numbers.
enum class TNumbering : std::uint8_t { None, PerItem };

/// Inserting, erasing and finding by position or by item cost O(chunk + n / chunk) with vectorised
/// inner loops, wherever they happen. Nothing is allocated while the sequence is empty, and up to
/// one chunk of items lies in a plain array. Items are observed; nil is no item. Reading moves a
/// hint, so that one thread at a time may read.
///
/// With TNumbering::PerItem each item carries a number that travels with it; a whole tail can be
/// renumbered consecutively at O(chunk + n / chunk).
///
/// Place is TPlaceInItem or TPlaceInMap.
template <typename T, typename Place, TNumbering numbering = TNumbering::None>
class TSequence : private Place
{
    static constexpr bool kNumbered = numbering == TNumbering::PerItem;

public:
    /// Number of items; read at no cost.
    int Size() const { return m_chunks ? m_chunks->Starts.back() : m_slots.Size(); }
    bool Empty() const { return Size() == 0; }

    /// Throws std::out_of_range.
    T *At(int position) const
    {
        Check(position, Size());
        if (!m_chunks) {
            return m_slots.Item(position);
        }
        const int order = OrderOf(position);
        return m_chunks->Slots[order].Item(position - m_chunks->Starts[order]);
    }

    /// The first position that holds the item; -1 when none does.
    int IndexOf(const T *item) const;

    /// Throws std::out_of_range.
    int Number(int position) const requires(numbering == TNumbering::PerItem);
    /// The numbers from the position on become `number`, `number + 1` and so on.
    void NumberFrom(int position, int number) requires(numbering == TNumbering::PerItem);

    /// The item comes to stand at the position, 0..Size. Throws std::out_of_range.
    void Insert(int position, T *item, int number = 0);
    /// Behind the last one, with the number 0.
    void Append(T *item) { Insert(Size(), item); }
    /// Returns the item that was erased. Throws std::out_of_range.
    T *Erase(int position);
    /// Puts another item at the position and returns the one that was there. Throws
    /// std::out_of_range.
    T *Replace(int position, T *item);
    /// Puts the sequence's own items in another order; the numbers stay with the positions.
    void Reorder(const std::vector<T *> &items);
    /// Takes out all items, the last first.
    void Clear();

    /// The first position from `position` on whose item is accepted; Size when there is none. The
    /// function must leave the sequence as it is.
    template <typename Accepts>
    int FindFrom(int position, const Accepts &accepts) const;
    /// A copy, in order.
    std::vector<T *> Items() const;

private:
    using Chunk = TSlots<T, kNumbered>;

    /// The chunks in order. Their ids, by which items refer to them, outlive changes of the order.
    struct Chunks
    {
        std::vector<Chunk> Slots;
        /// Position of each chunk's first item, and the total behind them.
        std::vector<int> Starts{0};
        /// A consecutive chunk's numbers count up from Firsts; its slots' numbers are not in use.
        std::vector<int> Firsts;
        std::vector<std::uint8_t> Consecutive;
        std::vector<std::uint32_t> Ids;
        std::vector<int> OrderOfId;
        std::vector<std::uint32_t> FreeIds;
        /// The chunk that was found last.
        int Recent = 0;

        int Count() const { return static_cast<int>(Ids.size()); }
        void InsertChunk(int order);
        void EraseChunk(int order);
        /// Adds to the positions behind a chunk.
        void Shift(int order, int by)
        {
            std::for_each(Starts.begin() + order + 1, Starts.end(), [by](int &s) { s += by; });
        }
        /// Writes the numbers of a consecutive chunk into its slots.
        void SpellOut(int order);
    };

    static constexpr int kMergeBelow = Chunk::kCapacity / 4;
    static constexpr int kMergedAtMost = Chunk::kCapacity / 2;

    static void Check(int position, int end)
    {
        if (position < 0 || position >= end) {
            throw std::out_of_range("List index out of bounds");
        }
    }
    int OrderOf(int position) const;
    int MakeRoom(int order, int position);
    void SplitInto(int order, int firstSlot);
    void Merge(int order);
    void Shrink(int order);
    void BecomeChunked();
    void BecomePlain();

    Chunk m_slots;
    std::unique_ptr<Chunks> m_chunks;
};

} // namespace korvane

#include "data/zuSequenceImpl.h" // IWYU pragma: export
