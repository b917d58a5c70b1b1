// Editing captions, sorting and deleting in a tree.
#include "foundation/zuLifeWatch.h"
#include "tree/zuTreeGuard.h"
#include "tree/zuTreeUser.h"

#include <algorithm>
#include <utility>

namespace korvane {

// --- captions ------------------------------------------------------------------------------------

bool TTreeUserCore::CanEdit(TzuDataEntity_Tree &entity)
{
    const TzuLifeWatch lives(entity);
    if (m_readOnly || !entity.GetCanEdit() || !lives) {
        return false;
    }
    bool allow = true;
    OnBeforeEdit(this, &entity, allow);
    return allow && lives;
}

bool TTreeUserCore::Edit(TzuDataEntity_Tree &entity, std::string text)
{
    if (text == entity.GetText()) {
        return true;
    }
    const TzuLifeWatch lives(entity);
    bool allow = true;
    if (CodePoints(text) <= kMaxTreeText) {
        OnEdited(this, &entity, text, allow);
    }
    if (!allow || !lives) {
        return false;
    }
    if (text != entity.GetText()) {
        entity.SetText(text);
        OnValueChanged(this, &entity);
    }
    return true;
}

// --- order ---------------------------------------------------------------------------------------

namespace {

/// Gives the lists of a tree a comparison while it exists.
class TComparing
{
public:
    TComparing(TzuListController &controller, TOnEntityCompare compare)
        : m_controller(controller)
        , m_before(std::exchange(controller.OnEntityCompare, std::move(compare)))
    {
    }
    TComparing(const TComparing &) = delete;
    TComparing &operator=(const TComparing &) = delete;
    ~TComparing() { m_controller.OnEntityCompare = std::move(m_before); }

private:
    TzuListController &m_controller;
    TOnEntityCompare m_before;
};

} // namespace

/// Always forwards by a comparison that may be turned round: so equal ones keep their order.
void TTreeUserCore::SortList(TzuDataList_Tree &list, TSortDirection direction)
{
    const int sign = direction == TSortDirection::Descending ? -1 : 1;
    list.SetSortDirection(direction);
    const TComparing comparing(
        Controller(), [this, sign](TzuDataEntity *the1, TzuDataEntity *the2) {
            const int result = _SortCompare(dynamic_cast<TzuDataEntity_Tree *>(the1),
                                            dynamic_cast<TzuDataEntity_Tree *>(the2));
            return result == 0 ? 0 : (result < 0 ? -sign : sign);
        });
    list.Sort();
}

void TTreeUserCore::Sort(const TTreeSort &sort)
{
    if (!sort.AllLevels) {
        TzuDataList_Tree *list = sort.Parent != nullptr ? sort.Parent->ChildList() : DataList();
        if (list != nullptr) {
            SortList(*list, sort.Direction);
        }
        return;
    }
    // Handlers may add lists, which are sorted as well, and take some away.
    for (int i = 0; i < DataLists().Count(); ++i) {
        SortList(ListAt(i), sort.Direction);
    }
}

bool TTreeUserCore::SortByUser(const TTreeSort &sort)
{
    bool allow = m_allowSort;
    bool handled = false;
    if (allow) {
        OnBeforeSort(this, sort, allow, handled);
    }
    if (allow && !handled) {
        Sort(sort);
    }
    return allow;
}

// --- deleting ------------------------------------------------------------------------------------

bool TTreeUserCore::DeleteByUser(const TTreeEntities &entities)
{
    if (!m_allowDelete || entities.empty()) {
        return false;
    }
    const int row = std::max(GetRow(*entities.front()), 0);
    bool allow = true;
    bool handled = false;
    const TGuard guard(*this, entities);
    OnBeforeDelete(this, entities, allow, handled);
    if (!allow) {
        return false;
    }
    for (auto entity = entities.rbegin(); !handled && entity != entities.rend(); ++entity) {
        if (guard.Lives(*entity)) {
            RemoveDataEntity(*entity);
        }
    }
    EnsureDisplayUpToDate();
    if (SelectedNode() == nullptr) {
        MoveCurrentTo(EntityNodeFrom(row, -1), {});
    }
    return true;
}

} // namespace korvane
