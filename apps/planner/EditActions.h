// The commands that edit a plan, as actions for menus and keys.
#pragma once

#include <QKeySequence>
#include <QList>
#include <QObject>

class QAction;
class QMenu;
class QPoint;

namespace korvane::planner {

class PlanChart;
class PlanDocument;
class PlanEdits;
class PlanView;

/// Fills a menu with the actions, and opens a part of it as the context menu of the chart's area
/// and tree. An action is enabled while there is something that it could be done to.
class EditActions : public QObject
{
    Q_OBJECT

public:
    /// All are observed, and have to live as long.
    EditActions(QMenu &menu, PlanDocument &document, PlanEdits &edits, PlanChart &chart);

    /// Opens the context menu of another view as well, and serves its keys and double clicks.
    void ServeView(PlanView &view);

Q_SIGNALS:
    /// What to do next, for the user.
    void hinted(const QString &text);

private:
    /// What must be selected for an action.
    enum class Needs : std::uint8_t { Plan, Task, Tasks, OneTask, TaskOrLink };

    template <typename Function>
    QAction *Add(const QString &text, const QKeySequence &shortcut, Needs needs, Function function);
    void AddOutline();
    void AddLinks();
    void AddDates();
    void OpenContextMenu(const QPoint &globalPoint);
    void UpdateEnabled();
    void InsertTask();
    void EditName();
    void Delete();
    void Nudge(int direction);
    void ShowDetails(int task);
    void EditLink();
    void ShowLink(int link);

    QMenu &m_menu;
    PlanDocument &m_document;
    PlanEdits &m_edits;
    PlanChart &m_chart;
    QList<std::pair<QAction *, Needs>> m_actions;
    QList<QAction *> m_contextActions; ///< null for a separator
    QMenu *m_contextMenu;
    bool m_updating = false;
};

} // namespace korvane::planner
