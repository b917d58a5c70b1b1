#include "SchedulePrint.h"

#include "plan/PlannerText.h"

#include <QApplication>
#include <QFileInfo>

namespace korvane::planner {

namespace {

/// The view is laid out at this size, or as much wider as its columns need; the paper shrinks it.
constexpr QSize kViewSize(1300, 900);

} // namespace

SchedulePrint::SchedulePrint(SchedulePage page, const QString &name, const QString &fileName,
                             const std::vector<int> &selected)
    : m_fileName(fileName)
    , m_printing(m_view)
{
    m_view.setPalette(QPalette(QColor(240, 240, 240), Qt::white));
    m_view.resize(kViewSize);
    m_view.SetScrollVisibility(TScrollVisibility::svNever);
    m_view.setAttribute(Qt::WA_DontShowOnScreen);
    m_view.show();
    const QString title = page.Title;
    m_view.Show(std::move(page));
    m_view.SelectBlocks(selected);
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
