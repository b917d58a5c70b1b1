// What the pointer does over the chart.
#include "PlanChart.h"
#include "TaskToolTip.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuDateUtils.h"

#include <QHelpEvent>
#include <QToolTip>

namespace korvane::planner {

bool PlanChart::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &GantArea()) {
        switch (event->type()) {
        case QEvent::MouseMove:
            PointAt(static_cast<QMouseEvent *>(event)->position().toPoint().x());
            break;
        case QEvent::Leave:
            PointerLeft();
            break;
        case QEvent::ToolTip:
            HandleToolTip(*static_cast<QHelpEvent *>(event));
            return true;
        default:
            break;
        }
    }
    return TzuGant::eventFilter(watched, event);
}

void PlanChart::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_nowTimer.timerId()) {
        SetNow(Now());
    } else {
        TzuGant::timerEvent(event);
    }
}

void PlanChart::HandleToolTip(QHelpEvent &event)
{
    const int task = TaskAt(event.pos());
    if (task == kNoIndex) {
        const TzuDataEntity_Link *line = GetLinkFromXY(event.pos().x(), event.pos().y());
        const QString text = line != nullptr ? LinkToolTip(GetPlan(), LinkOf(*line)) : QString();
        QToolTip::showText(event.globalPos(), text, &GantArea(), QRect(event.pos(), QSize(3, 3)));
        return;
    }
    const TzuDataEntity_Spanbar &bar = *Items(task).Bar;
    const TRect rect = bar.GetRow()->RectFromDataEntity(bar).value_or(TRect{});
    QToolTip::showText(event.globalPos(), TaskToolTip(GetPlan(), task), &GantArea(),
                       ToQt(rect.Intersected(GantArea().ClientArea())));
}

void PlanChart::PointAt(int pixel)
{
    m_pointerPixel = pixel;
    DateScaler().SetIndicatorPixel(pixel);
    Q_EMIT pointedAt(DateScaler().PixelToDate(pixel));
}

void PlanChart::PointerLeft()
{
    m_pointerPixel.reset();
    DateScaler().SetIndicatorPixel(TDateScalerCore::kNoIndicator);
    Q_EMIT pointerLeft();
}

} // namespace korvane::planner
