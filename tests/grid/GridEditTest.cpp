#include "foundation/zuFormat.h"
#include "support/FakeGridHost.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvane::test {
namespace {

using enum TColumnKind;

/// Three columns A, B, C and ten rows, whose texts are a letter and the row.
struct GridEdit : testing::Test, TestGrid
{
    std::vector<std::string> Log;

    GridEdit()
    {
        for (const char *header : {"A", "B", "C"}) {
            AddColumn(header, 60);
        }
        Grid.AddRows(10);
        View.SetMultiSelect(true);
        View.SetAutoEditMode(true);
        View.OnBeginUserChange = [this](auto &&...) { Log.emplace_back("begin"); };
        View.OnEndUserChange = [this](TObject *, TGridUserChange, bool changed) {
            Log.emplace_back(changed ? "changed" : "same");
        };
        View.OnCellEdited = [this](TObject *, const TCellEdit &edit) {
            Log.push_back(edit.Before + ">" + edit.Text);
        };
    }
    std::string Text(int column, int row)
    {
        TBabGridCell &root = View.RootCell();
        return root.CellText(*root.Columns().getAxisContentItem(column),
                             *root.Rows().getAxisContentItem(row));
    }
    bool Type(const TGridCellAt &at, const std::string &text)
    {
        const bool begun = View.BeginEdit(at, TEditBegin::Replace);
        Editor.Text = text;
        return begun && View.CommitEdit();
    }
};

TEST_F(GridEdit, KindsTakeWhatTheyUnderstandAndKeepTheRestInTheEditor)
{
    View.OnBeforeEditWithCombo = [](TObject *, TBabCell *cell) {
        auto &data = dynamic_cast<TBabSimpleCell &>(*cell).Data();
        dynamic_cast<TBabCellData_Combo &>(data).Items = {"Red", "Green", "blue", "Blue"};
    };
    TFormatSettings american = TFormatSettings::Invariant();
    american.ShortDateFormat = "m/d/yyyy";
    american.DateSeparator = '/';
    american.ShortTimeFormat = "h:nn ampm";
    american.AmText = "AM";
    american.PmText = "PM";
    const TFormatSettings before = FormatSettings();
    struct TCase
    {
        TColumnKind Kind;
        const char *Typed;
        const char *Stored; ///< null when it is refused
        bool American = false;
    };
    for (const TCase &each : std::vector<TCase>{
             {tckSimpleEdit, "any \"text\"", "any \"text\""},
             {tckMemo, "two\nlines", "two\nlines"},
             {tckDate, "2024-2-29", "2024-02-29"},
             {tckDate, "2023-2-29", nullptr},
             {tckDate, "tomorrow", nullptr},
             {tckDate, "", ""},
             {tckDate, "2/29/24", "2/29/2024", true},
             {tckDate, "3 march 2024", "2024-03-03"},
             {tckDate, "2024 Mar 3", "2024-03-03"},
             {tckTime, "9:5", "09:05"},
             {tckTime, "25:00", nullptr},
             {tckTime, "2:30 pm", "2:30 PM", true},
             {tckTime, "12:10 am", "12:10 AM", true},
             {tckTime, "12:10 pm", "12:10 PM", true},
             {tckCombo, "green", "Green"},
             {tckCombo, "blue", "blue"},
             {tckCombo, "Grey", nullptr},
             {tckCombo, "", ""},
         }) {
        SCOPED_TRACE(each.Typed);
        SetFormatSettings(each.American ? american : before);
        Grid.Columns().At(0).SetKind(each.Kind);
        View.RootCell().Matris().RemoveCell(*View.RootCell().Columns().getAxisContentItem(1),
                                            *View.RootCell().Rows().getAxisContentItem(2));
        EXPECT_EQ(Type(At(1, 2), each.Typed), each.Stored != nullptr);
        EXPECT_EQ(Editor.IsOpen, each.Stored == nullptr);
        if (each.Stored != nullptr) {
            EXPECT_EQ(Text(1, 2), each.Stored);
        } else {
            EXPECT_NE(Editor.Refusal.find(each.Typed), std::string::npos) << Editor.Refusal;
            EXPECT_EQ(Editor.Text, each.Typed);
            View.CancelEdit();
            EXPECT_EQ(Text(1, 2), "b2");
        }
        Grid.Columns().At(0).SetKind(tckSimpleEdit);
    }
    SetFormatSettings(before);
}

TEST_F(GridEdit, AnEditIsOneChangeThatHandlersMayBendRefuseOrKeepThemselves)
{
    ASSERT_TRUE(View.BeginEdit(At(1, 1), TEditBegin::Whole));
    EXPECT_EQ(Editor.Text, "b1");
    EXPECT_TRUE(View.CommitEdit());
    EXPECT_EQ(Log, std::vector<std::string>{}); // nothing was typed
    EXPECT_EQ(View.RootCell().Matris().CellCount(), 0);

    std::string kept;
    Grid.OnSetCellText = [&kept](auto &&, auto &&, auto &&, const std::string &text, bool &stored) {
        kept = text;
        stored = text != "cell";
    };
    EXPECT_TRUE(Type(At(1, 1), "mine"));
    EXPECT_EQ(kept, "mine");
    EXPECT_EQ(View.RootCell().Matris().CellCount(), 0);
    EXPECT_TRUE(Type(At(1, 1), "cell"));
    EXPECT_EQ(Text(1, 1), "cell");
    EXPECT_EQ(Log, (std::vector<std::string>{"begin", "b1>mine", "changed", "begin", "b1>cell",
                                             "changed"}));
    Log.clear();
    View.OnEditStop = [](TObject *, TCellEdit &edit) {
        if (edit.Text == "throw") {
            throw std::runtime_error("Too early");
        }
        edit.Allow = edit.Text != "veto";
        edit.Text += "!";
    };
    EXPECT_TRUE(Type(At(1, 1), "x"));
    EXPECT_EQ(Text(1, 1), "x!");
    EXPECT_FALSE(Type(At(1, 1), "veto"));
    Editor.Text = "throw";
    EXPECT_FALSE(View.CommitEdit());
    EXPECT_EQ(Editor.Refusal, "Too early");
    EXPECT_FALSE(View.ChooseCell(At(2, 2), TGridChoice::Set)); // the text is not lost
    EXPECT_EQ(View.FocusCell(), At(1, 1));
    EXPECT_TRUE(View.EditorKey(TEditKey::Escape));
    EXPECT_FALSE(View.IsEditing());
    EXPECT_EQ(Text(1, 1), "x!");
    EXPECT_EQ(Log, (std::vector<std::string>{"begin", "cell>x!", "changed", "begin", "same",
                                             "begin", "same", "begin", "same"}));
}

TEST_F(GridEdit, KeysFinishAsInSpreadsheets)
{
    struct TCase
    {
        TColumnKind Kind;
        TEditBegin How;
        TEditKey Key;
        int Column; ///< where the focus comes to be; 0 for an editor that keeps the key
        int Row;
    };
    using enum TEditBegin;
    using enum TEditKey;
    for (const TCase &each : std::vector<TCase>{{tckSimpleEdit, Replace, Left, 1, 3},
                                                {tckSimpleEdit, AtEnd, Left, 0, 0},
                                                {tckSimpleEdit, AtEnd, Down, 2, 4},
                                                {tckMemo, Replace, Right, 0, 0},
                                                {tckMemo, AtEnd, Up, 0, 0},
                                                {tckMemo, AtEnd, Tab, 3, 3},
                                                {tckCombo, Replace, Down, 0, 0},
                                                {tckCombo, Replace, Right, 3, 3},
                                                {tckDate, AtEnd, ShiftEnter, 2, 2},
                                                {tckSimpleEdit, Whole, Escape, 2, 3}}) {
        Grid.Columns().At(1).SetKind(each.Kind);
        ASSERT_TRUE(View.BeginEdit(At(2, 3), each.How));
        Editor.Text = "";
        EXPECT_EQ(View.EditorKey(each.Key), each.Column != 0);
        EXPECT_EQ(View.IsEditing(), each.Column == 0);
        EXPECT_EQ(View.FocusCell(), each.Column != 0 ? At(each.Column, each.Row) : At(2, 3));
        View.CancelEdit();
    }
    Grid.Columns().At(1).SetKind(tckSimpleEdit);
    View.BeginEdit(At(2, 3), Replace);
    View.EditorKey(F2);
    EXPECT_FALSE(View.EditorKey(Left));
    View.CancelEdit();

    // Enter goes below the cell in which the tabs began, unless the focus was elsewhere meanwhile.
    Type(At(1, 5), "1");
    View.TabMove(false);
    View.TabMove(false);
    Type(View.FocusCell(), "3");
    View.EnterMove(false);
    EXPECT_EQ(View.FocusCell(), At(1, 6));
    View.TabMove(false);
    View.ChooseCell(At(3, 6), TGridChoice::Set);
    View.EnterMove(true);
    EXPECT_EQ(View.FocusCell(), At(3, 5));
}

TEST_F(GridEdit, TheEditorFollowsItsCellAndClosesWithIt)
{
    TAxisContentList &rows = View.RootCell().Rows();
    ASSERT_TRUE(View.BeginEdit(At(2, 8), TEditBegin::Replace));
    Editor.Text = "typed";
    rows.InsertNew(1, nullptr);
    Grid.Columns().Move(1, 0);
    EXPECT_EQ(View.EditedCell(), At(1, 9));
    View.PlaceEditor();
    EXPECT_EQ(Editor.Cell, View.CellRect(At(1, 9)));
    EXPECT_EQ(Editor.Clip, (TRect{20, 20, 300, 200}));
    Grid.SetSortKeys({{&Grid.Columns().At(1), true}});
    const TGridCellAt sorted = View.EditedCell();
    EXPECT_NE(sorted.Row, 9);
    EXPECT_EQ(sorted, View.FocusCell());
    EXPECT_TRUE(View.CommitEdit());
    EXPECT_EQ(Text(1, sorted.Row), "typed");

    for (const bool byHandler : {false, true}) {
        ASSERT_TRUE(View.BeginEdit(At(1, 5), TEditBegin::Replace));
        Editor.Text = "gone";
        if (byHandler) {
            View.OnEditStop = [&](TObject *, TCellEdit &edit) { rows.Drop(edit.At.Row); };
            EXPECT_TRUE(View.CommitEdit());
        } else {
            rows.Drop(5);
        }
        EXPECT_FALSE(Editor.IsOpen);
        EXPECT_FALSE(View.IsEditing());
    }
    View.OnEditStop = nullptr;

    Grid.SubGrids().Add().SetName("Inner");
    Grid.SubGrids().At(0).Columns().Add();
    Grid.Columns().At(2).SetKind(tckSubGrid);
    Grid.Columns().At(2).SetSubGridName("Inner");
    auto &inner = dynamic_cast<TBabGridCell &>(*View.RootCell().GetCell(3, 1));
    inner.Rows().AddNew(nullptr);
    ASSERT_TRUE(View.BeginEdit({&inner, inner.Columns().FixedCount(), inner.Rows().FixedCount()},
                               TEditBegin::Replace));
    EXPECT_EQ(Editor.Clip, View.CellRect(At(3, 1)));
    Grid.Columns().At(2).SetKind(tckSimpleEdit);
    EXPECT_FALSE(Editor.IsOpen);
    EXPECT_FALSE(View.IsEditing());
    EXPECT_FALSE(View.BeginEdit(At(1, 0), TEditBegin::Whole)); // a header
}

TEST_F(GridEdit, ReadOnlyHoldsForTypingChecksPastingAndClearing)
{
    const auto change = [this] {
        View.ChooseCell(At(2, 2), TGridChoice::Set);
        Type(At(2, 2), "typed");
        View.CancelEdit();
        View.PasteText("pasted");
        View.ClearCells();
        View.ToggleCheckBox(At(2, 2));
    };
    for (const auto kind : {tckSimpleEdit, tckBool}) {
        Grid.Columns().At(1).SetKind(kind);
        View.SetReadOnly(true);
        change();
        View.SetReadOnly(false);
        Grid.Columns().At(1).SetReadOnly(true);
        change();
        Grid.Columns().At(1).SetReadOnly(false);
        View.RootCell().GetCell(2, 2)->SetReadOnly(true);
        change();
        View.RootCell().GetCell(2, 2)->SetReadOnly(false);
        View.OnBeforeEdit = [](auto &&, auto &&, bool &allow) { allow = false; };
        change();
        View.OnBeforeEdit = nullptr;
        EXPECT_EQ(Text(2, 2), kind == tckBool ? "1" : "c2");
    }
    View.ToggleCheckBox(At(2, 2));
    EXPECT_EQ(Text(2, 2), "0");
    EXPECT_EQ(Editor.Refusal, "1 cell cannot be changed.");
}

TEST_F(GridEdit, BlocksArePastedIntoShownCellsAsOneChange)
{
    struct TCase
    {
        TGridCellAt At;
        const char *Text;
        TGridPaste Expected;
        std::vector<std::string> Row2; ///< texts of the second row afterwards
    };
    const auto check = [this](const TCase &each) {
        SCOPED_TRACE(each.Text);
        Log.clear();
        View.ChooseCell(each.At, TGridChoice::Set);
        const TGridPaste result = View.PasteText(each.Text);
        EXPECT_EQ(result.Stored, each.Expected.Stored);
        EXPECT_EQ(result.ReadOnly, each.Expected.ReadOnly);
        EXPECT_EQ(result.Refused, each.Expected.Refused);
        EXPECT_EQ(result.Outside, each.Expected.Outside);
        EXPECT_EQ((std::vector{Text(1, 2), Text(2, 2), Text(3, 2)}), each.Row2);
        EXPECT_EQ(std::count(Log.begin(), Log.end(), "begin"), each.Text[0] != 0 ? 1 : 0);
    };
    check({At(1, 2), "x\ty\r\n1\t2\r\n", {4, 0, 0, 0, {}}, {"x", "y", "d2"}});
    EXPECT_EQ(View.SelectionAsText(), "x\ty\n1\t2");
    check({At(2, 2), "\"a\tb\n\"\"c\"\t\n", {2, 0, 0, 0, {}}, {"x", "a\tb\n\"c", ""}});
    check({At(3, 2), "p\tq\n\"open", {2, 0, 0, 1, {}}, {"x", "a\tb\n\"c", "p"}});
    check({At(3, 10), "p\nq\nr\tr", {1, 0, 0, 3, {}}, {"x", "a\tb\n\"c", "p"}});
    check({At(1, 2), "", {}, {"x", "a\tb\n\"c", "p"}});
    Grid.Columns().At(1).SetHidden(true);
    check({At(1, 2), "1\t3", {2, 0, 0, 0, {}}, {"1", "a\tb\n\"c", "3"}});
    Grid.Columns().At(1).SetHidden(false);
    Grid.Columns().At(1).SetReadOnly(true);
    Grid.Columns().At(2).SetKind(tckDate);
    check({At(1, 2), "i\tj\tk", {1, 1, 1, 0, {}}, {"i", "a\tb\n\"c", ""}});
    EXPECT_EQ(Editor.Refusal, "1 cell cannot be changed.\n1 cell kept the old content: \"k\" is no "
                              "date. An example: 2025-12-31");
    Grid.Columns().At(1).SetReadOnly(false);

    // One text fills the selection; Delete empties it.
    View.ChooseCell(At(1, 4), TGridChoice::Set);
    View.ChooseCell(At(2, 6), TGridChoice::Extend);
    Log.clear();
    EXPECT_EQ(View.PasteText("z").Stored, 6);
    EXPECT_EQ(Text(2, 6), "z");
    View.ClearCells();
    EXPECT_EQ(Text(1, 4) + Text(2, 6), "");
    EXPECT_EQ(Text(1, 7), "b7");
    EXPECT_EQ(std::count(Log.begin(), Log.end(), "begin"), 2);

    // A handler that does away with rows meanwhile.
    View.OnCellEdited = [this](auto &&...) { View.RootCell().Rows().ClearKeepFixedItems(); };
    View.PasteText("a\tb\nc\td");
    EXPECT_EQ(View.RootCell().Rows().Count(), 1);
}

TEST_F(GridEdit, CsvIsQuotedInternationalAndNoFormula)
{
    View.RootCell().Rows().ClearKeepFixedItems();
    TFormatSettings german = TFormatSettings::Invariant();
    german.ShortDateFormat = "dd.mm.yyyy";
    const TFormatSettings before = FormatSettings();
    SetFormatSettings(german);
    Grid.OnGetCellText = [](auto &&...) {};
    Grid.AddRows(3);
    Grid.Columns().At(1).SetKind(tckDate);
    Grid.Columns().At(2).SetHeaderText("=C");
    const char *const texts[3][3] = {{"a,b", "31.12.2024", "=1+1"},
                                     {"say \"hi\"", "", "-5,5 %"},
                                     {"two\nlines", "1.2.2025", "-cmd"}};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            Grid.SetCellText(column, row, texts[row][column]);
        }
    }
    std::ostringstream out;
    View.WriteCsv(out);
    EXPECT_EQ(out.str(), "A,B,'=C\r\n"
                         "\"a,b\",2024-12-31,'=1+1\r\n"
                         "\"say \"\"hi\"\"\",,\"-5,5 %\"\r\n"
                         "\"two\nlines\",2025-02-01,'-cmd\r\n");
    Grid.Columns().At(0).SetHidden(true);
    Grid.SetHasHeaders(false);
    View.RootCell().Rows().getAxisContentItem(1)->SetHide(true);
    out.str({});
    View.WriteCsv(out);
    EXPECT_EQ(out.str(), "2024-12-31,'=1+1\r\n2025-02-01,'-cmd\r\n");
    SetFormatSettings(before);
}

} // namespace
} // namespace korvane::test
