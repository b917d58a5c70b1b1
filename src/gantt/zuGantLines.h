// The lines beside the rows of the chart.
#pragma once

#include "foundation/zuExport.h"
#include "gantt/zuGantRowList.h"

#include <optional>
#include <vector>

namespace korvane {

class TTreeCore;
struct TTreeGeometry;

/// What the chart knows of the control beside it, row tree or grid: which line belongs to which row
/// and where it lies. Lines are counted from the first one that can be scrolled to; pixels are
/// those of the area.
class KORVANE_CORE_API IGantLines
{
public:
    virtual ~IGantLines() = default;

    /// Brings the control up to date and appends its lines on screen, top to bottom.
    virtual void CollectVisible(std::vector<TVisibleNode> &nodes) = 0;
    /// Number of lines, those scrolled away included.
    virtual int Count() = 0;
    /// Number of those that are not hidden.
    virtual int CountShown() { return Count(); }
    /// Null where the line has no row.
    virtual TGantRow *RowOfLine(int line) = 0;
    /// -1 for a row that is hidden or under a collapsed node.
    virtual int LineOf(const TGantRow &row) = 0;
    /// The next row in that direction that has a line; of null the first one, or with Back the
    /// last.
    virtual TGantRow *Neighbour(const TGantRow *row, TGantStep step) = 0;

    /// Where the row's line lies, also above and below the area; nothing for a row without a line.
    virtual std::optional<TPixelSpan> SpanOf(const TGantRow &row) = 0;
    /// The row whose line, taken half-open, holds a height, also above and below the area; null
    /// where there is none.
    virtual TGantRow *RowAtHeight(int y) = 0;
    /// How far the lines are scrolled down from their beginning, in pixels.
    virtual int ScrolledPixels() = 0;
    /// Scrolls by whole lines, down when positive; stops at either end.
    virtual void ScrollBy(int lines) = 0;
    /// Expands and scrolls until the row's line is shown.
    virtual void BringIntoView(TGantRow &row) = 0;
    /// The row that is the control's current one, or null.
    virtual TGantRow *CurrentRow() = 0;
};

/// The lines of a row tree, all of one height.
class KORVANE_CORE_API TGantTreeLines : public IGantLines
{
public:
    /// Both are observed.
    TGantTreeLines(TTreeCore &tree, const TGantRowList &rows)
        : m_tree(tree)
        , m_rows(rows)
    {
    }

    void CollectVisible(std::vector<TVisibleNode> &nodes) override;
    int Count() override;
    TGantRow *RowOfLine(int line) override;
    int LineOf(const TGantRow &row) override;
    TGantRow *Neighbour(const TGantRow *row, TGantStep step) override;
    std::optional<TPixelSpan> SpanOf(const TGantRow &row) override;
    TGantRow *RowAtHeight(int y) override;
    int ScrolledPixels() override;
    void BringIntoView(TGantRow &row) override;
    TGantRow *CurrentRow() override;

protected:
    /// Where the lines of the tree lie now, in pixels of the tree.
    virtual TTreeGeometry Geometry() const = 0;
    /// Distance from the top of the tree's first line on screen to the top of the area, in pixels.
    virtual int Offset() const = 0;

private:
    TTreeCore &m_tree;
    const TGantRowList &m_rows;
};

} // namespace korvane
