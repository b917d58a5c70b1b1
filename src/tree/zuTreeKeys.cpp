// What the keys do in a tree.
#include "foundation/zuLifeWatch.h"
#include "tree/zuTreeUser.h"

#include <algorithm>

namespace korvane {

/// The current node, or what hides it.
TTreeNode_zuSub *TTreeUserCore::ShownCurrent() const
{
    TTreeNode_zuSub *node = SelectedNode();
    while (node != nullptr && !node->IsShown()) {
        node = node->Parent();
    }
    return node;
}

/// The first node with an entity from a display row on, in the direction of the step; when there is
/// none, in the other one.
TTreeNode_zuSub *TTreeUserCore::EntityNodeFrom(int row, int step) const
{
    const int last = RootNode().RowCount() - 2;
    TTreeNode_zuSub *start = RootNode().NodeAtRow(std::clamp(row, 0, std::max(last, 0)));
    for (const bool forwards : {step > 0, step < 0}) {
        TTreeNode_zuSub *node = start;
        while (node != nullptr && node->Data() == nullptr) {
            node = forwards ? node->NextShown() : node->PrevShown();
        }
        if (node != nullptr) {
            return node;
        }
    }
    return nullptr;
}

TTreeNode_zuSub *TTreeUserCore::KeyTarget(TTreeKey key, TTreeNode_zuSub *current) const
{
    const TTreeGeometry view = Host().Geometry();
    const int page = std::max(view.Height / std::max(view.RowHeight, 1), 1);
    const int lastRow = RootNode().RowCount() - 2;
    const int row = current != nullptr ? current->Row() : -1;
    switch (key) {
    case TTreeKey::Up:
        return EntityNodeFrom(current != nullptr ? row - 1 : 0, -1);
    case TTreeKey::Down:
        return EntityNodeFrom(row + 1, 1);
    case TTreeKey::Home:
        return EntityNodeFrom(0, 1);
    case TTreeKey::End:
        return EntityNodeFrom(lastRow, -1);
    case TTreeKey::PageUp:
        return EntityNodeFrom(row > view.TopRow ? view.TopRow : row - page + 1, -1);
    case TTreeKey::PageDown: {
        const int bottom = view.TopRow + page - 1;
        return EntityNodeFrom(row < bottom ? bottom : row + page - 1, 1);
    }
    default:
        return nullptr;
    }
}

bool TTreeUserCore::KeyDown(TTreeKey key, TShiftState shift)
{
    EnsureDisplayUpToDate();
    if (key == TTreeKey::SelectAll) {
        SelectAll();
        return MultiSelect();
    }
    TTreeNode_zuSub *current = ShownCurrent();
    if (TTreeNode_zuSub *target = KeyTarget(key, current)) {
        MoveCurrentTo(target, shift);
        return true;
    }
    if (current == nullptr) {
        MoveCurrentTo(EntityNodeFrom(0, 1), {});
        return true;
    }
    return current->Data() != nullptr && KeyOnNode(key, *current, shift);
}

bool TTreeUserCore::KeyOnNode(TTreeKey key, TTreeNode_zuSub &current, TShiftState shift)
{
    TzuDataEntity_Tree &entity = *current.Data();
    const bool open = current.Expanded() && current.ChildCount() > 0;
    switch (key) {
    case TTreeKey::Left:
        if (open) {
            entity.SetExpanded(false);
        } else if (current.Parent()->Parent() != nullptr) {
            MoveCurrentTo(current.Parent(), shift);
        }
        return true;
    case TTreeKey::Right:
        if (!open && current.ChildCount() > 0) {
            entity.SetExpanded(true);
        } else if (open && current.Child(0)->Data() != nullptr) {
            MoveCurrentTo(current.Child(0), shift);
        }
        return true;
    case TTreeKey::Expand:
        if (current.ChildCount() > 0) {
            entity.SetExpanded(true);
        }
        return true;
    case TTreeKey::Collapse:
        entity.SetExpanded(false);
        return true;
    case TTreeKey::ExpandAll:
        ExpandLoaded(entity);
        return true;
    case TTreeKey::Select:
        if (m_multiSelect && !shift.Ctrl && !shift.Shift) {
            m_anchor = &entity;
            entity.SetSelected(true);
        } else {
            UpdateMultiSelect(current, shift);
        }
        return true;
    default:
        return false;
    }
}

/// What is not loaded yet below the entity stays so.
void TTreeUserCore::ExpandLoaded(TzuDataEntity_Tree &entity)
{
    if (const TzuLifeWatch lives(entity); entity.Node()->ChildCount() > 0) {
        entity.SetExpanded(true);
        EnsureDisplayUpToDate();
        if (!lives || entity.Node() == nullptr) {
            return;
        }
    }
    const unsigned departures = m_departures;
    // From the bottom to the top, so that rows below collapsed nodes are counted once.
    TTreeEntities below;
    const TTreeNode_zuSub &top = *entity.Node();
    for (TTreeNode_zuSub *node = top.NextInside(top); node != nullptr;
         node = node->NextInside(top)) {
        if (node->Data() != nullptr && node->ChildCount() > 0 && node->PlaceholderChild() == nullptr
            && !node->Expanded()) {
            below.push_back(node->Data());
        }
    }
    for (auto child = below.rbegin(); child != below.rend() && departures == m_departures;
         ++child) {
        (*child)->SetExpanded(true);
    }
}

/// With Ctrl and without Shift several selected entities stay as they are.
void TTreeUserCore::MoveCurrentTo(TTreeNode_zuSub *node, TShiftState shift)
{
    if (node == nullptr || node->Data() == nullptr) {
        return;
    }
    TzuDataEntity_Tree &entity = *node->Data();
    const TzuLifeWatch lives(entity);
    if (!m_multiSelect || !shift.Ctrl || shift.Shift) {
        UpdateMultiSelect(*node, shift);
    }
    if (lives && entity.Node() != nullptr) {
        MakeCurrent(*entity.Node());
    }
    if (lives) {
        MakeVisible(entity);
    }
}

} // namespace korvane
