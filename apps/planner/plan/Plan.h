// The planner's own picture of a project plan, whatever file it came from.
#pragma once

#include "foundation/zuTypes.h"
#include "plan/PlanRemarks.h"
#include "plan/WorkCalendar.h"

#include <QString>

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <vector>

namespace korvane::planner {

inline constexpr std::int64_t kNoUid = std::numeric_limits<std::int64_t>::min();
inline constexpr int kNoIndex = -1;
/// Deeper outlines are shown at this level.
inline constexpr int kMaxOutlineLevel = 100;

/// A stretch of time from Start up to, not including, Finish; Start <= Finish.
struct PlanSpan
{
    TDateTime Start = 0;
    TDateTime Finish = 0;

    friend bool operator==(const PlanSpan &, const PlanSpan &) = default;
};

enum class PlanConstraint : std::uint8_t {
    AsSoonAsPossible,
    AsLateAsPossible,
    MustStartOn,
    MustFinishOn,
    StartNoEarlierThan,
    StartNoLaterThan,
    FinishNoEarlierThan,
    FinishNoLaterThan,
};

struct PlanTask
{
    std::int64_t Uid = kNoUid; ///< as in the file; not unique when the file repeats it
    QString Name;
    QString Notes;
    /// Nothing when neither the file nor the subtasks give a usable date.
    std::optional<PlanSpan> Dates;
    std::optional<PlanSpan> Baseline;
    std::optional<TDateTime> Deadline;
    std::optional<TDateTime> ConstraintDate;
    std::optional<TColor> Color;
    /// The stretches of a split task in ascending order; empty when it runs through.
    std::vector<PlanSpan> Parts;
    int Parent = kNoIndex;     ///< index into Plan::Tasks, always less than the task's own
    float PercentComplete = 0; ///< 0..100
    std::int16_t Level = 1;    ///< 1 at the top, the parent's plus one below
    PlanConstraint Constraint = PlanConstraint::AsSoonAsPossible;
    bool Milestone : 1 = false;
    bool MarkedSummary : 1 = false; ///< the file calls it a summary task
    bool HasChildren : 1 = false;
    bool Manual : 1 = false; ///< scheduled by hand: links do not move it
    bool Collapsed : 1 = false;

    bool IsSummary() const { return MarkedSummary || HasChildren; }

    friend bool operator==(const PlanTask &, const PlanTask &) = default;
};

enum class PlanLinkType : std::uint8_t {
    FinishToStart,
    StartToStart,
    FinishToFinish,
    StartToFinish
};

enum class PlanLagUnit : std::uint8_t {
    WorkingMinutes,
    ElapsedMinutes,
    Percent,        ///< of the predecessor's working duration
    ElapsedPercent, ///< of the predecessor's elapsed duration
};

/// Negative is a lead.
struct PlanLag
{
    double Amount = 0;
    PlanLagUnit Unit = PlanLagUnit::WorkingMinutes;

    friend bool operator==(const PlanLag &, const PlanLag &) = default;
};

/// Indices into Plan::Tasks. A file may link a task to itself, to its own summary task, or in a
/// circle; such links are kept.
struct PlanLink
{
    int Predecessor = 0;
    int Successor = 0;
    PlanLag Lag;
    PlanLinkType Type = PlanLinkType::FinishToStart;

    friend bool operator==(const PlanLink &, const PlanLink &) = default;
};

struct PlanResource
{
    std::int64_t Uid = kNoUid;
    QString Name;
    /// Most units at work at the same time, 1 = one, full time; nothing where there is no limit, as
    /// for material and costs.
    std::optional<double> MaxUnits = 1;
    int Calendar = kNoIndex; ///< its own one, index into Plan::Calendars
};

struct PlanAssignment
{
    int Task = 0;     ///< index into Plan::Tasks
    int Resource = 0; ///< index into Plan::Resources
    double Units = 1; ///< 1 = one resource, full time

    friend bool operator==(const PlanAssignment &, const PlanAssignment &) = default;
};

struct PlanCalendar
{
    std::int64_t Uid = kNoUid;
    QString Name;
    WorkCalendar Times;
};

/// What a plan is made of in the first place.
enum class PlanKind : std::uint8_t {
    Tasks,     ///< a project's tasks
    Intervals, ///< rows (the resources) with items on them (the tasks), as a timetable's
};

struct Plan
{
    PlanKind Kind = PlanKind::Tasks;
    QString Name;
    std::optional<TDateTime> Start;  ///< of the project, where the file names it
    std::optional<TDateTime> Finish; ///< of the project, where the file names it
    /// Outline order: a task stands before its subtasks, and these before its next sibling.
    std::vector<PlanTask> Tasks;
    std::vector<PlanLink> Links;
    std::vector<PlanResource> Resources;
    std::vector<PlanAssignment> Assignments; ///< ascending by task
    std::vector<PlanCalendar> Calendars;
    int Calendar = kNoIndex; ///< the project's, index into Calendars
    /// Extremes of the dates that the file itself gives its tasks; derived dates do not count.
    std::optional<TDateTime> LeastStart;
    std::optional<TDateTime> GreatestFinish;
    PlanRemarks Remarks;

    std::span<const PlanAssignment> AssignmentsOf(int task) const;
    /// The project's calendar; office hours when it names none.
    const WorkCalendar &ProjectCalendar() const;
    /// From the first start to the last finish of all tasks, derived dates included.
    std::optional<PlanSpan> Range() const;
};

} // namespace korvane::planner
