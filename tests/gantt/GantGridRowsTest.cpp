// Rows of grid nodes: what creates and finds them, where they lie, and who their neighbours are.
#include "gantt/zuGantDescribe.h"
#include "support/TestGridChart.h"

#include <gmock/gmock.h>

using namespace korvane;
using namespace korvane::test;
using testing::ElementsAre;

namespace {

using TNode = TzuDataEntity_GridTreeNode;

constexpr TRect kScrolledAway{-1, -1, -1, -1};

/// a(a1 a2) b0 .. b19
struct GantGridRows : testing::Test, TestGridChart
{
    TGantRowList &Rows = Gant->GantRows();
    TNode *A = AddGridNode("a");
    TNode *A1 = AddGridNode("a1", A);
    TNode *A2 = AddGridNode("a2", A);
    std::vector<TNode *> B;

    GantGridRows()
    {
        for (int i = 0; i < 20; ++i) {
            B.push_back(AddGridNode("b" + std::to_string(i)));
        }
        Gant->UpdateRects();
    }
    std::optional<TPixelSpan> SpanOf(TNode *node) { return Host->Lines().SpanOf(RowOf(node)); }
    /// The captions met on the way from a row, or from outside.
    std::string Walk(TGantRow *row, TGantStep step, int most)
    {
        std::string captions;
        for (int i = 0; i < most && (row = Host->Lines().Neighbour(row, step)) != nullptr; ++i) {
            captions += CaptionOf(*row) + ' ';
        }
        return captions;
    }
};

TEST_F(GantGridRows, ComeAndGoWithTheirNodesAndAreFoundByThem)
{
    EXPECT_EQ(Rows.Count(), 23);
    TGantRow &row = RowOf(A1);
    EXPECT_EQ(row.GridNode(), A1);
    EXPECT_EQ(row.TreeNode(), nullptr);
    EXPECT_EQ(Rows.FindRowFromUntypedNode(A1), &row);

    // A node's second row is found once the first one, which the node keeps, is gone.
    TGantRow *second = Rows.AddRow(nullptr, A1);
    EXPECT_EQ(Rows.FindRowFromGridNode(A1), &row);
    Rows.RemoveRow(nullptr, A1);
    EXPECT_EQ(Rows.FindRowFromGridNode(A1), second);
    Rows.RemoveRow(nullptr, A1);
    EXPECT_EQ(Rows.FindRowFromGridNode(A1), nullptr);
    EXPECT_EQ(Gant->GridNode_AddSpanbar(A1, 0), nullptr);

    TzuDataEntity_Spanbar *item = Gant->GridNode_AddSpanbar(A2, 1);
    EXPECT_EQ(item->GetRow(), &RowOf(A2));
    Nodes().RemoveDataEntity(A);
    EXPECT_EQ(Rows.Count(), 20);
}

TEST_F(GantGridRows, AreMadeByTheApplicationAndFoundByUserReferenceLikeThoseOfATree)
{
    std::vector<std::pair<TzuDataEntity_Tree *, TNode *>> asked;
    Gant->OnUserCreateGantRow = [&](TGantRowList *rows, TzuDataEntity_Tree *node, TNode *gridNode,
                                    TGantRow *&row) {
        asked.emplace_back(node, gridNode);
        row = new TGantRow(*rows, node, gridNode);
    };
    TNode *node = AddGridNode("own");
    TzuDataEntity_Tree *treeNode = AddNode();
    EXPECT_THAT(asked, ElementsAre(std::pair(nullptr, node), std::pair(treeNode, nullptr)));

    int tag = 0;
    B[3]->SetUserReference(&tag);
    treeNode->SetUserReference(&tag);
    EXPECT_EQ(Rows.FindRowFromTreeNodeDataEntityUserReference(&tag),
              Rows.FindRowFromTreeNode(treeNode))
        << "the last one, of either kind";
    Rows.RemoveRow(treeNode);
    EXPECT_EQ(Rows.FindRowFromTreeNodeDataEntityUserReference(&tag), &RowOf(B[3]));
}

TEST_F(GantGridRows, LieWhereTheRowsOfTheGridDoWhateverTheirHeight)
{
    EXPECT_EQ(RowOf(A).GetRect(), (TRect{0, 0, 480, 20}));
    EXPECT_EQ(RowOf(B[0]).GetRect(), (TRect{0, 20, 480, 40}));
    EXPECT_EQ(RowOf(A1).GetRect(), kScrolledAway);
    EXPECT_FALSE(RowOf(A1).GetVisible());
    EXPECT_FALSE(SpanOf(A1));

    A->SetExpanded(true);
    A1->Row()->SetUserSizeActive(true);
    A1->Row()->SetUserSize(51);
    Gant->UpdateRects();
    EXPECT_EQ(RowOf(A1).GetRect(), (TRect{0, 20, 480, 71}));
    EXPECT_EQ(RowOf(A2).GetRect(), (TRect{0, 71, 480, 91}));
    EXPECT_EQ(Gant->CurrentRowHeight(), 18) << "of tree rows alone";
    EXPECT_EQ(Rows.FindRowFromY(70), &RowOf(A1));
    EXPECT_EQ(Rows.FindRowFromY(71), nullptr) << "on the line";

    Table.View.ScrollTo(0, 33);
    Gant->UpdateRects();
    EXPECT_EQ(RowOf(A).GetRect(), kScrolledAway);
    EXPECT_TRUE(RowOf(A).GetVisible()) << "scrolled away is still visible";
    EXPECT_EQ(RowOf(A1).GetRect(), (TRect{0, -13, 480, 38}));
    EXPECT_EQ(SpanOf(A)->From, -33);
    EXPECT_EQ(Host->Lines().RowAtHeight(-14), &RowOf(A));
    EXPECT_EQ(Host->Lines().RowAtHeight(-34), nullptr) << "the header";
    EXPECT_EQ(Host->Lines().RowAtHeight(37), &RowOf(A1));
    EXPECT_EQ(Host->Lines().RowAtHeight(100'000), nullptr);
    EXPECT_EQ(Host->Lines().ScrolledPixels(), 33);
}

TEST_F(GantGridRows, OfTheOtherKindAreNotShown)
{
    TGantRow *treeRow = AddRow();
    Gant->UpdateRects();
    EXPECT_FALSE(Gant->RowTypeCheckOK(*treeRow));
    EXPECT_EQ(treeRow->GetRect(), kScrolledAway);
    Gant->SetUseGridNotTree(false);
    EXPECT_TRUE(Gant->RowTypeCheckOK(*treeRow));
    Gant->UpdateRects(); // the lines are still the grid's
    EXPECT_TRUE(Rows.RowsOnScreen().empty());
}

TEST_F(GantGridRows, OfATreeMayHaveANodeOfTheGridAsWell)
{
    TGantRow *row = AddRow();
    Gant->OnUserCreateGantRow = [](auto *, auto *, TNode *, TGantRow *&made) { made = nullptr; };
    TNode *node = AddGridNode("both", A);
    Rows.BindGridNode(*row, *node);
    EXPECT_EQ(Rows.FindRowFromGridNode(node), row);
    EXPECT_FALSE(row->GetVisible()) << "under a collapsed node of the grid";
    Gant->SetUseGridNotTree(false);
    Tree.EnsureDisplayUpToDate();
    EXPECT_TRUE(row->GetVisible());
    Gant->SetUseGridNotTree(true);
    A->SetExpanded(true);
    Gant->UpdateRects();
    EXPECT_EQ(row->GetRect(), (TRect{0, 60, 480, 80}));
    Nodes().RemoveDataEntity(node);
    EXPECT_EQ(row->GridNode(), nullptr);
    EXPECT_EQ(Rows.IndexOf(row), 23) << "still the tree's";
}

TEST_F(GantGridRows, KnowTheirNeighboursAndLines)
{
    EXPECT_EQ(Walk(nullptr, TGantStep::Forward, 2), "a b0 ");
    EXPECT_EQ(Walk(nullptr, TGantStep::Back, 2), "b19 b18 ");
    A->SetExpanded(true);
    EXPECT_EQ(Walk(&RowOf(A), TGantStep::Forward, 3), "a1 a2 b0 ");
    EXPECT_EQ(Walk(&RowOf(B[0]), TGantStep::Back, 5), "a2 a1 a ");
    Rows.RemoveRow(nullptr, A2);
    EXPECT_EQ(Walk(&RowOf(B[0]), TGantStep::Back, 1), "a1 ") << "a line without row is left out";
    EXPECT_EQ(Host->Lines().LineOf(RowOf(A1)), 1);
    EXPECT_EQ(Host->Lines().RowOfLine(1), &RowOf(A1));
    EXPECT_EQ(Host->Lines().CountShown(), 23);
    A->SetExpanded(false);
    EXPECT_EQ(Host->Lines().CountShown(), 21);
    EXPECT_EQ(Host->Lines().LineOf(RowOf(A1)), -1);
    EXPECT_EQ(Walk(&RowOf(A1), TGantStep::Forward, 1), "");

    Host->Lines().BringIntoView(RowOf(A1));
    EXPECT_TRUE(A->GetExpanded());
    Host->Lines().BringIntoView(RowOf(B[19]));
    Gant->UpdateRects();
    EXPECT_EQ(RowOf(B[19]).GetRect().Bottom, 180);
    Table.View.ChooseCell(Table.At(1, 2), TGridChoice::Set);
    EXPECT_EQ(Host->Lines().CurrentRow(), &RowOf(A1));
}

TEST_F(GantGridRows, ItemsAreMovedToRowsOfAnotherHeightAndSelectedAcrossThem)
{
    B[0]->Row()->SetUserSizeActive(true);
    B[0]->Row()->SetUserSize(60);
    Gant->UpdateRects();
    TzuDataEntity_Spanbar *item = AddItem(&RowOf(A), 100, 200);
    TzuDataEntity_Spanbar *far = AddItem(&RowOf(B[15]), 100, 120);
    TGantRow *target = nullptr;
    Gant->OnTimeChangeRow = [&](auto *, auto *, auto *, TGantRow *newRow, TDateTime, TDateTime) {
        target = newRow;
    };
    Gant->GantAreaMouseDown(TMouseButton::mbLeft, {}, 150, 10);
    Gant->GantAreaMouseMove({}, 150, 60);
    Gant->GantAreaMouseUp(TMouseButton::mbLeft, {}, 150, 60);
    EXPECT_EQ(target, &RowOf(B[0])) << "50 pixels lower is still the high row";

    Gant->SelectInRect({90, 0, 210, 2000}, TSelectHow::Replace);
    EXPECT_TRUE(item->GetSelected());
    EXPECT_TRUE(far->GetSelected()) << "below the area";
    Gant->SelectInRect({90, 0, 210, 15}, TSelectHow::Replace);
    EXPECT_FALSE(far->GetSelected());
}

TEST_F(GantGridRows, OfAPrintedGridAreNotEnlargedOnceMore)
{
    TzuDataEntity_Spanbar *item = AddItem(&RowOf(A), 100, 200);
    Host->PrintScale = {2, 3};
    EXPECT_EQ(RowOf(A).RectFromDataEntity(*item), (TRect{200, 1, 400, 19}));
}

} // namespace
