#include "schema/zuSchema.h"

#include "foundation/zuDoLater.h"
#include "scaler/zuScalerGestures.h"

#include <utility>

namespace korvane {

TSchemaCore::TSchemaCore(ISchemaHost &host, TzuSchema_ComBasic *component)
    : m_host(host)
    , m_component(component)
{
    m_partSizes.ScalerWidth = 50;
    ReInitBitmap();
}

TSchemaCore::~TSchemaCore()
{
    FinalizeData();
}

void TSchemaCore::InitializeData()
{
    WireControllers();
    m_times = Create2LevList();
    m_times->AfterCreate();
    auto columns = CreateColumnsCollection();
    columns->AfterCreate(&m_columnController, ClassOfDataEntity_SchemaColumn());
    m_columns = std::move(columns);
}

void TSchemaCore::FinalizeData()
{
    if (m_columns == nullptr) {
        return;
    }
    m_destroying = true;
    StopSeparation();
    TDoLater::NeverMind(TDoLaterCall::Bind<&TSchemaCore::SetScalerWidth_Perform>(this));
    TDoLater::NeverMind(TDoLaterCall::Bind<&TSchemaCore::SetScalerHeight_Perform>(this));
    TDoLater::NeverMind(TDoLaterCall::Bind<&TSchemaCore::UpdatePartSizePerform>(this));
    TDoLater::NeverMind(TDoLaterCall::Bind<&TSchemaCore::UpdateColumnScroller_Perform>(this));
    m_times->CleanForFree();
    for (const auto &list : m_dataLists) {
        list->CleanForFree();
    }
    m_columns->CleanForFree();
    m_dataLists.clear();
    m_times.reset();
    m_columns.reset();
}

void TSchemaCore::WireControllers()
{
    auto &times = m_timeController;
    times.OnInsertItem = TOnDataEntityNotify::Bind<&TSchemaCore::_OnInsertItem>(this);
    times.OnDeleteItem = TOnDataEntityNotify::Bind<&TSchemaCore::_OnDeleteItem>(this);
    times.OnContentChanged = TOnDataListNotify::Bind<&TSchemaCore::_OnContentChanged>(this);
    times.OnInfoPush = TOnDataEntityNotify::Bind<&TSchemaCore::_OnInfoPush>(this);
    times.OnVisibleChanged = times.OnInfoPush;
    times.OnSelectionChanged =
        TOnDataListDataEntityNotify::Bind<&TSchemaCore::_OnSelectionChanged>(this);
    times.OnBeforeCanEditItem = TOnDataEntityNotify::Bind<&TSchemaCore::_OnBeforeCanEditItem>(this);

    auto &columns = m_columnController;
    columns.OnInsertItem = [this](TzuDataEntity *item) { m_columns->_OnColumnsInsertItem(item); };
    columns.OnDeleteItem = [this](TzuDataEntity *item) {
        m_host.EntityLeft(item);
        m_columns->_OnColumnsDeleteItem(item);
    };
    columns.OnContentChanged = [this](TzuDataList *list) {
        m_columns->_OnColumnsContentChanged(list);
    };
    columns.OnInfoPush = [this](TzuDataEntity *item) { m_columns->_OnColumnsInfoPush(item); };
    columns.OnVisibleChanged = [this](TzuDataEntity * /*item*/) { m_columns->SizesChanged(); };
    columns.OnHandlePerformedMove = [this](TzuDataEntity * /*item*/, int /*from*/, int /*to*/) {
        m_columns->SetTopLeftCol(m_columns->TopLeftCol());
        m_columns->SizesChanged();
        UpdateSubColumns();
    };
    columns.OnSelectionChanged = [this](TzuDataList *list, TzuDataEntity *item) {
        m_columns->_OnColumnsSelectionChanged(list, item);
    };
    columns.OnBeforeCanEditItem =
        TOnDataEntityNotify::Bind<&TSchemaCore::_OnBeforeCanEditItem_Column>(this);
}

std::unique_ptr<TzuDataList_Schema> TSchemaCore::CreateDataList()
{
    return std::make_unique<TzuDataList_Schema>();
}

std::unique_ptr<TDataListColumns> TSchemaCore::CreateColumnsCollection()
{
    return std::make_unique<TDataListColumns>(*this);
}

std::unique_ptr<TzuDataList2lev> TSchemaCore::Create2LevList()
{
    return std::make_unique<TzuDataList2lev>();
}

EntityClass TSchemaCore::ClassOfDataEntity_SchemaTime() const
{
    return EntityClass::Of<TzuDataEntity_SchemaTime>();
}

EntityClass TSchemaCore::ClassOfDataEntity_SchemaColumn() const
{
    return EntityClass::Of<TzuDataEntity_SchemaColumn>();
}

// --- columns and times ---------------------------------------------------------------------------

TzuDataEntity_SchemaColumn *TSchemaCore::AddColumn()
{
    auto *column = CheckedCast<TzuDataEntity_SchemaColumn>(m_columns->Add());
    UpdateColumnScrollerLater();
    return column;
}

void TSchemaCore::RemoveColumn(TzuDataEntity_SchemaColumn *column)
{
    if (column != nullptr && column->GetDataList() == m_columns.get()) {
        m_columns->Remove(column);
        UpdateColumnScrollerLater();
    }
}

void TSchemaCore::ClearColumns()
{
    m_columns->ClearColumns();
    UpdateColumnScrollerLater();
}

TzuDataEntity_SchemaTime *TSchemaCore::AddSchemaTime(int index)
{
    while (index >= m_times->Count()) {
        AddDataList();
    }
    return CheckedCast<TzuDataEntity_SchemaTime>(m_times->GetDataList(index)->Add());
}

TzuDataList *TSchemaCore::AddDataList()
{
    m_dataLists.push_back(CreateDataList());
    TzuDataList_Schema &list = *m_dataLists.back();
    list.SetSchema(this);
    list.AfterCreate(&m_timeController, ClassOfDataEntity_SchemaTime());
    m_times->Add(&list);
    return &list;
}

void TSchemaCore::RemoveSchemaTime(TzuDataEntity_SchemaTime *time)
{
    if (time != nullptr && time->GetDataList() != nullptr) {
        time->GetDataList()->Remove(time);
    }
}

TzuDataEntity_SchemaTime *TSchemaCore::FindSchemaTimeObjectFromUserReference(const void *reference)
{
    TDataListTrav walk(m_times.get());
    for (walk.First(); !walk.Eof(); walk.Next()) {
        TzuDataEntity *entity = walk.DataEntity();
        if (entity != nullptr && entity->GetUserReference() == reference) {
            return &DataEntity_Schema(*entity);
        }
    }
    return nullptr;
}

TSchemaCore::TPlace TSchemaCore::GetStartStopDateAndCol(const TzuDataEntity_SchemaTime &time) const
{
    TPlace place;
    place.Col = time.Col();
    if (m_columns->IsCol(place.Col)) {
        const TDateTime base = std::as_const(*m_columns).GetCol(place.Col).BaseDate;
        place.Start = time.GetStartDateTime() - base;
        place.Stop = time.GetStopDateTime() - base;
    }
    return place;
}

void TSchemaCore::SetActiveDataEntity(TzuDataEntity_SchemaTime *time)
{
    time = Knows(time) ? time : nullptr;
    if (std::exchange(m_active, time) != time) {
        m_host.InvalidateArea();
        m_host.ActiveTimeChanged();
    }
}

// --- what happens to times -----------------------------------------------------------------------

void TSchemaCore::TimeJoined(TzuDataEntity_SchemaTime &time)
{
    m_index.Add(time);
}

void TSchemaCore::TimeLeft(TzuDataEntity_SchemaTime &time)
{
    m_index.Remove(time);
    m_host.EntityLeft(&time);
    if (m_active == &time) {
        m_active = nullptr;
        m_host.ActiveTimeChanged();
    }
}

void TSchemaCore::TimeWillChange(TzuDataEntity_SchemaTime &time)
{
    m_index.Postpone(time);
    m_subColsDue.Changed(time.Col()); // it may be about to leave
}

void TSchemaCore::_OnInsertItem(TzuDataEntity *item)
{
    m_host.InvalidateArea();
    UpdateSubColumns();
    OnInsertItem_SchemaTime(this, item);
}

void TSchemaCore::_OnDeleteItem(TzuDataEntity *item)
{
    m_host.InvalidateArea();
    UpdateSubColumns();
    OnDeleteItem_SchemaTime(this, item);
}

void TSchemaCore::_OnContentChanged(TzuDataList *list)
{
    m_host.InvalidateArea();
    UpdateSubColumns();
    OnContentChanged_SchemaTime(this, list);
}

void TSchemaCore::_OnInfoPush(TzuDataEntity *item)
{
    const TzuLifeWatch lives(*item);
    m_host.InvalidateArea();
    UpdateSubColumnsOf(*item);
    OnChangeDataEntity_SchemaTime(m_component, &DataEntity_Schema(*item));
    if (lives) {
        OnValueChanged_SchemaTime(this, item);
    }
}

void TSchemaCore::_OnSelectionChanged(TzuDataList *list, TzuDataEntity *item)
{
    m_host.InvalidateArea();
    OnSelectionChanged_SchemaTime(this, list, item);
}

void TSchemaCore::_OnBeforeCanEditItem(TzuDataEntity *item)
{
    item->SetCanEdit(true);
    OnBeforeCanEditItem_SchemaTime(this, item);
}

void TSchemaCore::_OnBeforeCanEditItem_Column(TzuDataEntity *item)
{
    OnBeforeCanEditItem_Column(this, item);
}

void TSchemaCore::ColumnsChanged()
{
    m_host.HeaderOutOfDate();
    m_host.InvalidateArea();
}

void TSchemaCore::ScaleChanged()
{
    m_host.InvalidateArea();
    OnScalerChange(m_component);
    UpdateSubColumns();
}

// --- walks ---------------------------------------------------------------------------------------

namespace {

std::vector<TzuDataList *> ListsOf(TDataListTrav &&walk)
{
    std::vector<TzuDataList *> lists;
    for (walk.First(); !walk.Eof(); walk.NextList()) {
        lists.push_back(walk.DataList());
    }
    return lists;
}

} // namespace

std::vector<TzuDataList *> TSchemaCore::Layers()
{
    return ListsOf(TDataListTrav(m_times.get(), m_drawLayers));
}

std::vector<TzuDataList *> TSchemaCore::AllLists()
{
    return ListsOf(TDataListTrav(m_times.get()));
}

} // namespace korvane
