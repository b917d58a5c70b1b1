#include "AxisLabels.h"
#include "PlanChart.h"
#include "PlanDocument.h"
#include "SmallPlan.h"
#include "TaskToolTip.h"
#include "Theme.h"
#include "foundation/qt/zuConvert.h"

#include <QApplication>
#include <QImage>
#include <QWheelEvent>

namespace korvane::planner::test {
namespace {

class PlanChartTest : public testing::Test
{
protected:
    PlanChartTest()
    {
        m_chart.resize(1000, 400);
        m_chart.SetNow(kMonday + 1000); // out of the way
        m_document.SetPlan(SmallPlan());
        m_chart.show();
        QApplication::processEvents();
    }

    QImage Picture() { return m_chart.GantArea().grab().toImage(); }
    /// What the bar of the task says after a paint; empty when the name stands beside it.
    std::string NameInBar(int task)
    {
        Picture();
        const TzuDataEntity_Spanbar &bar = *m_chart.BarOf(task);
        TzuDataList2lev &layers = bar.GetRow()->Layers();
        for (int layer = 0; layer < layers.Count(); ++layer) {
            TzuDataList &list = *layers.GetDataList(layer);
            for (int i = 0; i < list.Count(); ++i) {
                auto &item = TimeDataEntity(*list.GetItems(i));
                if (item.HasTexts() && !item.Texts().GetTimeItemText(0).Text().empty()) {
                    return item.Texts().GetTimeItemText(0).Text();
                }
            }
        }
        return {};
    }

    PlanDocument m_document;
    PlanChart m_chart{m_document};
};

TEST_F(PlanChartTest, ShowsTheOutlineAsRowsWithABarPerTask)
{
    EXPECT_EQ(m_chart.GantRows().Count(), 5);
    EXPECT_EQ(m_chart.NodeOf(1)->ParentNode(), m_chart.NodeOf(0));
    EXPECT_EQ(m_chart.NodeOf(4)->ParentNode(), nullptr);
    EXPECT_EQ(m_chart.NodeOf(3)->GetText(), "Paint");
    EXPECT_EQ(m_chart.BarOf(0)->GetStyle(), TSpanbarStyle::sbsSpan);
    EXPECT_EQ(m_chart.BarOf(1)->GetStyle(), TSpanbarStyle::sbsUser) << "half of it is done";
    EXPECT_EQ(m_chart.BarOf(1)->GetStopDateTime(), kMonday + 10);
    EXPECT_EQ(m_chart.BarOf(2), nullptr) << "a task without dates";
    EXPECT_EQ(m_chart.BarOf(4)->GetStyle(), TSpanbarStyle::sbsRomb);
    EXPECT_GT(m_chart.BarOf(4)->FixedSize(), 8);
}

TEST_F(PlanChartTest, ShowsTheLinksThatHaveTwoBars)
{
    ASSERT_EQ(m_chart.GetLinks().Count(), 2);
    const auto &link = static_cast<const TzuDataEntity_Link &>(*m_chart.GetLinks().GetItems(0));
    EXPECT_EQ(link.First(), m_chart.BarOf(1));
    EXPECT_EQ(link.Second(), m_chart.BarOf(3));
}

TEST_F(PlanChartTest, AnotherPlanReplacesEverything)
{
    Plan plan;
    plan.Tasks = {TaskFrom(QString(300, u'ß') + u'\n', kNoIndex, 500, 501)};
    m_document.SetPlan(std::move(plan));
    EXPECT_EQ(m_chart.GantRows().Count(), 1);
    EXPECT_EQ(m_chart.GetLinks().Count(), 0);
    EXPECT_EQ(ToQt(m_chart.NodeOf(0)->GetText()), QString(kMaxTreeText, u'ß'));
    EXPECT_LT(m_chart.Start(), kMonday + 500);
    EXPECT_GT(m_chart.Start(), kMonday + 490);
    m_document.SetPlan({});
    EXPECT_EQ(m_chart.GantRows().Count(), 0);
    EXPECT_LT(m_chart.Start(), m_chart.GetNow());
    EXPECT_GT(m_chart.Stop(), m_chart.GetNow());
    Picture();
}

TEST_F(PlanChartTest, FitsThePlanWithAMargin)
{
    m_chart.DateScaler().SetRange(kMonday + 3, kMonday + 4);
    m_chart.FitPlan();
    EXPECT_LT(m_chart.Start(), kMonday);
    EXPECT_GT(m_chart.Start(), kMonday - 3);
    EXPECT_GT(m_chart.Stop(), kMonday + 20);
    EXPECT_LT(m_chart.Stop(), kMonday + 25);
}

TEST_F(PlanChartTest, TheWheelScrollsRowsPastTheCurrentOneAndZoomsWithCtrl)
{
    m_chart.resize(1000, 120);
    m_chart.Tree().SetCurrentDataEntity(m_chart.Tree().GetTopItem());
    QApplication::processEvents();
    const auto turn = [this](QWidget &over, int delta, Qt::KeyboardModifiers modifiers = {}) {
        const QPointF at = over.rect().center();
        QWheelEvent event(at, over.mapToGlobal(at), {}, {0, delta}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&over, &event);
    };
    turn(m_chart.GantArea(), -40); // a third of a notch is a row
    EXPECT_EQ(m_chart.Tree().GetTopItem(), m_chart.NodeOf(1));
    turn(*m_chart.Tree().viewport(), -30);
    turn(*m_chart.Tree().viewport(), -10);
    EXPECT_EQ(m_chart.Tree().GetTopItem(), m_chart.NodeOf(2));
    turn(*m_chart.Tree().viewport(), -30);
    turn(m_chart.GantArea(), 80);
    EXPECT_EQ(m_chart.Tree().GetTopItem(), m_chart.NodeOf(0)) << "the rest went when it turned";
    EXPECT_EQ(m_chart.Tree().GetCurrentDataEntity(), m_chart.NodeOf(0));
    const TDateTime length = m_chart.Stop() - m_chart.Start();
    turn(m_chart.GantArea(), 240, Qt::ControlModifier);
    EXPECT_NEAR(m_chart.Stop() - m_chart.Start(), length / 1.5, length / 1000);
}

TEST_F(PlanChartTest, NamesStandInTheirBarsOnlyWhereTheyFit)
{
    EXPECT_EQ(NameInBar(1), "Dig");
    EXPECT_EQ(NameInBar(0), "Build");
    EXPECT_EQ(NameInBar(3), "") << "split";
    EXPECT_EQ(NameInBar(4), "") << "milestone";
    m_chart.DateScaler().SetRange(kMonday - 2000, kMonday + 2000);
    EXPECT_EQ(NameInBar(1), "");
    m_chart.DateScaler().SetRange(kMonday + 5, kMonday + 6);
    EXPECT_EQ(NameInBar(1), "Dig");
    const TzuDataEntity_Spanbar &bar = *m_chart.BarOf(1);
    const int left = bar.GetRow()->RectFromDataEntity(bar)->Left;
    TzuDataList &bars = *bar.GetRow()->Layers().GetDataList(0);
    auto &name = TimeDataEntity(*bars.GetItems(0)).Texts().GetTimeItemText(0);
    EXPECT_LT(left, -1000);
    EXPECT_GE(left + name.Pos().X, 0) << "the name begins where the area does";
    EXPECT_LT(left + name.Pos().X, 20);
}

TEST_F(PlanChartTest, DaysOffAreShadedWhenDaysAreWideEnough)
{
    const auto colorAt = [this](TDateTime instant) {
        const QImage picture = Picture();
        return picture.pixelColor(m_chart.DateScaler().DateToPixel(instant), picture.height() - 5);
    };
    const TDateTime friday = kMonday + 4.5;
    EXPECT_NE(colorAt(friday + 1), colorAt(friday));
    EXPECT_EQ(colorAt(friday + 3), colorAt(friday));
    m_chart.DateScaler().SetRange(kMonday - 500, kMonday + 500);
    EXPECT_EQ(colorAt(friday + 1), colorAt(friday));
    m_chart.DateScaler().SetRange(friday - 0.7, friday + 0.7);
    EXPECT_NE(colorAt(friday - 0.4), colorAt(friday + 0.1)) << "the night, between office hours";
}

TEST_F(PlanChartTest, FollowsThePalette)
{
    const TColor before = m_chart.BarOf(1)->GetColor();
    m_chart.setPalette(DarkPalette());
    QApplication::processEvents();
    EXPECT_NE(m_chart.BarOf(1)->GetColor(), before);
    const QColor back = Picture().pixelColor(0, Picture().height() - 1);
    EXPECT_LT(back.lightness(), 64);
}

TEST_F(PlanChartTest, FindsTheTaskUnderThePointer)
{
    Picture();
    const TzuDataEntity_Spanbar &bar = *m_chart.BarOf(3);
    const TRect rect = *bar.GetRow()->RectFromDataEntity(bar);
    const int y = rect.Top + rect.Height() / 2;
    EXPECT_EQ(m_chart.TaskAt({rect.Left + 5, y}), 3);
    EXPECT_EQ(m_chart.TaskAt({rect.Left - 20, y}), kNoIndex);
    EXPECT_EQ(m_chart.TaskAt({rect.Left, 4000}), kNoIndex);
}

TEST(TaskToolTip, TellsAboutATaskAndEscapesWhatTheFileSays)
{
    Plan plan = SmallPlan();
    plan.Tasks[1].Name = u"<b> & %1"_s;
    plan.Tasks[1].Notes = u"one\n"_s + QString(1000, u'x');
    plan.Resources = {{1, u"Ann %2"_s}, {2, u"Bob"_s}};
    plan.Assignments = {{1, 0, 1}, {1, 1, 0.5}};
    const QString text = TaskToolTip(plan, 1);
    for (const QString &part :
         {u"&lt;b&gt; &amp; %1"_s, u"2 Nov 2026"_s, u"12 Nov 2026"_s, u"8 working days"_s,
          u"50 %"_s, u"Ann %2, Bob (50 %)"_s, u"one<br/>xxx"_s}) {
        EXPECT_TRUE(text.contains(part)) << part.toStdString() << " in " << text.toStdString();
    }
    EXPECT_LT(text.size(), 900);
    EXPECT_FALSE(TaskToolTip(plan, 4).contains(u"Finish")) << "a milestone has one date";
}

} // namespace
} // namespace korvane::planner::test
