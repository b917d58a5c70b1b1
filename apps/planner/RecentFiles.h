// The files that were opened lately, kept from one run to the next.
#pragma once

#include <QObject>
#include <QStringList>

class QMenu;

namespace korvane::planner {

/// Keeps the list in the application's settings and shows it as a menu.
class RecentFiles : public QObject
{
    Q_OBJECT

public:
    static constexpr int kMost = 10;

    /// Fills the menu whenever it is about to be shown. It is observed and outlives this object.
    explicit RecentFiles(QMenu &menu, QObject *parent = nullptr);

    /// Most recent first.
    static QStringList Names();
    /// Puts a file first.
    static void Add(const QString &fileName);
    static void Remove(const QString &fileName);
    static void Clear();

Q_SIGNALS:
    void chosen(const QString &fileName);

private:
    void FillMenu();

    QMenu &m_menu;
};

} // namespace korvane::planner
