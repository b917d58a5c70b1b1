#include "schema/zuSchemaKeys.h"

#include "foundation/zuLifeWatch.h"
#include "scaler/zuScalerGestures.h"

#include <algorithm>
#include <limits>

namespace korvane {

namespace {

constexpr double kForever = std::numeric_limits<double>::infinity();

} // namespace

bool TSchemaKeys::SchemaKeyDown(TSchemaKey key, const TShiftState &shift)
{
    switch (key) {
    case TSchemaKey::Left:
    case TSchemaKey::Right:
    case TSchemaKey::Up:
    case TSchemaKey::Down:
        return Arrow(key, shift);
    case TSchemaKey::Home:
        return GoToEnd(TSchemaStep::Back, shift.Shift);
    case TSchemaKey::End:
        return GoToEnd(TSchemaStep::Forward, shift.Shift);
    case TSchemaKey::PageUp:
        return TurnPage(TSchemaStep::Back, shift.Ctrl);
    case TSchemaKey::PageDown:
        return TurnPage(TSchemaStep::Forward, shift.Ctrl);
    case TSchemaKey::Space:
        return Mark(shift.Ctrl);
    case TSchemaKey::Enter:
        return Edit();
    case TSchemaKey::Escape:
        return Cancel();
    case TSchemaKey::Delete:
        return DeleteSelected();
    case TSchemaKey::Plus:
        return Zoom(1);
    case TSchemaKey::Minus:
        return Zoom(-1);
    case TSchemaKey::A:
        if (shift.Ctrl) {
            SelectAll();
        }
        return shift.Ctrl;
    case TSchemaKey::Menu:
        return Menu();
    }
    return false;
}

void TSchemaKeys::EnsureActiveDataEntity()
{
    if (GetActiveDataEntity() == nullptr) {
        const TSize area = Host().AreaSize();
        const TTimes shown = TimesIn({0, 0, area.Width, area.Height});
        SetActiveDataEntity(shown.empty() ? nullptr : shown.front());
    }
}

bool TSchemaKeys::Arrow(TSchemaKey key, const TShiftState &shift)
{
    const bool back = key == TSchemaKey::Left || key == TSchemaKey::Up;
    const bool sideways = key == TSchemaKey::Left || key == TSchemaKey::Right;
    const TSchemaStep step = back ? TSchemaStep::Back : TSchemaStep::Forward;
    const bool alongTime = sideways == FlipView();
    if (shift.Ctrl) {
        return MoveByKey(alongTime, step, shift.Shift);
    }
    if (shift.Alt) {
        return alongTime ? ResizeByKey(step, shift.Shift) : ResizeColumnByKey(step, shift.Shift);
    }
    const auto *time = SelectNeighbour(step, shift.Shift ? TSelectHow::Add : TSelectHow::Replace);
    if (time != nullptr && GetActiveDataEntity() == time) {
        MakeSureInView(*time);
    }
    return time != nullptr;
}

bool TSchemaKeys::MoveByKey(bool alongTime, TSchemaStep step, bool coarse)
{
    if (SelectedCount() == 0) {
        return false;
    }
    const int direction = static_cast<int>(step);
    if (alongTime) {
        TDateTime length = kMinute;
        if (coarse) {
            length = kMinute < StartSnap() ? StartSnap() : 10 * kMinute;
        }
        if (StartSnapONOFF()) {
            length = std::max(length, StartSnap());
        }
        HandleMoveOfSelectedFromTimeDiff(direction * length, 0);
    } else {
        HandleMoveOfSelectedFromTimeDiff(0, direction);
    }
    if (GetActiveDataEntity() != nullptr) {
        MakeSureInView(*GetActiveDataEntity());
    }
    return true;
}

bool TSchemaKeys::ResizeByKey(TSchemaStep step, bool start)
{
    if (SelectedCount() == 0) {
        return false;
    }
    const bool snaps = start ? StartSnapONOFF() : LengthSnapONOFF();
    const TDateTime grid = start ? StartSnap() : LengthSnap();
    const TDateTime length = snaps ? std::max(grid, kMinute) : kMinute;
    const TDateTime diff = static_cast<int>(step) * length;
    ChangeSelected(TSchemaUserChange::ucResize, [&](TzuDataEntity_SchemaTime &time) {
        return GrowBy(time, start ? TSchemaEnd::Start : TSchemaEnd::Stop, diff);
    });
    UpdateSubColumns();
    return true;
}

bool TSchemaKeys::ResizeColumnByKey(TSchemaStep step, bool fine)
{
    constexpr int kCoarse = 8;
    const TzuDataEntity_SchemaTime *active = GetActiveDataEntity();
    const int col =
        active != nullptr && IsInColumn(*active) ? active->Col() : Columns().TopLeftCol();
    if (!Columns().IsCol(col)) {
        return false;
    }
    const int size =
        Columns().GetCol(col).Saved_FW(FlipView()) + static_cast<int>(step) * (fine ? 1 : kCoarse);
    if (FlipView()) {
        Columns().FlippedHeaderResize(col, size);
    } else {
        Columns().HeaderControlSectionResize(col, size);
    }
    return true;
}

bool TSchemaKeys::GoToEnd(TSchemaStep step, bool extend)
{
    EnsureActiveDataEntity();
    TzuDataEntity_SchemaTime *active = GetActiveDataEntity();
    if (active == nullptr) {
        return false;
    }
    const TTimes times = TimesOfColumns(active->Col(), active->Col(), -kForever, kForever);
    if (times.empty()) {
        return false;
    }
    const auto start = &TzuDataEntity_SchemaTime::GetStartDateTime;
    TzuDataEntity_SchemaTime *time = step == TSchemaStep::Back
                                         ? *std::ranges::min_element(times, {}, start)
                                         : *std::ranges::max_element(times, {}, start);
    const TzuLifeWatch lives(*time);
    SetActiveDataEntity(time);
    if (extend) {
        SelectRange(*active, *time, TSelectHow::Add);
    } else {
        SelectOnly(*time);
    }
    if (lives && GetActiveDataEntity() == time) {
        MakeSureInView(*time);
    }
    return true;
}

bool TSchemaKeys::TurnPage(TSchemaStep step, bool columns)
{
    const bool forward = step == TSchemaStep::Forward;
    if (!columns) {
        Host().Scaler().Execute(forward ? TScalerCommand::PageLater : TScalerCommand::PageEarlier);
        return true;
    }
    const int onScreen = Columns().ColumnAt(FlipView(), ColumnRoom() - 1) - Columns().TopLeftCol();
    ScrollColumns(static_cast<int>(step) * std::max(onScreen, 1));
    return true;
}

bool TSchemaKeys::Mark(bool toggle)
{
    EnsureActiveDataEntity();
    TzuDataEntity_SchemaTime *active = GetActiveDataEntity();
    if (active == nullptr) {
        return false;
    }
    if (toggle) {
        active->SetSelected(!active->GetSelected());
    } else {
        SelectOnly(*active);
    }
    return true;
}

bool TSchemaKeys::Cancel()
{
    if (GestureRunning()) {
        CancelGesture();
        return true;
    }
    const bool any = SelectedCount() > 0;
    ClearSelection();
    return any;
}

bool TSchemaKeys::Edit()
{
    TzuDataEntity_SchemaTime *active = GetActiveDataEntity();
    if (active == nullptr) {
        return false;
    }
    const TzuLifeWatch lives(*active);
    if (!active->GetCanEdit() || !lives) {
        return false;
    }
    const bool edits = static_cast<bool>(OnEditDataEntity_SchemaTime);
    const auto &event = edits ? OnEditDataEntity_SchemaTime : OnSchemaDblClick;
    const bool taken = static_cast<bool>(event);
    event(Component(), active);
    return taken;
}

bool TSchemaKeys::DeleteSelected()
{
    TTimes times = SelectedTimes();
    bool done = false;
    ChangeSelection([&] {
        std::erase_if(times, [this](auto *time) {
            return WasRemoved(time) || !time->GetCanEdit() || WasRemoved(time);
        });
        bool allow = false;
        if (!times.empty()) {
            OnAskDelete(Component(), times, allow);
        }
        done = allow;
        if (!allow) {
            return;
        }
        AsUserChange(TSchemaUserChange::ucDelete, [&] {
            bool changed = false;
            for (TzuDataEntity_SchemaTime *time : times) {
                if (!WasRemoved(time)) {
                    RemoveSchemaTime(time);
                    changed = true;
                }
            }
            return changed;
        });
    });
    return done;
}

bool TSchemaKeys::Zoom(int notches)
{
    TDateScalerGestures &scaler = Host().Scaler();
    int pixel = scaler.GetScaleLen() / 2;
    const TzuDataEntity_SchemaTime *active = GetActiveDataEntity();
    if (active != nullptr && IsInColumn(*active)) {
        const TPixelSpan along = ScalerPixelsFromStartStopFromDataEntity(FlipView(), *active);
        const int middle = along.From + along.Length() / 2;
        pixel = middle >= 0 && middle < scaler.GetScaleLen() ? middle : pixel;
    }
    scaler.ZoomAround(notches, pixel);
    return true;
}

bool TSchemaKeys::Menu()
{
    const TTimes selected = SelectedTimes();
    const auto rect = selected.empty() ? std::nullopt : RectFromDataEntity(*selected.front());
    return rect && HandleDataEntityPopup(*selected.front(), *rect);
}

bool TSchemaKeys::HandleDataEntityPopup(TzuDataEntity_SchemaTime & /*time*/, const TRect &rect)
{
    const TSize area = Host().AreaSize();
    const TRect shown = rect.Intersected({0, 0, area.Width, area.Height});
    return InputHost().PopUpMenu(true,
                                 {(shown.Left + shown.Right) / 2, (shown.Top + shown.Bottom) / 2});
}

} // namespace korvane
