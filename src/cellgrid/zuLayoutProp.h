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
/// All four sides.
inline constexpr TFrameOptions kAllFrames = foLeft | foTop | foRight | foBottom;

/// How the lines of a frame look.
enum class TFrameKind : std::uint8_t { fkSingle, fkDouble, fkDotted, fkRaised, fkLowered };

/// Draws a frame line; a handler that leaves `handled` false leaves it to the grid.
using TOnLineDraw = TMethod<void(TCanvas &canvas, const TPoint &from, const TPoint &to,
                                 TFrameOption side, bool &handled)>;

/// The properties of a layout that cells share: a change is seen in every cell that refers to it,
/// with the next paint.
class TLayoutProp : public TObject
{
public:
    /// Of the cell and of its text.
    TColor BackColor = clWindow;
    TColor FrontColor = clWindowText;
    bool UseFontInfo = false;     ///< Font rather than the grid's
    TFont Font;                   ///< with UseFontInfo; painted in FrontColor
    int MinWidth = 20;            ///< in pixels
    int MinHeight = 20;           ///< in pixels
    bool WrapTextAndFit = false;  ///< lines are broken, and rows as high as they need
    bool WindowsFlagDraw = false; ///< place the text by WindowsFlags
    /// A sum of kText... flags.
    int WindowsFlags = 0;
    bool FrameOptionsUse = false; ///< without, cells have thin lines at the right and below
    /// Sides with a line in FrameColor, with FrameOptionsUse.
    TFrameOptions FrameOptions = 0;
    TFrameKind FrameKind = TFrameKind::fkSingle;
    TColor FrameColor = clBtnFace;
    /// Where the text lies; without, at the left and at the top. WindowsFlagDraw overrides them.
    bool HorzAlignRight = false;
    bool HorzAlignCenter = false;
    bool VertAlignCenter = false;
    /// A text that is too long ends with an ellipsis.
    bool EndEllipsis = false;
    /// Called for each line of a frame, in place of the line.
    TOnLineDraw OnFrameLineDraw;

    /// The text-drawing flags that WindowsFlags understands.
    static constexpr int kTextCenter = 0x1;
    static constexpr int kTextRight = 0x2;
    static constexpr int kTextVCenter = 0x4;
    static constexpr int kTextBottom = 0x8;
    static constexpr int kTextWordBreak = 0x10;
    static constexpr int kTextSingleLine = 0x20;
    static constexpr int kTextEndEllipsis = 0x8000;
};

} // namespace korvane
