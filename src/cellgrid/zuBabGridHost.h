// What the core of a grid view asks of the control that shows it.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

#include <cstdint>

namespace korvane {

enum class TGridCursor : std::uint8_t { Arrow, ColumnResize, RowResize };

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
    virtual TFont GridFont() const = 0;
    /// Nil for none.
    virtual const TImageList *GridImages() const = 0;
    virtual bool GridHasFocus() const = 0;
    virtual void SetGridCursor(TGridCursor cursor) = 0;
};

} // namespace korvane
