// A tree's view without a window, for tests.
#pragma once

#include "tree/zuTreeHost.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <unordered_map>
#include <vector>

namespace korvane {

/// Shows the rows of `View`, clamping the top row as a scroll range would, and keeps a copy of the
/// nodes that it changes by the announcements alone: a test fails when the two differ.
class FakeTreeHost : public ITreeHost, public ITreeNodeObserver
{
public:
    TTreeGeometry View{0, 20, 200, 100};
    const TTreeNode_zuSub *Root = nullptr;
    TTreeNode_zuSub *Selected = nullptr;
    TTreeNode_zuSub *Edited = nullptr;
    int Invalidations = 0;
    int Brackets = 0;
    int Changes = 0;
    int Captions = 0;

    void InvalidateTree() override { ++Invalidations; }
    TTreeGeometry Geometry() const override
    {
        TTreeGeometry view = View;
        view.TopRow = std::clamp(view.TopRow, 0, LastTopRow());
        return view;
    }
    void SetTopRow(int row) override { View.TopRow = std::clamp(row, 0, LastTopRow()); }
    void SelectNode(TTreeNode_zuSub *node) override
    {
        EXPECT_TRUE(node == nullptr || node->IsShown());
        Selected = node;
    }
    void ShowCurrent(TTreeNode_zuSub &node) override { Selected = &node; }
    void LoseCurrent() override { Selected = nullptr; }
    void EditNode(TTreeNode_zuSub &node) override { Edited = &node; }

    void BeginNodes(int changes) override
    {
        EXPECT_FALSE(m_open);
        EXPECT_GE(changes, 0);
        m_open = true;
        ++Brackets;
    }
    void BeforeChange(const TNodeChangeInfo &change) override
    {
        EXPECT_TRUE(m_open);
        EXPECT_EQ(Children(*change.Parent), m_copy[change.Parent]);
        EXPECT_NE(change.Count, 0);
        ++Changes;
    }
    void AfterChange(const TNodeChangeInfo &change) override
    {
        std::vector<const TTreeNode_zuSub *> &copy = m_copy[change.Parent];
        const auto first = copy.begin() + change.First;
        switch (change.Change) {
        case TNodeChange::Insert:
            InsertCopies(change);
            break;
        case TNodeChange::Remove:
            copy.erase(first, first + change.Count);
            break;
        case TNodeChange::Move: {
            const TTreeNode_zuSub *node = *first;
            copy.erase(first);
            copy.insert(copy.begin() + change.To, node);
            break;
        }
        case TNodeChange::Reorder:
            EXPECT_TRUE(
                std::is_permutation(copy.begin(), copy.end(), Children(*change.Parent).begin()));
            copy = Children(*change.Parent);
            break;
        }
        EXPECT_EQ(Children(*change.Parent), copy);
    }
    void EndNodes() override
    {
        EXPECT_TRUE(m_open);
        m_open = false;
        for (const TTreeNode_zuSub *node = Root; node != nullptr; node = node->NextInside(*Root)) {
            EXPECT_EQ(Children(*node), m_copy[node]);
        }
    }
    void NodeChanged(TTreeNode_zuSub &, TNodeAspect aspect) override
    {
        Captions += aspect == TNodeAspect::Caption ? 1 : 0;
    }
    void AllExpansionsChanged() override {}
    void BeforeRelease() override { Selected = nullptr; }

private:
    int LastTopRow() const
    {
        const int rows = Root != nullptr ? Root->RowCount() - 1 : 0;
        return std::max(0, rows - View.Height / View.RowHeight);
    }
    static std::vector<const TTreeNode_zuSub *> Children(const TTreeNode_zuSub &node)
    {
        std::vector<const TTreeNode_zuSub *> children;
        for (int i = 0; i < node.ChildCount(); ++i) {
            children.push_back(node.Child(i));
        }
        return children;
    }
    void InsertCopies(const TNodeChangeInfo &change)
    {
        for (int i = 0; i < change.Count; ++i) {
            const TTreeNode_zuSub *top = change.Parent->Child(change.First + i);
            std::vector<const TTreeNode_zuSub *> &copy = m_copy[change.Parent];
            copy.insert(copy.begin() + change.First + i, top);
            for (const auto *node = top; node != nullptr; node = node->NextInside(*top)) {
                m_copy[node] = Children(*node);
            }
        }
    }

    std::unordered_map<const TTreeNode_zuSub *, std::vector<const TTreeNode_zuSub *>> m_copy;
    bool m_open = false;
};

} // namespace korvane
