#include "printing/qt/zuGridPrinting.h"

#include "cellgrid/qt/zuBabGridView.h"
#include "printing/qt/zuPrintParts.h"

#include <QPainter>
#include <QScopeGuard>

#include <algorithm>
#include <cmath>

namespace korvane {

namespace {

std::vector<int> WidthsOf(const std::vector<TGridPrintSlice::TColumn> &columns)
{
    std::vector<int> widths;
    for (const auto &column : columns) {
        widths.push_back(column.Width);
    }
    return widths;
}

int Total(const std::vector<int> &sizes)
{
    int total = 0;
    for (const int size : sizes) {
        total += size;
    }
    return total;
}

} // namespace

TzuGridPrinting::TzuGridPrinting(TBabGridView_Custom &grid)
    : m_grid(grid)
{
}

TPrintLayout TzuGridPrinting::LayOutContent(const TPrintRoom &room, const TPrintScaling &scaling)
{
    m_grid.EnsureLayout();
    CollectColumns();
    CollectRows();
    const TPrintContent content{*m_across, *m_down, static_cast<double>(m_labelWidth),
                                static_cast<double>(HeadHeight())};
    return {content, room, scaling};
}

void TzuGridPrinting::CollectColumns()
{
    TAxisContentList &columns = m_grid.RootCell().Columns();
    m_columns.clear();
    for (int index = columns.FixedCount(); index < columns.Count(); ++index) {
        if (const int width = columns.SizeAt(index); width > 0) {
            m_columns.push_back({index, width});
        }
    }
    if (m_grid.ExtendLastColumnToWidth() && !m_columns.empty()) {
        const TRect shown = m_grid.CellRect({&m_grid.RootCell(), m_columns.back().Index, 0});
        m_columns.back().Width = std::max(m_columns.back().Width, shown.Width());
    }
    const auto repeated =
        std::clamp<std::ptrdiff_t>(m_repeatedColumns, 0, std::max(std::ssize(m_columns) - 1, 0L));
    m_labels.assign(m_columns.begin(), m_columns.begin() + repeated);
    m_columns.erase(m_columns.begin(), m_columns.begin() + repeated);
    m_labelWidth = Total(WidthsOf(m_labels));
    m_across = std::make_unique<TPrintRows>(WidthsOf(m_columns));
}

/// Rows come by and by: measuring one loads it, and those before it may be dropped again.
void TzuGridPrinting::CollectRows()
{
    constexpr int kAtOnce = 128;
    TBabGridCell &root = m_grid.RootCell();
    TAxisContentList &rows = root.Rows();
    const int head = rows.FixedCount();
    int first = head;
    int last = rows.Count() - 1;
    if (m_rowRange) {
        first = std::max(first, head + m_rowRange->first);
        last = std::min(last, head + m_rowRange->second);
    }
    m_rows.clear();
    std::vector<int> heights;
    TGridPrintSlice slice;
    slice.Columns = m_labels;
    slice.Columns.insert(slice.Columns.end(), m_columns.begin(), m_columns.end());
    const auto restore = qScopeGuard([this] { m_grid.SetPrintSlice(nullptr); });
    for (int from = first; from <= last; from += kAtOnce) {
        slice.FirstRow = from;
        slice.LastRow = std::min(from + kAtOnce - 1, last);
        m_grid.SetPrintSlice(&slice);
        for (const TGridBand &row : m_grid.Shown().Rows) {
            if (!m_selectionOnly || root.Selection().RowHasSelected(row.Index)) {
                m_rows.push_back(row.Index);
                heights.push_back(row.Far - row.Near);
            }
        }
    }
    m_down = std::make_unique<TPrintRows>(heights);
}

int TzuGridPrinting::HeadHeight() const
{
    const TAxisContentList &rows = m_grid.RootCell().Rows();
    int height = 0;
    for (int index = 0; index < rows.FixedCount(); ++index) {
        height += rows.SizeAt(index);
    }
    return height;
}

QSizeF TzuGridPrinting::ContentSize(const TPrintPage &page) const
{
    return {m_labelWidth + page.Across.To - page.Across.From,
            HeadHeight() + page.Down.To - page.Down.From};
}

std::string TzuGridPrinting::RangeOf(const TPrintPage &page) const
{
    return RowRangeText(*m_down, page.Down);
}

std::vector<TzuGridPrinting::TRun> TzuGridPrinting::RunsOf(const TPrintPage &page) const
{
    std::vector<TRun> runs;
    const int after = m_down->RowFrom(page.Down.To);
    for (int row = m_down->RowAt(page.Down.From); row < after; ++row) {
        const int index = m_rows[static_cast<std::size_t>(row)];
        if (runs.empty() || runs.back().Last + 1 != index) {
            runs.push_back({index, index, m_down->TopOf(row) - page.Down.From, 0});
        }
        runs.back().Last = index;
        runs.back().Height += m_down->SizeOf(row);
    }
    return runs;
}

void TzuGridPrinting::PaintContent(QPainter &painter, const TPrintPage &page)
{
    const QSizeF size = ContentSize(page);
    TColumns columns;
    const int first = m_across->RowAt(page.Across.From);
    const int after = m_across->RowFrom(page.Across.To);
    columns.assign(m_columns.begin() + first, m_columns.begin() + after);
    PaintPart(painter, page, columns,
              {static_cast<double>(m_labelWidth), 0, size.width() - m_labelWidth, size.height()},
              page.Across.From - m_across->TopOf(first));
    if (!m_labels.empty()) {
        PaintPart(painter, page, m_labels, {0, 0, static_cast<double>(m_labelWidth), size.height()},
                  0);
    }
    // The last lines of the grid lie within it; the frame is around it.
    PaintFrame(painter, size, 0, 0);
}

/// `scrolled`: by how much the columns begin before the place, when one is wider than a page.
void TzuGridPrinting::PaintPart(QPainter &painter, const TPrintPage &page, const TColumns &columns,
                                const QRectF &place, double scrolled)
{
    painter.save();
    const auto restore = qScopeGuard([&] { painter.restore(); });
    painter.setClipRect(place, Qt::IntersectClip);
    const double head = HeadHeight();
    const double left = place.left() - scrolled;
    PaintSlice(painter, {columns, 0, m_grid.RootCell().Rows().FixedCount() - 1, {}}, {left, 0},
               head);
    painter.setClipRect(place.adjusted(0, head, 0, 0), Qt::IntersectClip);
    for (const TRun &run : RunsOf(page)) {
        PaintSlice(painter, {columns, run.First, run.Last, {}}, {left, head + run.Top}, run.Height);
    }
}

void TzuGridPrinting::PaintSlice(QPainter &painter, const TGridPrintSlice &slice, const QPointF &at,
                                 double height)
{
    const int width = Total(WidthsOf(slice.Columns));
    if (width <= 0 || height <= 0) {
        return;
    }
    TzuOffscreenPaint area;
    UsePaper(area);
    area.resize(width, static_cast<int>(height));
    area.setFont(m_grid.font());
    area.OnPrintResizeFont = m_grid.OnPrintResizeFont;
    area.OnAfterPrint = m_grid.OnAfterPrint;
    TGridPrintSlice painted = slice;
    painted.FontChosen = [&area] { area.PrintResizeFont(); };
    area.OnPaint = [this](TzuOffscreenPaint *sender) {
        TCanvas &canvas = sender->GetOffscreenCanvas();
        canvas.SetFont(m_grid.Font());
        static_cast<TBabGridSelectCore &>(m_grid).Paint(canvas);
    };
    m_grid.SetPrintSlice(&painted);
    const auto restore = qScopeGuard([this] { m_grid.SetPrintSlice(nullptr); });
    // Laid out before anything is drawn: rows may have to be loaded.
    m_grid.EnsureLayout();
    painter.save();
    painter.translate(at);
    area.Print(painter, 0, 0, 1, 1);
    painter.restore();
}

} // namespace korvane
