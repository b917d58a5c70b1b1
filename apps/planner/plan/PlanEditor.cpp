#include "plan/PlanEditor.h"

#include "plan/PlanBuilder.h"
#include "plan/PlanDates.h"
#include "plan/PlanLinks.h"
#include "plan/PlanOutline.h"
#include "plan/PlannerText.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <set>
#include <utility>

namespace korvane::planner {

namespace {

constexpr double kMillisecondsPerDay = 86'400'000;
/// Spans whose lengths differ by less are equally long: they come from pixels and from sums.
constexpr TDateTime kSameLength = 500 / kMillisecondsPerDay;

/// To the millisecond, so that sums leave no trace.
TDateTime Tidy(TDateTime instant)
{
    return std::round(instant * kMillisecondsPerDay) / kMillisecondsPerDay;
}

PlanSpan Shifted(const PlanSpan &span, TDateTime days)
{
    return {Tidy(span.Start + days), Tidy(span.Finish + days)};
}

bool AreEquallyLong(const PlanSpan &a, const PlanSpan &b)
{
    return std::abs((a.Finish - a.Start) - (b.Finish - b.Start)) < kSameLength;
}

void CheckRange(const PlanSpan &span)
{
    if (!IsPlanDate(span.Start) || !IsPlanDate(span.Finish)) {
        throw PlanEditRefusal(PlannerText::tr("Tasks must lie between the years 1900 and 3999."));
    }
}

/// Of the parts remains what lies within the dates; the outer ones reach to the new ends.
void Resize(PlanTask &task, const PlanSpan &dates)
{
    task.Dates = PlanSpan{Tidy(dates.Start), Tidy(dates.Finish)};
    std::erase_if(task.Parts, [&](const PlanSpan &part) {
        return part.Finish <= task.Dates->Start || part.Start >= task.Dates->Finish;
    });
    if (task.Parts.size() < 2) {
        task.Parts.clear();
        return;
    }
    task.Parts.front().Start = task.Dates->Start;
    task.Parts.back().Finish = task.Dates->Finish;
}

bool IsLinked(const Plan &plan, int predecessor, int successor, PredecessorIndex &links)
{
    return std::ranges::any_of(links.LinksTo(plan, successor), [&](int link) {
        return plan.Links[link].Predecessor == predecessor;
    });
}

} // namespace

QString QuotedName(const PlanTask &task)
{
    constexpr qsizetype kShown = 40;
    if (task.Name.isEmpty()) {
        return PlannerText::tr("unnamed task");
    }
    QString name = task.Name.left(kShown);
    if (task.Name.size() > kShown) {
        if (name.back().isHighSurrogate()) {
            name.chop(1);
        }
        name = name.trimmed() + QChar(0x2026);
    }
    return u'\'' + name + u'\'';
}

std::int64_t NextTaskUid(const Plan &plan)
{
    std::int64_t last = 0;
    for (const PlanTask &task : plan.Tasks) {
        last = std::max(last, task.Uid);
    }
    return last < std::numeric_limits<std::int64_t>::max() ? last + 1 : kNoUid;
}

void PlanEditor::Refuse(const QString &reason)
{
    throw PlanEditRefusal(reason);
}

QString PlanEditor::CheckedName(const QString &name)
{
    QString line = name.simplified();
    if (line.isEmpty()) {
        Refuse(PlannerText::tr("A task needs a name."));
    }
    if (line.size() > PlanBuilder::kMaxNameLength) {
        Refuse(
            PlannerText::tr("A name has %1 characters at most.").arg(PlanBuilder::kMaxNameLength));
    }
    return line;
}

void PlanEditor::ShiftTask(PlanTask &task, TDateTime days)
{
    if (!task.Dates) {
        return;
    }
    task.Dates = Shifted(*task.Dates, days);
    for (PlanSpan &part : task.Parts) {
        part = Shifted(part, days);
    }
    CheckRange(*task.Dates);
}

void PlanEditor::Do(PlanStep step)
{
    m_change.Do(m_plan, std::move(step), m_watcher);
}

void PlanEditor::Set(int task, PlanTask value)
{
    if (value != m_plan.Tasks.at(task)) {
        Do(TaskSwap{task, std::move(value)});
    }
}

PlanTask PlanEditor::Refreshed(int index) const
{
    PlanTask task = m_plan.Tasks.at(index);
    const int end = SubtreeEnd(m_plan, index);
    const bool hasChildren = end > index + 1;
    if (bool(task.HasChildren) != hasChildren) {
        task.HasChildren = hasChildren;
        task.MarkedSummary = hasChildren;
        task.Milestone = false;
        task.Collapsed = false;
        task.Parts.clear();
    }
    std::optional<PlanSpan> span;
    for (int below = index + 1; below < end; ++below) {
        const PlanTask &child = m_plan.Tasks[below];
        if (child.Parent == index && child.Dates) {
            span = !span ? *child.Dates
                         : PlanSpan{std::min(span->Start, child.Dates->Start),
                                    std::max(span->Finish, child.Dates->Finish)};
        }
    }
    if (span) {
        task.Dates = span;
    }
    return task;
}

void PlanEditor::Refresh(std::span<const int> tasks)
{
    // From the bottom to the top: subtasks stand behind their summary tasks.
    std::set<int, std::greater<>> all;
    for (int task : tasks) {
        while (task != kNoIndex && all.insert(task).second) {
            task = m_plan.Tasks[task].Parent;
        }
    }
    for (const int task : all) {
        Set(task, Refreshed(task));
    }
}

void PlanEditor::ApplyShift(int task, TDateTime days)
{
    const int end = days == 0 ? task : SubtreeEnd(m_plan, task);
    for (int below = task; below < end; ++below) {
        PlanTask value = m_plan.Tasks[below];
        ShiftTask(value, days);
        Set(below, std::move(value));
    }
}

void PlanEditor::ApplyDate(const TaskDates &wanted)
{
    const PlanTask &task = m_plan.Tasks.at(wanted.Task);
    if (wanted.Dates.Start > wanted.Dates.Finish) {
        Refuse(PlannerText::tr("%1 would finish before it starts.").arg(QuotedName(task)));
    }
    CheckRange(wanted.Dates);
    if (task.Dates && AreEquallyLong(*task.Dates, wanted.Dates)) {
        return ApplyShift(wanted.Task, wanted.Dates.Start - task.Dates->Start);
    }
    if (task.HasChildren) {
        Refuse(PlannerText::tr("%1 is a summary task: its subtasks make its length.")
                   .arg(QuotedName(task)));
    }
    // A bar of a milestone with a length stands at its finish alone.
    if (task.Milestone && wanted.Dates.Start < wanted.Dates.Finish) {
        Refuse(PlannerText::tr("%1 is a milestone: it has no length.").arg(QuotedName(task)));
    }
    if (task.Milestone && task.Dates) {
        return ApplyShift(wanted.Task, wanted.Dates.Finish - task.Dates->Finish);
    }
    PlanTask value = task;
    Resize(value, wanted.Dates);
    Set(wanted.Task, std::move(value));
}

void PlanEditor::ApplyDates(std::span<const TaskDates> dates)
{
    std::vector<int> tasks;
    std::ranges::transform(dates, std::back_inserter(tasks), &TaskDates::Task);
    const std::vector<int> tops = WithoutDescendants(m_plan, tasks);
    for (const TaskDates &wanted : dates) {
        if (std::ranges::binary_search(tops, wanted.Task)) {
            ApplyDate(wanted);
        }
    }
    std::vector<int> parents;
    std::ranges::transform(tops, std::back_inserter(parents),
                           [this](int task) { return m_plan.Tasks[task].Parent; });
    Refresh(parents);
    m_change.TasksBefore = m_change.TasksAfter = std::move(tasks);
}

PlanChange PlanEditor::SetDates(std::span<const TaskDates> dates)
{
    return Edit([&] { ApplyDates(dates); });
}

PlanChange PlanEditor::Shift(std::span<const int> tasks, TDateTime days)
{
    std::vector<TaskDates> dates;
    for (const int task : tasks) {
        if (const auto &span = m_plan.Tasks.at(task).Dates) {
            dates.push_back({task, Shifted(*span, days)});
        }
    }
    return SetDates(dates);
}

PlanChange PlanEditor::Rename(int task, const QString &name)
{
    return Edit([&] {
        PlanTask value = m_plan.Tasks.at(task);
        value.Name = CheckedName(name);
        Set(task, std::move(value));
        m_change.TasksBefore = m_change.TasksAfter = {task};
    });
}

PlanChange PlanEditor::SetDetails(int task, const TaskDetails &details)
{
    return Edit([&] {
        if (details.Dates) {
            const TaskDates dates{task, *details.Dates};
            ApplyDates({&dates, 1});
        }
        PlanTask value = m_plan.Tasks.at(task);
        value.Name = details.Name == value.Name ? value.Name : CheckedName(details.Name);
        value.Notes = details.Notes.left(PlanBuilder::kMaxNotesLength);
        value.PercentComplete = std::clamp(details.PercentComplete, 0.0F, 100.0F);
        Set(task, std::move(value));
        m_change.TasksBefore = m_change.TasksAfter = {task};
    });
}

QString PlanEditor::WhyNotLinked(const Plan &plan, int predecessor, int successor)
{
    PredecessorIndex links;
    return WhyNotLinked(plan, predecessor, successor, links);
}

QString PlanEditor::WhyNotLinked(const Plan &plan, int predecessor, int successor,
                                 PredecessorIndex &links)
{
    const QString first = QuotedName(plan.Tasks.at(predecessor));
    const QString second = QuotedName(plan.Tasks.at(successor));
    if (predecessor == successor) {
        return PlannerText::tr("%1 cannot be linked to itself.").arg(first);
    }
    if (IsBelow(plan, predecessor, successor) || IsBelow(plan, successor, predecessor)) {
        const bool isFirstBelow = predecessor > successor;
        return PlannerText::tr("%1 cannot be linked to its own summary task %2.")
            .arg(isFirstBelow ? first : second, isFirstBelow ? second : first);
    }
    if (IsLinked(plan, predecessor, successor, links)) {
        return PlannerText::tr("%1 is linked to %2 already.").arg(first, second);
    }
    if (WouldCloseCircle(plan, predecessor, successor, links)) {
        return PlannerText::tr("A link from %1 to %2 would close a circle.").arg(first, second);
    }
    if (plan.Links.size() >= PlanBuilder::kMaxItems) {
        return PlannerText::tr("A plan has %1 links at most.").arg(PlanBuilder::kMaxItems);
    }
    return {};
}

void PlanEditor::InsertLinks(std::vector<PlanLink> links)
{
    if (links.empty()) {
        return;
    }
    std::vector<int> indices(links.size());
    std::iota(indices.begin(), indices.end(), static_cast<int>(m_plan.Links.size()));
    Do(LinkRows{std::move(indices), std::move(links)});
}

PlanChange PlanEditor::AddLink(const PlanLink &link)
{
    return Edit([&] {
        const QString reason = WhyNotLinked(m_plan, link.Predecessor, link.Successor);
        if (!reason.isEmpty()) {
            Refuse(reason);
        }
        InsertLinks({link});
        m_change.TasksBefore = m_change.TasksAfter = {link.Predecessor, link.Successor};
    });
}

PlanChange PlanEditor::LinkInOrder(std::span<const int> tasks)
{
    return Edit([&] {
        if (tasks.size() < 2) {
            Refuse(PlannerText::tr("Select the tasks to be linked, two at least."));
        }
        PredecessorIndex links;
        for (std::size_t i = 1; i < tasks.size(); ++i) {
            if (tasks.size() > 2 && IsLinked(m_plan, tasks[i - 1], tasks[i], links)) {
                continue;
            }
            const QString reason = WhyNotLinked(m_plan, tasks[i - 1], tasks[i], links);
            if (!reason.isEmpty()) {
                Refuse(reason);
            }
            InsertLinks({{tasks[i - 1], tasks[i], {}}});
        }
        m_change.TasksBefore.assign(tasks.begin(), tasks.end());
        m_change.TasksAfter = m_change.TasksBefore;
    });
}

PlanChange PlanEditor::ChangeLink(int link, PlanLinkType type, PlanLag lag)
{
    return Edit([&] {
        PlanLink value = m_plan.Links.at(link);
        value.Type = type;
        value.Lag = lag;
        if (value != m_plan.Links[link]) {
            Do(LinkSwap{link, value});
        }
        m_change.TasksBefore = m_change.TasksAfter = {value.Predecessor, value.Successor};
    });
}

PlanChange PlanEditor::RemoveLinks(std::span<const int> links)
{
    return Edit([&] {
        LinkRows rows{{links.begin(), links.end()}, {}, true};
        std::ranges::sort(rows.Indices);
        const auto twice = std::ranges::unique(rows.Indices);
        rows.Indices.erase(twice.begin(), twice.end());
        if (rows.Indices.empty()) {
            return;
        }
        for (const int link : rows.Indices) {
            m_change.TasksBefore.push_back(m_plan.Links.at(link).Predecessor);
            m_change.TasksBefore.push_back(m_plan.Links.at(link).Successor);
        }
        m_change.TasksAfter = m_change.TasksBefore;
        Do(std::move(rows));
    });
}

} // namespace korvane::planner
