// Dragging the rows of a tree to another place.
#include "cellgrid/zuBabGridGestures.h"

#include <algorithm>

namespace korvane {

bool TBabGridGestures::MayDragRows(const TGridHit &hit) const
{
    if (!m_rowMoving || hit.At.Grid != &RootCell() || !RootCell().ShowsTree()
        || !RootCell().OnDropRows) {
        return false;
    }
    return hit.Part == TGridPart::RowHeader
               ? RootCell().Selection().IsWholeRow(hit.At.Row)
               : hit.Part == TGridPart::Cell && IsSelected(hit.At) && TreeNodeAt(hit.At) != nullptr;
}

void TBabGridGestures::UpdateRowDrop()
{
    const TGridBlock &shown = Shown();
    TGridRowDrop drop;
    const int y = std::clamp(m_point.Y, std::min(shown.FixedEnd.Y, shown.Area.Bottom - 1),
                             std::max(shown.FixedEnd.Y, shown.Area.Bottom - 1));
    for (const TGridBand &row : shown.Rows) {
        if (!row.Fixed && y >= row.Near && y < row.Far) {
            const int edge = std::max(1, (row.Far - row.Near) / 4);
            drop.Row = row.Index;
            drop.Place = y < row.Near + edge   ? TGridRowPlace::Above
                         : y >= row.Far - edge ? TGridRowPlace::Below
                                               : TGridRowPlace::On;
        }
    }
    if (drop != m_rowDrop) {
        m_restTicks = 0;
    }
    m_rowDrop = drop;
    m_mayDrop = false;
    RootCell().OnMayDropRows(drop, m_mayDrop);
    Host().InvalidateGridOverlay();
}

/// A line between rows from where their nodes begin, or a frame around the row.
void TBabGridGestures::PaintRowDrop(TCanvas &canvas)
{
    const TGridBlock &shown = Shown();
    const auto band = std::find_if(shown.Rows.begin(), shown.Rows.end(),
                                   [this](const auto &row) { return row.Index == m_rowDrop.Row; });
    const auto tree = std::find_if(shown.Columns.begin(), shown.Columns.end(), [](const auto &at) {
        const TBabColumn *column = ColumnOf(*at.Item);
        return column != nullptr && column->IsTreeColumn();
    });
    int left = shown.FixedEnd.X;
    const int right = shown.Columns.empty() ? shown.Area.Right
                                            : std::min(shown.Area.Right, shown.Columns.back().Far);
    int y = shown.Rows.empty() ? shown.FixedEnd.Y : shown.Rows.back().Far;
    if (band != shown.Rows.end() && tree != shown.Columns.end()) {
        const TGridCellAt at{&RootCell(), tree->Index, band->Index};
        const IBabTreeRow *node = TreeNodeAt(at);
        const bool below = m_rowDrop.Place == TGridRowPlace::Below;
        const bool inside = below && node != nullptr && node->IsTreeExpanded();
        const int level = node != nullptr ? node->TreeLevel() + (inside ? 1 : 0) : 0;
        left = std::max(left, tree->Near + kPadding + level * kTreeIndent);
        y = below ? band->Far : band->Near;
    }
    canvas.SetBrushColor(clHighlight);
    if (band != shown.Rows.end() && m_rowDrop.Place == TGridRowPlace::On) {
        canvas.FrameRect({left, band->Near, right, band->Far});
        canvas.FrameRect({left + 1, band->Near + 1, right - 1, band->Far - 1});
        return;
    }
    canvas.FillRect({left, y - 1, right, y + 1});
    canvas.FillRect({left, y - 3, left + 2, y + 3});
}

} // namespace korvane
