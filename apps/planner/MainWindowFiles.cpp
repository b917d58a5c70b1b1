// Opening and saving in the planner's window.
#include "Autosave.h"
#include "BackgroundSaver.h"
#include "LoadProgress.h"
#include "MainWindow.h"
#include "PlanChart.h"
#include "PlanDocument.h"
#include "PlanLoader.h"
#include "RecentFiles.h"
#include "ScheduleCommands.h"
#include "ScheduleWindow.h"
#include "plan/PlanFile.h"
#include "plan/PlanSaver.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>

namespace korvane::planner {

namespace {

QString NameOf(const QString &fileName)
{
    return QFileInfo(fileName).fileName();
}

} // namespace

/// Size and time of a file, which tell whether somebody else has written it.
MainWindow::FileState MainWindow::StateOf(const QString &fileName)
{
    const QFileInfo info(fileName);
    return {info.size(), info.lastModified()};
}

QMessageBox *MainWindow::OpenQuestion(const QString &text, const QString &details,
                                      QMessageBox::StandardButtons buttons)
{
    auto *box = new QMessageBox(QMessageBox::Question, tr("Planner"), text, buttons, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(details);
    box->open();
    return box;
}

void MainWindow::Open(const QString &fileName)
{
    if (IsScheduleFile(fileName)) {
        OpenSchedule(fileName);
        return;
    }
    WhenSaved([this, fileName] {
        const QString path = QFileInfo(fileName).absoluteFilePath();
        m_loadedState = StateOf(path);
        m_recoveredName.clear();
        BeginLoad(path, path);
    });
}

/// Calendars and programmes have windows of their own.
void MainWindow::OpenSchedule(const QString &fileName)
{
    auto *window = new ScheduleWindow;
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
    window->Open(fileName);
}

void MainWindow::OpenLeftBehind()
{
    const QString fileName = Autosave::LeftBehind();
    if (!fileName.isEmpty()) {
        Open(fileName);
    }
}

void MainWindow::BeginLoad(const QString &fileName, const QString &shownName)
{
    m_progress->Begin(tr("Opening %1").arg(NameOf(shownName)));
    m_loader->Start(fileName);
}

void MainWindow::CancelLoad()
{
    m_loader->Cancel();
    m_progress->End();
}

void MainWindow::LoadEnded(const QString &fileName, PlanResult &result)
{
    m_progress->End();
    m_saver->Wait(); // for the plan that is to be replaced
    const QString recovered = std::exchange(m_recoveredName, {});
    if (result.Status != PlanStatus::Loaded) {
        const QString name = NameOf(fileName);
        if (recovered.isEmpty()) {
            RecentFiles::Remove(fileName);
        }
        ShowError(tr("%1 cannot be opened.").arg(name), ErrorLine(name, result.Error));
    } else if (!recovered.isEmpty()) {
        m_document->SetPlan(std::move(result.Value), recovered, std::move(result.Source));
        m_document->SetModified();
    } else {
        m_fileState = m_loadedState;
        m_document->SetPlan(std::move(result.Value), fileName, std::move(result.Source));
        RecentFiles::Add(fileName);
        OfferRecovery();
    }
}

void MainWindow::OfferRecovery()
{
    const auto time = m_autosave->Recoverable();
    if (!time) {
        return;
    }
    auto *box = OpenQuestion(
        tr("There are changes of %1 that were not saved.").arg(NameOf(m_document->FileName())),
        tr("The planner ended without saving; a copy of %1 has been kept. Recover it?")
            .arg(QLocale().toString(*time, QLocale::ShortFormat)),
        QMessageBox::Yes | QMessageBox::No);
    box->button(QMessageBox::Yes)->setText(tr("&Recover"));
    box->button(QMessageBox::No)->setText(tr("&Discard the copy"));
    connect(box, &QMessageBox::finished, this, [this](int answer) {
        if (answer == QMessageBox::Yes) {
            m_recoveredName = m_document->FileName();
            BeginLoad(Autosave::CopyOf(m_recoveredName), m_recoveredName);
        } else {
            m_autosave->Discard();
        }
    });
}

/// Goes on when nothing is lost by it: at once, when the plan has been saved, or when its changes
/// are not wanted. Changes that are made while the plan is being saved are asked about afterwards.
/// Not while something is being typed that the plan refuses.
void MainWindow::WhenSaved(std::function<void()> goOn)
{
    if (!m_chart->CommitEdit()) {
        return;
    }
    const auto again = [this, goOn] { WhenSaved(goOn); };
    if (m_saver->IsSaving()) {
        m_afterSaving = again;
        return;
    }
    if (!m_document->IsModified()) {
        goOn();
        return;
    }
    auto *box = OpenQuestion(tr("Save the changes of %1?").arg(NameOf(m_document->FileName())),
                             tr("They are lost otherwise."),
                             QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    connect(box, &QMessageBox::finished, this, [this, goOn, again](int answer) {
        if (answer == QMessageBox::Discard) {
            m_document->History().setClean();
            goOn();
        } else if (answer == QMessageBox::Save) {
            m_afterSaving = again;
            Save();
        }
    });
}

/// Plans of formats that are not written, and the sample, are saved under another name.
void MainWindow::Save()
{
    if (!m_chart->CommitEdit()) {
        m_afterSaving = {};
        return;
    }
    if (m_saver->IsSaving()) {
        m_nextSave = [this] { Save(); };
        return;
    }
    const QString fileName = m_document->FileName();
    const bool isProjectXml = m_document->Source() != nullptr
                              || fileName.endsWith(u".xml", Qt::CaseInsensitive)
                              || fileName.endsWith(u".xml.gz", Qt::CaseInsensitive);
    if (fileName.isEmpty() || fileName.startsWith(u':') || !isProjectXml) {
        ChooseSaveName();
    } else if (!m_autosave->HoldsLock()) {
        m_afterSaving = {};
        ShowError(tr("%1 is open in another planner.").arg(NameOf(fileName)),
                  tr("Save the plan under another name, or close it there first."));
    } else if (QFileInfo::exists(fileName) && StateOf(fileName) != m_fileState) {
        auto *box =
            OpenQuestion(tr("%1 has been changed by another program.").arg(NameOf(fileName)),
                         tr("Saving overwrites what has been changed there."),
                         QMessageBox::Save | QMessageBox::Cancel);
        box->button(QMessageBox::Save)->setText(tr("&Overwrite"));
        connect(box, &QMessageBox::finished, this, [this, fileName](int answer) {
            if (answer == QMessageBox::Save) {
                SaveTo(fileName);
            } else {
                m_afterSaving = {};
            }
        });
    } else {
        SaveTo(fileName);
    }
}

void MainWindow::ChooseSaveName()
{
    if (!m_chart->CommitEdit()) {
        return;
    }
    const QFileInfo info(m_document->FileName());
    const QString folder = info.filePath().startsWith(u':') ? QString() : info.path() + u'/';
    auto *dialog = new QFileDialog(this, tr("Save the plan"),
                                   folder + info.completeBaseName() + QStringLiteral(".xml"),
                                   tr("Project XML (*.xml *.xml.gz)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("xml"));
    connect(dialog, &QFileDialog::fileSelected, this, &MainWindow::SaveTo);
    connect(dialog, &QDialog::rejected, this, [this] { m_afterSaving = {}; });
    dialog->open();
}

void MainWindow::SaveTo(const QString &fileName)
{
    const QString path = QFileInfo(fileName).absoluteFilePath();
    if (m_saver->IsSaving()) {
        m_nextSave = [this, path] { SaveTo(path); };
        return;
    }
    m_savedRevision = m_document->Revision();
    m_saveProgress->Begin(tr("Saving %1").arg(NameOf(path)));
    m_saver->Start(m_document->GetPlan(), m_document->Source(), path);
}

void MainWindow::SaveEnded(const QString &fileName, const std::optional<QString> &error)
{
    m_saveProgress->End();
    if (error) {
        m_afterSaving = {};
        m_nextSave = {};
        const QString name = NameOf(fileName);
        ShowError(tr("%1 cannot be saved.").arg(name), ErrorLine(name, {0, *error}));
        return;
    }
    m_fileState = StateOf(fileName);
    m_document->SetSaved(fileName, m_savedRevision);
    RecentFiles::Add(fileName);
    if (const auto next = std::exchange(m_nextSave, {})) {
        next();
    } else if (const auto goOn = std::exchange(m_afterSaving, {})) {
        goOn();
    }
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (!m_chart->CommitEdit()) {
        event->ignore();
        return;
    }
    CancelLoad();
    if (m_document->IsModified() || m_saver->IsSaving()) {
        event->ignore();
        WhenSaved([this] { close(); });
        return;
    }
    QSettings().setValue(QStringLiteral("geometry"), saveGeometry());
    event->accept();
}

} // namespace korvane::planner
