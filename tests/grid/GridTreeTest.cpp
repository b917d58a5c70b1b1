#include "foundation/zuDoLater.h"
#include "support/FakeGridHost.h"

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvane::test {
namespace {

using TNode = TzuDataEntity_GridTreeNode;

/// A tree column of 100 pixels and a plain one of 60.
struct GridTree : testing::Test, TestGrid
{
    std::map<std::string, TNode *> Named;

    GridTree()
    {
        Grid.OnGetCellText = nullptr;
        Grid.SetHasInfoCol(false);
        Grid.SetUseTree(true);
        AddColumn("Name", 100).SetTreeButton(true);
        AddColumn("Note", 60);
        View.SetMultiSelect(true);
    }
    TzuGridTree &Tree() { return *Grid.GetTree(); }
    TNode &Add(const std::string &text, TNode *parent = nullptr)
    {
        TNode &node = *Tree().AddDataEntity(parent);
        node.SetText(text);
        return *(Named[text] = &node);
    }
    /// a(a1(a11 a12) a2) b c(c1)
    void Fill()
    {
        TNode &a = Add("a");
        Add("b");
        TNode &c = Add("c");
        TNode &a1 = Add("a1", &a);
        Add("a2", &a);
        Add("a11", &a1);
        Add("a12", &a1);
        Add("c1", &c);
    }
    TzuDataList_GridTree &ListOf(TNode *parent)
    {
        TzuDataList_GridTree *list = parent != nullptr ? parent->ChildList() : Tree().DataList();
        return list != nullptr ? *list : throw std::logic_error("no list");
    }
    std::string Texts(bool hiddenToo)
    {
        std::string texts;
        for (int row = 1; row < View.RootCell().Rows().Count(); ++row) {
            const TNode *node = Tree().GetDataEntityFromRow(row);
            if (hiddenToo || node->GetVisible()) {
                texts += node->GetText() + " ";
            }
        }
        return texts;
    }
    std::string Shown() { return Texts(false); }
    std::string All() { return Texts(true); }
};

TEST_F(GridTree, RowsStandInPreOrderWhateverComesAndGoes)
{
    Fill();
    EXPECT_EQ(All(), "a a1 a11 a12 a2 b c c1 ");
    EXPECT_EQ(Shown(), "a b c ");
    Tree().InsertDataEntity(ListOf(Named["a"]), 1)->SetText("ax");
    Tree().RemoveDataEntity(Named["a1"]);
    EXPECT_EQ(All(), "a ax a2 b c c1 ");
    Named["b"]->Move(0);
    EXPECT_EQ(All(), "b a ax a2 c c1 ");
    Named["a"]->Move(2);
    EXPECT_EQ(All(), "b c c1 a ax a2 ");
    Named["a"]->ChangeOwner(Named["c"]->ChildList(), 0);
    EXPECT_EQ(All(), "b c a ax a2 c1 ");
    Named["c"]->ChangeOwner(Named["a"]->ChildList(), 0); // below itself
    EXPECT_EQ(All(), "b c a ax a2 c1 ");
    Named["c1"]->ChangeOwner(Tree().DataList(), 0);
    EXPECT_EQ(Shown(), "c1 b c ");
    Tree().Clear();
    EXPECT_EQ(View.RootCell().Rows().Count(), 1);
}

TEST_F(GridTree, WhatIsBelowExpandedNodesIsShown)
{
    Fill();
    struct TStep
    {
        std::function<void()> Do;
        std::string Shown;
    };
    const auto expand = [this](const char *name, bool value = true) {
        return [this, name, value] { Named[name]->SetExpanded(value); };
    };
    const std::vector<TStep> steps{
        {expand("a1"), "a b c "},
        {expand("a"), "a a1 a11 a12 a2 b c "},
        {expand("a1", false), "a a1 a2 b c "},
        {expand("a", false), "a b c "},
        {[this] { Tree().FullExpand(); }, "a a1 a11 a12 a2 b c c1 "},
        {[this] { Named["a1"]->Set_HideNode(true); }, "a a2 b c c1 "},
        {expand("a", false), "a b c c1 "},
        {[this] { Named["a1"]->Set_HideNode(false); }, "a b c c1 "},
        {[this] { Tree().FullCollapse(); }, "a b c "},
        {[this] { Tree().ExpandAncestors(*Named["a12"]); }, "a a1 a11 a12 a2 b c "},
        {[this] { Tree().FullCollapse(), Tree().ExpandLevels(1); }, "a a1 a2 b c c1 "},
    };
    for (std::size_t i = 0; i < steps.size(); ++i) {
        steps[i].Do();
        EXPECT_EQ(Shown(), steps[i].Shown) << i;
        EXPECT_EQ(View.RootCell().Rows().TotalSize(),
                  20 * (1 + std::count(steps[i].Shown.begin(), steps[i].Shown.end(), ' ')));
    }
}

/// Random changes against the order and the visibility that a walk over the nodes finds.
TEST_F(GridTree, RowsFollowAnyChange)
{
    std::mt19937 random(7);
    std::vector<TNode *> nodes;
    Tree().OnDeleteItem = [&](TzuGridTree *, TNode *node) { std::erase(nodes, node); };
    const auto any = [&] { return nodes.empty() ? nullptr : nodes[random() % nodes.size()]; };
    for (int step = 0; step < 3000; ++step) {
        TNode *node = any();
        TNode *other = any();
        const unsigned what = random() % 20;
        if (node == nullptr || what < 8) {
            TzuDataList_GridTree &list = ListOf(random() % 4 != 0 ? node : nullptr);
            const auto index = static_cast<int>(random() % (list.Count() + 1U));
            nodes.push_back(Tree().InsertDataEntity(list, index));
        } else if (what < 10) {
            Tree().RemoveDataEntity(node);
        } else if (what < 14) {
            node->SetExpanded(!node->GetExpanded());
        } else if (what < 15) {
            node->Set_HideNode(!node->Get_HideNode());
        } else if (what < 17) {
            node->Move(static_cast<int>(random() % ListOf(node->ParentNode()).Count()));
        } else {
            TzuDataList_GridTree &list = ListOf(random() % 3 != 0 ? other : nullptr);
            node->ChangeOwner(&list, static_cast<int>(random() % (list.Count() + 1U)));
        }
        std::vector<std::pair<TNode *, bool>> wanted;
        const std::function<void(const TzuDataList_GridTree *, bool)> walk =
            [&](const TzuDataList_GridTree *list, bool shown) {
                for (int i = 0; list != nullptr && i < list->LoadedCount(); ++i) {
                    auto *each = static_cast<TNode *>(list->GetLoaded(i));
                    const bool visible = shown && !each->Get_HideNode();
                    wanted.emplace_back(each, visible);
                    walk(each->LoadedChildren(), visible && each->GetExpanded());
                }
            };
        walk(Tree().DataList(), true);
        ASSERT_EQ(wanted.size(), nodes.size());
        ASSERT_EQ(View.RootCell().Rows().Count(), static_cast<int>(wanted.size()) + 1);
        std::int64_t height = 20;
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            ASSERT_EQ(Tree().GetDataEntityFromRow(static_cast<int>(i) + 1), wanted[i].first);
            ASSERT_EQ(wanted[i].first->GetVisible(), wanted[i].second) << step;
            height += wanted[i].second ? 20 : 0;
        }
        ASSERT_EQ(View.RootCell().Rows().TotalSize(), height);
    }
    Tree().OnDeleteItem = nullptr;
}

TEST_F(GridTree, ChildrenAreGivenWhenTheyAreWanted)
{
    int asked = 0;
    Grid.OnInitTreeSubDataList = [&](TObject *, TNode *parent, TzuDataList_GridTree *list) {
        ++asked;
        if (parent->GetText() != "b") {
            list->AddUnloaded(3);
        }
    };
    TNode &a = Add("a");
    TNode &b = Add("b");
    EXPECT_TRUE(a.HasTreeButton());
    a.SetExpanded(true);
    EXPECT_EQ(Shown(), "a    b ");
    a.SetExpanded(false);
    a.SetExpanded(true);
    b.SetExpanded(true);
    EXPECT_FALSE(b.GetExpanded());
    EXPECT_FALSE(b.HasTreeButton());
    b.SetExpanded(true);
    EXPECT_EQ(asked, 2);
}

TEST_F(GridTree, ExpandedNodesComeBackExpanded)
{
    int references[2];
    const auto load = [&](bool byReference) {
        Fill();
        for (int i = 0; byReference && i < 2; ++i) {
            TNode *node = Named[i == 0 ? "a" : "a1"];
            node->SetText("");
            node->SetUserReference(&references[i]);
        }
    };
    for (const bool byReference : {false, true}) {
        load(byReference);
        Named["a"]->SetExpanded(true);
        Named["a1"]->SetExpanded(true);
        const int shown = static_cast<int>(std::ssize(Shown()));
        Tree().Clear();
        load(byReference);
        TDoLater::DoAllNow();
        EXPECT_EQ(std::ssize(Shown()), shown);
        Named["a"]->SetExpanded(false);
        Tree().Clear();
        Tree().SetExpandState({});
    }
    Fill();
    TDoLater::DoAllNow();
    Tree().FullExpand();
    const auto state = Tree().ExpandState();
    Tree().FullCollapse();
    Tree().SetExpandState(state);
    EXPECT_EQ(Shown(), "a a1 a11 a12 a2 b c c1 ");
}

TEST_F(GridTree, MouseAndKeysExpandAndCollapse)
{
    Fill();
    const auto button = [this](int row) {
        const TRect rect = View.TreeButtonRect(At(0, row), View.CellRect(At(0, row)));
        return TPoint{(rect.Left + rect.Right) / 2, (rect.Top + rect.Bottom) / 2};
    };
    EXPECT_EQ(View.HitTest(button(1)).Part, TGridPart::TreeButton);
    Click(button(1));
    EXPECT_EQ(Shown(), "a a1 a2 b c ");
    EXPECT_EQ(button(2).X - button(1).X, TBabGridLayoutCore::kTreeIndent);
    EXPECT_TRUE(View.TreeButtonRect(At(0, 5), View.CellRect(At(0, 5))).IsEmpty()); // a2
    // The focus of what is hidden goes to the node.
    View.ChooseCell(At(1, 2), TGridChoice::Set);
    Click(button(1));
    EXPECT_EQ(Shown(), "a b c ");
    EXPECT_EQ(View.FocusCell(), At(1, 1));
    EXPECT_TRUE(View.IsSelected(At(1, 1)));
    EXPECT_FALSE(View.MoveInTree(TGridMove::Right)); // not in the column of the tree
    View.ChooseCell(At(0, 1), TGridChoice::Set);
    for (const auto &[move, shown] : std::vector<std::pair<TGridMove, std::string>>{
             {TGridMove::Right, "a a1 a2 b c "}, {TGridMove::Left, "a b c "}}) {
        EXPECT_TRUE(View.MoveInTree(move));
        EXPECT_EQ(Shown(), shown);
    }
    Named["a"]->SetExpanded(true);
    View.ChooseCell(At(0, 5), TGridChoice::Set);
    EXPECT_TRUE(View.MoveInTree(TGridMove::Left)); // to the parent
    EXPECT_EQ(View.FocusCell(), At(0, 1));
}

TEST_F(GridTree, WhoShowsSomethingBesideTheRowsIsTold)
{
    std::string told;
    int invalid = 0;
    Tree().OnIntegrationEvent = [&](TzuGridTree *, TGridTreeEvent event, TNode *node) {
        told += "+-mvs"[static_cast<int>(event)];
        told += node != nullptr ? node->GetText() + " " : " ";
    };
    View.OnInvalidate = [&](TObject *) { ++invalid; };
    Fill();
    View.EnsureLayout();
    EXPECT_EQ(told, "+ + + + + + + + ");
    told.clear();
    invalid = 0;
    Named["a"]->SetExpanded(true);
    Named["c"]->Move(0);
    Named["a1"]->Set_HideNode(true);
    Tree().RemoveDataEntity(Named["a"]);
    EXPECT_EQ(told, "va mc va1 -a2 -a12 -a11 -a1 -a ");
    EXPECT_EQ(invalid, 1);
    Tree().OnIntegrationEvent = nullptr;
}

TEST_F(GridTree, SiblingsAreSortedAndTakeTheirChildrenAlong)
{
    Fill();
    Tree().FullExpand();
    View.RootCell().GetCell(1, 3)->SetText("note of a11");
    Grid.SetSortKeys({{Grid.Columns().GetColumn(0), true}});
    EXPECT_EQ(All(), "c c1 b a a2 a1 a12 a11 ");
    EXPECT_EQ(Grid.CellText(1, 7), "note of a11");
    Grid.SetSortKeys({{Grid.Columns().GetColumn(0), false}});
    EXPECT_EQ(All(), "a a1 a11 a12 a2 b c c1 ");
}

TEST_F(GridTree, HandlersMayRemoveWhatTheyAreToldOf)
{
    Fill();
    Tree().OnExpanded = [this](TzuGridTree *, TNode *node) { Tree().RemoveDataEntity(node); };
    Named["a"]->SetExpanded(true);
    EXPECT_EQ(All(), "b c c1 ");
    Tree().OnInsertItem = [this](TzuGridTree *, TNode *node) { Tree().RemoveDataEntity(node); };
    EXPECT_EQ(Tree().AddDataEntity(nullptr), nullptr);
    Grid.OnInitTreeSubDataList = [this](TObject *, TNode *parent, TzuDataList_GridTree *) {
        Tree().RemoveDataEntity(parent);
    };
    Named["b"]->SetExpanded(true);
    EXPECT_EQ(All(), "c c1 ");
    // Rows that the application dropped are missed by nobody.
    View.RootCell().Rows().ClearKeepFixedItems();
    Named["c"]->SetExpanded(true);
    Tree().Clear();
    Grid.SetUseTree(false);
    EXPECT_EQ(View.RootCell().Rows().Count(), 1);
}

TEST_F(GridTree, CellsShowTreesOfTheirOwn)
{
    Grid.SetUseTree(false);
    TzuGrid_Column &column = AddColumn("Tree", 100);
    column.SetKind(TColumnKind::tckSubTree);
    Grid.OnInitTreeSubDataList = [](TObject *, TNode *parent, TzuDataList_GridTree *list) {
        if (parent == nullptr) {
            const int row = list->Tree()->GridCell().Row()->ListIndex();
            TNode *root = list->Tree()->AddDataEntity();
            root->SetText("root " + std::to_string(row));
            for (const char *text : {"x", "y"}) {
                list->Tree()->AddDataEntity(root)->SetText(text);
            }
        }
    };
    Grid.AddRows(2);
    View.EnsureLayout();
    EXPECT_EQ(View.CellRect(At(2, 1)), (TRect{160, 20, 260, 40}));
    auto *cell = dynamic_cast<TzuSubTreeCell *>(View.RootCell().GetCell(2, 2));
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(
        cell->CellText(*cell->Columns().getAxisContentItem(0), *cell->Rows().getAxisContentItem(0)),
        "root 2");
    const TRect inner = View.CellRect({cell, 0, 0});
    EXPECT_EQ(inner, (TRect{160, 40, 260, 60}));
    Click({inner.Left + 12, inner.Top + 10});
    EXPECT_EQ(View.CellRect(At(2, 2)).Height(), 60);
    EXPECT_EQ(View.CellRect({cell, 0, 2}), (TRect{160, 80, 260, 100}));
}

} // namespace
} // namespace korvane::test
