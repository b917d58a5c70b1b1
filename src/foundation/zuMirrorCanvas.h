// Drawing from right to left.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"

#include <algorithm>
#include <vector>

namespace korvane {

/// Draws on another canvas as in a mirror `width` pixels wide, texts and images unmirrored in the
/// mirrored places: what is drawn left to right then stands right to left.
class KORVANE_CORE_API TMirrorCanvas : public TCanvas
{
public:
    TMirrorCanvas(TCanvas &canvas, int width)
        : m_canvas(canvas)
        , m_width(width)
    {
    }

    const TPen &Pen() const override { return m_canvas.Pen(); }
    void SetPen(const TPen &pen) override { m_canvas.SetPen(pen); }
    const TBrush &Brush() const override { return m_canvas.Brush(); }
    void SetBrush(const TBrush &brush) override { m_canvas.SetBrush(brush); }
    const TFont &Font() const override { return m_canvas.Font(); }
    void SetFont(const TFont &font) override { m_canvas.SetFont(font); }
    void SetAntialiasing(bool on) override { m_canvas.SetAntialiasing(on); }

    using TCanvas::FillRect;
    void FillRect(const TRect &rect) override { m_canvas.FillRect(Mirrored(rect)); }
    void FillGradient(const TRect &rect, TColor top, TColor bottom) override
    {
        m_canvas.FillGradient(Mirrored(rect), top, bottom);
    }
    void FrameRect(const TRect &rect) override { m_canvas.FrameRect(Mirrored(rect)); }
    void DrawFocusRect(const TRect &rect) override { m_canvas.DrawFocusRect(Mirrored(rect)); }
    void Polyline(std::span<const TPoint> points) override { m_canvas.Polyline(Mirrored(points)); }
    void Polygon(std::span<const TPoint> points) override { m_canvas.Polygon(Mirrored(points)); }
    void Ellipse(const TRect &rect) override { m_canvas.Ellipse(Mirrored(rect)); }

    void TextOut(TPoint at, std::string_view text) override
    {
        m_canvas.TextOut({m_width - at.X - TextExtent(text).Width, at.Y}, text);
    }
    void TextRect(const TRect &clip, TPoint at, std::string_view text) override
    {
        m_canvas.TextRect(Mirrored(clip), {m_width - at.X - TextExtent(text).Width, at.Y}, text);
    }
    TSize TextExtent(std::string_view text) const override { return m_canvas.TextExtent(text); }
    void DrawImage(const TRect &rect, const TImageList &images, int index) override
    {
        m_canvas.DrawImage(Mirrored(rect), images, index);
    }

    void PushClip(const TRect &rect) override { m_canvas.PushClip(Mirrored(rect)); }
    void PopClip() override { m_canvas.PopClip(); }
    TRect ClipRect() const override { return Mirrored(m_canvas.ClipRect()); }
    TColor ResolveColor(TColor color) const override { return m_canvas.ResolveColor(color); }

private:
    TRect Mirrored(const TRect &rect) const
    {
        return {m_width - rect.Right, rect.Top, m_width - rect.Left, rect.Bottom};
    }
    std::vector<TPoint> Mirrored(std::span<const TPoint> points) const
    {
        std::vector<TPoint> mirrored(points.begin(), points.end());
        for (TPoint &point : mirrored) {
            point.X = m_width - 1 - point.X;
        }
        return mirrored;
    }

    TCanvas &m_canvas;
    int m_width;
};

} // namespace korvane
