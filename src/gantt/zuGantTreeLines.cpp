#include "gantt/zuGantLines.h"
#include "gantt/zuGantRow.h"
#include "tree/zuTree.h"

namespace korvane {

void TGantTreeLines::CollectVisible(std::vector<TVisibleNode> &nodes)
{
    const TPoint shift{0, -Offset()};
    for (const TTreeRow &row : m_tree.VisibleRowEntities()) {
        nodes.push_back({row.Entity, row.Rect.Translated(shift)});
    }
}

int TGantTreeLines::Count()
{
    return m_tree.CountVisible();
}

TGantRow *TGantTreeLines::RowOfLine(int line)
{
    return m_rows.FindRowFromTreeNode(m_tree.GetDataEntityFromRow(line));
}

int TGantTreeLines::LineOf(const TGantRow &row)
{
    return row.TreeNode() != nullptr ? m_tree.GetRow(*row.TreeNode()) : -1;
}

TGantRow *TGantTreeLines::Neighbour(const TGantRow *row, TGantStep step)
{
    const bool forward = step == TGantStep::Forward;
    if (row != nullptr && row->TreeNode() == nullptr) {
        return nullptr;
    }
    const auto next = [&](const TzuDataEntity_Tree *node) {
        return forward ? m_tree.GetNextVisible(node) : m_tree.GetPrevVisible(node);
    };
    const TzuDataEntity_Tree *node = nullptr;
    if (row != nullptr) {
        node = next(row->TreeNode());
    } else {
        node = forward ? m_tree.GetNextVisible(nullptr) : m_tree.GetDataEntityFromRow(Count() - 1);
    }
    TGantRow *found = nullptr;
    while (node != nullptr && (found = m_rows.FindRowFromTreeNode(node)) == nullptr) {
        node = next(node);
    }
    return found;
}

std::optional<TPixelSpan> TGantTreeLines::SpanOf(const TGantRow &row)
{
    const int line = LineOf(row);
    if (line < 0) {
        return std::nullopt;
    }
    const TTreeGeometry geometry = Geometry();
    const int top = (line - geometry.TopRow) * geometry.RowHeight - Offset();
    return TPixelSpan{top, top + geometry.RowHeight};
}

TGantRow *TGantTreeLines::RowAtHeight(int y)
{
    const int fromBeginning = y + ScrolledPixels() + Offset();
    return fromBeginning < 0 ? nullptr : RowOfLine(fromBeginning / Geometry().RowHeight);
}

int TGantTreeLines::ScrolledPixels()
{
    const TTreeGeometry geometry = Geometry();
    return geometry.TopRow * geometry.RowHeight;
}

void TGantTreeLines::BringIntoView(TGantRow &row)
{
    if (row.TreeNode() != nullptr) {
        m_tree.MakeVisible(*row.TreeNode());
    }
}

TGantRow *TGantTreeLines::CurrentRow()
{
    return m_rows.FindRowFromTreeNode(m_tree.GetCurrentDataEntity());
}

} // namespace korvane
