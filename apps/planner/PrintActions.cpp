#include "PrintActions.h"

#include "PrintJob.h"
#include "foundation/qt/zuConvert.h"

#include <QAction>
#include <QCryptographicHash>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QProgressDialog>
#include <QSettings>
#include <QSpinBox>
#include <QToolBar>

#include <memory>
#include <stdexcept>

namespace korvane::planner {

namespace {

constexpr int kMostPages = 99;

/// A job and its printer; lives as long as the dialog that shows it.
struct OpenJob
{
    std::unique_ptr<PrintJob> Job;
    QPrinter Printer{QPrinter::HighResolution};
};

/// The settings of a file, by its name.
QString SettingsKey(const PrintJob &job)
{
    const QByteArray name = job.FileName().toUtf8();
    return QStringLiteral("print/")
           + QString::fromLatin1(
               QCryptographicHash::hash(name, QCryptographicHash::Sha1).toHex().left(16));
}

QSpinBox *AddNumber(QToolBar &bar, const QString &label, const QString &whatsThis, int value)
{
    auto *text = new QLabel(label, &bar);
    auto *field = new QSpinBox(&bar);
    field->setRange(0, kMostPages);
    field->setSpecialValueText(QObject::tr("any"));
    field->setValue(value);
    field->setKeyboardTracking(false);
    field->setToolTip(whatsThis);
    field->setAccessibleName(whatsThis);
    text->setBuddy(field);
    bar.addWidget(text);
    bar.addWidget(field);
    return field;
}

} // namespace

PrintActions::PrintActions(QMenu &menu, std::function<std::unique_ptr<PrintJob>()> makeJob,
                           QWidget &window)
    : QObject(&window)
    , m_makeJob(std::move(makeJob))
    , m_window(window)
{
    const auto add = [&](const QString &text, const QKeySequence &keys, auto method) {
        QAction *action = menu.addAction(text);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, method);
        m_actions.append(action);
    };
    add(tr("Print pre&view..."), QKeySequence(tr("Ctrl+Shift+P")), &PrintActions::Preview);
    add(tr("&Print..."), QKeySequence(QKeySequence::Print), &PrintActions::Print);
}

void PrintActions::Preview()
{
    const std::shared_ptr<OpenJob> job(new OpenJob{m_makeJob()});
    Restore(job->Printer, *job->Job);
    auto *dialog = new QPrintPreviewDialog(&job->Printer, &m_window);
    dialog->setWindowTitle(tr("Print preview"));
    AddPageFields(*dialog, *job->Job);
    connect(dialog, &QPrintPreviewDialog::paintRequested, this,
            [this, job](QPrinter *printer) { PrintOn(*printer, *job->Job, true); });
    connect(dialog, &QDialog::finished, this, [this, job, dialog] {
        Remember(job->Printer, *job->Job);
        // The dialog uses the printer to its end.
        connect(dialog, &QObject::destroyed, this, [job] {});
        dialog->deleteLater();
    });
    dialog->resize(m_window.size());
    dialog->open();
}

void PrintActions::AddPageFields(QPrintPreviewDialog &dialog, PrintJob &job)
{
    auto *bar = dialog.findChild<QToolBar *>();
    auto *preview = dialog.findChild<QPrintPreviewWidget *>();
    if (bar == nullptr || preview == nullptr) {
        return;
    }
    TPrintScaling &scaling = job.Printing().Scaling();
    bar->addSeparator();
    QSpinBox *across =
        AddNumber(*bar, tr(" Fit on "), tr("Pages across, at most"), scaling.PagesAcross);
    QSpinBox *down = AddNumber(*bar, tr(" by "), tr("Pages down, at most"), scaling.PagesDown);
    bar->addWidget(new QLabel(tr(" pages"), bar));
    const auto fit = [preview, &scaling, across, down] {
        scaling.PagesAcross = across->value();
        scaling.PagesDown = down->value();
        preview->updatePreview();
    };
    connect(across, &QSpinBox::valueChanged, preview, fit);
    connect(down, &QSpinBox::valueChanged, preview, fit);
}

void PrintActions::Print()
{
    const std::shared_ptr<OpenJob> job(new OpenJob{m_makeJob()});
    Restore(job->Printer, *job->Job);
    auto *dialog = new QPrintDialog(&job->Printer, &m_window);
    dialog->setOption(QAbstractPrintDialog::PrintPageRange);
    connect(dialog, &QDialog::finished, this, [this, job, dialog](int result) {
        if (result == QDialog::Accepted) {
            PrintOn(job->Printer, *job->Job, false);
            Remember(job->Printer, *job->Job);
        }
        connect(dialog, &QObject::destroyed, this, [job] {});
        dialog->deleteLater();
    });
    dialog->open();
}

void PrintActions::PrintOn(QPrinter &printer, PrintJob &job, bool preview)
{
    TzuPrinting &printing = job.Printing();
    printing.Paper().Layout() = printer.pageLayout();
    std::unique_ptr<QProgressDialog> progress;
    if (!preview) {
        progress = std::make_unique<QProgressDialog>(tr("Printing"), tr("Cancel"), 0, 0, &m_window);
        progress->setWindowModality(Qt::WindowModal);
        printing.OnProgress = [bar = progress.get()](int page, int pages, bool &cancel) {
            bar->setMaximum(pages);
            bar->setValue(page - 1);
            cancel = bar->wasCanceled();
        };
    }
    QString error;
    try {
        printing.Print(printer);
    } catch (const std::runtime_error &failure) {
        error = ToQt(failure.what());
    }
    printing.OnProgress = nullptr;
    progress.reset();
    if (!error.isEmpty()) {
        auto *box = new QMessageBox(QMessageBox::Warning, tr("Printing"), error, QMessageBox::Ok,
                                    &m_window);
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->open();
    }
}

void PrintActions::Restore(QPrinter &printer, PrintJob &job) const
{
    QSettings settings;
    settings.beginGroup(SettingsKey(job));
    QPageLayout layout = job.Printing().Paper().Layout();
    const QSizeF paper = settings.value(QStringLiteral("paper")).toSizeF();
    if (paper.isValid() && !paper.isEmpty()) {
        layout.setPageSize(QPageSize(paper, QPageSize::Millimeter), layout.margins());
    }
    if (settings.value(QStringLiteral("landscape"), true).toBool()) {
        layout.setOrientation(QPageLayout::Landscape);
    }
    const QVariantList margins = settings.value(QStringLiteral("margins")).toList();
    if (margins.size() == 4) {
        layout.setMargins({margins[0].toDouble(), margins[1].toDouble(), margins[2].toDouble(),
                           margins[3].toDouble()});
    }
    printer.setPageLayout(layout);
    const auto pages = [&](const char *key, int standard) {
        return qBound(0, settings.value(QLatin1String(key), standard).toInt(), kMostPages);
    };
    job.Printing().Scaling() = {.Fit = TPrintFit::pfPages,
                                .PagesAcross = pages("across", 1),
                                .PagesDown = pages("down", 0)};
}

void PrintActions::Remember(const QPrinter &printer, PrintJob &job) const
{
    QSettings settings;
    settings.beginGroup(SettingsKey(job));
    const QPageLayout layout = printer.pageLayout();
    const QMarginsF margins = layout.margins(QPageLayout::Millimeter);
    settings.setValue(QStringLiteral("paper"), layout.pageSize().size(QPageSize::Millimeter));
    settings.setValue(QStringLiteral("landscape"), layout.orientation() == QPageLayout::Landscape);
    settings.setValue(QStringLiteral("margins"), QVariantList{margins.left(), margins.top(),
                                                              margins.right(), margins.bottom()});
    settings.setValue(QStringLiteral("across"), job.Printing().Scaling().PagesAcross);
    settings.setValue(QStringLiteral("down"), job.Printing().Scaling().PagesDown);
}

} // namespace korvane::planner
