#include "plan/PlanBuilder.h"

#include "foundation/zuTranslate.h"
#include "plan/PlanLinks.h"
#include "plan/PlanRefusal.h"
#include "plan/PlannerText.h"

#include <algorithm>
#include <cmath>

namespace korvane::planner {

namespace {

QString Quoted(const QString &name)
{
    constexpr qsizetype kShown = 60;
    return name.isEmpty()          ? PlannerText::tr("without a name")
           : name.size() <= kShown ? u'"' + name + u'"'
                                   : u'"' + name.left(kShown) + QStringLiteral("...\"");
}

QString UidText(std::int64_t uid)
{
    return uid == kNoUid ? PlannerText::tr("none", "no UID") : QString::number(uid);
}

void Extend(std::optional<PlanSpan> &span, const PlanSpan &by)
{
    if (!span) {
        span = by;
    }
    span->Start = std::min(span->Start, by.Start);
    span->Finish = std::max(span->Finish, by.Finish);
}

} // namespace

void PlanBuilder::SetProject(const QString &name, std::optional<TDateTime> start,
                             std::optional<TDateTime> finish)
{
    m_plan.Name = Kept(
        name.simplified(), kMaxNameLength,
        QT_TRANSLATE_NOOP("Planner", "The project name has %1 characters; the first %2 are kept."),
        0);
    m_plan.Start = start;
    m_plan.Finish = finish;
}

void PlanBuilder::SetIntervals()
{
    m_plan.Kind = PlanKind::Intervals;
    WorkCalendar::Week week;
    week.fill(DayTimes::WholeDay());
    AddCalendar({1, PlannerText::tr("Around the clock"), WorkCalendar(week)});
}

void PlanBuilder::CheckCount(std::size_t count, const char *refusal, qint64 line)
{
    if (count >= kMaxItems) {
        throw PlanRefusal(line, PlannerText::tr(refusal).arg(kMaxItems));
    }
}

QString PlanBuilder::Kept(const QString &text, qsizetype maxLength, const char *remark, qint64 line)
{
    QString kept = text.left(maxLength);
    if (text.size() > maxLength) {
        if (kept.back().isHighSurrogate()) {
            kept.chop(1);
        }
        Remark(line, PlannerText::tr(remark).arg(text.size()).arg(kept.size()));
    }
    kept.squeeze();
    m_characters += kept.size();
    if (m_characters > kMaxCharacters) {
        throw PlanRefusal(
            line,
            PlannerText::tr("more than %1 characters of names and notes").arg(kMaxCharacters));
    }
    return kept;
}

int PlanBuilder::AddTask(PlanTask task, int level, const TaskTimes &times, qint64 line)
{
    CheckCount(m_plan.Tasks.size(), QT_TRANSLATE_NOOP("Planner", "more than %1 tasks"), line);
    const int index = static_cast<int>(m_plan.Tasks.size());
    task.Name = Kept(
        task.Name.simplified(), kMaxNameLength,
        QT_TRANSLATE_NOOP("Planner", "The task name has %1 characters; the first %2 are kept."),
        line);
    if (task.Uid == kNoUid) {
        Remark(line, PlannerText::tr("Task %1 has no usable UID.").arg(Quoted(task.Name)));
    } else if (m_taskByUid.contains(task.Uid)) {
        Remark(line, PlannerText::tr("Task UID %1 is used again by %2; links go to its first task.")
                         .arg(task.Uid)
                         .arg(Quoted(task.Name)));
    } else {
        m_taskByUid.insert(task.Uid, index);
    }
    PlaceInOutline(task, level, line);
    m_openTasks.push_back(index);
    m_openLevels.push_back(level);
    NoteExtremes(times);
    task.Dates.reset();
    if (times.Start && times.Finish) {
        task.Dates = Ordered(*times.Start, *times.Finish, task.Name, line);
    } else {
        m_times.push_back({index, line, times});
    }
    m_plan.Tasks.push_back(std::move(task));
    return index;
}

void PlanBuilder::PlaceInOutline(PlanTask &task, int level, qint64 line)
{
    const int previous = m_openLevels.empty() ? 0 : m_openLevels.back();
    const bool isJump = level > 1 && level - 1 > previous;
    while (!m_openLevels.empty() && m_openLevels.back() >= level) {
        m_openLevels.pop_back();
        m_openTasks.pop_back();
    }
    task.Parent = m_openTasks.empty() ? kNoIndex : m_openTasks.back();
    if (task.Parent != kNoIndex && m_plan.Tasks[task.Parent].Level >= kMaxOutlineLevel) {
        task.Parent = m_plan.Tasks[task.Parent].Parent;
        if (!m_isDepthReported) {
            m_isDepthReported = true;
            Remark(line, PlannerText::tr("The outline has more than %1 levels; deeper tasks are "
                                         "shown at that level.")
                             .arg(kMaxOutlineLevel));
        }
    }
    task.Level = 1;
    if (task.Parent != kNoIndex) {
        PlanTask &parent = m_plan.Tasks[task.Parent];
        parent.HasChildren = true;
        task.Level = static_cast<std::int16_t>(parent.Level + 1);
    }
    if (isJump) {
        Remark(line, PlannerText::tr("The outline level jumps from %1 to %2; task %3 is shown at "
                                     "level %4.")
                         .arg(previous)
                         .arg(level)
                         .arg(Quoted(task.Name))
                         .arg(task.Level));
    }
}

void PlanBuilder::NoteExtremes(const TaskTimes &times)
{
    if (times.Start) {
        m_plan.LeastStart = std::min(*times.Start, m_plan.LeastStart.value_or(*times.Start));
    }
    if (times.Finish) {
        m_plan.GreatestFinish =
            std::max(*times.Finish, m_plan.GreatestFinish.value_or(*times.Finish));
    }
}

PlanSpan PlanBuilder::Ordered(TDateTime start, TDateTime finish, const QString &name, qint64 line)
{
    if (start <= finish) {
        return {start, finish};
    }
    Remark(line, PlannerText::tr("Task %1 finishes before it starts; it is shown from %2 to %3.")
                     .arg(Quoted(name), IsoText(finish), IsoText(start)));
    return {finish, start};
}

void PlanBuilder::SetNotes(int task, const QString &notes, qint64 line)
{
    m_plan.Tasks[task].Notes = Kept(
        notes.trimmed(), kMaxNotesLength,
        QT_TRANSLATE_NOOP("Planner", "The note has %1 characters; the first %2 are kept."), line);
}

void PlanBuilder::AddLink(const PendingLink &link)
{
    CheckCount(m_links.size(), QT_TRANSLATE_NOOP("Planner", "more than %1 links"), link.Line);
    m_links.push_back(link);
}

void PlanBuilder::AddResource(PlanResource resource, qint64 line, std::int64_t calendarUid)
{
    CheckCount(m_plan.Resources.size(), QT_TRANSLATE_NOOP("Planner", "more than %1 resources"),
               line);
    resource.Name = Kept(
        resource.Name.simplified(), kMaxNameLength,
        QT_TRANSLATE_NOOP("Planner", "The resource name has %1 characters; the first %2 are kept."),
        line);
    if (m_resourceByUid.contains(resource.Uid)) {
        Remark(line, PlannerText::tr("Resource UID %1 is used again by %2.")
                         .arg(resource.Uid)
                         .arg(Quoted(resource.Name)));
    } else if (resource.Uid != kNoUid) {
        m_resourceByUid.insert(resource.Uid, static_cast<int>(m_plan.Resources.size()));
    }
    m_plan.Resources.push_back(std::move(resource));
    m_resourceCalendars.push_back(calendarUid);
}

void PlanBuilder::AddAssignment(std::int64_t taskUid, std::int64_t resourceUid, double units,
                                qint64 line)
{
    CheckCount(m_assignments.size(), QT_TRANSLATE_NOOP("Planner", "more than %1 assignments"),
               line);
    m_assignments.push_back({taskUid, resourceUid, line, units});
}

void PlanBuilder::AddCalendar(PlanCalendar calendar)
{
    constexpr std::size_t kMaxCalendars = 10'000;
    if (m_plan.Calendars.size() < kMaxCalendars) {
        m_calendarByUid.insert(calendar.Uid, static_cast<int>(m_plan.Calendars.size()));
        m_plan.Calendars.push_back(std::move(calendar));
    }
}

void PlanBuilder::AddDerivedCalendar(std::int64_t uid, std::int64_t baseUid)
{
    if (m_baseCalendars.size() < qsizetype(kMaxItems)) {
        m_baseCalendars.insert(uid, baseUid);
    }
}

std::optional<int> PlanBuilder::FindTask(std::int64_t uid) const
{
    const auto found = m_taskByUid.find(uid);
    return found == m_taskByUid.end() ? std::nullopt : std::optional(*found);
}

int PlanBuilder::CalendarIndex() const
{
    const int fallback = m_plan.Calendars.empty() ? kNoIndex : 0;
    return m_calendarByUid.value(m_calendarUid, fallback);
}

const WorkCalendar &PlanBuilder::Calendar() const
{
    static const WorkCalendar kOfficeHours;
    const int index = CalendarIndex();
    return index == kNoIndex ? kOfficeHours : m_plan.Calendars[index].Times;
}

Plan PlanBuilder::Finish()
{
    m_plan.Calendar = CalendarIndex();
    CompleteTimes();
    SpanSummaries();
    SplitTasks();
    ResolveLinks();
    ResolveResources();
    ResolveAssignments();
    ReportCircles();
    ReportUnmarkedSummaries();
    return std::exchange(m_plan, {});
}

void PlanBuilder::CompleteTimes()
{
    for (const PendingTimes &pending : m_times) {
        m_plan.Tasks[pending.Task].Dates = Completed(pending);
    }
}

std::optional<PlanSpan> PlanBuilder::Completed(const PendingTimes &pending)
{
    const TaskTimes &times = pending.Times;
    auto start = times.Start ? times.Start : times.FallbackStart;
    auto finish = times.Finish ? times.Finish : times.FallbackFinish;
    if (!start && !finish) {
        return std::nullopt;
    }
    const double minutes = std::max(0.0, times.Minutes.value_or(0));
    const double elapsedDays = minutes / kMinutesPerDay;
    if (!finish) {
        finish = times.IsElapsed ? std::min(*start + elapsedDays, kLastPlanDate)
                                 : Calendar().FinishAfter(*start, minutes);
    } else if (!start) {
        start = times.IsElapsed ? std::max(*finish - elapsedDays, kFirstPlanDate)
                                : Calendar().StartBefore(*finish, minutes);
    }
    return Ordered(*start, *finish, m_plan.Tasks[pending.Task].Name, pending.Line);
}

/// A task for which the file gives no dates spans its subtasks.
void PlanBuilder::SpanSummaries()
{
    std::vector<bool> isUndated(m_plan.Tasks.size());
    for (const PendingTimes &pending : m_times) {
        isUndated[pending.Task] = !m_plan.Tasks[pending.Task].Dates;
    }
    for (std::size_t index = m_plan.Tasks.size(); index-- > 0;) {
        const PlanTask &task = m_plan.Tasks[index];
        if (task.Dates && task.Parent != kNoIndex && isUndated[task.Parent]) {
            Extend(m_plan.Tasks[task.Parent].Dates, *task.Dates);
        }
    }
    for (const PendingTimes &pending : m_times) {
        const PlanTask &task = m_plan.Tasks[pending.Task];
        if (!task.Dates) {
            Remark(pending.Line, PlannerText::tr("Task %1 has no usable dates; it has no bar.")
                                     .arg(Quoted(task.Name)));
        }
    }
}

/// The parts reach from the task's start to its finish, whatever the assignments say.
void PlanBuilder::SplitTasks()
{
    m_splits.ForEachSplit(Calendar(), [this](std::int64_t uid, std::vector<PlanSpan> parts) {
        const auto index = FindTask(uid);
        if (!index) {
            return;
        }
        PlanTask &task = m_plan.Tasks[*index];
        if (!task.Dates || task.IsSummary() || task.Dates->Start >= parts.front().Finish
            || task.Dates->Finish <= parts.back().Start) {
            return;
        }
        parts.front().Start = task.Dates->Start;
        parts.back().Finish = task.Dates->Finish;
        task.Parts = std::move(parts);
    });
}

void PlanBuilder::ResolveLinks()
{
    m_plan.Links.reserve(m_links.size());
    for (const PendingLink &pending : m_links) {
        const auto other = FindTask(pending.OtherUid);
        const QString &knownName = m_plan.Tasks[pending.Known].Name;
        if (!other) {
            Remark(pending.Line,
                   PlannerText::tr("Task %1 has a link with an unknown task (UID %2); "
                                   "it is left out.")
                       .arg(Quoted(knownName), UidText(pending.OtherUid)));
            continue;
        }
        if (*other == pending.Known) {
            Remark(pending.Line,
                   PlannerText::tr("Task %1 is linked with itself.").arg(Quoted(knownName)));
        }
        const bool isKnownFirst = pending.KnownEnd == LinkEnd::Predecessor;
        m_plan.Links.push_back({isKnownFirst ? pending.Known : *other,
                                isKnownFirst ? *other : pending.Known, pending.Lag, pending.Type});
    }
}

void PlanBuilder::ResolveResources()
{
    for (std::size_t index = 0; index < m_resourceCalendars.size(); ++index) {
        const std::int64_t uid = m_resourceCalendars[index];
        m_plan.Resources[index].Calendar =
            m_calendarByUid.value(m_baseCalendars.value(uid, uid), kNoIndex);
    }
}

void PlanBuilder::ResolveAssignments()
{
    m_plan.Assignments.reserve(m_assignments.size());
    for (const PendingAssignment &pending : m_assignments) {
        const auto task = FindTask(pending.TaskUid);
        const auto resource = m_resourceByUid.find(pending.ResourceUid);
        if (task && resource != m_resourceByUid.end()) {
            m_plan.Assignments.push_back({*task, *resource, pending.Units});
        } else {
            Remark(pending.Line,
                   (task
                        ? PlannerText::tr("An assignment names an unknown resource (UID %1); it is "
                                          "left out.")
                        : PlannerText::tr("An assignment names an unknown task (UID %1); it is "
                                          "left out."))
                       .arg(UidText(task ? pending.ResourceUid : pending.TaskUid)));
        }
    }
    std::ranges::stable_sort(m_plan.Assignments, {}, &PlanAssignment::Task);
}

void PlanBuilder::ReportCircles()
{
    const std::vector<int> tasks = TasksInCircles(m_plan);
    if (!tasks.empty()) {
        Remark(0, PlannerText::tr("The links of %n tasks lead in a circle, among them %1 and %2.",
                                  nullptr, static_cast<int>(tasks.size()))
                      .arg(Quoted(m_plan.Tasks[tasks.front()].Name),
                           Quoted(m_plan.Tasks[tasks.back()].Name)));
    }
}

void PlanBuilder::ReportUnmarkedSummaries()
{
    const auto count =
        static_cast<int>(std::ranges::count_if(m_plan.Tasks, [](const PlanTask &task) {
            return task.HasChildren && !task.MarkedSummary;
        }));
    if (count > 0) {
        Remark(0, QString::fromStdString(Translate(
                      "Planner",
                      "%n task(s) with subtasks not marked as summary task(s); shown as such.",
                      nullptr, count)));
    }
}

} // namespace korvane::planner
