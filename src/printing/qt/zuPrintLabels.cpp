#include "printing/qt/zuPrintLabels.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuImageList.h"
#include "printing/qt/zuPrintParts.h"
#include "tree/qt/zuTreeComBasic.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <array>
#include <cmath>

namespace korvane {

namespace {

/// Room for the mark of a row that has others below it.
constexpr int kExpander = 12;

QString CaptionOf(const TzuDataEntity_Tree &entity)
{
    return ToQt(entity.GetText());
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
    m_widths.clear();
    m_width = 0;
    for (const TPrintColumn &column : Columns) {
        m_widths.push_back(column.Width > 0 ? column.Width : NeededWidth(column, rows));
        m_width += m_widths.back();
    }
}

bool TPrintLabels::HasTitles() const
{
    return std::ranges::any_of(Columns, [](const auto &column) { return !column.Title.isEmpty(); });
}

int TPrintLabels::TitleHeight() const
{
    return static_cast<int>(std::ceil(QFontMetricsF(Font()).height())) + kPrintPadding;
}

int TPrintLabels::NeededWidth(const TPrintColumn &column,
                              const std::vector<TzuDataEntity_Tree *> &rows) const
{
    QFont bold = Font();
    bold.setBold(true);
    const QFontMetricsF metrics(bold);
    double widest = metrics.horizontalAdvance(column.Title);
    for (const TzuDataEntity_Tree *entity : rows) {
        double width =
            metrics.horizontalAdvance(column.Text ? column.Text(*entity) : CaptionOf(*entity));
        if (!column.Text) {
            width += entity->GetLevel() * m_tree->Indent() + kExpander;
            width +=
                m_tree->Images() != nullptr ? m_tree->Images()->Size().Width + kPrintPadding : 0;
        }
        widest = std::max(widest, width);
        if (widest >= TPrintColumn::kWidestColumn) {
            break;
        }
    }
    return std::min(static_cast<int>(std::ceil(widest)) + 2 * kPrintPadding,
                    TPrintColumn::kWidestColumn);
}

void TPrintLabels::PaintTitle(QPainter &painter, const QRectF &cell, std::size_t column) const
{
    QFont font = Font();
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(cell.adjusted(kPrintPadding, 0, -kPrintPadding, -kPrintPadding / 2.0),
                     Qt::AlignBottom | Columns[column].Alignment, Columns[column].Title);
}

void TPrintLabels::PaintCell(QPainter &painter, const QRectF &cell, std::size_t column,
                             TzuDataEntity_Tree &row) const
{
    const TPrintColumn &label = Columns[column];
    TTreeItemLook look;
    look.ImageIndex = row.GetImageIndex();
    m_tree->OnCustomDrawItem(m_tree, &row, look);
    painter.setPen(QPen(kPrintLineColor, kPrintLine));
    painter.drawLine(cell.bottomLeft(), cell.bottomRight());
    QRectF place = cell.adjusted(kPrintPadding, 0, -kPrintPadding, 0);
    if (!label.Text) {
        place.setLeft(place.left() + row.GetLevel() * m_tree->Indent());
        if (row.HasChildren()) {
            PaintExpander(painter, place, row.GetExpanded());
        }
        place.setLeft(place.left() + kExpander);
        if (const TzuImageList *images = m_tree->Images()) {
            const TSize size = images->Size();
            constexpr double kPaperRatio = 3;
            painter.drawPixmap(QPointF(place.left(), place.center().y() - size.Height / 2.0),
                               images->Pixmap(look.ImageIndex, size, kPaperRatio));
            place.setLeft(place.left() + size.Width + kPrintPadding);
        }
    }
    QFont font = Font();
    if (!row.GetFontName().empty()) {
        font.setFamily(ToQt(row.GetFontName()));
    }
    const TFontStyles own = row.GetFontStyle();
    font.setBold(font.bold() || own.Bold || look.Style.Bold);
    font.setItalic(font.italic() || own.Italic || look.Style.Italic);
    font.setUnderline(own.Underline || look.Style.Underline);
    font.setStrikeOut(own.StrikeOut || look.Style.StrikeOut);
    painter.setFont(font);
    painter.setPen(look.TextColor ? ReadableOnPaper(ToQt(*look.TextColor, QPalette(Qt::white)))
                                  : QColor(Qt::black));
    const QString text = label.Text ? label.Text(row) : CaptionOf(row);
    painter.drawText(place, Qt::AlignVCenter | label.Alignment | Qt::TextSingleLine,
                     QFontMetricsF(font).elidedText(text, Qt::ElideRight, place.width()));
}

/// A triangle: pointing down with the rows below it shown, else to the right.
void TPrintLabels::PaintExpander(QPainter &painter, const QRectF &place, bool expanded) const
{
    constexpr double kLong = 3.5;
    constexpr double kShort = 2;
    const QPointF middle(place.left() + kExpander / 2.0 - 2, place.center().y());
    const QPointF along = expanded ? QPointF(kLong, 0) : QPointF(0, kLong);
    const QPointF point = expanded ? QPointF(0, kShort) : QPointF(kShort, 0);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kPrintFrameColor);
    painter.drawPolygon(
        QPolygonF({middle - along - point, middle + along - point, middle + point}));
    painter.restore();
}

} // namespace korvane
