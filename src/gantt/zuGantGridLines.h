// The lines of a grid beside the rows of the chart.
#pragma once

#include "foundation/zuExport.h"
#include "gantt/zuGantLines.h"

namespace korvane {

class TAxisContentItem;
class TBabGridSelectCore;

/// The rows of a grid that is a tree, each as high as it is there. Hidden rows count as lines. Rows
/// that are only counted are loaded when they are asked for.
class KORVANE_CORE_API TGantGridLines : public IGantLines
{
public:
    /// Both are observed.
    TGantGridLines(TBabGridSelectCore &grid, const TGantRowList &rows)
        : m_grid(grid)
        , m_rows(rows)
    {
    }

    void CollectVisible(std::vector<TVisibleNode> &nodes) override;
    int Count() override;
    int CountShown() override;
    TGantRow *RowOfLine(int line) override;
    int LineOf(const TGantRow &row) override;
    TGantRow *Neighbour(const TGantRow *row, TGantStep step) override;
    std::optional<TPixelSpan> SpanOf(const TGantRow &row) override;
    TGantRow *RowAtHeight(int y) override;
    int ScrolledPixels() override;
    void ScrollBy(int lines) override;
    void BringIntoView(TGantRow &row) override;
    TGantRow *CurrentRow() override;

protected:
    /// Distance from the top of the grid to the top of the area, in pixels.
    virtual int Offset() const = 0;

private:
    int Head() const;
    TGantRow *RowOf(const TAxisContentItem *item) const;

    TBabGridSelectCore &m_grid;
    const TGantRowList &m_rows;
};

} // namespace korvane
