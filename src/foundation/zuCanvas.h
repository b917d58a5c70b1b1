// The abstract surface on which the core draws.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace korvane {

/// A font as the components' properties hold it.
struct TFont
{
    std::string Name = "Arial";  ///< of a family; one that is not installed is replaced
    int Size = 8;                ///< in points
    TColor Color = clWindowText; ///< of the text
    bool Bold = false;           ///< the heavier weight
    bool Italic = false;         ///< slanted, or the family's italic
    bool Underline = false;      ///< the text has a line below it
    bool StrikeOut = false;      ///< the text has a line through it

    friend bool operator==(const TFont &, const TFont &) = default;
};

/// What a line looks like; psClear draws none.
enum class TPenStyle : unsigned char { psSolid, psDash, psDot, psClear };

/// What lines are drawn with.
struct TPen
{
    TColor Color = clBlack;               ///< of the line
    int Width = 1;                        ///< in pixels
    TPenStyle Style = TPenStyle::psSolid; ///< psClear for no line

    friend bool operator==(const TPen &, const TPen &) = default;
};

/// How an area is filled; bsClear leaves it as it is.
enum class TBrushStyle : unsigned char { bsSolid, bsClear, bsPattern };

/// What areas are filled with.
struct TBrush
{
    TColor Color = clWhite; ///< of bsSolid
    /// See the type.
    TBrushStyle Style = TBrushStyle::bsSolid;
    /// For bsPattern: a tile of 2 by 2 pixels, row by row, anchored at the canvas origin.
    std::array<TColor, 4> Pattern{};

    friend bool operator==(const TBrush &, const TBrush &) = default;
};

/// Factors by which painted coordinates grow while printing; 1 on screen.
struct TPrintScale
{
    /// Along the width and along the height.
    double X = 1;
    double Y = 1;
};

/// A set of numbered images. The core only passes it on; the toolkit half knows what is in it.
class KORVANE_CORE_API TImageList : public TObject
{
public:
    /// Valid indexes are 0..Count()-1.
    virtual int Count() const = 0;
};

/// A drawing surface. Coordinates are pixels; text is UTF-8.
///
/// Pen, brush and font are state that stays until set again. Fills leave out the right and bottom
/// edges of half-open rectangles; lines include both end points.
class KORVANE_CORE_API TCanvas
{
public:
    TCanvas() = default;
    TCanvas(const TCanvas &) = delete;
    TCanvas &operator=(const TCanvas &) = delete;
    virtual ~TCanvas() = default;

    /// State; initially black lines one pixel wide, white areas, and text in Arial of 8 points.
    virtual const TPen &Pen() const = 0;
    virtual void SetPen(const TPen &pen) = 0;
    virtual const TBrush &Brush() const = 0;
    virtual void SetBrush(const TBrush &brush) = 0;
    virtual const TFont &Font() const = 0;
    virtual void SetFont(const TFont &font) = 0;

    /// Whether slanted and curved edges of the following shapes are smoothed. Initially off.
    virtual void SetAntialiasing(bool on) = 0;

    /// Fills with the brush.
    virtual void FillRect(const TRect &rect) = 0;
    /// Fills with a gradient from the top edge's to the bottom edge's colour.
    virtual void FillGradient(const TRect &rect, TColor top, TColor bottom) = 0;
    /// Draws a one-pixel frame inside the rectangle with the brush's colour.
    virtual void FrameRect(const TRect &rect) = 0;
    /// Draws the dotted frame that marks the focus, inside the rectangle.
    virtual void DrawFocusRect(const TRect &rect) = 0;
    /// Draws connected lines with the pen.
    virtual void Polyline(std::span<const TPoint> points) = 0;
    /// Fills a closed shape with the brush and outlines it with the pen.
    virtual void Polygon(std::span<const TPoint> points) = 0;
    /// Fills and outlines the ellipse inside the rectangle.
    virtual void Ellipse(const TRect &rect) = 0;

    /// Draws text with its top-left corner at the point.
    virtual void TextOut(TPoint at, std::string_view text) = 0;
    /// Like TextOut, clipped to the rectangle.
    virtual void TextRect(const TRect &clip, TPoint at, std::string_view text) = 0;
    /// Extent of the text in the current font.
    virtual TSize TextExtent(std::string_view text) const = 0;

    /// Draws image `index` centred in the rectangle, scaled down when it does not fit.
    /// An index outside 0..Count()-1 draws nothing.
    virtual void DrawImage(const TRect &rect, const TImageList &images, int index) = 0;

    /// Narrows the clip region until the matching PopClip.
    virtual void PushClip(const TRect &rect) = 0;
    /// Goes back to the region from before the matching PushClip; calls come in pairs.
    virtual void PopClip() = 0;
    /// Bounds of the current clip region.
    virtual TRect ClipRect() const = 0;

    /// The colour as 0x00BBGGRR, system colours looked up in the palette in use.
    virtual TColor ResolveColor(TColor color) const = 0;

    /// Shorthands on the operations above. FillRect in a colour leaves the brush with it.
    void Line(TPoint from, TPoint to)
    {
        const std::array points{from, to};
        Polyline(points);
    }
    void SetPenColor(TColor color) { SetPen({color, Pen().Width, Pen().Style}); }
    void SetBrushColor(TColor color) { SetBrush({color, TBrushStyle::bsSolid, {}}); }
    void FillRect(const TRect &rect, TColor color)
    {
        SetBrushColor(color);
        FillRect(rect);
    }
};

/// Clips a canvas for the lifetime of the object.
class TClipScope
{
public:
    /// The canvas outlives the scope.
    TClipScope(TCanvas &canvas, const TRect &rect)
        : m_canvas(canvas)
    {
        m_canvas.PushClip(rect);
    }
    TClipScope(const TClipScope &) = delete;
    TClipScope &operator=(const TClipScope &) = delete;
    ~TClipScope() { m_canvas.PopClip(); }

private:
    TCanvas &m_canvas;
};

/// Smooths the shapes drawn on a canvas during the lifetime of the object.
class TSmoothScope
{
public:
    /// The canvas outlives the scope; afterwards smoothing is off, whatever it was.
    explicit TSmoothScope(TCanvas &canvas)
        : m_canvas(canvas)
    {
        m_canvas.SetAntialiasing(true);
    }
    TSmoothScope(const TSmoothScope &) = delete;
    TSmoothScope &operator=(const TSmoothScope &) = delete;
    ~TSmoothScope() { m_canvas.SetAntialiasing(false); }

private:
    TCanvas &m_canvas;
};

} // namespace korvane
