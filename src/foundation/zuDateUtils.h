// Calendar arithmetic on TDateTime in the proleptic Gregorian calendar.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

namespace korvane {

/// Year 1..9999, month 1..12, day of month 1..31.
struct TDateParts
{
    int Year = 1;  ///< 1..9999
    int Month = 1; ///< 1..12
    int Day = 1;   ///< 1..31, as the month permits

    friend bool operator==(const TDateParts &, const TDateParts &) = default;
};

/// A time of day.
struct TTimeParts
{
    int Hour = 0;        ///< 0..23
    int Minute = 0;      ///< 0..59
    int Second = 0;      ///< 0..59
    int Millisecond = 0; ///< 0..999

    friend bool operator==(const TTimeParts &, const TTimeParts &) = default;
};

/// A date with its time of day, taken together to the nearest millisecond.
struct TDateTimeParts
{
    TDateParts Date; ///< of the rounded instant
    TTimeParts Time; ///< of the rounded instant
};

/// Throws std::invalid_argument when there is no such date in years 1..9999.
KORVANE_CORE_API TDateTime EncodeDate(int year, int month, int day);
/// Throws std::invalid_argument when a part is out of range (hour 0..23, ... millisecond 0..999).
KORVANE_CORE_API TDateTime EncodeTime(int hour, int minute, int second, int millisecond);

/// Date and time of day, rounded to the nearest millisecond with carry into the date. Instants
/// outside years 1..9999 give the nearest limit, NaN the lower one.
KORVANE_CORE_API TDateTimeParts DecodeDateTime(TDateTime value);
/// The two halves of DecodeDateTime, rounded and carried together.
KORVANE_CORE_API TDateParts DecodeDate(TDateTime value);
KORVANE_CORE_API TTimeParts DecodeTime(TDateTime value);

/// The midnight at or before the instant, after rounding to the nearest millisecond.
KORVANE_CORE_API TDateTime DateOf(TDateTime value);
/// Time of day, 0 <= result < 1, to the nearest millisecond.
KORVANE_CORE_API TDateTime TimeOf(TDateTime value);

/// The instant to the nearest whole second of its day, with carry into the next one.
KORVANE_CORE_API TDateTime NearestSecond(TDateTime value);

/// 1 = Sunday ... 7 = Saturday.
KORVANE_CORE_API int DayOfWeek(TDateTime value);
/// Throws std::invalid_argument when there is no such month in years 1..9999.
KORVANE_CORE_API int DaysInMonth(int year, int month);
/// First day of the month that lies `months` later (or earlier, when negative) than that of the
/// date. The result may lie outside years 1..9999, so that stepping by months always moves on.
KORVANE_CORE_API TDateTime FirstOfMonthLater(TDateTime value, int months);

/// Now in the system's local time.
KORVANE_CORE_API TDateTime Now();
/// Midnight of today in the system's local time.
KORVANE_CORE_API TDateTime Today();

} // namespace korvane
