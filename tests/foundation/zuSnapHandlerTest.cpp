#include "foundation/zuDateUtils.h"
#include "foundation/zuGraphStuff.h"

#include <gtest/gtest.h>
#include <random>

using namespace korvane;

namespace {

constexpr TDateTime kSecond = 1.0 / 86400;
constexpr TDateTime kMinute = 60 * kSecond;
constexpr TDateTime kHour = 60 * kMinute;
constexpr TDateTime kDate = 40000;

TDateTime At(int hour, int minute, int second = 0)
{
    return kDate + EncodeTime(hour, minute, second, 0);
}

TEST(SnapHandler, RoundsEachEndToItsGrid)
{
    struct Case
    {
        const char *What;
        TSnapHandler Snap;
        TDateTime Start, Stop, SnappedStart, SnappedStop;
    };
    TSnapHandler coarse;
    coarse.ScreenSnap = 12 * kMinute;
    TSnapHandler sevenHours;
    sevenHours.StopSnapStep = sevenHours.StartSnapStep = 7 * kHour;
    TSnapHandler startOnly;
    startOnly.SnapStop = false;
    TSnapHandler stopOnly;
    stopOnly.SnapStart = false;
    stopOnly.ScreenSnap = 10 * kMinute;
    TSnapHandler noSteps;
    noSteps.StartSnapStep = 0;
    noSteps.StopSnapStep = -1;
    const Case cases[] = {
        {"down and up", {}, At(10, 7), At(10, 57, 40), At(10, 5), At(10, 58)},
        {"up and down", {}, At(10, 8), At(10, 57, 20), At(10, 10), At(10, 57)},
        {"halves to even", {}, At(0, 12, 30), At(1, 0, 30), At(0, 10), At(1, 0)},
        {"screen grid 10 and 12 minutes", coarse, At(10, 6), At(10, 55), At(10, 10), At(11, 0)},
        {"a step that does not divide the day", sevenHours, At(6, 0), At(23, 0), At(7, 0),
         At(21, 0)},
        {"into the next day", {}, At(10, 0), At(23, 59, 50), At(10, 0), kDate + 1},
        {"crossing at the start", {}, At(10, 3), At(10, 4), At(10, 5), At(10, 5)},
        {"the free stop holds", startOnly, At(10, 3), At(10, 4), At(10, 4), At(10, 4)},
        {"the free start holds", stopOnly, At(10, 2), At(10, 4), At(10, 2), At(10, 2)},
        {"no steps", noSteps, At(10, 3, 7), At(10, 4, 9), At(10, 3, 7), At(10, 4, 9)},
    };
    for (const Case &c : cases) {
        TDateTime start = c.Start;
        TDateTime stop = c.Stop;
        c.Snap.Snap(start, stop);
        EXPECT_NEAR(start, c.SnappedStart, kSecond / 1000) << c.What;
        EXPECT_NEAR(stop, c.SnappedStop, kSecond / 1000) << c.What;
    }
}

TEST(SnapHandler, MovesKeepTheLengthUnlessToldToStretch)
{
    struct Case
    {
        bool SnapStart, SnapStop, Stretch;
        TDateTime Stop, MovedStart, MovedStop;
    };
    const Case cases[] = {
        {true, true, false, At(11, 3, 20), At(10, 5), At(11, 5, 20)},
        {true, true, true, At(11, 3, 20), At(10, 5), At(11, 3)},
        {true, true, false, At(10, 4), At(10, 5), At(10, 6)}, // shorter than its way to the grid
        {true, false, false, At(10, 4), At(10, 5), At(10, 6)},
        {false, true, false, At(11, 3, 20), At(10, 3), At(11, 3, 20)},
        {false, true, true, At(11, 3, 20), At(10, 3), At(11, 3)},
    };
    for (const Case &c : cases) {
        TSnapHandler snap;
        snap.SnapStart = c.SnapStart;
        snap.SnapStop = c.SnapStop;
        snap.StretchOnMove = c.Stretch;
        TDateTime start = At(10, 3);
        TDateTime stop = c.Stop;
        snap.SnapMove(start, stop);
        EXPECT_NEAR(start, c.MovedStart, kSecond / 1000) << &c - cases;
        EXPECT_NEAR(stop, c.MovedStop, kSecond / 1000) << &c - cases;
    }
}

TEST(SnapHandler, AShiftByMoreThanHalfADayBecomesWholeDays)
{
    const std::pair<double, double> hours[] = {{11, 11},   {12, 12},   {13, 24},  {-13, -24},
                                               {-12, -12}, {35, 24},   {37, 48},  {0, 0},
                                               {60.5, 72}, {-40, -48}, {83.9, 72}};
    for (const auto &[shift, result] : hours) {
        TDateTime start = At(9, 0) + shift * kHour;
        TDateTime stop = At(17, 30) + shift * kHour;
        TSnapHandler::SnapMoveTo24HIfMoveOver12H(start, stop, At(9, 0), At(17, 30));
        EXPECT_NEAR(start, At(9, 0) + result * kHour, kSecond / 1000) << shift;
        EXPECT_NEAR(stop, At(17, 30) + result * kHour, kSecond / 1000) << shift;
    }
    TDateTime start = At(9, 0) + 13 * kHour;
    TDateTime stop = At(17, 30);
    TSnapHandler::SnapMoveTo24HIfMoveOver12H(start, stop, At(9, 0), At(17, 30));
    EXPECT_NEAR(start, At(22, 0), kSecond) << "one end alone has moved";
}

TEST(SnapHandler, NeverInvertsNorDriftsByMoreThanHalfAGrid)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> time(0, 3);
    std::uniform_real_distribution<double> step(-0.01, 0.4);
    for (int i = 0; i < 20'000; ++i) {
        TSnapHandler snap;
        snap.SnapStart = i % 3 != 0;
        snap.SnapStop = i % 5 != 0;
        snap.StartSnapStep = step(random);
        snap.StopSnapStep = step(random);
        snap.ScreenSnap = step(random);
        const TDateTime from = kDate + time(random);
        const TDateTime to = from + time(random) * (i % 2 == 0 ? 1 : 0.01);
        TDateTime start = from;
        TDateTime stop = to;
        snap.Snap(start, stop);
        ASSERT_LE(start, stop) << i;
        const TDateTime widest = std::max(snap.CalcScreenSnap(std::max(snap.StartSnapStep, 1e-9)),
                                          snap.CalcScreenSnap(std::max(snap.StopSnapStep, 1e-9)));
        ASSERT_LE(std::abs(start - from), widest) << i;
        ASSERT_LE(std::abs(stop - to), widest) << i;
    }
}

} // namespace
