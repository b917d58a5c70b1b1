// What is chosen to be printed.
#include "PrintedComponents.h"
#include "PrintedPages.h"
#include "printing/qt/zuGanttPrinting.h"
#include "printing/qt/zuSchemaPrinting.h"

#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace korvane;
using namespace korvane::test;

namespace {

/// Of all pages.
double Height(TzuPrinting &printing)
{
    SetBareSheet(printing, 2000, 2000);
    printing.LayOut();
    return printing.Layout().Down().back().To;
}

TEST(PrintChoice, OfAChartWithTreeOrGrid)
{
    for (const bool withGrid : {false, true}) {
        SCOPED_TRACE(withGrid ? "grid" : "tree");
        TzuGant chart;
        (withGrid ? FillGridChart : FillChart)(chart);
        TzuGanttPrinting printing(chart);
        const int high = withGrid ? 35 : chart.Tree().RowHeight();
        const int low = withGrid ? 22 : high;
        chart.ClearSelection();
        EXPECT_EQ(Height(printing), 14 * high + 26 * low);
        EXPECT_EQ(printing.Bookmarks().size(), 8U);
        EXPECT_EQ(printing.Bookmarks()[1].Title, QStringLiteral("Row 5"));
        printing.SetRows(1, 5);
        EXPECT_EQ(Height(printing), high + 4 * low);
        EXPECT_TRUE(printing.Bookmarks().empty());
        printing.SetAllRows();
        printing.SetSelectionOnly(true);
        EXPECT_THROW(Height(printing), std::runtime_error);
        TGantRow *row = chart.GantRows().GetGantRow(7);
        TimeDataEntity(*row->Layers().GetDataList(0)->GetItems(0)).SetSelected(true);
        EXPECT_EQ(Height(printing), low);
        const double labels = printing.Layout().LabelWidth();
        EXPECT_GT(labels, 0);
        if (withGrid) {
            chart.Grid().ChooseCell({&chart.Grid().RootCell(), 2, 10}, TGridChoice::Set);
            EXPECT_EQ(Height(printing), high + low);
            printing.SetGridColumns({1});
            Height(printing);
            EXPECT_EQ(printing.Layout().LabelWidth(), 110);
        } else {
            printing.Columns().clear();
            Height(printing);
            EXPECT_EQ(printing.Layout().LabelWidth(), 0);
        }
        const double all = printing.Layout().Across().back().To;
        printing.SetRange(kFrom, kFrom + 10);
        Height(printing);
        EXPECT_LT(printing.Layout().Across().back().To, all);
        printing.SetRange(kFrom, kFrom);
        EXPECT_THROW(Height(printing), std::runtime_error);
    }
}

TEST(PrintChoice, OfASchedule)
{
    TzuSchema schedule;
    const auto times = FillSchedule(schedule);
    const int width = schedule.Columns().GetCol(0).SavedWidth();
    TzuSchemaPrinting printing(schedule);
    SetBareSheet(printing, 3000, 2000);
    const auto columns = [&] {
        printing.LayOut();
        return printing.Layout().Across().back().To / width;
    };
    EXPECT_EQ(columns(), 9);
    printing.SetSelectionOnly(true);
    EXPECT_THROW(columns(), std::runtime_error);
    times[1]->SetSelected(true);
    times[6]->SetSelected(true);
    EXPECT_EQ(columns(), 2);
    // Each selected column looks as it does among the others.
    const QImage two = PageImage(printing, 0);
    printing.SetSelectionOnly(false);
    printing.LayOut();
    const QImage all = PageImage(printing, 0);
    const auto left = static_cast<int>(printing.Layout().LabelWidth());
    for (const auto &[shown, place] : {std::pair(1, 0), {6, 1}}) {
        const auto column = [&](const QImage &image, int number) {
            return image.copy(left + number * width + 2, 0, width - 4, 600);
        };
        EXPECT_EQ(column(two, place), column(all, shown)) << shown;
    }
    printing.SetColumns(2, 5);
    EXPECT_EQ(columns(), 4);
    const double before = printing.ContentSize(printing.Layout().Page(0)).width();
    printing.SetAxisAtBothEdges(true);
    columns();
    EXPECT_EQ(printing.ContentSize(printing.Layout().Page(0)).width(),
              before + schedule.GetScalerWidth());
}

} // namespace
