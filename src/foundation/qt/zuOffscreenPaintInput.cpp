// Mouse, keyboard, focus and drag events of the painted control.
#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuOffscreenPaint.h"

#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <optional>
#include <utility>

namespace korvane {

namespace {

TPoint PositionOf(const QMouseEvent &event)
{
    return FromQt(event.position().toPoint());
}

} // namespace

bool TzuOffscreenPaint::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Resize:
    case QEvent::Move:
        if (m_resizeSilently) {
            return true;
        }
        break;
    case QEvent::ShortcutOverride:
        if (WantedSpecialKeys.contains(static_cast<QKeyEvent *>(event)->key())) {
            event->accept();
            return true;
        }
        break;
    case QEvent::KeyPress:
        // Past the widget's own handling, which moves the focus by tab.
        if (WantedSpecialKeys.contains(static_cast<QKeyEvent *>(event)->key())) {
            keyPressEvent(static_cast<QKeyEvent *>(event));
            return true;
        }
        break;
    default:
        break;
    }
    return QFrame::event(event);
}

void TzuOffscreenPaint::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    OnResize(this);
}

void TzuOffscreenPaint::focusInEvent(QFocusEvent *event)
{
    QFrame::focusInEvent(event);
    Invalidate();
    OnEnter(this);
}

void TzuOffscreenPaint::focusOutEvent(QFocusEvent *event)
{
    Invalidate();
    QFrame::focusOutEvent(event);
    OnExit(this);
}

void TzuOffscreenPaint::wheelEvent(QWheelEvent *event)
{
    QFrame::wheelEvent(event);
    OnWheelMessage(*event);
}

void TzuOffscreenPaint::mousePressEvent(QMouseEvent *event)
{
    const auto button = MouseButtonFromQt(event->button());
    if (!button) {
        QFrame::mousePressEvent(event);
        return;
    }
    m_clicked = m_clicked || button == TMouseButton::mbLeft;
    const TPoint at = PositionOf(*event);
    OnMouseDown(this, *button, FromQt(event->modifiers()), at.X, at.Y);
}

void TzuOffscreenPaint::mouseMoveEvent(QMouseEvent *event)
{
    const TPoint at = PositionOf(*event);
    OnMouseMove(this, FromQt(event->modifiers()), at.X, at.Y);
}

void TzuOffscreenPaint::mouseReleaseEvent(QMouseEvent *event)
{
    const auto button = MouseButtonFromQt(event->button());
    if (!button) {
        QFrame::mouseReleaseEvent(event);
        return;
    }
    const TPoint at = PositionOf(*event);
    const QPointer<TzuOffscreenPaint> self(this); // a handler may destroy the control
    if (button == TMouseButton::mbLeft && std::exchange(m_clicked, false)
        && ClientArea().Contains(at)) {
        OnClick(this);
    }
    if (!self.isNull()) {
        OnMouseUp(this, *button, FromQt(event->modifiers()), at.X, at.Y);
    }
}

void TzuOffscreenPaint::mouseDoubleClickEvent(QMouseEvent *event)
{
    const auto button = MouseButtonFromQt(event->button());
    if (!button) {
        QFrame::mouseDoubleClickEvent(event);
        return;
    }
    const TPoint at = PositionOf(*event);
    const QPointer<TzuOffscreenPaint> self(this);
    if (button == TMouseButton::mbLeft) {
        OnDblClick(this);
    }
    if (!self.isNull()) {
        OnMouseDown(this, *button, FromQt(event->modifiers()), at.X, at.Y);
    }
}

void TzuOffscreenPaint::keyPressEvent(QKeyEvent *event)
{
    int key = event->key();
    const QPointer<TzuOffscreenPaint> self(this);
    OnKeyDown(this, key, FromQt(event->modifiers()));
    if (!self.isNull() && key != 0) {
        QFrame::keyPressEvent(event);
    }
}

void TzuOffscreenPaint::keyReleaseEvent(QKeyEvent *event)
{
    int key = event->key();
    const QPointer<TzuOffscreenPaint> self(this);
    OnKeyUp(this, key, FromQt(event->modifiers()));
    if (!self.isNull() && key != 0) {
        QFrame::keyReleaseEvent(event);
    }
}

void TzuOffscreenPaint::contextMenuEvent(QContextMenuEvent *event)
{
    bool handled = false;
    const QPointer<TzuOffscreenPaint> self(this);
    OnContextPopup(this, FromQt(event->pos()), handled);
    if (self.isNull() || handled) {
        return;
    }
    QMenu *menu = PopupMenuIsFor(*event) ? PopupMenu() : nullptr;
    if (menu != nullptr) {
        menu->popup(event->globalPos());
    } else {
        QFrame::contextMenuEvent(event);
    }
}

void TzuOffscreenPaint::dragEnterEvent(QDragEnterEvent *event)
{
    if (OnDragOver) {
        OnDragOver(this, *event);
    } else if (OnDragDrop) {
        event->acceptProposedAction();
    }
}

void TzuOffscreenPaint::dragMoveEvent(QDragMoveEvent *event)
{
    if (OnDragOver) {
        OnDragOver(this, *event);
    }
}

void TzuOffscreenPaint::dropEvent(QDropEvent *event)
{
    OnDragDrop(this, *event);
}

} // namespace korvane
