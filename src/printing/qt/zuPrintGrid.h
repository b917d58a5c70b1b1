// Pieces of a grid on paper.
#pragma once

#include "cellgrid/zuBabGridBlock.h"
#include "foundation/zuExport.h"

#include <QPointF>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

class QPainter;
class QRectF;

namespace korvane {

class TAxisContentItem;
class TBabGridView_Custom;

/// Measures and draws columns and rows of a grid, by their real indexes, without selection and
/// focus. The grid stays as it is, also when an event handler throws.
class KORVANE_WIDGETS_API TPrintGrid
{
public:
    /// Columns side by side.
    using TColumns = std::vector<TGridPrintSlice::TColumn>;

    /// The grid is observed.
    explicit TPrintGrid(TBabGridView_Custom &grid)
        : m_grid(grid)
    {
    }

    /// Those behind the fixed ones that are shown, in the order in which they stand.
    TColumns ShownColumns() const;
    /// Their sum, in pixels.
    static int WidthOf(const TColumns &columns);
    /// How many rows stand before the others.
    int HeadRows() const;
    /// Of these rows together, in pixels.
    int HeadHeight() const;
    /// Visits the rows that are shown, as high as these columns need them. They come by and by:
    /// measuring one loads it, and those before it may be dropped again.
    void ForEachRow(const TColumns &columns, int first, int last,
                    const std::function<void(const TGridBand &)> &visit);

    /// What the row's cell in the column of its tree says, if there is one among these.
    std::optional<QString> TreeText(const TColumns &columns, TAxisContentItem &row) const;

    /// Draws the head of the columns, or rows of them, from `at` on.
    void PaintHead(QPainter &painter, const TColumns &columns, const QPointF &at);
    /// `page` is what the page shows of it, in the painter's coordinates: texts that begin outside
    /// of it are texts of another page.
    void PaintRows(QPainter &painter, const TColumns &columns, int first, int last,
                   const QPointF &at, double height, const QRectF &page);

private:
    void PaintSlice(QPainter &painter, const TGridPrintSlice &slice, const QPointF &at,
                    double height, const QRectF &page);

    TBabGridView_Custom &m_grid;
};

} // namespace korvane
