#include "data/zuTimeDistinctGeneric.h"

#include "data/zuIntervalIndex.h"
#include "foundation/zuReport.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <exception>
#include <functional>
#include <limits>
#include <optional>
#include <string_view>
#include <tuple>
#include <utility>

namespace korvane {

namespace {

constexpr TDateTime kLeastLength = 0.1;

double JustAfter(double value)
{
    return std::nextafter(value, std::numeric_limits<double>::infinity());
}

bool Overlap(const TDistinctTimeHolder &a, const TDistinctTimeHolder &b)
{
    return (b.Start <= a.Start && a.Start < b.Stop) || (b.Start < a.Stop && a.Stop < b.Stop)
           || (a.Start <= b.Start && b.Start < a.Stop) || (a.Start < b.Stop && b.Stop < a.Stop);
}

} // namespace

TDistinctTimeHolder &TDistinctTimeHolderList::Add(TDateTime start, TDateTime stop, std::string key,
                                                  TObject *reference)
{
    return m_holders.emplace_back(TDistinctTimeHolder{
        .Start = start,
        .Stop = stop == start ? start + kLeastLength : stop,
        .Key = std::move(key),
        .Reference = reference,
    });
}

TDistinctTimeHolder *TDistinctTimeHolderList::FindFromReference(const TObject *reference)
{
    for (; m_indexed < m_holders.size(); ++m_indexed) {
        m_byReference.try_emplace(m_holders[m_indexed].Reference, m_indexed);
    }
    const auto found = m_byReference.find(reference);
    return found != m_byReference.end() ? &m_holders[found->second] : nullptr;
}

void TDistinctTimeHolderList::Clear()
{
    m_holders.clear();
    m_byReference.clear();
    m_indexed = 0;
}

/// The holders of one key.
///
/// An interval that ends after it begins is in conflict with another such one exactly when they
/// share time. Any other interval is a pair of points: it is in conflict with an interval that has
/// length when that contains the start, or the stop strictly inside, and never with one of its own
/// kind. So the former lie in one index and the points of the latter in another.
class TTimeDistinctGeneric::TGroup
{
public:
    /// The members in list order.
    TGroup(TTimeDistinctGeneric &owner, const std::vector<TDistinctTimeHolder *> &members)
        : m_owner(owner)
        , m_bars(members.size())
        , m_points(members.size())
    {
        for (std::size_t i = 0; i < members.size(); ++i) {
            const TDistinctTimeHolder &holder = *members[i];
            m_members.push_back({holder.Start, holder.Stop, static_cast<int>(i)});
        }
        // By time, so that neighbours in time are neighbours in memory.
        std::ranges::sort(m_members, {}, [](const TMember &member) {
            return std::tuple(member.Start, member.Stop, member.Order);
        });
        m_byOrder.resize(members.size());
        for (int number = 0; number < Size(); ++number) {
            TMember &member = Member(number);
            member.Holder = members[Index(member.Order)];
            m_byOrder[Index(member.Order)] = number;
            AddIntervals(number);
        }
        m_bars.Prepare();
        m_points.Prepare();
        FindConflicts();
        for (int number = 0; number < Size(); ++number) {
            if (m_owner.IsInSubRow(*Member(number).Holder)) {
                NotePlaced(number);
            } else if (Member(number).Holder->SubCol != 0) {
                StopWaiting(number);
            }
        }
    }

    bool HasConflicts() const { return std::ranges::any_of(m_members, &TMember::InConflict); }

    void Resolve()
    {
        for (auto number = m_byOrder.rbegin(); number != m_byOrder.rend(); ++number) {
            if (m_owner.Terminated()) {
                return;
            }
            if (Member(*number).InConflict) {
                PlaceUnlessPlaced(*number);
                PlaceNeighbours(*number);
            }
        }
    }

private:
    struct TMember
    {
        TDateTime Start = 0;
        TDateTime Stop = 0;
        int Order = 0;       ///< in the list
        int FirstTwin = 0;   ///< the first bar with the same times
        int LastOfTwins = 0; ///< at the first: the sub-row of the one placed last
        bool InConflict = false;
        TDistinctTimeHolder *Holder = nullptr;

        bool IsBar() const { return Start < Stop; }
    };

    /// Where a member's intervals lie; the two are the same unless it is a pair of points.
    struct TPlaces
    {
        static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

        void Add(std::size_t position)
        {
            First = First == kNone ? position : First;
            Second = position;
        }

        std::size_t First = kNone;
        std::size_t Second = kNone;
    };

    struct TKind
    {
        explicit TKind(std::size_t members)
            : Places(members)
        {
        }

        void Add(double low, double high, int number) { Intervals.push_back({low, high, number}); }

        /// Sorts the intervals and makes all of them active among the waiting ones.
        void Prepare()
        {
            std::ranges::stable_sort(Intervals, {}, &TIndexedInterval::Low);
            for (std::size_t i = 0; i < Intervals.size(); ++i) {
                Places[Index(Intervals[i].Owner)].Add(i);
            }
            Waiting.emplace(Intervals, TIntervalIndex::TInitially::ActiveAtLevel0);
            Placed.emplace(Intervals, TIntervalIndex::TInitially::Inactive);
        }

        std::vector<TIndexedInterval> Intervals;
        std::vector<TPlaces> Places;           ///< by member
        std::optional<TIntervalIndex> Waiting; ///< of holders without sub-row
        std::optional<TIntervalIndex> Placed;  ///< in a sub-row, which is the level
    };
    using TIndex = std::optional<TIntervalIndex> TKind::*;

    static std::size_t Index(int number) { return static_cast<std::size_t>(number); }
    int Size() const { return static_cast<int>(m_members.size()); }
    TMember &Member(int number) { return m_members[Index(number)]; }
    const TMember &Member(int number) const { return m_members[Index(number)]; }
    TKind &KindOf(int number) { return Member(number).IsBar() ? m_bars : m_points; }

    void AddIntervals(int number)
    {
        TMember &member = Member(number);
        if (!member.IsBar()) {
            m_points.Add(member.Start, JustAfter(member.Start), number);
            m_points.Add(member.Stop, member.Stop, number);
            return;
        }
        m_bars.Add(member.Start, member.Stop, number);
        const bool twin = number > 0 && Member(number - 1).Start == member.Start
                          && Member(number - 1).Stop == member.Stop;
        member.FirstTwin = twin ? Member(number - 1).FirstTwin : number;
    }

    void FindConflicts()
    {
        for (int number = 0; number < Size(); ++number) {
            VisitConflicts(number, &TKind::Waiting, 0, [this, number](int, int) {
                Member(number).InConflict = true;
                return false;
            });
        }
    }

    /// Calls visit(number, sub-row) for the members of an index that are in conflict with this one,
    /// itself excepted, until the call returns false. Points may be visited twice.
    template <typename Visitor>
    void VisitConflicts(int number, TIndex index, int leastLevel, const Visitor &visit) const
    {
        const TMember &member = Member(number);
        const auto others = [&](int other, int subCol) {
            return other == number || visit(other, subCol);
        };
        const TIntervalIndex &bars = *(m_bars.*index);
        if (member.IsBar()) {
            const std::size_t own = m_bars.Places[Index(number)].First;
            const std::size_t count = bars.CountBelow(member.Stop, own);
            if (bars.Visit(count, member.Start, leastLevel, others)) {
                const TIntervalIndex &points = *(m_points.*index);
                points.Visit(points.CountBelow(member.Stop), member.Start, leastLevel, others);
            }
            return;
        }
        const std::size_t count = bars.CountBelow(JustAfter(member.Start));
        if (bars.Visit(count, member.Start, leastLevel, others)) {
            bars.Visit(bars.CountBelow(member.Stop), member.Stop, leastLevel, others);
        }
    }

    void PlaceNeighbours(int number)
    {
        m_batch.clear();
        VisitConflicts(number, &TKind::Waiting, 0, [this](int other, int) {
            m_batch.push_back(other);
            return true;
        });
        std::ranges::sort(m_batch, std::greater(),
                          [this](int other) { return Member(other).Order; });
        for (const int other : m_batch) {
            if (m_owner.Terminated()) {
                return;
            }
            PlaceUnlessPlaced(other);
        }
    }

    void PlaceUnlessPlaced(int number)
    {
        TDistinctTimeHolder &holder = *Member(number).Holder;
        if (holder.SubCol == 0) {
            m_owner.PutInto(FreeSubCol(number), holder);
            NotePlaced(number);
        }
    }

    /// The sub-row of the bar placed last among those with the same times; 0 for none.
    int &LastOfTwins(int number) { return Member(Member(number).FirstTwin).LastOfTwins; }

    /// The lowest sub-row without conflict. Whatever is in conflict with a bar is so with every
    /// other of the same times, so that sub-rows up to the last one's need no look.
    int FreeSubCol(int number)
    {
        const int least = Member(number).IsBar() ? LastOfTwins(number) + 1 : 1;
        ++m_round;
        VisitConflicts(number, &TKind::Placed, least, [this](int, int subCol) {
            m_takenInRound[Index(subCol)] = m_round;
            return true;
        });
        int free = least;
        while (Index(free) < m_takenInRound.size() && m_takenInRound[Index(free)] == m_round) {
            ++free;
        }
        return free;
    }

    void StopWaiting(int number)
    {
        TKind &kind = KindOf(number);
        const TPlaces &places = kind.Places[Index(number)];
        kind.Waiting->Deactivate(places.First);
        kind.Waiting->Deactivate(places.Second);
    }

    void NotePlaced(int number)
    {
        StopWaiting(number);
        TKind &kind = KindOf(number);
        const TPlaces &places = kind.Places[Index(number)];
        const int subCol = Member(number).Holder->SubCol;
        kind.Placed->Activate(places.First, subCol);
        kind.Placed->Activate(places.Second, subCol);
        m_takenInRound.resize(std::max(m_takenInRound.size(), Index(subCol) + 1));
        if (Member(number).IsBar()) {
            LastOfTwins(number) = subCol;
        }
    }

    TTimeDistinctGeneric &m_owner;
    std::vector<TMember> m_members; ///< by time; a member's number counts them
    std::vector<int> m_byOrder;     ///< numbers in list order
    TKind m_bars;
    TKind m_points;
    std::vector<int> m_batch;
    std::vector<std::uint32_t> m_takenInRound; ///< by sub-row
    std::uint32_t m_round = 0;
};

TTimeDistinctGeneric::TTimeDistinctGeneric(TDistinctTimeHolderList &list,
                                           const std::atomic<bool> *terminated)
    : m_list(list)
    , m_terminated(terminated)
{
}

bool TTimeDistinctGeneric::InConflict(const TDistinctTimeHolder &a, const TDistinctTimeHolder &b)
{
    return &a != &b && a.Key == b.Key && Overlap(a, b);
}

void TTimeDistinctGeneric::MoveToConflictFreePosition(TDistinctTimeHolder &holder)
{
    const auto free = std::ranges::find_if(m_subRows, [&holder](const auto &subRow) {
        return std::ranges::none_of(
            subRow, [&holder](const auto *placed) { return InConflict(holder, *placed); });
    });
    PutInto(static_cast<int>(free - m_subRows.begin()) + 1, holder);
}

void TTimeDistinctGeneric::PutInto(int subCol, TDistinctTimeHolder &holder)
{
    m_subRows.resize(std::max(m_subRows.size(), static_cast<std::size_t>(subCol)));
    m_subRows[static_cast<std::size_t>(subCol) - 1].push_back(&holder);
    holder.SubCol = subCol;
}

bool TTimeDistinctGeneric::IsInSubRow(const TDistinctTimeHolder &holder) const
{
    const auto subCol = static_cast<std::size_t>(holder.SubCol);
    return holder.SubCol > 0 && subCol <= m_subRows.size()
           && std::ranges::find(m_subRows[subCol - 1], &holder) != m_subRows[subCol - 1].end();
}

std::vector<std::vector<TDistinctTimeHolder *>> TTimeDistinctGeneric::GroupByKey() const
{
    std::vector<std::vector<TDistinctTimeHolder *>> groups;
    std::unordered_map<std::string_view, std::size_t> numbers;
    for (int i = 0; i < m_list.Count(); ++i) {
        const auto [number, isNew] = numbers.try_emplace(m_list.Get(i).Key, groups.size());
        if (isNew) {
            groups.emplace_back();
        }
        groups[number->second].push_back(&m_list.Get(i));
    }
    return groups;
}

bool TTimeDistinctGeneric::ConflictLoop(TMode mode)
{
    try {
        for (const std::vector<TDistinctTimeHolder *> &members : GroupByKey()) {
            if (Terminated()) {
                return false;
            }
            TGroup group(*this, members);
            if (mode == TMode::Resolve) {
                group.Resolve();
            } else if (group.HasConflicts()) {
                return true;
            }
        }
    } catch (const std::exception &error) {
        Report("ConflictLoop:" + std::string(error.what()));
    }
    return false;
}

} // namespace korvane
