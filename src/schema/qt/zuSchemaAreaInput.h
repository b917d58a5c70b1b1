// How the events of the drawn area reach the rules of the schedule.
#pragma once

#include "foundation/qt/zuOffscreenPaint.h"
#include "foundation/zuExport.h"
#include "foundation/zuGestureHint.h"

#include <QBasicTimer>
#include <QObject>
#include <QPoint>

class QDropEvent;
class QGestureEvent;

namespace korvane {

class TzuSchema_ComBasic;

/// Translates mouse, wheel, touch, key and drag events of a schedule's area into calls of the
/// schedule.
///
/// The wheel moves what runs along its direction, time or columns; with Shift the other one. Ctrl
/// with the wheel and pinching zoom about the pointer. A running gesture is cancelled by Escape,
/// and by whatever takes the mouse away. What handlers of the application throw is reported.
class KORVANE_WIDGETS_API TSchemaAreaInput : public QObject
{
    Q_OBJECT

public:
    /// Both are observed and outlive the translator.
    TSchemaAreaInput(TzuSchema_ComBasic &schema, TzuOffscreenPaint &area);

    /// Runs the schedule's GestureTick while on.
    void SetTimer(bool on);
    /// Starts drag and drop when control comes back to the event loop.
    void StartTimeDrag(const TItemDragData &data);

protected:
    /// The events of the area; those of the timer tick the gesture.
    bool eventFilter(QObject *watched, QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    template <typename Call>
    void Guarded(const Call &call);
    void WireMouse();
    bool HandleKey(int key, const TShiftState &shift);
    bool IsEscapeOfGesture(const QEvent &event) const;
    bool HandlePinch(QGestureEvent &event);
    void TurnWheel(QWheelEvent &event);
    void SchemaStartDrag(const TItemDragData &data);
    void SchemaDragOver(QDragMoveEvent &event);
    void SchemaDragDrop(QDropEvent &event);
    void SchemaEndDrag(Qt::DropAction action);

    TzuSchema_ComBasic &m_schema;
    TzuOffscreenPaint &m_area;
    QBasicTimer m_timer;
    QPoint m_doubleClickAt;
};

} // namespace korvane
