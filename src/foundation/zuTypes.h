// Basic value types of the library: instants, pixel geometry, colours.
#pragma once

#include "foundation/zuExport.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace korvane {

/// Root of the classes that travel through untyped event arguments.
class KORVANE_CORE_API TObject
{
public:
    TObject() = default;
    TObject(const TObject &) = delete;
    TObject &operator=(const TObject &) = delete;
    virtual ~TObject() = default;
};

/// Days since 1899-12-30; the fraction is the time of day. Durations and scales use the same unit.
using TDateTime = double;

/// A position or an offset in pixels.
struct TPoint
{
    /// Rightwards and down.
    int X = 0;
    int Y = 0;

    friend bool operator==(const TPoint &, const TPoint &) = default;
};

/// An extent in pixels.
struct TSize
{
    /// 0 or more where nothing else is said.
    int Width = 0;
    int Height = 0;

    friend bool operator==(const TSize &, const TSize &) = default;
};

/// Pixels that scrolled or were laid out far away stay within this, so that offsets do not
/// overflow.
inline constexpr int kFarAway = std::numeric_limits<int>::max() / 8;

/// Pixels from the first to behind the last, along one axis.
struct TPixelSpan
{
    /// `To` lies outside.
    int From = 0;
    int To = 0;

    /// 0 for an empty span, less for an inverted one.
    int Length() const { return To - From; }
    /// Halfway, rounded towards From.
    int Middle() const { return From + Length() / 2; }
    /// Never for an empty or inverted span.
    bool Contains(int pixel) const { return pixel >= From && pixel < To; }

    friend bool operator==(const TPixelSpan &, const TPixelSpan &) = default;
};

/// A pixel rectangle, half-open: Right and Bottom lie outside.
struct TRect
{
    /// Right and Bottom lie outside.
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;

    /// Negative for an inverted rectangle.
    int Width() const { return Right - Left; }
    int Height() const { return Bottom - Top; }
    /// Halfway down, rounded up the screen.
    int MiddleY() const { return Top + Height() / 2; }
    /// Whether it holds no pixel, as an inverted one does not.
    bool IsEmpty() const { return Right <= Left || Bottom <= Top; }
    /// Right and Bottom lie outside.
    bool Contains(TPoint point) const
    {
        return point.X >= Left && point.X < Right && point.Y >= Top && point.Y < Bottom;
    }
    /// Whether two rectangles that are not empty share a pixel; touching ones do not.
    bool Intersects(const TRect &other) const
    {
        return Left < other.Right && other.Left < Right && Top < other.Bottom && other.Top < Bottom;
    }
    /// The common part; empty, or inverted, where there is none.
    TRect Intersected(const TRect &other) const
    {
        return {std::max(Left, other.Left), std::max(Top, other.Top), std::min(Right, other.Right),
                std::min(Bottom, other.Bottom)};
    }
    /// The rectangle at another place, of the same size.
    TRect Translated(TPoint by) const
    {
        return {Left + by.X, Top + by.Y, Right + by.X, Bottom + by.Y};
    }

    friend bool operator==(const TRect &, const TRect &) = default;
};

/// 0x00BBGGRR, or one of the system colours below (high bit set), which the canvas resolves.
using TColor = std::uint32_t;

/// Colours of the palette in use (kSystemColorFlag and a number), and fixed ones.
inline constexpr TColor kSystemColorFlag = 0x80000000U;
inline constexpr TColor clBackground = kSystemColorFlag | 1U;
inline constexpr TColor clWindow = kSystemColorFlag | 5U;
inline constexpr TColor clWindowText = kSystemColorFlag | 8U;
inline constexpr TColor clHighlight = kSystemColorFlag | 13U;
inline constexpr TColor clHighlightText = kSystemColorFlag | 14U;
inline constexpr TColor clBtnFace = kSystemColorFlag | 15U;
inline constexpr TColor clBtnShadow = kSystemColorFlag | 16U;
inline constexpr TColor clGrayText = kSystemColorFlag | 17U;
inline constexpr TColor clBtnText = kSystemColorFlag | 18U;
inline constexpr TColor clBtnHighlight = kSystemColorFlag | 20U;
inline constexpr TColor clInfoText = kSystemColorFlag | 23U;
inline constexpr TColor clInfoBk = kSystemColorFlag | 24U;
inline constexpr TColor clBlack = 0x000000U;
inline constexpr TColor clGreen = 0x008000U;
inline constexpr TColor clOlive = 0x008080U;
inline constexpr TColor clGray = 0x808080U;
inline constexpr TColor clSilver = 0xC0C0C0U;
inline constexpr TColor clRed = 0x0000FFU;
inline constexpr TColor clBlue = 0xFF0000U;
inline constexpr TColor clWhite = 0xFFFFFFU;

/// Whether it must be resolved before its components say anything.
constexpr bool IsSystemColor(TColor color)
{
    return (color & kSystemColorFlag) != 0;
}

/// Composes a colour from its components, each 0..255.
constexpr TColor Rgb(unsigned red, unsigned green, unsigned blue)
{
    return (red & 0xFFU) | (green & 0xFFU) << 8U | (blue & 0xFFU) << 16U;
}

/// Components, each 0..255; of a system colour they mean nothing.
constexpr unsigned RedOf(TColor color)
{
    return color & 0xFFU;
}
constexpr unsigned GreenOf(TColor color)
{
    return color >> 8U & 0xFFU;
}
constexpr unsigned BlueOf(TColor color)
{
    return color >> 16U & 0xFFU;
}

} // namespace korvane
