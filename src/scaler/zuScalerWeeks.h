// Numbers of weeks and quarters as the labels of the time axis show them.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

namespace korvane {

/// The first week of a year.
struct TFirstWeek
{
    TDateTime Date = 0;   ///< first day of week 1
    bool IsInYear = true; ///< false: the year's 1 January lies before it
};

/// The number of a week.
struct TWeekNum
{
    int Number = 1;        ///< 1..54
    bool NextYear = false; ///< the week is the first one of the year after the date's
};

// `firstDayOfWeek` counts from 1 = Sunday to 7 = Saturday.

/// Midnight of the day that begins the week of the date.
KORVANE_CORE_API TDateTime TruncToFirstDayOfWeek(TDateTime date, int firstDayOfWeek);
/// The first week of the date's year: the one with 1 January in it, or the week after when that is
/// a Friday or Saturday. (Not the ISO rule.)
KORVANE_CORE_API TFirstWeek FirstWeekOfYear(TDateTime date, int firstDayOfWeek);
/// 1..54. The days of a year before its first week count as week 1.
KORVANE_CORE_API TWeekNum GetWeekNum(TDateTime date, int firstDayOfWeek);

/// 1..4. Throws std::out_of_range for a month outside 1..12.
KORVANE_CORE_API int QuarterOfMonth(int month);
/// The quarter of the day 15 days later: the last half month of a quarter belongs to the next one.
KORVANE_CORE_API int DateToQuarter(TDateTime date);

} // namespace korvane
