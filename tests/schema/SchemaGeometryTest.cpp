#include "SchemaFixture.h"

namespace korvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct SchemaGeometry : test::TSchemaFixture
{
    TPixelSpan Pixels(int col) { return Schema.ColumnToPixels(col); }
};

TEST_F(SchemaGeometry, ColumnsFollowEachOtherFromTheFirstShownOne)
{
    EXPECT_EQ(Pixels(0), (TPixelSpan{0, 120}));
    EXPECT_EQ(Pixels(2), (TPixelSpan{240, 360}));
    EXPECT_EQ(Pixels(3), (TPixelSpan{-1, -1}));
    EXPECT_EQ(Pixels(-1), (TPixelSpan{-1, -1}));
    Schema.SetFlipView(true);
    EXPECT_EQ(Pixels(0), (TPixelSpan{1, 19})) << "a grid line of one pixel";
    EXPECT_EQ(Pixels(2), (TPixelSpan{39, 57}));
    Schema.Columns().SetTopLeftCol(1);
    EXPECT_EQ(Pixels(0), (TPixelSpan{0, 0}));
    EXPECT_EQ(Pixels(1), (TPixelSpan{1, 19}));
    EXPECT_EQ(Schema.GetColumnSpace(), 54);
    Schema.SetFlipView(false);
    EXPECT_EQ(Pixels(1), (TPixelSpan{0, 120}));
}

TEST_F(SchemaGeometry, APixelBelongsToTheColumnThatItLiesIn)
{
    struct TCase
    {
        bool Flip;
        int First;
        int Pixel;
        int Col;
        int VirtualCol;
    };
    const TCase cases[]{
        {false, 0, -1, -1, 0}, {false, 0, 0, 0, 0},   {false, 0, 119, 0, 0}, {false, 0, 120, 1, 1},
        {false, 0, 359, 2, 2}, {false, 0, 360, 3, 2}, {false, 1, 0, 1, 1},   {false, 1, -1, -1, 0},
        {false, 1, 239, 2, 2}, {false, 1, 240, 3, 2}, {true, 0, 0, -1, 0},   {true, 0, 1, 0, 0},
        {true, 0, 18, 0, 0},   {true, 0, 19, 0, 1},   {true, 0, 20, 1, 1},   {true, 0, 57, 3, 2},
        {true, 2, -1, -1, 1},  {true, 2, -20, -1, 0},
    };
    for (const TCase &test : cases) {
        Schema.SetFlipView(test.Flip);
        Schema.Columns().SetTopLeftCol(test.First);
        EXPECT_EQ(Schema.PixelToColumn(test.Pixel), test.Col)
            << test.Flip << test.First << ' ' << test.Pixel;
        EXPECT_EQ(Schema.Columns().VirtualColumnAt(test.Flip, test.Pixel), test.VirtualCol)
            << test.Flip << test.First << ' ' << test.Pixel;
    }
}

TEST_F(SchemaGeometry, ATimeIsDrawnInItsColumnOrSubColumn)
{
    auto *time = AddTime(1, 600, 660);
    EXPECT_EQ(RectOf(time), (TRect{121, 600, 240, 660}));
    time->SetNearMargin(4);
    time->SetFarMargin(6);
    EXPECT_EQ(RectOf(time), (TRect{125, 600, 234, 660}));
    time->SetNearMargin(0);
    time->SetFarMargin(0);
    Schema.Columns().GetCol(1).SetSubColCount(3);
    time->SetInSubCol(true);
    time->SetSubCol(1);
    EXPECT_EQ(RectOf(time), (TRect{161, 600, 200, 660}));
    Schema.SetFlipView(true);
    EXPECT_EQ(RectOf(time), (TRect{601, 26, 660, 32}));
    Host.PrintScale = {2, 3};
    EXPECT_EQ(RectOf(time), (TRect{1201, 78, 1320, 96}));
}

TEST_F(SchemaGeometry, ShortAndInvertedTimesAreFivePixelsLong)
{
    for (const bool flip : {false, true}) {
        Schema.SetFlipView(flip);
        for (const int length : {0, 3, 4, -30}) {
            const TRect rect = RectOf(AddTime(0, 100, 100 + length));
            EXPECT_EQ(flip ? rect.Width() : rect.Height(), 5) << flip << ' ' << length;
        }
        const TRect rect = RectOf(AddTime(0, 100, 109));
        EXPECT_EQ(flip ? rect.Right : rect.Bottom, 109);
    }
}

TEST_F(SchemaGeometry, WhatIsNotShownHasNoRectangleAndIsNotHit)
{
    auto *time = AddTime(0, 100, 200);
    EXPECT_EQ(Schema.GetDataEntityFromXY(60, 150), time);
    EXPECT_EQ(Schema.GetDataEntityFromXY(0, 150), nullptr) << "the column's line";
    EXPECT_EQ(Schema.GetDataEntityFromXY(60, 200), nullptr);
    const auto expectNone = [&](const char *why) {
        EXPECT_EQ(Schema.GetDataEntityFromXY(60, 150), nullptr) << why;
        EXPECT_THAT(Schema.TimesIn({0, 0, 400, 1440}), IsEmpty()) << why;
    };
    Schema.Columns().SetTopLeftCol(1);
    expectNone("scrolled away");
    EXPECT_EQ(Schema.RectFromDataEntity(*time), std::nullopt);
    Schema.Columns().SetTopLeftCol(0);
    time->SetVisible(false);
    expectNone("hidden");
    time->SetVisible(true);
    time->SetCol(7);
    expectNone("in no column");
    time->SetCol(0);
    Schema.OnGetDrawingRect = [](TzuSchema_ComBasic *, TzuDataEntity_SchemaTime *, TRect &) {
        return false;
    };
    expectNone("hidden by the handler");
    Schema.OnGetDrawingRect = {};
    Schema.SetDrawLayers({-1, 1, 2});
    expectNone("in a list that is not drawn");
    Schema.SetDrawLayers({0});
    EXPECT_EQ(Schema.GetDataEntityFromXY(60, 150), time);
}

TEST_F(SchemaGeometry, HandlersDecideWhatIsSeenAndWhere)
{
    auto *late = AddTime(0, 2000, 2100); // behind the end of the axis
    AddTime(0, 100, 200);
    Schema.OnIsVisible = [&](TzuSchema_ComBasic *, TzuDataEntity_SchemaTime *time,
                             bool &runDefault) {
        runDefault = false;
        return time == late;
    };
    EXPECT_EQ(Schema.GetDataEntityFromXY(60, 150), nullptr);
    Schema.OnGetDrawingRect = [](TzuSchema_ComBasic *, TzuDataEntity_SchemaTime *, TRect &rect) {
        rect = {300, 10, 310, 20};
        return true;
    };
    EXPECT_EQ(Schema.GetDataEntityFromXY(305, 15), late);
}

TEST_F(SchemaGeometry, TheTopmostTimeIsHit)
{
    auto *first = AddTime(0, 100, 200);
    auto *second = AddTime(0, 100, 200);
    auto *above = AddTime(0, 100, 200, 1);
    EXPECT_THAT(Schema.TimesIn({10, 150, 11, 151}), ElementsAre(first, second, above));
    Schema.SetDrawLayers({1, 0});
    EXPECT_EQ(Schema.GetDataEntityFromXY(10, 150), above);
    AddTime(0, 100, 200, 11);
    EXPECT_THAT(Schema.TimesIn({10, 150, 11, 151}), SizeIs(3));
}

TEST_F(SchemaGeometry, ARectangleStandsForTimesAndAColumn)
{
    Schema.Columns().GetCol(1).BaseDate = 40000;
    for (const bool flip : {false, true}) {
        Schema.SetFlipView(flip);
        const TRect rect = flip ? TRect{600, 22, 660, 30} : TRect{130, 600, 200, 660};
        const auto place = Schema.StartAndLengthFromRect(rect);
        EXPECT_EQ(place.Col, 1);
        EXPECT_NEAR(place.Start, 40000 + 600 * test::kMinuteLength, 1e-9);
        EXPECT_NEAR(place.Length, 60 * test::kMinuteLength, 1e-9);
    }
}

/// Whatever times change, the index finds what a walk over all finds.
TEST_F(SchemaGeometry, ManyChangingTimesAreFoundWhereAWalkFindsThem)
{
    std::vector<TzuDataEntity_SchemaTime *> times;
    unsigned seed = 7;
    const auto pick = [&seed](int below) {
        seed = seed * 1664525U + 1013904223U;
        return static_cast<int>((seed >> 8U) % static_cast<unsigned>(below));
    };
    for (int step = 0; step < 4000; ++step) {
        const int action = times.size() < 50 ? 0 : pick(8);
        const std::size_t at =
            times.empty() ? 0 : static_cast<std::size_t>(pick(static_cast<int>(times.size())));
        if (action < 4) {
            const int from = pick(1600) - 100;
            times.push_back(AddTime(pick(5) - 1, from, from + pick(90), pick(3)));
        } else if (action == 4) {
            Schema.RemoveSchemaTime(times[at]);
            times.erase(times.begin() + static_cast<std::ptrdiff_t>(at));
        } else if (action == 5) {
            times[at]->SetCol(pick(5) - 1);
        } else {
            times[at]->SetStartDateTime(pick(1440) * test::kMinuteLength);
        }
        if (step % 97 != 0) {
            continue;
        }
        const TRect rect{pick(300), pick(1400), 310, 1430};
        auto found = Schema.TimesIn(rect);
        std::vector<TzuDataEntity_SchemaTime *> expected;
        for (auto *time : times) {
            if (Schema.IsVisible(*time) && RectOf(time).Intersects(rect)) {
                expected.push_back(time);
            }
        }
        ASSERT_THAT(found, testing::UnorderedElementsAreArray(expected)) << step;
    }
}

} // namespace
} // namespace korvane
