#include "tree/zuTreeNode.h"

#include "tree/zuTreeData.h"
#include "tree/zuTreeNodeList.h"

#include <utility>

namespace korvane {

TTreeNode_zuSub::TTreeNode_zuSub() = default;

TTreeNode_zuSub::~TTreeNode_zuSub()
{
    if (m_data != nullptr) {
        m_data->m_node = nullptr;
    }
}

TTreeNode_zuSub *TTreeNode_zuSub::PlaceholderChild() const
{
    if (ChildCount() == 0) {
        return nullptr;
    }
    TTreeNode_zuSub *first = Child(0);
    return first->IsPlaceholder() ? first : nullptr;
}

int TTreeNode_zuSub::Level() const
{
    int level = -1;
    for (const TTreeNode_zuSub *node = m_parent; node != nullptr; node = node->m_parent) {
        ++level;
    }
    return level;
}

int TTreeNode_zuSub::ChildCount() const
{
    return m_children != nullptr ? m_children->Count() : 0;
}

TTreeNode_zuSub *TTreeNode_zuSub::Child(int index) const
{
    return m_children->At(index);
}

int TTreeNode_zuSub::Index() const
{
    return m_parent != nullptr ? m_parent->m_children->PositionOf(*this) : 0;
}

bool TTreeNode_zuSub::IsAtOrBelow(const TTreeNode_zuSub &ancestor) const
{
    const TTreeNode_zuSub *node = this;
    while (node != nullptr && node != &ancestor) {
        node = node->m_parent;
    }
    return node != nullptr;
}

void TTreeNode_zuSub::InsertChildren(int at, std::vector<TOwner> nodes)
{
    if (nodes.empty()) {
        return;
    }
    if (m_children == nullptr) {
        m_children = std::make_unique<TTreeNodeList>();
    }
    for (const TOwner &node : nodes) {
        node->m_parent = this;
    }
    const int rowsBefore = m_children->RowCount();
    m_children->Insert(at, std::move(nodes));
    if (m_expanded) {
        AddRows(m_children->RowCount() - rowsBefore);
    }
}

std::vector<TTreeNode_zuSub::TOwner> TTreeNode_zuSub::TakeChildren(int first, int count)
{
    if (count <= 0) {
        return {};
    }
    const int rowsBefore = m_children->RowCount();
    std::vector<TOwner> taken = m_children->Take(first, count);
    for (const TOwner &node : taken) {
        node->m_parent = nullptr;
    }
    if (m_expanded) {
        AddRows(m_children->RowCount() - rowsBefore);
    }
    if (m_children->Count() == 0) {
        m_children.reset();
    }
    return taken;
}

void TTreeNode_zuSub::Clear()
{
    if (m_children == nullptr) {
        return;
    }
    const int rows = m_children->RowCount();
    m_children.reset();
    if (m_expanded) {
        AddRows(-rows);
    }
}

void TTreeNode_zuSub::ReorderChildren(std::span<TTreeNode_zuSub *const> order)
{
    if (m_children != nullptr) {
        m_children->Reorder(order);
    }
}

void TTreeNode_zuSub::SetExpanded(bool expanded)
{
    if (m_expanded == expanded) {
        return;
    }
    m_expanded = expanded;
    if (m_children != nullptr) {
        AddRows(expanded ? m_children->RowCount() : -m_children->RowCount());
    }
}

/// Adds to the node's own rows and, up to the first collapsed ancestor, to what holds them.
void TTreeNode_zuSub::AddRows(int delta)
{
    TTreeNode_zuSub *node = this;
    node->m_rowCount += delta;
    while (node->m_parent != nullptr) {
        TTreeNode_zuSub *parent = node->m_parent;
        parent->m_children->AddRows(*node, delta);
        if (!parent->m_expanded) {
            return;
        }
        parent->m_rowCount += delta;
        node = parent;
    }
}

bool TTreeNode_zuSub::IsShown() const
{
    const TTreeNode_zuSub *node = m_parent;
    while (node != nullptr && node->m_expanded) {
        node = node->m_parent;
    }
    return node == nullptr;
}

int TTreeNode_zuSub::Row() const
{
    int row = -1; // the root's own row does not count
    for (const TTreeNode_zuSub *node = this; node->m_parent != nullptr; node = node->m_parent) {
        if (!node->m_parent->m_expanded) {
            return -1;
        }
        row += 1 + node->m_parent->m_children->FirstRowOf(*node);
    }
    return row;
}

TTreeNode_zuSub *TTreeNode_zuSub::NodeAtRow(int row) const
{
    if (row < 0 || row >= m_rowCount - 1) {
        return nullptr;
    }
    const TTreeNode_zuSub *node = this;
    for (int rest = row;;) {
        const TTreeNodeList::THit hit = node->m_children->AtRow(rest);
        if (hit.Row == 0) {
            return hit.Node;
        }
        node = hit.Node;
        rest = hit.Row - 1;
    }
}

TTreeNode_zuSub *TTreeNode_zuSub::NextSibling() const
{
    return m_parent != nullptr ? m_parent->m_children->Next(*this) : nullptr;
}

TTreeNode_zuSub *TTreeNode_zuSub::NextShown() const
{
    if (m_expanded && m_children != nullptr) {
        return m_children->At(0);
    }
    const TTreeNode_zuSub *node = this;
    while (node != nullptr) {
        if (TTreeNode_zuSub *next = node->NextSibling()) {
            return next;
        }
        node = node->m_parent;
    }
    return nullptr;
}

TTreeNode_zuSub *TTreeNode_zuSub::PrevShown() const
{
    const int index = Index();
    if (index == 0) {
        const bool belowRoot = m_parent == nullptr || m_parent->m_parent == nullptr;
        return belowRoot ? nullptr : m_parent;
    }
    TTreeNode_zuSub *node = m_parent->Child(index - 1);
    while (node->m_expanded && node->m_children != nullptr) {
        node = node->Child(node->ChildCount() - 1);
    }
    return node;
}

TTreeNode_zuSub *TTreeNode_zuSub::NextInside(const TTreeNode_zuSub &top) const
{
    if (m_children != nullptr) {
        return m_children->At(0);
    }
    const TTreeNode_zuSub *node = this;
    while (node != &top) {
        if (TTreeNode_zuSub *next = node->NextSibling()) {
            return next;
        }
        node = node->m_parent;
    }
    return nullptr;
}

} // namespace korvane
