// What the input handling of a schedule asks of the controls around the drawn area.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuGestureHint.h"
#include "schema/zuSchemaTypes.h"

namespace korvane {

/// Shapes of the pointer over the area.
enum class TSchemaCursor : unsigned char {
    Area,   ///< the usual one
    Resize, ///< over a grow band, along the time axis
    Move,   ///< while times are dragged
    Copy,   ///< while copies are dragged
};

/// What the mouse and the keyboard need of the controls; implemented by the schedule's control.
class KORVANE_CORE_API ISchemaInputHost
{
public:
    virtual ~ISchemaInputHost() = default;

    /// Gives the area the keyboard focus.
    virtual void FocusArea() = 0;
    /// Shows a pointer over the area until the next call.
    virtual void SetAreaCursor(TSchemaCursor cursor) = 0;
    /// Requests that the overlay is drawn again in a part of the area.
    virtual void InvalidateOverlay(const TRect &rect) = 0;
    /// Calls GestureTick every TSchemaGestures::kTickMilliseconds while on.
    virtual void SetGestureTimer(bool on) = 0;
    /// Shows the small hint beside a point of the area, or moves it there.
    virtual void ShowGestureHint(const TGestureHint &hint, TPoint at) = 0;
    /// Takes the small hint away; nothing without one.
    virtual void HideGestureHint() = 0;
    /// The pointer has come to a time, or with null to none: the big hint of the one before goes,
    /// and that of this one comes after a while.
    virtual void PointAtTime(TzuDataEntity_SchemaTime *time, TPoint at) = 0;
    /// Pops up the menu of times, when the point lies on one and there is such a menu, or else that
    /// of the component. False when there is neither.
    virtual bool PopUpMenu(bool onTime, TPoint at) = 0;
    /// Lets the user carry times out of the schedule. May come back only after the drop.
    virtual void StartTimeDrag(const TItemDragData &data) = 0;
    /// Marks of times have changed: once after each operation.
    virtual void SelectionChanged() {}
};

} // namespace korvane
