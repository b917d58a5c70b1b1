// What of a picture of a grid can stay when the view scrolls.
#pragma once

#include "cellgrid/zuBabGridBlock.h"
#include "foundation/zuExport.h"

#include <optional>
#include <vector>

namespace korvane {

/// How a picture becomes the next one.
struct TGridPictureMove
{
    TRect Area; ///< moves within itself
    /// To the right and down, in pixels.
    TPoint By;
    std::vector<TRect> Anew; ///< to be painted
};

/// Remembers where columns and rows were painted. What is remembered is compared, never used.
class KORVANE_CORE_API TGridPicture
{
public:
    /// The picture shows something else, or is to be painted anew for another reason.
    void Forget() { m_known = m_groupsInside = false; }
    /// Grids in cells show groups, whose texts do not move with them.
    void HasGroupsInside() { m_groupsInside = true; }
    /// The block was painted.
    void Remember(const TGridBlock &shown);
    /// How the picture becomes that of the block, when it only scrolled in one direction and what
    /// is shown before and after has kept its size; nothing otherwise.
    std::optional<TGridPictureMove> MoveTo(const TGridBlock &shown) const;

private:
    bool m_known = false;
    bool m_groupsInside = false;
    TGridBlock m_shown;
};

} // namespace korvane
