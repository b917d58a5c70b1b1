// One page of a printed Gantt chart.
#pragma once

#include "foundation/qt/zuOffscreenPaint.h"
#include "foundation/zuExport.h"
#include "gantt/qt/zuGantPrintView.h"
#include "printing/qt/zuGanttPrinting.h"
#include "printing/qt/zuPageAxis.h"

#include <optional>
#include <vector>

namespace korvane {

/// A side of a page.
enum class TPageSide : unsigned char { Left, Top, Right, Bottom };

/// Where a link leaves a page, in pixels of the area.
struct TLinkCrossing
{
    /// On the edge; and which edge that is.
    QPointF At;
    TPageSide Side = TPageSide::Left;
};

/// Axis, area and rows of a page, in controls of their own that are never shown.
class KORVANE_WIDGETS_API TGanttPage : public IGantPrintView
{
public:
    /// The printing is laid out.
    TGanttPage(TzuGanttPrinting &printing, const TPrintPage &page);

    /// As given to the constructor.
    const TPrintPage &Page() const { return m_page; }
    TzuDateScaler &Axis() override { return m_axis; }
    TzuOffscreenPaint &Area() override { return m_area; }
    /// The page's rows and those at the ends of links that run through it.
    void CollectRows(std::vector<TVisibleNode> &rows) override;
    TRect WholeArea() override;

    void LinkDrawn(const TzuDataEntity_Link &link, std::span<const TPoint> line) override;

    /// Headings and rows, with their places in the area.
    const std::vector<TVisibleNode> &Rows() const { return m_rows; }
    /// Where links leave the page; complete once it was painted.
    const std::vector<TLinkCrossing> &Crossings() const { return m_crossings; }
    /// In pixels of the chart, without labels and axis.
    QSize AreaSize() const { return m_area.size(); }

    /// Draws the page's part of the chart; the axis' upper left corner is given.
    void Paint(QPainter &painter, QPoint at);

private:
    TVisibleNode Placed(int row, int y) const;
    void PlaceRows();
    void NoteCrossing(QPointF from, QPointF to);

    TzuGanttPrinting &m_printing;
    TPrintPage m_page;
    TPageAxis m_axis;
    TzuOffscreenPaint m_area;
    std::vector<TVisibleNode> m_rows;
    std::vector<TLinkCrossing> m_crossings;
};

} // namespace korvane
