#include "scaler/zuScalerWeeks.h"

#include "foundation/zuDateUtils.h"
#include "scaler/zuScalerSteps.h"

#include <algorithm>
#include <stdexcept>

namespace korvane {

TDateTime TruncToFirstDayOfWeek(TDateTime date, int firstDayOfWeek)
{
    return DateOf(date) - (DayOfWeek(date) - firstDayOfWeek + 7) % 7;
}

TFirstWeek FirstWeekOfYear(TDateTime date, int firstDayOfWeek)
{
    constexpr int kThursday = 5;
    const TDateTime newYear = EncodeDate(DecodeDate(date).Year, 1, 1);
    if (DayOfWeek(newYear) > kThursday) {
        return {TruncToFirstDayOfWeek(newYear + kWeek, firstDayOfWeek), false};
    }
    return {TruncToFirstDayOfWeek(newYear, firstDayOfWeek), true};
}

TWeekNum GetWeekNum(TDateTime date, int firstDayOfWeek)
{
    const TDateTime first = FirstWeekOfYear(date, firstDayOfWeek).Date;
    constexpr double kMostWeeks = 60; // more than a year has, so that any instant is safe
    const double weeks = std::clamp((DateOf(date) - first) / kWeek, 0.0, kMostWeeks);
    const int number = static_cast<int>(weeks) + 1;
    if (number == 53 && FirstWeekOfYear(date + kYear, firstDayOfWeek).IsInYear) {
        return {1, true};
    }
    return {number, false};
}

int QuarterOfMonth(int month)
{
    if (month < 1 || month > 12) {
        throw std::out_of_range("Internal error - impossible return value");
    }
    return (month - 1) / 3 + 1;
}

int DateToQuarter(TDateTime date)
{
    return QuarterOfMonth(DecodeDate(date + 15).Month);
}

} // namespace korvane
