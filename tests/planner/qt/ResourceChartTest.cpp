// The view of resources, and switching to it and back.
#include "MainWindow.h"
#include "PlanChart.h"
#include "PlanDocument.h"
#include "PlanEdits.h"
#include "ResourceChart.h"
#include "ResourceToolTip.h"
#include "SmallPlan.h"
#include "ViewSwitch.h"
#include "foundation/qt/zuConvert.h"

#include <QAction>
#include <QApplication>
#include <QTest>

namespace korvane::planner::test {
namespace {

/// Ann digs [0, 10) and paints [5, 15); Bob paints at half; nobody tests [2, 4).
Plan SharedPlan()
{
    Plan plan;
    plan.Tasks = {TaskFrom(u"Dig"_s, kNoIndex, 0, 10), TaskFrom(u"Paint"_s, kNoIndex, 5, 15),
                  TaskFrom(u"Test"_s, kNoIndex, 2, 4)};
    for (std::size_t i = 0; i < plan.Tasks.size(); ++i) {
        plan.Tasks[i].Uid = std::int64_t(i) + 1;
    }
    plan.Resources = {{1, u"Ann"_s}, {2, u"Bob"_s}};
    plan.Assignments = {{0, 0, 1}, {1, 0, 0.5}, {1, 1, 0.5}};
    return plan;
}

class ResourceChartTest : public testing::Test
{
protected:
    ResourceChartTest()
    {
        m_window.resize(1200, 500);
        m_window.show();
        m_window.Document().SetPlan(SharedPlan());
        Switch(u"Resources"_s);
    }

    ResourceChart &Chart() { return m_window.Resources(); }
    PlanEdits &Edits() { return m_window.Edits(); }
    const Plan &Now() { return m_window.Document().GetPlan(); }
    void Settle()
    {
        do {
            QApplication::processEvents();
            Chart().GantArea().grab();
        } while (!Chart().IsSeparated());
        QApplication::processEvents();
    }
    void Switch(const QString &text)
    {
        for (QAction *action : m_window.Views().Actions()) {
            if (action->text().remove(u'&') == text) {
                action->trigger();
            }
        }
        Settle();
    }
    std::vector<TzuDataEntity_Spanbar *> BarsOf(int row)
    {
        std::vector<TzuDataEntity_Spanbar *> bars;
        TGantRow &line = *Chart().RowOf(row);
        line.ForEachShown([&](TzuDataEntity_Spanbar &bar) { bars.push_back(&bar); });
        return bars;
    }
    std::string CaptionOf(int row) { return Chart().RowOf(row)->TreeNode()->GetText(); }
    QPoint Middle(int row, std::size_t bar)
    {
        const auto rect = Chart().RowOf(row)->RectFromDataEntity(*BarsOf(row).at(bar));
        return ToQt(rect.value_or(TRect{})).center();
    }
    void Drag(QPoint from, QPoint to)
    {
        QWidget &area = Chart().GantArea();
        QTest::mousePress(&area, Qt::LeftButton, {}, from);
        for (int step = 1; step <= 5; ++step) {
            QTest::mouseMove(&area, from + (to - from) * step / 5);
        }
        QTest::mouseRelease(&area, Qt::LeftButton, {}, to);
        Settle();
    }
    int PixelsOf(double days) { return qRound(days / Chart().Scale()); }

    MainWindow m_window;
};

TEST_F(ResourceChartTest, RowsAreResourcesAndTheLastOneIsUnassigned)
{
    ASSERT_EQ(Chart().RowCount(), 3);
    EXPECT_EQ(CaptionOf(0), "Ann – 150 %");
    EXPECT_EQ(CaptionOf(1), "Bob");
    EXPECT_EQ(CaptionOf(2), "Unassigned");
    EXPECT_EQ(BarsOf(0).size(), 2U);
    EXPECT_EQ(Chart().RowOf(0)->UseSubCols(), 2);
    EXPECT_EQ(Chart().RowOf(1)->UseSubCols(), 0);
    ASSERT_EQ(BarsOf(2).size(), 1U);
    EXPECT_EQ(Chart().TaskAt(Middle(2, 0)), 2);
    const std::vector<LoadStretch> over = {{kMonday + 5, kMonday + 10, 1.5}};
    EXPECT_EQ(Chart().OverloadOfRow(0), over);
    EXPECT_TRUE(Chart().OverloadOfRow(1).empty());
    const QString tip = ResourceToolTip(Now().Resources[0], over);
    EXPECT_TRUE(tip.contains(u"Ann") && tip.contains(u"150&nbsp;%") && tip.contains(u"7 Nov 2026"))
        << tip.toStdString();
    // The mark lies under the bars' times, in the row alone.
    const QImage picture = Chart().GantArea().grab().toImage();
    const TRect row = Chart().RowOf(0)->GetRect();
    const auto isRed = [&](double day, int y) {
        const QColor color = picture.pixelColor(Chart().DateScaler().DateToPixel(kMonday + day), y);
        return color.red() > 150 && color.green() < 120;
    };
    EXPECT_TRUE(isRed(5.5, row.Bottom - 3));
    EXPECT_TRUE(isRed(9.5, row.Bottom - 3));
    EXPECT_FALSE(isRed(4.5, row.Bottom - 3));
    EXPECT_FALSE(isRed(10.5, row.Bottom - 3));
    EXPECT_FALSE(isRed(7, Chart().RowOf(1)->GetRect().Bottom - 3));
}

TEST_F(ResourceChartTest, EditsShowInBothViewsAndAreUndone)
{
    Drag(Middle(0, 0), Middle(0, 0) - QPoint(PixelsOf(5), 0));
    EXPECT_EQ(Now().Tasks[0].Dates, (PlanSpan{kMonday - 5, kMonday + 5}));
    EXPECT_EQ(m_window.Chart().BarOf(0)->GetStopDateTime(), kMonday + 5);
    EXPECT_EQ(CaptionOf(0), "Ann");
    EXPECT_EQ(Chart().RowOf(0)->UseSubCols(), 0);
    m_window.Document().History().undo();
    Settle();
    EXPECT_EQ(BarsOf(0)[0]->GetStopDateTime(), kMonday + 10);
    EXPECT_EQ(CaptionOf(0), "Ann – 150 %");
    // A task with two bars, edited elsewhere.
    Edits().SetDates({{1, {kMonday + 20, kMonday + 21}}});
    Settle();
    EXPECT_EQ(BarsOf(0)[1]->GetStartDateTime(), kMonday + 20);
    EXPECT_EQ(BarsOf(1)[0]->GetStartDateTime(), kMonday + 20);
    Edits().Delete({1});
    Settle();
    EXPECT_EQ(BarsOf(0).size(), 1U);
    EXPECT_TRUE(BarsOf(1).empty());
    m_window.Document().History().undo();
    Edits().Insert(kNoIndex);
    Settle();
    EXPECT_EQ(BarsOf(1).size(), 1U);
    EXPECT_EQ(BarsOf(2).size(), 2U);
}

TEST_F(ResourceChartTest, BothViewsShowTheSameTimeAndSelection)
{
    QTest::mouseClick(&Chart().GantArea(), Qt::LeftButton, {}, Middle(1, 0));
    EXPECT_EQ(Chart().SelectedTasks(), std::vector<int>{1});
    EXPECT_EQ(m_window.Chart().SelectedTasks(), std::vector<int>{1});
    Chart().DateScaler().SetRange(kMonday + 1, kMonday + 8);
    Switch(u"Tasks"_s);
    EXPECT_TRUE(m_window.Chart().isVisible());
    EXPECT_EQ(m_window.Chart().Start(), kMonday + 1);
    EXPECT_EQ(m_window.Chart().Stop(), kMonday + 8);
    EXPECT_EQ(m_window.Chart().SelectedTasks(), std::vector<int>{1});
    m_window.Chart().SelectTasks({0, 2});
    // Hidden, it does not follow; shown again it is up to date.
    Edits().SetDates({{2, {kMonday + 3, kMonday + 7}}});
    EXPECT_EQ(BarsOf(2)[0]->GetStopDateTime(), kMonday + 4);
    Switch(u"Resources"_s);
    EXPECT_EQ(BarsOf(2)[0]->GetStopDateTime(), kMonday + 7);
    EXPECT_EQ(Chart().SelectedTasks(), (std::vector<int>{0, 2}));
    // Without a selection nothing is meant that cannot be seen.
    QTest::mouseClick(&Chart().GantArea(), Qt::LeftButton, {},
                      {3, Chart().GantArea().height() - 3});
    EXPECT_TRUE(m_window.Chart().SelectedTasks().empty());
}

TEST_F(ResourceChartTest, TheViewIsRememberedExceptForIntervals)
{
    Plan intervals = SharedPlan();
    intervals.Kind = PlanKind::Intervals;
    m_window.Document().SetPlan(SharedPlan());
    EXPECT_TRUE(Chart().isVisible());
    Switch(u"Tasks"_s);
    m_window.Document().SetPlan(intervals);
    EXPECT_TRUE(Chart().isVisible());
    Switch(u"Resources"_s);
    m_window.Document().SetPlan(SharedPlan());
    EXPECT_TRUE(m_window.Chart().isVisible());
    MainWindow other;
    other.Document().SetPlan(SharedPlan());
    EXPECT_EQ(&other.Views().Shown(), &other.Chart());
}

} // namespace
} // namespace korvane::planner::test
