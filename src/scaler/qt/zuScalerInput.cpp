// How the events of the window system reach the time axis.
#include "foundation/qt/zuConvert.h"
#include "foundation/zuReport.h"
#include "scaler/qt/zuScaler.h"

#include <QGestureEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPinchGesture>
#include <QPointer>
#include <QWheelEvent>

#include <cstdlib>
#include <exception>
#include <optional>
#include <utility>

namespace korvane {

namespace {

/// The event loop cannot carry exceptions.
template <typename Action>
void ReportFailure(Action action)
{
    try {
        action();
    } catch (const std::exception &error) {
        Report(error.what());
    }
}

Qt::CursorShape ShapeOf(TScalerCursor cursor, bool horizontal)
{
    switch (cursor) {
    case TScalerCursor::Button:
        break;
    case TScalerCursor::Zoom:
        return horizontal ? Qt::SplitHCursor : Qt::SplitVCursor;
    case TScalerCursor::Pan:
        return horizontal ? Qt::SizeHorCursor : Qt::SizeVerCursor;
    }
    return Qt::PointingHandCursor;
}

/// The key's command, Up and Down being keys of an upright axis.
std::optional<TScalerCommand> CommandOf(const QKeyEvent &event, bool horizontal)
{
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    const bool plain = held == Qt::NoModifier;
    const bool page = held == Qt::ControlModifier || held == Qt::ShiftModifier;
    const int key = event.key();
    const bool earlier = key == (horizontal ? Qt::Key_Left : Qt::Key_Up);
    const bool later = key == (horizontal ? Qt::Key_Right : Qt::Key_Down);
    if ((earlier || later) && (plain || page)) {
        return page ? (earlier ? TScalerCommand::PageEarlier : TScalerCommand::PageLater)
                    : (earlier ? TScalerCommand::Earlier : TScalerCommand::Later);
    }
    if (!plain && held != Qt::ShiftModifier) {
        return std::nullopt;
    }
    switch (key) { // plus may need Shift
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return TScalerCommand::ZoomIn;
    case Qt::Key_Minus:
        return TScalerCommand::ZoomOut;
    case Qt::Key_PageUp:
        return TScalerCommand::PageEarlier;
    case Qt::Key_PageDown:
        return TScalerCommand::PageLater;
    case Qt::Key_Home:
        return TScalerCommand::Today;
    default:
        return std::nullopt;
    }
}

} // namespace

void TzuDateScaler::ShowCursor(TScalerCursor shown)
{
    const Qt::CursorShape shape = ShapeOf(shown, Horizontal());
    if (cursor().shape() != shape) {
        setCursor(shape);
    }
}

bool TzuDateScaler::event(QEvent *event)
{
    if (event->type() == static_cast<QEvent::Type>(kChangeMessage)) {
        CallChange();
        return true;
    }
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (TakesKey(*static_cast<QKeyEvent *>(event))) {
            event->accept();
            return true;
        }
        break;
    case QEvent::Gesture:
        return Pinch(*static_cast<QGestureEvent *>(event));
    case QEvent::NativeGesture:
        return Pinch(*static_cast<QNativeGestureEvent *>(event));
    case QEvent::UngrabMouse:
    case QEvent::WindowDeactivate:
    case QEvent::EnabledChange:
        EndInteraction();
        break;
    default:
        break;
    }
    return TzuOffscreenPaint::event(event);
}

int TzuDateScaler::PixelOf(QPointF position) const
{
    const QPoint at = position.toPoint();
    return Horizontal() ? at.x() : at.y();
}

/// Lets the axis handle an event, which it hands back through ToolkitMouseDown and its like.
void TzuDateScaler::PassOn(QMouseEvent &event, TMouseHandler handler)
{
    const auto button = MouseButtonFromQt(event.button());
    if (!button) {
        event.ignore();
        return;
    }
    const TPoint at = FromQt(event.position().toPoint());
    m_mouseEvent = &event;
    const QPointer<TzuDateScaler> alive(this);
    ReportFailure([&] { (this->*handler)(*button, FromQt(event.modifiers()), at.X, at.Y); });
    if (alive != nullptr) {
        m_mouseEvent = nullptr;
    }
}

void TzuDateScaler::mousePressEvent(QMouseEvent *event)
{
    PassOn(*event, &TDateScalerGestures::MouseDown);
}

void TzuDateScaler::mouseDoubleClickEvent(QMouseEvent *event)
{
    PassOn(*event, &TDateScalerGestures::DoubleClick);
}

void TzuDateScaler::mouseReleaseEvent(QMouseEvent *event)
{
    PassOn(*event, &TDateScalerGestures::MouseUp);
}

void TzuDateScaler::mouseMoveEvent(QMouseEvent *event)
{
    if (Dragging() && (event->buttons() & (Qt::LeftButton | Qt::RightButton)) == 0) {
        EndInteraction(); // the release went elsewhere
    }
    const TPoint at = FromQt(event->position().toPoint());
    m_mouseEvent = event;
    const QPointer<TzuDateScaler> alive(this);
    ReportFailure([&] { MouseMove(FromQt(event->modifiers()), at.X, at.Y); });
    if (alive != nullptr) {
        m_mouseEvent = nullptr;
    }
}

bool TzuDateScaler::ToolkitMouseDown(TMouseButton button, const TShiftState &shift, TPoint at)
{
    const QPointer<TzuDateScaler> alive(this);
    QMouseEvent *const event = std::exchange(m_mouseEvent, nullptr);
    if (event == nullptr) {
        OnMouseDown(this, button, shift, at.X, at.Y);
    } else if (event->type() == QEvent::MouseButtonDblClick) {
        TzuOffscreenPaint::mouseDoubleClickEvent(event);
    } else {
        TzuOffscreenPaint::mousePressEvent(event);
    }
    return alive != nullptr;
}

bool TzuDateScaler::ToolkitMouseMove(const TShiftState &shift, TPoint at)
{
    const QPointer<TzuDateScaler> alive(this);
    if (QMouseEvent *const event = std::exchange(m_mouseEvent, nullptr)) {
        TzuOffscreenPaint::mouseMoveEvent(event);
    } else {
        OnMouseMove(this, shift, at.X, at.Y);
    }
    return alive != nullptr;
}

bool TzuDateScaler::ToolkitMouseUp(TMouseButton button, const TShiftState &shift, TPoint at)
{
    const QPointer<TzuDateScaler> alive(this);
    if (QMouseEvent *const event = std::exchange(m_mouseEvent, nullptr)) {
        TzuOffscreenPaint::mouseReleaseEvent(event);
    } else {
        OnMouseUp(this, button, shift, at.X, at.Y);
    }
    return alive != nullptr;
}

void TzuDateScaler::wheelEvent(QWheelEvent *event)
{
    if (!Dragging()) {
        ReportFailure([&] { TurnWheel(*event); });
    }
    TzuOffscreenPaint::wheelEvent(event); // may destroy the scaler
    event->accept();
}

void TzuDateScaler::TurnWheel(const QWheelEvent &event)
{
    constexpr double kUnitsPerNotch = 120;
    const QPoint turn = event.angleDelta();
    const QPoint exact = event.pixelDelta();
    const bool sideways = std::abs(turn.x()) > std::abs(turn.y());
    if (!sideways && (event.modifiers() & Qt::ShiftModifier) == 0) {
        ZoomAround(turn.y() / kUnitsPerNotch, PixelOf(event.position()));
    } else if (exact.isNull()) {
        PanNotches(-(sideways ? turn.x() : turn.y()) / kUnitsPerNotch);
    } else {
        PanPixels(-(sideways ? exact.x() : exact.y()));
    }
}

bool TzuDateScaler::Pinch(QGestureEvent &event)
{
    auto *pinch = static_cast<QPinchGesture *>(event.gesture(Qt::PinchGesture));
    if (pinch == nullptr) {
        return false;
    }
    event.accept(pinch);
    CancelInteraction(); // the first finger may have begun a drag
    const bool ends = pinch->state() == Qt::GestureFinished; // tells the last change again
    if (!ends && (pinch->changeFlags() & QPinchGesture::ScaleFactorChanged) != 0) {
        const int pixel = PixelOf(mapFromGlobal(pinch->centerPoint()));
        ReportFailure([&] { ZoomBy(1 / pinch->scaleFactor(), pixel); });
    }
    return true;
}

bool TzuDateScaler::Pinch(const QNativeGestureEvent &event)
{
    if (event.gestureType() != Qt::ZoomNativeGesture) {
        return false;
    }
    const int pixel = PixelOf(mapFromGlobal(event.globalPosition()));
    ReportFailure([&] { ZoomBy(1 / (1 + event.value()), pixel); });
    return true;
}

bool TzuDateScaler::TakesKey(const QKeyEvent &event) const
{
    return (event.key() == Qt::Key_Escape && Dragging())
           || CommandOf(event, Horizontal()).has_value();
}

bool TzuDateScaler::DoKey(const QKeyEvent &event)
{
    if (!TakesKey(event)) {
        return false;
    }
    const auto command = CommandOf(event, Horizontal());
    ReportFailure([&] {
        if (command && !Dragging()) {
            Execute(*command);
        } else if (!command) {
            CancelInteraction();
        }
    });
    return true;
}

void TzuDateScaler::keyPressEvent(QKeyEvent *event)
{
    const QPointer<TzuDateScaler> alive(this);
    TzuOffscreenPaint::keyPressEvent(event); // ignores the event unless a handler has used it up
    if (alive != nullptr && !event->isAccepted()) {
        CtrlChanged(*event);
        event->setAccepted(DoKey(*event));
    }
}

void TzuDateScaler::keyReleaseEvent(QKeyEvent *event)
{
    const QPointer<TzuDateScaler> alive(this);
    TzuOffscreenPaint::keyReleaseEvent(event);
    if (alive != nullptr) {
        CtrlChanged(*event);
    }
}

/// Keeps the pointer's shape true: Ctrl decides what a drag would do.
void TzuDateScaler::CtrlChanged(const QKeyEvent &event)
{
    if (event.key() == Qt::Key_Control && underMouse()) {
        ShowCursor(CursorAt({.Ctrl = event.type() == QEvent::KeyPress}, PointerPosition()));
    }
}

void TzuDateScaler::enterEvent(QEnterEvent *event)
{
    const TPoint at = FromQt(event->position().toPoint());
    PointAt(FromQt(event->modifiers()), at.X, at.Y);
    TzuOffscreenPaint::enterEvent(event);
}

void TzuDateScaler::leaveEvent(QEvent *event)
{
    MouseLeave();
    TzuOffscreenPaint::leaveEvent(event);
}

void TzuDateScaler::hideEvent(QHideEvent *event)
{
    EndInteraction();
    MouseLeave();
    TzuOffscreenPaint::hideEvent(event);
}

void TzuDateScaler::focusOutEvent(QFocusEvent *event)
{
    EndInteraction();
    TzuOffscreenPaint::focusOutEvent(event);
}

void TzuDateScaler::timerEvent(QTimerEvent *event)
{
    if (IsStepTimer(event->timerId())) {
        ReportFailure([this] { ScrollButtonPressed(this); });
    } else {
        TzuOffscreenPaint::timerEvent(event);
    }
}

} // namespace korvane
