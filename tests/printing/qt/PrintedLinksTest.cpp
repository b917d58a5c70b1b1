// Links on printed pages: those that run through a page, and no others.
#include "PrintedComponents.h"
#include "PrintedPages.h"
#include "gantt/zuGantRow.h"
#include "printing/qt/zuGanttPrinting.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>

using namespace korvane;
using namespace korvane::test;

namespace {

TEST(PrintedLinks, RunThroughThePagesBetweenTheirEnds)
{
    TzuGant chart;
    chart.SetDefaultLinkStyle(TLinkStyle::tlsUserDraw);
    FillChart(chart);
    TzuGanttPrinting printing(chart);
    SetBareSheet(printing, 2000, 260);
    printing.SetRepeatHeadings(false);
    printing.SetRows(0, 34); // links to rows that are not printed lead nowhere
    printing.LayOut();
    ASSERT_EQ(printing.Layout().Columns(), 1);
    ASSERT_GT(printing.PageCount(), 2);
    const auto pageOf = [&](const TzuDataEntity_Spanbar &bar) {
        const int row = std::stoi(bar.GetRow()->TreeNode()->GetText().substr(4));
        const double top = row * chart.Tree().RowHeight();
        int page = 0;
        while (row < 35 && printing.Layout().Page(page).Down.To <= top) {
            ++page;
        }
        return row < 35 ? page : -1;
    };
    std::map<const TzuDataEntity_Link *, std::set<int>> drawn;
    int page = 0;
    chart.OnUserDrawLinks = [&](auto *, TzuDataEntity_Link *link, TCanvas &, TPoint, TPoint) {
        drawn[link].insert(page);
        EXPECT_TRUE(link->First()->GetRow()->IsOnScreen()
                    && link->Second()->GetRow()->IsOnScreen());
    };
    for (page = 0; page < printing.PageCount(); ++page) {
        PageImage(printing, page);
    }
    for (int i = 0; i < chart.GetLinks().Count(); ++i) {
        const auto *link = static_cast<const TzuDataEntity_Link *>(chart.GetLinks().GetItems(i));
        const auto [first, last] = std::minmax({pageOf(*link->First()), pageOf(*link->Second())});
        for (int number = first; first >= 0 && number <= last; ++number) {
            EXPECT_TRUE(drawn[link].contains(number)) << "link " << i << ", page " << number;
        }
        EXPECT_TRUE(first >= 0 || drawn[link].empty());
    }
}

} // namespace
