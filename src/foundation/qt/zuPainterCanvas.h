// The canvas that draws through a QPainter.
#pragma once

#include "foundation/qt/zuCanvasFonts.h"
#include "foundation/zuCanvas.h"

#include <QBrush>
#include <QColor>
#include <QPalette>
#include <QRegion>

#include <memory>
#include <optional>
#include <vector>

class QPainter;

namespace korvane {

/// Draws on whatever a QPainter draws on. Coordinates are the painter's logical pixels.
///
/// Horizontal and vertical lines and frames are whole device pixels at any device-pixel ratio.
/// Without a painter it still keeps its state and measures text; drawing does nothing.
class TPainterCanvas : public TCanvas
{
public:
    /// Without a painter. The fonts are shared with other canvases of the same control, or null for
    /// its own.
    explicit TPainterCanvas(std::shared_ptr<TCanvasFonts> fonts = nullptr);
    /// Draws on the painter within `bounds`, as Begin does.
    TPainterCanvas(QPainter &painter, const TRect &bounds, const QPalette &palette,
                   std::shared_ptr<TCanvasFonts> fonts = nullptr);
    /// Ends.
    ~TPainterCanvas() override;

    /// Draws on the painter from now on, with pen, brush and font at their defaults. `bounds` is
    /// the drawing area that ClipRect starts from; it does not clip by itself.
    ///
    /// The painter is observed, must be active, and is left with other settings: the caller saves
    /// and restores what it needs.
    void Begin(QPainter &painter, const TRect &bounds, const QPalette &palette);
    void End();
    bool IsActive() const { return m_painter != nullptr; }

    /// The painter in use, for drawing beyond the canvas' operations, or null. Whatever is left set
    /// on it does not affect the canvas, except for clip and transformation, which the caller
    /// restores.
    QPainter *Painter();

    const TPen &Pen() const override { return m_pen; }
    void SetPen(const TPen &pen) override;
    const TBrush &Brush() const override { return m_brush; }
    void SetBrush(const TBrush &brush) override;
    const TFont &Font() const override { return m_font; }
    void SetFont(const TFont &font) override;
    void SetAntialiasing(bool on) override { m_antialiasing = on; }

    using TCanvas::FillRect;
    void FillRect(const TRect &rect) override;
    void FillGradient(const TRect &rect, TColor top, TColor bottom) override;
    void FrameRect(const TRect &rect) override;
    void DrawFocusRect(const TRect &rect) override;
    void Polyline(std::span<const TPoint> points) override;
    void Polygon(std::span<const TPoint> points) override;
    void Ellipse(const TRect &rect) override;

    void TextOut(TPoint at, std::string_view text) override;
    void TextRect(const TRect &clip, TPoint at, std::string_view text) override;
    TSize TextExtent(std::string_view text) const override;

    /// Draws images of a TzuImageList; other lists are unknown here and draw nothing.
    void DrawImage(const TRect &rect, const TImageList &images, int index) override;

    void PushClip(const TRect &rect) override;
    void PopClip() override;
    TRect ClipRect() const override { return m_clips.back(); }

    TColor ResolveColor(TColor color) const override;

private:
    /// Whose settings the painter's pen and brush hold.
    enum class TApplied { Nothing, Outline, Shape, Text };

    QColor Resolved(TColor color) const;
    QBrush PatternBrush(const std::array<TColor, 4> &colors) const;
    QPen OutlinePen() const;
    bool IsDirectLine() const;

    void ApplyClip();
    void ApplyAntialiasing(bool on);
    void ApplyOutline();
    void ApplyShape();
    void ApplyText();

    void FillSolid(const QRectF &rect, const QColor &color);
    void DrawThinFrame(const TRect &rect, const QBrush &brush);
    void DrawStraight(TPoint from, TPoint to);
    void DrawSlanted(std::span<const TPoint> points);
    void DrawPrepared(TPoint at, const TCanvasFonts::TPreparedText &text);

    QPainter *m_painter = nullptr;
    std::shared_ptr<TCanvasFonts> m_fonts;
    std::shared_ptr<TCanvasFonts::TEntry> m_fontEntry;
    QPalette m_palette;

    TPen m_pen;
    TBrush m_brush;
    TFont m_font;
    bool m_antialiasing = false;

    QColor m_penColor;
    QBrush m_fillBrush;
    QColor m_textColor;
    TApplied m_applied = TApplied::Nothing;
    bool m_appliedAntialiasing = false;
    const void *m_appliedFont = nullptr;

    bool m_vectorDevice = false;
    double m_scale = 1; ///< device pixels per logical pixel
    std::optional<QRegion> m_baseClip;
    std::vector<TRect> m_clips;
};

} // namespace korvane
