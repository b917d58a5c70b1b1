// Gestures while the mouse moves: outlines, hints, the pointer's shape and scrolling.
#include "gantt/zuGantGestures.h"
#include "scaler/zuScalerGestures.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

namespace korvane {

bool TGantGestures::PastThreshold(TPoint at) const
{
    return std::abs(at.X - m_downPoint.X) >= kDragDistance
           || std::abs(at.Y - m_downPoint.Y) >= kDragDistance;
}

/// The offset of the gesture. Moves leave out an axis that the mouse has not really moved along.
TPoint TGantGestures::OffsetTo(TPoint at)
{
    TPoint delta{at.X - m_downPoint.X, at.Y - m_downPoint.Y};
    if (IsMove()) {
        const int halfRow = std::max(CurrentRowHeight() / 2, kDragDistance);
        m_movedInTime = m_movedInTime || std::abs(delta.X) >= kDragDistance;
        m_movedInRows = m_movedInRows || std::abs(delta.Y) >= halfRow;
        delta.X = m_movedInTime ? delta.X : 0;
        delta.Y = m_movedInRows ? delta.Y : 0;
    }
    return delta;
}

TGantRow *TGantGestures::OriginRow() const
{
    return InputHost().Lines().RowAtHeight(m_downPoint.Y);
}

/// Whether the row pressed on permits something; beside the rows everything is permitted.
bool TGantGestures::OriginRowLets(bool (TGantRow::*permission)() const) const
{
    const TGantRow *row = OriginRow();
    return row == nullptr || (row->*permission)();
}

TPoint TGantGestures::Permitted(TPoint delta) const
{
    if ((IsMove() && !OriginRowLets(&TGantRow::TimeItems_CanMove))
        || (IsGrow() && !OriginRowLets(&TGantRow::TimeItems_CanResize))) {
        delta.X = 0;
    }
    if (IsMove() && !OriginRowLets(&TGantRow::TimeItems_CanChangeRow)) {
        delta.Y = 0;
    }
    return delta;
}

void TGantGestures::Drag()
{
    FollowScrolling();
    if (!m_dragging) {
        if (!PastThreshold(m_mouse)) {
            return;
        }
        m_dragging = true;
    }
    if (m_startDragOutside && IsMove() && !InputHost().ChartRect().Contains(m_mouse)) {
        HandOverToDragAndDrop();
        return;
    }
    DoScaleStartStopAdjust(m_mouse.X);
    AdjustRowScroll(m_mouse.Y);
    if (m_rubber) {
        UpdateBand();
        if (!GestureRunning()) { // a handler of the selection has ended it
            return;
        }
    }
    ShowFeedback(Feedback());
    InputHost().SetAreaCursor(CursorOfGesture());
    ShowHint();
}

void TGantGestures::UpdateBand()
{
    if (!m_bandBegun) {
        m_bandBegun = true;
        BeginSelectInRect();
    }
    SelectInRect(RubberBandRect(m_downPoint, m_mouse), RubberBandRule(m_downShift));
}

void TGantGestures::HandOverToDragAndDrop()
{
    const TItemDragData data = DragDataOf(SelectedItems(), m_mode == TGantMouseMoveMode::mmCopy);
    CancelGesture();
    InputHost().StartItemDrag(data);
}

// --- scrolling -----------------------------------------------------------------------------------

void TGantGestures::DoScaleStartStopAdjust(int x)
{
    const bool fixed = (IsMove() && !OriginRowLets(&TGantRow::TimeItems_CanMove))
                       || (IsGrow() && !OriginRowLets(&TGantRow::TimeItems_CanResize));
    const int beyond = fixed ? 0 : PixelsBeyond(x, Host().AreaSize().Width);
    TDateScalerGestures &axis = Host().Scaler();
    if (beyond < 0) {
        axis.StartStepDown();
    } else if (beyond > 0) {
        axis.StartStepUp();
    } else if (m_steppingAxis) {
        axis.StopStep();
        Host().InvalidateArea(); // the axis does not announce its last step
    }
    m_steppingAxis = beyond != 0;
    StartOrStopTimer();
}

void TGantGestures::AdjustRowScroll(int y)
{
    const bool fixed = IsGrow() || (IsMove() && !OriginRowLets(&TGantRow::TimeItems_CanChangeRow));
    m_autoScroll.SetBeyond(fixed ? 0 : PixelsBeyond(y, Host().AreaSize().Height));
    StartOrStopTimer();
}

void TGantGestures::StopAutoScroll()
{
    m_autoScroll.Stop();
    if (std::exchange(m_steppingAxis, false)) {
        Host().Scaler().StopStep();
        Host().InvalidateArea();
    }
    StartOrStopTimer();
}

void TGantGestures::StartOrStopTimer()
{
    const bool on = m_steppingAxis || m_autoScroll.IsRunning();
    if (std::exchange(m_timerOn, on) != on) {
        InputHost().SetGestureTimer(on);
    }
}

void TGantGestures::GestureTick()
{
    if (!GestureRunning()) {
        StopAutoScroll();
        return;
    }
    const int rows = m_autoScroll.Tick();
    if (rows != 0) {
        InputHost().Lines().ScrollBy(rows);
        Host().InvalidateArea();
        UpdateRects();
    }
    if ((rows != 0 || m_steppingAxis) && GestureRunning()) {
        Drag();
    }
}

void TGantGestures::TakeDownScrolling()
{
    m_seenStart = Host().Scaler().GetStart();
    m_seenStop = Host().Scaler().GetStop();
    m_seenRowScroll = InputHost().Lines().ScrolledPixels();
}

/// Moves the press point with the axis and the rows.
void TGantGestures::FollowScrolling()
{
    const TDateScalerCore &scaler = Host().Scaler();
    if (scaler.GetStart() != m_seenStart || scaler.GetStop() != m_seenStop) {
        m_downPoint.X = std::clamp(scaler.DateToPixel(m_anchorTime), -kFarAway, kFarAway);
        if (IsGrow() && m_gestureItem != nullptr) {
            const TPixelSpan x = m_gestureItem->GetRow()->XStartStopFromDataEntity(*m_gestureItem);
            m_growOrigRect.Left = x.From;
            m_growOrigRect.Right = x.To;
        }
    }
    const int scrolled = InputHost().Lines().ScrolledPixels() - m_seenRowScroll;
    m_downPoint.Y = std::clamp(m_downPoint.Y - scrolled, -kFarAway, kFarAway);
    TakeDownScrolling();
}

void TGantGestures::GantAreaPaint()
{
    TGantSelection::GantAreaPaint();
    if (GestureRunning() && m_dragging) {
        FollowScrolling();
        m_feedback = Feedback(); // the overlay is drawn after the area anyway
    }
}

// --- outlines ------------------------------------------------------------------------------------

TGestureFeedback TGantGestures::Feedback()
{
    UpdateScreenSnap();
    switch (m_mode) {
    case TGantMouseMoveMode::mmMove:
    case TGantMouseMoveMode::mmCopy:
        return HandleLocalDrag(m_mouse.X, m_mouse.Y,
                               OriginRowLets(&TGantRow::TimeItems_CanChangeRow),
                               OriginRowLets(&TGantRow::TimeItems_CanMove));
    case TGantMouseMoveMode::mmGrowLeft:
    case TGantMouseMoveMode::mmGrowRight:
        return HandleLocalGrow(m_mouse.X, m_mouse.Y);
    case TGantMouseMoveMode::mmDependency:
        return HandleLocalDependency(m_mouse.X, m_mouse.Y);
    case TGantMouseMoveMode::mmNone:
        break;
    }
    return HandleLocalBand();
}

TGestureFeedback TGantGestures::HandleLocalGrow(int x, int y)
{
    TGestureFeedback feedback;
    m_delta = Permitted(OffsetTo({x, y}));
    if (m_gestureItem == nullptr) {
        return feedback;
    }
    const TGantRow *row = m_gestureItem->GetRow();
    const TDrop drop = GrownTimes(*m_gestureItem, m_delta);
    if (const auto lineY = InputHost().Lines().SpanOf(*row)) {
        feedback.Frames.push_back(
            InsetRect(*m_gestureItem, row->RectAt(*m_gestureItem, *lineY, drop.Start, drop.Stop)));
    }
    return feedback;
}

TGestureFeedback TGantGestures::HandleLocalDrag(int x, int y, bool vertical, bool horizontal)
{
    const TPoint offset = OffsetTo({x, y});
    m_delta = {horizontal ? offset.X : 0, vertical ? offset.Y : 0};
    TGestureFeedback feedback;
    feedback.Frames = OutlinesOfSelected(m_delta);
    return feedback;
}

TGestureFeedback TGantGestures::HandleLocalDependency(int x, int y)
{
    TGestureFeedback feedback;
    m_delta = OffsetTo({x, y});
    feedback.HasArrow = true;
    feedback.ArrowFrom = m_downPoint;
    feedback.ArrowTo = {x, y};
    if (const auto *target = GetDataEntityFromXY(x, y)) {
        feedback.Frames.push_back(
            InsetRect(*target, target->GetRow()->RectFromDataEntity(*target).value_or(TRect{})));
    }
    return feedback;
}

TGestureFeedback TGantGestures::HandleLocalBand()
{
    TGestureFeedback feedback;
    if (m_rubber) {
        feedback.Band = RubberBandRect(m_downPoint, m_mouse);
    }
    return feedback;
}

std::vector<TRect> TGantGestures::OutlinesOfSelected(TPoint delta)
{
    std::vector<TRect> frames;
    const bool copy = m_mode == TGantMouseMoveMode::mmCopy;
    const TRect area{0, 0, Host().AreaSize().Width, Host().AreaSize().Height};
    for (const TzuDataEntity_Spanbar *item : SelectedOnRowsShownAt(delta.Y)) {
        const TDrop drop = DropOf(*item, delta, copy);
        const auto y = InputHost().Lines().SpanOf(*drop.Row);
        if (!y) {
            continue;
        }
        const TGantRow *row = item->GetRow();
        const TRect rect = InsetRect(*item, row->RectAt(*item, *y, drop.Start, drop.Stop));
        if (rect.Intersects(area)) {
            frames.push_back(rect);
        }
    }
    return frames;
}

/// The selected items of all rows that an offset brings into the area. Costs what is on these.
std::vector<TzuDataEntity_Spanbar *> TGantGestures::SelectedOnRowsShownAt(int dy) const
{
    std::vector<TzuDataEntity_Spanbar *> items;
    const int height = std::max(CurrentRowHeight(), 1);
    const int bottom = Host().AreaSize().Height + height;
    // Rows that the offset moves away may hold items that stay, because their row forbids it.
    const auto collect = [&](int from, int to) {
        for (int y = from; y < to;) {
            TGantRow *row = InputHost().Lines().RowAtHeight(y);
            const auto line = row != nullptr ? InputHost().Lines().SpanOf(*row) : std::nullopt;
            y = std::max(y + 1, line ? line->To : y + height);
            for (int layer = 0; row != nullptr && layer < row->Layers().Count(); ++layer) {
                const TzuDataList *list = row->Layers().GetDataList(layer);
                for (int i = list->SelectedCount() > 0 ? list->FirstSelected()
                                                       : list->LoadedCount();
                     i < list->LoadedCount(); ++i) {
                    auto *item = static_cast<TzuDataEntity_Spanbar *>(list->GetLoaded(i));
                    if (item->GetSelected() && item->GetVisible()) {
                        items.push_back(item);
                    }
                }
            }
        }
    };
    collect(-dy - height, bottom - dy);
    return items;
}

void TGantGestures::ShowFeedback(TGestureFeedback feedback)
{
    if (feedback == m_feedback) {
        return;
    }
    InvalidateFeedback();
    m_feedback = std::move(feedback);
    InvalidateFeedback();
}

void TGantGestures::InvalidateFeedback()
{
    for (const TRect &rect : m_feedback.DirtyRects()) {
        InputHost().InvalidateOverlay(rect);
    }
}

void TGantGestures::GantAreaPaintOverlay(TCanvas &canvas)
{
    DrawOutlineOfSelected(m_feedback.Frames, canvas);
    if (!m_feedback.Band.IsEmpty()) {
        TOutlineDraw::RubberBand(m_feedback.Band, canvas);
    }
    if (m_feedback.HasArrow) {
        DrawOutlineOfDependencyArrow(m_feedback.ArrowFrom, m_feedback.ArrowTo, canvas);
    }
}

void TGantGestures::DrawOutline(const TRect &rect, TCanvas &canvas)
{
    TOutlineDraw::Frame(rect, canvas);
}

void TGantGestures::DrawOutlineOfSelected(std::span<const TRect> frames, TCanvas &canvas)
{
    for (const TRect &frame : frames) {
        DrawOutline(frame, canvas);
    }
}

void TGantGestures::DrawOutlineOfDependencyArrow(TPoint from, TPoint to, TCanvas &canvas)
{
    TOutlineDraw::Arrow(from, to, canvas);
}

// --- pointer and hint ----------------------------------------------------------------------------

void TGantGestures::Hover(TPoint at)
{
    InputHost().SetAreaCursor(CursorAt(at));
}

TGantCursor TGantGestures::CursorAt(TPoint at) const
{
    TzuDataEntity_Spanbar *item = GetDataEntityFromXY(at.X, at.Y);
    if (item == nullptr) {
        return TGantCursor::Area;
    }
    const TzuLifeWatch lives(*item);
    if (!item->GetCanEdit() || !lives || item->GetRow() == nullptr) {
        return TGantCursor::Area;
    }
    if (m_stickyMode == TGantStickyMode::smDependency) {
        return TGantCursor::Link;
    }
    TRect rect;
    bool isLeft = false;
    const bool onGrip = item->IsResizable() && item->GetRow()->TimeItems_CanResize()
                        && InGrowArea(*item, at.X, at.Y, rect, isLeft);
    return onGrip ? TGantCursor::Resize : TGantCursor::Area;
}

TGantCursor TGantGestures::CursorOfGesture() const
{
    const TGantRow *row = OriginRow();
    switch (m_mode) {
    case TGantMouseMoveMode::mmMove:
    case TGantMouseMoveMode::mmCopy:
        if (row != nullptr && !row->TimeItems_CanMove() && !row->TimeItems_CanChangeRow()) {
            return TGantCursor::Forbidden;
        }
        return m_mode == TGantMouseMoveMode::mmCopy ? TGantCursor::Copy : TGantCursor::Move;
    case TGantMouseMoveMode::mmGrowLeft:
    case TGantMouseMoveMode::mmGrowRight:
        return row != nullptr && !row->TimeItems_CanResize() ? TGantCursor::Forbidden
                                                             : TGantCursor::Resize;
    case TGantMouseMoveMode::mmDependency:
        return GetDataEntityFromXY(m_mouse.X, m_mouse.Y) != nullptr ? TGantCursor::Link
                                                                    : TGantCursor::Forbidden;
    case TGantMouseMoveMode::mmNone:
        break;
    }
    return TGantCursor::Area;
}

void TGantGestures::ShowHint()
{
    const TGestureHint hint = HintWantsNewText();
    if (hint != TGestureHint{}) {
        InputHost().ShowGestureHint(hint, m_mouse);
    } else {
        InputHost().HideGestureHint();
    }
}

TGestureHint TGantGestures::HintWantsNewText()
{
    if (!m_dragging || !GestureRunning()) {
        return {};
    }
    if (m_mode == TGantMouseMoveMode::mmDependency) {
        const TzuDataEntity_Spanbar *target = GetDataEntityFromXY(m_mouse.X, m_mouse.Y);
        TGestureHint hint = HintOfDependency(m_gestureItem, target);
        OnDependencyHint(Component(), m_gestureItem, target, hint);
        return hint;
    }
    if (m_itemUnderMouse == nullptr) {
        return {};
    }
    const TDrop drop =
        IsGrow() ? GrownTimes(*m_itemUnderMouse, m_delta)
                 : DropOf(*m_itemUnderMouse, m_delta, m_mode == TGantMouseMoveMode::mmCopy);
    return HintOfTimes(drop.Start, drop.Stop);
}

} // namespace korvane
