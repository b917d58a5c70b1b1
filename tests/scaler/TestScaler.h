// A time axis on a fake host.
#pragma once

#include "foundation/zuDateUtils.h"
#include "scaler/zuScalerGestures.h"
#include "support/FakeScalerHost.h"

#include <string>

namespace korvane::test {

/// What a scaler's base needs before it: bases are constructed in order.
struct HostHolder
{
    FakeScalerHost Host;
};

/// Horizontal, 700 pixels long, one week from Monday 2001-01-01. Stands in for the control, so it
/// may set what the mouse will.
struct TestScaler : HostHolder, TDateScalerGestures
{
    TestScaler()
        : TDateScalerGestures(Host, Host)
    {
        SetHorizontal(true);
    }

    void SetLength(int pixels)
    {
        Host.Size.Width = pixels;
        Resize();
    }
    /// Hides a daily window; hours of the day.
    void HideHours(double from, double to, TDateTime maxStep = kScale1Hour)
    {
        TDateScalePass &pass = GetPassList(0);
        pass.Active = true;
        pass.Hide = true;
        pass.FromTime = from / 24;
        pass.ToTime = to / 24;
        pass.MaxStep = maxStep;
        CalcDrawMode();
    }

    using TDateScalerGestures::m_interaction;
    using TDateScalerGestures::m_savedShift;
};

/// The text of the error that an action raises; empty when none.
template <typename Action>
std::string ErrorOf(Action action)
{
    try {
        action();
    } catch (const std::exception &error) {
        return error.what();
    }
    return {};
}

inline constexpr const char *kEverythingHidden =
    "Verkar som alla tider ska d\u00f6ljas?, Sl\u00e5r av d\u00f6lj p\u00e5 samtliga pass.";

} // namespace korvane::test
