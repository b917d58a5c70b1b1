#include "foundation/zuDateUtils.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <stdexcept>

namespace korvane {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days kEpoch = std::chrono::year(1899) / 12 / 30;
constexpr sys_days kFirstDay = std::chrono::year(1) / 1 / 1;
constexpr sys_days kLastDay = std::chrono::year(9999) / 12 / 31;

constexpr std::int64_t kMsPerSecond = 1000;
constexpr std::int64_t kMsPerMinute = 60 * kMsPerSecond;
constexpr std::int64_t kMsPerHour = 60 * kMsPerMinute;
constexpr std::int64_t kMsPerDay = 24 * kMsPerHour;
constexpr std::int64_t kFirstMs = (kFirstDay - kEpoch).count() * kMsPerDay;
constexpr std::int64_t kLastMs = ((kLastDay - kEpoch).count() + 1) * kMsPerDay - 1;

struct DayAndMs
{
    std::int64_t Day; ///< days since the epoch of TDateTime
    std::int64_t Ms;  ///< 0..kMsPerDay-1
};

DayAndMs Split(TDateTime value)
{
    const double ms = value * static_cast<double>(kMsPerDay);
    std::int64_t total = kFirstMs;
    if (ms >= static_cast<double>(kLastMs)) {
        total = kLastMs;
    } else if (ms > static_cast<double>(kFirstMs)) { // false for NaN
        total = std::llround(ms);
    }
    std::int64_t day = total / kMsPerDay;
    std::int64_t rest = total % kMsPerDay;
    if (rest < 0) {
        rest += kMsPerDay;
        --day;
    }
    return {day, rest};
}

TDateParts DatePartsOf(std::int64_t day)
{
    const year_month_day date(kEpoch + days(day));
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

TTimeParts TimePartsOf(std::int64_t ms)
{
    return {static_cast<int>(ms / kMsPerHour), static_cast<int>(ms % kMsPerHour / kMsPerMinute),
            static_cast<int>(ms % kMsPerMinute / kMsPerSecond),
            static_cast<int>(ms % kMsPerSecond)};
}

bool IsWithin(int value, int limit)
{
    return value >= 0 && value < limit;
}

} // namespace

TDateTime EncodeDate(int year, int month, int day)
{
    const bool known = year >= 1 && year <= 9999 && month >= 1 && month <= 12 && day >= 1
                       && day <= DaysInMonth(year, month);
    if (!known) {
        throw std::invalid_argument("There is no such date");
    }
    const sys_days date = std::chrono::year(year) / month / day;
    return static_cast<double>((date - kEpoch).count());
}

TDateTime EncodeTime(int hour, int minute, int second, int millisecond)
{
    if (!IsWithin(hour, 24) || !IsWithin(minute, 60) || !IsWithin(second, 60)
        || !IsWithin(millisecond, 1000)) {
        throw std::invalid_argument("There is no such time of day");
    }
    const std::int64_t ms =
        hour * kMsPerHour + minute * kMsPerMinute + second * kMsPerSecond + millisecond;
    return static_cast<double>(ms) / static_cast<double>(kMsPerDay);
}

TDateTimeParts DecodeDateTime(TDateTime value)
{
    const auto [day, ms] = Split(value);
    return {DatePartsOf(day), TimePartsOf(ms)};
}

TDateParts DecodeDate(TDateTime value)
{
    return DatePartsOf(Split(value).Day);
}

TTimeParts DecodeTime(TDateTime value)
{
    return TimePartsOf(Split(value).Ms);
}

TDateTime DateOf(TDateTime value)
{
    return static_cast<double>(Split(value).Day);
}

TDateTime TimeOf(TDateTime value)
{
    return static_cast<double>(Split(value).Ms) / static_cast<double>(kMsPerDay);
}

TDateTime NearestSecond(TDateTime value)
{
    constexpr double kSecondsPerDay = 86400;
    const double day = std::floor(value);
    return day + std::nearbyint((value - day) * kSecondsPerDay) / kSecondsPerDay;
}

int DayOfWeek(TDateTime value)
{
    const std::chrono::weekday weekday(kEpoch + days(Split(value).Day));
    return static_cast<int>(weekday.c_encoding()) + 1;
}

int DaysInMonth(int year, int month)
{
    if (year < 1 || year > 9999 || month < 1 || month > 12) {
        throw std::invalid_argument("There is no such month");
    }
    const auto last = std::chrono::year(year) / std::chrono::month(static_cast<unsigned>(month))
                      / std::chrono::last;
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

TDateTime FirstOfMonthLater(TDateTime value, int months)
{
    // Far enough to leave the years that dates have, near enough for the calendar's 16-bit years.
    constexpr int kMaxMonths = 12 * 20000;
    const TDateParts date = DecodeDate(value);
    const auto first = std::chrono::year(date.Year) / date.Month / 1
                       + std::chrono::months(std::clamp(months, -kMaxMonths, kMaxMonths));
    return static_cast<double>((sys_days(first) - kEpoch).count());
}

TDateTime Now()
{
    using std::chrono::system_clock;
    const auto now = system_clock::now();
    const auto second = std::chrono::floor<std::chrono::seconds>(now);
    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(now - second);
    const std::time_t time = system_clock::to_time_t(second);
    std::tm local{};
    localtime_r(&time, &local);
    return EncodeDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday)
           + EncodeTime(local.tm_hour, local.tm_min, std::min(local.tm_sec, 59),
                        static_cast<int>(ms.count()));
}

TDateTime Today()
{
    return DateOf(Now());
}

} // namespace korvane
