#include "gantt/qt/zuGantAreaKeys.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/zuReport.h"
#include "gantt/qt/zuGantComBasic.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>

#include <exception>
#include <optional>

namespace korvane {

namespace {

std::optional<TGantKey> KeyOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return TGantKey::Left;
    case Qt::Key_Right:
        return TGantKey::Right;
    case Qt::Key_Up:
        return TGantKey::Up;
    case Qt::Key_Down:
        return TGantKey::Down;
    case Qt::Key_Home:
        return TGantKey::Home;
    case Qt::Key_End:
        return TGantKey::End;
    case Qt::Key_PageUp:
        return TGantKey::PageUp;
    case Qt::Key_PageDown:
        return TGantKey::PageDown;
    case Qt::Key_Space:
        return TGantKey::Space;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return TGantKey::Enter;
    case Qt::Key_Escape:
        return TGantKey::Escape;
    case Qt::Key_Delete:
        return TGantKey::Delete;
    case Qt::Key_Plus:
        return TGantKey::Plus;
    case Qt::Key_Minus:
        return TGantKey::Minus;
    case Qt::Key_A:
        return TGantKey::A;
    default:
        return std::nullopt;
    }
}

/// The event loop cannot carry exceptions.
template <typename Call>
void Guarded(const Call &call)
{
    try {
        call();
    } catch (const std::exception &error) {
        Report(error.what());
    }
}

} // namespace

TGantAreaKeys::TGantAreaKeys(TzuGant_ComBasic &gant, TzuOffscreenPaint &area)
    : m_gant(gant)
    , m_area(area)
{
    area.OnKeyDown = [this](TzuOffscreenPaint *, int &key, TShiftState shift) {
        if (HandleKey(key, shift)) {
            key = 0;
        }
    };
    area.installEventFilter(this);
}

bool TGantAreaKeys::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        HandleFocusIn(*static_cast<QFocusEvent *>(event));
        break;
    case QEvent::MouseMove: {
        const auto &move = *static_cast<QMouseEvent *>(event);
        if (move.buttons() == Qt::NoButton && !m_gant.GestureRunning()) {
            const QPoint at = move.position().toPoint();
            m_gant.PointAt(at.x(), at.y());
        }
        break;
    }
    case QEvent::Leave:
        m_gant.PointAway();
        break;
    case QEvent::ToolTip:
        HandleHint(*static_cast<QHelpEvent *>(event));
        return true;
    case QEvent::ContextMenu:
        return HandleContextMenu(*static_cast<QContextMenuEvent *>(event));
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool TGantAreaKeys::HandleKey(int key, const TShiftState &shift)
{
    const std::optional<TGantKey> gantKey = KeyOf(key);
    bool used = false;
    if (gantKey) {
        Guarded([&] {
            used = true; // also when a handler throws
            used = m_gant.GantAreaKeyDown(*gantKey, shift);
        });
    }
    return used;
}

void TGantAreaKeys::HandleFocusIn(const QFocusEvent &event)
{
    const Qt::FocusReason reason = event.reason();
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) {
        return; // as it was
    }
    m_focusByKeyboard = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
                        || reason == Qt::ShortcutFocusReason;
    if (m_focusByKeyboard) {
        Guarded([this] { m_gant.EnsureActiveDataEntity(); });
    }
}

void TGantAreaKeys::HandleHint(const QHelpEvent &event)
{
    TAreaHint hint;
    if (!m_gant.GestureRunning()) {
        Guarded([&] { hint = m_gant.HintAt(event.pos().x(), event.pos().y()); });
    }
    if (hint.Text.empty()) {
        QToolTip::hideText();
    } else {
        QToolTip::showText(event.globalPos(), ToQt(hint.Text), &m_area,
                           ToQt(hint.Rect.Intersected(m_area.ClientArea())));
    }
}

bool TGantAreaKeys::HandleContextMenu(const QContextMenuEvent &event)
{
    if (event.reason() != QContextMenuEvent::Keyboard) {
        return false;
    }
    Guarded([this] {
        m_gant.EnsureActiveDataEntity();
        m_gant.MakeSureActiveInView();
        m_gant.UpdateRects();
    });
    const TzuDataEntity_Spanbar *active = m_gant.ActiveDataEntity();
    const auto rect =
        active != nullptr ? active->GetRow()->RectFromDataEntity(*active) : std::nullopt;
    if (!rect) {
        return false;
    }
    const QRect shown = ToQt(rect->Intersected(m_area.ClientArea()));
    const QPoint at = shown.isEmpty() ? m_area.rect().center() : shown.center();
    QContextMenuEvent moved(QContextMenuEvent::Other, at, m_area.mapToGlobal(at),
                            event.modifiers());
    QCoreApplication::sendEvent(&m_area, &moved);
    return true;
}

} // namespace korvane
