// Menus and dialogs of the planner's window.
#include "EditActions.h"
#include "MainWindow.h"
#include "PictureFormat.h"
#include "PlanChart.h"
#include "PlanDocument.h"
#include "PlanPrint.h"
#include "PrintActions.h"
#include "RecentFiles.h"
#include "RemarksPanel.h"
#include "ResourceChart.h"
#include "ScheduleCommands.h"
#include "ViewSwitch.h"
#include "foundation/zuDateUtils.h"
#include "plan/PlanFile.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QSettings>
#include <QStatusBar>

namespace korvane::planner {

namespace {

constexpr double kZoomNotches = 2; ///< of the wheel, that one step zooms
constexpr int kPanPart = 4;        ///< share of the axis that one step goes on

QString Row(const QString &keys, const QString &text)
{
    return QStringLiteral("<tr><td><b>%1</b>&nbsp;&nbsp;&nbsp;</td><td>%2</td></tr>")
        .arg(keys.toHtmlEscaped(), text.toHtmlEscaped());
}

void OpenBox(QMessageBox *box)
{
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

} // namespace

template <typename Function>
QAction *MainWindow::AddAction(QMenu &menu, const QString &text,
                               const QList<QKeySequence> &shortcuts, Function function)
{
    QAction *action = menu.addAction(text);
    action->setShortcuts(shortcuts);
    connect(action, &QAction::triggered, this, function);
    return action;
}

template <typename Function>
QAction *MainWindow::AddToggle(QMenu &menu, const QString &text, const QString &key, bool initially,
                               Function setShown)
{
    QAction *action = menu.addAction(text);
    action->setCheckable(true);
    connect(action, &QAction::toggled, this, [key, setShown](bool on) {
        setShown(on);
        QSettings().setValue(key, on);
    });
    const bool shown = QSettings().value(key, initially).toBool();
    action->setChecked(shown);
    setShown(shown);
    return action;
}

void MainWindow::MakeMenus()
{
    MakeFileMenu();
    MakeEditMenu();
    MakeViewMenu();
    MakeHelpMenu();
    for (QAction *action : m_planActions) {
        action->setEnabled(false);
    }
}

void MainWindow::MakeFileMenu()
{
    QMenu &menu = *menuBar()->addMenu(tr("&File"));
    AddAction(menu, tr("&Open..."), {QKeySequence::Open}, &MainWindow::ChooseFile);
    auto *recent = new RecentFiles(*menu.addMenu(tr("Open &recent")), this);
    connect(recent, &RecentFiles::chosen, this, &MainWindow::Open);
    AddAction(menu, tr("Open the sa&mple plan"), {},
              [this] { Open(QStringLiteral(":/samples/observatory.xml")); });
    m_planActions += AddAction(menu, tr("Re&load"), {QKeySequence(Qt::Key_F5)},
                               [this] { Open(m_document->FileName()); });
    menu.addSeparator();
    m_planActions += AddAction(menu, tr("&Save"), {QKeySequence::Save}, &MainWindow::Save);
    m_planActions += AddAction(menu, tr("Save &as..."), {QKeySequence(tr("Ctrl+Shift+S"))},
                               &MainWindow::ChooseSaveName);
    m_planActions += AddAction(menu, tr("Save as p&icture..."), {QKeySequence(tr("Ctrl+E"))},
                               &MainWindow::ChoosePicture);
    menu.addSeparator();
    const auto makeJob = [this]() -> std::unique_ptr<PrintJob> {
        if (&m_views->Shown() == m_resources) {
            return std::make_unique<PlanPrint>(*m_resources, *m_document);
        }
        return std::make_unique<PlanPrint>(*m_chart, *m_document);
    };
    const auto *print = new PrintActions(makeJob, *this);
    menu.addActions(print->Actions());
    m_planActions += print->Actions();
    menu.addSeparator();
    AddAction(menu, tr("&Quit"), {QKeySequence(tr("Ctrl+Q"))}, &QWidget::close);
}

void MainWindow::MakeEditMenu()
{
    auto *actions =
        new EditActions(*menuBar()->addMenu(tr("&Edit")), *m_document, *m_edits, *m_chart);
    actions->ServeView(*m_resources);
    connect(actions, &EditActions::hinted, this,
            [this](const QString &text) { statusBar()->showMessage(text); });
}

void MainWindow::MakeViewMenu()
{
    QMenu &menu = *menuBar()->addMenu(tr("&View"));
    const auto add = [&](const QString &text, const QList<QKeySequence> &shortcuts, auto function) {
        m_planActions += AddAction(menu, text, shortcuts, function);
    };
    menu.addActions(m_views->Actions());
    m_planActions += m_views->Actions();
    menu.addSeparator();
    const auto axis = [this]() -> TzuDateScaler & { return m_views->Shown().DateScaler(); };
    const auto zoom = [axis](double notches) {
        axis().ZoomAround(notches, axis().GetScaleLen() / 2);
    };
    const auto pan = [axis](int way) { axis().PanPixels(way * axis().GetScaleLen() / kPanPart); };
    add(tr("&Fit the plan"), {QKeySequence(tr("Ctrl+0"))}, [this] { m_views->Shown().FitPlan(); });
    add(tr("Zoom &in"), {QKeySequence(tr("Ctrl++")), QKeySequence(tr("Ctrl+="))},
        [zoom] { zoom(kZoomNotches); });
    add(tr("Zoom &out"), {QKeySequence(tr("Ctrl+-"))}, [zoom] { zoom(-kZoomNotches); });
    menu.addSeparator();
    add(tr("Go to toda&y"), {QKeySequence(tr("Ctrl+T"))}, [axis] { axis().GoTo(Now()); });
    add(tr("&Earlier"), {QKeySequence(tr("Ctrl+PgUp"))}, [pan] { pan(-1); });
    add(tr("&Later"), {QKeySequence(tr("Ctrl+PgDown"))}, [pan] { pan(1); });
    menu.addSeparator();
    add(tr("E&xpand all"), {QKeySequence(tr("Ctrl+Shift+Right"))},
        [this] { m_chart->ExpandAll(); });
    add(tr("&Collapse all"), {QKeySequence(tr("Ctrl+Shift+Left"))},
        [this] { m_chart->CollapseAll(); });
    menu.addSeparator();
    AddToggle(menu, tr("Ta&ble"), QStringLiteral("table/shown"), false, [this](bool on) {
        m_chart->SetTableShown(on);
    })->setShortcut(QKeySequence(tr("Ctrl+3")));
    QMenu *columns = menu.addMenu(tr("Table col&umns"));
    connect(columns, &QMenu::aboutToShow, this, [this, columns] {
        columns->clear();
        m_chart->FillColumnMenu(*columns);
    });
    menu.addSeparator();
    AddToggle(menu, tr("B&aselines"), QStringLiteral("baselines"), false,
              [this](bool on) { m_chart->SetBaselinesShown(on); });
    AddToggle(menu, tr("&Deadlines"), QStringLiteral("deadlines"), true,
              [this](bool on) { m_chart->SetDeadlinesShown(on); });
    QAction *remarks = m_remarks->toggleViewAction();
    remarks->setText(tr("Re&marks"));
    menu.addAction(remarks);
}

void MainWindow::MakeHelpMenu()
{
    QMenu &menu = *menuBar()->addMenu(tr("&Help"));
    AddAction(menu, tr("&Keys and wheel"), {QKeySequence::HelpContents},
              &MainWindow::ShowShortcuts);
    AddAction(menu, tr("&About the planner"), {}, &MainWindow::ShowAbout);
    AddAction(menu, tr("About &Qt"), {}, [] { QApplication::aboutQt(); });
}

void MainWindow::ChooseFile()
{
    auto *dialog = new QFileDialog(
        this, tr("Open a plan"), QFileInfo(m_document->FileName()).path(),
        PlanReaders::Builtin().DialogFilter() + QStringLiteral(";;") + ScheduleDialogFilter());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, &MainWindow::Open);
    dialog->open();
}

void MainWindow::ChoosePicture()
{
    const QFileInfo plan(m_document->FileName());
    auto *dialog =
        new QFileDialog(this, tr("Save as picture"), plan.path() + u'/' + plan.completeBaseName(),
                        PictureDialogFilter());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("png"));
    connect(dialog, &QFileDialog::filterSelected, dialog, [dialog](const QString &filter) {
        dialog->setDefaultSuffix(filter.section(QStringLiteral("(*."), 1).chopped(1));
    });
    connect(dialog, &QFileDialog::fileSelected, this, &MainWindow::SavePictureTo);
    dialog->open();
}

void MainWindow::ShowShortcuts()
{
    QString rows;
    for (const QAction *top : menuBar()->actions()) {
        for (const QAction *action : top->menu()->actions()) {
            if (!action->shortcut().isEmpty()) {
                const QString name =
                    action->whatsThis().isEmpty() ? action->text() : action->whatsThis();
                rows += Row(action->shortcut().toString(QKeySequence::NativeText),
                            QString(name).remove(u'&').remove(QStringLiteral("...")));
            }
        }
    }
    rows += Row(tr("Wheel"), tr("Scroll the rows"));
    rows += Row(tr("Ctrl + wheel"), tr("Zoom about the pointer"));
    rows += Row(tr("Shift + wheel"), tr("Earlier or later"));
    OpenBox(new QMessageBox(QMessageBox::NoIcon, tr("Keys and wheel"),
                            QStringLiteral("<table>%1</table>").arg(rows), QMessageBox::Close,
                            this));
}

void MainWindow::ShowAbout()
{
    OpenBox(new QMessageBox(
        QMessageBox::NoIcon, tr("About the planner"),
        tr("<h3>Planner %1</h3><p>Shows project plans as Gantt charts: project XML files (.xml, "
           ".xml.gz), GanttProject files (.gan), timetables (.zip, or a folder of GTFS tables) and "
           "job traces (.swf).</p><p>Built with Korvane, a library of visual "
           "components for planning and scheduling.</p>")
            .arg(QStringLiteral(KORVANE_VERSION)),
        QMessageBox::Close, this));
}

} // namespace korvane::planner
