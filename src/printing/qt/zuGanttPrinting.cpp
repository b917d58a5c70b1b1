#include "printing/qt/zuGanttPrinting.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuImageList.h"
#include "gantt/qt/zuGantComBasic.h"
#include "printing/qt/zuGanttPage.h"

#include <QFontInfo>
#include <QFontMetricsF>
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

constexpr int kMostHeadings = 4;
constexpr int kLabelPadding = 4;
/// Room around the first and last item, in pixels.
constexpr int kTimeMargin = 12;
constexpr int kLongestAxis = 50'000'000;
const QColor kFrameColor(96, 96, 96);
const QColor kLineColor(216, 216, 216);

QString CaptionOf(const TzuDataEntity_Tree &entity)
{
    return ToQt(entity.GetText());
}

/// The tree's font in pixels, so that no device makes points of its own density of it.
QFont LabelFont(const TGantTree &tree)
{
    QFont font = tree.font();
    font.setPixelSize(QFontInfo(font).pixelSize());
    return font;
}

/// Ink that can be read on white paper.
QColor Readable(const QColor &color)
{
    constexpr int kLightest = 150;
    return qGray(color.rgb()) > kLightest ? QColor(Qt::black) : color;
}

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
    MeasureColumns();
    TzuDateScaler &axis = *m_axis;
    const TPrintTime across({[&](TDateTime date) { return axis.DateToPixel(date); },
                             [&](int pixel) { return axis.PixelToDate(pixel); }},
                            m_rows.empty() ? 0 : axis.width(), axis.FirstDayOfWeek());
    const TPrintContent content{across, *m_down, static_cast<double>(m_labelWidth),
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
    m_rows.clear();
    std::vector<int> parents;
    std::vector<int> open; // by level: the last row on it
    TGantTree &tree = m_gant.Tree();
    int number = 0;
    for (TzuDataEntity_Tree *entity = tree.GetNextVisible(nullptr); entity != nullptr;
         entity = tree.GetNextVisible(entity), ++number) {
        const auto level = static_cast<std::size_t>(std::max(entity->GetLevel(), 0));
        open.resize(level, -1);
        const bool wanted = IsWanted(number, *entity);
        open.push_back(wanted ? static_cast<int>(m_rows.size()) : -1);
        if (wanted) {
            parents.push_back(level > 0 ? open[level - 1] : -1);
            m_rows.push_back(entity);
        }
    }
    m_down = std::make_unique<TPrintRows>(std::move(parents), tree.RowHeight(),
                                          m_repeatHeadings ? kMostHeadings : 0);
}

std::pair<TDateTime, TDateTime> TzuGanttPrinting::PrintedTime() const
{
    if (m_range) {
        return *m_range;
    }
    TDateTime from = std::numeric_limits<TDateTime>::max();
    TDateTime to = std::numeric_limits<TDateTime>::lowest();
    for (const TzuDataEntity_Tree *entity : m_rows) {
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
        throw std::runtime_error("The time to print is empty");
    }
    const double scale = m_timeScale > 0 ? m_timeScale : m_gant.DateScaler().GetScale();
    if (!(scale > 0)) {
        throw std::runtime_error("The time axis has no scale");
    }
    m_axis = std::make_unique<TzuDateScaler>();
    m_axis->BeginUpdate();
    m_axis->AssignLook(m_gant.DateScaler());
    m_axis->EndUpdate();
    // Hidden time makes room for more; how much shows only once the axis has it.
    TDateTime hidden = 0;
    constexpr int kRounds = 4;
    for (int round = 0; round < kRounds; ++round) {
        const double pixels = std::ceil((to - from - hidden) / scale);
        if (pixels > kLongestAxis) {
            throw std::runtime_error("The time to print is too long at this scale");
        }
        const int width = std::max(static_cast<int>(pixels), 1);
        m_axis->BeginUpdate();
        m_axis->resize(width, m_gant.GetScalerHeight());
        m_axis->SetRange(from, from + width * scale);
        m_axis->EndUpdate();
        if (m_axis->HiddenSpan() == hidden) {
            break;
        }
        hidden = m_axis->HiddenSpan();
    }
}

void TzuGanttPrinting::MeasureColumns()
{
    m_columnWidths.clear();
    m_labelWidth = 0;
    for (const TPrintColumn &column : m_columns) {
        m_columnWidths.push_back(column.Width > 0 ? column.Width : NeededWidth(column));
        m_labelWidth += m_columnWidths.back();
    }
}

int TzuGanttPrinting::NeededWidth(const TPrintColumn &column) const
{
    const TGantTree &tree = m_gant.Tree();
    QFont bold = LabelFont(tree);
    bold.setBold(true);
    const QFontMetricsF metrics(bold);
    double widest = metrics.horizontalAdvance(column.Title);
    for (const TzuDataEntity_Tree *entity : m_rows) {
        double width =
            metrics.horizontalAdvance(column.Text ? column.Text(*entity) : CaptionOf(*entity));
        if (!column.Text) {
            width += entity->GetLevel() * tree.Indent();
            width += tree.Images() != nullptr ? tree.Images()->Size().Width + kLabelPadding : 0;
        }
        widest = std::max(widest, width);
    }
    return std::min(static_cast<int>(std::ceil(widest)) + 2 * kLabelPadding,
                    TPrintColumn::kWidestColumn);
}

void TzuGanttPrinting::CollectLinks(const std::vector<TPageSpan> &pages)
{
    std::unordered_map<const TzuDataEntity_Tree *, int> rowOf;
    rowOf.reserve(m_rows.size());
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        rowOf.emplace(m_rows[row], static_cast<int>(row));
    }
    const auto rowOfEnd = [&](const TzuDataEntity_Spanbar *item) {
        const TGantRow *row = item == nullptr ? nullptr : item->GetRow();
        const auto found = row == nullptr ? rowOf.end() : rowOf.find(row->TreeNode());
        return found == rowOf.end() ? -1 : found->second;
    };
    const auto pageOf = [&](int row) {
        const auto after = std::ranges::upper_bound(
            pages, static_cast<double>(row) * m_down->RowHeight(), {}, &TPageSpan::From);
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

int TzuGanttPrinting::HeadHeight() const
{
    return m_gant.GetScalerHeight() * (m_axisAtBottom ? 2 : 1);
}

QSizeF TzuGanttPrinting::ContentSize(const TPrintPage &page) const
{
    return {m_labelWidth + page.Across.To - page.Across.From,
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
    view.Paint(painter, {m_labelWidth, 0});
    painter.setBrush(Qt::NoBrush);
    PaintLabels(painter, view);
    if (m_linkMarks) {
        PaintLinkMarks(painter, view);
    }
    const QSizeF size = ContentSize(page);
    painter.setPen(QPen(kFrameColor, 0.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(QPointF(0, 0), size));
    const double top = m_gant.GetScalerHeight();
    painter.drawLine(QPointF(0, top), QPointF(size.width(), top));
    painter.drawLine(QPointF(m_labelWidth, 0), QPointF(m_labelWidth, size.height()));
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
    painter.setClipRect(QRectF(0, 0, m_labelWidth, head + area.height()), Qt::IntersectClip);
    double left = 0;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const TPrintColumn &column = m_columns[i];
        const double width = m_columnWidths[i];
        QFont font = LabelFont(m_gant.Tree());
        font.setBold(true);
        painter.setFont(font);
        painter.setPen(Qt::black);
        painter.drawText(
            QRectF(left + kLabelPadding, 0, width - 2 * kLabelPadding, head - kLabelPadding),
            Qt::AlignBottom | column.Alignment, column.Title);
        for (const TVisibleNode &row : page.Rows()) {
            PaintLabel(painter, QRectF(left, head + row.Rect.Top, width, row.Rect.Height()), column,
                       *row.Node);
        }
        left += width;
        painter.setPen(QPen(kFrameColor, 0.5));
        painter.drawLine(QPointF(left, 0), QPointF(left, head + area.height()));
    }
    painter.restore();
}

void TzuGanttPrinting::PaintLabel(QPainter &painter, const QRectF &cell, const TPrintColumn &column,
                                  TzuDataEntity_Tree &entity) const
{
    TGantTree &tree = m_gant.Tree();
    TTreeItemLook look;
    look.ImageIndex = entity.GetImageIndex();
    tree.OnCustomDrawItem(&tree, &entity, look);
    painter.setPen(QPen(kLineColor, 0.5));
    painter.drawLine(cell.bottomLeft(), cell.bottomRight());
    QRectF place = cell.adjusted(kLabelPadding, 0, -kLabelPadding, 0);
    if (!column.Text) {
        place.setLeft(place.left() + entity.GetLevel() * tree.Indent());
        if (const TzuImageList *images = tree.Images()) {
            const TSize size = images->Size();
            constexpr double kPaperRatio = 3;
            painter.drawPixmap(QPointF(place.left(), place.center().y() - size.Height / 2.0),
                               images->Pixmap(look.ImageIndex, size, kPaperRatio));
            place.setLeft(place.left() + size.Width + kLabelPadding);
        }
    }
    QFont font = LabelFont(tree);
    if (!entity.GetFontName().empty()) {
        font.setFamily(ToQt(entity.GetFontName()));
    }
    const TFontStyles own = entity.GetFontStyle();
    font.setBold(font.bold() || own.Bold || look.Style.Bold);
    font.setItalic(font.italic() || own.Italic || look.Style.Italic);
    font.setUnderline(own.Underline || look.Style.Underline);
    font.setStrikeOut(own.StrikeOut || look.Style.StrikeOut);
    painter.setFont(font);
    painter.setPen(look.TextColor ? Readable(ToQt(*look.TextColor, QPalette(Qt::white)))
                                  : QColor(Qt::black));
    const QString text = column.Text ? column.Text(entity) : CaptionOf(entity);
    painter.drawText(place, Qt::AlignVCenter | column.Alignment | Qt::TextSingleLine,
                     QFontMetricsF(font).elidedText(text, Qt::ElideRight, place.width()));
}

/// Small arrows at the edges, each with the number of the page on which a link goes on.
void TzuGanttPrinting::PaintLinkMarks(QPainter &painter, const TGanttPage &page) const
{
    constexpr double kSize = 4;
    constexpr double kBox = 22;
    constexpr double kNear = 9;
    const TPrintLayout &layout = Layout();
    const QPointF origin(m_labelWidth, m_gant.GetScalerHeight());
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
        painter.setBrush(kFrameColor);
        painter.drawPolygon(QPolygonF({tip, tip - back + side, tip - back - side}));
        painter.setPen(kFrameColor);
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
