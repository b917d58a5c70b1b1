#include "support/FakeGridHost.h"

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace korvane::test {
namespace {

using TNode = TzuDataEntity_GridTreeNode;

/// a(a1 a2) b c(c1), all shown; rows 20 pixels high below the header.
struct TTreeGrid : TestGrid
{
    std::map<std::string, TNode *> Named;
    std::string Log;

    TTreeGrid()
    {
        Grid.OnGetCellText = nullptr;
        Grid.SetHasInfoCol(false);
        Grid.SetUseTree(true);
        AddColumn("Name", 100).SetTreeButton(true);
        AddColumn("Note", 60);
        View.SetMultiSelect(true);
        View.SetRowMoving(true);
        for (const auto &[parent, name] : std::vector<std::pair<std::string, std::string>>{
                 {"", "a"}, {"a", "a1"}, {"a", "a2"}, {"", "b"}, {"", "c"}, {"c", "c1"}}) {
            TNode *node = Grid.GetTree()->AddDataEntity(parent.empty() ? nullptr : Named[parent]);
            node->SetText(name);
            Named[name] = node;
        }
        Grid.GetTree()->FullExpand();
    }
    std::string Shown()
    {
        std::string texts;
        for (int row = 1; row < View.RootCell().Rows().Count(); ++row) {
            const TNode *node = Grid.GetTree()->GetDataEntityFromRow(row);
            texts +=
                node->GetVisible() ? node->GetText() + std::to_string(node->GetLevel()) + ' ' : "";
        }
        return texts;
    }
    TPoint InRow(const std::string &name, int y)
    {
        return {40, View.CellRect(At(0, Named[name]->Row()->ListIndex())).Top + y};
    }
};

struct GridTreeUser : testing::Test, TTreeGrid
{
};

TEST_F(GridTreeUser, SelectedRowsAreDraggedToOtherPlaces)
{
    struct TCase
    {
        std::vector<std::string> Selected;
        const char *Target;
        int Y;
        const char *Shown;
    };
    const std::vector<TCase> cases{
        {{"b"}, "c1", 2, "a0 a11 a21 c0 b1 c11 "},        // above it
        {{"b"}, "c", 18, "a0 a11 a21 c0 b1 c11 "},        // below an expanded one: as first child
        {{"b"}, "a", 10, "a0 a11 a21 b1 c0 c11 "},        // on it
        {{"a1", "c1"}, "b", 18, "a0 a21 b0 a10 c10 c0 "}, // two of different parents
        {{"a", "a1"}, "b", 18, "b0 a0 a11 a21 c0 c11 "},  // what is below a selected one stays
        {{"a"}, "a2", 10, "a0 a11 a21 b0 c0 c11 "},       // below itself: nothing
        {{"a"}, "a", 10, "a0 a11 a21 b0 c0 c11 "},        {{"c"}, "a", 2, "c0 c11 a0 a11 a21 b0 "},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        TTreeGrid test;
        for (const std::string &name : cases[i].Selected) {
            test.Click(test.InRow(name, 10), {.Ctrl = true});
        }
        test.Drag(test.InRow(cases[i].Selected.front(), 10),
                  test.InRow(cases[i].Target, cases[i].Y));
        EXPECT_EQ(test.Shown(), cases[i].Shown) << i;
        for (const std::string &name : cases[i].Selected) {
            EXPECT_TRUE(test.Named[name]->GetSelected()) << i << name; // goes with it
        }
    }
}

TEST_F(GridTreeUser, AMoveIsOneChangeThatTheApplicationMayRefuse)
{
    View.OnBeginUserChange = [this](TObject *, TGridUserChange) { Log += "("; };
    View.OnEndUserChange = [this](TObject *, TGridUserChange, bool) { Log += ")"; };
    Grid.GetTree()->OnBeforeMove = [this](TzuGridTree *, const TGridTreeMove &move, bool &allow,
                                          bool &) {
        Log += move.Nodes.front()->GetText();
        allow = move.NewParent != Named["c"];
    };
    Grid.GetTree()->OnMoved = [this](TzuGridTree *, const TGridTreeMove &) { Log += "!"; };
    Click(InRow("b", 10));
    Drag(InRow("b", 10), InRow("c", 10));
    EXPECT_EQ(Log, "(b)");
    Drag(InRow("b", 10), InRow("a", 10));
    EXPECT_EQ(Log, "(b)(b!)");
    EXPECT_EQ(Shown(), "a0 a11 a21 b1 c0 c11 ");
    Click(InRow("b", 10));                 // released where it was pressed
    Drag(InRow("a1", 10), InRow("c", 10)); // not selected before: selects
    EXPECT_EQ(Log, "(b)(b!)");
    EXPECT_TRUE(Named["a2"]->GetSelected());
    View.MouseDown(TMouseButton::mbLeft, {}, InRow("a2", 10));
    View.MouseMove({}, InRow("c", 10));
    View.CancelGesture();
    View.MouseUp(TMouseButton::mbLeft, {}, InRow("c", 10));
    EXPECT_EQ(Shown(), "a0 a11 a21 b1 c0 c11 ");
}

TEST_F(GridTreeUser, NodesAndRowsAreSelectedTogether)
{
    Grid.GetTree()->OnSelectionChanged = [this](TzuGridTree *, TNode *node) {
        Log += (node->GetSelected() ? "+" : "-") + node->GetText();
    };
    const auto logged = [this] { return std::exchange(Log, {}); };
    View.ChooseCell(At(1, 2), TGridChoice::Set);
    EXPECT_EQ(logged(), "+a1");
    View.ChooseCell(At(1, 4), TGridChoice::Extend);
    EXPECT_EQ(logged(), "+a2+b"); // only what is new
    View.ChooseCell(At(0, 3), TGridChoice::Extend);
    EXPECT_EQ(logged(), "-b");
    Named["c"]->SetSelected(true);
    EXPECT_EQ(logged(), "+c");
    EXPECT_TRUE(View.IsSelected(At(1, 5)));
    Named["a2"]->SetSelected(false);
    EXPECT_EQ(logged(), "-a2");
    EXPECT_FALSE(View.IsSelected(At(1, 3)));
    Named["b"]->Move(0); // what stands elsewhere is what it was
    Grid.GetTree()->RemoveDataEntity(Named["a1"]);
    EXPECT_EQ(logged(), "");
    View.ClearSelection();
    EXPECT_EQ(logged(), "-c");
    View.SetMultiSelect(false);
    Named["a2"]->SetSelected(true);
    Named["b"]->SetSelected(true);
    EXPECT_EQ(logged(), "+a2-a2+b");

    // A handler that changes the rows while nodes are being told.
    Grid.GetTree()->OnSelectionChanged = [this](TzuGridTree *tree, TNode *node) {
        if (node->GetSelected()) {
            tree->RemoveDataEntity(node);
        }
    };
    View.SetMultiSelect(true);
    View.SelectAll();
    EXPECT_EQ(View.RootCell().Rows().Count(), 1);
}

TEST_F(GridTreeUser, AFoundNodeIsShown)
{
    Grid.GetTree()->FullCollapse();
    View.BeginFind("c1", TGridFindFrom::Here);
    EXPECT_EQ(View.FindOn(100), TGridFindState::Found);
    EXPECT_EQ(Shown(), "a0 b0 c0 c11 ");
    Named["a1"]->Set_HideNode(true);
    View.BeginFind("a1", TGridFindFrom::Next);
    EXPECT_EQ(View.FindOn(100), TGridFindState::NotFound);
    View.ChooseCell(At(0, 1), TGridChoice::Set);
    EXPECT_TRUE(View.ExpandNodeBelow(At(1, 1)));
    EXPECT_EQ(Shown(), "a0 a21 b0 c0 c11 ");
}

TEST_F(GridTreeUser, LinesJoinNodesWithTheirParents)
{
    const auto lines = [this](const std::string &name) {
        const TRect cell = View.CellRect(At(0, Named[name]->Row()->ListIndex()));
        std::string found;
        for (const TCanvasCall &call : Paint().Calls()) {
            if (call.Op == TCanvasOp::Polyline && call.Points.front().X < 40
                && call.Points.front().Y >= cell.Top && call.Points.front().Y < cell.Bottom - 1) {
                const bool across = call.Points[0].Y == call.Points[1].Y;
                found += across ? "-" : call.Points[1].Y == cell.Bottom - 1 ? "|" : "'";
            }
        }
        return found;
    };
    EXPECT_EQ(lines("a"), "|");   // below its button
    EXPECT_EQ(lines("a1"), "|-"); // past it to a2
    EXPECT_EQ(lines("a2"), "'-");
    EXPECT_EQ(lines("b"), "");
    Named["a2"]->Set_HideNode(true);
    EXPECT_EQ(lines("a1"), "'-");
    View.SetTreeLines(false);
    EXPECT_EQ(lines("a1"), "");
}

} // namespace
} // namespace korvane::test
