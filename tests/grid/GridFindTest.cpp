#include "support/FakeGridHost.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace korvane::test {
namespace {

/// Two columns of texts, with a grid in a cell of the third column and its texts.
struct GridFind : testing::Test, TestGrid
{
    std::vector<std::string> Texts{"Ash", "Elm", "ash wood", "oak", "Larch", "wash"};

    GridFind()
    {
        Grid.SetHasInfoCol(false);
        AddColumn("A", 60);
        AddColumn("B", 60);
        AddColumn("C", 100).SetKind(TColumnKind::tckSubGrid);
        TzuGrid_SubGrid &sub = Grid.SubGrids().Add();
        sub.SetName("sub");
        sub.Columns().Add().SetWidth(50);
        sub.SetHasHeaders(false);
        sub.SetHasInfoCol(false);
        Grid.Columns().At(2).SetSubGridName("sub");
        Grid.OnGetCellText = [this](TBabGridCell *grid, TAxisContentItem *column,
                                    TAxisContentItem *row, std::string &text) {
            if (grid->GridCell() != nullptr) {
                text = "inner";
                return;
            }
            const int index =
                2 * (grid->Rows().IndexOf(*row) - 1) + grid->Columns().IndexOf(*column);
            text = Texts.at(static_cast<std::size_t>(index) % Texts.size());
        };
        Grid.AddRows(3);
    }
    std::string Find(const std::string &text, TGridFindFrom from, int cells = 100)
    {
        View.BeginFind(text, from);
        const TGridFindState state = View.FindOn(cells);
        const TGridCellAt at = View.FocusCell();
        const std::string place =
            state == TGridFindState::Found
                ? (at.Grid == &View.RootCell() ? std::to_string(at.Column) + std::to_string(at.Row)
                                               : "inner")
            : state == TGridFindState::NotFound  ? "none"
            : state == TGridFindState::Searching ? "on the way"
                                                 : "idle";
        return place + (View.FindWentRound() ? " round" : "");
    }
};

/// Rows of texts: (Ash, Elm), (ash wood, oak), (Larch, wash).
TEST_F(GridFind, GoesAroundFromTheFocusWhateverTheCase)
{
    struct TCase
    {
        const char *Text;
        TGridFindFrom From;
        const char *Found;
    };
    const std::vector<TCase> cases{
        {"ash", TGridFindFrom::Here, "01"},         {"ash", TGridFindFrom::Here, "01"},
        {"ASH", TGridFindFrom::Next, "02"},         {"ash", TGridFindFrom::Next, "13"},
        {"ash", TGridFindFrom::Next, "01 round"},   {"ash", TGridFindFrom::Previous, "13 round"},
        {"ash", TGridFindFrom::Previous, "02"},     {"oak", TGridFindFrom::Next, "12"},
        {"oak", TGridFindFrom::Next, "12 round"}, // the only one
        {"fir", TGridFindFrom::Next, "none round"}, {"", TGridFindFrom::Next, "idle"},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        EXPECT_EQ(Find(cases[i].Text, cases[i].From), cases[i].Found) << i;
    }
    Grid.Columns().At(1).SetHidden(true);
    EXPECT_EQ(Find("oak", TGridFindFrom::Here), "none round");
    View.RootCell().Rows().getAxisContentItem(2)->SetHide(true);
    EXPECT_EQ(Find("wood", TGridFindFrom::Here), "none round");
}

TEST_F(GridFind, GridsInCellsAreSearchedInTheirPlace)
{
    auto *inner = dynamic_cast<TBabGridCell *>(View.GetCell(2, 2));
    ASSERT_NE(inner, nullptr);
    inner->Rows().AddNew(nullptr);
    View.ChooseCell(At(0, 1), TGridChoice::Set);
    EXPECT_EQ(Find("inner", TGridFindFrom::Next), "inner");
    EXPECT_EQ(Find("a", TGridFindFrom::Previous), "12"); // oak, beside it
    EXPECT_EQ(Find("larch", TGridFindFrom::Next), "03");
    EXPECT_EQ(Find("inner", TGridFindFrom::Previous), "inner");
}

TEST_F(GridFind, BearsChangesOnTheWay)
{
    EXPECT_EQ(Find("wash", TGridFindFrom::Here, 3), "on the way");
    View.RootCell().Rows().InsertNew(1, nullptr); // the texts go by the place of the row
    EXPECT_EQ(View.FindOn(100), TGridFindState::Found);
    EXPECT_EQ(Find("wash", TGridFindFrom::Next, 1), "on the way");
    View.RootCell().Rows().ClearKeepFixedItems();
    EXPECT_NE(View.FindOn(100), TGridFindState::Found);
    EXPECT_EQ(Find("wash", TGridFindFrom::Next), "idle");
}

TEST_F(GridFind, AnApplicationMaySearchItself)
{
    View.OnFind = [this](TObject *, TGridFind &find) {
        find.Handled = find.Text != "mine";
        find.Found = find.Text == "theirs" ? At(1, 3) : TGridCellAt();
    };
    EXPECT_EQ(Find("theirs", TGridFindFrom::Next), "13");
    EXPECT_EQ(Find("ash", TGridFindFrom::Next), "none");
    EXPECT_EQ(Find("mine", TGridFindFrom::Next), "none round");
}

TEST_F(GridFind, WhatIsFoundIsMarkedWhereItStands)
{
    Find("as", TGridFindFrom::Here);
    const TRect cell = View.CellRect(At(1, 3)); // wash: not selected
    const TRect mark{cell.Left + 4 + 6, cell.Top, cell.Left + 4 + 18, cell.Bottom};
    const auto fills = [&] {
        int count = 0;
        for (const TCanvasCall &call : Paint().Calls()) {
            count += call.Op == TCanvasOp::FillRect && call.Rect.Left == mark.Left
                     && call.Rect.Right == mark.Right && call.Rect.Top > mark.Top;
        }
        return count;
    };
    EXPECT_EQ(fills(), 1);
    View.BeginFind({}, TGridFindFrom::Here);
    EXPECT_EQ(fills(), 0);
}

// --- the mouse -----------------------------------------------------------------------------------

TEST_F(GridFind, TheRowUnderTheMouseIsMarkedUntilItLeaves)
{
    struct TView : TBabGridFind
    {
        using TBabGridFind::SetMousePlace;
        using TBabGridFind::TBabGridFind;
    } view(*this, Editor);
    view.RootCell().Rows().AddNew(nullptr);
    view.RootCell().Rows().AddNew(nullptr);
    view.RootCell().Columns().AddNew(nullptr);
    using TPaintOn = TBabGridSelectCore::TPaintOn;
    const auto colors = [&](TPaintOn on = TPaintOn::Screen) {
        Painted.Clear();
        view.Paint(Painted, on);
        int count = 0;
        for (const TCanvasCall &call : Painted.Calls()) {
            count += call.Op == TCanvasOp::FillRect && call.Rect == TRect{0, 20, 64, 40};
        }
        return count;
    };
    EXPECT_EQ(colors(), 0);
    view.SetMousePlace(TPoint{10, 30});
    // A print shows no mark, and the screen remembers what it shows.
    EXPECT_EQ(colors(TPaintOn::Paper), 0);
    EXPECT_FALSE(view.PictureMove()->Anew.empty());
    EXPECT_EQ(colors(), 1);
    EXPECT_EQ(colors(TPaintOn::Paper), 0);
    EXPECT_TRUE(view.PictureMove()->Anew.empty());
    const int before = Invalidations;
    view.SetMousePlace(TPoint{20, 35}); // the same row
    EXPECT_EQ(Invalidations, before);
    view.SetMousePlace(TPoint{10, 10});
    EXPECT_GT(Invalidations, before);
    EXPECT_EQ(colors(), 0);
    view.SetMousePlace(TPoint{10, 30});
    view.SetHotTrack(false);
    EXPECT_EQ(colors(), 0);
}

TEST_F(GridFind, BoxesStandInTheFirstLineOfTallRows)
{
    TzuCellLayout &layout = Grid.CellLayouts().Add();
    layout.SetName("tall");
    Grid.Columns().At(1).SetKind(TColumnKind::tckBool);
    TAxisContentItem &row = *View.RootCell().Rows().getAxisContentItem(1);
    const auto top = [&](int height) {
        row.SetUserSizeActive(true);
        row.SetUserSize(height);
        View.LayoutOutOfDate();
        return View.CheckBoxRect(At(1, 1), View.CellRect(At(1, 1))).Top - 20;
    };
    EXPECT_EQ(top(20), 3);
    EXPECT_EQ(top(21), 3);
    EXPECT_EQ(top(60), 1); // a line of 12 pixels, two below the edge
    Grid.Columns().At(1).SetLayoutName("tall");
    layout.SetVertAlignCenter(true);
    EXPECT_EQ(top(60), 23);
}

/// A block that reaches beyond the last row, with an application that adds rows or not.
TEST_F(GridFind, APastedBlockMayBringNewRows)
{
    std::string asked;
    View.OnAddRowsForPaste = [&](TObject *, TBabGridCell *grid, int count) {
        asked += std::to_string(count) + (grid == &View.RootCell() ? " " : "? ");
        if (count < 3) {
            Grid.AddRows(count);
        }
    };
    struct TCase
    {
        int Row;
        const char *Text;
        const char *Asked;
        int Rows;
        int Outside;
    };
    for (const TCase &test : {TCase{2, "a\nb", "", 3, 0},
                              {3, "a\tb\nc\td", "1 ", 4, 0},
                              {4, "a\nb\nc\nd", "3 ", 4, 3},
                              {1, "one text", "", 4, 0}}) {
        asked.clear();
        View.ChooseCell(At(0, test.Row), TGridChoice::Set);
        const TGridPaste result = View.PasteText(test.Text);
        EXPECT_EQ(asked, test.Asked) << test.Text;
        EXPECT_EQ(result.Outside, test.Outside);
        EXPECT_EQ(View.RootCell().Rows().Count() - 1, test.Rows);
    }
    EXPECT_EQ(Grid.CellText(1, 3), "d");
}

} // namespace
} // namespace korvane::test
