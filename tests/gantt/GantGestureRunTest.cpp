// Gestures while they run: outlines, hints, scrolling, and all that ends them early.
#include "GestureFixture.h"
#include "foundation/zuFormat.h"

#include <gmock/gmock.h>

using namespace korvane;
using namespace korvane::test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

namespace {

using enum TGantMouseMoveMode;

using GantGestureRun = GantGestures;

TEST_F(GantGestureRun, OutlinesShowWhereADropWouldPutTheItems)
{
    // Outlines follow the grid of 3 hours, in the row that the drop would take.
    TzuDataEntity_Spanbar *item = AddItem(1, 97, 145);
    AddItem(2, 200, 220)->SetSelected(true);
    item->SetSelected(true);
    Press(120, 27);
    Move(122, 29);
    EXPECT_THAT(Outlines(), IsEmpty()) << "not yet a drag";
    Move(130, 27);
    EXPECT_THAT(Outlines(), UnorderedElementsAre(TRect{108, 19, 156, 35}, TRect{210, 37, 230, 53}));
    Move(130, 63);
    EXPECT_THAT(Outlines(), UnorderedElementsAre(TRect{97, 55, 145, 71}, TRect{200, 73, 220, 89}));
    Gant.SetMoveInTimeWhenMoveRow(true);
    Move(130, 64);
    EXPECT_THAT(Outlines(), UnorderedElementsAre(TRect{108, 55, 156, 71}, TRect{210, 73, 230, 89}));
    Gant.CancelGesture();
    EXPECT_THAT(Outlines(), IsEmpty());

    Gant.SelectOnly(*item);
    const auto outlineEqualsDrop = [&](TPoint from, TPoint to) {
        Press(from.X, from.Y);
        Move(to.X, to.Y);
        const std::vector<TRect> shown = Outlines();
        Release(to.X, to.Y);
        Chart.Paint();
        EXPECT_THAT(shown, ElementsAre(item->GetRow()->RectFromDataEntity(*item).value()));
    };
    NoteDrops();
    outlineEqualsDrop({120, 27}, {133, 27});
    outlineEqualsDrop({120, 27}, {135, 99});
    outlineEqualsDrop({item->GetRow()->RectFromDataEntity(*item)->Left, 99}, {60, 99});
    outlineEqualsDrop({item->GetRow()->RectFromDataEntity(*item)->Right - 1, 99}, {10, 99});
}

TEST_F(GantGestureRun, OnlyWhatChangedIsDrawnAgain)
{
    AddItem(1, 96, 120);
    Press(110, 27);
    Move(120, 27);
    const int before = Host.Invalidations;
    Host.OverlayRects.clear();
    Move(119, 27);
    EXPECT_THAT(Host.OverlayRects, IsEmpty()) << "the grid gives the same times";
    Move(130, 27);
    EXPECT_THAT(Host.OverlayRects, ElementsAre(TRect{104, 18, 130, 36}, TRect{116, 18, 142, 36}));
    EXPECT_EQ(Host.Invalidations, before) << "the area itself stays";
}

TEST_F(GantGestureRun, HintsTellTheTimesThatADropWouldGive)
{
    TzuDataEntity_Spanbar *item = AddItem(1, 97, 145);
    item->Texts().AddText("", 0, 0, 1);
    item->Texts().AddText("Foundations", 0, 0, 1);
    Press(120, 27);
    Move(130, 27);
    EXPECT_EQ(Host.Hint,
              (TGestureHint{"Start\t2009-07-10 12:00", "Stop\t2009-07-12 12:00", "Length\t2 d"}));
    EXPECT_EQ(Host.HintAt, (TPoint{130, 27}));
    Release(130, 27);
    EXPECT_EQ(Host.Hint, TGestureHint{});
    Chart.Paint();
    Press(155, 27);
    Move(158, 31);
    EXPECT_EQ(Host.Hint[2], "Length\t2 d 3 h");
    Gant.CancelGesture();
    EXPECT_EQ(Host.Hint, TGestureHint{});

    AddItem(3, 200, 230)->Texts().AddText("Walls\nand roof", 0, 0, 1);
    Gant.SetStickyMode(TGantStickyMode::smDependency);
    Press(120, 27);
    Move(150, 27);
    EXPECT_EQ(Host.Hint, (TGestureHint{"From\tFoundations", "To\tFoundations", ""}));
    Move(170, 45);
    EXPECT_EQ(Host.Hint, (TGestureHint{"From\tFoundations", "", ""}));
    Move(210, 63);
    EXPECT_EQ(Host.Hint, (TGestureHint{"From\tFoundations", "To\tWalls and roof", ""}));

    item->GetRow()->TreeNode()->SetText("Site");
    item->Texts().GetTimeItemText(1).SetText("");
    Gant.OnDependencyHint = [&](auto *, auto *first, auto *second, TGestureHint &hint) {
        EXPECT_EQ(first, item);
        hint[2] = second != nullptr ? "Link\tFinish to start" : "";
    };
    Move(212, 63);
    EXPECT_EQ(Host.Hint,
              (TGestureHint{"From\tSite", "To\tWalls and roof", "Link\tFinish to start"}));
}

TEST_F(GantGestureRun, LengthsReadAsDaysHoursAndMinutes)
{
    constexpr double kMinute = kHourLength / 60;
    const std::pair<double, const char *> lengths[] = {
        {0, "0 min"},
        {kMinute / 3, "20 s"},
        {kMinute, "1 min"},
        {59.7 * kMinute, "1 h"},
        {90 * kMinute, "1 h 30 min"},
        {1, "1 d"},
        {2 + 3 * kHourLength + 15 * kMinute, "2 d 3 h 15 min"},
        {1 - kMinute / 4, "1 d"},
        {1 + 5 * kMinute, "1 d 5 min"},
    };
    for (const auto &[length, text] : lengths) {
        EXPECT_EQ(LengthText(length), text) << length;
    }
}

TEST_F(GantGestureRun, TheAxisRunsPastTheEdgesAndThePressGoesWithIt)
{
    TzuDataEntity_Spanbar *item = AddItem(1, 420, 460);
    Press(440, 27);
    Move(479, 27);
    EXPECT_FALSE(Chart.Axis->StepUpPressed());
    Move(480, 27);
    ASSERT_TRUE(Chart.Axis->StepUpPressed());
    const TDateTime start = Chart.Axis->GetStart();
    const auto step = [this] {
        Chart.Axis->ScrollButtonPressed(nullptr);
        Gant.GestureTick();
        Chart.Paint();
    };
    step();
    EXPECT_NEAR(Chart.Axis->GetStart() - start, 15 * kHourLength, 1e-9);
    EXPECT_NEAR(Chart.Axis->GetStop() - Chart.Axis->GetStart(), 20, 1e-9);
    for (int i = 0; i < 40; ++i) {
        step();
    }
    EXPECT_THAT(Outlines(), SizeIs(1)) << "the outline stays under the mouse";
    Move(300, 27);
    EXPECT_FALSE(Chart.Axis->StepUpPressed());
    const TDateTime underMouse = Chart.Axis->PixelToDate(300);
    Release(300, 27);
    EXPECT_NEAR(item->GetStartDateTime() + 20 * kHourLength, underMouse, 1.51 * kHourLength);

    const TDateTime before = Chart.Axis->GetStart();
    Press(300, 100);
    Move(-40, 100);
    EXPECT_TRUE(Chart.Axis->StepDownPressed()) << "a rubber band scrolls as well";
    step();
    EXPECT_LT(Chart.Axis->GetStart(), before);
    Release(-40, 100);
    EXPECT_FALSE(Chart.Axis->StepDownPressed());
    EXPECT_FALSE(Host.Timer);
}

TEST_F(GantGestureRun, RowsScrollPastTopAndBottomAndTheDropStaysUnderTheMouse)
{
    NoteDrops();
    TzuDataEntity_Spanbar *item = AddItem(1, 96, 120);
    Press(110, 27);
    Move(110, 400);
    while (Host.ScrolledRows < 5) {
        ASSERT_TRUE(Host.Timer);
        Gant.GestureTick();
        Chart.Paint();
    }
    const int top = Chart.View.Shown.TopRow;
    Move(110, 9 * 18 + 9);
    EXPECT_FALSE(Host.Timer);
    EXPECT_THAT(Outlines(), ElementsAre(TRect{96, 9 * 18 + 1, 120, 10 * 18 - 1}));
    Release(110, 9 * 18 + 9);
    EXPECT_EQ(item->GetRow(), Rows[static_cast<std::size_t>(top + 9)]);

    Chart.Paint();
    Press(110, 9 * 18 + 9);
    Move(110, -30);
    for (int i = 0; i < 100; ++i) {
        Gant.GestureTick();
    }
    Chart.Paint();
    EXPECT_EQ(Chart.View.Shown.TopRow, 0);
    Release(110, 9);
    EXPECT_EQ(item->GetRow(), Rows[0]);
}

TEST_F(GantGestureRun, AnAxisThatChangesUnderADragTakesThePressPointAlong)
{
    TzuDataEntity_Spanbar *item = AddItem(1, 96, 120);
    Press(108, 27);
    Move(120, 27);
    Chart.Axis->SetCenterScale(Chart.Axis->GetScale() / 2, kDayZero + 5, 120);
    Chart.Paint();
    // The mouse now is at the same instant as before: what was 12 pixels is 24.
    EXPECT_THAT(Outlines(), ElementsAre(TRect{96, 19, 144, 35}));
    Release(120, 27);
    EXPECT_NEAR(Hours(item).first, 108, 1.5);
}

TEST_F(GantGestureRun, WhatCancelsAGestureLeavesEverythingAsItWas)
{
    const std::pair<const char *, std::function<void()>> ways[] = {
        {"escape", [this] { Gant.CancelGesture(); }},
        {"another button", [this] { Gant.GantAreaMouseDown(kRight, kPlain, 300, 100); }},
        {"nothing, after a drag outwards",
         [this] {
             Gant.SetStartDragWhenTimeMoveOutside(true);
             Move(300, 500);
             Gant.SetStartDragWhenTimeMoveOutside(false);
         }},
    };
    NoteDrops();
    Gant.OnBeginUserChange = [this](auto...) { Events.emplace_back("begin"); };
    for (const auto &[what, cancel] : ways) {
        TzuDataEntity_Spanbar *item = AddItem(1, 96, 120);
        Press(108, 27);
        Move(500, 60);
        ASSERT_TRUE(Host.Timer);
        cancel();
        EXPECT_FALSE(Gant.GestureRunning()) << what;
        EXPECT_FALSE(Host.Timer) << what;
        EXPECT_THAT(Outlines(), IsEmpty()) << what;
        EXPECT_EQ(Host.Hint, TGestureHint{}) << what;
        EXPECT_EQ(Host.Cursor, TGantCursor::Area) << what;
        Move(300, 60);
        Release(300, 60);
        EXPECT_EQ(Hours(item), std::pair(96.0, 120.0)) << what;
        EXPECT_EQ(item->GetRow(), Rows[1]) << what;
        Gant.RemoveSpanbar(item);
    }
    EXPECT_THAT(Events, IsEmpty());
}

TEST_F(GantGestureRun, ItemsLeaveForDragAndDropOnEverySideOfTheControl)
{
    TzuDataEntity_Spanbar *item = AddItem(1, 96, 120);
    item->Texts().AddText("A \"quoted\"\ttext", 0, 0, 1);
    AddItem(2, 96, 120)->SetSelected(true);
    item->SetSelected(true);
    Gant.SetStartDragWhenTimeMoveOutside(true);
    // The control reaches from 100 pixels left of the area and 45 above it to 16 right of it.
    const std::pair<TPoint, bool> points[] = {
        {{-100, 27}, false}, {{-101, 27}, true}, {{495, 27}, false},  {{496, 27}, true},
        {{110, -45}, false}, {{110, -46}, true}, {{110, 179}, false}, {{110, 180}, true},
    };
    for (const auto &[point, leaves] : points) {
        Host.Drags.clear();
        Press(110, 27);
        Move(point.X, point.Y);
        EXPECT_EQ(Host.Drags.size(), leaves ? 1U : 0U) << point.X << ',' << point.Y;
        EXPECT_EQ(Gant.GestureRunning(), !leaves) << point.X << ',' << point.Y;
        Gant.CancelGesture();
    }
    Press(110, 27, kCtrl);
    Move(110, 300);
    ASSERT_EQ(Host.Drags.size(), 2U);
    EXPECT_TRUE(Host.Drags.back().Copy);
    EXPECT_EQ(Host.Drags.back().Text, "A \"quoted\" text\t2009-07-10 00:00\t2009-07-11 00:00\n"
                                      "\t2009-07-10 00:00\t2009-07-11 00:00\n");
    EXPECT_EQ(Host.Drags.back().Json,
              "[{\"caption\": \"A \\\"quoted\\\"\\u0009text\", "
              "\"start\": \"2009-07-10T00:00:00.000\", \"stop\": \"2009-07-11T00:00:00.000\"},\n"
              " {\"caption\": \"\", "
              "\"start\": \"2009-07-10T00:00:00.000\", \"stop\": \"2009-07-11T00:00:00.000\"}]");
}

TEST_F(GantGestureRun, DeletionsDuringAGestureAreSafe)
{
    std::vector<TzuDataEntity_Spanbar *> items = {AddItem(1, 96, 120), AddItem(2, 96, 120),
                                                  AddItem(3, 96, 120), AddItem(4, 96, 120)};
    for (auto *item : items) {
        item->SetSelected(true);
    }
    Press(110, 45);
    Move(130, 45);
    EXPECT_EQ(Outlines().size(), 4U);
    Gant.RemoveSpanbar(items[0]);
    Move(131, 45);
    Chart.Paint();
    EXPECT_EQ(Outlines().size(), 3U) << "another selected item may go";
    Chart.Tree.RemoveDataEntity(Rows[3]->TreeNode());
    Chart.Paint();
    EXPECT_EQ(Outlines().size(), 2U) << "or its row";
    // A handler of the drop deletes the next item, and one that was handled already.
    Gant.OnChangeDataEntity_Spanbar = [&](TzuGant_ComBasic *, TzuDataEntity_Spanbar *item) {
        Events.emplace_back("change");
        Gant.RemoveSpanbar(item == items[1] ? items[3] : items[1]);
    };
    Release(131, 45);
    EXPECT_THAT(Events, ElementsAre("change"));
    EXPECT_EQ(Gant.SelectedItems(), std::vector{items[1]});

    Gant.OnChangeDataEntity_Spanbar = nullptr;
    Chart.Paint();
    for (const int x : {items[1]->GetRow()->RectFromDataEntity(*items[1])->Left, 130}) {
        TzuDataEntity_Spanbar *item = x == 130 ? AddItem(2, 120, 150) : items[1];
        const TRect rect = item->GetRow()->RectFromDataEntity(*item).value();
        Press(x, rect.Top + 5);
        Move(x + 20, rect.Top + 5);
        ASSERT_TRUE(Gant.GestureRunning());
        Gant.RemoveSpanbar(item);
        EXPECT_FALSE(Gant.GestureRunning()) << "nothing is left to drag";
        EXPECT_EQ(Gant.ItemUnderMouse(), nullptr);
        Release(x + 40, rect.Top + 5);
    }
}

TEST_F(GantGestureRun, HandlersOfThePressMayTakeTheItemOrTheChart)
{
    AddItem(1, 96, 120);
    Gant.OnClickGantArea = [this](TzuGant_ComBasic *, TzuDataEntity_Spanbar *clicked) {
        Gant.RemoveSpanbar(clicked);
    };
    Press(110, 27);
    EXPECT_FALSE(Gant.GestureRunning());
    Release(110, 27);
    Gant.OnClickGantArea = nullptr;
    AddItem(1, 96, 120);
    Gant.OnBeforeCanEditItem_Spanbar = [this](TObject *, TzuDataEntity *asked) {
        Gant.RemoveSpanbar(static_cast<TzuDataEntity_Spanbar *>(asked));
    };
    Press(110, 27);
    EXPECT_FALSE(Gant.GestureRunning());
    Release(110, 27);
    Gant.OnBeforeCanEditItem_Spanbar = nullptr;

    Chart.Tree.Clear();
    Gant.OnClickGantArea = [this](auto...) { Chart.Gant.reset(); };
    Gant.GantAreaMouseDown(kRight, kPlain, 10, 10);
    EXPECT_EQ(Chart.Gant, nullptr);
}

TEST_F(GantGestureRun, ARubberBandSelectsAddsAndToggles)
{
    TzuDataEntity_Spanbar *a = AddItem(1, 96, 120);
    TzuDataEntity_Spanbar *b = AddItem(2, 140, 160);
    TzuDataEntity_Spanbar *c = AddItem(6, 96, 120);
    c->SetSelected(true);
    Press(80, 20);
    Move(100, 30);
    EXPECT_EQ(Gant.SelectedItems(), std::vector{a}) << "while it is drawn";
    Move(150, 40);
    EXPECT_EQ(Gant.SelectedItems(), (std::vector{a, b}));
    TRecordingCanvas canvas;
    Gant.GantAreaPaintOverlay(canvas);
    EXPECT_THAT(canvas.CallsOf(TCanvasOp::FrameRect),
                ElementsAre(testing::Field(&TCanvasCall::Rect, TRect{80, 20, 151, 41})));
    Release(150, 40);
    Drag({80, 115}, {100, 130}, {true, false, false});
    EXPECT_EQ(Gant.SelectedItems(), (std::vector{a, b, c}));
    Drag({80, 20}, {200, 130}, kCtrl);
    EXPECT_THAT(Gant.SelectedItems(), IsEmpty());
    c->SetSelected(true);
    Press(80, 20, kCtrl);
    Move(150, 40);
    Gant.CancelGesture();
    EXPECT_EQ(Gant.SelectedItems(), std::vector{c}) << "taken back";
    Drag({300, 20}, {302, 22});
    EXPECT_THAT(Gant.SelectedItems(), IsEmpty()) << "a click beside all items";
}

} // namespace
