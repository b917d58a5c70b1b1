// Values of tasks as texts in cells: how they are shown, typed and refused.
#include "plan/PlanEditor.h"
#include "plan/TaskCells.h"

#include <gtest/gtest.h>

namespace korvane::planner {
namespace {

using namespace Qt::StringLiterals;
using enum TaskColumn;

constexpr TDateTime kMonday = 46'328; // 2026-11-02
constexpr double kEight = 8.0 / 24;
constexpr double kFive = 17.0 / 24;
constexpr int kDay = 480; // minutes

class NoWatcher : public IPlanWatcher
{
    void TaskChanged(int) override {}
    void TasksInserted(std::span<const int>) override {}
    void TasksRemoved(std::span<const int>) override {}
    void SubtreeMoved(int, int, int) override {}
    void LinkChanged(int) override {}
    void LinksInserted(std::span<const int>) override {}
    void LinksRemoved(std::span<const int>) override {}
};

/// 1 S (2 A Mon-Wed, 3 B Thu-Fri), 4 M milestone on Friday, 5 D without dates; 2 -> 3.
Plan Small()
{
    Plan plan;
    const auto add = [&](const QString &name, int parent, double from, double to) {
        PlanTask task;
        task.Uid = std::ssize(plan.Tasks) + 1;
        task.Name = name;
        task.Parent = parent;
        task.Level = parent == kNoIndex ? 1 : 2;
        task.Dates = PlanSpan{kMonday + from, kMonday + to};
        plan.Tasks.push_back(task);
    };
    add(u"S"_s, kNoIndex, kEight, 4 + kFive);
    add(u"A"_s, 0, kEight, 2 + kFive);
    add(u"B"_s, 0, 3 + kEight, 4 + kFive);
    add(u"M"_s, kNoIndex, 4 + kFive, 4 + kFive);
    add(u"D"_s, kNoIndex, 0, 0);
    plan.Tasks[0].HasChildren = plan.Tasks[0].MarkedSummary = true;
    plan.Tasks[3].Milestone = true;
    plan.Tasks[4].Dates.reset();
    plan.Links = {{1, 2, {}}};
    plan.Resources = {{1, u"Anna"_s}, {2, u"Ben, the second"_s}};
    plan.Assignments = {{1, 0, 1}, {1, 1, 0.5}};
    return plan;
}

struct TaskCellsTest : testing::Test
{
    Plan ThePlan = Small();
    NoWatcher Watcher;
    PredecessorIndex Links;
    TaskCells English{QLocale(QLocale::English, QLocale::UnitedKingdom)};
    TaskCells German{QLocale(QLocale::German, QLocale::Germany)};

    std::string Text(int task, TaskColumn column)
    {
        Links.OutOfDate();
        return English.Text(ThePlan, task, column, Links).toStdString();
    }
    /// What is shown then, or why not.
    std::string Type(int task, TaskColumn column, const QString &text)
    {
        try {
            PlanEditor editor(ThePlan, Watcher);
            Links.OutOfDate();
            m_changes.push_back(editor.SetCell({task, column, text}, English, Links));
            m_changes.back().Append(editor.RemoveForgotten(Links));
            m_changes.back().Append(editor.RefreshSummaries({{task}}));
        } catch (const PlanEditRefusal &refusal) {
            return refusal.Reason().toStdString();
        }
        return Text(task, column);
    }
    bool LastChanged() const { return !m_changes.back().IsEmpty(); }
    void UndoAll()
    {
        for (; !m_changes.empty(); m_changes.pop_back()) {
            m_changes.back().Undo(ThePlan, Watcher);
        }
    }

private:
    std::vector<PlanChange> m_changes;
};

TEST_F(TaskCellsTest, ShowsEveryColumnInTheUsersLanguage)
{
    const std::array<std::string, kTaskColumns> a{
        "2", "A", "02/11/2026", "04/11/2026", "3d", "", "Anna; Ben, the second [50%]", "0 %"};
    for (int column = 0; column < kTaskColumns; ++column) {
        EXPECT_EQ(Text(1, static_cast<TaskColumn>(column)), a[std::size_t(column)]) << column;
    }
    EXPECT_EQ(Text(2, Predecessors), "2");
    EXPECT_EQ(Text(3, Duration), "0d");
    EXPECT_EQ(Text(4, Start) + Text(4, Finish) + Text(4, Duration), "");
    EXPECT_EQ(English.DateText(kMonday + 0.5, kDay).toStdString(), "02/11/2026 12:00");
    EXPECT_EQ(German.DateText(kMonday, 0).toStdString(), "02.11.26");
    EXPECT_EQ(German.DurationText(3.5 * kDay, kDay).toStdString(), "3,5d");
    EXPECT_EQ(German.DurationText(90, kDay).toStdString(), "1,5h");
    EXPECT_EQ(German.DurationText(100, kDay).toStdString(), "100m");
}

TEST_F(TaskCellsTest, ReadsDatesAndDurationsAsTheyAreTyped)
{
    const TDateTime former = kMonday + kEight;
    struct Date
    {
        const TaskCells &Cells;
        QString Text;
        double Days; ///< after that Monday
    };
    for (const Date &each : std::initializer_list<Date>{
             {English, u"03/11/2026"_s, 1 + kEight},
             {English, u" 3/11/26 "_s, 1 + kEight},
             {English, u"Tue 03/11/2026"_s, 1 + kEight},
             {English, u"2026-11-03 17:00"_s, 1 + kFive},
             {English, u"3 Nov 2026 17:00"_s, 1 + kFive},
             {English, u"3/11"_s, 1 + kEight},
             {German, u"03.11.26"_s, 1 + kEight},
             {German, u"3.11."_s, 1 + kEight},
             {German, u"3.11.2026 17:00"_s, 1 + kFive},
             {German, u"Di. 3.11.26"_s, 1 + kEight},
         }) {
        try {
            const TDateTime read = each.Cells.ParseDate(each.Text, former);
            EXPECT_NEAR(read - kMonday, each.Days, 1e-9) << each.Text.toStdString();
        } catch (const PlanEditRefusal &refusal) {
            ADD_FAILURE() << refusal.Reason().toStdString();
        }
    }
    struct Length
    {
        QString Text;
        double Minutes;
        bool IsElapsed = false;
    };
    for (const Length &each : std::initializer_list<Length>{{u"3"_s, 3 * kDay},
                                                            {u"3d"_s, 3 * kDay},
                                                            {u" 1.5 days"_s, 1.5 * kDay},
                                                            {u"4h"_s, 240},
                                                            {u"30 min"_s, 30},
                                                            {u"2w"_s, 10 * kDay},
                                                            {u"2ed"_s, 2880, true},
                                                            {u"1ew"_s, 10080, true},
                                                            {u"0"_s, 0}}) {
        const auto read = English.ParseDuration(each.Text, kDay);
        EXPECT_EQ(read.Minutes, each.Minutes) << each.Text.toStdString();
        EXPECT_EQ(read.IsElapsed, each.IsElapsed) << each.Text.toStdString();
    }
    EXPECT_EQ(German.ParseDuration(u"1,5d", kDay).Minutes, 1.5 * kDay);
    for (const QString &text : {u""_s, u"d"_s, u"-1d"_s, u"3x"_s, u"e"_s, u"1e99d"_s, u"3d 4h"_s}) {
        EXPECT_THROW(English.ParseDuration(text, kDay), PlanEditRefusal) << text.toStdString();
    }
    for (const QString &text : {u""_s, u"31/02/2026"_s, u"soon"_s, u"01/01/5000"_s}) {
        EXPECT_THROW(English.ParseDate(text, former), PlanEditRefusal) << text.toStdString();
    }
}

TEST_F(TaskCellsTest, EveryColumnTakesWhatItShowsAndGivesBackWhatWasThere)
{
    const Plan before = ThePlan;
    struct Case
    {
        int Task;
        TaskColumn Column;
        QString Text;
        std::string Shown;
    };
    for (const Case &each : std::initializer_list<Case>{
             {1, Name, u"  New\tname "_s, "New name"},
             {1, Start, u"05/11/2026"_s, "05/11/2026"},
             {1, Finish, u"06/11/2026"_s, "06/11/2026"},
             {1, Duration, u"6d"_s, "6d"},
             {1, Duration, u"2ed"_s, "2d"},
             {4, Duration, u"2d"_s, "2d"},
             {4, Start, u"03/11/2026"_s, "03/11/2026"},
             {3, Start, u"03/11/2026"_s, "03/11/2026"},
             {0, Start, u"03/11/2026"_s, "03/11/2026"},
             {3, Predecessors, u"2SS+2d,3ff-50%"_s, "2SS+2d, 3FF-50%"},
             {2, Predecessors, u""_s, ""},
             {2, Predecessors, u"2 FS +1ed"_s, "2FS+1ed"},
             {4, Resources, u"ben, THE second [25%]; anna"_s, "Ben, the second [25%]; Anna"},
             {1, Resources, u""_s, ""},
             {1, PercentComplete, u"33.5"_s, "33.5 %"},
         }) {
        EXPECT_EQ(Type(each.Task, each.Column, each.Text), each.Shown) << each.Text.toStdString();
        EXPECT_TRUE(LastChanged());
        EXPECT_EQ(Type(each.Task, each.Column, QString::fromStdString(each.Shown)), each.Shown);
        EXPECT_FALSE(LastChanged()) << each.Shown;
        UndoAll();
        EXPECT_EQ(ThePlan.Tasks, before.Tasks) << each.Shown;
        EXPECT_EQ(ThePlan.Links, before.Links) << each.Shown;
        EXPECT_EQ(ThePlan.Assignments, before.Assignments) << each.Shown;
    }
}

TEST_F(TaskCellsTest, AStartKeepsTheWorkAndSummariesFollow)
{
    EXPECT_EQ(Type(1, Start, u"06/11/2026"_s), "06/11/2026"); // a Friday
    EXPECT_EQ(Text(1, Finish), "10/11/2026") << "over the weekend";
    EXPECT_EQ(Text(1, Duration), "3d");
    EXPECT_EQ(Text(0, Finish), "10/11/2026");
    EXPECT_EQ(Type(1, Start, u"02/11/2026 13:00"_s), "02/11/2026 13:00");
    EXPECT_EQ(Text(1, Finish), "05/11/2026 12:00");
    EXPECT_EQ(Text(0, Start), "02/11/2026 13:00");
}

TEST_F(TaskCellsTest, LinksThatGoAreRemovedOnceForManyCells)
{
    ThePlan.Links = {{1, 2, {}}, {2, 3, {}}, {3, 4, {}}, {1, 4, {}}};
    const Plan before = ThePlan;
    PlanEditor editor(ThePlan, Watcher);
    PlanChange change;
    const auto type = [&](int task, const QString &text) {
        change.Append(editor.SetCell({task, Predecessors, text}, English, Links));
        return English.Text(ThePlan, task, Predecessors, Links).toStdString();
    };
    EXPECT_EQ(type(2, u""_s), "");
    EXPECT_EQ(type(3, u""_s), "");
    EXPECT_THROW(type(4, u"2, 1, 5"_s), PlanEditRefusal); // the first one stays after all
    EXPECT_EQ(type(1, u"3"_s), "3");                      // no circle any longer
    EXPECT_EQ(type(4, u"2"_s), "2");
    EXPECT_EQ(ThePlan.Links.size(), 5U);
    change.Append(editor.RemoveForgotten(Links));
    EXPECT_EQ(ThePlan.Links, (std::vector<PlanLink>{{1, 4, {}}, {2, 1, {}}}));
    EXPECT_EQ(type(4, u"2"_s), "2");
    change.Undo(ThePlan, Watcher);
    EXPECT_EQ(ThePlan.Links, before.Links);
}

TEST_F(TaskCellsTest, RefusesWithASentenceAndChangesNothing)
{
    const Plan before = ThePlan;
    struct Case
    {
        int Task;
        TaskColumn Column;
        QString Text;
        std::string Part; ///< of the reason
    };
    for (const Case &each : std::initializer_list<Case>{
             {1, Number, u"7"_s, "come from their order"},
             {1, Name, u" "_s, "needs a name"},
             {1, Start, u"x"_s, "is no date. Type it like 02/11/2026"},
             {1, Finish, u"01/11/2026"_s, "would finish before it starts"},
             {0, Duration, u"3d"_s, "is a summary task"},
             {3, Duration, u"3d"_s, "is a milestone"},
             {2, Predecessors, u"2;x"_s, "'x' is no predecessor"},
             {2, Predecessors, u"9"_s, "There is no task 9."},
             {2, Predecessors, u"2,2SS"_s, "named twice"},
             {2, Predecessors, u"2FS+soon"_s, "is no lag"},
             {1, Predecessors, u"3"_s, "would close a circle"},
             {2, Predecessors, u"1"_s, "its own summary task"},
             {1, Resources, u"Anna; Carl"_s, "There is no resource 'Carl'."},
             {1, Resources, u"Anna [0%]"_s, "is no part of a resource"},
             {1, PercentComplete, u"101"_s, "is no percentage"},
         }) {
        const std::string answer = Type(each.Task, each.Column, each.Text);
        EXPECT_NE(answer.find(each.Part), std::string::npos) << answer;
        EXPECT_EQ(ThePlan.Tasks, before.Tasks) << answer;
        EXPECT_EQ(ThePlan.Links, before.Links) << answer;
    }
}

} // namespace
} // namespace korvane::planner
