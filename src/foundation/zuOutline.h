// What a running gesture draws above the area.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuTypes.h"

#include <vector>

namespace korvane {

/// Drawing of outlines. A dark and a light line run side by side, so that they are seen on every
/// background. Pen and brush are left changed.
class TOutlineDraw
{
public:
    TOutlineDraw() = delete;

    /// A frame around the rectangle's edge.
    static void Frame(const TRect &rect, TCanvas &canvas);
    /// A thinner frame in dashes.
    static void RubberBand(const TRect &rect, TCanvas &canvas);
    /// A line with an arrow head at its end.
    static void Arrow(TPoint from, TPoint to, TCanvas &canvas);

    /// What Frame, RubberBand and Arrow draw on.
    static TRect BoundsOfFrame(const TRect &rect);
    static TRect BoundsOfArrow(TPoint from, TPoint to);
};

/// What is shown of a gesture at one moment, in area pixels.
struct TGestureFeedback
{
    std::vector<TRect> Frames;
    TRect Band; ///< of a rubber band; empty when there is none
    TPoint ArrowFrom;
    TPoint ArrowTo;
    bool HasArrow = false;

    /// The smallest rectangle around all that is drawn.
    TRect Bounds() const;

    friend bool operator==(const TGestureFeedback &, const TGestureFeedback &) = default;
};

/// The smallest rectangle around both; an empty one does not count.
TRect United(const TRect &a, const TRect &b);

} // namespace korvane
