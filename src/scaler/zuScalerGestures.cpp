#include "scaler/zuScalerGestures.h"

#include "foundation/zuRound.h"

#include <cstdint>

namespace korvane {

TDateScalerGestures::TDateScalerGestures(IDateScalerHost &host, IScalerInputHost &input)
    : TDateScalerNavigation(host)
    , m_input(input)
{
}

void TDateScalerGestures::MouseDown(TMouseButton button, const TShiftState &shift, int x, int y)
{
    const TPoint at{x, y};
    const bool drags = button != TMouseButton::mbMiddle;
    if (drags) {
        BeginDrag(shift, at);
    }
    if (!ToolkitMouseDown(button, shift, at)) {
        return;
    }
    if (drags && Dragging()) { // unless a handler has ended it
        if (StepUpRect().Contains(at)) {
            StartStepUp();
        } else if (StepDownRect().Contains(at)) {
            StartStepDown();
        }
        if (button == TMouseButton::mbLeft) {
            m_anchorDate = Snap(MinorStep(), m_anchorDate);
        }
    }
    m_input.TakeFocus();
}

void TDateScalerGestures::BeginDrag(const TShiftState &shift, TPoint at)
{
    if (!Dragging()) {
        m_stepStartTime = AxisHost().Now();
        m_pressRange = {GetStart(), GetStop()};
    }
    m_interaction.Dragging = true;
    m_press = at;
    m_pressScale = GetScale();
    m_savedShift = shift;
    m_anchorPixel = Along(at);
    m_anchorDate = PixelToDate(m_anchorPixel);
    m_input.ShowCursor(CursorAt(shift, at));
    AxisHost().Refresh();
}

void TDateScalerGestures::MouseMove(const TShiftState &shift, int x, int y)
{
    const TPoint at{x, y};
    if (!ToolkitMouseMove(shift, at)) {
        return;
    }
    PointAt(shift, x, y);
    if (m_stepTimerOn || !Dragging()) {
        return;
    }
    const double delta = static_cast<double>(Along(at)) - Along(m_press);
    if (RescaleNotPan(shift)) {
        DragZoom(delta);
    } else {
        DragPan(delta);
    }
}

void TDateScalerGestures::PointAt(const TShiftState &shift, int x, int y)
{
    const TPoint at{x, y};
    const TScalerCursor cursor = CursorAt(shift, at);
    SetIndicatorPixel(cursor == TScalerCursor::Button ? kNoIndicator : Along(at));
    m_input.ShowCursor(cursor);
}

void TDateScalerGestures::DragZoom(double delta)
{
    constexpr double kPerPixel = 0.01;
    constexpr double kAlmostZero = 1e-9;
    m_interaction.Interacting = true;
    const double newScale = kPerPixel * m_pressScale * delta + m_pressScale;
    if (m_pressScale > 0 && delta != 0 && newScale > kAlmostZero) {
        SetCenterScale(newScale, m_anchorDate, m_anchorPixel);
    }
}

void TDateScalerGestures::DragPan(double delta)
{
    MoveTo(GetStart() - delta * ScrollStep() / 10);
}

void TDateScalerGestures::MouseUp(TMouseButton button, const TShiftState &shift, int x, int y)
{
    const TPoint at{x, y};
    bool exists = true;
    try {
        exists = ToolkitMouseUp(button, shift, at);
    } catch (...) {
        EndInteraction();
        throw;
    }
    if (exists) {
        EndInteraction();
        m_input.ShowCursor(CursorAt(shift, at));
    }
}

void TDateScalerGestures::DoubleClick(TMouseButton button, const TShiftState &shift, int x, int y)
{
    const TPoint at{x, y};
    if (button != TMouseButton::mbLeft || IsOnButton(at)) {
        MouseDown(button, shift, x, y);
        return;
    }
    if (ToolkitMouseDown(button, shift, at)) {
        Fit(PeriodAt(RowAt(at), PixelToDate(Along(at))));
    }
}

void TDateScalerGestures::StartStep(TStepDirection direction)
{
    const bool up = direction == TStepDirection::Up;
    const bool goesOn = m_stepTimerOn && up == StepUpPressed();
    if (!Dragging() && !goesOn) { // without a press the clock runs from here
        m_stepStartTime = AxisHost().Now();
    }
    m_interaction.StepUpPressed = up;
    m_interaction.StepDownPressed = !up;
    SetStepTimer(true);
    if (!goesOn) {
        AxisHost().Refresh();
    }
}

void TDateScalerGestures::StopStep()
{
    const bool ran = m_stepTimerOn || Dragging();
    if (ran) {
        EndInteraction();
    }
    ForgetChange();
}

void TDateScalerGestures::EndInteraction()
{
    SetStepTimer(false);
    TDateScalerNavigation::EndInteraction();
}

void TDateScalerGestures::CancelInteraction()
{
    if (Dragging()) {
        EndInteraction();
        SetRange(m_pressRange.Start, m_pressRange.Stop);
    }
}

void TDateScalerGestures::SetStepTimer(bool on)
{
    if (on != m_stepTimerOn) {
        m_stepTimerOn = on;
        m_input.SetStepTimer(on);
    }
}

void TDateScalerGestures::ScrollButtonPressed(TObject * /*sender*/)
{
    if (Dragging() && !IsOnButton(m_input.PointerPosition())) {
        StopStep();
    }
    if (!m_stepTimerOn) {
        return;
    }
    const std::int64_t held = Round((AxisHost().Now() - m_stepStartTime) * kMillisecondsPerDay);
    TDateTime step = GetScrollStep();
    step *= held >= 2000 ? 3 : 1;
    step *= held >= 5000 ? 7 : 1;
    MoveTo(StepPastHidden(StepUpPressed() ? step : -step));
}

bool TDateScalerGestures::RescaleNotPan(const TShiftState & /*shift*/) const
{
    return m_savedShift.Ctrl == m_rescaleWithCtrl;
}

bool TDateScalerGestures::IsOnButton(TPoint at) const
{
    return StepDownRect().Contains(at) || StepUpRect().Contains(at);
}

TScalerCursor TDateScalerGestures::CursorAt(const TShiftState &shift, TPoint at) const
{
    if (Dragging() ? StepUpPressed() || StepDownPressed() : IsOnButton(at)) {
        return TScalerCursor::Button;
    }
    const bool ctrl = Dragging() ? m_savedShift.Ctrl : shift.Ctrl;
    return ctrl == m_rescaleWithCtrl ? TScalerCursor::Zoom : TScalerCursor::Pan;
}

TScaleRow TDateScalerGestures::RowAt(TPoint at) const
{
    const int across = Horizontal() ? at.Y : at.X;
    return across < RowOffset(TScaleRow::Minor) ? TScaleRow::Major : TScaleRow::Minor;
}

bool TDateScalerGestures::ToolkitMouseDown(TMouseButton /*button*/, const TShiftState & /*shift*/,
                                           TPoint /*at*/)
{
    return true;
}

bool TDateScalerGestures::ToolkitMouseMove(const TShiftState & /*shift*/, TPoint /*at*/)
{
    return true;
}

bool TDateScalerGestures::ToolkitMouseUp(TMouseButton /*button*/, const TShiftState & /*shift*/,
                                         TPoint /*at*/)
{
    return true;
}

} // namespace korvane
