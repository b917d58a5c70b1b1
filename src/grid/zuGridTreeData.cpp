#include "grid/zuGridTreeData.h"

#include "cellgrid/zuAxisContent.h"
#include "grid/zuGridTree.h"

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

bool TzuDataEntity_GridTreeNode::HasChildren() const
{
    return m_childList != nullptr && m_childList->Count() > 0;
}

TzuDataEntity_GridTreeNode *TzuDataEntity_GridTreeNode::ParentNode() const
{
    const auto *list = dynamic_cast<const TzuDataList_GridTree *>(GetDataList());
    return list != nullptr ? list->ParentEntity() : nullptr;
}

int TzuDataEntity_GridTreeNode::GetLevel() const
{
    int level = 0;
    for (const auto *node = ParentNode(); node != nullptr; node = node->ParentNode()) {
        ++level;
    }
    return level;
}

TzuGridTree *TzuDataEntity_GridTreeNode::Tree() const
{
    const auto *list = dynamic_cast<const TzuDataList_GridTree *>(GetDataList());
    return list != nullptr ? list->Tree() : nullptr;
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

void TzuDataList_GridTree::AfterCreate(TzuListController *controller, EntityClass entityClass)
{
    TzuDataList::AfterCreate(controller, std::move(entityClass));
    auto *ofTree = dynamic_cast<TzuListController_GridTree *>(controller);
    m_tree = ofTree != nullptr ? &ofTree->Tree() : nullptr;
}

} // namespace korvane
