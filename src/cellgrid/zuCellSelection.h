// Which cells of a grid are selected.
#pragma once

#include "cellgrid/zuRunSequence.h"
#include "foundation/zuExport.h"

#include <limits>
#include <map>
#include <utility>
#include <vector>

namespace korvane {

/// A block of cells; First and Last belong to it.
struct TCellRange
{
    /// Real indexes, both ends included.
    int FirstColumn = 0;
    int FirstRow = 0;
    int LastColumn = 0;
    int LastRow = 0;

    friend bool operator==(const TCellRange &, const TCellRange &) = default;
};

/// A selection by real indexes. Rows with the same selected columns that lie together are stored
/// once, so that ten million selected rows cost what one costs; columns and rows that come, go or
/// move take the selection with them.
class KORVANE_CORE_API TCellSelection
{
public:
    /// Last column of whole rows: they stay whole when columns are added.
    static constexpr int kAllColumns = std::numeric_limits<int>::max() - 1;

    /// Whether nothing is selected.
    bool Empty() const { return m_rows.Count() == 0 || IsOneRun(0); }
    /// Costs the logarithm of the stored runs; indexes that do not exist are not selected.
    bool IsSelected(int column, int row) const;
    /// Whether any cell of the row or column is selected.
    bool RowHasSelected(int row) const;
    bool ColumnHasSelected(int column) const;
    /// Whether the row is selected as a whole, as kAllColumns says.
    bool IsWholeRow(int row) const { return IsSelected(kAllColumns, row); }
    /// Number of rows with a selected cell.
    int RowCount() const;
    /// The first row from `row` on that has a selected cell; -1 when there is none.
    int NextRow(int row) const;

    /// Rows and columns need not exist; negative rows are left out. The others keep what they have.
    void Select(const TCellRange &range) { Change(range, true); }
    void Deselect(const TCellRange &range) { Change(range, false); }
    /// Deselects everything.
    void Clear();
    /// The selected blocks from top to bottom; they do not overlap.
    std::vector<TCellRange> Ranges() const;

    /// Rows with a selected cell as first and end of stretches, ascending and apart.
    std::vector<std::pair<int, int>> RowRanges() const;
    /// `by` columns or rows came at the index, or went from it when negative; one, or `count` from
    /// `from` on, moved to a place that is counted without them.
    void RowsChanged(int row, int by);
    void ColumnsChanged(int column, int by);
    void RowMoved(int from, int to, int count = 1);
    void ColumnMoved(int from, int to);
    /// Rows from `first` on come to stand in another order: the new one at first + i was at
    /// first + order[i].
    void RowsReordered(int first, const std::vector<int> &order);

private:
    /// Selected columns as pairs of first and end, ascending and apart.
    using TPattern = std::vector<int>;

    static bool Contains(const TPattern &pattern, int column);
    static TPattern Changed(const TPattern &pattern, int first, int end, bool selected);
    bool IsOneRun(int value) const;
    void Change(const TCellRange &range, bool selected);
    int IdOf(const TPattern &pattern);
    template <typename Transform>
    void TransformPatterns(const Transform &transform);

    TRunSequence m_rows; ///< number of the pattern of each row; rows behind have none selected
    std::vector<TPattern> m_patterns{TPattern()};
    std::map<TPattern, int> m_ids{{TPattern(), 0}};
};

} // namespace korvane
