#include "support/FakeGridHost.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace korvane::test {
namespace {

struct GridRender : testing::Test, TestGrid
{
    GridRender()
    {
        Grid.SetHasInfoCol(false);
        AddColumn("A", 50);
        AddColumn("B", 60);
        Grid.AddRows(2);
    }
    std::string Texts()
    {
        std::string texts;
        for (const TCanvasCall &call : Paint().CallsOf(TCanvasOp::Text)) {
            texts += call.Text + " ";
        }
        return texts;
    }
};

TEST_F(GridRender, HandlersChangeHowCellsLook)
{
    std::vector<TObject *> grids;
    View.ChooseCell(At(1, 2), TGridChoice::Set);
    View.OnBeforeRenderCell = [&](TObject *grid, TCellRender &cell) {
        grids.push_back(grid);
        EXPECT_EQ(cell.Focused, cell.Selected);
        if (cell.Selected) {
            cell.Text = "chosen";
        } else if (cell.Column->ListIndex() == 0) {
            cell.BackColor = clRed;
            cell.FrontColor = clWhite;
        }
    };
    EXPECT_EQ(Texts(), "a1 a2 b1 chosen A B ");
    EXPECT_EQ(grids.size(), 4U);
    EXPECT_EQ(grids[0], static_cast<TObject *>(&View));
    const auto fills = Painted.CallsOf(TCanvasOp::FillRect);
    EXPECT_EQ(std::count_if(fills.begin(), fills.end(),
                            [](const TCanvasCall &call) { return call.Brush.Color == clRed; }),
              2);
    const auto texts = Painted.CallsOf(TCanvasOp::Text);
    EXPECT_EQ(texts[0].Font.Color, clWhite);
}

TEST_F(GridRender, HandlersDrawCellsThemselves)
{
    View.OnUserRenderCell = [](TObject *, TCanvas &canvas, const TCellRender &cell, bool &handled) {
        EXPECT_EQ(canvas.ClipRect().Right, cell.Rect.Right - 1);
        handled = cell.Row->ListIndex() == 1;
        if (handled) {
            canvas.TextOut({cell.Rect.Left, cell.Rect.Top}, "own");
        }
    };
    EXPECT_EQ(Texts(), "own a2 own b2 A B ");
    EXPECT_EQ(Painted.ClipDepth(), 0U);
    // A handler that changes the grid ends the paint.
    View.OnUserRenderCell = [this](TObject *, TCanvas &, const TCellRender &, bool &) {
        View.RootCell().Rows().ClearKeepFixedItems();
    };
    EXPECT_EQ(Texts(), "");
    EXPECT_TRUE(View.IsLayoutOutOfDate());
}

} // namespace
} // namespace korvane::test
