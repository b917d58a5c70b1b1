#include "printing/qt/zuGridPrinting.h"

#include "cellgrid/qt/zuBabGridView.h"
#include "foundation/qt/zuConvert.h"
#include "grid/qt/zuGrid.h"
#include "printing/qt/zuPrintGrid.h"
#include "printing/qt/zuPrintLabels.h"
#include "printing/qt/zuPrintParts.h"

#include <QPainter>
#include <QScopeGuard>

#include <algorithm>

namespace korvane {

TzuGridPrinting::TzuGridPrinting(TBabGridView_Custom &grid)
    : m_grid(grid)
{
}

TPrintLayout TzuGridPrinting::LayOutContent(const TPrintRoom &room, const TPrintScaling &scaling)
{
    CollectColumns();
    CollectRows();
    const TPrintContent content{*m_across, *m_down,
                                static_cast<double>(TPrintGrid::WidthOf(m_labels)),
                                static_cast<double>(TPrintGrid(m_grid).HeadHeight())};
    return {content, room, scaling};
}

void TzuGridPrinting::CollectColumns()
{
    m_columns = TPrintGrid(m_grid).ShownColumns();
    const auto repeated =
        std::clamp<std::ptrdiff_t>(m_repeatedColumns, 0, std::max(std::ssize(m_columns) - 1, 0L));
    m_labels.assign(m_columns.begin(), m_columns.begin() + repeated);
    m_columns.erase(m_columns.begin(), m_columns.begin() + repeated);
    std::vector<int> widths;
    for (const auto &column : m_columns) {
        widths.push_back(column.Width);
    }
    m_across = std::make_unique<TPrintRows>(widths);
}

void TzuGridPrinting::CollectRows()
{
    TPrintGrid part(m_grid);
    TColumns columns = m_labels;
    columns.insert(columns.end(), m_columns.begin(), m_columns.end());
    const int head = part.HeadRows();
    TBabGridCell &root = m_grid.RootCell();
    const auto [first, last] = RowsOf(root.Rows().Count() - head);
    m_rows.clear();
    std::vector<int> heights;
    TPrintParents parents;
    part.ForEachRow(columns, head + first, head + last, [&](const TGridBand &row) {
        const auto *node = TzuGridTree::NodeOf(row.Item);
        const bool wanted = !IsSelectionOnly() || root.Selection().RowHasSelected(row.Index);
        parents.Add(node != nullptr ? node->GetLevel() : 0, wanted);
        if (wanted) {
            m_rows.push_back(row.Index);
            heights.push_back(row.Far - row.Near);
        }
    });
    m_parents = parents.Indexes();
    m_down =
        std::make_unique<TPrintRows>(heights, m_parents, m_repeatHeadings ? kMostPrintHeadings : 0);
}

TPrintFlow TzuGridPrinting::Flow() const
{
    return m_grid.isRightToLeft() ? TPrintFlow::RightToLeft : TPrintFlow::LeftToRight;
}

std::string TzuGridPrinting::RangeOf(const TPrintPage &page) const
{
    return RowRangeText(*m_down, page.Down);
}

std::vector<TPrintBookmark> TzuGridPrinting::Bookmarks() const
{
    const TPrintGrid part(m_grid);
    TColumns columns = m_labels;
    columns.insert(columns.end(), m_columns.begin(), m_columns.end());
    std::vector<TPrintBookmark> bookmarks;
    for (const TPrintGroup &group : GroupsOf(m_parents)) {
        TAxisContentItem *row =
            m_grid.RootCell().Rows().FindLoaded(m_rows[static_cast<std::size_t>(group.Row)]);
        const QString title =
            row != nullptr ? part.TreeText(columns, *row).value_or(QString()) : QString();
        bookmarks.push_back(
            BookmarkAt(title, group.Level, m_down->TopOf(group.Row), part.HeadHeight()));
    }
    return bookmarks;
}

std::vector<TzuGridPrinting::TRun> TzuGridPrinting::RunsOf(const TPrintPage &page) const
{
    std::vector<TRun> runs;
    const auto add = [&](int row, double top) {
        const int index = m_rows[static_cast<std::size_t>(row)];
        if (runs.empty() || runs.back().Last + 1 != index) {
            runs.push_back({index, index, top, 0});
        }
        runs.back().Last = index;
        runs.back().Height += m_down->SizeOf(row);
    };
    const int first = m_down->RowAt(page.Down.From);
    double top = 0;
    if (page.Down.Repeated > 0) {
        for (const int heading : m_down->HeadingsAt(first)) {
            add(heading, top);
            top += m_down->SizeOf(heading);
        }
    }
    const int after = m_down->RowFrom(page.Down.To);
    for (int row = first; row < after; ++row) {
        add(row, top + m_down->TopOf(row) - page.Down.From);
    }
    return runs;
}

void TzuGridPrinting::PaintContent(QPainter &painter, const TPrintPage &page)
{
    const QSizeF size = ContentSize(page);
    const double labels = Layout().LabelWidth();
    TColumns columns;
    const int first = m_across->RowAt(page.Across.From);
    const int after = m_across->RowFrom(page.Across.To);
    columns.assign(m_columns.begin() + first, m_columns.begin() + after);
    const bool mirrored = Flow() == TPrintFlow::RightToLeft;
    const double body = size.width() - labels;
    PaintPart(painter, page, columns, {mirrored ? 0 : labels, 0, body, size.height()},
              page.Across.From - m_across->TopOf(first));
    if (!m_labels.empty()) {
        PaintPart(painter, page, m_labels, {mirrored ? body : 0, 0, labels, size.height()}, 0);
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
    TPrintGrid part(m_grid);
    const double head = part.HeadHeight();
    const double left = Flow() == TPrintFlow::RightToLeft
                            ? place.right() + scrolled - TPrintGrid::WidthOf(columns)
                            : place.left() - scrolled;
    part.PaintHead(painter, columns, {left, 0});
    const QRectF body = place.adjusted(0, head, 0, 0);
    painter.setClipRect(body, Qt::IntersectClip);
    for (const TRun &run : RunsOf(page)) {
        part.PaintRows(painter, columns, run.First, run.Last, {left, head + run.Top}, run.Height,
                       OwnTexts(body, page));
    }
}

} // namespace korvane
