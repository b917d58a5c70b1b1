// Which view of the plan is shown.
#pragma once

#include <QActionGroup>
#include <QObject>

class QMenu;
class QStackedWidget;

namespace korvane::planner {

class PlanChart;
class PlanDocument;
class PlanView;
class ResourceChart;

/// Switches between the tasks and the resources of a plan. Both views show the same time and the
/// same selection. The user's choice is remembered for plans; timetables and the like, whose rows
/// are resources, begin with these.
///
/// The chart of tasks knows the selection also while the resources are shown, so that commands ask
/// it alone.
class ViewSwitch : public QObject
{
    Q_OBJECT

public:
    /// All are observed and have to live as long; `pages` gets both charts.
    ViewSwitch(PlanDocument &document, PlanChart &tasks, ResourceChart &resources,
               QStackedWidget &pages);

    QList<QAction *> Actions() const { return m_actions.actions(); }
    PlanView &Shown() const { return *m_shown; }
    /// Brings one of the views to the front, for a plan that has come.
    void ShowPlan();
    void ShowTasks() { Show(m_taskAction); }
    void ShowResources() { Show(m_resourceAction); }

private:
    QAction *AddAction(const QString &text, const QString &shortcut);
    void Show(QAction *view);
    void TakeSelection(const PlanView &from);

    PlanDocument &m_document;
    PlanChart &m_tasks;
    ResourceChart &m_resources;
    QStackedWidget &m_pages;
    QActionGroup m_actions;
    QAction *m_taskAction;
    QAction *m_resourceAction;
    PlanView *m_shown;
    bool m_selecting = false;
};

} // namespace korvane::planner
