// Puts a plan together from what a file says, in the order in which it says it.
#pragma once

#include "plan/Plan.h"
#include "plan/PlanSplits.h"

#include <QHash>

#include <cstdint>
#include <vector>

namespace korvane::planner {

/// What a file says about the dates of a task. Missing parts are worked out at the end, when the
/// calendars are known.
struct TaskTimes
{
    std::optional<TDateTime> Start;
    std::optional<TDateTime> Finish;
    /// In place of a missing start or finish.
    std::optional<TDateTime> FallbackStart;
    std::optional<TDateTime> FallbackFinish;
    std::optional<double> Minutes; ///< working minutes, or elapsed ones
    bool IsElapsed = false;
};

enum class LinkEnd : std::uint8_t { Predecessor, Successor };

/// A link as it stands with one of its tasks in the file.
struct PendingLink
{
    int Known = 0; ///< index of the task with which it stands
    LinkEnd KnownEnd = LinkEnd::Successor;
    PlanLinkType Type = PlanLinkType::FinishToStart;
    std::int64_t OtherUid = kNoUid;
    PlanLag Lag;
    qint64 Line = 0;
};

/// Shared by all readers, so that every format treats oddities the same way: they are put right as
/// well as possible and remarked on. Only a plan beyond all measure is refused (PlanRefusal).
class PlanBuilder
{
public:
    static constexpr std::size_t kMaxItems = 2'000'000;  ///< of each kind
    static constexpr qsizetype kMaxCharacters = 1 << 27; ///< in all names and notes
    static constexpr qsizetype kMaxNameLength = 1000;
    static constexpr qsizetype kMaxNotesLength = 100'000;

    void SetProject(const QString &name, std::optional<TDateTime> start,
                    std::optional<TDateTime> finish);
    /// Of rows and items around the clock, every day.
    void SetIntervals();
    void Remark(qint64 line, QString text) { m_plan.Remarks.Add(line, std::move(text)); }

    /// Takes a task in outline order: it becomes a subtask of the last one before it with a lower
    /// level. Level, parent and dates of `task` are set here. Returns its index.
    int AddTask(PlanTask task, int level, const TaskTimes &times, qint64 line);
    /// For what the file says after the task has been added. Not for its level, parent or dates.
    PlanTask &Task(int index) { return m_plan.Tasks[index]; }
    void SetNotes(int task, const QString &notes, qint64 line);

    /// The other task may follow later in the file.
    void AddLink(const PendingLink &link);
    /// The calendar may follow later in the file.
    void AddResource(PlanResource resource, qint64 line, std::int64_t calendarUid = kNoUid);
    void AddAssignment(std::int64_t taskUid, std::int64_t resourceUid, double units, qint64 line);
    /// A stretch of an assignment, which tells split tasks.
    void AddWork(std::int64_t taskUid, const PlanSpan &span, WorkKind kind)
    {
        m_splits.Add(taskUid, span, kind);
    }
    void AddCalendar(PlanCalendar calendar);
    /// A calendar of a resource; what it has of its own is not used.
    void AddDerivedCalendar(std::int64_t uid, std::int64_t baseUid);
    void UseCalendar(std::int64_t uid) { m_calendarUid = uid; }

    /// Index of the first task of that UID so far.
    std::optional<int> FindTask(std::int64_t uid) const;
    /// The project's calendar as far as it has been read; office hours without one.
    const WorkCalendar &Calendar() const;

    /// The complete plan; the builder is empty afterwards.
    Plan Finish();

private:
    struct PendingAssignment
    {
        std::int64_t TaskUid = kNoUid;
        std::int64_t ResourceUid = kNoUid;
        qint64 Line = 0;
        double Units = 1;
    };
    struct PendingTimes
    {
        int Task = 0;
        qint64 Line = 0;
        TaskTimes Times;
    };

    static void CheckCount(std::size_t count, const char *refusal, qint64 line);
    QString Kept(const QString &text, qsizetype maxLength, const char *remark, qint64 line);
    void PlaceInOutline(PlanTask &task, int level, qint64 line);
    void NoteExtremes(const TaskTimes &times);
    PlanSpan Ordered(TDateTime start, TDateTime finish, const QString &name, qint64 line);
    std::optional<PlanSpan> Completed(const PendingTimes &pending);
    int CalendarIndex() const;
    void CompleteTimes();
    void SpanSummaries();
    void SplitTasks();
    void ResolveLinks();
    void ResolveResources();
    void ResolveAssignments();
    void ReportCircles();
    void ReportUnmarkedSummaries();

    Plan m_plan;
    QHash<std::int64_t, int> m_taskByUid;
    QHash<std::int64_t, int> m_resourceByUid;
    QHash<std::int64_t, int> m_calendarByUid;
    QHash<std::int64_t, std::int64_t> m_baseCalendars; ///< of derived ones, by UID
    std::vector<int> m_openTasks;  ///< the last task and its ancestors, from the top
    std::vector<int> m_openLevels; ///< their levels as the file gives them
    std::vector<std::int64_t> m_resourceCalendars; ///< UIDs, one per resource
    std::vector<PendingLink> m_links;
    std::vector<PendingAssignment> m_assignments;
    std::vector<PendingTimes> m_times;
    PlanSplits m_splits;
    qsizetype m_characters = 0;
    bool m_isDepthReported = false;
    std::int64_t m_calendarUid = kNoUid;
};

} // namespace korvane::planner
