// Printing of the Gantt chart.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"
#include "gantt/zuGantRowList.h"
#include "printing/qt/zuPrintChoice.h"
#include "printing/qt/zuPrintLabels.h"
#include "printing/qt/zuPrinting.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace korvane {

class IGanttSide;
class TGanttPage;
class TPageAxisLabels;
class TzuDateScaler;
class TzuGant_ComBasic;

/// Prints a Gantt chart: the rows that its tree shows, also those scrolled away, over any time, or
/// else from the first to the last item of these rows.
///
/// Each page has the row labels at its left, or from right to left at its right as on screen, and
/// the time axis on top. Pages end between rows and at
/// calendar boundaries; a page that continues a group begins with the group's heading. Links run on
/// from page to page: where one leaves a page, a mark says on which page it goes on. Selection and
/// focus are not printed.
///
/// Where a grid stands in for the tree, its rows are printed, with columns of the grid as labels.
///
/// Fonts grow by the print rule of painted controls; the chart's OnPrintResizeFont may choose other
/// sizes.
class KORVANE_WIDGETS_API TzuGanttPrinting : public TzuPrinting,
                                             public TPrintRowChoice,
                                             public TPrintTimeChoice
{
public:
    /// The chart is observed.
    explicit TzuGanttPrinting(TzuGant_ComBasic &gant);
    ~TzuGanttPrinting() override;

    /// Labels of the tree's rows; initially the captions. None: no labels.
    std::vector<TPrintColumn> &Columns() { return m_labels.Columns; }
    /// Columns of a grid that stands in for the tree, by their real indexes; without a choice those
    /// that are shown.
    void SetGridColumns(std::vector<int> columns) { m_gridColumns = std::move(columns); }
    /// Those that are shown, as by default.
    void SetAllGridColumns() { m_gridColumns.reset(); }
    /// Whether a page that continues a group begins with the group's headings; true by default.
    void SetRepeatHeadings(bool on) { m_repeatHeadings = on; }
    /// Whether marks say on which page a link goes on; initially they do.
    void SetLinkMarks(bool on) { m_linkMarks = on; }
    /// The print scale at which the chart is drawn, before it is scaled to the paper: at 2 lines
    /// are half as wide as on screen, at 1 all is as on screen, also for drawing handlers that know
    /// no print scale. Initially 2; at least 1.
    void SetFineness(int scale) { m_fineness = std::max(scale, 1); }

    /// One for each row that has rows below it.
    std::vector<TPrintBookmark> Bookmarks() const override;

protected:
    TPrintLayout LayOutContent(const TPrintRoom &room, const TPrintScaling &scaling) override;
    void PaintContent(QPainter &painter, const TPrintPage &page) override;
    std::string RangeOf(const TPrintPage &page) const override;
    TPrintFlow Flow() const override;

private:
    friend class TGanttPage;

    /// The rows at the ends of a link that runs through a page.
    struct TLinkRows
    {
        int First;
        int Second;
    };

    void CollectRows();
    void SizeRows(const IPrintAxis &across, const TPrintRoom &room, const TPrintScaling &scaling);
    bool IsWanted(int number, const TVisibleNode &node, bool isSelected) const;
    TGantRow *RowOf(const TVisibleNode &node) const;
    std::pair<TDateTime, TDateTime> PrintedTime() const;
    void CollectLinks(const std::vector<TPageSpan> &pages);
    /// Calls `visit(link)` for each link that runs through a row of pages.
    template <typename Visit>
    void ForEachLink(int row, const Visit &visit) const;
    int HeadHeight() const;
    QPoint AreaPlace() const;
    void PaintSide(QPainter &painter, const TGanttPage &page) const;
    void PaintLinkMarks(QPainter &painter, const TGanttPage &page) const;

    TzuGant_ComBasic &m_gant;
    TPrintLabels m_labels;
    std::optional<std::vector<int>> m_gridColumns;
    bool m_repeatHeadings = true;
    bool m_linkMarks = true;
    int m_fineness = 2;

    // As last laid out.
    std::unique_ptr<IGanttSide> m_side;
    std::vector<TVisibleNode> m_rows;
    std::vector<int> m_parents;
    std::unique_ptr<TPrintRows> m_down;
    std::unique_ptr<TzuDateScaler> m_axis; ///< all of the printed time
    std::unique_ptr<TPageAxisLabels> m_axisLabels;
    std::vector<std::vector<TLinkRows>> m_links; ///< see ForEachLink
};

/// A link is kept with the few longest runs of rows of pages that make up its way, so that long
/// ones take up little. The runs are a tree: run n is made up of 2n and 2n + 1, the second half are
/// the rows themselves.
template <typename Visit>
void TzuGanttPrinting::ForEachLink(int row, const Visit &visit) const
{
    for (std::size_t run = m_links.size() / 2 + static_cast<std::size_t>(row); run > 0; run /= 2) {
        for (const TLinkRows &link : m_links[run]) {
            visit(link);
        }
    }
}

} // namespace korvane
