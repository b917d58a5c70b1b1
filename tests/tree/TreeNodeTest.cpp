#include "tree/zuTreeNode.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <random>

namespace korvane::test {
namespace {

/// The same hierarchy as plain vectors, with rows counted by a walk.
struct Model
{
    std::map<const TTreeNode_zuSub *, std::vector<TTreeNode_zuSub *>> Children;

    void Rows(TTreeNode_zuSub &node, std::vector<TTreeNode_zuSub *> &rows)
    {
        for (TTreeNode_zuSub *child : Children[&node]) {
            rows.push_back(child);
            if (child->Expanded()) {
                Rows(*child, rows);
            }
        }
    }
    void All(TTreeNode_zuSub &node, std::vector<TTreeNode_zuSub *> &all)
    {
        all.push_back(&node);
        for (TTreeNode_zuSub *child : Children[&node]) {
            All(*child, all);
        }
    }
};

struct Hierarchy
{
    TTreeNode_zuSub Root;
    Model Plain;
    std::mt19937 Random{20240611};

    Hierarchy() { Root.SetExpanded(true); }

    int Below(int end) { return std::uniform_int_distribution(0, end - 1)(Random); }
    TTreeNode_zuSub &AnyNode()
    {
        std::vector<TTreeNode_zuSub *> all;
        Plain.All(Root, all);
        return *all[static_cast<std::size_t>(Below(static_cast<int>(all.size())))];
    }
    void Insert(TTreeNode_zuSub &parent, int count)
    {
        std::vector<TTreeNode_zuSub::TOwner> nodes;
        std::vector<TTreeNode_zuSub *> &plain = Plain.Children[&parent];
        const int at = Below(static_cast<int>(plain.size()) + 1);
        for (int i = 0; i < count; ++i) {
            nodes.push_back(std::make_unique<TTreeNode_zuSub>());
            nodes.back()->SetExpanded(Below(2) == 0);
            plain.insert(plain.begin() + at + i, nodes.back().get());
        }
        parent.InsertChildren(at, std::move(nodes));
    }
    void Take(TTreeNode_zuSub &parent)
    {
        std::vector<TTreeNode_zuSub *> &plain = Plain.Children[&parent];
        const int size = static_cast<int>(plain.size());
        const int first = Below(size + 1);
        const int count = Below(size - first + 1);
        const auto from = plain.begin() + first;
        const std::vector<TTreeNode_zuSub *> expected(from, from + count);
        const auto taken = parent.TakeChildren(first, count);
        ASSERT_TRUE(std::equal(taken.begin(), taken.end(), expected.begin(), expected.end(),
                               [](const auto &a, auto *b) { return a.get() == b; }));
        plain.erase(from, from + count);
        for (TTreeNode_zuSub *node : expected) {
            std::vector<TTreeNode_zuSub *> gone;
            Plain.All(*node, gone);
            std::for_each(gone.begin(), gone.end(), [&](auto *n) { Plain.Children.erase(n); });
        }
    }
    void Shuffle(TTreeNode_zuSub &parent)
    {
        std::vector<TTreeNode_zuSub *> &plain = Plain.Children[&parent];
        std::shuffle(plain.begin(), plain.end(), Random);
        parent.ReorderChildren(plain);
    }

    void CheckPositions()
    {
        for (const auto &[parent, children] : Plain.Children) {
            ASSERT_EQ(parent->ChildCount(), static_cast<int>(children.size()));
            for (int i = 0; i < parent->ChildCount(); ++i) {
                ASSERT_EQ(parent->Child(i), children[static_cast<std::size_t>(i)]);
                ASSERT_EQ(parent->Child(i)->Index(), i);
                ASSERT_EQ(parent->Child(i)->Parent(), parent);
            }
        }
    }
    void CheckRows()
    {
        std::vector<TTreeNode_zuSub *> rows;
        Plain.Rows(Root, rows);
        ASSERT_EQ(Root.RowCount() - 1, static_cast<int>(rows.size()));
        const TTreeNode_zuSub *next = &Root;
        for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
            TTreeNode_zuSub *node = rows[static_cast<std::size_t>(row)];
            ASSERT_EQ(Root.NodeAtRow(row), node);
            ASSERT_EQ(node->Row(), row);
            ASSERT_TRUE(node->IsShown());
            ASSERT_EQ(node->PrevShown(), row > 0 ? next : nullptr);
            next = next->NextShown();
            ASSERT_EQ(next, node);
        }
        ASSERT_EQ(next->NextShown(), nullptr);
        std::vector<TTreeNode_zuSub *> all;
        Plain.All(Root, all);
        const TTreeNode_zuSub *walked = &Root;
        for (TTreeNode_zuSub *node : all) {
            ASSERT_EQ(walked, node);
            ASSERT_EQ(node == &Root || std::count(rows.begin(), rows.end(), node) > 0,
                      node == &Root || node->Row() >= 0);
            walked = walked->NextInside(Root);
        }
        ASSERT_EQ(walked, nullptr);
    }
};

TEST(TreeNode, RandomChangesKeepPositionsAndRowsOfAPlainHierarchy)
{
    Hierarchy tree;
    for (int step = 0; step < 600; ++step) {
        TTreeNode_zuSub &node = step % 3 == 0 ? tree.Root : tree.AnyNode();
        switch (tree.Below(5)) {
        case 0:
        case 1:
            tree.Insert(node, 1 + tree.Below(4));
            break;
        case 2:
            if (tree.Below(4) == 0) {
                tree.Take(node);
            }
            break;
        case 3:
            if (&node != &tree.Root) {
                node.SetExpanded(!node.Expanded());
            }
            break;
        default:
            tree.Shuffle(node);
        }
        ASSERT_NO_FATAL_FAILURE(tree.CheckPositions()) << step;
        ASSERT_NO_FATAL_FAILURE(tree.CheckRows()) << step;
    }
}

TEST(TreeNode, LongChildListsAreSplitAndEmptiedWithoutLosingTheirOrder)
{
    Hierarchy tree;
    for (const int count : {1, 255, 1, 700, 256, 3}) {
        tree.Insert(tree.Root, count);
        ASSERT_NO_FATAL_FAILURE(tree.CheckPositions());
    }
    for (int i = 0; i < 600; ++i) {
        tree.Insert(tree.Root, 1);
    }
    ASSERT_NO_FATAL_FAILURE(tree.CheckPositions());
    ASSERT_NO_FATAL_FAILURE(tree.CheckRows());
    while (tree.Root.ChildCount() > 0) {
        tree.Take(tree.Root);
        ASSERT_NO_FATAL_FAILURE(tree.CheckPositions());
    }
    EXPECT_EQ(tree.Root.RowCount(), 1);
}

TEST(TreeNode, AVeryDeepHierarchyIsReleasedWithoutOverflowingTheStack)
{
    TTreeNode_zuSub root;
    TTreeNode_zuSub *deepest = &root;
    for (int i = 0; i < 200'000; ++i) {
        std::vector<TTreeNode_zuSub::TOwner> one;
        one.push_back(std::make_unique<TTreeNode_zuSub>());
        deepest->InsertChildren(0, std::move(one));
        deepest = deepest->Child(0);
    }
    EXPECT_EQ(deepest->Level(), 199'999);
}

} // namespace
} // namespace korvane::test
