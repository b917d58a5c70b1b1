// Enumerations and event types of the schedule view.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuInput.h"
#include "foundation/zuMethod.h"
#include "foundation/zuPublished.h"
#include "foundation/zuTypes.h"

#include <string>
#include <vector>

namespace korvane {

class TzuDataEntity_SchemaColumn;
class TzuDataEntity_SchemaTime;
/// The schedule view as applications know it; the core only hands it on to handlers.
class TzuSchema_ComBasic;

/// When the control that scrolls the columns is seen.
enum class TScrollVisibility : unsigned char {
    svAlways,
    svWhenNeeded, ///< when the columns do not all have room
    svNever,
};

/// A direction along one of the axes, or through the times.
enum class TSchemaStep : signed char { Back = -1, Forward = 1 };

/// One end of a time.
enum class TSchemaEnd : unsigned char { Start, Stop };

/// What one action of the user, with the mouse or the keyboard, does to the times.
enum class TSchemaUserChange : unsigned char {
    ucMove,   ///< to other times or columns
    ucCopy,   ///< copies, made by OnTimeCopy
    ucResize, ///< one end
    ucDelete,
};

/// The data lists in the order in which they are traversed: what comes first lies on top.
using TDrawLayerArray = std::vector<int>;

/// What the schedule tells of itself.
using TSchemaNotify = TMethod<void(TzuSchema_ComBasic *theSchema)>;
/// An event about one time. It may be null where the event says so.
using TSchemaTimeEvent =
    TMethod<void(TzuSchema_ComBasic *theSchema, TzuDataEntity_SchemaTime *theDataEntity)>;
/// Start, stop or column of a time have changed, or DoInfoPush was called.
using TOnChangeDataEntity_SchemaTime = TSchemaTimeEvent;

/// Makes the object that a new column holds as its DataObject and frees with itself.
using TOnInitColumnDataObject = TMethod<TObject *(
    TzuSchema_ComBasic *theSchema, TzuDataEntity_SchemaColumn *theDataEntity_SchemaColumn)>;
/// May change a column's caption.
using THeaderFromColumn = TMethod<void(int index, std::string &text)>;
/// May change the size, in pixels, that a column is about to get because the user has resized the
/// initiating one.
using TUserDecideColSize = TMethod<void(
    TzuSchema_ComBasic *theSchema, TzuDataEntity_SchemaColumn *theInitiatingColumn,
    TzuDataEntity_SchemaColumn *theColumnToSet, int theCurrentSize, int &theSizeToSet)>;

/// May change the rectangle of a time; false hides it. Must not change times or columns.
using TOnGetDrawingRect = TMethod<bool(
    TzuSchema_ComBasic *theSchema, TzuDataEntity_SchemaTime *theDataEntity, TRect &theReturnRect)>;
/// Whether a time is seen. The answer false is final, and so is true when `RunDefault` is set to
/// false; otherwise the time is seen when it touches the visible time. Must not change anything.
using TOnIsVisible = TMethod<bool(TzuSchema_ComBasic *theSchema,
                                  TzuDataEntity_SchemaTime *theDataEntity, bool &RunDefault)>;
/// Draws a time in place of the default. Must not change times or columns.
using TOnDrawTimeContent =
    TMethod<void(TzuSchema_ComBasic *theSchema, TzuDataEntity_SchemaTime *theDataEntity,
                 const TRect &theRect, TCanvas &theCanvas)>;
/// `aRect` is the whole area, in its pixels.
using TDrawBackAndForeEvent =
    TMethod<void(TzuSchema_ComBasic *theSchema, const TRect &aRect, TCanvas &aCanvas)>;

/// A time changes its column. The handler is told and cannot alter it.
using TOnSwitchCol =
    TMethod<void(TzuSchema_ComBasic *theSchema, TzuDataEntity_SchemaTime *theDataEntity,
                 int theOldCol, int theNewCol)>;
/// Tells about the time under the pointer, or of the running gesture, with the start and the length
/// that it has or would get. No object and zeros for none. X and Y are area pixels.
using TOnSchemaHintInfo = TMethod<void(TzuSchema_ComBasic *theSchema, TObject *theObject,
                                       TDateTime theStart, TDateTime theLength, int X, int Y)>;

/// Bracket around everything that one action of the user changes, for applications that can undo.
/// The end comes also when a handler in between throws. With `changed` false all is as before.
using TOnSchemaBeginUserChange =
    TMethod<void(TzuSchema_ComBasic *theSchema, TSchemaUserChange kind)>;
using TOnSchemaEndUserChange =
    TMethod<void(TzuSchema_ComBasic *theSchema, TSchemaUserChange kind, bool changed)>;
/// A copy of a time was dropped in a column, with absolute times. The handler makes the new time.
using TOnSchemaTimeCopy =
    TMethod<void(TzuSchema_ComBasic *theSchema, TzuDataEntity_SchemaTime *theDataEntity, int theCol,
                 TDateTime theStart, TDateTime theStop)>;
/// What is selected is to be deleted by the component if the handler sets `allow`, which is false
/// on entry.
using TOnSchemaAskDelete =
    TMethod<void(TzuSchema_ComBasic *theSchema,
                 const std::vector<TzuDataEntity_SchemaTime *> &times, bool &allow)>;
/// Mouse events of the area, in its pixels.
using TSchemaMouseButtonEvent = TMethod<void(TzuSchema_ComBasic *theSchema, TMouseButton button,
                                             TShiftState shift, int x, int y)>;
using TSchemaMouseMoveEvent =
    TMethod<void(TzuSchema_ComBasic *theSchema, TShiftState shift, int x, int y)>;

} // namespace korvane
