#include "foundation/zuDoLater.h"
#include "support/NamedItems.h"

#include <cmath>
#include <gmock/gmock.h>

using namespace korvane;
using namespace korvane::test;
using testing::ElementsAre;

namespace {

using enum TGantKey;
constexpr TShiftState kShift{true, false, false};
constexpr TShiftState kCtrl{false, true, false};

/// Rows as drawn, names where items begin, in steps of 20 pixels:
///   a   b       c
///   (empty)
///     d     e
///   (collapsed: g below the row before)
///   f
struct GantKeys : NamedItems
{
    TGantRow *First = nullptr;

    GantKeys()
    {
        First = Chart.AddRow();
        Add('a', First, 0, 10);
        Add('c', First, 120, 130);
        Add('b', First, 40, 90);
        Chart.AddRow();
        TzuDataEntity_Tree *parent = Chart.AddNode();
        Add('d', Gant.GantRows().FindRowFromTreeNode(parent), 20, 30);
        Add('e', Gant.GantRows().FindRowFromTreeNode(parent), 80, 90);
        Add('g', Gant.GantRows().FindRowFromTreeNode(Chart.AddNode(parent)), 20, 30);
        Add('f', Chart.AddRow(), 0, 10);
        Chart.Paint();
    }

    char Active() const { return NameOf(Gant.ActiveDataEntity()); }
    bool Key(TGantKey key, TShiftState shift = {}) { return Gant.GantAreaKeyDown(key, shift); }
};

TEST_F(GantKeys, ArrowsWalkAlongLinesAndFromLineToLine)
{
    struct TCase
    {
        char From;
        std::vector<TGantKey> Keys;
        char To;
    };
    const TCase cases[] = {
        {'a', {Right}, 'b'},
        {'b', {Right}, 'c'},
        {'c', {Right}, 'c'},
        {'c', {Left, Left}, 'a'},
        {'a', {Left}, 'a'},
        {'a', {Down}, 'd'}, // past the empty row
        {'c', {Down}, 'e'},
        {'d', {Down}, 'f'}, // not to g, which is not shown
        {'f', {Down}, 'f'},
        {'d', {Up}, 'a'},
        {'c', {Down, Down, Up, Up}, 'c'}, // keeps to the time at which it began
        {'c', {Down, Left, Up}, 'a'},     // a walk along the line begins anew
        {'c', {Home}, 'a'},
        {'a', {End}, 'c'},
        {'c', {PageDown}, 'f'},
        {'c', {PageDown, PageUp}, 'c'},
        {'c', {PageUp}, 'c'},
    };
    for (const TCase &c : cases) {
        SCOPED_TRACE(&c - cases);
        Gant.SetActiveDataEntity(Items.at(c.From));
        for (const TGantKey key : c.Keys) {
            EXPECT_TRUE(Key(key));
        }
        EXPECT_EQ(Active(), c.To);
    }
    Gant.SetActiveDataEntity(Items.at('c'));
    EXPECT_TRUE(Key(End, kCtrl));
    EXPECT_EQ(Active(), 'f');
    EXPECT_TRUE(Key(Home, kCtrl));
    EXPECT_EQ(Active(), 'c');
    EXPECT_EQ(Selected(), "c");
}

TEST_F(GantKeys, EqualTimesSubRowsAndLayersAreAllReached)
{
    TGantRow *row = Chart.AddRow();
    Add('p', row, 0, 10);
    Add('q', row, 0, 10);
    Add('r', row, 0, 10, 1);
    Gant.SetActiveDataEntity(Items.at('p'));
    Key(Right);
    EXPECT_EQ(Active(), 'q');
    Key(Right);
    EXPECT_EQ(Active(), 'r');
    Key(Left);
    EXPECT_EQ(Active(), 'q');

    Items.at('q')->SetVisible(false);
    Key(Right);
    EXPECT_EQ(Active(), 'r') << "what is not drawn is passed over, also as a start";
    Items.at('q')->SetVisible(true);

    row->SetCollisionDetection(true);
    row->SetUseSubCols(3);
    Items.at('p')->SetSubCol(1);
    Items.at('q')->SetSubCol(3);
    Items.at('r')->SetSubCol(2);
    Gant.SetActiveDataEntity(Items.at('f'));
    std::string walked;
    for (int i = 0; i < 3; ++i) {
        Key(Down);
        walked += Active();
    }
    EXPECT_EQ(walked, "prq");
    Key(Right);
    EXPECT_EQ(Active(), 'q') << "a sub-row is a line of its own";

    Gant.OnKeyNavigateDataList = [row](TzuGant_ComBasic *, TGantRow *asked) {
        return asked == row ? 1 : 7;
    };
    Key(Up);
    EXPECT_EQ(Active(), 'r') << "the layer that the application names";
    Key(Up);
    EXPECT_EQ(Active(), 'f') << "a layer that is not there stands for all";
}

TEST_F(GantKeys, ShiftExtendsFromTheAnchorAndSpaceMarks)
{
    Gant.SetActiveDataEntity(Items.at('b'));
    Key(Space);
    EXPECT_EQ(Selected(), "b");
    Key(Right, kShift);
    EXPECT_EQ(Selected(), "cb");
    Key(Left, kShift);
    Key(Left, kShift);
    EXPECT_EQ(Selected(), "ab");
    EXPECT_EQ(Active(), 'a');
    Key(Space, kCtrl);
    EXPECT_EQ(Selected(), "b");
    Key(A, kCtrl);
    EXPECT_EQ(Selected(), "acbdef");
    EXPECT_TRUE(Key(Escape));
    EXPECT_EQ(Selected(), "");
    EXPECT_FALSE(Key(Escape)) << "left to the window";
    EXPECT_FALSE(Key(A));
}

TEST_F(GantKeys, WithoutAnActiveItemTheFirstKeyFindsOne)
{
    Key(Left);
    EXPECT_EQ(Active(), 'c') << "closest to the middle of the axis, 240, on the first row";
    Gant.SetActiveDataEntity(nullptr);
    Chart.Tree.SetCurrentDataEntity(Items.at('d')->GetRow()->TreeNode());
    TDoLater::DoAllNow();
    Gant.EnsureActiveDataEntity();
    EXPECT_EQ(Active(), 'e') << "on the current row";
    EXPECT_EQ(Selected(), "c") << "having the focus selects nothing";

    TestChart empty;
    EXPECT_FALSE(empty.Gant->GantAreaKeyDown(Down, {}));
    EXPECT_FALSE(empty.Gant->GantAreaKeyDown(Space, {}));
}

TEST_F(GantKeys, TheActiveItemIsBroughtIntoView)
{
    struct TCase
    {
        int From; // of the item, in pixels of the axis as it was
        int To;
        int Shift; // of the axis
    };
    const TCase cases[] = {
        {100, 200, 0},    {-20, 30, -20}, {470, 490, 10}, {480, 500, 20},
        {600, 1500, 600}, {-100, 600, 0}, {0, 480, 0},
    };
    for (const TCase &c : cases) {
        SCOPED_TRACE(&c - cases);
        Chart.Axis->BeginUpdate();
        Chart.Axis->SetStart(kDayZero);
        Chart.Axis->SetStop(kDayZero + 20);
        Chart.Axis->EndUpdate();
        TzuDataEntity_Spanbar *item = Items.at('a');
        item->SetStartDateTime(kDayZero + c.From * kHourLength);
        item->SetStopDateTime(kDayZero + c.To * kHourLength);
        Gant.SetActiveDataEntity(item);
        Gant.MakeSureActiveInView();
        EXPECT_NEAR(Chart.Axis->GetStart(), kDayZero + c.Shift * kHourLength, 1e-6);
        EXPECT_NEAR(Chart.Axis->GetStop() - Chart.Axis->GetStart(), 20, 1e-6);
    }
    for (int i = 0; i < 20; ++i) {
        Add(static_cast<char>('A' + i), Chart.AddRow(), 0, 10);
    }
    Key(End, kCtrl);
    EXPECT_EQ(Active(), 'T');
    Chart.Paint();
    EXPECT_TRUE(Items.at('T')->GetRow()->IsOnScreen());
    Gant.SetActiveDataEntity(Items.at('g'));
    Gant.MakeSureActiveInView();
    Chart.Paint();
    EXPECT_TRUE(Items.at('g')->GetRow()->IsOnScreen()) << "its parent is expanded";
}

TEST_F(GantKeys, DeletingAndEditingAskTheApplication)
{
    std::string log;
    Gant.OnBeginUserChange = [&](auto...) { log += '('; };
    Gant.OnEndUserChange = [&](auto, auto, bool changed) { log += changed ? "*)" : ")"; };
    TzuDataEntity_Link &link = Chart.Link(Items.at('d'), Items.at('e'));
    Items.at('b')->SetCanEdit(false);
    Select("ab");
    link.SetSelected(true);
    EXPECT_FALSE(Key(Delete)) << "nobody to ask";
    EXPECT_FALSE(Key(Enter));

    bool consent = false;
    Gant.OnAskDelete = [&](TzuGant_ComBasic *, const auto &items, const auto &links, bool &allow) {
        log += std::to_string(items.size()) + std::to_string(links.size());
        allow = consent;
    };
    Gant.SetActiveDataEntity(Items.at('a'));
    Key(Delete);
    EXPECT_EQ(Selected(), "ab");
    consent = true;
    Key(Delete);
    EXPECT_EQ(log, "(11)(11*)");
    EXPECT_EQ(Selected(), "b") << "what cannot be edited stays";
    EXPECT_EQ(Gant.GetLinks().Count(), 0);
    EXPECT_EQ(Active(), 'b') << "the closest one to what was active";
    EXPECT_FALSE(Key(Delete));

    Gant.OnEditDataEntity_Spanbar = [&](auto, TzuDataEntity_Spanbar *item) { log = NameOf(item); };
    EXPECT_FALSE(Key(Enter));
    Gant.SetActiveDataEntity(Items.at('d'));
    EXPECT_TRUE(Key(Enter));
    EXPECT_EQ(log, "d");
    Gant.OnEditDataEntity_Spanbar = {};
    Gant.OnDblClickGantArea = [&](auto, TzuDataEntity_Spanbar *item) { log += NameOf(item); };
    EXPECT_TRUE(Key(Enter));
    EXPECT_EQ(log, "dd");

    Select("cdef");
    Gant.OnBeforeCanEditItem_Spanbar = [this](TObject *, TzuDataEntity *item) {
        if (item == Items.at('c')) {
            Gant.RemoveSpanbar(Items.at('c'));
        }
    };
    Gant.OnAskDelete = [&](TzuGant_ComBasic *, const auto &items, const auto &, bool &allow) {
        log += std::to_string(items.size());
        Gant.RemoveSpanbar(Items.at('e'));
        allow = true;
    };
    Key(Delete);
    EXPECT_EQ(log, "dd(3*)");
    EXPECT_EQ(Selected(), "");
}

TEST_F(GantKeys, CtrlAndAltWithArrowsMoveAndResizeWhatIsSelected)
{
    constexpr TShiftState kAlt{false, false, true};
    constexpr TShiftState kAltShift{true, false, true};
    // An hour is a pixel and the grid three of them wide.
    struct TCase
    {
        TGantKey Key;
        TShiftState Shift;
        int Start; // in hours from where a was, 0 to 10
        int Stop;
    };
    const TCase cases[] = {
        {Right, kCtrl, 3, 13}, {Left, kCtrl, -3, 7},     {Right, kAlt, 0, 12},
        {Left, kAlt, 0, 6},    {Right, kAltShift, 3, 9}, {Left, kAltShift, -3, 9},
    };
    std::string log;
    Gant.OnBeginUserChange = [&](auto, TGantUserChange kind) {
        log += kind == TGantUserChange::ucMove ? 'm' : 'r';
    };
    Gant.OnEndUserChange = [&](auto, auto, bool changed) { log += changed ? '*' : '-'; };
    TzuDataEntity_Spanbar *a = Items.at('a');
    const auto hours = [](TDateTime time) { return (time - kDayZero) * 24; };
    for (const TCase &c : cases) {
        SCOPED_TRACE(&c - cases);
        a->SetStartDateTime(kDayZero);
        a->SetStopDateTime(kDayZero + 10 * kHourLength);
        Gant.SetActiveDataEntity(a);
        Select("a");
        log.clear();
        EXPECT_TRUE(Key(c.Key, c.Shift));
        EXPECT_NEAR(hours(a->GetStartDateTime()), c.Start, 1e-3);
        EXPECT_NEAR(hours(a->GetStopDateTime()), c.Stop, 1e-3);
        EXPECT_EQ(log.substr(1), "*");
    }

    Gant.OnSnapTimes = [](auto, auto, auto, TDateTime &start, TDateTime &stop) {
        start = std::round(start);
        stop = std::round(stop);
    };
    a->SetStopDateTime(kDayZero + 1);
    a->SetStartDateTime(kDayZero);
    Key(Right, kCtrl);
    EXPECT_EQ(hours(a->GetStartDateTime()), 24) << "a step of an application's coarser grid";
    Key(Right, kAlt);
    EXPECT_EQ(hours(a->GetStopDateTime()), 72);
    Gant.OnSnapTimes = {};

    First->SetTimeItems_CanMove(false);
    First->SetTimeItems_CanResize(false);
    Items.at('d')->SetCanEdit(false);
    Select("ad");
    log.clear();
    Key(Right, kCtrl);
    Key(Right, kAlt);
    EXPECT_EQ(log, "m-r-") << "neither the row nor the item permits it";
    Select("");
    EXPECT_FALSE(Key(Right, kCtrl));
    EXPECT_FALSE(Key(Right, {true, true, false}));
}

TEST_F(GantKeys, CtrlWithUpAndDownHandsItemsToTheApplication)
{
    Gant.SetActiveDataEntity(Items.at('d'));
    Select("ad");
    Key(Up, kCtrl);
    EXPECT_EQ(Selected(), "ad") << "nobody to move them";

    TzuDataEntity_Spanbar *moved = nullptr;
    Gant.OnTimeChangeRow = [&](auto, TzuDataEntity_Spanbar *item, TGantRow *, TGantRow *newRow,
                               TDateTime start, TDateTime stop) {
        moved = Gant.AddSpanbarToGantRow(newRow, 0);
        moved->SetStartDateTime(start);
        moved->SetStopDateTime(stop);
        Gant.RemoveSpanbar(item);
    };
    TGantRow *target = Gant.PrevShownRow(*Items.at('d')->GetRow());
    Key(Up, kCtrl);
    ASSERT_NE(moved, nullptr);
    EXPECT_EQ(moved->GetRow(), target);
    EXPECT_EQ(Gant.ActiveDataEntity(), Items.at('a')) << "there is no row above a's";
    EXPECT_THAT(Gant.SelectedItems(), ElementsAre(Items.at('a'), moved));
}

TEST_F(GantKeys, PlusAndMinusZoomAboutTheActiveItem)
{
    Gant.SetActiveDataEntity(Items.at('c'));
    const int pixel = Chart.Axis->DateToPixel(Items.at('c')->GetStartDateTime());
    const double scale = Chart.Axis->GetScale();
    Key(Plus);
    EXPECT_LT(Chart.Axis->GetScale(), scale);
    EXPECT_NEAR(Chart.Axis->DateToPixel(Items.at('c')->GetStartDateTime()), pixel, 2);
    Key(Minus);
    EXPECT_NEAR(Chart.Axis->GetScale(), scale, 1e-9);
}

} // namespace
