#include "gantt/zuGantKeys.h"

#include "gantt/zuGantDescribe.h"
#include "gantt/zuGantSelectionImpl.h"
#include "scaler/zuScalerGestures.h"

#include <algorithm>
#include <array>

namespace korvane {

namespace {

using enum TGantKeyFunction;

struct TBinding
{
    TGantKey Key;
    TShiftState Held; ///< Shift says nothing here
    TGantKeyFunction Function;
    TGantKeyFunction WithShift;
};

constexpr TShiftState kNone{};
constexpr TShiftState kCtrl{false, true, false};
constexpr TShiftState kAlt{false, false, true};

constexpr TBinding Bind(TGantKey key, TShiftState held, TGantKeyFunction function)
{
    return {key, held, function, function};
}

constexpr std::array kBindings{
    Bind(TGantKey::Left, kNone, kfLeft),
    Bind(TGantKey::Right, kNone, kfRight),
    Bind(TGantKey::Up, kNone, kfUp),
    Bind(TGantKey::Down, kNone, kfDown),
    Bind(TGantKey::Home, kNone, kfRowStart),
    Bind(TGantKey::End, kNone, kfRowEnd),
    Bind(TGantKey::Home, kCtrl, kfFirstRow),
    Bind(TGantKey::End, kCtrl, kfLastRow),
    Bind(TGantKey::PageUp, kNone, kfPageUp),
    Bind(TGantKey::PageDown, kNone, kfPageDown),
    TBinding{TGantKey::Left, kCtrl, kfMoveEarlier, kfNone},
    TBinding{TGantKey::Right, kCtrl, kfMoveLater, kfNone},
    TBinding{TGantKey::Up, kCtrl, kfMoveUp, kfNone},
    TBinding{TGantKey::Down, kCtrl, kfMoveDown, kfNone},
    TBinding{TGantKey::Left, kAlt, kfStopEarlier, kfStartEarlier},
    TBinding{TGantKey::Right, kAlt, kfStopLater, kfStartLater},
    Bind(TGantKey::Space, kNone, kfSelect),
    Bind(TGantKey::Space, kCtrl, kfToggle),
    Bind(TGantKey::A, kCtrl, kfSelectAll),
    Bind(TGantKey::Escape, kNone, kfCancel),
    Bind(TGantKey::Enter, kNone, kfEdit),
    Bind(TGantKey::Delete, kNone, kfDelete),
    Bind(TGantKey::Plus, kNone, kfZoomIn),
    Bind(TGantKey::Plus, kCtrl, kfZoomIn),
    Bind(TGantKey::Minus, kNone, kfZoomOut),
    Bind(TGantKey::Minus, kCtrl, kfZoomOut),
};

TGantStep StepOf(TGantKeyFunction function)
{
    switch (function) {
    case kfLeft:
    case kfUp:
    case kfRowStart:
    case kfFirstRow:
    case kfPageUp:
    case kfMoveEarlier:
    case kfMoveUp:
    case kfStartEarlier:
    case kfStopEarlier:
        return TGantStep::Back;
    default:
        return TGantStep::Forward;
    }
}

} // namespace

TGantKeyFunction TGantKeys::KeyFunctionOf(TGantKey key, const TShiftState &shift)
{
    const auto *found = std::ranges::find_if(kBindings, [&](const TBinding &binding) {
        return binding.Key == key && binding.Held.Ctrl == shift.Ctrl
               && binding.Held.Alt == shift.Alt;
    });
    if (found == kBindings.end()) {
        return kfNone;
    }
    return shift.Shift ? found->WithShift : found->Function;
}

bool TGantKeys::GantAreaKeyDown(TGantKey key, const TShiftState &shift)
{
    return PerformGantAreaKeyfunction(KeyFunctionOf(key, shift), shift.Shift);
}

bool TGantKeys::PerformGantAreaKeyfunction(TGantKeyFunction function, bool extend)
{
    switch (function) {
    case kfNone:
        return false;
    case kfMoveEarlier:
    case kfMoveLater:
        return MoveInTime(StepOf(function));
    case kfMoveUp:
    case kfMoveDown:
        return MoveToRow(StepOf(function));
    case kfStartEarlier:
    case kfStartLater:
        return Resize(TGantEnd::Start, StepOf(function));
    case kfStopEarlier:
    case kfStopLater:
        return Resize(TGantEnd::Stop, StepOf(function));
    case kfSelect:
        return Select(TSelectHow::Replace);
    case kfToggle:
        return Select(TSelectHow::Toggle);
    case kfSelectAll:
        SelectAll();
        return true;
    case kfCancel:
        return Cancel();
    case kfEdit:
        return Edit();
    case kfDelete:
        return DeleteSelected();
    case kfZoomIn:
    case kfZoomOut:
        return Zoom(function);
    default:
        return Walk(function, extend);
    }
}

// --- walking -------------------------------------------------------------------------------------

void TGantKeys::EnsureActiveDataEntity()
{
    if (ActiveDataEntity() == nullptr) {
        SetActiveDataEntity(FirstTarget());
    }
}

bool TGantKeys::Walk(TGantKeyFunction function, bool extend)
{
    TzuDataEntity_Spanbar *active = ActiveDataEntity();
    TzuDataEntity_Spanbar *target =
        active != nullptr ? WalkTarget(*active, function) : FirstTarget();
    if (target == nullptr) {
        // At an end the key is used nevertheless: it must not scroll or leave the area.
        return active != nullptr;
    }
    const bool acrossLines =
        active != nullptr
        && (function == kfUp || function == kfDown || function == kfPageUp || function == kfPageDown
            || function == kfFirstRow || function == kfLastRow);
    m_walkDate = acrossLines ? WalkDate(*active) : target->GetStartDateTime();
    m_walkItem = target;
    StepTo(*target, extend);
    return true;
}

void TGantKeys::StepTo(TzuDataEntity_Spanbar &item, bool extend)
{
    Keep(&item);
    const TzuLifeWatch lives(item);
    if (extend) {
        TzuDataEntity_Spanbar *anchor = Anchor();
        SetAnchor(anchor);
        SetActiveDataEntity(&item);
        SelectRange(anchor != nullptr ? *anchor : item, item, TSelectHow::Replace);
    } else {
        SetAnchor(&item);
        SetActiveDataEntity(&item);
        SelectOnly(item);
    }
    if (lives && ActiveDataEntity() == &item) {
        MakeSureActiveInView();
    }
}

/// The time that a walk across lines keeps to: the one at which it began.
TDateTime TGantKeys::WalkDate(const TzuDataEntity_Spanbar &from) const
{
    return &from == m_walkItem ? m_walkDate : from.GetStartDateTime();
}

TzuDataEntity_Spanbar *TGantKeys::WalkTarget(TzuDataEntity_Spanbar &from, TGantKeyFunction function)
{
    const TGantStep step = StepOf(function);
    switch (function) {
    case kfLeft:
    case kfRight:
        return FindNeighbourToRightLeft(from, step);
    case kfUp:
    case kfDown:
        return FindNeighbourToUpDown(from, step, WalkDate(from));
    case kfRowStart:
    case kfRowEnd:
        return FindAtEndOfRow(from, step);
    case kfPageUp:
    case kfPageDown:
        return PageTarget(from, step);
    default:
        return EdgeRowTarget(from, step);
    }
}

/// The last item met within one screen of rows, or the first one beyond.
TzuDataEntity_Spanbar *TGantKeys::PageTarget(TzuDataEntity_Spanbar &from, TGantStep step)
{
    const int page = std::max(static_cast<int>(GantRows().RowsOnScreen().size()) - 1, 1);
    TGantRow *row = from.GetRow();
    TzuDataEntity_Spanbar *found = nullptr;
    for (int passed = 0; row != nullptr && (passed < page || found == nullptr); ++passed) {
        row = step == TGantStep::Forward ? NextShownRow(*row) : PrevShownRow(*row);
        TzuDataEntity_Spanbar *item =
            row != nullptr ? FindNeighbourClosest(*row, WalkDate(from)) : nullptr;
        found = item != nullptr ? item : found;
    }
    return found;
}

TzuDataEntity_Spanbar *TGantKeys::EdgeRowTarget(TzuDataEntity_Spanbar &from, TGantStep step)
{
    TGantRow *row = EdgeRow(step);
    while (row != nullptr) {
        if (TzuDataEntity_Spanbar *item = FindNeighbourClosest(*row, WalkDate(from))) {
            return item;
        }
        row = step == TGantStep::Back ? NextShownRow(*row) : PrevShownRow(*row);
    }
    return nullptr;
}

TzuDataEntity_Spanbar *TGantKeys::FirstTarget()
{
    const TDateScalerCore &scaler = Host().Scaler();
    const TDateTime middle = (scaler.GetStart() + scaler.GetStop()) / 2;
    TGantRow *current = InputHost().Lines().CurrentRow();
    TzuDataEntity_Spanbar *found = current != nullptr && current->GetVisible()
                                       ? FindNeighbourClosest(*current, middle)
                                       : nullptr;
    const auto &onScreen = GantRows().RowsOnScreen();
    TGantRow *row = onScreen.empty() ? EdgeRow(TGantStep::Back) : onScreen.front();
    while (row != nullptr && found == nullptr) {
        found = FindNeighbourClosest(*row, middle);
        row = NextShownRow(*row);
    }
    return found;
}

// --- changing ------------------------------------------------------------------------------------

/// A step of the grid of one end, or of three pixels where that end does not snap.
TDateTime TGantKeys::TimeStep(TDateTime gridStep, TGantStep step)
{
    constexpr int kPixels = 3;
    UpdateScreenSnap();
    const TDateTime width = gridStep > 0 ? SnapHandler().CalcScreenSnap(gridStep)
                                         : Host().Scaler().PixelLenToDate(kPixels);
    return width * static_cast<int>(step);
}

/// What a step gives. An application that rounds times on its own may have a coarser grid: then the
/// step is doubled until it leads somewhere.
template <typename Change>
TGantGestures::TDrop TGantKeys::Moving(const TzuDataEntity_Spanbar &item, TDateTime shift,
                                       const Change &change)
{
    constexpr int kMostDoublings = 14;
    TDrop drop = change(shift);
    for (int i = 0; OnSnapTimes && i < kMostDoublings; ++i) {
        if (drop.Start != item.GetStartDateTime() || drop.Stop != item.GetStopDateTime()) {
            break;
        }
        shift *= 2;
        drop = change(shift);
    }
    return drop;
}

bool TGantKeys::MoveInTime(TGantStep step)
{
    if (SelectedCount() == 0) {
        return false;
    }
    const TDateTime shift = TimeStep(SnapHandler().StartSnapStep, step);
    ChangeSelected(TGantUserChange::ucMove, [&](TzuDataEntity_Spanbar &item) {
        return item.GetRow()->TimeItems_CanMove()
               && MoveItem(item, Moving(item, shift, [&](TDateTime by) {
                               return Shifted(item, by, TGantMouseMoveMode::mmMove);
                           }));
    });
    AfterChange();
    return true;
}

bool TGantKeys::MoveToRow(TGantStep step)
{
    if (SelectedCount() == 0) {
        return false;
    }
    ChangeSelected(TGantUserChange::ucMove, [&](TzuDataEntity_Spanbar &item) {
        TGantRow &row = *item.GetRow();
        TGantRow *target = step == TGantStep::Forward ? NextShownRow(row) : PrevShownRow(row);
        return target != nullptr && row.TimeItems_CanChangeRow()
               && MoveItem(item, {item.GetStartDateTime(), item.GetStopDateTime(), target});
    });
    AfterChange();
    return true;
}

bool TGantKeys::Resize(TGantEnd end, TGantStep step)
{
    if (SelectedCount() == 0) {
        return false;
    }
    const TSnapHandler &snap = SnapHandler();
    const TDateTime shift =
        TimeStep(end == TGantEnd::Start ? snap.StartSnapStep : snap.StopSnapStep, step);
    ChangeSelected(TGantUserChange::ucResize, [&](TzuDataEntity_Spanbar &item) {
        return item.IsResizable() && item.GetRow()->TimeItems_CanResize()
               && ApplyTimes(
                   item, Moving(item, shift, [&](TDateTime by) { return Grown(item, end, by); }));
    });
    AfterChange();
    return true;
}

/// An item that the application has made anew on another row takes over from the active one.
void TGantKeys::AfterChange()
{
    if (ActiveDataEntity() == nullptr && SelectedCount() > 0) {
        SetActiveDataEntity(SelectedItems().front());
    }
    MakeSureActiveInView();
}

// --- zooming and drawing -------------------------------------------------------------------------

bool TGantKeys::Zoom(TGantKeyFunction function)
{
    TDateScalerGestures &scaler = Host().Scaler();
    TDateTime centre = (scaler.GetStart() + scaler.GetStop()) / 2;
    if (const TzuDataEntity_Spanbar *active = ActiveDataEntity()) {
        const TDateTime middle = (active->GetStartDateTime() + active->GetStopDateTime()) / 2;
        const bool inView = middle >= scaler.GetStart() && middle <= scaler.GetStop();
        centre = inView ? middle : centre;
    }
    scaler.ZoomAround(function == kfZoomIn ? 1 : -1, scaler.DateToPixel(centre));
    return true;
}

void TGantKeys::GantAreaPaint()
{
    TGantGestures::GantAreaPaint();
    if (InputHost().AreaHasFocus() && ActiveDataEntity() == nullptr) {
        const TSize size = Host().AreaSize();
        Host().AreaCanvas().DrawFocusRect({0, 0, size.Width, size.Height});
    }
}

// --- pointing ------------------------------------------------------------------------------------

void TGantKeys::PointAt(int x, int y)
{
    SetHoverLink(GetDataEntityFromXY(x, y) == nullptr ? GetLinkFromXY(x, y) : nullptr);
}

TAreaHint TGantKeys::HintAt(int x, int y)
{
    TAreaHint hint;
    if (TzuDataEntity_Spanbar *item = GetDataEntityFromXY(x, y)) {
        hint.Rect = item->GetRow()->RectFromDataEntity(*item).value_or(TRect{});
        hint.Text = CaptionOf(*item) + '\n' + TimesOf(*item);
        OnItemHint(Component(), item, hint.Text);
    } else if (TzuDataEntity_Link *link = GetLinkFromXY(x, y)) {
        constexpr int kNear = 4;
        hint.Rect = {x - kNear, y - kNear, x + kNear, y + kNear};
        hint.Text = CaptionOf(*link);
        OnLinkHint(Component(), link, hint.Text);
    }
    return hint;
}

void TGantKeys::_OnItemFreed(const TzuDataEntity_Spanbar *item)
{
    if (m_walkItem == item) {
        m_walkItem = nullptr;
    }
    TGantGestures::_OnItemFreed(item);
}

} // namespace korvane
