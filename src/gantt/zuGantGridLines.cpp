#include "gantt/zuGantGridLines.h"

#include "cellgrid/zuBabGridSelect.h"
#include "gantt/zuGantRow.h"
#include "grid/zuGridTreeData.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace korvane {

namespace {

TzuDataEntity_GridTreeNode *NodeOf(const TAxisContentItem &item)
{
    return dynamic_cast<TzuDataEntity_GridTreeNode *>(item.Value());
}

} // namespace

/// Rows before the first one that scrolls.
int TGantGridLines::Head() const
{
    const TAxisContentList &list = m_grid.RootCell().Rows();
    return std::min(list.FixedCount(), list.Count());
}

TGantRow *TGantGridLines::RowOf(const TAxisContentItem *item) const
{
    return item != nullptr ? m_rows.FindRowFromGridNode(NodeOf(*item)) : nullptr;
}

void TGantGridLines::CollectVisible(std::vector<TVisibleNode> &nodes)
{
    const int offset = Offset();
    for (const TGridBand &band : m_grid.Shown().Rows) {
        TzuDataEntity_GridTreeNode *node = band.Fixed ? nullptr : NodeOf(*band.Item);
        if (node != nullptr) {
            nodes.push_back({nullptr, {0, band.Near - offset, 0, band.Far - offset}, node});
        }
    }
}

int TGantGridLines::Count()
{
    return m_grid.RootCell().Rows().Count() - Head();
}

int TGantGridLines::CountShown()
{
    return Count() - m_grid.RootCell().Rows().CountWithoutSize();
}

TGantRow *TGantGridLines::RowOfLine(int line)
{
    return line >= 0 ? RowOf(m_grid.RootCell().Rows().getAxisContentItem(line + Head())) : nullptr;
}

int TGantGridLines::LineOf(const TGantRow &row)
{
    const TzuDataEntity_GridTreeNode *node = row.GridNode();
    if (node == nullptr || !node->GetVisible()) {
        return -1;
    }
    const TAxisContentList &list = m_grid.RootCell().Rows();
    return node->Row()->List() == &list ? list.IndexOf(*node->Row()) - Head() : -1;
}

TGantRow *TGantGridLines::Neighbour(const TGantRow *row, TGantStep step)
{
    m_grid.EnsureLayout();
    const int by = static_cast<int>(step);
    const TAxisContentList &list = m_grid.RootCell().Rows();
    int index = by > 0 ? Head() - 1 : list.Count();
    if (row != nullptr) {
        const int line = LineOf(*row);
        if (line < 0) {
            return nullptr;
        }
        index = line + Head();
    }
    TGantRow *found = nullptr;
    while (found == nullptr && (index = list.NearestShown(index + by, by)) >= Head()) {
        found = RowOfLine(index - Head());
    }
    return found;
}

std::optional<TPixelSpan> TGantGridLines::SpanOf(const TGantRow &row)
{
    m_grid.EnsureLayout();
    const int line = LineOf(row);
    if (line < 0) {
        return std::nullopt;
    }
    const TAxisContentList &list = m_grid.RootCell().Rows();
    const std::int64_t top = list.OffsetOf(line + Head()) - m_grid.ScrollY() - Offset();
    const auto near = static_cast<int>(std::clamp<std::int64_t>(top, -kFarAway, kFarAway));
    return TPixelSpan{near, near + list.SizeAt(line + Head())};
}

TGantRow *TGantGridLines::RowAtHeight(int y)
{
    m_grid.EnsureLayout();
    TAxisContentList &list = m_grid.RootCell().Rows();
    const std::int64_t fromBeginning = y + Offset() + m_grid.ScrollY();
    if (fromBeginning < list.OffsetOf(Head()) || fromBeginning >= list.TotalSize()) {
        return nullptr;
    }
    return RowOf(list.getAxisContentItem(list.IndexAt(fromBeginning)));
}

int TGantGridLines::ScrolledPixels()
{
    return static_cast<int>(m_grid.ScrollY());
}

void TGantGridLines::ScrollBy(int lines)
{
    m_grid.ScrollRows(lines);
}

void TGantGridLines::BringIntoView(TGantRow &row)
{
    TzuDataEntity_GridTreeNode *node = row.GridNode();
    for (auto *above = node != nullptr ? node->ParentNode() : nullptr; above != nullptr;
         above = above->ParentNode()) {
        above->SetExpanded(true);
    }
    const int line = LineOf(row);
    const TGridCellAt topLeft = m_grid.GetTopLeftCell();
    if (line >= 0 && topLeft) {
        m_grid.MakeVisible({topLeft.Grid, topLeft.Column, line + Head()});
    }
}

TGantRow *TGantGridLines::CurrentRow()
{
    const TGridCellAt focus = m_grid.FocusCell();
    return focus.Grid == &m_grid.RootCell() ? RowOfLine(focus.Row - Head()) : nullptr;
}

} // namespace korvane
