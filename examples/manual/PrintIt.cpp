// Printing: a chart on pages of A4, with a preview of the first one beside it.
#include "foundation/zuDateUtils.h"
#include "gantt/qt/zuGant.h"
#include "printing/qt/zuGanttPrinting.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

using namespace korvane;

QWidget *ShowAPlan();

QWidget *PrintIt()
{
    auto *gant = static_cast<TzuGant *>(ShowAPlan());
    auto *window = new QWidget;

    TzuGanttPrinting printing(*gant);
    printing.SetTitle("A house");
    printing.Paper().Layout().setOrientation(QPageLayout::Landscape);
    printing.SetTimeScale(0.03);                 // days per pixel; else that of the screen
    printing.Scaling().Fit = TPrintFit::pfWidth; // and as many pages down as it takes
    printing.LayOut();

    QPixmap page(420, 297);
    page.fill(Qt::white);
    QPainter painter(&page);
    painter.setRenderHint(QPainter::Antialiasing);
    printing.PaintPage(painter, QRectF(page.rect()), 0);
    painter.end();

    auto *preview = new QLabel;
    preview->setPixmap(page);
    auto *save = new QPushButton("Save as PDF...");
    QObject::connect(save, &QPushButton::clicked, gant, [gant] {
        const QString file = QFileDialog::getSaveFileName(gant, {}, "plan.pdf");
        if (!file.isEmpty()) {
            TzuGanttPrinting(*gant).SavePdf(file);
        }
    });
    auto *layout = new QHBoxLayout(window);
    layout->addWidget(gant, 1);
    auto *side = new QVBoxLayout;
    side->addWidget(preview);
    side->addWidget(save);
    side->addStretch();
    layout->addLayout(side);
    return window;
}
