// What the core of a grid view asks of the control that shows it.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

#include <cstdint>

namespace korvane {

/// Shapes of the pointer over the grid.
enum class TGridCursor : std::uint8_t { Arrow, ColumnResize, RowResize };

/// What the layout needs of the control; implemented by the view.
class KORVANE_CORE_API IBabGridHost
{
public:
    virtual ~IBabGridHost() = default;

    /// Arranges for a repaint.
    virtual void InvalidateGrid() = 0;
    /// Arranges for a repaint that only has to follow the scrolling of an area.
    virtual void ScrollGrid(const TRect & /*area*/) { InvalidateGrid(); }
    /// Arranges for the gesture's overlay to be drawn again.
    virtual void InvalidateGridOverlay() = 0;
    /// The area that the grid may use, in pixels.
    virtual TSize GridSize() const = 0;
    /// Measures text; its font may be set.
    virtual TCanvas &MeasureCanvas() = 0;
    /// The font of cells that have none of their own.
    virtual TFont GridFont() const = 0;
    /// Nil for none.
    virtual const TImageList *GridImages() const = 0;
    /// Whether the view has the keyboard.
    virtual bool GridHasFocus() const = 0;
    /// Shows a pointer over the grid until the next call.
    virtual void SetGridCursor(TGridCursor cursor) = 0;
};

} // namespace korvane
