#include "TestScaler.h"
#include "support/RecordingCanvas.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace korvane::test {
namespace {

constexpr TDateTime kMonday = 36892; // 2001-01-01
constexpr TDateTime kSecond = 1 / 86400.0;
constexpr auto kLeft = TMouseButton::mbLeft;
constexpr auto kRight = TMouseButton::mbRight;
constexpr TShiftState kPlain{};
constexpr TShiftState kCtrl{.Ctrl = true};

/// Painted once, so that its buttons have places.
struct PaintedScaler : TestScaler
{
    PaintedScaler() { Paint(); }

    void Paint()
    {
        TRecordingCanvas canvas;
        DoThePaint(canvas, {0, 0, Host.Size.Width, Host.Size.Height});
    }
    void HoldUp(int x = 690) { MouseDown(kLeft, kPlain, x, 10), Host.Pointer = {x, 10}; }
    void Tick() { ScrollButtonPressed(nullptr); }
    TDateTime Span() const { return GetStop() - GetStart(); }
};

TEST(ScalerDrag, ZoomsByOnePerCentPerPixelAboutThePressedInstant)
{
    constexpr struct
    {
        int Delta;
        double Scale;
    } kCases[] = {
        {10, 0.011},  {-10, 0.009}, {100, 0.02}, {-99, 0.0001}, {-100, 0.01 /* zero is ignored */},
        {-150, 0.01}, {0, 0.01}};
    for (const bool horizontal : {true, false}) {
        for (const auto &[delta, scale] : kCases) {
            SCOPED_TRACE(testing::Message() << "by " << delta << " horizontal " << horizontal);
            PaintedScaler scaler;
            scaler.Host.Size = {700, 700};
            scaler.SetHorizontal(horizontal);
            const auto at = [&](int along, int across) {
                return horizontal ? TPoint{along, across} : TPoint{across, along};
            };
            const TDateTime date = scaler.PixelToDate(250);
            scaler.MouseDown(kRight, kPlain, at(250, 30).X, at(250, 30).Y);
            EXPECT_TRUE(scaler.Dragging());
            EXPECT_FALSE(scaler.Interacting());
            // The way there, and what is across the axis, do not matter.
            scaler.MouseMove(kPlain, at(255, 30).X, at(255, 30).Y);
            scaler.MouseMove(kCtrl, at(250 + delta, 90).X, at(250 + delta, 90).Y);
            EXPECT_TRUE(scaler.Interacting());
            const bool ignored = delta == 0 || delta <= -100;
            EXPECT_NEAR(scaler.GetScale(), ignored ? 0.0105 : scale, 1e-9);
            EXPECT_NEAR(scaler.DateToPixel(date), 250, 1);
            scaler.MouseUp(kRight, kPlain, 0, 0);
            EXPECT_FALSE(scaler.Interacting() || scaler.Dragging());
            EXPECT_EQ(scaler.Host.TakenFocus, 1);
        }
    }
}

TEST(ScalerDrag, TheLeftButtonHoldsTheNearestCalendarBoundary)
{
    PaintedScaler scaler; // a mark per day
    scaler.MouseDown(kLeft, kPlain, 280, 30);
    scaler.MouseMove(kPlain, 330, 30);
    EXPECT_EQ(scaler.DateToPixel(kMonday + 3), 280); // Wednesday afternoon rounds to Thursday
    EXPECT_NEAR(scaler.GetScale(), 0.015, 1e-9);
}

TEST(ScalerDrag, PansLikeAJoystickWithCtrl)
{
    for (const bool exchanged : {false, true}) {
        PaintedScaler scaler;
        scaler.SetRescaleWithCtrl(exchanged);
        scaler.MouseDown(kLeft, exchanged ? kPlain : kCtrl, 300, 30);
        for (int moves = 1; moves <= 3; ++moves) {
            scaler.MouseMove(kPlain, 305, 30);
            EXPECT_NEAR(scaler.GetStart(), kMonday - moves * 0.05, 1e-9);
            EXPECT_NEAR(scaler.Span(), 7, 1e-9);
        }
        EXPECT_FALSE(scaler.Interacting());
        scaler.OnChange = [](TObject *) {};
        scaler.Paint();
        EXPECT_EQ(scaler.Host.PostedChanges, 1); // panning is told after each paint
    }
    // Neither bound changes the span.
    PaintedScaler scaler;
    for (const auto &[start, x] : {std::pair{0.5, 699}, {LatestStop() - 7.5, 0}}) {
        scaler.SetRange(start, start + 7);
        scaler.MouseDown(kRight, kCtrl, 350, 30);
        scaler.MouseMove(kCtrl, x, 30);
        EXPECT_EQ(scaler.GetStart(), start < 1 ? 0 : LatestStop() - 7);
        EXPECT_EQ(scaler.Span(), 7);
    }
}

TEST(ScalerDrag, IsAnnouncedByTheReleaseOfAZoom)
{
    PaintedScaler scaler;
    scaler.OnChange = [](TObject *) {};
    scaler.MouseDown(kLeft, kPlain, 300, 30);
    scaler.MouseMove(kPlain, 310, 30);
    scaler.Paint();
    EXPECT_EQ(scaler.Host.PostedChanges, 0);
    const int refreshes = scaler.Host.Refreshes;
    scaler.MouseUp(kLeft, kPlain, 310, 30);
    EXPECT_GT(scaler.Host.Refreshes, refreshes);
    scaler.Paint();
    EXPECT_EQ(scaler.Host.PostedChanges, 1);
}

TEST(ScalerDrag, EscapeBringsTheRangeBack)
{
    PaintedScaler scaler;
    for (const TShiftState &shift : {kPlain, kCtrl}) {
        scaler.MouseDown(kLeft, shift, 300, 30);
        scaler.MouseMove(shift, 340, 30);
        EXPECT_NE(scaler.Span() + scaler.GetStart(), kMonday + 7);
        scaler.CancelInteraction();
        EXPECT_EQ(scaler.GetStart(), kMonday);
        EXPECT_EQ(scaler.GetStop(), kMonday + 7);
        scaler.MouseMove(shift, 350, 30); // the button is still down
        EXPECT_EQ(scaler.GetStart(), kMonday);
        scaler.MouseUp(kLeft, shift, 350, 30);
    }
    scaler.SetStart(kMonday + 1);
    scaler.CancelInteraction(); // nothing to take back
    EXPECT_EQ(scaler.GetStart(), kMonday + 1);
}

TEST(ScalerDrag, TheMiddleButtonOnlyTakesTheFocus)
{
    PaintedScaler scaler;
    scaler.MouseDown(TMouseButton::mbMiddle, kPlain, 690, 10);
    scaler.MouseMove(kPlain, 400, 10);
    EXPECT_FALSE(scaler.Dragging() || scaler.Host.StepTimerOn);
    EXPECT_EQ(scaler.Span(), 7);
    EXPECT_EQ(scaler.Host.TakenFocus, 1);
}

TEST(ScalerDrag, AFailureEndsItAsTheReleaseDoes)
{
    PaintedScaler scaler;
    scaler.MouseDown(kLeft, kPlain, 690, 10);
    EXPECT_TRUE(scaler.Host.StepTimerOn);
    scaler.Host.Pointer = {690, 10};
    scaler.OnUserStringShort = [](TDateTime, TDateTime, std::string &, TScalerFont) {
        throw std::runtime_error("no such label");
    };
    EXPECT_EQ(ErrorOf([&] { scaler.Tick(); }), "Scale error:no such label");
    EXPECT_FALSE(scaler.Host.StepTimerOn || scaler.Dragging() || scaler.StepUpPressed());
    EXPECT_EQ(scaler.Span(), 1);
    scaler.MouseMove(kPlain, 400, 10);
    EXPECT_EQ(scaler.Span(), 1);
}

TEST(ScalerSteps, GrowWithTheTimeThatAButtonIsHeld)
{
    constexpr struct
    {
        double Seconds;
        int Factor;
    } kCases[] = {{0, 1}, {1.999, 1}, {2, 3}, {4.999, 3}, {5, 21}, {6, 21}, {3600, 21}};
    for (const auto &[seconds, factor] : kCases) {
        for (const bool up : {true, false}) {
            SCOPED_TRACE(testing::Message() << seconds << " s, up " << up);
            PaintedScaler scaler;
            scaler.HoldUp(up ? 690 : 10);
            EXPECT_EQ(scaler.StepUpPressed(), up);
            EXPECT_EQ(scaler.StepDownPressed(), !up);
            EXPECT_TRUE(scaler.Host.StepTimerOn);
            scaler.MouseMove(kPlain, up ? 695 : 15, 10); // no drag while a button is held
            EXPECT_EQ(scaler.GetStart(), kMonday);
            scaler.Host.CurrentTime += seconds * kSecond;
            const TDateTime way = (up ? 1 : -1) * 0.15 * factor;
            scaler.Tick();
            scaler.Tick();
            EXPECT_NEAR(scaler.GetStart(), kMonday + 2 * way, 1e-9);
            EXPECT_NEAR(scaler.Span(), 7, 1e-9);
        }
    }
}

TEST(ScalerSteps, EndOutsideTheButtonsWithoutANotification)
{
    PaintedScaler scaler;
    scaler.OnChange = [](TObject *) {};
    scaler.Paint();
    scaler.Host.PostedChanges = 0;
    scaler.HoldUp();
    scaler.Tick();
    scaler.Host.Pointer = {10, 10}; // the other one will do
    scaler.Tick();
    EXPECT_NEAR(scaler.GetStart(), kMonday + 0.3, 1e-9);
    scaler.Host.Pointer = {690, 20}; // just below
    scaler.Tick();
    EXPECT_NEAR(scaler.GetStart(), kMonday + 0.3, 1e-9);
    EXPECT_FALSE(scaler.Host.StepTimerOn || scaler.Dragging() || scaler.StepUpPressed());
    scaler.Paint();
    EXPECT_EQ(scaler.Host.PostedChanges, 0);
    scaler.Tick(); // one that was already on its way
    EXPECT_NEAR(scaler.GetStart(), kMonday + 0.3, 1e-9);
}

TEST(ScalerSteps, BegunElsewhereGoOnUntilTheyAreStopped)
{
    PaintedScaler scaler;
    scaler.Host.CurrentTime += 1;
    scaler.StartStepUp();
    scaler.Tick();
    EXPECT_NEAR(scaler.GetStart(), kMonday + 0.15, 1e-9);
    scaler.Host.CurrentTime += 2 * kSecond;
    scaler.StartStepUp(); // every move of the mouse says so
    scaler.Tick();
    EXPECT_NEAR(scaler.GetStart(), kMonday + 0.6, 1e-9);
    scaler.StartStepDown(); // the other way it begins anew
    scaler.Tick();
    EXPECT_NEAR(scaler.GetStart(), kMonday + 0.45, 1e-9);
    EXPECT_FALSE(scaler.StepUpPressed());
    scaler.StopStep();
    EXPECT_FALSE(scaler.Host.StepTimerOn || scaler.StepDownPressed() || scaler.ChangePending());
}

TEST(ScalerSteps, StopAtEitherBoundAndKeepTheSpan)
{
    for (const bool up : {true, false}) {
        PaintedScaler scaler;
        const TDateTime start = up ? LatestStop() - 7.2 : 0.2;
        scaler.SetRange(start, start + 7);
        scaler.HoldUp(up ? 690 : 10);
        scaler.Tick();
        scaler.Tick();
        const TDateTime bound = up ? LatestStop() - 7 : 0;
        EXPECT_EQ(scaler.GetStart(), bound);
        EXPECT_EQ(scaler.Span(), 7);
        const int refreshes = scaler.Host.Refreshes;
        scaler.Tick();
        EXPECT_EQ(scaler.Host.Refreshes, refreshes); // nothing is left to do
    }
}

TEST(ScalerSteps, SkipHiddenTimeInWholeSteps)
{
    constexpr double kHour24 = 1 / 24.0;
    for (const double startHour : {12.1, 15.3, 17.9}) {
        for (const bool up : {true, false}) {
            SCOPED_TRACE(testing::Message() << startHour << " up " << up);
            PaintedScaler scaler;
            scaler.SetRange(kMonday + startHour * kHour24, kMonday + startHour * kHour24 + 0.5);
            scaler.HideHours(18, 6);
            const TDateTime step = (up ? 1 : -1) * scaler.GetScrollStep();
            (up ? scaler.StartStepUp() : scaler.StartStepDown());
            TDateTime plain = scaler.GetStart();
            for (int tick = 0; tick < 200; ++tick) {
                do {
                    plain += step;
                } while (scaler.GetPassInfoFromDateTime(plain).Hide);
                scaler.Tick();
                ASSERT_NEAR(scaler.GetStart(), plain, 1e-7) << tick;
            }
            EXPECT_GT(std::abs(plain - kMonday), 1);
        }
    }
}

TEST(ScalerSteps, ThatNeverLeaveTheHiddenTimeEndBesideIt)
{
    PaintedScaler scaler;
    scaler.SetLength(1500);
    scaler.SetRange(kMonday + 0.5, kMonday + 100.5); // a step is a day
    scaler.HideHours(11, 13, kYear);
    scaler.StartStepUp();
    scaler.Tick();
    EXPECT_FALSE(scaler.GetPassInfoFromDateTime(scaler.GetStart()).Hide);
    EXPECT_GT(scaler.GetStart(), kMonday + 1);
    scaler.GetPassList(0).FromTime = 0; // everything
    scaler.GetPassList(0).ToTime = 1;
    EXPECT_FALSE(ErrorOf([&] { scaler.Tick(); }).empty());
    EXPECT_FALSE(scaler.Host.StepTimerOn);
}

TEST(ScalerPointer, TellsWhatAPressWouldDo)
{
    PaintedScaler scaler;
    scaler.MouseMove(kPlain, 300, 30);
    EXPECT_EQ(scaler.Host.Cursor, TScalerCursor::Zoom);
    EXPECT_EQ(scaler.IndicatorPixel(), 300);
    scaler.MouseMove(kCtrl, 301, 30);
    EXPECT_EQ(scaler.Host.Cursor, TScalerCursor::Pan);
    scaler.MouseMove(kPlain, 690, 10);
    EXPECT_EQ(scaler.Host.Cursor, TScalerCursor::Button);
    EXPECT_EQ(scaler.IndicatorPixel(), TestScaler::kNoIndicator); // the button stays in sight
    scaler.MouseDown(kLeft, kCtrl, 300, 30);
    scaler.MouseMove(kPlain, 10, 10); // what has begun goes on
    EXPECT_EQ(scaler.Host.Cursor, TScalerCursor::Pan);
    scaler.MouseLeave();
    EXPECT_EQ(scaler.IndicatorPixel(), TestScaler::kNoIndicator);
}

} // namespace
} // namespace korvane::test
