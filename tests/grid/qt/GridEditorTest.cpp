#include "grid/qt/zuGrid.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace korvane::test {
namespace {

/// A text, a memo, a combo, a date and a time column with 50 rows, beside another control.
struct GridEditor : testing::Test
{
    QWidget Window;
    TzuGrid *Grid = new TzuGrid(&Window);
    QLineEdit *Other = new QLineEdit(&Window);

    GridEditor()
    {
        Grid->SetMultiSelect(true);
        Grid->SetAutoEditMode(true);
        Grid->setGeometry(0, 0, 500, 200);
        Other->setGeometry(0, 210, 100, 30);
        for (const TColumnKind kind :
             {TColumnKind::tckSimpleEdit, TColumnKind::tckMemo, TColumnKind::tckCombo,
              TColumnKind::tckDate, TColumnKind::tckTime}) {
            Grid->Columns().Add().SetKind(kind);
        }
        Grid->OnBeforeEditWithCombo = [](TObject *, TBabCell *cell) {
            auto &data = dynamic_cast<TBabSimpleCell &>(*cell).Data();
            dynamic_cast<TBabCellData_Combo &>(data).Items = {"Low", "High"};
        };
        Grid->AddRows(50);
        Window.resize(500, 250);
        Window.show();
        Window.activateWindow();
        Grid->setFocus();
        QCoreApplication::processEvents();
        Grid->ChooseCell(At(1, 1), TGridChoice::Set);
    }
    TGridCellAt At(int column, int row) const { return {&Grid->RootCell(), column, row}; }
    template <class Field>
    Field *EditAt(int column, int row)
    {
        Grid->ChooseCell(At(column, row), TGridChoice::Set);
        QTest::keyClick(Grid, Qt::Key_F2);
        return qobject_cast<Field *>(Grid->EditorField());
    }
};

TEST_F(GridEditor, TypingEnterTabAndEscapeWorkAsInASpreadsheet)
{
    QTest::keyClicks(Grid, "a");
    QWidget *field = Grid->EditorField();
    ASSERT_NE(field, nullptr);
    EXPECT_TRUE(field->hasFocus());
    QTest::keyClicks(field, "bc");
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(Grid->CellText(0, 0), "abc");
    EXPECT_EQ(Grid->EditorField(), nullptr);
    EXPECT_TRUE(Grid->hasFocus());
    EXPECT_EQ(Grid->FocusCell(), At(1, 2));

    QTest::keyClicks(Grid, "x");
    QTest::keyClick(Grid->EditorField(), Qt::Key_Tab);
    QTest::keyClicks(Grid, "y");
    QTest::keyClick(Grid->EditorField(), Qt::Key_Return);
    EXPECT_EQ(Grid->CellText(0, 1) + Grid->CellText(1, 1), "xy");
    EXPECT_EQ(Grid->FocusCell(), At(1, 3));
    QTest::keyClicks(Grid, "z");
    QTest::keyClick(Grid->EditorField(), Qt::Key_Escape);
    EXPECT_EQ(Grid->CellText(0, 2), "");
    QTest::keyClicks(Grid, "z");
    QTest::keyClick(Grid->EditorField(), Qt::Key_Right);
    EXPECT_EQ(Grid->FocusCell(), At(2, 3));

    auto *line = EditAt<QLineEdit>(1, 1);
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->cursorPosition(), 3);
    QTest::keyClick(line, Qt::Key_Left);
    QTest::keyClicks(line, "-");
    Other->setFocus();
    EXPECT_EQ(Grid->CellText(0, 0), "ab-c");
    EXPECT_TRUE(Other->hasFocus());
    const TRect cell = Grid->CellRect(At(1, 4));
    QTest::mouseDClick(Grid, Qt::LeftButton, {}, {cell.Left + 5, cell.Top + 5});
    EXPECT_EQ(Grid->EditedCell(), At(1, 4));
}

TEST_F(GridEditor, KindsHaveTheirFields)
{
    auto *memo = EditAt<QPlainTextEdit>(2, 1);
    ASSERT_NE(memo, nullptr);
    QTest::keyClicks(memo, "1");
    QTest::keyClick(memo, Qt::Key_Return, Qt::AltModifier);
    QTest::keyClicks(memo, "2");
    const int before = memo->height();
    QTest::keyClick(memo, Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClick(memo, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_GT(memo->height(), before);
    EXPECT_GT(memo->height(), 2 * Grid->RootCell().Rows().DefaultSize());
    QTest::keyClick(memo, Qt::Key_Return);
    EXPECT_EQ(Grid->CellText(1, 0), "1\n2\n\n");

    auto *combo = EditAt<QComboBox>(3, 1);
    ASSERT_NE(combo, nullptr);
    EXPECT_EQ(combo->count(), 2);
    QTest::keyClicks(combo, "high");
    QTest::keyClick(combo, Qt::Key_Tab);
    EXPECT_EQ(Grid->CellText(2, 0), "High");
    combo = EditAt<QComboBox>(3, 1);
    QTest::keyClick(combo, Qt::Key_F4);
    QCoreApplication::processEvents();
    EXPECT_TRUE(combo->view()->isVisible());
    ASSERT_TRUE(Grid->IsEditing());
    QTest::keyClick(combo->view(), Qt::Key_Up);
    QTest::keyClick(combo->view(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_NE(Grid->CellText(2, 0), "High");
    EXPECT_FALSE(Grid->IsEditing());
    EXPECT_TRUE(Grid->hasFocus());

    auto *date = EditAt<QLineEdit>(4, 1);
    ASSERT_NE(date, nullptr);
    date->setText("2024-02-28");
    QTest::keyClick(date, Qt::Key_Down, Qt::AltModifier);
    auto *calendar = date->findChild<QCalendarWidget *>("gridCalendar");
    ASSERT_NE(calendar, nullptr);
    EXPECT_EQ(calendar->selectedDate(), QDate(2024, 2, 28));
    QTest::keyClick(calendar->focusProxy(), Qt::Key_Right);
    QTest::keyClick(calendar->focusProxy(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(Grid->CellText(3, 0), "29 Feb 2024");
    EXPECT_FALSE(Grid->IsEditing());

    auto *time = EditAt<QComboBox>(5, 1);
    ASSERT_NE(time, nullptr);
    EXPECT_EQ(time->count(), 48);
    QTest::keyClicks(time, "1730");
    QTest::keyClick(time, Qt::Key_Return);
    EXPECT_TRUE(Grid->IsEditing());
    EXPECT_NE(Grid->findChild<QLabel *>("gridHint"), nullptr);
    Other->setFocus();
    EXPECT_EQ(time->currentText(), "1730"); // not lost
    time->setEditText("17:30");
    EXPECT_TRUE(Grid->CommitEdit());
    EXPECT_EQ(Grid->CellText(4, 0), "17:30:00");
}

TEST_F(GridEditor, TheFieldScrollsWithItsCellBehindTheHeads)
{
    auto *line = EditAt<QLineEdit>(1, 3);
    ASSERT_NE(line, nullptr);
    const QPoint before = line->mapTo(Grid, QPoint());
    Grid->VertScrollBar().setValue(10);
    QCoreApplication::processEvents();
    EXPECT_EQ(line->mapTo(Grid, QPoint()).y(), before.y() - 10);
    Grid->VertScrollBar().setValue(500);
    QCoreApplication::processEvents();
    EXPECT_TRUE(line->visibleRegion().isEmpty());
    EXPECT_TRUE(line->hasFocus());
    QTest::keyClicks(line, "q");
    EXPECT_FALSE(line->visibleRegion().isEmpty());
    EXPECT_EQ(Grid->CellRect(At(1, 3)).Top, line->mapTo(Grid, QPoint()).y());
    line->setText(QString(40, 'w'));
    EXPECT_GT(line->width(), 200); // grows beside the cell
    Grid->RootCell().Rows().ClearKeepFixedItems();
    QCoreApplication::processEvents();
    EXPECT_EQ(Grid->EditorField(), nullptr);
}

TEST_F(GridEditor, KeysCopyCutPasteAndClear)
{
    Grid->SetCellText(0, 0, "one");
    Grid->SetCellText(0, 1, "two");
    Grid->ChooseCell(At(1, 2), TGridChoice::Extend);
    QTest::keyClick(Grid, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "one\ntwo");
    EXPECT_EQ(Grid->CellText(0, 0) + Grid->CellText(0, 1), "");
    Grid->ChooseCell(At(1, 5), TGridChoice::Set);
    QTest::keyClick(Grid, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Grid->CellText(0, 4) + Grid->CellText(0, 5), "onetwo");
    QTest::keyClick(Grid, Qt::Key_Delete);
    EXPECT_EQ(Grid->CellText(0, 4) + Grid->CellText(0, 5), "");
}

// A window that goes takes the focus from the field, which then ends the edit.
TEST(GridEditorInAWindow, GoesWithARefusedText)
{
    for (const bool hidden : {false, true}) {
        auto window = std::make_unique<QWidget>();
        auto *grid = new TzuGrid(window.get());
        grid->resize(200, 100);
        grid->Columns().Add().SetKind(TColumnKind::tckSimpleEdit);
        grid->AddRows(3);
        grid->SetAutoEditMode(true);
        grid->OnEditStop = [](TObject *, TCellEdit &edit) { edit.Allow = false; };
        window->show();
        window->activateWindow();
        grid->setFocus();
        QCoreApplication::processEvents();
        grid->ChooseCell({&grid->RootCell(), 1, 1}, TGridChoice::Set);
        QTest::keyClicks(grid, "a");
        ASSERT_NE(grid->EditorField(), nullptr);
        QTest::keyClick(grid->EditorField(), Qt::Key_Return);
        ASSERT_NE(grid->findChild<QLabel *>("gridHint"), nullptr);
        window->setVisible(!hidden);
        window.reset();
    }
}

TEST_F(GridEditor, HandlersMayDestroyTheGrid)
{
    const QPointer<TzuGrid> watch(Grid);
    Grid->OnEditStop = [this](auto &&...) { delete Grid; };
    QTest::keyClicks(Grid, "a");
    QTest::keyClick(Grid->EditorField(), Qt::Key_Return);
    EXPECT_TRUE(watch.isNull());
}

} // namespace
} // namespace korvane::test
