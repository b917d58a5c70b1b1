// Events of the Gantt chart control, besides those of its core.
#pragma once

#include "gantt/zuGantTypes.h"

#include <Qt>

class QDrag;
class QDragMoveEvent;
class QDropEvent;

namespace korvane {

class TAxisContentItem;
class TBabGridCell;

/// The axis shows another time, from `theStart` until before `theStop`.
using TOnScalerChange =
    TMethod<void(TzuGant_ComBasic *theGant, TDateTime theStart, TDateTime theStop)>;
/// The proportions of the chart have changed: the visible time or the width of the tree, in pixels.
using TOnAlignNeed =
    TMethod<void(TzuGant_ComBasic *caller, TDateTime theStart, TDateTime theStop, int theWidth)>;
/// State of the external scroll bar, in lines of the tree.
using TOnRealignScrollbar = TMethod<void(TzuGant_ComBasic *theGant, int position, int min, int max,
                                         int pageSize, bool enabled)>;

/// A row of the grid, or of a grid in it, is to be filled, or is about to be dropped.
using TOnGridVirtualNotify =
    TMethod<void(TObject *theGrid, TBabGridCell *theGridCell, TAxisContentItem *theItem)>;

/// Items are about to be carried out of the chart. The handler may change what is offered; with no
/// data set there is no drag.
using TOnGantAreaStartDrag = TMethod<void(TzuGant_ComBasic *theGant, QDrag &drag)>;
/// Positions of the events are in area pixels.
using TOnGantAreaDragOver = TMethod<void(TzuGant_ComBasic *theGant, QDragMoveEvent &event)>;
using TOnGantAreaDragDrop = TMethod<void(TzuGant_ComBasic *theGant, QDropEvent &event)>;
/// Items carried out of the chart have been dropped: with MoveAction whoever took them leaves it to
/// the handler to remove them here, with IgnoreAction nobody did.
using TOnGantAreaEndDrag = TMethod<void(TzuGant_ComBasic *theGant, Qt::DropAction action)>;

} // namespace korvane
