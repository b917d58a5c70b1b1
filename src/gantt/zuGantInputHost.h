// What the input handling of a Gantt chart asks of the controls around the drawn area.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"
#include "gantt/zuGantHint.h"
#include "gantt/zuGantLines.h"
#include "gantt/zuGantTypes.h"

#include <string_view>

namespace korvane {

/// Shapes of the pointer over the area.
enum class TGantCursor : unsigned char {
    Area,   ///< the one that CursorGantArea names
    Resize, ///< over a grip
    Move,   ///< while items are dragged
    Copy,   ///< while copies are dragged
    Link,   ///< while a dependency is drawn
    Forbidden
};

/// What the mouse and the keyboard need of the controls; implemented by the chart control.
class KORVANE_CORE_API IGantInputHost
{
public:
    virtual ~IGantInputHost() = default;

    /// Gives the area the keyboard focus.
    virtual void FocusArea() = 0;
    /// Whether the area has got the focus by the keyboard.
    virtual bool AreaHasFocus() const { return false; }
    /// Shows a pointer over the area until the next call.
    virtual void SetAreaCursor(TGantCursor cursor) = 0;
    /// Requests that the overlay is drawn again in a part of the area.
    virtual void InvalidateOverlay(const TRect &rect) = 0;
    /// Refreshes axis and tree, but not the area.
    virtual void RefreshAroundArea() = 0;
    /// The rectangle of the whole chart, tree and axis included, in area pixels.
    virtual TRect ChartRect() const = 0;

    /// Those of the row tree, or of the grid in its place.
    virtual IGantLines &Lines() const = 0;

    /// Calls GestureTick every TAutoScroll::kTickMilliseconds while on.
    virtual void SetGestureTimer(bool on) = 0;
    /// Shows the hint beside a point of the area, or moves it there.
    virtual void ShowGestureHint(const TGestureHint &hint, TPoint at) = 0;
    /// Takes the hint away; nothing without one.
    virtual void HideGestureHint() = 0;
    /// Lets the user carry items out of the chart. May come back only after the drop.
    virtual void StartItemDrag(const TItemDragData &data) = 0;
    /// Marks of items or links have changed: once after each operation.
    virtual void SelectionChanged() {}
};

} // namespace korvane
