#include "Numbers.h"
#include "TestScaler.h"

#include <array>
#include <gtest/gtest.h>
#include <limits>

namespace korvane::test {
namespace {

constexpr TDateTime kMonday = 36892; // 2001-01-01
constexpr double kHour24 = 1 / 24.0;

TDateTime SpanOf(const TestScaler &scaler)
{
    return scaler.GetStop() - scaler.GetStart();
}

TEST(ScalerZoom, ANotchMultipliesTheScaleByTheZoomFactorAboutThePixel)
{
    constexpr struct
    {
        double Notches;
        double Factor;
        double Expected; // of the scale
    } kCases[] = {{1, 0.9, 0.9},
                  {-1, 0.9, 1 / 0.9},
                  {2, 0.5, 0.25},
                  {0.5, 0.25, 0.5},
                  {0, 0.9, 1},
                  {1, 1, 1},
                  {1, 1.25, 1.25},
                  {1, 0, 1},
                  {-1, 0, 1},
                  {3, -2, 1},
                  {1e9, 0.9, 1 / (7 * 1440.0)},
                  {std::numeric_limits<double>::quiet_NaN(), 0.9, 1}};
    for (const auto &[notches, factor, expected] : kCases) {
        for (const int pixel : {0, 200, 699}) {
            SCOPED_TRACE(testing::Message() << notches << " by " << factor << " at " << pixel);
            TestScaler scaler;
            scaler.SetZoomFactor(factor);
            const TDateTime date = scaler.PixelToDate(pixel);
            scaler.ZoomAround(notches, pixel);
            EXPECT_NEAR(scaler.GetScale() / (0.01 * expected), 1, 1e-5);
            EXPECT_NEAR(scaler.DateToPixel(date), pixel, 1);
        }
    }
}

TEST(ScalerZoom, EndsAtAMinuteAndAtTheWholeAxis)
{
    TestScaler scaler;
    for (int turn = 0; turn < 300; ++turn) {
        const double before = scaler.GetScale();
        scaler.ZoomAround(1, 350);
        ASSERT_LE(scaler.GetScale(), before);
    }
    EXPECT_NEAR(SpanOf(scaler), kMinute, 1e-8);
    const TDateTime start = scaler.GetStart();
    scaler.ZoomAround(1, 350);
    EXPECT_EQ(scaler.GetStart(), start);
    for (int turn = 0; turn < 400; ++turn) {
        scaler.ZoomAround(-1, 350);
    }
    EXPECT_EQ(scaler.GetStart(), 0);
    EXPECT_EQ(scaler.GetStop(), LatestStop());

    scaler.SetRange(kMonday, kMonday + kMinute / 6); // shorter than zooming gets
    scaler.ZoomAround(1, 350);
    EXPECT_NEAR(SpanOf(scaler), kMinute / 6, 1e-9);
}

TEST(ScalerZoom, HoldsThePixelOnAnAxisWithCutsToo)
{
    Numbers numbers;
    int cutAxes = 0;
    for (int round = 0; round < 200; ++round) {
        TestScaler scaler;
        const TDateTime start = kMonday + numbers.Real(8, 16) * kHour24;
        scaler.SetRange(start, start + numbers.Real(0.3, 3));
        scaler.HideHours(18, 6);
        const int pixel = static_cast<int>(numbers.Real(50, 650));
        const TDateTime date = scaler.PixelToDate(pixel);
        if (scaler.GetPassInfoFromDateTime(date).Hide) {
            continue;
        }
        cutAxes += scaler.HiddenSpan() > 0 ? 1 : 0;
        scaler.ZoomAround(numbers.Real(-4, 4), pixel);
        // A mark may lie half a step beside the cut, and a range that begins within one jumps.
        const double step = scaler.MinorStep() / scaler.GetScale();
        EXPECT_NEAR(scaler.DateToPixel(date), pixel, step + 1) << round;
    }
    EXPECT_GT(cutAxes, 30);
}

TEST(ScalerPan, MovesTheRangeAndKeepsItsSpan)
{
    TestScaler scaler;
    scaler.PanPixels(35);
    EXPECT_NEAR(scaler.GetStart(), kMonday + 0.35, 1e-9);
    scaler.PanPixels(-35.5); // parts of a pixel count
    EXPECT_NEAR(scaler.GetStart(), kMonday - 0.005, 1e-9);
    EXPECT_NEAR(SpanOf(scaler), 7, 1e-9);
    scaler.PanPixels(-1e12);
    EXPECT_EQ(scaler.GetStart(), 0);
    EXPECT_NEAR(SpanOf(scaler), 7, 1e-9);
    scaler.PanPixels(1e12);
    EXPECT_EQ(scaler.GetStop(), LatestStop());
    EXPECT_NEAR(SpanOf(scaler), 7, 1e-9);
}

TEST(ScalerPan, EndsBesideHiddenTime)
{
    TestScaler scaler;
    scaler.SetRange(kMonday + 17 * kHour24, kMonday + 17 * kHour24 + 0.5);
    scaler.HideHours(18, 6);
    const double hour = 1 / (scaler.GetScale() * 24); // pixels
    scaler.PanPixels(2 * hour);
    EXPECT_NEAR(scaler.GetStart(), kMonday + 1 + 6 * kHour24, 1e-6);
    EXPECT_FALSE(scaler.GetPassInfoFromDateTime(scaler.GetStart()).Hide);
    scaler.PanPixels(-hour);
    EXPECT_NEAR(scaler.GetStart(), kMonday + 18 * kHour24, 1e-6);
    EXPECT_FALSE(scaler.GetPassInfoFromDateTime(scaler.GetStart()).Hide);
}

TEST(ScalerPan, HiddenStretchesMeasureBackwardsAsForwards)
{
    const auto hours = [](double hour) { return static_cast<int>(hour * 3'600'000); };
    const std::array<TDateScalePass, 3> passes{
        {{.Active = true, .FromTime = 18 * kHour24, .ToTime = 6 * kHour24, .Hide = true},
         {.Active = true, .FromTime = 5 * kHour24, .ToTime = 7 * kHour24, .Hide = true},
         {.Active = true, .FromTime = 12 * kHour24, .ToTime = 13 * kHour24, .Hide = true}}};
    const TDayPattern pattern(passes, kScale1Hour);
    EXPECT_EQ(pattern.HiddenSince(hours(10)), 0);
    EXPECT_EQ(pattern.HiddenSince(hours(12)), 1);
    EXPECT_EQ(pattern.HiddenSince(hours(13)), hours(1) + 1);
    EXPECT_EQ(pattern.HiddenSince(hours(18)), 1);
    EXPECT_EQ(pattern.HiddenSince(hours(6.5)), hours(12.5) + 1); // since the evening before
    const TDateScalePass all{.Active = true, .FromTime = 0, .ToTime = 1, .Hide = true};
    EXPECT_EQ(TDayPattern({&all, 1}, kScale1Hour).HiddenSince(0), TDayPattern::kForever);
}

TEST(ScalerCommands, MoveByATenthAndByAPage)
{
    constexpr struct
    {
        TScalerCommand Command;
        TDateTime Start;
        TDateTime Span;
    } kCases[] = {
        {TScalerCommand::Earlier, kMonday - 0.7, 7},
        {TScalerCommand::Later, kMonday + 0.7, 7},
        {TScalerCommand::PageEarlier, kMonday - 6.3, 7},
        {TScalerCommand::PageLater, kMonday + 6.3, 7},
        {TScalerCommand::ZoomIn, kMonday + 0.35, 6.3},
        {TScalerCommand::ZoomOut, kMonday + 3.5 - 3.5 / 0.9, 7 / 0.9},
        {TScalerCommand::Today, 36892.4 - 3.5, 7},
    };
    for (const auto &[command, start, span] : kCases) {
        TestScaler scaler;
        scaler.Execute(command);
        EXPECT_NEAR(scaler.GetStart(), start, 0.011) << static_cast<int>(command);
        EXPECT_NEAR(SpanOf(scaler), span, 1e-9) << static_cast<int>(command);
    }
}

TEST(ScalerCommands, DoNothingOnAnAxisWithoutLengthOrTime)
{
    for (const bool inverted : {false, true}) {
        TestScaler scaler;
        scaler.SetLength(inverted ? 700 : 0);
        scaler.SetStop(inverted ? kMonday - 1 : kMonday + 7);
        for (int command = 0; command <= static_cast<int>(TScalerCommand::Today); ++command) {
            scaler.Execute(static_cast<TScalerCommand>(command));
        }
        scaler.ZoomBy(2, 5);
        scaler.StartStepUp();
        scaler.ScrollButtonPressed(nullptr);
        EXPECT_EQ(scaler.GetStart(), kMonday);
        EXPECT_EQ(SpanOf(scaler), inverted ? -1 : 7);
    }
}

TEST(ScalerFit, PeriodsAreThoseOfTheCalendar)
{
    TestScaler scaler; // days and weeks
    const TDateTime afternoon = kMonday + 2.7;
    EXPECT_EQ(scaler.PeriodAt(TScaleRow::Minor, afternoon),
              (TTimePeriod{kMonday + 2, kMonday + 3}));
    EXPECT_EQ(scaler.PeriodAt(TScaleRow::Major, afternoon), (TTimePeriod{kMonday, kMonday + 7}));
    scaler.SetStop(kMonday + 730); // months and quarters
    EXPECT_EQ(scaler.PeriodAt(TScaleRow::Minor, EncodeDate(2001, 2, 10)),
              (TTimePeriod{EncodeDate(2001, 2, 1), EncodeDate(2001, 3, 1)}));
    EXPECT_EQ(scaler.PeriodAt(TScaleRow::Major, EncodeDate(2001, 12, 31)),
              (TTimePeriod{EncodeDate(2001, 10, 1), EncodeDate(2002, 1, 1)}));
}

TEST(ScalerFit, ADoubleClickFillsTheAxisWithThePeriodOfItsRow)
{
    TestScaler scaler;
    scaler.DoubleClick(TMouseButton::mbLeft, {}, 250, 29); // the week
    EXPECT_EQ(scaler.GetStart(), kMonday);
    EXPECT_EQ(scaler.GetStop(), kMonday + 7);
    scaler.DoubleClick(TMouseButton::mbLeft, {}, 250, 30); // Wednesday
    EXPECT_EQ(scaler.GetStart(), kMonday + 2);
    EXPECT_EQ(scaler.GetStop(), kMonday + 3);
    EXPECT_FALSE(scaler.Dragging());
    scaler.SetRange(kMonday, kMonday + kMinute);
    scaler.DoubleClick(TMouseButton::mbLeft, {}, 250, 30); // ten seconds are too short
    EXPECT_NEAR(SpanOf(scaler), kMinute, 1e-9);

    scaler.Host.Size = {60, 700};
    scaler.SetHorizontal(false);
    scaler.SetRange(kMonday, kMonday + 14);
    scaler.DoubleClick(TMouseButton::mbLeft, {}, 39, 600);
    EXPECT_EQ(scaler.GetStart(), kMonday + 7);
    EXPECT_EQ(scaler.GetStop(), kMonday + 14);
}

TEST(ScalerFit, LeavesNoRoomForHiddenTime)
{
    TestScaler scaler;
    scaler.HideHours(18, 6);
    scaler.Fit({kMonday + 8 * kHour24, kMonday + 1 + 12 * kHour24});
    EXPECT_GT(scaler.HiddenSpan(), 0);
    EXPECT_EQ(scaler.DateToPixel(kMonday + 8 * kHour24), 0);
    EXPECT_NEAR(scaler.DateToPixel(kMonday + 1 + 12 * kHour24), 700, 3);
}

} // namespace
} // namespace korvane::test
