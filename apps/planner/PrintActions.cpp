#include "PrintActions.h"

#include "PrintDialog.h"
#include "PrintJob.h"

#include <QAction>
#include <QWidget>

#include <utility>

namespace korvane::planner {

PrintActions::PrintActions(std::function<std::unique_ptr<PrintJob>()> makeJob, QWidget &window)
    : QObject(&window)
    , m_makeJob(std::move(makeJob))
    , m_window(window)
{
    AddAction(tr("Print pre&view..."), QKeySequence(tr("Ctrl+Shift+P")), &PrintActions::Preview);
    AddAction(tr("&Print..."), QKeySequence(QKeySequence::Print), &PrintActions::Print);
    AddAction(tr("E&xport pages..."), QKeySequence(tr("Ctrl+Shift+E")), &PrintActions::Export);
}

void PrintActions::AddAction(const QString &text, const QKeySequence &keys,
                             void (PrintActions::*method)())
{
    auto *action = new QAction(text, this);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, method);
    m_actions.append(action);
}

PrintDialog *PrintActions::MakeDialog()
{
    auto *dialog = new PrintDialog(m_makeJob(), &m_window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->resize(m_window.size());
    dialog->open();
    return dialog;
}

void PrintActions::Preview()
{
    MakeDialog();
}

void PrintActions::Print()
{
    MakeDialog()->Print();
}

void PrintActions::Export()
{
    MakeDialog()->Export();
}

} // namespace korvane::planner
