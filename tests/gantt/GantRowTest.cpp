#include "support/FakeGantHost.h"

#include <gmock/gmock.h>

using namespace korvane;
using namespace korvane::test;

namespace korvane {

void PrintTo(const TPixelSpan &span, std::ostream *out)
{
    *out << span.From << ".." << span.To;
}

} // namespace korvane

namespace {

constexpr TRect kScrolledAway{-1, -1, -1, -1};

struct GantRow : testing::Test
{
    TestChart Chart;
    TestGant &Gant = *Chart.Gant;
};

TEST_F(GantRow, RectanglesFollowTheLinesOfTheTree)
{
    TzuDataEntity_Tree *parent = Chart.AddNode();
    TzuDataEntity_Tree *child = Chart.AddNode(parent);
    TGantRow *parentRow = Gant.GantRows().FindRowFromTreeNode(parent);
    TGantRow *childRow = Gant.GantRows().FindRowFromTreeNode(child);
    TGantRow *lastRow = Chart.AddRow();

    EXPECT_EQ(parentRow->GetRect(), kScrolledAway) << "nothing was painted yet";
    Gant.UpdateRects();
    EXPECT_EQ(parentRow->GetRect(), (TRect{0, 0, 480, 18}));
    EXPECT_EQ(childRow->GetRect(), kScrolledAway);
    EXPECT_FALSE(childRow->GetVisible());
    EXPECT_EQ(lastRow->GetRect(), (TRect{0, 18, 480, 36}));

    parent->SetExpanded(true);
    Gant.UpdateRects();
    EXPECT_EQ(childRow->GetRect(), (TRect{0, 18, 480, 36}));
    EXPECT_EQ(lastRow->GetRect(), (TRect{0, 36, 480, 54}));

    Chart.View.Shown.TopRow = 1;
    Gant.UpdateRects();
    EXPECT_EQ(parentRow->GetRect(), kScrolledAway);
    EXPECT_TRUE(parentRow->GetVisible()) << "scrolled away is still visible";
    EXPECT_EQ(childRow->GetRect(), (TRect{0, 0, 480, 18}));
    EXPECT_EQ(Gant.CurrentRowHeight(), 18);
}

TEST_F(GantRow, ARowIsFoundStrictlyBetweenItsBorderLines)
{
    TGantRow *first = Chart.AddRow();
    TGantRow *second = Chart.AddRow();
    Gant.UpdateRects();
    const std::pair<int, TGantRow *> cases[] = {
        {-1, nullptr}, {0, nullptr}, {1, first},    {17, first},   {18, nullptr},
        {19, second},  {35, second}, {36, nullptr}, {37, nullptr},
    };
    for (const auto &[y, row] : cases) {
        EXPECT_EQ(Gant.GantRows().FindRowFromY(y), row) << y;
    }
}

TEST_F(GantRow, ItemsSpanTheirTimesOrAreSymbolsOfFixedSize)
{
    TGantRow *row = Chart.AddRow();
    Gant.UpdateRects();
    struct TCase
    {
        int From;
        int To;
        int FixedSize;
        TPixelSpan X;
        TRect Rect;
    };
    const TCase cases[] = {
        {100, 150, 0, {100, 150}, {100, 1, 150, 17}},
        {100, 102, 0, {100, 102}, {100, 1, 105, 17}},
        {100, 100, 0, {100, 100}, {100, 1, 105, 17}},
        {100, 60, 0, {100, 60}, {100, 1, 105, 17}}, // stops before it starts
        {100, 105, 0, {100, 105}, {100, 1, 105, 17}},
        {100, 150, -5, {100, 150}, {100, 1, 150, 17}},
        {100, 300, 9, {96, 105}, {96, 1, 105, 17}},
        {100, 300, 10, {95, 105}, {95, 1, 105, 17}},
        {100, 300, 1, {100, 101}, {100, 1, 105, 17}},
    };
    for (const TCase &c : cases) {
        SCOPED_TRACE(&c - cases);
        TzuDataEntity_Spanbar *item = Chart.AddItem(row, c.From, c.To);
        item->SetFixedSize(c.FixedSize);
        EXPECT_EQ(row->XStartStopFromDataEntity(*item), c.X);
        EXPECT_EQ(row->RectFromDataEntity(*item), c.Rect);
    }
}

TEST_F(GantRow, RectanglesSaturateFarOutsideTheAxis)
{
    TGantRow *row = Chart.AddRow();
    Gant.UpdateRects();
    Chart.Axis->SetStop(kDayZero + 1e-6);
    const TzuDataEntity_Spanbar *item = Chart.AddItem(row, -2'000'000, 2'000'000);
    const TRect rect = row->RectFromDataEntity(*item).value();
    EXPECT_LT(rect.Left, -1'000'000'000);
    EXPECT_GT(rect.Right, 1'000'000'000);
}

TEST_F(GantRow, SubRowsDivideTheRowEvenly)
{
    // A row from 0 to 31 has 29 pixels for items: three sub-rows of 9.
    Chart.View.Shown.RowHeight = 31;
    TGantRow *row = Chart.AddRow();
    TzuDataEntity_Spanbar *lower = Chart.AddItem(row, 0, 50, 2);
    Gant.UpdateRects();
    row->SetUseSubCols(3);
    EXPECT_EQ(row->YStartStopFromDataEntity(*lower), (TPixelSpan{1, 10})) << "layers start at 0";
    row->DataListOnSubCol(2, 2);
    EXPECT_EQ(row->YStartStopFromDataEntity(*lower), (TPixelSpan{19, 28}));
    EXPECT_THROW(row->DataListOnSubCol(10, 0), std::out_of_range);

    row->SetCollisionDetection(true);
    EXPECT_EQ(row->YStartStopFromDataEntity(*lower), (TPixelSpan{1, 30})) << "unplaced items span";
    lower->SetSubCol(2);
    EXPECT_EQ(row->YStartStopFromDataEntity(*lower), (TPixelSpan{10, 19}));

    row->SetCollisionDetection(false);
    EXPECT_EQ(row->UseSubCols(), 0);
    EXPECT_EQ(row->YStartStopFromDataEntity(*lower), (TPixelSpan{1, 30}));
}

TEST_F(GantRow, CoordinatesGrowWithThePrint)
{
    TGantRow *row = Chart.AddRow();
    const TzuDataEntity_Spanbar *item = Chart.AddItem(row, 101, 150);
    Gant.UpdateRects();
    Chart.Host->PrintScale = {1.5, 3};
    EXPECT_EQ(row->RectFromDataEntity(*item), (TRect{152, 3, 225, 51})); // 151.5 to the even side
}

TEST_F(GantRow, HitsFindTheItemThatIsDrawnOnTop)
{
    TGantRow *row = Chart.AddRow();
    TzuDataEntity_Spanbar *first = Chart.AddItem(row, 100, 200, 0);
    TzuDataEntity_Spanbar *second = Chart.AddItem(row, 150, 250, 0);
    TzuDataEntity_Spanbar *above = Chart.AddItem(row, 180, 190, 1);
    Gant.UpdateRects();
    const std::tuple<int, int, TzuDataEntity_Spanbar *> cases[] = {
        {99, 9, nullptr},  {100, 9, first},  {149, 9, first},  {150, 9, second},
        {180, 9, above},   {190, 9, second}, {249, 9, second}, {250, 9, nullptr},
        {120, 0, nullptr}, {120, 1, first},  {120, 16, first}, {120, 17, nullptr},
    };
    for (const auto &[x, y, item] : cases) {
        EXPECT_EQ(Gant.GetDataEntityFromXY(x, y), item) << x << ", " << y;
    }
    EXPECT_EQ(row->FindDataEntityFromX(185), above);
    above->SetVisible(false);
    EXPECT_EQ(Gant.GetDataEntityFromXY(185, 9), second) << "hidden items are not hit";
    row->SetDrawLayerStart(1);
    EXPECT_EQ(Gant.GetDataEntityFromXY(120, 9), nullptr) << "layers not drawn are not hit";
}

TEST_F(GantRow, NothingIsHitOnARowThatIsScrolledAway)
{
    TGantRow *row = Chart.AddRow();
    const TzuDataEntity_Spanbar *item = Chart.AddItem(row, 100, 200);
    Chart.AddRow();
    Gant.UpdateRects();
    Chart.View.Shown.TopRow = 1;
    Gant.UpdateRects();
    EXPECT_EQ(row->FindDataEntityFromXY(120, 9), nullptr);
    EXPECT_EQ(row->FindDataEntityFromX(120), nullptr);
    EXPECT_EQ(row->RectFromDataEntity(*item), std::nullopt);
}

} // namespace
