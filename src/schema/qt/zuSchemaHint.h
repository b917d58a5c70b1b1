// The windows that tell about a time: the small hint of gestures and the enlargement.
#pragma once

#include "foundation/qt/zuGraphStuff.h"
#include "foundation/zuExport.h"

#include <QBasicTimer>
#include <QPointer>
#include <QWidget>

namespace korvane {

class TzuDataEntity;
class TzuDataEntity_SchemaTime;
class TzuSchema_ComBasic;

/// Shows the time that the pointer rests on, enlarged and with all its texts, beside the pointer on
/// its screen. It waits as long as tooltips do, takes neither focus nor mouse, and goes after five
/// seconds.
class KORVANE_WIDGETS_API TzuSchema_ComBasicHintWindow : public QWidget
{
    Q_OBJECT

public:
    /// How long the enlargement is seen.
    static constexpr int kShownMilliseconds = 5000;

    /// A window of its own, owned by the schedule.
    explicit TzuSchema_ComBasicHintWindow(TzuSchema_ComBasic &schema);

    /// The pointer is over a time, or with null over none. Another time starts the wait anew.
    void PointAt(TzuDataEntity_SchemaTime *time, QPoint position);
    /// The time is gone.
    void Forget(const TzuDataEntity *time);
    /// Shows the time pointed at, if there is one and the schedule's window is the active one.
    void DoShowMeBig();
    /// Nothing when it is hidden.
    void DoHideShowMeBig();

protected:
    /// The enlargement is TSchemaGestures::PaintBig; it comes and goes by timer.
    void paintEvent(QPaintEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    TzuSchema_ComBasic &m_schema;
    TzuDataEntity_SchemaTime *m_time = nullptr;
    QPoint m_position; ///< of the pointer on the screen
    QBasicTimer m_startTimer;
    QBasicTimer m_hideTimer;
};

} // namespace korvane
