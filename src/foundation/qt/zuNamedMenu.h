// Context menus as forms store them: by name.
#pragma once

#include "foundation/zuExport.h"

#include <QByteArray>
#include <QMenu>
#include <QPointer>

#include <memory>

namespace korvane {

/// A context menu that the application gives, or that a form refers to by the name of a menu in the
/// component's window, or of actions in it: one or several, "-" between them for a line.
///
/// Names are looked up whenever the menu is asked for, so what they mean may be created later than
/// the component, and go earlier. What is not found is left out.
class KORVANE_WIDGETS_API TNamedMenu
{
public:
    /// Observed. Takes the place of names.
    void SetMenu(QMenu *menu);
    /// Take the place of a menu, unless they are empty.
    void SetNames(const QByteArray &names);
    /// As set, without needless spaces; empty while there is a menu.
    const QByteArray &Names() const { return m_names; }

    /// Whether a menu or names are set.
    bool IsSet() const { return !m_menu.isNull() || !m_names.isEmpty(); }
    /// The menu to show for a component, or null. One of actions is made anew by every call.
    QMenu *Menu(const QWidget &component) const;

private:
    QPointer<QMenu> m_menu;
    QByteArray m_names;
    mutable std::unique_ptr<QMenu> m_ofActions;
};

} // namespace korvane
