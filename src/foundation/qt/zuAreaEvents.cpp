#include "foundation/qt/zuAreaEvents.h"

#include <QFocusEvent>
#include <QMouseEvent>
#include <QWidget>

namespace korvane {

bool TakesMouseAway(const QEvent &event, const QWidget &area)
{
    switch (event.type()) {
    case QEvent::MouseMove:
        return !static_cast<const QMouseEvent &>(event).buttons().testFlag(Qt::LeftButton);
    case QEvent::FocusOut:
        return static_cast<const QFocusEvent &>(event).reason() == Qt::PopupFocusReason;
    case QEvent::EnabledChange:
        return !area.isEnabled();
    case QEvent::Hide:
    case QEvent::WindowDeactivate:
        return true;
    default:
        return false;
    }
}

} // namespace korvane
