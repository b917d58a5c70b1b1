// A set of time items that costs the same however many it holds.
#pragma once

#include "gantt/zuGantData.h"

#include <vector>

namespace korvane {

/// Items in no particular order. An item is in one set at most, and remembers its place there.
/// Whoever owns the set takes out an item that is freed.
class TGantItemSet
{
public:
    int Count() const { return static_cast<int>(m_items.size()); }
    const std::vector<TzuDataEntity_Spanbar *> &Items() const { return m_items; }

    bool Contains(const TzuDataEntity_Spanbar *item) const
    {
        return item->m_setSlot < m_items.size() && m_items[item->m_setSlot] == item;
    }
    void Add(TzuDataEntity_Spanbar *item)
    {
        if (!Contains(item)) {
            item->m_setSlot = static_cast<std::uint32_t>(m_items.size());
            m_items.push_back(item);
        }
    }
    void Remove(const TzuDataEntity_Spanbar *item)
    {
        if (Contains(item)) {
            m_items.back()->m_setSlot = item->m_setSlot;
            m_items[item->m_setSlot] = m_items.back();
            m_items.pop_back();
        }
    }

private:
    std::vector<TzuDataEntity_Spanbar *> m_items;
};

} // namespace korvane
