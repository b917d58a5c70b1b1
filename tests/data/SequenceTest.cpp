#include "data/zuSequence.h"

#include <algorithm>
#include <deque>
#include <gtest/gtest.h>
#include <random>
#include <set>

namespace korvane::test {
namespace {

struct Row
{
    std::uint32_t Chunk = kNoChunk;
};
struct RowChunk
{
    static std::uint32_t &Of(Row &row) { return row.Chunk; }
};

template <typename T>
class Sequence : public testing::Test
{
};
using Kinds =
    testing::Types<TSequence<Row, TPlaceInItem<Row, RowChunk>>, TSequence<Row, TPlaceInMap<Row>>>;
TYPED_TEST_SUITE(Sequence, Kinds);

TYPED_TEST(Sequence, AgreesWithAPlainVectorWhileItGrowsAndShrinks)
{
    std::mt19937 random(11);
    std::deque<Row> rows;
    TypeParam sequence;
    std::vector<Row *> expected;
    const auto below = [&](std::size_t bound) { return static_cast<int>(random() % bound); };
    const auto insert = [&](int position) {
        rows.emplace_back();
        sequence.Insert(position, &rows.back());
        expected.insert(expected.begin() + position, &rows.back());
    };
    const auto erase = [&](int position) {
        ASSERT_EQ(sequence.Erase(position), expected[position]);
        expected.erase(expected.begin() + position);
    };
    for (int phase = 0; phase < 6; ++phase) {
        for (int i = 0; i < 1500; ++i) {
            const int end = sequence.Size();
            insert(phase == 0 ? end : phase == 2 ? 0 : below(expected.size() + 1));
        }
        const std::size_t floor = phase == 3 ? 0 : 700;
        while (expected.size() > floor) {
            erase(phase == 1 ? 0 : phase == 2 ? sequence.Size() - 1 : below(expected.size()));
            if (expected.size() % 97 == 0) {
                ASSERT_EQ(sequence.Items(), expected);
            }
        }
        ASSERT_EQ(sequence.Items(), expected);
        for (int i = 0; i < sequence.Size(); i += 13) {
            ASSERT_EQ(sequence.At(i), expected[i]);
            ASSERT_EQ(sequence.IndexOf(expected[i]), i);
        }
    }
}

TYPED_TEST(Sequence, RefusesPositionsThatDoNotExist)
{
    TypeParam sequence;
    std::vector<Row> rows(1500);
    for (const int size : {0, 1, 600, 1500}) {
        while (sequence.Size() < size) {
            sequence.Append(&rows[sequence.Size()]);
        }
        Row row;
        EXPECT_THROW(sequence.At(-1), std::out_of_range);
        EXPECT_THROW(sequence.At(size), std::out_of_range);
        EXPECT_THROW(sequence.Erase(size), std::out_of_range);
        EXPECT_THROW(sequence.Insert(size + 1, &row), std::out_of_range);
        EXPECT_THROW(sequence.Replace(size, &row), std::out_of_range);
        EXPECT_EQ(sequence.IndexOf(&row), -1);
        EXPECT_EQ(sequence.FindFrom(0, [](Row *) { return false; }), size);
    }
    EXPECT_EQ(sequence.FindFrom(777, [&](Row *row) { return row == &rows[778]; }), 778);
    EXPECT_EQ(sequence.FindFrom(779, [&](Row *row) { return row == &rows[778]; }), 1500);
}

TEST(SequenceInMap, FindsTheFirstOfSeveralOccurrences)
{
    TSequence<Row, TPlaceInMap<Row>> sequence;
    std::vector<Row> rows(50);
    std::vector<Row *> expected;
    std::mt19937 random(5);
    for (int i = 0; i < 4000; ++i) {
        const int position = static_cast<int>(random() % (expected.size() + 1));
        Row *row = &rows[random() % rows.size()];
        if (i % 4 == 3) {
            sequence.Erase(position % sequence.Size());
            expected.erase(expected.begin() + position % static_cast<int>(expected.size()));
        } else {
            sequence.Insert(position, row);
            expected.insert(expected.begin() + position, row);
        }
        const auto found = std::find(expected.begin(), expected.end(), row);
        ASSERT_EQ(sequence.IndexOf(row),
                  found == expected.end() ? -1 : static_cast<int>(found - expected.begin()));
    }
}

} // namespace
} // namespace korvane::test
