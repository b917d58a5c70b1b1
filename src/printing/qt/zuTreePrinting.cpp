#include "printing/qt/zuTreePrinting.h"

#include "foundation/qt/zuConvert.h"
#include "printing/qt/zuPrintParts.h"
#include "tree/qt/zuTreeComBasic.h"

#include <QPainter>
#include <QScopeGuard>

#include <cmath>

namespace korvane {

TzuTreePrinting::TzuTreePrinting(TzuTree_ComBasic &tree)
    : m_tree(tree)
{
}

TPrintLayout TzuTreePrinting::LayOutContent(const TPrintRoom &room, const TPrintScaling &scaling)
{
    m_outline = CollectOutline(m_tree, [this](int number, const TzuDataEntity_Tree &row) {
        return HasRow(number) && (!IsSelectionOnly() || row.GetSelected());
    });
    m_labels.Measure(m_tree, m_outline.Rows);
    FitColumns(room.Width / (scaling.Fit == TPrintFit::pfPercent ? scaling.Percent / 100 : 1));
    const std::vector<int> &widths = m_labels.Widths();
    m_across = std::make_unique<TPrintRows>(std::vector<int>(
        widths.begin() + static_cast<std::ptrdiff_t>(RepeatedColumns()), widths.end()));
    m_down = std::make_unique<TPrintRows>(m_labels.Heights(), m_outline.Parents,
                                          m_repeatHeadings ? kMostPrintHeadings : 0);
    return {{*m_across, *m_down, static_cast<double>(RepeatedWidth()),
             static_cast<double>(HeadHeight())},
            room,
            scaling};
}

/// All into a page, if that leaves the captions a fair share of it; else each into what the
/// captions leave, so that there are more pages.
void TzuTreePrinting::FitColumns(double page)
{
    constexpr double kShare = 0.4;
    m_labels.FitInto(page);
    const bool fits = m_labels.Width() <= page && m_labels.Widths().front() >= kShare * page;
    if (!fits) {
        m_labels.LimitColumns(page * (RepeatedColumns() > 0 ? kShare : 1));
    }
}

int TzuTreePrinting::HeadHeight() const
{
    return m_labels.HasTitles() ? m_labels.TitleHeight() : 0;
}

TPrintFlow TzuTreePrinting::Flow() const
{
    return m_tree.isRightToLeft() ? TPrintFlow::RightToLeft : TPrintFlow::LeftToRight;
}

std::string TzuTreePrinting::RangeOf(const TPrintPage &page) const
{
    return RowRangeText(*m_down, page.Down);
}

std::vector<TPrintBookmark> TzuTreePrinting::Bookmarks() const
{
    std::vector<TPrintBookmark> bookmarks;
    for (const TPrintGroup &group : GroupsOf(m_outline.Parents)) {
        const TzuDataEntity_Tree &row = *m_outline.Rows[static_cast<std::size_t>(group.Row)];
        bookmarks.push_back(
            BookmarkAt(ToQt(row.GetText()), group.Level, m_down->TopOf(group.Row), HeadHeight()));
    }
    return bookmarks;
}

void TzuTreePrinting::PaintContent(QPainter &painter, const TPrintPage &page)
{
    const QSizeF size = ContentSize(page);
    painter.save();
    auto restore = qScopeGuard([&] { painter.restore(); });
    painter.setClipRect(QRectF(QPointF(0, 0), size), Qt::IntersectClip);
    const std::size_t repeated = RepeatedColumns();
    const int after = m_across->RowFrom(page.Across.To);
    for (int column = m_across->RowAt(page.Across.From); column < after; ++column) {
        PaintColumn(painter, page, repeated + static_cast<std::size_t>(column),
                    RepeatedWidth() + m_across->TopOf(column) - page.Across.From);
    }
    if (repeated > 0) {
        const double left = Flow() == TPrintFlow::RightToLeft ? size.width() - RepeatedWidth() : 0;
        painter.fillRect(QRectF(left, 0, RepeatedWidth(), size.height()), Qt::white);
        PaintColumn(painter, page, 0, 0);
    }
    restore.dismiss();
    painter.restore();
    PaintFrame(painter, size,
               Flow() == TPrintFlow::RightToLeft ? size.width() - RepeatedWidth() : RepeatedWidth(),
               HeadHeight());
}

/// `before` is what stands before the column on the page, in reading direction.
void TzuTreePrinting::PaintColumn(QPainter &painter, const TPrintPage &page, std::size_t column,
                                  double before) const
{
    const double width = m_labels.Widths()[column];
    const bool mirrored = Flow() == TPrintFlow::RightToLeft;
    const double left = mirrored ? ContentSize(page).width() - before - width : before;
    const double head = HeadHeight();
    if (head > 0) {
        m_labels.PaintTitle(painter, {left, 0, width, head}, column);
    }
    const auto paint = [&](int row, double top) {
        m_labels.PaintCell(painter, {left, top, width, static_cast<double>(m_down->SizeOf(row))},
                           column, *m_outline.Rows[static_cast<std::size_t>(row)]);
    };
    double top = head;
    const int first = m_down->RowAt(page.Down.From);
    if (page.Down.Repeated > 0) {
        for (const int heading : m_down->HeadingsAt(first)) {
            paint(heading, top);
            top += m_down->SizeOf(heading);
        }
    }
    const int after = m_down->RowFrom(page.Down.To);
    for (int row = first; row < after; ++row) {
        paint(row, top + m_down->TopOf(row) - page.Down.From);
    }
    painter.setPen(QPen(kPrintFrameColor, kPrintLine));
    const double end = mirrored ? left : left + width;
    painter.drawLine(QPointF(end, 0), QPointF(end, top + page.Down.To - page.Down.From));
}

} // namespace korvane
