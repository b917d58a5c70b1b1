#include "cellgrid/qt/zuBabGridAccessible.h"
#include "grid/qt/zuGrid.h"
#include "grid/qt/zuGridColumnMenu.h"

#include <QAccessible>
#include <QScrollBar>
#include <QScrollEvent>
#include <QScrollPrepareEvent>
#include <QTest>

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace korvane::test {
namespace {

/// Columns A, B and C, of which C are check boxes, with the rows that a test adds.
struct GridUser : testing::Test
{
    TzuGrid Grid;

    GridUser()
    {
        Grid.resize(300, 200);
        Grid.SetMultiSelect(true);
        Grid.SetUserSortEnable(true);
        for (const char *header : {"A", "B", "C"}) {
            Grid.Columns().Add().SetHeaderText(header);
        }
        Grid.Columns().At(0).SetSortEnable(true);
        Grid.Columns().At(1).SetSortEnable(true);
        Grid.Columns().At(2).SetKind(TColumnKind::tckBool);
        Grid.OnGetCellText = [](TBabGridCell *grid, TAxisContentItem *column, TAxisContentItem *row,
                                std::string &text) {
            text = std::to_string(grid->Columns().IndexOf(*column) % 3)
                   + std::to_string(grid->Rows().IndexOf(*row) % 4);
        };
        Grid.show();
        Grid.activateWindow();
        Grid.setFocus();
        QCoreApplication::processEvents();
    }
    TGridCellAt At(int column, int row) { return {&Grid.RootCell(), column, row}; }
    std::string Headers()
    {
        std::string headers;
        for (int i = 0; i < Grid.Columns().Count(); ++i) {
            headers += Grid.Columns().At(i).Hidden() ? "-" : Grid.Columns().At(i).HeaderText();
        }
        return headers;
    }
    /// Chooses from a new menu for a column; false when the entry is not enabled.
    bool Choose(int column, const QString &text)
    {
        TzuGridColumnMenu menu(Grid, At(column, 0));
        std::vector<QAction *> actions;
        for (QAction *action : menu.actions()) {
            actions.push_back(action);
            if (action->menu() != nullptr) {
                const auto inner = action->menu()->actions();
                actions.insert(actions.end(), inner.begin(), inner.end());
            }
        }
        for (QAction *action : actions) {
            if (action->text().remove('&') == text) {
                const bool enabled = action->isEnabled();
                action->trigger();
                return enabled;
            }
        }
        return false;
    }
};

TEST_F(GridUser, TheColumnMenuSortsSizesMovesAndHides)
{
    Grid.AddRows(4);
    EXPECT_TRUE(Choose(1, "Sort Descending"));
    EXPECT_EQ(Grid.Columns().At(0).SortMark(), TSortMark::Descending);
    Grid.SortByUser(Grid.Columns().At(1), true);
    EXPECT_EQ(Grid.Columns().At(0).SortOrder(), 1);
    EXPECT_EQ(Grid.Columns().At(1).SortOrder(), 2);
    EXPECT_TRUE(Choose(1, "No Sorting"));
    EXPECT_EQ(Grid.Columns().At(1).SortOrder(), 0);
    EXPECT_FALSE(Choose(1, "No Sorting"));
    EXPECT_FALSE(Choose(3, "Sort Ascending")); // may not be sorted by

    EXPECT_TRUE(Choose(2, "Wider"));
    EXPECT_EQ(Grid.Columns().At(1).Width(), 84);
    EXPECT_TRUE(Choose(2, "Fit Width"));
    EXPECT_LT(Grid.Columns().At(1).Width(), 64);

    EXPECT_TRUE(Choose(2, "Hide"));
    EXPECT_EQ(Headers(), "A-C");
    EXPECT_TRUE(Choose(1, "Move Right")); // past the hidden one
    EXPECT_EQ(Headers(), "-CA");
    EXPECT_FALSE(Choose(3, "Move Right"));
    EXPECT_TRUE(Choose(2, "Hide"));
    EXPECT_FALSE(Choose(3, "Hide")); // the last one
    EXPECT_TRUE(Choose(3, "B"));
    EXPECT_EQ(Headers(), "B-A");
}

TEST_F(GridUser, AssistiveToolsSeeATableOfAMillionRowsWithoutMakingIt)
{
    Grid.RootCell().Rows().AddUnloaded(1'000'000);
    QAccessible::setActive(true);
    auto *root = QAccessible::queryAccessibleInterface(&Grid);
    ASSERT_NE(root, nullptr);
    auto *table = root->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(root->role(), QAccessible::Table);
    EXPECT_EQ(table->rowCount(), 1'000'000);
    EXPECT_EQ(table->columnCount(), 3);
    EXPECT_EQ(table->columnDescription(1), "B");
    EXPECT_EQ(Grid.RootCell().Matris().CellCount(), 0);

    QAccessibleInterface *cell = table->cellAt(6, 1);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell, table->cellAt(6, 1)); // one for each
    EXPECT_EQ(cell->text(QAccessible::Name), "23");
    EXPECT_EQ(cell->role(), QAccessible::Cell);
    EXPECT_EQ(cell->tableCellInterface()->columnHeaderCells().value(0)->text(QAccessible::Name),
              "B");
    EXPECT_EQ(root->child(root->indexOfChild(cell)), cell);
    EXPECT_EQ(root->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
    cell->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(Grid.FocusCell(), At(2, 7));
    EXPECT_EQ(root->focusChild(), cell);
    EXPECT_TRUE(cell->state().focused && cell->state().selected);

    EXPECT_TRUE(table->selectRow(2));
    EXPECT_TRUE(table->isRowSelected(2));
    EXPECT_EQ(table->selectedCellCount(), 4);
    EXPECT_EQ(table->selectedCells().size(), 4);
    EXPECT_TRUE(table->selectColumn(0));
    EXPECT_EQ(table->selectedColumns(), QList<int>{0});
    EXPECT_EQ(table->selectedCellCount(), 1'000'003);

    QAccessibleInterface *check = table->cellAt(1, 2);
    EXPECT_TRUE(check->state().checkable && check->state().checked);
    check->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(check->state().checked);

    Grid.RootCell().Rows().ClearKeepFixedItems();
    EXPECT_FALSE(cell->isValid());
    EXPECT_EQ(table->cellAt(6, 1), nullptr);
    QAccessible::setActive(false);
}

TEST_F(GridUser, FromRightToLeftEverythingIsMirrored)
{
    Grid.AddRows(2);
    Grid.Columns().At(0).SetWidth(100);
    Grid.Columns().At(2).SetWidth(300);
    Grid.setLayoutDirection(Qt::RightToLeft);
    QCoreApplication::processEvents();
    const QRect cell = Grid.FromGrid(Grid.CellRect(At(1, 1)));
    EXPECT_EQ(cell, QRect(180, 20, 100, 20));
    QTest::mouseClick(&Grid, Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(Grid.FocusCell(), At(1, 1));
    QTest::keyClick(&Grid, Qt::Key_Left);
    EXPECT_EQ(Grid.FocusCell(), At(2, 1));
    QTest::keyClick(&Grid, Qt::Key_Right);
    QTest::keyClick(&Grid, Qt::Key_F2);
    ASSERT_NE(Grid.EditorField(), nullptr);
    QWidget &field = *Grid.EditorField();
    EXPECT_EQ(QRect(field.mapTo(&Grid, QPoint()), field.size()), cell.adjusted(1, 0, 0, -1));
    QTest::keyClick(&field, Qt::Key_Escape);
    // The border of a column is at its left.
    const QPoint border(181, 10);
    QTest::mousePress(&Grid, Qt::LeftButton, {}, border);
    QTest::mouseMove(&Grid, border - QPoint(30, 0));
    QTest::mouseRelease(&Grid, Qt::LeftButton, {}, border - QPoint(30, 0));
    EXPECT_EQ(Grid.Columns().At(0).Width(), 130);
    const QImage picture = Grid.grab().toImage();
    EXPECT_NE(picture.pixelColor(290, 30), picture.pixelColor(5, 30)); // the head
    QCoreApplication::processEvents();
    Grid.HorzScrollBar().setValue(Grid.HorzScrollBar().maximum());
    EXPECT_EQ(Grid.FromGrid(Grid.CellRect(At(3, 1))).left(), 0);
}

TEST_F(GridUser, AFingerScrollsWithinTheContent)
{
    Grid.AddRows(100);
    QCoreApplication::processEvents();
    QScrollPrepareEvent prepare({100, 100});
    QCoreApplication::sendEvent(&Grid, &prepare);
    EXPECT_TRUE(prepare.isAccepted());
    EXPECT_EQ(prepare.contentPosRange().height(), Grid.MaxScrollY());
    QScrollEvent scroll({0, 150}, {}, QScrollEvent::ScrollUpdated);
    QCoreApplication::sendEvent(&Grid, &scroll);
    EXPECT_EQ(Grid.ScrollY(), 150);
}

} // namespace
} // namespace korvane::test
