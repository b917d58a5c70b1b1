// The canvas that draws through a QPainter.
#pragma once

#include "foundation/qt/zuCanvasFonts.h"
#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"

#include <QBrush>
#include <QColor>
#include <QPalette>
#include <QRegion>

#include <array>
#include <memory>
#include <optional>
#include <vector>

class QPainter;

namespace korvane {

/// Draws on whatever a QPainter draws on. Coordinates are the painter's logical pixels.
///
/// Horizontal and vertical lines and frames are whole device pixels at any device-pixel ratio.
/// Without a painter it still keeps its state and measures text; drawing does nothing.
class KORVANE_WIDGETS_API TPainterCanvas : public TCanvas
{
public:
    /// Without a painter. The fonts are shared with other canvases of the same control; null gives
    /// the canvas its own.
    explicit TPainterCanvas(std::shared_ptr<TCanvasFonts> fonts = nullptr);
    /// Draws on the painter, as after Begin.
    TPainterCanvas(QPainter &painter, const TRect &bounds, const QPalette &palette,
                   std::shared_ptr<TCanvasFonts> fonts = nullptr);

    /// Draws on the painter from now on, with pen, brush and font at their defaults. `bounds` is
    /// the drawing area that ClipRect starts from; it does not clip by itself.
    ///
    /// The painter is observed, must be active, and is left with other settings: the caller saves
    /// and restores what it needs.
    void Begin(QPainter &painter, const TRect &bounds, const QPalette &palette);
    /// Goes back to measuring only; the painter is not ended.
    void End();
    /// From Begin to End.
    bool IsActive() const { return m_painter != nullptr; }
    /// Draws lines and frames of one pixel as fine as paper holds them (a quarter of a point), or
    /// as the device can, until the next Begin.
    void UseHairlines();
    /// Texts that begin (upper left corner) outside of this part of the drawing are drawn as shapes
    /// on vector devices, until the next Begin. So a document of several pages that show a piece of
    /// a text each has the text itself once, where it begins.
    void SetTextPage(const TRect &page) { m_textPage = page; }
    /// Thickness in logical pixels at which a line so wide is drawn.
    double LineWidth(int width) const { return WholeWidth(width); }

    /// The painter in use, for drawing beyond the canvas' operations, or null. Its pen, brush, font
    /// and smoothing may be left changed; the caller restores the rest.
    QPainter *Painter();
    /// What system colours resolve by.
    const QPalette &Palette() const { return m_palette; }

    const TPen &Pen() const override { return m_pen; }
    void SetPen(const TPen &pen) override;
    const TBrush &Brush() const override { return m_brush; }
    void SetBrush(const TBrush &brush) override;
    const TFont &Font() const override { return m_font; }
    void SetFont(const TFont &font) override;
    void SetAntialiasing(bool on) override { m_antialiasing = on; }

    /// The shorthands as well.
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
    /// What the painter's pen is set up for.
    enum class TPenUse : unsigned char { Unknown, Outline, Text };

    struct TKnownPattern
    {
        std::array<QRgb, 4> Colors{};
        double Scale = 1;
        QBrush Brush;
    };

    QColor Resolved(TColor color) const;
    bool IsVisible(const TRect &rect) const;
    QBrush PatternBrush(const std::array<TColor, 4> &colors);
    /// Thickness in logical pixels that is whole device pixels, at least one.
    double WholeWidth(int width) const;
    void ForgetPainterState();

    void UseAntialiasing(bool on);
    void UseOutline();
    void UseBrush();
    void UseText();
    void ApplyClip();

    void DrawFrame(const TRect &rect, const QBrush &brush);
    void DrawStraight(TPoint from, TPoint to);

    QPainter *m_painter = nullptr;
    std::shared_ptr<TCanvasFonts> m_fonts;
    std::shared_ptr<TCanvasFont> m_canvasFont;
    QPalette m_palette;
    bool m_vector = false; ///< the device keeps shapes rather than pixels
    double m_scale = 1;    ///< device pixels per logical pixel
    double m_hairline = 0; ///< in logical pixels; 0: lines are as wide as they say
    std::optional<QRegion> m_baseClip;
    std::optional<TRect> m_textPage;
    std::vector<TRect> m_clips{TRect()};

    TPen m_pen;
    TBrush m_brush;
    TFont m_font;
    bool m_antialiasing = false;

    QColor m_penColor;
    QColor m_brushColor;
    TPenUse m_penUse = TPenUse::Unknown;
    bool m_brushInUse = false;
    bool m_fontInUse = false;
    std::optional<bool> m_antialiasingInUse;
    std::vector<TKnownPattern> m_patterns;
};

/// Whether a painter's device keeps shapes (PDF, SVG, pictures) rather than pixels.
KORVANE_WIDGETS_API bool IsVectorDevice(const QPainter &painter);
/// Device pixels per logical pixel of a painter that scales evenly, else 1.
KORVANE_WIDGETS_API double DeviceScale(const QPainter &painter);

} // namespace korvane
