// The times of a schedule by column and time.
#pragma once

#include "data/zuItemSet.h"
#include "data/zuTimeIndex.h"
#include "foundation/zuExport.h"
#include "schema/zuSchemaData.h"

#include <unordered_map>
#include <vector>

namespace korvane {

/// Finds the times of a column that touch a stretch of time. Costs what is found; what has changed
/// is put in order when the next search comes, so that loading many costs little for each.
class KORVANE_CORE_API TSchemaTimeIndex
{
public:
    /// Times, observed.
    using TTimes = std::vector<TzuDataEntity_SchemaTime *>;

    /// Nothing when the index knows the time.
    void Add(TzuDataEntity_SchemaTime &time);
    /// To be called before column, start or stop of a time change.
    void Postpone(TzuDataEntity_SchemaTime &time);
    /// Nothing when the index does not know the time.
    void Remove(TzuDataEntity_SchemaTime &time);
    /// Whether some index knows the time.
    static bool Knows(const TzuDataEntity_SchemaTime &time)
    {
        return time.m_indexed != TzuDataEntity_SchemaTime::TIndexed::No;
    }

    /// Appends the times of a column that touch from..to (absolute, both included), in no
    /// particular order. A time that stops before it starts counts as its start.
    void Find(int col, TDateTime from, TDateTime to, TTimes &times);
    /// Appends all times of a column.
    void FindAll(int col, TTimes &times);

private:
    using TColumnIndex = TTimeIndex<TzuDataEntity_SchemaTime>;

    void TakeOut(TzuDataEntity_SchemaTime &time);
    void Flush();
    void AddTo(int col, const TTimes &times);

    std::unordered_map<int, TColumnIndex> m_columns;
    TItemSet<TzuDataEntity_SchemaTime, TSchemaPendingPlace> m_pending;
};

} // namespace korvane
