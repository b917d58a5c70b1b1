// The tree's content: its lists, the handlers of their controller, and the events.
#include "foundation/zuDoLater.h"
#include "foundation/zuLifeWatch.h"
#include "tree/zuTree.h"

#include <utility>

namespace korvane {

namespace {

TzuDataEntity_Tree *TreeEntity(TzuDataEntity *entity)
{
    return dynamic_cast<TzuDataEntity_Tree *>(entity);
}

/// Nil for a list of another class, which may share the controller.
TzuDataList_Tree *ListOf(const TzuDataEntity_Tree &entity)
{
    return dynamic_cast<TzuDataList_Tree *>(entity.GetDataList());
}

template <typename Call>
TOnDataEntityNotify ForTreeEntity(Call call)
{
    return [call](TzuDataEntity *entity) {
        if (TzuDataEntity_Tree *ofTree = TreeEntity(entity)) {
            call(ofTree);
        }
    };
}

} // namespace

void TTreeCore::FillController()
{
    m_controller.OnInsertItem = ForTreeEntity([this](auto *entity) { _InsertItem(entity); });
    m_controller.OnDeleteItem = ForTreeEntity([this](auto *entity) { _DeleteItem(entity); });
    m_controller.OnLoadItem = ForTreeEntity([this](auto *entity) { ItemLoaded(entity); });
    m_controller.OnVisibleChanged =
        ForTreeEntity([this](auto *entity) { _OnVisibleChanged(entity); });
    m_controller.OnInfoPush = ForTreeEntity([this](auto *entity) { _OnInfoPush(entity); });
    m_controller.OnBeforeCanEditItem =
        ForTreeEntity([this](auto *entity) { _OnBeforeCanEditItem(entity); });
    m_controller.OnBeforeChangeOwner =
        ForTreeEntity([this](auto *entity) { BeforeChangeOwner(entity); });
    m_controller.OnAfterChangeOwner =
        ForTreeEntity([this](auto *entity) { AfterChangeOwner(entity); });
    m_controller.OnHandlePerformedMove = [this](TzuDataEntity *entity, int, int) {
        if (TzuDataEntity_Tree *ofTree = TreeEntity(entity)) {
            ItemMoved(ofTree);
        }
    };
    m_controller.OnSelectionChanged = [this](TzuDataList *list, TzuDataEntity *entity) {
        if (TzuDataEntity_Tree *ofTree = TreeEntity(entity)) {
            _OnSelectionChanged(list, ofTree);
        }
    };
    m_controller.OnContentChanged = [this](TzuDataList *list) {
        if (auto *ofTree = dynamic_cast<TzuDataList_Tree *>(list)) {
            _OnContentChanged(ofTree);
        }
    };
}

// --- lists ---------------------------------------------------------------------------------------

TzuDataList_Tree *TTreeCore::DataList()
{
    if (m_rootList == nullptr && !m_destroying) {
        m_rootList = NewList(nullptr);
    }
    return m_rootList;
}

TzuDataList_Tree *TTreeCore::NewList(TzuDataEntity_Tree *parent)
{
    std::unique_ptr<TzuDataList_Tree> list =
        m_createList ? m_createList() : std::make_unique<TzuDataList_Tree>();
    list->AfterCreate(&m_controller, m_entityClass);
    list->SetParentEntity(parent);
    m_lists->Add(list.get());
    return list.release();
}

TzuDataList_Tree &TTreeCore::ListAt(int index) const
{
    return *static_cast<TzuDataList_Tree *>(m_lists->GetDataList(index));
}

void TTreeCore::ReleaseList(TzuDataList_Tree *list)
{
    m_lists->Remove(list);
    list->Clear();
    list->FreeWheneverPossible();
}

void TTreeCore::DestroyContent()
{
    if (!std::exchange(m_destroying, true)) {
        m_observer.BeforeRelease();
        ReleaseContent();
    }
}

void TTreeCore::ReleaseContent()
{
    TDoLater::NeverMind(TDoLaterCall::Bind<&TTreeCore::SetCurrentDataEntity_Async>(this));
    m_selectedNode = nullptr;
    m_display.Clear();
    if (m_rootList != nullptr) {
        ReleaseList(std::exchange(m_rootList, nullptr));
    }
    m_waitingLists.clear();
    // What is left belongs to entities that changed over to lists outside of the tree.
    while (m_lists->Count() > 0) {
        TzuDataList_Tree &list = ListAt(0);
        if (list.ParentEntity() != nullptr) {
            list.ParentEntity()->m_childList = nullptr;
        }
        ReleaseList(&list);
    }
}

TzuDataEntity_Tree *TTreeCore::AddDataEntity(TzuDataEntity_Tree *parent)
{
    TzuDataList_Tree *list = parent != nullptr ? parent->ChildList() : DataList();
    return list != nullptr ? AddDataEntity(*list) : nullptr;
}

TzuDataEntity_Tree *TTreeCore::AddDataEntity(TzuDataList_Tree &list)
{
    return static_cast<TzuDataEntity_Tree *>(list.Add());
}

TzuDataEntity_Tree *TTreeCore::InsertDataEntity(TzuDataList_Tree &list, int index)
{
    return static_cast<TzuDataEntity_Tree *>(list.Insert(index));
}

void TTreeCore::RemoveDataEntity(TzuDataEntity_Tree *entity)
{
    if (entity != nullptr && entity->GetDataList() != nullptr) {
        entity->GetDataList()->Remove(entity);
    }
}

// --- insertion and deletion ----------------------------------------------------------------------

void TTreeCore::_InsertItem(TzuDataEntity_Tree *entity)
{
    TzuDataList_Tree *list = ListOf(*entity);
    if (list == nullptr) {
        return;
    }
    const TzuLifeWatch listLives(*list);
    list->SetNeedsSort(true);
    m_display.QueueSort(*list);
    m_display.Queue(*entity);
    OnInsertItem(this, entity);
    if (listLives) {
        list->m_changeExplained = true;
    }
    DisplayOutOfDate();
}

void TTreeCore::ItemLoaded(TzuDataEntity_Tree *entity)
{
    TzuDataList_Tree *list = ListOf(*entity);
    if (list == nullptr) {
        return;
    }
    list->SetNeedsSort(true);
    m_display.QueueSort(*list);
    m_display.Queue(*entity);
    OnLoadItem(this, entity);
    DisplayOutOfDate();
}

void TTreeCore::_DeleteItem(TzuDataEntity_Tree *entity)
{
    const TzuLifeWatch entityLives(*entity);
    Forget(*entity);
    OnDeleteItem_Tree(this, entity);
    if (entityLives) {
        OnDeleteItem(this, entity);
    }
    if (!entityLives) {
        return;
    }
    m_display.CleanTreeNode(*entity);
    if (TzuDataList_Tree *children = std::exchange(entity->m_childList, nullptr)) {
        ReleaseChildren(children);
    }
    if (TzuDataList_Tree *list = ListOf(*entity)) {
        list->m_changeExplained = true;
        if (TzuDataEntity_Tree *parent = list->ParentEntity()) {
            m_display.Queue(*parent); // which may need a placeholder now
        }
    }
    DisplayOutOfDate();
}

/// Deletes the children of an entity that is being deleted. What lies very deep waits until the
/// outermost deletion is done, by then without parent, for the stack's sake.
void TTreeCore::ReleaseChildren(TzuDataList_Tree *children)
{
    if (m_deletionDepth >= kMaxDeletionDepth) {
        children->SetParentEntity(nullptr);
        m_waitingLists.push_back(children);
        return;
    }
    struct TDepth
    {
        explicit TDepth(int &depth)
            : Depth(depth)
            , IsOutermost(depth == 0)
        {
            ++Depth;
        }
        TDepth(const TDepth &) = delete;
        TDepth &operator=(const TDepth &) = delete;
        ~TDepth() { --Depth; }

        int &Depth;
        bool IsOutermost;
    };
    const TDepth depth(m_deletionDepth);
    ReleaseList(children);
    while (depth.IsOutermost && !m_waitingLists.empty()) {
        TzuDataList_Tree *waiting = m_waitingLists.back();
        m_waitingLists.pop_back();
        ReleaseList(waiting);
    }
}

/// Lets go of an entity that leaves the tree.
void TTreeCore::Forget(TzuDataEntity_Tree &entity)
{
    entity.m_leaving = true;
    EntityLeaves(entity, true);
    m_display.Unqueue(entity);
    if (m_pendingCurrent == &entity) {
        m_pendingCurrent = nullptr;
    }
    if (m_lastTopItem == &entity) {
        m_lastTopItem = nullptr;
    }
    if (m_keptTop == &entity) {
        m_keptTop = nullptr;
    }
    if (m_moving.PendingCurrent == &entity) {
        m_moving.PendingCurrent = nullptr;
    }
}

// --- change of place -----------------------------------------------------------------------------

void TTreeCore::ItemMoved(TzuDataEntity_Tree *entity)
{
    m_display.QueueMoved(*entity);
    DisplayOutOfDate();
}

void TTreeCore::BeforeChangeOwner(TzuDataEntity_Tree *entity)
{
    TzuDataList_Tree *list = ListOf(*entity);
    if (list == nullptr) {
        return;
    }
    EntityLeaves(*entity, false);
    m_moving = {entity, list, list->IndexOf(entity), nullptr};
    if (m_pendingCurrent != nullptr && IsAtOrBelow(*m_pendingCurrent, *entity)) {
        m_moving.PendingCurrent = std::exchange(m_pendingCurrent, nullptr);
    }
    for (TzuDataEntity_Tree **kept : {&m_lastTopItem, &m_keptTop}) {
        if (*kept != nullptr && IsAtOrBelow(**kept, *entity)) {
            *kept = nullptr;
        }
    }
    m_display.Unqueue(*entity);
    m_display.CleanTreeNode(*entity);
    if (TzuDataEntity_Tree *parent = list->ParentEntity()) {
        m_display.Queue(*parent);
    }
    DisplayOutOfDate();
}

void TTreeCore::AfterChangeOwner(TzuDataEntity_Tree *entity)
{
    TzuDataList_Tree *list = ListOf(*entity);
    if (list == nullptr) {
        return;
    }
    EntityComes(*entity);
    const TMoving moved = std::exchange(m_moving, {});
    list->m_changeExplained = true;
    if (moved.Entity == entity) {
        moved.List->m_changeExplained = true;
        if (moved.PendingCurrent != nullptr) {
            m_pendingCurrent = moved.PendingCurrent;
        }
        if (list->ParentEntity() != nullptr && IsAtOrBelow(*list->ParentEntity(), *entity)) {
            entity->ChangeOwner(moved.List, moved.Position); // below itself: back where it was
            return;
        }
    }
    AdoptChildren(*entity);
    list->SetNeedsSort(true);
    m_display.QueueSort(*list);
    m_display.Queue(*entity);
    DisplayOutOfDate();
}

/// Takes over the children of an entity that came from another tree.
void TTreeCore::AdoptChildren(TzuDataEntity_Tree &entity)
{
    TzuDataList_Tree *old = entity.m_childList;
    if (old == nullptr || old->Tree() == this) {
        return;
    }
    entity.m_childList = nullptr;
    while (old->LoadedCount() > 0) {
        const int before = old->LoadedCount();
        TzuDataList_Tree *list = entity.ChildList();
        old->GetLoaded(before - 1)->ChangeOwner(list, 0);
        if (old->LoadedCount() >= before) {
            break; // of a class that this tree does not hold
        }
    }
    old->Tree()->ReleaseList(old);
}

bool TTreeCore::IsAtOrBelow(const TzuDataEntity_Tree &entity, const TzuDataEntity_Tree &above)
{
    const TzuDataEntity_Tree *at = &entity;
    while (at != nullptr && at != &above) {
        at = at->ParentNode();
    }
    return at != nullptr;
}

// --- further handlers ----------------------------------------------------------------------------

void TTreeCore::_OnContentChanged(TzuDataList_Tree *list)
{
    if (!std::exchange(list->m_changeExplained, false)) {
        // Sorted, or items announced: anything may be different.
        m_display.QueueWhole(*list);
        DisplayOutOfDate();
    }
    OnContentChanged(this, list);
}

void TTreeCore::_OnSelectionChanged(TzuDataList *list, TzuDataEntity_Tree *entity)
{
    if (entity->m_node != nullptr && !m_markingFromView) {
        m_observer.NodeChanged(*entity->m_node, TNodeAspect::Selection);
    }
    OnSelectionChanged(this, list, entity);
}

void TTreeCore::_OnVisibleChanged(TzuDataEntity_Tree *entity)
{
    OnVisibleChanged(this, entity);
}

void TTreeCore::_OnInfoPush(TzuDataEntity_Tree *entity)
{
    const TzuLifeWatch entityLives(*entity);
    OnInfoPush(this, entity);
    if (entityLives) {
        OnChangeDataEntity(this, entity);
    }
}

void TTreeCore::_OnBeforeCanEditItem(TzuDataEntity_Tree *entity)
{
    OnBeforeCanEditItem(this, entity);
}

int TTreeCore::_SortCompare(TzuDataEntity_Tree *the1, TzuDataEntity_Tree *the2)
{
    return m_sortCompare ? m_sortCompare(the1, the2)
                         : CompareCaptions(the1->GetText(), the2->GetText());
}

int TTreeCore::CompareCaptions(std::string_view the1, std::string_view the2) const
{
    return the1.compare(the2);
}

void TTreeCore::SetSortCompare(TOnEntityCompare compare)
{
    if (compare == m_sortCompare) {
        return;
    }
    m_sortCompare = std::move(compare);
    m_controller.OnEntityCompare = nullptr;
    if (m_sortCompare) {
        m_controller.OnEntityCompare = [this](TzuDataEntity *the1, TzuDataEntity *the2) {
            return _SortCompare(TreeEntity(the1), TreeEntity(the2));
        };
    }
    for (int i = 0; i < m_lists->Count(); ++i) {
        m_display.QueueWhole(ListAt(i));
    }
    DisplayOutOfDate();
}

} // namespace korvane
