// How a cell looks.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuMethod.h"
#include "foundation/zuTypes.h"

#include <cstdint>

namespace korvane {

/// The sides of a cell that get a frame.
enum TFrameOption : std::uint8_t { foLeft = 1, foTop = 2, foRight = 4, foBottom = 8 };
/// A set of TFrameOption.
using TFrameOptions = std::uint8_t;
inline constexpr TFrameOptions kAllFrames = foLeft | foTop | foRight | foBottom;

enum class TFrameKind : std::uint8_t { fkSingle, fkDouble, fkDotted, fkRaised, fkLowered };

/// Draws a frame line; a handler that leaves `handled` false leaves it to the grid.
using TOnLineDraw = TMethod<void(TCanvas &canvas, const TPoint &from, const TPoint &to,
                                 TFrameOption side, bool &handled)>;

/// The properties of a layout that cells share: a change is seen in every cell that refers to it,
/// with the next paint.
class TLayoutProp : public TObject
{
public:
    TColor BackColor = clWindow;
    TColor FrontColor = clWindowText;
    bool UseFontInfo = false; ///< Font rather than the grid's
    TFont Font;
    int MinWidth = 20;  ///< in pixels
    int MinHeight = 20; ///< in pixels
    bool WrapTextAndFit = false;
    bool WindowsFlagDraw = false; ///< place the text by WindowsFlags
    /// A sum of kText... flags.
    int WindowsFlags = 0;
    bool FrameOptionsUse = false; ///< without, cells have thin lines at the right and below
    TFrameOptions FrameOptions = 0;
    TFrameKind FrameKind = TFrameKind::fkSingle;
    TColor FrameColor = clBtnFace;
    bool HorzAlignRight = false;
    bool HorzAlignCenter = false;
    bool VertAlignCenter = false;
    bool EndEllipsis = false;
    TOnLineDraw OnFrameLineDraw;

    // The text-drawing flags that WindowsFlags understands.
    static constexpr int kTextCenter = 0x1;
    static constexpr int kTextRight = 0x2;
    static constexpr int kTextVCenter = 0x4;
    static constexpr int kTextBottom = 0x8;
    static constexpr int kTextWordBreak = 0x10;
    static constexpr int kTextSingleLine = 0x20;
    static constexpr int kTextEndEllipsis = 0x8000;
};

} // namespace korvane
