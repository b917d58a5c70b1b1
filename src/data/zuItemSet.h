// A set of entities that costs the same however many it holds.
#pragma once

#include <cstdint>
#include <vector>

namespace korvane {

/// Items in no particular order. `Place::Of(item)` is a number in the item where the set remembers
/// the item's place, so that an item is in one set of a kind at most. Whoever owns the set takes
/// out an item that is freed.
template <typename Item, typename Place>
class TItemSet
{
public:
    /// Number of items, and all of them until the set is changed.
    int Count() const { return static_cast<int>(m_items.size()); }
    const std::vector<Item *> &Items() const { return m_items; }

    /// Each costs the same at any size. Adding what is there and removing what is not does nothing.
    bool Contains(const Item *item) const
    {
        const std::uint32_t slot = Place::Of(*item);
        return slot < m_items.size() && m_items[slot] == item;
    }
    void Add(Item *item)
    {
        if (!Contains(item)) {
            Place::Of(*item) = static_cast<std::uint32_t>(m_items.size());
            m_items.push_back(item);
        }
    }
    void Remove(const Item *item)
    {
        if (Contains(item)) {
            const std::uint32_t slot = Place::Of(*item);
            Place::Of(*m_items.back()) = slot;
            m_items[slot] = m_items.back();
            m_items.pop_back();
        }
    }
    /// Leaves the numbers in the items as they are.
    void Clear() { m_items.clear(); }

private:
    std::vector<Item *> m_items;
};

} // namespace korvane
