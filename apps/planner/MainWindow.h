// The planner's window.
#pragma once

#include "foundation/zuTypes.h"
#include "plan/PlanReader.h"

#include <QMainWindow>

#include <memory>

class QLabel;
class QStackedWidget;
class QToolButton;

namespace korvane::planner {

class LoadProgress;
class PlanChart;
class PlanDocument;
class PlanEdits;
class PlanLoader;
class RecentFiles;
class RemarksPanel;

/// Shows one plan. Files are read in the background; the plan on show stays until another one is
/// complete, and when that is refused.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

    /// Starts to read a file, in place of the one that is being read.
    void Open(const QString &fileName);
    PlanDocument &Document() { return *m_document; }
    PlanEdits &Edits() { return *m_edits; }
    PlanChart &Chart() { return *m_chart; }
    PlanLoader &Loader() { return *m_loader; }

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
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
    void ChooseFile();
    void ChoosePicture();
    void ShowShortcuts();
    void ShowAbout();

    void MakeStatusBar();
    void LoadEnded(const QString &fileName, PlanResult &result);
    void CancelLoad();
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
    PlanEdits *m_edits;
    PlanLoader *m_loader;
    RemarksPanel *m_remarks;
    LoadProgress *m_progress = nullptr;
    QLabel *m_instant = nullptr;
    QLabel *m_counts = nullptr;
    QToolButton *m_remarksButton = nullptr;
    QList<QAction *> m_planActions; ///< enabled while a plan is shown
};

} // namespace korvane::planner
