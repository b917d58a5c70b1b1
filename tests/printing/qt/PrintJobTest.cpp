#include "PrintedPages.h"
#include "grid/qt/zuGrid.h"
#include "printing/qt/zuGridPrinting.h"
#include "printing/qt/zuPrintJob.h"
#include "printing/qt/zuTreePrinting.h"
#include "tree/qt/zuTree.h"

#include <QApplication>

#include <gtest/gtest.h>

using namespace korvane;

namespace {

/// A tree of three pages and a grid of several.
struct PrintJob : testing::Test
{
    TzuTree Tree;
    TzuGrid Grid;
    TzuTreePrinting Names{Tree};
    TzuGridPrinting Table{Grid};

    PrintJob()
    {
        for (int i = 0; i < 30; ++i) {
            Tree.AddDataEntity()->SetText("Row " + std::to_string(i));
        }
        Grid.resize(300, 200);
        Grid.OnGetCellText = [](TBabGridCell *cell, TAxisContentItem *column, TAxisContentItem *row,
                                std::string &text) {
            text = std::to_string(cell->Columns().IndexOf(*column)) + "/"
                   + std::to_string(cell->Rows().IndexOf(*row));
        };
        for (int i = 0; i < 4; ++i) {
            Grid.Columns().Add().SetHeaderText("Column " + std::to_string(i));
        }
        Grid.AddRows(50);
        for (QWidget *control : {static_cast<QWidget *>(&Tree), static_cast<QWidget *>(&Grid)}) {
            control->show();
        }
        QApplication::processEvents();
        SetBareSheet(Names, 300, 12 * Tree.RowHeight());
        SetBareSheet(Table, 200, 300);
    }
};

TEST_F(PrintJob, NumbersThePagesOfItsPartsThroughout)
{
    {
        TzuPrintJob job;
        EXPECT_THROW(job.LayOut(), std::runtime_error);
        Names.SetTitle(QStringLiteral("Names"));
        job.Add(Names);
        job.Add(Table);
        job.LayOut();
        const int names = Names.PageCount();
        ASSERT_EQ(names, 3);
        ASSERT_GT(Table.PageCount(), 2);
        EXPECT_EQ(job.PageCount(), names + Table.PageCount());
        EXPECT_EQ(job.PageLayout(names - 1), Names.Paper().Layout());
        EXPECT_EQ(job.PageLayout(names), Table.Paper().Layout());
        EXPECT_THROW(job.PageLayout(job.PageCount()), std::out_of_range);
        ASSERT_EQ(job.Bookmarks().size(), 1U);
        EXPECT_EQ(job.Bookmarks()[0].Title, QStringLiteral("Names"));
    }
    // The footer tells the number, which was the job's.
    Table.Paper().Footer().Left = "{page} of {pages}";
    Table.LayOut();
    const QImage alone = PageImage(Table, 0);
    TzuPrintJob job;
    job.Add(Names);
    job.Add(Table);
    job.LayOut();
    EXPECT_NE(PageImage(Table, 0), alone);
    Table.SetNumbering(1, 0);
    EXPECT_EQ(PageImage(Table, 0), alone);
}

TEST_F(PrintJob, PrintsShareASheetOfTheCallers)
{
    constexpr QSize kHalf(200, 300);
    Table.LayOut();
    const QImage alone = PageImage(Table, 1);
    QImage sheet(2 * kHalf.width(), kHalf.height(), QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    painter.setPen(Qt::red);
    Names.LayOutFor(kHalf);
    Names.PaintContentIn(painter, {QPointF(0, 0), QSizeF(kHalf)}, 0);
    const QImage before = sheet.copy(QRect(QPoint(0, 0), kHalf));
    Table.LayOutFor(kHalf);
    Table.PaintContentIn(painter, {QPointF(kHalf.width(), 0), QSizeF(kHalf)}, 1);
    EXPECT_EQ(sheet.copy(QRect(QPoint(kHalf.width(), 0), kHalf)), alone);
    EXPECT_EQ(sheet.copy(QRect(QPoint(0, 0), kHalf)), before);
    EXPECT_EQ(painter.pen().color(), QColor(Qt::red));
    EXPECT_FALSE(painter.hasClipping());
    EXPECT_TRUE(painter.transform().isIdentity());
}

TEST_F(PrintJob, AGridIsAsBeforeAndPrintsWhatIsAskedFor)
{
    Grid.SetMultiSelect(true);
    Grid.ScrollTo(0, 200);
    Grid.ChooseCell({&Grid.RootCell(), 2, 12}, TGridChoice::Set);
    Grid.ChooseCell({&Grid.RootCell(), 2, 20}, TGridChoice::Toggle);
    QApplication::processEvents();
    const std::int64_t scrolled = Grid.ScrollY();
    const QImage before = Grid.grab().toImage();
    const int row = Grid.CellRect({&Grid.RootCell(), 2, 12}).Height();
    struct TCase
    {
        std::function<void()> Choose;
        int Rows;
    };
    const TCase cases[] = {{[] {}, 50},
                           {[&] { Table.SetRows(5, 14); }, 10},
                           {[&] { Table.SetSelectionOnly(true); }, 1}, // of those rows
                           {[&] { Table.SetAllRows(); }, 2}};
    for (const auto &[choose, rows] : cases) {
        choose();
        Table.LayOut();
        EXPECT_EQ(Table.Layout().Down().back().To, rows * row);
        for (int page = 0; page < Table.PageCount(); ++page) {
            PageImage(Table, page);
        }
    }
    EXPECT_EQ(Grid.ScrollY(), scrolled);
    QApplication::processEvents();
    EXPECT_EQ(Grid.grab().toImage(), before);
}

} // namespace
