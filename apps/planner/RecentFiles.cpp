#include "RecentFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>

namespace korvane::planner {

namespace {

QString Key()
{
    return QStringLiteral("recentFiles");
}

} // namespace

RecentFiles::RecentFiles(QMenu &menu, QObject *parent)
    : QObject(parent)
    , m_menu(menu)
{
    connect(&menu, &QMenu::aboutToShow, this, &RecentFiles::FillMenu);
}

QStringList RecentFiles::Names()
{
    return QSettings().value(Key()).toStringList();
}

void RecentFiles::Add(const QString &fileName)
{
    QStringList names = Names();
    names.removeAll(fileName);
    names.prepend(fileName);
    QSettings().setValue(Key(), names.mid(0, kMost));
}

void RecentFiles::Remove(const QString &fileName)
{
    QStringList names = Names();
    if (names.removeAll(fileName) > 0) {
        QSettings().setValue(Key(), names);
    }
}

void RecentFiles::Clear()
{
    QSettings().remove(Key());
}

void RecentFiles::FillMenu()
{
    m_menu.clear();
    int number = 0;
    for (const QString &fileName : Names()) {
        const QString name = QDir::toNativeSeparators(fileName);
        const QString shown = QString(name).replace(u'&', QStringLiteral("&&"));
        const QString mnemonic = ++number < 10 ? QStringLiteral("&%1  ").arg(number) : QString();
        m_menu.addAction(mnemonic + shown, this, [this, fileName] { Q_EMIT chosen(fileName); });
    }
    if (number == 0) {
        m_menu.addAction(tr("No files yet"))->setEnabled(false);
        return;
    }
    m_menu.addSeparator();
    m_menu.addAction(tr("&Clear list"), this, &RecentFiles::Clear);
}

} // namespace korvane::planner
