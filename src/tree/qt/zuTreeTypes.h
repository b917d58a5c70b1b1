// What the tree component tells of itself.
#pragma once

#include "foundation/zuCanvas.h"
#include "tree/zuTreeData.h"

#include <cstdint>
#include <optional>

namespace korvane {

/// The frame around the control.
enum class TBorderStyle : std::uint8_t { bsNone, bsSingle };

/// The vertical scroll range in rows: the first row shown is Position, Min <= Position <= Max, and
/// Page rows are shown whole.
struct TScrollInfo
{
    /// Rows, 0-based.
    int Min = 0;
    int Max = 0;
    int Page = 0;
    int Position = 0;

    friend bool operator==(const TScrollInfo &, const TScrollInfo &) = default;
};

/// How one row is drawn. A handler may change the optional members, the style and the image.
struct TTreeItemLook
{
    /// Nothing: the colour of the tree's font.
    std::optional<TColor> TextColor;
    std::optional<TColor> BackColor; ///< of the whole row, unless it is selected
    TFontStyles Style;               ///< on top of the tree's font
    int ImageIndex = -1;             ///< of the tree's images; -1 for none
    bool Selected = false;           ///< the mark of a selection is drawn
    bool Focused = false;            ///< the frame of the current row is drawn
    bool Hot = false;                ///< under the pointer
};

} // namespace korvane
