// Moving nodes of a grid's tree to other parents and places.
#include "data/zuDataMoving.h"
#include "grid/zuGridTree.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

using TNode = TzuDataEntity_GridTreeNode;

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
    return {std::move(nodes), target->ParentNode(), IndexInList(*target) + (below ? 1 : 0)};
}

bool TzuGridTree::CanMove(const TGridTreeMove &move)
{
    return MayComeBelow<TNode>(move.Nodes, move.NewParent);
}

void TzuGridTree::MoveNodes(const TGridTreeMove &move)
{
    TzuDataList_GridTree *list =
        move.NewParent != nullptr ? move.NewParent->ChildList() : DataList();
    if (list != nullptr) {
        MoveEntitiesInto({move.Nodes.begin(), move.Nodes.end()}, *list, move.Index);
    }
}

bool TzuGridTree::MoveByUser(TGridTreeMove move)
{
    if (!CanMove(move)) {
        return false;
    }
    std::vector<TzuDataEntity *> watched(move.Nodes.begin(), move.Nodes.end());
    watched.push_back(move.NewParent);
    const TLivingEntities living(watched);
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
