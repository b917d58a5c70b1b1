// How types and lags of links are shown and entered.
#pragma once

#include "plan/Plan.h"

#include <array>

namespace korvane::planner {

/// In the order in which they are offered.
inline constexpr std::array kOfferedLinkTypes{
    PlanLinkType::FinishToStart, PlanLinkType::StartToStart, PlanLinkType::FinishToFinish,
    PlanLinkType::StartToFinish};

/// "Finish to start".
QString LinkTypeName(PlanLinkType type);

/// What lags are counted in, in the order in which they are offered. Days and hours are working
/// time, unless they are elapsed ones.
enum class LagMeasure : std::uint8_t {
    Days,
    Hours,
    Minutes,
    ElapsedDays,
    ElapsedHours,
    ElapsedMinutes,
    Percent,
    ElapsedPercent,
};
inline constexpr int kLagMeasures = 8;

/// "elapsed days".
QString LagMeasureName(LagMeasure measure);

/// A lag as it is shown.
struct ShownLag
{
    double Number = 0;
    LagMeasure Measure = LagMeasure::Days;
};

/// In the largest measure that gives a round number. `dayMinutes` is the length of a working day.
ShownLag ShownLagOf(const PlanLag &lag, int dayMinutes);
/// As exact as files keep lags: to a tenth of a minute, and to a whole percent.
PlanLag LagOf(const ShownLag &shown, int dayMinutes);

/// "Finish to start + 2 days".
QString LinkText(const PlanLink &link, int dayMinutes);

} // namespace korvane::planner
