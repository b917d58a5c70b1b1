// Menus and bars of the window of a calendar.
#include "LoadProgress.h"
#include "MainWindow.h"
#include "PrintActions.h"
#include "RecentFiles.h"
#include "RemarksPanel.h"
#include "ScheduleCommands.h"
#include "ScheduleDocument.h"
#include "SchedulePrint.h"
#include "ScheduleView.h"
#include "ScheduleWindow.h"
#include "UndoActions.h"

#include <QActionGroup>
#include <QCalendarWidget>
#include <QDateTime>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>
#include <QWidgetAction>

namespace korvane::planner {

namespace {

constexpr int kRemarksHeight = 130;
constexpr int kTitleMargin = 12;
constexpr double kZoomNotches = 2; ///< of the wheel, that one step zooms

AgendaSeconds SecondsOf(const QDate &date)
{
    return QDateTime(date, QTime(0, 0), Qt::UTC).toSecsSinceEpoch();
}

template <typename Window>
void OpenIn(const QString &fileName)
{
    auto *window = new Window;
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
    window->Open(fileName);
}

void OpenAnywhere(const QString &fileName)
{
    if (IsScheduleFile(fileName)) {
        OpenIn<ScheduleWindow>(fileName);
    } else {
        OpenIn<MainWindow>(fileName);
    }
}

} // namespace

void ScheduleWindow::MakeStatusBar()
{
    m_progress = new LoadProgress(this);
    m_counts = new QLabel(this);
    m_remarksButton = new QToolButton(this);
    m_remarksButton->setAutoRaise(true);
    connect(m_remarksButton, &QToolButton::clicked, this, [this] {
        m_remarks->setVisible(!m_remarks->isVisible());
        resizeDocks({m_remarks}, {kRemarksHeight}, Qt::Vertical);
    });
    statusBar()->addWidget(m_progress);
    m_progress->hide();
    statusBar()->addPermanentWidget(m_counts);
    statusBar()->addPermanentWidget(m_remarksButton);
    m_remarksButton->hide();
}

void ScheduleWindow::MakeMenus()
{
    QMenu &file = *menuBar()->addMenu(tr("&File"));
    file.addAction(tr("&Open..."), QKeySequence::Open, this, &ScheduleWindow::ChooseFile);
    auto *recent = new RecentFiles(*file.addMenu(tr("Open &recent")), this);
    connect(recent, &RecentFiles::chosen, this, &OpenAnywhere);
    file.addSeparator();
    m_save = file.addAction(tr("&Save"), QKeySequence::Save, this, &ScheduleWindow::Save);
    m_saveAs = file.addAction(tr("Save &as..."), QKeySequence(tr("Ctrl+Shift+S")), this,
                              &ScheduleWindow::ChooseSaveName);
    m_save->setEnabled(false);
    m_saveAs->setEnabled(false);
    file.addSeparator();
    const auto makeJob = [this]() -> std::unique_ptr<PrintJob> {
        return std::make_unique<SchedulePrint>(m_view->Page(), m_pages->Name(), m_fileName,
                                               m_view->SelectedOfAll());
    };
    m_print = (new PrintActions(makeJob, *this))->Actions();
    file.addActions(m_print);
    for (QAction *action : m_print) {
        action->setEnabled(false);
    }
    file.addSeparator();
    file.addAction(tr("&Close"), QKeySequence(tr("Ctrl+W")), this, &QWidget::close);
    m_editMenu = menuBar()->addMenu(tr("&Edit"));
    m_editMenu->menuAction()->setVisible(false);
    m_viewMenu = menuBar()->addMenu(tr("&View"));
    m_bar = addToolBar(tr("Pages"));
    m_bar->setMovable(false);
    m_title = new QLabel;
    m_title->setContentsMargins(kTitleMargin, 0, kTitleMargin, 0);
}

/// What depends on the file that was read.
void ScheduleWindow::MakeArrangements()
{
    if (ScheduleDocument *document = m_pages->Document()) {
        m_save->setEnabled(true);
        m_saveAs->setEnabled(true);
        m_editMenu->menuAction()->setVisible(true);
        const auto [undo, redo] = MakeUndoActions(document->History(), this);
        undo->setShortcut(QKeySequence::Undo);
        redo->setShortcuts({QKeySequence(tr("Ctrl+Shift+Z")), QKeySequence(tr("Ctrl+Y"))});
        m_editMenu->addActions({undo, redo});
        MakeEditActions();
    }
    MakePageActions(*m_viewMenu);
    auto *group = new QActionGroup(this);
    const QStringList arrangements = m_pages->Arrangements();
    for (int i = 0; i < static_cast<int>(arrangements.size()); ++i) {
        QAction *action = m_viewMenu->addAction(arrangements[i], this, [this, i] {
            const AgendaSeconds day = DayInView();
            m_arrangement = i;
            GoTo(day);
        });
        action->setShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + i)));
        action->setCheckable(true);
        action->setChecked(i == m_arrangement);
        group->addAction(action);
        m_bar->addAction(action);
    }
    const auto zoom = [this](double notches) {
        TzuDateScaler &axis = m_view->DateScaler();
        axis.ZoomAround(notches, axis.GetScaleLen() / 2);
    };
    m_viewMenu->addSeparator();
    m_viewMenu->addAction(tr("Zoom &in"), QKeySequence::ZoomIn, this,
                          [zoom] { zoom(kZoomNotches); });
    m_viewMenu->addAction(tr("Zoom &out"), QKeySequence::ZoomOut, this,
                          [zoom] { zoom(-kZoomNotches); });
    m_viewMenu->addAction(tr("&Whole page"), QKeySequence(tr("Ctrl+0")), this, [this] {
        m_view->ForgetSizes();
        GoTo(m_day);
    });
    m_bar->addSeparator();
    m_bar->addWidget(m_title);
}

void ScheduleWindow::MakePageActions(QMenu &menu)
{
    const auto add = [&](const QString &sign, const QString &text, const QKeySequence &keys,
                         auto handler) {
        QAction *action = menu.addAction(text, this, handler);
        action->setIconText(sign);
        action->setToolTip(
            QStringLiteral("%1 (%2)").arg(text, keys.toString(QKeySequence::NativeText)));
        action->setShortcut(keys);
        m_bar->addAction(action);
    };
    add(QStringLiteral("‹"), tr("Page before"), Qt::ALT | Qt::Key_PageUp,
        [this] { GoTo(m_pages->Step(m_arrangement, m_day, -1)); });
    add(QStringLiteral("›"), tr("Next page"), Qt::ALT | Qt::Key_PageDown,
        [this] { GoTo(m_pages->Step(m_arrangement, m_day, 1)); });
    if (m_pages->Tabs().isEmpty()) {
        add(tr("Today"), tr("Today"), Qt::CTRL | Qt::Key_T,
            [this] { GoTo(SecondsOf(QDate::currentDate())); });
        add(tr("Go to date…"), tr("Go to date…"), Qt::CTRL | Qt::Key_G, [this] { AskForDate(); });
        m_bar->addSeparator();
    }
    menu.addSeparator();
}

void ScheduleWindow::MakeTabs()
{
    const QStringList tabs = m_pages->Tabs();
    for (const QString &tab : tabs) {
        m_tabs->addTab(tab);
    }
    m_tabs->setVisible(!tabs.isEmpty());
    connect(m_tabs, &QTabBar::currentChanged, this, [this](int index) {
        if (const AgendaSeconds day = DayOfTab(index); day != m_day) {
            GoTo(day);
        }
    });
}

void ScheduleWindow::ChooseFile()
{
    auto *dialog = new QFileDialog(this, tr("Open"), QFileInfo(m_fileName).path(),
                                   ScheduleDialogFilter() + tr(";;All files (*)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, &OpenAnywhere);
    dialog->open();
}

void ScheduleWindow::AskForDate()
{
    QMenu menu;
    auto *calendar = new QCalendarWidget;
    calendar->setSelectedDate(QDateTime::fromSecsSinceEpoch(m_day, Qt::UTC).date());
    auto *item = new QWidgetAction(&menu);
    item->setDefaultWidget(calendar);
    menu.addAction(item);
    const auto choose = [&](const QDate &date) {
        menu.close();
        GoTo(SecondsOf(date));
    };
    connect(calendar, &QCalendarWidget::clicked, &menu, choose);
    connect(calendar, &QCalendarWidget::activated, &menu, choose);
    menu.exec(m_bar->mapToGlobal(QPoint(kTitleMargin, m_bar->height())));
}

} // namespace korvane::planner
