// The ladder of calendar steps between the marks of a time axis, and what depends on it alone.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

#include <string_view>

namespace korvane {

/// Units of time, in days.
inline constexpr TDateTime kYear = 365;
inline constexpr TDateTime kMonth = 30;
inline constexpr TDateTime kWeek = 7;
inline constexpr TDateTime kDay = 1;
inline constexpr TDateTime kHour = 3'600'000.0 / 86'400'000.0;
inline constexpr TDateTime kMinute = 60'000.0 / 86'400'000.0;

/// Steps between marks, in days. Those of months and longer are nominal: shorter than any real
/// month (27) and quarter (86), and years counted from year 1.
inline constexpr TDateTime kScale10Hun = 10.0 / 86'400'000.0;
inline constexpr TDateTime kScale1Sec = 1'000.0 / 86'400'000.0;
inline constexpr TDateTime kScale10Sec = 10'000.0 / 86'400'000.0;
inline constexpr TDateTime kScale1Min = kMinute;
inline constexpr TDateTime kScale10Min = 600'000.0 / 86'400'000.0;
inline constexpr TDateTime kScale1Hour = kHour;
inline constexpr TDateTime kScale1Day = 1;
inline constexpr TDateTime kScale1Week = 7;
inline constexpr TDateTime kScale1Month = 27;
inline constexpr TDateTime kScale3Month = 86;
inline constexpr TDateTime kScale1Year = 365;
inline constexpr TDateTime kScale10Year = 3652;
inline constexpr TDateTime kScale20Year = 7305;
inline constexpr TDateTime kScale100Year = 36524;

/// The end of the axis: midnight of 4000-01-01.
KORVANE_CORE_API TDateTime LatestStop();

/// A rung of the ladder. The names are Swedish and stay so: applications look for them.
struct TScaleStep
{
    TDateTime Length = 0;  ///< one of the kScale... constants
    std::string_view Name; ///< see above
};

/// The first step of the ladder that is strictly longer than `length`, or else the longest one.
KORVANE_CORE_API TScaleStep StepFork(TDateTime length);

/// Months from one boundary of a calendar step to the next; 0 for steps of a fixed length.
KORVANE_CORE_API int MonthsOfStep(TDateTime step);

/// The calendar boundary of the step at or before the date; for 10 seconds up to one day the
/// nearest one, halves up; for one second and less the date itself. `firstDayOfWeek` is 1 (Sunday)
/// to 7. Throws std::range_error ("To small span") when the date is too far off to be counted in
/// steps.
KORVANE_CORE_API TDateTime Snap(TDateTime step, TDateTime date, int firstDayOfWeek);

/// The real length of the step that starts at the date: for months and longer the distance to the
/// first day of the month one step later, else the step itself.
KORVANE_CORE_API TDateTime GetAdaptiveStep(TDateTime step, TDateTime date);

} // namespace korvane
