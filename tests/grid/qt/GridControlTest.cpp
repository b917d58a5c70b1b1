#include "grid/qt/zuGrid.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>
#include <string>

namespace korvane::test {
namespace {

struct GridControl : testing::Test
{
    TzuGrid Grid;

    GridControl()
    {
        Grid.resize(300, 200);
        Grid.SetMultiSelect(true);
        Grid.OnGetCellText = [](TBabGridCell *grid, TAxisContentItem *column, TAxisContentItem *row,
                                std::string &text) {
            text = std::string(1, static_cast<char>('a' + grid->Columns().IndexOf(*column)))
                   + std::to_string(grid->Rows().IndexOf(*row));
        };
        for (const char *header : {"A", "B", "C"}) {
            Grid.Columns().Add().SetHeaderText(header);
        }
        Grid.AddRows(100);
        Grid.show();
        QCoreApplication::processEvents();
    }
    TGridCellAt At(int column, int row) { return {&Grid.RootCell(), column, row}; }
    QPoint Middle(int column, int row)
    {
        const TRect rect = Grid.CellRect(At(column, row));
        return {(rect.Left + rect.Right) / 2, (rect.Top + rect.Bottom) / 2};
    }
};

TEST_F(GridControl, ScrollBarsCoverTheContentAndFollowIt)
{
    QScrollBar &bar = Grid.VertScrollBar();
    EXPECT_TRUE(bar.isVisible());
    EXPECT_FALSE(Grid.HorzScrollBar().isVisible());
    EXPECT_EQ(bar.maximum(), Grid.MaxScrollY());
    bar.setValue(bar.maximum());
    EXPECT_EQ(Grid.CellRect(At(1, 100)).Bottom, 200);
    Grid.Columns().At(0).SetWidth(1000);
    QCoreApplication::processEvents();
    EXPECT_TRUE(Grid.HorzScrollBar().isVisible());
    EXPECT_EQ(bar.geometry().bottom() + 1, Grid.HorzScrollBar().geometry().top());
    Grid.RootCell().Rows().ClearKeepFixedItems();
    QCoreApplication::processEvents();
    EXPECT_FALSE(bar.isVisible());
    EXPECT_EQ(Grid.ScrollY(), 0);

    Grid.AddRows(100);
    Grid.SetSmoothScrolling(false);
    QCoreApplication::processEvents();
    bar.setValue(33);
    EXPECT_EQ(Grid.ScrollY(), 20);
    QWheelEvent down({50, 50}, Grid.mapToGlobal(QPoint(50, 50)), {}, {0, -120}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Grid, &down);
    EXPECT_EQ(Grid.ScrollY(), 80);
}

TEST_F(GridControl, KeysReachTheGrid)
{
    QTest::mouseClick(&Grid, Qt::LeftButton, {}, Middle(1, 1));
    QTest::keyClick(&Grid, Qt::Key_Down);
    QTest::keyClick(&Grid, Qt::Key_Tab);
    EXPECT_EQ(Grid.FocusCell(), At(2, 2));
    QTest::keyClick(&Grid, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(&Grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "c2\td2");
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->html().contains("<td>c2</td>"));
    QTest::keyClick(&Grid, Qt::Key_Left);
    QTest::keyClicks(&Grid, "c42");
    EXPECT_EQ(Grid.FocusCell(), At(2, 42));
    QTest::keyClick(&Grid, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(Grid.FocusCell(), At(3, 100));
    EXPECT_EQ(Grid.ScrollY(), Grid.MaxScrollY());
    QTest::keyClick(&Grid, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Grid.RootCell().Selection().RowCount(), 100);
}

TEST_F(GridControl, HeadersSortAndMoveAndCheckBoxesTurn)
{
    int edits = 0;
    Grid.OnCellEdited = [&](auto &&...) { ++edits; };
    Grid.SetUserSortEnable(true);
    Grid.Columns().At(0).SetSortEnable(true);
    QTest::mouseClick(&Grid, Qt::LeftButton, {}, Middle(1, 0));
    EXPECT_EQ(Grid.SortColumn(), Grid.Columns().GetColumn(0));
    QTest::mouseClick(&Grid, Qt::LeftButton, {}, Middle(2, 0)); // no sorting: selects
    EXPECT_TRUE(Grid.IsSelected(At(2, 100)));
    QTest::mousePress(&Grid, Qt::LeftButton, {}, Middle(1, 0));
    QTest::mouseMove(&Grid, Middle(3, 0) + QPoint(20, 0));
    QTest::mouseRelease(&Grid, Qt::LeftButton, {}, Middle(3, 0) + QPoint(20, 0));
    EXPECT_EQ(Grid.Columns().At(2).HeaderText(), "A");

    TzuGrid_Column &column = Grid.Columns().At(0);
    column.SetKind(TColumnKind::tckBool);
    Grid.SetCellText(0, 0, "0");
    QTest::mouseClick(&Grid, Qt::LeftButton, {}, Middle(1, 1));
    EXPECT_EQ(Grid.CellText(0, 0), "1");
    QTest::keyClick(&Grid, Qt::Key_Space);
    EXPECT_EQ(Grid.CellText(0, 0), "0");
    column.SetReadOnly(true);
    QTest::keyClick(&Grid, Qt::Key_Space);
    EXPECT_EQ(Grid.CellText(0, 0), "0");
    EXPECT_EQ(edits, 2);
}

TEST_F(GridControl, VirtualRowsAreFilledWhenTheyShow)
{
    TAxisContentList &rows = Grid.RootCell().Rows();
    rows.ClearKeepFixedItems();
    int loads = 0;
    int unloads = 0;
    Grid.OnVirtualLoad = [&](TObject *, TBabGridCell *, TAxisContentItem *) { ++loads; };
    Grid.OnVirtualUnLoad = [&](TObject *, TBabGridCell *, TAxisContentItem *) { ++unloads; };
    rows.AddUnloaded(10'000'000);
    QCoreApplication::processEvents();
    for (int part = 0; part <= 100; ++part) {
        Grid.VertScrollBar().setValue(
            static_cast<int>(std::int64_t{Grid.VertScrollBar().maximum()} * part / 100));
        Grid.RedrawIfNeeded();
    }
    EXPECT_EQ(Grid.GetTopLeftCell().Row, rows.Count() - 9);
    EXPECT_LT(loads, 3000);
    EXPECT_EQ(loads - unloads, rows.LoadedCount() - 1);
    EXPECT_LT(rows.LoadedCount(), 520);
}

TEST_F(GridControl, AHandlerMayDestroyTheGrid)
{
    auto *grid = new TzuGrid;
    grid->resize(300, 200);
    grid->Columns().Add();
    grid->AddRows(3);
    grid->OnMouseDown = [grid](auto &&...) { delete grid; };
    const QPointer<TzuGrid> watch(grid);
    QMouseEvent press(QEvent::MouseButtonPress, {40, 30}, {40, 30}, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(grid, &press);
    EXPECT_TRUE(watch.isNull());
}

} // namespace
} // namespace korvane::test
