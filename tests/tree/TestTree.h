// A tree without a window, opened up for tests.
#pragma once

#include "support/FakeTreeHost.h"
#include "tree/zuTree.h"

#include <functional>
#include <string>

namespace korvane::test {

class TestTree : public TTreeCore
{
public:
    explicit TestTree(FakeTreeHost &host)
        : TTreeCore(host, host)
    {
        host.Root = &TTreeCore::RootNode();
    }
    ~TestTree() override { DestroyContent(); }

    using TTreeCore::DoUpdateTopItem;
    using TTreeCore::NodeExpandedByUser;
    using TTreeCore::NodeMarkedByUser;
    using TTreeCore::NodeSelectedByUser;
    using TTreeCore::RootNode;
    using TTreeCore::SetEntityClass;

    int Updates = 0;
    std::function<void()> AfterUpdate;
    bool Blocked = false;

    TzuDataEntity_Tree *Add(const char *text, TzuDataEntity_Tree *parent = nullptr)
    {
        TzuDataEntity_Tree *entity = AddDataEntity(parent);
        entity->SetText(text);
        return entity;
    }
    /// The nodes in brief, brought up to date first: "a(b c) d(?)". A placeholder is "?".
    std::string Nodes()
    {
        EnsureDisplayUpToDate();
        return Children(RootNode());
    }

protected:
    void AfterUpdateDisplay() override
    {
        ++Updates;
        if (AfterUpdate) {
            AfterUpdate();
        }
    }
    bool RebuildBlocked() const override { return Blocked || TTreeCore::RebuildBlocked(); }

private:
    static std::string Children(const TTreeNode_zuSub &node)
    {
        std::string text;
        for (int i = 0; i < node.ChildCount(); ++i) {
            const TTreeNode_zuSub &child = *node.Child(i);
            text += i > 0 ? " " : "";
            text += child.Data() != nullptr ? child.Data()->GetText()
                                            : (child.IsPlaceholder() ? "?" : "-");
            text += child.ChildCount() > 0 ? "(" + Children(child) + ")" : "";
        }
        return text;
    }
};

} // namespace korvane::test
