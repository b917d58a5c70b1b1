// Small drawing routines that the drawn components share.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

namespace korvane {

/// Whether an edge looks raised or lowered.
enum class TBevel : unsigned char { bvRaised, bvLowered };

/// Drawing helpers; rectangles are half-open pixels. Pen and brush are left changed.
class KORVANE_CORE_API GStuff
{
public:
    GStuff() = delete;

    /// Mixes a colour with black (percent < 0) or white (percent > 0); 100 % is black or white.
    /// System colours are to be resolved before.
    static TColor TintColor(TColor color, int percent);
    /// Whether a rectangle has room for an extent.
    static bool BigEnough(const TRect &rect, TSize least);
    /// The rectangle with its edges in order, whichever corners it was spanned by.
    static TRect Fixrect(const TRect &rect);

    /// The rectangle with its ends pulled in to just outside the clip rectangle, so that
    /// coordinates stay in the range that every drawing backend handles. What is visible stays the
    /// same.
    static TRect W95Safe(const TRect &rect, const TCanvas &canvas);
    /// Mark of a selected item: a frame around it in the highlight colour with grips at its
    /// corners, where there is room for them.
    static void DoSelectContent(const TRect &rect, TCanvas &canvas);
    /// Edge of one pixel, light and dark, just inside the rectangle.
    static void BevelRect(const TRect &rect, TCanvas &canvas, TBevel bevel);
    /// Fills with one colour in the middle that runs into another one at the edges.
    static void FillRadiated(const TRect &rect, TColor middle, TColor edge, TCanvas &canvas);
};

} // namespace korvane
