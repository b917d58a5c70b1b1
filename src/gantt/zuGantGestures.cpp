#include "gantt/zuGantGestures.h"

#include "scaler/zuScalerGestures.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

constexpr int kGripWidth = 3;

} // namespace

TGantGestures::TGantGestures(IGantHost &host, IGantInputHost &inputHost,
                             TzuGant_ComBasic *component)
    : TGantChanges(host, inputHost, component)
    , m_life(std::make_shared<bool>(true))
{
}

TGantGestures::~TGantGestures() = default;

bool TGantGestures::IsMove() const
{
    return m_mode == TGantMouseMoveMode::mmMove || m_mode == TGantMouseMoveMode::mmCopy;
}

bool TGantGestures::IsGrow() const
{
    return m_mode == TGantMouseMoveMode::mmGrowLeft || m_mode == TGantMouseMoveMode::mmGrowRight;
}

bool TGantGestures::InGrowArea(const TzuDataEntity_Spanbar &item, int x, int y, TRect &rect,
                               bool &isLeft) const
{
    const TGantRow *row = item.GetRow();
    const auto found = row != nullptr ? row->RectFromDataEntity(item) : std::nullopt;
    if (!found) {
        return false;
    }
    rect = *found;
    isLeft = rect.Contains({x, y}) && x < rect.Left + kGripWidth;
    return isLeft || (rect.Contains({x, y}) && x >= rect.Right - kGripWidth);
}

void TGantGestures::GantAreaMouseDown(TMouseButton button, const TShiftState &shift, int x, int y)
{
    const std::weak_ptr life = m_life;
    if (GestureRunning()) {
        CancelGesture();
    }
    m_mouseDown = true;
    m_mouse = {x, y};
    InputHost().FocusArea();
    InputHost().RefreshAroundArea();
    m_downTime = Host().Scaler().PixelToDate(x);
    m_itemUnderMouse = GetDataEntityFromXY(x, y);
    Keep(m_itemUnderMouse);
    const bool onItem = m_itemUnderMouse != nullptr;
    m_linkUnderMouse = onItem ? nullptr : GetLinkFromXY(x, y);
    const bool onLink = m_linkUnderMouse != nullptr;
    if (onLink) {
        UpdateMultiSelect(*m_linkUnderMouse, shift, TSelectStep::Press);
    } else {
        UpdateMultiSelect(m_itemUnderMouse, shift, TSelectStep::Press);
    }

    DoClickGantArea(button);
    if (life.expired()) {
        return;
    }
    // A handler may have taken the mouse away, or the item.
    const bool asBefore = m_mouseDown && onItem == (m_itemUnderMouse != nullptr);
    if (button == TMouseButton::mbLeft && asBefore && !onLink) {
        BeginGesture(shift, {x, y});
    }
    m_stickyMode = TGantStickyMode::smNone;
    OnGantAreaMouseDown(Component(), button, shift, x, y);
}

void TGantGestures::DoClickGantArea(TMouseButton button)
{
    const std::weak_ptr life = m_life;
    OnClickGantArea(Component(), m_itemUnderMouse);
    if (!life.expired() && button == TMouseButton::mbRight) {
        OnRightClickGantArea(Component(), m_itemUnderMouse);
    }
}

void TGantGestures::BeginGesture(const TShiftState &shift, TPoint at)
{
    EndGesture();
    m_downPoint = at;
    m_downShift = shift;
    m_anchorTime = m_downTime;
    TakeDownScrolling();
    TzuDataEntity_Spanbar *item = m_itemUnderMouse;
    if (item == nullptr) {
        m_rubber = true;
        return;
    }
    if (!item->GetCanEdit() || m_itemUnderMouse != item) {
        return;
    }
    bool isLeft = false;
    if (m_stickyMode == TGantStickyMode::smDependency) {
        m_mode = TGantMouseMoveMode::mmDependency;
        m_gestureItem = item;
    } else if (item->IsResizable() && InGrowArea(*item, at.X, at.Y, m_growOrigRect, isLeft)) {
        m_mode = isLeft ? TGantMouseMoveMode::mmGrowLeft : TGantMouseMoveMode::mmGrowRight;
        m_gestureItem = item;
    } else {
        m_mode = shift.Ctrl ? TGantMouseMoveMode::mmCopy : TGantMouseMoveMode::mmMove;
    }
}

void TGantGestures::GantAreaMouseMove(const TShiftState &shift, int x, int y)
{
    m_mouse = {x, y};
    if (GestureRunning()) {
        Drag();
    } else {
        Hover(m_mouse);
    }
    OnGantAreaMouseMove(Component(), shift, x, y);
}

void TGantGestures::GantAreaMouseUp(TMouseButton button, const TShiftState &shift, int x, int y)
{
    const std::weak_ptr life = m_life;
    m_mouse = {x, y};
    ReleaseGesture(button, shift, m_mouse);
    TellHintInfo();
    if (!life.expired()) {
        Hover(m_mouse);
        OnGantAreaMouseUp(Component(), button, shift, x, y);
    }
}

void TGantGestures::ReleaseGesture(TMouseButton button, const TShiftState &shift, TPoint at)
{
    struct TEnd
    {
        TGantGestures &Gant;
        ~TEnd() { Gant.EndGesture(); }
    } const end{*this};

    const bool wasDown = m_mouseDown;
    bool dragged = false;
    TPoint delta;
    if (GestureRunning()) {
        FollowScrolling();
        dragged = m_dragging || PastThreshold(at);
        delta = dragged ? Permitted(OffsetTo(at)) : TPoint{};
        if (dragged && m_rubber) {
            UpdateBand();
            EndSelectInRect();
        }
    }
    m_mouseDown = false;
    m_lastDelta = dragged ? TPoint{at.X - m_downPoint.X, at.Y - m_downPoint.Y} : TPoint{};
    StopAutoScroll();
    ShowFeedback({});
    InputHost().HideGestureHint();
    if (dragged && m_mode == TGantMouseMoveMode::mmDependency) {
        HandleDependencyChange(at.X, at.Y);
    } else if (dragged && IsMove()) {
        HandleMoveOfSelected(delta, m_mode == TGantMouseMoveMode::mmCopy);
    } else if (dragged && IsGrow()) {
        HandleGrow(delta);
    }
    if (wasDown) {
        Host().InvalidateArea();
        const bool isClick = !dragged && button == TMouseButton::mbLeft;
        const TSelectStep step = isClick ? TSelectStep::Release : TSelectStep::Drop;
        if (TzuDataEntity_Link *link = std::exchange(m_linkUnderMouse, nullptr)) {
            UpdateMultiSelect(*link, shift, step);
        } else {
            UpdateMultiSelect(m_itemUnderMouse, shift, step);
        }
    }
}

void TGantGestures::TellHintInfo() const
{
    if (TzuDataEntity_Spanbar *item = m_itemUnderMouse) {
        const TDateTime start = item->GetStartDateTime();
        const TDateTime stop = item->GetStopDateTime();
        OnHintInfo(item, start, stop, stop - start);
    } else {
        OnHintInfo(nullptr, 0, 0, 0);
    }
}

/// Forgets everything about a gesture but the button.
void TGantGestures::EndGesture()
{
    StopAutoScroll();
    ShowFeedback({});
    if (std::exchange(m_dragging, false)) {
        InputHost().HideGestureHint();
    }
    m_mode = kNoMode;
    m_gestureItem = nullptr;
    m_rubber = false;
    m_bandBegun = false;
    m_movedInTime = false;
    m_movedInRows = false;
    m_delta = {};
}

void TGantGestures::CancelGesture()
{
    if (!m_mouseDown) {
        return;
    }
    const bool band = m_bandBegun;
    m_mouseDown = false;
    EndGesture();
    if (band) {
        CancelSelectInRect();
    }
    InputHost().SetAreaCursor(TGantCursor::Area);
}

void TGantGestures::OnGADblClick()
{
    DoDblClickGantArea(GetDataEntityFromXY(m_mouse.X, m_mouse.Y));
}

void TGantGestures::GantAreaMouseLeave()
{
    if (!GestureRunning()) {
        InputHost().SetAreaCursor(TGantCursor::Area);
    }
}

} // namespace korvane
