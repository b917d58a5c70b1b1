// Drawing of time items in their styles.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

namespace korvane {

/// By how much the upper and lower edges of bars are darker than the bar, in TintColor's terms.
inline constexpr int kEdgeTint = -35;
/// Whether a line has upright marks at its ends.
enum class TLineEnds : unsigned char { leNone, leMarks };

/// Drawing routines of the item styles. Rectangles are half-open pixels and may reach far beyond
/// the canvas: what lies outside its clip rectangle costs nothing. Pen and brush are left changed.
class KORVANE_CORE_API TzuTimeDraw
{
public:
    TzuTimeDraw() = delete;

    /// Filled rectangle with a darker edge.
    static void DrawTime(TColor color, const TRect &rect, TCanvas &canvas);
    /// The edge alone.
    static void DrawTimeHollow(TColor color, const TRect &rect, TCanvas &canvas);
    /// Filled rectangle with a raised outline.
    static void CoolOutline(TColor color, const TRect &rect, TCanvas &canvas);
    /// Cylinder lying along the time axis.
    static void DrawPipe(TColor color, const TRect &rect, TCanvas &canvas);
    /// Horizontal line half way up, with or without upright marks at both ends.
    static void LineOutline(TColor color, const TRect &rect, TCanvas &canvas, TLineEnds ends);
    /// Wavy line along the whole length.
    static void WaveOutline(TColor color, const TRect &rect, TCanvas &canvas);
    /// Filled diamond that touches the middles of the rectangle's edges.
    static void RombOutline(TColor color, const TRect &rect, TCanvas &canvas);
    /// Marks a diamond as selected by its outline; a frame would hide small ones.
    static void SelectRomb(const TRect &rect, TCanvas &canvas);
    /// Image centred in the rectangle; nothing without an image list.
    static void DrawImage(const TImageList *images, int index, const TRect &rect, TCanvas &canvas);
    /// GStuff::DoSelectContent.
    static void DoSelectContent(const TRect &rect, TCanvas &canvas);
    /// GStuff::W95Safe, which every routine here applies to its rectangle.
    static TRect W95Safe(const TRect &rect, const TCanvas &canvas);
};

} // namespace korvane
