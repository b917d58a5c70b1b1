// Where the parts of a schedule view lie.
#pragma once

#include "foundation/zuTypes.h"

#include <algorithm>

namespace korvane {

/// Sizes that the user and the application choose, in pixels; each belongs to one view.
struct TSchemaPartSizes
{
    int ScalerWidth = 70;        ///< of the normal view, at the left
    int HeaderHeight = 20;       ///< of the normal view, at the top
    int FlippedHeaderWidth = 70; ///< at the left
    int ScalerHeight = 50;       ///< of the flipped view, at the top

    friend bool operator==(const TSchemaPartSizes &, const TSchemaPartSizes &) = default;
};

/// The parts' rectangles within the component.
struct TSchemaPartRects
{
    TRect Scaler; ///< of the time axis
    TRect Header; ///< of the current view
    TRect Area;   ///< that is drawn
    TRect Sizer;  ///< the square that moves the corner
    TRect Corner; ///< between scaler and header; the column scroller stands there
};

/// Length of the sizer's edges, and how far it stands before the corner.
inline constexpr int kSizerSize = 5;
inline constexpr int kSizerOffset = 3;

/// Parts for which there is no room lie outside, empty; the sizer stays within reach.
inline TSchemaPartRects LayoutSchemaParts(const TSchemaPartSizes &sizes, TSize whole, bool flip)
{
    const int x = flip ? sizes.FlippedHeaderWidth : sizes.ScalerWidth;
    const int y = flip ? sizes.ScalerHeight : sizes.HeaderHeight;
    const int right = std::max(x, whole.Width);
    const int bottom = std::max(y, whole.Height);
    const TRect left{0, y, x, bottom};
    const TRect top{x, 0, right, y};
    const TPoint handle{std::min(x - kSizerOffset, std::max(whole.Width - kSizerSize, 0)),
                        std::min(y - kSizerOffset, std::max(whole.Height - kSizerSize, 0))};
    return {flip ? top : left,
            flip ? left : top,
            {x, y, right, bottom},
            {handle.X, handle.Y, handle.X + kSizerSize, handle.Y + kSizerSize},
            {0, 0, x, y}};
}

} // namespace korvane
