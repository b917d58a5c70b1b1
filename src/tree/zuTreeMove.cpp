// Moving entities to other parents and places.
#include "data/zuDataMoving.h"
#include "tree/zuTreeGuard.h"
#include "tree/zuTreeUser.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

/// Whether more than that many levels are below the entity.
bool IsDeeper(const TzuDataEntity_Tree &entity, int levels)
{
    std::vector<const TzuDataEntity_Tree *> level{&entity};
    for (int left = levels; !level.empty(); --left) {
        if (left < 0) {
            return true;
        }
        std::vector<const TzuDataEntity_Tree *> below;
        for (const TzuDataEntity_Tree *at : level) {
            const TzuDataList_Tree *children = at->LoadedChildren();
            for (int i = 0; children != nullptr && i < children->LoadedCount(); ++i) {
                below.push_back(static_cast<const TzuDataEntity_Tree *>(children->GetLoaded(i)));
            }
        }
        level = std::move(below);
    }
    return false;
}

} // namespace

// --- where to ------------------------------------------------------------------------------------

TTreeDrop TTreeUserCore::DropAt(int x, int y)
{
    EnsureDisplayUpToDate();
    const TTreeGeometry view = Host().Geometry();
    if (x < 0 || x >= view.Width || y < 0 || y >= view.Height) {
        return {};
    }
    const int height = std::max(view.RowHeight, 1);
    const TTreeNode_zuSub *node = RootNode().NodeAtRow(view.TopRow + y / height);
    if (node == nullptr) {
        return {};
    }
    if (node->Data() == nullptr) {
        return {GetDataEntityFromNode(node->Parent()), TTreeDropPlace::On};
    }
    const int within = y % height;
    const int edge = std::max(height / 4, 1);
    return {node->Data(), within < edge             ? TTreeDropPlace::Above
                          : within >= height - edge ? TTreeDropPlace::Below
                                                    : TTreeDropPlace::On};
}

TTreeMove TTreeUserCore::MoveTo(const TTreeDrop &drop, TTreeEntities entities)
{
    TzuDataEntity_Tree *target = drop.Target;
    if (target == nullptr) {
        return {std::move(entities), nullptr, DataList()->Count()};
    }
    if (drop.Place == TTreeDropPlace::On) {
        const int count = target->HasChildren() ? target->ChildList()->Count() : 0;
        return {std::move(entities), target, count};
    }
    const bool below = drop.Place == TTreeDropPlace::Below;
    if (below && target->Node() != nullptr && target->Node()->Expanded() && target->HasChildren()) {
        return {std::move(entities), target, 0}; // between it and its first child
    }
    return {std::move(entities), target->ParentNode(), IndexInList(*target) + (below ? 1 : 0)};
}

bool TTreeUserCore::CanMove(const TTreeMove &move) const
{
    return MayComeBelow<TzuDataEntity_Tree>(move.Entities, move.NewParent) && FitsLevels(move);
}

bool TTreeUserCore::FitsLevels(const TTreeMove &move) const
{
    if (m_maxLevels == 0) {
        return true;
    }
    const int level = move.NewParent != nullptr ? move.NewParent->GetLevel() + 1 : 0;
    return std::none_of(move.Entities.begin(), move.Entities.end(), [&](const auto *entity) {
        // What lies too deep already may still be moved within its level or up.
        return level > entity->GetLevel() && IsDeeper(*entity, m_maxLevels - 1 - level);
    });
}

// --- moving --------------------------------------------------------------------------------------

void TTreeUserCore::MoveEntities(const TTreeMove &move)
{
    TzuDataList_Tree *list = move.NewParent != nullptr ? move.NewParent->ChildList() : DataList();
    if (list == nullptr) {
        return;
    }
    TzuDataEntity_Tree *current = GetDataEntityFromNode(SelectedNode());
    const TGuard guard(*this, {current});
    MoveEntitiesInto({move.Entities.begin(), move.Entities.end()}, *list, move.Index);
    EnsureDisplayUpToDate();
    if (SelectedNode() == nullptr && current != nullptr && guard.Lives(current)
        && current->Node() != nullptr) {
        MakeCurrent(*current->Node());
        MakeVisible(*current);
    }
}

bool TTreeUserCore::MoveByUser(TTreeMove move)
{
    if (!CanMove(move)) {
        return false;
    }
    TTreeEntities guarded = move.Entities;
    guarded.push_back(move.NewParent);
    const TGuard guard(*this, guarded);
    const auto alive = [&guard, &guarded] {
        return std::all_of(guarded.begin(), guarded.end(), [&guard](auto *entity) {
            return entity == nullptr || guard.Lives(entity);
        });
    };
    if (move.NewParent != nullptr && move.NewParent->DummyNode() != nullptr && OnLoadChildren) {
        LoadChildren(*move.NewParent->Node()); // its other children come first
        if (!alive()) {
            return false;
        }
        move.Index = move.NewParent->HasChildren() ? move.NewParent->ChildList()->Count() : 0;
    }
    bool allow = true;
    bool handled = false;
    OnBeforeMove(this, move, allow, handled);
    if (allow && !handled && alive()) {
        MoveEntities(move);
    }
    if (allow && alive()) {
        OnMoved(this, move);
    }
    return allow;
}

// --- by steps ------------------------------------------------------------------------------------

bool TTreeUserCore::MoveSelected(TStep step)
{
    TTreeEntities entities = TopmostSelected();
    for (std::size_t i = 1; i < entities.size(); ++i) {
        if (entities[i]->GetDataList() != entities[0]->GetDataList()
            || IndexInList(*entities[i]) != IndexInList(*entities[i - 1]) + 1) {
            return false;
        }
    }
    return !entities.empty() && MoveByUser(StepMove(step, std::move(entities)));
}

/// A move without entities when there is nowhere to go.
TTreeMove TTreeUserCore::StepMove(TStep step, TTreeEntities entities)
{
    TzuDataList_Tree *list = dynamic_cast<TzuDataList_Tree *>(entities.front()->GetDataList());
    TzuDataEntity_Tree *parent = entities.front()->ParentNode();
    const int first = IndexInList(*entities.front());
    const int last = IndexInList(*entities.back());
    switch (step) {
    case TStep::Indent:
        if (first > 0) {
            return MoveTo({list->Entity(first - 1), TTreeDropPlace::On}, std::move(entities));
        }
        break;
    case TStep::Outdent:
        if (parent != nullptr) {
            return {std::move(entities), parent->ParentNode(), IndexInList(*parent) + 1};
        }
        break;
    case TStep::Up:
        if (first > 0) {
            return {std::move(entities), parent, first - 1};
        }
        break;
    case TStep::Down:
        if (last + 1 < list->Count()) {
            return {std::move(entities), parent, last + 2};
        }
        break;
    }
    return {};
}

} // namespace korvane
