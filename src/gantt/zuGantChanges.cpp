#include "gantt/zuGantChanges.h"

#include "scaler/zuScalerGestures.h"

#include <algorithm>
#include <unordered_set>

namespace korvane {

namespace {

/// The snap unit of the screen: fine enough that a drag does not jump visibly.
constexpr int kSnapPixels = 3;

} // namespace

/// Items that a loop has still to handle while handlers may delete them.
class TGantChanges::TWork
{
public:
    TWork(TGantChanges &gant, const std::vector<TzuDataEntity_Spanbar *> &items)
        : m_gant(gant)
        , m_outer(gant.m_work)
        , m_items(items.begin(), items.end())
    {
        gant.m_work = this;
        for (TzuDataEntity_Spanbar *item : items) {
            Keep(item);
        }
    }
    TWork(const TWork &) = delete;
    TWork &operator=(const TWork &) = delete;
    ~TWork() { m_gant.m_work = m_outer; }

    bool Holds(const TzuDataEntity_Spanbar *item) const { return m_items.contains(item); }
    void Forget(const TzuDataEntity_Spanbar *item)
    {
        m_items.erase(item);
        if (m_outer != nullptr) {
            m_outer->Forget(item);
        }
    }

private:
    TGantChanges &m_gant;
    TWork *m_outer;
    std::unordered_set<const TzuDataEntity_Spanbar *> m_items;
};

TGantChanges::TGantChanges(IGantHost &host, IGantInputHost &inputHost, TzuGant_ComBasic *component)
    : TGantSelection(host, inputHost, component)
{
}

TGantChanges::~TGantChanges() = default;

void TGantChanges::BeginUserChange(TGantUserChange kind)
{
    if (m_userChanges == 0) {
        OnBeginUserChange(Component(), kind);
    }
    ++m_userChanges;
}

void TGantChanges::EndUserChange(TGantUserChange kind, bool changed)
{
    if (--m_userChanges == 0) {
        OnEndUserChange(Component(), kind, changed);
    }
}

void TGantChanges::UpdateScreenSnap()
{
    m_snap.ScreenSnap = Host().Scaler().PixelLenToDate(kSnapPixels);
}

TGantChanges::TDrop TGantChanges::Shifted(const TzuDataEntity_Spanbar &item, TDateTime shift,
                                          TGantMouseMoveMode mode) const
{
    const TDateTime start = item.GetStartDateTime();
    const TDateTime stop = item.GetStopDateTime();
    TDrop drop{start + shift, stop + shift, item.GetRow()};
    if (OnSnapTimes) {
        OnSnapTimes(Component(), &item, mode, drop.Start, drop.Stop);
        return drop;
    }
    m_snap.SnapMove(drop.Start, drop.Stop);
    if (m_moveOver12Then24) {
        TSnapHandler::SnapMoveTo24HIfMoveOver12H(drop.Start, drop.Stop, start, stop);
    }
    return drop;
}

TGantChanges::TDrop TGantChanges::Grown(const TzuDataEntity_Spanbar &item, TGantEnd end,
                                        TDateTime shift) const
{
    TDrop drop{item.GetStartDateTime(), item.GetStopDateTime(), item.GetRow()};
    if (end == TGantEnd::Stop) {
        drop.Stop = std::max(drop.Stop + shift, drop.Start);
    } else {
        drop.Start = std::min(drop.Start + shift, drop.Stop);
    }
    if (OnSnapTimes) {
        const auto mode = end == TGantEnd::Stop ? TGantMouseMoveMode::mmGrowRight
                                                : TGantMouseMoveMode::mmGrowLeft;
        OnSnapTimes(Component(), &item, mode, drop.Start, drop.Stop);
    } else {
        m_snap.Snap(drop.Start, drop.Stop);
    }
    return drop;
}

bool TGantChanges::ApplyTimes(TzuDataEntity_Spanbar &item, const TDrop &drop)
{
    if (drop.Start == item.GetStartDateTime() && drop.Stop == item.GetStopDateTime()) {
        return false;
    }
    item.SetStartDateTime(drop.Start);
    item.SetStopDateTime(drop.Stop);
    item.DoInfoPush();
    return true;
}

void TGantChanges::ChangeSelected(TGantUserChange kind, const TItemChange &change)
{
    AsUserChange(kind, [&] {
        const std::vector<TzuDataEntity_Spanbar *> items = SelectedItems();
        KeepAll(items);
        const TWork work(*this, items);
        bool changed = false;
        for (TzuDataEntity_Spanbar *item : items) {
            if (work.Holds(item) && item->GetCanEdit() && work.Holds(item)) {
                changed = change(*item) || changed;
            }
        }
        return changed;
    });
}

bool TGantChanges::CopyItem(TzuDataEntity_Spanbar &item, const TDrop &drop)
{
    const TzuLifeWatch lives(item);
    TzuDataEntity_Spanbar *copy = nullptr;
    m_insertedItem = nullptr;
    const bool handled = TimeCopy(item, *item.GetRow(), *drop.Row, drop.Start, drop.Stop, copy);
    copy = copy != nullptr ? copy : m_insertedItem;
    if (handled && copy != nullptr) {
        copy->SetSelected(true);
        if (lives) {
            item.SetSelected(false);
        }
    }
    return handled;
}

bool TGantChanges::MoveItem(TzuDataEntity_Spanbar &item, const TDrop &drop)
{
    TGantRow &row = *item.GetRow();
    const TzuLifeWatch lives(item);
    const TzuLifeWatch rowLives(row);
    const TzuLifeWatch targetLives(*drop.Row);
    const bool changed = ApplyTimes(item, drop);
    if (drop.Row == &row || !lives || !rowLives || !targetLives || item.GetRow() != &row) {
        return changed;
    }
    return MoveItemToRow(item, row, drop) || changed;
}

bool TGantChanges::MoveItemToRow(TzuDataEntity_Spanbar &item, TGantRow &row, const TDrop &drop)
{
    const TzuLifeWatch lives(item);
    TzuDataEntity_Spanbar *moved = nullptr;
    m_insertedItem = nullptr;
    const bool handled = TimeMoveRow(item, row, *drop.Row, drop.Start, drop.Stop, moved);
    moved = moved != nullptr ? moved : m_insertedItem;
    // The item itself, moved, stays selected.
    if (handled && !lives && moved != nullptr) {
        moved->SetSelected(true);
    }
    return handled;
}

void TGantChanges::_OnInsertItem(TzuDataEntity *item)
{
    m_insertedItem = &TimeDataEntity(*item);
    if (m_work != nullptr) {
        Keep(m_insertedItem);
    }
    TGantSelection::_OnInsertItem(item);
}

void TGantChanges::_OnDeleteItem(TzuDataEntity *item)
{
    Forget(&TimeDataEntity(*item));
    TGantSelection::_OnDeleteItem(item);
}

void TGantChanges::_OnItemFreed(const TzuDataEntity_Spanbar *item)
{
    Forget(item);
    TGantSelection::_OnItemFreed(item);
}

void TGantChanges::Forget(const TzuDataEntity_Spanbar *item)
{
    if (m_work != nullptr) {
        m_work->Forget(item);
    }
    if (m_insertedItem == item) {
        m_insertedItem = nullptr;
    }
}

} // namespace korvane
