// The tree's display: bringing it up to date, rows, expansion.
#include "tree/zuTree.h"

#include "foundation/zuLifeWatch.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace korvane {

namespace {

constexpr TRect kNoRect{-1, -1, -1, -1};

} // namespace

/// Keeps the top row's entity at the top while rows before it come or go. A view at its start stays
/// there.
class TTreeCore::TKeepTop
{
public:
    explicit TKeepTop(TTreeCore &tree)
        : m_tree(tree)
        , m_topRow(tree.m_host.Geometry().TopRow)
    {
        const TTreeNode_zuSub *top =
            m_topRow > 0 ? tree.m_display.Root().NodeAtRow(m_topRow) : nullptr;
        m_outer = std::exchange(tree.m_keptTop, GetDataEntityFromNode(top));
    }
    TKeepTop(const TKeepTop &) = delete;
    TKeepTop &operator=(const TKeepTop &) = delete;
    ~TKeepTop()
    {
        const TzuDataEntity_Tree *top = std::exchange(m_tree.m_keptTop, m_outer);
        if (top == nullptr || top->Node() == nullptr) {
            return;
        }
        if (const int row = top->Node()->Row(); row >= 0 && row != m_topRow) {
            m_tree.m_host.SetTopRow(row);
        }
    }

private:
    TTreeCore &m_tree;
    int m_topRow;
    TzuDataEntity_Tree *m_outer = nullptr;
};

TTreeCore::TTreeCore(ITreeHost &host, ITreeNodeObserver &observer)
    : m_host(host)
    , m_observer(observer)
    , m_controller(*this)
    , m_entityClass(EntityClass::Of<TzuDataEntity_Tree>())
    , m_lists(std::make_unique<TzuDataList2lev>())
    , m_display(*this, observer)
{
    m_lists->AfterCreate();
    FillController();
}

TTreeCore::~TTreeCore()
{
    if (!std::exchange(m_destroying, true)) {
        ReleaseContent();
    }
}

// --- bringing the display up to date -------------------------------------------------------------

void TTreeCore::DisplayOutOfDate()
{
    m_displayOutOfDate = true;
    Invalidate();
}

void TTreeCore::Invalidate()
{
    if (m_destroying) {
        return;
    }
    if (m_updateDepth > 0) {
        m_invalidatePending = true;
    } else {
        m_host.InvalidateTree();
    }
}

void TTreeCore::EndUpdate()
{
    if (m_updateDepth > 0 && --m_updateDepth == 0 && std::exchange(m_invalidatePending, false)) {
        Invalidate();
    }
}

void TTreeCore::EnsureDisplayUpToDate()
{
    if (!m_displayOutOfDate || m_rebuilding || RebuildBlocked()) {
        return;
    }
    m_displayOutOfDate = false;
    UpdateDisplay();
    m_displayOutOfDate = false;
    AfterUpdateDisplay();
    if (std::exchange(m_currentLost, false)) {
        DoCurrentChanged();
    }
    if (m_display.HasWork()) {
        DisplayOutOfDate(); // handlers changed the content meanwhile
    }
}

void TTreeCore::UpdateDisplay()
{
    struct TRebuilding
    {
        explicit TRebuilding(bool &flag)
            : Flag(flag)
        {
            Flag = true;
        }
        ~TRebuilding() { Flag = false; }
        bool &Flag;
    };
    const TRebuilding rebuilding(m_rebuilding);
    const TKeepTop keepTop(*this);
    if (std::exchange(m_nodesCreatedOutside, false)) {
        m_display.StartAfresh();
    }
    m_display.Update();
}

TTreeNode_zuSub::TOwner TTreeCore::CreateNode()
{
    if (!m_rebuilding) {
        m_nodesCreatedOutside = true;
        DisplayOutOfDate();
    }
    return std::make_unique<TTreeNode_zuSub>();
}

void TTreeCore::SetLoadOnDemand(bool loadOnDemand)
{
    if (m_loadOnDemand != loadOnDemand) {
        m_loadOnDemand = loadOnDemand;
        m_display.StartAfresh();
        DisplayOutOfDate();
    }
}

void TTreeCore::SetAutoExpandLevels(int levels)
{
    levels = std::max(levels, -1);
    if (m_autoExpandLevels != levels) {
        m_autoExpandLevels = levels;
        m_display.StartAfresh();
        DisplayOutOfDate();
    }
}

// --- rows ----------------------------------------------------------------------------------------

TzuDataEntity_Tree *TTreeCore::GetDataEntityFromNode(const TTreeNode_zuSub *node)
{
    return node != nullptr ? node->Data() : nullptr;
}

TzuDataEntity_Tree *TTreeCore::GetDataEntityAt(int x, int y)
{
    EnsureDisplayUpToDate();
    const TTreeGeometry geometry = m_host.Geometry();
    if (x < 0 || x >= geometry.Width || y < 0 || y >= geometry.Height) {
        return nullptr;
    }
    return GetDataEntityFromRow(geometry.TopRow + y / std::max(geometry.RowHeight, 1));
}

TzuDataEntity_Tree *TTreeCore::GetDataEntityFromRow(int row)
{
    EnsureDisplayUpToDate();
    return GetDataEntityFromNode(m_display.Root().NodeAtRow(row));
}

int TTreeCore::GetRow(const TzuDataEntity_Tree &entity)
{
    EnsureDisplayUpToDate();
    return entity.Node() != nullptr ? entity.Node()->Row() : -1;
}

TRect TTreeCore::GetRect(const TzuDataEntity_Tree &entity)
{
    const int row = GetRow(entity);
    return row >= 0 ? RowRect(row, m_host.Geometry()) : kNoRect;
}

TRect TTreeCore::RowRect(int row, const TTreeGeometry &geometry)
{
    const int fromTop = row - geometry.TopRow;
    // Compared in rows: pixels far away would overflow.
    if (fromTop < 0 || fromTop > geometry.Height / std::max(geometry.RowHeight, 1)) {
        return kNoRect;
    }
    const int top = fromTop * geometry.RowHeight;
    return top < geometry.Height ? TRect{0, top, geometry.Width, top + geometry.RowHeight}
                                 : kNoRect;
}

std::vector<TTreeRow> TTreeCore::VisibleRowEntities()
{
    EnsureDisplayUpToDate();
    const TTreeGeometry geometry = m_host.Geometry();
    std::vector<TTreeRow> rows;
    int row = geometry.TopRow;
    const TTreeNode_zuSub *node = m_display.Root().NodeAtRow(row);
    for (; node != nullptr; node = node->NextShown(), ++row) {
        const TRect rect = RowRect(row, geometry);
        if (rect == kNoRect) {
            break;
        }
        if (node->Data() != nullptr) {
            rows.push_back({node->Data(), rect});
        }
    }
    return rows;
}

TzuDataEntity_Tree *TTreeCore::GetNextVisible(const TzuDataEntity_Tree *entity)
{
    EnsureDisplayUpToDate();
    if (entity != nullptr && !entity->GetVisible()) {
        return nullptr;
    }
    const TTreeNode_zuSub *node = entity != nullptr ? entity->Node() : &m_display.Root();
    do {
        node = node->NextShown();
    } while (node != nullptr && node->Data() == nullptr);
    return GetDataEntityFromNode(node);
}

TzuDataEntity_Tree *TTreeCore::GetPrevVisible(const TzuDataEntity_Tree *entity)
{
    EnsureDisplayUpToDate();
    if (entity == nullptr || !entity->GetVisible()) {
        return nullptr;
    }
    const TTreeNode_zuSub *node = entity->Node();
    do {
        node = node->PrevShown();
    } while (node != nullptr && node->Data() == nullptr);
    return GetDataEntityFromNode(node);
}

int TTreeCore::CountVisible()
{
    EnsureDisplayUpToDate();
    return m_display.Root().RowCount() - 1;
}

// --- expansion -----------------------------------------------------------------------------------

void TTreeCore::SetEntityExpanded(TzuDataEntity_Tree &entity, bool expanded)
{
    entity.m_expanded = expanded;
    if (entity.m_node != nullptr) {
        SetNodeExpanded(*entity.m_node, expanded);
        return;
    }
    DisplayOutOfDate();
    if (!expanded || m_rebuilding || RebuildBlocked()) {
        return;
    }
    const TzuLifeWatch lives(entity);
    EnsureDisplayUpToDate();
    DisplayOutOfDate();
    if (lives && entity.m_node != nullptr && entity.m_node->Expanded()
        && LoadChildren(*entity.m_node)) {
        Expand(&entity);
    }
}

void TTreeCore::SetNodeExpanded(TTreeNode_zuSub &node, bool expanded)
{
    if (node.Expanded() == expanded) {
        return;
    }
    {
        const TKeepTop keepTop(*this);
        node.SetExpanded(expanded);
        m_observer.NodeChanged(node, TNodeAspect::Expansion);
    }
    if (!expanded) {
        Collapse(node.Data());
    } else if (TzuDataEntity_Tree *entity = node.Data(); LoadChildren(node)) {
        Expand(entity);
    }
}

bool TTreeCore::LoadChildren(TTreeNode_zuSub &node)
{
    TzuDataEntity_Tree *entity = node.Data();
    if (!OnLoadChildren || entity == nullptr || entity->HasChildren()
        || node.PlaceholderChild() == nullptr) {
        return true;
    }
    const TzuLifeWatch lives(*entity);
    bool loaded = true;
    OnLoadChildren(this, entity, loaded);
    if (!lives) {
        return false;
    }
    if (!loaded) {
        return true;
    }
    entity->SetChildrenLoaded(true);
    if (entity->HasChildren()) {
        return true;
    }
    entity->m_expanded = false;
    if (entity->m_node != nullptr && entity->m_node->Expanded()) {
        entity->m_node->SetExpanded(false);
        m_observer.NodeChanged(*entity->m_node, TNodeAspect::Expansion);
    }
    return false;
}

void TTreeCore::NodeExpandedByUser(TTreeNode_zuSub &node, bool expanded)
{
    if (node.Expanded() == expanded) {
        return;
    }
    if (node.Data() != nullptr) {
        node.Data()->m_expanded = expanded;
    }
    SetNodeExpanded(node, expanded);
}

void TTreeCore::Expand(TzuDataEntity_Tree *entity)
{
    if (entity != nullptr) {
        OnExpanded(this, entity);
    }
}

void TTreeCore::Collapse(TzuDataEntity_Tree *entity)
{
    if (entity != nullptr) {
        OnCollapsed(this, entity);
    }
}

void TTreeCore::ExpandAncestors(const TzuDataEntity_Tree &entity)
{
    for (TzuDataEntity_Tree *above = entity.ParentNode(); above != nullptr;
         above = above->ParentNode()) {
        above->SetExpanded(true);
    }
}

/// Gives every displayed entity with children the expansion that `wanted(level)` returns; those
/// for which it returns nothing keep theirs.
template <typename Wanted>
void TTreeCore::SetExpansions(const Wanted &wanted)
{
    EnsureDisplayUpToDate();
    const TKeepTop keepTop(*this);
    TTreeNode_zuSub &root = m_display.Root();
    std::vector<TTreeNode_zuSub *> level;
    std::vector<TTreeNode_zuSub *> changed;
    const auto addChildren = [](TTreeNode_zuSub &node, std::vector<TTreeNode_zuSub *> &to) {
        for (int i = 0; i < node.ChildCount(); ++i) {
            to.push_back(node.Child(i));
        }
    };
    addChildren(root, level);
    for (int depth = 0; !level.empty(); ++depth) {
        const std::optional<bool> expanded = wanted(depth);
        std::vector<TTreeNode_zuSub *> below;
        for (TTreeNode_zuSub *node : level) {
            if (expanded && node->Data() != nullptr && node->ChildCount() > 0
                && !(*expanded && node->PlaceholderChild() != nullptr)) {
                node->Data()->m_expanded = *expanded;
                changed.push_back(node);
            }
            addChildren(*node, below);
        }
        level = std::move(below);
    }
    // From the bottom to the top each node counts its rows once where most are expanded.
    std::for_each(changed.rbegin(), changed.rend(),
                  [](TTreeNode_zuSub *node) { node->SetExpanded(node->Data()->m_expanded); });
    m_observer.AllExpansionsChanged();
}

void TTreeCore::FullExpand()
{
    SetExpansions([](int) { return std::optional(true); });
    Expand(nullptr);
}

void TTreeCore::FullCollapse()
{
    SetExpansions([](int) { return std::optional(false); });
    Collapse(nullptr);
}

void TTreeCore::ExpandLevels(int levels)
{
    SetExpansions(
        [levels](int level) { return level < levels ? std::optional(true) : std::nullopt; });
    Expand(nullptr);
}

void TTreeCore::ShowLevels(int levels)
{
    SetExpansions([levels](int level) { return std::optional(level < levels - 1); });
    Expand(nullptr);
}

} // namespace korvane
