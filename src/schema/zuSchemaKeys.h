// What the keyboard does in the area of a schedule.
#pragma once

#include "foundation/zuExport.h"
#include "schema/zuSchemaGestures.h"

namespace korvane {

/// Keys that the schedule knows.
enum class TSchemaKey : unsigned char {
    Left,
    Right,
    Up,
    Down,
    Home,
    End,
    PageUp,
    PageDown,
    Space,
    Enter,
    Escape,
    Delete,
    Plus,
    Minus,
    A,
    Menu,
};

/// Adds the keyboard to the schedule.
///
/// Left and Up select the time before, Right and Down the next one, in the order of the data lists;
/// Shift adds it. Home and End go to the first and the last time of the active one's column. What
/// becomes active is brought into view.
///
/// Ctrl with an arrow moves the selected times: along the columns by one column, along the axis by
/// a minute, or with Shift by StartSnap, or by ten minutes where StartSnap is no more than one. A
/// step that snapping the start would take back is StartSnap long. Alt with an arrow along the axis
/// moves the stops of the selected times by LengthSnap, with Shift their starts by StartSnap, by a
/// minute where these do not snap. Each is a change of the user like that of a drag. Alt with an
/// arrow along the columns makes the active time's column larger or smaller, with Shift by a pixel,
/// as dragging its edge in the header does.
///
/// The page keys turn the axis, with Ctrl the columns. Space selects the active time, Ctrl+Space
/// changes its mark, Ctrl+A selects all, Escape cancels or clears, Enter edits, Delete deletes with
/// consent, plus and minus zoom, the menu key shows the menu at the selected time.
class KORVANE_CORE_API TSchemaKeys : public TSchemaGestures
{
public:
    /// As that of TSchemaGestures.
    using TSchemaGestures::TSchemaGestures;

    /// Whether the key was used.
    bool SchemaKeyDown(TSchemaKey key, const TShiftState &shift);
    /// Pops up the menu of times at a time.
    bool HandleDataEntityPopup(TzuDataEntity_SchemaTime &time, const TRect &rect);
    /// Makes a time active where there is none: for an area that comes to have the keyboard focus.
    void EnsureActiveDataEntity();

    /// The user wants to edit a time, which can be edited.
    TPublished<TSchemaTimeEvent> OnEditDataEntity_SchemaTime;
    /// The user wants to delete what is selected. The schedule deletes it when the handler says so;
    /// a handler that deletes on its own does not. Times that cannot be edited are not among them.
    TOnSchemaAskDelete OnAskDelete;

private:
    bool Arrow(TSchemaKey key, const TShiftState &shift);
    bool MoveByKey(bool alongTime, TSchemaStep step, bool coarse);
    bool ResizeByKey(TSchemaStep step, bool start);
    bool ResizeColumnByKey(TSchemaStep step, bool fine);
    bool GoToEnd(TSchemaStep step, bool extend);
    bool TurnPage(TSchemaStep step, bool columns);
    bool Mark(bool toggle);
    bool Cancel();
    bool Edit();
    bool DeleteSelected();
    bool Zoom(int notches);
    bool Menu();
};

} // namespace korvane
