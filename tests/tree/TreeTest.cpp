#include "TestTree.h"
#include "foundation/zuDoLater.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace korvane::test {
namespace {

struct TreeTest : testing::Test
{
    // What handlers note; they may still be called while the tree is released.
    std::vector<std::string> Log;
    int Fired = 0;

    FakeTreeHost Host;
    TestTree Tree{Host};

    void SetUp() override { Tree.SetLoadOnDemand(false); }
    void AddRows(int count)
    {
        for (int i = 0; i < count; ++i) {
            Tree.AddDataEntity();
        }
    }
    TzuDataEntity_Tree *Root(int index) { return Tree.DataList()->Entity(index); }
};

// --- captions ------------------------------------------------------------------------------------

TEST_F(TreeTest, ACaptionHoldsUpTo255CodePointsAndKeepsTheOldOneBeyond)
{
    TzuDataEntity_Tree *entity = Tree.Add("old");
    for (const std::string character : {"x", "\u00e9", "\U0001f332"}) {
        std::string text;
        for (int i = 0; i < 255; ++i) {
            text += character;
        }
        entity->SetText(text);
        try {
            entity->SetText(text + character);
            ADD_FAILURE() << character;
        } catch (const std::exception &error) {
            EXPECT_STREQ(error.what(), "Treenodes only allow strings smaller than 255 chars");
        }
        EXPECT_EQ(entity->GetText(), text);
    }
}

TEST_F(TreeTest, ChangesOfADisplayedCaptionReachTheNodeOnceAndOnlyWhenTheyAreChanges)
{
    TzuDataEntity_Tree *entity = Tree.Add("a");
    entity->SetImageIndex(3);
    EXPECT_EQ(Host.Captions, 0);
    Tree.EnsureDisplayUpToDate();
    for (int round = 0; round < 2; ++round) {
        entity->SetText("b");
        entity->SetImageIndex(4);
        entity->SetSelectedIndex(5);
        entity->SetFontName("Serif");
        entity->SetFontStyle({.Bold = true});
    }
    EXPECT_EQ(Host.Captions, 5);
    EXPECT_EQ(entity->GetFontName(), "Serif");
    EXPECT_TRUE(entity->GetFontStyle().Bold);
    EXPECT_TRUE(entity->GetCanEdit());
}

// --- the display ---------------------------------------------------------------------------------

TEST_F(TreeTest, TheDisplayIsBroughtUpToDateOnceForAnyNumberOfChangesAndNotWithoutOne)
{
    AddRows(10);
    Tree.EnsureDisplayUpToDate();
    EXPECT_EQ(Tree.Updates, 1);
    EXPECT_EQ(Host.Changes, 1);
    Tree.EnsureDisplayUpToDate();
    EXPECT_EQ(Tree.Updates, 1);
    Root(3)->SetVisible(false);
    EXPECT_TRUE(Tree.IsDisplayOutOfDate());
    EXPECT_TRUE(Root(3)->GetVisible()); // what matters is the node
    EXPECT_EQ(Tree.Updates, 1);
    Tree.EnsureDisplayUpToDate();
    EXPECT_EQ(Tree.Updates, 2);
    EXPECT_EQ(Host.Brackets, 1); // nothing changed, so nothing was locked
    Tree.Blocked = true;
    AddRows(1);
    EXPECT_EQ(Tree.CountVisible(), 10);
    Tree.Blocked = false;
    EXPECT_EQ(Tree.CountVisible(), 11);
}

TEST_F(TreeTest, AnUpdateCostsWhatChanged)
{
    AddRows(20'000);
    Tree.EnsureDisplayUpToDate();
    Host.Changes = 0;
    Tree.RemoveDataEntity(Root(10'000));
    for (int i = 0; i < 3; ++i) {
        Tree.InsertDataEntity(*Tree.DataList(), 5'000);
        Root(100 + i)->Set_HideNode(true);
    }
    Root(0)->Move(9);
    Tree.EnsureDisplayUpToDate();
    EXPECT_EQ(Host.Changes, 4); // one run hidden, one removed, one inserted, one moved
}

TEST_F(TreeTest, ABranchIsNeverMovedBelowItself)
{
    TzuDataEntity_Tree *a = Tree.Add("a");
    TzuDataEntity_Tree *b = Tree.Add("b", a);
    for (TzuDataEntity_Tree *below : {a, b}) {
        a->ChangeOwner(below->ChildList(), 0);
        EXPECT_EQ(Tree.Nodes(), "a(b)");
    }
    EXPECT_EQ(b->GetLevel(), 1);
    EXPECT_EQ(b->ParentNode(), a);
}

TEST_F(TreeTest, ABranchThatChangesOverToAnotherTreeBelongsToThatTree)
{
    FakeTreeHost otherHost;
    TestTree other(otherHost);
    other.SetLoadOnDemand(false);
    TzuDataEntity_Tree *a = Tree.Add("a");
    TzuDataEntity_Tree *b = Tree.Add("b", a);
    Tree.Add("c", b);
    EXPECT_EQ(Tree.Nodes(), "a(b(c))");
    Tree.SetCurrentDataEntity(b);
    a->ChangeOwner(other.DataList(), 0);
    EXPECT_EQ(Tree.Nodes(), "");
    EXPECT_EQ(other.Nodes(), "a(b(c))");
    EXPECT_EQ(b->Tree(), &other);
    TDoLater::DoAllNow();
    EXPECT_EQ(Tree.GetCurrentDataEntity(), nullptr);
    other.RemoveDataEntity(b);
    EXPECT_EQ(other.Nodes(), "a");
}

TEST_F(TreeTest, AnEntityThatLeavesForAPlainListKeepsItsChildrenUntilEitherIsReleased)
{
    TzuListController controller;
    for (const bool treeGoesFirst : {false, true}) {
        auto *list = new TzuDataList;
        list->AfterCreate(&controller, EntityClass::Of<TzuDataEntity>());
        FakeTreeHost host;
        auto tree = std::make_unique<TestTree>(host);
        TzuDataEntity_Tree *a = tree->Add("a");
        tree->Add("b", a);
        tree->EnsureDisplayUpToDate();
        a->ChangeOwner(list, 0);
        EXPECT_EQ(a->Tree(), nullptr);
        EXPECT_TRUE(a->HasChildren());
        if (treeGoesFirst) {
            tree.reset();
            EXPECT_FALSE(a->HasChildren());
        }
        list->FreeWheneverPossible();
    }
}

TEST_F(TreeTest, SiblingsFollowTheComparisonWhileThereIsOne)
{
    for (const char *text : {"c", "a", "b"}) {
        Tree.Add(text);
    }
    EXPECT_TRUE(Tree.DataList()->NeedsSort());
    EXPECT_EQ(Tree.Nodes(), "c a b");
    EXPECT_FALSE(Tree.DataList()->NeedsSort());
    Tree.SetSortCompare([](auto *a, auto *b) {
        return static_cast<TzuDataEntity_Tree *>(a)->GetText().compare(
            static_cast<TzuDataEntity_Tree *>(b)->GetText());
    });
    EXPECT_EQ(Tree.Nodes(), "a b c");
    Tree.DataList()->Sort(TSortDirection::Descending);
    EXPECT_EQ(Root(0)->GetText(), "c");
    EXPECT_EQ(Tree.Nodes(), "a b c");
    Tree.SetSortCompare(nullptr);
    EXPECT_EQ(Tree.Nodes(), "c b a");
}

TEST_F(TreeTest, ItemsThatWereOnlyAnnouncedAreLoadedWhenTheyAreDisplayed)
{
    Tree.OnLoadItem = [&](TObject *, TzuDataEntity_Tree *entity) {
        entity->SetText(std::to_string(Fired++));
    };
    Tree.DataList()->AddUnloaded(3);
    EXPECT_EQ(Fired, 0);
    EXPECT_EQ(Tree.Nodes(), "0 1 2");
    Root(1)->ChildList()->AddUnloaded(2);
    EXPECT_EQ(Tree.Nodes(), "0 1(3 4) 2");
}

TEST_F(TreeTest, NodesMadeOutsideOfARebuildLetTheDisplayBeginAfresh)
{
    Tree.Add("a");
    Tree.EnsureDisplayUpToDate();
    const auto outside = Tree.CreateNode();
    EXPECT_TRUE(Tree.IsDisplayOutOfDate());
    Host.Changes = 0;
    EXPECT_EQ(Tree.Nodes(), "a");
    EXPECT_EQ(Host.Changes, 2); // all out, all in
}

// --- placeholders --------------------------------------------------------------------------------

TEST_F(TreeTest, APlaceholderBecomesTheNodeOfTheFirstChildDisplayed)
{
    Tree.SetLoadOnDemand(true);
    TzuDataEntity_Tree *a = Tree.Add("a");
    EXPECT_EQ(Tree.Nodes(), "a(?)");
    TTreeNode_zuSub *placeholder = a->DummyNode();
    ASSERT_NE(placeholder, nullptr);
    EXPECT_EQ(TTreeCore::GetDataEntityFromNode(placeholder), nullptr);
    Tree.Add("h", a)->Set_HideNode(true); // takes no place
    TzuDataEntity_Tree *b = Tree.Add("b", a);
    b->SetExpanded(true);
    EXPECT_EQ(Tree.Nodes(), "a(b(?))");
    EXPECT_EQ(b->Node(), placeholder);
    EXPECT_TRUE(placeholder->Expanded());
    EXPECT_EQ(a->DummyNode(), nullptr);
}

// --- rows and expansion --------------------------------------------------------------------------

TEST_F(TreeTest, VisibilityFollowsTheAncestorsAndNotTheScrollPosition)
{
    TzuDataEntity_Tree *a = Tree.Add("a");
    TzuDataEntity_Tree *b = Tree.Add("b", a);
    TzuDataEntity_Tree *c = Tree.Add("c", b);
    AddRows(100);
    EXPECT_FALSE(a->GetVisible()); // no node yet
    Tree.EnsureDisplayUpToDate();
    const auto visible = [&] { return a->GetVisible() + b->GetVisible() + c->GetVisible(); };
    b->SetExpanded(true);
    EXPECT_EQ(visible(), 1);
    a->SetExpanded(true);
    EXPECT_EQ(visible(), 3);
    Tree.SetTopItem(Root(50));
    EXPECT_TRUE(c->GetVisible());
    EXPECT_EQ(Tree.GetRect(*c), (TRect{-1, -1, -1, -1}));
    Tree.FullCollapse();
    EXPECT_EQ(visible(), 1);
    EXPECT_FALSE(b->GetExpanded());
    Tree.FullExpand();
    EXPECT_EQ(visible(), 3);
    Tree.FullCollapse();
    Tree.ExpandLevels(1);
    EXPECT_EQ(visible(), 2);
}

TEST_F(TreeTest, RowsAndRectanglesFollowTheTopRow)
{
    AddRows(20); // five fit
    Tree.EnsureDisplayUpToDate();
    Host.View.Height = 90;
    Host.SetTopRow(3);
    const TRect none{-1, -1, -1, -1};
    for (const auto &[row, rect] : {std::pair(2, none), std::pair(3, TRect{0, 0, 200, 20}),
                                    std::pair(7, TRect{0, 80, 200, 100}), std::pair(8, none)}) {
        EXPECT_EQ(Tree.GetRect(*Root(row)), rect) << row;
    }
    const auto rows = Tree.VisibleRowEntities();
    ASSERT_EQ(rows.size(), 5U);
    EXPECT_EQ(rows.front().Entity, Root(3));
    EXPECT_EQ(rows.back().Rect, (TRect{0, 80, 200, 100}));
    EXPECT_EQ(Tree.GetDataEntityAt(5, 19), Root(3));
    EXPECT_EQ(Tree.GetDataEntityAt(5, 20), Root(4));
    EXPECT_EQ(Tree.GetDataEntityAt(200, 20), nullptr);
    EXPECT_EQ(Tree.GetDataEntityAt(5, -1), nullptr);
    EXPECT_EQ(Tree.GetDataEntityFromRow(20), nullptr);
    EXPECT_EQ(Tree.GetNextVisible(nullptr), Root(0));
    EXPECT_EQ(Tree.GetNextVisible(Root(19)), nullptr);
    EXPECT_EQ(Tree.GetPrevVisible(Root(0)), nullptr);
}

TEST_F(TreeTest, SteppingThroughVisibleEntitiesSkipsPlaceholders)
{
    Tree.SetLoadOnDemand(true);
    TzuDataEntity_Tree *a = Tree.Add("a");
    TzuDataEntity_Tree *b = Tree.Add("b");
    a->SetExpanded(true);
    EXPECT_EQ(Tree.CountVisible(), 3);
    EXPECT_EQ(Tree.GetDataEntityFromRow(1), nullptr);
    EXPECT_EQ(Tree.GetNextVisible(a), b);
    EXPECT_EQ(Tree.GetPrevVisible(b), a);
    EXPECT_EQ(Tree.VisibleRowEntities().size(), 2U);
}

TEST_F(TreeTest, ExpandingAnEntityWithoutNodeBringsTheDisplayUpToDateAtOnce)
{
    TzuDataEntity_Tree *a = Tree.Add("a");
    a->SetExpanded(true);
    EXPECT_NE(a->Node(), nullptr);
    EXPECT_TRUE(Tree.IsDisplayOutOfDate());
    Tree.Add("b", a);
    EXPECT_EQ(Tree.CountVisible(), 2); // the new child is shown
    TzuDataEntity_Tree *c = Tree.Add("c");
    c->SetExpanded(false);
    EXPECT_EQ(c->Node(), nullptr);
}

TEST_F(TreeTest, TheUsersExpansionIsStoredAndAnnouncedOnce)
{
    Tree.OnExpanded = [&](TObject *, auto *entity) { Log.push_back("+" + entity->GetText()); };
    Tree.OnCollapsed = [&](TObject *, auto *entity) { Log.push_back("-" + entity->GetText()); };
    TzuDataEntity_Tree *a = Tree.Add("a");
    Tree.Add("b", a);
    Tree.EnsureDisplayUpToDate();
    for (int i = 0; i < 2; ++i) {
        Tree.NodeExpandedByUser(*a->Node(), true);
        EXPECT_TRUE(a->GetExpanded());
    }
    a->SetExpanded(true);
    a->SetExpanded(false);
    EXPECT_EQ(Log, (std::vector<std::string>{"+a", "-a"}));
}

// --- current entity ------------------------------------------------------------------------------

TEST_F(TreeTest, TheCurrentEntityChangesWhenTheDeferredCallRuns)
{
    AddRows(3);
    TzuDataEntity_Tree *deep = Tree.Add("deep", Root(1));
    Tree.OnCurrentChanged = [&](TObject *) { ++Fired; };
    TzuDataEntity_Tree *before = nullptr;
    for (TzuDataEntity_Tree *next : {Root(0), deep, static_cast<TzuDataEntity_Tree *>(nullptr)}) {
        Tree.SetCurrentDataEntity(Root(2)); // replaced before it runs
        Tree.SetCurrentDataEntity(next);
        EXPECT_EQ(Tree.GetCurrentDataEntity(), before);
        TDoLater::DoAllNow();
        EXPECT_EQ(Tree.GetCurrentDataEntity(), next);
        EXPECT_EQ(Host.Selected, next != nullptr ? next->Node() : nullptr);
        before = next;
    }
    EXPECT_TRUE(deep->GetVisible());
    EXPECT_EQ(Fired, 3);
}

TEST_F(TreeTest, NothingIsSelectedAfterTheSelectedEntityWentAway)
{
    using TEntity = TzuDataEntity_Tree *;
    const std::pair<const char *, std::function<void(TEntity, TEntity)>> cases[] = {
        {"deleted", [&](auto *, auto *entity) { Tree.RemoveDataEntity(entity); }},
        {"parent deleted", [&](auto *parent, auto *) { Tree.RemoveDataEntity(parent); }},
        {"hidden", [&](auto *, auto *entity) { entity->Set_HideNode(true); }},
        {"all cleared", [&](auto *, auto *) { Tree.Clear(); }},
    };
    Tree.OnCurrentChanged = [&](TObject *) { ++Fired; };
    for (const auto &[what, act] : cases) {
        SCOPED_TRACE(what);
        TzuDataEntity_Tree *parent = Tree.Add("p");
        TzuDataEntity_Tree *entity = Tree.Add("e", parent);
        Tree.Add("f", parent);
        Tree.SetCurrentDataEntity(entity);
        TDoLater::DoAllNow();
        EXPECT_EQ(Tree.GetCurrentDataEntity(), entity);
        Fired = 0;
        act(parent, entity);
        EXPECT_EQ(Tree.GetCurrentDataEntity(), nullptr);
        EXPECT_EQ(Host.Selected, nullptr);
        EXPECT_EQ(Fired, 1);
    }
}

TEST_F(TreeTest, APendingSelectionDiesWithItsEntityOrItsTree)
{
    AddRows(1);
    Tree.SetCurrentDataEntity(Root(0));
    Tree.RemoveDataEntity(Root(0));
    TDoLater::DoAllNow();
    EXPECT_EQ(Tree.GetCurrentDataEntity(), nullptr);
    {
        FakeTreeHost host;
        TestTree other(host);
        other.SetCurrentDataEntity(other.Add("x"));
    }
    TDoLater::DoAllNow();
}

TEST_F(TreeTest, TheViewsSelectionMarksTheEntities)
{
    AddRows(2);
    Tree.EnsureDisplayUpToDate();
    Tree.OnSelectionChanged = [&](TObject *, TzuDataList *, TzuDataEntity *entity) {
        Log.emplace_back(entity->GetSelected() ? "+" : "-");
    };
    Tree.NodeMarkedByUser(*Root(0)->Node(), true);
    Tree.NodeMarkedByUser(*Root(0)->Node(), true);
    Tree.NodeMarkedByUser(*Root(0)->Node(), false);
    EXPECT_EQ(Log, (std::vector<std::string>{"+", "-"}));
}

// --- top entity ----------------------------------------------------------------------------------

TEST_F(TreeTest, TheTopEntityIsReportedOncePerChange)
{
    Tree.OnTopItemChanged = [&](TObject *) { ++Fired; };
    Tree.SetTopItem(nullptr);
    EXPECT_EQ(Fired, 0);
    AddRows(20);
    EXPECT_EQ(Tree.GetTopItem(), Root(0));
    Tree.SetTopItem(Root(7));
    EXPECT_EQ(Tree.GetTopItem(), Root(7));
    EXPECT_EQ(Fired, 1);
    Tree.SetTopItem(Root(7));
    EXPECT_EQ(Fired, 1);
    Tree.SetTopItem(Root(19)); // as far as it goes
    EXPECT_EQ(Tree.GetTopItem(), Root(15));
    Tree.SetTopItem(nullptr);
    EXPECT_EQ(Tree.GetTopItem(), Root(0));
    EXPECT_EQ(Fired, 3);
}

TEST_F(TreeTest, ATopNodeThatCarriesOrIsAPlaceholderIsNoTopEntity)
{
    Tree.SetLoadOnDemand(true);
    AddRows(20);
    Root(0)->SetExpanded(true);
    EXPECT_EQ(Tree.GetTopItem(), nullptr);
    Host.SetTopRow(1);
    EXPECT_EQ(Tree.GetTopItem(), nullptr);
    Tree.AddDataEntity(Root(1));
    Tree.SetTopItem(Root(1));
    EXPECT_EQ(Tree.GetTopItem(), Root(1));
}

TEST_F(TreeTest, TheTopEntityStaysAtTheTopWhileRowsComeAndGoBeforeIt)
{
    AddRows(40);
    for (int i = 0; i < 6; ++i) {
        Tree.AddDataEntity(Root(2));
    }
    TzuDataEntity_Tree *top = Root(10);
    Tree.SetTopItem(top);
    Root(2)->SetExpanded(true);
    EXPECT_EQ(Tree.GetTopItem(), top);
    EXPECT_EQ(Host.View.TopRow, 16);
    Tree.InsertDataEntity(*Tree.DataList(), 0);
    Tree.RemoveDataEntity(Root(3));
    EXPECT_EQ(Tree.GetTopItem(), top);
    Tree.RemoveDataEntity(top);
    EXPECT_NE(Tree.GetTopItem(), nullptr);
}

// --- events --------------------------------------------------------------------------------------

TEST_F(TreeTest, InsertingAndDeletingFireInOrderAndReleaseTheWholeBranch)
{
    const auto note = [&](const char *what) {
        return [this, what](TObject *, auto *entity) {
            Log.push_back(what + dynamic_cast<TzuDataEntity_Tree &>(*entity).GetText());
        };
    };
    Tree.OnInsertItem = note("insert ");
    Tree.OnDeleteItem_Tree = note("tree ");
    Tree.OnDeleteItem = note("plain ");
    Tree.OnContentChanged = [&](TObject *, TzuDataList *list) {
        Log.push_back("content " + std::to_string(list->Count()));
    };
    TzuDataEntity_Tree *a = Tree.Add("a");
    Tree.Add("b", a);
    Tree.Add("c", a);
    Tree.EnsureDisplayUpToDate();
    Tree.RemoveDataEntity(a);
    EXPECT_EQ(Log, (std::vector<std::string>{"insert ", "content 1", "insert ", "content 1",
                                             "insert ", "content 2", "tree a", "plain a", "tree c",
                                             "plain c", "content 1", "tree b", "plain b",
                                             "content 0", "content 0"}));
    EXPECT_EQ(Tree.Nodes(), "");
    EXPECT_EQ(Tree.DataLists().Count(), 1);
}

TEST_F(TreeTest, HandlersMayChangeTheContentInTheMiddleOfAnything)
{
    Tree.OnInsertItem = [&](TObject *, TzuDataEntity *entity) {
        static_cast<TzuDataEntity_Tree *>(entity)->SetText("i");
        EXPECT_EQ(Tree.GetDataEntityFromRow(0) != nullptr, true); // rebuilds within the insertion
        if (Tree.DataList()->Count() == 2) {
            Tree.RemoveDataEntity(static_cast<TzuDataEntity_Tree *>(entity));
        }
    };
    EXPECT_NE(Tree.AddDataEntity(), nullptr);
    EXPECT_EQ(Tree.AddDataEntity(), nullptr);
    EXPECT_EQ(Tree.Nodes(), "i");
    Tree.OnInsertItem = nullptr;
    Tree.Add("x", Root(0));
    Tree.OnDeleteItem = [&](TObject *, TzuDataEntity *entity) {
        // Neither of these keeps a leaving entity in the display.
        static_cast<TzuDataEntity_Tree *>(entity)->SetExpanded(true);
        static_cast<TzuDataEntity_Tree *>(entity)->Set_HideNode(true);
        Tree.EnsureDisplayUpToDate();
        if (Tree.DataList()->Count() < 5) {
            Tree.Add("n");
        }
    };
    Tree.RemoveDataEntity(Root(0));
    EXPECT_EQ(Tree.Nodes(), "n n");
    Tree.OnDeleteItem = nullptr;
}

TEST_F(TreeTest, APushedEntityIsReported)
{
    Tree.OnInfoPush = [&](TObject *, auto *) { Log.emplace_back("push"); };
    Tree.OnChangeDataEntity = [&](TObject *, auto *) { Log.emplace_back("change"); };
    Tree.OnBeforeCanEditItem = [&](TObject *, auto *e) { e->SetCanEdit(false); };
    Tree.OnVisibleChanged = [&](TObject *, auto *) { Log.emplace_back("visible"); };
    TzuDataEntity_Tree *a = Tree.Add("a");
    Log.clear();
    Tree.EnsureDisplayUpToDate();
    a->DoInfoPush();
    a->SetVisible(false);
    EXPECT_EQ(Log, (std::vector<std::string>{"push", "change", "visible"}));
    EXPECT_FALSE(a->GetCanEdit());
    a->EditText();
    EXPECT_EQ(Host.Edited, a->Node());
}

TEST_F(TreeTest, BeginUpdateHoldsBackTheRequestToRepaint)
{
    Tree.BeginUpdate();
    Tree.BeginUpdate();
    const int before = Host.Invalidations;
    AddRows(5);
    Tree.EndUpdate();
    EXPECT_EQ(Host.Invalidations, before);
    Tree.EndUpdate();
    EXPECT_EQ(Host.Invalidations, before + 1);
    Tree.EndUpdate();
    EXPECT_EQ(Host.Invalidations, before + 1);
}

TEST_F(TreeTest, VeryDeepTreesAreBuiltAndReleased)
{
    Tree.OnDeleteItem = [this](TObject *, TzuDataEntity *) { ++Fired; };
    for (const bool cleared : {true, false}) {
        TzuDataEntity_Tree *deepest = nullptr;
        for (int i = 0; i < 20'000; ++i) {
            deepest = Tree.AddDataEntity(deepest);
        }
        EXPECT_EQ(Tree.CountVisible(), 1);
        Tree.FullExpand();
        EXPECT_EQ(Tree.GetRow(*deepest), 19'999);
        if (cleared) {
            Tree.Clear();
            EXPECT_EQ(Tree.CountVisible(), 0);
            EXPECT_EQ(Fired, 20'000);
            EXPECT_EQ(Tree.DataLists().Count(), 1);
        }
    }
}

} // namespace
} // namespace korvane::test
