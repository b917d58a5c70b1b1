#include "foundation/zuDoLater.h"
#include "support/FakeGridHost.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvane::test {
namespace {

using TNode = TzuDataEntity_GridTreeNode;

/// What the application could show.
struct TItem
{
    std::vector<std::unique_ptr<TItem>> Children;
    bool Expanded = false;

    TItem &Add(int count = 1)
    {
        for (; count > 0; --count) {
            Children.push_back(std::make_unique<TItem>());
        }
        return *Children.back();
    }
};

/// A tree whose nodes are given when they are wanted. 300 by 200 pixels, rows of 20.
struct GridTreePaging : testing::Test, TestGrid
{
    TItem All;
    int Loads = 0;
    int Unloads = 0;
    int MostLoaded = 0;

    GridTreePaging()
    {
        Grid.SetHasInfoCol(false);
        Grid.SetUseTree(true);
        AddColumn("Name", 100).SetTreeButton(true);
        View.SetMultiSelect(true);
        TBabGridCellForViewer &root = View.RootCell();
        root.OnVirtualLoad = [this](TBabGridCell *, TAxisContentItem *row, bool) {
            TNode &node = Given(TzuGridTree::NodeOf(row));
            const TzuDataList_GridTree &list = ListOf(node);
            const int index = list.UnloadedBefore() + list.IndexOf(&node);
            TItem *item = ItemOf(list).Children.at(static_cast<std::size_t>(index)).get();
            node.SetUserReference(item);
            if (!item->Children.empty()) {
                Given(node.ChildList()).AddUnloaded(static_cast<int>(std::ssize(item->Children)));
            }
            ++Loads;
            MostLoaded = std::max(MostLoaded, Rows().LoadedCount());
        };
        root.OnCanUnload = [](TBabGridCell *, TAxisContentItem *, bool, bool &can) { can = true; };
        root.OnVirtualUnLoad = [this](TBabGridCell *, TAxisContentItem *row, bool, bool &) {
            ++Unloads;
            EXPECT_NE(TzuGridTree::NodeOf(row), nullptr);
        };
    }
    ~GridTreePaging() override { View.RootCell().OnVirtualUnLoad = nullptr; }
    TAxisContentList &Rows() { return View.RootCell().Rows(); }
    TzuGridTree &Tree() { return *Grid.GetTree(); }
    template <typename T>
    static T &Given(T *object)
    {
        return object != nullptr ? *object : throw std::logic_error("none is given");
    }
    TNode &Root(int index) { return Given(Given(Tree().DataList()).Node(index)); }
    static TzuDataList_GridTree &ListOf(const TNode &node)
    {
        return dynamic_cast<TzuDataList_GridTree &>(Given(node.GetDataList()));
    }
    TItem &ItemOf(const TzuDataList_GridTree &list)
    {
        const TNode *parent = list.ParentEntity();
        return parent != nullptr ? *static_cast<TItem *>(parent->GetUserReference()) : All;
    }
    void Announce() { Tree().DataList()->AddUnloaded(static_cast<int>(std::ssize(All.Children))); }
    void Show(int row)
    {
        View.ScrollTo(0, (row - 1) * 20);
        View.EnsureLayout();
        TDoLater::DoAllNow();
        View.EnsureLayout();
    }
    /// Rows behind the head that are shown when all is as the application has it.
    std::vector<const TItem *> Expected() const
    {
        std::vector<const TItem *> rows;
        const std::function<void(const TItem &)> walk = [&](const TItem &item) {
            for (const auto &child : item.Children) {
                rows.push_back(child.get());
                if (child->Expanded) {
                    walk(*child);
                }
            }
        };
        walk(All);
        return rows;
    }
    void Check(const std::string &when)
    {
        const auto expected = Expected();
        ASSERT_EQ(Rows().TotalSize(), 20 * (1 + std::ssize(expected))) << when;
        ASSERT_EQ(Rows().Count() - Rows().CountWithoutSize(), 1 + std::ssize(expected)) << when;
        std::size_t at = 0;
        for (int row = Rows().NearestShown(1, 1); row >= 0; row = Rows().NearestShown(row + 1, 1)) {
            if (const TNode *node = TzuGridTree::NodeOf(Rows().FindLoaded(row))) {
                ASSERT_EQ(node->GetUserReference(), expected[at]) << when << " row " << row;
                ASSERT_EQ(Tree().GetRow(*node), row);
                ASSERT_EQ(node->GetExpanded(), expected[at]->Expanded) << when << " row " << row;
            }
            ++at;
        }
    }
};

TEST_F(GridTreePaging, AMillionChildrenCostWhatIsShownOfThem)
{
    All.Add(3);
    for (const int parent : {0, 1}) {
        All.Children[static_cast<std::size_t>(parent)]->Add(1'000'000);
    }
    Announce();
    Root(0).SetExpanded(true);
    All.Children[0]->Expanded = true;
    EXPECT_EQ(Loads, 1);
    EXPECT_EQ(Rows().TotalSize(), 20 * 1'000'004LL);
    for (const int row : {1, 500'000, 1'000'001, 20, 999'000, 400, 3}) {
        Show(row);
        EXPECT_TRUE(Rows().IsPresent(row));
        EXPECT_EQ(Given(Tree().GetDataEntityFromRow(row)).GetUserReference(),
                  row == 1           ? All.Children[0].get()
                  : row == 1'000'002 ? All.Children[1].get()
                                     : All.Children[0]->Children[row - 2].get());
    }
    for (int row = 600'000; row < 603'000; row += 7) {
        Show(row);
    }
    EXPECT_LT(MostLoaded, 1200);
    EXPECT_GT(Unloads, 2000);
    EXPECT_LE(Loads - Unloads, Rows().LoadedCount());
    // Both ends of a selection, and what is between, stay selected.
    View.ChooseCell(At(0, 100), TGridChoice::Set);
    View.ChooseCell(At(0, 900'000), TGridChoice::Extend);
    Show(500'000);
    EXPECT_TRUE(Given(Tree().GetDataEntityFromRow(500'000)).GetSelected());
    EXPECT_EQ(View.RootCell().Selection().RowCount(), 899'901);
    Show(1);
    Root(0).SetExpanded(false);
    EXPECT_EQ(Rows().TotalSize(), 80);
    Tree().Purge();
    EXPECT_LT(Rows().LoadedCount(), 20);
    // A node below that is wanted in no other way.
    Root(1).SetExpanded(true);
    EXPECT_EQ(Given(Given(Root(1).ChildList()).Node(700'000)).GetLevel(), 1);
    Tree().Clear();
    EXPECT_EQ(Rows().Count(), 1);
}

TEST_F(GridTreePaging, ExpandedNodesComeBackInTheirPlace)
{
    std::mt19937 random(11);
    const auto below = [&random](std::size_t end) { return static_cast<int>(random() % end); };
    All.Add(3000);
    for (auto &child : All.Children) {
        if (below(4) == 0) {
            child->Add(below(50) == 0 ? 700 : 1 + below(40));
        }
    }
    Announce();
    Tree().OnGetNodeKey = [](TzuGridTree *, TNode *, std::string &) {}; // by place alone
    for (int step = 0; step < 1500; ++step) {
        const int rows = Rows().Count();
        Show(1
             + below(static_cast<std::size_t>(std::max<std::int64_t>(Rows().TotalSize() / 20, 2))));
        const TGridCellAt top = View.GetTopLeftCell();
        TNode *node = top ? Tree().GetDataEntityFromRow(top.Row) : nullptr;
        if (node == nullptr) {
            continue;
        }
        TzuDataList_GridTree &list = ListOf(*node);
        TzuDataList_GridTree &roots = Given(Tree().DataList());
        TItem &parent = ItemOf(list);
        const int index = list.UnloadedBefore() + list.IndexOf(node);
        const auto place = parent.Children.begin() + index;
        switch (below(12)) {
        case 0:
        case 1:
        case 2:
        case 3:
            if (node->HasChildren()) {
                (*place)->Expanded = !node->GetExpanded();
                node->SetExpanded(!node->GetExpanded());
            }
            break;
        case 4:
            parent.Children.erase(place);
            list.Delete(index);
            break;
        case 5: { // wherever it is
            const int any = below(parent.Children.size());
            parent.Children.erase(parent.Children.begin() + any);
            list.Delete(any);
            break;
        }
        case 6:
            parent.Add(5);
            list.AddUnloaded(5);
            break;
        case 7: {
            TItem *item = parent.Children.insert(place, std::make_unique<TItem>())->get();
            Given(Tree().InsertDataEntity(list, index)).SetUserReference(item);
            break;
        }
        case 8: {
            const int to =
                std::min(index + below(30), list.UnloadedBefore() + list.LoadedCount() - 1);
            auto moved = std::move(*place);
            parent.Children.erase(place);
            parent.Children.insert(parent.Children.begin() + to, std::move(moved));
            node->Move(to);
            break;
        }
        case 9: // to the top level, behind the first one that is loaded there
            if (&list != &roots) {
                const int to = roots.UnloadedBefore() + 1;
                All.Children.insert(All.Children.begin() + to, std::move(*place));
                parent.Children.erase(
                    std::find(parent.Children.begin(), parent.Children.end(), nullptr));
                node->ChangeOwner(&roots, 1);
            }
            break;
        case 10:
            Tree().Purge();
            break;
        default:
            if (below(30) == 0) {
                Tree().FullCollapse();
                for (auto &each : All.Children) {
                    each->Expanded = each->Expanded && false;
                }
            }
        }
        if (&list != &roots && parent.Children.empty()) {
            Given(list.ParentEntity()).SetExpanded(false); // nothing would bring that back
            parent.Expanded = false;
        }
        Check("step " + std::to_string(step) + " of " + std::to_string(rows));
        if (HasFatalFailure()) {
            return;
        }
    }
    EXPECT_LT(MostLoaded, 2500);
    EXPECT_GT(Unloads, 5000);
}

TEST_F(GridTreePaging, WhatWasExpandedDeeperComesBackWhenItIsShown)
{
    for (int i = 0; i < 1000; ++i) {
        TItem &item = All.Add();
        item.Add(4).Add(3).Add(2);
    }
    Announce();
    const auto expand = [&](int root) {
        TNode *node = &Root(root);
        TItem *item = All.Children[static_cast<std::size_t>(root)].get();
        for (int level = 0; level < 3; ++level) {
            node->SetExpanded(true);
            item->Expanded = true;
            TzuDataList_GridTree &children = Given(node->ChildList());
            node = &Given(children.Node(children.Count() - 1));
            item = item->Children.back().get();
        }
    };
    for (int root = 0; root < 20; ++root) {
        expand(root);
    }
    Check("expanded");
    Show(900);
    Tree().Purge();
    EXPECT_LT(Rows().LoadedCount(), 30);
    for (int row = 1; row < 300; row += 4) {
        Show(row);
    }
    Check("shown again");
}

TEST_F(GridTreePaging, HandlersDecideWhatGoesAndMayChangeTheTree)
{
    All.Add(2000);
    Announce();
    TBabGridCellForViewer &root = View.RootCell();
    const auto load = root.OnVirtualLoad;
    int removed = 0;
    root.OnVirtualUnLoad = [&](TBabGridCell *, TAxisContentItem *, bool, bool &counted) {
        counted = ++removed > 3; // these are gone for good
        if (!counted) {
            All.Children.pop_back();
        }
    };
    Show(1);
    Show(1500);
    EXPECT_EQ(removed, 9);
    EXPECT_EQ(Rows().Count(), 1998);
    root.OnVirtualUnLoad = [&](TBabGridCell *, TAxisContentItem *row, bool, bool &) {
        Tree().RemoveDataEntity(TzuGridTree::NodeOf(row));
    };
    Show(1);
    EXPECT_LT(Rows().Count(), 1998);
    root.OnVirtualUnLoad = nullptr;
    root.OnCanUnload = nullptr; // nothing goes, and all between comes
    Show(600);
    EXPECT_GE(Rows().LoadedCount(), 600);
    root.OnVirtualLoad = [&](TBabGridCell *grid, TAxisContentItem *row, bool isRow) {
        load(grid, row, isRow);
        Tree().RemoveDataEntity(TzuGridTree::NodeOf(row));
        All.Children.pop_back();
    };
    const int before = Rows().Count();
    EXPECT_EQ(Tree().GetDataEntityFromRow(1000), nullptr);
    EXPECT_LT(Rows().Count(), before);
    root.OnVirtualLoad = [&](TBabGridCell *, TAxisContentItem *, bool) { Grid.SetUseTree(false); };
    EXPECT_EQ(Tree().GetDataEntityFromRow(900), nullptr);
    EXPECT_EQ(Rows().Count(), 1);
}

} // namespace
} // namespace korvane::test
