#include "PrintDialog.h"

#include "PrintCommand.h"
#include "PrintForm.h"
#include "PrintJob.h"
#include "PrintRun.h"
#include "printing/qt/zuPrintPreview.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>

namespace korvane::planner {

namespace {

constexpr int kChangesDelay = 150; // milliseconds
constexpr int kFormWidth = 300;
constexpr int kPercents[] = {50, 75, 100, 150, 200, 400};
constexpr int kResolutions[] = {96, 150, 300, 600};

} // namespace

PrintDialog::PrintDialog(std::unique_ptr<PrintJob> job, QWidget *parent)
    : QDialog(parent)
    , m_job(std::move(job))
    , m_form(new PrintForm(LoadPrintOptions(m_job->FileName(), m_job->StandardOptions()),
                           m_job->Features()))
    , m_preview(new TzuPrintPreview(m_job->Printing()))
{
    setWindowTitle(tr("Print preview"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton *print = buttons->addButton(tr("&Print..."), QDialogButtonBox::ActionRole);
    QPushButton *save = buttons->addButton(tr("E&xport..."), QDialogButtonBox::ActionRole);
    print->setObjectName(QStringLiteral("print"));
    save->setObjectName(QStringLiteral("export"));
    connect(print, &QPushButton::clicked, this, &PrintDialog::Print);
    connect(save, &QPushButton::clicked, this, &PrintDialog::Export);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    m_form->setFixedWidth(kFormWidth);
    auto *middle = new QHBoxLayout;
    middle->addWidget(m_form);
    middle->addWidget(m_preview, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(MakeBar());
    layout->addLayout(middle, 1);
    layout->addWidget(buttons);
    print->setDefault(true); // now that it is in the dialog
    m_form->setFocus();
    m_changes.setSingleShot(true);
    m_changes.setInterval(kChangesDelay);
    connect(&m_changes, &QTimer::timeout, this, &PrintDialog::ShowChanges);
    connect(m_form, &PrintForm::changed, &m_changes, qOverload<>(&QTimer::start));
    connect(m_preview, &TzuPrintPreview::changed, this, [this, print, save] {
        print->setEnabled(m_preview->PageCount() > 0);
        save->setEnabled(m_preview->PageCount() > 0);
        ShowPage();
    });
    ShowChanges();
}

PrintDialog::~PrintDialog() = default;

QWidget *PrintDialog::MakeBar()
{
    auto *bar = new QWidget;
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    const auto turn = [&](const QString &text, const QString &tip, int pages) {
        auto *button = new QToolButton;
        button->setText(text);
        button->setToolTip(tip);
        button->setAccessibleName(tip);
        connect(button, &QToolButton::clicked, this,
                [this, pages] { m_preview->SetCurrentPage(m_preview->CurrentPage() + pages); });
        layout->addWidget(button);
    };
    turn(QStringLiteral("‹"), tr("Page before"), -1);
    m_page = new QLabel;
    layout->addWidget(m_page);
    turn(QStringLiteral("›"), tr("Next page"), 1);
    layout->addSpacing(kFormWidth / 8);
    m_zoom = new QComboBox;
    m_zoom->setAccessibleName(tr("Zoom"));
    m_zoom->addItem(tr("Whole page"));
    m_zoom->addItem(tr("Page width"));
    for (const int percent : kPercents) {
        m_zoom->addItem(QStringLiteral("%1 %").arg(percent), percent);
    }
    const auto add = [layout](const QString &text, QWidget *field) {
        auto *label = new QLabel(text);
        label->setBuddy(field);
        layout->addWidget(label);
        layout->addWidget(field);
    };
    add(tr("Zoo&m:"), m_zoom);
    layout->addStretch(1);
    m_resolution = new QComboBox;
    m_resolution->setAccessibleName(tr("Resolution of PNG pictures"));
    for (const int dots : kResolutions) {
        m_resolution->addItem(tr("%1 dpi").arg(dots), dots);
    }
    m_resolution->setCurrentIndex(1);
    add(tr("PNG p&ictures:"), m_resolution);
    connect(m_zoom, &QComboBox::activated, this, &PrintDialog::ChooseZoom);
    return bar;
}

void PrintDialog::ChooseZoom(int index)
{
    const QVariant percent = m_zoom->itemData(index);
    if (percent.isValid()) {
        m_preview->SetZoomFactor(percent.toInt() / 100.0);
    } else {
        m_preview->SetZoom(index == 0 ? TzuPrintPreview::TZoom::FitPage
                                      : TzuPrintPreview::TZoom::FitWidth);
    }
}

void PrintDialog::ShowPage()
{
    const int pages = m_preview->PageCount();
    m_page->setText(pages == 0 ? tr("No pages")
                               : tr("Page %1 of %2").arg(m_preview->CurrentPage() + 1).arg(pages));
    using TZoom = TzuPrintPreview::TZoom;
    if (m_preview->Zoom() != TZoom::Factor) {
        m_zoom->setCurrentIndex(m_preview->Zoom() == TZoom::FitPage ? 0 : 1);
    } else {
        m_zoom->setCurrentIndex(
            m_zoom->findData(static_cast<int>(std::lround(m_preview->ZoomFactor() * 100))));
    }
}

void PrintDialog::ShowChanges()
{
    m_changes.stop();
    m_job->Apply(m_form->Options());
    m_preview->Refresh();
}

void PrintDialog::Print()
{
    ShowChanges();
    auto *printer = new QPrinter(QPrinter::HighResolution);
    printer->setPageLayout(m_job->Printing().Paper().Layout());
    auto *dialog = new QPrintDialog(printer, this);
    dialog->setOption(QAbstractPrintDialog::PrintPageRange);
    dialog->setMinMax(1, std::max(m_preview->PageCount(), 1));
    connect(dialog, &QDialog::finished, this, [this, dialog, printer](int result) {
        if (result == QDialog::Accepted) {
            RunPrint(*this, m_job->Printing(), [&] { return m_job->Printing().Print(*printer); });
        }
        // The dialog uses the printer to its end.
        connect(dialog, &QObject::destroyed, dialog->parent(), [printer] { delete printer; });
        dialog->deleteLater();
    });
    dialog->open();
}

bool PrintDialog::ExportTo(const QString &fileName)
{
    ShowChanges();
    const int dots = m_resolution->currentData().toInt();
    return RunPrint(*this, m_job->Printing(),
                    [&] { return SavePages(m_job->Printing(), fileName, dots); });
}

void PrintDialog::Export()
{
    const QFileInfo file(m_job->FileName());
    auto *dialog = new QFileDialog(this, tr("Export"), file.absolutePath(),
                                   tr("PDF document (*.pdf);;SVG pictures (*.svg);;"
                                      "PNG pictures (*.png)"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("pdf"));
    dialog->selectFile(file.completeBaseName() + QStringLiteral(".pdf"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QFileDialog::filterSelected, dialog, [dialog](const QString &filter) {
        const qsizetype dot = filter.indexOf(QLatin1String("*.")) + 2;
        dialog->setDefaultSuffix(filter.mid(dot, 3));
    });
    connect(dialog, &QFileDialog::fileSelected, this, &PrintDialog::ExportTo);
    dialog->open();
}

void PrintDialog::done(int result)
{
    SavePrintOptions(m_job->FileName(), m_form->Options());
    QDialog::done(result);
}

} // namespace korvane::planner
