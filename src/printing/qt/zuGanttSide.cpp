#include "printing/qt/zuGanttSide.h"

#include "foundation/qt/zuConvert.h"
#include "gantt/qt/zuGantComBasic.h"
#include "grid/qt/zuGrid.h"
#include "printing/qt/zuPrintGrid.h"
#include "printing/qt/zuPrintLabels.h"
#include "printing/qt/zuPrintParts.h"

#include <QPainter>
#include <QScopeGuard>

#include <algorithm>

namespace korvane {

namespace {

class TTreeSide : public IGanttSide
{
public:
    TTreeSide(TGantTree &tree, TPrintLabels &labels)
        : m_tree(tree)
        , m_labels(labels)
    {
    }

    TRows Collect(const TIsWanted &isWanted) override
    {
        TPrintOutline outline = CollectOutline(m_tree, [&](int number, TzuDataEntity_Tree &row) {
            return isWanted(number, {&row, {}, nullptr}, row.GetSelected());
        });
        m_labels.Measure(m_tree, outline.Rows);
        TRows rows;
        for (TzuDataEntity_Tree *row : outline.Rows) {
            rows.Nodes.push_back({row, {}, nullptr});
        }
        rows.Parents = std::move(outline.Parents);
        return rows;
    }
    std::vector<int> FitInto(double room) override
    {
        m_labels.FitInto(room);
        return m_labels.Heights();
    }
    QString CaptionOf(const TVisibleNode &node) const override
    {
        return ToQt(node.Node->GetText());
    }
    int Width() const override { return m_labels.Width(); }
    void Paint(QPainter &painter, double head, double areaHeight,
               const std::vector<TVisibleNode> &rows) override
    {
        const bool mirrored = m_tree.isRightToLeft();
        double left = mirrored ? Width() : 0;
        for (std::size_t i = 0; i < m_labels.Columns.size(); ++i) {
            const double width = m_labels.Widths()[i];
            left -= mirrored ? width : 0;
            m_labels.PaintTitle(painter, {left, 0, width, head}, i);
            for (const TVisibleNode &row : rows) {
                m_labels.PaintCell(painter,
                                   QRectF(left, head + row.Rect.Top, width, row.Rect.Height()), i,
                                   *row.Node);
            }
            const double end = mirrored ? left : left + width;
            painter.setPen(QPen(kPrintFrameColor, kPrintLine));
            painter.drawLine(QPointF(end, 0), QPointF(end, head + areaHeight));
            left += mirrored ? 0 : width;
        }
    }

private:
    TGantTree &m_tree;
    TPrintLabels &m_labels;
};

class TGridSide : public IGanttSide
{
public:
    TGridSide(TzuGrid &grid, const std::optional<std::vector<int>> &columns)
        : m_grid(grid)
        , m_part(grid)
        , m_columns(m_part.ShownColumns())
    {
        if (columns) {
            std::erase_if(m_columns, [&](const auto &column) {
                return std::ranges::find(*columns, column.Index) == columns->end();
            });
        }
    }

    TRows Collect(const TIsWanted &isWanted) override
    {
        TBabGridCell &root = m_grid.RootCell();
        TRows rows;
        TPrintParents parents;
        m_heights.clear();
        int number = 0;
        const auto add = [&](const TGridBand &band) {
            auto *node = TzuGridTree::NodeOf(band.Item);
            if (node == nullptr) {
                return;
            }
            const bool selected = root.Selection().RowHasSelected(band.Index);
            const bool wanted = isWanted(number++, {nullptr, {}, node}, selected);
            parents.Add(node->GetLevel(), wanted);
            if (wanted) {
                rows.Nodes.push_back({nullptr, {}, node});
                m_heights.push_back(band.Far - band.Near);
            }
        };
        m_part.ForEachRow(m_columns, m_part.HeadRows(), root.Rows().Count() - 1, add);
        rows.Parents = parents.Indexes();
        return rows;
    }
    std::vector<int> FitInto(double /*room*/) override { return m_heights; }
    QString CaptionOf(const TVisibleNode &node) const override
    {
        return m_part.TreeText(m_columns, *node.GridNode->Row())
            .value_or(ToQt(node.GridNode->GetText()));
    }
    int Width() const override { return TPrintGrid::WidthOf(m_columns); }
    void Paint(QPainter &painter, double head, double areaHeight,
               const std::vector<TVisibleNode> &rows) override
    {
        if (m_columns.empty()) {
            return;
        }
        const double gridHead = m_part.HeadHeight();
        painter.fillRect(QRectF(0, 0, Width(), head - gridHead), kPrintHeadColor);
        m_part.PaintHead(painter, m_columns, {0, head - gridHead});
        const QRectF body(0, head, Width(), areaHeight);
        painter.setClipRect(body, Qt::IntersectClip);
        for (std::size_t first = 0; first < rows.size();) {
            std::size_t last = first;
            while (last + 1 < rows.size() && IndexOf(rows[last + 1]) == IndexOf(rows[last]) + 1) {
                ++last;
            }
            const int top = rows[first].Rect.Top;
            m_part.PaintRows(painter, m_columns, IndexOf(rows[first]), IndexOf(rows[last]),
                             {0, head + top}, rows[last].Rect.Bottom - top, body);
            first = last + 1;
        }
    }

private:
    int IndexOf(const TVisibleNode &node) const
    {
        return m_grid.RootCell().Rows().IndexOf(*node.GridNode->Row());
    }

    TzuGrid &m_grid;
    TPrintGrid m_part;
    TPrintGrid::TColumns m_columns;
    std::vector<int> m_heights;
};

} // namespace

std::unique_ptr<IGanttSide> MakeTreeSide(TzuGant_ComBasic &gant, TPrintLabels &labels)
{
    return std::make_unique<TTreeSide>(gant.Tree(), labels);
}

std::unique_ptr<IGanttSide> MakeGridSide(TzuGant_ComBasic &gant,
                                         const std::optional<std::vector<int>> &columns)
{
    return std::make_unique<TGridSide>(gant.Grid(), columns);
}

} // namespace korvane
