#include "StripEdge.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace korvane::planner {

namespace {

/// How near to the edge the mouse takes hold of it.
constexpr int kReach = 2;

int PlaceIn(const QWidget &parent, const QMouseEvent &event)
{
    return parent.mapFromGlobal(event.globalPosition().toPoint()).y();
}

} // namespace

StripEdge::StripEdge(QWidget *parent)
    : QWidget(parent)
{
    setCursor(Qt::SplitVCursor);
    hide();
}

void StripEdge::PlaceAt(int y)
{
    m_place = y;
    setGeometry(0, y - kReach, parentWidget()->width(), 2 * kReach);
    raise();
}

void StripEdge::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    if (event->button() == Qt::LeftButton) {
        m_dragging = true;
        m_pressPlace = m_place;
        m_pressedAt = PlaceIn(*parentWidget(), *event);
        grabKeyboard();
    }
}

void StripEdge::mouseMoveEvent(QMouseEvent *event)
{
    event->accept();
    if (m_dragging) {
        Q_EMIT moved(m_pressPlace + PlaceIn(*parentWidget(), *event) - m_pressedAt);
    }
}

void StripEdge::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept();
    if (event->button() == Qt::LeftButton) {
        EndDrag();
    }
}

void StripEdge::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->accept();
    Q_EMIT fitWanted();
}

void StripEdge::EndDrag()
{
    if (m_dragging) {
        m_dragging = false;
        releaseKeyboard();
    }
}

bool StripEdge::event(QEvent *event)
{
    // Escape must not reach what a shortcut would do.
    if (event->type() == QEvent::ShortcutOverride && m_dragging
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void StripEdge::keyPressEvent(QKeyEvent *event)
{
    if (m_dragging && event->key() == Qt::Key_Escape) {
        EndDrag();
        Q_EMIT moved(m_pressPlace);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void StripEdge::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    EndDrag();
}

} // namespace korvane::planner
