#include "foundation/zuGraphStuffDraw.h"
#include "support/RecordingCanvas.h"

#include <gtest/gtest.h>

using namespace korvane;

namespace {

TEST(GStuff, MixesColoursWithBlackAndWhite)
{
    EXPECT_EQ(GStuff::TintColor(Rgb(100, 200, 0), 0), Rgb(100, 200, 0));
    EXPECT_EQ(GStuff::TintColor(Rgb(100, 200, 0), -50), Rgb(50, 100, 0));
    EXPECT_EQ(GStuff::TintColor(Rgb(105, 205, 255), 100), clWhite);
    EXPECT_EQ(GStuff::TintColor(Rgb(105, 205, 255), -300), clBlack);
}

TEST(GStuff, PutsEdgesInOrderAndComparesExtents)
{
    EXPECT_EQ(GStuff::Fixrect({10, 2, 3, 40}), (TRect{3, 2, 10, 40}));
    EXPECT_TRUE(GStuff::BigEnough({5, 5, 15, 10}, {10, 5}));
    EXPECT_FALSE(GStuff::BigEnough({5, 5, 15, 10}, {10, 6}));
    EXPECT_FALSE(GStuff::BigEnough({15, 5, 5, 10}, {1, 1}));
}

TEST(GStuff, RadiatesFromEdgeToMiddleWithinTheRectangle)
{
    test::TRecordingCanvas canvas;
    const TRect rect{10, 20, 10 + 4000, 20 + 30};
    GStuff::FillRadiated(rect, clWhite, clBlack, canvas);
    const auto fills = canvas.CallsOf(test::TCanvasOp::FillRect);
    ASSERT_EQ(fills.size(), 15U);
    EXPECT_EQ(fills.front().Rect, rect);
    EXPECT_EQ(fills.front().Brush.Color, clBlack);
    EXPECT_EQ(fills.back().Brush.Color, clWhite);
    for (std::size_t i = 1; i < fills.size(); ++i) {
        EXPECT_EQ(fills[i].Rect.Intersected(fills[i - 1].Rect), fills[i].Rect);
        EXPECT_FALSE(fills[i].Rect.IsEmpty());
    }
    test::TRecordingCanvas tiny;
    GStuff::FillRadiated({0, 0, 1, 1}, clWhite, clBlack, tiny);
    EXPECT_EQ(tiny.CallsOf(test::TCanvasOp::FillRect).size(), 1U);
}

TEST(GStuff, BevelsAreLightAndDarkJustInside)
{
    for (const TBevel bevel : {TBevel::bvRaised, TBevel::bvLowered}) {
        test::TRecordingCanvas canvas;
        GStuff::BevelRect({10, 20, 30, 26}, canvas, bevel);
        const auto lines = canvas.CallsOf(test::TCanvasOp::Polyline);
        ASSERT_EQ(lines.size(), 2U);
        const bool raised = bevel == TBevel::bvRaised;
        EXPECT_EQ(lines[0].Pen.Color, raised ? clBtnHighlight : clBtnShadow);
        EXPECT_EQ(lines[0].Points, (std::vector<TPoint>{{10, 25}, {10, 20}, {29, 20}}));
        EXPECT_EQ(lines[1].Pen.Color, raised ? clBtnShadow : clBtnHighlight);
        EXPECT_EQ(lines[1].Points, (std::vector<TPoint>{{10, 25}, {29, 25}, {29, 20}}));
    }
    test::TRecordingCanvas canvas;
    GStuff::BevelRect({10, 20, 11, 26}, canvas, TBevel::bvRaised);
    EXPECT_TRUE(canvas.Calls().empty()) << "there is no room for two edges";
}

} // namespace
