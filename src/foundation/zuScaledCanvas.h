// Drawing enlarged.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuMappedCanvas.h"
#include "foundation/zuMethod.h"
#include "foundation/zuRound.h"

#include <cmath>

namespace korvane {

/// Draws on another canvas with all places and sizes enlarged, but for fonts and pens: those are
/// set there as they are, and `fontSet` may enlarge the font. Texts are measured as they will be
/// drawn.
class KORVANE_CORE_API TScaledCanvas : public TMappedCanvas
{
public:
    /// The canvas outlives this one; `fontSet` is called after each change of its font.
    TScaledCanvas(TCanvas &canvas, TPrintScale scale, TMethod<void()> fontSet)
        : TMappedCanvas(canvas)
        , m_scale(scale)
        , m_fontSet(std::move(fontSet))
        , m_font(canvas.Font())
    {
    }

    const TFont &Font() const override { return m_font; }
    void SetFont(const TFont &font) override
    {
        m_font = font;
        Target().SetFont(font);
        m_fontSet();
    }
    TSize TextExtent(std::string_view text) const override
    {
        const TSize extent = Target().TextExtent(text);
        return {static_cast<int>(std::ceil(extent.Width / m_scale.X)),
                static_cast<int>(std::ceil(extent.Height / m_scale.Y))};
    }

protected:
    TRect Mapped(const TRect &rect) const override
    {
        return {RoundToPixel(rect.Left * m_scale.X), RoundToPixel(rect.Top * m_scale.Y),
                RoundToPixel(rect.Right * m_scale.X), RoundToPixel(rect.Bottom * m_scale.Y)};
    }
    TRect Unmapped(const TRect &rect) const override
    {
        const auto down = [](double value) { return static_cast<int>(std::floor(value)); };
        const auto up = [](double value) { return static_cast<int>(std::ceil(value)); };
        return {down(rect.Left / m_scale.X), down(rect.Top / m_scale.Y), up(rect.Right / m_scale.X),
                up(rect.Bottom / m_scale.Y)};
    }
    /// The last pixel before a border stays that.
    TPoint Mapped(TPoint point) const override
    {
        return {RoundToPixel((point.X + 1) * m_scale.X) - 1,
                RoundToPixel((point.Y + 1) * m_scale.Y) - 1};
    }
    TPoint TextPlace(TPoint at, std::string_view /*text*/) const override
    {
        return {RoundToPixel(at.X * m_scale.X), RoundToPixel(at.Y * m_scale.Y)};
    }

private:
    TPrintScale m_scale;
    TMethod<void()> m_fontSet;
    TFont m_font;
};

} // namespace korvane
