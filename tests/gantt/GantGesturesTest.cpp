#include "support/FakeGantHost.h"

#include <gmock/gmock.h>
#include <stdexcept>
#include <string>

using namespace korvane;
using namespace korvane::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using enum TGantMouseMoveMode;

constexpr TMouseButton kLeft = TMouseButton::mbLeft;
constexpr TMouseButton kRight = TMouseButton::mbRight;
constexpr TShiftState kPlain{};
constexpr TShiftState kCtrl{false, true, false};

/// Ten rows of 18 pixels, of 480 pixels; an hour is a pixel, and a snap unit three.
struct GantGestures : testing::Test
{
    TestChart Chart;
    TestGant &Gant = *Chart.Gant;
    FakeGantHost &Host = *Chart.Host;
    std::vector<TGantRow *> Rows;
    std::vector<std::string> Events;

    GantGestures()
    {
        for (int i = 0; i < 20; ++i) {
            Rows.push_back(Chart.AddRow());
        }
        Chart.Paint();
    }

    TzuDataEntity_Spanbar *AddItem(int row, int from, int to, int layer = 0)
    {
        auto *item = Chart.AddItem(Rows[static_cast<std::size_t>(row)], from, to, layer);
        Chart.Paint();
        return item;
    }
    void Press(int x, int y, const TShiftState &shift = kPlain)
    {
        Gant.GantAreaMouseDown(kLeft, shift, x, y);
    }
    void Move(int x, int y) { Gant.GantAreaMouseMove(kPlain, x, y); }
    void Release(int x, int y, const TShiftState &shift = kPlain)
    {
        Gant.GantAreaMouseUp(kLeft, shift, x, y);
    }
    void Drag(TPoint from, TPoint to, const TShiftState &shift = kPlain)
    {
        Press(from.X, from.Y, shift);
        Move(to.X, to.Y);
        Release(to.X, to.Y, shift);
    }
    /// Where an item lies now, in hours from day zero.
    static std::pair<double, double> Hours(const TzuDataEntity_Spanbar *item)
    {
        const auto hours = [](TDateTime time) {
            return std::round((time - kDayZero) / kHourLength * 100) / 100;
        };
        return {hours(item->GetStartDateTime()), hours(item->GetStopDateTime())};
    }
    std::vector<TRect> Outlines()
    {
        TRecordingCanvas canvas({0, 0, 480, 180});
        Gant.GantAreaPaintOverlay(canvas);
        std::vector<TRect> frames;
        for (const TCanvasCall &call : canvas.CallsOf(TCanvasOp::FrameRect)) {
            if (call.Brush.Color != clWhite) {
                frames.push_back(call.Rect);
            }
        }
        return frames;
    }
    /// Handlers that note what a drop asks for; a row change moves the item itself.
    void NoteDrops()
    {
        const auto note = [this](const char *what, const TGantRow *row, TDateTime start) {
            const int hour = static_cast<int>(std::lround((start - kDayZero) / kHourLength));
            Events.push_back(what + std::to_string(RowIndex(row)) + "@" + std::to_string(hour));
        };
        Gant.OnTimeChangeRow = [note](TzuGant_ComBasic *, TzuDataEntity_Spanbar *item, TGantRow *,
                                      TGantRow *to, TDateTime start, TDateTime) {
            note("row ", to, start);
            item->ChangeOwner(to->Layers().GetDataList(0), 0);
        };
        Gant.OnTimeCopy = [this, note](TzuGant_ComBasic *, TzuDataEntity_Spanbar *, TGantRow *,
                                       TGantRow *to, TDateTime start, TDateTime stop) {
            note("copy ", to, start);
            auto *copy = Gant.AddSpanbarToGantRow(to, 0);
            copy->SetStartDateTime(start);
            copy->SetStopDateTime(stop);
        };
    }
    int RowIndex(const TGantRow *row) const
    {
        return static_cast<int>(std::ranges::find(Rows, row) - Rows.begin());
    }
};

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
        EXPECT_THAT(Events, testing::ElementsAreArray(c.Events)) << c.What;
        EXPECT_EQ(Gant.LastDelta().X != 0 || Gant.LastDelta().Y != 0,
                  !c.Events.empty() || c.To.Y == 0)
            << c.What;
        Gant.OnChangeDataEntity_Spanbar = nullptr;
        for (TGantRow *row : Rows) {
            row->Layers().GetDataList(0)->Clear();
        }
    }
}

} // namespace
