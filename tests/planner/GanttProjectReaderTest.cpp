#include "PlanText.h"
#include "plan/GanttProjectReader.h"

namespace korvane::planner::test {
namespace {

QByteArray Project(const QByteArray &calendars, const QByteArray &tasks,
                   const QByteArray &rest = {})
{
    return "<project name='Plan' version='3.3'>\n<calendars>" + calendars + "</calendars><tasks>"
           + tasks + "</tasks>" + rest + "</project>";
}

std::string FinishOf(const QByteArray &calendars, const QByteArray &start,
                     const QByteArray &duration)
{
    const Plan plan = Loaded<GanttProjectReader>(Project(
        calendars, "<task id='0' name='T' start='" + start + "' duration='" + duration + "'/>"));
    return IsoText(plan.Tasks.at(0).Dates->Finish).toStdString();
}

TEST(GanttProjectReader, ReadsNestedTasksWithTheirProperties)
{
    const Plan plan = Loaded<GanttProjectReader>(
        Project("",
                "<taskproperties><taskproperty id='tpd0'/></taskproperties>"
                "<task id='0' name='Phase' color='#99ccff' meeting='false' start='2026-11-02'"
                " duration='5' complete='33' expand='false'>"
                "<notes><![CDATA[ a < b ]]></notes>"
                "<task id='4' name='Gate' meeting='true' start='2026-11-04' duration='1'/>"
                "<customproperty taskproperty-id='tpc0' value='1'/>"
                "<task id='5' name='Work' start='2026-11-05' duration='2'/></task>"
                "<task id='6' name='After' start='2026-11-09' duration='1'/>",
                "<resources><resource id='3' name='Ada'/><resource id='4' name='Emmy'/></resources>"
                "<allocations><allocation task-id='5' resource-id='4' load='50.0'/>"
                "<allocation task-id='77' resource-id='4' load='1'/></allocations>"));
    EXPECT_EQ(plan.Name, u"Plan");
    ASSERT_EQ(plan.Tasks.size(), 4U);
    EXPECT_EQ(plan.Tasks[0].Notes, u"a < b");
    EXPECT_EQ(plan.Tasks[0].Color, Rgb(0x99, 0xCC, 0xFF));
    EXPECT_EQ(plan.Tasks[0].PercentComplete, 33);
    EXPECT_TRUE(plan.Tasks[0].Collapsed && plan.Tasks[0].MarkedSummary);
    EXPECT_TRUE(plan.Tasks[1].Milestone);
    EXPECT_EQ(plan.Tasks[1].Dates->Start, plan.Tasks[1].Dates->Finish);
    EXPECT_EQ(plan.Tasks[2].Parent, 0);
    EXPECT_EQ(plan.Tasks[2].Level, 2);
    EXPECT_EQ(plan.Tasks[3].Parent, kNoIndex);
    EXPECT_EQ(IsoText(plan.Tasks[3].Dates->Finish), u"2026-11-10T00:00:00");
    EXPECT_EQ(plan.Resources.size(), 2U);
    ASSERT_EQ(plan.AssignmentsOf(2).size(), 1U);
    EXPECT_EQ(plan.AssignmentsOf(2)[0].Resource, 1);
    EXPECT_EQ(plan.AssignmentsOf(2)[0].Units, 0.5);
    EXPECT_TRUE(HasRemark(plan, u"unknown task (UID 77)"_s, 2));
}

TEST(GanttProjectReader, CountsWorkingDaysByTheFilesCalendar)
{
    const QByteArray week = "<default-week id='1' sun='1' mon='0' tue='0' wed='0' thu='0' fri='0' "
                            "sat='1'/>";
    const QByteArray friday = "2026-11-06";
    const std::pair<QByteArray, std::string> calendars[] = {
        // two days of work from Friday on
        {"", "2026-11-10"},
        {"<day-types>" + week + "</day-types>", "2026-11-10"},
        {"<day-types><calendar id='1'>" + week + "</calendar></day-types>", "2026-11-10"},
        {"<day-types>" + week + "<only-show-weekends value='true'/></day-types>", "2026-11-08"},
        {"<default-week fri='1' sat='0'/>", "2026-11-10"},
        {"<date year='2026' month='11' date='9' type='HOLIDAY'/>", "2026-11-11"},
        {"<date year='' month='11' date='9' type='HOLIDAY'/>", "2026-11-11"},
        {"<date year='' month='11' date='9' type='HOLIDAY'/>"
         "<date year='2026' month='11' date='9' type='WORKING_DAY'><![CDATA[once]]></date>",
         "2026-11-10"},
        {"<date year='2026' month='11' date='7' type='WORKING_DAY'/>", "2026-11-08"},
        {"<date year='2026' month='11' date='9' type='NEUTRAL'/>", "2026-11-10"},
        {"<date year='2026' month='2' date='30' type='HOLIDAY'/>", "2026-11-10"},
        {"<default-week sun='1' mon='1' tue='1' wed='1' thu='1' fri='1' sat='1'/>", "2026-11-08"},
    };
    for (const auto &[calendar, finish] : calendars) {
        EXPECT_EQ(FinishOf(calendar, friday, "2"), finish + "T00:00:00") << calendar.data();
    }
    const std::pair<QByteArray, std::string> durations[] = {
        {"1", "2026-11-07"},    {"0", friday.data()},    {"-3", friday.data()},
        {"1e30", "4000-01-01"}, {"long", friday.data()},
    };
    for (const auto &[duration, finish] : durations) {
        EXPECT_EQ(FinishOf("", friday, duration), finish + "T00:00:00") << duration.data();
    }
}

TEST(GanttProjectReader, LinksLeadFromTheTaskInWhichTheyStand)
{
    const std::pair<QByteArray, PlanLinkType> cases[] = {
        {"type='1'", PlanLinkType::StartToStart},   {"type='2'", PlanLinkType::FinishToStart},
        {"type='3'", PlanLinkType::FinishToFinish}, {"type='4'", PlanLinkType::StartToFinish},
        {"type='9'", PlanLinkType::FinishToStart},  {"", PlanLinkType::FinishToStart},
    };
    for (const auto &[type, expected] : cases) {
        const Plan plan = Loaded<GanttProjectReader>(
            Project("", "<task id='0' start='2026-11-02' duration='1'><depend id='8' " + type
                            + " difference='-2' hardness='Strong'/></task>"
                            + "<task id='8' start='2026-11-03' duration='1'/>"));
        ASSERT_EQ(plan.Links.size(), 1U);
        EXPECT_EQ(plan.Links[0].Predecessor, 0);
        EXPECT_EQ(plan.Links[0].Successor, 1);
        EXPECT_EQ(plan.Links[0].Type, expected) << type.toStdString();
        EXPECT_EQ(plan.Links[0].Lag, (PlanLag{-2.0 * 1440, PlanLagUnit::WorkingMinutes}));
    }
}

TEST(GanttProjectReader, KeepsAndReportsWhatIsMerelyOdd)
{
    const std::pair<QByteArray, QString> cases[] = {
        {"<task id='1' name='T'/>", u"has no usable dates"_s},
        {"<task id='1' start='05/11/2026' duration='1'/>", u"not a date"_s},
        {"<task name='T' start='2026-11-02' duration='1'/>", u"no usable UID"_s},
        {"<task id='1' start='2026-11-02' duration='1'/><task id='1' start='2026-11-02'/>",
         u"used again"_s},
        {"<task id='1' start='2026-11-02' duration='1'><depend id='1' type='2'/></task>",
         u"linked with itself"_s},
        {"<task id='1' start='2026-11-02' duration='1'><depend id='5' type='2'/></task>",
         u"unknown task (UID 5)"_s},
        {"<task id='1' start='2026-11-02' duration='1' complete='-4'/>", u"between 0 and 100"_s},
    };
    for (const auto &[tasks, remark] : cases) {
        const Plan plan = Loaded<GanttProjectReader>(Project("", tasks));
        EXPECT_TRUE(HasRemark(plan, remark, 2)) << tasks.toStdString() << AllRemarks(plan);
        EXPECT_FALSE(plan.Tasks.empty());
    }
}

TEST(GanttProjectReader, NestsDeeplyWithoutDeepCalls)
{
    const int depth = 900;
    QByteArray open;
    for (int i = 0; i < depth; ++i) {
        open += "<task id='" + QByteArray::number(i) + "' start='2026-11-02' duration='1'>";
    }
    const Plan plan =
        Loaded<GanttProjectReader>(Project("", open + QByteArray("</task>").repeated(depth)));
    ASSERT_EQ(plan.Tasks.size(), std::size_t(depth));
    EXPECT_EQ(plan.Tasks.back().Level, kMaxOutlineLevel);
    EXPECT_EQ(std::ranges::count_if(plan.Tasks, &PlanTask::IsSummary), depth - 1);
}

} // namespace
} // namespace korvane::planner::test
