#include "ViewSwitch.h"

#include "PlanChart.h"
#include "PlanDocument.h"
#include "ResourceChart.h"

#include <QAction>
#include <QScopedValueRollback>
#include <QSettings>
#include <QStackedWidget>

namespace korvane::planner {

namespace {

constexpr auto kSetting = "view";
constexpr auto kResources = "resources";

} // namespace

ViewSwitch::ViewSwitch(PlanDocument &document, PlanChart &tasks, ResourceChart &resources,
                       QStackedWidget &pages)
    : QObject(&pages)
    , m_document(document)
    , m_tasks(tasks)
    , m_resources(resources)
    , m_pages(pages)
    , m_actions(this)
    , m_taskAction(AddAction(tr("&Tasks"), tr("Ctrl+1")))
    , m_resourceAction(AddAction(tr("&Resources"), tr("Ctrl+2")))
    , m_shown(&tasks)
{
    pages.addWidget(&tasks);
    pages.addWidget(&resources);
    m_taskAction->setChecked(true);
    connect(&m_actions, &QActionGroup::triggered, this, [this](QAction *view) {
        if (m_document.GetPlan().Kind == PlanKind::Tasks) {
            QSettings().setValue(kSetting, view == m_resourceAction ? kResources : "tasks");
        }
        Show(view);
    });
    connect(&resources, &PlanView::selectionChanged, this, [this] { TakeSelection(m_resources); });
    connect(&tasks, &PlanView::selectionChanged, this, [this] { TakeSelection(m_tasks); });
}

QAction *ViewSwitch::AddAction(const QString &text, const QString &shortcut)
{
    QAction *action = m_actions.addAction(text);
    action->setCheckable(true);
    action->setShortcut(shortcut);
    return action;
}

void ViewSwitch::ShowPlan()
{
    const bool byResource = m_document.GetPlan().Kind == PlanKind::Intervals
                            || QSettings().value(kSetting).toString() == QLatin1String(kResources);
    Show(byResource ? m_resourceAction : m_taskAction);
    Shown().FitPlan();
}

void ViewSwitch::Show(QAction *view)
{
    PlanView &former = *m_shown;
    view->setChecked(true);
    m_shown = view == m_resourceAction ? static_cast<PlanView *>(&m_resources) : &m_tasks;
    PlanView &shown = *m_shown;
    if (&shown != &former) {
        shown.DateScaler().SetRange(former.Start(), former.Stop());
    }
    if (m_pages.currentWidget() != &shown) {
        m_pages.setCurrentWidget(&shown);
        shown.setFocus();
        TakeSelection(m_tasks);
        if (&shown == &m_tasks) {
            m_tasks.SelectTasks(m_tasks.SelectedTasks()); // brings it into view
        }
    }
}

void ViewSwitch::TakeSelection(const PlanView &from)
{
    if (m_selecting || &Shown() == &m_tasks) {
        return;
    }
    const QScopedValueRollback selecting(m_selecting, true);
    if (&from == &m_resources) {
        m_tasks.SelectTasks(m_resources.SelectedTasks());
    } else {
        m_resources.SelectTasks(m_tasks.SelectedTasks());
    }
}

} // namespace korvane::planner
