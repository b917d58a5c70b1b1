#include "foundation/qt/zuAccessibleArea.h"

namespace korvane {

// --- parts ---------------------------------------------------------------------------------------

QWindow *TAccessiblePart::window() const
{
    return Area().window()->windowHandle();
}

QAccessible::State TAccessiblePart::state() const
{
    QAccessible::State state;
    state.invalid = !isValid();
    state.invisible = isValid() && !IsShown();
    state.offscreen = isValid() && IsOffscreen();
    state.readOnly = true;
    return state;
}

QWidget &TAccessiblePart::Area() const
{
    return m_area.Area();
}

QRect TAccessiblePart::ToScreen(const QRect &rect) const
{
    return {Area().mapToGlobal(rect.topLeft()), rect.size()};
}

bool TAccessiblePart::IsOffscreen() const
{
    return !rect().intersects(ToScreen(Area().rect()));
}

// --- items ---------------------------------------------------------------------------------------

QAccessible::State TAccessibleItem::state() const
{
    QAccessible::State state = TAccessiblePart::state();
    if (!isValid()) {
        return state;
    }
    state.selectable = true;
    state.multiSelectable = true;
    state.focusable = true;
    state.selected = IsSelected();
    state.active = IsActive();
    state.focused = state.active && Area().hasFocus();
    state.readOnly = !CanEdit();
    return state;
}

void *TAccessibleItem::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this)
                                                : nullptr;
}

QStringList TAccessibleItem::actionNames() const
{
    return {pressAction(), toggleAction(), setFocusAction()};
}

void TAccessibleItem::doAction(const QString &name)
{
    if (!isValid()) {
        return;
    }
    if (name == toggleAction()) {
        SetSelected(!IsSelected());
        return;
    }
    Area().setFocus(Qt::OtherFocusReason);
    if (isValid()) { // unless a handler has removed it
        Activate();
    }
    if (isValid() && name == pressAction()) {
        Edit();
    }
}

// --- the area ------------------------------------------------------------------------------------

TAccessibleArea::~TAccessibleArea()
{
    for (const auto &[shown, id] : m_parts) {
        QAccessible::deleteAccessibleInterface(id);
    }
    DeleteDoomed();
}

void TAccessibleArea::Forget(const void *shown)
{
    const auto place = m_parts.find(shown);
    if (place == m_parts.end()) {
        return;
    }
    static_cast<TAccessiblePart *>(QAccessible::accessibleInterface(place->second))->Invalidate();
    if (m_doomed.empty()) {
        QMetaObject::invokeMethod(
            this, [this] { DeleteDoomed(); }, Qt::QueuedConnection);
    }
    m_doomed.push_back(place->second);
    m_parts.erase(place);
}

void TAccessibleArea::DeleteDoomed()
{
    for (const QAccessible::Id id : std::exchange(m_doomed, {})) {
        QAccessible::deleteAccessibleInterface(id);
    }
}

void TellFocus(QAccessibleInterface *part)
{
    QAccessibleEvent event(part, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

void TellSelectionWithin(QWidget &area)
{
    if (QAccessible::isActive()) {
        QAccessibleEvent event(&area, QAccessible::SelectionWithin);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace korvane
