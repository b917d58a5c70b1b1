// What the drop of a gesture changes.
#include "gantt/zuGantGestures.h"
#include "scaler/zuScalerGestures.h"

#include <cstdint>
#include <limits>

namespace korvane {

void TGantGestures::_OnDeleteItem(TzuDataEntity *item)
{
    Forget(&TimeDataEntity(*item));
    TGantChanges::_OnDeleteItem(item);
}

void TGantGestures::_OnItemFreed(const TzuDataEntity_Spanbar *item)
{
    Forget(item);
    TGantChanges::_OnItemFreed(item);
}

void TGantGestures::_OnDeleteItem_Link(TzuDataEntity *link)
{
    if (m_linkUnderMouse == link) {
        m_linkUnderMouse = nullptr;
    }
    TGantChanges::_OnDeleteItem_Link(link);
}

void TGantGestures::_OnLinkFreed(const TzuDataEntity_Link *link)
{
    if (m_linkUnderMouse == link) {
        m_linkUnderMouse = nullptr;
    }
    TGantChanges::_OnLinkFreed(link);
}

void TGantGestures::Forget(const TzuDataEntity_Spanbar *item)
{
    if (m_itemUnderMouse == item || m_gestureItem == item) {
        m_itemUnderMouse = nullptr;
        m_gestureItem = nullptr;
        CancelGesture();
    }
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

/// The row at the top of the item's rectangle moved down by so many pixels; its own where there is
/// none.
TGantRow *TGantGestures::TargetRow(const TzuDataEntity_Spanbar &item, TGantRow &row, int dy) const
{
    const auto y =
        dy != 0 && row.TimeItems_CanChangeRow() ? InputHost().Lines().SpanOf(row) : std::nullopt;
    if (!y) {
        return &row;
    }
    const TRect rect = row.RectFromDataEntity(item, *y);
    TGantRow *target = InputHost().Lines().RowAtHeight(rect.Top + dy);
    return target != nullptr ? target : &row;
}

TGantGestures::TDrop TGantGestures::DropOf(const TzuDataEntity_Spanbar &item, TPoint delta,
                                           bool copy)
{
    TGantRow &row = *item.GetRow();
    TGantRow *target = TargetRow(item, row, delta.Y);
    const bool keepTimes = target != &row && !copy && !MoveInTimeWhenMoveRow();
    if (delta.X == 0 || keepTimes || !row.TimeItems_CanMove()) {
        return {item.GetStartDateTime(), item.GetStopDateTime(), target};
    }
    TDrop drop = Shifted(item, TimeShift(row.XStartStopFromDataEntity(item).From, delta.X),
                         copy ? TGantMouseMoveMode::mmCopy : TGantMouseMoveMode::mmMove);
    drop.Row = target;
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

void TGantGestures::HandleMoveOfSelected(TPoint delta, bool copy)
{
    if (delta == TPoint{}) {
        return;
    }
    UpdateScreenSnap();
    ChangeSelected(copy ? TGantUserChange::ucCopy : TGantUserChange::ucMove,
                   [&](TzuDataEntity_Spanbar &item) {
                       const TDrop drop = DropOf(item, delta, copy);
                       return copy ? CopyItem(item, drop) : MoveItem(item, drop);
                   });
}

} // namespace korvane
