// What the drop of a gesture changes.
#include "gantt/zuGantGestures.h"
#include "scaler/zuScalerGestures.h"

#include <cstdint>
#include <limits>
#include <unordered_set>

namespace korvane {

namespace {

/// The snap unit of the screen: fine enough that a drag does not jump visibly.
constexpr int kSnapPixels = 3;

} // namespace

/// Items that a loop has still to handle while handlers may delete them.
class TGantGestures::TWork
{
public:
    TWork(TGantGestures &gant, const std::vector<TzuDataEntity_Spanbar *> &items)
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
    TGantGestures &m_gant;
    TWork *m_outer;
    std::unordered_set<const TzuDataEntity_Spanbar *> m_items;
};

void TGantGestures::_OnDeleteItem(TzuDataEntity *item)
{
    Forget(&TimeDataEntity(*item));
    TGantSelection::_OnDeleteItem(item);
}

void TGantGestures::_OnItemFreed(const TzuDataEntity_Spanbar *item)
{
    Forget(item);
    TGantSelection::_OnItemFreed(item);
}

void TGantGestures::_OnDeleteItem_Link(TzuDataEntity *link)
{
    if (m_linkUnderMouse == link) {
        m_linkUnderMouse = nullptr;
    }
    TGantSelection::_OnDeleteItem_Link(link);
}

void TGantGestures::_OnLinkFreed(const TzuDataEntity_Link *link)
{
    if (m_linkUnderMouse == link) {
        m_linkUnderMouse = nullptr;
    }
    TGantSelection::_OnLinkFreed(link);
}

void TGantGestures::Forget(const TzuDataEntity_Spanbar *item)
{
    if (m_work != nullptr) {
        m_work->Forget(item);
    }
    if (m_insertedItem == item) {
        m_insertedItem = nullptr;
    }
    if (m_itemUnderMouse == item || m_gestureItem == item) {
        m_itemUnderMouse = nullptr;
        m_gestureItem = nullptr;
        CancelGesture();
    }
}

void TGantGestures::UpdateScreenSnap()
{
    m_snap.ScreenSnap = Host().Scaler().PixelLenToDate(kSnapPixels);
}

/// The time between a pixel and the one so many pixels further on. Far outside of the axis, where
/// pixels saturate, it is measured at the axis' start.
TDateTime TGantGestures::TimeShift(int pixel, int pixels) const
{
    const TDateScalerCore &scaler = Host().Scaler();
    const std::int64_t to = std::int64_t{pixel} + pixels;
    if (to >= std::numeric_limits<int>::max() || to <= std::numeric_limits<int>::min()
        || pixel == std::numeric_limits<int>::max() || pixel == std::numeric_limits<int>::min()) {
        return scaler.PixelToDate(pixels) - scaler.PixelToDate(0);
    }
    return scaler.PixelToDate(static_cast<int>(to)) - scaler.PixelToDate(pixel);
}

int TGantGestures::LineHeight(const TGantRow &row) const
{
    return row.IsOnScreen() ? row.GetRect().Height() : CurrentRowHeight();
}

/// The row at the top of the item's rectangle moved down by so many pixels; its own where there is
/// none.
TGantRow *TGantGestures::TargetRow(const TzuDataEntity_Spanbar &item, TGantRow &row, int dy) const
{
    const auto top =
        dy != 0 && row.TimeItems_CanChangeRow() ? InputHost().RowTop(row) : std::nullopt;
    if (!top) {
        return &row;
    }
    const TRect rect = row.RectAt(item, {*top, *top + LineHeight(row)}, item.GetStartDateTime(),
                                  item.GetStopDateTime());
    TGantRow *target = InputHost().RowAtHeight(rect.Top + dy);
    return target != nullptr ? target : &row;
}

TGantGestures::TDrop TGantGestures::DropOf(const TzuDataEntity_Spanbar &item, TPoint delta,
                                           bool copy)
{
    TGantRow &row = *item.GetRow();
    TGantRow *target = TargetRow(item, row, delta.Y);
    const bool keepTimes = target != &row && !copy && !m_moveInTimeWhenMoveRow;
    if (delta.X == 0 || keepTimes || !row.TimeItems_CanMove()) {
        return {item.GetStartDateTime(), item.GetStopDateTime(), target};
    }
    TDrop drop = Shifted(item, TimeShift(row.XStartStopFromDataEntity(item).From, delta.X),
                         copy ? TGantMouseMoveMode::mmCopy : TGantMouseMoveMode::mmMove);
    drop.Row = target;
    return drop;
}

TGantGestures::TDrop TGantGestures::Shifted(const TzuDataEntity_Spanbar &item, TDateTime shift,
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

TGantGestures::TDrop TGantGestures::GrownTimes(const TzuDataEntity_Spanbar &item, TPoint delta)
{
    if (delta.X == 0) {
        return {item.GetStartDateTime(), item.GetStopDateTime(), item.GetRow()};
    }
    return m_mode == TGantMouseMoveMode::mmGrowRight
               ? Grown(item, TGantEnd::Stop, TimeShift(m_growOrigRect.Right, delta.X))
               : Grown(item, TGantEnd::Start, TimeShift(m_growOrigRect.Left, delta.X));
}

TGantGestures::TDrop TGantGestures::Grown(const TzuDataEntity_Spanbar &item, TGantEnd end,
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

void TGantGestures::HandleDependencyChange(int x, int y)
{
    TzuDataEntity_Spanbar *target = GetDataEntityFromXY(x, y);
    if (target == nullptr || m_gestureItem == nullptr || !OnDependencyAction) {
        return;
    }
    AsUserChange(TGantUserChange::ucDependency, [&] {
        OnDependencyAction(m_gestureItem, target);
        return true;
    });
}

void TGantGestures::HandleGrow(TPoint delta)
{
    TzuDataEntity_Spanbar *item = m_gestureItem;
    if (item == nullptr || delta.X == 0) {
        return;
    }
    UpdateScreenSnap();
    const TDrop drop = GrownTimes(*item, delta);
    if (drop.Start == item->GetStartDateTime() && drop.Stop == item->GetStopDateTime()) {
        return;
    }
    AsUserChange(TGantUserChange::ucResize, [&] { return ApplyTimes(*item, drop); });
}

bool TGantGestures::ApplyTimes(TzuDataEntity_Spanbar &item, const TDrop &drop)
{
    if (drop.Start == item.GetStartDateTime() && drop.Stop == item.GetStopDateTime()) {
        return false;
    }
    item.SetStartDateTime(drop.Start);
    item.SetStopDateTime(drop.Stop);
    item.DoInfoPush();
    return true;
}

void TGantGestures::HandleMoveOfSelected(TPoint delta, bool copy)
{
    if (delta == TPoint{}) {
        return;
    }
    UpdateScreenSnap();
    ChangeSelected(
        copy ? TGantUserChange::ucCopy : TGantUserChange::ucMove, [&](TzuDataEntity_Spanbar &item) {
            return copy ? CopyItem(item, delta) : MoveItem(item, DropOf(item, delta, false));
        });
}

void TGantGestures::ChangeSelected(TGantUserChange kind, const TItemChange &change)
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

bool TGantGestures::CopyItem(TzuDataEntity_Spanbar &item, TPoint delta)
{
    const TDrop drop = DropOf(item, delta, true);
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

bool TGantGestures::MoveItem(TzuDataEntity_Spanbar &item, const TDrop &drop)
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

bool TGantGestures::MoveItemToRow(TzuDataEntity_Spanbar &item, TGantRow &row, const TDrop &drop)
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

} // namespace korvane
