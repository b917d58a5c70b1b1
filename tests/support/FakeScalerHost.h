// A time axis' host without a window, for tests.
#pragma once

#include "scaler/zuScalerHost.h"
#include "scaler/zuScalerInputHost.h"

namespace korvane::test {

/// Counts requests and answers with its fields.
struct FakeScalerHost final : IDateScalerHost, IScalerInputHost
{
    TSize Size{700, 45};
    TDateTime CurrentTime = 36892.4; // 2001-01-01, about half past nine
    bool Printing = false;
    double PrintScale = 1;
    int Refreshes = 0;
    int PostedChanges = 0;
    int ResizedFonts = 0;
    bool StepTimerOn = false;
    TPoint Pointer{-1, -1};
    int TakenFocus = 0;
    TScalerCursor Cursor = TScalerCursor::Zoom;

    TSize ClientSize() const override { return Size; }
    TDateTime Now() const override { return CurrentTime; }
    void Refresh() override { ++Refreshes; }
    void PostChange() override { ++PostedChanges; }
    bool GetIsPrinting() const override { return Printing; }
    double GetScalex() const override { return PrintScale; }
    double GetScaley() const override { return PrintScale; }
    void PrintResizeFont() override { ++ResizedFonts; }

    void SetStepTimer(bool on) override { StepTimerOn = on; }
    TPoint PointerPosition() const override { return Pointer; }
    void TakeFocus() override { ++TakenFocus; }
    void ShowCursor(TScalerCursor cursor) override { Cursor = cursor; }
};

} // namespace korvane::test
