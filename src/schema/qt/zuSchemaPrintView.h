// What a print of the schedule view draws on.
#pragma once

#include "foundation/zuExport.h"

namespace korvane {

class TzuDateScaler;
class TzuOffscreenPaint;

/// Stands in for axis and area on screen while a schedule is printed, so that neither of them has
/// to be moved.
class KORVANE_WIDGETS_API ISchemaPrintView
{
public:
    virtual ~ISchemaPrintView() = default;

    /// What takes the place of axis and area.
    virtual TzuDateScaler &Axis() = 0;
    virtual TzuOffscreenPaint &Area() = 0;
};

} // namespace korvane
