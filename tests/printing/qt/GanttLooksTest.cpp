#include "PrintedPages.h"
#include "gantt/qt/zuGant.h"
#include "printing/qt/zuGanttPrinting.h"

#include <QApplication>

#include <gtest/gtest.h>

using namespace korvane;

namespace {

/// More items than are drawn one by one, on a chart with a dark background.
TEST(GanttLooks, CrowdedItemsArePrintedForPaperAndWithoutMarks)
{
    constexpr int kItems = 600;
    constexpr TDateTime kFrom = 46000;
    TzuGant chart;
    chart.resize(500, 200);
    TzuDataEntity_Tree *node = chart.AddRootDataEntityTree("Row");
    std::vector<TzuDataEntity_Spanbar *> items;
    for (int i = 0; i < kItems; ++i) {
        TzuDataEntity_Spanbar *item = chart.AddSpanbar(node, 0);
        item->SetStartDateTime(kFrom + i * 0.1);
        item->SetStopDateTime(kFrom + i * 0.1 + 0.08);
        items.push_back(item);
    }
    chart.SetStart(kFrom);
    chart.SetStop(kFrom + kItems * 0.1);
    chart.show();
    QApplication::processEvents();
    TzuGanttPrinting printing(chart);
    SetBareSheet(printing, 800, 300);
    const auto print = [&] {
        printing.LayOut();
        return PageImage(printing, 0);
    };

    const QImage plain = print();
    chart.SetActiveDataEntity(items[kItems / 2]);
    for (TzuDataEntity_Spanbar *item : items) {
        item->SetSelected(true);
    }
    EXPECT_EQ(print(), plain);
    chart.SetGantBackColor(clBlack);
    EXPECT_EQ(print(), plain);
    EXPECT_EQ(chart.GantBackColor(), clBlack);
}

} // namespace
