// The walk over all entities of one, two or three levels of lists.
#pragma once

#include "data/zuDataListLevels.h"
#include "foundation/zuExport.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

namespace korvane {

/// Walks the entities of a structure as one sequence, past its empty lists:
/// `for (walk.First(); !walk.Eof(); walk.Next())`.
///
/// The lists to walk are taken down at First and Last; lists added, emptied or filled later are not
/// noticed before the next First or Last. A list freed meanwhile counts as emptied. The structure
/// itself is observed and outlives the traverser's use. Main thread only.
class KORVANE_CORE_API TDataListTrav : public TObject
{
public:
    /// How many levels of lists are walked.
    enum class TMode : std::uint8_t { ThreeLevel, TwoLevel, OneLevel };

    /// The walk begins with First or Last, not here.
    explicit TDataListTrav(TzuDataList *list);
    explicit TDataListTrav(TzuDataList2lev *lists);
    /// Begins at the list `startIndex` and goes round. An index that does not exist counts as 0.
    TDataListTrav(TzuDataList2lev *lists, int startIndex);
    /// Walks the lists with these indexes, in this order; -1 is skipped. Of the indexes no more
    /// than there are lists now are taken.
    TDataListTrav(TzuDataList2lev *lists, std::span<const int> indexes);
    /// As the others: the walk begins with First or Last.
    explicit TDataListTrav(TzuDataList3lev *lists);

    ~TDataListTrav() override;

    /// What was given to the constructor.
    TMode Mode() const { return m_mode; }

    /// On to the first or last entity, with the lists taken down anew.
    void First();
    void Last();
    /// On by one entity, also into the next or previous list that is not empty.
    void Next();
    void Prev();
    /// On to the first entity of the next list.
    void NextList();
    /// Past the last entity; before the first. The walk stands on no entity then.
    bool Eof() const;
    bool BOF() const { return m_listIndex < 0 || m_itemIndex < 0; }
    /// The current entity, loaded when need be. Throws std::out_of_range when the walk stands on no
    /// list; nil when its list has shrunk.
    TzuDataEntity *DataEntity() const;

    /// The list that the walk stands in; nil when it stands in none, or when the list was freed.
    TzuDataList *DataList() const;
    /// Position within the current list, and the current list's position within the travel list.
    int ItemIndex() const { return m_itemIndex; }
    int ListIndex() const { return m_listIndex; }
    /// Number of entities of a list of the travel list. Throws std::out_of_range.
    int GetObsCountInList(int index) const;
    /// Takes down the lists that are not empty.
    void InitTravList();

private:
    friend class TzuDataList;

    static void ListReleased(TzuDataList *list);
    explicit TDataListTrav(TMode mode);
    void Visit(TzuDataList *list);
    void VisitAll(TzuDataList2lev &lists, int startIndex);
    int TravCount() const { return static_cast<int>(m_travList.size()); }

    TMode m_mode;
    bool m_useIndexes = false;
    int m_startIndex = 0;
    int m_itemIndex = 0;
    int m_listIndex = 0;
    TzuDataList *m_list = nullptr;
    TzuDataList2lev *m_list2lev = nullptr;
    TzuDataList3lev *m_list3lev = nullptr;
    std::vector<int> m_indexes;
    /// A list that was freed is nil here.
    std::vector<TzuDataList *> m_travList;
    /// Where each list stands in the travel list; made when the first of them is freed.
    std::unordered_multimap<const TzuDataList *, std::size_t> m_places;
    /// All traversers, as a chain.
    TDataListTrav *m_previous = nullptr;
    TDataListTrav *m_next = nullptr;

    static TDataListTrav *s_first;
};

} // namespace korvane
