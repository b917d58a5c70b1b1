// Edits of a plan: what each does, what is refused, and that all are taken back exactly.
#include "PlanText.h"
#include "plan/PlanEditor.h"
#include "plan/PlanOutline.h"

#include <array>
#include <functional>
#include <random>

namespace korvane::planner::test {
namespace {

constexpr TDateTime kDay = 46'328; // a Monday

/// What a display knows that learns of changes from the watcher alone.
class Mirror : public IPlanWatcher
{
public:
    explicit Mirror(const Plan &plan)
        : m_plan(plan)
        , m_tasks(plan.Tasks)
        , m_links(plan.Links.size())
    {
        for (std::size_t i = 0; i < m_links.size(); ++i) {
            m_links[i] = UidsOf(plan.Links[i]);
        }
    }

    void TaskChanged(int task) override { m_tasks.at(task) = m_plan.Tasks.at(task); }
    void TasksInserted(std::span<const int> tasks) override
    {
        for (const int task : tasks) {
            m_tasks.insert(m_tasks.begin() + task, m_plan.Tasks.at(task));
        }
    }
    void TasksRemoved(std::span<const int> tasks) override
    {
        for (std::size_t i = tasks.size(); i-- > 0;) {
            m_tasks.erase(m_tasks.begin() + tasks[i]);
        }
    }
    void SubtreeMoved(int from, int count, int to) override
    {
        std::vector<PlanTask> moved(m_tasks.begin() + from, m_tasks.begin() + from + count);
        m_tasks.erase(m_tasks.begin() + from, m_tasks.begin() + from + count);
        m_tasks.insert(m_tasks.begin() + to, moved.begin(), moved.end());
    }
    void LinkChanged(int link) override { m_links.at(link) = UidsOf(m_plan.Links.at(link)); }
    void LinksInserted(std::span<const int> links) override
    {
        for (const int link : links) {
            m_links.insert(m_links.begin() + link, UidsOf(m_plan.Links.at(link)));
        }
    }
    void LinksRemoved(std::span<const int> links) override
    {
        for (std::size_t i = links.size(); i-- > 0;) {
            m_links.erase(m_links.begin() + links[i]);
        }
    }

    bool IsRight() const
    {
        const auto isSame = [](const PlanTask &a, const PlanTask &b) {
            return a.Uid == b.Uid && a.Name == b.Name && a.Dates == b.Dates
                   && a.HasChildren == b.HasChildren;
        };
        return std::ranges::equal(m_tasks, m_plan.Tasks, isSame)
               && std::ranges::equal(m_links, m_plan.Links, {}, {},
                                     [this](const PlanLink &link) { return UidsOf(link); });
    }

private:
    using Uids = std::pair<std::int64_t, std::int64_t>;
    Uids UidsOf(const PlanLink &link) const
    {
        return {m_plan.Tasks.at(link.Predecessor).Uid, m_plan.Tasks.at(link.Successor).Uid};
    }

    const Plan &m_plan;
    std::vector<PlanTask> m_tasks;
    std::vector<Uids> m_links;
};

bool AreEqual(const Plan &a, const Plan &b)
{
    return a.Tasks == b.Tasks && a.Links == b.Links && a.Assignments == b.Assignments;
}

/// Outline and references are right, and summary tasks span their subtasks.
void ExpectSound(const Plan &plan)
{
    const int count = int(plan.Tasks.size());
    std::vector<std::optional<PlanSpan>> spans(plan.Tasks.size());
    for (int i = count; i-- > 0;) {
        const PlanTask &task = plan.Tasks[i];
        ASSERT_LT(task.Parent, i);
        ASSERT_EQ(task.Level, task.Parent == kNoIndex ? 1 : plan.Tasks[task.Parent].Level + 1);
        ASSERT_TRUE(task.Parent == kNoIndex || i < SubtreeEnd(plan, task.Parent));
        ASSERT_EQ(task.HasChildren, i + 1 < count && plan.Tasks[i + 1].Parent == i);
        ASSERT_TRUE(!spans[i] || task.Dates == spans[i]) << task.Name.toStdString();
        if (!task.Parts.empty()) {
            ASSERT_EQ(task.Parts.front().Start, task.Dates->Start);
            ASSERT_EQ(task.Parts.back().Finish, task.Dates->Finish);
        }
        if (task.Parent != kNoIndex && task.Dates) {
            auto &span = spans[task.Parent];
            span = !span ? *task.Dates
                         : PlanSpan{std::min(span->Start, task.Dates->Start),
                                    std::max(span->Finish, task.Dates->Finish)};
        }
    }
    for (const PlanLink &link : plan.Links) {
        ASSERT_TRUE(link.Predecessor >= 0 && link.Predecessor < count);
        ASSERT_TRUE(link.Successor >= 0 && link.Successor < count);
    }
    ASSERT_TRUE(std::ranges::is_sorted(plan.Assignments, {}, &PlanAssignment::Task));
    ASSERT_TRUE(plan.Assignments.empty() || plan.Assignments.back().Task < count);
}

/// 0 S (1 A [0, 2), 2 T (3 B [2, 6) in two parts, 4 M milestone at 6)), 5 C [6, 8), 6 D no dates;
/// links A -> B, B -> M, A -> A; A, B and C are assigned.
Plan Nested()
{
    Plan plan;
    const auto add = [&](const char *name, int parent, double from, double to) {
        PlanTask task;
        task.Uid = std::int64_t(plan.Tasks.size()) * 10 + 1;
        task.Name = QString::fromLatin1(name);
        task.Parent = parent;
        task.Level = parent == kNoIndex ? 1 : std::int16_t(plan.Tasks[parent].Level + 1);
        task.Dates = PlanSpan{kDay + from, kDay + to};
        plan.Tasks.push_back(task);
    };
    add("S", kNoIndex, 0, 6);
    add("A", 0, 0, 2);
    add("T", 0, 2, 6);
    add("B", 2, 2, 6);
    add("M", 2, 6, 6);
    add("C", kNoIndex, 6, 8);
    add("D", kNoIndex, 0, 0);
    for (const int summary : {0, 2}) {
        plan.Tasks[summary].HasChildren = plan.Tasks[summary].MarkedSummary = true;
    }
    plan.Tasks[3].Parts = {{kDay + 2, kDay + 3}, {kDay + 5, kDay + 6}};
    plan.Tasks[4].Milestone = true;
    plan.Tasks[6].Dates.reset();
    plan.Links = {{1, 3, {}}, {3, 4, {}}, {1, 1, {}}};
    plan.Resources = {{1, u"R"_s}};
    plan.Assignments = {{1, 0, 1}, {3, 0, 0.5}, {5, 0, 1}};
    return plan;
}

class PlanEditorTest : public testing::Test
{
protected:
    /// Tasks in order, deeper ones after as many dots as they have summary tasks.
    std::string Outline() const
    {
        QString text;
        for (const PlanTask &task : m_plan.Tasks) {
            text += QString(task.Level - 1, u'.') + task.Name + u' ';
        }
        return text.trimmed().toStdString();
    }
    /// Days from kDay on.
    std::string Dates(int task) const
    {
        const PlanSpan span = m_plan.Tasks.at(task).Dates.value();
        return QStringLiteral("%1-%2").arg(span.Start - kDay).arg(span.Finish - kDay).toStdString();
    }
    /// The edit is taken back and done again exactly, too.
    template <typename Function>
    void Do(Function edit)
    {
        const Plan before = m_plan;
        PlanChange change = edit();
        const Plan after = m_plan;
        EXPECT_EQ(change.IsEmpty(), AreEqual(before, after));
        ExpectSound(m_plan);
        change.Undo(m_plan, m_mirror);
        EXPECT_TRUE(AreEqual(m_plan, before));
        EXPECT_TRUE(m_mirror.IsRight());
        change.Redo(m_plan, m_mirror);
        EXPECT_TRUE(AreEqual(m_plan, after));
        EXPECT_TRUE(m_mirror.IsRight());
    }
    template <typename Function>
    std::string RefusalOf(Function edit)
    {
        const Plan before = m_plan;
        try {
            edit();
        } catch (const PlanEditRefusal &refusal) {
            EXPECT_TRUE(AreEqual(m_plan, before));
            EXPECT_TRUE(m_mirror.IsRight());
            return refusal.Reason().toStdString();
        }
        return {};
    }
    PlanChange Span(int task, double from, double to)
    {
        const TaskDates dates{task, {kDay + from, kDay + to}};
        return m_editor.SetDates({&dates, 1});
    }

    Plan m_plan = Nested();
    Mirror m_mirror{m_plan};
    PlanEditor m_editor{m_plan, m_mirror};
};

TEST_F(PlanEditorTest, DatesMoveSubtreesAndStretchSummaries)
{
    Do([&] { return Span(1, 1, 4); });
    EXPECT_EQ(Dates(1), "1-4");
    EXPECT_EQ(Dates(0), "1-6");
    Do([&] { return Span(2, 4, 8); });
    EXPECT_EQ(Dates(3), "4-8");
    EXPECT_EQ(Dates(4), "8-8");
    EXPECT_EQ(Dates(0), "1-8");
    EXPECT_EQ(m_plan.Tasks[3].Parts[1], (PlanSpan{kDay + 7, kDay + 8}));
    Do([&] { return Span(3, 4, 7.5); });
    EXPECT_EQ(m_plan.Tasks[3].Parts.back().Finish, kDay + 7.5);
    Do([&] { return Span(3, 4, 5); });
    EXPECT_TRUE(m_plan.Tasks[3].Parts.empty()) << "one part is none";
    EXPECT_EQ(Dates(2), "4-8") << "up to the milestone";
    // A summary task, one of its subtasks and a task without dates at once.
    Do([&] { return m_editor.Shift(std::array{0, 3, 6, 5}, -1); });
    EXPECT_EQ(Dates(0), "0-7");
    EXPECT_EQ(Dates(3), "3-4") << "moved once";
    EXPECT_EQ(Dates(5), "5-7");
    Do([&] { return m_editor.Shift(std::array{0}, 0); });
}

TEST_F(PlanEditorTest, RefusesWhatThePlanCannotBe)
{
    EXPECT_EQ(RefusalOf([&] { Span(0, 0, 9); }),
              "'S' is a summary task: its subtasks make its length.");
    EXPECT_EQ(RefusalOf([&] { Span(4, 6, 9); }), "'M' is a milestone: it has no length.");
    EXPECT_EQ(RefusalOf([&] { Span(1, 3, 2); }), "'A' would finish before it starts.");
    EXPECT_EQ(RefusalOf([&] {
                  m_editor.Shift(std::array{5, 0}, 1e6);
              }),
              "Tasks must lie between the years 1900 and 3999.");
    EXPECT_EQ(RefusalOf([&] { m_editor.Rename(1, u" \n"_s); }), "A task needs a name.");
    EXPECT_EQ(RefusalOf([&] { m_editor.MoveTo(std::array{0}, 2, kNoIndex); }),
              "'S' cannot become a subtask of itself.");
    EXPECT_EQ(RefusalOf([&] { m_editor.MoveTo(std::array{1}, 3, kNoIndex); }),
              "'A' cannot become a subtask of 'B': they are linked.");
    EXPECT_EQ(RefusalOf([&] {
                  m_editor.Indent(std::array{5, 1});
              }),
              "'A' has no task before it to become its summary task.");
    EXPECT_EQ(RefusalOf([&] {
                  m_editor.Outdent(std::array{1, 5});
              }),
              "'C' is at the top level already.");
    EXPECT_EQ(RefusalOf([&] {
                  m_editor.MoveDown(std::array{1, 6});
              }),
              "'D' is the last task of its level already.");
    EXPECT_EQ(RefusalOf([&] { m_editor.MoveUp(std::array{0}); }),
              "'S' is the first task of its level already.");
}

TEST_F(PlanEditorTest, LinksThatMakeNoSenseAreRefused)
{
    const auto why = [&](int predecessor, int successor) {
        return PlanEditor::WhyNotLinked(m_plan, predecessor, successor).toStdString();
    };
    EXPECT_EQ(why(5, 5), "'C' cannot be linked to itself.");
    EXPECT_EQ(why(4, 0), "'M' cannot be linked to its own summary task 'S'.");
    EXPECT_EQ(why(2, 3), "'B' cannot be linked to its own summary task 'T'.");
    EXPECT_EQ(why(1, 3), "'A' is linked to 'B' already.");
    EXPECT_EQ(why(4, 1), "A link from 'M' to 'A' would close a circle.");
    EXPECT_EQ(why(2, 1), "A link from 'T' to 'A' would close a circle.") << "B delays T";
    EXPECT_EQ(why(1, 2), "") << "the summary task of a successor";
    Do([&] { return m_editor.AddLink({5, 2, {}}); });
    EXPECT_EQ(why(4, 5), "A link from 'M' to 'C' would close a circle.") << "C delays all of T";
    EXPECT_EQ(why(1, 5), "") << "siblings of T are free";
    EXPECT_EQ(why(0, 5), "A link from 'S' to 'C' would close a circle.") << "T delays S";
    EXPECT_NE(RefusalOf([&] { m_editor.LinkInOrder(std::array{6, 1, 5, 3, 0}); }), "");
    EXPECT_EQ(RefusalOf([&] { m_editor.LinkInOrder(std::array{6}); }),
              "Select the tasks to be linked, two at least.");
    Do([&] { return m_editor.LinkInOrder(std::array{6, 1, 3}); });
    EXPECT_EQ(m_plan.Links.size(), 5U) << "A and B are linked already";
    Do([&] { return m_editor.ChangeLink(1, PlanLinkType::StartToStart, {60}); });
    EXPECT_EQ(m_plan.Links[1].Lag.Amount, 60);
    Do([&] { return m_editor.RemoveLinks(std::array{4, 0, 4}); });
    EXPECT_EQ(m_plan.Links.size(), 3U);
}

TEST_F(PlanEditorTest, TheOutlineCanBeRearranged)
{
    struct Case
    {
        std::function<PlanChange()> Edit;
        const char *Expected;
    };
    Do([&] { return m_editor.RemoveLinks(std::array{0, 1, 2}); });
    const Case cases[] = {
        {[&] {
             return m_editor.Indent(std::array{5, 6});
         },
         "S .A .T ..B ..M .C .D"},
        {[&] {
             return m_editor.Outdent(std::array{3, 4});
         },
         "S .A .T .B .M .C .D"},
        {[&] {
             return m_editor.Outdent(std::array{3, 5});
         },
         "S .A .T .M .D B C"},
        {[&] {
             return m_editor.MoveUp(std::array{2, 3});
         },
         "S .T .M .A .D B C"},
        {[&] {
             return m_editor.MoveDown(std::array{0, 1});
         },
         "B S .T .M .A .D C"},
        {[&] { return m_editor.MoveTo(std::array{1}, 0, kNoIndex); }, "B .S ..T ..M ..A ..D C"},
        {[&] { return m_editor.MoveTo(std::array{4}, kNoIndex, 6); }, "B .S ..T ..M ..D A C"},
        {[&] { return m_editor.MoveTo(std::array{1}, kNoIndex, 0); }, "S .T .M .D B A C"},
        {[&] {
             return m_editor.Insert(0, 2, u"N"_s, PlanSpan{kDay, kDay + 1});
         },
         "S .T .N .M .D B A C"},
        {[&] {
             return m_editor.Duplicate(std::array{1, 0, 5}, 3);
         },
         "S .T .N .M .D S .T .N .M .D B B A C"},
        {[&] {
             return m_editor.Delete(std::array{1, 2, 3, 4, 5, 12});
         },
         "S B B C"},
        {[&] {
             return m_editor.Delete(std::array{0, 1, 2, 3});
         },
         ""},
        {[&] { return m_editor.Insert(kNoIndex, kNoIndex, u"N"_s, {}); }, "N"},
    };
    for (const Case &c : cases) {
        Do(c.Edit);
        EXPECT_EQ(Outline(), c.Expected);
    }
    EXPECT_EQ(m_plan.Tasks[0].Uid, 1);
}

TEST_F(PlanEditorTest, CopiesHaveWhatLiesWithinThem)
{
    Do([&] { return m_editor.Duplicate(std::array{0, 3}, 10); });
    ASSERT_EQ(Outline(), "S .A .T ..B ..M S .A .T ..B ..M C D");
    EXPECT_EQ(Dates(8), "12-16");
    EXPECT_EQ(m_plan.Tasks[8].Parts[1].Start, kDay + 15);
    EXPECT_EQ(m_plan.Tasks[5].Uid, 62);
    EXPECT_EQ(m_plan.Tasks[9].Uid, 66);
    ASSERT_EQ(m_plan.Links.size(), 6U);
    EXPECT_EQ(m_plan.Links[3], (PlanLink{6, 8, {}}));
    EXPECT_EQ(m_plan.AssignmentsOf(8).size(), 1U);
    EXPECT_EQ(m_plan.AssignmentsOf(10).size(), 1U) << "C, which moved down";
}

TEST_F(PlanEditorTest, ATaskWithoutSubtasksIsNoSummaryTask)
{
    Do([&] { return m_editor.Delete(std::array{3, 4}); });
    EXPECT_FALSE(m_plan.Tasks[2].IsSummary());
    EXPECT_EQ(Dates(2), "2-6");
    Do([&] { return m_editor.Insert(1, kNoIndex, u"N"_s, PlanSpan{kDay + 1, kDay + 9}); });
    EXPECT_TRUE(m_plan.Tasks[1].MarkedSummary);
    EXPECT_EQ(Dates(0), "1-9");
}

TEST_F(PlanEditorTest, AFormChangesAllInOneStep)
{
    Do([&] {
        return m_editor.SetDetails(3, {u"B2"_s, u"note"_s, PlanSpan{kDay + 3, kDay + 9}, 250});
    });
    const PlanTask &task = m_plan.Tasks[3];
    EXPECT_EQ(task.Name, u"B2");
    EXPECT_EQ(task.Notes, u"note");
    EXPECT_EQ(task.PercentComplete, 100);
    EXPECT_EQ(Dates(0), "0-9");
    EXPECT_NE(RefusalOf([&] {
                  m_editor.SetDetails(3, {u""_s, {}, PlanSpan{kDay, kDay + 1}});
              }),
              "");
}

TEST_F(PlanEditorTest, ARowOfNudgesIsOneChange)
{
    const Plan before = m_plan;
    PlanChange all = m_editor.Shift(std::array{1}, 1);
    for (int i = 0; i < 50; ++i) {
        EXPECT_TRUE(all.Join(m_editor.Shift(std::array{1, 3}, 1)));
    }
    const Plan after = m_plan;
    EXPECT_EQ(Dates(3), "52-56");
    EXPECT_FALSE(all.Join(m_editor.RemoveLinks(std::array{0}))) << "another kind of step";
    m_plan.Links = before.Links;
    all.Undo(m_plan, m_mirror);
    EXPECT_TRUE(AreEqual(m_plan, before));
    all.Redo(m_plan, m_mirror);
    EXPECT_TRUE(AreEqual(m_plan, after));
}

// Random edits.

class RandomEdits
{
public:
    RandomEdits(Plan &plan, unsigned seed)
        : m_plan(plan)
        , m_mirror(plan)
        , m_editor(plan, m_mirror)
        , m_random(seed)
    {
    }

    /// Counts the edits that were not refused.
    int Run(int steps)
    {
        for (int i = 0; i < steps; ++i) {
            try {
                PlanChange change = Any();
                if (!change.IsEmpty()) {
                    m_done.push_back(std::move(change));
                }
            } catch (const PlanEditRefusal &) {
                EXPECT_TRUE(m_plan.Tasks.size() < 1000 || i % 100 != 0 || m_mirror.IsRight());
            }
            // Goes back and forth, too.
            if (!m_done.empty() && Below(10) == 0) {
                m_done.back().Undo(m_plan, m_mirror);
                m_done.back().Redo(m_plan, m_mirror);
            }
        }
        return int(m_done.size());
    }
    void UndoAll()
    {
        for (std::size_t i = m_done.size(); i-- > 0;) {
            m_done[i].Undo(m_plan, m_mirror);
        }
    }
    void RedoAll()
    {
        for (PlanChange &change : m_done) {
            change.Redo(m_plan, m_mirror);
        }
    }
    bool IsMirrorRight() const { return m_mirror.IsRight(); }

private:
    int Below(int end) { return int(m_random() % unsigned(std::max(end, 1))); }
    int Task() { return Below(int(m_plan.Tasks.size())); }
    std::vector<int> Tasks()
    {
        std::vector<int> tasks(std::size_t(1 + Below(4)));
        std::ranges::generate(tasks, [this] { return Task(); });
        return tasks;
    }
    PlanChange Any()
    {
        // Few are deleted, so that something remains.
        if (m_plan.Tasks.empty() || Below(5) == 0) {
            const int parent = m_plan.Tasks.empty() || Below(2) == 0 ? kNoIndex : Task();
            const TDateTime start = kDay + Below(100);
            return m_editor.Insert(parent, kNoIndex, u"new"_s, PlanSpan{start, start + Below(5)});
        }
        switch (Below(14)) {
        case 0: {
            const TDateTime start = kDay + Below(1000) / 8.0;
            const std::array dates{TaskDates{Task(), {start, start + Below(9)}},
                                   TaskDates{Task(), {start, start + 1}}};
            return m_editor.SetDates(dates);
        }
        case 1:
            return m_editor.Shift(Tasks(), Below(1000) / 7.0 - 70);
        case 2:
            return m_editor.Rename(Task(), QString::number(Below(1000)));
        case 3:
            return m_editor.Delete(std::array{Task()});
        case 4:
            return m_plan.Tasks.size() < 5000 ? m_editor.Duplicate(Tasks(), Below(9))
                                              : m_editor.Delete(Tasks());
        case 5:
            return MoveAnywhere();
        case 6:
            return m_editor.Indent(Tasks());
        case 7:
            return m_editor.Outdent(Tasks());
        case 8:
            return m_editor.MoveUp(Tasks());
        case 9:
            return m_editor.MoveDown(Tasks());
        case 10:
        case 11:
            return m_editor.AddLink({Task(), Task(), {}, PlanLinkType(Below(4))});
        case 12:
            return m_plan.Links.empty()
                       ? PlanChange()
                       : m_editor.RemoveLinks(std::array{Below(int(m_plan.Links.size()))});
        default:
            return m_editor.SetDetails(Task(), {u"x"_s, QString::number(Below(99)), {}, 40});
        }
    }
    PlanChange MoveAnywhere()
    {
        const int before = Task();
        const bool isLast = Below(2) == 0;
        return m_editor.MoveTo(Tasks(), isLast ? before : m_plan.Tasks[before].Parent,
                               isLast ? kNoIndex : before);
    }

    Plan &m_plan;
    Mirror m_mirror;
    PlanEditor m_editor;
    std::mt19937 m_random;
    std::vector<PlanChange> m_done;
};

void ExpectExactHistory(Plan plan, int steps, unsigned seed)
{
    SCOPED_TRACE(seed);
    const Plan before = plan;
    RandomEdits edits(plan, seed);
    EXPECT_GT(edits.Run(steps), steps / 4);
    const Plan after = plan;
    EXPECT_TRUE(edits.IsMirrorRight());
    edits.UndoAll();
    EXPECT_TRUE(AreEqual(plan, before));
    EXPECT_TRUE(edits.IsMirrorRight());
    edits.RedoAll();
    EXPECT_TRUE(AreEqual(plan, after));
    EXPECT_TRUE(edits.IsMirrorRight());
}

TEST(PlanHistory, RandomEditsAreTakenBackAndDoneAgainExactly)
{
    for (unsigned seed = 1; seed <= 20; ++seed) {
        ExpectExactHistory(Nested(), 300, seed);
        Plan plan = Nested();
        RandomEdits(plan, seed).Run(300);
        ExpectSound(plan);
        if (HasFailure()) {
            return;
        }
    }
}

TEST(PlanHistory, AlsoInARealPlan)
{
    const QString folder = qEnvironmentVariable("KORVANE_DATA");
    if (folder.isEmpty()) {
        GTEST_SKIP() << "KORVANE_DATA names no folder";
    }
    NoProgress progress;
    PlanResult result = LoadPlan(folder + u"/mspdi/multi-project-j90-a20.xml.gz"_s,
                                 PlanReaders::Builtin(), progress);
    ASSERT_EQ(result.Status, PlanStatus::Loaded);
    ExpectExactHistory(std::move(result.Value), 3000, 7);
}

} // namespace
} // namespace korvane::planner::test
