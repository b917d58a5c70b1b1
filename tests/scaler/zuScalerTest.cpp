#include "Numbers.h"
#include "TestScaler.h"
#include "support/RecordingCanvas.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <tuple>

namespace korvane::test {
namespace {

constexpr int kMaxPixel = std::numeric_limits<int>::max();
constexpr int kMinPixel = std::numeric_limits<int>::min();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(Scaler, IsBornShowingAWeekFromToday)
{
    HostHolder holder;
    holder.Host.Size = {50, 700};
    const TDateScalerCore scaler(holder.Host);
    EXPECT_EQ(scaler.GetStart(), EncodeDate(2001, 1, 1));
    EXPECT_EQ(scaler.GetStop(), EncodeDate(2001, 1, 8));
    EXPECT_FALSE(scaler.Horizontal());
    EXPECT_EQ(scaler.GetScaleLen(), 700);
    EXPECT_EQ(scaler.WeekPrefix() + scaler.QuarterPrefix() + scaler.WeekYearFormat(), " w  QYYYY");
    EXPECT_EQ(scaler.ZoomFactor(), 0.9);
    EXPECT_TRUE(scaler.MinorPixels().empty());
    EXPECT_EQ(scaler.MinorStepName(), "1 dag");
}

TEST(Scaler, RangeSettersClampAndIgnoreWhatChangesNothing)
{
    const TDateTime latest = EncodeDate(4000, 1, 1);
    const TDateTime late = EncodeDate(5000, 1, 1);
    for (const auto &[set, start, stop] : {std::tuple(36900.0, 36900.0, 36900.0),
                                           {-5.0, 0.0, -5.0},
                                           {-kInfinity, 0.0, 36899.0},
                                           {late, late, latest},
                                           {kInfinity, 36892.0, latest},
                                           {kNaN, 36892.0, 36899.0}}) {
        TestScaler started;
        started.SetStart(set);
        EXPECT_EQ(started.GetStart(), start) << set;
        TestScaler stopped;
        stopped.SetStop(set);
        EXPECT_EQ(stopped.GetStop(), stop) << set;
    }

    TestScaler scaler;
    scaler.SetRange(0, latest);
    scaler.StopStep();
    scaler.Host.Refreshes = 0;
    scaler.SetStart(-5);
    scaler.SetStart(0);
    scaler.SetStop(latest + 100);
    EXPECT_FALSE(scaler.ChangePending());
    EXPECT_EQ(scaler.Host.Refreshes, 0);
}

TEST(Scaler, ScaleIsDaysPerPixelAndNeverNegative)
{
    TestScaler scaler;
    EXPECT_DOUBLE_EQ(scaler.GetScale(), 0.01);
    EXPECT_DOUBLE_EQ(scaler.PixelLenToDate(15), 0.15);
    EXPECT_DOUBLE_EQ(scaler.ScrollStep(), 0.1);
    scaler.SetStop(scaler.GetStart() - 1);
    EXPECT_EQ(scaler.GetScale(), 0);
    scaler.SetStop(scaler.GetStart() + 1);
    scaler.SetLength(0);
    EXPECT_EQ(scaler.GetScale(), 0);
    EXPECT_TRUE(scaler.PrimaryMarks().empty());
}

TEST(Scaler, SettingAScaleKeepsStartAndAtLeastAMinute)
{
    TestScaler scaler;
    scaler.SetScale(0.02);
    EXPECT_EQ(scaler.GetStart(), 36892);
    EXPECT_DOUBLE_EQ(scaler.GetStop(), 36906);
    for (const double tooSmall : {0.0, -1.0, kMinute / 701}) {
        scaler.SetScale(tooSmall);
        EXPECT_NEAR(scaler.GetStop() - scaler.GetStart(), 2 * kMinute, 1e-9) << tooSmall;
    }
}

TEST(Scaler, ZoomingAroundADateKeepsItUnderThePixel)
{
    TestScaler scaler;
    scaler.SetCenterScale(0.05, 36895, 200);
    EXPECT_DOUBLE_EQ(scaler.GetStart(), 36885);
    EXPECT_DOUBLE_EQ(scaler.GetScale(), 0.05);
    EXPECT_EQ(scaler.DateToPixel(36895), 200);

    scaler.SetCenterScale(1000, 36895, 200); // would begin before the axis does
    EXPECT_EQ(scaler.GetStart(), 0);

    TestScaler cut;
    cut.SetRange(36892.5, 36893.5);
    cut.HideHours(18, 6);
    const TDateTime nextNoon = 36893.5;
    const int pixel = cut.DateToPixel(nextNoon);
    ASSERT_LT(pixel, 350); // the night between lies in no pixels
    cut.SetCenterScale(cut.GetScale() * 0.9, nextNoon, pixel);
    EXPECT_NEAR(cut.DateToPixel(nextNoon), pixel, 1);
}

TEST(Scaler, LinearMappingRoundsToTheNearestPixel)
{
    TestScaler scaler;
    const TDateTime start = scaler.GetStart();
    for (const auto &[days, pixel] : {std::pair(0.0, 0), {3.5, 350}, {-1.0, -100}, {7.0, 700}}) {
        EXPECT_EQ(scaler.DateToPixel(start + days), pixel);
        EXPECT_DOUBLE_EQ(scaler.PixelToDate(pixel), pixel < 0 ? start : start + days);
    }
    // Ties go to the even pixel.
    scaler.SetRange(36892, 36892 + 1400);
    EXPECT_EQ(scaler.DateToPixel(36893), 0);
    EXPECT_EQ(scaler.DateToPixel(36895), 2);
}

TEST(Scaler, MappingOfDegenerateRangesHasItsSentinels)
{
    TestScaler empty;
    empty.SetStop(empty.GetStart());
    EXPECT_EQ(empty.DateToPixel(36892), -1);
    EXPECT_EQ(empty.DateToPixel(40000), -1);
    EXPECT_EQ(empty.TimeToPixel(0.5), 0);
    EXPECT_EQ(empty.GetScale(), 0);
    EXPECT_EQ(empty.PixelToDate(700), 36892);

    TestScaler flat;
    flat.SetLength(0);
    EXPECT_EQ(flat.DateToPixel(36895), 0);
    EXPECT_EQ(flat.PixelToDate(0), flat.GetStart());
    EXPECT_EQ(flat.PixelToDate(50), flat.GetStart());

    TestScaler inverted;
    inverted.SetStop(inverted.GetStart() - 7);
    EXPECT_EQ(inverted.DateToPixel(36891), 100);
}

TEST(Scaler, PixelsSaturate)
{
    TestScaler scaler;
    for (const bool cut : {false, true}) {
        if (cut) {
            scaler.SetRange(36892, 36893);
            scaler.HideHours(18, 6);
            ASSERT_GT(scaler.HiddenSpan(), 0);
        }
        EXPECT_EQ(scaler.DateToPixel(1e300), kMaxPixel);
        EXPECT_EQ(scaler.DateToPixel(-1e300), kMinPixel);
        EXPECT_EQ(scaler.DateToPixel(kInfinity), kMaxPixel);
        EXPECT_EQ(scaler.DateToPixel(-kInfinity), kMinPixel);
        scaler.DateToPixel(kNaN); // any pixel, no fault
        EXPECT_TRUE(std::isfinite(scaler.PixelToDate(kMaxPixel)));
        EXPECT_TRUE(std::isfinite(scaler.PixelToDate(kMinPixel)));
    }
}

TEST(Scaler, OneSidedMappingOfACutAxisRunsThroughTheOuterMarks)
{
    TestScaler scaler;
    scaler.SetRange(36892, 36893);
    scaler.HideHours(18, 6);
    const TScaleMark &first = scaler.PrimaryMarks().front();
    const TScaleMark &last = scaler.PrimaryMarks().back();
    ASSERT_NEAR(first.Date, 36892 + 7 * kHour, 1e-9); // the bounds of a pass belong to it
    ASSERT_EQ(first.Pixel, 0);

    // After the last mark: from date 0 at pixel -10 through that mark.
    const auto after = [&](TDateTime date) {
        return std::nearbyint(date * (last.Pixel + 10.0) / last.Date) - 10;
    };
    EXPECT_EQ(scaler.DateToPixel(last.Date), after(last.Date));
    EXPECT_EQ(scaler.DateToPixel(last.Date + 1000), after(last.Date + 1000));

    // Before the first mark: from that mark through the end of the axis.
    const TDateTime end = scaler.GetStop() + scaler.HiddenSpan();
    const TDateTime before = 36890;
    EXPECT_EQ(scaler.DateToPixel(before),
              std::nearbyint((before - first.Date) * 700 / (end - first.Date)));

    // Pixels before the first mark instead begin with Start at pixel 0, where this mark is too.
    EXPECT_EQ(scaler.PixelToDate(-10), scaler.GetStart());
}

TEST(Scaler, PixelsPastTheLastMarkLieBehindItAndBeforeNothing)
{
    TestScaler scaler;
    const TScaleMark *const marks = scaler.PrimaryMarks().data();
    const auto between = [&](const TScaleMarkPair &pair) { return std::pair(pair.A, pair.B); };
    using TPair = std::pair<const TScaleMark *, const TScaleMark *>;
    EXPECT_EQ(between(scaler.FindScaleMarksFromPixel(100'000)),
              TPair(&scaler.PrimaryMarks().back(), nullptr));
    EXPECT_EQ(between(scaler.FindScaleMarksFromPixel(marks[2].Pixel)), TPair(marks + 2, marks + 3));
    EXPECT_EQ(between(scaler.FindScaleMarksFromDate(marks[0].Date - 1)), TPair(nullptr, marks));
    EXPECT_EQ(between(scaler.FindScaleMarksFromDate(marks[1].Date + 0.5)),
              TPair(marks + 1, marks + 2));
}

TEST(Scaler, TimesOfDayMapWithoutTheirDates)
{
    TestScaler scaler;
    scaler.SetRange(36892.25, 36893.25);
    EXPECT_EQ(scaler.TimeToPixel(0.25), 0);
    EXPECT_EQ(scaler.TimeToPixel(50'000.75), 350);
    EXPECT_EQ(scaler.TimeToPixel(0), -175);
}

/// Maps there and back between every two marks that follow each other.
void CheckRoundTrips(TestScaler &scaler, Numbers &numbers)
{
    const bool cut = scaler.HiddenSpan() != 0;
    const TScaleMarkList &marks = scaler.PrimaryMarks();
    for (std::size_t i = 0; i + 1 < marks.size(); ++i) {
        const TScaleMark &a = marks[i];
        const TScaleMark &b = marks[i + 1];
        ASSERT_LT(a.Date, b.Date);
        ASSERT_LT(a.Pixel, b.Pixel);
        // Without hidden time dates map by the axis, pixels by the marks with their rounded pixels.
        const double tolerance = cut ? 0 : 1;
        for (int pixel = a.Pixel; pixel < b.Pixel; ++pixel) {
            ASSERT_NEAR(scaler.DateToPixel(scaler.PixelToDate(pixel)), pixel, tolerance);
        }
        const TDateTime date = numbers.Real(a.Date, b.Date);
        const TDateTime perPixel = (b.Date - a.Date) / (b.Pixel - a.Pixel);
        const int pixel = scaler.DateToPixel(date);
        if (pixel < b.Pixel && pixel >= a.Pixel) {
            ASSERT_NEAR(scaler.PixelToDate(pixel), date, perPixel * (0.501 + tolerance));
        }
    }
}

TEST(Scaler, DatesAndPixelsAreInverseBetweenMarks)
{
    Numbers numbers;
    int cutAxes = 0;
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        TestScaler scaler;
        scaler.SetLength(numbers.Int(50, 3000));
        const TDateTime start = numbers.Real(20'000, 60'000);
        const TDateTime span = std::exp(numbers.Real(std::log(kMinute), std::log(20 * kYear)));
        for (int pass = 0; pass < round % 4; ++pass) {
            TDateScalePass &window = scaler.GetPassList(pass);
            window.Active = true;
            window.Hide = numbers.Int(0, 3) > 0;
            window.FromTime = numbers.Real(0, 1);
            window.ToTime = window.FromTime + numbers.Real(0, 0.3);
            window.MaxStep = kScale1Hour;
        }
        scaler.SetRange(start, start + span);
        cutAxes += scaler.HiddenSpan() > 0 ? 1 : 0;
        CheckRoundTrips(scaler, numbers);
    }
    EXPECT_GT(cutAxes, 20);
}

TEST(Scaler, TheModifiersOfThePressDecideBetweenZoomAndPan)
{
    TestScaler scaler;
    const TShiftState ctrl{.Ctrl = true};
    EXPECT_TRUE(scaler.RescaleNotPan(ctrl));
    scaler.m_savedShift = ctrl;
    EXPECT_FALSE(scaler.RescaleNotPan({}));
    scaler.SetRescaleWithCtrl(true);
    EXPECT_TRUE(scaler.RescaleNotPan({}));
    scaler.m_savedShift = {};
    EXPECT_FALSE(scaler.RescaleNotPan(ctrl));
}

TEST(ScalerChange, SeveralChangesAreAnnouncedOnceByThePaint)
{
    TestScaler scaler;
    TRecordingCanvas canvas;
    const TRect rect{0, 0, 700, 45};
    int heard = 0;
    TObject *sender = nullptr;

    scaler.DoThePaint(canvas, rect);
    EXPECT_EQ(scaler.Host.PostedChanges, 0); // nobody listens, it stays pending
    EXPECT_TRUE(scaler.ChangePending());

    scaler.OnChange = [&](TObject *from) {
        ++heard;
        sender = from;
    };
    scaler.SetStart(36890);
    scaler.SetStart(36891);
    EXPECT_EQ(scaler.Host.PostedChanges, 0);
    scaler.DoThePaint(canvas, rect);
    scaler.DoThePaint(canvas, rect);
    EXPECT_EQ(scaler.Host.PostedChanges, 1);
    EXPECT_FALSE(scaler.ChangePending());
    EXPECT_EQ(heard, 0);
    scaler.CallChange();
    EXPECT_EQ(heard, 1);
    EXPECT_EQ(sender, &scaler);

    scaler.Resize();
    scaler.DoThePaint(canvas, rect);
    EXPECT_EQ(scaler.Host.PostedChanges, 2);
}

TEST(ScalerChange, NothingIsAnnouncedWithinAZoomDragOrAfterAStoppedStep)
{
    TestScaler scaler;
    TRecordingCanvas canvas;
    const TRect rect{0, 0, 700, 45};
    scaler.OnChange = [](TObject *) {};
    scaler.m_interaction.Interacting = true;
    scaler.SetStart(36890);
    scaler.DoThePaint(canvas, rect);
    EXPECT_EQ(scaler.Host.PostedChanges, 0);
    scaler.m_interaction.Interacting = false;
    scaler.DoThePaint(canvas, rect);
    EXPECT_EQ(scaler.Host.PostedChanges, 1);

    scaler.SetStart(36891);
    scaler.m_interaction = {.Interacting = true, .Dragging = true, .StepUpPressed = true};
    scaler.StopStep();
    EXPECT_FALSE(scaler.Dragging() || scaler.Interacting() || scaler.StepUpPressed());
    scaler.DoThePaint(canvas, rect);
    EXPECT_EQ(scaler.Host.PostedChanges, 1);
}

TEST(ScalerChange, TheHandlerMayDestroyTheScalerOrDropItself)
{
    auto *scaler = new TestScaler;
    scaler->OnChange = [&](TObject *) {
        scaler->OnChange = nullptr;
        delete scaler;
        scaler = nullptr;
    };
    scaler->CallChange();
    EXPECT_EQ(scaler, nullptr);
}

TEST(ScalerUpdate, MarksAreComputedOnceAtTheEndOfTheOutermostBracket)
{
    TestScaler scaler;
    int labels = 0;
    scaler.OnUserStringShort = [&](TDateTime, TDateTime, std::string &, TScalerFont) { ++labels; };
    scaler.BeginUpdate();
    scaler.BeginUpdate();
    scaler.SetStart(36890);
    scaler.SetStop(36920);
    scaler.SetCenterScale(0.02, 36900, 100);
    scaler.SetDateFormat("yy");
    scaler.Resize();
    scaler.EndUpdate();
    EXPECT_EQ(labels, 0);
    EXPECT_EQ(scaler.PrimaryMarks().front().Date, 36892);
    scaler.EndUpdate();
    EXPECT_EQ(static_cast<std::size_t>(labels), scaler.PrimaryMarks().size());

    scaler.EndUpdate(); // one too many
    labels = 0;
    scaler.SetStart(36880);
    EXPECT_GT(labels, 0);
}

} // namespace
} // namespace korvane::test
