// A time axis' host without a window, for tests.
#pragma once

#include "scaler/zuScalerHost.h"

namespace korvane::test {

/// Counts requests and answers with its fields.
struct FakeScalerHost final : IDateScalerHost
{
    TSize Size{700, 45};
    TDateTime CurrentTime = 36892.4; // 2001-01-01, about half past nine
    bool Printing = false;
    double PrintScale = 1;
    int Refreshes = 0;
    int PostedChanges = 0;
    int ResizedFonts = 0;

    TSize ClientSize() const override { return Size; }
    TDateTime Now() const override { return CurrentTime; }
    void Refresh() override { ++Refreshes; }
    void PostChange() override { ++PostedChanges; }
    bool GetIsPrinting() const override { return Printing; }
    double GetScalex() const override { return PrintScale; }
    double GetScaley() const override { return PrintScale; }
    void PrintResizeFont() override { ++ResizedFonts; }
};

} // namespace korvane::test
