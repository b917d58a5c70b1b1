// Where the parts of a schedule view lie.
#pragma once

#include "foundation/zuTypes.h"

namespace korvane {

/// Sizes that the user and the application choose, in pixels; each belongs to one view.
struct TSchemaPartSizes
{
    // Normal view: scaler at the left, header at the top.
    int ScalerWidth = 70;
    int HeaderHeight = 20;
    // Flipped view: header at the left, scaler at the top.
    int FlippedHeaderWidth = 70;
    int ScalerHeight = 50;

    friend bool operator==(const TSchemaPartSizes &, const TSchemaPartSizes &) = default;
};

/// The parts' rectangles within the component.
struct TSchemaPartRects
{
    TRect Scaler;
    TRect Header; ///< of the current view
    TRect Area;
    TRect Sizer;
    TRect Corner; ///< between scaler and header; the column scroller stands there
};

/// Length of the sizer's edges, and how far it stands before the corner.
inline constexpr int kSizerSize = 5;
inline constexpr int kSizerOffset = 3;

inline TSchemaPartRects LayoutSchemaParts(const TSchemaPartSizes &sizes, TSize whole, bool flip)
{
    const int x = flip ? sizes.FlippedHeaderWidth : sizes.ScalerWidth;
    const int y = flip ? sizes.ScalerHeight : sizes.HeaderHeight;
    const TRect left{0, y, x, whole.Height};
    const TRect top{x, 0, whole.Width, y};
    const TPoint handle{x - kSizerOffset, y - kSizerOffset};
    return {flip ? top : left,
            flip ? left : top,
            {x, y, whole.Width, whole.Height},
            {handle.X, handle.Y, handle.X + kSizerSize, handle.Y + kSizerSize},
            {0, 0, x, y}};
}

} // namespace korvane
