// The chart control with a grid in place of its row tree.
#include "foundation/qt/zuImageList.h"
#include "gantt/qt/zuGant.h"
#include "grid/qt/zuGrid.h"

#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include <gmock/gmock.h>
#include <memory>
#include <string>
#include <vector>

using namespace korvane;

namespace {

using TNode = TzuDataEntity_GridTreeNode;

void Settle()
{
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::processEvents();
    }
}

/// 40 nodes with two children each; the chart is 700 by 300.
struct GantGrid : testing::Test
{
    std::unique_ptr<TzuGant> Chart = std::make_unique<TzuGant>();
    std::vector<TNode *> Nodes;

    GantGrid()
    {
        Chart->resize(700, 300);
        Chart->SetTreeWidth(250);
        Chart->SetUseGridNotTree(true);
        Chart->Grid().Columns().At(0).SetHeaderText("Name");
        Chart->Grid().Columns().At(0).SetSortEnable(true);
        Chart->Grid().SetUserSortEnable(true);
        for (int i = 0; i < 40; ++i) {
            Nodes.push_back(Add("row " + std::to_string(i)));
            Add("first", Nodes.back());
            Add("second", Nodes.back());
        }
        Chart->show();
        Settle();
    }
    TNode *Add(const std::string &text, TNode *parent = nullptr)
    {
        TNode *node = Chart->Grid().GetTree()->AddDataEntity(parent);
        node->SetText(text);
        return node;
    }
    int Top(QWidget &part) const { return part.mapTo(Chart.get(), QPoint()).y(); }
    /// How many rows are drawn; nothing unless each is exactly beside its row in the grid.
    std::optional<int> LevelRows()
    {
        Settle();
        int rows = 0;
        for (TGantRow *row : Chart->GantRows().RowsOnScreen()) {
            const TRect inGrid = Chart->Grid().GetRect(*row->GridNode());
            const TRect rect = row->GetRect();
            if (inGrid.Top + Top(Chart->Grid()) != rect.Top + Top(Chart->GantArea())
                || inGrid.Height() != rect.Height()) {
                ADD_FAILURE() << row->GridNode()->GetText() << ' ' << inGrid.Top << ' ' << rect.Top;
                return std::nullopt;
            }
            ++rows;
        }
        return rows;
    }
};

TEST(GantWithoutGrid, MakesNoneUntilItIsAskedFor)
{
    TzuGant chart;
    chart.AddRootDataEntityTree("row");
    chart.SetUseGridNotTree(false);
    EXPECT_FALSE(chart.HasGrid());
    const TzuImageList images;
    const TzuImageList others;
    chart.SetImageList(&others);
    EXPECT_TRUE(chart.Grid().UseTree());
    EXPECT_EQ(chart.Grid().ImageList(), &others);
    chart.SetImageList(&images);
    EXPECT_EQ(chart.Grid().ImageList(), &images);
    chart.Grid().SetImageList(&others); // its own
    chart.SetImageList(nullptr);
    EXPECT_EQ(chart.Grid().ImageList(), &others);
    chart.Grid().SetImageList(nullptr);
    EXPECT_TRUE(chart.Grid().MultiSelect());
    EXPECT_TRUE(chart.Grid().isHidden());
    EXPECT_FALSE(chart.Tree().isHidden());
}

TEST_F(GantGrid, RowsStayLevelWithThoseOfTheGridWhateverMovesThem)
{
    EXPECT_EQ(Top(Chart->GantArea()), Chart->GetScalerHeight());
    EXPECT_GT(LevelRows(), 5);
    const TRect first = Chart->GantRows().RowsOnScreen().front()->GetRect();
    EXPECT_EQ(first.Top, 0) << "the header ends with the axis";

    Nodes[1]->SetExpanded(true);
    EXPECT_GT(LevelRows(), 5);
    Nodes[0]->Row()->SetUserSizeActive(true);
    Nodes[0]->Row()->SetUserSize(47);
    EXPECT_GT(LevelRows(), 5);
    Chart->Grid().VertScrollBar().setValue(133);
    EXPECT_GT(LevelRows(), 5);
    EXPECT_EQ(Chart->Grid().ScrollY(), 133);
    Chart->Grid().SortByUser(Chart->Grid().Columns().At(0), false);
    Chart->Grid().SortByUser(Chart->Grid().Columns().At(0), false);
    EXPECT_GT(LevelRows(), 5);
    Chart->Grid().VertScrollBar().setValue(0);
    EXPECT_GT(LevelRows(), 5);
    EXPECT_EQ(Chart->GantRows().RowsOnScreen().front()->GridNode(), Nodes[9]) << "by text, turned";
    Chart->SetScalerHeight(70);
    EXPECT_GT(LevelRows(), 5);
    Chart->SetTabSheetsONOFF(true);
    EXPECT_GT(LevelRows(), 4);
    Chart->Grid().SetHasHeaders(false);
    EXPECT_GT(LevelRows(), 4);
    EXPECT_EQ(Chart->GantRows().RowsOnScreen().front()->GetRect().Top, 0);
    Chart->Grid().GetTree()->RemoveDataEntity(Nodes[9]);
    EXPECT_GT(LevelRows(), 4);
}

TEST_F(GantGrid, TheAreaEndsWhereTheRowsOfTheGridDo)
{
    const int height = Chart->GantArea().height();
    Chart->Grid().Columns().At(0).SetWidth(600);
    Settle();
    const int bar = Chart->Grid().HorzScrollBar().height();
    EXPECT_EQ(Chart->GantArea().height(), height - bar);
    Chart->SetUseGridNotTree(false);
    Settle();
    EXPECT_EQ(Chart->GantArea().height(), height);
}

TEST_F(GantGrid, TheTreeComesBackWithItsRows)
{
    TzuDataEntity_Tree *node = Chart->AddRootDataEntityTree("in the tree");
    for (int i = 0; i < 60; ++i) {
        Chart->AddRootDataEntityTree("more");
    }
    Settle();
    EXPECT_TRUE(Chart->Tree().isHidden());
    EXPECT_TRUE(Chart->VertScrollBar().parentWidget()->isHidden()) << "the grid has its own";
    EXPECT_EQ(Chart->CountVisibleTreeViewItems(), 40);
    Chart->MakeSureAllVisibleInTree();
    EXPECT_EQ(Chart->CountVisibleTreeViewItems(), 120);

    Chart->SetUseGridNotTree(false);
    Settle();
    EXPECT_TRUE(Chart->Grid().isHidden());
    EXPECT_FALSE(Chart->Tree().isHidden());
    EXPECT_FALSE(Chart->VertScrollBar().parentWidget()->isHidden());
    EXPECT_EQ(Chart->CountVisibleTreeViewItems(), 61);
    EXPECT_EQ(Chart->GantRows().RowsOnScreen().front()->TreeNode(), node);
}

TEST_F(GantGrid, TellsOfRowsScrollingAndTheCurrentRow)
{
    std::vector<std::string> heard;
    QObject::connect(Chart.get(), &TzuGant::rowAdded, Chart.get(),
                     [&](TGantRow *) { heard.emplace_back("added"); });
    QObject::connect(Chart.get(), &TzuGant::rowRemoved, Chart.get(), [&](TGantRow *row) {
        heard.push_back("removed " + row->GridNode()->GetText());
    });
    QObject::connect(Chart.get(), &TzuGant::activeRowChanged, Chart.get(), [&](TGantRow *row) {
        heard.push_back("row " + (row != nullptr ? row->GridNode()->GetText() : ""));
    });
    int scrolled = 0;
    Chart->OnGridTopLeftChanged = [&](TzuGant_ComBasic *) { ++scrolled; };
    TNode *added = Add("new");
    Chart->Grid().SetCurrentDataEntity(added);
    Chart->Grid().SetCurrentDataEntity(added);
    Settle();
    EXPECT_EQ(Chart->GetActiveGantRow()->GridNode(), added);
    Chart->Grid().GetTree()->RemoveDataEntity(added);
    Settle();
    EXPECT_THAT(heard, testing::ElementsAre("added", "row new", "removed new",
                                            testing::StartsWith("row ")));
    EXPECT_GT(scrolled, 0);

    Settle();
    Chart->Grid().VertScrollBar().setValue(0);
    QWheelEvent wheel(QPointF(50, 50), Chart->GantArea().mapToGlobal(QPointF(50, 50)), {},
                      QPoint(0, -240), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&Chart->GantArea(), &wheel);
    EXPECT_GT(Chart->Grid().ScrollY(), 0);
    EXPECT_GT(LevelRows(), 5);
}

TEST_F(GantGrid, DiesWithItemsOnItsRowsAndWhileItTells)
{
    Chart->GridNode_AddSpanbar(Nodes[0], 0);
    QObject::connect(Chart.get(), &TzuGant::activeRowChanged, [this] { Chart.reset(); });
    TzuGrid *grid = &Chart->Grid();
    QTest::mouseClick(grid, Qt::LeftButton, {}, QPoint(60, 50));
    Settle();
    EXPECT_EQ(Chart, nullptr);
}

} // namespace
