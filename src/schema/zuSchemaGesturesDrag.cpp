// Gestures while the mouse moves: outlines, hints and scrolling.
#include "scaler/zuScalerGestures.h"
#include "schema/zuSchemaDescribe.h"
#include "schema/zuSchemaGestures.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

namespace korvane {

/// The offset of the gesture. Moves leave out the time that the mouse has not really moved along.
TPoint TSchemaGestures::OffsetTo(TPoint at)
{
    TPoint offset{at.X - m_press.X, at.Y - m_press.Y};
    if (IsMove()) {
        m_movedInTime = m_movedInTime || std::abs(AlongTime(offset)) >= kDragDistance;
        if (!m_movedInTime) {
            (FlipView() ? offset.X : offset.Y) = 0;
        }
    }
    return offset;
}

void TSchemaGestures::Drag()
{
    FollowScrolling();
    if (!m_dragging) {
        if (std::abs(m_mouse.X - m_press.X) < kDragDistance
            && std::abs(m_mouse.Y - m_press.Y) < kDragDistance) {
            return;
        }
        m_dragging = true;
        InputHost().PointAtTime(nullptr, m_mouse);
    }
    const TSize area = Host().AreaSize();
    const TRect inside{0, 0, area.Width, area.Height};
    if (m_startDragOutside && IsMove() && !inside.Contains(m_mouse)) {
        HandOverToDragAndDrop();
        return;
    }
    ScrollPastEdges();
    if (m_mode == TMode::Band) {
        if (!std::exchange(m_bandBegun, true)) {
            BeginSelectInRect();
        }
        SelectInRect(RubberBandRect(m_press, m_mouse), RubberBandRule(m_pressShift));
    }
    if (!GestureRunning()) { // a handler has ended it
        return;
    }
    if (IsMove()) {
        HandleLocalDrag(m_mouse.X, m_mouse.Y);
    } else if (IsGrow()) {
        HandleLocalGrow(m_mouse.X, m_mouse.Y);
    } else {
        ShowFeedback(Feedback());
        InputHost().SetAreaCursor(TSchemaCursor::Area);
    }
    ShowHint();
}

void TSchemaGestures::HandleLocalDrag(int x, int y)
{
    m_offset = OffsetTo({x, y});
    ShowFeedback(Feedback());
    InputHost().SetAreaCursor(m_mode == TMode::Copy ? TSchemaCursor::Copy : TSchemaCursor::Move);
}

void TSchemaGestures::HandleLocalGrow(int x, int y)
{
    m_offset = OffsetTo({x, y});
    ShowFeedback(Feedback());
    InputHost().SetAreaCursor(TSchemaCursor::Resize);
}

void TSchemaGestures::HandOverToDragAndDrop()
{
    TItemDragData data;
    data.Copy = m_mode == TMode::Copy;
    for (const TzuDataEntity_SchemaTime *time : SelectedTimes()) {
        data.Add(CaptionOf(*time), time->GetStartDateTime(), time->GetStopDateTime());
    }
    CancelGesture();
    InputHost().StartTimeDrag(data);
}

// --- scrolling -----------------------------------------------------------------------------------

void TSchemaGestures::ScrollPastEdges()
{
    const TSize area = Host().AreaSize();
    const TPoint beyond{PixelsBeyond(m_mouse.X, area.Width), PixelsBeyond(m_mouse.Y, area.Height)};
    TDateScalerGestures &axis = Host().Scaler();
    const int inTime = AlongTime(beyond);
    if (inTime < 0) {
        axis.StartStepDown();
    } else if (inTime > 0) {
        axis.StartStepUp();
    } else if (m_steppingAxis) {
        axis.StopStep();
        Host().InvalidateArea(); // the axis does not announce its last step
    }
    m_steppingAxis = inTime != 0;
    m_autoScroll.SetBeyond(IsGrow() ? 0 : AlongColumns(beyond));
    InputHost().SetGestureTimer(m_steppingAxis || m_autoScroll.IsRunning());
}

void TSchemaGestures::StopScrolling()
{
    m_autoScroll.Stop();
    if (std::exchange(m_steppingAxis, false)) {
        Host().Scaler().StopStep();
        Host().InvalidateArea();
    }
    InputHost().SetGestureTimer(false);
}

void TSchemaGestures::GestureTick()
{
    if (!GestureRunning()) {
        StopScrolling();
        return;
    }
    const int columns = m_autoScroll.Tick();
    if (columns != 0) {
        ScrollColumns(columns);
    }
    if (columns != 0 || m_steppingAxis) {
        Drag();
    }
}

/// Where the first column of all lies.
int TSchemaGestures::ColumnScroll() const
{
    return Columns().Count() > 0 ? Columns().VirtualSpan(FlipView(), 0).From : 0;
}

void TSchemaGestures::TakeDownScrolling()
{
    m_seenStart = Host().Scaler().GetStart();
    m_seenStop = Host().Scaler().GetStop();
    m_seenScroll = ColumnScroll();
}

/// Moves the press point with the axis and the columns.
void TSchemaGestures::FollowScrolling()
{
    int &alongTime = FlipView() ? m_press.X : m_press.Y;
    int &alongColumns = FlipView() ? m_press.Y : m_press.X;
    const TDateScalerCore &scaler = Host().Scaler();
    if (scaler.GetStart() != m_seenStart || scaler.GetStop() != m_seenStop) {
        alongTime = std::clamp(DateToPixel(m_anchorDate), -kFarAway, kFarAway);
    }
    alongColumns = std::clamp(alongColumns + ColumnScroll() - m_seenScroll, -kFarAway, kFarAway);
    TakeDownScrolling();
}

void TSchemaGestures::SchemaPaint()
{
    TSchemaSelection::SchemaPaint();
    if (GestureRunning() && m_dragging) {
        FollowScrolling();
        m_offset = OffsetTo(m_mouse);
        m_feedback = Feedback(); // the overlay is drawn after the area anyway
    }
}

// --- outlines and hints --------------------------------------------------------------------------

TGestureFeedback TSchemaGestures::Feedback()
{
    TGestureFeedback feedback;
    if (m_mode == TMode::Band) {
        feedback.Band = RubberBandRect(m_press, m_mouse);
        return feedback;
    }
    if (IsGrow()) {
        if (m_pressedTime != nullptr && IsInColumn(*m_pressedTime)) {
            feedback.Frames.push_back(OutlineOf(*m_pressedTime, Outcome(*m_pressedTime)));
        }
        return feedback;
    }
    const TSize area = Host().AreaSize();
    const TRect inside{0, 0, area.Width, area.Height};
    for (TzuDataEntity_SchemaTime *time : Selected()) {
        if (IsInColumn(*time)) {
            const TRect rect = OutlineOf(*time, Outcome(*time));
            if (rect.Intersects(inside)) {
                feedback.Frames.push_back(rect);
            }
        }
    }
    return feedback;
}

void TSchemaGestures::ShowFeedback(TGestureFeedback feedback)
{
    if (feedback == m_feedback) {
        return;
    }
    const auto invalidate = [this] {
        for (const TRect &rect : m_feedback.DirtyRects()) {
            InputHost().InvalidateOverlay(rect);
        }
    };
    invalidate();
    m_feedback = std::move(feedback);
    invalidate();
}

void TSchemaGestures::SchemaPaintOverlay(TCanvas &canvas)
{
    if (IsGrow() && !m_feedback.Frames.empty()) {
        DrawOutline(m_feedback.Frames.front(), canvas);
    } else {
        DrawOutlineOfSelected(m_feedback.Frames, canvas);
    }
    if (!m_feedback.Band.IsEmpty()) {
        TOutlineDraw::RubberBand(m_feedback.Band, canvas);
    }
}

void TSchemaGestures::DrawOutline(const TRect &rect, TCanvas &canvas)
{
    TOutlineDraw::Frame(rect, canvas);
}

void TSchemaGestures::DrawOutlineOfSelected(std::span<const TRect> frames, TCanvas &canvas)
{
    for (const TRect &frame : frames) {
        DrawOutline(frame, canvas);
    }
}

void TSchemaGestures::ShowHint()
{
    if (m_mode == TMode::Band || m_pressedTime == nullptr || !IsInColumn(*m_pressedTime)) {
        InputHost().HideGestureHint();
        return;
    }
    const TStored stored = Outcome(*m_pressedTime);
    InputHost().ShowGestureHint(HintOfTimes(stored.Start, stored.Stop), m_mouse);
    DoMoveInfo(m_pressedTime, stored.Start, stored.Stop - stored.Start, m_mouse.X, m_mouse.Y);
}

} // namespace korvane
