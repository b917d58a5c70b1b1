// What the mouse does on a time axis.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuInput.h"
#include "scaler/zuScalerInputHost.h"
#include "scaler/zuScalerNavigation.h"

namespace korvane {

/// Adds the mouse and the scroll buttons to the axis.
///
/// A drag with the left or the right button zooms about the pressed instant, by one per cent for
/// each pixel. With Ctrl it moves the range like a joystick: every move of the mouse shifts it by
/// the whole distance from the press. RescaleWithCtrl exchanges the two. Holding a scroll button
/// steps the range every 50 ms, three times as far after 2 seconds and 21 times after 5. A double
/// click lets the period that was hit, of the row that was hit, fill the axis.
///
/// Coordinates are client pixels. The control passes its events on; the operations serve tests and
/// components as well.
class KORVANE_CORE_API TDateScalerGestures : public TDateScalerNavigation
{
public:
    /// Both are observed, and usually the same object.
    TDateScalerGestures(IDateScalerHost &host, IScalerInputHost &input);

    /// Whether a drag with Ctrl zooms and one without it pans, instead of the other way round;
    /// false by default.
    bool RescaleWithCtrl() const { return m_rescaleWithCtrl; }
    void SetRescaleWithCtrl(bool on) { m_rescaleWithCtrl = on; }

    /// The events of the mouse, in client pixels.
    void MouseDown(TMouseButton button, const TShiftState &shift, int x, int y);
    void MouseMove(const TShiftState &shift, int x, int y);
    void MouseUp(TMouseButton button, const TShiftState &shift, int x, int y);
    /// Takes the place of the second press; on a scroll button it is one.
    void DoubleClick(TMouseButton button, const TShiftState &shift, int x, int y);
    /// Shows by indicator and cursor where the mouse is and what it would do there.
    void PointAt(const TShiftState &shift, int x, int y);
    /// The mouse is no longer over the axis.
    void MouseLeave() { SetIndicatorPixel(kNoIndicator); }

    /// Starts to step to later or earlier times until StopStep, for example while a drag in the
    /// chart below is held past its edge. Steps of a press on a scroll button also end when the
    /// mouse leaves both buttons.
    void StartStepUp() { StartStep(TStepDirection::Up); }
    void StartStepDown() { StartStep(TStepDirection::Down); }
    /// Ends any interaction and forgets a pending change.
    void StopStep();
    /// The tick of the step timer.
    void ScrollButtonPressed(TObject *sender);
    /// The time that 15 pixels cover, which is one step.
    TDateTime GetScrollStep() const { return PixelLenToDate(15); }

    /// Ends a drag or a press as the release does, for when that will not come.
    void EndInteraction() override;
    /// Ends a press on the scaler and brings back the range from before it.
    void CancelInteraction();

    /// Whether a drag zooms: decided by the modifiers of the press, not by the argument.
    bool RescaleNotPan(const TShiftState &shift) const;
    /// What the mouse would do there.
    TScalerCursor CursorAt(const TShiftState &shift, TPoint at) const;
    /// The row of labels at a place, by its distance from the edge.
    TScaleRow RowAt(TPoint at) const;

protected:
    /// The toolkit's own handling of an event, which calls the application's handlers. False when
    /// one of them has destroyed the scaler.
    virtual bool ToolkitMouseDown(TMouseButton button, const TShiftState &shift, TPoint at);
    virtual bool ToolkitMouseMove(const TShiftState &shift, TPoint at);
    virtual bool ToolkitMouseUp(TMouseButton button, const TShiftState &shift, TPoint at);

    TShiftState m_savedShift; ///< modifiers of the last press

private:
    enum class TStepDirection : unsigned char { Up, Down };

    int Along(TPoint at) const { return Horizontal() ? at.X : at.Y; }
    bool IsOnButton(TPoint at) const;
    void BeginDrag(const TShiftState &shift, TPoint at);
    void DragZoom(double delta);
    void DragPan(double delta);
    void StartStep(TStepDirection direction);
    void SetStepTimer(bool on);

    IScalerInputHost &m_input;
    bool m_rescaleWithCtrl = false;
    TPoint m_press;
    double m_pressScale = 0;  ///< days per pixel
    TTimePeriod m_pressRange; ///< before the first button went down
    int m_anchorPixel = 0;
    TDateTime m_anchorDate = 0;
    TDateTime m_stepStartTime = 0; ///< of the clock
    bool m_stepTimerOn = false;
};

} // namespace korvane
