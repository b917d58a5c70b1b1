// Instants and durations of plans: their range and their ISO 8601 texts.
#pragma once

#include "foundation/zuTypes.h"

#include <QString>
#include <QStringView>

#include <optional>

namespace korvane::planner {

/// The instants that a plan may use: those of the time axis. Both ends belong to the range.
inline constexpr TDateTime kFirstPlanDate = 0.0;      // 1899-12-30
inline constexpr TDateTime kLastPlanDate = 767'011.0; // 4000-01-01

inline constexpr int kMinutesPerDay = 1440;

constexpr bool IsPlanDate(TDateTime instant)
{
    return instant >= kFirstPlanDate && instant <= kLastPlanDate;
}

/// "2026-11-02", "2026-11-02T08:00", "2026-11-02T08:00:00.5", each with surrounding blanks; 24:00
/// is the next midnight. A zone suffix ("Z", "+01:00") is accepted and ignored: plans speak of wall
/// clocks. Years 1..9999; nothing for any other text.
std::optional<TDateTime> ParseIsoDateTime(QStringView text);

/// Minutes after midnight, 0..1440, of "08:00:00" or "08:00", a zone suffix ignored.
std::optional<double> ParseIsoTime(QStringView text);

/// Minutes of "PT8H30M0S", "P1DT2H" or "-PT4H"; days count 24 hours. Months and years, which have
/// no fixed length, give nothing.
std::optional<double> ParseIsoDuration(QStringView text);

/// Like "2026-11-02T08:00:00", to the nearest millisecond; these show only where there are any.
QString IsoText(TDateTime instant);

} // namespace korvane::planner
