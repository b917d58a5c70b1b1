// What the input handling of a Gantt chart asks of the controls around the drawn area.
#pragma once

#include "foundation/zuTypes.h"
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

class IGantInputHost
{
public:
    virtual ~IGantInputHost() = default;

    virtual void FocusArea() = 0;
    virtual void SetAreaCursor(TGantCursor cursor) = 0;
    /// Requests that the overlay is drawn again in a part of the area.
    virtual void InvalidateOverlay(const TRect &rect) = 0;
    /// Refreshes axis and tree, but not the area.
    virtual void RefreshAroundArea() = 0;
    /// Scrolls the rows by whole rows, down when positive; stops at either end.
    virtual void ScrollRows(int rows) = 0;
    /// Expands and scrolls the row tree until the row's line is shown.
    virtual void BringRowIntoView(TGantRow &row) = 0;
    /// The row that is the tree's current one, or null.
    virtual TGantRow *CurrentRow() = 0;
};

} // namespace korvane
