#include "gantt/zuGant.h"

#include "grid/zuGridTreeData.h"
#include "scaler/zuScalerGestures.h"
#include "tree/zuTreeData.h"

#include <algorithm>

namespace korvane {

namespace {

/// Sets a painted property; true when it has changed.
template <typename T>
bool Assign(T &field, const T &value)
{
    if (field == value) {
        return false;
    }
    field = value;
    return true;
}

} // namespace

TGantCore::TGantCore(IGantHost &host, TzuGant_ComBasic *component)
    : m_host(host)
    , m_component(component)
    , m_onStyleSet(TOnStyleSet::Bind<&TGantCore::_OnTimeItemSyleSet>(this))
{
    ReInitBitmap();
}

TGantCore::~TGantCore()
{
    FinalizeData();
}

void TGantCore::InitializeData()
{
    WireTimeItemController();
    m_linkController.OnDeleteItem = TOnDataEntityNotify::Bind<&TGantCore::_OnDeleteItem_Link>(this);
    m_linkController.OnSelectionChanged =
        TOnDataListDataEntityNotify::Bind<&TGantCore::_OnSelectionChanged_Link>(this);
    m_links = CreateLinkList();
    m_links->AfterCreate(&m_linkController, EntityClass::Of<TzuDataEntity_Link>());
    m_store = CreateDataList3Lev();
    m_store->AfterCreate();
    m_rows = CreateRowList();
}

void TGantCore::FinalizeData()
{
    if (m_rows == nullptr) {
        return;
    }
    m_destroying = true;
    m_rows->CleanForFree();
    m_store->CleanForFree();
    m_links->CleanForFree();
    m_rows.reset();
    m_store.reset();
    m_links.reset();
}

void TGantCore::WireTimeItemController()
{
    auto &slots = m_timeItemController;
    slots.OnInsertItem = TOnDataEntityNotify::Bind<&TGantCore::_OnInsertItem>(this);
    slots.OnDeleteItem = TOnDataEntityNotify::Bind<&TGantCore::_OnDeleteItem>(this);
    slots.OnContentChanged = TOnDataListNotify::Bind<&TGantCore::_OnContentChanged>(this);
    slots.OnInfoPush = TOnDataEntityNotify::Bind<&TGantCore::_OnInfoPush>(this);
    slots.OnSelectionChanged =
        TOnDataListDataEntityNotify::Bind<&TGantCore::_OnSelectionChanged>(this);
    slots.OnBeforeChangeOwner = TOnDataEntityNotify::Bind<&TGantCore::_OnBeforeChangeOwner>(this);
    slots.OnAfterChangeOwner = TOnDataEntityNotify::Bind<&TGantCore::_OnAfterChangeOwner>(this);
    slots.OnBeforeCanEditItem = TOnDataEntityNotify::Bind<&TGantCore::_OnBeforeCanEditItem>(this);
    slots.OnLoadItem = TOnDataEntityNotify::Bind<&TGantCore::_OnVirtualLoadTimeItem>(this);
    slots.OnCanUnload = TOnDataEntityUnloadNotify::Bind<&TGantCore::_OnVirtualUnLoadTimeItem>(this);
}

std::unique_ptr<TzuDataList> TGantCore::CreateLinkList()
{
    return std::make_unique<TzuDataList>();
}

std::unique_ptr<TGantRowList> TGantCore::CreateRowList()
{
    return std::make_unique<TGantRowList>(*this);
}

TGantRow *TGantCore::CreateRow(TzuDataEntity_Tree *treeNode, TzuDataEntity_GridTreeNode *gridNode)
{
    return new TGantRow(*m_rows, treeNode, gridNode);
}

TzuDataList_GantRow *TGantCore::CreateDataList_GantRow()
{
    auto *list = new TzuDataList_GantRow;
    list->AfterCreate(&m_timeItemController, EntityClass::Of<TzuDataEntity_Spanbar>());
    return list;
}

TzuDataList2lev *TGantCore::CreateDataList2Lev()
{
    auto *lists = new TzuDataList2lev;
    lists->AfterCreate();
    return lists;
}

std::unique_ptr<TzuDataList3lev> TGantCore::CreateDataList3Lev()
{
    return std::make_unique<TzuDataList3lev>();
}

TzuDataEntity_Spanbar *TGantCore::AddSpanbarToGantRow(TGantRow *row, int layer)
{
    if (row == nullptr || layer < 0) {
        return nullptr;
    }
    TzuDataEntity *added = row->Layers().GetDataList(layer)->Add();
    if (added == nullptr) { // a handler has removed it
        return nullptr;
    }
    TzuDataEntity_Spanbar &item = TimeDataEntity(*added);
    item.SetColor(clWhite);
    item.SetStyle(TSpanbarStyle::sbsSquare);
    item.SetCanEdit(true);
    return &item;
}

TzuDataEntity_Spanbar *TGantCore::AddSpanbar(TzuDataEntity_Tree *node, int layer)
{
    return AddSpanbarToGantRow(m_rows->FindRowFromTreeNode(node), layer);
}

TzuDataEntity_Spanbar *TGantCore::GridNode_AddSpanbar(TzuDataEntity_GridTreeNode *node, int layer)
{
    return AddSpanbarToGantRow(m_rows->FindRowFromGridNode(node), layer);
}

void TGantCore::RemoveSpanbar(TzuDataEntity_Spanbar *item)
{
    if (item != nullptr && item->GetDataList() != nullptr) {
        item->GetDataList()->Remove(item);
    }
}

TzuDataEntity_Link &TGantCore::AddLink()
{
    auto &link = dynamic_cast<TzuDataEntity_Link &>(*m_links->Add());
    link.SetStyle(m_defaultLinkStyle);
    link.SetColor(m_defaultLinkColor);
    return link;
}

void TGantCore::DropAllLinks(const TzuDataEntity_Spanbar &item)
{
    std::vector<TzuDataEntity_Link *> links = item.Links();
    std::erase_if(links, [this](const auto *link) { return link->GetDataList() != m_links.get(); });
    std::ranges::sort(links, std::ranges::greater(), &TzuDataEntity_Link::ListIndex);
    // A link from the item to itself is listed at both of its ends.
    links.erase(std::ranges::unique(links).begin(), links.end());
    for (TzuDataEntity_Link *link : links) {
        m_links->Remove(link);
    }
}

TzuDataEntity_Spanbar *TGantCore::FindSpanbarObjectFromUserReference(const void *reference)
{
    TDataListTrav walk(m_store.get());
    for (walk.First(); !walk.Eof(); walk.Next()) {
        TzuDataEntity *entity = walk.DataEntity();
        if (entity->GetUserReference() == reference) {
            return &TimeDataEntity(*entity);
        }
    }
    return nullptr;
}

void TGantCore::SetActiveDataEntity(TzuDataEntity_Spanbar *item)
{
    Keep(item);
    if (Assign(m_active, item)) {
        m_host.InvalidateArea();
        m_host.ActiveItemChanged();
    }
}

bool TGantCore::Holds(const TzuDataEntity_Spanbar &item) const
{
    const TGantRow *row = item.GetRow();
    return row != nullptr && &row->Gant() == this;
}

TzuDataEntity_Link *TGantCore::GetLinkFromXY(int x, int y) const
{
    constexpr double kReach = 3;
    double least = kReach;
    TzuDataEntity_Link *closest = nullptr;
    for (const TShownLink &shown : m_shownLinks) {
        const double distance = DistanceToLine(shown.Line(), {x, y});
        if (distance <= least) {
            least = distance;
            closest = shown.Link;
        }
    }
    return closest;
}

void TGantCore::SetHoverLink(TzuDataEntity_Link *link)
{
    Keep(link);
    if (Assign(m_hoverLink, link)) {
        m_host.InvalidateArea();
    }
}

TzuDataEntity_Spanbar *TGantCore::GetDataEntityFromXY(int x, int y) const
{
    TGantRow *row = m_rows->FindRowFromY(y);
    return row != nullptr ? row->FindDataEntityFromXY(x, y) : nullptr;
}

void TGantCore::SetGantBackColor(TColor color)
{
    if (Assign(m_backColor, color)) {
        ReInitBitmap();
        m_host.InvalidateArea();
    }
}

void TGantCore::SetGantPyjamasColor(TColor color)
{
    if (Assign(m_pyjamasColor, color)) {
        ReInitBitmap();
        m_host.InvalidateArea();
    }
}

void TGantCore::SetVerticalPyjamas(bool on)
{
    if (Assign(m_verticalPyjamas, on)) {
        m_host.InvalidateArea();
    }
}

void TGantCore::SetDrawShortLines(bool on)
{
    if (Assign(m_drawShortLines, on)) {
        m_host.InvalidateArea();
    }
}

void TGantCore::SetLinkShow(TLinkShow show)
{
    if (Assign(m_linkShow, show)) {
        m_host.InvalidateArea();
    }
}

void TGantCore::SetImageList(const TImageList *images)
{
    if (Assign(m_imageList, images)) {
        m_host.InvalidateArea();
    }
}

void TGantCore::SetUseGridNotTree(bool value)
{
    if (Assign(m_useGrid, value)) {
        m_host.InvalidateArea();
    }
}

bool TGantCore::RowTypeCheckOK(const TGantRow &row) const
{
    return m_useGrid ? row.GridNode() != nullptr : row.TreeNode() != nullptr;
}

const TFont &TGantCore::FontTimeItemStyle(int style) const
{
    return m_itemFonts.at(style == 2 || style == 3 ? static_cast<std::size_t>(style - 1) : 0);
}

void TGantCore::SetFontTimeItemStyle(int style, const TFont &font)
{
    const std::size_t index = style == 2 || style == 3 ? static_cast<std::size_t>(style - 1) : 0;
    if (Assign(m_itemFonts.at(index), font)) {
        m_host.InvalidateArea();
    }
}

void TGantCore::_OnInsertItem(TzuDataEntity *item)
{
    TimeDataEntity(*item);
    m_host.InvalidateArea();
    UpdateSubColumnsOf(item->GetDataList());
    OnInsertItem_Spanbar(this, item);
}

void TGantCore::_OnDeleteItem(TzuDataEntity *item)
{
    TzuDataEntity_Spanbar &timeItem = TimeDataEntity(*item);
    if (m_active == &timeItem) {
        SetActiveDataEntity(nullptr);
    }
    m_host.InvalidateArea();
    UpdateSubColumnsOf(item->GetDataList());
    DropAllLinks(timeItem);
    OnDeleteItem_Spanbar(this, item);
}

void TGantCore::_OnContentChanged(TzuDataList *list)
{
    // An item can leave for a list of another chart.
    if (m_active != nullptr && !Holds(*m_active)) {
        SetActiveDataEntity(nullptr);
    }
    m_host.InvalidateArea();
    UpdateSubColumnsOf(list);
    OnContentChanged_Spanbar(this, list);
}

void TGantCore::_OnInfoPush(TzuDataEntity *item)
{
    m_host.InvalidateArea();
    UpdateSubColumnsOf(item->GetDataList());
    OnChangeDataEntity_Spanbar(m_component, &TimeDataEntity(*item));
    OnValueChanged_Spanbar(this, item);
}

/// Of the row whose layer it is; of none while the chart goes.
void TGantCore::UpdateSubColumnsOf(const TzuDataList *list) const
{
    const auto *layer = dynamic_cast<const TzuDataList_GantRow *>(list);
    if (!m_destroying && layer != nullptr && layer->GetRow() != nullptr) {
        layer->GetRow()->UpdateSubColumns();
    }
}

void TGantCore::_OnSelectionChanged(TzuDataList *list, TzuDataEntity *item)
{
    TimeDataEntity(*item).Touch();
    m_host.InvalidateArea();
    OnSelectionChanged_Spanbar(this, list, item);
}

void TGantCore::_OnBeforeCanEditItem(TzuDataEntity *item)
{
    OnBeforeCanEditItem_Spanbar(this, item);
}

void TGantCore::_OnVirtualLoadTimeItem(TzuDataEntity *item)
{
    OnVirtualLoad_Spanbar(m_component, &TimeDataEntity(*item));
}

void TGantCore::_OnVirtualUnLoadTimeItem(TzuDataEntity *item, bool &canUnload)
{
    OnVirtualUnLoad_Spanbar(m_component, &TimeDataEntity(*item), canUnload);
}

void TGantCore::_OnSelectionChanged_Link(TzuDataList *list, TzuDataEntity *link)
{
    m_host.InvalidateArea();
    OnSelectionChanged_Link(this, list, link);
}

void TGantCore::_OnDeleteItem_Link(TzuDataEntity *link)
{
    ForgetLink(&dynamic_cast<TzuDataEntity_Link &>(*link));
    m_host.InvalidateArea();
}

void TGantCore::_OnLinkFreed(const TzuDataEntity_Link *link)
{
    ForgetLink(link);
}

void TGantCore::ForgetLink(const TzuDataEntity_Link *link)
{
    if (m_hoverLink == link) {
        m_hoverLink = nullptr;
    }
    // The next paint collects them anew. All at once, so that deleting many costs no more.
    m_shownLinks.clear();
}

void TGantCore::_OnItemFreed(const TzuDataEntity_Spanbar *item)
{
    if (m_active == item) {
        m_active = nullptr;
    }
}

void TGantCore::_OnTimeItemSyleSet(const TzuTimeItemTextCollection & /*collection*/,
                                   TCanvas &canvas, int style)
{
    canvas.SetFont(FontTimeItemStyle(style));
    m_host.PrintResizeAreaFont();
}

bool TGantCore::TimeMoveRow(TzuDataEntity_Spanbar &item, TGantRow &row, TGantRow &newRow,
                            TDateTime start, TDateTime stop, TzuDataEntity_Spanbar *&result)
{
    result = nullptr;
    const bool taken = static_cast<bool>(OnTimeChangeRow);
    OnTimeChangeRow(m_component, &item, &row, &newRow, start, stop);
    return taken;
}

bool TGantCore::TimeCopy(TzuDataEntity_Spanbar &item, TGantRow &row, TGantRow &newRow,
                         TDateTime start, TDateTime stop, TzuDataEntity_Spanbar *&result)
{
    result = nullptr;
    const bool taken = static_cast<bool>(OnTimeCopy);
    OnTimeCopy(m_component, &item, &row, &newRow, start, stop);
    return taken;
}

} // namespace korvane
