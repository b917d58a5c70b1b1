#include "grid/zuGridTreeData.h"

#include "cellgrid/zuAxisContent.h"
#include "grid/zuGridTree.h"

#include <algorithm>
#include <utility>

namespace korvane {

TzuDataEntity_GridTreeNode::~TzuDataEntity_GridTreeNode()
{
    if (TzuGridTree *tree = Tree()) {
        tree->Forget(*this); // freed without having been cleaned
    }
}

void TzuDataEntity_GridTreeNode::CleanForFree()
{
    const TzuLifeWatch self(*this);
    TzuGridTree *tree = Tree();
    TzuDataEntity::CleanForFree();
    if (self && tree != nullptr) {
        tree->Forget(*this);
    }
}

bool TzuDataEntity_GridTreeNode::GetVisible() const
{
    return m_row != nullptr && !m_row->GetHide();
}

void TzuDataEntity_GridTreeNode::Changed(bool image)
{
    TzuGridTree *tree = m_row != nullptr ? Tree() : nullptr;
    if (tree != nullptr) {
        tree->NodeChanged(*this, image);
    }
}

void TzuDataEntity_GridTreeNode::SetText(std::string_view text)
{
    if (text != m_text) {
        m_text = text;
        Changed(false);
    }
}

void TzuDataEntity_GridTreeNode::SetImageIndex(int index)
{
    if (std::exchange(m_imageIndex, index) != index) {
        Changed(true);
    }
}

void TzuDataEntity_GridTreeNode::SetSelectedIndex(int index)
{
    if (std::exchange(m_selectedIndex, index) != index) {
        Changed(true);
    }
}

void TzuDataEntity_GridTreeNode::SetExpanded(bool expanded)
{
    if (TzuGridTree *tree = Tree()) {
        tree->SetNodeExpanded(*this, expanded);
    } else {
        m_expanded = expanded;
    }
}

void TzuDataEntity_GridTreeNode::SetChildrenLoaded(bool loaded)
{
    if (std::exchange(m_childrenLoaded, loaded) != loaded) {
        Changed(false);
    }
}

void TzuDataEntity_GridTreeNode::Set_HideNode(bool hide)
{
    if (std::exchange(m_hideNode, hide) != hide) {
        if (TzuGridTree *tree = Tree()) {
            tree->UpdateShown(*this);
        }
    }
}

TzuDataList_GridTree *TzuDataEntity_GridTreeNode::ChildList()
{
    TzuGridTree *tree = Tree();
    if (m_childList == nullptr && tree != nullptr && !m_leaving) {
        m_childList = tree->NewList(this);
    }
    return m_childList;
}

bool TzuDataEntity_GridTreeNode::HasTreeButton() const
{
    const TzuGridTree *tree = HasChildren() || m_childrenLoaded ? nullptr : Tree();
    return HasChildren() || (tree != nullptr && tree->LoadsOnDemand());
}

void TzuDataEntity_GridTreeNode::ExpandTreeBelow()
{
    if (TzuGridTree *tree = Tree()) {
        tree->ExpandBelow(*this);
    }
}

bool TzuDataEntity_GridTreeNode::HasNextTreeRow() const
{
    const TzuGridTree *tree = Tree();
    return tree != nullptr && tree->HasNextShown(*this);
}

bool TzuDataEntity_GridTreeNode::CanShowTreeRow() const
{
    const TzuDataEntity_GridTreeNode *node = this;
    while (node != nullptr && !node->m_hideNode) {
        node = node->ParentNode();
    }
    return node == nullptr;
}

void TzuDataEntity_GridTreeNode::ShowTreeRow()
{
    if (TzuGridTree *tree = Tree()) {
        tree->ExpandAncestors(*this);
    }
}

void TzuDataEntity_GridTreeNode::TreeRowSelected(bool selected)
{
    const TzuLifeWatch lives(*this);
    m_told = true;
    SetSelected(selected);
    if (lives) {
        m_told = false;
    }
}

TAxisContentItem *TzuDataEntity_GridTreeNode::ParentRow() const
{
    const TzuDataEntity_GridTreeNode *parent = ParentNode();
    return parent != nullptr ? parent->Row() : nullptr;
}

TRunSequence &TzuDataList_GridTree::Counted()
{
    if (m_counted == nullptr) {
        m_counted = std::make_unique<TRunSequence>();
    }
    return *m_counted;
}

int TzuDataList_GridTree::RowsTo(int place) const
{
    return m_counted != nullptr
               ? static_cast<int>(m_counted->OffsetOf(std::min(place, m_counted->Count())))
               : 0;
}

void TzuDataList_GridTree::CountedChanged(int place, int by)
{
    if (by > 0) {
        Counted().Insert(place, by, 0);
    }
    if (m_tree != nullptr) {
        by > 0 ? m_tree->CountedCame(*this, place, by) : m_tree->CountedGo(*this, place, -by);
    }
    if (by < 0) {
        Counted().Erase(place, -by);
    }
    ListIndexesOutOfDate(0);
}

int TzuDataList_GridTree::FirstToRefresh() const
{
    return std::max(FirstStaleIndex(), UnloadedBefore());
}

void TzuDataList_GridTree::BecameLoaded(TzuDataEntity &entity, int place)
{
    if (auto *node = dynamic_cast<TzuDataEntity_GridTreeNode *>(&entity)) {
        node->m_countedRows = Counted().ValueAt(place);
    }
    Counted().Erase(place, 1);
    ListIndexesOutOfDate(0);
    if (m_tree != nullptr) {
        m_tree->m_pagedLists.insert(this);
    }
}

bool TzuDataList_GridTree::MayUnload(TzuDataEntity &entity)
{
    auto *node = dynamic_cast<TzuDataEntity_GridTreeNode *>(&entity);
    return node == nullptr || m_tree == nullptr || m_tree->PrepareUnload(*this, *node);
}

void TzuDataList_GridTree::BecameCounted(int place)
{
    Counted().Insert(place, 1, std::exchange(m_unloadedRows, 0));
    if (LoadedCount() == 0 && m_tree != nullptr) {
        m_tree->m_pagedLists.erase(this);
    }
    if (std::exchange(m_uncount, false)) {
        Delete(place < UnloadedBefore() ? place : place + LoadedCount());
    }
}

} // namespace korvane
