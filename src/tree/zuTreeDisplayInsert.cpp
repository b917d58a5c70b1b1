// Inserting, moving and ordering the nodes of the display.
#include "data/zuMergeSort.h"
#include "foundation/zuBeginUpdate.h"
#include "tree/zuTree.h"
#include "tree/zuTreeDisplay.h"

#include <algorithm>
#include <limits>
#include <unordered_map>
#include <utility>

namespace korvane {

// --- inserting -----------------------------------------------------------------------------------

void TTreeDisplay::InsertQueued(std::size_t count)
{
    std::vector<std::vector<TPlaced>> groups;
    std::unordered_map<const TzuDataList *, std::size_t> groupOf;
    for (std::size_t i = 0; i < count; ++i) {
        const TzuDataEntity_Tree *entity = m_queue[i];
        if (entity == nullptr || entity->m_node != nullptr || entity->m_hideNode) {
            continue;
        }
        const auto *list = dynamic_cast<const TzuDataList_Tree *>(entity->GetDataList());
        const int position = list != nullptr ? list->IndexOf(entity) : -1;
        if (position < 0 || NodeOf(*list) == nullptr) {
            continue; // made together with the node above it
        }
        const auto [group, isNew] = groupOf.try_emplace(list, groups.size());
        if (isNew) {
            groups.emplace_back();
        }
        groups[group->second].push_back({position, i});
    }
    for (std::vector<TPlaced> &group : groups) {
        const auto alive = std::find_if(group.begin(), group.end(), [this](const TPlaced &placed) {
            return m_queue[placed.Place] != nullptr;
        });
        if (alive != group.end()) {
            auto *list = dynamic_cast<TzuDataList_Tree *>(m_queue[alive->Place]->GetDataList());
            if (list != nullptr && NodeOf(*list) != nullptr) {
                InsertGroup(*list, group);
            }
        }
    }
}

void TTreeDisplay::InsertGroup(TzuDataList_Tree &list, std::vector<TPlaced> &group)
{
    TTreeNode_zuSub &parent = *NodeOf(list);
    const int level = parent.Level() + 1;
    const TzuLifeWatch listLives(list);
    const auto inListOrder = [](const TPlaced &a, const TPlaced &b) {
        return a.Position < b.Position;
    };
    if (!std::is_sorted(group.begin(), group.end(), inListOrder)) {
        std::sort(group.begin(), group.end(), inListOrder);
    }
    std::size_t next = 0;
    const auto entityAt = [this, &group](std::size_t i) { return m_queue[group[i].Place]; };
    if (TTreeNode_zuSub *placeholder = parent.PlaceholderChild()) {
        while (next < group.size() && entityAt(next) == nullptr) {
            ++next;
        }
        if (next < group.size()) {
            ConvertPlaceholder(*placeholder, *entityAt(next++));
        }
    }
    if (listLives) {
        SortLater(list);
    }
    while (listLives && next < group.size()) {
        const int at = PositionFor(parent, list, group[next].Position);
        const TTreeNode_zuSub *behind = at < parent.ChildCount() ? parent.Child(at) : nullptr;
        const int end = behind != nullptr && behind->Data() != nullptr
                            ? list.IndexOf(behind->Data())
                            : std::numeric_limits<int>::max();
        std::vector<TOwner> nodes;
        // One run: what stands between two nodes that are there already.
        do {
            if (TzuDataEntity_Tree *entity = entityAt(next)) {
                nodes.push_back(NewNode(*entity, level));
            }
            ++next;
        } while (next < group.size() && group[next].Position < end);
        FillBelow(nodes, level);
        Attach(parent, at, std::move(nodes));
    }
}

/// New nodes stand in list order until the list is sorted.
void TTreeDisplay::SortLater(TzuDataList_Tree &list)
{
    list.SetNeedsSort(list.NeedsSort() || m_tree.SortCompare());
    if (list.NeedsSort()) {
        QueueSort(list);
    }
}

/// Where among the nodes a list position belongs, when the nodes stand in list order.
int TTreeDisplay::PositionFor(const TTreeNode_zuSub &parent, const TzuDataList_Tree &list,
                              int listPosition) const
{
    int low = 0;
    int high = parent.ChildCount();
    if (m_tree.SortCompare() || high == 0) {
        return high; // the list is sorted afterwards
    }
    while (low < high) {
        const int middle = low + (high - low) / 2;
        const TzuDataEntity_Tree *entity = parent.Child(middle)->Data();
        if (entity == nullptr || list.IndexOf(entity) < listPosition) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

void TTreeDisplay::ConvertPlaceholder(TTreeNode_zuSub &placeholder, TzuDataEntity_Tree &entity)
{
    m_bracket->Mark();
    Bind(placeholder, entity, placeholder.Level());
    m_observer.NodeChanged(placeholder, TNodeAspect::Caption);
    m_observer.NodeChanged(placeholder, TNodeAspect::Expansion);
    if (placeholder.Data() == &entity) {
        AttachChildren(placeholder, entity);
    }
}

/// Adds what belongs below a node that has no children yet.
void TTreeDisplay::AttachChildren(TTreeNode_zuSub &node, TzuDataEntity_Tree &entity)
{
    const int level = node.Level() + 1;
    std::vector<TOwner> nodes = NewChildren(entity, level);
    FillBelow(nodes, level);
    Attach(node, 0, std::move(nodes));
}

void TTreeDisplay::Attach(TTreeNode_zuSub &parent, int at, std::vector<TOwner> nodes)
{
    if (nodes.empty()) {
        return;
    }
    const TNodeChangeInfo change{TNodeChange::Insert, &parent, at, static_cast<int>(nodes.size()),
                                 0};
    m_bracket->Mark();
    m_observer.BeforeChange(change);
    parent.InsertChildren(at, std::move(nodes));
    m_observer.AfterChange(change);
}

TTreeDisplay::TOwner TTreeDisplay::NewNode(TzuDataEntity_Tree &entity, int level)
{
    TOwner node = m_tree.CreateNode();
    Bind(*node, entity, level);
    return node;
}

void TTreeDisplay::Bind(TTreeNode_zuSub &node, TzuDataEntity_Tree &entity, int level)
{
    node.SetPlaceholder(false);
    node.SetData(&entity);
    entity.m_node = &node;
    if (level < m_tree.AutoExpandLevels() - 1) {
        entity.m_expanded = true;
    }
    node.SetExpanded(entity.m_expanded);
}

/// The nodes of an entity's children, which come to that level, or its placeholder.
std::vector<TTreeDisplay::TOwner> TTreeDisplay::NewChildren(TzuDataEntity_Tree &entity, int level)
{
    std::vector<TOwner> nodes;
    if (!entity.HasChildren()) {
        const int levels = m_tree.AutoExpandLevels();
        if ((levels < 0 || level < levels) && m_tree.NeedsDummyNode(entity)) {
            nodes.push_back(m_tree.CreateNode());
            nodes.back()->SetPlaceholder(true);
        }
        return nodes;
    }
    TzuDataList_Tree &list = *entity.m_childList;
    const TzuLifeWatch listLives(list);
    nodes.reserve(static_cast<std::size_t>(list.LoadedCount()));
    for (int i = 0; listLives && i < list.Count(); ++i) {
        TzuDataEntity_Tree *child = list.Entity(i);
        if (child != nullptr && !child->m_hideNode && child->m_node == nullptr) {
            nodes.push_back(NewNode(*child, level));
        }
    }
    if (listLives) {
        list.m_orderUnknown = false;
        SortLater(list);
    }
    return nodes;
}

/// Gives new nodes of that level all that belongs below them. Not by recursion, for deep trees; and
/// from the bottom to the top, so that each node counts its rows once.
void TTreeDisplay::FillBelow(const std::vector<TOwner> &tops, int level)
{
    struct TFamily
    {
        TTreeNode_zuSub *Parent;
        int Level;
        std::vector<TOwner> Children;
    };
    std::vector<TFamily> families;
    const auto add = [&families](const std::vector<TOwner> &nodes, int levelOfNodes) {
        for (const TOwner &node : nodes) {
            if (node->Data() != nullptr) {
                families.push_back({node.get(), levelOfNodes, {}});
            }
        }
    };
    add(tops, level);
    for (std::size_t i = 0; i < families.size(); ++i) {
        TzuDataEntity_Tree *entity = families[i].Parent->Data();
        if (entity == nullptr) {
            continue; // deleted by a handler
        }
        const int below = families[i].Level + 1;
        families[i].Children = NewChildren(*entity, below);
        add(families[i].Children, below);
    }
    for (auto family = families.rbegin(); family != families.rend(); ++family) {
        family->Parent->InsertChildren(0, std::move(family->Children));
    }
}

// --- order ---------------------------------------------------------------------------------------

void TTreeDisplay::MoveQueued(std::size_t count)
{
    std::unordered_map<TzuDataList_Tree *, std::size_t> movedIn;
    for (std::size_t i = 0; i < count; ++i) {
        TzuDataEntity_Tree *entity = m_queue[i];
        if (entity == nullptr || !std::exchange(entity->m_moved, false)
            || entity->m_node == nullptr) {
            continue;
        }
        auto *list = dynamic_cast<TzuDataList_Tree *>(entity->GetDataList());
        if (list == nullptr || list->m_orderUnknown) {
            continue;
        }
        if (m_tree.SortCompare() || !movedIn.try_emplace(list, i).second) {
            QueueWhole(*list); // the others do not show where one belongs
        }
    }
    for (const auto &[list, place] : movedIn) {
        TzuDataEntity_Tree *entity = m_queue[place];
        if (entity != nullptr && entity->m_node != nullptr && entity->GetDataList() == list
            && !list->m_orderUnknown && NodeOf(*list) != nullptr) {
            MoveNode(*list, *NodeOf(*list), *entity->m_node);
        }
    }
}

void TTreeDisplay::MoveNode(TzuDataList_Tree &list, TTreeNode_zuSub &parent, TTreeNode_zuSub &node)
{
    const int from = node.Index();
    const int position = list.IndexOf(node.Data());
    int low = 0;
    int high = parent.ChildCount() - 1;
    while (low < high) { // among the others
        const int middle = low + (high - low) / 2;
        const TzuDataEntity_Tree *other = parent.Child(middle < from ? middle : middle + 1)->Data();
        if (other == nullptr || list.IndexOf(other) < position) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    if (low == from) {
        return;
    }
    const TNodeChangeInfo change{TNodeChange::Move, &parent, from, 1, low};
    m_bracket->Mark();
    m_observer.BeforeChange(change);
    parent.InsertChildren(low, parent.TakeChildren(from, 1));
    m_observer.AfterChange(change);
}

/// Puts the nodes into list order, then into that of the tree's comparison.
void TTreeDisplay::OrderNodes(TzuDataList_Tree &list, TTreeNode_zuSub &parent)
{
    struct TEntry
    {
        TTreeNode_zuSub *Node;
        int Position;
    };
    std::vector<TEntry> order;
    order.reserve(static_cast<std::size_t>(parent.ChildCount()));
    for (int i = 0; i < parent.ChildCount(); ++i) {
        TTreeNode_zuSub *node = parent.Child(i);
        const TzuDataEntity_Tree *entity = node->Data();
        order.push_back({node, entity != nullptr ? list.IndexOf(entity) : -1});
    }
    const bool compares = static_cast<bool>(m_tree.SortCompare());
    const bool backwards = list.SortDirection() == TSortDirection::Descending;
    MergeSort(order, [this, compares, backwards](const TEntry &a, const TEntry &b) {
        TzuDataEntity_Tree *entityA = a.Node->Data();
        TzuDataEntity_Tree *entityB = b.Node->Data();
        const int result = compares && entityA != nullptr && entityB != nullptr
                               ? m_tree._SortCompare(entityA, entityB)
                               : 0;
        return result != 0 ? (result < 0) != backwards : a.Position < b.Position;
    });
    std::vector<TTreeNode_zuSub *> nodes;
    nodes.reserve(order.size());
    bool changed = false;
    for (const TEntry &entry : order) {
        changed = changed || entry.Node != parent.Child(static_cast<int>(nodes.size()));
        nodes.push_back(entry.Node);
    }
    if (!changed) {
        return;
    }
    const TNodeChangeInfo change{TNodeChange::Reorder, &parent, 0, parent.ChildCount(), 0};
    m_bracket->Mark();
    m_observer.BeforeChange(change);
    parent.ReorderChildren(nodes);
    m_observer.AfterChange(change);
}

} // namespace korvane
