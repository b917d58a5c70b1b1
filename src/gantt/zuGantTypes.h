// Enumerations and event types of the Gantt chart.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuGestureHint.h"
#include "foundation/zuInput.h"
#include "foundation/zuMethod.h"
#include "foundation/zuPublished.h"
#include "foundation/zuTypes.h"

#include <string>
#include <vector>

namespace korvane {

class TGantRow;
class TGantRowList;
class TzuDataEntity;
class TzuDataEntity_GridTreeNode;
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

/// What one action of the user, with the mouse or the keyboard, does to the data.
enum class TGantUserChange : unsigned char {
    ucMove,       ///< items to other times or rows
    ucCopy,       ///< copies of items
    ucResize,     ///< one end of items
    ucDependency, ///< a link, made by OnDependencyAction
    ucDelete,     ///< items or links
    ucOther
};

/// How a link is drawn.
enum class TLinkStyle : unsigned char {
    tlsDefault,   ///< out, across and in: three segments with an open arrow head
    tlsMSProject, ///< across and down or up: two segments with a filled arrow head
    tlsUserDraw,  ///< drawn by OnUserDrawLinks
};

/// One end of an item in time.
enum class TGantEnd : unsigned char { Start, Stop };

/// A direction along the rows, or from row to row.
enum class TGantStep : signed char { Back = -1, Forward = 1 };

/// Which links are drawn.
enum class TLinkShow : unsigned char {
    lsOneEndVisible,   ///< at least one end within the visible rows and time
    lsBothEndsVisible, ///< both ends within the visible rows and time
    lsAlways,          ///< at least one end on a row that is not scrolled away
};

/// What the chart tells of itself.
using TOnGantNotify = TMethod<void(TzuGant_ComBasic *theGant)>;
/// What the chart tells of one time item.
using TOnInfoPush_Spanbar =
    TMethod<void(TzuGant_ComBasic *theGant, TzuDataEntity_Spanbar *theDataEntity)>;

/// An item that is not loaded is needed, and to be filled; one is to be unloaded. `canUnload` is
/// false on entry: it may go only when the handler can fill it again.
using TOnGantVirtualLoad = TOnInfoPush_Spanbar;
using TOnGantVirtualUnLoad =
    TMethod<void(TzuGant_ComBasic *theGant, TzuDataEntity_Spanbar *theDataEntity, bool &canUnload)>;

/// Bracket around everything that one action of the user changes, for applications that can undo.
/// The end comes also when a handler in between throws. With `changed` false all is as before.
using TOnBeginUserChange = TMethod<void(TzuGant_ComBasic *theGant, TGantUserChange kind)>;
using TOnEndUserChange =
    TMethod<void(TzuGant_ComBasic *theGant, TGantUserChange kind, bool changed)>;
/// A link was drawn with the mouse from one item to another, or to the same one. The chart makes no
/// link itself.
using TOnDependencyAction =
    TMethod<void(TzuDataEntity_Spanbar *theFirst, TzuDataEntity_Spanbar *theSecond)>;
/// A link is being drawn from an item, at present to another or to none. `hint` holds the captions
/// of both; the third line is free, as for the kind of link. The handler may change all three, or
/// empty them for no hint.
using TOnDependencyHint =
    TMethod<void(TzuGant_ComBasic *theGant, const TzuDataEntity_Spanbar *theFirst,
                 const TzuDataEntity_Spanbar *theSecond, TGestureHint &hint)>;
/// What a gesture ended on; no object and zeros for none. `theLength` is in days.
using TOnHintInfo =
    TMethod<void(TObject *theObject, TDateTime theStart, TDateTime theStop, TDateTime theLength)>;
/// `theDataEntity` is the item under the pointer, or null.
using TOnClickGantArea =
    TMethod<void(TzuGant_ComBasic *theGant, TzuDataEntity_Spanbar *theDataEntity)>;
using TOnDblClickGantArea = TOnClickGantArea;
/// Rounds the times that a gesture of the mode would give an item, in place of the chart's grid. Is
/// asked while the mouse moves, too, and must not change anything.
using TOnSnapTimes =
    TMethod<void(TzuGant_ComBasic *theGant, const TzuDataEntity_Spanbar *theDataEntity,
                 TGantMouseMoveMode mode, TDateTime &start, TDateTime &stop)>;
/// Mouse events of the area, in its pixels.
using TGantMouseButtonEvent =
    TMethod<void(TzuGant_ComBasic *theGant, TMouseButton button, TShiftState shift, int x, int y)>;
using TGantMouseMoveEvent =
    TMethod<void(TzuGant_ComBasic *theGant, TShiftState shift, int x, int y)>;

/// The overlap separation gives an item another sub-row (1 = topmost, 0 = none).
using TOnCollisionDetected = TMethod<void(
    TzuGant_ComBasic *theGant, TzuDataEntity_Spanbar *theDataEntity, int theNewSubColPosition)>;
/// An item that the user has asked to be edited.
using TOnGantItem = TOnInfoPush_Spanbar;
/// A link that the user has asked to be edited.
using TOnGantLink = TMethod<void(TzuGant_ComBasic *theGant, TzuDataEntity_Link *theDataEntity)>;
/// What is selected is to be deleted by the chart if the handler sets `allow`, which is false on
/// entry.
using TOnAskDelete =
    TMethod<void(TzuGant_ComBasic *theGant, const std::vector<TzuDataEntity_Spanbar *> &items,
                 const std::vector<TzuDataEntity_Link *> &links, bool &allow)>;

/// The layer, 0-based, on which the keyboard walks along a row; any index that the row does not
/// have stands for all layers.
using TOnKeyNavigateDataList = TMethod<int(TzuGant_ComBasic *theGant, TGantRow *theGantRow)>;

/// An item was dropped on `newRow` with the given times. The handler does the moving or copying.
using TOnTimeCopyOrChangeRow =
    TMethod<void(TzuGant_ComBasic *theGant, TzuDataEntity_Spanbar *item, TGantRow *row,
                 TGantRow *newRow, TDateTime start, TDateTime stop)>;

/// Draws an item of style sbsUser, or a link of style tlsUserDraw, in painted pixels; `rect` is the
/// item's without its insets, `start` and `end` are where the link leaves and enters its items.
using TOnUserDrawTime = TMethod<void(TzuGant_ComBasic *theGant, TzuDataEntity_Spanbar *item,
                                     TCanvas &canvas, const TRect &rect)>;
using TOnUserDrawLinks = TMethod<void(TzuGant_ComBasic *theGant, TzuDataEntity_Link *link,
                                      TCanvas &canvas, TPoint start, TPoint end)>;
/// Fills in the lines along which OnUserDrawLinks draws a link, in area pixels.
using TOnLinkRoute = TMethod<void(TzuGant_ComBasic *theGant, TzuDataEntity_Link *link, TPoint start,
                                  TPoint end, std::vector<TPoint> &route)>;
/// `text` is what the hint would say; the handler may change it, or empty it for no hint.
using TOnItemHint =
    TMethod<void(TzuGant_ComBasic *theGant, TzuDataEntity_Spanbar *item, std::string &text)>;
using TOnLinkHint =
    TMethod<void(TzuGant_ComBasic *theGant, TzuDataEntity_Link *link, std::string &text)>;
/// `rect` is the whole area, in its pixels.
using TOnUserDrawContent =
    TMethod<void(TzuGant_ComBasic *theGant, const TRect &rect, TCanvas &canvas)>;

/// A row has come or is about to go.
using TGantRowNotify = TMethod<void(TGantRowList *theGantRowList, TGantRow *theGantRow)>;
/// Creates the row of a node of the row tree or of the grid; the other one is null. Leaving
/// `result` null gives the node no row.
using TUserCreateGantRow =
    TMethod<void(TGantRowList *theGantRowList, TzuDataEntity_Tree *theNode,
                 TzuDataEntity_GridTreeNode *theDataEntity_GridTreeNode, TGantRow *&result)>;

} // namespace korvane
