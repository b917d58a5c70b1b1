// Gestures and keys of the schedule, driven without a display.
#include "SchemaFixture.h"

#include <cmath>
#include <stdexcept>

namespace korvane {
namespace {

using test::kMinuteLength;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

struct SchemaGestures : test::TSchemaFixture
{
    std::vector<std::pair<TSchemaUserChange, bool>> UserChanges;
    int Pushes = 0;

    SchemaGestures()
    {
        Schema.OnEndUserChange = [this](TzuSchema_ComBasic *, TSchemaUserChange kind,
                                        bool changed) { UserChanges.emplace_back(kind, changed); };
        Schema.OnChangeDataEntity_SchemaTime = [this](auto *, auto *) { ++Pushes; };
    }

    /// A point by its column and its time pixel, whichever way the view is turned.
    TPoint At(int across, int along) const
    {
        return Schema.FlipView() ? TPoint{along, across} : TPoint{across, along};
    }
    void Press(TPoint at, TShiftState shift = {}, TMouseButton button = TMouseButton::mbLeft)
    {
        Schema.SchemaMouseDown(button, shift, at.X, at.Y);
    }
    void MoveTo(TPoint at) { Schema.SchemaMouseMove({}, at.X, at.Y); }
    void Release(TPoint at, TShiftState shift = {}, TMouseButton button = TMouseButton::mbLeft)
    {
        Schema.SchemaMouseUp(button, shift, at.X, at.Y);
    }
    void Drag(TPoint from, TPoint to, TShiftState shift = {})
    {
        Press(from, shift);
        MoveTo(to);
        Release(to, shift);
    }
    /// Start and stop in minutes of the day, and the column.
    static std::vector<int> Of(const TzuDataEntity_SchemaTime *time)
    {
        const auto minutes = [](TDateTime value) {
            return static_cast<int>(std::lround(value / kMinuteLength));
        };
        return {minutes(time->GetStartDateTime()), minutes(time->GetStopDateTime()), time->Col()};
    }
    void Turn(bool flip)
    {
        Schema.SetFlipView(flip);
        Host.Area = flip ? TSize{1440, 100} : TSize{400, 1440};
    }
    int ColumnMiddle(int col)
    {
        const TPixelSpan pixels = Schema.ColumnToPixels(col);
        return (pixels.From + pixels.To) / 2;
    }
};

TEST_F(SchemaGestures, SnappingRoundsStartFromMidnightAndLength)
{
    struct TCase
    {
        double Start;
        double Length;
        double SnappedStart;
        double SnappedLength;
    };
    // 09:07:40 becomes 09:10.
    for (const TCase &test : {TCase{547.667, 30.4, 550, 30}, TCase{547.4, 0.2, 545, 0},
                              TCase{1438, 61.5, 1440, 62}, TCase{-2, 10, 0, 10}}) {
        TDateTime start = 100 + test.Start * kMinuteLength;
        TDateTime length = test.Length * kMinuteLength;
        Schema.Snap(start, length);
        EXPECT_NEAR(start, 100 + test.SnappedStart * kMinuteLength, 1e-9);
        EXPECT_NEAR(length, test.SnappedLength * kMinuteLength, 1e-9);
    }
    Schema.SetStartSnapONOFF(false);
    Schema.SetLengthSnap(0);
    TDateTime start = 0.123456;
    TDateTime length = 0.000001;
    Schema.Snap(start, length);
    EXPECT_EQ(start, 0.123456);
    EXPECT_EQ(length, 0.000001);
}

TEST_F(SchemaGestures, DraggingMovesWhatIsSelectedOnce)
{
    for (const bool flip : {false, true}) {
        Turn(flip);
        auto *first = AddTime(0, 100, 160);
        auto *second = AddTime(1, 300, 330);
        first->SetSelected(true);
        second->SetSelected(true);
        Pushes = 0;
        UserChanges.clear();
        Drag(At(ColumnMiddle(0), 130), At(ColumnMiddle(0), 152));
        EXPECT_THAT(Of(first), ElementsAre(120, 180, 0));
        EXPECT_THAT(Of(second), ElementsAre(320, 350, 1));
        EXPECT_EQ(Pushes, 2) << "each time is announced once";
        EXPECT_THAT(UserChanges, ElementsAre(std::pair(TSchemaUserChange::ucMove, true)));
        Schema.RemoveSchemaTime(first);
        Schema.RemoveSchemaTime(second);
    }
}

TEST_F(SchemaGestures, AClickChangesNothing)
{
    auto *time = AddTime(0, 101, 163);
    Drag(At(60, 130), At(60, 133));
    EXPECT_THAT(Of(time), ElementsAre(101, 163, 0)) << "not even by snapping";
    EXPECT_THAT(UserChanges, IsEmpty());
    EXPECT_TRUE(time->GetSelected());
}

TEST_F(SchemaGestures, AnotherColumnKeepsTheTimesUnlessTheyAreToMoveAlong)
{
    Schema.Columns().GetCol(1).BaseDate = 10;
    std::vector<std::pair<int, int>> switches;
    Schema.OnSwitchCol = [&](TzuSchema_ComBasic *, TzuDataEntity_SchemaTime *, int from, int to) {
        switches.emplace_back(from, to);
    };
    for (const bool flip : {false, true}) {
        Turn(flip);
        for (const bool along : {false, true}) {
            auto *time = AddTime(0, 100, 160);
            Schema.SetMoveInTimeWhenColSwitch(along);
            Drag(At(ColumnMiddle(0), 130), At(ColumnMiddle(1), 130));
            const int day = along ? 10 * 1440 : 0;
            EXPECT_THAT(Of(time), ElementsAre(day + 100, day + 160, 1));
            EXPECT_THAT(switches, ElementsAre(std::pair(0, 1)));
            switches.clear();
            Schema.RemoveSchemaTime(time);
        }
    }
    auto *time = AddTime(0, 100, 160);
    Schema.SetMoveInTimeWhenColSwitch(false);
    Turn(false);
    Drag(At(60, 130), At(5000, 130));
    EXPECT_EQ(time->Col(), 2) << "past the columns it ends in the nearest one";
}

TEST_F(SchemaGestures, GrowBandsAreThreePixelsAtEachEnd)
{
    struct TCase
    {
        int From;
        int To;
        std::vector<int> Result;
    };
    for (const bool flip : {false, true}) {
        Turn(flip);
        const int begin = flip ? 101 : 100; // the rectangle begins a pixel later
        const TCase cases[]{
            {begin + 2, begin + 22, {120, 160, 0}},
            {begin + 3, begin + 23, {120, 180, 0}},
            {159, 179, {100, 180, 0}},
            {157, 177, {100, 180, 0}},
            {156, 176, {120, 180, 0}},
            {begin, begin + 300, {160, 160, 0}},
            {159, 10, {100, 100, 0}},
        };
        for (const TCase &test : cases) {
            auto *time = AddTime(0, 100, 160);
            Drag(At(ColumnMiddle(0), test.From), At(ColumnMiddle(0), test.To));
            EXPECT_EQ(Of(time), test.Result) << flip << ' ' << test.From << ' ' << test.To;
            Schema.RemoveSchemaTime(time);
        }
    }
}

TEST_F(SchemaGestures, WhatCannotBeEditedIsOnlySelected)
{
    auto *time = AddTime(0, 100, 160);
    Schema.OnBeforeCanEditItem_SchemaTime = [](TObject *, TzuDataEntity *item) {
        item->SetCanEdit(false);
    };
    Drag(At(60, 130), At(60, 200));
    Drag(At(60, 101), At(60, 50));
    EXPECT_FALSE(Schema.SetStartStopDateAndCol(*time, 0, 1, 2));
    EXPECT_THAT(Of(time), ElementsAre(100, 160, 0));
    EXPECT_TRUE(time->GetSelected());
}

TEST_F(SchemaGestures, EscapeAndOtherButtonsTakeADragBack)
{
    auto *time = AddTime(0, 100, 160);
    for (const bool escape : {true, false}) {
        Press(At(60, 130));
        MoveTo(At(60, 230));
        EXPECT_TRUE(Schema.GestureRunning());
        EXPECT_NE(Host.Hint, TGestureHint{});
        if (escape) {
            EXPECT_TRUE(Schema.SchemaKeyDown(TSchemaKey::Escape, {}));
        } else {
            Press(At(300, 900), {}, TMouseButton::mbRight);
        }
        EXPECT_FALSE(Schema.GestureRunning());
        EXPECT_EQ(Host.Hint, TGestureHint{});
        Release(At(60, 230));
        EXPECT_THAT(Of(time), ElementsAre(100, 160, 0));
    }
}

TEST_F(SchemaGestures, OutlinesShowWhatAReleaseWouldGive)
{
    AddTime(0, 100, 160);
    Press(At(60, 130));
    MoveTo(At(61, 152));
    Schema.SchemaPaintOverlay(Host.Canvas);
    const auto frames = Host.Canvas.CallsOf(test::TCanvasOp::FrameRect);
    ASSERT_EQ(frames.size(), 3U);
    EXPECT_EQ(frames[2].Rect, (TRect{1, 120, 120, 180}));
    Host.Canvas.Clear();
    MoveTo(At(190, 131));
    Schema.SchemaPaintOverlay(Host.Canvas);
    EXPECT_EQ(Host.Canvas.CallsOf(test::TCanvasOp::FrameRect)[2].Rect, (TRect{121, 100, 240, 160}));
}

TEST_F(SchemaGestures, CtrlDragsCopiesWhenThereIsAHandler)
{
    auto *time = AddTime(0, 100, 160);
    const TShiftState ctrl{false, true, false};
    std::vector<int> copy;
    Schema.OnTimeCopy = [&](TzuSchema_ComBasic *, TzuDataEntity_SchemaTime *item, int col,
                            TDateTime start, TDateTime stop) {
        EXPECT_EQ(item, time);
        copy = Of(AddTime(col, static_cast<int>(std::lround(start / kMinuteLength)),
                          static_cast<int>(std::lround(stop / kMinuteLength))));
    };
    Drag(At(60, 130), At(200, 230), ctrl);
    EXPECT_THAT(copy, ElementsAre(200, 260, 1));
    EXPECT_THAT(Of(time), ElementsAre(100, 160, 0));
    EXPECT_EQ(UserChanges.back().first, TSchemaUserChange::ucCopy);
}

TEST_F(SchemaGestures, LeavingTheAreaHandsOverToDragAndDrop)
{
    auto *time = AddTime(0, 100, 160);
    time->AddText("Talk", 0, 0, 1);
    Schema.SetStartDragWhenTimeMoveOutside(true);
    Press(At(60, 130));
    MoveTo(At(-1, 200));
    EXPECT_FALSE(Schema.GestureRunning());
    ASSERT_EQ(Host.Drags.size(), 1U);
    EXPECT_THAT(Host.Drags[0].Json, testing::HasSubstr("\"caption\": \"Talk\""));
    Release(At(-1, 200));
    EXPECT_THAT(Of(time), ElementsAre(100, 160, 0));
}

TEST_F(SchemaGestures, HeldPastTheEdgeColumnsScrollAndThePressGoesAlong)
{
    AddColumns(20);
    auto *time = AddTime(0, 100, 160);
    Press(At(60, 130));
    MoveTo(At(460, 130));
    EXPECT_TRUE(Host.Timer);
    for (int tick = 0; tick < 500; ++tick) {
        Schema.GestureTick();
    }
    const int first = Schema.Columns().TopLeftCol();
    EXPECT_EQ(first, 20) << "three of 23 have room";
    MoveTo(At(180, 130));
    Release(At(180, 130));
    EXPECT_EQ(time->Col(), first + 1);
    EXPECT_FALSE(Host.Timer);
}

TEST_F(SchemaGestures, ARubberBandSelectsWhatItTouches)
{
    auto *first = AddTime(0, 100, 160);
    auto *second = AddTime(1, 150, 200);
    auto *third = AddTime(2, 300, 400);
    third->SetSelected(true);
    const TShiftState ctrl{false, true, false};
    const TShiftState shiftKey{true, false, false};
    Drag(At(130, 10), At(20, 155));
    EXPECT_THAT(Schema.SelectedTimes(), ElementsAre(first, second));
    Drag(At(350, 200), At(250, 310), shiftKey);
    EXPECT_THAT(Schema.SelectedTimes(), ElementsAre(first, second, third));
    Drag(At(130, 10), At(20, 155), ctrl);
    EXPECT_THAT(Schema.SelectedTimes(), ElementsAre(third));
    Press(At(10, 10));
    MoveTo(At(200, 300));
    EXPECT_THAT(Schema.SelectedTimes(), ElementsAre(first, second));
    Schema.SchemaKeyDown(TSchemaKey::Escape, {});
    EXPECT_THAT(Schema.SelectedTimes(), IsEmpty()) << "as the press left it";
}

TEST_F(SchemaGestures, ClicksSelectAloneAddAndSpanRanges)
{
    auto *first = AddTime(0, 100, 160);
    auto *second = AddTime(1, 150, 200);
    auto *outside = AddTime(1, 500, 600);
    auto *third = AddTime(2, 180, 260);
    const auto click = [&](TzuDataEntity_SchemaTime *time, TShiftState shift) {
        const TRect rect = RectOf(time);
        const TPoint middle{(rect.Left + rect.Right) / 2, (rect.Top + rect.Bottom) / 2};
        Press(middle, shift);
        Release(middle, shift);
    };
    click(first, {});
    EXPECT_EQ(Schema.GetActiveDataEntity(), first);
    click(third, {true, false, false});
    EXPECT_THAT(Schema.SelectedTimes(), ElementsAre(first, second, third));
    click(outside, {false, true, false});
    EXPECT_EQ(Schema.SelectedCount(), 4);
    click(outside, {false, true, false});
    EXPECT_EQ(Schema.SelectedCount(), 3);
    click(second, {});
    EXPECT_THAT(Schema.SelectedTimes(), ElementsAre(second));
    Press({390, 1000});
    Release({390, 1000});
    EXPECT_EQ(Schema.SelectedCount(), 0);
}

TEST_F(SchemaGestures, TheRightButtonAsksForTheMenuOfWhatItHits)
{
    AddTime(0, 100, 160);
    Press(At(60, 130), {}, TMouseButton::mbRight);
    Press(At(60, 500), {}, TMouseButton::mbRight);
    EXPECT_THAT(Host.Menus, ElementsAre(testing::Pair(true, TPoint{60, 130}),
                                        testing::Pair(false, TPoint{60, 500})));
}

TEST_F(SchemaGestures, ThePointerTellsWhatItIsOver)
{
    auto *time = AddTime(0, 100, 160);
    std::vector<TObject *> told;
    Schema.OnSchemaHintInfo = [&](TzuSchema_ComBasic *, TObject *object, TDateTime, TDateTime, int,
                                  int) { told.push_back(object); };
    MoveTo(At(60, 101));
    EXPECT_EQ(Host.Cursor, TSchemaCursor::Resize);
    EXPECT_EQ(Host.Pointed, time);
    MoveTo(At(60, 130));
    EXPECT_EQ(Host.Cursor, TSchemaCursor::Area);
    MoveTo(At(60, 300));
    EXPECT_EQ(Host.Pointed, nullptr);
    EXPECT_THAT(told, ElementsAre(time, time, nullptr));
    MoveTo(At(60, 130));
    Schema.RemoveSchemaTime(time);
    EXPECT_EQ(Host.Pointed, nullptr);
}

// --- keys ----------------------------------------------------------------------------------------

TEST_F(SchemaGestures, ArrowsWalkThroughTheTimesInListOrder)
{
    auto *first = AddTime(2, 100, 160);
    AddTime(9, 0, 1); // in no column
    auto *second = AddTime(0, 300, 360);
    auto *third = AddTime(1, 50, 60, 1);
    const auto key = [&](TSchemaKey pressed, TShiftState shift = {}) {
        EXPECT_TRUE(Schema.SchemaKeyDown(pressed, shift));
        return Schema.GetActiveDataEntity();
    };
    EXPECT_EQ(key(TSchemaKey::Right), first);
    EXPECT_EQ(key(TSchemaKey::Down), second);
    EXPECT_EQ(key(TSchemaKey::Right), third);
    EXPECT_EQ(key(TSchemaKey::Right), first) << "round";
    EXPECT_EQ(key(TSchemaKey::Left), third);
    EXPECT_EQ(key(TSchemaKey::Up), second);
    EXPECT_THAT(Schema.SelectedTimes(), ElementsAre(second));
    EXPECT_EQ(key(TSchemaKey::Down, {true, false, false}), third);
    EXPECT_THAT(Schema.SelectedTimes(), ElementsAre(second, third));
    Host.Area.Width = 130;
    Schema.ClearSelection();
    EXPECT_EQ(key(TSchemaKey::Right), first);
    EXPECT_EQ(Schema.Columns().TopLeftCol(), 2) << "brought into view";
}

TEST_F(SchemaGestures, CtrlWithArrowsMoves)
{
    struct TCase
    {
        bool Flip;
        TSchemaKey Key;
        bool Shift;
        bool Snap;
        double StartSnap; ///< minutes
        std::vector<int> Result;
    };
    const TCase cases[]{
        {false, TSchemaKey::Down, false, false, 5, {101, 161, 1}},
        {false, TSchemaKey::Up, true, false, 5, {95, 155, 1}},
        {false, TSchemaKey::Down, true, false, 1, {110, 170, 1}},
        {false, TSchemaKey::Down, false, true, 5, {105, 165, 1}},
        {false, TSchemaKey::Right, false, true, 5, {100, 160, 2}},
        {false, TSchemaKey::Left, false, true, 5, {100, 160, 0}},
        {true, TSchemaKey::Right, false, false, 5, {101, 161, 1}},
        {true, TSchemaKey::Down, false, true, 5, {100, 160, 2}},
    };
    for (const TCase &test : cases) {
        Turn(test.Flip);
        Schema.SetStartSnapONOFF(test.Snap);
        Schema.SetStartSnap(test.StartSnap * kMinuteLength);
        auto *time = AddTime(1, 100, 160);
        Schema.SelectOnly(*time);
        EXPECT_TRUE(Schema.SchemaKeyDown(test.Key, {test.Shift, true, false}));
        EXPECT_EQ(Of(time), test.Result);
        Schema.RemoveSchemaTime(time);
    }
}

TEST_F(SchemaGestures, OtherKeysResizeEditDeleteAndShowTheMenu)
{
    auto *early = AddTime(1, 50, 60);
    auto *time = AddTime(1, 100, 160);
    Schema.SelectOnly(*time);
    Schema.SetActiveDataEntity(time);
    EXPECT_TRUE(Schema.SchemaKeyDown(TSchemaKey::Down, {false, false, true}));
    EXPECT_THAT(Of(time), ElementsAre(100, 161, 1));
    EXPECT_TRUE(Schema.SchemaKeyDown(TSchemaKey::Up, {true, false, true}));
    EXPECT_THAT(Of(time), ElementsAre(95, 161, 1));

    EXPECT_TRUE(Schema.SchemaKeyDown(TSchemaKey::Menu, {}));
    EXPECT_TRUE(Host.Menus.back().first);
    EXPECT_TRUE(Schema.SchemaKeyDown(TSchemaKey::Home, {}));
    EXPECT_THAT(Schema.SelectedTimes(), ElementsAre(early));
    EXPECT_TRUE(Schema.SchemaKeyDown(TSchemaKey::End, {}));
    EXPECT_TRUE(Schema.SchemaKeyDown(TSchemaKey::Space, {false, true, false}));
    EXPECT_THAT(Schema.SelectedTimes(), IsEmpty());
    EXPECT_TRUE(Schema.SchemaKeyDown(TSchemaKey::A, {false, true, false}));
    EXPECT_EQ(Schema.SelectedCount(), 2);

    EXPECT_FALSE(Schema.SchemaKeyDown(TSchemaKey::Enter, {}));
    TzuDataEntity_SchemaTime *edited = nullptr;
    Schema.OnEditDataEntity_SchemaTime = [&](auto *, auto *item) { edited = item; };
    EXPECT_TRUE(Schema.SchemaKeyDown(TSchemaKey::Enter, {}));
    EXPECT_EQ(edited, time);

    EXPECT_FALSE(Schema.SchemaKeyDown(TSchemaKey::Delete, {})) << "nobody consents";
    Schema.OnAskDelete = [&](TzuSchema_ComBasic *, const std::vector<TzuDataEntity_SchemaTime *> &,
                             bool &allow) {
        Schema.RemoveSchemaTime(early); // a handler may do it itself
        allow = true;
    };
    EXPECT_TRUE(Schema.SchemaKeyDown(TSchemaKey::Delete, {}));
    EXPECT_EQ(Schema.DataLists().GetDataList(0)->Count(), 0);
}

TEST_F(SchemaGestures, HandlersMayRemoveWhatMoves)
{
    auto *first = AddTime(0, 100, 160);
    auto *second = AddTime(1, 100, 160);
    first->SetSelected(true);
    second->SetSelected(true);
    Schema.OnChangeDataEntity_SchemaTime = [&](auto *, TzuDataEntity_SchemaTime *time) {
        if (time == first) {
            Schema.RemoveSchemaTime(second);
            Schema.RemoveSchemaTime(first);
        }
    };
    Drag(At(60, 130), At(60, 230));
    EXPECT_EQ(Schema.DataLists().GetDataList(0)->Count(), 0);
    EXPECT_FALSE(Schema.GestureRunning());

    Schema.OnChangeDataEntity_SchemaTime = {};
    auto *third = AddTime(0, 100, 160);
    Schema.OnChangeDataEntity_SchemaTime = [](auto *, auto *) { throw std::runtime_error("no"); };
    Press(At(60, 130));
    MoveTo(At(60, 230));
    EXPECT_THROW(Release(At(60, 230)), std::runtime_error);
    EXPECT_EQ(UserChanges.back(), std::pair(TSchemaUserChange::ucMove, true));
    Schema.OnChangeDataEntity_SchemaTime = {};
    Schema.CancelGesture();
    EXPECT_THAT(Of(third), ElementsAre(200, 260, 0));
}

} // namespace
} // namespace korvane
