// Separation of overlapping intervals into sub-rows.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

#include <atomic>
#include <cstddef>
#include <deque>
#include <string>
#include <unordered_map>
#include <vector>

namespace korvane {

/// One interval to place.
struct TDistinctTimeHolder
{
    TDateTime Start = 0;          ///< in days
    TDateTime Stop = 0;           ///< exclusive; after Start
    std::string Key;              ///< only holders with equal keys can be in conflict
    int SubCol = 0;               ///< sub-row, 1 = first; 0 = not placed
    TObject *Reference = nullptr; ///< what the holder stands for; only compared, never used
};

/// The intervals of one separation, in the order in which they were added. Holders keep their
/// address.
class KORVANE_CORE_API TDistinctTimeHolderList
{
public:
    /// An interval without length becomes 0.1 day long, so that it still occupies time.
    TDistinctTimeHolder &Add(TDateTime start, TDateTime stop, std::string key, TObject *reference);
    /// Number of intervals.
    int Count() const { return static_cast<int>(m_holders.size()); }
    /// Throws std::out_of_range.
    TDistinctTimeHolder &Get(int index) { return m_holders.at(static_cast<std::size_t>(index)); }
    const TDistinctTimeHolder &Get(int index) const
    {
        return m_holders.at(static_cast<std::size_t>(index));
    }
    /// The first holder with the reference, or null. The first search prepares the others.
    TDistinctTimeHolder *FindFromReference(const TObject *reference);
    /// Removes and frees all.
    void Clear();

private:
    std::deque<TDistinctTimeHolder> m_holders;
    std::unordered_map<const TObject *, std::size_t> m_byReference; ///< of the first m_indexed
    std::size_t m_indexed = 0;
};

/// Finds conflicts among intervals and gives each interval that has one the lowest sub-row that is
/// free of conflicts at the moment it is placed. Intervals that only touch are not in conflict.
///
/// The outcome is that of taking every holder from the last to the first and comparing it with
/// every other from the last to the first: at a conflict both are placed, unless they are already.
/// Finding it takes n log n for n holders, and another log n for each pair of a placed holder and
/// one in conflict with it that came before. Runs on any thread; it uses the list alone.
class KORVANE_CORE_API TTimeDistinctGeneric
{
public:
    /// The list is observed. Once `*terminated` is true, the work stops where it is.
    explicit TTimeDistinctGeneric(TDistinctTimeHolderList &list,
                                  const std::atomic<bool> *terminated = nullptr);

    /// Whether any two intervals are in conflict; false when it was terminated before.
    bool HasConflicts() { return ConflictLoop(TMode::Find); }
    /// Places the holders that have conflicts and no sub-row yet.
    void ResolveConflicts() { ConflictLoop(TMode::Resolve); }

    /// Whether they overlap and have equal keys. Not whether they share a sub-row.
    static bool InConflict(const TDistinctTimeHolder &a, const TDistinctTimeHolder &b);
    /// Places a holder of the list beside those placed before by this object.
    void MoveToConflictFreePosition(TDistinctTimeHolder &holder);

    /// The holders in each sub-row, in the order in which they were placed.
    const std::vector<std::vector<TDistinctTimeHolder *>> &SubRows() const { return m_subRows; }

private:
    enum class TMode : unsigned char { Find, Resolve };
    class TGroup;

    bool ConflictLoop(TMode mode);
    bool Terminated() const
    {
        return m_terminated != nullptr && m_terminated->load(std::memory_order_relaxed);
    }
    std::vector<std::vector<TDistinctTimeHolder *>> GroupByKey() const;
    bool IsInSubRow(const TDistinctTimeHolder &holder) const;
    void PutInto(int subCol, TDistinctTimeHolder &holder);

    TDistinctTimeHolderList &m_list;
    const std::atomic<bool> *m_terminated;
    std::vector<std::vector<TDistinctTimeHolder *>> m_subRows;
};

} // namespace korvane
