#include "cellgrid/zuBabGridCell.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvane::test {
namespace {

struct AxisContent : testing::Test
{
    TBabGridCellForViewer Grid;
    TAxisContentList &Rows = Grid.Rows();

    void AddRows(int count)
    {
        for (int i = 0; i < count; ++i) {
            Rows.AddNew(nullptr);
        }
    }
    void MakeVirtual(int fixed, int unloaded)
    {
        Rows.SetFixedCount(fixed);
        AddRows(fixed);
        Rows.AddUnloaded(unloaded);
        Grid.OnCanUnload = [](TBabGridCell *, TAxisContentItem *, bool, bool &can) { can = true; };
    }
    std::vector<int> Counts() const
    {
        return {Rows.UnloadedBefore(), Rows.LoadedCount(), Rows.UnloadedAfter()};
    }
    void ExpectConsistent()
    {
        for (int position = 0; position < Rows.LoadedCount(); ++position) {
            const int index = Rows.IndexConvert_LoadedToReal(position);
            ASSERT_EQ(Rows.getLoadedAxisContentItem(position)->ListIndex(), index);
            ASSERT_EQ(Rows.getAxisContentItem(index), Rows.getLoadedAxisContentItem(position));
        }
        ASSERT_EQ(Rows.TotalSize(), Rows.OffsetOf(Rows.Count()));
    }
};

using TCounts = std::vector<int>;

TEST_F(AxisContent, AFarItemAnchorsTheBlockAnew)
{
    struct TCase
    {
        int Fixed;
        int Unloaded;
        int Asked;
        TCounts Counts; ///< before, loaded, after
    };
    for (const TCase &each :
         {TCase{1, 1000, 900, {899, 2, 100}}, TCase{0, 1000, 900, {900, 1, 99}},
          TCase{2, 1000, 1001, {999, 3, 0}}, TCase{1, 1000, 300, {0, 301, 700}},
          TCase{0, 1000, 499, {0, 500, 500}}, TCase{0, 1000, 500, {500, 1, 499}},
          TCase{1, 1000, 0, {0, 1, 1000}}}) {
        SCOPED_TRACE(each.Asked);
        TBabGridCellForViewer grid;
        grid.OnCanUnload = [](TBabGridCell *, TAxisContentItem *, bool, bool &can) { can = true; };
        grid.Rows().SetFixedCount(each.Fixed);
        for (int i = 0; i < each.Fixed; ++i) {
            grid.Rows().AddNew(nullptr);
        }
        grid.Rows().AddUnloaded(each.Unloaded);
        TAxisContentItem *item = grid.Rows().getAxisContentItem(each.Asked);
        ASSERT_NE(item, nullptr);
        EXPECT_EQ(item->ListIndex(), each.Asked);
        EXPECT_EQ((TCounts{grid.Rows().UnloadedBefore(), grid.Rows().LoadedCount(),
                           grid.Rows().UnloadedAfter()}),
                  each.Counts);
        EXPECT_EQ(grid.Rows().Count(), each.Fixed + each.Unloaded);
    }
}

TEST_F(AxisContent, IsLoadedLeavesTheHeadOutOfAccount)
{
    MakeVirtual(1, 1000);
    Rows.getAxisContentItem(900);
    EXPECT_TRUE(Rows.IsLoaded(0));
    EXPECT_TRUE(Rows.IsLoaded(899)); // counted only, and yet
    EXPECT_FALSE(Rows.IsPresent(899));
    EXPECT_TRUE(Rows.IsLoaded(900));
    EXPECT_FALSE(Rows.IsLoaded(901));
    EXPECT_EQ(Rows.EnsureLoadedItem(0), nullptr);
    TAxisContentItem *head = Rows.getAxisContentItem(0);
    EXPECT_NE(Rows.getAxisContentItem(899), head);
    ExpectConsistent();
    Rows.Drop(500);
    EXPECT_EQ(Rows.Count(), 1000);
    EXPECT_EQ(Rows.getAxisContentItem(0), head);
    ExpectConsistent();
}

TEST_F(AxisContent, AFrontLoadFillsFromTheBlockOutwards)
{
    MakeVirtual(1, 1000);
    Rows.getAxisContentItem(900);
    std::vector<int> order;
    Grid.OnVirtualLoad = [&](TBabGridCell *, TAxisContentItem *item, bool isRow) {
        EXPECT_TRUE(isRow);
        order.push_back(item->ListIndex());
        EXPECT_THROW(Rows.InsertNew(1, nullptr), std::logic_error);
        EXPECT_TRUE(Rows.IsLoading());
    };
    Rows.getAxisContentItem(897);
    EXPECT_EQ(order, (std::vector<int>{899, 898, 897}));
    EXPECT_TRUE(Rows.LastLoadAtFront());
    order.clear();
    Rows.getAxisContentItem(902);
    EXPECT_EQ(order, (std::vector<int>{901, 902}));
    EXPECT_FALSE(Rows.LastLoadAtFront());
    ExpectConsistent();

    Grid.OnVirtualLoad = [](TBabGridCell *, TAxisContentItem *, bool) {
        throw std::runtime_error("no data");
    };
    EXPECT_THROW(Rows.getAxisContentItem(903), std::runtime_error);
    EXPECT_FALSE(Rows.IsLoading());
    ExpectConsistent();
}

TEST_F(AxisContent, UnloadedItemsAreDeletedByTheRawCounts)
{
    struct TCase
    {
        int From;
        int To;
        TCounts Counts;
    };
    // The head of one, 899 before, item 900, 100 after.
    for (const TCase &each :
         {TCase{10, 19, {889, 2, 100}}, TCase{0, 898, {0, 2, 100}}, TCase{0, 899, {899, 2, 100}},
          TCase{901, 910, {899, 2, 100}}, TCase{902, 911, {899, 2, 90}},
          TCase{950, 5000, {899, 2, 0}}, TCase{20, 10, {899, 2, 100}}}) {
        SCOPED_TRACE(each.From);
        TBabGridCellForViewer grid;
        TAxisContentList &rows = grid.Rows();
        grid.OnCanUnload = [](TBabGridCell *, TAxisContentItem *, bool, bool &can) { can = true; };
        rows.SetFixedCount(1);
        rows.AddNew(nullptr);
        rows.AddUnloaded(1000);
        TAxisContentItem *item = rows.getAxisContentItem(900);
        rows.DeleteOfUnloaded(each.From, each.To);
        EXPECT_EQ((TCounts{rows.UnloadedBefore(), rows.LoadedCount(), rows.UnloadedAfter()}),
                  each.Counts);
        EXPECT_EQ(item->ListIndex(), 1 + rows.UnloadedBefore());
        EXPECT_EQ(rows.TotalSize(), std::int64_t{rows.Count()} * rows.DefaultSize());
    }
}

TEST_F(AxisContent, ClearingDeletesTheTailBeforeTheHead)
{
    MakeVirtual(1, 1000);
    Rows.getAxisContentItem(900);
    std::vector<std::pair<int, int>> deleted;
    Grid.OnDeleteOfUnloaded = [&](TBabGridCell *, bool, int &from, int &to) {
        deleted.emplace_back(from, to);
    };
    Rows.ClearKeepFixedItems();
    EXPECT_EQ(deleted, (std::vector<std::pair<int, int>>{{900, 999}, {0, 898}}));
    EXPECT_EQ(Counts(), (TCounts{0, 1, 0}));
    EXPECT_EQ(Rows.TotalSize(), Rows.DefaultSize());
    Rows.Clear();
    EXPECT_EQ(Rows.Count(), 0);
}

TEST_F(AxisContent, OnlyWhatIsShownProtectedOrSelectedStaysLoaded)
{
    MakeVirtual(0, 1000);
    Rows.getAxisContentItem(99);
    Rows.ClearVisibles(); // and with it the protection of what was loaded last
    Rows.AddToVisible(*Rows.getAxisContentItem(40));
    Grid.Selection().Select({0, 60, 0, 60});
    Rows.Purge();
    EXPECT_EQ(Counts(), (TCounts{40, 21, 939}));
    ExpectConsistent();
    Rows.UnloadAll(); // deselects
    EXPECT_EQ(Counts(), (TCounts{61, 0, 939}));

    Rows.getAxisContentItem(999);
    Grid.OnCanUnload = nullptr;
    Rows.UnloadAll();
    EXPECT_EQ(Rows.LoadedCount(), 1);
}

TEST_F(AxisContent, HandlersDecideWhatIsUnloadedTogetherAndCounted)
{
    MakeVirtual(0, 100);
    Rows.getAxisContentItem(9);
    Rows.ClearVisibles();
    Grid.OnUnloadIntervall = [](TBabGridCell *, TAxisContentItem *item, bool, int &first,
                                int &last) {
        first = item->ListIndex() / 4 * 4; // in fours
        last = first + 3;
    };
    Rows.AddToVisible(*Rows.getAxisContentItem(5));
    Rows.Purge();
    EXPECT_EQ(Counts(), (TCounts{4, 4, 92}));
    Grid.OnUnloadIntervall = [](TBabGridCell *, TAxisContentItem *, bool, int &first, int &last) {
        last = first - 1;
    };
    EXPECT_THROW(Rows.Purge(), std::logic_error);
    Grid.OnUnloadIntervall = nullptr;

    Rows.ClearVisibles();
    Grid.OnVirtualUnLoad = [](TBabGridCell *, TAxisContentItem *, bool, bool &counted) {
        counted = false;
    };
    Rows.Unload(4, TBlockEnd::Front);
    EXPECT_EQ(Counts(), (TCounts{4, 3, 92}));
    ExpectConsistent();
}

TEST_F(AxisContent, HidingTwiceIsOneEventAndUserSizeIsOneEachTime)
{
    AddRows(3);
    int hides = 0;
    int sizes = 0;
    TSingleEventListener hide(
        Grid.HideEvent, [&](TSingleEventListener *) { ++hides; }, false);
    TSingleEventListener size(
        Grid.UserSizeEvent,
        [&](TSingleEventListener *event) {
            ++sizes;
            EXPECT_EQ(event->Data(), Rows.getAxisContentItem(1));
        },
        false);
    TAxisContentItem *item = Rows.getAxisContentItem(1);
    item->SetHide(true);
    item->SetHide(true);
    EXPECT_EQ(hides, 1);
    EXPECT_EQ(Rows.GetHiddenRowCount(), 1);
    EXPECT_EQ(Rows.OffsetOf(3), 2 * Rows.DefaultSize());
    EXPECT_EQ(Rows.NearestShown(1, 1), 2);
    item->SetHide(false);
    item->SetUserSize(50);
    item->SetUserSize(50);
    EXPECT_EQ(sizes, 2);
    EXPECT_EQ(item->Size(), Rows.DefaultSize()); // not active yet
    item->SetUserSizeActive(true);
    EXPECT_EQ(Rows.OffsetOf(2), Rows.DefaultSize() + 50);

    {
        TUserSizeItem shared;
        shared.SetUserSizeActive(true);
        shared.SetUserSize(7);
        item->SetUserSizeItem(&shared);
        Rows.getAxisContentItem(2)->SetUserSizeItem(&shared);
        EXPECT_EQ(Rows.OffsetOf(3), Rows.DefaultSize() + 14);
        item->SetUserSize(9);
        EXPECT_EQ(Rows.OffsetOf(3), Rows.DefaultSize() + 18);
    }
    EXPECT_EQ(item->Size(), 9);
    EXPECT_EQ(Rows.getAxisContentItem(2)->Size(), Rows.DefaultSize());
}

TEST_F(AxisContent, CellsFollowTheirRowsAndColumns)
{
    AddRows(3);
    TAxisContentList &columns = Grid.Columns();
    columns.AddNew(nullptr);
    columns.AddNew(nullptr);
    const auto text = [&](int column, int row) {
        return Grid.CellText(*columns.getAxisContentItem(column), *Rows.getAxisContentItem(row));
    };
    Grid.GetCell(0, 0)->SetText("a");
    Grid.GetCell(1, 2)->SetText("b");
    Rows.Move(0, 2);
    columns.Move(0, 1);
    EXPECT_EQ(text(1, 2), "a");
    EXPECT_EQ(text(0, 1), "b");
    columns.InsertNew(0, nullptr);
    Rows.Drop(1);
    EXPECT_EQ(Grid.Matris().CellCount(), 1);
    columns.Drop(2);
    EXPECT_EQ(Grid.Matris().CellCount(), 0);
    EXPECT_EQ(Grid.GetCell(0, 5), nullptr);
}

TEST_F(AxisContent, DatesAndTimesUnderstandWhatTheyShow)
{
    TBabCellData_DateTime date(TDateTimePart::Date);
    TBabCellData_DateTime time(TDateTimePart::Time);
    EXPECT_TRUE(date.SetText("2026-02-28"));
    EXPECT_EQ(date.Text(), "2026-02-28");
    EXPECT_TRUE(date.SetText("26/3/1"));
    EXPECT_EQ(date.Text(), "2026-03-01");
    for (const char *wrong : {"2026-02-29", "2026-13-01", "soon", "2026-1", "1-2-3-4"}) {
        EXPECT_FALSE(date.SetText(wrong)) << wrong;
    }
    EXPECT_EQ(date.Text(), "2026-03-01");
    EXPECT_TRUE(time.SetText("9:05"));
    EXPECT_EQ(time.Text().substr(0, 5), "09:05");
    EXPECT_FALSE(time.SetText("24:00"));
    EXPECT_TRUE(time.SetText(" "));
    EXPECT_TRUE(time.IsEmpty());
}

} // namespace
} // namespace korvane::test
