#include "plan/MspdiFormat.h"

#include <algorithm>
#include <cmath>

namespace korvane::planner::mspdi {

namespace {

constexpr std::string_view kProjectNames[] = {
    "SaveVersion",
    "BuildNumber",
    "UID",
    "Name",
    "GUID",
    "Title",
    "Subject",
    "Category",
    "Company",
    "Manager",
    "Author",
    "CreationDate",
    "Revision",
    "LastSaved",
    "ScheduleFromStart",
    "StartDate",
    "FinishDate",
    "FYStartDate",
    "CriticalSlackLimit",
    "CurrencyDigits",
    "CurrencySymbol",
    "CurrencyCode",
    "CurrencySymbolPosition",
    "CalendarUID",
    "DefaultStartTime",
    "DefaultFinishTime",
    "MinutesPerDay",
    "MinutesPerWeek",
    "DaysPerMonth",
    "DefaultTaskType",
    "OutlineCodes",
    "WBSMasks",
    "ExtendedAttributes",
    "Calendars",
    "Tasks",
    "Resources",
    "Assignments",
};

constexpr std::string_view kCalendarNames[] = {
    "UID",      "GUID",       "Name",      "IsBaseCalendar", "BaseCalendarUID",
    "WeekDays", "Exceptions", "WorkWeeks",
};

constexpr std::string_view kTaskNames[] = {
    "UID",
    "GUID",
    "ID",
    "Name",
    "Active",
    "Manual",
    "Type",
    "IsNull",
    "CreateDate",
    "Contact",
    "WBS",
    "WBSLevel",
    "OutlineNumber",
    "OutlineLevel",
    "Priority",
    "Start",
    "Finish",
    "Duration",
    "ManualStart",
    "ManualFinish",
    "ManualDuration",
    "DurationFormat",
    "FreeformDurationFormat",
    "Work",
    "Stop",
    "Resume",
    "ResumeValid",
    "EffortDriven",
    "Recurring",
    "OverAllocated",
    "Estimated",
    "Milestone",
    "Summary",
    "DisplayAsSummary",
    "Critical",
    "IsSubproject",
    "IsSubprojectReadOnly",
    "SubprojectName",
    "ExternalTask",
    "ExternalTaskProject",
    "EarlyStart",
    "EarlyFinish",
    "LateStart",
    "LateFinish",
    "StartVariance",
    "FinishVariance",
    "WorkVariance",
    "FreeSlack",
    "TotalSlack",
    "StartSlack",
    "FinishSlack",
    "FixedCost",
    "FixedCostAccrual",
    "PercentComplete",
    "PercentWorkComplete",
    "Cost",
    "OvertimeCost",
    "OvertimeWork",
    "ActualStart",
    "ActualFinish",
    "ActualDuration",
    "ActualCost",
    "ActualOvertimeCost",
    "ActualWork",
    "ActualOvertimeWork",
    "RegularWork",
    "RemainingDuration",
    "RemainingCost",
    "RemainingWork",
    "RemainingOvertimeCost",
    "RemainingOvertimeWork",
    "ACWP",
    "CV",
    "ConstraintType",
    "CalendarUID",
    "ConstraintDate",
    "Deadline",
    "LevelAssignments",
    "LevelingCanSplit",
    "LevelingDelay",
    "LevelingDelayFormat",
    "PreLeveledStart",
    "PreLeveledFinish",
    "Hyperlink",
    "HyperlinkAddress",
    "HyperlinkSubAddress",
    "IgnoreResourceCalendar",
    "Notes",
    "HideBar",
    "Rollup",
    "BCWS",
    "BCWP",
    "PhysicalPercentComplete",
    "EarnedValueMethod",
    "PredecessorLink",
    "ActualWorkProtected",
    "ActualOvertimeWorkProtected",
    "ExtendedAttribute",
    "Baseline",
    "OutlineCode",
    "IsPublished",
    "StatusManager",
    "CommitmentStart",
    "CommitmentFinish",
    "CommitmentType",
    "TimephasedData",
};

constexpr std::string_view kLinkNames[] = {
    "PredecessorUID", "Type", "CrossProject", "CrossProjectName", "LinkLag", "LagFormat",
};

constexpr std::string_view kBaselineNames[] = {
    "TimephasedData", "Number", "Interim", "Start", "Finish", "Duration", "DurationFormat",
};

constexpr std::string_view kResourceNames[] = {
    "UID", "GUID", "ID", "Name", "Type", "IsNull", "Initials", "MaxUnits",
};

constexpr std::string_view kAssignmentNames[] = {
    "UID",
    "GUID",
    "TaskUID",
    "ResourceUID",
    "PercentWorkComplete",
    "Finish",
    "FinishVariance",
    "WorkVariance",
    "HasFixedRateUnits",
    "FixedMaterial",
    "LevelingDelay",
    "LevelingDelayFormat",
    "LinkedFields",
    "Milestone",
    "Overallocated",
    "OvertimeCost",
    "OvertimeWork",
    "RegularWork",
    "RemainingCost",
    "RemainingOvertimeCost",
    "RemainingOvertimeWork",
    "RemainingWork",
    "ResponsePending",
    "Start",
    "Stop",
    "Resume",
    "StartVariance",
    "Units",
    "UpdateNeeded",
    "VAC",
    "Work",
    "WorkContour",
    "BCWS",
    "BCWP",
    "BookingType",
    "CreationDate",
    "BudgetCost",
    "BudgetWork",
    "ExtendedAttribute",
    "Baseline",
    "TimephasedData",
};

} // namespace

const Names kProjectOrder = kProjectNames;
const Names kCalendarOrder = kCalendarNames;
const Names kTaskOrder = kTaskNames;
const Names kLinkOrder = kLinkNames;
const Names kBaselineOrder = kBaselineNames;
const Names kResourceOrder = kResourceNames;
const Names kAssignmentOrder = kAssignmentNames;

TimeFormat TimeFormatOf(int number)
{
    constexpr int kEstimated = 32;
    constexpr int kPercent = 19;
    constexpr int kElapsedPercent = 20;
    constexpr int kFirstUnit = 3;
    constexpr int kLastUnit = 12;
    if (number > kEstimated) {
        number -= kEstimated;
    }
    if (number == kPercent) {
        return TimeFormat::Percent;
    }
    if (number == kElapsedPercent) {
        return TimeFormat::ElapsedPercent;
    }
    // Minutes, hours, days, weeks, months: the even number of each pair is the elapsed one.
    const bool isUnit = number >= kFirstUnit && number <= kLastUnit;
    return isUnit && number % 2 == 0 ? TimeFormat::Elapsed : TimeFormat::Working;
}

int NumberOf(TimeFormat format)
{
    constexpr std::array kNumbers{7, 8, 19, 20};
    return kNumbers.at(static_cast<std::size_t>(format));
}

PlanLag LagOf(double amount, int format)
{
    switch (TimeFormatOf(format)) {
    case TimeFormat::Working:
        return {amount / kLagPerMinute, PlanLagUnit::WorkingMinutes};
    case TimeFormat::Elapsed:
        return {amount / kLagPerMinute, PlanLagUnit::ElapsedMinutes};
    case TimeFormat::Percent:
        return {amount, PlanLagUnit::Percent};
    case TimeFormat::ElapsedPercent:
        return {amount, PlanLagUnit::ElapsedPercent};
    }
    return {};
}

TimeFormat TimeFormatOf(PlanLagUnit unit)
{
    constexpr std::array kFormats{TimeFormat::Working, TimeFormat::Elapsed, TimeFormat::Percent,
                                  TimeFormat::ElapsedPercent};
    return kFormats.at(static_cast<std::size_t>(unit));
}

std::int64_t LagNumber(const PlanLag &lag)
{
    constexpr double kLimit = 1e9;
    const bool isTime =
        lag.Unit == PlanLagUnit::WorkingMinutes || lag.Unit == PlanLagUnit::ElapsedMinutes;
    const double number = isTime ? lag.Amount * kLagPerMinute : lag.Amount;
    return std::llround(std::clamp(number, -kLimit, kLimit));
}

} // namespace korvane::planner::mspdi
