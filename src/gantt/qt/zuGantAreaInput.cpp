#include "gantt/qt/zuGantAreaInput.h"

#include "foundation/qt/zuAreaEvents.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuReport.h"
#include "gantt/qt/zuGantComBasic.h"

#include <QDrag>
#include <QDragMoveEvent>
#include <QGestureEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QNativeGestureEvent>
#include <QPointer>
#include <QWheelEvent>

#include <cstdlib>
#include <exception>

namespace korvane {

namespace {

constexpr double kUnitsPerNotch = QWheelEvent::DefaultDeltasPerStep;

} // namespace

TGantAreaInput::TGantAreaInput(TzuGant_ComBasic &gant, TzuOffscreenPaint &area)
    : m_gant(gant)
    , m_area(area)
{
    WireMouse();
    WireDragAndDrop();
    area.grabGesture(Qt::PinchGesture);
    area.installEventFilter(this);
}

/// The event loop cannot carry exceptions.
template <typename Call>
void TGantAreaInput::Guarded(const Call &call)
{
    const QPointer<TGantAreaInput> self(this); // a handler may destroy the chart
    try {
        call();
    } catch (const std::exception &error) {
        if (!self.isNull()) {
            m_gant.CancelGesture();
        }
        Report(error.what());
    }
}

void TGantAreaInput::WireMouse()
{
    m_area.OnOverlayPaint = [this](TzuOffscreenPaint *, TCanvas &canvas) {
        m_gant.GantAreaPaintOverlay(canvas);
    };
    m_area.OnMouseDown = [this](TzuOffscreenPaint *, TMouseButton button, TShiftState shift, int x,
                                int y) {
        Guarded([&] { m_gant.GantAreaMouseDown(button, shift, x, y); });
    };
    m_area.OnMouseMove = [this](TzuOffscreenPaint *, TShiftState shift, int x, int y) {
        Guarded([&] { m_gant.GantAreaMouseMove(shift, x, y); });
    };
    m_area.OnMouseUp = [this](TzuOffscreenPaint *, TMouseButton button, TShiftState shift, int x,
                              int y) {
        Guarded([&] { m_gant.GantAreaMouseUp(button, shift, x, y); });
    };
    m_area.OnDblClick = [this](TzuOffscreenPaint *) { Guarded([&] { m_gant.OnGADblClick(); }); };
}

void TGantAreaInput::WireDragAndDrop()
{
    m_area.setAcceptDrops(true);
    m_area.OnDragOver = [this](TzuOffscreenPaint *, QDragMoveEvent &event) {
        Guarded([&] { GantAreaDragOver(event); });
    };
    m_area.OnDragDrop = [this](TzuOffscreenPaint *, QDropEvent &event) {
        Guarded([&] { GantAreaDragDrop(event); });
    };
}

bool TGantAreaInput::eventFilter(QObject *watched, QEvent *event)
{
    if (TakesMouseAway(*event, m_area)
        && (m_gant.GestureRunning() || event->type() != QEvent::MouseMove)) {
        m_gant.CancelGesture();
    }
    switch (event->type()) {
    case QEvent::Leave:
        m_gant.GantAreaMouseLeave();
        break;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        if (HandleKey(*event)) {
            event->accept();
            return true;
        }
        break;
    case QEvent::Gesture:
        return HandlePinch(*static_cast<QGestureEvent *>(event));
    case QEvent::NativeGesture:
        return m_gant.DateScaler().Pinch(*static_cast<QNativeGestureEvent *>(event));
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool TGantAreaInput::HandleKey(const QEvent &event)
{
    if (static_cast<const QKeyEvent &>(event).key() != Qt::Key_Escape || !m_gant.GestureRunning()) {
        return false;
    }
    if (event.type() == QEvent::KeyPress) {
        m_gant.CancelGesture();
    }
    return true;
}

void TGantAreaInput::SetTimer(bool on)
{
    if (on) {
        m_timer.start(TAutoScroll::kTickMilliseconds, this);
    } else {
        m_timer.stop();
    }
}

void TGantAreaInput::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_timer.timerId()) {
        Guarded([this] { m_gant.GestureTick(); });
    }
}

// --- axis ----------------------------------------------------------------------------------------

bool TGantAreaInput::WheelOverAxis(const QWheelEvent &event)
{
    TzuDateScaler &scaler = m_gant.DateScaler();
    const QPoint turn = event.angleDelta();
    const bool sideways = std::abs(turn.x()) > std::abs(turn.y());
    if (event.modifiers().testFlag(Qt::ControlModifier)) {
        // Some platforms exchange the axes themselves while a modifier is held.
        const double notches = (sideways ? turn.x() : turn.y()) / kUnitsPerNotch;
        Guarded([&] { scaler.ZoomAround(notches, event.position().toPoint().x()); });
        return true;
    }
    if (!sideways && !event.modifiers().testFlag(Qt::ShiftModifier)) {
        return false;
    }
    const QPoint exact = event.pixelDelta();
    Guarded([&] {
        if (exact.isNull()) {
            scaler.PanNotches(-(turn.x() + turn.y()) / kUnitsPerNotch);
        } else {
            scaler.PanPixels(-(exact.x() + exact.y()));
        }
    });
    return true;
}

bool TGantAreaInput::HandlePinch(QGestureEvent &event)
{
    const bool pinch = event.gesture(Qt::PinchGesture) != nullptr;
    if (pinch) {
        m_gant.CancelGesture(); // of the mouse that the first finger has become
    }
    return pinch && m_gant.DateScaler().Pinch(event);
}

// --- drag and drop -------------------------------------------------------------------------------

void TGantAreaInput::StartItemDrag(const TItemDragData &data)
{
    QMetaObject::invokeMethod(
        this, [this, data] { Guarded([&] { GantAreaStartDrag(data); }); }, Qt::QueuedConnection);
}

void TGantAreaInput::GantAreaStartDrag(const TItemDragData &data)
{
    auto *mime = new QMimeData;
    mime->setText(ToQt(data.Text));
    mime->setData(QLatin1String(TItemDragData::kMimeType), QByteArray::fromStdString(data.Json));
    const QPointer<QDrag> drag(new QDrag(&m_area));
    drag->setMimeData(mime);
    const QPointer<TGantAreaInput> self(this);
    m_gant.OnGantAreaStartDrag(&m_gant, *drag);
    if (self.isNull() || drag.isNull() || drag->mimeData() == nullptr) {
        delete drag;
        return;
    }
    const Qt::DropAction action =
        drag->exec(Qt::CopyAction | Qt::MoveAction, data.Copy ? Qt::CopyAction : Qt::MoveAction);
    if (!self.isNull()) {
        GantAreaEndDrag(action);
    }
}

void TGantAreaInput::GantAreaEndDrag(Qt::DropAction action)
{
    m_gant.OnGantAreaEndDrag(&m_gant, action);
}

void TGantAreaInput::GantAreaDragOver(QDragMoveEvent &event)
{
    if (m_gant.OnGantAreaDragOver) {
        m_gant.OnGantAreaDragOver(&m_gant, event);
    } else if (m_gant.OnGantAreaDragDrop) {
        event.acceptProposedAction();
    } else {
        event.ignore();
    }
}

void TGantAreaInput::GantAreaDragDrop(QDropEvent &event)
{
    m_gant.OnGantAreaDragDrop(&m_gant, event);
}

} // namespace korvane
