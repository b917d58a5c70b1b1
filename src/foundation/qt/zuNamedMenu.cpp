#include "foundation/qt/zuNamedMenu.h"

#include <QAction>

namespace korvane {

void TNamedMenu::SetMenu(QMenu *menu)
{
    m_menu = menu;
    m_names.clear();
}

void TNamedMenu::SetNames(const QByteArray &names)
{
    m_names = names.simplified();
    if (!m_names.isEmpty()) {
        m_menu.clear();
    }
}

QMenu *TNamedMenu::Menu(const QWidget &component) const
{
    if (m_names.isEmpty()) {
        return m_menu;
    }
    const QWidget *window = component.window();
    if (auto *menu = window->findChild<QMenu *>(QString::fromUtf8(m_names))) {
        return menu;
    }
    m_ofActions = std::make_unique<QMenu>();
    for (const QByteArray &name : m_names.split(' ')) {
        if (name == "-") {
            m_ofActions->addSeparator();
        } else if (auto *action = window->findChild<QAction *>(QString::fromUtf8(name))) {
            m_ofActions->addAction(action);
        }
    }
    return m_ofActions->isEmpty() ? nullptr : m_ofActions.get();
}

} // namespace korvane
