#include "schema/qt/zuSchemaAreaInput.h"

#include "foundation/qt/zuAreaEvents.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuReport.h"
#include "schema/qt/zuSchemaComBasic.h"

#include <QContextMenuEvent>
#include <QDrag>
#include <QDragMoveEvent>
#include <QFocusEvent>
#include <QGestureEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPointer>
#include <QWheelEvent>

#include <cstdlib>
#include <exception>
#include <optional>

namespace korvane {

namespace {

constexpr double kUnitsPerNotch = QWheelEvent::DefaultDeltasPerStep;

std::optional<TSchemaKey> KeyOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return TSchemaKey::Left;
    case Qt::Key_Right:
        return TSchemaKey::Right;
    case Qt::Key_Up:
        return TSchemaKey::Up;
    case Qt::Key_Down:
        return TSchemaKey::Down;
    case Qt::Key_Home:
        return TSchemaKey::Home;
    case Qt::Key_End:
        return TSchemaKey::End;
    case Qt::Key_PageUp:
        return TSchemaKey::PageUp;
    case Qt::Key_PageDown:
        return TSchemaKey::PageDown;
    case Qt::Key_Space:
        return TSchemaKey::Space;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return TSchemaKey::Enter;
    case Qt::Key_Escape:
        return TSchemaKey::Escape;
    case Qt::Key_Delete:
        return TSchemaKey::Delete;
    case Qt::Key_Plus:
        return TSchemaKey::Plus;
    case Qt::Key_Minus:
        return TSchemaKey::Minus;
    case Qt::Key_A:
        return TSchemaKey::A;
    case Qt::Key_Menu:
        return TSchemaKey::Menu;
    default:
        return std::nullopt;
    }
}

} // namespace

TSchemaAreaInput::TSchemaAreaInput(TzuSchema_ComBasic &schema, TzuOffscreenPaint &area)
    : m_schema(schema)
    , m_area(area)
{
    WireMouse();
    area.OnKeyDown = [this](TzuOffscreenPaint *, int &key, TShiftState shift) {
        if (HandleKey(key, shift)) {
            key = 0;
        }
    };
    area.OnWheelMessage = [this](QWheelEvent &event) { TurnWheel(event); };
    area.setAcceptDrops(true);
    area.OnDragOver = [this](TzuOffscreenPaint *, QDragMoveEvent &event) {
        Guarded([&] { SchemaDragOver(event); });
    };
    area.OnDragDrop = [this](TzuOffscreenPaint *, QDropEvent &event) {
        Guarded([&] { SchemaDragDrop(event); });
    };
    area.grabGesture(Qt::PinchGesture);
    area.installEventFilter(this);
}

/// The event loop cannot carry exceptions.
template <typename Call>
void TSchemaAreaInput::Guarded(const Call &call)
{
    const QPointer<TSchemaAreaInput> self(this); // a handler may destroy the schedule
    try {
        call();
    } catch (const std::exception &error) {
        if (!self.isNull()) {
            m_schema.CancelGesture();
        }
        Report(error.what());
    }
}

void TSchemaAreaInput::WireMouse()
{
    m_area.OnOverlayPaint = [this](TzuOffscreenPaint *, TCanvas &canvas) {
        m_schema.SchemaPaintOverlay(canvas);
    };
    m_area.OnMouseDown = [this](TzuOffscreenPaint *, TMouseButton button, TShiftState shift, int x,
                                int y) {
        Guarded([&] { m_schema.SchemaMouseDown(button, shift, x, y); });
    };
    m_area.OnMouseMove = [this](TzuOffscreenPaint *, TShiftState shift, int x, int y) {
        Guarded([&] { m_schema.SchemaMouseMove(shift, x, y); });
    };
    m_area.OnMouseUp = [this](TzuOffscreenPaint *, TMouseButton button, TShiftState shift, int x,
                              int y) {
        Guarded([&] { m_schema.SchemaMouseUp(button, shift, x, y); });
    };
    m_area.OnDblClick = [this](TzuOffscreenPaint *) {
        Guarded([&] { m_schema.SchemaDblClick(m_doubleClickAt.x(), m_doubleClickAt.y()); });
    };
}

bool TSchemaAreaInput::eventFilter(QObject *watched, QEvent *event)
{
    if (m_schema.GestureRunning() && TakesMouseAway(*event, m_area)) {
        m_schema.CancelGesture();
    }
    switch (event->type()) {
    case QEvent::MouseButtonDblClick:
        m_doubleClickAt = static_cast<QMouseEvent *>(event)->position().toPoint();
        break;
    case QEvent::Leave:
        m_schema.SchemaMouseLeave();
        break;
    case QEvent::FocusIn: {
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
            || reason == Qt::ShortcutFocusReason) {
            Guarded([this] { m_schema.EnsureActiveDataEntity(); });
        }
        m_area.Invalidate();
        break;
    }
    case QEvent::FocusOut:
        m_area.Invalidate();
        break;
    case QEvent::ContextMenu:
        // The press of the right button has shown the menu, or there is none.
        if (static_cast<QContextMenuEvent *>(event)->reason() == QContextMenuEvent::Mouse) {
            return true;
        }
        break;
    case QEvent::ShortcutOverride:
        if (IsEscapeOfGesture(*event)) {
            event->accept();
            return true;
        }
        break;
    case QEvent::Gesture:
        return HandlePinch(*static_cast<QGestureEvent *>(event));
    case QEvent::NativeGesture: {
        bool used = false;
        Guarded([&] {
            used = m_schema.DateScaler().Pinch(*static_cast<QNativeGestureEvent *>(event));
        });
        return used;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool TSchemaAreaInput::IsEscapeOfGesture(const QEvent &event) const
{
    return static_cast<const QKeyEvent &>(event).key() == Qt::Key_Escape
           && m_schema.GestureRunning();
}

bool TSchemaAreaInput::HandleKey(int key, const TShiftState &shift)
{
    const auto known = KeyOf(key);
    bool used = false;
    if (known) {
        Guarded([&] { used = m_schema.SchemaKeyDown(*known, shift); });
    }
    return used;
}

bool TSchemaAreaInput::HandlePinch(QGestureEvent &event)
{
    if (event.gesture(Qt::PinchGesture) == nullptr) {
        return false;
    }
    m_schema.CancelGesture(); // of the mouse that the first finger has become
    bool used = false;
    Guarded([&] { used = m_schema.DateScaler().Pinch(event); });
    return used;
}

void TSchemaAreaInput::TurnWheel(QWheelEvent &event)
{
    event.accept();
    TzuDateScaler &scaler = m_schema.DateScaler();
    const QPoint turn = event.angleDelta();
    const bool sideways = std::abs(turn.x()) > std::abs(turn.y());
    const int units = sideways ? turn.x() : turn.y();
    const QPoint at = event.position().toPoint();
    if (event.modifiers().testFlag(Qt::ControlModifier)) {
        const double notches = units / kUnitsPerNotch;
        Guarded([&] { scaler.ZoomAround(notches, m_schema.AlongTime(TPoint{at.x(), at.y()})); });
        return;
    }
    // Some platforms exchange the axes themselves while Shift is held.
    const bool horizontal = sideways || event.modifiers().testFlag(Qt::ShiftModifier);
    Guarded([&] {
        if (horizontal != m_schema.FlipView()) {
            m_schema.ScrollColumnsByWheel(-units);
        } else if (const QPoint exact = event.pixelDelta(); !exact.isNull()) {
            scaler.PanPixels(-(sideways ? exact.x() : exact.y()));
        } else {
            scaler.PanNotches(-units / kUnitsPerNotch);
        }
    });
}

void TSchemaAreaInput::SetTimer(bool on)
{
    if (!on) {
        m_timer.stop();
    } else if (!m_timer.isActive()) {
        m_timer.start(TSchemaGestures::kTickMilliseconds, this);
    }
}

void TSchemaAreaInput::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_timer.timerId()) {
        Guarded([this] { m_schema.GestureTick(); });
    }
}

// --- drag and drop -------------------------------------------------------------------------------

void TSchemaAreaInput::StartTimeDrag(const TItemDragData &data)
{
    QMetaObject::invokeMethod(
        this, [this, data] { Guarded([&] { SchemaStartDrag(data); }); }, Qt::QueuedConnection);
}

void TSchemaAreaInput::SchemaStartDrag(const TItemDragData &data)
{
    auto *mime = new QMimeData;
    mime->setText(ToQt(data.Text));
    mime->setData(QLatin1String(TItemDragData::kMimeType), QByteArray::fromStdString(data.Json));
    const QPointer<QDrag> drag(new QDrag(&m_area));
    drag->setMimeData(mime);
    const QPointer<TSchemaAreaInput> self(this);
    m_schema.OnSchemaStartDrag(&m_schema, *drag);
    if (self.isNull() || drag.isNull() || drag->mimeData() == nullptr) {
        delete drag;
        return;
    }
    const Qt::DropAction done =
        drag->exec(Qt::CopyAction | Qt::MoveAction, data.Copy ? Qt::CopyAction : Qt::MoveAction);
    if (!self.isNull()) {
        SchemaEndDrag(done);
    }
}

void TSchemaAreaInput::SchemaEndDrag(Qt::DropAction action)
{
    m_schema.OnSchemaEndDrag(&m_schema, action);
}

void TSchemaAreaInput::SchemaDragDrop(QDropEvent &event)
{
    m_schema.OnSchemaDragDrop(&m_schema, event);
}

void TSchemaAreaInput::SchemaDragOver(QDragMoveEvent &event)
{
    if (m_schema.OnSchemaDragOver) {
        m_schema.OnSchemaDragOver(&m_schema, event);
    } else if (m_schema.OnSchemaDragDrop) {
        event.acceptProposedAction();
    } else {
        event.ignore();
    }
}

} // namespace korvane
