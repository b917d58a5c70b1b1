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

TEST(PlanSample, HasLinksOfEveryTypeWithLagsAndALead)
{
    const Plan plan = Sample();
    std::set<std::pair<PlanLinkType, bool>> kinds; // with and without a lag or lead
    for (const PlanLink &link : plan.Links) {
        kinds.emplace(link.Type, link.Lag.Amount != 0);
    }
    EXPECT_GE(kinds.size(), 5U);
    EXPECT_TRUE(
        std::ranges::any_of(plan.Links, [](const auto &link) { return link.Lag.Amount < 0; }));
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
