#include "ScheduleWindow.h"

#include "LoadProgress.h"
#include "RecentFiles.h"
#include "RemarksPanel.h"
#include "ScheduleDocument.h"
#include "ScheduleLoader.h"
#include "ScheduleView.h"
#include "agenda/AgendaDates.h"
#include "plan/PlanFile.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace korvane::planner {

namespace {

constexpr QSize kDefaultSize(1200, 800);
constexpr int kSavedTime = 8000; // milliseconds

QString NameOf(const QString &fileName)
{
    return QFileInfo(fileName).fileName();
}

AgendaSeconds Today()
{
    return QDateTime(QDate::currentDate(), QTime(0, 0), Qt::UTC).toSecsSinceEpoch();
}

} // namespace

ScheduleWindow::ScheduleWindow(QWidget *parent)
    : QMainWindow(parent)
    , m_loader(new ScheduleLoader(this))
    , m_view(new ScheduleView)
    , m_tabs(new QTabBar)
    , m_remarks(new RemarksPanel(this))
{
    setWindowTitle(tr("Planner"));
    auto *central = new QWidget;
    auto *layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_tabs->setExpanding(false);
    m_tabs->hide();
    m_view->hide();
    layout->addWidget(m_tabs);
    layout->addWidget(m_view, 1);
    setCentralWidget(central);
    addDockWidget(Qt::BottomDockWidgetArea, m_remarks);
    m_remarks->hide();
    m_view->SetStrip(true);
    MakeStatusBar();
    MakeMenus();
    resize(kDefaultSize);
    connect(m_loader, &ScheduleLoader::progressed, m_progress, &LoadProgress::SetProgress);
    connect(m_loader, &ScheduleLoader::finished, this,
            [this](const auto &result) { LoadEnded(std::move(*result)); });
    connect(m_progress, &LoadProgress::cancelRequested, this, &QWidget::close);
    connect(m_view, &ScheduleView::moved, this, &ScheduleWindow::Move);
    connect(m_view, &ScheduleView::copied, this, &ScheduleWindow::Copy);
    connect(m_view, &ScheduleView::removeWanted, this, &ScheduleWindow::Remove);
    connect(m_view, &ScheduleView::editWanted, this, &ScheduleWindow::Edit);
    connect(m_view, &ScheduleView::newWanted, this, &ScheduleWindow::New);
}

ScheduleWindow::~ScheduleWindow() = default;

// --- files ---------------------------------------------------------------------------------------

void ScheduleWindow::Open(const QString &fileName)
{
    m_fileName = QFileInfo(fileName).absoluteFilePath();
    setWindowTitle(tr("%1 – Planner").arg(NameOf(m_fileName)));
    m_progress->Begin(tr("Opening %1").arg(NameOf(m_fileName)));
    m_loader->Start(m_fileName);
}

void ScheduleWindow::LoadEnded(ScheduleResult result)
{
    m_progress->End();
    PlanError error;
    m_pages = PagesOf(std::move(result), m_fileName, error);
    if (m_pages == nullptr) {
        const QString name = NameOf(m_fileName);
        ShowError(tr("%1 cannot be opened.").arg(name), ErrorLine(name, error));
        connect(findChild<QMessageBox *>(), &QDialog::finished, this, &QWidget::close);
        return;
    }
    if (ScheduleDocument *document = m_pages->Document()) {
        m_view->SetEditable(true);
        connect(document, &ScheduleDocument::changed, this, [this, document] {
            ShowChange();
            if (m_view->SelectedBlocks().empty()) { // another title, or elsewhere
                m_view->SelectEvents(document->Touched());
            }
        });
        connect(&document->History(), &QUndoStack::cleanChanged, this,
                [this](bool clean) { setWindowModified(!clean); });
    }
    m_remarks->SetRemarks(m_pages->Remarks());
    m_remarksButton->setText(m_remarks->CountText());
    m_remarksButton->setVisible(!m_remarks->CountText().isEmpty());
    ShowCounts();
    MakeArrangements();
    MakeTabs();
    ShowTitle();
    m_view->show();
    for (QAction *action : m_print) {
        action->setEnabled(true);
    }
    GoTo(m_pages->FirstDay(Today()));
    m_view->SchemaArea().setFocus();
    RecentFiles::Add(m_fileName);
    Q_EMIT opened(m_fileName);
}

void ScheduleWindow::ShowTitle()
{
    const QString name = m_pages->Name().simplified();
    const QString file = NameOf(m_fileName);
    setWindowTitle(name.isEmpty() || name == QFileInfo(m_fileName).completeBaseName()
                       ? tr("%1[*] – Planner").arg(file)
                       : tr("%1 (%2)[*] – Planner").arg(name, file));
    setWindowFilePath(m_fileName);
}

void ScheduleWindow::Save()
{
    ScheduleDocument *document = m_pages != nullptr ? m_pages->Document() : nullptr;
    if (document == nullptr) {
        return;
    }
    if (!document->IsOutdated()) {
        SaveTo(document->FileName());
        return;
    }
    QMessageBox *box =
        NewQuestion(tr("%1 has been changed by another program.").arg(NameOf(m_fileName)),
                    tr("Saving overwrites what has been changed there."));
    QPushButton *overwrite = box->addButton(tr("&Overwrite"), QMessageBox::AcceptRole);
    box->addButton(QMessageBox::Cancel);
    connect(box, &QMessageBox::finished, this, [this, box, overwrite] {
        if (box->clickedButton() == overwrite) {
            SaveTo(m_fileName);
        } else {
            m_closeAfterSaving = false;
        }
    });
    box->open();
}

void ScheduleWindow::SaveTo(const QString &fileName)
{
    const bool closes = std::exchange(m_closeAfterSaving, false);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto error = m_pages->Document()->Save(fileName);
    QApplication::restoreOverrideCursor();
    if (error) {
        const QString name = NameOf(fileName);
        ShowError(tr("%1 cannot be saved.").arg(name), ErrorLine(name, {0, *error}));
        return;
    }
    m_fileName = fileName;
    ShowTitle();
    RecentFiles::Add(fileName);
    statusBar()->showMessage(tr("%1 has been saved.").arg(NameOf(fileName)), kSavedTime);
    if (closes) {
        close();
    }
}

void ScheduleWindow::ChooseSaveName()
{
    auto *dialog = new QFileDialog(this, tr("Save the calendar"), m_fileName,
                                   tr("Calendars (*.ics *.ics.gz)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("ics"));
    connect(dialog, &QFileDialog::fileSelected, this, &ScheduleWindow::SaveTo);
    dialog->open();
}

void ScheduleWindow::closeEvent(QCloseEvent *event)
{
    ScheduleDocument *document = m_pages != nullptr ? m_pages->Document() : nullptr;
    if (document == nullptr || !document->IsModified()) {
        event->accept();
        return;
    }
    event->ignore();
    QMessageBox *box = NewQuestion(tr("Save the changes of %1?").arg(NameOf(m_fileName)),
                                   tr("They are lost otherwise."));
    box->setStandardButtons(QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    connect(box, &QMessageBox::finished, this, [this](int answer) {
        if (answer == QMessageBox::Discard) {
            m_pages->Document()->History().setClean();
            close();
        } else if (answer == QMessageBox::Save) {
            m_closeAfterSaving = true;
            Save();
        }
    });
    box->open();
}

void ScheduleWindow::ShowError(const QString &text, const QString &details)
{
    auto *box = new QMessageBox(QMessageBox::Warning, tr("Planner"), text, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(details);
    box->open();
}

/// To be opened when it has its buttons.
QMessageBox *ScheduleWindow::NewQuestion(const QString &text, const QString &details)
{
    auto *box =
        new QMessageBox(QMessageBox::Question, tr("Planner"), text, QMessageBox::NoButton, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(details);
    return box;
}

// --- pages ---------------------------------------------------------------------------------------

/// The page anew, as the calendar has it.
void ScheduleWindow::ShowChange()
{
    SchedulePage page = m_pages->Page(m_arrangement, m_day);
    KeepColumns(page, m_view->Page());
    m_view->Update(std::move(page));
    ShowCounts();
}

void ScheduleWindow::ShowCounts()
{
    const QString zone = m_pages->ZoneName();
    m_counts->setText(m_pages->CountText()
                      + (zone.isEmpty() ? QString() : tr("   times of %1").arg(zone)));
}

/// Pages with tabs begin with the first day and end with the last.
AgendaSeconds ScheduleWindow::DayOfTab(int tab) const
{
    const AgendaSeconds first = m_pages->Step(0, m_day, -m_tabs->count());
    return m_pages->Step(0, first, tab);
}

/// What another arrangement goes on with: the day of the active block, or today where the page
/// shows it.
AgendaSeconds ScheduleWindow::DayInView() const
{
    if (const auto *active = m_view->GetActiveDataEntity()) {
        return DayOf(SecondsOfDate(active->GetStartDateTime())) * kSecondsPerDay;
    }
    const auto &columns = m_view->Page().Columns;
    const bool showsToday =
        std::ranges::find(columns, Today(), &ScheduleColumn::BaseDate) != columns.end();
    return showsToday ? Today() : m_day;
}

void ScheduleWindow::GoTo(AgendaSeconds day)
{
    m_day = day;
    SchedulePage page = m_pages->Page(m_arrangement, day);
    m_title->setText(page.Title);
    m_view->Show(std::move(page));
    for (int i = 0; i < m_tabs->count(); ++i) {
        if (DayOfTab(i) == day) {
            m_tabs->setCurrentIndex(i);
        }
    }
}

} // namespace korvane::planner
