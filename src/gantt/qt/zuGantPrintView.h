// What a print of the Gantt chart draws on and shows.
#pragma once

#include "foundation/zuExport.h"
#include "gantt/zuGantRowList.h"

#include <span>
#include <vector>

namespace korvane {

class TzuDataEntity_Link;
class TzuDateScaler;
class TzuOffscreenPaint;

/// Stands in for axis, area and row tree on screen while a chart is printed, so that none of them
/// has to be moved.
class KORVANE_WIDGETS_API IGantPrintView
{
public:
    virtual ~IGantPrintView() = default;

    /// What takes the place of axis and area.
    virtual TzuDateScaler &Axis() = 0;
    virtual TzuOffscreenPaint &Area() = 0;
    /// Appends the rows to draw, top to bottom, with their places in area pixels.
    virtual void CollectRows(std::vector<TVisibleNode> &rows) = 0;
    /// Where all that is printed lies, of which the area shows a part; in area pixels.
    virtual TRect WholeArea() = 0;
    /// A link has been drawn along these lines, in painted pixels.
    virtual void LinkDrawn(const TzuDataEntity_Link & /*link*/, std::span<const TPoint> /*line*/) {}
};

} // namespace korvane
