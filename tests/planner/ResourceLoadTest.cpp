#include "PlanText.h"
#include "plan/MspdiReader.h"
#include "plan/ResourceLoad.h"

#include <random>
#include <set>

namespace korvane::planner::test {

namespace {

using Stretches = std::vector<LoadStretch>;

TEST(ResourceLoad, SumsAreDisjointAndJoined)
{
    const std::pair<Stretches, Stretches> cases[] = {
        {{}, {}},
        {{{1, 1, 1}, {3, 2, 1}}, {}},
        {{{1, 2, 1}, {2, 3, 1}}, {{1, 3, 1}}},
        {{{1, 2, 1}, {2, 3, 2}}, {{1, 2, 1}, {2, 3, 2}}},
        {{{1, 2, 1}, {4, 5, 1}}, {{1, 2, 1}, {4, 5, 1}}},
        {{{1, 5, 1}, {2, 3, 0.5}, {2, 4, 0.5}}, {{1, 2, 1}, {2, 3, 2}, {3, 4, 1.5}, {4, 5, 1}}},
        {{{1, 3, 1}, {1, 3, 1}}, {{1, 3, 2}}},
        {{{1, 4, 0}, {2, 3, 1}}, {{2, 3, 1}}},
    };
    for (const auto &[loads, sum] : cases) {
        EXPECT_EQ(SumOf(loads), sum);
    }
}

/// Against a walk over all pairs of neighbouring ends.
TEST(ResourceLoad, SumsMeetAPlainSum)
{
    std::mt19937 random(11);
    for (int round = 0; round < 2000; ++round) {
        Stretches loads(random() % 12);
        std::set<double> ends;
        for (LoadStretch &load : loads) {
            load = {double(random() % 15), double(random() % 15), double(random() % 4) / 10};
            ends.insert({load.From, load.To});
        }
        const auto plain = [&](double at) {
            double units = 0;
            for (const LoadStretch &load : loads) {
                units += load.From <= at && at < load.To ? load.Units : 0;
            }
            return units;
        };
        const Stretches sum = SumOf(loads);
        for (const double at : ends) {
            const std::size_t i = FirstAfter(sum, at);
            const double units = i < sum.size() && sum[i].From <= at ? sum[i].Units : 0;
            ASSERT_NEAR(units, plain(at), 1e-9) << "round " << round << " at " << at;
        }
        for (std::size_t i = 1; i < sum.size(); ++i) {
            ASSERT_TRUE(sum[i - 1].To < sum[i].From
                        || (sum[i - 1].To == sum[i].From && sum[i - 1].Units != sum[i].Units));
        }
    }
}

TEST(ResourceLoad, OverloadIsWhatExceedsTheLimitInWorkingTime)
{
    const TDateTime friday = 46087; // 2026-03-06
    const double evening = 17.0 / 24;
    const double morning = 8.0 / 24;
    Plan plan;
    PlanResource resource;
    const Stretches load = {{friday, friday + evening, 2},
                            {friday + evening, friday + 3 + morning, 3},
                            {friday + 3 + morning, friday + 4, 1}};
    EXPECT_EQ(OverloadOf(plan, resource, load), Stretches({load[0]}));
    resource.MaxUnits = 0.5;
    EXPECT_EQ(OverloadOf(plan, resource, load), Stretches({load[0], load[2]}));
    resource.MaxUnits = 2;
    EXPECT_TRUE(OverloadOf(plan, resource, load).empty());
    WorkCalendar::Week nights;
    nights.fill(DayTimes::WholeDay());
    plan.Calendars.push_back({1, {}, WorkCalendar(nights)});
    resource.Calendar = 0;
    EXPECT_EQ(OverloadOf(plan, resource, load), Stretches({load[1]}));
    resource.MaxUnits.reset();
    EXPECT_TRUE(OverloadOf(plan, resource, load).empty());
}

TEST(ResourceLoad, SplitTasksCountByTheirParts)
{
    PlanTask task;
    Stretches loads;
    AddLoad(task, 1, loads);
    EXPECT_TRUE(loads.empty());
    task.Dates = PlanSpan{1, 9};
    AddLoad(task, 0.5, loads);
    task.Parts = {{1, 3}, {6, 9}};
    AddLoad(task, 2, loads);
    EXPECT_EQ(loads, Stretches({{1, 9, 0.5}, {1, 3, 2}, {6, 9, 2}}));
}

TEST(ResourceLoad, LimitsAndCalendarsOfResourcesAreRead)
{
    const Plan plan = Loaded<MspdiReader>(
        "<Project xmlns='http://schemas.microsoft.com/project'><Calendars>"
        "<Calendar><UID>1</UID><IsBaseCalendar>1</IsBaseCalendar></Calendar>"
        "<Calendar><UID>4</UID><IsBaseCalendar>1</IsBaseCalendar></Calendar>"
        "<Calendar><UID>7</UID><IsBaseCalendar>0</IsBaseCalendar>"
        "<BaseCalendarUID>4</BaseCalendarUID></Calendar></Calendars><Resources>"
        "<Resource><UID>1</UID><Type>1</Type><MaxUnits>2.5</MaxUnits>"
        "<CalendarUID>7</CalendarUID></Resource>"
        "<Resource><UID>2</UID><Type>0</Type><MaxUnits>1</MaxUnits></Resource>"
        "<Resource><UID>3</UID><CalendarUID>1</CalendarUID></Resource></Resources></Project>");
    ASSERT_EQ(plan.Resources.size(), 3U);
    EXPECT_EQ(plan.Resources[0].MaxUnits, 2.5);
    EXPECT_EQ(plan.Resources[0].Calendar, 1);
    EXPECT_EQ(plan.Resources[1].MaxUnits, std::nullopt);
    EXPECT_EQ(plan.Resources[1].Calendar, kNoIndex);
    EXPECT_EQ(plan.Resources[2].MaxUnits, 1);
    EXPECT_EQ(plan.Resources[2].Calendar, 0);
}

} // namespace
} // namespace korvane::planner::test
