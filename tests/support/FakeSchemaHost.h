// A schedule without widgets, for tests: a linear time axis of one minute per pixel from midnight,
// and a canvas that records.
#pragma once

#include "foundation/zuDoLater.h"
#include "scaler/zuScalerGestures.h"
#include "schema/zuSchemaKeys.h"
#include "support/FakeScalerHost.h"
#include "support/RecordingCanvas.h"

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane::test {

inline constexpr TDateTime kMinuteLength = 1.0 / (24 * 60);

/// Counts requests and answers with its fields.
struct FakeSchemaHost : ISchemaHost, ISchemaInputHost
{
    explicit FakeSchemaHost(TDateScalerGestures &scaler)
        : Axis(scaler)
    {
    }

    TDateScalerGestures &Axis;
    TRecordingCanvas Canvas{{0, 0, 1440, 1440}};
    TSize Area{400, 1440};
    TSize Whole{450, 1460};
    TPrintScale PrintScale;
    bool Printing = false;
    bool Focused = false;
    bool ScrollerShown = false;
    int Invalidations = 0;
    int Layouts = 0;
    int HeaderUpdates = 0;
    int ResizedFonts = 0;
    std::vector<const TzuDataEntity *> Gone;

    TDateScalerGestures &Scaler() override { return Axis; }
    const TDateScalerGestures &Scaler() const override { return Axis; }
    void InvalidateArea() override { ++Invalidations; }
    TSize AreaSize() const override { return Area; }
    TCanvas &AreaCanvas() override { return Canvas; }
    TPrintScale AreaPrintScale() const override { return PrintScale; }
    bool AreaIsPrinting() const override { return Printing; }
    bool AreaHasFocus() const override { return Focused; }
    void PrintResizeAreaFont() override { ++ResizedFonts; }
    TFont ComponentFont() const override { return {"Own"}; }
    TSize ComponentSize() const override { return Whole; }
    void PlaceParts() override { ++Layouts; }
    void HeaderOutOfDate() override { ++HeaderUpdates; }
    int HeaderTextWidth(std::string_view text, bool) const override
    {
        return 6 * static_cast<int>(CodePointCount(text));
    }
    void ShowColumnScroller(bool show) override { ScrollerShown = show; }
    void EntityLeft(const TzuDataEntity *entity) override { Gone.push_back(entity); }

    TSchemaCursor Cursor = TSchemaCursor::Area;
    bool Timer = false;
    TGestureHint Hint;
    TzuDataEntity_SchemaTime *Pointed = nullptr;
    std::vector<std::pair<bool, TPoint>> Menus;
    std::vector<TItemDragData> Drags;
    int SelectionChanges = 0;

    void FocusArea() override { Focused = true; }
    void SetAreaCursor(TSchemaCursor cursor) override { Cursor = cursor; }
    void InvalidateOverlay(const TRect &) override {}
    void SetGestureTimer(bool on) override { Timer = on; }
    void ShowGestureHint(const TGestureHint &hint, TPoint) override { Hint = hint; }
    void HideGestureHint() override { Hint = {}; }
    void PointAtTime(TzuDataEntity_SchemaTime *time, TPoint) override { Pointed = time; }
    bool PopUpMenu(bool onTime, TPoint at) override
    {
        Menus.emplace_back(onTime, at);
        return true;
    }
    void StartTimeDrag(const TItemDragData &data) override { Drags.push_back(data); }
    void SelectionChanged() override { ++SelectionChanges; }
};

class TestSchema : public TSchemaKeys
{
public:
    explicit TestSchema(FakeSchemaHost &host)
        : TSchemaKeys(host, host, nullptr)
    {
        InitializeData();
    }
    ~TestSchema() override { FinalizeData(); }
};

/// An axis that shows the first day, a minute per pixel.
struct TDayAxis
{
    FakeScalerHost Host;
    std::unique_ptr<TDateScalerGestures> Axis;

    TDayAxis()
    {
        Host.Size = {1440, 1440};
        Axis = std::make_unique<TDateScalerGestures>(Host, Host);
        Axis->SetRange(0, 1);
    }
};

} // namespace korvane::test
