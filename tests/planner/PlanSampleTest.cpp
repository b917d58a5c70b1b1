// The bundled plan has to be a good example: rich, and without contradictions.
#include "PlanText.h"
#include "plan/PlanSummary.h"

#include <QJsonDocument>

#include <set>

namespace korvane::planner::test {
namespace {

Plan Sample()
{
    NoProgress progress;
    PlanResult result = LoadPlan(QStringLiteral(KORVANE_SAMPLES "/observatory.xml"),
                                 PlanReaders::Builtin(), progress);
    EXPECT_EQ(result.Status, PlanStatus::Loaded) << result.Error.Reason.toStdString();
    return std::move(result.Value);
}

TEST(PlanSample, IsReadCompletelyAndWithoutRemarks)
{
    const Plan plan = Sample();
    EXPECT_EQ(QJsonDocument(Summarize(plan)).toJson(QJsonDocument::Compact),
              R"({"finish":"2027-03-30T17:00:00","links":91,"milestones":11,"resources":11,)"
              R"("start":"2026-07-27T08:00:00","summaries":20,"tasks":86})");
    EXPECT_TRUE(plan.Remarks.IsEmpty()) << AllRemarks(plan);
    EXPECT_EQ(plan.Name, u"Kestrel Ridge Observatory");
    EXPECT_EQ(plan.Assignments.size(), 67U);
}

TEST(PlanSample, ShowsEveryFeatureOfAPlan)
{
    const Plan plan = Sample();
    std::set<PlanLinkType> types;
    std::set<PlanLagUnit> units;
    bool hasLead = false;
    for (const PlanLink &link : plan.Links) {
        types.insert(link.Type);
        units.insert(link.Lag.Unit);
        hasLead = hasLead || link.Lag.Amount < 0;
    }
    EXPECT_EQ(types.size(), 4U);
    EXPECT_EQ(units.size(), 2U);
    EXPECT_TRUE(hasLead);
    const auto some = [&](auto has) { return std::ranges::any_of(plan.Tasks, has); };
    EXPECT_TRUE(some([](const PlanTask &task) { return task.Level == 3; }));
    EXPECT_TRUE(some([](const PlanTask &task) { return !task.Notes.isEmpty(); }));
    EXPECT_TRUE(some([](const PlanTask &task) { return task.Deadline.has_value(); }));
    EXPECT_TRUE(some([](const PlanTask &task) { return task.Name.contains(u"ß"); }));
    EXPECT_TRUE(some([](const PlanTask &task) {
        return task.PercentComplete > 0 && task.PercentComplete < 100;
    }));
    EXPECT_TRUE(some([](const PlanTask &task) { return task.Baseline != task.Dates; }));
}

/// The instant from which the link counts, with its lag.
TDateTime Bound(const Plan &plan, const WorkCalendar &calendar, const PlanLink &link)
{
    const PlanSpan &predecessor = *plan.Tasks[link.Predecessor].Dates;
    const bool isFromStart =
        link.Type == PlanLinkType::StartToStart || link.Type == PlanLinkType::StartToFinish;
    const TDateTime from = isFromStart ? predecessor.Start : predecessor.Finish;
    if (link.Lag.Unit == PlanLagUnit::ElapsedMinutes) {
        return from + link.Lag.Amount / kMinutesPerDay;
    }
    return link.Lag.Amount < 0 ? calendar.StartBefore(from, -link.Lag.Amount)
                               : calendar.FinishAfter(from, link.Lag.Amount);
}

TEST(PlanSample, ItsDatesRespectItsLinksAndWorkingTimes)
{
    const Plan plan = Sample();
    const WorkCalendar &calendar = plan.Calendars.at(plan.Calendar).Times;
    for (const PlanLink &link : plan.Links) {
        const PlanTask &successor = plan.Tasks[link.Successor];
        const bool isToStart =
            link.Type == PlanLinkType::FinishToStart || link.Type == PlanLinkType::StartToStart;
        const TDateTime to = isToStart ? successor.Dates->Start : successor.Dates->Finish;
        // The end of a day and the beginning of the next one are the same working instant.
        EXPECT_GE(calendar.MinutesBetween(Bound(plan, calendar, link), to), -1e-3)
            << successor.Name.toStdString();
    }
    for (std::size_t i = 0; i < plan.Tasks.size(); ++i) {
        const PlanTask &task = plan.Tasks[i];
        if (task.Parent != kNoIndex) {
            const PlanSpan &parent = *plan.Tasks[task.Parent].Dates;
            EXPECT_TRUE(parent.Start <= task.Dates->Start && task.Dates->Finish <= parent.Finish)
                << task.Name.toStdString();
        }
        EXPECT_EQ(task.Milestone, task.Dates->Start == task.Dates->Finish);
        EXPECT_FALSE(task.Name.isEmpty());
        EXPECT_LE(task.Name.size(), 40) << task.Name.toStdString();
    }
}

} // namespace
} // namespace korvane::planner::test
