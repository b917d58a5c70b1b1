#include "schema/zuSchemaTimeIndex.h"

#include <algorithm>
#include <limits>

namespace korvane {

void TSchemaTimeIndex::Add(TzuDataEntity_SchemaTime &time)
{
    if (time.m_indexed == TzuDataEntity_SchemaTime::TIndexed::No) {
        m_pending.Add(&time);
        time.m_indexed = TzuDataEntity_SchemaTime::TIndexed::Pending;
    }
}

void TSchemaTimeIndex::Postpone(TzuDataEntity_SchemaTime &time)
{
    if (time.m_indexed == TzuDataEntity_SchemaTime::TIndexed::Yes) {
        TakeOut(time);
        Add(time);
    }
}

void TSchemaTimeIndex::Remove(TzuDataEntity_SchemaTime &time)
{
    if (time.m_indexed == TzuDataEntity_SchemaTime::TIndexed::Pending) {
        m_pending.Remove(&time);
    } else if (time.m_indexed == TzuDataEntity_SchemaTime::TIndexed::Yes) {
        TakeOut(time);
    }
    time.m_indexed = TzuDataEntity_SchemaTime::TIndexed::No;
}

void TSchemaTimeIndex::TakeOut(TzuDataEntity_SchemaTime &time)
{
    const auto column = m_columns.find(time.Col());
    column->second.Remove(time);
    if (column->second.Count() == 0) {
        m_columns.erase(column);
    }
    time.m_indexed = TzuDataEntity_SchemaTime::TIndexed::No;
}

void TSchemaTimeIndex::Flush()
{
    if (m_pending.Count() == 0) {
        return;
    }
    TTimes pending = m_pending.Items();
    std::ranges::stable_sort(pending, {}, &TzuDataEntity_SchemaTime::Col);
    for (auto from = pending.begin(); from != pending.end();) {
        const int col = (*from)->Col();
        const auto to = std::find_if(from, pending.end(),
                                     [col](const auto *time) { return time->Col() != col; });
        AddTo(col, {from, to});
        from = to;
    }
    for (TzuDataEntity_SchemaTime *time : pending) {
        time->m_indexed = TzuDataEntity_SchemaTime::TIndexed::Yes;
    }
    m_pending.Clear();
}

void TSchemaTimeIndex::AddTo(int col, const TTimes &times)
{
    TColumnIndex &column = m_columns.try_emplace(col, TTimes{}).first->second;
    // Building anew is faster than adding many one by one.
    if (times.size() > column.Count() / 4) {
        TTimes all = column.Items();
        all.insert(all.end(), times.begin(), times.end());
        column = TColumnIndex(all);
        return;
    }
    for (TzuDataEntity_SchemaTime *time : times) {
        column.Add(*time);
    }
}

void TSchemaTimeIndex::Find(int col, TDateTime from, TDateTime to, TTimes &times)
{
    Flush();
    if (const auto column = m_columns.find(col); column != m_columns.end()) {
        column->second.Find(from, to, times);
    }
}

void TSchemaTimeIndex::FindAll(int col, TTimes &times)
{
    constexpr double kForever = std::numeric_limits<double>::infinity();
    Find(col, -kForever, kForever, times);
}

} // namespace korvane
