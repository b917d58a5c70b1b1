// Drawing in other coordinates.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"

#include <vector>

namespace korvane {

/// Draws on another canvas, where a subclass says that its places lie there.
class KORVANE_CORE_API TMappedCanvas : public TCanvas
{
public:
    const TPen &Pen() const override { return m_canvas.Pen(); }
    void SetPen(const TPen &pen) override { m_canvas.SetPen(pen); }
    const TBrush &Brush() const override { return m_canvas.Brush(); }
    void SetBrush(const TBrush &brush) override { m_canvas.SetBrush(brush); }
    const TFont &Font() const override { return m_canvas.Font(); }
    void SetFont(const TFont &font) override { m_canvas.SetFont(font); }
    void SetAntialiasing(bool on) override { m_canvas.SetAntialiasing(on); }

    using TCanvas::FillRect;
    void FillRect(const TRect &rect) override { m_canvas.FillRect(Mapped(rect)); }
    void FillGradient(const TRect &rect, TColor top, TColor bottom) override
    {
        m_canvas.FillGradient(Mapped(rect), top, bottom);
    }
    void FrameRect(const TRect &rect) override { m_canvas.FrameRect(Mapped(rect)); }
    void DrawFocusRect(const TRect &rect) override { m_canvas.DrawFocusRect(Mapped(rect)); }
    void Polyline(std::span<const TPoint> points) override { m_canvas.Polyline(Mapped(points)); }
    void Polygon(std::span<const TPoint> points) override { m_canvas.Polygon(Mapped(points)); }
    void Ellipse(const TRect &rect) override { m_canvas.Ellipse(Mapped(rect)); }

    void TextOut(TPoint at, std::string_view text) override
    {
        m_canvas.TextOut(TextPlace(at, text), text);
    }
    void TextRect(const TRect &clip, TPoint at, std::string_view text) override
    {
        m_canvas.TextRect(Mapped(clip), TextPlace(at, text), text);
    }
    TSize TextExtent(std::string_view text) const override { return m_canvas.TextExtent(text); }
    void DrawImage(const TRect &rect, const TImageList &images, int index) override
    {
        m_canvas.DrawImage(Mapped(rect), images, index);
    }

    void PushClip(const TRect &rect) override { m_canvas.PushClip(Mapped(rect)); }
    void PopClip() override { m_canvas.PopClip(); }
    TRect ClipRect() const override { return Unmapped(m_canvas.ClipRect()); }
    TColor ResolveColor(TColor color) const override { return m_canvas.ResolveColor(color); }

protected:
    /// The canvas outlives this one.
    explicit TMappedCanvas(TCanvas &canvas)
        : m_canvas(canvas)
    {
    }

    /// As given to the constructor.
    TCanvas &Target() const { return m_canvas; }
    /// Where a rectangle lies there.
    virtual TRect Mapped(const TRect &rect) const = 0;
    /// A rectangle that holds everything that lies in this one there.
    virtual TRect Unmapped(const TRect &rect) const = 0;
    /// A pixel of a line or corner.
    virtual TPoint Mapped(TPoint point) const = 0;
    /// The upper left corner of a text.
    virtual TPoint TextPlace(TPoint at, std::string_view text) const = 0;

private:
    std::vector<TPoint> Mapped(std::span<const TPoint> points) const
    {
        std::vector<TPoint> mapped;
        mapped.reserve(points.size());
        for (const TPoint &point : points) {
            mapped.push_back(Mapped(point));
        }
        return mapped;
    }

    TCanvas &m_canvas;
};

} // namespace korvane
