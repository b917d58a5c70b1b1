#include "cellgrid/zuCellSelection.h"

#include <algorithm>
#include <utility>

namespace korvane {

bool TCellSelection::IsOneRun(int value) const
{
    const TRunSequence::TRun run = m_rows.RunAt(0);
    return run.Value == value && run.Count == m_rows.Count();
}

bool TCellSelection::Contains(const TPattern &pattern, int column)
{
    const auto behind = std::upper_bound(pattern.begin(), pattern.end(), column);
    return (behind - pattern.begin()) % 2 != 0;
}

bool TCellSelection::IsSelected(int column, int row) const
{
    return row >= 0 && row < m_rows.Count()
           && Contains(m_patterns[static_cast<std::size_t>(m_rows.ValueAt(row))], column);
}

bool TCellSelection::RowHasSelected(int row) const
{
    return row >= 0 && row < m_rows.Count() && m_rows.ValueAt(row) != 0;
}

bool TCellSelection::ColumnHasSelected(int column) const
{
    for (int row = NextRow(0); row >= 0;) {
        const auto run = m_rows.RunAt(row);
        if (Contains(m_patterns[static_cast<std::size_t>(run.Value)], column)) {
            return true;
        }
        row = NextRow(run.First + run.Count);
    }
    return false;
}

int TCellSelection::RowCount() const
{
    int count = 0;
    for (int row = NextRow(0); row >= 0;) {
        const auto run = m_rows.RunAt(row);
        count += run.Count;
        row = NextRow(run.First + run.Count);
    }
    return count;
}

int TCellSelection::NextRow(int row) const
{
    if (row < 0 || row >= m_rows.Count()) {
        return -1;
    }
    const auto run = m_rows.RunAt(row);
    const int next = run.Value != 0 ? row : run.First + run.Count;
    return next < m_rows.Count() ? next : -1;
}

TCellSelection::TPattern TCellSelection::Changed(const TPattern &pattern, int first, int end,
                                                 bool selected)
{
    TPattern result;
    const auto add = [&result](int from, int to) {
        if (from < to) {
            result.insert(result.end(), {from, to});
        }
    };
    bool added = !selected;
    for (std::size_t at = 0; at < pattern.size(); at += 2) {
        const int from = pattern[at];
        const int to = pattern[at + 1];
        if (!selected) {
            add(from, std::min(to, first));
            add(std::max(from, end), to);
        } else if (to >= first && from <= end) {
            first = std::min(first, from);
            end = std::max(end, to);
        } else {
            if (from > end && !std::exchange(added, true)) {
                add(first, end);
            }
            add(from, to);
        }
    }
    if (!added) {
        add(first, end);
    }
    return result;
}

int TCellSelection::IdOf(const TPattern &pattern)
{
    const auto [found, added] = m_ids.emplace(pattern, static_cast<int>(m_patterns.size()));
    if (added) {
        m_patterns.push_back(pattern);
    }
    return found->second;
}

void TCellSelection::Change(const TCellRange &range, bool selected)
{
    const int firstRow = std::max(0, range.FirstRow);
    const int endRow = range.LastRow + 1;
    const int missing = selected ? endRow - m_rows.Count() : 0;
    if (missing > 0) {
        m_rows.Insert(m_rows.Count(), missing, 0);
    }
    for (int row = firstRow; row < std::min(endRow, m_rows.Count());) {
        const auto run = m_rows.RunAt(row);
        const int end = std::min(run.First + run.Count, endRow);
        const auto pattern = m_patterns[static_cast<std::size_t>(run.Value)];
        const int id = IdOf(Changed(pattern, range.FirstColumn, range.LastColumn + 1, selected));
        m_rows.Fill(row, end - row, id);
        row = end;
    }
    if (Empty()) {
        Clear();
    }
}

void TCellSelection::Clear()
{
    m_rows.Clear();
    m_patterns = {TPattern()};
    m_ids = {{TPattern(), 0}};
}

std::vector<TCellRange> TCellSelection::Ranges() const
{
    std::vector<TCellRange> ranges;
    for (int row = NextRow(0); row >= 0;) {
        const auto run = m_rows.RunAt(row);
        const TPattern &pattern = m_patterns[static_cast<std::size_t>(run.Value)];
        for (std::size_t at = 0; at < pattern.size(); at += 2) {
            ranges.push_back(
                {pattern[at], run.First, pattern[at + 1] - 1, run.First + run.Count - 1});
        }
        row = NextRow(run.First + run.Count);
    }
    return ranges;
}

std::vector<std::pair<int, int>> TCellSelection::RowRanges() const
{
    std::vector<std::pair<int, int>> ranges;
    for (int row = NextRow(0); row >= 0;) {
        const auto run = m_rows.RunAt(row);
        const int end = run.First + run.Count;
        if (!ranges.empty() && ranges.back().second == run.First) {
            ranges.back().second = end;
        } else {
            ranges.emplace_back(run.First, end);
        }
        row = NextRow(end);
    }
    return ranges;
}

void TCellSelection::RowsChanged(int row, int by)
{
    if (row >= m_rows.Count()) {
        return;
    }
    if (by > 0) {
        m_rows.Insert(row, by, 0);
    } else {
        m_rows.Erase(row, std::min(-by, m_rows.Count() - row));
    }
}

void TCellSelection::RowMoved(int from, int to, int count)
{
    const int missing = std::max(from, to) + count - m_rows.Count();
    if (m_rows.Count() > 0 && missing > 0) {
        m_rows.Insert(m_rows.Count(), missing, 0);
    }
    if (m_rows.Count() > 0) {
        m_rows.Move(from, to, count);
    }
}

void TCellSelection::RowsReordered(int first, const std::vector<int> &order)
{
    if (Empty()) {
        return;
    }
    TRunSequence before;
    std::swap(before, m_rows);
    for (int row = 0; row < std::min(first, before.Count()); ++row) {
        m_rows.Insert(row, 1, before.ValueAt(row));
    }
    if (before.Count() < first) {
        m_rows.Insert(before.Count(), first - before.Count(), 0);
    }
    for (const int from : order) {
        const int row = first + from;
        m_rows.Insert(m_rows.Count(), 1, row < before.Count() ? before.ValueAt(row) : 0);
    }
}

/// Patterns that become equal get the number of the first.
template <typename Transform>
void TCellSelection::TransformPatterns(const Transform &transform)
{
    if (Empty()) {
        return;
    }
    const auto patterns = std::exchange(m_patterns, {TPattern()});
    m_ids = {{TPattern(), 0}};
    TRunSequence rows;
    std::swap(rows, m_rows);
    for (int row = 0; row < rows.Count();) {
        const auto run = rows.RunAt(row);
        const int id = IdOf(transform(patterns[static_cast<std::size_t>(run.Value)]));
        m_rows.Insert(row, run.Count, id);
        row += run.Count;
    }
}

void TCellSelection::ColumnsChanged(int column, int by)
{
    TransformPatterns([=](const TPattern &pattern) {
        if (by < 0) {
            TPattern cut = Changed(pattern, column, column - by, false);
            TPattern result;
            for (std::size_t at = 0; at < cut.size(); at += 2) {
                const auto shifted = [&](int edge) { return edge > column ? edge + by : edge; };
                const int from = shifted(cut[at]);
                const int to = cut[at + 1] > kAllColumns ? cut[at + 1] : shifted(cut[at + 1]);
                result = Changed(result, from, to, true);
            }
            return result;
        }
        TPattern result = pattern;
        for (std::size_t at = 0; at < result.size(); at += 2) {
            const bool endless = result[at + 1] > kAllColumns;
            const bool wholeRow = endless && result[at] == 0;
            result[at] += result[at] >= column && !wholeRow ? by : 0;
            result[at + 1] += result[at + 1] > column && !endless ? by : 0;
        }
        return result;
    });
}

void TCellSelection::ColumnMoved(int from, int to)
{
    TransformPatterns([=](const TPattern &pattern) {
        const bool moved = Contains(pattern, from);
        const int first = std::min(from, to);
        const int last = std::max(from, to);
        TPattern result = Changed(pattern, first, last + 1, false);
        for (int column = first; column <= last; ++column) {
            const int before = from < to ? column + 1 : column - 1;
            if (column == to ? moved : Contains(pattern, before)) {
                result = Changed(result, column, column + 1, true);
            }
        }
        return result;
    });
}

} // namespace korvane
