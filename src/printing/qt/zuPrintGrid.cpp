#include "printing/qt/zuPrintGrid.h"

#include "cellgrid/qt/zuBabGridView.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuMirrorCanvas.h"
#include "printing/qt/zuPrintParts.h"

#include <QPainter>
#include <QScopeGuard>

#include <algorithm>

namespace korvane {

TPrintGrid::TColumns TPrintGrid::ShownColumns() const
{
    m_grid.EnsureLayout();
    TAxisContentList &list = m_grid.RootCell().Columns();
    TColumns columns;
    for (int index = list.FixedCount(); index < list.Count(); ++index) {
        if (const int width = list.SizeAt(index); width > 0) {
            columns.push_back({index, width});
        }
    }
    if (m_grid.ExtendLastColumnToWidth() && !columns.empty()) {
        const TRect shown = m_grid.CellRect({&m_grid.RootCell(), columns.back().Index, 0});
        columns.back().Width = std::max(columns.back().Width, shown.Width());
    }
    return columns;
}

int TPrintGrid::WidthOf(const TColumns &columns)
{
    int width = 0;
    for (const auto &column : columns) {
        width += column.Width;
    }
    return width;
}

int TPrintGrid::HeadRows() const
{
    return m_grid.RootCell().Rows().FixedCount();
}

int TPrintGrid::HeadHeight() const
{
    const TAxisContentList &rows = m_grid.RootCell().Rows();
    int height = 0;
    for (int index = 0; index < rows.FixedCount(); ++index) {
        height += rows.SizeAt(index);
    }
    return height;
}

void TPrintGrid::ForEachRow(const TColumns &columns, int first, int last,
                            const std::function<void(const TGridBand &)> &visit)
{
    constexpr int kAtOnce = 128;
    TGridPrintSlice slice;
    slice.Columns = columns;
    last = std::min(last, m_grid.RootCell().Rows().Count() - 1);
    const auto restore = qScopeGuard([this] { m_grid.SetPrintSlice(nullptr); });
    for (int from = first; from <= last; from += kAtOnce) {
        slice.FirstRow = from;
        slice.LastRow = std::min(from + kAtOnce - 1, last);
        m_grid.SetPrintSlice(&slice);
        for (const TGridBand &row : m_grid.Shown().Rows) {
            visit(row);
        }
    }
}

std::optional<QString> TPrintGrid::TreeText(const TColumns &columns, TAxisContentItem &row) const
{
    TBabGridCell &root = m_grid.RootCell();
    for (const auto &column : columns) {
        TAxisContentItem *item = root.Columns().FindLoaded(column.Index);
        const TBabColumn *kind = item != nullptr ? TBabGridLayoutCore::ColumnOf(*item) : nullptr;
        if (kind != nullptr && kind->IsTreeColumn()) {
            return ToQt(root.CellText(*item, row));
        }
    }
    return std::nullopt;
}

void TPrintGrid::PaintHead(QPainter &painter, const TColumns &columns, const QPointF &at)
{
    const QRectF all(at, QSizeF(WidthOf(columns), HeadHeight()));
    PaintSlice(painter, {columns, 0, HeadRows() - 1, {}}, at, all.height(), all);
}

void TPrintGrid::PaintRows(QPainter &painter, const TColumns &columns, int first, int last,
                           const QPointF &at, double height, const QRectF &page)
{
    PaintSlice(painter, {columns, first, last, {}}, at, height, page);
}

void TPrintGrid::PaintSlice(QPainter &painter, const TGridPrintSlice &slice, const QPointF &at,
                            double height, const QRectF &page)
{
    const int width = WidthOf(slice.Columns);
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
    area.OnPaint = [&](TzuOffscreenPaint *sender) {
        TPainterCanvas &canvas = sender->GetOffscreenCanvas();
        canvas.SetTextPage(FromQt(page.translated(-at).toAlignedRect()));
        canvas.SetFont(m_grid.Font());
        auto &core = static_cast<TBabGridSelectCore &>(m_grid);
        if (m_grid.isRightToLeft()) {
            TMirrorCanvas mirrored(canvas, width);
            core.Paint(mirrored);
        } else {
            core.Paint(canvas);
        }
    };
    m_grid.SetPrintSlice(&painted);
    const auto restore = qScopeGuard([this] { m_grid.SetPrintSlice(nullptr); });
    // Laid out before anything is drawn: rows may have to be loaded.
    m_grid.EnsureLayout();
    painter.save();
    const auto restorePainter = qScopeGuard([&] { painter.restore(); });
    painter.translate(at);
    area.Print(painter, 0, 0, 1, 1);
}

} // namespace korvane
