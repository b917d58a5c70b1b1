// The item of every data list.
#pragma once

#include "data/zuSequencePlace.h"
#include "foundation/zuExport.h"
#include "foundation/zuExposable.h"

#include <cstdint>
#include <typeinfo>

namespace korvane {

class TzuDataList;

/// What trees show as nodes, charts as bars and links, schedules as times and columns. Entities are
/// created by their list, through its EntityClass, and are owned by it.
class KORVANE_CORE_API TzuDataEntity : public TzuExposable
{
public:
    TzuDataEntity() = default;
    /// An entity that is freed while its list still holds it leaves the list silently.
    ~TzuDataEntity() override;

    /// Fires OnDeleteItem, then OnContentChanged, and parts with the list. Does not take the entity
    /// out of the list.
    void CleanForFree() override;
    /// Whether the components show it; true once AfterCreate has run. A change fires
    /// OnVisibleChanged.
    virtual void SetVisible(bool visible);
    virtual bool GetVisible() const { return m_visible; }
    /// Second step of creation, called by the list: takes the list and makes the entity visible.
    virtual void AfterCreate(TzuDataList *list);

    /// False to begin with; the list counts those that are true.
    bool GetSelected() const { return m_selected; }
    /// A change fires OnSelectionChanged.
    void SetSelected(bool selected);
    /// Whether the user may change it; false to begin with. Asking fires OnBeforeCanEditItem first,
    /// whose handler may decide the answer.
    bool GetCanEdit();
    void SetCanEdit(bool canEdit) { m_canEdit = canEdit; }
    /// At the application's disposal; never interpreted or released. Nil to begin with.
    void *GetUserReference() const { return m_userReference; }
    void SetUserReference(void *reference) { m_userReference = reference; }

    /// The list that the entity belongs to; nil once it was cleaned for freeing.
    TzuDataList *GetDataList() const { return m_cleaned ? nullptr : m_list; }
    /// Position in the list's logical order, as of the list's index maintenance; of an entity being
    /// deleted, the last one known. Throws as TzuDataList::EnsureListIndexes does.
    int ListIndex() const;

    /// Moves the entity within its list and fires OnHandlePerformedMove. Loads what lies between.
    /// Throws std::out_of_range when the list has no such index.
    void Move(int newIndex);
    /// Hands the entity over to another list, at a position of that list's loaded block. Does
    /// nothing when there is nothing to do, or when the new list holds entities of another class.
    /// Throws std::out_of_range, and changes nothing, when the block has no such position.
    void ChangeOwner(TzuDataList *newList, int position);
    /// Fires OnInfoPush, by which components push the entity's values to their views.
    void DoInfoPush();

protected:
    /// The list that holds the entity, also while it is freed. A list must hold it.
    TzuDataList &HoldingList() const { return *m_list; }

private:
    friend class TzuDataList;
    friend struct TDataEntityPlace;

    bool IsPlaced() const { return m_chunk != kNoChunk; }

    bool m_selected = false;
    bool m_visible = false;
    bool m_canEdit : 1 = false;
    bool m_cleaned : 1 = false;
    /// Where the list's sequence holds the entity.
    std::uint32_t m_chunk = kNoChunk;
    /// The list that holds the entity, or that it was created for.
    TzuDataList *m_list = nullptr;
    void *m_userReference = nullptr;
    /// The cached ListIndex while no sequence holds the entity, which otherwise keeps it.
    int m_listIndex = 0;
};

/// Checked downcast of data objects: nil stays nil, throws std::bad_cast for another class.
template <typename T, typename From>
T *CheckedCast(From *object)
{
    return object == nullptr ? nullptr : &dynamic_cast<T &>(*object);
}

} // namespace korvane
