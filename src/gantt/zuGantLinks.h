// Where and whether a link between two time items is drawn.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"
#include "gantt/zuGantTypes.h"

#include <array>
#include <span>

namespace korvane {

/// One end of a link as the area sees it.
struct TLinkEnd
{
    TRect Rect;            ///< the item's rectangle; meaningless unless OnScreen
    bool OnScreen = false; ///< its row is not scrolled away
    bool InView = false;   ///< on screen, and the item overlaps the visible time
};

/// Where a link leaves its first item and enters its second.
struct TLinkPoints
{
    /// In area pixels.
    TPoint Start;
    TPoint End;
    int Heading = 1; ///< direction in which a line from the side enters: 1 rightwards, -1 leftwards
};

/// Whether a link with these ends is drawn.
KORVANE_CORE_API bool IsLinkShown(const TLinkEnd &first, const TLinkEnd &second, TLinkShow show);

/// End points for ends of which at least one is on screen. An end that is scrolled away is replaced
/// by a stub beside the other: a second end 10 pixels to the left of the first, a first end 10
/// pixels to the right of the second. `style` decides how the end is entered: from above or below
/// with tlsMSProject, from the side otherwise.
KORVANE_CORE_API TLinkPoints LinkPoints(const TLinkEnd &first, const TLinkEnd &second,
                                        TLinkStyle style);

/// The lines of a link and its arrow head.
class KORVANE_CORE_API TLinkRoute
{
public:
    /// tlsDefault gives three segments, every other style two.
    TLinkRoute(TLinkPoints points, TLinkStyle style);

    /// From the first item to the second; as many points as segments and one.
    std::span<const TPoint> Line() const { return std::span(m_line).first(m_lineCount); }
    /// The triangle at the end; its first point is the tip.
    std::span<const TPoint, 3> ArrowHead() const { return m_arrowHead; }
    /// Whether any segment touches the rectangle.
    bool LinePassesThroughWindow(const TRect &window) const;
    /// The smallest rectangle around line and arrow head.
    TRect Bounds() const;

private:
    void AimArrowHead(TPoint from);

    std::array<TPoint, 4> m_line{};
    std::size_t m_lineCount = 0;
    std::array<TPoint, 3> m_arrowHead{};
};

/// The distance in pixels from a point to the nearest of connected lines; infinite when there are
/// none.
KORVANE_CORE_API double DistanceToLine(std::span<const TPoint> line, TPoint point);

/// How a link is marked.
enum class TLinkMark : unsigned char {
    None,
    Hovered, ///< drawn thicker
    Selected ///< drawn on a band in the highlight colour
};

/// Draws a link's mark, which goes below the link. Without a mark nothing is drawn.
KORVANE_CORE_API void DrawLinkMark(TCanvas &canvas, std::span<const TPoint> line, TLinkMark mark,
                                   TColor color);
/// Draws a link. Nothing outside the canvas' clip rectangle is sent to the canvas; the brush is
/// restored.
KORVANE_CORE_API void DrawLink(TCanvas &canvas, const TLinkRoute &route, TLinkStyle style,
                               TColor color, TLinkMark mark = TLinkMark::None);

} // namespace korvane
