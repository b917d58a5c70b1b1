#include "gantt/qt/zuGantLines.h"

#include "gantt/qt/zuGantTree.h"
#include "gantt/zuGantGridLines.h"
#include "grid/qt/zuGrid.h"

namespace korvane {

namespace {

/// How much lower the area begins than the lines, in pixels.
int OffsetBetween(const QWidget &lines, const QWidget &area)
{
    const QWidget *window = area.window();
    return area.mapTo(window, QPoint()).y() - lines.mapTo(window, QPoint()).y();
}

class TTreeLines : public TGantTreeLines
{
public:
    TTreeLines(TGantTree &tree, const QWidget &area, const TGantRowList &rows)
        : TGantTreeLines(tree, rows)
        , m_tree(tree)
        , m_area(area)
    {
    }

    void CollectVisible(std::vector<TVisibleNode> &nodes) override
    {
        m_tree.EnsureLayout();
        TGantTreeLines::CollectVisible(nodes);
    }
    void ScrollBy(int lines) override { m_tree.TzuTree_ComBasic::Scroll(lines); }

protected:
    TTreeGeometry Geometry() const override
    {
        return {m_tree.ScrollInfo().Position, m_tree.RowHeight(), m_tree.viewport()->width(),
                m_tree.viewport()->height()};
    }
    int Offset() const override { return OffsetBetween(*m_tree.viewport(), m_area); }

private:
    TGantTree &m_tree;
    const QWidget &m_area;
};

class TGridLines : public TGantGridLines
{
public:
    TGridLines(TzuGrid &grid, const QWidget &area, const TGantRowList &rows)
        : TGantGridLines(grid, rows)
        , m_grid(grid)
        , m_area(area)
    {
    }

protected:
    int Offset() const override { return OffsetBetween(m_grid, m_area); }

private:
    const QWidget &m_grid;
    const QWidget &m_area;
};

} // namespace

std::unique_ptr<IGantLines> MakeTreeLines(TGantTree &tree, const QWidget &area,
                                          const TGantRowList &rows)
{
    return std::make_unique<TTreeLines>(tree, area, rows);
}

std::unique_ptr<IGantLines> MakeGridLines(TzuGrid &grid, const QWidget &area,
                                          const TGantRowList &rows)
{
    return std::make_unique<TGridLines>(grid, area, rows);
}

int HeadHeightOf(TzuGrid &grid)
{
    const TAxisContentList &rows = grid.RootCell().Rows();
    return static_cast<int>(rows.OffsetOf(std::min(rows.FixedCount(), rows.Count())));
}

} // namespace korvane
