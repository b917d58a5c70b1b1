// The table of tasks beside the chart, edited as users do it.
#include "MainWindow.h"
#include "PlanChart.h"
#include "PlanDocument.h"
#include "PlanEdits.h"
#include "PlanTable.h"
#include "SmallPlan.h"
#include "grid/qt/zuGrid.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QSettings>
#include <QTest>

namespace korvane::planner::test {
namespace {

using enum TaskColumn;

class PlanTableTest : public testing::Test
{
protected:
    PlanTableTest()
    {
        m_window = std::make_unique<MainWindow>();
        m_window->resize(1300, 500);
        m_window->show();
        Plan plan = SmallPlan();
        plan.Links.erase(plan.Links.begin() + 2, plan.Links.end());
        plan.Resources = {{1, u"Anna"_s}, {2, u"Ben"_s}};
        m_window->Document().SetPlan(std::move(plan));
        m_before = Now();
        Chart().SetTableShown(true);
        Settle();
    }

    PlanChart &Chart() { return m_window->Chart(); }
    TzuGrid &Grid() { return Chart().Grid(); }
    const Plan &Now() { return m_window->Document().GetPlan(); }
    QUndoStack &History() { return m_window->Document().History(); }
    static void Settle()
    {
        for (int i = 0; i < 3; ++i) {
            QApplication::processEvents();
        }
    }
    /// The row of a task in the grid, behind the header.
    int RowOf(int task)
    {
        for (int row = 1; row < Grid().RootCell().Rows().Count(); ++row) {
            if (PlanChart::TaskOfNode(*Grid().GetTree()->GetDataEntityFromRow(row)) == task) {
                return row;
            }
        }
        return -1;
    }
    std::string Text(int task, TaskColumn column)
    {
        return Grid().CellText(static_cast<int>(column), RowOf(task) - 1);
    }
    void Focus(int task, TaskColumn column)
    {
        Grid().setFocus();
        Grid().ChooseCell({&Grid().RootCell(), static_cast<int>(column), RowOf(task)},
                          TGridChoice::Set);
        Settle();
    }
    QLineEdit *Field()
    {
        auto *choices = qobject_cast<QComboBox *>(Grid().EditorField());
        return choices != nullptr ? choices->lineEdit()
                                  : qobject_cast<QLineEdit *>(Grid().EditorField());
    }
    /// Types into a cell and confirms. Whether it was taken.
    bool Type(int task, TaskColumn column, const QString &text)
    {
        Focus(task, column);
        QTest::keyClicks(&Grid(), text.left(1));
        Settle();
        QLineEdit *field = Field();
        if (field == nullptr) {
            return false;
        }
        field->setText(text);
        QTest::keyClick(field, Qt::Key_Return);
        Settle();
        return !Grid().IsEditing();
    }
    void UndoAll()
    {
        while (History().canUndo()) {
            History().undo();
        }
        EXPECT_EQ(Now().Tasks, m_before.Tasks);
        EXPECT_EQ(Now().Links, m_before.Links);
        EXPECT_EQ(Now().Assignments, m_before.Assignments);
    }

    std::unique_ptr<MainWindow> m_window;
    Plan m_before;
};

TEST_F(PlanTableTest, ShowsTheTasksLevelWithTheirBars)
{
    EXPECT_TRUE(Chart().Tree().isHidden());
    EXPECT_EQ(Text(1, Name), "Dig");
    EXPECT_EQ(Text(3, Predecessors), "2");
    EXPECT_EQ(Text(1, PercentComplete), "50 %");
    for (const TGantRow *row : Chart().GantRows().RowsOnScreen()) {
        const TRect rect = Grid().GetRect(*row->GridNode());
        EXPECT_EQ(Grid().mapTo(m_window.get(), QPoint(0, rect.Top)).y(),
                  Chart().GantArea().mapTo(m_window.get(), QPoint(0, row->GetRect().Top)).y());
    }
    EXPECT_EQ(Chart().GantRows().RowsOnScreen().size(), 5U);
    EXPECT_EQ(Chart().GantRows().Count(), 5) << "those of the tree";
}

TEST_F(PlanTableTest, EachEditIsOneStepAndTheChartFollows)
{
    EXPECT_TRUE(Type(1, Name, u"Dig deeper"_s));
    EXPECT_EQ(History().undoText(), u"Rename 'Dig deeper'"_s);
    EXPECT_EQ(Chart().NodeOf(1)->GetText(), "Dig deeper");
    EXPECT_TRUE(Type(1, Duration, u"2d"_s));
    EXPECT_EQ(History().undoText(), u"Change duration of 'Dig deeper'"_s);
    EXPECT_EQ(Chart().BarOf(1)->GetStopDateTime(), Now().Tasks[1].Dates->Finish);
    EXPECT_TRUE(Type(4, Predecessors, u"2SS"_s));
    EXPECT_EQ(Now().Links.size(), 2U);
    EXPECT_EQ(Now().Links.back().Type, PlanLinkType::StartToStart);
    EXPECT_TRUE(Type(3, Resources, u"ben"_s));
    EXPECT_EQ(Text(3, Resources), "Ben");
    EXPECT_EQ(History().count(), 4);
    UndoAll();
}

TEST_F(PlanTableTest, WhatIsRefusedStaysInTheEditor)
{
    EXPECT_FALSE(Type(1, Predecessors, u"4"_s)) << "would close a circle";
    ASSERT_TRUE(Grid().IsEditing());
    EXPECT_EQ(Field()->text(), u"4"_s);
    QTest::keyClick(Field(), Qt::Key_Escape);
    EXPECT_FALSE(Grid().IsEditing());
    EXPECT_FALSE(Type(0, Number, u"9"_s));
    EXPECT_EQ(History().count(), 0);
}

TEST_F(PlanTableTest, WhatIsBeingTypedIsNotLostOnTheWayOut)
{
    Focus(1, Name);
    QTest::keyClicks(&Grid(), u"X"_s);
    Settle();
    ASSERT_TRUE(Grid().IsEditing());
    EXPECT_FALSE(m_window->close()) << "there is a change now, which is asked about";
    EXPECT_EQ(Now().Tasks[1].Name, u"X"_s);
    History().setClean();

    EXPECT_FALSE(Type(1, Predecessors, u"4"_s));
    EXPECT_FALSE(m_window->close()) << "refused, and still to be mended";
    EXPECT_TRUE(m_window->isVisible() && Grid().IsEditing());
    m_window.reset();
}

TEST_F(PlanTableTest, PastedCellsAreOneStep)
{
    Focus(1, Name);
    QApplication::clipboard()->setText(u"One\nTwo\nThree"_s);
    Grid().PasteFromClipboard();
    EXPECT_EQ(Text(1, Name) + Text(2, Name) + Text(3, Name), "OneTwoThree");
    EXPECT_EQ(History().count(), 1);
    EXPECT_EQ(History().undoText(), u"Paste 3 cells"_s);
    UndoAll();
}

TEST_F(PlanTableTest, TheDeleteKeyEmptiesCellsAndDeletesTasksByTheirNumbers)
{
    Focus(1, Predecessors);
    Grid().ChooseCell({&Grid().RootCell(), static_cast<int>(Predecessors), RowOf(3)},
                      TGridChoice::Extend);
    QTest::keyClick(&Grid(), Qt::Key_Delete);
    Settle();
    EXPECT_EQ(Now().Tasks, m_before.Tasks);
    EXPECT_EQ(Text(3, Predecessors), "");
    EXPECT_TRUE(History().undoText().startsWith(u"Clear "_s)) << History().undoText().toStdString();
    EXPECT_EQ(History().count(), 1);
    UndoAll();
    EXPECT_EQ(Text(3, Predecessors), "2");
    Focus(3, Number);
    QTest::keyClick(&Grid(), Qt::Key_Delete);
    Settle();
    EXPECT_EQ(Now().Tasks.size(), m_before.Tasks.size() - 1);
    UndoAll();
}

TEST_F(PlanTableTest, APasteBeyondTheLastRowBringsNewTasksInTheSameStep)
{
    Focus(4, Name);
    QApplication::clipboard()->setText(u"Four\t\t\t2d\t1\nFive\t\t\t1d\t5\nSix\t\t\t3d\t5, 6"_s);
    Grid().PasteFromClipboard();
    ASSERT_EQ(Now().Tasks.size(), 7U);
    EXPECT_EQ(Text(5, Name) + Text(5, Duration) + Text(5, Predecessors), "Five1d5");
    EXPECT_EQ(Text(6, Name) + Text(6, Duration) + Text(6, Predecessors), "Six3d5, 6");
    EXPECT_EQ(Now().Tasks[6].Level, 1);
    EXPECT_EQ(History().count(), 1);
    UndoAll();
    EXPECT_EQ(Grid().RootCell().Rows().Count(), 6);
    History().redo();
    EXPECT_EQ(Text(6, Predecessors), "5, 6");
    UndoAll();
}

TEST_F(PlanTableTest, SummaryTasksAreBold)
{
    std::string bold;
    const TOnBeforeRenderCell looks = Grid().OnBeforeRenderCell;
    Grid().OnBeforeRenderCell = [&](TObject *grid, TCellRender &cell) {
        looks(grid, cell);
        bold += cell.Font.Bold ? cell.Text : "";
    };
    Grid().Invalidate();
    Settle();
    EXPECT_EQ(bold, Text(0, Name));
}

TEST_F(PlanTableTest, SortingOrdersTheRowsAlone)
{
    Grid().SortByUser(Grid().Columns().At(static_cast<int>(Name)), false);
    EXPECT_EQ(RowOf(4), 5);
    EXPECT_EQ(RowOf(3), 3) << "Dig, Paint, Wait";
    EXPECT_EQ(RowOf(2), 4);
    EXPECT_EQ(History().count(), 0);
    EXPECT_TRUE(Type(3, Name, u"Zinc"_s)) << "the cell of the row that is shown there";
    EXPECT_EQ(Now().Tasks[3].Name, u"Zinc"_s);
    m_window->Edits().MoveUp({3});
    EXPECT_EQ(Now().Tasks[2].Name, u"Zinc"_s);
    Grid().SortByUser(Grid().Columns().At(static_cast<int>(Number)), false);
    for (int task = 0; task < 5; ++task) {
        EXPECT_EQ(RowOf(task), task + 1);
    }
    UndoAll();
}

TEST_F(PlanTableTest, SharesSelectionAndStructureWithTheChart)
{
    Focus(3, Start);
    EXPECT_EQ(Chart().SelectedTasks(), std::vector{3});
    EXPECT_TRUE(Chart().BarOf(3)->GetSelected());
    Chart().GantArea().setFocus();
    Chart().SelectTasks({1});
    EXPECT_EQ(Grid().FocusCell().Row, RowOf(1));
    m_window->Edits().Insert(1);
    m_window->Edits().Indent({2});
    m_window->Edits().Delete({0});
    UndoAll();
    EXPECT_EQ(RowOf(4), 5);
    Chart().CollapseAll();
    Chart().SetTableShown(false);
    EXPECT_FALSE(Chart().NodeOf(0)->GetExpanded());
    EXPECT_EQ(Chart().SelectedTasks().size(), 1U);
}

TEST_F(PlanTableTest, RemembersItsColumnsAndThatItIsShown)
{
    Grid().Columns().At(static_cast<int>(Name)).SetWidth(321);
    Grid().Columns().At(static_cast<int>(Resources)).SetHidden(true);
    Grid().Columns().Move(static_cast<int>(PercentComplete), 1);
    m_window.reset();
    QSettings().setValue(QStringLiteral("table/shown"), true);
    m_window = std::make_unique<MainWindow>();
    EXPECT_TRUE(Chart().IsTableShown());
    EXPECT_EQ(Grid().Columns().At(1).HeaderText(), "Complete");
    EXPECT_EQ(Grid().Columns().At(2).Width(), 321);
    EXPECT_TRUE(Grid().Columns().At(7).Hidden());
}

} // namespace
} // namespace korvane::planner::test
