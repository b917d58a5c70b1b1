// A small growing array of pointers, optionally with a number beside each.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>
#include <utility>

namespace korvane {

/// One chunk of a TSequence: up to kCapacity pointers in one tight allocation, none while empty.
/// The numbers, where there are any, stand behind the pointers. Indexes are the caller's to check.
template <typename T, bool kNumbered>
class TSlots
{
public:
    /// The most pointers that fit.
    static constexpr int kCapacity = 512;

    TSlots() = default;
    /// The other one is left empty, or with what this one held.
    TSlots(TSlots &&other) noexcept
        : m_items(std::exchange(other.m_items, nullptr))
        , m_size(std::exchange(other.m_size, std::uint16_t{0}))
        , m_capacity(std::exchange(other.m_capacity, std::uint16_t{0}))
    {
    }
    TSlots &operator=(TSlots &&other) noexcept
    {
        std::swap(m_items, other.m_items);
        std::swap(m_size, other.m_size);
        std::swap(m_capacity, other.m_capacity);
        return *this;
    }
    ~TSlots() { ::operator delete(m_items); }

    /// Slots are 0..Size()-1; there are numbers only where kNumbered says so.
    int Size() const { return m_size; }
    bool IsFull() const { return m_size == kCapacity; }
    T *const *begin() const { return m_items; }
    T *const *end() const { return m_items + m_size; }
    T *&Item(int slot) { return m_items[slot]; }
    T *Item(int slot) const { return m_items[slot]; }
    std::int32_t &Number(int slot) { return Numbers()[slot]; }
    std::int32_t Number(int slot) const { return Numbers()[slot]; }

    /// The first slot that holds the item, or -1.
    int Find(const T *item) const
    {
        const auto found = std::find(begin(), end(), item);
        return found == end() ? -1 : static_cast<int>(found - begin());
    }

    /// Moves the slots from `slot` on; there must be room.
    void Insert(int slot, T *item, std::int32_t number)
    {
        if (m_size == m_capacity) {
            Reallocate(std::min(kCapacity, m_capacity + m_capacity / 2 + 1));
        }
        std::copy_backward(m_items + slot, m_items + m_size, m_items + m_size + 1);
        m_items[slot] = item;
        if constexpr (kNumbered) {
            std::int32_t *numbers = Numbers();
            std::copy_backward(numbers + slot, numbers + m_size, numbers + m_size + 1);
            numbers[slot] = number;
        }
        ++m_size;
    }

    /// Closes the gap, and gives memory back once much is free.
    void Erase(int slot)
    {
        std::copy(m_items + slot + 1, m_items + m_size, m_items + slot);
        if constexpr (kNumbered) {
            std::int32_t *numbers = Numbers();
            std::copy(numbers + slot + 1, numbers + m_size, numbers + slot);
        }
        --m_size;
        ShrinkToFit();
    }

    /// Moves the slots from `first` on behind those of the target, which has room for them.
    void MoveTail(int first, TSlots &target)
    {
        const int count = m_size - first;
        if (target.m_size + count > target.m_capacity) {
            target.Reallocate(target.m_size + count);
        }
        std::copy_n(m_items + first, count, target.m_items + target.m_size);
        if constexpr (kNumbered) {
            std::copy_n(Numbers() + first, count, target.Numbers() + target.m_size);
        }
        target.m_size = static_cast<std::uint16_t>(target.m_size + count);
        m_size = static_cast<std::uint16_t>(first);
        ShrinkToFit();
    }

private:
    std::int32_t *Numbers() const { return reinterpret_cast<std::int32_t *>(m_items + m_capacity); }

    void ShrinkToFit()
    {
        if (m_size * 4 <= m_capacity) {
            Reallocate(m_size + m_size / 2);
        }
    }

    void Reallocate(int capacity)
    {
        TSlots grown;
        if (capacity > 0) {
            const std::size_t slotSize = sizeof(T *) + (kNumbered ? sizeof(std::int32_t) : 0);
            grown.m_items =
                static_cast<T **>(::operator new(slotSize *static_cast<std::size_t>(capacity)));
            grown.m_capacity = static_cast<std::uint16_t>(capacity);
            grown.m_size = m_size;
            std::copy_n(m_items, m_size, grown.m_items);
            if constexpr (kNumbered) {
                std::copy_n(Numbers(), m_size, grown.Numbers());
            }
        }
        *this = std::move(grown);
    }

    T **m_items = nullptr;
    std::uint16_t m_size = 0;
    std::uint16_t m_capacity = 0;
};

} // namespace korvane
