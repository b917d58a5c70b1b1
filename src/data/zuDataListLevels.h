// Ordered containers of data lists, and of such containers.
#pragma once

#include "data/zuDataList.h"
#include "data/zuSequence.h"
#include "foundation/zuExport.h"

namespace korvane {

/// Deletions of lists within lists that the stack has to bear.
inline constexpr int kMaxDeletionDepth = 256;

class TDataListTrav;

/// Called with the container and an index beyond its end. A handler that has added the list sets
/// `fixable`.
using TOnMissingIndex = TMethod<void(TzuExposable *theCaller, int theIndex, bool &theFixable)>;

/// Groups members without owning them. A member may be in several containers, or in one several
/// times; whoever frees it removes it first.
template <typename T>
class TDataListContainer : public TzuExposable
{
public:
    /// Empties the container; the members stay.
    void CleanForFree() override { m_members.Clear(); }
    /// Begins with no members.
    void AfterCreate() { m_members.Clear(); }

    /// Number of members, a member that was added several times included as often.
    int Count() const { return m_members.Size(); }
    /// Throws std::invalid_argument for nil.
    void Add(T *member) { m_members.Append(Checked(member)); }
    /// Throws std::out_of_range.
    void Delete(int index) { m_members.Erase(index); }
    /// Removes the first occurrence, if there is one.
    void Remove(const T *member)
    {
        if (const int index = IndexOf(member); index >= 0) {
            Delete(index);
        }
    }
    /// The first occurrence, or -1.
    int IndexOf(const T *member) const { return m_members.IndexOf(member); }
    /// The members stay.
    void Clear() { m_members.Clear(); }

protected:
    /// The index is 0..Count()-1, otherwise std::out_of_range is thrown; so is
    /// std::invalid_argument for nil.
    T *Member(int index) const { return m_members.At(index); }
    void SetMember(int index, T *member) { m_members.Replace(index, Checked(member)); }

private:
    static T *Checked(T *member)
    {
        return member != nullptr ? member : throw std::invalid_argument("No list to hold");
    }

    TSequence<T, TPlaceInMap<T>> m_members;
};

/// A list of data lists, whose selection can be stepped through as if it were one list.
class KORVANE_CORE_API TzuDataList2lev : public TDataListContainer<TzuDataList>
{
public:
    /// The member at an index. Beyond the end OnMissingIndex may add members until it is there; nil
    /// when it does not. Throws std::out_of_range for a negative index.
    TzuDataList *GetDataList(int index);
    /// Replaces a member. Throws std::out_of_range, or std::invalid_argument for nil.
    void SetDataList(int index, TzuDataList *list) { SetMember(index, list); }

    /// Deselects every entity, loading them all.
    void ClearSelections();
    /// The first selected entity, loading those before it, or nil.
    TzuDataEntity *FindSelected();
    /// Sets its Selected and leaves that of others.
    void SelectDataEntity(TzuDataEntity *entity);
    /// Selects only the entity behind the first selected one, the first one behind the last; the
    /// first when none is selected.
    void SelectNext();
    /// Selects only the entity before the first selected one, the last one before the first; the
    /// last when none is selected.
    void SelectPrev();

    /// Asked for one index after the other until it is there.
    TOnMissingIndex OnMissingIndex;

private:
    bool LeaveSelection(TDataListTrav &walk);
};

/// A list of lists of data lists.
class TzuDataList3lev : public TDataListContainer<TzuDataList2lev>
{
public:
    /// Throws std::out_of_range.
    TzuDataList2lev *GetDataListList(int index) const { return Member(index); }
    /// Replaces a member. Throws std::out_of_range, or std::invalid_argument for nil.
    void SetDataListList(int index, TzuDataList2lev *list) { SetMember(index, list); }
};

} // namespace korvane
