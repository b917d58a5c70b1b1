// How the events of the drawn area reach the chart's rules.
#pragma once

#include "foundation/qt/zuOffscreenPaint.h"
#include "foundation/zuExport.h"
#include "gantt/zuGantHint.h"

#include <QBasicTimer>
#include <QObject>

class QGestureEvent;

namespace korvane {

class TzuGant_ComBasic;

/// Translates mouse, wheel, touch and drag events of a chart's area into calls of the chart.
///
/// Ctrl with the wheel and pinching zoom about the pointer; Shift with the wheel, a horizontal
/// wheel and a second axis of a touch pad move the visible time. A running gesture is cancelled by
/// Escape, and by whatever takes the mouse away. What handlers of the application throw is
/// reported.
class KORVANE_WIDGETS_API TGantAreaInput : public QObject
{
    Q_OBJECT

public:
    /// Both are observed and outlive the translator.
    TGantAreaInput(TzuGant_ComBasic &gant, TzuOffscreenPaint &area);

    /// Runs the chart's GestureTick while on.
    void SetTimer(bool on);
    /// Starts drag and drop when control comes back to the event loop.
    void StartItemDrag(const TItemDragData &data);
    /// Handles what the wheel does to the axis; false when it is a turn for the rows.
    bool WheelOverAxis(const QWheelEvent &event);

protected:
    /// The events of the area; those of the timer tick the gesture.
    bool eventFilter(QObject *watched, QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    template <typename Call>
    void Guarded(const Call &call);
    void WireMouse();
    void WireDragAndDrop();
    bool HandleKey(const QEvent &event);
    bool HandlePinch(QGestureEvent &event);
    void GantAreaStartDrag(const TItemDragData &data);
    void GantAreaEndDrag(Qt::DropAction action);
    void GantAreaDragOver(QDragMoveEvent &event);
    void GantAreaDragDrop(QDropEvent &event);

    TzuGant_ComBasic &m_gant;
    TzuOffscreenPaint &m_area;
    QBasicTimer m_timer;
};

} // namespace korvane
