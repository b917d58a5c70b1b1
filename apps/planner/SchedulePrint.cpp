#include "SchedulePrint.h"

#include "ScheduleStrip.h"
#include "foundation/qt/zuConvert.h"
#include "plan/PlannerText.h"

#include <QApplication>
#include <QFileInfo>

#include <algorithm>
#include <cmath>

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
    const auto time = [](TDateTime date) { return ToQDateTime(date).time(); };
    PrintFeatures features;
    features.Hours.emplace(time(m_view.DateScaler().GetStart()),
                           time(m_view.DateScaler().GetStop()));
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
    m_printing.SetWholeRange();
    m_printing.SetTimeScale(0);
    if (options.Hours) {
        SetHours(options.Hours->first, options.Hours->second);
    }
    m_printing.SetSelectionOnly(options.SelectionOnly);
    m_printing.SetAxisAtBothEdges(options.AxisAtBothEdges);
}

/// As long as the whole day is otherwise.
void SchedulePrint::SetHours(QTime from, QTime to)
{
    const TDateScalerCore &axis = m_view.DateScaler();
    // The first such time of what the axis shows, and the first one after it.
    const auto next = [](QTime time, TDateTime date) {
        constexpr double kPerDay = 24.0 * 60 * 60 * 1000;
        const TDateTime sameDay = std::floor(date) + time.msecsSinceStartOfDay() / kPerDay;
        return sameDay < date ? sameDay + 1 : sameDay;
    };
    constexpr TDateTime kSecond = 1.0 / (24 * 60 * 60);
    const TDateTime start = next(from, axis.GetStart() - kSecond);
    const TDateTime stop = std::min(next(to, start + kSecond), axis.GetStop());
    m_printing.SetRange(start, stop);
    if (stop > start) {
        m_printing.SetTimeScale((stop - start) / std::max(axis.GetScaleLen(), 1));
    }
}

PrintOptions SchedulePrint::StandardOptions() const
{
    PrintOptions options;
    options.Scaling.PagesAcross = 0;
    options.Scaling.PagesDown = 1;
    return options;
}

} // namespace korvane::planner
