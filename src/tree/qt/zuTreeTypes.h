// What the tree component tells of itself.
#pragma once

#include "foundation/zuCanvas.h"
#include "tree/zuTreeData.h"

#include <cstdint>
#include <optional>

namespace korvane {

enum class TBorderStyle : std::uint8_t { bsNone, bsSingle };

/// The vertical scroll range in rows: the first row shown is Position, Min <= Position <= Max, and
/// Page rows are shown whole.
struct TScrollInfo
{
    int Min = 0;
    int Max = 0;
    int Page = 0;
    int Position = 0;

    friend bool operator==(const TScrollInfo &, const TScrollInfo &) = default;
};

/// How one row is drawn. A handler may change the optional members, the style and the image.
struct TTreeItemLook
{
    std::optional<TColor> TextColor;
    std::optional<TColor> BackColor; ///< of the whole row, unless it is selected
    TFontStyles Style;               ///< on top of the tree's font
    int ImageIndex = -1;
    bool Selected = false;
    bool Focused = false;
    bool Hot = false; ///< under the pointer
};

} // namespace korvane
