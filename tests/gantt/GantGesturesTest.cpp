#include "GestureFixture.h"

#include <gmock/gmock.h>

using namespace korvane;
using namespace korvane::test;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

using enum TGantMouseMoveMode;

TEST_F(GantGestures, APressStartsWhatTheItemAndTheKeysSay)
{
    struct Case
    {
        const char *What;
        int X;
        int FixedSize;
        bool CanEdit;
        bool Sticky;
        TShiftState Shift;
        TGantMouseMoveMode Mode;
    };
    // The item takes the pixels 100..139; as a symbol of 10 pixels 95..104.
    const Case cases[] = {
        {"left of it", 99, 0, true, false, kPlain, mmNone},
        {"first column of the left grip", 100, 0, true, false, kPlain, mmGrowLeft},
        {"last column of the left grip", 102, 0, true, false, kPlain, mmGrowLeft},
        {"inside", 103, 0, true, false, kPlain, mmMove},
        {"inside on the right", 136, 0, true, false, kPlain, mmMove},
        {"first column of the right grip", 137, 0, true, false, kPlain, mmGrowRight},
        {"last column of the right grip", 139, 0, true, false, kPlain, mmGrowRight},
        {"right of it", 140, 0, true, false, kPlain, mmNone},
        {"inside with Ctrl", 120, 0, true, false, kCtrl, mmCopy},
        {"a grip with Ctrl", 101, 0, true, false, kCtrl, mmGrowLeft},
        {"a symbol's edge", 101, 10, true, false, kPlain, mmMove},
        {"an item that cannot be edited", 120, 0, false, false, kPlain, mmNone},
        {"sticky in a grip", 101, 0, true, true, kPlain, mmDependency},
        {"sticky beside", 99, 0, true, true, kPlain, mmNone},
    };
    TzuDataEntity_Spanbar *item = AddItem(1, 100, 140);
    for (const Case &c : cases) {
        item->SetFixedSize(c.FixedSize);
        item->SetCanEdit(c.CanEdit);
        Gant.SetStickyMode(c.Sticky ? TGantStickyMode::smDependency : TGantStickyMode::smNone);
        Press(c.X, 27, c.Shift);
        EXPECT_EQ(Gant.GetMouseMoveMode(), c.Mode) << c.What;
        EXPECT_EQ(Gant.StickyMode(), TGantStickyMode::smNone) << c.What;
        EXPECT_TRUE(Gant.MouseIsDown());
        Release(c.X, 27);
        EXPECT_EQ(Gant.GetMouseMoveMode(), mmNone) << c.What;
        EXPECT_FALSE(Gant.MouseIsDown());
        EXPECT_EQ(Hours(item), std::pair(100.0, 140.0)) << c.What;
    }
}

TEST_F(GantGestures, TheMiddleColumnOfTheNarrowestItemBelongsToTheLeftGrip)
{
    AddItem(0, 200, 200);
    const std::pair<int, TGantMouseMoveMode> columns[] = {
        {200, mmGrowLeft}, {202, mmGrowLeft}, {203, mmGrowRight}, {204, mmGrowRight}};
    for (const auto &[x, mode] : columns) {
        Press(x, 5);
        EXPECT_EQ(Gant.GetMouseMoveMode(), mode) << x;
        Release(x, 5);
    }
}

TEST_F(GantGestures, DragsMoveResizeAndCopyWithSnappedTimes)
{
    struct Case
    {
        const char *What;
        TPoint From, To;
        TShiftState Shift;
        std::pair<double, double> Hours;
        std::vector<std::string> Events;
    };
    // Row 1 spans 18..35 and its items 19..34; the grid is 3 hours wide from each midnight.
    const Case cases[] = {
        {"a click", {120, 27}, {120, 27}, kPlain, {97, 145}, {}},
        {"an unsteady click", {120, 27}, {123, 30}, kPlain, {97, 145}, {}},
        {"an unsteady click with Ctrl", {120, 27}, {123, 30}, kCtrl, {97, 145}, {}},
        {"later", {120, 27}, {130, 27}, kPlain, {108, 156}, {"change"}},
        {"earlier, the hand unsteady", {120, 27}, {109, 20}, kPlain, {87, 135}, {"change"}},
        {"a row down, times kept", {120, 27}, {131, 45}, kPlain, {97, 145}, {"row 2@97"}},
        {"a row up, times kept", {120, 27}, {150, 17}, kPlain, {97, 145}, {"row 0@97"}},
        {"past the last row on screen", {120, 27}, {120, 190}, kPlain, {97, 145}, {"row 10@97"}},
        {"above the first row", {120, 27}, {120, 0}, kPlain, {97, 145}, {}},
        {"a copy in the same row", {120, 27}, {130, 27}, kCtrl, {97, 145}, {"copy 1@108"}},
        {"a copy in another row", {120, 27}, {130, 63}, kCtrl, {97, 145}, {"copy 3@108"}},
        {"the left end later", {98, 27}, {118, 27}, kPlain, {117, 144}, {"change"}},
        {"the right end earlier", {143, 27}, {123, 27}, kPlain, {96, 126}, {"change"}},
        {"the right end past the start", {143, 27}, {40, 27}, kPlain, {96, 96}, {"change"}},
        {"the left end past the stop", {98, 27}, {300, 27}, kPlain, {144, 144}, {"change"}},
    };
    for (const Case &c : cases) {
        GantGestures::Events.clear();
        TzuDataEntity_Spanbar *item = AddItem(1, 97, 145);
        NoteDrops();
        Gant.OnChangeDataEntity_Spanbar = [this](auto...) { Events.emplace_back("change"); };
        Drag(c.From, c.To, c.Shift);
        EXPECT_EQ(Hours(item), c.Hours) << c.What;
        EXPECT_THAT(Events, ElementsAreArray(c.Events)) << c.What;
        const TPoint way{c.To.X - c.From.X, c.To.Y - c.From.Y};
        const bool dragged = std::max(std::abs(way.X), std::abs(way.Y)) >= 4;
        EXPECT_EQ(Gant.LastDelta(), dragged ? way : TPoint()) << c.What;
        Gant.OnChangeDataEntity_Spanbar = nullptr;
        for (TGantRow *row : Rows) {
            row->Layers().GetDataList(0)->Clear();
        }
    }
}

TEST_F(GantGestures, RowsPermitMovesOtherRowsAndResizing)
{
    struct Case
    {
        const char *What;
        bool CanMove, CanChangeRow, CanResize;
        TPoint From, To;
        std::pair<double, double> Hours;
        std::vector<std::string> Events;
        TGantCursor Cursor;
    };
    const Case cases[] = {
        {"all",
         true,
         true,
         true,
         {120, 27},
         {130, 45},
         {108, 156},
         {"row 2@108"},
         TGantCursor::Move},
        {"not in time",
         false,
         true,
         true,
         {120, 27},
         {130, 45},
         {97, 145},
         {"row 2@97"},
         TGantCursor::Move},
        {"not to other rows",
         true,
         false,
         true,
         {120, 27},
         {130, 45},
         {108, 156},
         {},
         TGantCursor::Move},
        {"neither",
         false,
         false,
         true,
         {120, 27},
         {130, 45},
         {97, 145},
         {},
         TGantCursor::Forbidden},
        {"no resizing",
         true,
         true,
         false,
         {144, 27},
         {160, 27},
         {97, 145},
         {},
         TGantCursor::Forbidden},
        {"resizing", false, false, true, {144, 27}, {160, 27}, {96, 162}, {}, TGantCursor::Resize},
    };
    Gant.SetMoveInTimeWhenMoveRow(true);
    NoteDrops();
    for (const Case &c : cases) {
        Events.clear();
        TzuDataEntity_Spanbar *item = AddItem(1, 97, 145);
        Rows[1]->SetTimeItems_CanMove(c.CanMove);
        Rows[1]->SetTimeItems_CanChangeRow(c.CanChangeRow);
        Rows[1]->SetTimeItems_CanResize(c.CanResize);
        Press(c.From.X, c.From.Y);
        Move(c.To.X, c.To.Y);
        EXPECT_EQ(Host.Cursor, c.Cursor) << c.What;
        Release(c.To.X, c.To.Y);
        EXPECT_EQ(Hours(item), c.Hours) << c.What;
        EXPECT_THAT(Events, ElementsAreArray(c.Events)) << c.What;
        Gant.RemoveSpanbar(item);
    }
}

TEST_F(GantGestures, EverySelectedItemMovesByItsOwnRules)
{
    TzuDataEntity_Spanbar *dragged = AddItem(1, 96, 120);
    TzuDataEntity_Spanbar *other = AddItem(3, 200, 230);
    TzuDataEntity_Spanbar *locked = AddItem(4, 96, 120);
    TzuDataEntity_Spanbar *fixedRow = AddItem(5, 96, 120);
    TzuDataEntity_Spanbar *scrolledAway = AddItem(15, 96, 120);
    TzuDataEntity_Spanbar *farAway = AddItem(6, 0, 24);
    farAway->SetStartDateTime(2e6);
    farAway->SetStopDateTime(2e6 + 1);
    TzuDataEntity_Spanbar *unselected = AddItem(7, 96, 120);
    locked->SetCanEdit(false);
    Rows[5]->SetTimeItems_CanMove(false);
    Rows[5]->SetTimeItems_CanChangeRow(false);
    for (auto *item : {dragged, other, locked, fixedRow, scrolledAway, farAway}) {
        item->SetSelected(true);
    }
    NoteDrops();
    Gant.SetMoveInTimeWhenMoveRow(true);
    Drag({110, 27}, {120, 45});
    EXPECT_EQ(Hours(dragged), std::pair(105.0, 129.0));
    EXPECT_EQ(Hours(other), std::pair(210.0, 240.0));
    EXPECT_EQ(Hours(locked), std::pair(96.0, 120.0));
    EXPECT_EQ(Hours(fixedRow), std::pair(96.0, 120.0));
    EXPECT_EQ(Hours(scrolledAway), std::pair(105.0, 129.0));
    EXPECT_NEAR(farAway->GetStartDateTime(), 2e6 + 9 * kHourLength, 1e-6);
    EXPECT_EQ(Hours(unselected), std::pair(96.0, 120.0));
    EXPECT_EQ(dragged->GetRow(), Rows[2]);
    EXPECT_EQ(other->GetRow(), Rows[4]);
    EXPECT_EQ(locked->GetRow(), Rows[4]);
    EXPECT_EQ(fixedRow->GetRow(), Rows[5]);
    EXPECT_EQ(scrolledAway->GetRow(), Rows[16]);
}

TEST_F(GantGestures, MovesOverHalfADayBecomeWholeDaysAfterSnapping)
{
    Gant.SetMoveOver12Then24(true);
    for (const auto &[pixels, hours] :
         {std::pair(11, 12.0), std::pair(14, 24.0), std::pair(-20, -24.0), std::pair(40, 48.0)}) {
        TzuDataEntity_Spanbar *item = AddItem(1, 97, 145);
        item->SetStartDateTime(item->GetStartDateTime() + 0.001);
        const TDateTime start = item->GetStartDateTime();
        Drag({120, 27}, {120 + pixels, 27});
        const double shift = (item->GetStartDateTime() - start) / kHourLength;
        EXPECT_NEAR(shift, hours, hours == 12 ? 1.1 : 1e-6) << pixels;
        Gant.RemoveSpanbar(item);
    }
}

TEST_F(GantGestures, TheSelectionFollowsCopiesAndItemsMadeAnew)
{
    TzuDataEntity_Spanbar *item = AddItem(1, 96, 120);
    NoteDrops();
    Drag({110, 27}, {131, 27}, kCtrl);
    ASSERT_EQ(Gant.SelectedItems().size(), 1U);
    TzuDataEntity_Spanbar *copy = Gant.SelectedItems().front();
    EXPECT_NE(copy, item);
    EXPECT_EQ(Hours(copy), std::pair(117.0, 141.0));

    Gant.OnTimeChangeRow = [this](TzuGant_ComBasic *, TzuDataEntity_Spanbar *moved, TGantRow *,
                                  TGantRow *to, TDateTime start, TDateTime stop) {
        Gant.RemoveSpanbar(moved);
        auto *anew = Gant.AddSpanbarToGantRow(to, 0);
        anew->SetStartDateTime(start);
        anew->SetStopDateTime(stop);
    };
    Chart.Paint();
    Drag({135, 27}, {135, 63});
    ASSERT_EQ(Gant.SelectedItems().size(), 1U);
    EXPECT_EQ(Gant.SelectedItems().front()->GetRow(), Rows[3]);
    EXPECT_FALSE(item->GetSelected());

    Gant.OnTimeCopy = nullptr;
    Gant.OnTimeChangeRow = nullptr;
    Chart.Paint();
    Drag({105, 27}, {140, 27}, kCtrl);
    Drag({105, 27}, {105, 63});
    EXPECT_EQ(Hours(item), std::pair(96.0, 120.0));
    EXPECT_EQ(item->GetRow(), Rows[1]) << "nobody handles it";
}

TEST_F(GantGestures, DependenciesAreHandedToTheApplication)
{
    TzuDataEntity_Spanbar *first = AddItem(1, 96, 120);
    TzuDataEntity_Spanbar *second = AddItem(3, 200, 230);
    second->SetCanEdit(false);
    std::vector<std::pair<TzuDataEntity_Spanbar *, TzuDataEntity_Spanbar *>> links;
    Gant.OnDependencyAction = [&](auto *from, auto *to) { links.emplace_back(from, to); };
    const auto draw = [&](TPoint to) {
        Gant.SetStickyMode(TGantStickyMode::smDependency);
        Drag({97, 27}, to);
    };
    draw({210, 63});
    draw({300, 63});
    draw({97, 27});
    EXPECT_THAT(links, ElementsAre(std::pair(first, second)));
    Gant.SetStickyMode(TGantStickyMode::smDependency);
    Press(97, 27);
    Move(150, 27);
    EXPECT_EQ(Host.Cursor, TGantCursor::Forbidden);
    Move(210, 63);
    EXPECT_EQ(Host.Cursor, TGantCursor::Link);
    Move(110, 30);
    Release(110, 30);
    EXPECT_EQ(links.back(), std::pair(first, first)) << "back on its own source";
    EXPECT_EQ(Hours(first), std::pair(96.0, 120.0));
}

TEST_F(GantGestures, EventsComeInOrderWithTheItemUnderTheMouse)
{
    TzuDataEntity_Spanbar *item = AddItem(1, 96, 120);
    const auto click = [this](const char *what) {
        return [this, what](TzuGant_ComBasic *, const TzuDataEntity_Spanbar *at) {
            Events.push_back(what + std::string(at != nullptr ? " item" : " none"));
        };
    };
    Gant.OnClickGantArea = click("click");
    Gant.OnRightClickGantArea = click("right");
    Gant.OnDblClickGantArea = click("double");
    Gant.OnGantAreaMouseDown = [this](auto...) { Events.emplace_back("down"); };
    Gant.OnGantAreaMouseMove = [this](auto...) { Events.emplace_back("move"); };
    Gant.OnGantAreaMouseUp = [this](auto...) { Events.emplace_back("up"); };
    Gant.OnHintInfo = [&](TObject *object, TDateTime start, TDateTime stop, TDateTime length) {
        Events.emplace_back(object == nullptr ? "no hint" : "hint");
        EXPECT_EQ(object != nullptr, object == item);
        EXPECT_EQ(start, object != nullptr ? item->GetStartDateTime() : 0);
        EXPECT_EQ(length, stop - start);
    };
    Drag({110, 27}, {120, 27});
    Gant.GantAreaMouseDown(kRight, kPlain, 300, 27);
    Gant.GantAreaMouseUp(kRight, kPlain, 300, 27);
    Chart.Paint();
    Press(119, 27);
    Release(119, 27);
    Gant.OnGADblClick();
    EXPECT_THAT(Events, ElementsAre("click item", "down", "move", "hint", "up", "click none",
                                    "right none", "down", "no hint", "up", "click item", "down",
                                    "hint", "up", "double item"));
    EXPECT_EQ(Host.Focusings, 3);
    EXPECT_GE(Host.RefreshesAround, 3);
}

TEST_F(GantGestures, WhatOneGestureChangesIsBracketedOnce)
{
    std::vector<TzuDataEntity_Spanbar *> items = {AddItem(1, 96, 120), AddItem(2, 96, 120),
                                                  AddItem(3, 96, 120)};
    Gant.OnBeginUserChange = [this](TzuGant_ComBasic *, TGantUserChange kind) {
        Events.push_back("begin " + std::to_string(static_cast<int>(kind)));
    };
    Gant.OnEndUserChange = [this](TzuGant_ComBasic *, TGantUserChange kind, bool changed) {
        Events.push_back("end " + std::to_string(static_cast<int>(kind)) + (changed ? "!" : ""));
    };
    Gant.OnChangeDataEntity_Spanbar = [this](auto...) { Events.emplace_back("change"); };
    Gant.OnDependencyAction = [this](auto...) { Events.emplace_back("link"); };
    const auto take = [this] { return std::exchange(Events, {}); };
    for (auto *item : items) {
        item->SetSelected(true);
    }
    Drag({110, 27}, {125, 27});
    EXPECT_THAT(take(), ElementsAre("begin 0", "change", "change", "change", "end 0!"));
    Drag({120, 27}, {120, 63});
    EXPECT_THAT(take(), ElementsAre("begin 0", "end 0")) << "nobody handles row changes";
    Drag({110, 27}, {110, 27}, kCtrl);
    EXPECT_THAT(take(), IsEmpty());
    Chart.Paint();
    Gant.SetStickyMode(TGantStickyMode::smDependency);
    Drag({120, 27}, {120, 45});
    EXPECT_THAT(take(), ElementsAre("begin 3", "link", "end 3!"));

    Gant.OnChangeDataEntity_Spanbar = [](auto...) { throw std::runtime_error("no"); };
    Press(120, 45);
    EXPECT_THROW(Release(140, 45), std::runtime_error);
    EXPECT_THAT(take(), ElementsAre("begin 0", "end 0!"));
    EXPECT_EQ(Gant.GetMouseMoveMode(), mmNone);
    EXPECT_FALSE(Gant.MouseIsDown());
    EXPECT_THAT(Outlines(), IsEmpty());
}

} // namespace
