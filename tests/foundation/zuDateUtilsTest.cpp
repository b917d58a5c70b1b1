#include "foundation/zuDateUtils.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>
#include <tuple>
#include <vector>

namespace korvane {
namespace {

TEST(DateUtils, CountsDaysFromTheEndOf1899)
{
    struct Case
    {
        TDateParts Date;
        TDateTime Value;
        int DayOfWeek; // 1 = Sunday
    };
    const std::vector<Case> cases = {
        {{1899, 12, 30}, 0, 7},       {{1899, 12, 31}, 1, 1},     {{1899, 12, 29}, -1, 6},
        {{1900, 2, 28}, 60, 4},       {{1900, 3, 1}, 61, 5},      {{1970, 1, 1}, 25569, 5},
        {{2000, 2, 29}, 36585, 3},    {{2024, 12, 31}, 45657, 3}, {{1, 1, 1}, -693593, 2},
        {{9999, 12, 31}, 2958465, 6},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(EncodeDate(c.Date.Year, c.Date.Month, c.Date.Day), c.Value);
        EXPECT_EQ(DecodeDate(c.Value), c.Date) << c.Value;
        EXPECT_EQ(DecodeDate(c.Value + 0.999), c.Date) << c.Value;
        EXPECT_EQ(DayOfWeek(c.Value + 0.5), c.DayOfWeek) << c.Value;
    }
}

TEST(DateUtils, RefusesDatesAndTimesThatDoNotExist)
{
    const std::vector<std::tuple<int, int, int>> dates = {
        {2023, 2, 29}, {1900, 2, 29}, {2024, 4, 31}, {2024, 0, 1}, {2024, 13, 1},
        {2024, 1, 0},  {0, 1, 1},     {10000, 1, 1}, {2024, -1, 1}};
    for (const auto &[year, month, day] : dates) {
        EXPECT_THROW(EncodeDate(year, month, day), std::invalid_argument)
            << year << '-' << month << '-' << day;
    }
    EXPECT_THROW(EncodeTime(24, 0, 0, 0), std::invalid_argument);
    EXPECT_THROW(EncodeTime(0, 60, 0, 0), std::invalid_argument);
    EXPECT_THROW(EncodeTime(0, 0, 60, 0), std::invalid_argument);
    EXPECT_THROW(EncodeTime(0, 0, 0, 1000), std::invalid_argument);
    EXPECT_THROW(EncodeTime(0, -1, 0, 0), std::invalid_argument);
    EXPECT_THROW(DaysInMonth(2024, 13), std::invalid_argument);
}

TEST(DateUtils, RoundsToTheNearestMillisecondWithCarry)
{
    const double ms = EncodeTime(0, 0, 0, 1);
    const TDateTime leapDay = EncodeDate(2024, 2, 29);
    const TDateTimeParts carried = DecodeDateTime(leapDay + 1 - 0.3 * ms);
    EXPECT_EQ(carried.Date, (TDateParts{2024, 3, 1}));
    EXPECT_EQ(carried.Time, TTimeParts());
    EXPECT_EQ(DateOf(leapDay + 1 - 0.3 * ms), leapDay + 1);
    EXPECT_EQ(TimeOf(leapDay + 1 - 0.3 * ms), 0);
    EXPECT_EQ(DecodeTime(leapDay + 1 - 0.7 * ms), (TTimeParts{23, 59, 59, 999}));
    EXPECT_EQ(DateOf(-0.25), -1) << "before the epoch, too, the midnight lies at or before";
    EXPECT_EQ(TimeOf(-0.25), 0.75);
    EXPECT_EQ(DecodeTime(-0.25), (TTimeParts{18, 0, 0, 0}));
}

TEST(DateUtils, EveryMillisecondStampSurvivesTheRoundTrip)
{
    for (int year = 1; year <= 9999; year += 37) {
        for (int month = 1; month <= 12; ++month) {
            const TDateParts date{year, month, DaysInMonth(year, month)};
            const TTimeParts time{month * 2 - 1, year % 60, (year + month) % 60,
                                  (year * 13 + month) % 1000};
            const TDateTimeParts decoded =
                DecodeDateTime(EncodeDate(date.Year, date.Month, date.Day)
                               + EncodeTime(time.Hour, time.Minute, time.Second, time.Millisecond));
            ASSERT_EQ(decoded.Date, date) << year << '-' << month;
            ASSERT_EQ(decoded.Time, time) << year << '-' << month;
        }
    }
}

TEST(DateUtils, InstantsOutOfRangeGiveTheNearestLimit)
{
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double value : {-kInfinity, -1e300, -700000.0, std::nan("")}) {
        EXPECT_EQ(DecodeDate(value), (TDateParts{1, 1, 1})) << value;
        EXPECT_EQ(DecodeTime(value), TTimeParts()) << value;
    }
    for (const double value : {kInfinity, 1e300, 2958466.0}) {
        EXPECT_EQ(DecodeDate(value), (TDateParts{9999, 12, 31})) << value;
        EXPECT_EQ(DecodeTime(value), (TTimeParts{23, 59, 59, 999})) << value;
    }
}

TEST(DateUtils, StepsByMonthsFromTheFirst)
{
    const TDateTime lateJanuary = EncodeDate(2024, 1, 31) + 0.75;
    EXPECT_EQ(FirstOfMonthLater(lateJanuary, 0), EncodeDate(2024, 1, 1));
    EXPECT_EQ(FirstOfMonthLater(lateJanuary, 1), EncodeDate(2024, 2, 1));
    EXPECT_EQ(FirstOfMonthLater(lateJanuary, -1), EncodeDate(2023, 12, 1));
    EXPECT_EQ(FirstOfMonthLater(lateJanuary, 25), EncodeDate(2026, 2, 1));
    EXPECT_GT(FirstOfMonthLater(EncodeDate(9999, 12, 31), 1), EncodeDate(9999, 12, 31));
    EXPECT_LT(FirstOfMonthLater(EncodeDate(1, 1, 1), -1), EncodeDate(1, 1, 1));
    EXPECT_GT(FirstOfMonthLater(0, std::numeric_limits<int>::max()), EncodeDate(9999, 12, 31));
}

TEST(DateUtils, NowLiesInToday)
{
    const TDateTime today = Today();
    const TDateTime now = Now();
    EXPECT_GE(now, today);
    EXPECT_LT(now, today + 2);
    EXPECT_EQ(today, DateOf(today));
}

} // namespace
} // namespace korvane
