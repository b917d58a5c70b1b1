#include "support/FakeGridHost.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace korvane::test {
namespace {

/// Columns of 20 (info), 50, 60 and 70 pixels; a header and a hundred rows of 20.
struct GridView : testing::Test, TestGrid
{
    GridView()
    {
        AddColumn("A", 50);
        AddColumn("B", 60);
        AddColumn("C", 70);
        Grid.AddRows(100);
        View.SetMultiSelect(true);
    }
    std::string Selected()
    {
        std::string text;
        for (const TCellRange &range : View.SelectedGrid().Selection().Ranges()) {
            const bool whole = range.LastColumn == TCellSelection::kAllColumns;
            text += std::to_string(range.FirstColumn) + "," + std::to_string(range.FirstRow) + "-"
                    + (whole ? "all" : std::to_string(range.LastColumn)) + ","
                    + std::to_string(range.LastRow) + " ";
        }
        return text;
    }
    TBabGridCell &AddSubGrids(int rows)
    {
        TzuGrid_SubGrid &steps = Grid.SubGrids().Add();
        steps.SetName("Steps");
        steps.Columns().Add().SetWidth(40);
        TzuGrid_Column &column = AddColumn("D", 100);
        column.SetSubGridName("Steps");
        column.SetKind(TColumnKind::tckSubGrid);
        Grid.OnInitSubGrid = [rows](TObject *, TBabSubGridCell *cell, TAxisContentItem *,
                                    TAxisContentItem *) { cell->Rows().AddUnloaded(rows); };
        View.EnsureLayout();
        return dynamic_cast<TBabGridCell &>(*View.RootCell().GetCell(4, 1));
    }
};

TEST_F(GridView, CellsLieBehindTheHeadAndUnderTheScrolling)
{
    struct TCase
    {
        int Column;
        int Row;
        TRect Rect;
    };
    const auto check = [this](const std::vector<TCase> &cases) {
        for (const TCase &each : cases) {
            EXPECT_EQ(View.CellRect(At(each.Column, each.Row)), each.Rect)
                << each.Column << ' ' << each.Row;
        }
    };
    check({{0, 0, {0, 0, 20, 20}},
           {1, 0, {20, 0, 70, 20}},
           {3, 5, {130, 100, 200, 120}},
           {4, 1, {}},
           {1, 101, {}}});
    View.ScrollTo(0, 47);
    check({{1, 0, {20, 0, 70, 20}}, {0, 3, {0, 13, 20, 33}}, {1, 1, {20, -27, 70, -7}}});
    EXPECT_EQ(View.GetTopLeftCell(), At(1, 3));
    View.ScrollTo(999, 1 << 30);
    EXPECT_EQ(View.ScrollX(), 0);
    EXPECT_EQ(View.ScrollY(), 100 * 20 + 20 - 200);
    View.SetExtendLastColumnToWidth(true);
    View.ScrollTo(0, 0);
    check({{3, 1, {130, 20, 300, 40}}});
    Grid.Columns().At(2).SetHidden(true);
    check({{3, 1, {}}, {2, 1, {70, 20, 300, 40}}});
    View.RootCell().Rows().getAxisContentItem(2)->SetHide(true);
    View.RootCell().Rows().getAxisContentItem(3)->SetUserSize(50);
    View.RootCell().Rows().getAxisContentItem(3)->SetUserSizeActive(true);
    check({{1, 2, {}}, {1, 3, {20, 40, 70, 90}}, {1, 4, {20, 90, 70, 110}}});
    View.ScrollRows(2);
    EXPECT_EQ(View.GetTopLeftCell(), At(1, 4));
    View.ScrollRows(-1);
    EXPECT_EQ(View.GetTopLeftCell(), At(1, 3));
}

TEST_F(GridView, WhatIsHitIsWhereItsRectangleSays)
{
    AddSubGrids(3);
    std::mt19937 random(1);
    for (int step = 0; step < 3000; ++step) {
        if (step % 100 == 0) {
            View.ScrollTo(random() % 200, random() % 3000);
        }
        const TPoint point{static_cast<int>(random() % 320) - 10,
                           static_cast<int>(random() % 220) - 10};
        const TGridHit hit = View.HitTest(point);
        if (hit.Part == TGridPart::Nothing) {
            continue;
        }
        ASSERT_EQ(View.CellRect(hit.At), hit.Rect) << point.X << ' ' << point.Y;
        TRect near = hit.Rect;
        const bool onBorder =
            hit.Part == TGridPart::ColumnBorder || hit.Part == TGridPart::RowBorder;
        near.Right += onBorder ? TBabGridLayoutCore::kGrip : 0;
        near.Bottom += onBorder ? TBabGridLayoutCore::kGrip : 0;
        ASSERT_TRUE(near.Contains(point)) << point.X << ' ' << point.Y;
    }
}

TEST_F(GridView, FixedAndScrolledPartsArePaintedFromOneLayout)
{
    View.ScrollTo(0, 47);
    const TRecordingCanvas &canvas = Paint();
    EXPECT_EQ(canvas.ClipDepth(), 0U);
    std::map<std::string, TRect> texts;
    for (const TCanvasCall &call : canvas.CallsOf(TCanvasOp::Text)) {
        if (call.IsVisible()) {
            EXPECT_TRUE(texts.emplace(call.Text, call.Rect).second) << call.Text;
        }
    }
    EXPECT_EQ(texts.size(), 3U + 3 * 10); // what is shown, and no more
    for (const auto &[text, rect] : texts) {
        const int column = text.size() == 1 ? text[0] - 'A' + 1 : text[0] - 'a';
        const int row = text.size() == 1 ? 0 : std::stoi(text.substr(1));
        const TRect cell = View.CellRect(At(column, row));
        EXPECT_EQ(rect.Left, cell.Left + TBabGridLayoutCore::kPadding) << text;
        EXPECT_TRUE(rect.Top >= cell.Top && rect.Bottom < cell.Bottom) << text;
    }
    for (const TCanvasCall &call : canvas.CallsOf(TCanvasOp::Text)) {
        EXPECT_GE(call.Clip.Top, call.Text.size() == 1 ? 0 : 20); // nothing over the header
    }
}

TEST_F(GridView, ATextStandsAsItsLayoutSays)
{
    TzuCellLayout &layout = Grid.CellLayouts().Add();
    layout.SetName("l");
    Grid.Columns().At(1).SetLayoutName("L");
    const auto rectOf = [this](const std::string &text) {
        const auto found = Paint().Where([&](const auto &call) { return call.Text == text; });
        return found.empty() ? TRect() : found[0].Rect;
    };
    const TRect cell = View.CellRect(At(2, 1));
    layout.SetHorzAlignRight(true);
    EXPECT_EQ(rectOf("c1").Right, cell.Right - 1 - TBabGridLayoutCore::kPadding);
    layout.SetHorzAlignRight(false);
    layout.SetHorzAlignCenter(true);
    EXPECT_NEAR(rectOf("c1").Left + rectOf("c1").Right, cell.Left + cell.Right - 1, 1);
    layout.SetHorzAlignCenter(false);
    layout.SetWindowsFlagDraw(true);
    layout.SetWindowsFlags(TLayoutProp::kTextRight);
    EXPECT_EQ(rectOf("c1").Right, cell.Right - 1 - TBabGridLayoutCore::kPadding);
    layout.SetWindowsFlagDraw(false);

    const std::string lorem = "one two three four";
    Grid.SetCellText(1, 0, lorem);
    EXPECT_EQ(View.CutText(At(2, 1)), lorem);
    layout.SetEndEllipsis(true);
    EXPECT_EQ(rectOf("one two\xE2\x80\xA6").Left, cell.Left + TBabGridLayoutCore::kPadding);
    layout.SetWrapTextAndFit(true); // three lines of eight characters
    EXPECT_EQ(rectOf("three").Top - rectOf("one two").Top, 12);
    EXPECT_EQ(View.CellRect(At(2, 1)).Height(), 3 * 12 + 5);
    EXPECT_EQ(View.CellRect(At(2, 2)).Top, 20 + 3 * 12 + 5);
    EXPECT_EQ(View.CutText(At(2, 1)), "");
    Grid.Columns().At(1).SetWidth(200);
    EXPECT_EQ(View.CellRect(At(2, 1)).Height(), 20);
    layout.SetMinHeight(30);
    EXPECT_EQ(View.CellRect(At(1, 2)).Top, 20 + 30);

    layout.SetFrameOptionsUse(true);
    layout.SetFrameOptions(foTop | foLeft);
    layout.SetFrameKind(TFrameKind::fkDouble);
    View.RootCell().Rows().AddUnloaded(0);
    const auto lines = Paint().CallsOf(TCanvasOp::Polyline);
    EXPECT_EQ(lines.size() % 4, 0U); // two double lines in each cell
    EXPECT_FALSE(lines.empty());
}

TEST_F(GridView, EqualNeighboursAreOneGroup)
{
    TzuGrid_Column &column = Grid.Columns().At(0);
    column.SetGroupcells(true);
    column.OnGroupcellCompare = [](TzuGrid_Column *, TAxisContentItem *upper,
                                   TAxisContentItem *lower, bool &equal) {
        equal = upper->ListIndex() / 4 == lower->ListIndex() / 4;
    };
    const auto shown = [this] {
        std::string texts;
        for (const TCanvasCall &call : Paint().CallsOf(TCanvasOp::Text)) {
            texts += call.IsVisible() && call.Text[0] == 'b' ? call.Text + ' ' : "";
        }
        return texts;
    };
    EXPECT_EQ(shown(), "b1 b4 b8 ");
    View.ScrollTo(0, 20); // a group that begins above is named where it shows
    EXPECT_EQ(shown(), "b2 b4 b8 ");
}

TEST_F(GridView, KeysMoveTheFocus)
{
    View.RootCell().Rows().getAxisContentItem(3)->SetHide(true);
    struct TCase
    {
        TGridCellAt From;
        TGridMove Move;
        TGridCellAt To;
    };
    for (const TCase &each :
         {TCase{At(1, 1), TGridMove::Left, {}}, TCase{At(1, 1), TGridMove::Right, At(2, 1)},
          TCase{At(1, 1), TGridMove::Up, {}}, TCase{At(1, 2), TGridMove::Down, At(1, 4)},
          TCase{At(1, 4), TGridMove::Up, At(1, 2)}, TCase{At(3, 1), TGridMove::Next, At(1, 2)},
          TCase{At(1, 2), TGridMove::Previous, At(3, 1)}, TCase{At(3, 100), TGridMove::Next, {}},
          TCase{At(2, 1), TGridMove::PageDown, At(2, 10)},
          TCase{At(2, 95), TGridMove::PageDown, At(2, 100)},
          TCase{At(2, 100), TGridMove::PageDown, {}}, TCase{At(2, 5), TGridMove::PageUp, At(2, 1)},
          TCase{At(2, 5), TGridMove::RowBegin, At(1, 5)},
          TCase{At(2, 5), TGridMove::RowEnd, At(3, 5)}, TCase{At(2, 5), TGridMove::First, At(1, 1)},
          TCase{At(2, 5), TGridMove::Last, At(3, 100)}, TCase{At(2, 5), TGridMove::Leave, {}}}) {
        View.ChooseCell(each.From, TGridChoice::Set);
        EXPECT_EQ(View.MoveFocus(each.Move, TGridChoice::Set), bool(each.To));
        EXPECT_EQ(View.FocusCell(), each.To ? each.To : each.From) << int(each.Move);
        const TRect rect = View.CellRect(View.FocusCell());
        EXPECT_TRUE(rect.Top >= 20 && rect.Bottom <= 200) << "in view";
    }
    EXPECT_TRUE(View.FindText("C42", false));
    EXPECT_FALSE(View.FindText("x", true));
    View.ChooseCell(At(2, 42), TGridChoice::Set);
    EXPECT_TRUE(View.FindText("c4", true));
    EXPECT_EQ(View.FocusCell(), At(2, 43));
    EXPECT_FALSE(View.ChooseCell(At(0, 1), TGridChoice::Set));
    EXPECT_FALSE(View.ChooseCell(At(1, 0), TGridChoice::Set));
}

TEST_F(GridView, ClicksAndKeysSelect)
{
    const TShiftState shift{true, false, false};
    const TShiftState ctrl{false, true, false};
    Click(Middle(At(2, 2)));
    EXPECT_EQ(Selected(), "2,2-2,2 ");
    Click(Middle(At(3, 4)), shift);
    EXPECT_EQ(Selected(), "2,2-3,4 ");
    Click(Middle(At(2, 3)), ctrl);
    EXPECT_EQ(Selected(), "2,2-3,2 3,3-3,3 2,4-3,4 ");
    Drag(Middle(At(1, 1)), Middle(At(2, 3)));
    EXPECT_EQ(Selected(), "1,1-2,3 ");
    View.MoveFocus(TGridMove::Down, TGridChoice::Extend);
    EXPECT_EQ(Selected(), "1,1-2,4 ");
    Drag(Middle(At(0, 5)), Middle(At(0, 7)));
    EXPECT_EQ(Selected(), "0,5-all,7 ");
    Click({10, 10}); // the corner
    EXPECT_EQ(Selected(), "0,1-all,100 ");
    View.SetRowSelect(true);
    EXPECT_EQ(Selected(), "");
    Click(Middle(At(2, 2)));
    Click(Middle(At(1, 4)), ctrl);
    EXPECT_EQ(Selected(), "0,2-all,2 0,4-all,4 ");
    View.SetMultiSelect(false);
    Click(Middle(At(2, 2)));
    Click(Middle(At(2, 5)), shift);
    EXPECT_EQ(Selected(), "0,5-all,5 ");
    View.SelectAll();
    EXPECT_EQ(Selected(), "0,5-all,5 ");
}

TEST_F(GridView, SelectedCellsAreCopiedAsOneBlock)
{
    View.ChooseCell(At(1, 2), TGridChoice::Set);
    View.ChooseCell(At(3, 3), TGridChoice::Extend);
    Grid.Columns().At(1).SetHidden(true);
    Grid.SetCellText(0, 1, "a <\"b\">\nc");
    EXPECT_EQ(View.SelectionAsText(), "\"a <\"\"b\"\">\nc\"\td2\nb3\td3");
    EXPECT_EQ(View.SelectionAsHtml(), "<table><tr><td>a &lt;\"b\"&gt;<br>c</td><td>d2</td></tr>\n"
                                      "<tr><td>b3</td><td>d3</td></tr></table>");
}

TEST_F(GridView, FocusAndSelectionFollowTheirRows)
{
    TAxisContentList &rows = View.RootCell().Rows();
    View.ChooseCell(At(2, 5), TGridChoice::Set);
    rows.InsertNew(2, nullptr);
    EXPECT_EQ(View.FocusCell(), At(2, 6));
    rows.Move(6, 1);
    EXPECT_EQ(View.FocusCell(), At(2, 1));
    EXPECT_EQ(Selected(), "2,1-2,1 ");
    rows.Drop(1);
    EXPECT_EQ(View.FocusCell(), At(2, 1)); // the neighbour's
    EXPECT_EQ(Selected(), "");
    Grid.Columns().Move(1, 2);
    EXPECT_EQ(View.FocusCell(), At(3, 1));
    rows.ClearKeepFixedItems();
    EXPECT_FALSE(View.FocusCell());
    EXPECT_FALSE(View.MoveFocus(TGridMove::Down, TGridChoice::Set));
    Paint();
}

TEST_F(GridView, BordersResizeAndADoubleClickFits)
{
    int sized = 0;
    int done = 0;
    View.OnColumnResized = [&](TObject *, TAxisContentItem *, int size) { sized = size; };
    View.OnAfterUserSize = [&](TObject *) { ++done; };
    Drag({69, 10}, {69, 10});
    EXPECT_EQ(done, 0);
    View.MouseMove({}, {71, 10});
    EXPECT_EQ(Cursor, TGridCursor::ColumnResize);
    Drag({69, 10}, {99, 10});
    EXPECT_EQ(Grid.Columns().At(0).Width(), 80);
    EXPECT_EQ(sized, 80);
    EXPECT_EQ(done, 1);
    Drag({101, 10}, {0, 10});
    EXPECT_EQ(Grid.Columns().At(0).Width(), 8);
    View.MouseDown(TMouseButton::mbLeft, {}, {28, 10});
    View.MouseMove({}, {90, 10});
    View.CancelGesture();
    EXPECT_EQ(Grid.Columns().At(0).Width(), 8);
    Drag({10, 59}, {10, 89}); // a row
    EXPECT_EQ(View.CellRect(At(1, 2)).Height(), 50);
    View.DblClick({10, 90});
    EXPECT_EQ(View.CellRect(At(1, 2)).Height(), 20);
    Grid.SetCellText(0, 3, "0123456789");
    View.DblClick({28, 10});
    EXPECT_EQ(Grid.Columns().At(0).Width(), 60 + 2 * TBabGridLayoutCore::kPadding + 1);
}

TEST_F(GridView, AHeaderIsDraggedToAnotherPlace)
{
    Drag(Middle(At(1, 0)), {198, 10});
    EXPECT_EQ(View.RootCell().CellText(*View.RootCell().Columns().getAxisContentItem(3),
                                       *View.RootCell().Rows().getAxisContentItem(0)),
              "A");
    Drag(Middle(At(3, 0)), {5, 10});
    EXPECT_EQ(View.RootCell().Columns().getAxisContentItem(1)->Value(), &Grid.Columns().At(0));
}

TEST_F(GridView, GridsInCellsLoadWhatIsShown)
{
    TBabGridCell &steps = AddSubGrids(1000);
    const int height = 20 + 1000 * 20;
    EXPECT_EQ(View.CellRect(At(4, 1)).Height(), height);
    EXPECT_EQ(View.CellRect({&steps, 0, 3}), (TRect{200, 20 + 60, 240, 20 + 80}));
    EXPECT_LE(steps.Rows().LoadedCount(), 12);
    View.ScrollTo(0, height + 5000);
    Paint();
    auto *second = dynamic_cast<TBabGridCell *>(View.RootCell().GetCell(4, 2));
    const TGridHit hit = View.HitTest({210, 100});
    EXPECT_EQ(hit.At.Grid, second);
    EXPECT_EQ(hit.At.Row, (5000 + 80) / 20);
    Click({210, 100});
    EXPECT_EQ(View.FocusCell(), hit.At);
    EXPECT_TRUE(View.MoveFocus(TGridMove::Leave, TGridChoice::Set));
    EXPECT_EQ(View.FocusCell(), At(4, 2));
    EXPECT_TRUE(View.MoveFocus(TGridMove::Enter, TGridChoice::Set));
    EXPECT_EQ(View.FocusCell(), (TGridCellAt{second, 0, 1}));
    EXPECT_TRUE(View.MoveFocus(TGridMove::Up, TGridChoice::Set)); // out of its top
    EXPECT_EQ(View.FocusCell(), At(4, 2));
    View.ChooseCell({second, 0, 1}, TGridChoice::Set);
    View.RootCell().Rows().Drop(2);
    EXPECT_FALSE(View.FocusCell());
    Paint();
}

TEST_F(GridView, VirtualRowsKeepTheSelectionAndStayFew)
{
    TAxisContentList &rows = View.RootCell().Rows();
    rows.ClearKeepFixedItems();
    View.RootCell().OnCanUnload = [](TBabGridCell *, TAxisContentItem *, bool, bool &can) {
        can = true;
    };
    rows.AddUnloaded(10'000'000);
    View.ChooseCell(At(1, 5), TGridChoice::Set);
    for (const std::int64_t y : {std::int64_t{0}, std::int64_t{100'000'000}, View.MaxScrollY()}) {
        View.ScrollTo(0, y);
        const auto texts = Paint().Texts();
        EXPECT_EQ(View.HitTest({30, 30}).At.Row, y / 20 + 1);
        EXPECT_EQ(std::count(texts.begin(), texts.end(), "b" + std::to_string(y / 20 + 2)), 1);
        EXPECT_LE(rows.LoadedCount(), 20);
        EXPECT_EQ(Selected(), "1,5-1,5 ");
    }
    for (int step = 0; step < 100; ++step) {
        View.ScrollRows(-7);
        Paint();
    }
    EXPECT_LE(rows.LoadedCount(), 520);
}

TEST_F(GridView, HandlersMayChangeTheGridThatIsPainted)
{
    int calls = 0;
    Grid.OnGetCellText = [&](TBabGridCell *grid, TAxisContentItem *, TAxisContentItem *,
                             std::string &text) {
        text = "x";
        if (++calls == 5) {
            grid->Rows().ClearKeepFixedItems();
        }
    };
    Paint();
    EXPECT_EQ(View.RootCell().Rows().Count(), 1);
    EXPECT_EQ(Paint().Texts(), (std::vector<std::string>{"A", "B", "C"}));
}

} // namespace
} // namespace korvane::test
