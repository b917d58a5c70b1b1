// A small plan, as a model and as a file.
#pragma once

#include "PlanText.h"
#include "foundation/zuDateUtils.h"

namespace korvane::planner::test {

/// A Monday.
inline const TDateTime kMonday = EncodeDate(2026, 11, 2);

inline PlanTask TaskFrom(const QString &name, int parent, double startDay, double finishDay)
{
    PlanTask task;
    task.Name = name;
    task.Parent = parent;
    task.Level = parent == kNoIndex ? 1 : 2;
    task.Dates = PlanSpan{kMonday + startDay, kMonday + finishDay};
    return task;
}

/// 0 Build [0, 20) with 1 Dig [0, 10), half done, 2 Wait (no dates), 3 Paint [10, 20) in two parts,
/// and 4 Opening (milestone on day 20) at the top; links 1 -> 3, 3 -> 4, 1 -> 2, 1 -> 1.
inline Plan SmallPlan()
{
    Plan plan;
    plan.Name = u"Small"_s;
    plan.Tasks = {TaskFrom(u"Build"_s, kNoIndex, 0, 20), TaskFrom(u"Dig"_s, 0, 0, 10),
                  TaskFrom(u"Wait"_s, 0, 0, 0), TaskFrom(u"Paint"_s, 0, 10, 20),
                  TaskFrom(u"Opening"_s, kNoIndex, 20, 20)};
    plan.Tasks[0].HasChildren = true;
    plan.Tasks[1].PercentComplete = 50;
    plan.Tasks[2].Dates.reset();
    plan.Tasks[3].Parts = {{kMonday + 10, kMonday + 12}, {kMonday + 15, kMonday + 20}};
    plan.Tasks[4].Milestone = true;
    for (const auto &[predecessor, successor] : {std::pair(1, 3), {3, 4}, {1, 2}, {1, 1}}) {
        plan.Links.push_back({predecessor, successor, {}});
    }
    return plan;
}

/// A project file with tasks "Task 1" .. "Task <count>", one day each, without remarks.
inline QByteArray ProjectText(int count)
{
    QByteArray text = "<Project xmlns='http://schemas.microsoft.com/project'><Tasks>";
    for (int uid = 1; uid <= count; ++uid) {
        const QByteArray number = QByteArray::number(uid);
        text += "<Task><UID>" + number + "</UID><Name>Task " + number
                + "</Name><OutlineLevel>1</OutlineLevel><Start>2026-11-02T08:00:00</Start>"
                  "<Finish>2026-11-02T17:00:00</Finish></Task>\n";
    }
    return text + "</Tasks></Project>";
}

} // namespace korvane::planner::test
