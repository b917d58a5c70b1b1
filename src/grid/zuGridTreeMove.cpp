// Moving nodes of a grid's tree to other parents and places.
#include "grid/zuGridTree.h"

#include <algorithm>
#include <memory>
#include <unordered_set>
#include <utility>

namespace korvane {

namespace {

using TNode = TzuDataEntity_GridTreeNode;

int IndexOf(const TNode &node)
{
    const TzuDataList *list = node.GetDataList();
    return list != nullptr ? list->UnloadedBefore() + list->IndexOf(&node) : 0;
}

/// Which of some nodes still exist.
class TLivingNodes
{
public:
    explicit TLivingNodes(const std::vector<TNode *> &nodes)
    {
        for (TNode *node : nodes) {
            m_watches.push_back(node != nullptr ? std::make_unique<TzuLifeWatch>(*node) : nullptr);
        }
    }
    TLivingNodes(const TLivingNodes &) = delete;
    TLivingNodes &operator=(const TLivingNodes &) = delete;
    ~TLivingNodes()
    {
        while (!m_watches.empty()) {
            m_watches.pop_back(); // watches end in the reverse order of their beginning
        }
    }

    bool Lives(std::size_t index) const
    {
        return m_watches[index] == nullptr || static_cast<bool>(*m_watches[index]);
    }
    bool AllLive() const
    {
        return std::all_of(m_watches.begin(), m_watches.end(), [](const auto &watch) {
            return watch == nullptr || static_cast<bool>(*watch);
        });
    }

private:
    std::vector<std::unique_ptr<TzuLifeWatch>> m_watches;
};

/// Brings a node before another one of the list, or to the list's end.
void Place(TNode &node, TzuDataList_GridTree &list, const TNode *before)
{
    if (node.GetDataList() != &list) {
        node.ChangeOwner(&list, before != nullptr ? list.IndexOf(before) : list.LoadedCount());
        return;
    }
    const int from = IndexOf(node);
    const int to = before != nullptr ? IndexOf(*before) : list.Count();
    const int place = to > from ? to - 1 : to;
    if (place != from) {
        node.Move(place);
    }
}

} // namespace

std::vector<TzuDataEntity_GridTreeNode *> TzuGridTree::TopmostSelected() const
{
    std::vector<TNode *> nodes;
    int behind = 0; // the rows of the last one that was taken
    for (const auto &[first, end] : m_gridCell.Selection().RowRanges()) {
        int row = Rows().NearestLoaded(std::max(first, behind), 1);
        while (row >= 0 && row < end) {
            if (TNode *node = LoadedNodeAt(row)) {
                nodes.push_back(node);
                behind = RowBehind(*node);
            }
            row = Rows().NearestLoaded(std::max(row + 1, behind), 1);
        }
    }
    return nodes;
}

TGridTreeMove TzuGridTree::MoveTo(const TGridRowDrop &drop, std::vector<TNode *> nodes)
{
    TNode *target = GetDataEntityFromRow(drop.Row);
    if (target == nullptr) {
        return {std::move(nodes), nullptr, DataList()->Count()};
    }
    if (drop.Place == TGridRowPlace::On) {
        const int count = target->HasChildren() ? target->ChildList()->Count() : 0;
        return {std::move(nodes), target, count};
    }
    const bool below = drop.Place == TGridRowPlace::Below;
    if (below && target->GetExpanded() && target->HasChildren()) {
        return {std::move(nodes), target, 0}; // between it and its first child
    }
    return {std::move(nodes), target->ParentNode(), IndexOf(*target) + (below ? 1 : 0)};
}

bool TzuGridTree::CanMove(const TGridTreeMove &move)
{
    const auto isMoved = [&move](const TNode *node) {
        return std::find(move.Nodes.begin(), move.Nodes.end(), node) != move.Nodes.end();
    };
    for (const TNode *above = move.NewParent; above != nullptr; above = above->ParentNode()) {
        if (isMoved(above)) {
            return false;
        }
    }
    return !move.Nodes.empty() && !isMoved(nullptr);
}

void TzuGridTree::MoveNodes(const TGridTreeMove &move)
{
    TzuDataList_GridTree *list =
        move.NewParent != nullptr ? move.NewParent->ChildList() : DataList();
    if (list == nullptr) {
        return;
    }
    // A handler may change the move that it was called with.
    const std::vector<TNode *> nodes = move.Nodes;
    const std::unordered_set<const TNode *> moved(nodes.begin(), nodes.end());
    TNode *before = nullptr;
    for (int i = std::max(move.Index, 0); before == nullptr && i < list->Count(); ++i) {
        TNode *node = list->Node(i);
        before = moved.contains(node) ? nullptr : node;
    }
    const TLivingNodes living(nodes);
    const TLivingNodes target({before});
    const TzuLifeWatch listLives(*list);
    for (std::size_t i = 0; i < nodes.size() && listLives && target.AllLive(); ++i) {
        if (living.Lives(i)) {
            Place(*nodes[i], *list, before);
        }
    }
}

bool TzuGridTree::MoveByUser(TGridTreeMove move)
{
    if (!CanMove(move)) {
        return false;
    }
    std::vector<TNode *> watched = move.Nodes;
    watched.push_back(move.NewParent);
    const TLivingNodes living(watched);
    if (move.NewParent != nullptr && !move.NewParent->HasChildren()) {
        LoadChildren(*move.NewParent); // its other children come first
        if (!living.AllLive()) {
            return false;
        }
        move.Index = move.NewParent->HasChildren() ? move.NewParent->ChildList()->Count() : 0;
    }
    bool allow = true;
    bool handled = false;
    OnBeforeMove(this, move, allow, handled);
    if (allow && !handled && living.AllLive()) {
        MoveNodes(move);
    }
    if (allow && living.AllLive()) {
        OnMoved(this, move);
    }
    return allow;
}

} // namespace korvane
