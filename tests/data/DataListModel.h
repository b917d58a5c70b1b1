// The rules of the paged list, written down as plain loops: the yardstick for the fast one.
#pragma once

#include "DataListFixture.h"

#include <algorithm>
#include <functional>
#include <stdexcept>

namespace korvane::test {

struct ModelItem
{
    int Id;
    int ListIndex = 0;
    bool Selected = false;
    bool Visible = true;
};

/// Every item keeps its cached index in a field, refreshed by a loop; positions are found by
/// search. Logs the events that the list is to fire, in the words of LoggingController.
class DataListModel
{
public:
    DataListModel(Log &log, std::function<bool(int id)> canUnload)
        : m_log(log)
        , m_canUnload(std::move(canUnload))
    {
    }

    std::vector<ModelItem> Block;
    int Before = 0;
    int After = 0;
    int FirstStale = 0;
    bool OutOfDate = true;
    int NextId = 0;

    int Size() const { return static_cast<int>(Block.size()); }
    int Count() const { return Before + Size() + After; }
    bool IsLoaded(int index) const { return Before <= index && index < Before + Size(); }

    ModelItem &At(int position)
    {
        if (position < 0 || position >= Size()) {
            throw std::out_of_range("model");
        }
        return Block[static_cast<std::size_t>(position)];
    }
    int PositionOf(int id) const
    {
        const auto found = std::find_if(Block.begin(), Block.end(),
                                        [id](const ModelItem &item) { return item.Id == id; });
        return found == Block.end() ? -1 : static_cast<int>(found - Block.begin());
    }

    void MarkStale(int index)
    {
        FirstStale = std::min(FirstStale, index);
        OutOfDate = true;
    }
    void EnsureIndexes()
    {
        if (!OutOfDate) {
            return;
        }
        for (int p = FirstStale - Before; p <= Size() - 1; ++p) {
            At(p).ListIndex = Before + p;
        }
        OutOfDate = false;
        FirstStale = Count();
    }
    int ListIndexAt(int position)
    {
        EnsureIndexes();
        return At(position).ListIndex;
    }

    /// The id of the item at an index, or -1.
    int Load(int index)
    {
        if (index < 0 || index >= Count()) {
            return -1;
        }
        if (IsLoaded(index)) {
            return At(index - Before).Id;
        }
        if (RangeLength(index) - 1 + Size() > 500) {
            UnloadAll();
            index = std::min(index, Count() - 1);
            if (Block.empty()) {
                After += Before - index;
                Before = index;
            }
            return IsLoaded(index) ? At(index - Before).Id : LoadRange(index);
        }
        return LoadRange(index);
    }

    void Insert(int index)
    {
        Load(index);
        if (index == Count() && index >= 1) {
            Load(index - 1);
        }
        const int position = index - Before;
        const ModelItem item = Create();
        if (position < 0 || position > Size()) {
            throw std::out_of_range("model");
        }
        Block.insert(Block.begin() + position, item);
        MarkStale(Before + position);
        Say("insert", item.Id);
        m_log.emplace_back("content");
    }

    void Delete(int index)
    {
        if (index < 0 || index >= Count()) {
            return;
        }
        if (IsLoaded(index)) {
            const ModelItem item = Take(index - Before);
            MarkStale(index);
            Say("delete", item.Id);
            m_log.emplace_back("content");
        } else if (index < Before) {
            --Before;
        } else {
            --After;
        }
    }
    void RemoveAt(int position) { Delete(ListIndexAt(position)); }

    void Clear()
    {
        for (int p = Size() - 1; p >= 0; --p) {
            if (p < Size()) {
                RemoveAt(p);
            }
        }
        Before = After = 0;
        // What was missed because cached indexes had gone astray is released all the same.
        while (!Block.empty()) {
            Delete(0);
        }
        m_log.emplace_back("count");
    }

    void AddUnloaded(int count)
    {
        After += count;
        m_log.emplace_back("content");
        m_log.emplace_back("count");
    }

    void Unload(int index, TBlockEnd toward)
    {
        Take(index - Before);
        ++(toward == TBlockEnd::Front ? Before : After);
        if (Block.empty()) {
            After += Before;
            Before = 0;
        }
    }
    void Purge()
    {
        while (!Block.empty() && m_canUnload(Block.front().Id)) {
            Unload(Before, TBlockEnd::Front);
        }
        while (!Block.empty() && m_canUnload(Block.back().Id)) {
            Unload(Before + Size() - 1, TBlockEnd::Back);
        }
    }
    void ClearSelections()
    {
        for (ModelItem &item : Block) {
            Select(item, false);
        }
    }
    void UnloadAll()
    {
        ClearSelections();
        if (!m_sorting) {
            Purge();
        }
    }
    void Select(ModelItem &item, bool selected)
    {
        if (item.Selected != selected) {
            item.Selected = selected;
            Say("select", item.Id);
        }
    }

    void Move(int position, int newIndex)
    {
        const int id = At(position).Id;
        const int oldIndex = ListIndexAt(position);
        Load(newIndex);
        if (!IsLoaded(newIndex) || PositionOf(id) < 0) {
            throw std::out_of_range("model");
        }
        At(oldIndex - Before);
        Block.insert(Block.begin() + (newIndex - Before), Take(oldIndex - Before));
        MarkStale(std::min(oldIndex, newIndex));
        m_log.push_back("move " + std::to_string(id) + ' ' + std::to_string(oldIndex) + ' '
                        + std::to_string(newIndex));
    }

    void ChangeOwner(int position, DataListModel &target, int targetPosition)
    {
        Say("leaving", At(position).Id);
        if (targetPosition < 0 || targetPosition > target.Size()) {
            throw std::out_of_range("model");
        }
        const int index = ListIndexAt(position);
        const ModelItem item = Take(position);
        MarkStale(index);
        target.Block.insert(target.Block.begin() + targetPosition, item);
        target.MarkStale(targetPosition);
        Say("arrived", item.Id);
        m_log.emplace_back("content");
        m_log.emplace_back("content");
    }

    void Sort(const std::function<bool(int, int)> &less, TSortDirection direction)
    {
        m_sorting = true;
        for (int i = 0; i < Count(); ++i) {
            Load(i);
        }
        m_sorting = false;
        std::stable_sort(Block.begin(), Block.end(),
                         [&](const ModelItem &a, const ModelItem &b) { return less(a.Id, b.Id); });
        if (direction == TSortDirection::Descending) {
            std::reverse(Block.begin(), Block.end());
        }
        MarkStale(0);
        m_log.emplace_back("content");
    }

    int VisibleIndexOf(int index)
    {
        int visible = -1;
        for (int i = 0; i <= index && i < Count(); ++i) {
            Load(i);
            visible += At(i - Before).Visible ? 1 : 0;
        }
        return visible;
    }
    int IndexOfVisible(int visibleIndex)
    {
        int counter = -1;
        for (int i = 0; i < Count(); ++i) {
            Load(i);
            counter += At(i - Before).Visible ? 1 : 0;
            if (counter == visibleIndex) {
                return i;
            }
        }
        return -1;
    }

private:
    void Say(const char *event, int id)
    {
        m_log.push_back(std::string(event) + ' ' + std::to_string(id));
    }
    ModelItem Create()
    {
        Say("visible", NextId);
        return {NextId++};
    }
    ModelItem Take(int position)
    {
        const ModelItem item = At(position);
        Block.erase(Block.begin() + position);
        return item;
    }
    int RangeLength(int index) const
    {
        const int blockEnd = Before + Size();
        if (index < Before) {
            return Before - index;
        }
        return index > blockEnd && blockEnd > 0 ? index - blockEnd + 1 : 1;
    }
    int LoadRange(int index)
    {
        const int count = RangeLength(index);
        const bool front = index < Before;
        const int from = front ? index : index - count + 1;
        if (Before == 0 && Count() == After) {
            After = Count() - from;
            Before = from;
        }
        for (int k = from; k < from + count; ++k) {
            ModelItem item = Create();
            item.ListIndex = k;
            Block.insert(front ? Block.begin() : Block.end(), item);
            --(front ? Before : After);
        }
        for (int n = 0; n < count; ++n) {
            const int k = front ? from + count - 1 - n : from + n;
            Say("load", At(k - Before).Id);
        }
        return At(index - Before).Id;
    }

    Log &m_log;
    std::function<bool(int id)> m_canUnload;
    bool m_sorting = false;
};

} // namespace korvane::test
