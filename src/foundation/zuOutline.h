// What a running gesture draws above the area.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"
#include "foundation/zuInput.h"
#include "foundation/zuTypes.h"

#include <vector>

namespace korvane {

/// Drawing of outlines. A dark and a light line run side by side, so that they are seen on every
/// background. Pen and brush are left changed.
class KORVANE_CORE_API TOutlineDraw
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
struct KORVANE_CORE_API TGestureFeedback
{
    /// Of items; none when nothing is moved or resized.
    std::vector<TRect> Frames;
    TRect Band; ///< of a rubber band; empty when there is none
    /// Of a dependency; they count only with HasArrow.
    TPoint ArrowFrom;
    TPoint ArrowTo;
    bool HasArrow = false;

    /// The smallest rectangle around all that is drawn.
    TRect Bounds() const;
    /// What has to be drawn again where it appears or goes: around each outline, or around all of
    /// many and of an arrow.
    std::vector<TRect> DirtyRects() const;

    friend bool operator==(const TGestureFeedback &, const TGestureFeedback &) = default;
};

/// A rubber band from a press to the mouse, the pixels of both included.
KORVANE_CORE_API TRect RubberBandRect(TPoint press, TPoint mouse);
/// What a rubber band does that was begun with these modifiers: Shift adds, Ctrl toggles.
KORVANE_CORE_API TSelectHow RubberBandRule(const TShiftState &atPress);

/// The smallest rectangle around both; an empty one does not count.
KORVANE_CORE_API TRect United(const TRect &a, const TRect &b);

} // namespace korvane
