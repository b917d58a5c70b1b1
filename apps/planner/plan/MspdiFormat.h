// What the reader and the writer of project XML have to agree on.
#pragma once

#include "plan/Plan.h"

#include <QStringView>

#include <array>
#include <span>
#include <string_view>

namespace korvane::planner::mspdi {

inline constexpr QStringView kNamespace = u"http://schemas.microsoft.com/project";
/// The project summary task and the resource that stands for "nobody" have this UID.
inline constexpr std::int64_t kProjectUid = 0;
/// Resource of the work that nobody is assigned to.
inline constexpr std::int64_t kUnassignedUid = -65535;

/// Units of durations and lags; the format numbers them, and 32 more marks an estimate.
enum class TimeFormat : std::uint8_t { Working, Elapsed, Percent, ElapsedPercent };
TimeFormat TimeFormatOf(int number);
/// Days, for those that count time.
int NumberOf(TimeFormat format);

inline constexpr double kLagPerMinute = 10;
PlanLag LagOf(double amount, int format);
TimeFormat TimeFormatOf(PlanLagUnit unit);
/// LinkLag's number, which has to be a whole one.
std::int64_t LagNumber(const PlanLag &lag);

/// In the order of their numbers.
inline constexpr std::array kLinkTypes{PlanLinkType::FinishToFinish, PlanLinkType::FinishToStart,
                                       PlanLinkType::StartToFinish, PlanLinkType::StartToStart};

/// The format has no element for what these fields hold; they are custom fields of tasks with these
/// aliases: a colour like "#99ccff", and "1" for a summary task whose subtasks are not shown.
inline constexpr QStringView kColorAlias = u"Bar color";
inline constexpr QStringView kCollapsedAlias = u"Collapsed";

/// Names of child elements in the order that the schema prescribes.
using Names = std::span<const std::string_view>;
extern const Names kProjectOrder;
extern const Names kCalendarOrder;
extern const Names kTaskOrder;
extern const Names kLinkOrder;
extern const Names kBaselineOrder;
extern const Names kResourceOrder;
extern const Names kAssignmentOrder;

} // namespace korvane::planner::mspdi
