// Ordered collections of items that forms store, such as the columns of a grid.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

namespace korvane {

/// A collection that creates and owns its items. Indexes out of range throw std::out_of_range.
template <typename Item>
class TGridCollection : public TObject
{
public:
    /// Number of items.
    int Count() const { return static_cast<int>(m_items.size()); }
    /// An item; the collection owns it.
    Item &At(int index) const { return *m_items.at(static_cast<std::size_t>(index)); }
    /// -1 when the item is not in the collection.
    int IndexOf(const Item *item) const
    {
        const auto found = std::find_if(m_items.begin(), m_items.end(),
                                        [item](const auto &each) { return each.get() == item; });
        return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
    }
    /// Creates an item, at the end or at an index 0..Count.
    Item &Add() { return Insert(Count()); }
    Item &Insert(int index)
    {
        Check(index, Count() + 1);
        auto item = CreateItem();
        Item &result = *item;
        m_items.insert(m_items.begin() + index, std::move(item));
        Inserted(index);
        return result;
    }
    /// Frees an item, or all from the last to the first.
    void Delete(int index)
    {
        Check(index, Count());
        Deleting(index);
        const auto gone = std::move(m_items[static_cast<std::size_t>(index)]);
        m_items.erase(m_items.begin() + index);
        Changed();
    }
    void Clear()
    {
        while (Count() > 0) {
            Delete(Count() - 1);
        }
    }
    /// The item comes to stand at `to`, counted without it.
    void Move(int from, int to)
    {
        Check(from, Count());
        Check(to, Count());
        if (from != to) {
            auto item = std::move(m_items[static_cast<std::size_t>(from)]);
            m_items.erase(m_items.begin() + from);
            m_items.insert(m_items.begin() + to, std::move(item));
            Moved(from, to);
        }
    }

protected:
    /// Called within Add and Insert; must not give null.
    virtual std::unique_ptr<Item> CreateItem() = 0;
    /// The item is at the index; is about to go from it; stands elsewhere.
    virtual void Inserted(int /*index*/) { Changed(); }
    virtual void Deleting(int /*index*/) {}
    virtual void Moved(int /*from*/, int /*to*/) { Changed(); }
    /// After each change.
    virtual void Changed() = 0;

private:
    static void Check(int index, int end)
    {
        if (index < 0 || index >= end) {
            throw std::out_of_range("List index out of bounds");
        }
    }

    std::vector<std::unique_ptr<Item>> m_items;
};

/// Hears of changes to the collections of a grid.
class KORVANE_CORE_API IGridModelHost
{
public:
    virtual ~IGridModelHost() = default;

    /// Something is to be shown anew.
    virtual void ModelChanged() = 0;
    /// The fixed rows and columns of all grids are to be checked.
    virtual void NeedEnsureFixed() = 0;
    /// The names of sub-grids may mean other ones.
    virtual void SubGridsChanged() = 0;
};

} // namespace korvane
