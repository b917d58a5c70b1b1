#include "MainWindow.h"

#include "Autosave.h"
#include "BackgroundSaver.h"
#include "LoadProgress.h"
#include "Picture.h"
#include "PlanChart.h"
#include "PlanDocument.h"
#include "PlanEdits.h"
#include "PlanLoader.h"
#include "RecentFiles.h"
#include "RemarksPanel.h"
#include "ResourceChart.h"
#include "ViewSwitch.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuFormat.h"
#include "foundation/zuTranslate.h"
#include "plan/PlanFile.h"

#include <QAction>
#include <QDropEvent>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QMimeData>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>

namespace korvane::planner {

namespace {

constexpr QSize kDefaultSize(1280, 800);
constexpr int kStatusMargin = 6;
constexpr int kRemarksHeight = 130;
constexpr int kReasonTime = 8000; // milliseconds
constexpr int kCountsDelay = 150; // milliseconds

/// The first file among what is dragged; empty when there is none.
QString DraggedFile(const QMimeData &data)
{
    for (const QUrl &url : data.urls()) {
        if (url.isLocalFile()) {
            return url.toLocalFile();
        }
    }
    return {};
}

template <typename Count>
QString CountText(const char *text, Count count)
{
    return ToQt(Translate("Planner", text, nullptr, static_cast<int>(count)));
}

QLabel *NewWelcome()
{
    auto *welcome = new QLabel(MainWindow::tr("Open a plan with Ctrl+O, or drop a file here."));
    welcome->setAlignment(Qt::AlignCenter);
    welcome->setForegroundRole(QPalette::PlaceholderText);
    QFont font = welcome->font();
    font.setPointSizeF(font.pointSizeF() * 1.3);
    welcome->setFont(font);
    return welcome;
}

} // namespace

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    , m_pages(new QStackedWidget(this))
    , m_document(new PlanDocument(this))
    , m_chart(new PlanChart(*m_document))
    , m_resources(new ResourceChart(*m_document))
    , m_views(new ViewSwitch(*m_document, *m_chart, *m_resources, *m_pages))
    , m_edits(new PlanEdits(*m_document, *m_chart, this))
    , m_autosave(new Autosave(*m_document, this))
    , m_loader(new PlanLoader(this))
    , m_saver(new BackgroundSaver(this))
    , m_remarks(new RemarksPanel(this))
{
    setWindowTitle(tr("Planner"));
    setAcceptDrops(true);
    m_pages->addWidget(NewWelcome());
    m_pages->setCurrentIndex(m_pages->count() - 1); // after both charts
    setCentralWidget(m_pages);
    m_chart->SetEdits(m_edits);
    m_resources->SetEdits(m_edits);
    addDockWidget(Qt::BottomDockWidgetArea, m_remarks);
    m_remarks->hide();
    MakeStatusBar();
    MakeMenus();
    connect(m_loader, &PlanLoader::finished, this,
            [this](const QString &fileName, const auto &result) { LoadEnded(fileName, *result); });
    connect(m_loader, &PlanLoader::progressed, m_progress, &LoadProgress::SetProgress);
    connect(m_saver, &BackgroundSaver::finished, this, &MainWindow::SaveEnded);
    connect(m_saver, &BackgroundSaver::progressed, m_saveProgress, &LoadProgress::SetProgress);
    connect(m_progress, &LoadProgress::cancelRequested, this, &MainWindow::CancelLoad);
    for (const PlanView *view :
         {static_cast<PlanView *>(m_chart), static_cast<PlanView *>(m_resources)}) {
        connect(view, &PlanView::pointedAt, this, &MainWindow::ShowInstant);
        connect(view, &PlanView::pointerLeft, m_instant, &QLabel::clear);
    }
    connect(m_document, &PlanDocument::replaced, this, &MainWindow::ShowPlan);
    connect(m_document, &PlanDocument::fileNameChanged, this, &MainWindow::ShowTitle);
    connect(m_document, &PlanDocument::modifiedChanged, this, &QWidget::setWindowModified);
    // They take a walk over all tasks: not for every step of a key that repeats.
    auto *counting = new QTimer(this);
    counting->setSingleShot(true);
    counting->setInterval(kCountsDelay);
    connect(m_document, &PlanDocument::changed, counting, qOverload<>(&QTimer::start));
    connect(counting, &QTimer::timeout, this, [this] { ShowCounts(m_document->GetPlan()); });
    connect(m_edits, &PlanEdits::refused, this,
            [this](const QString &reason) { statusBar()->showMessage(reason, kReasonTime); });
    connect(m_autosave, &Autosave::failed, this, [this](const QString &reason) {
        statusBar()->showMessage(tr("No copy could be kept: %1").arg(reason), kReasonTime);
    });
    RestoreLayout();
}

MainWindow::~MainWindow() = default;

void MainWindow::MakeStatusBar()
{
    m_instant = new QLabel(this);
    m_instant->setContentsMargins(kStatusMargin, 0, 0, 0);
    m_progress = new LoadProgress(this);
    m_saveProgress = new LoadProgress(this);
    m_saveProgress->SetCancelable(false);
    m_counts = new QLabel(this);
    m_remarksButton = new QToolButton(this);
    m_remarksButton->setAutoRaise(true);
    m_remarksButton->hide();
    connect(m_remarksButton, &QToolButton::clicked, this, [this] {
        m_remarks->setVisible(!m_remarks->isVisible());
        resizeDocks({m_remarks}, {kRemarksHeight}, Qt::Vertical);
    });
    statusBar()->addWidget(m_instant, 1);
    statusBar()->addWidget(m_progress);
    statusBar()->addWidget(m_saveProgress);
    m_progress->hide();
    m_saveProgress->hide();
    statusBar()->addPermanentWidget(m_counts);
    statusBar()->addPermanentWidget(m_remarksButton);
    m_remarksButton->hide();
}

void MainWindow::RestoreLayout()
{
    const QSettings settings;
    if (!restoreGeometry(settings.value(QStringLiteral("geometry")).toByteArray())) {
        resize(kDefaultSize);
    }
}

void MainWindow::ShowTitle()
{
    const QFileInfo info(m_document->FileName());
    const QString title = m_document->GetPlan().Name.simplified();
    setWindowTitle(title.isEmpty() || title == info.completeBaseName()
                       ? tr("%1[*] – Planner").arg(info.fileName())
                       : tr("%1 (%2)[*] – Planner").arg(title, info.fileName()));
    setWindowFilePath(m_document->FileName());
    setWindowModified(m_document->IsModified());
}

void MainWindow::ShowPlan()
{
    const Plan &plan = m_document->GetPlan();
    m_remarks->SetRemarks(plan.Remarks);
    m_remarksButton->setText(m_remarks->CountText());
    m_remarksButton->setVisible(!m_remarks->CountText().isEmpty());
    ShowCounts(plan);
    m_views->ShowPlan();
    for (QAction *action : m_planActions) {
        action->setEnabled(true);
    }
}

void MainWindow::ShowError(const QString &text, const QString &details)
{
    auto *box = new QMessageBox(QMessageBox::Warning, tr("Planner"), text, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(details);
    box->open();
}

void MainWindow::ShowInstant(TDateTime instant)
{
    constexpr TDateTime kSecondsScale = 1.0 / (24 * 60 * 10);
    m_instant->setText(ToQt(FormatDateTime(m_views->Shown().Scale() < kSecondsScale
                                               ? Translate("Planner", "ddd d mmm yyyy  hh:nn:ss")
                                               : Translate("Planner", "ddd d mmm yyyy  hh:nn"),
                                           instant)));
}

void MainWindow::ShowCounts(const Plan &plan)
{
    const auto milestones =
        std::ranges::count_if(plan.Tasks, [](const PlanTask &task) { return task.Milestone; });
    QStringList parts;
    if (plan.Kind == PlanKind::Intervals) {
        parts = {CountText(QT_TRANSLATE_N_NOOP("Planner", "%Ln row(s)"), plan.Resources.size()),
                 CountText(QT_TRANSLATE_N_NOOP("Planner", "%Ln item(s)"), plan.Tasks.size())};
    } else {
        parts = {
            CountText(QT_TRANSLATE_N_NOOP("Planner", "%Ln task(s)"), plan.Tasks.size()),
            CountText(QT_TRANSLATE_N_NOOP("Planner", "%Ln milestone(s)"), milestones),
            CountText(QT_TRANSLATE_N_NOOP("Planner", "%Ln link(s)"), plan.Links.size()),
            CountText(QT_TRANSLATE_N_NOOP("Planner", "%Ln resource(s)"), plan.Resources.size())};
    }
    if (const auto range = plan.Range()) {
        parts.append(ToQt(FormatDateTime(Translate("Planner", "d mmm yyyy"), range->Start))
                     + QStringLiteral(" – ")
                     + ToQt(FormatDateTime(Translate("Planner", "d mmm yyyy"), range->Finish)));
    }
    m_counts->setText(parts.join(QStringLiteral("   ")));
}

void MainWindow::SavePictureTo(const QString &fileName)
{
    if (const auto error = SavePicture(m_views->Shown(), fileName, devicePixelRatioF())) {
        const QString name = QFileInfo(fileName).fileName();
        ShowError(tr("%1 cannot be written.").arg(name), ErrorLine(name, {0, *error}));
    }
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!DraggedFile(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent *event)
{
    const QString fileName = DraggedFile(*event->mimeData());
    if (!fileName.isEmpty()) {
        event->acceptProposedAction();
        Open(fileName);
    }
}

} // namespace korvane::planner
