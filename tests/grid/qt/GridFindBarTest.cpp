#include "cellgrid/qt/zuBabGridAccessible.h"
#include "grid/qt/zuGrid.h"

#include <QAccessible>
#include <QImage>
#include <QLineEdit>
#include <QPointer>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>
#include <string>

namespace korvane::test {
namespace {

struct GridFindBar : testing::Test
{
    TzuGrid Grid;

    GridFindBar()
    {
        Grid.resize(300, 200);
        Grid.SetHasInfoCol(false);
        Grid.Columns().Add().SetHeaderText("Name");
        Grid.OnGetCellText = [](TBabGridCell *grid, TAxisContentItem *, TAxisContentItem *row,
                                std::string &text) {
            text = "row " + std::to_string(grid->Rows().IndexOf(*row));
        };
        Grid.AddRows(100);
        Grid.show();
        Grid.activateWindow();
        Grid.setFocus();
        QCoreApplication::processEvents();
    }
    void Search()
    {
        while (Grid.FindState() == TGridFindState::Searching) {
            QCoreApplication::processEvents();
        }
        QCoreApplication::processEvents();
    }
    QLineEdit *Field() { return Grid.findChild<QLineEdit *>(); }
};

TEST_F(GridFindBar, KeysOpenItFindAndCloseIt)
{
    QTest::keySequence(&Grid, QKeySequence::Find);
    ASSERT_NE(Field(), nullptr);
    EXPECT_TRUE(Field()->hasFocus());
    const int below = Grid.height() - Grid.VertScrollBar().geometry().bottom() - 1;
    EXPECT_GT(below, 15); // the rows end above the bar
    QTest::keyClicks(Field(), "row 7");
    Search();
    EXPECT_EQ(Grid.FocusCell().Row, 7);
    QTest::keyClick(Field(), Qt::Key_Return);
    Search();
    EXPECT_EQ(Grid.FocusCell().Row, 70);
    EXPECT_LT(Grid.CellRect(Grid.FocusCell()).Bottom, Grid.height() - below + 1);
    QTest::keyClick(Field(), Qt::Key_Return, Qt::ShiftModifier);
    Search();
    EXPECT_EQ(Grid.FocusCell().Row, 7);
    QTest::keyClick(Field(), Qt::Key_Escape);
    EXPECT_TRUE(Grid.hasFocus());
    EXPECT_FALSE(Field()->isVisible());
    EXPECT_EQ(Grid.FoundText(), "");
    QCoreApplication::processEvents();
    EXPECT_EQ(Grid.VertScrollBar().geometry().bottom() + 1, Grid.height());
    QTest::keySequence(&Grid, QKeySequence::FindNext); // without the bar
    Search();
    EXPECT_EQ(Grid.FocusCell().Row, 70);
    EXPECT_TRUE(Grid.hasFocus());

    Grid.SetFindEnable(false);
    QTest::keySequence(&Grid, QKeySequence::Find);
    EXPECT_FALSE(Field()->isVisible());
}

TEST_F(GridFindBar, OtherCharactersThanAsciiFoldAsWell)
{
    Grid.OnGetCellText = [](TBabGridCell *, TAxisContentItem *, TAxisContentItem *,
                            std::string &text) { text = "\xC3\x84RGER"; }; // A umlaut
    Grid.BeginFind("\xC3\xA4rg", TGridFindFrom::Here);
    EXPECT_EQ(Grid.FindOn(10), TGridFindState::Found);
}

TEST_F(GridFindBar, ASearchMayEndWithItsView)
{
    auto *grid = new TzuGrid;
    grid->Columns().Add();
    grid->AddRows(10);
    QPointer<TzuGrid> lives(grid);
    grid->OnGetCellText = [&grid](TBabGridCell *, TAxisContentItem *, TAxisContentItem *,
                                  std::string &text) {
        text = "x";
        delete std::exchange(grid, nullptr);
    };
    grid->BeginFind("y", TGridFindFrom::Here);
    lives->FindOn(10);
    EXPECT_TRUE(lives.isNull());
}

TEST_F(GridFindBar, FromRightToLeftTheScrollBarIsAtTheLeftAndTicksAreTicks)
{
    Grid.Columns().Add().SetKind(TColumnKind::tckBool);
    Grid.OnGetCellText = [](TBabGridCell *, TAxisContentItem *, TAxisContentItem *,
                            std::string &text) { text = "1"; };
    const auto boxPicture = [this] {
        QCoreApplication::processEvents();
        const TGridCellAt at{&Grid.RootCell(), 1, 2};
        const QRect box = Grid.FromGrid(Grid.CheckBoxRect(at, Grid.CellRect(at)));
        return Grid.grab().toImage().copy(box);
    };
    const QImage before = boxPicture();
    Grid.setLayoutDirection(Qt::RightToLeft);
    const QImage after = boxPicture();
    EXPECT_EQ(Grid.VertScrollBar().geometry().left(), 0);
    const QRect first = Grid.FromGrid(Grid.CellRect({&Grid.RootCell(), 0, 1}));
    EXPECT_EQ(first.right() + 1, Grid.width());
    EXPECT_EQ(before, after);
    EXPECT_NE(before, before.mirrored(true, false));
}

TEST_F(GridFindBar, KeypadKeysExpandAndCollapseNodes)
{
    Grid.SetUseTree(true);
    Grid.Columns().Add();
    Grid.Columns().At(0).SetTreeButton(true);
    TzuDataEntity_GridTreeNode *top = Grid.GetTree()->AddDataEntity();
    TzuDataEntity_GridTreeNode *middle = Grid.GetTree()->AddDataEntity(top);
    Grid.GetTree()->AddDataEntity(middle);
    struct TCase
    {
        Qt::Key Key;
        bool AutoEdit;
        bool Keypad;
        int Column;
        int Expanded;
    };
    for (const TCase &test : {TCase{Qt::Key_Plus, false, false, 0, 1},
                              {Qt::Key_Minus, false, false, 0, 0},
                              {Qt::Key_Asterisk, false, false, 0, 2},
                              {Qt::Key_Minus, false, false, 1, 2}, // not in the tree's column
                              {Qt::Key_Minus, false, true, 1, 0},
                              {Qt::Key_Plus, true, false, 0, 0}, // types
                              {Qt::Key_Plus, true, true, 0, 2}}) {
        Grid.CancelEdit();
        Grid.ChooseCell({&Grid.RootCell(), test.Column, 1}, TGridChoice::Set);
        Grid.SetAutoEditMode(test.AutoEdit);
        QTest::sendKeyEvent(QTest::Click, &Grid, test.Key, QChar(static_cast<char16_t>(test.Key)),
                            test.Keypad ? Qt::KeypadModifier : Qt::NoModifier);
        const int expanded =
            (top->GetExpanded() ? 1 : 0) + (middle->GetVisible() && middle->GetExpanded() ? 1 : 0);
        EXPECT_EQ(expanded, test.Expanded) << static_cast<char>(test.Key) << test.Keypad;
        EXPECT_EQ(Grid.IsEditing(), test.AutoEdit && !test.Keypad);
    }
}

TEST_F(GridFindBar, AssistiveToolsFindTheCellsOfGridsInCells)
{
    TzuGrid_SubGrid &sub = Grid.SubGrids().Add();
    sub.SetName("sub");
    sub.SetHasInfoCol(false);
    sub.Columns().Add().SetHeaderText("Inner");
    TzuGrid_Column &column = Grid.Columns().Add();
    column.SetKind(TColumnKind::tckSubGrid);
    column.SetSubGridName("sub");
    Grid.OnInitSubGrid = [](TObject *, TBabSubGridCell *grid, TAxisContentItem *,
                            TAxisContentItem *) { grid->Rows().AddUnloaded(1000); };
    QCoreApplication::processEvents();
    QAccessible::setActive(true);
    auto *root = QAccessible::queryAccessibleInterface(&Grid);
    QAccessibleInterface *cell = root->tableInterface()->cellAt(0, 1);
    QAccessibleInterface *inner = cell->child(0);
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ(cell->childCount(), 1);
    EXPECT_EQ(inner->parent(), cell);
    EXPECT_EQ(inner->tableInterface()->rowCount(), 1000);
    EXPECT_EQ(inner->tableInterface()->columnDescription(0), "Inner");
    QAccessibleInterface *first = inner->tableInterface()->cellAt(0, 0);
    EXPECT_EQ(first->text(QAccessible::Name), "row 1");
    EXPECT_EQ(first->parent(), inner);
    EXPECT_EQ(inner->child(inner->indexOfChild(first)), first);
    const QPoint at = first->rect().center();
    EXPECT_EQ(root->childAt(at.x(), at.y())->childAt(at.x(), at.y())->childAt(at.x(), at.y()),
              first);
    first->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(root->focusChild(), first);
    EXPECT_TRUE(first->state().focused);

    Grid.RootCell().Rows().ClearKeepFixedItems();
    EXPECT_FALSE(first->isValid());
    EXPECT_EQ(cell->childCount(), 0);
    EXPECT_FALSE(inner->isValid());
    QAccessible::setActive(false);
}

} // namespace
} // namespace korvane::test
