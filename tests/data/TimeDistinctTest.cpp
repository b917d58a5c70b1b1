// Separation of overlapping intervals, against the plain double loop.
#include "data/zuTimeDistinctGeneric.h"
#include "support/PlainSeparation.h"

#include <atomic>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

namespace korvane {
namespace {

using TSubCols = std::vector<int>;

bool ConflictsPlainly(const TDistinctTimeHolderList &list)
{
    for (int i = 0; i < list.Count(); ++i) {
        for (int j = 0; j < list.Count(); ++j) {
            if (TTimeDistinctGeneric::InConflict(list.Get(i), list.Get(j))) {
                return true;
            }
        }
    }
    return false;
}

TSubCols SubColsOf(const TDistinctTimeHolderList &list)
{
    TSubCols subCols;
    for (int i = 0; i < list.Count(); ++i) {
        subCols.push_back(list.Get(i).SubCol);
    }
    return subCols;
}

struct TTimes
{
    TDateTime Start;
    TDateTime Stop;
    const char *Key = "";
};

TSubCols Separate(const std::vector<TTimes> &times)
{
    TDistinctTimeHolderList list;
    for (const TTimes &time : times) {
        list.Add(time.Start, time.Stop, time.Key, nullptr);
    }
    TTimeDistinctGeneric(list).ResolveConflicts();
    return SubColsOf(list);
}

TEST(TimeDistinct, TheLastAddedIsPlacedFirst)
{
    struct TCase
    {
        const char *What;
        std::vector<TTimes> Times;
        TSubCols SubCols;
    };
    const double hour = 1.0 / 24;
    const std::vector<TCase> cases{
        {"nothing", {}, {}},
        {"touching intervals share the row", {{8, 10}, {10, 12}}, {0, 0}},
        {"the second of two is placed first", {{8, 10}, {9, 11}}, {2, 1}},
        {"identical intervals", {{8, 10}, {8, 10}, {8, 10}}, {3, 2, 1}},
        {"one inside the other", {{8, 12}, {9, 10}}, {2, 1}},
        {"a sub-row is used again", {{1, 3}, {5, 7}, {2, 6}}, {2, 2, 1}},
        {"without length it takes 2 h 24 min",
         {{9 * hour, 9 * hour}, {10 * hour, 12 * hour}},
         {2, 1}},
        {"and no more", {{9 * hour, 9 * hour}, {11.41 * hour, 12 * hour}}, {0, 0}},
        {"other keys are no conflict", {{8, 10, "a"}, {9, 11, "b"}}, {0, 0}},
        {"keys share the sub-rows' numbers",
         {{8, 10, "a"}, {9, 11, "b"}, {9, 10, "a"}, {8, 12, "b"}},
         {2, 2, 1, 1}},
        {"an inverted one starts inside", {{9, 7}, {8, 10}}, {2, 1}},
        {"an inverted one stops inside", {{12, 9}, {8, 10}}, {2, 1}},
        {"an inverted one's stop at the edge", {{12, 8}, {8, 10}}, {0, 0}},
        {"two inverted ones", {{9, 7}, {10, 6}}, {0, 0}},
    };
    for (const TCase &c : cases) {
        EXPECT_EQ(Separate(c.Times), c.SubCols) << c.What;
    }
}

/// Times of every kind: on a coarse grid so that ends meet, without length, inverted, huge.
class TRandomTimes
{
public:
    explicit TRandomTimes(unsigned seed)
        : m_random(seed)
    {
    }

    void Fill(TDistinctTimeHolderList &list)
    {
        const int count = Pick(0, 40);
        const int span = Pick(3, 60);
        const int keys = Pick(1, 4);
        for (int i = 0; i < count; ++i) {
            const TDateTime start = Time(span);
            const TDateTime stop = Pick(0, 9) == 0 ? Time(span) : start + Pick(0, 8) * 0.05;
            TDistinctTimeHolder &holder = list.Add(
                start, stop, std::string(static_cast<std::size_t>(Pick(1, keys)), 'k'), nullptr);
            if (Pick(0, 49) == 0) {
                holder.SubCol = Pick(1, 3); // placed by somebody else
            }
        }
    }

private:
    int Pick(int from, int to) { return std::uniform_int_distribution(from, to)(m_random); }

    TDateTime Time(int span)
    {
        constexpr double kInfinity = std::numeric_limits<double>::infinity();
        constexpr double kHuge = std::numeric_limits<double>::max();
        static constexpr double kOdd[]{kInfinity, -kInfinity, kHuge, -kHuge, 1e300, 0.0, -0.0};
        return Pick(0, 60) == 0 ? kOdd[Pick(0, 6)] : Pick(0, span) * 0.05;
    }

    std::mt19937 m_random;
};

TEST(TimeDistinct, AgreesWithTheDoubleLoop)
{
    for (unsigned seed = 0; seed < 6000; ++seed) {
        TDistinctTimeHolderList list;
        TRandomTimes(seed).Fill(list);
        TDistinctTimeHolderList plain = list;
        ASSERT_EQ(TTimeDistinctGeneric(list).HasConflicts(), ConflictsPlainly(plain)) << seed;
        TTimeDistinctGeneric separation(list);
        separation.ResolveConflicts();
        test::ResolvePlainly(plain);
        ASSERT_EQ(SubColsOf(list), SubColsOf(plain)) << seed;
        // What is placed already stays, also for the object that placed it.
        const TSubCols before = SubColsOf(list);
        separation.ResolveConflicts();
        ASSERT_EQ(SubColsOf(list), before) << seed;
    }
}

TEST(TimeDistinct, SubRowsHoldWhatWasPlacedInThem)
{
    TDistinctTimeHolderList list;
    for (int i = 0; i < 4; ++i) {
        list.Add(i, i + 2, "", nullptr);
    }
    TTimeDistinctGeneric separation(list);
    separation.MoveToConflictFreePosition(list.Get(0));
    separation.ResolveConflicts();
    EXPECT_EQ(SubColsOf(list), (TSubCols{1, 3, 2, 1}));
    ASSERT_EQ(separation.SubRows().size(), 3U);
    EXPECT_EQ(separation.SubRows()[0],
              (std::vector<TDistinctTimeHolder *>{&list.Get(0), &list.Get(3)}));
}

TEST(TimeDistinct, StopsWhenTerminated)
{
    TDistinctTimeHolderList list;
    list.Add(0, 2, "", nullptr);
    list.Add(1, 3, "", nullptr);
    const std::atomic<bool> terminated = true;
    TTimeDistinctGeneric(list, &terminated).ResolveConflicts();
    EXPECT_EQ(SubColsOf(list), (TSubCols{0, 0}));
}

TEST(TimeDistinct, AReferenceFindsItsFirstHolder)
{
    TObject one;
    TObject other;
    TDistinctTimeHolderList list;
    EXPECT_EQ(list.FindFromReference(&one), nullptr);
    list.Add(0, 1, "", &one);
    EXPECT_EQ(list.FindFromReference(&one), &list.Get(0));
    EXPECT_EQ(list.FindFromReference(&other), nullptr);
    list.Add(0, 1, "", &other);
    list.Add(0, 1, "", &other);
    EXPECT_EQ(list.FindFromReference(&other), &list.Get(1));
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.FindFromReference(&one), nullptr);
}

} // namespace
} // namespace korvane
