// What the input handling of a Gantt chart asks of the controls around the drawn area.
#pragma once

#include "foundation/zuTypes.h"
#include "gantt/zuGantHint.h"
#include "gantt/zuGantTypes.h"

#include <optional>
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
    /// Whether the area has got the focus by the keyboard.
    virtual bool AreaHasFocus() const { return false; }
    virtual void SetAreaCursor(TGantCursor cursor) = 0;
    /// Requests that the overlay is drawn again in a part of the area.
    virtual void InvalidateOverlay(const TRect &rect) = 0;
    /// Refreshes axis and tree, but not the area.
    virtual void RefreshAroundArea() = 0;
    /// The rectangle of the whole chart, tree and axis included, in area pixels.
    virtual TRect ChartRect() const = 0;

    /// Scrolls the rows by whole rows, down when positive; stops at either end.
    virtual void ScrollRows(int rows) = 0;
    /// How far the rows are scrolled down from their beginning, in pixels.
    virtual int ScrolledRowPixels() const = 0;
    /// Expands and scrolls the row tree until the row's line is shown.
    virtual void BringRowIntoView(TGantRow &row) = 0;
    /// The row that is the tree's current one, or null.
    virtual TGantRow *CurrentRow() = 0;
    /// Top of the row's line in area pixels, also above and below the area; nothing for a row that
    /// is hidden or under a collapsed node.
    virtual std::optional<int> RowTop(const TGantRow &row) const = 0;
    /// The row whose line, taken half-open, holds a height in area pixels, also above and below the
    /// area; null where there is none.
    virtual TGantRow *RowAtHeight(int y) const = 0;

    /// Calls GestureTick every TAutoScroll::kTickMilliseconds while on.
    virtual void SetGestureTimer(bool on) = 0;
    /// Shows the hint beside a point of the area, or moves it there.
    virtual void ShowGestureHint(const TGestureHint &hint, TPoint at) = 0;
    virtual void HideGestureHint() = 0;
    /// Lets the user carry items out of the chart. May come back only after the drop.
    virtual void StartItemDrag(const TItemDragData &data) = 0;
    /// Marks of items or links have changed: once after each operation.
    virtual void SelectionChanged() {}
};

} // namespace korvane
