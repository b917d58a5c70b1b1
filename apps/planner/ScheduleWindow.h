// The window of a calendar or a conference programme.
#pragma once

#include "SchedulePages.h"

#include <QList>
#include <QMainWindow>

#include <functional>
#include <memory>
#include <optional>

class QAction;
class QLabel;
class QMenu;
class QMessageBox;
class QTabBar;
class QToolBar;
class QToolButton;

namespace korvane::planner {

class LoadProgress;
class RemarksPanel;
class ScheduleLoader;
class ScheduleView;

/// Shows one calendar or programme. The file is read in the background. What the user moves in a
/// calendar is one step each that can be undone; of a repeated event he is asked which ones he
/// means. Changes are not lost unasked.
class ScheduleWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit ScheduleWindow(QWidget *parent = nullptr);
    ~ScheduleWindow() override;

    /// Starts to read the file; once. A file that cannot be used is reported, and the window closes
    /// after that.
    void Open(const QString &fileName);
    /// Null until the file is read.
    ISchedulePages *Pages() const { return m_pages.get(); }
    ScheduleView &View() { return *m_view; }
    void Save();
    void SaveTo(const QString &fileName);

Q_SIGNALS:
    /// The file is read and shown.
    void opened(const QString &fileName);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    // Menus and bars, ScheduleWindowMenus.cpp.
    void MakeStatusBar();
    void MakeMenus();
    void MakePageActions(QMenu &menu);
    void MakeArrangements();
    void MakeTabs();
    void ChooseFile();
    void AskForDate();

    void LoadEnded(ScheduleResult result);
    void ShowTitle();
    AgendaSeconds DayOfTab(int tab) const;
    AgendaSeconds DayInView() const;
    void GoTo(AgendaSeconds day);
    void ShowChange();
    void ShowCounts();
    // What the user does to events, ScheduleWindowEdits.cpp.
    void MakeEditActions();
    void Move(const std::vector<ScheduleMove> &moves);
    void Copy(const std::vector<ScheduleMove> &moves);
    void Remove(const std::vector<int> &blocks);
    void Edit(int block);
    void New(int column, const AgendaRange &times);
    void NewByKey();
    void Duplicate();
    void CopyToClipboard();
    void Paste();
    void AskForScope(const std::vector<AgendaScope> &scopes, const QString &title,
                     std::function<void(std::optional<AgendaScope>)> go);
    /// With the page as it is now, when the user has said what is meant; shows what comes of it, or
    /// why nothing does.
    using Change = std::function<std::optional<QString>(const SchedulePage &, AgendaScope)>;
    void Apply(const std::vector<AgendaScope> &scopes, int block, const Change &change);
    void Perform(const Change &change, AgendaScope scope);
    int NewCalendar() const;
    void ChooseSaveName();
    void ShowError(const QString &text, const QString &details);
    QMessageBox *NewQuestion(const QString &text, const QString &details);

    std::unique_ptr<ISchedulePages> m_pages;
    ScheduleLoader *m_loader;
    QString m_fileName;
    ScheduleView *m_view = nullptr;
    QToolBar *m_bar = nullptr;
    QLabel *m_title = nullptr;
    QTabBar *m_tabs = nullptr;
    RemarksPanel *m_remarks = nullptr;
    LoadProgress *m_progress = nullptr;
    QLabel *m_counts = nullptr;
    QToolButton *m_remarksButton = nullptr;
    QMenu *m_editMenu = nullptr;
    QMenu *m_viewMenu = nullptr;
    QAction *m_save = nullptr;
    QAction *m_saveAs = nullptr;
    QList<QAction *> m_print;
    int m_arrangement = 0;
    AgendaSeconds m_day = 0;
    bool m_closeAfterSaving = false;
};

} // namespace korvane::planner
