#include "printing/qt/zuPrintLabels.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuImageList.h"
#include "printing/qt/zuPrintParts.h"
#include "tree/qt/zuTreeComBasic.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>
#include <QStringList>
#include <QStyle>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace korvane {

namespace {

/// Room for the mark of a row that has others below it.
constexpr int kExpander = 12;
constexpr int kNarrowestColumn = 40;
constexpr double kMostWidth = 1 << 20;

QString CaptionOf(const TzuDataEntity_Tree &entity)
{
    return ToQt(entity.GetText());
}

/// Of a text that is wider than its place: broken between words, or else anywhere.
QStringList BrokenText(const QString &text, const QFont &font, double width)
{
    constexpr int kMostLines = 40;
    const QFontMetricsF metrics(font);
    if (metrics.horizontalAdvance(text) <= width) {
        return {text};
    }
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (lines.size() + 1 == kMostLines) {
            lines += metrics.elidedText(text.mid(line.textStart()), Qt::ElideRight, width);
            break;
        }
        lines += text.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines;
}

QRectF MirroredIn(const QRectF &part, const QRectF &whole)
{
    QRectF mirrored = part;
    mirrored.moveRight(whole.left() + whole.right() - part.left());
    return mirrored;
}

} // namespace

void TPrintParents::Add(int level, bool isPrinted)
{
    const auto depth = static_cast<std::size_t>(std::max(level, 0));
    m_open.resize(depth, -1);
    m_open.push_back(isPrinted ? static_cast<int>(m_parents.size()) : -1);
    if (isPrinted) {
        m_parents.push_back(depth > 0 ? m_open[depth - 1] : -1);
    }
}

TPrintOutline CollectOutline(TzuTree_ComBasic &tree,
                             const std::function<bool(int, TzuDataEntity_Tree &)> &isWanted)
{
    TPrintOutline outline;
    TPrintParents parents;
    int number = 0;
    for (TzuDataEntity_Tree *entity = tree.GetNextVisible(nullptr); entity != nullptr;
         entity = tree.GetNextVisible(entity), ++number) {
        const bool wanted = isWanted(number, *entity);
        parents.Add(entity->GetLevel(), wanted);
        if (wanted) {
            outline.Rows.push_back(entity);
        }
    }
    outline.Parents = parents.Indexes();
    return outline;
}

std::vector<TPrintGroup> GroupsOf(const std::vector<int> &parents)
{
    std::vector<TPrintGroup> groups;
    std::vector<int> levels(parents.size(), 0);
    for (std::size_t row = 0; row < parents.size(); ++row) {
        if (parents[row] >= 0) {
            levels[row] = levels[static_cast<std::size_t>(parents[row])] + 1;
        }
        const bool hasRowsBelow =
            row + 1 < parents.size() && parents[row + 1] == static_cast<int>(row);
        if (hasRowsBelow) {
            groups.push_back({static_cast<int>(row), levels[row]});
        }
    }
    return groups;
}

QFont TPrintLabels::Font() const
{
    return PaperFont(m_tree->font());
}

void TPrintLabels::Measure(TzuTree_ComBasic &tree, const std::vector<TzuDataEntity_Tree *> &rows)
{
    m_tree = &tree;
    m_rows = rows;
    m_needed.clear();
    m_widths.clear();
    for (const TPrintColumn &column : Columns) {
        m_needed.push_back(column.Width > 0 ? column.Width : NeededWidth(column));
    }
    m_widths = m_needed;
}

int TPrintLabels::NeededWidth(const TPrintColumn &column) const
{
    QFont bold = Font();
    bold.setBold(true);
    const QFontMetricsF metrics(bold);
    const auto number = static_cast<std::size_t>(&column - Columns.data());
    double widest = metrics.horizontalAdvance(column.Title);
    for (const TzuDataEntity_Tree *row : m_rows) {
        widest = std::max(widest,
                          metrics.horizontalAdvance(TextOf(number, *row)) + Indent(number, *row));
    }
    return static_cast<int>(std::ceil(std::min(widest, kMostWidth))) + 2 * kPrintPadding;
}

void TPrintLabels::LimitColumns(double widest)
{
    m_widths = m_needed;
    const int limit = std::max(static_cast<int>(widest), kNarrowestColumn);
    for (std::size_t i = 0; i < Columns.size(); ++i) {
        if (Columns[i].Width <= 0) {
            m_widths[i] = std::min(m_widths[i], limit);
        }
    }
}

void TPrintLabels::FitInto(double room)
{
    // From the narrowest one on: what a column does not need is left to the wider ones.
    std::vector<int> widths;
    for (std::size_t i = 0; i < Columns.size(); ++i) {
        if (Columns[i].Width > 0) {
            room -= Columns[i].Width;
        } else {
            widths.push_back(m_needed[i]);
        }
    }
    std::ranges::sort(widths);
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const double share = room / static_cast<double>(widths.size() - i);
        if (widths[i] > share) {
            LimitColumns(share);
            return;
        }
        room -= widths[i];
    }
    m_widths = m_needed;
}

int TPrintLabels::Width() const
{
    return std::accumulate(m_widths.begin(), m_widths.end(), 0);
}

std::vector<int> TPrintLabels::Heights() const
{
    const int height = m_tree->RowHeight();
    std::vector<int> heights(m_rows.size(), height);
    if (m_widths == m_needed) {
        return heights;
    }
    const double line = QFontMetricsF(Font()).height();
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        heights[i] += static_cast<int>(std::ceil((LinesOf(*m_rows[i]) - 1) * line));
    }
    return heights;
}

/// The most in any column.
int TPrintLabels::LinesOf(TzuDataEntity_Tree &row) const
{
    qsizetype lines = 1;
    const QFont font = FontOf(row, LookOf(row));
    for (std::size_t i = 0; i < Columns.size(); ++i) {
        if (m_widths[i] < m_needed[i]) {
            const double room = m_widths[i] - 2 * kPrintPadding - Indent(i, row);
            lines = std::max(lines, BrokenText(TextOf(i, row), font, room).size());
        }
    }
    return static_cast<int>(lines);
}

TTreeItemLook TPrintLabels::LookOf(TzuDataEntity_Tree &row) const
{
    TTreeItemLook look;
    look.ImageIndex = row.GetImageIndex();
    m_tree->OnCustomDrawItem(m_tree, &row, look);
    return look;
}

QFont TPrintLabels::FontOf(const TzuDataEntity_Tree &row, const TTreeItemLook &look) const
{
    QFont font = Font();
    if (!row.GetFontName().empty()) {
        font.setFamily(ToQt(row.GetFontName()));
    }
    const TFontStyles own = row.GetFontStyle();
    font.setBold(font.bold() || own.Bold || look.Style.Bold);
    font.setItalic(font.italic() || own.Italic || look.Style.Italic);
    font.setUnderline(own.Underline || look.Style.Underline);
    font.setStrikeOut(own.StrikeOut || look.Style.StrikeOut);
    return font;
}

bool TPrintLabels::HasTitles() const
{
    return std::ranges::any_of(Columns, [](const auto &column) { return !column.Title.isEmpty(); });
}

int TPrintLabels::TitleHeight() const
{
    return static_cast<int>(std::ceil(QFontMetricsF(Font()).height())) + kPrintPadding;
}

QString TPrintLabels::TextOf(std::size_t column, const TzuDataEntity_Tree &row) const
{
    const auto &text = Columns[column].Text;
    return (text ? text(row) : CaptionOf(row)).replace(u'\n', u' ');
}

/// Before a text. Deep rows share what a narrow column can spare.
double TPrintLabels::Indent(std::size_t column, const TzuDataEntity_Tree &row) const
{
    if (Columns[column].Text) {
        return 0;
    }
    const TzuImageList *images = m_tree->Images();
    const int own = kExpander + (images != nullptr ? images->Size().Width + kPrintPadding : 0);
    const double indent = row.GetLevel() * m_tree->Indent();
    const bool narrowed = column < m_widths.size() && m_widths[column] < m_needed[column];
    return own + (narrowed ? std::min(indent, m_widths[column] / 3.0) : indent);
}

Qt::Alignment TPrintLabels::Aligned(std::size_t column) const
{
    return QStyle::visualAlignment(m_tree->layoutDirection(), Columns[column].Alignment);
}

void TPrintLabels::PaintTitle(QPainter &painter, const QRectF &cell, std::size_t column) const
{
    QFont font = Font();
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::black);
    const QRectF place = cell.adjusted(kPrintPadding, 0, -kPrintPadding, -kPrintPadding / 2.0);
    painter.drawText(
        place, Qt::AlignBottom | Aligned(column) | Qt::AlignAbsolute,
        QFontMetricsF(font).elidedText(Columns[column].Title, Qt::ElideRight, place.width()));
}

/// Draws what stands before a text; the rest of the place is the text's.
QRectF TPrintLabels::PaintLead(QPainter &painter, QRectF place, std::size_t column,
                               const TzuDataEntity_Tree &row, int image) const
{
    const double lead = Indent(column, row);
    if (lead <= 0) {
        return place;
    }
    const bool mirrored = m_tree->isRightToLeft();
    const auto visual = [&](double left, double width) {
        const QRectF part(place.left() + left, place.top(), width, place.height());
        return mirrored ? MirroredIn(part, place) : part;
    };
    const TzuImageList *images = m_tree->Images();
    const TSize size = images != nullptr ? images->Size() : TSize{};
    const double picture = images != nullptr ? size.Width + kPrintPadding : 0;
    if (row.HasChildren()) {
        PaintExpander(painter, visual(lead - picture - kExpander - 2, kExpander),
                      row.GetExpanded());
    }
    if (images != nullptr) {
        constexpr double kPaperRatio = 3;
        const QRectF at = visual(lead - picture, size.Width);
        painter.drawPixmap(QPointF(at.left(), at.center().y() - size.Height / 2.0),
                           images->Pixmap(image, size, kPaperRatio));
    }
    return visual(lead, place.width() - lead);
}

void TPrintLabels::PaintCell(QPainter &painter, const QRectF &cell, std::size_t column,
                             TzuDataEntity_Tree &row) const
{
    const TTreeItemLook look = LookOf(row);
    painter.setPen(QPen(kPrintLineColor, kPrintLine));
    painter.drawLine(cell.bottomLeft(), cell.bottomRight());
    const QRectF place = PaintLead(painter, cell.adjusted(kPrintPadding, 0, -kPrintPadding, 0),
                                   column, row, look.ImageIndex);
    const QFont font = FontOf(row, look);
    painter.setFont(font);
    painter.setPen(look.TextColor ? ReadableOnPaper(ToQt(*look.TextColor, QPalette(Qt::white)))
                                  : QColor(Qt::black));
    const QFontMetricsF metrics(font);
    const QString text = TextOf(column, row);
    const bool narrowed = m_widths[column] < m_needed[column];
    const QStringList lines =
        narrowed ? BrokenText(text, font, place.width())
                 : QStringList(metrics.elidedText(text, Qt::ElideRight, place.width()));
    double top = place.center().y() - static_cast<double>(lines.size()) * metrics.height() / 2;
    for (const QString &line : lines) {
        painter.drawText(
            QRectF(place.left(), top, place.width(), metrics.height()),
            Qt::AlignVCenter | Aligned(column) | Qt::AlignAbsolute | Qt::TextSingleLine, line);
        top += metrics.height();
    }
}

/// A triangle: pointing down with the rows below it shown, else to where they are indented.
void TPrintLabels::PaintExpander(QPainter &painter, const QRectF &place, bool expanded) const
{
    constexpr double kLong = 3.5;
    constexpr double kShort = 2;
    const QPointF middle(place.center());
    const QPointF along = expanded ? QPointF(kLong, 0) : QPointF(0, kLong);
    const double ahead = m_tree->isRightToLeft() ? -kShort : kShort;
    const QPointF point = expanded ? QPointF(0, kShort) : QPointF(ahead, 0);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kPrintFrameColor);
    painter.drawPolygon(
        QPolygonF({middle - along - point, middle + along - point, middle + point}));
    painter.restore();
}

} // namespace korvane
