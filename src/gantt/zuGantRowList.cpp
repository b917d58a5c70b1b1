#include "gantt/zuGantRowList.h"

#include "gantt/zuGant.h"
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

TGantRow *TGantRowList::AddRow(TzuDataEntity_Tree *treeNode)
{
    TGantRow *row = nullptr;
    if (m_gant.OnUserCreateGantRow) {
        m_gant.OnUserCreateGantRow(this, treeNode, row);
    } else {
        row = m_gant.CreateRow(treeNode);
    }
    if (row == nullptr) {
        return nullptr;
    }
    m_rows.Append(row);
    if (treeNode != nullptr && treeNode->Companion() == nullptr) {
        treeNode->SetCompanion(row);
    }
    m_gant.OnAfterAddGantRow(this, row);
    return row;
}

void TGantRowList::RemoveRow(TzuDataEntity_Tree *treeNode)
{
    TGantRow *row = FindRowFromTreeNode(treeNode);
    if (row == nullptr) {
        return;
    }
    m_gant.OnBeforeFreeGantRow(this, row);
    m_rows.Erase(m_rows.IndexOf(row));
    std::erase(m_onScreen, row);
    row->FreeWheneverPossible();
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

TGantRow *TGantRowList::FindRowFromTreeNode(const TzuDataEntity_Tree *node) const
{
    auto *row = node != nullptr ? dynamic_cast<TGantRow *>(node->Companion()) : nullptr;
    return row != nullptr && &row->RowList() == this ? row : nullptr;
}

TGantRow *TGantRowList::FindRowFromUntypedNode(const TzuDataEntity *entity) const
{
    return FindRowFromTreeNode(dynamic_cast<const TzuDataEntity_Tree *>(entity));
}

TGantRow *TGantRowList::FindRowFromTreeNodeDataEntityUserReference(const void *reference) const
{
    for (int i = Count() - 1; i >= 0; --i) {
        TGantRow *row = m_rows.At(i);
        if (row->TreeNode() != nullptr && row->TreeNode()->GetUserReference() == reference) {
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
        if (TGantRow *row = FindRowFromTreeNode(node.Node)) {
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
