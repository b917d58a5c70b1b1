#include "schema/qt/zuSchemaHint.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuPainterCanvas.h"
#include "schema/qt/zuSchemaComBasic.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QTimerEvent>

#include <utility>

namespace korvane {

namespace {

/// From the pointer to the window's corner.
constexpr QPoint kDistance(16, 20);

} // namespace

TzuSchema_ComBasicHintWindow::TzuSchema_ComBasicHintWindow(TzuSchema_ComBasic &schema)
    : QWidget(&schema, Qt::ToolTip | Qt::FramelessWindowHint)
    , m_schema(schema)
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void TzuSchema_ComBasicHintWindow::PointAt(TzuDataEntity_SchemaTime *time, QPoint position)
{
    m_position = position;
    if (std::exchange(m_time, time) == time) {
        return;
    }
    DoHideShowMeBig();
    if (time != nullptr) {
        m_startTimer.start(style()->styleHint(QStyle::SH_ToolTip_WakeUpDelay), this);
    }
}

void TzuSchema_ComBasicHintWindow::Forget(const TzuDataEntity *time)
{
    if (m_time == time) {
        m_time = nullptr;
        DoHideShowMeBig();
    }
}

void TzuSchema_ComBasicHintWindow::DoShowMeBig()
{
    m_startTimer.stop();
    if (m_time == nullptr || !m_schema.isActiveWindow()) {
        return;
    }
    TPainterCanvas canvas;
    const TSize size = m_schema.BigSize(*m_time, canvas);
    QRect place(m_position + kDistance, QSize(size.Width, size.Height));
    if (const QScreen *screen = QGuiApplication::screenAt(m_position)) {
        const QRect available = screen->availableGeometry();
        if (place.right() > available.right()) {
            place.moveRight(m_position.x() - kDistance.x());
        }
        if (place.bottom() > available.bottom()) {
            place.moveBottom(m_position.y() - kDistance.x());
        }
    }
    setGeometry(place);
    show();
    update();
    m_hideTimer.start(kShownMilliseconds, this);
}

void TzuSchema_ComBasicHintWindow::DoHideShowMeBig()
{
    m_startTimer.stop();
    m_hideTimer.stop();
    hide();
}

void TzuSchema_ComBasicHintWindow::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_startTimer.timerId()) {
        DoShowMeBig();
    } else if (event->timerId() == m_hideTimer.timerId()) {
        DoHideShowMeBig();
    }
}

void TzuSchema_ComBasicHintWindow::paintEvent(QPaintEvent * /*event*/)
{
    if (m_time == nullptr) {
        return;
    }
    QPainter painter(this);
    TPainterCanvas canvas(painter, FromQt(rect()), palette());
    m_schema.PaintBig(*m_time, FromQt(rect()), canvas);
}

} // namespace korvane
