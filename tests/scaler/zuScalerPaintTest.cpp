#include "TestScaler.h"
#include "support/RecordingCanvas.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

namespace korvane::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Not;

constexpr TRect kClient{0, 0, 700, 45};

/// A line between two points; which one comes first does not matter.
struct TLine
{
    TPoint From;
    TPoint To;

    friend bool operator==(const TLine &a, const TLine &b)
    {
        return (a.From == b.From && a.To == b.To) || (a.From == b.To && a.To == b.From);
    }
};

using TCalls = std::vector<TCanvasCall>;

TScaleMark Mark(int pixel, const std::string &text)
{
    TScaleMark mark;
    mark.Pixel = pixel;
    mark.Text = text;
    return mark;
}

std::vector<TLine> LinesOf(const TCalls &calls)
{
    std::vector<TLine> lines;
    for (const TCanvasCall &call : calls) {
        if (call.Op == TCanvasOp::Polyline) {
            lines.push_back({call.Points.front(), call.Points.back()});
        }
    }
    return lines;
}

const TCanvasCall *FindText(const TCalls &calls, const std::string &text)
{
    const auto found = std::find_if(calls.begin(), calls.end(),
                                    [&](const TCanvasCall &call) { return call.Text == text; });
    return found == calls.end() ? nullptr : &*found;
}

template <typename Predicate>
TCalls Those(const TCalls &calls, Predicate predicate)
{
    TCalls result;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(result), predicate);
    return result;
}

TCalls Painted(TestScaler &scaler, const TRect &rect = kClient)
{
    TRecordingCanvas canvas;
    scaler.DoThePaint(canvas, rect);
    return canvas.Calls();
}

TEST(ScalerPaint, TicksStandOnTheFarEdgeOfTheAxis)
{
    TestScaler scaler;
    const auto across = LinesOf(Painted(scaler));
    EXPECT_THAT(across, Contains(TLine{{100, 45}, {100, 40}})); // minor: 5 pixels
    EXPECT_THAT(across, Contains(TLine{{0, 45}, {0, 30}}));     // major: 15 pixels

    scaler.Host.Size = {50, 700};
    scaler.SetHorizontal(false);
    const auto down = LinesOf(Painted(scaler, {0, 0, 50, 700}));
    EXPECT_THAT(down, Contains(TLine{{50, 100}, {45, 100}}));
    EXPECT_THAT(down, Contains(TLine{{50, 0}, {35, 0}}));
}

TEST(ScalerPaint, ALargerTargetEnlargesByWholeFactors)
{
    TestScaler scaler;
    const auto lines = LinesOf(Painted(scaler, {10, 20, 1510, 130})); // 2 and 2 times
    EXPECT_THAT(lines, Contains(TLine{{210, 130}, {210, 100}}));
    EXPECT_THAT(lines, Contains(TLine{{10, 130}, {10, 80}}));
}

TEST(ScalerPaint, NothingIsDrawnWithoutRoom)
{
    TestScaler scaler;
    scaler.SetIndicatorPixel(100);
    for (const TRect &rect : {TRect{0, 0, 0, 45}, TRect{5, 0, 4, 45}, TRect{0, 5, 700, 4}}) {
        EXPECT_TRUE(Painted(scaler, rect).empty());
    }
    scaler.Host.Size = {0, 0};
    Painted(scaler, {0, 0, 100, 0}); // no fault
}

TEST(ScalerPaint, ACutIsADoubleTick)
{
    TestScaler scaler;
    scaler.SetRange(36892.25, 36893);
    scaler.HideHours(18, 6);
    const TScaleMark &evening = scaler.PrimaryMarks()[10];
    const TScaleMark &morning = scaler.PrimaryMarks()[11];
    ASSERT_TRUE(evening.HiddenAfter && morning.AfterHidden);
    const auto tick = [](int pixel) { return TLine{{pixel, 45}, {pixel, 40}}; };
    const auto lines = LinesOf(Painted(scaler));
    EXPECT_THAT(lines, IsSupersetOf({tick(evening.Pixel), tick(evening.Pixel + 1)}));
    EXPECT_THAT(lines, IsSupersetOf({tick(morning.Pixel), tick(morning.Pixel - 1)}));
    EXPECT_THAT(lines, Not(Contains(tick(evening.Pixel - 1))));
    EXPECT_THAT(lines, Not(Contains(tick(morning.Pixel + 1))));
}

TEST(ScalerPaint, PassesColourTicksAndOthersFollowThePalette)
{
    TestScaler scaler;
    scaler.GetPassList(0) = {.Active = true, .FromTime = 0.5, .ToTime = 1, .Color = clOlive};
    scaler.SetRange(36892, 36893);
    const auto ticks = Those(Painted(scaler), [](const TCanvasCall &call) {
        return call.Op == TCanvasOp::Polyline && call.Rect.Bottom >= 45 && call.Rect.Top == 40;
    });
    ASSERT_GT(ticks.size(), 20U);
    EXPECT_EQ(ticks[3].Pen.Color, clBtnText);
    EXPECT_EQ(ticks[15].Pen.Color, clOlive);
    EXPECT_EQ(scaler.PrimaryMarks()[3].Color, 0U);
}

TEST(ScalerPaint, LabelsOfDaysSitBetweenTicksAndThoseOfHoursOnThem)
{
    TestScaler scaler;
    const TCalls days = Painted(scaler);
    const TCanvasCall *const monday = FindText(days, "Mon");
    ASSERT_NE(monday, nullptr);
    EXPECT_EQ(monday->Rect, (TRect{50 - 9, 30, 50 + 9, 42}));

    scaler.SetRange(36892, 36893);
    scaler.SetLength(720);
    const TCalls hours = Painted(scaler, {0, 0, 720, 45});
    const TCanvasCall *const noon = FindText(hours, "12");
    ASSERT_NE(noon, nullptr);
    EXPECT_EQ(noon->Rect, (TRect{360 - 6, 30, 360 + 6, 42}));
    const TCanvasCall *const day = FindText(hours, "Mon"); // the major row is of days
    ASSERT_NE(day, nullptr);
    EXPECT_EQ(day->Rect, (TRect{360 - 9, 15, 360 + 9, 27}));
}

TEST(ScalerPaint, TheLastIntervalEndsWithTheAxis)
{
    TestScaler scaler;
    scaler.SetRange(36892, 36899 - 0.4);
    const TScaleMarkList marks(scaler.PrimaryMarks().begin(), scaler.PrimaryMarks().begin() + 2);
    TRecordingCanvas canvas;
    scaler.DrawScaleMarksText(marks, {canvas, kClient}, TScaleRow::Minor);
    ASSERT_EQ(canvas.Texts(), (std::vector<std::string>{"Mon", "Tue"}));
    const int tuesday = marks[1].Pixel;
    EXPECT_EQ(canvas.Calls()[1].Rect.Left, tuesday + (700 - tuesday) / 2 - 9);
}

TEST(ScalerPaint, LabelsThatWouldCrowdOrDoNotFitAreLeftOutAndNotMoved)
{
    TestScaler scaler;
    scaler.SetRange(36892, 36893);
    const auto leftsOf = [&](const std::vector<int> &pixels) {
        TScaleMarkList marks;
        for (const int pixel : pixels) {
            marks.push_back(Mark(pixel, "abc")); // 18 pixels wide
        }
        marks.push_back(Mark(300, ""));
        TRecordingCanvas canvas;
        scaler.DrawScaleMarksText(marks, {canvas, kClient}, TScaleRow::Minor);
        std::vector<int> lefts;
        for (const TCanvasCall &call : canvas.Calls()) {
            lefts.push_back(call.Rect.Left);
        }
        return lefts;
    };
    // The next one fits from 25 pixels on, counted from the last one drawn.
    EXPECT_THAT(leftsOf({5, 9, 10, 34, 35, 59, 60}), ElementsAre(1, 26, 51));
    EXPECT_THAT(leftsOf({9, 10, 691, 692}), ElementsAre(1, 682));
}

TEST(ScalerPaint, TicksDoNotStrikeLabelsThroughOnScreen)
{
    TestScaler scaler;
    scaler.SetRange(36892.5, 36893.5);
    const auto behindMidnight = [&] {
        TRecordingCanvas canvas;
        canvas.SetBrushColor(clBtnFace);
        scaler.DoThePaint(canvas, kClient);
        return canvas.Where([](const TCanvasCall &call) {
            return call.Op == TCanvasOp::FillRect && call.Brush.Color == clBtnFace
                   && call.Rect == TRect{344, 30, 356, 40};
        });
    };
    ASSERT_EQ(scaler.SecondaryMarks().front().Pixel, 350);
    EXPECT_EQ(behindMidnight().size(), 1U);
    scaler.Host.Printing = true; // whatever the paper is
    EXPECT_TRUE(behindMidnight().empty());
}

TEST(ScalerPaint, VerticalLabelsKeepTheirDistanceAndTheirRoom)
{
    TestScaler scaler;
    scaler.Host.Size = {80, 700};
    scaler.SetHorizontal(false);
    scaler.SetRange(36892, 36893);
    TScaleMarkList marks;
    for (const int pixel : {18, 19, 41, 42, 300}) { // 12 pixels high: 23 pixels apart
        marks.push_back(Mark(pixel, "caf\u00e9 noir"));
    }
    for (const auto &[width, text] :
         {std::pair(80, "caf\u00e9 n"), {65, "caf\u00e9"}, {60, "caf"}}) { // never half a character
        TRecordingCanvas canvas;
        scaler.DrawScaleMarksText(marks, {canvas, {0, 0, width, 700}}, TScaleRow::Minor);
        ASSERT_EQ(canvas.Calls().size(), 3U);
        EXPECT_EQ(canvas.Calls()[0].Rect.Top, 13);
        EXPECT_EQ(canvas.Calls()[1].Rect.Top, 36);
        EXPECT_EQ(canvas.Calls()[2].Rect.Left, 40);
        EXPECT_EQ(canvas.Calls()[2].Text, text);
    }
}

TEST(ScalerPaint, LabelsTakeTheFontOfTheirMarkAndThePrintSize)
{
    TestScaler scaler;
    scaler.SetTextFont3({.Name = "Serif", .Size = 11});
    TScaleMark mark = Mark(300, "noon");
    mark.Font = TScalerFont::sTextFont3;
    scaler.Host.PrintScale = 2.5;
    TRecordingCanvas canvas;
    scaler.DrawScaleMarksText({mark}, {canvas, kClient}, TScaleRow::Minor);
    scaler.DrawScaleMarksText({mark}, {canvas, kClient}, TScaleRow::Major);
    EXPECT_EQ(canvas.Calls()[0].Font.Name, "Serif");
    EXPECT_EQ(canvas.Calls()[0].Rect.Top, 75);
    EXPECT_EQ(canvas.Calls()[1].Rect.Top, 38); // 37.5, to the even one
    EXPECT_EQ(scaler.Host.ResizedFonts, 2);
}

TEST(ScalerPaint, MinorLabelsAreLeftOutWhileDragging)
{
    TestScaler scaler;
    scaler.m_interaction.Dragging = true;
    EXPECT_EQ(FindText(Painted(scaler), "Tue"), nullptr);
    EXPECT_TRUE(std::ranges::any_of(
        Painted(scaler), [](const TCanvasCall &call) { return call.Op == TCanvasOp::Text; }));
    scaler.m_interaction.Dragging = false;
    EXPECT_NE(FindText(Painted(scaler), "Tue"), nullptr);
}

TEST(ScalerPaint, PixelListsAreThoseOfTheLastPaint)
{
    TestScaler scaler;
    Painted(scaler);
    Painted(scaler);
    EXPECT_THAT(scaler.MinorPixels(), ElementsAre(0, 100, 200, 300, 400, 500, 600, 700, 800));
    EXPECT_THAT(scaler.MajorPixels(), ElementsAre(0, 700, 1400));
    scaler.SetRange(36895, 36902);
    EXPECT_EQ(scaler.MajorPixels()[0], 0);
    Painted(scaler);
    EXPECT_EQ(scaler.MajorPixels()[0], -300);
}

TEST(ScalerPaint, ScrollButtonsSinkWhileHeldAndPublishTheirPlaces)
{
    const auto penColors = [](const TCalls &calls, const TRect &button) {
        std::vector<TColor> colors;
        for (const TCanvasCall &call : calls) {
            if (call.Op == TCanvasOp::Polyline && call.Antialiased
                && call.Rect.Intersects(button)) {
                colors.push_back(call.Pen.Color);
            }
        }
        return colors;
    };
    TestScaler scaler;
    TCalls calls = Painted(scaler);
    EXPECT_EQ(scaler.StepDownRect(), (TRect{1, 1, 20, 20}));
    EXPECT_EQ(scaler.StepUpRect(), (TRect{680, 1, 701, 20}));
    EXPECT_THAT(penColors(calls, scaler.StepDownRect()), ElementsAre(clGray, clGray, clWhite));
    EXPECT_THAT(penColors(calls, scaler.StepUpRect()), ElementsAre(clGray, clGray, clWhite));
    scaler.m_interaction.StepUpPressed = true;
    calls = Painted(scaler);
    EXPECT_THAT(penColors(calls, scaler.StepDownRect()), ElementsAre(clGray, clGray, clWhite));
    EXPECT_THAT(penColors(calls, scaler.StepUpRect()), ElementsAre(clWhite, clWhite, clGray));

    scaler.SetHorizontal(false);
    scaler.Host.Size = {50, 700};
    Painted(scaler, {0, 0, 50, 700});
    EXPECT_EQ(scaler.StepDownRect(), (TRect{1, 1, 20, 20}));
    EXPECT_EQ(scaler.StepUpRect(), (TRect{1, 680, 20, 700}));

    scaler.Host.Printing = true;
    EXPECT_TRUE(penColors(Painted(scaler), {0, 0, 50, 700}).empty());
}

TEST(ScalerPaint, TheIndicatorMarksItsPixelOnScreenOnly)
{
    TestScaler scaler;
    scaler.SetDateFormat("yyyy-mm-dd");
    scaler.SetIndicatorPixel(350);
    const auto marked = [&] {
        const auto calls = Those(Painted(scaler), [](const TCanvasCall &call) {
            return call.Pen.Color == clHighlight || call.Brush.Color == clHighlight;
        });
        return std::any_of(calls.begin(), calls.end(), [](const TCanvasCall &call) {
            return call.Rect.Left <= 350 && call.Rect.Right > 350 && call.Rect.Height() >= 45;
        });
    };
    EXPECT_TRUE(marked());
    EXPECT_EQ(FindText(Painted(scaler), "2001-01-04"), nullptr);
    scaler.SetIndicatorStyle(TIndicatorStyle::isColorfull);
    EXPECT_NE(FindText(Painted(scaler), "2001-01-04"), nullptr);
    for (const bool off : {false, true}) {
        scaler.Host.Printing = off;
        EXPECT_EQ(marked(), !off);
    }
    for (const bool on : {true, false}) {
        scaler.Host.Printing = false;
        scaler.SetIndicatorOn(on);
        EXPECT_EQ(marked(), on);
    }
    scaler.SetIndicatorOn(true);
    scaler.SetIndicatorStyle(TIndicatorStyle::isNone);
    EXPECT_FALSE(marked());
    scaler.SetIndicatorStyle(TIndicatorStyle::isNormal);
    scaler.SetIndicatorPixel(-3);
    EXPECT_EQ(scaler.IndicatorPixel(), TestScaler::kNoIndicator);
    EXPECT_FALSE(marked());
}

TEST(ScalerPaint, TheTimeOfTheIndicatorStaysWithinTheAxis)
{
    TestScaler scaler;
    scaler.SetRange(36892, 36893);
    scaler.SetDateFormat("yyyy-mm-dd");
    scaler.SetTimeFormat("hh:nn");
    scaler.SetIndicatorStyle(TIndicatorStyle::isColorfull);
    for (const int pixel : {0, 3, 350, 699}) {
        scaler.SetIndicatorPixel(pixel);
        const auto texts = Those(Painted(scaler), [](const TCanvasCall &call) {
            return call.Text.find("2001-01-01 ") == 0;
        });
        ASSERT_EQ(texts.size(), 1U) << pixel;
        EXPECT_GE(texts[0].Rect.Left, 0) << pixel;
        EXPECT_LE(texts[0].Rect.Right, 700) << pixel;
    }
}

TEST(ScalerPaint, APrintDrawsTheMarksAtItsOwnLength)
{
    TestScaler scaler;
    scaler.SetRange(36892, 36893);
    scaler.HideHours(18, 6);
    const int before = scaler.DateToPixel(36892.5);
    scaler.Host.Size.Width = 2100; // enlarged without notice
    scaler.Host.Printing = true;
    TRecordingCanvas canvas;
    scaler.DoThePaint(canvas, {0, 0, 2100, 45});
    EXPECT_NEAR(scaler.MinorPixels()[5], 3 * before, 3);
    scaler.Host.Printing = false;
    scaler.Host.Size.Width = 700;
    EXPECT_EQ(scaler.DateToPixel(36892.5), before); // without a paint
}

} // namespace
} // namespace korvane::test
