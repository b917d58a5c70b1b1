// Edits of the outline.
#include "plan/PlanBuilder.h"
#include "plan/PlanEditor.h"
#include "plan/PlanOutline.h"
#include "plan/PlannerText.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace korvane::planner {

namespace {

/// All indices of the subtrees.
std::vector<int> SubtreeTasks(const Plan &plan, std::span<const int> tops)
{
    std::vector<int> tasks;
    for (const int top : tops) {
        const auto old = static_cast<std::ptrdiff_t>(tasks.size());
        tasks.resize(tasks.size() + std::size_t(SubtreeEnd(plan, top) - top));
        std::iota(tasks.begin() + old, tasks.end(), top);
    }
    return tasks;
}

/// Indices of the links for which `matches` holds.
template <typename Matches>
std::vector<int> LinksWhere(const Plan &plan, Matches matches)
{
    std::vector<int> links;
    for (std::size_t i = 0; i < plan.Links.size(); ++i) {
        if (matches(plan.Links[i])) {
            links.push_back(static_cast<int>(i));
        }
    }
    return links;
}

} // namespace

void PlanEditor::CheckRoom(std::size_t count) const
{
    if (m_plan.Tasks.size() + count > PlanBuilder::kMaxItems) {
        Refuse(PlannerText::tr("A plan has %1 tasks at most.").arg(PlanBuilder::kMaxItems));
    }
}

PlanChange PlanEditor::Insert(int parent, int before, const QString &name,
                              std::optional<PlanSpan> dates)
{
    return Edit([&] {
        CheckRoom(1);
        const int level = parent == kNoIndex ? 0 : m_plan.Tasks.at(parent).Level;
        if (level >= kMaxOutlineLevel) {
            Refuse(PlannerText::tr("An outline has %1 levels at most.").arg(kMaxOutlineLevel));
        }
        const int end =
            parent == kNoIndex ? static_cast<int>(m_plan.Tasks.size()) : SubtreeEnd(m_plan, parent);
        const int index = before == kNoIndex ? end : before;
        PlanTask task;
        task.Uid = NextTaskUid(m_plan);
        task.Name = CheckedName(name);
        task.Dates = dates;
        task.Parent = parent;
        task.Level = static_cast<std::int16_t>(level + 1);
        Do(TaskRows{{index}, {std::move(task)}, {}});
        Refresh({&parent, 1});
        m_change.TasksAfter = {index};
    });
}

PlanChange PlanEditor::Append(int count, const QString &name, const PlanSpan &dates)
{
    return Edit([&] {
        CheckRoom(static_cast<std::size_t>(count));
        TaskRows rows;
        const std::int64_t first = NextTaskUid(m_plan);
        for (int i = 0; i < count; ++i) {
            PlanTask task;
            task.Uid = first == kNoUid ? kNoUid : first + i;
            task.Name = CheckedName(name);
            task.Dates = dates;
            task.Level = 1;
            rows.Indices.push_back(static_cast<int>(m_plan.Tasks.size()) + i);
            rows.Kept.push_back(std::move(task));
        }
        m_change.TasksAfter = rows.Indices;
        Do(std::move(rows));
    });
}

PlanChange PlanEditor::Delete(std::span<const int> tasks)
{
    return Edit([&] {
        const std::vector<int> tops = WithoutDescendants(m_plan, tasks);
        if (tops.empty()) {
            return;
        }
        TaskRows rows{SubtreeTasks(m_plan, tops), {}, {}, true};
        const auto isGone = [&](int task) {
            return std::ranges::binary_search(rows.Indices, task);
        };
        LinkRows links{LinksWhere(m_plan,
                                  [&](const PlanLink &link) {
                                      return isGone(link.Predecessor) || isGone(link.Successor);
                                  }),
                       {},
                       true};
        if (!links.Indices.empty()) {
            Do(std::move(links));
        }
        std::vector<int> parents;
        for (const int top : tops) {
            const int parent = m_plan.Tasks[top].Parent;
            parents.push_back(parent == kNoIndex ? kNoIndex
                                                 : IndexAfterRemoval(rows.Indices, parent));
        }
        Do(std::move(rows));
        Refresh(parents);
        m_change.TasksBefore = tops;
    });
}

TaskRows PlanEditor::Copies(std::span<const int> tops, TDateTime days,
                            std::vector<int> &copyOf) const
{
    const std::vector<int> originals = SubtreeTasks(m_plan, tops);
    CheckRoom(originals.size());
    TaskRows rows;
    for (const int top : tops) {
        const int end = SubtreeEnd(m_plan, top);
        for (int original = top; original < end; ++original) {
            // Before it are the originals up to the end of its subtree, and the copies so far.
            copyOf[original] = end + static_cast<int>(rows.Indices.size());
            rows.Indices.push_back(copyOf[original]);
        }
    }
    std::int64_t uid = NextTaskUid(m_plan);
    for (const int original : originals) {
        PlanTask copy = m_plan.Tasks[original];
        ShiftTask(copy, days);
        copy.Uid = uid == kNoUid ? kNoUid : uid++;
        if (copy.Parent != kNoIndex) {
            const int parentCopy = copyOf[copy.Parent];
            copy.Parent = parentCopy != kNoIndex ? parentCopy
                                                 : IndexAfterInsertion(rows.Indices, copy.Parent);
        }
        rows.Kept.push_back(std::move(copy));
        for (PlanAssignment assignment : m_plan.AssignmentsOf(original)) {
            assignment.Task = copyOf[original];
            rows.KeptAssignments.push_back(assignment);
        }
    }
    return rows;
}

PlanChange PlanEditor::Duplicate(std::span<const int> tasks, TDateTime days)
{
    return Edit([&] {
        const std::vector<int> tops = WithoutDescendants(m_plan, tasks);
        std::vector<int> copyOf(m_plan.Tasks.size(), kNoIndex);
        TaskRows rows = Copies(tops, days, copyOf);
        std::vector<PlanLink> links;
        for (PlanLink link : m_plan.Links) {
            link.Predecessor = copyOf[link.Predecessor];
            link.Successor = copyOf[link.Successor];
            if (link.Predecessor != kNoIndex && link.Successor != kNoIndex) {
                links.push_back(link);
            }
        }
        Do(std::move(rows));
        InsertLinks(std::move(links));
        std::vector<int> parents;
        for (const int top : tops) {
            m_change.TasksAfter.push_back(copyOf[top]);
            parents.push_back(m_plan.Tasks[copyOf[top]].Parent);
        }
        Refresh(parents);
        m_change.TasksBefore = tops;
    });
}

void PlanEditor::CheckMove(int task, int parent) const
{
    const PlanTask &moved = m_plan.Tasks.at(task);
    const int end = SubtreeEnd(m_plan, task);
    if (parent >= task && parent < end) {
        Refuse(PlannerText::tr("%1 cannot become a subtask of itself.").arg(QuotedName(moved)));
    }
    int deepest = 0;
    for (int below = task; below < end; ++below) {
        deepest = std::max<int>(deepest, m_plan.Tasks[below].Level - moved.Level);
    }
    const int level = parent == kNoIndex ? 0 : m_plan.Tasks[parent].Level;
    if (level + 1 + deepest > kMaxOutlineLevel) {
        Refuse(PlannerText::tr("An outline has %1 levels at most.").arg(kMaxOutlineLevel));
    }
    const auto isNewSummary = [&](int other) {
        return (other == parent || (parent != kNoIndex && IsBelow(m_plan, parent, other)))
               && !IsBelow(m_plan, task, other);
    };
    const auto isMoved = [=](int other) { return other >= task && other < end; };
    for (const PlanLink &link : m_plan.Links) {
        if ((isMoved(link.Predecessor) && isNewSummary(link.Successor))
            || (isMoved(link.Successor) && isNewSummary(link.Predecessor))) {
            Refuse(PlannerText::tr("%1 cannot become a subtask of %2: they are linked.")
                       .arg(QuotedName(moved), QuotedName(m_plan.Tasks[parent])));
        }
    }
}

PlanEditor::TaskMove PlanEditor::ApplyMove(int task, int parent, int before)
{
    const int oldParent = m_plan.Tasks.at(task).Parent;
    const int end = SubtreeEnd(m_plan, task);
    if (parent != oldParent) {
        CheckMove(task, parent);
    }
    int at = before;
    if (before == kNoIndex) {
        at =
            parent == kNoIndex ? static_cast<int>(m_plan.Tasks.size()) : SubtreeEnd(m_plan, parent);
    }
    if (parent == oldParent && at >= task && at <= end) {
        return {};
    }
    const int count = end - task;
    const TaskMove moved{task, count, at > task ? at - count : at};
    Do(SubtreeMove{task, moved.To, moved(parent)});
    for (int &index : m_change.TasksAfter) {
        index = moved(index);
    }
    if (parent != oldParent) {
        const std::array parents{moved(oldParent), moved(parent)};
        Refresh(parents);
    }
    return moved;
}

/// Begins an edit that moves the tasks one after the other.
void PlanEditor::MoveEach(std::span<const int> tasks)
{
    m_change.TasksBefore = WithoutDescendants(m_plan, tasks);
    m_change.TasksAfter = m_change.TasksBefore;
}

PlanChange PlanEditor::MoveTo(std::span<const int> tasks, int parent, int before)
{
    return Edit([&] {
        MoveEach(tasks);
        const auto isMoved = [this](int task) {
            return std::ranges::find(m_change.TasksBefore, task) != m_change.TasksBefore.end();
        };
        // Those that are moved themselves cannot be what others stand before.
        int newParent = parent;
        int next = before;
        while (next != kNoIndex && isMoved(next)) {
            next = NextSibling(m_plan, next);
        }
        for (const int &task : m_change.TasksAfter) { // follows what moves
            const TaskMove moved = ApplyMove(task, newParent, next);
            newParent = moved(newParent);
            next = moved(next);
        }
    });
}

PlanChange PlanEditor::Indent(std::span<const int> tasks)
{
    return Edit([&] {
        MoveEach(tasks);
        for (const int task : m_change.TasksBefore) {
            const int previous = PreviousSibling(m_plan, task);
            if (previous == kNoIndex) {
                Refuse(PlannerText::tr("%1 has no task before it to become its summary task.")
                           .arg(QuotedName(m_plan.Tasks.at(task))));
            }
            // It stays where it is: no other index changes.
            ApplyMove(task, previous, kNoIndex);
        }
    });
}

PlanChange PlanEditor::Outdent(std::span<const int> tasks)
{
    return Edit([&] {
        MoveEach(tasks);
        // From the last to the first: what is moved goes down, and those before it stay.
        for (std::size_t i = m_change.TasksBefore.size(); i-- > 0;) {
            const int task = m_change.TasksBefore[i];
            const int parent = m_plan.Tasks.at(task).Parent;
            if (parent == kNoIndex) {
                Refuse(PlannerText::tr("%1 is at the top level already.")
                           .arg(QuotedName(m_plan.Tasks.at(task))));
            }
            const int above = m_plan.Tasks[parent].Parent;
            ApplyMove(task, above, NextSibling(m_plan, parent));
        }
    });
}

PlanChange PlanEditor::MoveUp(std::span<const int> tasks)
{
    return Edit([&] {
        MoveEach(tasks);
        for (const int &task : m_change.TasksAfter) { // follows what moves
            const int previous = PreviousSibling(m_plan, task);
            if (previous == kNoIndex) {
                Refuse(PlannerText::tr("%1 is the first task of its level already.")
                           .arg(QuotedName(m_plan.Tasks.at(task))));
            }
            ApplyMove(task, m_plan.Tasks[task].Parent, previous);
        }
    });
}

PlanChange PlanEditor::MoveDown(std::span<const int> tasks)
{
    return Edit([&] {
        MoveEach(tasks);
        for (std::size_t i = m_change.TasksAfter.size(); i-- > 0;) {
            const int task = m_change.TasksAfter[i];
            const int next = NextSibling(m_plan, task);
            if (next == kNoIndex) {
                Refuse(PlannerText::tr("%1 is the last task of its level already.")
                           .arg(QuotedName(m_plan.Tasks.at(task))));
            }
            ApplyMove(task, m_plan.Tasks[task].Parent, NextSibling(m_plan, next));
        }
    });
}

} // namespace korvane::planner
