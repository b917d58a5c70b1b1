#include "plan/PlanSummary.h"

#include "plan/PlanDates.h"

#include <QJsonValue>

#include <algorithm>

namespace korvane::planner {

namespace {

QJsonValue IsoOrNull(const std::optional<TDateTime> &instant)
{
    return instant ? QJsonValue(IsoText(*instant)) : QJsonValue(QJsonValue::Null);
}

} // namespace

QJsonObject Summarize(const Plan &plan)
{
    if (plan.Kind == PlanKind::Intervals) {
        return {{QStringLiteral("rows"), static_cast<qint64>(plan.Resources.size())},
                {QStringLiteral("items"), static_cast<qint64>(plan.Tasks.size())},
                {QStringLiteral("start"), IsoOrNull(plan.LeastStart)},
                {QStringLiteral("finish"), IsoOrNull(plan.GreatestFinish)}};
    }
    const auto milestones =
        std::ranges::count_if(plan.Tasks, [](const PlanTask &task) { return task.Milestone; });
    const auto summaries =
        std::ranges::count_if(plan.Tasks, [](const PlanTask &task) { return task.MarkedSummary; });
    return {
        {QStringLiteral("tasks"), static_cast<qint64>(plan.Tasks.size())},
        {QStringLiteral("milestones"), static_cast<qint64>(milestones)},
        {QStringLiteral("summaries"), static_cast<qint64>(summaries)},
        {QStringLiteral("links"), static_cast<qint64>(plan.Links.size())},
        {QStringLiteral("resources"), static_cast<qint64>(plan.Resources.size())},
        {QStringLiteral("start"), IsoOrNull(plan.LeastStart)},
        {QStringLiteral("finish"), IsoOrNull(plan.GreatestFinish)},
    };
}

} // namespace korvane::planner
