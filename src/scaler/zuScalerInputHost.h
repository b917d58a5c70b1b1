// What the gestures on a time axis ask of the control that shows it.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

namespace korvane {

/// Shapes of the pointer over the axis; they tell what a drag does.
enum class TScalerCursor : unsigned char { Button, Zoom, Pan };

/// Is asked from the first mouse event on.
class KORVANE_CORE_API IScalerInputHost
{
public:
    /// Switches the timer that calls TDateScalerGestures::ScrollButtonPressed every 50 ms.
    virtual void SetStepTimer(bool on) = 0;
    /// Of the mouse, in client pixels; it may lie outside.
    virtual TPoint PointerPosition() const = 0;
    /// Gives the scaler the keyboard focus.
    virtual void TakeFocus() = 0;
    /// Shows a pointer until the next call.
    virtual void ShowCursor(TScalerCursor cursor) = 0;

protected:
    IScalerInputHost() = default;
    /// For the classes derived from it alone.
    IScalerInputHost(const IScalerInputHost &) = default;
    IScalerInputHost &operator=(const IScalerInputHost &) = default;
    ~IScalerInputHost() = default;
};

} // namespace korvane
