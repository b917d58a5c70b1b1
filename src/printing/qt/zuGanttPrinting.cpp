#include "printing/qt/zuGanttPrinting.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/zuTranslate.h"
#include "gantt/qt/zuGantComBasic.h"
#include "printing/qt/zuGanttPage.h"
#include "printing/qt/zuPrintParts.h"

#include <QLocale>
#include <QPainter>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <unordered_map>

namespace korvane {

namespace {

/// Room around the first and last item, in pixels.
constexpr int kTimeMargin = 12;

} // namespace

TzuGanttPrinting::TzuGanttPrinting(TzuGant_ComBasic &gant)
    : m_gant(gant)
{
}

TzuGanttPrinting::~TzuGanttPrinting() = default;

TPrintLayout TzuGanttPrinting::LayOutContent(const TPrintRoom &room, const TPrintScaling &scaling)
{
    CollectRows();
    SetUpAxis();
    m_labels.Measure(m_gant.Tree(), m_outline.Rows);
    TzuDateScaler &axis = *m_axis;
    const TPrintTime across({[&](TDateTime date) { return axis.DateToPixel(date); },
                             [&](int pixel) { return axis.PixelToDate(pixel); }},
                            m_outline.Rows.empty() ? 0 : axis.width(), axis.FirstDayOfWeek());
    const TPrintContent content{across, *m_down, static_cast<double>(m_labels.Width()),
                                static_cast<double>(HeadHeight())};
    TPrintLayout layout(content, room, scaling);
    CollectLinks(layout.Down());
    return layout;
}

bool TzuGanttPrinting::IsWanted(int number, TzuDataEntity_Tree &entity) const
{
    if (m_rowRange && (number < m_rowRange->first || number > m_rowRange->second)) {
        return false;
    }
    if (!m_selectionOnly || entity.GetSelected()) {
        return true;
    }
    bool selected = false;
    if (TGantRow *row = m_gant.GantRows().FindRowFromTreeNode(&entity)) {
        row->ForEachShown(
            [&](const TzuDataEntity_Spanbar &item) { selected = selected || item.GetSelected(); });
    }
    return selected;
}

void TzuGanttPrinting::CollectRows()
{
    TGantTree &tree = m_gant.Tree();
    m_outline = CollectOutline(
        tree, [this](int number, TzuDataEntity_Tree &entity) { return IsWanted(number, entity); });
    m_down = std::make_unique<TPrintRows>(m_outline.Parents, tree.RowHeight(),
                                          m_repeatHeadings ? kMostPrintHeadings : 0);
}

std::pair<TDateTime, TDateTime> TzuGanttPrinting::PrintedTime() const
{
    if (m_range) {
        return *m_range;
    }
    TDateTime from = std::numeric_limits<TDateTime>::max();
    TDateTime to = std::numeric_limits<TDateTime>::lowest();
    for (const TzuDataEntity_Tree *entity : m_outline.Rows) {
        if (TGantRow *row = m_gant.GantRows().FindRowFromTreeNode(entity)) {
            row->ForEachShown([&](const TzuDataEntity_Spanbar &item) {
                from = std::min({from, item.GetStartDateTime(), item.GetStopDateTime()});
                to = std::max({to, item.GetStartDateTime(), item.GetStopDateTime()});
            });
        }
    }
    if (from > to) {
        return {m_gant.Start(), m_gant.Stop()};
    }
    const TDateTime margin =
        kTimeMargin * (m_timeScale > 0 ? m_timeScale : m_gant.DateScaler().GetScale());
    return {from - margin, to + margin};
}

void TzuGanttPrinting::SetUpAxis()
{
    const auto [from, to] = PrintedTime();
    if (!(to > from)) {
        throw std::runtime_error(Translate("TzuPrinting", "The time to print is empty"));
    }
    const double scale = m_timeScale > 0 ? m_timeScale : m_gant.DateScaler().GetScale();
    if (!(scale > 0)) {
        throw std::runtime_error(Translate("TzuPrinting", "The time axis has no scale"));
    }
    m_axis = MakeWholeAxis(m_gant.DateScaler(), {from, to}, scale, m_gant.GetScalerHeight());
}

void TzuGanttPrinting::CollectLinks(const std::vector<TPageSpan> &pages)
{
    std::unordered_map<const TzuDataEntity_Tree *, int> rowOf;
    rowOf.reserve(m_outline.Rows.size());
    for (std::size_t row = 0; row < m_outline.Rows.size(); ++row) {
        rowOf.emplace(m_outline.Rows[row], static_cast<int>(row));
    }
    const auto rowOfEnd = [&](const TzuDataEntity_Spanbar *item) {
        const TGantRow *row = item == nullptr ? nullptr : item->GetRow();
        const auto found = row == nullptr ? rowOf.end() : rowOf.find(row->TreeNode());
        return found == rowOf.end() ? -1 : found->second;
    };
    const auto pageOf = [&](int row) {
        const auto after = std::ranges::upper_bound(pages, static_cast<double>(m_down->TopOf(row)),
                                                    {}, &TPageSpan::From);
        return static_cast<std::size_t>(after - pages.begin() - 1);
    };
    m_links.assign(pages.size(), {});
    TzuDataList &links = m_gant.GetLinks();
    for (int i = 0; i < links.Count(); ++i) {
        const auto *link = static_cast<const TzuDataEntity_Link *>(links.GetItems(i));
        const TLinkRows rows{rowOfEnd(link->First()), rowOfEnd(link->Second())};
        if (rows.First < 0 || rows.Second < 0) {
            continue;
        }
        const auto [top, bottom] = std::minmax({pageOf(rows.First), pageOf(rows.Second)});
        for (std::size_t page = top; top != bottom && page <= bottom; ++page) {
            m_links[page].push_back(rows);
        }
    }
}

std::vector<TPrintBookmark> TzuGanttPrinting::Bookmarks() const
{
    std::vector<TPrintBookmark> bookmarks;
    AddBookmarks(m_outline, [&](const QString &title, int level, int row) {
        bookmarks.push_back(BookmarkAt(title, level, m_down->TopOf(row), m_gant.GetScalerHeight()));
    });
    return bookmarks;
}

int TzuGanttPrinting::HeadHeight() const
{
    return m_gant.GetScalerHeight() * (m_axisAtBottom ? 2 : 1);
}

QSizeF TzuGanttPrinting::ContentSize(const TPrintPage &page) const
{
    return {m_labels.Width() + page.Across.To - page.Across.From,
            HeadHeight() + page.Down.Repeated + std::ceil(page.Down.To - page.Down.From)};
}

std::string TzuGanttPrinting::RangeOf(const TPrintPage &page) const
{
    const auto day = [](TDateTime date) {
        return QLocale().toString(ToQDateTime(date).date(), QLocale::ShortFormat);
    };
    const TDateTime last = m_axis->PixelToDate(static_cast<int>(page.Across.To) - 1);
    return FromQt(day(m_axis->PixelToDate(static_cast<int>(page.Across.From)))
                  + QStringLiteral(" \u2013 ") + day(last));
}

void TzuGanttPrinting::PaintContent(QPainter &painter, const TPrintPage &page)
{
    TGanttPage view(*this, page);
    view.Paint(painter, {m_labels.Width(), 0});
    painter.setBrush(Qt::NoBrush);
    PaintLabels(painter, view);
    if (m_linkMarks) {
        PaintLinkMarks(painter, view);
    }
    const QSizeF size = ContentSize(page);
    const double top = m_gant.GetScalerHeight();
    PaintFrame(painter, size, m_labels.Width(), top);
    if (m_axisAtBottom) {
        painter.drawLine(QPointF(0, size.height() - top),
                         QPointF(size.width(), size.height() - top));
    }
}

void TzuGanttPrinting::PaintLabels(QPainter &painter, const TGanttPage &page) const
{
    const int head = m_gant.GetScalerHeight();
    const QSize area = page.AreaSize();
    painter.save();
    painter.setClipRect(QRectF(0, 0, m_labels.Width(), head + area.height()), Qt::IntersectClip);
    double left = 0;
    for (std::size_t i = 0; i < m_labels.Columns.size(); ++i) {
        const double width = m_labels.Widths()[i];
        m_labels.PaintTitle(painter, {left, 0, width, static_cast<double>(head)}, i);
        for (const TVisibleNode &row : page.Rows()) {
            m_labels.PaintCell(painter, QRectF(left, head + row.Rect.Top, width, row.Rect.Height()),
                               i, *row.Node);
        }
        left += width;
        painter.setPen(QPen(kPrintFrameColor, kPrintLine));
        painter.drawLine(QPointF(left, 0), QPointF(left, head + area.height()));
    }
    painter.restore();
}

/// Small arrows at the edges, each with the number of the page on which a link goes on.
void TzuGanttPrinting::PaintLinkMarks(QPainter &painter, const TGanttPage &page) const
{
    constexpr double kSize = 4;
    constexpr double kBox = 22;
    constexpr double kNear = 9;
    const TPrintLayout &layout = Layout();
    const QPointF origin(m_labels.Width(), m_gant.GetScalerHeight());
    QFont font = Paper().Font();
    font.setPixelSize(7);
    painter.setFont(font);
    QSet<QPair<int, int>> marked; // links close to each other share a mark
    for (const TLinkCrossing &crossing : page.Crossings()) {
        QPoint way(1, 0);
        switch (crossing.Side) {
        case TPageSide::Left:
            way = {-1, 0};
            break;
        case TPageSide::Top:
            way = {0, -1};
            break;
        case TPageSide::Right:
            break;
        case TPageSide::Bottom:
            way = {0, 1};
            break;
        }
        const int column = page.Page().Column + way.x();
        const int row = page.Page().Row + way.y();
        const double along = way.x() != 0 ? crossing.At.y() : crossing.At.x();
        const QPair<int, int> place(static_cast<int>(crossing.Side),
                                    static_cast<int>(std::floor(along / kNear)));
        if (column < 0 || row < 0 || column >= layout.Columns() || row >= layout.Rows()
            || marked.contains(place)) {
            continue;
        }
        marked.insert(place);
        const QPointF tip = origin + crossing.At;
        const QPointF back = QPointF(way) * kSize;
        const QPointF side = QPointF(way.y(), way.x()) * (kSize * 0.7);
        painter.setPen(Qt::NoPen);
        painter.setBrush(kPrintFrameColor);
        painter.drawPolygon(QPolygonF({tip, tip - back + side, tip - back - side}));
        painter.setPen(kPrintFrameColor);
        // Beside the line, not on it.
        QRectF box(0, 0, kBox, kNear);
        box.moveBottomLeft(tip + QPointF(2, way.y() > 0 ? -1 : way.y() < 0 ? kNear : -1));
        if (way.x() > 0) {
            box.moveRight(tip.x() - 1);
        }
        painter.drawText(box, Qt::AlignVCenter | (way.x() > 0 ? Qt::AlignRight : Qt::AlignLeft),
                         QString::number(layout.PageIndex(column, row) + 1));
    }
    painter.setBrush(Qt::NoBrush);
}

} // namespace korvane
