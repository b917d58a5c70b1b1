// The sub-columns of times that overlap.
#include "data/zuTimeDistinctThread.h"
#include "foundation/zuDateUtils.h"
#include "foundation/zuDoLater.h"
#include "foundation/zuReport.h"
#include "schema/zuSchema.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace korvane {

namespace {

/// Only times of one data list in one column are kept apart from each other.
std::string KeyOf(const TzuDataEntity_SchemaTime &time)
{
    return std::to_string(reinterpret_cast<std::uintptr_t>(time.GetDataList())) + '*'
           + std::to_string(time.Col());
}

} // namespace

void TSchemaCore::UpdateSubColumns()
{
    if (m_collisionDetect && HasData()) {
        TDoLater::DoLater(TDoLaterCall::Bind<&TSchemaCore::UpdateSubColumns_DoLater>(this));
    }
}

void TSchemaCore::UpdateSubColumns_DoLater(TObject * /*sender*/)
{
    UpdateSubColumns_Perform();
}

void TSchemaCore::StopSeparation()
{
    TDoLater::NeverMind(TDoLaterCall::Bind<&TSchemaCore::UpdateSubColumns_DoLater>(this));
    if (m_separation != nullptr) {
        m_separation->Terminate();
        m_separation->OnDone = {};
        m_separation.reset();
    }
}

void TSchemaCore::UpdateSubColumns_Perform()
{
    try {
        StopSeparation();
        auto separation = TTimeDistinctGenericThread::Create();
        separation->OnDone =
            TTimeDistinctGenericThread::TDone::Bind<&TSchemaCore::SubColThreadDone>(this);
        FillHolders(separation->Holders());
        m_separation = std::move(separation);
        m_separation->Resume();
    } catch (const std::exception &error) {
        Report("UpdateSubColumns exception:" + std::string(error.what()));
    }
}

void TSchemaCore::UpdateSubColumnsNow()
{
    if (m_collisionDetect && HasData()) {
        StopSeparation();
        TDistinctTimeHolderList holders;
        FillHolders(holders);
        TTimeDistinctGeneric(holders).ResolveConflicts();
        ApplySubCols(holders);
    }
}

void TSchemaCore::FillHolders(TDistinctTimeHolderList &holders)
{
    const std::vector<TzuDataList *> lists = AllLists();
    LoadAll(lists);
    TTimes times = VisibleTimes({0, m_columns->Count()});
    SortByPlace(lists, times);
    for (TzuDataEntity_SchemaTime *time : times) {
        holders.Add(NearestSecond(time->GetStartDateTime()), NearestSecond(time->GetStopDateTime()),
                    m_collisionBetweenLists ? std::string() : KeyOf(*time), time);
    }
}

void TSchemaCore::SubColThreadDone(TTimeDistinctGenericThread *sender)
{
    const std::shared_ptr<TTimeDistinctGenericThread> separation = sender->shared_from_this();
    m_separation.reset();
    separation->OnDone = {};
    try {
        ApplySubCols(separation->Holders());
    } catch (const std::exception &error) {
        Report("TimeDistinctThreadDone:" + std::string(error.what()));
    }
}

void TSchemaCore::ApplySubCols(TDistinctTimeHolderList &holders)
{
    for (int col = 0; col < m_columns->Count(); ++col) {
        m_columns->GetCol(col).SetSubColCount(1);
    }
    for (TzuDataEntity_SchemaTime *time : VisibleTimes({0, m_columns->Count()})) {
        const TDistinctTimeHolder *holder = holders.FindFromReference(time);
        if (holder == nullptr) {
            continue;
        }
        time->SetInSubCol(holder->SubCol != 0);
        time->SetSubCol(holder->SubCol - 1);
        TzuDataEntity_SchemaColumn &column = m_columns->GetCol(time->Col());
        column.SetSubColCount(std::max(column.SubColCount(), time->SubCol() + 1));
    }
    WidenColumns();
    m_host.InvalidateArea();
}

void TSchemaCore::WidenColumns()
{
    if (m_leastSubColWidth <= 0) {
        return;
    }
    m_columns->BeginUpdate();
    for (int col = 0; col < m_columns->Count(); ++col) {
        const TzuDataEntity_SchemaColumn &column = m_columns->GetCol(col);
        const int needed = column.SubColCount() * m_leastSubColWidth;
        if (column.SubColCount() > 1 && column.Saved_FW(m_flipView) < needed) {
            m_columns->SetColumnSize(m_flipView, col, needed);
        }
    }
    m_columns->EndUpdate();
    UpdateColumnScrollerLater();
}

void TSchemaCore::DropSubCols()
{
    for (TzuDataList *list : AllLists()) {
        for (int position = 0; position < list->LoadedCount(); ++position) {
            DataEntity_Schema(*list->GetLoaded(position)).SetInSubCol(false);
        }
    }
    m_host.InvalidateArea();
}

} // namespace korvane
