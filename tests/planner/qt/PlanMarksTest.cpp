#include "ChartLooks.h"
#include "PlanChart.h"
#include "PlanDocument.h"
#include "SmallPlan.h"
#include "Theme.h"
#include "foundation/qt/zuConvert.h"

#include <QApplication>
#include <QImage>

#include <cstdlib>

namespace korvane::planner::test {
namespace {

TEST(PlanMarks, BaselinesAndDeadlinesAreDrawnWhereTheyAreShown)
{
    Plan plan = SmallPlan();
    plan.Tasks[1].Baseline = PlanSpan{kMonday + 12, kMonday + 15};
    plan.Tasks[1].Deadline = kMonday + 9; // missed: it finishes on day 10
    plan.Tasks[2].Deadline = kMonday + 5; // without dates
    plan.Tasks[4].Baseline = PlanSpan{kMonday + 5, kMonday + 5};
    PlanDocument document;
    PlanChart chart(document);
    chart.resize(1000, 400);
    chart.SetNow(kMonday + 1000); // out of the way
    document.SetPlan(std::move(plan));
    chart.show();
    for (const QPalette &palette : {QApplication::palette(), DarkPalette()}) {
        chart.setPalette(palette);
        const ChartLooks looks(palette);
        // How many pixels around the instant have the colour, in the row of the task.
        const auto count = [&](int task, double day, TColor color) {
            QApplication::processEvents();
            const QImage picture = chart.GantArea().grab().toImage();
            const TRect row = chart.GantRows().FindRowFromTreeNode(chart.NodeOf(task))->GetRect();
            const int x = chart.DateScaler().DateToPixel(kMonday + day);
            int found = 0;
            for (int y = row.Top; y < row.Bottom; ++y) {
                for (int dx = -4; dx <= 4; ++dx) {
                    found += picture.pixelColor(x + dx, y) == ToQt(color, palette) ? 1 : 0;
                }
            }
            return found;
        };
        int barHeight = 0;
        for (const bool shown : {false, true}) {
            chart.SetBaselinesShown(shown);
            chart.SetDeadlinesShown(shown);
            EXPECT_EQ(count(1, 13.5, looks.Baseline), shown ? 36 : 0) << "9 of it, 4 high";
            EXPECT_EQ(count(4, 5, looks.Baseline) > 8, shown);
            EXPECT_EQ(count(1, 9, looks.MissedDeadline) > 20, shown);
            EXPECT_EQ(count(2, 5, looks.Deadline) > 20, shown);
            const TzuDataEntity_Spanbar &bar = *chart.BarOf(1);
            const int height = bar.GetRow()->RectFromDataEntity(bar)->Height() - bar.InsetTop()
                               - bar.InsetBottom();
            EXPECT_TRUE(!shown || height == barHeight) << "the row gives the room, not the bar";
            barHeight = height;
        }
    }
}

/// Plans bring colours of their own, made for any background.
TEST(PlanMarks, EveryColourOfAPlanIsSeenAndSoIsWhatIsDone)
{
    const auto distance = [](TColor a, TColor b) {
        const QColor one = ToQt(a, {});
        const QColor other = ToQt(b, {});
        return std::abs(one.red() - other.red()) + std::abs(one.green() - other.green())
               + std::abs(one.blue() - other.blue());
    };
    for (const QPalette &palette : {QApplication::palette(), DarkPalette()}) {
        const ChartLooks looks(palette);
        for (const TColor color : {Rgb(0, 0, 0), Rgb(0xFF, 0xFF, 0xFF), looks.Back,
                                   Rgb(0x99, 0xCC, 0xFF), Rgb(0xFF, 0, 0x66), looks.Task}) {
            const TColor seen = looks.Seen(color);
            EXPECT_GT(distance(seen, looks.Back), 60) << color;
            EXPECT_GT(distance(seen, looks.Done(seen)), 30) << color;
        }
        EXPECT_EQ(looks.Seen(looks.Task), looks.Task);
    }
}

} // namespace
} // namespace korvane::planner::test
