// Which columns of a schedule have sub-columns that are out of date.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace korvane {

/// Keeps account of the columns, by number, whose sub-columns are to be worked out.
///
/// A change asks for them, and a little later, when many changes have come together, the request is
/// accepted. Columns in view are worked out then; the others are due when somebody asks for them.
class KORVANE_CORE_API TSubColsDue
{
public:
    /// A time of the column, or one that is about to leave it, has changed; numbers without a
    /// column are ignored.
    void Changed(int col)
    {
        if (col >= 0 && Index(col) < m_columns.size()) {
            m_columns[Index(col)].Changed = ++m_changes;
        }
    }
    /// Also when there are other columns than before.
    void AllChanged() { m_allChanged = ++m_changes; }
    /// What was asked for until now counts from here on.
    void AcceptRequest() { m_accepted = m_changes; }

    /// Whether a change was accepted and not worked out since. `baseDate` is the column's, which
    /// changes without a word.
    bool IsDue(int col, TDateTime baseDate) const
    {
        if (Index(col) >= m_columns.size()) {
            return m_allChanged != 0 && m_allChanged <= m_accepted;
        }
        const TColumn &column = m_columns[Index(col)];
        const std::uint64_t changed = std::max(column.Changed, m_allChanged);
        return changed <= m_accepted
               && (column.WorkedOut < changed || !(column.BaseDate == baseDate));
    }
    /// The column's sub-columns are up to date, or soon will be.
    void WorkedOut(int col, TDateTime baseDate)
    {
        m_columns.resize(std::max(m_columns.size(), Index(col) + 1));
        m_columns[Index(col)].WorkedOut = m_changes;
        m_columns[Index(col)].BaseDate = baseDate;
    }
    /// Nothing became of what was called worked out.
    void Dropped(int col) { m_columns[Index(col)].WorkedOut = 0; }

private:
    /// Numbers of changes, which count from 1.
    struct TColumn
    {
        std::uint64_t Changed = 0;
        std::uint64_t WorkedOut = 0;
        TDateTime BaseDate = 0;
    };

    static std::size_t Index(int col) { return static_cast<std::size_t>(col); }

    std::vector<TColumn> m_columns;
    std::uint64_t m_changes = 0;
    std::uint64_t m_allChanged = 0;
    std::uint64_t m_accepted = 0;
};

} // namespace korvane
