#include "EditActions.h"

#include "LinkDialog.h"
#include "PlanChart.h"
#include "PlanDocument.h"
#include "PlanEdits.h"
#include "PlanTree.h"
#include "TaskDialog.h"
#include "UndoActions.h"

#include <QAction>
#include <QMenu>
#include <QTimer>

namespace korvane::planner {

EditActions::EditActions(QMenu &menu, PlanDocument &document, PlanEdits &edits, PlanChart &chart)
    : QObject(&menu)
    , m_menu(menu)
    , m_document(document)
    , m_edits(edits)
    , m_chart(chart)
    , m_contextMenu(new QMenu(&menu))
{
    const auto [undo, redo] = MakeUndoActions(document.History(), this);
    undo->setShortcut(QKeySequence(tr("Ctrl+Z")));
    redo->setShortcuts({QKeySequence(tr("Ctrl+Shift+Z")), QKeySequence(tr("Ctrl+Y"))});
    // What the actions are called apart from the step that they name.
    undo->setWhatsThis(tr("Undo"));
    redo->setWhatsThis(tr("Redo"));
    menu.addActions({undo, redo});
    menu.addSeparator();
    AddOutline();
    menu.addSeparator();
    AddLinks();
    menu.addSeparator();
    AddDates();
    for (QAction *action : m_contextActions) {
        if (action == nullptr) {
            m_contextMenu->addSeparator();
        } else {
            m_contextMenu->addAction(action);
        }
    }
    ServeView(chart);
    connect(&chart, &PlanChart::selectionChanged, this, &EditActions::UpdateEnabled);
    connect(&chart, &PlanChart::tableMenuWanted, this, &EditActions::OpenContextMenu);
    connect(&chart, &PlanChart::linkActivated, this, &EditActions::ShowLink);
    connect(&document, &PlanDocument::replaced, this, &EditActions::UpdateEnabled);
    connect(&document, &PlanDocument::changed, this, &EditActions::UpdateEnabled);
    UpdateEnabled();
}

void EditActions::ServeView(PlanView &view)
{
    const auto openOn = [this](QWidget &widget, const QWidget &origin) {
        widget.setContextMenuPolicy(Qt::CustomContextMenu);
        connect(&widget, &QWidget::customContextMenuRequested, this,
                [this, &origin](QPoint point) { OpenContextMenu(origin.mapToGlobal(point)); });
    };
    openOn(view.GantArea(), view.GantArea());
    openOn(view.Tree(), *view.Tree().viewport());
    connect(&view, &PlanView::taskActivated, this, &EditActions::ShowDetails);
    // Not within the handler of the key: what it is about goes.
    connect(&view, &PlanView::deleteWanted, this, &EditActions::Delete, Qt::QueuedConnection);
}

template <typename Function>
QAction *EditActions::Add(const QString &text, const QKeySequence &shortcut, Needs needs,
                          Function function)
{
    QAction *action = m_menu.addAction(text);
    action->setShortcut(shortcut);
    connect(action, &QAction::triggered, this, function);
    m_actions.emplace_back(action, needs);
    return action;
}

void EditActions::AddOutline()
{
    QAction *add =
        Add(tr("&New task"), QKeySequence(Qt::Key_Insert), Needs::Plan, [this] { InsertTask(); });
    QAction *rename =
        Add(tr("Rena&me"), QKeySequence(Qt::Key_F2), Needs::OneTask, [this] { EditName(); });
    QAction *remove =
        Add(tr("&Delete"), QKeySequence(Qt::Key_Delete), Needs::TaskOrLink, [this] { Delete(); });
    Add(tr("Select &all"), QKeySequence(QKeySequence::SelectAll), Needs::Plan,
        [this] { m_chart.SelectAll(); });
    m_menu.addSeparator();
    QAction *indent = Add(tr("&Indent"), QKeySequence(tr("Alt+Shift+Right")), Needs::Task,
                          [this] { m_edits.Indent(m_chart.SelectedTasks()); });
    QAction *outdent = Add(tr("&Outdent"), QKeySequence(tr("Alt+Shift+Left")), Needs::Task,
                           [this] { m_edits.Outdent(m_chart.SelectedTasks()); });
    QAction *up = Add(tr("Mo&ve up"), QKeySequence(tr("Alt+Shift+Up")), Needs::Task,
                      [this] { m_edits.MoveUp(m_chart.SelectedTasks()); });
    QAction *down = Add(tr("Move do&wn"), QKeySequence(tr("Alt+Shift+Down")), Needs::Task,
                        [this] { m_edits.MoveDown(m_chart.SelectedTasks()); });
    m_contextActions = {add, rename, remove, nullptr, indent, outdent, up, down};
}

void EditActions::AddLinks()
{
    QAction *link = Add(tr("&Link in order"), QKeySequence(tr("Ctrl+F2")), Needs::Tasks,
                        [this] { m_edits.LinkInOrder(m_chart.SelectedTasks()); });
    QAction *unlink =
        Add(tr("Unlin&k"), QKeySequence(tr("Ctrl+Shift+F2")), Needs::TaskOrLink, [this] {
            const std::vector<int> links = m_chart.SelectedPlanLinks();
            if (links.empty()) {
                m_edits.Unlink(m_chart.SelectedTasks());
            } else {
                m_edits.RemoveLinks(links);
            }
        });
    QAction *edit = Add(tr("Edit link..."), {}, Needs::TaskOrLink, [this] { EditLink(); });
    QAction *draw = Add(tr("Draw link&s"), QKeySequence(tr("Ctrl+L")), Needs::Plan, [](bool) {});
    draw->setCheckable(true);
    connect(draw, &QAction::toggled, this, [this](bool on) {
        m_chart.SetLinking(on);
        Q_EMIT hinted(on ? tr("Drag from a task to the one that follows it.") : QString());
    });
    m_contextActions += {nullptr, link, unlink, edit};
}

void EditActions::AddDates()
{
    Add(tr("Move &earlier"), QKeySequence(tr("Ctrl+Left")), Needs::Task, [this] { Nudge(-1); });
    Add(tr("Move la&ter"), QKeySequence(tr("Ctrl+Right")), Needs::Task, [this] { Nudge(1); });
    QAction *details =
        Add(tr("Task &properties..."), QKeySequence(tr("Alt+Return")), Needs::OneTask,
            [this] { ShowDetails(m_chart.SelectedTasks().front()); });
    m_contextActions += {nullptr, details};
}

void EditActions::UpdateEnabled()
{
    // Once for all changes of an edit: walking a large selection is not free.
    if (m_updating) {
        return;
    }
    m_updating = true;
    QTimer::singleShot(0, this, [this] {
        m_updating = false;
        const bool hasPlan = m_document.HasPlan();
        const std::size_t tasks = hasPlan ? m_chart.SelectedTasks().size() : 0;
        const bool hasLink = hasPlan && !m_chart.SelectedPlanLinks().empty();
        for (const auto &[action, needs] : m_actions) {
            action->setEnabled(needs == Needs::Plan      ? hasPlan
                               : needs == Needs::Task    ? tasks > 0
                               : needs == Needs::OneTask ? tasks == 1
                               : needs == Needs::Tasks   ? tasks > 1
                                                         : tasks > 0 || hasLink);
        }
    });
}

void EditActions::OpenContextMenu(const QPoint &globalPoint)
{
    m_contextMenu->popup(globalPoint);
}

void EditActions::InsertTask()
{
    const std::vector<int> tasks = m_chart.SelectedTasks();
    if (m_edits.Insert(tasks.empty() ? kNoIndex : tasks.front())) {
        EditName();
    }
}

/// In the outline; where that is not shown, in the form.
void EditActions::EditName()
{
    const int task = m_chart.SelectedTasks().front();
    if (m_chart.isVisible()) {
        m_chart.EditName(task);
    } else {
        ShowDetails(task);
    }
}

/// The links when any are selected, or else the tasks.
void EditActions::Delete()
{
    const std::vector<int> links = m_chart.SelectedPlanLinks();
    const std::vector<int> tasks = m_chart.SelectedTasks();
    if (!links.empty()) {
        m_edits.RemoveLinks(links);
    } else if (!tasks.empty()) {
        m_edits.Delete(tasks);
    }
}

void EditActions::Nudge(int direction)
{
    const TDateTime step = direction * m_chart.EditStep();
    std::vector<TaskDates> dates;
    for (const int task : m_chart.SelectedTasks()) {
        if (const auto &span = m_edits.GetPlan().Tasks.at(static_cast<std::size_t>(task)).Dates) {
            dates.push_back({task, {span->Start + step, span->Finish + step}});
        }
    }
    if (!dates.empty()) {
        m_edits.SetDates(dates, PlanEdits::DateSource::Keyboard);
    }
}

/// The selected link, or else the one between the selected tasks.
void EditActions::EditLink()
{
    std::vector<int> links = m_chart.SelectedPlanLinks();
    if (links.empty()) {
        links = m_edits.LinksAmong(m_chart.SelectedTasks());
    }
    if (links.size() == 1) {
        ShowLink(links.front());
    } else {
        Q_EMIT hinted(tr("Select the link, or the two tasks that it joins."));
    }
}

void EditActions::ShowLink(int link)
{
    auto *dialog = new LinkDialog(m_edits, link, m_chart.window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void EditActions::ShowDetails(int task)
{
    auto *dialog = new TaskDialog(m_edits, task, m_chart.window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

} // namespace korvane::planner
