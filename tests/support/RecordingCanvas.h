// A canvas that records what is drawn on it, with text metrics that no machine changes.
#pragma once

#include "foundation/zuCanvas.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <map>
#include <ostream>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane::test {

enum class TCanvasOp : unsigned char {
    FillRect,
    FillGradient,
    FrameRect,
    FocusRect,
    Polyline,
    Polygon,
    Ellipse,
    Text,
    Image
};

/// One drawing operation with the state that it depends on; what it does not depend on stays at the
/// default, so that calls compare by what is seen.
struct TCanvasCall
{
    TCanvasOp Op = TCanvasOp::FillRect;
    TRect Rect;                 ///< the shape; for text the extent at the point it is drawn at
    std::vector<TPoint> Points; ///< of lines and polygons
    std::string Text;           ///< UTF-8
    TPen Pen;                   ///< of outlines and lines
    TBrush Brush;               ///< of fills and frames; of gradients the top colour
    TColor BottomColor = 0;     ///< of gradients
    TFont Font;                 ///< of texts
    int ImageIndex = -1;        ///< of images
    bool Antialiased = false;   ///< of lines, polygons and ellipses
    TRect Clip;                 ///< clip bounds in force; for TextRect narrowed to its rectangle

    friend bool operator==(const TCanvasCall &, const TCanvasCall &) = default;

    /// Whether anything of its rectangle or points lies within the clip.
    bool IsVisible() const { return Rect.Intersects(Clip); }
};

inline std::ostream &operator<<(std::ostream &out, const TPoint &point)
{
    return out << '(' << point.X << ',' << point.Y << ')';
}

inline std::ostream &operator<<(std::ostream &out, const TRect &rect)
{
    return out << '[' << rect.Left << ',' << rect.Top << ' ' << rect.Right << ',' << rect.Bottom
               << ')';
}

inline std::ostream &operator<<(std::ostream &out, TCanvasOp op)
{
    static constexpr const char *kNames[] = {"FillRect",  "FillGradient", "FrameRect",
                                             "FocusRect", "Polyline",     "Polygon",
                                             "Ellipse",   "Text",         "Image"};
    return out << kNames[static_cast<std::size_t>(op)];
}

inline std::ostream &operator<<(std::ostream &out, const TCanvasCall &call)
{
    out << call.Op << ' ' << call.Rect << " clip=" << call.Clip << std::hex
        << " pen=" << call.Pen.Color << " brush=" << call.Brush.Color << std::dec;
    for (const TPoint &point : call.Points) {
        out << ' ' << point;
    }
    return out << " \"" << call.Text << "\" " << call.Font.Name << ' ' << call.Font.Size;
}

inline std::size_t CodePointCount(std::string_view utf8)
{
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
    }));
}

/// Records every operation, also those that the clip hides (TCanvasCall::IsVisible tells them).
///
/// Text is measured by TextMetric: unless replaced, 6 pixels per code point and 12 in height,
/// whatever the font.
class TRecordingCanvas : public TCanvas
{
public:
    explicit TRecordingCanvas(const TRect &bounds = {0, 0, 1000, 1000})
        : m_clips{bounds}
    {
    }

    std::function<TSize(const TFont &, std::string_view)> TextMetric = [](const TFont &,
                                                                          std::string_view text) {
        return TSize{6 * static_cast<int>(CodePointCount(text)), 12};
    };
    /// What system colours resolve to; those without an entry resolve to their number.
    std::map<TColor, TColor> Palette;

    const std::vector<TCanvasCall> &Calls() const { return m_calls; }
    void Clear() { m_calls.clear(); }
    std::vector<TCanvasCall> CallsOf(TCanvasOp op) const
    {
        return Where([op](const TCanvasCall &call) { return call.Op == op; });
    }
    template <typename Predicate>
    std::vector<TCanvasCall> Where(Predicate predicate) const
    {
        std::vector<TCanvasCall> result;
        std::copy_if(m_calls.begin(), m_calls.end(), std::back_inserter(result), predicate);
        return result;
    }
    /// The texts drawn, in order.
    std::vector<std::string> Texts() const
    {
        std::vector<std::string> result;
        for (const TCanvasCall &call : m_calls) {
            if (call.Op == TCanvasOp::Text) {
                result.push_back(call.Text);
            }
        }
        return result;
    }
    /// Clips pushed and not yet popped.
    std::size_t ClipDepth() const { return m_clips.size() - 1; }

    const TPen &Pen() const override { return m_pen; }
    void SetPen(const TPen &pen) override { m_pen = pen; }
    const TBrush &Brush() const override { return m_brush; }
    void SetBrush(const TBrush &brush) override { m_brush = brush; }
    const TFont &Font() const override { return m_font; }
    void SetFont(const TFont &font) override { m_font = font; }
    void SetAntialiasing(bool on) override { m_antialiased = on; }

    using TCanvas::FillRect;
    void FillRect(const TRect &rect) override { Add(TCanvasOp::FillRect, rect).Brush = m_brush; }
    void FillGradient(const TRect &rect, TColor top, TColor bottom) override
    {
        TCanvasCall &call = Add(TCanvasOp::FillGradient, rect);
        call.Brush.Color = top;
        call.BottomColor = bottom;
    }
    void FrameRect(const TRect &rect) override { Add(TCanvasOp::FrameRect, rect).Brush = m_brush; }
    void DrawFocusRect(const TRect &rect) override { Add(TCanvasOp::FocusRect, rect); }
    void Polyline(std::span<const TPoint> points) override
    {
        AddPoints(TCanvasOp::Polyline, points);
    }
    void Polygon(std::span<const TPoint> points) override
    {
        AddPoints(TCanvasOp::Polygon, points).Brush = m_brush;
    }
    void Ellipse(const TRect &rect) override
    {
        TCanvasCall &call = Add(TCanvasOp::Ellipse, rect);
        call.Pen = m_pen;
        call.Brush = m_brush;
        call.Antialiased = m_antialiased;
    }

    void TextOut(TPoint at, std::string_view text) override
    {
        const TSize size = TextExtent(text);
        TCanvasCall &call =
            Add(TCanvasOp::Text, {at.X, at.Y, at.X + size.Width, at.Y + size.Height});
        call.Text = text;
        call.Font = m_font;
    }
    void TextRect(const TRect &clip, TPoint at, std::string_view text) override
    {
        const TClipScope scope(*this, clip);
        TextOut(at, text);
    }
    TSize TextExtent(std::string_view text) const override { return TextMetric(m_font, text); }

    void DrawImage(const TRect &rect, const TImageList &images, int index) override
    {
        if (index >= 0 && index < images.Count()) {
            Add(TCanvasOp::Image, rect).ImageIndex = index;
        }
    }

    void PushClip(const TRect &rect) override { m_clips.push_back(ClipRect().Intersected(rect)); }
    void PopClip() override { m_clips.pop_back(); }
    TRect ClipRect() const override { return m_clips.back(); }

    TColor ResolveColor(TColor color) const override
    {
        const auto found = Palette.find(color);
        return found == Palette.end() ? color & ~kSystemColorFlag : found->second;
    }

private:
    TCanvasCall &Add(TCanvasOp op, const TRect &rect)
    {
        TCanvasCall &call = m_calls.emplace_back();
        call.Op = op;
        call.Rect = rect;
        call.Clip = ClipRect();
        return call;
    }

    /// The rectangle of a line or a polygon is the smallest that holds its points.
    TCanvasCall &AddPoints(TCanvasOp op, std::span<const TPoint> points)
    {
        if (points.empty()) {
            throw std::invalid_argument("A shape needs points");
        }
        const auto [left, right] = std::ranges::minmax(points, {}, &TPoint::X);
        const auto [top, bottom] = std::ranges::minmax(points, {}, &TPoint::Y);
        TCanvasCall &call = Add(op, {left.X, top.Y, right.X + 1, bottom.Y + 1});
        call.Points.assign(points.begin(), points.end());
        call.Pen = m_pen;
        call.Antialiased = m_antialiased;
        return call;
    }

    TPen m_pen;
    TBrush m_brush;
    TFont m_font;
    bool m_antialiased = false;
    std::vector<TRect> m_clips;
    std::vector<TCanvasCall> m_calls;
};

} // namespace korvane::test
