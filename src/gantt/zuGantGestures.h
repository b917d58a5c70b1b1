// What the mouse does in the area of a Gantt chart.
#pragma once

#include "foundation/zuAutoScroll.h"
#include "foundation/zuExport.h"
#include "foundation/zuOutline.h"
#include "gantt/zuGantChanges.h"
#include "gantt/zuGantHint.h"

#include <memory>
#include <span>
#include <vector>

namespace korvane {

/// Adds the mouse gestures to the chart: moving and copying the selected items, resizing one,
/// drawing a dependency from one item to another, and selecting with a rubber band.
///
/// A left press on an item that can be edited begins a gesture, one beside all items a rubber band
/// (Shift adds, Ctrl toggles). It becomes a drag once the mouse is 4 pixels away from the press;
/// released before, it was a click and changes nothing but the selection. While it runs, outlines
/// above the area show what a release would give, snapped times and target rows included; items
/// change once, at the release. Escape and CancelGesture end it without a change, as does the press
/// of another button, the deletion of the item pressed on, and whatever takes the mouse away.
///
/// - Sideways, an item of a move needs 4 pixels to change its times; up and down it needs half a
///   row to change its row, so that an unsteady hand does neither by mistake.
/// - The row pressed on permits moves in time, other rows and resizing for the whole gesture; an
///   item whose own row forbids one of them, or that cannot be edited, stays as it is.
/// - A move without an offset in time keeps the times as they are, unsnapped. A move to another row
///   keeps them too, unless MoveInTimeWhenMoveRow; a copy always takes both offsets.
/// - When a handler of a row change or a copy makes a new item, the selection moves on to that.
/// - Past the left and right edge of the area the axis steps as its scroll buttons let it, past top
///   and bottom the rows scroll, the faster the farther away the mouse is; the press point moves
///   with them. With StartDragWhenTimeMoveOutside a move or copy that leaves
///   the whole control, on whichever side, ends there without a change and goes on as the toolkit's
///   drag and drop.
///
/// Handlers of the mouse events may also destroy the chart; those of changes may not.
class KORVANE_CORE_API TGantGestures : public TGantChanges
{
public:
    /// As that of TGantChanges.
    TGantGestures(IGantHost &host, IGantInputHost &inputHost, TzuGant_ComBasic *component);
    ~TGantGestures() override;

    /// What the running gesture does; mmNone without one, and while the rubber band runs.
    TGantMouseMoveMode GetMouseMoveMode() const { return m_mode; }
    /// What the next left press on an item starts; every press resets it to smNone.
    TGantStickyMode StickyMode() const { return m_stickyMode; }
    void SetStickyMode(TGantStickyMode mode) { m_stickyMode = mode; }
    /// Whether a button went down in the area and has not been released.
    bool MouseIsDown() const { return m_mouseDown; }
    /// Whether a press or a drag is waiting for its release.
    bool GestureRunning() const { return m_mouseDown && (m_mode != kNoMode || m_rubber); }
    /// The item found at the last press; null when there was none or it is gone.
    TzuDataEntity_Spanbar *ItemUnderMouse() const { return m_itemUnderMouse; }
    /// From the press to the release of the last gesture, in pixels; zero when that was no drag.
    TPoint LastDelta() const { return m_lastDelta; }

    /// Whether items dragged out of the control go on as drag and drop; false by default.
    bool StartDragWhenTimeMoveOutside() const { return m_startDragOutside; }
    void SetStartDragWhenTimeMoveOutside(bool on) { m_startDragOutside = on; }
    /// Events of the area, in its pixels.
    void GantAreaMouseDown(TMouseButton button, const TShiftState &shift, int x, int y);
    void GantAreaMouseMove(const TShiftState &shift, int x, int y);
    void GantAreaMouseUp(TMouseButton button, const TShiftState &shift, int x, int y);
    void GantAreaMouseLeave();
    /// Of the left button; the press that goes with it follows.
    void OnGADblClick();
    /// The tick of the timer that the host runs while asked to.
    void GestureTick();

    void GantAreaPaint() override;
    /// Draws the outlines of the running gesture; they never become part of the area's picture.
    void GantAreaPaintOverlay(TCanvas &canvas);

    /// Ends a running gesture; items stay as they are, a rubber band's selection is taken back.
    void CancelGesture();
    /// Stops scrolling past the edges until the mouse moves again.
    void StopAutoScroll();
    /// Whether a point lies on one of the item's grips, the outermost 3 columns on either side; the
    /// left one counts first. Sets the item's rectangle, and whether it is the left grip.
    virtual bool InGrowArea(const TzuDataEntity_Spanbar &item, int x, int y, TRect &rect,
                            bool &isLeft) const;
    /// Moves or copies the selected items by an offset in pixels.
    void HandleMoveOfSelected(TPoint delta, bool copy);
    /// The text that a hint shows now: that of the running gesture.
    TGestureHint HintWantsNewText();

    /// A button went down in the area: any of them, the right one. Come after the selection of the
    /// press and before OnGantAreaMouseDown.
    TPublished<TOnClickGantArea> OnClickGantArea;
    TPublished<TOnClickGantArea> OnRightClickGantArea;
    /// The left button went down twice; or the user wants to edit the active item by a key, and
    /// OnEditDataEntity_Spanbar has no handler.
    TPublished<TOnDblClickGantArea> OnDblClickGantArea;
    /// Fires within a user change, ucDependency. Without a handler a drawn link comes to nothing.
    TPublished<TOnDependencyAction> OnDependencyAction;
    /// Asked again whenever the mouse moves while a link is drawn.
    TPublished<TOnDependencyHint> OnDependencyHint;
    /// At each release of a button, with what the item pressed on has become; before
    /// OnGantAreaMouseUp.
    TPublished<TOnHintInfo> OnHintInfo;
    /// Come last, when the chart has done with the event.
    TPublished<TGantMouseButtonEvent> OnGantAreaMouseDown;
    TPublished<TGantMouseMoveEvent> OnGantAreaMouseMove;
    TPublished<TGantMouseButtonEvent> OnGantAreaMouseUp;

protected:
    /// Fire the events of clicks, on ItemUnderMouse and on an item, which may be null.
    virtual void DoClickGantArea(TMouseButton button);
    virtual void DoDblClickGantArea(TzuDataEntity_Spanbar *item)
    {
        OnDblClickGantArea(Component(), item);
    }

    /// Draws the outline of one item.
    virtual void DrawOutline(const TRect &rect, TCanvas &canvas);
    /// Draws those of the items as the running gesture would leave them.
    virtual void DrawOutlineOfSelected(std::span<const TRect> frames, TCanvas &canvas);
    /// Draws the line of the dependency that is being drawn, in area pixels.
    virtual void DrawOutlineOfDependencyArrow(TPoint from, TPoint to, TCanvas &canvas);

    void _OnDeleteItem(TzuDataEntity *item) override;
    void _OnItemFreed(const TzuDataEntity_Spanbar *item) override;
    void _OnDeleteItem_Link(TzuDataEntity *link) override;
    void _OnLinkFreed(const TzuDataEntity_Link *link) override;

private:
    static constexpr auto kNoMode = TGantMouseMoveMode::mmNone;

    bool IsMove() const;
    bool IsGrow() const;
    void BeginGesture(const TShiftState &shift, TPoint at);
    void EndGesture();
    void ReleaseGesture(TMouseButton button, const TShiftState &shift, TPoint at);
    void TellHintInfo() const;
    void Forget(const TzuDataEntity_Spanbar *item);

    // While the mouse moves.
    void Drag();
    void HandOverToDragAndDrop();
    void UpdateBand();
    bool PastThreshold(TPoint at) const;
    TPoint OffsetTo(TPoint at);
    TGantRow *OriginRow() const;
    bool OriginRowLets(bool (TGantRow::*permission)() const) const;
    TPoint Permitted(TPoint delta) const;
    void DoScaleStartStopAdjust(int x);
    void AdjustRowScroll(int y);
    void StartOrStopTimer();
    void FollowScrolling();
    void TakeDownScrolling();
    void Hover(TPoint at);
    TGantCursor CursorAt(TPoint at) const;
    TGantCursor CursorOfGesture() const;
    TGestureFeedback Feedback();
    // What the gesture shows when the mouse is at a point, which sets its offset.
    TGestureFeedback HandleLocalGrow(int x, int y);
    TGestureFeedback HandleLocalDrag(int x, int y, bool vertical, bool horizontal);
    TGestureFeedback HandleLocalDependency(int x, int y);
    TGestureFeedback HandleLocalBand();
    std::vector<TRect> OutlinesOfSelected(TPoint delta);
    std::vector<TzuDataEntity_Spanbar *> SelectedOnRowsShownAt(int dy) const;
    void ShowFeedback(TGestureFeedback feedback);
    void InvalidateFeedback();
    void ShowHint();

    // What a drop gives.
    TDrop DropOf(const TzuDataEntity_Spanbar &item, TPoint delta, bool copy);
    TDrop GrownTimes(const TzuDataEntity_Spanbar &item, TPoint delta);
    TGantRow *TargetRow(const TzuDataEntity_Spanbar &item, TGantRow &row, int dy) const;
    TDateTime TimeShift(int pixel, int pixels) const;
    void HandleDependencyChange(int x, int y);
    void HandleGrow(TPoint delta);

    TAutoScroll m_autoScroll;
    TGestureFeedback m_feedback;
    std::shared_ptr<const bool> m_life; ///< expires with the chart
    TzuDataEntity_Spanbar *m_itemUnderMouse = nullptr;
    TzuDataEntity_Link *m_linkUnderMouse = nullptr; ///< of the last press; it waits for the release
    TzuDataEntity_Spanbar *m_gestureItem = nullptr; ///< that a dependency or a resizing is about
    TPoint m_downPoint;                             ///< moves with axis and rows
    TPoint m_delta;
    TPoint m_lastDelta;
    TPoint m_mouse; ///< where the last event happened
    TRect m_growOrigRect;
    TShiftState m_downShift;
    TDateTime m_downTime = 0;   ///< under the press
    TDateTime m_anchorTime = 0; ///< under the press of the gesture
    // The axis and the rows that m_downPoint belongs to.
    TDateTime m_seenStart = 0;
    TDateTime m_seenStop = 0;
    int m_seenRowScroll = 0;
    TGantMouseMoveMode m_mode = kNoMode;
    TGantStickyMode m_stickyMode = TGantStickyMode::smNone;
    bool m_mouseDown = false;
    bool m_rubber = false; ///< a press beside all items
    bool m_bandBegun = false;
    bool m_dragging = false; ///< the press has become a drag
    bool m_movedInTime = false;
    bool m_movedInRows = false;
    bool m_timerOn = false;
    bool m_steppingAxis = false;
    bool m_startDragOutside = false;
};

} // namespace korvane
