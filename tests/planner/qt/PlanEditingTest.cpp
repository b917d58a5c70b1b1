// Editing in the planner's window, with the mouse and the keys that users have.
#include "EditActions.h"
#include "LinkDialog.h"
#include "MainWindow.h"
#include "PlanChart.h"
#include "PlanDocument.h"
#include "PlanEdits.h"
#include "SmallPlan.h"
#include "TaskDialog.h"
#include "foundation/qt/zuConvert.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStatusBar>
#include <QTest>

namespace korvane::planner::test {
namespace {

bool AreEqual(const Plan &a, const Plan &b)
{
    return a.Tasks == b.Tasks && a.Links == b.Links && a.Assignments == b.Assignments;
}

Plan EditablePlan()
{
    Plan plan = SmallPlan();
    for (std::size_t i = 0; i < plan.Tasks.size(); ++i) {
        plan.Tasks[i].Uid = std::int64_t(i) + 1;
    }
    plan.Tasks[0].MarkedSummary = true;
    plan.Links.erase(plan.Links.begin() + 2, plan.Links.end());
    return plan;
}

class PlanEditingTest : public testing::Test
{
protected:
    PlanEditingTest()
    {
        m_window.resize(1200, 500);
        m_window.show();
        m_window.Document().SetPlan(EditablePlan());
        m_before = m_window.Document().GetPlan();
        Chart().DateScaler().SetRange(kMonday - 2, kMonday + 30);
        m_window.Edits().Clock = [this] { return m_clock; };
        Settle();
    }

    PlanChart &Chart() { return m_window.Chart(); }
    PlanEdits &Edits() { return m_window.Edits(); }
    const Plan &Now() { return m_window.Document().GetPlan(); }
    QUndoStack &History() { return m_window.Document().History(); }
    void Settle()
    {
        QApplication::processEvents();
        Chart().GantArea().grab();
        QApplication::processEvents();
    }
    QAction *ActionOf(const QString &text)
    {
        for (QAction *action : m_window.findChildren<QAction *>()) {
            if (action->text().remove(u'&') == text) {
                return action;
            }
        }
        return nullptr;
    }
    void Trigger(const QString &text)
    {
        Settle();
        QAction *action = ActionOf(text);
        ASSERT_NE(action, nullptr) << text.toStdString();
        EXPECT_TRUE(action->isEnabled()) << text.toStdString();
        action->trigger();
        Settle();
    }
    QRect RectOf(int task)
    {
        const TzuDataEntity_Spanbar &bar = *Chart().BarOf(task);
        return ToQt(bar.GetRow()->RectFromDataEntity(bar).value_or(TRect{}));
    }
    QPoint Middle(int task) { return RectOf(task).center(); }
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {})
    {
        TzuOffscreenPaint &area = Chart().GantArea();
        QTest::mousePress(&area, Qt::LeftButton, modifiers, from);
        for (const QPoint point : {from + (to - from) / 2, to}) {
            QMouseEvent move(QEvent::MouseMove, QPointF(point), QPointF(area.mapToGlobal(point)),
                             Qt::NoButton, Qt::LeftButton, modifiers);
            QApplication::sendEvent(&area, &move);
        }
        QTest::mouseRelease(&area, Qt::LeftButton, modifiers, to);
        Settle();
    }
    /// Clicks somewhere on the way from 'Dig' to 'Paint', below the first bar.
    QPoint SelectLink()
    {
        const QRect from = RectOf(1);
        QPoint at(from.right() - 30, from.bottom() + 20);
        while (at.x() < from.right() + 30 && Chart().SelectedPlanLinks().empty()) {
            at.rx() += 1;
            QTest::mouseClick(&Chart().GantArea(), Qt::LeftButton, {}, at);
            Settle();
        }
        return at;
    }
    void Click(int task, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(&Chart().GantArea(), Qt::LeftButton, modifiers, Middle(task));
        Settle();
    }
    int PixelsOf(double days) { return int(days / Chart().Scale()); }
    double StartOf(int task) { return Now().Tasks.at(std::size_t(task)).Dates->Start - kMonday; }
    double FinishOf(int task) { return Now().Tasks.at(std::size_t(task)).Dates->Finish - kMonday; }
    /// What is shown agrees with the plan.
    void ExpectShown()
    {
        const Plan &plan = Now();
        ASSERT_EQ(std::size_t(Chart().GantRows().Count()), plan.Tasks.size());
        int lines = 0;
        for (int i = 0; i < int(plan.Tasks.size()); ++i) {
            const PlanTask &task = plan.Tasks[i];
            const TzuDataEntity_Tree *node = Chart().NodeOf(i);
            EXPECT_EQ(node->GetText(), task.Name.toStdString());
            EXPECT_EQ(node->ParentNode(),
                      task.Parent == kNoIndex ? nullptr : Chart().NodeOf(task.Parent));
            EXPECT_EQ(node->GetFontStyle().Bold, task.IsSummary());
            const TzuDataEntity_Spanbar *bar = Chart().BarOf(i);
            ASSERT_EQ(bar != nullptr, task.Dates.has_value());
            EXPECT_TRUE(bar == nullptr || bar->GetStopDateTime() == task.Dates->Finish);
            EXPECT_TRUE(i == 0 || plan.Tasks[i - 1].Parent != task.Parent
                        || Chart().NodeOf(i - 1)->ListIndex() + 1 == node->ListIndex());
            lines += bar != nullptr ? int(bar->Links().size()) : 0;
        }
        EXPECT_EQ(std::size_t(lines), 2 * plan.Links.size());
        EXPECT_EQ(std::size_t(Chart().GetLinks().Count()), plan.Links.size());
    }
    void ExpectUndoAllRestores()
    {
        const Plan after = Now();
        ExpectShown();
        while (History().canUndo()) {
            History().undo();
            Settle();
        }
        EXPECT_TRUE(AreEqual(Now(), m_before));
        ExpectShown();
        while (History().canRedo()) {
            History().redo();
            Settle();
        }
        EXPECT_TRUE(AreEqual(Now(), after));
        ExpectShown();
    }

    qint64 m_clock = 0;
    MainWindow m_window;
    Plan m_before;
};

TEST_F(PlanEditingTest, DraggingMovesAndResizesBars)
{
    Drag(Middle(1), Middle(1) + QPoint(PixelsOf(3), 0));
    EXPECT_EQ(StartOf(1), 3);
    EXPECT_EQ(FinishOf(1), 13);
    EXPECT_EQ(StartOf(0), 3) << "the summary task begins with its first subtask";
    EXPECT_EQ(History().undoText(), u"Move 'Dig'");
    const QRect rect = RectOf(1);
    Drag({rect.right() - 1, rect.center().y()},
         {rect.right() - 1 + PixelsOf(4), rect.center().y()});
    EXPECT_EQ(FinishOf(1), 17) << "by whole days";
    EXPECT_EQ(StartOf(1), 3) << "the other end stays";
    EXPECT_EQ(History().undoText(), u"Resize 'Dig'");
    Drag(Middle(0), Middle(0) + QPoint(PixelsOf(2), 0));
    EXPECT_EQ(StartOf(1), 5) << "a summary bar takes its subtasks with it";
    EXPECT_EQ(StartOf(3), 12);
    EXPECT_EQ(Now().Tasks[3].Parts[0].Start, kMonday + 12);
    const double milestone = FinishOf(4);
    Drag(Middle(4), Middle(4) + QPoint(PixelsOf(1), 0));
    EXPECT_EQ(FinishOf(4), milestone + 1);
    ExpectUndoAllRestores();
}

TEST_F(PlanEditingTest, ASummaryBarCannotBeResizedNorABarChangeItsRow)
{
    const QRect rect = RectOf(0);
    Drag({rect.right() - 1, rect.center().y()},
         {rect.right() - 1 + PixelsOf(4), rect.center().y()});
    EXPECT_EQ(FinishOf(0) - StartOf(0), 20);
    History().undo();
    Settle();
    Drag(Middle(1), Middle(3));
    EXPECT_EQ(Now().Tasks[1].Name, u"Dig");
    EXPECT_EQ(Now().Tasks.size(), 5U);
    ExpectUndoAllRestores();
}

TEST_F(PlanEditingTest, CtrlDragCopies)
{
    Drag(Middle(1), Middle(1) + QPoint(PixelsOf(3), 0), Qt::ControlModifier);
    ASSERT_EQ(Now().Tasks.size(), 6U);
    EXPECT_EQ(Now().Tasks[2].Name, u"Dig");
    EXPECT_EQ(StartOf(1), 0);
    EXPECT_EQ(StartOf(2), 3);
    EXPECT_EQ(Chart().SelectedTasks(), std::vector{2});
    EXPECT_EQ(History().undoText(), u"Copy 'Dig'");
    ExpectUndoAllRestores();
}

TEST_F(PlanEditingTest, LinksAreDrawnFromBarToBar)
{
    Trigger(u"Draw links"_s);
    Drag(Middle(1), Middle(4));
    ASSERT_EQ(Now().Links.size(), 3U);
    EXPECT_EQ(Now().Links[2], (PlanLink{1, 4, {}}));
    EXPECT_EQ(History().undoText(), u"Link 'Dig' to 'Opening'");
    Drag(Middle(4), Middle(1));
    EXPECT_EQ(m_window.statusBar()->currentMessage(),
              u"A link from 'Opening' to 'Dig' would close a circle.");
    EXPECT_EQ(StartOf(4), 20) << "still drawing links";
    Trigger(u"Draw links"_s);
    Click(3);
    Click(4, Qt::ControlModifier);
    Trigger(u"Unlink"_s);
    EXPECT_EQ(Now().Links.size(), 2U);
    EXPECT_EQ(History().undoText(), u"Unlink 'Paint' and 'Opening'");
    Trigger(u"Link in order"_s);
    EXPECT_EQ(Now().Links.size(), 3U);
    ExpectUndoAllRestores();
}

TEST_F(PlanEditingTest, NamesAreEditedInTheTree)
{
    Click(1);
    Trigger(u"Rename"_s);
    auto *editor = Chart().Tree().viewport()->findChild<QLineEdit *>();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->text(), u"Dig");
    editor->setText(u"Dig & drain"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    Settle();
    EXPECT_EQ(Now().Tasks[1].Name, u"Dig & drain");
    EXPECT_EQ(History().undoText(), u"Rename 'Dig'");
    Trigger(u"Rename"_s);
    editor = Chart().Tree().viewport()->findChild<QLineEdit *>();
    ASSERT_NE(editor, nullptr);
    editor->setText(u" "_s);
    QTest::keyClick(editor, Qt::Key_Return);
    Settle();
    EXPECT_EQ(m_window.statusBar()->currentMessage(), u"A task needs a name.");
    ExpectUndoAllRestores();
}

TEST_F(PlanEditingTest, TheOutlineIsEditedByActions)
{
    struct Case
    {
        int Task;
        const char *Action;
        const char *UndoText;
        const char *Outline;
    };
    const Case cases[] = {
        {4, "Indent", "Indent 'Opening'", "Build .Dig .Wait .Paint .Opening"},
        {4, "Outdent", "Outdent 'Opening'", "Build .Dig .Wait .Paint Opening"},
        {4, "Move up", "Move 'Opening' up", "Opening Build .Dig .Wait .Paint"},
        {2, "Move down", "Move 'Dig' down", "Opening Build .Wait .Dig .Paint"},
        {3, "Delete", "Delete 'Dig'", "Opening Build .Wait .Paint"},
        {3, "Delete", "Delete 'Paint'", "Opening Build .Wait"},
        {1, "Delete", "Delete 'Build'", "Opening"},
        {0, "New task", "Insert task", "New task Opening"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.UndoText);
        Chart().SelectTasks({c.Task});
        Trigger(QString::fromLatin1(c.Action));
        EXPECT_EQ(History().undoText().toStdString(), c.UndoText);
        QString outline;
        for (const PlanTask &task : Now().Tasks) {
            outline += QString(task.Level - 1, u'.') + task.Name + u' ';
        }
        EXPECT_EQ(outline.trimmed().toStdString(), c.Outline);
        ExpectShown();
    }
    ExpectUndoAllRestores();
}

TEST_F(PlanEditingTest, RowsOfTheTreeAreMovedAndDeletedByTheUser)
{
    const auto node = [this](int task) {
        return const_cast<TzuDataEntity_Tree *>(Chart().NodeOf(task));
    };
    Chart().Tree().MoveByUser({{node(3), node(4)}, node(0), 0});
    Settle();
    EXPECT_EQ(Now().Tasks[1].Name, u"Paint");
    EXPECT_EQ(Now().Tasks[2].Name, u"Opening");
    EXPECT_EQ(Now().Tasks[2].Level, 2);
    EXPECT_EQ(History().undoText(), u"Rearrange 2 tasks");
    Chart().Tree().MoveByUser({{node(3)}, node(1), 0});
    Settle();
    EXPECT_EQ(m_window.statusBar()->currentMessage(),
              u"'Dig' cannot become a subtask of 'Paint': they are linked.");
    ExpectShown();
    Chart().Tree().setFocus();
    Chart().Tree().ClearSelection();
    for (const int task : {2, 4}) {
        node(task)->SetSelected(true);
    }
    Settle();
    EXPECT_TRUE(Chart().BarOf(2)->GetSelected()) << "the area follows the tree";
    EXPECT_EQ(Chart().SelectedTasks(), (std::vector{2, 4}));
    Chart().Tree().DeleteSelected();
    Settle();
    EXPECT_EQ(Now().Tasks.size(), 3U);
    ExpectUndoAllRestores();
}

TEST_F(PlanEditingTest, LinksAreSelectedWithTheMouseAndDeleted)
{
    SelectLink();
    ASSERT_EQ(Chart().SelectedPlanLinks(), std::vector{0});
    QTest::keyClick(&Chart().GantArea(), Qt::Key_Delete);
    Settle();
    EXPECT_EQ(Now().Links.size(), 1U);
    EXPECT_EQ(History().undoText(), u"Unlink 'Dig' and 'Paint'");
    Click(1);
    QTest::keyClick(&Chart().GantArea(), Qt::Key_Return);
    Settle();
    ASSERT_NE(m_window.findChild<TaskDialog *>(), nullptr) << "Enter opens the form";
    m_window.findChild<TaskDialog *>()->reject();
    QTest::keyClick(&Chart().GantArea(), Qt::Key_Delete);
    Settle();
    EXPECT_EQ(Now().Tasks.size(), 4U);
    ExpectUndoAllRestores();
}

TEST_F(PlanEditingTest, TheFormOfALinkChangesOrDeletesItInOneStep)
{
    const auto form = [this] {
        Settle();
        return m_window.findChild<LinkDialog *>();
    };
    const auto enter = [&](int type, double lag, LagMeasure measure) {
        const auto combos = form()->findChildren<QComboBox *>();
        combos.at(0)->setCurrentIndex(type);
        combos.at(1)->setCurrentIndex(int(measure));
        form()->findChild<QDoubleSpinBox *>()->setValue(lag);
        form()->accept();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Settle();
    };
    const QPoint onLink = SelectLink();
    QTest::keyClick(&Chart().GantArea(), Qt::Key_Return);
    ASSERT_NE(form(), nullptr);
    enter(1, -1.5, LagMeasure::Days);
    EXPECT_EQ(Now().Links[0].Type, PlanLinkType::StartToStart);
    EXPECT_EQ(Now().Links[0].Lag, PlanLag{-720});
    EXPECT_EQ(History().undoText(), u"Change the link of 'Dig' and 'Paint'");
    EXPECT_EQ(Chart().SelectedPlanLinks(), std::vector{0}) << "it stays selected";
    Trigger(u"Edit link..."_s);
    enter(1, -1.5, LagMeasure::Days);
    EXPECT_EQ(History().count(), 1) << "no change is no step";
    Trigger(u"Edit link..."_s);
    enter(0, 50, LagMeasure::ElapsedPercent);
    QTest::mouseDClick(&Chart().GantArea(), Qt::LeftButton, {}, onLink);
    ASSERT_NE(form(), nullptr) << "the line is where it was";
    EXPECT_EQ(form()->findChildren<QComboBox *>().at(1)->currentText(), u"elapsed %");
    for (QPushButton *button : form()->findChildren<QPushButton *>()) {
        if (button->text() == u"&Delete") {
            button->click();
        }
    }
    EXPECT_EQ(Now().Links.size(), 1U);
    EXPECT_EQ(History().count(), 3);
    Chart().SelectTasks({0, 1});
    Trigger(u"Edit link..."_s);
    EXPECT_EQ(form(), nullptr) << "the tasks are not linked";
    ExpectUndoAllRestores();
}

TEST_F(PlanEditingTest, UndoSelectsWhatItWasAboutAndShowsIt)
{
    Chart().SelectTasks({1});
    Settle();
    Trigger(u"Move later"_s);
    Chart().Tree().FullCollapse();
    Chart().DateScaler().SetRange(kMonday + 500, kMonday + 510);
    Chart().SelectTasks({4});
    Settle();
    History().undo();
    Settle();
    EXPECT_EQ(Chart().SelectedTasks(), std::vector{1});
    EXPECT_TRUE(Chart().BarOf(1)->GetRow()->IsOnScreen());
    EXPECT_LT(Chart().Start(), kMonday + 10);
    EXPECT_GT(Chart().Stop(), kMonday);
    // In view already: nothing scrolls.
    const TDateTime start = Chart().Start();
    History().redo();
    Settle();
    EXPECT_EQ(Chart().Start(), start);
}

TEST_F(PlanEditingTest, NudgesOfTheSameTasksWithinASecondAreOneStep)
{
    Chart().SelectTasks({1});
    for (const qint64 time : {0, 900, 1800}) {
        m_clock = time;
        Trigger(u"Move later"_s);
    }
    EXPECT_EQ(History().count(), 1);
    EXPECT_EQ(StartOf(1), 3);
    m_clock = 2900;
    Trigger(u"Move earlier"_s);
    EXPECT_EQ(History().count(), 2) << "after a pause";
    Chart().SelectTasks({3});
    Trigger(u"Move earlier"_s);
    EXPECT_EQ(History().count(), 3) << "another task";
    ExpectUndoAllRestores();
}

TEST_F(PlanEditingTest, TheFormChangesATaskInOneStep)
{
    Click(1);
    QTest::mouseDClick(&Chart().GantArea(), Qt::LeftButton, {}, Middle(1));
    Settle();
    auto *form = m_window.findChild<TaskDialog *>();
    ASSERT_NE(form, nullptr);
    form->findChild<QLineEdit *>()->setText({});
    form->accept();
    EXPECT_TRUE(form->isVisible()) << "refused";
    form->findChild<QLineEdit *>()->setText(u"Dig deep"_s);
    form->findChild<QSpinBox *>()->setValue(70);
    form->accept();
    EXPECT_EQ(Now().Tasks[1].Name, u"Dig deep");
    EXPECT_EQ(Now().Tasks[1].PercentComplete, 70);
    EXPECT_EQ(Now().Tasks[1].Dates, m_before.Tasks[1].Dates);
    EXPECT_EQ(History().undoText(), u"Change 'Dig'");
    ExpectUndoAllRestores();
}

TEST_F(PlanEditingTest, ActionsAreEnabledWhenThereIsSomethingToDo)
{
    Chart().SelectTasks({});
    Settle();
    EXPECT_FALSE(ActionOf(u"Link in order"_s)->isEnabled());
    Chart().SelectTasks({1, 3});
    Settle();
    EXPECT_TRUE(ActionOf(u"Link in order"_s)->isEnabled());
    EXPECT_FALSE(ActionOf(u"Rename"_s)->isEnabled()) << "one at a time";
    EXPECT_FALSE(ActionOf(u"Undo"_s)->isEnabled());
    Trigger(u"Delete"_s);
    EXPECT_TRUE(ActionOf(u"Undo Delete 2 tasks"_s)->isEnabled());
    EXPECT_TRUE(m_window.isWindowModified());
}

} // namespace
} // namespace korvane::planner::test
