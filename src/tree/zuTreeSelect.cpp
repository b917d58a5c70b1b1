// The selection of a tree.
#include "foundation/zuLifeWatch.h"
#include "tree/zuTreeGuard.h"
#include "tree/zuTreeUser.h"

#include <algorithm>
#include <utility>

namespace korvane {

TTreeUserCore::~TTreeUserCore()
{
    DestroyContent();
}

// --- what is selected ----------------------------------------------------------------------------

void TTreeUserCore::_OnSelectionChanged(TzuDataList *list, TzuDataEntity_Tree *entity)
{
    if (entity->GetSelected()) {
        m_selected.insert(entity);
    } else {
        m_selected.erase(entity);
    }
    if (!m_selecting) {
        m_rangeEnd = nullptr;
    }
    TTreeCore::_OnSelectionChanged(list, entity);
}

void TTreeUserCore::EntityLeaves(TzuDataEntity_Tree &entity, bool forGood)
{
    m_selected.erase(&entity);
    for (TzuDataEntity_Tree **kept : {&m_anchor, &m_rangeEnd, &m_pressed}) {
        if (*kept == &entity) {
            *kept = nullptr;
        }
    }
    ++m_departures;
    for (TGuard *guard = m_guard; forGood && guard != nullptr; guard = guard->Outer()) {
        guard->Forget(entity);
    }
}

void TTreeUserCore::AfterUpdateDisplay()
{
    ++m_departures; // of nodes, possibly
    TTreeCore::AfterUpdateDisplay();
}

void TTreeUserCore::EntityComes(TzuDataEntity_Tree &entity)
{
    if (entity.GetSelected()) {
        m_selected.insert(&entity);
    }
}

TTreeEntities TTreeUserCore::SelectedEntities()
{
    EnsureDisplayUpToDate();
    struct TEntry
    {
        TzuDataEntity_Tree *Entity = nullptr;
        int Row = -1;          ///< of itself or of what hides it
        std::vector<int> Path; ///< below that
    };
    std::vector<TEntry> entries(m_selected.size());
    std::size_t next = 0;
    for (TzuDataEntity_Tree *entity : m_selected) {
        TEntry &entry = entries[next++];
        entry.Entity = entity;
        const TTreeNode_zuSub *node = entity->Node();
        while (node != nullptr && (entry.Row = node->Row()) < 0) {
            entry.Path.push_back(node->Index());
            node = node->Parent();
        }
        std::reverse(entry.Path.begin(), entry.Path.end());
    }
    std::sort(entries.begin(), entries.end(), [](const TEntry &a, const TEntry &b) {
        return a.Row != b.Row ? a.Row < b.Row : a.Path < b.Path;
    });
    TTreeEntities result;
    result.reserve(entries.size());
    for (const TEntry &entry : entries) {
        result.push_back(entry.Entity);
    }
    return result;
}

TTreeEntities TTreeUserCore::TopmostSelected()
{
    TTreeEntities entities = SelectedEntities();
    std::erase_if(entities, [](const TzuDataEntity_Tree *entity) {
        const TzuDataEntity_Tree *above = entity->ParentNode();
        while (above != nullptr && !above->GetSelected()) {
            above = above->ParentNode();
        }
        return above != nullptr;
    });
    return entities;
}

bool TTreeUserCore::IsOnlySelected(const TzuDataEntity_Tree &entity) const
{
    return m_selected.size() == 1 && entity.GetSelected() && SelectedNode() != nullptr
           && SelectedNode()->Data() == &entity;
}

void TTreeUserCore::SetMultiSelect(bool multi)
{
    if (m_multiSelect == multi) {
        return;
    }
    m_multiSelect = multi;
    if (!multi && m_selected.size() > 1) {
        TzuDataEntity_Tree *current = GetDataEntityFromNode(SelectedNode());
        if (current != nullptr && current->GetSelected()) {
            SelectOnly(*current);
        } else {
            ClearSelection();
        }
    }
}

// --- selecting -----------------------------------------------------------------------------------

namespace {

/// Marks changes of the selection as the tree's own.
class TSelecting
{
public:
    explicit TSelecting(bool &flag)
        : m_flag(flag)
        , m_outer(std::exchange(flag, true))
    {
    }
    TSelecting(const TSelecting &) = delete;
    TSelecting &operator=(const TSelecting &) = delete;
    ~TSelecting() { m_flag = m_outer; }

private:
    bool &m_flag;
    bool m_outer;
};

} // namespace

/// A handler that selects meanwhile does not make it go on for ever.
void TTreeUserCore::ClearSelection()
{
    const TSelecting selecting(m_selecting);
    m_rangeEnd = nullptr;
    for (std::size_t left = m_selected.size(); left > 0 && !m_selected.empty(); --left) {
        (*m_selected.begin())->SetSelected(false);
    }
}

void TTreeUserCore::SelectOnly(TzuDataEntity_Tree &entity)
{
    const TSelecting selecting(m_selecting);
    const TzuLifeWatch lives(entity);
    m_rangeEnd = nullptr;
    if (!entity.GetSelected()) {
        ClearSelection();
    } else {
        // The others go first; this one is not touched.
        for (std::size_t left = m_selected.size(); left > 1 && m_selected.size() > 1; --left) {
            auto at = m_selected.begin();
            at = *at == &entity ? std::next(at) : at;
            (*at)->SetSelected(false);
            if (!lives) {
                return;
            }
        }
    }
    if (lives) {
        m_anchor = &entity;
        entity.SetSelected(true);
    }
}

void TTreeUserCore::UpdateMultiSelect(TTreeNode_zuSub &node, TShiftState shift)
{
    TzuDataEntity_Tree *entity = node.Data();
    if (entity == nullptr) {
        return;
    }
    if (!m_multiSelect || (!shift.Shift && !shift.Ctrl)) {
        SelectOnly(*entity);
    } else if (shift.Shift) {
        SelectRange(*entity, shift.Ctrl);
    } else {
        m_anchor = entity;
        entity->SetSelected(!entity->GetSelected());
    }
}

void TTreeUserCore::SelectRange(TzuDataEntity_Tree &entity, bool keepOthers)
{
    const TSelecting selecting(m_selecting);
    const TzuLifeWatch lives(entity);
    if (m_anchor == nullptr || m_anchor->Node() == nullptr || !m_anchor->Node()->IsShown()) {
        m_anchor = SelectedNode() != nullptr && SelectedNode()->IsShown()
                       ? GetDataEntityFromNode(SelectedNode())
                       : &entity;
    }
    const int anchorRow = m_anchor != nullptr ? m_anchor->Node()->Row() : entity.Node()->Row();
    const int row = entity.Node()->Row();
    if (!keepOthers && ExtendRange(anchorRow, row)) {
        m_rangeEnd = lives ? &entity : nullptr;
        return;
    }
    const auto [first, last] = std::minmax(anchorRow, row);
    if (!keepOthers) {
        TTreeEntities others;
        for (TzuDataEntity_Tree *selected : m_selected) {
            const int at = selected->Node() != nullptr ? selected->Node()->Row() : -1;
            if (at < first || at > last) {
                others.push_back(selected);
            }
        }
        const unsigned departures = m_departures;
        for (TzuDataEntity_Tree *other : others) {
            if (departures != m_departures) {
                return; // a handler changed the tree
            }
            other->SetSelected(false);
        }
    }
    SetRows(first, last, true);
    m_rangeEnd = lives && !keepOthers ? &entity : nullptr;
}

/// The range grows or shrinks from its present end, at the cost of the difference.
bool TTreeUserCore::ExtendRange(int anchorRow, int newRow)
{
    if (m_rangeEnd == nullptr || m_rangeEnd->Node() == nullptr || !m_rangeEnd->Node()->IsShown()) {
        return false;
    }
    const int oldRow = m_rangeEnd->Node()->Row();
    const unsigned departures = m_departures;
    const auto [first, last] = std::minmax(anchorRow, newRow);
    const auto [oldFirst, oldLast] = std::minmax(anchorRow, oldRow);
    SetRows(oldFirst, std::min(oldLast, first - 1), false);
    SetRows(std::max(oldFirst, last + 1), oldLast, false);
    if (departures == m_departures) {
        SetRows(first, std::min(last, oldFirst - 1), true);
        SetRows(std::max(first, oldLast + 1), last, true);
    }
    return true;
}

void TTreeUserCore::SetRows(int first, int last, bool selected)
{
    const unsigned departures = m_departures;
    TTreeNode_zuSub *node = first <= last ? RootNode().NodeAtRow(first) : nullptr;
    for (int row = first; row <= last && node != nullptr; ++row) {
        if (node->Data() != nullptr) {
            node->Data()->SetSelected(selected);
        }
        if (departures != m_departures) {
            return; // a handler changed the tree
        }
        node = node->NextShown();
    }
}

void TTreeUserCore::SelectAll()
{
    EnsureDisplayUpToDate();
    if (m_multiSelect) {
        const TSelecting selecting(m_selecting);
        m_rangeEnd = nullptr;
        SetRows(0, RootNode().RowCount() - 2, true);
    }
}

// --- mouse ---------------------------------------------------------------------------------------

void TTreeUserCore::MousePressed(TTreeNode_zuSub &node, TShiftState shift, TMouseButton button)
{
    TzuDataEntity_Tree *entity = node.Data();
    m_pressed = nullptr;
    if (entity == nullptr) {
        return;
    }
    const TzuLifeWatch lives(*entity);
    const bool plain = !shift.Shift && !shift.Ctrl;
    const bool right = button == TMouseButton::mbRight;
    if (!entity->GetSelected() || m_selected.size() < 2 || (!plain && !right)) {
        UpdateMultiSelect(node, right ? TShiftState() : shift);
    } else if (!right) {
        m_pressed = entity;
    }
    if (lives && entity->Node() != nullptr) {
        MakeCurrent(*entity->Node());
    }
}

void TTreeUserCore::MouseReleased()
{
    if (TzuDataEntity_Tree *entity = std::exchange(m_pressed, nullptr)) {
        SelectOnly(*entity);
    }
}

void TTreeUserCore::MakeCurrent(TTreeNode_zuSub &node)
{
    TzuDataEntity_Tree *entity = node.Data();
    if (entity == nullptr) {
        return;
    }
    const TzuLifeWatch lives(*entity);
    const bool changes = SelectedNode() != &node;
    Host().ShowCurrent(node);
    NodeSelectedByUser(&node);
    if (changes && lives && m_autoExpand) {
        HandleAutoExpand(*entity);
    }
}

void TTreeUserCore::HandleAutoExpand(TzuDataEntity_Tree &entity)
{
    if (entity.Node() != nullptr && entity.Node()->ChildCount() > 0) {
        entity.SetExpanded(true);
    }
}

} // namespace korvane
