#include "support/NamedItems.h"

#include <gmock/gmock.h>

using namespace korvane;
using namespace korvane::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr TShiftState kPlain{};
constexpr TShiftState kShift{true, false, false};
constexpr TShiftState kCtrl{false, true, false};
constexpr TShiftState kCtrlShift{true, true, false};

struct GantSelection : NamedItems
{
    int MarkEvents = 0;
    int DoneEvents = 0;

    GantSelection()
    {
        Gant.OnSelectionChanged_Spanbar = [this](auto...) { ++MarkEvents; };
        Gant.OnAfterSelectionChanged = [this](auto...) { ++DoneEvents; };
    }

    void Select(std::string_view names)
    {
        NamedItems::Select(names);
        MarkEvents = DoneEvents = Chart.Host->Invalidations = 0;
    }
    void Press(char name, TShiftState shift = {})
    {
        Gant.UpdateMultiSelect(At(name), shift, TSelectStep::Press);
    }
    void Release(char name, TShiftState shift = {}, TSelectStep step = TSelectStep::Release)
    {
        Gant.UpdateMultiSelect(At(name), shift, step);
    }
    void Click(char name, TShiftState shift = {})
    {
        Press(name, shift);
        Release(name, shift);
    }
};

/// Three rows: a b c / d e / f, with g on a row between that is hidden under a collapsed node.
struct GantSelectionOnRows : GantSelection
{
    TzuDataEntity_Tree *Collapsed = nullptr;

    GantSelectionOnRows()
    {
        TGantRow *first = Chart.AddRow();
        Add('a', first, 0, 40);
        Add('b', first, 50, 90);
        Add('c', first, 100, 140);
        TzuDataEntity_Tree *parent = Chart.AddNode();
        TGantRow *second = Gant.GantRows().FindRowFromTreeNode(parent);
        Add('d', second, 40, 60);
        Add('e', second, 90, 120);
        Add('g', Gant.GantRows().FindRowFromTreeNode(Chart.AddNode(parent)), 50, 90);
        Add('f', Chart.AddRow(), 60, 70);
        Chart.Paint();
        Chart.Host->Invalidations = 0;
    }
};

TEST_F(GantSelectionOnRows, ClicksFollowTheRulesOfItemViews)
{
    struct TCase
    {
        std::string Before;
        char Pressed;
        TShiftState Shift;
        TSelectStep Step;
        std::string AtPress;
        std::string AtRelease;
    };
    constexpr TSelectStep kRelease = TSelectStep::Release;
    constexpr TSelectStep kDrop = TSelectStep::Drop;
    const TCase cases[] = {
        {"", 'b', kPlain, kRelease, "b", "b"},      {"ac", 'b', kPlain, kRelease, "b", "b"},
        {"abc", 'b', kPlain, kRelease, "abc", "b"}, {"abc", 'b', kPlain, kDrop, "abc", "abc"},
        {"a", 'b', kCtrl, kRelease, "ab", "ab"},    {"ab", 'b', kCtrl, kRelease, "ab", "a"},
        {"ab", 'b', kCtrl, kDrop, "ab", "ab"},      {"ab", '-', kPlain, kRelease, "", ""},
        {"ab", '-', kCtrl, kRelease, "ab", "ab"},   {"ab", '-', kShift, kRelease, "ab", "ab"},
        {"g", 'b', kPlain, kRelease, "b", "b"},
    };
    for (const TCase &c : cases) {
        SCOPED_TRACE(&c - cases);
        Select(c.Before);
        Press(c.Pressed, c.Shift);
        EXPECT_EQ(Selected(), c.AtPress);
        Release(c.Pressed, c.Shift, c.Step);
        EXPECT_EQ(Selected(), c.AtRelease);
        if (c.Pressed != '-') {
            EXPECT_EQ(Gant.ActiveDataEntity(), At(c.Pressed));
        }
    }
    EXPECT_EQ(Gant.ActiveDataEntity(), Items.at('b')) << "a click beside all items leaves it";
    Select("ab");
    Press('a');
    Release('b');
    EXPECT_EQ(Selected(), "ab") << "released elsewhere";
}

TEST_F(GantSelectionOnRows, ShiftSelectsRowsAndTimesBetweenTheAnchorAndTheItem)
{
    struct TCase
    {
        std::string Before;
        char Anchor;
        char Pressed;
        TShiftState Shift;
        std::string Selected;
    };
    const TCase cases[] = {
        {"", 'a', 'c', kShift, "abc"},
        {"", 'c', 'a', kShift, "abc"},
        {"", 'a', 'b', kShift, "ab"},
        {"", 'b', 'f', kShift, "bdf"}, // e begins where b ends, g's row is not shown
        {"", 'f', 'b', kShift, "bdf"},
        {"", 'd', 'a', kShift, "abd"},
        {"", 'b', 'b', kShift, "b"},
        {"c", 'a', 'd', kCtrlShift, "abcd"},
    };
    for (const TCase &c : cases) {
        SCOPED_TRACE(&c - cases);
        Click(c.Anchor);
        Select(c.Before);
        Click(c.Pressed, c.Shift);
        EXPECT_EQ(Selected(), c.Selected);
    }
    Click('a');
    Click('c', kShift);
    Click('b', kShift);
    EXPECT_EQ(Selected(), "ab") << "the anchor stays where it is";

    Gant.RemoveSpanbar(Items.at('a'));
    Click('b', kShift);
    EXPECT_EQ(Selected(), "b") << "the anchor is gone, the active item stands in";
}

TEST_F(GantSelectionOnRows, AnOperationTellsEachChangeOnceAndRepaintsOnce)
{
    Select("ag");
    Gant.SelectAll();
    EXPECT_EQ(Selected(), "abcdegf") << "what is hidden is left alone";
    EXPECT_EQ(MarkEvents, 5);
    EXPECT_EQ(DoneEvents, 1);
    EXPECT_EQ(Chart.Host->Invalidations, 1);
    Gant.SelectAll();
    EXPECT_EQ(DoneEvents, 1);

    Select("abc");
    Gant.SelectOnly(*Items.at('b'));
    EXPECT_EQ(MarkEvents, 2);
    EXPECT_EQ(DoneEvents, 1);
    EXPECT_EQ(Chart.Host->Invalidations, 1);

    Select("");
    Items.at('a')->SetCanEdit(false);
    Items.at('a')->SetSelected(true);
    EXPECT_EQ(Selected(), "a");
    EXPECT_EQ(DoneEvents, 1);
}

TEST_F(GantSelectionOnRows, WhatIsNotDrawnIsNotSelected)
{
    Items.at('b')->SetVisible(false);
    Items.at('d')->GetRow()->SetDrawLayerStart(1);
    Gant.SelectAll();
    EXPECT_EQ(Selected(), "acf");
    Gant.SelectInRect({0, 0, 480, 180}, TSelectHow::Replace);
    EXPECT_EQ(Selected(), "acf");
}

TEST_F(GantSelectionOnRows, ARectangleSelectsWhatItTouches)
{
    struct TCase
    {
        std::string Before;
        TRect Rect;
        TSelectHow How;
        std::string Selected;
    };
    using enum TSelectHow;
    const TCase cases[] = {
        {"f", {39, 5, 51, 10}, Replace, "ab"}, {"f", {51, 10, 39, 5}, Replace, "ab"},
        {"f", {40, 5, 50, 10}, Replace, ""},   {"f", {39, 5, 51, 10}, Add, "abf"},
        {"af", {39, 5, 51, 10}, Toggle, "bf"}, {"", {45, 5, 46, 30}, Replace, "d"},
        {"", {55, 8, 55, 8}, Replace, "b"},    {"", {0, -50, 480, 500}, Replace, "abcdef"},
        {"ab", {300, 5, 301, 6}, Replace, ""},
    };
    for (const TCase &c : cases) {
        SCOPED_TRACE(&c - cases);
        Select(c.Before);
        Gant.SelectInRect(c.Rect, c.How);
        EXPECT_EQ(Selected(), c.Selected);
    }
}

TEST_F(GantSelectionOnRows, AGrowingRectangleStartsFromWhatWasSelectedBefore)
{
    constexpr TRect kWide{0, 5, 140, 10};
    constexpr TRect kNarrow{0, 5, 60, 10};
    Select("bf");
    Gant.BeginSelectInRect();
    Gant.SelectInRect(kWide, TSelectHow::Toggle);
    EXPECT_EQ(Selected(), "acf");
    EXPECT_EQ(MarkEvents, 3);
    Gant.SelectInRect(kNarrow, TSelectHow::Toggle);
    EXPECT_EQ(Selected(), "af");
    EXPECT_EQ(MarkEvents, 4) << "only what left the rectangle";
    Gant.SelectInRect(kNarrow, TSelectHow::Add);
    EXPECT_EQ(Selected(), "abf");
    Gant.SelectInRect(kNarrow, TSelectHow::Replace);
    EXPECT_EQ(Selected(), "ab");
    Gant.CancelSelectInRect();
    EXPECT_EQ(Selected(), "bf");
    EXPECT_FALSE(Gant.SelectingInRect());
}

TEST_F(GantSelection, ARectangleReachesRowsThatAreScrolledAway)
{
    for (char name = 'a'; name <= 'z'; ++name) {
        Add(name, Chart.AddRow(), 10, 20);
    }
    Chart.View.SetTopRow(5); // f to o are on screen
    Chart.Paint();
    Gant.SelectInRect({0, -40, 480, 10}, TSelectHow::Replace);
    EXPECT_EQ(Selected(), "cdef");
    Gant.SelectInRect({0, 170, 480, 200}, TSelectHow::Replace);
    EXPECT_EQ(Selected(), "opq");
    Gant.SelectInRect({0, -1000, 480, 1000}, TSelectHow::Replace);
    EXPECT_EQ(Gant.SelectedCount(), 26);
}

TEST_F(GantSelectionOnRows, ItemsAndLinksAreOneSelection)
{
    TzuDataEntity_Link &first = Chart.Link(Items.at('a'), Items.at('b'));
    TzuDataEntity_Link &second = Chart.Link(Items.at('b'), Items.at('c'));
    const auto click = [this](TzuDataEntity_Link &link, TShiftState shift) {
        Gant.UpdateMultiSelect(link, shift, TSelectStep::Press);
        Gant.UpdateMultiSelect(link, shift, TSelectStep::Release);
    };
    Select("a");
    click(second, kPlain);
    EXPECT_THAT(Gant.SelectedLinks(), ElementsAre(&second));
    EXPECT_EQ(Selected(), "");
    click(first, kCtrl);
    EXPECT_THAT(Gant.SelectedLinks(), ElementsAre(&first, &second));
    Click('c', kCtrl);
    EXPECT_EQ(Gant.SelectedLinks().size(), 2U);
    click(second, kCtrl);
    EXPECT_THAT(Gant.SelectedLinks(), ElementsAre(&first));
    Click('b');
    EXPECT_EQ(Selected(), "b");
    EXPECT_THAT(Gant.SelectedLinks(), IsEmpty());

    click(first, kPlain);
    Gant.RemoveSpanbar(Items.at('a'));
    EXPECT_THAT(Gant.SelectedLinks(), IsEmpty());
}

TEST_F(GantSelectionOnRows, TheSelectionFollowsItemsThatGoMoveOrAreUnloaded)
{
    Select("abcdef");
    Gant.RemoveSpanbar(Items.at('b'));
    Items.at('f')->ChangeOwner(Items.at('a')->GetDataList(), 0);
    EXPECT_EQ(Selected(), "facde");
    Items.at('a')->Move(0);
    EXPECT_EQ(Selected(), "afcde");
    Gant.SetActiveDataEntity(Items.at('e'));
    Items.at('e')->GetDataList()->Unload(1, TBlockEnd::Back);
    EXPECT_EQ(Selected(), "afcd");
    EXPECT_EQ(Gant.ActiveDataEntity(), nullptr);
    Chart.Tree.RemoveDataEntity(Items.at('d')->GetRow()->TreeNode());
    EXPECT_EQ(Selected(), "afc");

    TestChart other;
    other.Paint();
    Gant.SetActiveDataEntity(Items.at('c'));
    TGantRow *row = other.AddRow();
    Items.at('c')->ChangeOwner(&row->AddDataList(), 0);
    EXPECT_EQ(Selected(), "af");
    EXPECT_EQ(Gant.ActiveDataEntity(), nullptr);
    EXPECT_THAT(other.Gant->SelectedItems(), ElementsAre(Items.at('c')));
}

TEST_F(GantSelectionOnRows, HandlersMayChangeItemsAndSelectionMeanwhile)
{
    Gant.OnSelectionChanged_Spanbar = [this](TObject *, TzuDataList *, TzuDataEntity *item) {
        if (item == Items.at('a')) {
            Gant.RemoveSpanbar(std::exchange(Items.at('b'), nullptr));
            Items.at('c')->GetDataList()->Unload(Items.at('c')->ListIndex(), TBlockEnd::Back);
            Gant.AddSpanbarToGantRow(Items.at('a')->GetRow(), 0);
        }
    };
    Gant.SelectAll();
    EXPECT_EQ(Selected(), "adef");

    Gant.BeginSelectInRect();
    Gant.SelectInRect({0, 0, 480, 180}, TSelectHow::Replace);
    Gant.RemoveSpanbar(Items.at('d'));
    Gant.CancelSelectInRect();
    EXPECT_EQ(Selected(), "aef");

    Gant.OnSelectionChanged_Spanbar = [](auto...) { throw std::runtime_error("no"); };
    EXPECT_THROW(Gant.ClearSelection(), std::runtime_error);
    Gant.OnSelectionChanged_Spanbar = {};
    Gant.ClearSelection();
    EXPECT_EQ(Selected(), "");
}

} // namespace
