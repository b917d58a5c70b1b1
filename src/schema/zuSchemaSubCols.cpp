// The sub-columns of times that overlap.
#include "data/zuTimeDistinctThread.h"
#include "foundation/zuDateUtils.h"
#include "foundation/zuDoLater.h"
#include "foundation/zuReport.h"
#include "scaler/zuScalerGestures.h"
#include "schema/zuSchema.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <numeric>
#include <string>
#include <unordered_map>
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
    m_subColsDue.AllChanged();
    if (m_collisionDetect && HasData()) {
        TDoLater::DoLater(TDoLaterCall::Bind<&TSchemaCore::UpdateSubColumns_DoLater>(this));
    }
}

/// After a change of a time that stays where it is in its list.
void TSchemaCore::UpdateSubColumnsOf(const TzuDataEntity &time)
{
    if (m_collisionBetweenLists || OnIsVisible) { // then it concerns other columns as well
        UpdateSubColumns();
        return;
    }
    m_subColsDue.Changed(static_cast<const TzuDataEntity_SchemaTime &>(time).Col());
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
        for (const int col : std::exchange(m_separated, {})) {
            m_subColsDue.Dropped(col);
        }
    }
}

/// Of some columns, those that are to be worked out. Where times of all columns are one group it is
/// all or none.
TSchemaCore::TColumnNumbers TSchemaCore::DueColumns(TColumnRange columns) const
{
    TColumnNumbers due;
    for (int col = columns.From; col < columns.To; ++col) {
        if (m_subColsDue.IsDue(col, std::as_const(*m_columns).GetCol(col).BaseDate)) {
            due.push_back(col);
        }
    }
    if (m_collisionBetweenLists && !due.empty()) {
        due.resize(static_cast<std::size_t>(m_columns->Count()));
        std::iota(due.begin(), due.end(), 0);
    }
    return due;
}

void TSchemaCore::UpdateSubColumns_Perform()
{
    try {
        StopSeparation();
        m_subColsDue.AcceptRequest();
        const TColumnNumbers columns = DueColumns(ColumnsAt({0, ColumnRoom()}));
        if (columns.empty()) {
            return;
        }
        auto separation = TTimeDistinctGenericThread::Create();
        separation->OnDone =
            TTimeDistinctGenericThread::TDone::Bind<&TSchemaCore::SubColThreadDone>(this);
        FillHolders(columns, separation->Holders());
        m_separated = columns;
        m_separation = std::move(separation);
        m_separation->Resume();
    } catch (const std::exception &error) {
        Report("UpdateSubColumns exception:" + std::string(error.what()));
    }
}

void TSchemaCore::UpdateSubColumnsNow()
{
    ForgetSubColumns();
    if (HasData()) {
        WorkOutSubCols({0, m_columns->Count()});
    }
}

void TSchemaCore::ForgetSubColumns()
{
    if (m_collisionDetect && HasData()) {
        StopSeparation();
        m_subColsDue.AllChanged();
        m_subColsDue.AcceptRequest();
    }
}

void TSchemaCore::SubColumnsNeeded(int col)
{
    if (HasData() && m_columns->IsCol(col)) {
        WorkOutSubCols({col, col + 1});
    }
}

void TSchemaCore::WorkOutSubCols(TColumnRange columns)
{
    if (!m_collisionDetect) {
        return;
    }
    if (const TColumnNumbers due = DueColumns(columns); !due.empty()) {
        TDistinctTimeHolderList holders;
        FillHolders(due, holders);
        TTimeDistinctGeneric(holders).ResolveConflicts();
        ApplySubCols(due, holders);
    }
}

TSchemaCore::TTimes TSchemaCore::VisibleTimesOf(const TColumnNumbers &columns)
{
    const TVisibleTime visible = VisibleTime();
    TTimes times;
    for (const int col : columns) {
        Find({col, col + 1}, visible.From, visible.To, times);
    }
    std::erase_if(times, [this](auto *time) { return !IsVisible(*time); });
    return times;
}

void TSchemaCore::FillHolders(const TColumnNumbers &columns, TDistinctTimeHolderList &holders)
{
    for (const int col : columns) { // before handlers are called that might ask
        m_subColsDue.WorkedOut(col, std::as_const(*m_columns).GetCol(col).BaseDate);
    }
    const std::vector<TzuDataList *> lists = AllLists();
    LoadAll(lists);
    TTimes times = VisibleTimesOf(columns);
    SortByPlace(lists, times);
    if (m_subColsInListOrder) { // what is added last is placed first
        std::ranges::reverse(times);
    }
    for (TzuDataEntity_SchemaTime *time : times) {
        holders.Add(NearestSecond(time->GetStartDateTime()), NearestSecond(LaneStop(*time)),
                    m_collisionBetweenLists ? std::string() : KeyOf(*time), time);
    }
}

/// Until when the time takes its sub-column.
TDateTime TSchemaCore::LaneStop(TzuDataEntity_SchemaTime &time) const
{
    const TDateTime start = time.GetStartDateTime();
    const TDateTime stop = time.GetStopDateTime();
    if (!IsInColumn(time) || (stop > start && !IsDrawnLonger(time))) {
        return stop;
    }
    const TPixelSpan drawn = ScalerPixelsFromStartStopFromDataEntity(m_flipView, time);
    TRect rect = RectOf(m_flipView, m_columns->VirtualSpan(m_flipView, time.Col()), drawn);
    const int former = AlongTime(rect).Length();
    OnGetDrawingRect(m_component, &time, rect);
    const int pixels = drawn.Length() + AlongTime(rect).Length() - former;
    const TDateTime length = PixelToDate(pixels) - PixelToDate(0);
    return start + std::max(length, 1000.0 / kMillisecondsPerDay);
}

void TSchemaCore::SubColThreadDone(TTimeDistinctGenericThread *sender)
{
    const std::shared_ptr<TTimeDistinctGenericThread> separation = sender->shared_from_this();
    m_separation.reset();
    separation->OnDone = {};
    TColumnNumbers columns = std::exchange(m_separated, {});
    std::erase_if(columns, [this](int col) { return !m_columns->IsCol(col); }); // removed meanwhile
    try {
        ApplySubCols(columns, separation->Holders());
    } catch (const std::exception &error) {
        Report("TimeDistinctThreadDone:" + std::string(error.what()));
    }
}

void TSchemaCore::ApplySubCols(const TColumnNumbers &columns, TDistinctTimeHolderList &holders)
{
    bool hasChanged = false;
    std::unordered_map<int, int> counts;
    for (TzuDataEntity_SchemaTime *time : VisibleTimesOf(columns)) {
        const TDistinctTimeHolder *holder = holders.FindFromReference(time);
        if (holder == nullptr) {
            continue;
        }
        hasChanged |= time->SetInSubCol(holder->SubCol != 0);
        hasChanged |= time->SetSubCol(holder->SubCol - 1);
        int &count = counts[time->Col()];
        count = std::max(count, holder->SubCol);
    }
    for (const int col : columns) {
        hasChanged |= m_columns->GetCol(col).SetSubColCount(std::max(counts[col], 1));
    }
    WidenColumns(columns);
    if (hasChanged) {
        m_host.InvalidateArea();
    }
}

void TSchemaCore::WidenColumns()
{
    TColumnNumbers columns(static_cast<std::size_t>(m_columns->Count()));
    std::iota(columns.begin(), columns.end(), 0);
    WidenColumns(columns);
}

void TSchemaCore::WidenColumns(const TColumnNumbers &columns)
{
    if (m_leastSubColWidth <= 0 || !m_host.DrawsForScreen()) {
        return;
    }
    bool hasWidened = false;
    m_columns->BeginUpdate();
    for (const int col : columns) {
        const int count = m_columns->GetCol(col).KnownSubColCount();
        const int needed = std::min(count * m_leastSubColWidth, ColumnRoom());
        if (count > 1 && m_columns->GetCol(col).Saved_FW(m_flipView) < needed) {
            m_columns->SetColumnSize(m_flipView, col, needed);
            hasWidened = true;
        }
    }
    m_columns->EndUpdate();
    if (hasWidened) {
        UpdateColumnScrollerLater();
    }
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
