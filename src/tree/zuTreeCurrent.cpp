// The tree's current and top entity.
#include "foundation/zuDoLater.h"
#include "tree/zuTree.h"

#include <algorithm>
#include <utility>

namespace korvane {

TzuDataEntity_Tree *TTreeCore::GetCurrentDataEntity()
{
    EnsureDisplayUpToDate();
    return GetDataEntityFromNode(m_selectedNode);
}

void TTreeCore::SetCurrentDataEntity(TzuDataEntity_Tree *entity)
{
    DisplayOutOfDate();
    TDoLater::DoLater(TDoLaterCall::Bind<&TTreeCore::SetCurrentDataEntity_Async>(this));
    m_pendingCurrent = entity;
}

void TTreeCore::SetCurrentDataEntity_Async(TObject *)
{
    EnsureDisplayUpToDate();
    TzuDataEntity_Tree *entity = std::exchange(m_pendingCurrent, nullptr);
    if (entity != nullptr && entity->m_node != nullptr) {
        ExpandAncestors(*entity);
    }
    TTreeNode_zuSub *node = entity != nullptr ? entity->m_node : nullptr;
    if (node != m_selectedNode) {
        m_selectedNode = node;
        m_host.SelectNode(node);
        DoCurrentChanged();
    } else if (node != nullptr) {
        m_host.SelectNode(node);
    }
}

void TTreeCore::SelectNothingIfDoomed()
{
    const TTreeNode_zuSub *node = m_selectedNode;
    while (node != nullptr && !node->Deleting()) {
        node = node->Parent();
    }
    if (node != nullptr) {
        m_selectedNode = nullptr;
        m_host.LoseCurrent();
        m_currentLost = true;
    }
}

void TTreeCore::NodeSelectedByUser(TTreeNode_zuSub *node)
{
    if (node != m_selectedNode) {
        m_selectedNode = node;
        DoCurrentChanged();
    }
}

void TTreeCore::NodeMarkedByUser(TTreeNode_zuSub &node, bool selected)
{
    if (node.Data() == nullptr) {
        return;
    }
    const bool outer = std::exchange(m_markingFromView, true);
    node.Data()->SetSelected(selected);
    m_markingFromView = outer;
}

TzuDataEntity_Tree *TTreeCore::GetTopItem()
{
    EnsureDisplayUpToDate();
    const TTreeNode_zuSub *top = m_display.Root().NodeAtRow(m_host.Geometry().TopRow);
    if (top == nullptr || top->Deleting() || top->PlaceholderChild() != nullptr) {
        return nullptr;
    }
    return top->Data();
}

void TTreeCore::SetTopItem(TzuDataEntity_Tree *entity)
{
    EnsureDisplayUpToDate();
    const auto topNode = [this] { return m_display.Root().NodeAtRow(m_host.Geometry().TopRow); };
    const TTreeNode_zuSub *before = topNode();
    if (entity == nullptr) {
        if (before != nullptr) {
            m_host.SetTopRow(0);
            DoUpdateTopItem();
        }
        return;
    }
    if (entity->m_node == nullptr) {
        return;
    }
    ExpandAncestors(*entity);
    if (before != entity->m_node) {
        m_host.SetTopRow(entity->m_node->Row());
        DoUpdateTopItem();
    }
}

void TTreeCore::MakeVisible(TzuDataEntity_Tree &entity)
{
    EnsureDisplayUpToDate();
    if (entity.m_node == nullptr) {
        return;
    }
    ExpandAncestors(entity);
    const TTreeGeometry view = m_host.Geometry();
    const int page = std::max(view.Height / view.RowHeight, 1);
    const int row = entity.m_node->Row();
    const int top = std::clamp(view.TopRow, row - page + 1, row);
    if (top != view.TopRow) {
        m_host.SetTopRow(top);
        DoUpdateTopItem();
    }
}

void TTreeCore::DoUpdateTopItem()
{
    TzuDataEntity_Tree *top = GetTopItem();
    if (top != m_lastTopItem) {
        m_lastTopItem = top;
        OnTopItemChanged(this);
    }
}

} // namespace korvane
