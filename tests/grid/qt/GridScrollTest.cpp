#include "grid/qt/zuGrid.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QScrollBar>

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace korvane::test {
namespace {

/// Keeps what the window shows, and counts the cells that were painted.
class TWatchedGrid : public TzuGrid
{
public:
    QImage Window;
    int Cells = 0;

    void Settle()
    {
        for (int i = 0; i < 3; ++i) {
            QCoreApplication::processEvents();
        }
    }

protected:
    void SmashPaint() override
    {
        TzuGrid::SmashPaint();
        if (const auto *shown = dynamic_cast<QImage *>(GetDirectCanvas().Painter()->device())) {
            Window = shown->copy(0, 0, width() - ReservedRight(), height() - ReservedBottom());
        }
    }
};

/// Wide and long, with all that does not simply move along: a tree, groups, wrapped texts, grids in
/// cells, frames, a focus.
struct GridScroll : testing::Test
{
    TWatchedGrid Grid;

    GridScroll()
    {
        Grid.resize(420, 330);
        TzuGrid_SubGrid &lines = Grid.SubGrids().Add();
        lines.SetName("Lines");
        lines.SetHasInfoCol(true);
        lines.Columns().Add().SetHeaderText("Article");
        lines.Columns().Add().SetHeaderText("Pieces");
        TzuCellLayout &wrapped = Grid.CellLayouts().Add();
        wrapped.SetName("wrapped");
        wrapped.SetWrapTextAndFit(true);
        wrapped.SetFrameOptionsUse(true);
        wrapped.SetFrameOptions(kAllFrames);
        wrapped.SetFrameKind(TFrameKind::fkDotted);
        for (int i = 0; i < 8; ++i) {
            TzuGrid_Column &column = Grid.Columns().Add();
            column.SetHeaderText("Column " + std::to_string(i));
            column.SetWidth(70 + 5 * i);
        }
        Grid.Columns().At(1).SetGroupcells(true);
        Grid.Columns().At(2).SetLayoutName("wrapped");
        Grid.Columns().At(4).SetSubGridName("Lines");
        Grid.OnGetCellText = [this](TBabGridCell *grid, TAxisContentItem *column,
                                    TAxisContentItem *row, std::string &text) {
            const int r = grid->Rows().IndexOf(*row);
            const int c = grid->Columns().IndexOf(*column);
            ++Grid.Cells;
            text = grid == &Grid.RootCell() && c == 2 ? "group " + std::to_string(r / 9)
                   : c == 3 && r % 5 == 2             ? "some words that need several lines"
                                                      : std::to_string(r) + ":" + std::to_string(c);
        };
        Grid.OnInitSubGrid = [](TObject *, TBabSubGridCell *cell, TAxisContentItem *,
                                TAxisContentItem *row) {
            cell->Rows().AddUnloaded(row->ListIndex() % 3 + 1);
        };
        Grid.AddRows(300);
        Grid.show();
        Grid.Settle();
    }
    /// What is shown after scrolling is what a whole paint shows.
    void ScrollAtRandom(int steps)
    {
        std::mt19937 random(3);
        const auto far = [&](int most) { return static_cast<int>(random() % (2U * most)) - most; };
        for (int step = 0; step < steps; ++step) {
            const bool sideways = random() % 4 == 0;
            Grid.ScrollTo(Grid.ScrollX() + (sideways ? far(90) : 0),
                          Grid.ScrollY() + (sideways ? 0 : far(random() % 8 == 0 ? 400 : 90)));
            if (step % 16 == 0) {
                Grid.ChooseCell(Grid.GetTopLeftCell(), TGridChoice::Set);
            }
            Grid.Settle();
            const QImage scrolled = Grid.Window;
            Grid.Invalidate();
            Grid.Settle();
            ASSERT_EQ(scrolled, Grid.Window) << step;
        }
    }
};

TEST_F(GridScroll, ScrolledPicturesAreThoseOfWholePaints)
{
    ScrollAtRandom(120);
    Grid.Columns().At(4).SetKind(TColumnKind::tckSubGrid);
    Grid.Columns().At(1).SetGroupcells(false);
    ScrollAtRandom(60);
    Grid.SubGrids().At(0).Columns().At(0).SetGroupcells(true);
    ScrollAtRandom(30);
    Grid.SetUseTree(true);
    Grid.Columns().At(0).SetTreeButton(true);
    for (int i = 0; i < 100; ++i) {
        TzuDataEntity_GridTreeNode *node = Grid.GetTree()->AddDataEntity();
        Grid.GetTree()->AddDataEntity(node);
        node->SetExpanded(i % 3 == 0);
    }
    ScrollAtRandom(60);
}

TEST_F(GridScroll, AStepPaintsWhatCameIntoView)
{
    Grid.Columns().At(1).SetGroupcells(false);
    Grid.Columns().At(2).SetLayoutName("");
    Grid.Settle();
    Grid.Cells = 0;
    Grid.Invalidate();
    Grid.Settle();
    const int whole = Grid.Cells;
    Grid.Cells = 0;
    Grid.VertScrollBar().setValue(20);
    Grid.Settle();
    EXPECT_LT(Grid.Cells, whole / 4);
    // Whatever else changes at the same time is seen.
    for (int i = 0; i < 4; ++i) {
        Grid.VertScrollBar().setValue(40 + 20 * i);
        if (i == 0) {
            Grid.Columns().At(0).SetHeaderText("Other");
        } else if (i == 1) {
            Grid.update(); // as after a change of what OnGetCellText answers
        } else if (i == 2) {
            Grid.RootCell().GetCell(1, 8)->SetText("other");
        } else {
            Grid.RootCell().Rows().InsertNew(5, nullptr);
        }
        Grid.Cells = 0;
        Grid.Settle();
        EXPECT_GE(Grid.Cells, whole - 2) << i;
    }
}

} // namespace
} // namespace korvane::test
