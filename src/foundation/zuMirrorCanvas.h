// Drawing from right to left.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuMappedCanvas.h"

namespace korvane {

/// Draws on another canvas as in a mirror `width` pixels wide, texts and images unmirrored in the
/// mirrored places: what is drawn left to right then stands right to left.
class KORVANE_CORE_API TMirrorCanvas : public TMappedCanvas
{
public:
    /// The canvas outlives the mirror; `width` is in pixels.
    TMirrorCanvas(TCanvas &canvas, int width)
        : TMappedCanvas(canvas)
        , m_width(width)
    {
    }

protected:
    TRect Mapped(const TRect &rect) const override
    {
        return {m_width - rect.Right, rect.Top, m_width - rect.Left, rect.Bottom};
    }
    TRect Unmapped(const TRect &rect) const override { return Mapped(rect); }
    TPoint Mapped(TPoint point) const override { return {m_width - 1 - point.X, point.Y}; }
    TPoint TextPlace(TPoint at, std::string_view text) const override
    {
        return {m_width - at.X - TextExtent(text).Width, at.Y};
    }

private:
    int m_width;
};

} // namespace korvane
