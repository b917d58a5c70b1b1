// What of a grid's tree is shown: expanding, collapsing, their state over reloads; sorting.
#include "foundation/zuDoLater.h"
#include "grid/zuGrid.h"
#include "grid/zuGridTree.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

namespace korvane {

namespace {

using TNode = TzuDataEntity_GridTreeNode;

/// Keys of nodes that went; beyond this many they are given up, so that memory stays bounded.
constexpr std::size_t kMaxAwaited = 1 << 16;

} // namespace

bool TzuGridTree::LoadsOnDemand() const
{
    return static_cast<bool>(m_grid.OnInitTreeSubDataList);
}

bool TzuGridTree::IsDisplayed(const TNode &node) const
{
    return !node.m_hideNode && DisplaysChildren(node.ParentNode());
}

bool TzuGridTree::DisplaysChildren(const TNode *parent)
{
    return parent == nullptr || (parent->m_expanded && parent->GetVisible());
}

void TzuGridTree::NodeChanged(TNode &node, bool image)
{
    node.m_row->SetAutoSize(TAxisContentItem::kNotMeasured);
    if (TBabGridCellForViewer *viewer = m_gridCell.GetViewerGridCell()) {
        viewer->AxisEvent.TriggerEvent(&Rows());
    }
    if (image) {
        NodeImageEvent.TriggerEvent(&node);
    }
}

// --- expanding -----------------------------------------------------------------------------------

void TzuGridTree::SetNodeExpanded(TNode &node, bool expanded)
{
    if (node.m_expanded == expanded || (expanded && !LoadChildren(node))) {
        return;
    }
    const TzuLifeWatch lives(node);
    node.m_expanded = expanded;
    if (node.m_row != nullptr) {
        UpdateShown(GetRow(node) + 1, RowBehind(node), TBelowCollapsed::IsHidden);
    }
    if (lives) {
        Tell(TGridTreeEvent::RowVisibleChanged, &node);
    }
    if (lives) {
        (expanded ? OnExpanded : OnCollapsed)(this, &node);
    }
}

/// Asks for the children when they are given on demand. False when none came, or the node went.
bool TzuGridTree::LoadChildren(TNode &node)
{
    if (node.HasChildren() || node.m_childrenLoaded || !LoadsOnDemand()) {
        return true;
    }
    const TzuLifeWatch lives(node);
    node.m_childrenLoaded = true;
    m_grid.InitTreeSubDataList(&node, *node.ChildList());
    if (!lives) {
        return false;
    }
    if (!node.HasChildren()) {
        node.Changed(false); // the button goes
    }
    return node.HasChildren();
}

void TzuGridTree::UpdateShown(TNode &node)
{
    if (node.m_row != nullptr) {
        UpdateShown(GetRow(node), RowBehind(node), TBelowCollapsed::MayBeShown);
        Tell(TGridTreeEvent::RowVisibleChanged, &node);
    }
}

/// Hides and shows the rows `first` to before `end`. With IsHidden what is below collapsed nodes is
/// passed over.
void TzuGridTree::UpdateShown(int first, int end, TBelowCollapsed below)
{
    // Siblings that lie together change at once.
    struct TRun
    {
        int First = 0;
        int Last = -1;
        bool Hide = false;
        const TNode *Parent = nullptr;
    } run;
    for (int index = first; index < end;) {
        const TNode *node = LoadedNodeAt(index);
        if (node == nullptr) {
            index = UpdateCountedShown(index, end);
            continue;
        }
        const TNode *parent = node->ParentNode();
        if (parent != run.Parent) {
            Rows().SetHidden(run.First, run.Last, run.Hide);
            run = {0, -1, false, parent};
        }
        const bool hide = !IsDisplayed(*node);
        if (hide != node->m_row->GetHide()) {
            if (run.Last != index - 1 || run.Hide != hide) {
                Rows().SetHidden(run.First, run.Last, run.Hide);
                run = {index, index, hide, parent};
            }
            run.Last = index;
        }
        const bool skip =
            below == TBelowCollapsed::IsHidden && !node->m_expanded && node->HasChildren();
        index = skip ? RowBehind(*node) : index + 1;
    }
    Rows().SetHidden(run.First, run.Last, run.Hide);
    if (TBabGridCellForViewer *viewer = m_gridCell.GetViewerGridCell()) {
        viewer->HideEvent.TriggerEvent(nullptr);
    }
}

/// Hides or shows rows that are only counted, up to a row of something else; returns that.
int TzuGridTree::UpdateCountedShown(int first, int end)
{
    const TCounted counted = CountedAt(first);
    if (counted.List == nullptr) {
        return first + 1; // not a row of the tree
    }
    end = std::min(end, counted.End);
    const bool hide = !DisplaysChildren(counted.List->ParentEntity());
    if (hide != (Rows().SizeAt(first) == 0)) {
        Rows().SetHidden(first, end - 1, hide);
    }
    return end;
}

/// Calls handle(node) for each loaded node of the rows `first`..`end - 1`.
template <typename Handle>
void TzuGridTree::ForEachLoaded(int first, int end, const Handle &handle) const
{
    for (int row = Rows().NearestLoaded(first, 1); row >= 0 && row < end;
         row = Rows().NearestLoaded(row + 1, 1)) {
        if (TNode *node = LoadedNodeAt(row)) {
            handle(*node);
        }
    }
}

void TzuGridTree::FullCollapse()
{
    m_awaited.clear();
    for (int i = 0; i < m_lists->Count(); ++i) {
        CollapseCounted(static_cast<TzuDataList_GridTree &>(*m_lists->GetDataList(i)));
    }
    ForEachLoaded(Rows().FixedCount(), Rows().Count(),
                  [](TNode &node) { node.m_expanded = false; });
    UpdateShown(Rows().FixedCount(), Rows().Count(), TBelowCollapsed::MayBeShown);
    Tell(TGridTreeEvent::RowVisibleChanged, nullptr);
}

void TzuGridTree::ExpandLevels(int levels)
{
    ExpandRows(Rows().FixedCount(), nullptr, levels);
}

void TzuGridTree::ExpandBelow(TNode &node)
{
    const TzuLifeWatch lives(node);
    SetNodeExpanded(node, true); // asks for children
    if (lives && node.m_row != nullptr) {
        ExpandRows(GetRow(node), &node, kAllLevels);
    }
}

/// Expands from a row on to the last one below the node; nil: to the last of all.
void TzuGridTree::ExpandRows(int first, TNode *top, int levels)
{
    const int end = top != nullptr ? RowBehind(*top) : Rows().Count();
    ForEachLoaded(first, end, [levels](TNode &node) {
        if (node.HasChildren() && (levels == kAllLevels || node.GetLevel() < levels)) {
            node.m_expanded = true;
        }
    });
    UpdateShown(first, end, TBelowCollapsed::MayBeShown);
    Tell(TGridTreeEvent::RowVisibleChanged, top);
}

void TzuGridTree::ExpandAncestors(const TNode &node)
{
    std::vector<TNode *> ancestors;
    for (TNode *at = node.ParentNode(); at != nullptr; at = at->ParentNode()) {
        ancestors.push_back(at);
    }
    // From the root on; a handler may take the rest away.
    while (!ancestors.empty()) {
        TNode *ancestor = ancestors.back();
        ancestors.pop_back();
        const TNode *below = ancestors.empty() ? &node : ancestors.back();
        const TzuLifeWatch lives(*below);
        SetNodeExpanded(*ancestor, true);
        if (!lives) {
            return;
        }
    }
}

// --- the state over reloads ----------------------------------------------------------------------

std::string TzuGridTree::KeyOf(TNode &node)
{
    std::string key;
    if (OnGetNodeKey) {
        OnGetNodeKey(this, &node, key);
    } else if (node.GetUserReference() != nullptr) {
        std::array<char, 2 * sizeof(std::uintptr_t)> digits{};
        const auto end =
            std::to_chars(digits.begin(), digits.end(),
                          reinterpret_cast<std::uintptr_t>(node.GetUserReference()), 16);
        key = '@';
        key.append(digits.begin(), end.ptr);
    } else if (!node.GetText().empty()) {
        for (const TNode *at = &node; at != nullptr; at = at->ParentNode()) {
            key.insert(0, '\x1f' + at->GetText());
        }
    }
    return key;
}

void TzuGridTree::KeepExpandState(TNode &node)
{
    std::string key = node.m_expanded && !m_destroying ? KeyOf(node) : std::string();
    if (!key.empty()) {
        if (m_awaited.size() >= kMaxAwaited) {
            m_awaited.clear();
        }
        m_awaited.insert(std::move(key));
    }
}

void TzuGridTree::RestoreExpandState(TObject * /*unused*/)
{
    while (!m_arrived.empty() && !m_awaited.empty()) {
        TNode *node = *m_arrived.begin();
        m_arrived.erase(m_arrived.begin());
        const TzuLifeWatch lives(*node);
        const auto found = m_awaited.find(KeyOf(*node));
        if (lives && found != m_awaited.end()) {
            m_awaited.erase(found);
            SetNodeExpanded(*node, true);
        }
    }
    m_arrived.clear();
}

std::vector<std::string> TzuGridTree::ExpandState()
{
    std::vector<std::string> keys(m_awaited.begin(), m_awaited.end());
    ForEachLoaded(Rows().FixedCount(), Rows().Count(), [&](TNode &node) {
        std::string key = node.m_expanded ? KeyOf(node) : std::string();
        if (!key.empty()) {
            keys.push_back(std::move(key));
        }
    });
    return keys;
}

void TzuGridTree::SetExpandState(const std::vector<std::string> &keys)
{
    m_awaited.insert(keys.begin(), keys.end());
    ForEachLoaded(Rows().FixedCount(), Rows().Count(),
                  [this](TNode &node) { m_arrived.insert(&node); });
    RestoreExpandState(nullptr);
}

// --- sorting -------------------------------------------------------------------------------------

void TzuGridTree::Sort(const std::vector<TAxisContentItem *> &order)
{
    int place = 0;
    for (const TAxisContentItem *row : order) {
        if (TNode *node = NodeOf(row)) {
            node->m_sortPlace = place++;
        }
    }
    m_controller.OnEntityCompare = [](TzuDataEntity *the1, TzuDataEntity *the2) {
        return static_cast<TNode *>(the1)->m_sortPlace - static_cast<TNode *>(the2)->m_sortPlace;
    };
    for (int i = 0; i < m_lists->Count(); ++i) {
        m_lists->GetDataList(i)->Sort();
    }
    m_controller.OnEntityCompare = nullptr;
    const auto rows = RowsInOrder();
    if (std::ssize(rows) == std::ssize(order)) {
        Rows().Reorder(rows);
    }
    Tell(TGridTreeEvent::RowsReordered, nullptr);
}

/// The rows as the nodes want them, parents before their children.
std::vector<TAxisContentItem *> TzuGridTree::RowsInOrder() const
{
    std::vector<TAxisContentItem *> rows;
    std::vector<const TNode *> open;
    const auto push = [&open](const TzuDataList_GridTree *list) {
        for (int p = list != nullptr ? list->LoadedCount() - 1 : -1; p >= 0; --p) {
            open.push_back(static_cast<const TNode *>(list->GetLoaded(p)));
        }
    };
    push(m_rootList);
    while (!open.empty()) {
        const TNode *node = open.back();
        open.pop_back();
        if (node->m_row != nullptr) {
            rows.push_back(node->m_row);
        }
        push(node->m_childList);
    }
    return rows;
}

// --- trees in cells ------------------------------------------------------------------------------

void TzuSubTreeCell::AfterPlaced()
{
    m_tree->Grid().InitTreeSubDataList(nullptr, *m_tree->DataList());
}

} // namespace korvane
