// The planner's window.
#pragma once

#include "foundation/zuTypes.h"
#include "plan/PlanReader.h"

#include <QDateTime>
#include <QMainWindow>
#include <QMessageBox>

#include <functional>
#include <memory>
#include <optional>

class QLabel;
class QStackedWidget;
class QToolButton;

namespace korvane::planner {

class Autosave;
class BackgroundSaver;
class LoadProgress;
class PlanChart;
class PlanDocument;
class PlanEdits;
class PlanLoader;
class RecentFiles;
class RemarksPanel;
class ResourceChart;
class ViewSwitch;

/// Shows one plan. Files are read in the background; the plan on show stays until another one is
/// complete, and when that is refused. Changes are not lost unasked: not by closing or opening,
/// and, as copies are written on the way, not when the program ends at once.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

    /// Starts to read a file, in place of the one that is being read; changes of the plan on show
    /// are asked about first.
    void Open(const QString &fileName);
    /// Opens the file of a copy that a planner left when it did not end properly, if there is one.
    void OpenLeftBehind();
    /// Saves into the plan's file; asks for a name where that cannot be.
    void Save();
    /// Saves into this file, which is the plan's when it is complete. Meanwhile the plan can be
    /// edited; a window that is closed goes when the plan is saved.
    void SaveTo(const QString &fileName);
    Autosave &Copies() { return *m_autosave; }
    PlanDocument &Document() { return *m_document; }
    PlanEdits &Edits() { return *m_edits; }
    PlanChart &Chart() { return *m_chart; }
    ResourceChart &Resources() { return *m_resources; }
    ViewSwitch &Views() { return *m_views; }
    PlanLoader &Loader() { return *m_loader; }
    BackgroundSaver &Saver() { return *m_saver; }

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void OpenSchedule(const QString &fileName);
    // Menus, MainWindowMenus.cpp.
    void MakeMenus();
    void MakeFileMenu();
    void MakeEditMenu();
    void MakeViewMenu();
    void MakeHelpMenu();
    /// Adds an action that runs a method of the window or a lambda.
    template <typename Function>
    QAction *AddAction(QMenu &menu, const QString &text, const QList<QKeySequence> &shortcuts,
                       Function function);
    /// Adds an action for something that is shown or not, which the settings remember.
    template <typename Function>
    QAction *AddToggle(QMenu &menu, const QString &text, const QString &key, bool initially,
                       Function setShown);
    void ChooseFile();
    void ChoosePicture();
    void ShowShortcuts();
    void ShowAbout();

    void MakeStatusBar();
    // Files, MainWindowFiles.cpp.
    struct FileState
    {
        qint64 Size = 0;
        QDateTime Time;

        friend bool operator==(const FileState &, const FileState &) = default;
    };
    static FileState StateOf(const QString &fileName);
    QMessageBox *OpenQuestion(const QString &text, const QString &details,
                              QMessageBox::StandardButtons buttons);
    void WhenSaved(std::function<void()> goOn);
    void OfferRecovery();
    void ChooseSaveName();
    void LoadEnded(const QString &fileName, PlanResult &result);
    void CancelLoad();
    void BeginLoad(const QString &fileName, const QString &shownName);
    void SaveEnded(const QString &fileName, const std::optional<QString> &error);

    void ShowPlan();
    void ShowTitle();
    void ShowError(const QString &text, const QString &details);
    void ShowInstant(TDateTime instant);
    void ShowCounts(const Plan &plan);
    void SavePictureTo(const QString &fileName);
    void RestoreLayout();

    QStackedWidget *m_pages;
    PlanDocument *m_document;
    PlanChart *m_chart;
    ResourceChart *m_resources;
    ViewSwitch *m_views;
    PlanEdits *m_edits;
    Autosave *m_autosave;
    PlanLoader *m_loader;
    BackgroundSaver *m_saver;
    RemarksPanel *m_remarks;
    LoadProgress *m_progress = nullptr;
    LoadProgress *m_saveProgress = nullptr;
    QLabel *m_instant = nullptr;
    QLabel *m_counts = nullptr;
    QToolButton *m_remarksButton = nullptr;
    FileState m_fileState;            ///< of the plan's file, when it was read or saved
    FileState m_loadedState;          ///< of the file that is being read
    QString m_recoveredName;          ///< file of the copy that is being read; empty for others
    int m_savedRevision = 0;          ///< of the plan that is being saved
    std::function<void()> m_nextSave; ///< wanted while the plan is being saved
    std::function<void()> m_afterSaving;
    QList<QAction *> m_planActions; ///< enabled while a plan is shown
};

} // namespace korvane::planner
