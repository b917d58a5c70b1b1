#include "printing/qt/zuGanttPrinting.h"

#include "gantt/qt/zuGantComBasic.h"
#include "printing/qt/zuGanttPage.h"
#include "printing/qt/zuGanttSide.h"
#include "printing/qt/zuPageAxis.h"
#include "printing/qt/zuPrintParts.h"

#include <QPainter>
#include <QScopeGuard>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <limits>
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
    TzuDateScaler &axis = *(m_axis = MakeWholeAxis(m_gant.DateScaler(), PrintedTime(),
                                                   TimeScaleOr(m_gant.DateScaler().GetScale()),
                                                   m_gant.GetScalerHeight()));
    m_axisLabels = std::make_unique<TPageAxisLabels>(axis);
    const TPrintTime across({[&](TDateTime date) { return axis.DateToPixel(date); },
                             [&](int pixel) { return axis.PixelToDate(pixel); }},
                            m_rows.empty() ? 0 : axis.width(), axis.FirstDayOfWeek());
    SizeRows(across, room, scaling);
    const TPrintContent content{across, *m_down, static_cast<double>(m_side->Width()),
                                static_cast<double>(HeadHeight())};
    TPrintLayout layout(content, room, scaling);
    CollectLinks(layout.Down());
    return layout;
}

/// Labels that need more than their share of the page get it, in higher rows.
void TzuGanttPrinting::SizeRows(const IPrintAxis &across, const TPrintRoom &room,
                                const TPrintScaling &scaling)
{
    const auto size = [this](double labels) {
        m_down = std::make_unique<TPrintRows>(m_side->FitInto(labels), m_parents,
                                              m_repeatHeadings ? kMostPrintHeadings : 0);
    };
    size(std::numeric_limits<double>::infinity());
    const double labels =
        RoomForLabels({across, *m_down, 0, static_cast<double>(HeadHeight())}, room, scaling);
    if (m_side->Width() > labels) {
        size(labels);
    }
}

TPrintFlow TzuGanttPrinting::Flow() const
{
    return m_gant.isRightToLeft() ? TPrintFlow::LabelsAtRight : TPrintFlow::LeftToRight;
}

TGantRow *TzuGanttPrinting::RowOf(const TVisibleNode &node) const
{
    const TGantRowList &rows = m_gant.GantRows();
    return node.Node != nullptr ? rows.FindRowFromTreeNode(node.Node)
                                : rows.FindRowFromGridNode(node.GridNode);
}

bool TzuGanttPrinting::IsWanted(int number, const TVisibleNode &node, bool isSelected) const
{
    if (!HasRow(number) || !IsSelectionOnly() || isSelected) {
        return HasRow(number);
    }
    bool selected = false;
    if (TGantRow *row = RowOf(node)) {
        row->ForEachShown(
            [&](const TzuDataEntity_Spanbar &item) { selected = selected || item.GetSelected(); });
    }
    return selected;
}

void TzuGanttPrinting::CollectRows()
{
    m_side = m_gant.UseGridNotTree() ? MakeGridSide(m_gant, m_gridColumns)
                                     : MakeTreeSide(m_gant, m_labels);
    IGanttSide::TRows rows =
        m_side->Collect([this](int number, const TVisibleNode &node, bool isSelected) {
            return IsWanted(number, node, isSelected);
        });
    m_rows = std::move(rows.Nodes);
    m_parents = std::move(rows.Parents);
}

std::pair<TDateTime, TDateTime> TzuGanttPrinting::PrintedTime() const
{
    if (Range()) {
        return *Range();
    }
    TDateTime from = std::numeric_limits<TDateTime>::max();
    TDateTime to = std::numeric_limits<TDateTime>::lowest();
    for (const TVisibleNode &node : m_rows) {
        if (TGantRow *row = RowOf(node)) {
            row->ForEachShown([&](const TzuDataEntity_Spanbar &item) {
                from = std::min({from, item.GetStartDateTime(), item.GetStopDateTime()});
                to = std::max({to, item.GetStartDateTime(), item.GetStopDateTime()});
            });
        }
    }
    if (from > to) {
        return {m_gant.Start(), m_gant.Stop()};
    }
    const TDateTime margin = kTimeMargin * TimeScaleOr(m_gant.DateScaler().GetScale());
    return {from - margin, to + margin};
}

void TzuGanttPrinting::CollectLinks(const std::vector<TPageSpan> &pages)
{
    std::unordered_map<const TGantRow *, int> rowOf;
    rowOf.reserve(m_rows.size());
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        rowOf.emplace(RowOf(m_rows[row]), static_cast<int>(row));
    }
    const auto rowOfEnd = [&](const TzuDataEntity_Spanbar *item) {
        const TGantRow *row = item == nullptr ? nullptr : item->GetRow();
        const auto found = row == nullptr ? rowOf.end() : rowOf.find(row);
        return found == rowOf.end() ? -1 : found->second;
    };
    const auto pageOf = [&](int row) {
        const auto after = std::ranges::upper_bound(pages, static_cast<double>(m_down->TopOf(row)),
                                                    {}, &TPageSpan::From);
        return static_cast<std::size_t>(after - pages.begin() - 1);
    };
    m_links.assign(2 * pages.size(), {});
    TzuDataList &links = m_gant.GetLinks();
    for (int i = 0; i < links.Count(); ++i) {
        const auto *link = static_cast<const TzuDataEntity_Link *>(links.GetItems(i));
        const TLinkRows rows{rowOfEnd(link->First()), rowOfEnd(link->Second())};
        if (rows.First < 0 || rows.Second < 0) {
            continue;
        }
        const auto [top, bottom] = std::minmax({pageOf(rows.First), pageOf(rows.Second)});
        if (top == bottom) {
            continue;
        }
        std::size_t from = pages.size() + top;
        for (std::size_t after = pages.size() + bottom + 1; from < after; from /= 2, after /= 2) {
            if (from % 2 == 1) {
                m_links[from++].push_back(rows);
            }
            if (after % 2 == 1) {
                m_links[--after].push_back(rows);
            }
        }
    }
}

std::vector<TPrintBookmark> TzuGanttPrinting::Bookmarks() const
{
    std::vector<TPrintBookmark> bookmarks;
    for (const TPrintGroup &group : GroupsOf(m_parents)) {
        const TVisibleNode &node = m_rows[static_cast<std::size_t>(group.Row)];
        bookmarks.push_back(BookmarkAt(m_side->CaptionOf(node), group.Level,
                                       m_down->TopOf(group.Row), m_gant.GetScalerHeight()));
    }
    return bookmarks;
}

int TzuGanttPrinting::HeadHeight() const
{
    return m_gant.GetScalerHeight() * (IsAxisAtBothEdges() ? 2 : 1);
}

std::string TzuGanttPrinting::RangeOf(const TPrintPage &page) const
{
    return DayRangeText(*m_axis, page.Across);
}

void TzuGanttPrinting::PaintContent(QPainter &painter, const TPrintPage &page)
{
    TGanttPage view(*this, page);
    view.Paint(painter, AreaPlace());
    painter.setBrush(Qt::NoBrush);
    PaintSide(painter, view);
    if (m_linkMarks) {
        PaintLinkMarks(painter, view);
    }
    const QSizeF size = ContentSize(page);
    const double top = m_gant.GetScalerHeight();
    PaintFrame(painter, size,
               Flow() == TPrintFlow::LeftToRight ? m_side->Width() : view.AreaSize().width(), top);
    if (IsAxisAtBothEdges()) {
        painter.drawLine(QPointF(0, size.height() - top),
                         QPointF(size.width(), size.height() - top));
    }
}

/// The upper left corner of axis and area.
QPoint TzuGanttPrinting::AreaPlace() const
{
    return {Flow() == TPrintFlow::LeftToRight ? m_side->Width() : 0, 0};
}

void TzuGanttPrinting::PaintSide(QPainter &painter, const TGanttPage &page) const
{
    const int head = m_gant.GetScalerHeight();
    const int height = page.AreaSize().height();
    painter.save();
    const auto restore = qScopeGuard([&] { painter.restore(); });
    painter.translate(Flow() == TPrintFlow::LeftToRight ? 0 : page.AreaSize().width(), 0);
    painter.setClipRect(QRectF(0, 0, m_side->Width(), head + height), Qt::IntersectClip);
    m_side->Paint(painter, head, height, page.Rows());
}

/// Small arrows at the edges, each with the number of the page on which a link goes on.
void TzuGanttPrinting::PaintLinkMarks(QPainter &painter, const TGanttPage &page) const
{
    constexpr double kSize = 4;
    constexpr double kBox = 22;
    constexpr double kNear = 9;
    const TPrintLayout &layout = Layout();
    const QPointF origin = AreaPlace() + QPointF(0, m_gant.GetScalerHeight());
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
                         QString::number(NumberOf(layout.PageIndex(column, row))));
    }
    painter.setBrush(Qt::NoBrush);
}

} // namespace korvane
