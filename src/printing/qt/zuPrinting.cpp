#include "printing/qt/zuPrinting.h"

#include "foundation/qt/zuConvert.h"

#include <QDateTime>
#include <QLocale>
#include <QPainter>
#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace korvane {

void TzuPrinting::LayOut()
{
    LayOutIn(m_paper.Room());
}

void TzuPrinting::LayOutFor(const QSizeF &room)
{
    LayOutIn({QPointF(0, 0), room});
}

void TzuPrinting::LayOutIn(const QRectF &room)
{
    m_layout = LayOutContent({room.width(), room.height()}, m_scaling);
    m_room = room;
}

void TzuPrinting::SetNumbering(int firstPage, int pages)
{
    m_firstPage = firstPage;
    m_allPages = pages;
}

TPrintFields TzuPrinting::FieldsOf(int page) const
{
    const QLocale locale;
    const QDateTime now = QDateTime::currentDateTime();
    TPrintFields fields;
    fields.Title = FromQt(Title());
    fields.File = FromQt(m_fileName);
    fields.Date = FromQt(locale.toString(now.date(), QLocale::ShortFormat));
    fields.Time = FromQt(locale.toString(now.time(), QLocale::ShortFormat));
    fields.Range = RangeOf(m_layout.Page(page));
    fields.Page = NumberOf(page);
    fields.Pages = m_allPages > 0 ? m_allPages : PageCount();
    return fields;
}

QSizeF TzuPrinting::ContentSize(const TPrintPage &page) const
{
    const auto extent = [](const TPageSpan &span) { return span.Repeated + span.To - span.From; };
    return {m_layout.LabelWidth() + extent(page.Across), m_layout.HeadHeight() + extent(page.Down)};
}

/// Where the content of a page begins in its room, in paper pixels.
double TzuPrinting::IndentOf(const TPrintPage &page) const
{
    return Flow() == TPrintFlow::LeftToRight
               ? 0
               : std::max(m_room.width() - ContentSize(page).width() * m_layout.Scale(), 0.0);
}

void TzuPrinting::PaintPage(QPainter &painter, const QRectF &sheet, int page)
{
    const TPrintPage shown = m_layout.Page(page);
    const QSizeF size = m_paper.SheetSize();
    const double fit = std::min(sheet.width() / size.width(), sheet.height() / size.height());
    painter.save();
    const auto restore = qScopeGuard([&] { painter.restore(); });
    painter.setClipRect(sheet, painter.hasClipping() ? Qt::IntersectClip : Qt::ReplaceClip);
    painter.translate(sheet.topLeft());
    painter.scale(fit, fit);
    const double scale = m_layout.Scale();
    const QRectF content(m_room.topLeft() + QPointF(IndentOf(shown), 0),
                         ContentSize(shown) * scale);
    TPrintEdges edges{shown.Column > 0, shown.Row > 0, shown.Column + 1 < m_layout.Columns(),
                      shown.Row + 1 < m_layout.Rows()};
    if (Flow() == TPrintFlow::RightToLeft) {
        std::swap(edges.Left, edges.Right);
    }
    m_paper.Paint(painter, FieldsOf(page), content, edges, shown);
    painter.translate(content.topLeft());
    painter.scale(scale, scale);
    PaintContent(painter, shown);
}

void TzuPrinting::PaintContentIn(QPainter &painter, const QRectF &place, int page)
{
    const TPrintPage shown = m_layout.Page(page);
    const double fit = std::min(place.width() / m_room.width(), place.height() / m_room.height());
    painter.save();
    const auto restore = qScopeGuard([&] { painter.restore(); });
    painter.setClipRect(place, painter.hasClipping() ? Qt::IntersectClip : Qt::ReplaceClip);
    painter.translate(place.topLeft());
    painter.scale(fit, fit);
    painter.translate(IndentOf(shown), 0);
    painter.scale(m_layout.Scale(), m_layout.Scale());
    PaintContent(painter, shown);
}

TPrintBookmark TzuPrinting::BookmarkAt(const QString &title, int level, double down,
                                       double head) const
{
    const auto &pages = m_layout.Down();
    const auto after = std::ranges::upper_bound(pages, down, {}, &TPageSpan::From);
    const auto page = std::max<std::ptrdiff_t>(after - pages.begin() - 1, 0);
    const TPageSpan &span = pages[static_cast<std::size_t>(page)];
    return {title, level, static_cast<int>(page),
            m_room.top() + (head + span.Repeated + down - span.From) * m_layout.Scale()};
}

} // namespace korvane
