// Labels of rows on paper: wherever they stand, they can be read.
#include "PrintedComponents.h"
#include "PrintedPages.h"
#include "RecordedTexts.h"
#include "printing/qt/zuGanttPrinting.h"
#include "printing/qt/zuGridPrinting.h"
#include "printing/qt/zuTreePrinting.h"

#include <QScopeGuard>

#include <algorithm>
#include <gtest/gtest.h>

using namespace korvane;
using namespace korvane::test;

namespace {

/// In the order in which they are drawn; empty after a failure.
QString AllTexts(TzuPrinting &printing)
{
    QStringList texts;
    for (int page = 0; page < printing.PageCount(); ++page) {
        for (const auto &[text, place] : TextsOf(printing, page)) {
            texts += text;
            EXPECT_GE(place.left(), 0) << text.toStdString();
        }
    }
    return texts.join(u' ');
}

TEST(Labels, OfAnyLengthAreReadOnAnyPaper)
{
    QStringList words;
    for (int i = 0; i < 30; ++i) {
        words += QStringLiteral("word%1x").arg(i);
    }
    TzuGant chart;
    FillChart(chart);
    chart.Tree().GetNextVisible(nullptr)->SetText(words.join(u' ').toStdString());
    chart.ClearSelection();
    TzuGanttPrinting charts(chart);
    TzuTreePrinting trees(chart.Tree());
    const auto level = [](const TzuDataEntity_Tree &row) {
        return QString::number(row.GetLevel());
    };
    trees.Columns() = {{QStringLiteral("Row"), {}, 0, Qt::AlignLeft},
                       {QStringLiteral("Level"), level, 0, Qt::AlignRight}};
    const int height = chart.Tree().RowHeight();
    const TPrintScaling scalings[] = {{}, {.Percent = 50}, {.Fit = TPrintFit::pfWidth}};
    for (TzuPrinting *printing :
         {static_cast<TzuPrinting *>(&charts), static_cast<TzuPrinting *>(&trees)}) {
        for (const TPrintScaling &scaling : scalings) {
            for (const int side : {280, 400, 1100}) { // A6, A5, A3
                SCOPED_TRACE(side);
                SetBareSheet(*printing, side, side * 14 / 10);
                printing->Scaling() = scaling;
                printing->LayOut();
                const double room = side / printing->Layout().Scale();
                EXPECT_LE(printing->Layout().LabelWidth(),
                          printing == &charts ? room / 2 + 1 : room);
                const double rows = printing->Layout().Down().back().To;
                EXPECT_TRUE(rows > 40 * height || side > 400); // in further lines
                const QString texts = AllTexts(*printing);
                for (const QString &word : words) {
                    EXPECT_TRUE(texts.contains(word)) << word.toStdString();
                }
            }
        }
    }
    // Where there is room there is one line.
    SetBareSheet(charts, 6000, 3000);
    charts.Scaling() = {};
    charts.LayOut();
    EXPECT_EQ(charts.Layout().Down().back().To, 40 * height);
    EXPECT_TRUE(AllTexts(charts).contains(words.join(u' ')));
}

/// Where a text is on a page; null where it is not.
QRectF PlaceOf(TzuPrinting &printing, int page, const QString &text)
{
    for (const TRecordedText &each : TextsOf(printing, page)) {
        if (each.Text == text) {
            return each.Place;
        }
    }
    return {};
}

TEST(Labels, OfGroupsOfAGridAreRepeatedWhereTheyGoOn)
{
    TzuGrid grid;
    FillGridTree(grid);
    TzuGridPrinting printing(grid);
    SetBareSheet(printing, 700, 200);
    printing.LayOut();
    const std::vector<TPrintBookmark> bookmarks = printing.Bookmarks();
    ASSERT_EQ(bookmarks.size(), 8U);
    int repeated = 0;
    for (int page = 0; page < printing.PageCount(); ++page) {
        const QRectF heading = PlaceOf(printing, page, bookmarks[3].Title);
        const QRectF row = PlaceOf(printing, page, QStringLiteral("Row 3/5"));
        EXPECT_EQ(bookmarks[3].Page == page || !row.isNull(), !heading.isNull()) << page;
        EXPECT_TRUE(row.isNull() || row.top() > heading.top());
        repeated += bookmarks[3].Page != page && !heading.isNull();
    }
    EXPECT_EQ(repeated, 1);
    EXPECT_EQ(bookmarks[3].Title, QStringLiteral("Group 3"));
}

TEST(Labels, StandAtTheRightFromRightToLeft)
{
    const Qt::LayoutDirection before = QGuiApplication::layoutDirection();
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    const auto restore = qScopeGuard([before] { QGuiApplication::setLayoutDirection(before); });
    TzuGant chart;
    FillChart(chart);
    TzuGant gridChart;
    FillGridChart(gridChart);
    TzuTree tree;
    FillTree(tree);
    TzuGrid grid;
    FillGrid(grid);
    constexpr int kSide = 390;
    const auto prepare = [](TzuPrinting &printing) {
        SetBareSheet(printing, kSide, 330);
        printing.LayOut();
        EXPECT_GT(printing.PageCount(), 1);
    };
    for (TzuGant *each : {&chart, &gridChart}) {
        TzuGanttPrinting printing(*each);
        prepare(printing);
        const double labels = kSide - printing.Layout().LabelWidth();
        EXPECT_GE(PlaceOf(printing, 0, QStringLiteral("Row 1")).left(), labels);
        EXPECT_LE(PlaceOf(printing, 0, QStringLiteral("Bar 0")).right(), labels);
        // Time runs as on screen: later times come on later pages.
        EXPECT_LT(printing.Layout().Page(0).Across.From, printing.Layout().Across().back().From);
    }
    TzuTreePrinting trees(tree);
    const auto level = [](const TzuDataEntity_Tree &row) {
        return QStringLiteral("level %1").arg(row.GetLevel());
    };
    trees.Columns() = {{{}, {}, 0, Qt::AlignLeft}, {{}, level, 100, Qt::AlignLeft}};
    prepare(trees);
    const QRectF heading = PlaceOf(trees, 0, QStringLiteral("Group 1"));
    EXPECT_GT(heading.left(), PlaceOf(trees, 0, QStringLiteral("level 0")).right());
    EXPECT_GT(heading.right(), PlaceOf(trees, 0, QStringLiteral("Row 0")).right()); // indented
    TzuGridPrinting grids(grid);
    prepare(grids);
    // The first column is repeated at the right, the later ones come at its left.
    for (const int column : {0, grids.Layout().Columns() - 1}) {
        const int page = grids.Layout().PageIndex(column, 0);
        EXPECT_GT(PlaceOf(grids, page, QStringLiteral("1/3")).left(),
                  kSide - grids.Layout().LabelWidth() - 1);
    }
    EXPECT_GT(PlaceOf(grids, 0, QStringLiteral("2/3")).left(),
              PlaceOf(grids, 0, QStringLiteral("3/3")).right());
}

} // namespace
