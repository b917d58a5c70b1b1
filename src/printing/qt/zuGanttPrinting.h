// Printing of the Gantt chart.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"
#include "printing/qt/zuPrintLabels.h"
#include "printing/qt/zuPrinting.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace korvane {

class TGanttPage;
class TzuDataEntity_Tree;
class TzuDateScaler;
class TzuGant_ComBasic;

/// Prints a Gantt chart: the rows that its tree shows, also those scrolled away, over any time.
///
/// Each page has the row labels at its left and the time axis on top. Pages end between rows and at
/// calendar boundaries; a page that continues a group begins with the group's heading. Links run on
/// from page to page: where one leaves a page, a mark says on which page it goes on. Selection and
/// focus are not printed.
///
/// Fonts grow by the print rule of painted controls; the chart's OnPrintResizeFont may choose other
/// sizes.
class KORVANE_WIDGETS_API TzuGanttPrinting : public TzuPrinting
{
public:
    /// The chart is observed.
    explicit TzuGanttPrinting(TzuGant_ComBasic &gant);
    ~TzuGanttPrinting() override;

    /// The time to print; without it, from the first to the last item of the printed rows.
    void SetRange(TDateTime from, TDateTime to) { m_range.emplace(from, to); }
    void SetWholeRange() { m_range.reset(); }
    /// Days per pixel; 0 for those of the screen.
    void SetTimeScale(double daysPerPixel) { m_timeScale = daysPerPixel; }
    /// The rows to print, by their number among those that the tree shows, from 0, both included.
    void SetRows(int first, int last) { m_rowRange.emplace(first, last); }
    void SetAllRows() { m_rowRange.reset(); }
    /// Only rows that are selected, or have a selected item.
    void SetSelectionOnly(bool on) { m_selectionOnly = on; }
    /// Row labels; initially the captions. None: no labels.
    std::vector<TPrintColumn> &Columns() { return m_labels.Columns; }
    /// Repeats the axis at the bottom of each page.
    void SetAxisAtBottom(bool on) { m_axisAtBottom = on; }
    void SetRepeatHeadings(bool on) { m_repeatHeadings = on; }
    /// Whether marks say on which page a link goes on; initially they do.
    void SetLinkMarks(bool on) { m_linkMarks = on; }
    /// Whether the default background is printed rather than pale lines on white paper. What a
    /// handler of OnUserDrawBackground draws is printed in any case.
    void SetPrintBackground(bool on) { m_printBackground = on; }
    /// The print scale at which the chart is drawn, before it is scaled to the paper: at 2 lines
    /// are half as wide as on screen, at 1 all is as on screen, also for drawing handlers that know
    /// no print scale. Initially 2; at least 1.
    void SetFineness(int scale) { m_fineness = std::max(scale, 1); }

    /// One for each row that has rows below it.
    std::vector<TPrintBookmark> Bookmarks() const override;

    QSizeF ContentSize(const TPrintPage &page) const override;

protected:
    TPrintLayout LayOutContent(const TPrintRoom &room, const TPrintScaling &scaling) override;
    void PaintContent(QPainter &painter, const TPrintPage &page) override;
    std::string RangeOf(const TPrintPage &page) const override;

private:
    friend class TGanttPage;

    /// The rows at the ends of a link that runs through a page.
    struct TLinkRows
    {
        int First;
        int Second;
    };

    void CollectRows();
    bool IsWanted(int number, TzuDataEntity_Tree &entity) const;
    std::pair<TDateTime, TDateTime> PrintedTime() const;
    void SetUpAxis();
    void CollectLinks(const std::vector<TPageSpan> &pages);
    int HeadHeight() const;
    void PaintLabels(QPainter &painter, const TGanttPage &page) const;
    void PaintLinkMarks(QPainter &painter, const TGanttPage &page) const;

    TzuGant_ComBasic &m_gant;
    std::optional<std::pair<TDateTime, TDateTime>> m_range;
    std::optional<std::pair<int, int>> m_rowRange;
    TPrintLabels m_labels;
    double m_timeScale = 0;
    bool m_selectionOnly = false;
    bool m_axisAtBottom = false;
    bool m_repeatHeadings = true;
    bool m_printBackground = false;
    bool m_linkMarks = true;
    int m_fineness = 2;

    // As last laid out.
    TPrintOutline m_outline;
    std::unique_ptr<TPrintRows> m_down;
    std::unique_ptr<TzuDateScaler> m_axis;       ///< all of the printed time
    std::vector<std::vector<TLinkRows>> m_links; ///< by row of pages
};

} // namespace korvane
