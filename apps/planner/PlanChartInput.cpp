// What the pointer does over the chart.
#include "PlanChart.h"
#include "TaskToolTip.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuDateUtils.h"

#include <QApplication>
#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include <cmath>

namespace korvane::planner {

namespace {

constexpr int kUnitsPerNotch = 120;

} // namespace

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
        case QEvent::Wheel:
            return HandleWheel(*static_cast<QWheelEvent *>(event));
        default:
            break;
        }
    }
    if (watched == Tree().viewport() && event->type() == QEvent::Wheel) {
        return HandleWheel(*static_cast<QWheelEvent *>(event));
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

/// The chart's own wheel moves the current row; here it scrolls, as in any other list.
bool PlanChart::HandleWheel(QWheelEvent &event)
{
    constexpr double kStepsPerNotch = 0.5;
    const QPoint turn = event.angleDelta();
    if ((event.modifiers() & Qt::ControlModifier) != 0) {
        const double notches = double(turn.y()) / kUnitsPerNotch;
        Zoom(std::pow(kZoomStep, notches * kStepsPerNotch), event.position().toPoint().x());
    } else if ((event.modifiers() & Qt::ShiftModifier) != 0) {
        Pan(-(turn.x() + turn.y()));
    } else if (std::abs(turn.x()) > std::abs(turn.y())) {
        Pan(-turn.x());
    } else {
        TurnRows(turn.y());
    }
    event.accept();
    return true;
}

/// `turn` is in eighths of a degree; what is less than a row is kept for the next turn.
void PlanChart::TurnRows(int turn)
{
    if (turn * m_wheelRest < 0) {
        m_wheelRest = 0;
    }
    m_wheelRest += turn * QApplication::wheelScrollLines();
    VertScrollBar().setValue(VertScrollBar().value() - m_wheelRest / kUnitsPerNotch);
    m_wheelRest %= kUnitsPerNotch;
}

void PlanChart::HandleToolTip(QHelpEvent &event)
{
    const int task = TaskAt(event.pos());
    if (task == kNoIndex) {
        QToolTip::hideText();
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
