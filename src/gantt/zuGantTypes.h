// Enumerations and event types of the Gantt chart.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuMethod.h"
#include "foundation/zuTypes.h"

namespace korvane {

class TGantRow;
class TGantRowList;
class TzuDataEntity;
class TzuDataEntity_Link;
class TzuDataEntity_Spanbar;
class TzuDataEntity_Tree;
class TzuDataList;
/// The chart as applications know it; the core only hands it on to handlers.
class TzuGant_ComBasic;

/// How a time item is drawn.
enum class TSpanbarStyle : unsigned char {
    sbsSquare,   ///< filled rectangle
    sbsSpan,     ///< rectangle with a raised outline, for summaries
    sbsUser,     ///< drawn by OnUserDrawTime
    sbsLine,     ///< horizontal line
    sbsLineWEnd, ///< horizontal line with end marks
    sbsWave,     ///< wavy line
    sbsRomb,     ///< diamond, for milestones
    sbsImage,    ///< image of the chart's ImageList
    sbsPipe,     ///< cylinder
};

/// What a mouse gesture in the area does.
enum class TGantMouseMoveMode : unsigned char {
    mmNone,
    mmMove,
    mmCopy,
    mmGrowLeft,
    mmGrowRight,
    mmDependency,
};

/// What the next press on an item starts.
enum class TGantStickyMode : unsigned char {
    smNone,
    smDependency, ///< drawing of a link
};

enum class TLinkStyle : unsigned char {
    tlsDefault,   ///< out, across and in: three segments with an open arrow head
    tlsMSProject, ///< across and down or up: two segments with a filled arrow head
    tlsUserDraw,  ///< drawn by OnUserDrawLinks
};

/// Which links are drawn.
enum class TLinkShow : unsigned char {
    lsOneEndVisible,   ///< at least one end within the visible rows and time
    lsBothEndsVisible, ///< both ends within the visible rows and time
    lsAlways,          ///< at least one end on a row that is not scrolled away
};

using TOnInfoPush_Spanbar =
    TMethod<void(TzuGant_ComBasic *theGant, TzuDataEntity_Spanbar *theDataEntity)>;
using TOnGantVirtualLoad = TOnInfoPush_Spanbar;
using TOnGantVirtualUnLoad =
    TMethod<void(TzuGant_ComBasic *theGant, TzuDataEntity_Spanbar *theDataEntity, bool &canUnload)>;

/// An item was dropped on `newRow` with the given times. The handler does the moving or copying.
using TOnTimeCopyOrChangeRow =
    TMethod<void(TzuGant_ComBasic *theGant, TzuDataEntity_Spanbar *item, TGantRow *row,
                 TGantRow *newRow, TDateTime start, TDateTime stop)>;

using TOnUserDrawTime = TMethod<void(TzuGant_ComBasic *theGant, TzuDataEntity_Spanbar *item,
                                     TCanvas &canvas, const TRect &rect)>;
using TOnUserDrawLinks = TMethod<void(TzuGant_ComBasic *theGant, TzuDataEntity_Link *link,
                                      TCanvas &canvas, TPoint start, TPoint end)>;
/// `rect` is the whole area, in its pixels.
using TOnUserDrawContent =
    TMethod<void(TzuGant_ComBasic *theGant, const TRect &rect, TCanvas &canvas)>;

using TGantRowNotify = TMethod<void(TGantRowList *theGantRowList, TGantRow *theGantRow)>;
/// Creates the row of a tree node. Leaving `result` null gives the node no row.
using TUserCreateGantRow =
    TMethod<void(TGantRowList *theGantRowList, TzuDataEntity_Tree *theNode, TGantRow *&result)>;

} // namespace korvane
