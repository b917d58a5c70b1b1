// What a user does with a tree, without a window.
#include "support/FakeTreeHost.h"
#include "tree/zuTreeUser.h"

#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace korvane::test {
namespace {

class UserTree : public TTreeUserCore
{
public:
    explicit UserTree(FakeTreeHost &host)
        : TTreeUserCore(host, host)
    {
        host.Root = &RootNode();
        SetLoadOnDemand(false);
    }
    ~UserTree() override { DestroyContent(); }

    using TTreeUserCore::MousePressed;
    using TTreeUserCore::MouseReleased;

    TzuDataEntity_Tree *Add(std::string_view text, TzuDataEntity_Tree *parent = nullptr)
    {
        TzuDataEntity_Tree *entity = AddDataEntity(parent);
        entity->SetText(text);
        return entity;
    }
    /// Fails loudly when there is none.
    TzuDataEntity_Tree *Find(std::string_view text)
    {
        for (int i = 0; i < DataLists().Count(); ++i) {
            TzuDataList_Tree &list = ListAt(i);
            for (int j = 0; j < list.Count(); ++j) {
                if (list.Entity(j)->GetText() == text) {
                    return list.Entity(j);
                }
            }
        }
        throw std::out_of_range(std::string(text));
    }
    TTreeNode_zuSub &NodeOf(std::string_view text)
    {
        EnsureDisplayUpToDate();
        return *Find(text)->Node();
    }
    /// The rows, "*" after selected ones, the current one in brackets: "a*[b]c".
    std::string Rows()
    {
        std::string rows;
        for (auto *e = GetNextVisible(nullptr); e != nullptr; e = GetNextVisible(e)) {
            const std::string text = e->GetText() + (e->GetSelected() ? "*" : "");
            rows += e == GetCurrentDataEntity() ? '[' + text + ']' : text;
        }
        return rows;
    }
    /// All entities in list order: "a(b c) d".
    std::string Content() { return Children(*DataList()); }

private:
    static std::string Children(TzuDataList_Tree &list)
    {
        std::string text;
        for (int i = 0; i < list.Count(); ++i) {
            TzuDataEntity_Tree *child = list.Entity(i);
            text += (i > 0 ? " " : "") + child->GetText();
            text += child->HasChildren() ? '(' + Children(*child->ChildList()) + ')' : "";
        }
        return text;
    }
};

class TreeUserTest : public testing::Test
{
protected:
    /// a(b c(d)) e f, all expanded.
    void Fill()
    {
        auto *a = Tree.Add("a");
        Tree.Add("b", a);
        Tree.Add("d", Tree.Add("c", a));
        Tree.Add("e");
        Tree.Add("f");
        Tree.FullExpand();
    }
    void Click(std::string_view text, TShiftState shift = {})
    {
        Tree.MousePressed(Tree.NodeOf(text), shift, TMouseButton::mbLeft);
        Tree.MouseReleased();
    }

    FakeTreeHost Host;
    UserTree Tree{Host};
};

constexpr TShiftState kShift{.Shift = true};
constexpr TShiftState kCtrl{.Ctrl = true};
constexpr TShiftState kBoth{.Shift = true, .Ctrl = true};

// --- selection -----------------------------------------------------------------------------------

TEST_F(TreeUserTest, ClicksSelectAloneTheOtherWayRoundAndByRanges)
{
    Fill();
    Click("b", kCtrl);
    EXPECT_EQ(Tree.Rows(), "a[b*]cdef");
    Click("d", kShift); // alone, as several may not be selected
    EXPECT_EQ(Tree.Rows(), "abc[d*]ef");
    Tree.SetMultiSelect(true);
    const struct
    {
        const char *Text;
        TShiftState Shift;
        const char *Rows;
    } kClicks[]{
        {"b", {}, "a[b*]cdef"},       {"d", kShift, "ab*c*[d*]ef"}, {"f", kShift, "ab*c*d*e*[f*]"},
        {"a", kShift, "[a*]b*cdef"},  {"c", kCtrl, "a*b*[c*]def"},  {"e", kBoth, "a*b*c*d*[e*]f"},
        {"d", kCtrl, "a*b*c*[d]e*f"}, {"f", kShift, "abcd*e*[f*]"}, {"e", {}, "abcd[e*]f"},
    };
    for (const auto &click : kClicks) {
        Click(click.Text, click.Shift);
        EXPECT_EQ(Tree.Rows(), click.Rows) << click.Text;
    }
    Click("b", kShift);
    EXPECT_EQ(Tree.SelectedCount(), 4);
    Tree.MousePressed(Tree.NodeOf("c"), {}, TMouseButton::mbLeft);
    EXPECT_EQ(Tree.SelectedCount(), 4); // perhaps they are to be dragged
    Tree.MouseReleased();
    EXPECT_EQ(Tree.Rows(), "ab[c*]def");
    Tree.SelectAll();
    Tree.SetMultiSelect(false);
    EXPECT_EQ(Tree.Rows(), "ab[c*]def");
}

TEST_F(TreeUserTest, TheSelectionIsListedInTreeOrderAndForgetsWhatGoes)
{
    Fill();
    Tree.SetMultiSelect(true);
    Tree.SelectAll();
    Tree.Find("a")->SetExpanded(false);
    std::string order;
    for (const auto *entity : Tree.SelectedEntities()) {
        order += entity->GetText();
    }
    EXPECT_EQ(order, "abcdef");
    EXPECT_EQ(Tree.TopmostSelected().size(), 3U);
    Tree.RemoveDataEntity(Tree.Find("c"));
    EXPECT_EQ(Tree.SelectedCount(), 4);
    Tree.Find("e")->ChangeOwner(Tree.Find("f")->ChildList(), 0);
    EXPECT_EQ(Tree.SelectedCount(), 4);
    Tree.OnSelectionChanged = [&](TObject *, TzuDataList *, TzuDataEntity *) {
        Tree.OnSelectionChanged = nullptr;
        Tree.Clear();
    };
    Tree.ClearSelection();
    EXPECT_EQ(Tree.SelectedCount(), 0);
}

// --- keys ----------------------------------------------------------------------------------------

TEST_F(TreeUserTest, KeysMoveSelectExpandAndCollapse)
{
    Fill();
    Tree.SetMultiSelect(true);
    Host.View.Height = 60; // three rows
    using K = TTreeKey;
    const struct
    {
        K Key;
        TShiftState Shift;
        const char *Rows;
    } kKeys[]{
        {K::Down, {}, "[a*]bcdef"},        {K::Down, {}, "a[b*]cdef"},
        {K::Down, kShift, "ab*[c*]def"},   {K::Down, kShift, "ab*c*[d*]ef"},
        {K::Up, kShift, "ab*[c*]def"},     {K::Down, kCtrl, "ab*c*[d]ef"},
        {K::Select, kCtrl, "ab*c*[d*]ef"}, {K::End, {}, "abcde[f*]"},
        {K::Down, {}, "abcde[f*]"},        {K::Home, kShift, "[a*]b*c*d*e*f*"},
        {K::Home, {}, "[a*]bcdef"},        {K::Up, {}, "[a*]bcdef"},
        {K::PageDown, {}, "ab[c*]def"},    {K::PageDown, {}, "abcd[e*]f"},
        {K::PageUp, {}, "ab[c*]def"},      {K::Left, {}, "ab[c*]ef"},
        {K::Right, {}, "ab[c*]def"},       {K::Right, {}, "abc[d*]ef"},
        {K::Right, {}, "abc[d*]ef"},       {K::Left, {}, "ab[c*]def"},
        {K::Collapse, {}, "ab[c*]ef"},     {K::Left, {}, "[a*]bcef"},
        {K::Left, {}, "[a*]ef"},           {K::Left, {}, "[a*]ef"},
        {K::Expand, {}, "[a*]bcef"},       {K::Collapse, {}, "[a*]ef"},
        {K::ExpandAll, {}, "[a*]bcdef"},   {K::SelectAll, {}, "[a*]b*c*d*e*f*"},
    };
    int step = 0;
    for (const auto &key : kKeys) {
        EXPECT_TRUE(Tree.KeyDown(key.Key, key.Shift));
        EXPECT_EQ(Tree.Rows(), key.Rows) << step;
        const int row = Tree.GetRow(*Tree.GetCurrentDataEntity());
        EXPECT_TRUE(row >= Host.View.TopRow && row < Host.View.TopRow + 3) << step;
        ++step;
    }
    Tree.Clear();
    for (int key = 0; key <= static_cast<int>(K::SelectAll); ++key) {
        Tree.KeyDown(static_cast<K>(key), {}); // with nothing to move to
    }
}

TEST_F(TreeUserTest, KeysPassOverPlaceholdersAndStartAtWhatHidesTheCurrentNode)
{
    Tree.SetLoadOnDemand(true);
    auto *a = Tree.Add("a");
    Tree.Add("b");
    a->SetExpanded(true);
    Tree.KeyDown(TTreeKey::Home, {});
    Tree.KeyDown(TTreeKey::Right, {}); // the placeholder is no place to be
    EXPECT_EQ(Tree.Rows(), "[a*]b");
    Tree.KeyDown(TTreeKey::Down, {});
    EXPECT_EQ(Tree.Rows(), "a[b*]");
    Tree.Add("c", a);
    Click("c");
    a->SetExpanded(false);
    Tree.KeyDown(TTreeKey::Down, {});
    EXPECT_EQ(Tree.Rows(), "a[b*]");
}

// --- expansion and loading -----------------------------------------------------------------------

TEST_F(TreeUserTest, ExpansionIsToldOnceWhenTheEntityHasANodeOrGetsItByTheCall)
{
    std::string log;
    Tree.OnExpanded = [&](TObject *, auto *e) { log += '+' + e->GetText(); };
    Tree.OnCollapsed = [&](TObject *, auto *e) { log += '-' + e->GetText(); };
    auto *a = Tree.Add("a");
    a->SetExpanded(true); // its node is made by this
    EXPECT_NE(a->Node(), nullptr);
    EXPECT_TRUE(Tree.IsDisplayOutOfDate());
    a->SetExpanded(true);
    EXPECT_EQ(log, "+a");
    auto *hidden = Tree.Add("h");
    hidden->Set_HideNode(true);
    hidden->SetExpanded(true);
    EXPECT_TRUE(hidden->GetExpanded());
    hidden->Set_HideNode(false);
    Tree.EnsureDisplayUpToDate();
    EXPECT_TRUE(hidden->Node()->Expanded());
    auto *b = Tree.Add("b");
    b->SetExpanded(false); // stays for the node to come
    EXPECT_EQ(b->Node(), nullptr);
    a->SetExpanded(false);
    EXPECT_EQ(log, "+a-a");
}

TEST_F(TreeUserTest, ChildrenAreAskedForWhenANodeFirstExpands)
{
    Tree.SetLoadOnDemand(true);
    std::string log;
    enum { None, One, Later, Gone } what = None;
    Tree.OnLoadChildren = [&](TObject *, TzuDataEntity_Tree *entity, bool &loaded) {
        log += entity->GetText();
        if (what == One) {
            Tree.Add(entity->GetText() + "1", entity);
        } else if (what == Gone) {
            Tree.RemoveDataEntity(entity);
        }
        loaded = what != Later;
    };
    Tree.OnExpanded = [&](TObject *, auto *e) { log += '+' + e->GetText(); };
    auto *none = Tree.Add("n");
    auto *one = Tree.Add("o");
    auto *later = Tree.Add("l");
    Tree.Add("g");
    Tree.EnsureDisplayUpToDate();
    EXPECT_NE(none->DummyNode(), nullptr);
    none->SetExpanded(true);
    Tree.EnsureDisplayUpToDate();
    EXPECT_EQ(none->Node()->ChildCount(), 0); // no button any more
    EXPECT_FALSE(none->GetExpanded());
    what = One;
    const TTreeNode_zuSub *placeholder = one->DummyNode();
    one->SetExpanded(true);
    Tree.EnsureDisplayUpToDate();
    EXPECT_EQ(one->Node()->Child(0), placeholder);
    EXPECT_EQ(Tree.Rows(), "noo1lg");
    what = Later;
    later->SetExpanded(true);
    Tree.EnsureDisplayUpToDate();
    EXPECT_NE(later->DummyNode(), nullptr);
    Tree.Add("l1", later);
    EXPECT_EQ(Tree.Rows(), "noo1ll1g");
    what = Gone;
    Tree.Find("g")->SetExpanded(true);
    EXPECT_EQ(Tree.Rows(), "noo1ll1");
    EXPECT_EQ(log, "no+ol+lg");
    // Children that went are not asked for again, unless the application says so.
    Tree.RemoveDataEntity(Tree.Find("o1"));
    Tree.EnsureDisplayUpToDate();
    EXPECT_EQ(one->DummyNode(), nullptr);
    one->SetChildrenLoaded(false);
    Tree.EnsureDisplayUpToDate();
    EXPECT_NE(one->DummyNode(), nullptr);
    what = One;
    EXPECT_TRUE(Tree.MoveByUser(
        Tree.MoveTo({one, TTreeDropPlace::On}, {Tree.Find("l")}))); // behind what is loaded
    EXPECT_EQ(Tree.Content(), "n o(o1 l(l1))");
    log.clear();
    Tree.FullCollapse();
    Tree.FullExpand(); // loads nothing
    EXPECT_EQ(log, "");
    EXPECT_EQ(Tree.Rows(), "noo1ll1");
}

TEST_F(TreeUserTest, LevelsAreShownExactly)
{
    Fill();
    const char *const kRows[]{"aef", "aef", "abcef", "abcdef", "abcdef"};
    for (const int levels : {3, 1, 2, 4, 0}) {
        Tree.ShowLevels(levels);
        EXPECT_EQ(Tree.Rows(), kRows[levels]);
    }
}

// --- captions ------------------------------------------------------------------------------------

TEST_F(TreeUserTest, ACaptionIsStoredOnlyAsTheApplicationAllows)
{
    std::string log;
    auto *a = Tree.Add("a");
    bool allow = true;
    std::string instead;
    Tree.OnEdited = [&](TObject *, auto *, std::string &text, bool &allowed) {
        log += '<' + text + '>';
        text = instead.empty() ? text : instead;
        allowed = allow;
    };
    Tree.OnValueChanged = [&](TObject *, auto *e) { log += e->GetText(); };
    EXPECT_TRUE(Tree.Edit(*a, "a"));
    EXPECT_TRUE(Tree.Edit(*a, "b"));
    instead = "c";
    EXPECT_TRUE(Tree.Edit(*a, "x"));
    EXPECT_TRUE(Tree.Edit(*a, "y")); // changed to what it is already
    allow = false;
    EXPECT_FALSE(Tree.Edit(*a, "z"));
    EXPECT_EQ(log, "<b>b<x>c<y><z>");
    EXPECT_EQ(a->GetText(), "c");
    allow = true;
    EXPECT_THROW(Tree.Edit(*a, std::string(256, 'x')), std::length_error);
    Tree.OnEdited = [&](TObject *, auto *e, std::string &, bool &) { Tree.RemoveDataEntity(e); };
    EXPECT_FALSE(Tree.Edit(*a, "gone"));

    auto *b = Tree.Add("b");
    EXPECT_TRUE(Tree.CanEdit(*b));
    Tree.OnBeforeEdit = [](TObject *, auto *, bool &allowed) { allowed = false; };
    EXPECT_FALSE(Tree.CanEdit(*b));
    Tree.OnBeforeEdit = nullptr;
    Tree.OnBeforeCanEditItem = [](TObject *, auto *e) { e->SetCanEdit(false); };
    EXPECT_FALSE(Tree.CanEdit(*b));
    Tree.OnBeforeCanEditItem = nullptr;
    b->SetCanEdit(true);
    Tree.SetReadOnly(true);
    EXPECT_FALSE(Tree.CanEdit(*b));
}

// --- order ---------------------------------------------------------------------------------------

TEST_F(TreeUserTest, SortingIsStableAndKeepsSelectionExpansionAndTop)
{
    for (const bool compared : {false, true}) {
        Tree.Clear();
        Tree.SetSortCompare(compared ? TOnEntityCompare([](TzuDataEntity *a, TzuDataEntity *b) {
            const auto first = [](TzuDataEntity *e) {
                return static_cast<TzuDataEntity_Tree *>(e)->GetText()[0];
            };
            return first(a) - first(b);
        })
                                     : nullptr);
        auto *c = Tree.Add("c");
        for (const char *text : {"a2", "b", "a1"}) {
            Tree.Add(text);
        }
        Tree.Add("y", c);
        Tree.Add("z", c);
        c->SetExpanded(true);
        Tree.EnsureDisplayUpToDate();
        Click("c");
        Tree.Sort({nullptr, TSortDirection::Descending, false});
        EXPECT_EQ(Tree.Content(), compared ? "c(y z) b a2 a1" : "c(y z) b a2 a1");
        EXPECT_EQ(Tree.Rows(), "[c*]yzba2a1");
        Tree.Sort({nullptr, TSortDirection::Descending, true});
        EXPECT_EQ(Tree.Content(), "c(z y) b a2 a1");
        Tree.Add("d"); // with a comparison it finds its place
        EXPECT_EQ(Tree.Rows(), compared ? "d[c*]zyba2a1" : "[c*]zyba2a1d");
        Tree.Sort({nullptr, TSortDirection::Ascending, true});
        EXPECT_EQ(Tree.Content(), compared ? "a2 a1 b c(y z) d" : "a1 a2 b c(y z) d");
        EXPECT_EQ(Tree.Rows(), compared ? "a2a1b[c*]yzd" : "a1a2b[c*]yzd");
    }
    Host.View = {0, 20, 200, 40};
    Tree.SetTopItem(Tree.Find("b"));
    Tree.Sort({nullptr, TSortDirection::Descending, false});
    EXPECT_EQ(Tree.GetTopItem(), Tree.Find("b"));
    Tree.OnBeforeSort = [](TObject *, const TTreeSort &, bool &allow, bool &) { allow = false; };
    EXPECT_FALSE(Tree.SortByUser({}));
    Tree.OnBeforeSort = nullptr;
    Tree.SetAllowSort(false);
    EXPECT_FALSE(Tree.SortByUser({}));
}

// --- moving and deleting -------------------------------------------------------------------------

TEST_F(TreeUserTest, DropsGoAboveBelowAndOntoRows)
{
    Fill(); // rows of 20 pixels: a b c d e f
    const struct
    {
        int Y;
        const char *Moved;
        const char *Content; ///< nullptr: refused
    } kDrops[]{
        {2, "f", "f a(b c(d)) e"},   {10, "f", "a(b c(d) f) e"}, {18, "f", "a(f b c(d)) e"},
        {22, "f", "a(f b c(d)) e"},  {38, "f", "a(b f c(d)) e"}, {58, "f", "a(b c(f d)) e"},
        {78, "f", "a(b c(d f)) e"},  {98, "b", "a(c(d)) e b f"}, {50, "a", nullptr},
        {10, "a", nullptr},          {70, "c", nullptr},         {22, "c", "a(c(d) b) e f"},
        {130, "a", "e f a(b c(d))"}, {42, "c", "a(b c(d)) e f"}, {250, "b", "a(c(d)) e f b"},
    };
    for (const auto &drop : kDrops) {
        Tree.Clear();
        Fill();
        Host.View.Height = 300;
        const TTreeMove move = Tree.MoveTo(Tree.DropAt(10, drop.Y), {Tree.Find(drop.Moved)});
        EXPECT_EQ(Tree.MoveByUser(move), drop.Content != nullptr) << drop.Y;
        EXPECT_EQ(Tree.Content(), drop.Content != nullptr ? drop.Content : "a(b c(d)) e f")
            << drop.Y;
    }
}

TEST_F(TreeUserTest, AMoveKeepsOrderSelectionExpansionAndTheCurrentEntity)
{
    Fill();
    Tree.SetMultiSelect(true);
    Click("c");
    Click("f", kCtrl);
    Click("b", kCtrl);
    EXPECT_TRUE(Tree.MoveByUser({Tree.TopmostSelected(), nullptr, 1}));
    EXPECT_EQ(Tree.Content(), "a b c(d) f e");
    EXPECT_EQ(Tree.Rows(), "a[b*]c*df*e");
}

TEST_F(TreeUserTest, TheApplicationMayRefuseAMoveOrMakeItItself)
{
    Fill();
    bool allow = false;
    bool handled = false;
    int moved = 0;
    Tree.OnBeforeMove = [&](TObject *, const TTreeMove &move, bool &allowed, bool &done) {
        EXPECT_EQ(move.Index, 0);
        allowed = allow;
        done = handled;
    };
    Tree.OnMoved = [&](TObject *, const TTreeMove &) { ++moved; };
    const auto toTop = [&] { return Tree.MoveByUser({{Tree.Find("f")}, nullptr, 0}); };
    EXPECT_FALSE(toTop());
    allow = handled = true;
    EXPECT_TRUE(toTop());
    EXPECT_EQ(Tree.Content(), "a(b c(d)) e f");
    Tree.OnBeforeMove = [&](TObject *, const TTreeMove &move, bool &, bool &) {
        Tree.RemoveDataEntity(move.Entities[0]);
    };
    EXPECT_TRUE(toTop());
    EXPECT_EQ(Tree.Content(), "a(b c(d)) e");
    EXPECT_EQ(moved, 1);
}

TEST_F(TreeUserTest, StepsAndMaxLevels)
{
    using S = TTreeUserCore::TStep;
    Fill();
    const struct
    {
        const char *Text;
        S Step;
        int MaxLevels;
        const char *Content; ///< nullptr: refused
    } kSteps[]{
        {"e", S::Up, 0, "e a(b c(d)) f"},
        {"e", S::Down, 0, "a(b c(d)) f e"},
        {"f", S::Down, 0, nullptr},
        {"a", S::Up, 0, nullptr},
        {"a", S::Indent, 0, nullptr},
        {"c", S::Indent, 0, "a(b(c(d))) e f"},
        {"c", S::Indent, 3, nullptr},
        {"c", S::Indent, 4, "a(b(c(d))) e f"},
        {"c", S::Outdent, 1, "a(b) c(d) e f"},
        {"e", S::Indent, 1, nullptr},
        {"e", S::Outdent, 0, nullptr},
        {"e", S::Indent, 2, "a(b c(d) e) f"},
    };
    for (const auto &step : kSteps) {
        Tree.Clear();
        Fill();
        Tree.SetMaxLevels(step.MaxLevels);
        Click(step.Text);
        EXPECT_EQ(Tree.MoveSelected(step.Step), step.Content != nullptr) << step.Text;
        EXPECT_EQ(Tree.Content(), step.Content != nullptr ? step.Content : "a(b c(d)) e f");
        EXPECT_EQ(Tree.GetCurrentDataEntity(), Tree.Find(step.Text));
    }
}

TEST_F(TreeUserTest, DeletingAsksAndLeavesANeighbourCurrent)
{
    Fill();
    Tree.SetMultiSelect(true);
    Click("b");
    EXPECT_FALSE(Tree.DeleteSelected());
    Tree.SetAllowDelete(true);
    Tree.OnBeforeDelete = [](TObject *, const TTreeEntities &, bool &allow, bool &) {
        allow = false;
    };
    EXPECT_FALSE(Tree.DeleteSelected());
    Tree.OnBeforeDelete = nullptr;
    EXPECT_TRUE(Tree.DeleteSelected());
    EXPECT_EQ(Tree.Rows(), "a[c*]def");
    Click("e");
    Click("f", kShift);
    EXPECT_TRUE(Tree.DeleteSelected());
    EXPECT_EQ(Tree.Rows(), "ac[d*]");
    Tree.SelectAll();
    EXPECT_TRUE(Tree.DeleteSelected());
    EXPECT_EQ(Tree.Rows(), "");
}

} // namespace
} // namespace korvane::test
