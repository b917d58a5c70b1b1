#include "PlanEdits.h"

#include "PlanDocument.h"
#include "foundation/zuDateUtils.h"
#include "plan/PlanOutline.h"

#include <QUndoCommand>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <memory>

namespace korvane::planner {

namespace {

constexpr qint64 kNudgePause = 1000; // milliseconds
constexpr int kNudgeId = 1;

qint64 SteadyMilliseconds()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

bool IsMove(const PlanTask &task, const PlanSpan &to)
{
    constexpr TDateTime kSecond = 1.0 / (24 * 60 * 60);
    return task.Milestone
           || (task.Dates
               && std::abs(task.Dates->Finish - task.Dates->Start - to.Finish + to.Start)
                      < kSecond);
}

/// Menus show what stands behind the line break: there an ampersand marks a letter.
QString WithMenuText(const QString &text)
{
    return text.contains(u'&') ? text + u'\n' + QString(text).replace(u'&', QStringLiteral("&&"))
                               : text;
}

} // namespace

/// A change that has been made already when it joins the history.
class PlanEdits::Command : public QUndoCommand
{
public:
    Command(PlanEdits &edits, PlanChange change, const QString &text,
            std::optional<qint64> nudgeTime)
        : QUndoCommand(WithMenuText(text))
        , m_edits(edits)
        , m_change(std::move(change))
        , m_nudgeTime(nudgeTime)
    {
    }

    void undo() override
    {
        m_edits.m_document.Edit([this](Plan &plan) { m_change.Undo(plan, m_edits.m_watcher); });
        Q_EMIT m_edits.concerned(m_change.TasksBefore);
    }
    void redo() override
    {
        if (m_isNew) {
            m_isNew = false;
            return;
        }
        m_edits.m_document.Edit([this](Plan &plan) { m_change.Redo(plan, m_edits.m_watcher); });
        Q_EMIT m_edits.concerned(m_change.TasksAfter);
    }
    int id() const override { return m_nudgeTime ? kNudgeId : -1; }
    bool mergeWith(const QUndoCommand *other) override
    {
        const auto &next = static_cast<const Command &>(*other);
        if (*next.m_nudgeTime - *m_nudgeTime > kNudgePause
            || next.m_change.TasksAfter != m_change.TasksAfter || !m_change.Join(next.m_change)) {
            return false;
        }
        m_nudgeTime = next.m_nudgeTime;
        return true;
    }

private:
    PlanEdits &m_edits;
    PlanChange m_change;
    std::optional<qint64> m_nudgeTime; ///< of the last nudge; nothing for other edits
    bool m_isNew = true;
};

PlanEdits::PlanEdits(PlanDocument &document, IPlanWatcher &watcher, QObject *parent)
    : QObject(parent)
    , Clock(&SteadyMilliseconds)
    , m_document(document)
    , m_watcher(watcher)
{
}

const Plan &PlanEdits::GetPlan() const
{
    return m_document.GetPlan();
}

template <typename Function>
bool PlanEdits::Do(const QString &text, Function edit, std::optional<qint64> nudgeTime)
{
    PlanChange change;
    try {
        m_document.Edit([&](Plan &plan) {
            PlanEditor editor(plan, m_watcher);
            change = edit(editor);
        });
    } catch (const PlanEditRefusal &refusal) {
        Q_EMIT refused(refusal.Reason());
        return false;
    }
    if (change.IsEmpty()) {
        return false;
    }
    m_document.History().push(new Command(*this, std::move(change), text, nudgeTime));
    return true;
}

/// The tasks stay in view and selected when they go to another place.
template <typename Function>
bool PlanEdits::Rearrange(const QString &text, Function edit)
{
    std::vector<int> tasks;
    const bool done = Do(text, [&](PlanEditor &editor) {
        PlanChange change = edit(editor);
        tasks = change.TasksAfter;
        return change;
    });
    if (done) {
        Q_EMIT concerned(tasks);
    }
    return done;
}

/// "'A'", or "3 tasks".
QString PlanEdits::NamesOf(const std::vector<int> &tasks) const
{
    const std::vector<int> tops = WithoutDescendants(GetPlan(), tasks);
    return tops.size() == 1 ? QuotedName(GetPlan().Tasks.at(std::size_t(tops.front())))
                            : tr("%n tasks", nullptr, static_cast<int>(tops.size()));
}

bool PlanEdits::SetDates(const std::vector<TaskDates> &dates, DateSource source)
{
    std::vector<int> tasks;
    std::ranges::transform(dates, std::back_inserter(tasks), &TaskDates::Task);
    const bool isMove = std::ranges::all_of(dates, [this](const TaskDates &each) {
        return IsMove(GetPlan().Tasks.at(std::size_t(each.Task)), each.Dates);
    });
    const QString text = isMove ? tr("Move %1") : tr("Resize %1");
    const std::optional<qint64> nudgeTime =
        source == DateSource::Keyboard ? std::optional(Clock()) : std::nullopt;
    return Do(
        text.arg(NamesOf(tasks)), [&](PlanEditor &editor) { return editor.SetDates(dates); },
        nudgeTime);
}

bool PlanEdits::Rename(int task, const QString &name)
{
    const QString old = QuotedName(GetPlan().Tasks.at(std::size_t(task)));
    return Do(tr("Rename %1").arg(old),
              [&](PlanEditor &editor) { return editor.Rename(task, name); });
}

bool PlanEdits::SetDetails(int task, const TaskDetails &details)
{
    return Do(tr("Change %1").arg(NamesOf({task})),
              [&](PlanEditor &editor) { return editor.SetDetails(task, details); });
}

void PlanEdits::BeginCells()
{
    ++m_cellDepth;
}

void PlanEdits::SetCell(const TaskCellText &cell, const TaskCells &cells, PredecessorIndex &links)
{
    m_document.Edit([&](Plan &plan) {
        const std::size_t forgotten = links.ForgottenCount();
        PlanChange change = PlanEditor(plan, m_watcher).SetCell(cell, cells, links);
        if (!change.IsEmpty() || links.ForgottenCount() != forgotten) {
            ++m_cellCount;
            m_cells.Append(std::move(change));
            if (cell.Column == TaskColumn::Start || cell.Column == TaskColumn::Finish
                || cell.Column == TaskColumn::Duration) {
                m_derivedFrom.push_back(cell.Task);
            }
        }
    });
}

bool PlanEdits::AppendTasks(int count)
{
    try {
        m_document.Edit([&](Plan &plan) {
            m_cells.Append(PlanEditor(plan, m_watcher)
                               .Append(count, tr("New task"), NewTaskDates(kNoIndex).Dates));
        });
    } catch (const PlanEditRefusal &) {
        return false; // the cells are told to lie outside
    }
    return true;
}

void PlanEdits::EndCells(PredecessorIndex &links, const std::function<QString(int count)> &text)
{
    if (--m_cellDepth > 0 || (m_cells.IsEmpty() && links.ForgottenCount() == 0)) {
        return;
    }
    m_document.Edit([&](Plan &plan) {
        const std::vector<int> tasks = std::exchange(m_derivedFrom, {});
        m_cells.Append(PlanEditor(plan, m_watcher).RemoveForgotten(links));
        m_cells.Append(PlanEditor(plan, m_watcher).RefreshSummaries(tasks));
    });
    const int count = std::exchange(m_cellCount, 0);
    m_document.History().push(
        new Command(*this, std::exchange(m_cells, {}), text(count), std::nullopt));
}

/// A working day, beside the task above which it is to be, or at the beginning of the plan.
TaskDates PlanEdits::NewTaskDates(int above) const
{
    const Plan &plan = GetPlan();
    std::optional<TDateTime> start;
    if (above != kNoIndex && plan.Tasks.at(std::size_t(above)).Dates) {
        start = plan.Tasks.at(std::size_t(above)).Dates->Start;
    } else if (!plan.Tasks.empty() && plan.Tasks.back().Dates) {
        start = plan.Tasks.back().Dates->Start;
    } else {
        const auto range = plan.Range();
        start = range ? range->Start : DateOf(Now());
    }
    const WorkCalendar &calendar = plan.ProjectCalendar();
    // The first working minute at or after the start.
    constexpr double kMinute = 1.0 / kMinutesPerDay;
    const TDateTime first = calendar.FinishAfter(*start, 1) - kMinute;
    return {above, {first, calendar.FinishAfter(first, calendar.DayMinutes())}};
}

bool PlanEdits::Insert(int above)
{
    const int parent = above == kNoIndex ? kNoIndex : GetPlan().Tasks.at(std::size_t(above)).Parent;
    const PlanSpan dates = NewTaskDates(above).Dates;
    return Rearrange(tr("Insert task"), [&](PlanEditor &editor) {
        return editor.Insert(parent, above, tr("New task"), dates);
    });
}

bool PlanEdits::Delete(const std::vector<int> &tasks)
{
    if (!Do(tr("Delete %1").arg(NamesOf(tasks)),
            [&](PlanEditor &editor) { return editor.Delete(tasks); })) {
        return false;
    }
    // On with what has come to the place of the first one.
    const int count = static_cast<int>(GetPlan().Tasks.size());
    const int first = std::min(std::ranges::min(tasks), count - 1);
    Q_EMIT concerned(first < 0 ? std::vector<int>() : std::vector{first});
    return true;
}

bool PlanEdits::Duplicate(const std::vector<int> &tasks, TDateTime days)
{
    return Rearrange(tr("Copy %1").arg(NamesOf(tasks)),
                     [&](PlanEditor &editor) { return editor.Duplicate(tasks, days); });
}

bool PlanEdits::MoveTo(const std::vector<int> &tasks, int parent, int before)
{
    const bool isInto = parent != kNoIndex && !tasks.empty()
                        && parent != GetPlan().Tasks.at(std::size_t(tasks.front())).Parent;
    const QString names = NamesOf(tasks);
    return Rearrange(isInto ? tr("Move %1 into %2").arg(names, NamesOf({parent}))
                            : tr("Rearrange %1").arg(names),
                     [&](PlanEditor &editor) { return editor.MoveTo(tasks, parent, before); });
}

bool PlanEdits::Indent(const std::vector<int> &tasks)
{
    return Rearrange(tr("Indent %1").arg(NamesOf(tasks)),
                     [&](PlanEditor &editor) { return editor.Indent(tasks); });
}

bool PlanEdits::Outdent(const std::vector<int> &tasks)
{
    return Rearrange(tr("Outdent %1").arg(NamesOf(tasks)),
                     [&](PlanEditor &editor) { return editor.Outdent(tasks); });
}

bool PlanEdits::MoveUp(const std::vector<int> &tasks)
{
    return Rearrange(tr("Move %1 up").arg(NamesOf(tasks)),
                     [&](PlanEditor &editor) { return editor.MoveUp(tasks); });
}

bool PlanEdits::MoveDown(const std::vector<int> &tasks)
{
    return Rearrange(tr("Move %1 down").arg(NamesOf(tasks)),
                     [&](PlanEditor &editor) { return editor.MoveDown(tasks); });
}

bool PlanEdits::Link(int predecessor, int successor)
{
    return Do(tr("Link %1 to %2").arg(NamesOf({predecessor}), NamesOf({successor})),
              [&](PlanEditor &editor) {
                  return editor.AddLink({predecessor, successor, {}});
              });
}

bool PlanEdits::LinkInOrder(const std::vector<int> &tasks)
{
    const QString text = tasks.size() == 2
                             ? tr("Link %1 to %2").arg(NamesOf({tasks[0]}), NamesOf({tasks[1]}))
                             : tr("Link %n tasks", nullptr, static_cast<int>(tasks.size()));
    return Do(text, [&](PlanEditor &editor) { return editor.LinkInOrder(tasks); });
}

bool PlanEdits::RemoveLinks(const std::vector<int> &links)
{
    if (links.empty()) {
        return false;
    }
    const PlanLink &first = GetPlan().Links.at(std::size_t(links.front()));
    const QString text =
        links.size() == 1
            ? tr("Unlink %1 and %2").arg(NamesOf({first.Predecessor}), NamesOf({first.Successor}))
            : tr("Remove %n links", nullptr, static_cast<int>(links.size()));
    return Do(text, [&](PlanEditor &editor) { return editor.RemoveLinks(links); });
}

bool PlanEdits::ChangeLink(int link, PlanLinkType type, PlanLag lag)
{
    const PlanLink &former = GetPlan().Links.at(std::size_t(link));
    return Do(tr("Change the link of %1 and %2")
                  .arg(NamesOf({former.Predecessor}), NamesOf({former.Successor})),
              [&](PlanEditor &editor) { return editor.ChangeLink(link, type, lag); });
}

std::vector<int> PlanEdits::LinksAmong(const std::vector<int> &tasks) const
{
    std::vector<int> sorted = tasks;
    std::ranges::sort(sorted);
    const auto isMeant = [&](int task) { return std::ranges::binary_search(sorted, task); };
    std::vector<int> links;
    for (std::size_t i = 0; i < GetPlan().Links.size(); ++i) {
        const PlanLink &link = GetPlan().Links[i];
        const int ends = int(isMeant(link.Predecessor)) + int(isMeant(link.Successor));
        if (ends == 2 || (ends == 1 && tasks.size() == 1)) {
            links.push_back(static_cast<int>(i));
        }
    }
    return links;
}

bool PlanEdits::Unlink(const std::vector<int> &tasks)
{
    const std::vector<int> links = LinksAmong(tasks);
    if (links.empty()) {
        Q_EMIT refused(tr("There are no links between the selected tasks."));
        return false;
    }
    return RemoveLinks(links);
}

} // namespace korvane::planner
