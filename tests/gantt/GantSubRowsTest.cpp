// Sub-rows of rows whose items are kept from overlapping.
#include "data/zuTimeDistinctThread.h"
#include "foundation/zuDoLater.h"
#include "foundation/zuReport.h"
#include "support/FakeGantHost.h"
#include "support/PlainSeparation.h"
#include "support/WaitUntil.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace korvane {
namespace {

using test::TestChart;

using TSubCols = std::vector<int>;

constexpr double kSecond = 1.0 / 86400;

std::vector<TzuDataEntity_Spanbar *> ItemsOf(TGantRow &row)
{
    std::vector<TzuDataEntity_Spanbar *> items;
    TDataListTrav walk(&row.Layers());
    for (walk.First(); !walk.Eof(); walk.Next()) {
        items.push_back(&TimeDataEntity(*walk.DataEntity()));
    }
    return items;
}

TSubCols SubColsOf(TGantRow &row)
{
    TSubCols subCols;
    for (const TzuDataEntity_Spanbar *item : ItemsOf(row)) {
        subCols.push_back(item->SubCol());
    }
    return subCols;
}

/// What the rule gives, without thread and row.
TSubCols ExpectedOf(TGantRow &row)
{
    TDistinctTimeHolderList list;
    for (TzuDataEntity_Spanbar *item : ItemsOf(row)) {
        const auto seconds = [](TDateTime time) { return std::round(time / kSecond) * kSecond; };
        list.Add(seconds(item->GetStartDateTime()), seconds(item->GetStopDateTime()),
                 std::to_string(row.Layers().IndexOf(item->GetDataList())), item);
    }
    test::ResolvePlainly(list);
    TSubCols subCols;
    for (int i = 0; i < list.Count(); ++i) {
        subCols.push_back(list.Get(i).SubCol);
    }
    return subCols;
}

/// A chart that counts its collisions and can be brought to rest.
struct SubRowChart : TestChart
{
    std::vector<std::pair<TzuDataEntity_Spanbar *, int>> Collisions;

    SubRowChart()
    {
        Gant->OnCollisionDetected = [this](TzuGant_ComBasic *, TzuDataEntity_Spanbar *item,
                                           int subCol) { Collisions.emplace_back(item, subCol); };
    }

    TGantRow &AddSeparatedRow()
    {
        TGantRow *row = AddRow();
        row->SetCollisionDetection(true);
        return *row;
    }
    TzuDataEntity_Spanbar *AddTimes(TGantRow &row, double startHour, double stopHour, int layer = 0)
    {
        TzuDataEntity_Spanbar *item = Gant->AddSpanbarToGantRow(&row, layer);
        item->SetStartDateTime(test::kDayZero + startHour / 24);
        item->SetStopDateTime(test::kDayZero + stopHour / 24);
        item->DoInfoPush();
        return item;
    }
    /// Until no computation runs any more.
    static bool Settle(const std::vector<TGantRow *> &rows)
    {
        TDoLater::DoAllNow();
        return test::WaitUntil(
            [&rows] { return std::ranges::none_of(rows, &TGantRow::IsSeparating); });
    }
};

TEST(SubRows, ItemsThatOverlapInALayerLieBelowEachOther)
{
    struct TTimes
    {
        double Start;
        double Stop;
        int Layer = 0;
    };
    struct TCase
    {
        const char *What;
        std::vector<TTimes> Times;
        bool OneGroup;
        TSubCols SubCols;
        int UseSubCols;
    };
    const std::vector<TCase> cases{
        {"touching", {{8, 10}, {10, 12}}, false, {0, 0}, 0},
        {"overlapping", {{8, 10}, {9, 11}}, false, {2, 1}, 2},
        {"without length", {{9, 9}, {10, 12}}, false, {2, 1}, 2},
        {"rounded to the same second", {{8, 9 + 0.4 / 3600}, {9, 10}}, false, {0, 0}, 0},
        {"rounded up into the other", {{8, 9 + 0.6 / 3600}, {9, 10}}, false, {2, 1}, 2},
        {"in two layers", {{8, 10, 0}, {9, 11, 1}}, false, {0, 0}, 0},
        {"in two layers of one group", {{8, 10, 0}, {9, 11, 1}}, true, {2, 1}, 2},
    };
    for (const TCase &c : cases) {
        SubRowChart chart;
        TGantRow &row = chart.AddSeparatedRow();
        row.SetOneGroup(c.OneGroup);
        for (const TTimes &times : c.Times) {
            chart.AddTimes(row, times.Start, times.Stop, times.Layer);
        }
        ASSERT_TRUE(SubRowChart::Settle({&row})) << c.What;
        EXPECT_EQ(SubColsOf(row), c.SubCols) << c.What;
        EXPECT_EQ(row.UseSubCols(), c.UseSubCols) << c.What;
        EXPECT_EQ(chart.Collisions.size(), c.UseSubCols == 0 ? 0U : c.Times.size()) << c.What;
    }
}

TEST(SubRows, FollowWhateverChanges)
{
    SubRowChart chart;
    TGantRow &row = chart.AddSeparatedRow();
    TzuDataEntity_Spanbar *first = chart.AddTimes(row, 8, 10);
    TzuDataEntity_Spanbar *second = chart.AddTimes(row, 9, 11);
    ASSERT_TRUE(SubRowChart::Settle({&row}));
    EXPECT_EQ(chart.Collisions,
              (std::vector<std::pair<TzuDataEntity_Spanbar *, int>>{{first, 2}, {second, 1}}));
    chart.Collisions.clear();

    second->SetStartDateTime(first->GetStopDateTime());
    second->DoInfoPush();
    ASSERT_TRUE(SubRowChart::Settle({&row}));
    EXPECT_EQ(row.UseSubCols(), 0);
    EXPECT_EQ(chart.Collisions.size(), 2U);

    chart.AddTimes(row, 8, 12);
    ASSERT_TRUE(SubRowChart::Settle({&row}));
    EXPECT_EQ(SubColsOf(row), (TSubCols{2, 2, 1}));
    chart.Gant->RemoveSpanbar(first);
    ASSERT_TRUE(SubRowChart::Settle({&row}));
    EXPECT_EQ(SubColsOf(row), (TSubCols{2, 1}));

    row.SetCollisionDetection(false);
    EXPECT_EQ(row.UseSubCols(), 0);
    chart.AddTimes(row, 8, 12);
    EXPECT_FALSE(TDoLater::AlreadyInList(TDoLaterCall::Bind<&TGantRow::UpdateSubColumnsAsync>(&row),
                                         nullptr));
}

TEST(SubRows, ABurstRepaintsOnceAndASupersededResultIsNotApplied)
{
    SubRowChart chart;
    TGantRow &row = chart.AddSeparatedRow();
    TzuDataEntity_Spanbar *item = chart.AddTimes(row, 8, 10);
    chart.AddTimes(row, 9, 11);
    row.UpdateSubColumnsAsync(nullptr); // finds two sub-rows
    item->SetStartDateTime(item->GetStartDateTime() - 1);
    item->SetStopDateTime(item->GetStopDateTime() - 1);
    row.UpdateSubColumnsAsync(nullptr); // and takes that one's place
    ASSERT_TRUE(SubRowChart::Settle({&row}));
    EXPECT_EQ(SubColsOf(row), (TSubCols{0, 0}));
    EXPECT_TRUE(chart.Collisions.empty());
}

TEST(SubRows, AFailingHandlerLeavesTheRowAsItWas)
{
    std::string report;
    const TReportHook before = SetReportHook([&report](std::string_view text) { report = text; });
    SubRowChart chart;
    TGantRow &row = chart.AddSeparatedRow();
    chart.AddTimes(row, 8, 10);
    chart.AddTimes(row, 9, 11);
    int calls = 0;
    chart.Gant->OnCollisionDetected = [&calls](TzuGant_ComBasic *, TzuDataEntity_Spanbar *, int) {
        if (++calls == 2) {
            throw std::runtime_error("no");
        }
    };
    ASSERT_TRUE(SubRowChart::Settle({&row}));
    EXPECT_EQ(report, "TimeDistinctThreadDone:no");
    EXPECT_EQ(SubColsOf(row), (TSubCols{0, 0}));
    EXPECT_EQ(row.UseSubCols(), 0);
    SetReportHook(before);
}

TEST(SubRows, HandlersMayRemoveItemsAndTheRow)
{
    SubRowChart chart;
    TzuDataEntity_Tree *node = chart.AddNode();
    TGantRow *row = chart.Gant->GantRows().FindRowFromTreeNode(node);
    row->SetCollisionDetection(true);
    for (int i = 0; i < 4; ++i) {
        chart.AddTimes(*row, 8, 10);
    }
    int calls = 0;
    chart.Gant->OnCollisionDetected = [&](TzuGant_ComBasic *, TzuDataEntity_Spanbar *item, int) {
        if (++calls == 1) {
            chart.Gant->RemoveSpanbar(item);
        } else {
            chart.Tree.RemoveDataEntity(node);
            row = nullptr;
        }
    };
    TDoLater::DoAllNow();
    EXPECT_TRUE(test::WaitUntil([&] { return row == nullptr; }));
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(chart.Gant->GantRows().Count(), 0);
}

/// Rows and items come, change and go while workers run; what is left in the end is right.
TEST(SubRows, RandomChangesWhileWorkersRun)
{
    for (unsigned seed = 0; seed < 8; ++seed) {
        SubRowChart chart;
        std::mt19937 random(seed);
        const auto pick = [&random](int to) {
            return std::uniform_int_distribution(0, to)(random);
        };
        std::vector<TGantRow *> rows;
        for (int step = 0; step < 1500; ++step) {
            if (rows.empty() || (rows.size() < 12 && pick(30) == 0)) {
                rows.push_back(&chart.AddSeparatedRow());
            }
            const int at = pick(static_cast<int>(rows.size()) - 1);
            TGantRow &row = *rows[static_cast<std::size_t>(at)];
            const std::vector<TzuDataEntity_Spanbar *> items = ItemsOf(row);
            TzuDataEntity_Spanbar *item =
                items.empty()
                    ? nullptr
                    : items[static_cast<std::size_t>(pick(static_cast<int>(items.size()) - 1))];
            const int what = pick(99);
            if (what < 40 || item == nullptr) {
                const int start = pick(40);
                chart.AddTimes(row, start, start + pick(9), pick(2));
            } else if (what < 60) {
                chart.Gant->RemoveSpanbar(item);
            } else if (what < 75) {
                item->SetStopDateTime(item->GetStartDateTime() + pick(9) * test::kHourLength);
                item->DoInfoPush();
            } else if (what < 90) {
                TDoLater::DoAllNow();
            } else if (what < 97) {
                TSynchronize::RunPosted();
            } else if (what < 98) {
                rows.erase(rows.begin() + at);
                chart.Tree.RemoveDataEntity(row.TreeNode());
            } else {
                row.SetCollisionDetection(false);
                row.SetCollisionDetection(true);
            }
        }
        if (seed % 2 == 0) {
            continue; // the chart goes while its workers run
        }
        ASSERT_TRUE(SubRowChart::Settle(rows)) << seed;
        for (TGantRow *row : rows) {
            ASSERT_EQ(SubColsOf(*row), ExpectedOf(*row)) << seed;
        }
    }
}

} // namespace
} // namespace korvane
