#include "gantt/zuGantRowList.h"

#include "gantt/zuGant.h"
#include "grid/zuGridTreeData.h"
#include "tree/zuTreeData.h"

#include <algorithm>

namespace korvane {

std::uint32_t &TGantRowList::TRowPlace::Of(TGantRow &row)
{
    return row.m_chunk;
}

TGantRow *TGantRowList::GetGantRow(int index) const
{
    return index >= 0 && index < Count() ? m_rows.At(index) : nullptr;
}

TGantRow *TGantRowList::AddRow(TzuDataEntity_Tree *treeNode, TzuDataEntity_GridTreeNode *gridNode)
{
    TGantRow *row = nullptr;
    if (m_gant.OnUserCreateGantRow) {
        m_gant.OnUserCreateGantRow(this, treeNode, gridNode, row);
    } else {
        row = m_gant.CreateRow(treeNode, gridNode);
    }
    if (row == nullptr) {
        return nullptr;
    }
    m_rows.Append(row);
    if (treeNode != nullptr && treeNode->Companion() == nullptr) {
        treeNode->SetCompanion(row);
    }
    if (gridNode != nullptr && gridNode->Companion() == nullptr) {
        gridNode->SetCompanion(row);
    }
    m_unlinked += IsLinked(*row) ? 0 : 1;
    m_gant.OnAfterAddGantRow(this, row);
    return row;
}

/// Whether it is found by its node without a search.
bool TGantRowList::IsLinked(const TGantRow &row)
{
    const auto keeps = [&row](const auto *node) {
        return node == nullptr || node->Companion() == &row;
    };
    return keeps(row.TreeNode()) && keeps(row.GridNode());
}

void TGantRowList::RemoveRow(TzuDataEntity_Tree *treeNode, TzuDataEntity_GridTreeNode *gridNode)
{
    TGantRow *row =
        treeNode != nullptr ? FindRowFromUntypedNode(treeNode) : FindRowFromUntypedNode(gridNode);
    if (row == nullptr) {
        return;
    }
    if (treeNode == nullptr && row->TreeNode() != nullptr) {
        UnbindGridNode(*gridNode); // it is the tree's row, too
        return;
    }
    m_gant.OnBeforeFreeGantRow(this, row);
    m_unlinked -= IsLinked(*row) ? 0 : 1;
    m_rows.Erase(m_rows.IndexOf(row));
    std::erase(m_onScreen, row);
    row->FreeWheneverPossible();
}

void TGantRowList::BindGridNode(TGantRow &row, TzuDataEntity_GridTreeNode &node)
{
    m_unlinked -= IsLinked(row) ? 0 : 1;
    row.m_gridNode = &node;
    node.SetCompanion(&row);
    m_unlinked += IsLinked(row) ? 0 : 1;
}

void TGantRowList::UnbindGridNode(TzuDataEntity_GridTreeNode &node)
{
    TGantRow *row = FindRowFromGridNode(&node);
    if (row != nullptr && row->TreeNode() != nullptr) {
        m_unlinked -= IsLinked(*row) ? 0 : 1;
        row->m_gridNode = nullptr;
        node.SetCompanion(nullptr);
        m_unlinked += IsLinked(*row) ? 0 : 1;
    }
}

TGantRow *TGantRowList::FindRowFromY(int y) const
{
    const auto below = std::ranges::partition_point(
        m_onScreen, [y](const TGantRow *row) { return row->GetRect().Bottom <= y; });
    if (below == m_onScreen.end() || (*below)->GetRect().Top >= y) {
        return nullptr;
    }
    return *below;
}

template <typename Node>
TGantRow *TGantRowList::FindRowFrom(const Node *node, Node *(TGantRow::*nodeOf)() const) const
{
    if (node == nullptr) {
        return nullptr;
    }
    auto *row = dynamic_cast<TGantRow *>(node->Companion());
    if (row != nullptr && &row->RowList() == this) {
        return row;
    }
    for (int i = 0; m_unlinked > 0 && i < Count(); ++i) {
        if ((m_rows.At(i)->*nodeOf)() == node) {
            return m_rows.At(i);
        }
    }
    return nullptr;
}

TGantRow *TGantRowList::FindRowFromTreeNode(const TzuDataEntity_Tree *node) const
{
    return FindRowFrom(node, &TGantRow::TreeNode);
}

TGantRow *TGantRowList::FindRowFromGridNode(const TzuDataEntity_GridTreeNode *node) const
{
    return FindRowFrom(node, &TGantRow::GridNode);
}

TGantRow *TGantRowList::FindRowFromUntypedNode(const TzuDataEntity *entity) const
{
    if (const auto *node = dynamic_cast<const TzuDataEntity_Tree *>(entity)) {
        return FindRowFromTreeNode(node);
    }
    return FindRowFromGridNode(dynamic_cast<const TzuDataEntity_GridTreeNode *>(entity));
}

TGantRow *TGantRowList::FindRowFromTreeNodeDataEntityUserReference(const void *reference) const
{
    for (int i = Count() - 1; i >= 0; --i) {
        TGantRow *row = m_rows.At(i);
        if (row->Node() != nullptr && row->Node()->GetUserReference() == reference) {
            return row;
        }
    }
    return nullptr;
}

void TGantRowList::PlaceRows(const std::vector<TVisibleNode> &nodes)
{
    ++m_frame;
    m_onScreen.clear();
    for (const TVisibleNode &node : nodes) {
        TGantRow *row = node.Node != nullptr ? FindRowFromTreeNode(node.Node)
                                             : FindRowFromGridNode(node.GridNode);
        if (row != nullptr && m_gant.RowTypeCheckOK(*row)) {
            row->SetNodeRect(node.Rect);
            m_onScreen.push_back(row);
        }
    }
}

void TGantRowList::CleanForFree()
{
    m_onScreen.clear();
    while (Count() > 0) {
        m_rows.Erase(Count() - 1)->FreeWheneverPossible();
    }
}

} // namespace korvane
