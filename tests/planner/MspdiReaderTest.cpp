#include "PlanText.h"
#include "plan/MspdiReader.h"

namespace korvane::planner::test {
namespace {

constexpr char kOpen[] = "<Project xmlns='http://schemas.microsoft.com/project'>\n";

/// A project of the given tasks, the first of which stands in line 2.
QByteArray Tasks(const QByteArray &tasks, const QByteArray &rest = {})
{
    return kOpen + ("<Tasks>" + tasks) + "</Tasks>" + rest + "</Project>";
}

QByteArray Task(int uid, const QByteArray &rest)
{
    return "<Task><UID>" + QByteArray::number(uid) + "</UID><Name>T" + QByteArray::number(uid)
           + "</Name>" + rest + "</Task>\n";
}

QByteArray Level(int level)
{
    return "<OutlineLevel>" + QByteArray::number(level) + "</OutlineLevel>";
}

QByteArray Link(const QByteArray &predecessor, const QByteArray &rest)
{
    return "<PredecessorLink><PredecessorUID>" + predecessor + "</PredecessorUID>" + rest
           + "</PredecessorLink>";
}

QByteArray Dates(const QByteArray &start, const QByteArray &finish)
{
    return "<Start>" + start + "</Start><Finish>" + finish + "</Finish>";
}

std::string Text(const std::optional<PlanSpan> &dates)
{
    return dates ? (IsoText(dates->Start) + u' ' + IsoText(dates->Finish)).toStdString() : "none";
}

std::string DatesOf(const PlanTask &task)
{
    return Text(task.Dates);
}

TEST(MspdiReader, ReadsATaskWithEverythingThatAPlanKeeps)
{
    const Plan plan = Loaded<MspdiReader>(Tasks(Task(
        7, Dates("2026-11-02T08:00:00", "2026-11-06T17:00:00")
               + "<Milestone>0</Milestone><Summary>1</Summary><Manual>1</Manual>"
                 "<PercentComplete>40</PercentComplete><Notes> Two\nlines </Notes>"
                 "<ConstraintType>4</ConstraintType>"
                 "<ConstraintDate>2026-11-01T08:00:00</ConstraintDate>"
                 "<Deadline>2026-12-24T17:00:00</Deadline>"
                 "<Baseline><Number>3</Number><Start>2026-01-03</Start><Finish>2026-01-04</Finish>"
                 "</Baseline>"
                 "<Baseline><Number>0</Number><Start>2026-11-01T08:00:00</Start>"
                 "<Finish>2026-11-05T17:00:00</Finish></Baseline>"
                 "<ExtendedAttribute><Start>1999-01-01</Start></ExtendedAttribute>")));
    ASSERT_EQ(plan.Tasks.size(), 1U);
    const PlanTask &task = plan.Tasks[0];
    EXPECT_EQ(task.Uid, 7);
    EXPECT_EQ(task.Name, u"T7");
    EXPECT_EQ(task.Notes, u"Two\nlines");
    EXPECT_EQ(DatesOf(task), "2026-11-02T08:00:00 2026-11-06T17:00:00");
    EXPECT_EQ(task.PercentComplete, 40);
    EXPECT_TRUE(task.MarkedSummary && task.Manual && !task.Milestone && !task.HasChildren);
    EXPECT_EQ(task.Constraint, PlanConstraint::StartNoEarlierThan);
    EXPECT_EQ(IsoText(*task.ConstraintDate), u"2026-11-01T08:00:00");
    EXPECT_EQ(IsoText(*task.Deadline), u"2026-12-24T17:00:00");
    EXPECT_EQ(IsoText(task.Baseline->Start), u"2026-11-01T08:00:00");
    EXPECT_EQ(IsoText(*plan.GreatestFinish), u"2026-11-06T17:00:00");
    EXPECT_TRUE(plan.Remarks.IsEmpty()) << AllRemarks(plan);
}

TEST(MspdiReader, AcceptsAnyPrefixAndNoNamespaceButNoForeignElements)
{
    const QByteArray body =
        "Project xmlns:f='urn:f'><Tasks><Task><UID>1</UID><f:Name>foreign</f:Name>"
        "<Name>own</Name></Task><f:Task><UID>2</UID></f:Task></Tasks></Project>";
    EXPECT_EQ(Loaded<MspdiReader>("<" + body).Tasks.at(0).Name, u"own");
    EXPECT_EQ(Loaded<MspdiReader>("<" + body).Tasks.size(), 1U);
    const Plan prefixed = Loaded<MspdiReader>(
        "<p:Project xmlns:p='http://schemas.microsoft.com/project' xmlns='urn:f'><p:Tasks><p:Task>"
        "<Name>foreign</Name><p:UID>1</p:UID><p:Name>own</p:Name></p:Task></p:Tasks></p:Project>");
    EXPECT_EQ(prefixed.Tasks.at(0).Name, u"own");
}

TEST(MspdiReader, LeavesOutBlankRowsAndTheProjectsOwnTask)
{
    const Plan plan = Loaded<MspdiReader>(
        Tasks(Task(0, Level(0) + Link("1", "")) + Task(1, Level(1)) + Task(2, "<IsNull>1</IsNull>")
                  + Task(3, Level(1) + Link("0", "") + Link("1", "")),
              "<Resources><Resource><UID>0</UID></Resource>"
              "<Resource><UID>1</UID><Name>R</Name></Resource>"
              "<Resource><UID>2</UID><IsNull>1</IsNull></Resource></Resources>"
              "<Assignments><Assignment><TaskUID>3</TaskUID><ResourceUID>1</ResourceUID>"
              "<Units>0.5</Units></Assignment>"
              "<Assignment><TaskUID>1</TaskUID><ResourceUID>-65535</ResourceUID></Assignment>"
              "<Assignment><TaskUID>0</TaskUID><ResourceUID>1</ResourceUID></Assignment>"
              "<Assignment><TaskUID>1</TaskUID><ResourceUID>1</ResourceUID></Assignment>"
              "</Assignments>"));
    ASSERT_EQ(plan.Tasks.size(), 2U);
    ASSERT_EQ(plan.Links.size(), 1U);
    EXPECT_EQ(plan.Links[0].Predecessor, 0);
    EXPECT_EQ(plan.Links[0].Successor, 1);
    ASSERT_EQ(plan.Resources.size(), 1U);
    ASSERT_EQ(plan.Assignments.size(), 2U);
    ASSERT_EQ(plan.AssignmentsOf(1).size(), 1U);
    EXPECT_EQ(plan.AssignmentsOf(1)[0].Units, 0.5);
    EXPECT_TRUE(HasRemark(plan, u"unknown task (UID 0)"_s));
}

TEST(MspdiReader, TellsLinkTypesAndLagsApart)
{
    using enum PlanLinkType;
    using enum PlanLagUnit;
    const auto linkOf = [](const QByteArray &fields) {
        const Plan plan = Loaded<MspdiReader>(Tasks(Task(1, Link("2", fields)) + Task(2, "")));
        EXPECT_EQ(plan.Links.at(0).Predecessor, 1);
        return plan.Links.at(0);
    };
    const std::pair<QByteArray, PlanLinkType> types[] = {
        {"0", FinishToFinish}, {"1", FinishToStart}, {"2", StartToFinish}, {"3", StartToStart}};
    for (const auto &[number, type] : types) {
        EXPECT_EQ(linkOf("<Type>" + number + "</Type>").Type, type);
    }
    EXPECT_EQ(linkOf("").Type, FinishToStart);
    EXPECT_EQ(linkOf("").Lag, (PlanLag{0, WorkingMinutes}));
    const std::tuple<int, int, PlanLag> lags[] = {
        // amount and format as they stand in the file
        {4800, 7, {480, WorkingMinutes}},
        {-24000, 9, {-2400, WorkingMinutes}},
        {14400, 8, {1440, ElapsedMinutes}},
        {600, 38, {60, ElapsedMinutes}},
        {600, 39, {60, WorkingMinutes}},
        {-75, 19, {-75, Percent}},
        {50, 51, {50, Percent}},
        {50, 20, {50, ElapsedPercent}},
        {600, 21, {60, WorkingMinutes}},
    };
    for (const auto &[amount, format, lag] : lags) {
        const QByteArray first = "<LinkLag>" + QByteArray::number(amount) + "</LinkLag>";
        const QByteArray second = "<LagFormat>" + QByteArray::number(format) + "</LagFormat>";
        EXPECT_EQ(linkOf(first + second).Lag, lag) << amount << ' ' << format;
        EXPECT_EQ(linkOf(second + first).Lag, lag) << amount << ' ' << format;
    }
}

TEST(MspdiReader, BuildsTheOutlineFromLevelsThatJump)
{
    struct Case
    {
        std::vector<int> Levels;
        std::vector<int> Parents;
        std::vector<int> Shown;
        int Jumps;
    };
    const Case cases[] = {
        {{1, 2, 3, 2, 1}, {-1, 0, 1, 0, -1}, {1, 2, 3, 2, 1}, 0},
        {{1, 3, 3, 2, 3}, {-1, 0, 0, 0, 3}, {1, 2, 2, 2, 3}, 1},
        {{3, 1, 2}, {-1, -1, 1}, {1, 1, 2}, 1},
        {{0, 1, 2, 1}, {-1, 0, 1, 0}, {1, 2, 3, 2}, 0},
        {{1, -5, 1}, {-1, -1, 1}, {1, 1, 2}, 0},
        {{2, 1'000'000, 2}, {-1, 0, -1}, {1, 2, 1}, 2},
    };
    for (const Case &expected : cases) {
        QByteArray text;
        for (std::size_t i = 0; i < expected.Levels.size(); ++i) {
            text += Task(int(i) + 1, Level(expected.Levels[i]));
        }
        const Plan plan = Loaded<MspdiReader>(Tasks(text));
        std::vector<int> parents;
        std::vector<int> shown;
        for (const PlanTask &task : plan.Tasks) {
            parents.push_back(task.Parent);
            shown.push_back(task.Level);
        }
        EXPECT_EQ(parents, expected.Parents);
        EXPECT_EQ(shown, expected.Shown);
        EXPECT_EQ(std::ranges::count_if(
                      plan.Remarks.Items(),
                      [](const PlanRemark &remark) { return remark.Text.contains(u"jumps"); }),
                  expected.Jumps);
    }
}

TEST(MspdiReader, FlattensOutlinesDeeperThanTheLimit)
{
    QByteArray text;
    for (int i = 1; i <= 3 * kMaxOutlineLevel; ++i) {
        text += Task(i, Level(i));
    }
    const Plan plan = Loaded<MspdiReader>(Tasks(text));
    EXPECT_EQ(plan.Tasks.back().Level, kMaxOutlineLevel);
    EXPECT_EQ(plan.Tasks.back().Parent, kMaxOutlineLevel - 2);
    EXPECT_TRUE(HasRemark(plan, u"more than 100 levels"_s));
}

TEST(MspdiReader, WorksOutMissingDates)
{
    struct Case
    {
        QByteArray Fields;
        std::string Dates;
    };
    const Case cases[] = {
        {"<Start>2026-11-06T08:00:00</Start><Duration>PT16H0M0S</Duration>",
         "2026-11-06T08:00:00 2026-11-09T17:00:00"},
        {"<Finish>2026-11-09T17:00:00</Finish><Duration>PT16H0M0S</Duration>",
         "2026-11-06T08:00:00 2026-11-09T17:00:00"},
        {"<Start>2026-11-06T08:00:00</Start><Duration>PT48H0M0S</Duration>"
         "<DurationFormat>8</DurationFormat>",
         "2026-11-06T08:00:00 2026-11-08T08:00:00"},
        {"<ManualStart>2026-11-02T08:00:00</ManualStart>"
         "<ManualFinish>2026-11-03T17:00:00</ManualFinish><Duration>PT8H0M0S</Duration>",
         "2026-11-02T08:00:00 2026-11-03T17:00:00"},
        {"<Start>NA</Start><Finish>2026-11-03T17:00:00</Finish>",
         "2026-11-03T17:00:00 2026-11-03T17:00:00"},
        {"<Start>2026-11-03T17:00:00</Start><Duration>-PT8H</Duration>",
         "2026-11-03T17:00:00 2026-11-03T17:00:00"},
        {"<Duration>PT8H0M0S</Duration>", "none"},
    };
    for (const Case &expected : cases) {
        const Plan plan = Loaded<MspdiReader>(Tasks(Task(1, expected.Fields)));
        EXPECT_EQ(DatesOf(plan.Tasks.at(0)), expected.Dates) << expected.Fields.toStdString();
        EXPECT_EQ(HasRemark(plan, u"has no usable dates"_s, 2), expected.Dates == "none");
    }
}

TEST(MspdiReader, SummaryTasksWithoutDatesSpanTheirSubtasks)
{
    const Plan plan = Loaded<MspdiReader>(
        Tasks(Task(1, Level(1)) + Task(2, Level(2))
              + Task(3, Level(3) + Dates("2026-11-05", "2026-11-09"))
              + Task(4, Level(2) + Dates("2026-11-02", "2026-11-03")) + Task(5, Level(1))));
    EXPECT_EQ(DatesOf(plan.Tasks[0]), "2026-11-02T00:00:00 2026-11-09T00:00:00");
    EXPECT_EQ(DatesOf(plan.Tasks[1]), "2026-11-05T00:00:00 2026-11-09T00:00:00");
    EXPECT_EQ(DatesOf(plan.Tasks[4]), "none");
    EXPECT_TRUE(HasRemark(plan, u"2 tasks with subtasks not marked as summary tasks"_s));
    EXPECT_EQ(Text(plan.Range()), "2026-11-02T00:00:00 2026-11-09T00:00:00");
}

TEST(MspdiReader, UsesTheProjectsCalendar)
{
    const auto off = [](const QByteArray &from, const QByteArray &to) {
        return "<DayWorking>0</DayWorking><TimePeriod><FromDate>" + from + "T00:00:00</FromDate>"
               + "<ToDate>" + to + "T23:59:00</ToDate></TimePeriod>";
    };
    const QByteArray calendars =
        "<Calendar><UID>4</UID><IsBaseCalendar>1</IsBaseCalendar></Calendar>"
        "<Calendar><UID>5</UID><IsBaseCalendar>1</IsBaseCalendar><WeekDays>"
        "<WeekDay><DayType>7</DayType><DayWorking>1</DayWorking><WorkingTimes><WorkingTime>"
        "<FromTime>20:00:00</FromTime><ToTime>00:00:00</ToTime></WorkingTime></WorkingTimes>"
        "</WeekDay><WeekDay><DayType>0</DayType>"
        + off("2026-11-09", "2026-11-10")
        + "</WeekDay></WeekDays><Exceptions><Exception><Type>1</Type>"
        + off("2026-11-12", "2026-11-12") + "</Exception><Exception><Type>6</Type>"
        + off("2026-11-01", "2027-11-12")
        + "</Exception></Exceptions></Calendar>"
          "<Calendar><UID>6</UID><BaseCalendarUID>5</BaseCalendarUID></Calendar>";
    const Plan plan = Loaded<MspdiReader>(
        Tasks(Task(1, "<Start>2026-11-06T13:00:00</Start><Duration>PT20H0M0S</Duration>"),
              "<CalendarUID>5</CalendarUID><Calendars>" + calendars + "</Calendars>"));
    EXPECT_EQ(plan.Calendars.size(), 2U);
    EXPECT_EQ(plan.Calendar, 1);
    // Friday afternoon 4 h, Saturday evening 4 h, Wednesday 8 h, not Thursday, Friday morning 4 h.
    EXPECT_EQ(DatesOf(plan.Tasks.at(0)), "2026-11-06T13:00:00 2026-11-13T12:00:00");
}

/// A stretch of November 2026, each end as "day" or "dayThour:minute:second".
QByteArray Work(const QByteArray &from, const QByteArray &to, const QByteArray &value)
{
    return "<TimephasedData><Type>1</Type>" + Dates("2026-11-" + from, "2026-11-" + to)
           + (value.isEmpty() ? value : "<Value>" + value + "</Value>") + "</TimephasedData>";
}

QByteArray Assignment(const QByteArray &stretches)
{
    return "<Assignment><TaskUID>1</TaskUID><ResourceUID>-65535</ResourceUID>" + stretches
           + "</Assignment>";
}

TEST(MspdiReader, SplitsATaskWhereItsWorkPausesInWorkingTime)
{
    const QByteArray first = Work("02T08:00:00", "04T08:00:00", "PT16H0M0S");
    const QByteArray last = Work("09T08:00:00", "13T17:00:00", "PT40H0M0S");
    const std::string parts = "2026-11-02T08:00:00 2026-11-03T17:00:00, "
                              "2026-11-09T08:00:00 2026-11-13T17:00:00, ";
    const std::pair<QByteArray, std::string> cases[] = {
        // 2026-11-07 is a Saturday.
        {Assignment(first + Work("04T08:00:00", "09T08:00:00", "PT0H0M0S") + last), parts},
        {Assignment(last + Work("05", "06", "PT0H0M0S") + first), parts},
        {Assignment(first + Work("07", "09", "PT0H0M0S") + last), ""},
        {Assignment(first + Work("04T08:00:00", "09T08:00:00", "") + last), ""},
        {Assignment(first + Work("05", "06", "PT0H0M0S") + last)
             + Assignment(Work("04T08:00:00", "06T17:00:00", "PT4H0M0S")),
         ""},
        {Assignment(first + Work("05", "06", "PT0H0M0S")), ""},
        {Assignment(Work("05", "06", "PT0H0M0S") + last), ""},
        {Assignment(first), ""},
    };
    for (const auto &[assignments, expected] : cases) {
        const Plan plan =
            Loaded<MspdiReader>(Tasks(Task(1, Dates("2026-11-02T08:00:00", "2026-11-13T17:00:00")),
                                      "<Assignments>" + assignments + "</Assignments>"));
        std::string found;
        for (const PlanSpan &part : plan.Tasks.at(0).Parts) {
            found += Text(part) + ", ";
        }
        EXPECT_EQ(found, expected) << assignments.toStdString();
    }
}

TEST(MspdiReader, KeepsAndReportsWhatIsMerelyOdd)
{
    struct Case
    {
        QByteArray Tasks;
        QString Remark;
        qint64 Line;
        std::size_t TaskCount;
        std::size_t LinkCount;
    };
    const Case cases[] = {
        {Task(1, "\n\n" + Dates("2026-11-06T08:00:00", "2026-11-02T08:00:00")),
         u"finishes before it starts"_s, 2, 1, 0},
        {Task(1, "\n<Start>2026-13-45</Start>"), u"\"2026-13-45\" is not a date."_s, 3, 1, 0},
        {Task(1, "<Start>9999-12-31T00:00:00</Start>"), u"between 1899"_s, 2, 1, 0},
        {Task(1, "<Start>1066-10-14T00:00:00</Start>"), u"between 1899"_s, 2, 1, 0},
        {Task(1, "") + Task(2, Link("99", "")), u"unknown task (UID 99)"_s, 3, 2, 0},
        {Task(1, Link("x", "")), u"\"x\" is not a UID"_s, 2, 1, 0},
        {Task(1, Link("1", "")), u"linked with itself"_s, 2, 1, 1},
        {Task(1, Link("2", "")) + Task(2, Link("1", "")), u"2 tasks lead in a circle"_s, 0, 2, 2},
        {Task(1, "") + Task(1, Link("1", "")), u"UID 1 is used again"_s, 3, 2, 1},
        {Task(1, Link("1", "<Type>7</Type>")), u"not a type of link"_s, 2, 1, 1},
        {Task(1, "<PercentComplete>130</PercentComplete>"), u"between 0 and 100"_s, 2, 1, 0},
        {Task(1, "<OutlineLevel>deep</OutlineLevel>"), u"not an outline level"_s, 2, 1, 0},
        {Task(1, "<Duration>8 hours</Duration>"), u"not a duration"_s, 2, 1, 0},
        {"<Task><Name>no uid</Name></Task>", u"no usable UID"_s, 2, 1, 0},
        {"<Task><UID>99999999999999999999</UID></Task>", u"is not a UID"_s, 2, 1, 0},
        {"<Task><UID>1</UID><Name>" + QByteArray(3000, 'n') + "</Name></Task>",
         u"3000 characters"_s, 2, 1, 0},
    };
    for (const Case &odd : cases) {
        const Plan plan = Loaded<MspdiReader>(Tasks(odd.Tasks));
        EXPECT_TRUE(HasRemark(plan, odd.Remark, odd.Line))
            << odd.Tasks.toStdString() << AllRemarks(plan);
        EXPECT_EQ(plan.Tasks.size(), odd.TaskCount) << odd.Tasks.toStdString();
        EXPECT_EQ(plan.Links.size(), odd.LinkCount) << odd.Tasks.toStdString();
    }
}

TEST(MspdiReader, FindsOnlyTheTasksOfACircle)
{
    // 1 -> 2 -> 3 -> 4 -> 2, 4 -> 5.
    const Plan plan = Loaded<MspdiReader>(Tasks(Task(1, "") + Task(2, Link("1", "") + Link("4", ""))
                                                + Task(3, Link("2", "")) + Task(4, Link("3", ""))
                                                + Task(5, Link("4", ""))));
    EXPECT_TRUE(
        HasRemark(plan, u"links of 3 tasks lead in a circle, among them \"T2\" and \"T4\""_s))
        << AllRemarks(plan);
}

TEST(MspdiReader, CountsRemarksBeyondTheLimit)
{
    QByteArray text;
    for (std::size_t i = 0; i < PlanRemarks::kLimit + 5; ++i) {
        text += Task(int(i) + 1, "<Start>2026-11-02</Start><Finish>soon</Finish>");
    }
    const Plan plan = Loaded<MspdiReader>(Tasks(text));
    EXPECT_EQ(plan.Remarks.Items().size(), PlanRemarks::kLimit);
    EXPECT_EQ(plan.Remarks.Lines().back(), u"... and 5 more");
}

TEST(MspdiReader, IgnoresWhatFollowsTheEndOfTheProject)
{
    const Plan plan = Loaded<MspdiReader>(Tasks(Task(1, "")) + "<rest");
    EXPECT_EQ(plan.Tasks.size(), 1U);
    EXPECT_TRUE(HasRemark(plan, u"What follows the end"_s));
}

} // namespace
} // namespace korvane::planner::test
