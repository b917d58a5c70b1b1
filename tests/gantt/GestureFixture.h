// A chart of 20 rows, 10 of them on screen, and a mouse.
#pragma once

#include "support/FakeGantHost.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace korvane::test {

inline constexpr TMouseButton kLeft = TMouseButton::mbLeft;
inline constexpr TMouseButton kRight = TMouseButton::mbRight;
inline constexpr TShiftState kPlain{};
inline constexpr TShiftState kCtrl{false, true, false};

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

} // namespace korvane::test
