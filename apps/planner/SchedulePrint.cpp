#include "SchedulePrint.h"

#include "ScheduleStrip.h"
#include "plan/PlannerText.h"

#include <QApplication>
#include <QFileInfo>

namespace korvane::planner {

namespace {

/// The view is laid out at this size, or as much wider as its columns need; the paper shrinks it.
constexpr QSize kViewSize(1300, 900);

} // namespace

ScheduleBandPrinting::ScheduleBandPrinting(ScheduleView &view, const std::vector<int> &selected)
    : TzuSchemaPrinting(view)
    , m_view(view)
    , m_selected(selected)
{
}

/// With all days of events that last for several.
std::vector<bool> ScheduleBandPrinting::SelectedColumns() const
{
    const SchedulePage &page = m_view.Page();
    std::vector<bool> columns(page.Columns.size());
    for (const int index : m_selected) {
        const ScheduleBlock &selected = page.Blocks.at(static_cast<std::size_t>(index));
        columns.at(static_cast<std::size_t>(selected.Column)) = true;
        for (const ScheduleBlock &block : page.Blocks) {
            if (block.Occurrence >= 0 && block.Occurrence == selected.Occurrence) {
                columns.at(static_cast<std::size_t>(block.Column)) = true;
            }
        }
    }
    return columns;
}

int ScheduleBandPrinting::BandThickness() const
{
    return m_view.HasStrip() ? m_view.Strip().HeightOfRows() : 0;
}

QString ScheduleBandPrinting::BandCaption() const
{
    return m_view.Strip().Caption();
}

void ScheduleBandPrinting::PaintBand(TCanvas &canvas, TSize size)
{
    m_view.Strip().PaintDays(canvas, size);
}

SchedulePrint::SchedulePrint(SchedulePage page, const QString &name, const QString &fileName,
                             const std::vector<int> &selected)
    : m_fileName(fileName)
    , m_printing(m_view, selected)
{
    m_view.setPalette(QPalette(QColor(240, 240, 240), Qt::white));
    m_view.resize(kViewSize);
    m_view.SetScrollVisibility(TScrollVisibility::svNever);
    m_view.setAttribute(Qt::WA_DontShowOnScreen);
    m_view.SetStrip(true);
    m_view.show();
    const QString title = page.Title;
    m_view.Show(std::move(page));
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_printing.SetTitle(title.isEmpty() || title == name ? name
                                                         : name + QStringLiteral(" – ") + title);
    m_printing.SetFileName(QFileInfo(fileName).fileName());
}

PrintFeatures SchedulePrint::Features() const
{
    PrintFeatures features;
    features.Rows = m_view.Columns().Count();
    features.RowsText = PlannerText::tr("Co&lumns from, to:");
    features.SelectionText = PlannerText::tr("Columns with &selected events only");
    features.AxisText = PlannerText::tr("Time axis also at the rig&ht");
    return features;
}

void SchedulePrint::Apply(const PrintOptions &options)
{
    ApplyPrintOptions(options, m_printing);
    m_printing.SetAllColumns();
    if (options.Rows) {
        m_printing.SetColumns(options.Rows->first - 1, options.Rows->second - 1);
    }
    m_printing.SetSelectionOnly(options.SelectionOnly);
    m_printing.SetAxisAtBothEdges(options.AxisAtBothEdges);
}

PrintOptions SchedulePrint::StandardOptions() const
{
    PrintOptions options;
    options.Scaling.PagesAcross = 0;
    options.Scaling.PagesDown = 1;
    return options;
}

} // namespace korvane::planner
