// What the mouse does in the area of a schedule.
#pragma once

#include "foundation/zuAutoScroll.h"
#include "foundation/zuExport.h"
#include "foundation/zuOutline.h"
#include "schema/zuSchemaSelection.h"

#include <functional>
#include <memory>
#include <span>
#include <string>

namespace korvane {

/// Adds the mouse gestures to the schedule: moving and copying the selected times, stretching one,
/// and selecting with a rubber band.
///
/// A left press on a time that can be edited begins a gesture, in a grow band a stretch of that
/// end; one beside all times begins a rubber band (Shift adds, Ctrl toggles). It becomes a drag
/// once the mouse is 4 pixels away from the press; released before, it was a click and changes
/// nothing but the selection. While it runs, outlines above the area show what a release would
/// give; times change once, at the release. Escape and CancelGesture end it without a change, as
/// does the press of another button, the removal of the time pressed on, and whatever takes the
/// mouse away.
///
/// - Along the axis a move needs 4 pixels to change the times, so that an unsteady hand does not.
/// - Each time of a move ends in the column under its own middle, or in the nearest one.
/// - A move to another column keeps the absolute times, unless MoveInTimeWhenColSwitch: then they
///   move along with the base date. What is stored is snapped.
/// - With Ctrl at the press and a handler of OnTimeCopy, copies are dragged instead.
/// - Past the edges of the area the axis steps as its scroll buttons let it and the columns scroll,
///   the faster the farther away the mouse is; the press point moves with them. With
///   StartDragWhenTimeMoveOutside a move that leaves the area ends there without a change and goes
///   on as the toolkit's drag and drop.
///
/// Handlers of the mouse events may also destroy the schedule; those of changes may not.
class KORVANE_CORE_API TSchemaGestures : public TSchemaSelection
{
public:
    /// The time between two ticks of the gesture timer.
    static constexpr int kTickMilliseconds = 90;

    /// As that of TSchemaSelection.
    TSchemaGestures(ISchemaHost &host, ISchemaInputHost &inputHost, TzuSchema_ComBasic *component);
    ~TSchemaGestures() override;

    /// Whether moved and stretched times are rounded; true by default.
    bool StartSnapONOFF() const { return m_startSnapOn; }
    void SetStartSnapONOFF(bool on) { m_startSnapOn = on; }
    bool LengthSnapONOFF() const { return m_lengthSnapOn; }
    void SetLengthSnapONOFF(bool on) { m_lengthSnapOn = on; }
    /// Steps of snapping, in days; 0 or less snaps nothing. 5 minutes and 1 minute by default.
    TDateTime StartSnap() const { return m_startSnap; }
    void SetStartSnap(TDateTime step) { m_startSnap = step; }
    TDateTime LengthSnap() const { return m_lengthSnap; }
    void SetLengthSnap(TDateTime step) { m_lengthSnap = step; }
    /// Whether only what has moved is rounded: a move keeps the length, a stretch of the stop
    /// rounds this to LengthSnap counted from its midnight, and one of the start leaves the stop
    /// alone. False by default: start and length are rounded, whatever has moved.
    bool SnapMovedEndsOnly() const { return m_snapMovedEndsOnly; }
    void SetSnapMovedEndsOnly(bool on) { m_snapMovedEndsOnly = on; }
    /// Whether a move to a column with another base date moves by the difference of the dates;
    /// false by default.
    bool MoveInTimeWhenColSwitch() const { return m_moveInTimeWhenColSwitch; }
    void SetMoveInTimeWhenColSwitch(bool on) { m_moveInTimeWhenColSwitch = on; }
    /// Whether times dragged out of the area go on as drag and drop; false by default.
    bool StartDragWhenTimeMoveOutside() const { return m_startDragOutside; }
    void SetStartDragWhenTimeMoveOutside(bool on) { m_startDragOutside = on; }
    /// Whether a time that the pointer rests on is shown enlarged; true by default.
    bool ShowBigONOFF() const { return m_showBig; }
    void SetShowBigONOFF(bool on);

    /// Events of the area, in its pixels.
    void SchemaMouseDown(TMouseButton button, const TShiftState &shift, int x, int y);
    void SchemaMouseMove(const TShiftState &shift, int x, int y);
    void SchemaMouseUp(TMouseButton button, const TShiftState &shift, int x, int y);
    void SchemaMouseLeave();
    /// Of the left button; the press that goes with it follows, and MouseDate and MouseColumn are
    /// its already.
    void SchemaDblClick(int x, int y);
    /// The tick of the timer that the host runs while asked to.
    void GestureTick();

    void SchemaPaint() override;
    /// Draws the outlines of the running gesture; they never become part of the area's picture.
    void SchemaPaintOverlay(TCanvas &canvas);

    /// Whether a press or a drag is waiting for its release.
    bool GestureRunning() const { return m_mode != TMode::None; }
    /// Ends a running gesture; times stay as they are, a rubber band's selection is taken back.
    void CancelGesture();
    /// The time and the column found at the last press; null when there is none or it is gone.
    TzuDataEntity_SchemaTime *PressedTime() const { return m_pressedTime; }
    TzuDataEntity_SchemaColumn *MouseColumn();
    /// The time on the axis under the last press.
    TDateTime MouseDate() const { return m_mouseDate; }

    /// Whether a point lies in one of the time's grow bands, the outermost 3 pixels along the axis;
    /// the one at the start counts first. Sets the time's rectangle, and which band it is.
    virtual bool InGrowArea(TzuDataEntity_SchemaTime &time, int x, int y, TRect &rect,
                            bool &atStart) const;
    /// Rounds the length to LengthSnap, and the start to StartSnap counted from its midnight.
    void Snap(TDateTime &start, TDateTime &length) const;
    /// Fires OnSwitchCol.
    void SwitchCol(TzuDataEntity_SchemaTime &time, int oldCol, int newCol)
    {
        OnSwitchCol(Component(), &time, oldCol, newCol);
    }
    /// Stores times relative to the base date in a column, or the nearest one, and announces that
    /// once; only for a time that can be edited. True when anything has changed.
    bool SetStartStopDateAndCol(TzuDataEntity_SchemaTime &time, TDateTime start, TDateTime stop,
                                int col);

    /// Moves the selected times by an offset in pixels.
    void HandleMoveOfSelected(TPoint offset);
    /// Moves the selected times by a time and a number of columns.
    void HandleMoveOfSelectedFromTimeDiff(TDateTime diff, int colDiff);
    /// Moves one end of a time by so many pixels along the axis.
    void HandleGrow(TzuDataEntity_SchemaTime &time, TSchemaEnd end, int pixels);
    /// Tells OnSchemaHintInfo about a time, which may be null.
    void DoMoveInfo(TzuDataEntity_SchemaTime *time, TDateTime start, TDateTime length, int x,
                    int y);
    /// Draws a time as its enlargement: its texts line by line, and when it is.
    void PaintBig(const TzuDataEntity_SchemaTime &time, const TRect &rect, TCanvas &canvas) const;
    /// The room that PaintBig needs, in pixels.
    TSize BigSize(const TzuDataEntity_SchemaTime &time, TCanvas &canvas) const;

    void TimeLeft(TzuDataEntity_SchemaTime &time) override;

    /// SetStartStopDateAndCol, and with it each action of the user, is about to put a time into
    /// another column; it still has its old values.
    TPublished<TOnSwitchCol> OnSwitchCol;
    /// For each selected time that can be edited, when copies are dropped. Only with a handler are
    /// copies dragged at all.
    TPublished<TOnSchemaTimeCopy> OnTimeCopy;
    /// For each move of the mouse over a time, or that drags one. With null once the mouse has
    /// moved from a time to where there is none, and after each release.
    TPublished<TOnSchemaHintInfo> OnSchemaHintInfo;
    /// `theDataEntity` is the time under the pointer, or null.
    TPublished<TSchemaTimeEvent> OnSchemaDblClick;
    /// After the component has done its part, the popup menu included.
    TPublished<TSchemaMouseButtonEvent> OnSchemaMouseDown;
    TPublished<TSchemaMouseMoveEvent> OnSchemaMouseMove;
    TPublished<TSchemaMouseButtonEvent> OnSchemaMouseUp;
    /// Once around each action, not around those nested in it; see the types.
    TPublished<TOnSchemaBeginUserChange> OnBeginUserChange;
    TPublished<TOnSchemaEndUserChange> OnEndUserChange;

protected:
    /// Runs `body`, which tells whether it has changed anything, between OnBeginUserChange and
    /// OnEndUserChange. Within another one it only runs.
    void AsUserChange(TSchemaUserChange kind, const std::function<bool()> &body);
    /// Calls `change` for each selected time that can be edited, as one change of the user.
    /// Handlers may remove times.
    void ChangeSelected(TSchemaUserChange kind,
                        const std::function<bool(TzuDataEntity_SchemaTime &)> &change);
    /// Moves one end; the other one holds it.
    bool GrowBy(TzuDataEntity_SchemaTime &time, TSchemaEnd end, TDateTime diff);

    /// The mouse has dragged the selected times, or copies of them, there: their outlines follow.
    virtual void HandleLocalDrag(int x, int y);
    /// It has dragged an end of a time there.
    virtual void HandleLocalGrow(int x, int y);
    /// Draws the outline of one time.
    virtual void DrawOutline(const TRect &rect, TCanvas &canvas);
    /// Draws those of the selected times as the running move would leave them.
    virtual void DrawOutlineOfSelected(std::span<const TRect> frames, TCanvas &canvas);

    void _OnInfoPush(TzuDataEntity *item) override;

private:
    enum class TMode : unsigned char { None, Move, Copy, GrowStart, GrowStop, Band };

    /// Where a time would come to lie: absolute times and a column.
    struct TStored
    {
        TDateTime Start = 0;
        TDateTime Stop = 0;
        int Col = 0;
    };

    bool IsMove() const { return m_mode == TMode::Move || m_mode == TMode::Copy; }
    bool IsGrow() const { return m_mode == TMode::GrowStart || m_mode == TMode::GrowStop; }
    void NotePress(TPoint at);
    void BeginGesture(const TShiftState &shift, TPoint at);
    void ReleaseGesture(TMouseButton button, const TShiftState &shift, TPoint at);
    void EndGesture();
    void Apply();
    void Drag();
    void HandOverToDragAndDrop();
    TPoint OffsetTo(TPoint at);
    void ScrollPastEdges();
    void StopScrolling();
    void FollowScrolling();
    void TakeDownScrolling();
    int ColumnScroll() const;
    TGestureFeedback Feedback();
    void ShowFeedback(TGestureFeedback feedback);
    void ShowHint();
    void Hover(TPoint at);
    TDateTime TimeShift(int pixel, int pixels) const;
    TPlace Moved(const TzuDataEntity_SchemaTime &time, TPoint offset) const;
    TPlace Grown(const TzuDataEntity_SchemaTime &time, TSchemaEnd end, TDateTime diff) const;
    TPlace GrownByPixels(const TzuDataEntity_SchemaTime &time, TSchemaEnd end, int pixels) const;
    void SnapMoved(const TzuDataEntity_SchemaTime &time, const TPlace &place, TDateTime &start,
                   TDateTime &length) const;
    TStored Stored(const TzuDataEntity_SchemaTime &time, const TPlace &place, bool copy) const;
    TStored Outcome(const TzuDataEntity_SchemaTime &time) const;
    TRect OutlineOf(const TzuDataEntity_SchemaTime &time, const TStored &stored) const;
    bool Store(TzuDataEntity_SchemaTime &time, const TPlace &place);
    bool HasRect(TzuDataEntity_SchemaTime &time) const;
    std::vector<std::pair<int, std::string>> BigLines(const TzuDataEntity_SchemaTime &time) const;

    TAutoScroll m_autoScroll;
    TGestureFeedback m_feedback;
    std::shared_ptr<const bool> m_life; ///< expires with the schedule
    TzuDataEntity_SchemaTime *m_pressedTime = nullptr;
    TzuDataEntity_SchemaTime *m_hoverTime = nullptr;
    TPoint m_press; ///< moves with axis and columns
    TPoint m_mouse; ///< where the last event happened
    TPoint m_offset;
    TShiftState m_pressShift;
    TDateTime m_mouseDate = 0;
    TDateTime m_anchorDate = 0; ///< under the press of the gesture
    int m_mouseCol = -1;
    // The axis and the columns that m_press belongs to.
    TDateTime m_seenStart = 0;
    TDateTime m_seenStop = 0;
    int m_seenScroll = 0;
    int m_userChanges = 0; ///< nesting of AsUserChange
    TDateTime m_startSnap = 5.0 / (24 * 60);
    TDateTime m_lengthSnap = 1.0 / (24 * 60);
    TMode m_mode = TMode::None;
    bool m_dragging = false; ///< the press has become a drag
    bool m_bandBegun = false;
    bool m_movedInTime = false;
    bool m_steppingAxis = false;
    bool m_settingTimes = false;
    bool m_startSnapOn = true;
    bool m_lengthSnapOn = true;
    bool m_snapMovedEndsOnly = false;
    bool m_moveInTimeWhenColSwitch = false;
    bool m_startDragOutside = false;
    bool m_showBig = true;
};

} // namespace korvane
