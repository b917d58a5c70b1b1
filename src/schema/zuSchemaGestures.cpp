#include "schema/zuSchemaGestures.h"

#include "foundation/zuLifeWatch.h"
#include "scaler/zuScalerGestures.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace korvane {

namespace {

constexpr int kBandWidth = 3;

} // namespace

TSchemaGestures::TSchemaGestures(ISchemaHost &host, ISchemaInputHost &inputHost,
                                 TzuSchema_ComBasic *component)
    : TSchemaSelection(host, inputHost, component)
    , m_life(std::make_shared<bool>(true))
{
}

TSchemaGestures::~TSchemaGestures() = default;

void TSchemaGestures::SetShowBigONOFF(bool on)
{
    if (std::exchange(m_showBig, on) != on && !on) {
        InputHost().PointAtTime(nullptr, m_mouse);
    }
}

TzuDataEntity_SchemaColumn *TSchemaGestures::MouseColumn()
{
    return Columns().IsCol(m_mouseCol) ? &Columns().GetCol(m_mouseCol) : nullptr;
}

bool TSchemaGestures::InGrowArea(TzuDataEntity_SchemaTime &time, int x, int y, TRect &rect,
                                 bool &atStart) const
{
    const auto found = RectFromDataEntity(time);
    if (!found) {
        return false;
    }
    rect = *found;
    if (!rect.Contains({x, y})) {
        return false;
    }
    const TPixelSpan along = AlongTime(rect);
    const int at = AlongTime(TPoint{x, y});
    atStart = at < along.From + kBandWidth;
    return atStart || at >= along.To - kBandWidth;
}

// --- press, move and release ---------------------------------------------------------------------

void TSchemaGestures::SchemaMouseDown(TMouseButton button, const TShiftState &shift, int x, int y)
{
    const std::weak_ptr life = m_life;
    CancelGesture();
    const TPoint at{x, y};
    m_mouse = at;
    InputHost().PointAtTime(nullptr, at);
    InputHost().FocusArea();
    NotePress(at);
    const bool onTime = m_pressedTime != nullptr;
    UpdateMultiSelect(m_pressedTime, shift, TSelectStep::Press);
    if (life.expired()) {
        return;
    }
    // A handler may have removed the time.
    const bool asBefore = onTime == (m_pressedTime != nullptr);
    if (button == TMouseButton::mbRight) {
        InputHost().PopUpMenu(m_pressedTime != nullptr, at);
    } else if (button == TMouseButton::mbLeft && asBefore) {
        BeginGesture(shift, at);
    }
    if (!life.expired()) {
        OnSchemaMouseDown(Component(), button, shift, x, y);
    }
}

void TSchemaGestures::NotePress(TPoint at)
{
    m_mouseDate = PixelToDate(AlongTime(at));
    m_mouseCol = PixelToColumn(AlongColumns(at));
    m_pressedTime = GetDataEntityFromXY(at.X, at.Y);
}

void TSchemaGestures::BeginGesture(const TShiftState &shift, TPoint at)
{
    m_press = at;
    m_pressShift = shift;
    m_offset = {};
    m_anchorDate = m_mouseDate;
    TakeDownScrolling();
    if (m_pressedTime == nullptr) {
        m_mode = TMode::Band;
        return;
    }
    const TzuLifeWatch lives(*m_pressedTime);
    if (!m_pressedTime->GetCanEdit() || !lives || m_pressedTime == nullptr) {
        return;
    }
    TRect rect;
    bool atStart = false;
    if (InGrowArea(*m_pressedTime, at.X, at.Y, rect, atStart)) {
        m_mode = atStart ? TMode::GrowStart : TMode::GrowStop;
    } else {
        m_mode = shift.Ctrl && OnTimeCopy ? TMode::Copy : TMode::Move;
    }
}

void TSchemaGestures::SchemaMouseMove(const TShiftState &shift, int x, int y)
{
    const std::weak_ptr life = m_life;
    m_mouse = {x, y};
    if (GestureRunning()) {
        Drag();
    } else {
        Hover(m_mouse);
    }
    if (!life.expired()) {
        OnSchemaMouseMove(Component(), shift, x, y);
    }
}

void TSchemaGestures::SchemaMouseUp(TMouseButton button, const TShiftState &shift, int x, int y)
{
    const std::weak_ptr life = m_life;
    m_mouse = {x, y};
    ReleaseGesture(button, shift, m_mouse);
    if (life.expired()) {
        return;
    }
    DoMoveInfo(nullptr, 0, 0, x, y);
    if (!life.expired()) {
        OnSchemaMouseUp(Component(), button, shift, x, y);
    }
}

void TSchemaGestures::ReleaseGesture(TMouseButton button, const TShiftState &shift, TPoint at)
{
    const bool left = button == TMouseButton::mbLeft;
    if (left && m_dragging) {
        FollowScrolling();
        m_offset = OffsetTo(at);
        Apply();
    }
    const bool dropped = m_dragging || !left;
    EndGesture();
    UpdateMultiSelect(m_pressedTime, shift, dropped ? TSelectStep::Drop : TSelectStep::Release);
    InputHost().SetAreaCursor(TSchemaCursor::Area);
}

/// What a release changes.
void TSchemaGestures::Apply()
{
    const TPoint offset = m_offset;
    const TMode mode = m_mode;
    StopScrolling();
    switch (mode) {
    case TMode::Move:
        HandleMoveOfSelected(offset);
        break;
    case TMode::Copy:
        ChangeSelected(TSchemaUserChange::ucCopy, [&](TzuDataEntity_SchemaTime &time) {
            const TStored stored = Stored(time, Moved(time, offset), true);
            OnTimeCopy(Component(), &time, stored.Col, stored.Start, stored.Stop);
            return true;
        });
        UpdateSubColumns();
        break;
    case TMode::GrowStart:
    case TMode::GrowStop:
        if (m_pressedTime != nullptr) {
            HandleGrow(*m_pressedTime,
                       mode == TMode::GrowStart ? TSchemaEnd::Start : TSchemaEnd::Stop,
                       AlongTime(offset));
        }
        break;
    case TMode::Band:
        EndSelectInRect();
        break;
    case TMode::None:
        break;
    }
}

void TSchemaGestures::EndGesture()
{
    StopScrolling();
    ShowFeedback({});
    if (std::exchange(m_dragging, false)) {
        InputHost().HideGestureHint();
    }
    m_mode = TMode::None;
    m_bandBegun = false;
    m_movedInTime = false;
    m_offset = {};
}

void TSchemaGestures::CancelGesture()
{
    if (!GestureRunning()) {
        return;
    }
    const bool band = m_bandBegun;
    EndGesture();
    if (band) {
        CancelSelectInRect();
    }
    InputHost().SetAreaCursor(TSchemaCursor::Area);
}

void TSchemaGestures::SchemaDblClick(int x, int y)
{
    CancelGesture();
    NotePress({x, y});
    OnSchemaDblClick(Component(), m_pressedTime);
}

void TSchemaGestures::SchemaMouseLeave()
{
    if (!GestureRunning()) {
        m_hoverTime = nullptr;
        InputHost().SetAreaCursor(TSchemaCursor::Area);
        InputHost().PointAtTime(nullptr, m_mouse);
    }
}

void TSchemaGestures::Hover(TPoint at)
{
    TzuDataEntity_SchemaTime *time = GetDataEntityFromXY(at.X, at.Y);
    const bool another = std::exchange(m_hoverTime, time) != time;
    TSchemaCursor cursor = TSchemaCursor::Area;
    if (time != nullptr) {
        const TzuLifeWatch lives(*time);
        TRect rect;
        bool atStart = false;
        if (InGrowArea(*time, at.X, at.Y, rect, atStart) && time->GetCanEdit() && lives) {
            cursor = TSchemaCursor::Resize;
        }
        time = lives ? time : nullptr;
    }
    InputHost().SetAreaCursor(cursor);
    if (time != nullptr) {
        DoMoveInfo(time, time->GetStartDateTime(),
                   time->GetStopDateTime() - time->GetStartDateTime(), at.X, at.Y);
    } else if (another) {
        DoMoveInfo(nullptr, 0, 0, at.X, at.Y);
    }
    InputHost().PointAtTime(m_showBig ? m_hoverTime : nullptr, at);
}

void TSchemaGestures::DoMoveInfo(TzuDataEntity_SchemaTime *time, TDateTime start, TDateTime length,
                                 int x, int y)
{
    OnSchemaHintInfo(Component(), time, start, length, x, y);
}

// --- what happens to times -----------------------------------------------------------------------

void TSchemaGestures::TimeLeft(TzuDataEntity_SchemaTime &time)
{
    if (m_hoverTime == &time) {
        m_hoverTime = nullptr;
        InputHost().PointAtTime(nullptr, m_mouse);
    }
    if (m_pressedTime == &time) {
        m_pressedTime = nullptr;
        CancelGesture();
    }
    TSchemaSelection::TimeLeft(time);
}

/// While times are being stored the last announcement alone counts.
void TSchemaGestures::_OnInfoPush(TzuDataEntity *item)
{
    if (!m_settingTimes) {
        TSchemaSelection::_OnInfoPush(item);
    }
}

} // namespace korvane
