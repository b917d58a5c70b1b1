#include "foundation/zuDateUtils.h"
#include "scaler/zuScalePass.h"
#include "scaler/zuScaleWalk.h"
#include "scaler/zuScalerSteps.h"
#include "scaler/zuScalerWeeks.h"

#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>
#include <tuple>

namespace korvane {
namespace {

constexpr int kMonday = 2;

TDateTime At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int ms = 0)
{
    return EncodeDate(year, month, day) + EncodeTime(hour, minute, second, ms);
}

TEST(ScalerSteps, UnitsAreWhatTheCalendarCounts)
{
    const auto years = [](int count) { return At(1 + count, 1, 1) - At(1, 1, 1); };
    EXPECT_EQ(kYear, years(1));
    EXPECT_EQ(kScale10Year, years(10));
    EXPECT_EQ(kScale20Year, years(20));
    EXPECT_EQ(kScale100Year, years(100));
    EXPECT_EQ(kMonth, 30);
    EXPECT_EQ(kScale1Month, 27);
    EXPECT_EQ(kScale3Month, At(1, 3, 28) - At(1, 1, 1));
    EXPECT_EQ(kScale10Hun, EncodeTime(0, 0, 0, 10));
    EXPECT_EQ(kScale10Sec, EncodeTime(0, 0, 10, 0));
    EXPECT_EQ(kScale10Min, EncodeTime(0, 10, 0, 0));
}

TEST(ScalerSteps, TheNextStepIsStrictlyLongerThanTheLength)
{
    const std::tuple<TDateTime, TDateTime, const char *> cases[] = {
        {0, kScale10Hun, "1 tiondel"},
        {kScale10Hun, kScale1Sec, "1 sek"},
        {kScale1Sec, kScale10Sec, "10 sek"},
        {kScale10Sec, kScale1Min, "1 min"},
        {kScale1Min, kScale10Min, "10 min"},
        {kScale10Min, kScale1Hour, "1 timme"},
        {0.15, kScale1Day, "1 dag"},
        {kScale1Day, kScale1Week, "1 vecka"},
        {kScale1Week, kScale1Month, "1 m\u00e5nad"},
        {26.9, kScale1Month, "1 m\u00e5nad"},
        {kScale1Month, kScale3Month, "3 m\u00e5nader"},
        {kScale3Month, kScale1Year, "1 \u00e5r"},
        {kScale1Year, kScale10Year, "10 \u00e5r"},
        {kScale10Year, kScale20Year, "20 \u00e5r"},
        {kScale20Year, kScale100Year, "100 \u00e5r"},
        {kScale100Year, kScale100Year, "100 \u00e5r"},
        {1e300, kScale100Year, "100 \u00e5r"},
    };
    for (const auto &[length, next, name] : cases) {
        const TScaleStep step = StepFork(length);
        EXPECT_EQ(step.Length, next) << length;
        EXPECT_EQ(step.Name, name) << length;
    }
}

TEST(ScalerSteps, SnappingGoesToTheBoundaryOfTheStep)
{
    const TDateTime date = At(2015, 8, 20, 17, 43, 36, 400); // a Thursday
    const std::tuple<TDateTime, TDateTime, TDateTime> cases[] = {
        {kScale100Year, date, At(2000, 1, 1)},
        {kScale20Year, date, At(2000, 1, 1)},
        {kScale10Year, date, At(2010, 1, 1)},
        {kScale1Year, date, At(2015, 1, 1)},
        {kScale3Month, date, At(2015, 7, 1)},
        {kScale3Month, At(2015, 12, 31), At(2015, 10, 1)},
        {kScale1Month, date, At(2015, 8, 1)},
        {kScale1Week, date, At(2015, 8, 17)},
        {kScale1Day, date, At(2015, 8, 21)},
        {kScale1Day, At(2015, 8, 20, 11, 59), At(2015, 8, 20)},
        {kScale1Day, At(2015, 8, 20, 12), At(2015, 8, 21)},
        {kScale1Hour, date, At(2015, 8, 20, 18)},
        {kScale10Min, date, At(2015, 8, 20, 17, 40)},
        {kScale1Min, date, At(2015, 8, 20, 17, 44)},
        {kScale10Sec, date, At(2015, 8, 20, 17, 43, 40)},
        {kScale1Sec, date, date},
        {kScale10Hun, date, date},
        {kScale100Year, At(50, 6, 1), At(1, 1, 1)}, // no year 0
    };
    for (const auto &[step, from, snapped] : cases) {
        EXPECT_NEAR(Snap(step, from, kMonday), snapped, 1e-9) << step << ' ' << from;
    }
}

TEST(ScalerSteps, SnappingWhatCannotBeCountedIsRefused)
{
    for (const double date : {1e30, -1e30, std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_THROW(Snap(kScale1Hour, date, kMonday), std::range_error) << date;
        EXPECT_NO_THROW(Snap(kScale1Month, date, kMonday)) << date;
        EXPECT_NO_THROW(Snap(kScale1Week, date, kMonday)) << date;
    }
}

TEST(ScalerSteps, CalendarStepsHaveTheirRealLength)
{
    const std::tuple<TDateTime, TDateTime, TDateTime> cases[] = {
        {kScale1Month, At(2000, 2, 1), At(2000, 3, 1)},
        {kScale1Month, At(2001, 12, 1), At(2002, 1, 1)},
        {kScale1Month, At(2001, 1, 31, 18), At(2001, 2, 1)},
        {kScale3Month, At(2001, 10, 1), At(2002, 1, 1)},
        {kScale3Month, At(2001, 11, 1), At(2002, 2, 1)},
        {kScale1Year, At(2000, 1, 1), At(2001, 1, 1)},
        {kScale10Year, At(1990, 1, 1), At(2000, 1, 1)},
        {kScale20Year, At(1980, 1, 1), At(2000, 1, 1)},
        {kScale100Year, At(1900, 1, 1), At(2000, 1, 1)},
        {kScale1Week, At(2000, 1, 1), At(2000, 1, 8)},
        {kScale1Hour, At(2000, 1, 1), At(2000, 1, 1, 1)},
    };
    for (const auto &[step, date, next] : cases) {
        EXPECT_NEAR(date + GetAdaptiveStep(step, date), next, 1e-9) << step;
    }
}

TEST(ScalerWeeks, WeeksBeginOnTheirFirstDay)
{
    const TDateTime thursday = At(2015, 8, 20, 17);
    for (int first = 1; first <= 7; ++first) {
        const TDateTime begin = TruncToFirstDayOfWeek(thursday, first);
        EXPECT_EQ(DayOfWeek(begin), first);
        EXPECT_EQ(begin, DateOf(begin));
        EXPECT_LE(begin, thursday);
        EXPECT_LT(thursday - begin, 8);
    }
    EXPECT_EQ(TruncToFirstDayOfWeek(thursday, 5), At(2015, 8, 20));
}

TEST(ScalerWeeks, WeekNumbersFollowTheLibrarysRule)
{
    const std::tuple<TDateTime, int, bool> cases[] = {
        // date, number, of the next year
        {At(2004, 1, 1), 1, false},                                // a Thursday
        {At(2001, 1, 29), 5, false},   {At(2010, 1, 1), 1, false}, // a Friday before the first week
        {At(2010, 1, 4), 1, false},    {At(2010, 1, 10, 23, 59), 1, false},
        {At(2010, 1, 11), 2, false},   {At(2004, 12, 31), 53, false}, // 2005 begins on a Saturday
        {At(2003, 12, 28), 52, false}, {At(2003, 12, 29), 1, true},   // 2004 begins on a Thursday
        {At(2006, 1, 1), 1, false}, // a Sunday: its week began on Monday before
        {At(2012, 1, 1), 1, false},    {At(2012, 1, 2), 2, false},
        {At(2012, 12, 24), 1, true},   // week 53, and 2013 begins on a Tuesday
        {At(2012, 12, 31), 54, false}, // only week 53 is given to the next year
    };
    for (const auto &[date, number, nextYear] : cases) {
        const TWeekNum week = GetWeekNum(date, kMonday);
        EXPECT_EQ(week.Number, number) << date;
        EXPECT_EQ(week.NextYear, nextYear) << date;
    }
}

TEST(ScalerWeeks, DaysBeforeTheFirstWeekAreWeekOneForEveryFirstDay)
{
    for (int first = 1; first <= 7; ++first) {
        for (int year = 1995; year < 2025; ++year) {
            const TFirstWeek week = FirstWeekOfYear(At(year, 7, 1), first);
            EXPECT_EQ(week.IsInYear, DayOfWeek(At(year, 1, 1)) <= 5);
            for (TDateTime day = At(year, 1, 1); day < week.Date + kWeek; ++day) {
                EXPECT_EQ(GetWeekNum(day, first).Number, 1) << year << ' ' << first;
            }
            EXPECT_EQ(GetWeekNum(week.Date + kWeek, first).Number, 2) << year << ' ' << first;
        }
    }
}

TEST(ScalerWeeks, TheLastHalfMonthOfAQuarterBelongsToTheNext)
{
    EXPECT_EQ(DateToQuarter(At(2001, 3, 10)), 1);
    EXPECT_EQ(DateToQuarter(At(2001, 3, 20)), 2);
    EXPECT_EQ(DateToQuarter(At(2001, 9, 15)), 3);
    EXPECT_EQ(DateToQuarter(At(2001, 10, 1)), 4);
    EXPECT_EQ(DateToQuarter(At(2001, 12, 20)), 1);
    for (const int month : {0, 13, -1}) {
        EXPECT_THROW(QuarterOfMonth(month), std::out_of_range);
    }
}

TDateScalePass Pass(TDateTime from, TDateTime to, bool hide, TColor color)
{
    return {.Active = true, .FromTime = from, .ToTime = to, .Hide = hide, .Color = color};
}

TEST(ScalePass, AWindowHoldsItsBoundsAndMayWrapPastMidnight)
{
    const TDateTime six = EncodeTime(6, 0, 0, 0);
    const TDateTime eighteen = EncodeTime(18, 0, 0, 0);
    const TDateTime ms = EncodeTime(0, 0, 0, 1);
    const std::tuple<TDateTime, TDateTime, TDateTime, bool> cases[] = {
        // from, to, time, within
        {six, eighteen, six, true},
        {six, eighteen, eighteen, true},
        {six, eighteen, six - ms, false},
        {six, eighteen, eighteen + ms, false},
        {eighteen, six, 0, true},
        {eighteen, six, six, true},
        {eighteen, six, eighteen, true},
        {eighteen, six, six + ms, false},
        {eighteen, six, 1 - ms, true},
        {six, six, six, false},
        {0, 1, 1 - ms, true},
        {0, 1, 0, true},
        {eighteen, 1, 0, false},
        {0.2, 1e30, 0.9, true},
        {-5, 0.5, 0.25, true},
        {six, eighteen, eighteen + ms / 3, true},
    };
    for (const auto &[from, to, time, within] : cases) {
        SCOPED_TRACE(testing::Message() << from << ' ' << to << ' ' << time);
        const std::array passes{Pass(from, to, true, 7)};
        const int millisecond = MillisecondOfDay(36892 + time);
        EXPECT_EQ(PassInfoAt(passes, kScale1Hour, millisecond).Hide, within);
        EXPECT_EQ(TDayPattern(passes, kScale1Hour).At(millisecond).Hide, within);
    }
}

TEST(ScalePass, TheFirstActivePassThatAppliesAtTheStepDecides)
{
    std::array passes{Pass(0.25, 0.75, false, 1), Pass(0.5, 0.9, true, 2), Pass(0, 1, true, 3)};
    const int noon = kMillisecondsPerDay / 2;
    EXPECT_EQ(PassInfoAt(passes, kScale1Hour, noon), (TPassInfo{false, 1}));
    passes[0].MaxStep = kScale10Min;
    EXPECT_EQ(PassInfoAt(passes, kScale1Hour, noon), (TPassInfo{true, 2}));
    EXPECT_EQ(PassInfoAt(passes, kScale10Min, noon), (TPassInfo{false, 1}));
    passes[1].Active = false;
    EXPECT_EQ(PassInfoAt(passes, kScale1Hour, noon), (TPassInfo{true, 3}));
    passes[2].MaxStep = 0;
    EXPECT_EQ(PassInfoAt(passes, kScale1Hour, noon), TPassInfo());
}

TEST(ScalePass, HiddenStretchesRunAcrossPassesAndMidnight)
{
    const auto hours = [](double count) { return static_cast<int>(count * 3'600'000); };
    const std::array passes{Pass(18.0 / 24, 1, true, 1), Pass(0, 6.0 / 24, true, 2),
                            Pass(12.0 / 24, 13.0 / 24, true, 3)};
    const TDayPattern pattern(passes, kScale1Hour);
    EXPECT_EQ(pattern.HiddenFor(hours(7)), 0);
    EXPECT_EQ(pattern.HiddenFor(hours(12)), hours(1) + 1);
    EXPECT_EQ(pattern.HiddenFor(hours(18)), hours(12) + 1);
    EXPECT_EQ(pattern.HiddenFor(hours(5)), hours(1) + 1);

    const std::array everything{Pass(0.5, 0.4, true, 1), Pass(0.3, 0.6, true, 2)};
    EXPECT_EQ(TDayPattern(everything, kScale1Hour).HiddenFor(hours(10)), TDayPattern::kForever);
}

TEST(ScaleWalk, FindsNothingWhereTheVisibleTimeLiesBetweenPositions)
{
    // Visible: 12:05 to 12:06 only.
    const std::array passes{Pass(EncodeTime(12, 6, 0, 0), EncodeTime(12, 5, 0, 0), true, 1)};
    const TDayPattern pattern(passes, kScale1Min);
    const TDateTime start = At(2001, 1, 1);
    EXPECT_FALSE(TScaleWalk(kScale1Hour, start, kMonday, pattern).SkipHidden());
    EXPECT_FALSE(TScaleWalk(kScale1Min, start, kMonday, pattern).SkipHidden());
    EXPECT_FALSE(TScaleWalk(kScale1Month, start, kMonday, pattern).SkipHidden());

    TScaleWalk seconds(kScale10Sec, start, kMonday, pattern);
    EXPECT_EQ(seconds.SkipHidden(), (12 * 60 + 5) * 6 + 1);
    EXPECT_NEAR(seconds.Date(), At(2001, 1, 1, 12, 5, 10), 1e-9);
}

TEST(ScaleWalk, PositionsDoNotDriftOverLongStretches)
{
    const std::array passes{Pass(EncodeTime(18, 0, 0, 0), EncodeTime(6, 0, 0, 0), true, 1)};
    const TDayPattern pattern(passes, kScale10Hun);
    TScaleWalk walk(kScale10Hun, At(2001, 1, 1, 18), kMonday, pattern);
    EXPECT_EQ(walk.SkipHidden(), 12 * 360'000 + 1);
    EXPECT_NEAR(walk.Date(), At(2001, 1, 2, 6, 0, 0, 10), 1e-9);
}

} // namespace
} // namespace korvane
