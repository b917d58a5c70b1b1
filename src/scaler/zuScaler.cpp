#include "scaler/zuScaler.h"

#include "foundation/zuDateUtils.h"
#include "foundation/zuRound.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace korvane {

namespace {

/// A place on the axis in both its coordinates.
struct TAxisPoint
{
    TDateTime Date = 0;
    int Pixel = 0;

    static TAxisPoint Of(const TScaleMark &mark) { return {mark.Date, mark.Pixel}; }
};

} // namespace

TDateScalerCore::TDateScalerCore(IDateScalerHost &host)
    : m_host(host)
{
    const TDateTime today = DateOf(m_host.Now());
    m_stop = today + kWeek;
    TDateScalerCore::SetStart(today);
    CalcDrawMode();
}

void TDateScalerCore::SetStart(TDateTime start)
{
    const TDateTime clamped = std::max(start, 0.0);
    if (!std::isfinite(clamped) || clamped == m_start) {
        return;
    }
    m_start = clamped;
    RangeChanged();
}

void TDateScalerCore::SetStop(TDateTime stop)
{
    const TDateTime clamped = std::min(stop, LatestStop());
    if (!std::isfinite(clamped) || clamped == m_stop) {
        return;
    }
    m_stop = clamped;
    RangeChanged();
}

void TDateScalerCore::SetRange(TDateTime start, TDateTime stop)
{
    BeginUpdate();
    SetStart(start);
    SetStop(stop);
    EndUpdate();
}

void TDateScalerCore::AssignLook(const TDateScalerCore &other)
{
    m_horizontal = other.m_horizontal;
    m_pixelsForModeSwitch = other.m_pixelsForModeSwitch;
    m_passes = other.m_passes;
    AssignLabels(other);
}

double TDateScalerCore::GetScale() const
{
    const int length = GetScaleLen();
    return length > 0 ? std::max((m_stop - m_start) / length, 0.0) : 0.0;
}

void TDateScalerCore::SetScale(double daysPerPixel)
{
    SetStop(m_start + GetScaleLen() * daysPerPixel);
    if (m_stop - m_start < kMinute) {
        SetStop(m_start + 2 * kMinute);
    }
}

void TDateScalerCore::SetCenterScale(double newScale, TDateTime date, int pixel)
{
    BeginUpdate();
    try {
        const TScaleMark *const before = FindScaleMarksFromDate(date).A;
        const TDateTime hidden = before == nullptr ? 0 : before->HiddenBefore;
        SetStart(date - hidden - pixel * newScale);
        SetScale(newScale);
    } catch (...) {
        EndUpdate();
        throw;
    }
    EndUpdate();
}

void TDateScalerCore::RangeChanged()
{
    m_changePending = true;
    UpdateMarks();
    m_host.Refresh();
}

void TDateScalerCore::LabelsChanged()
{
    UpdateMarks();
    m_host.Refresh();
}

void TDateScalerCore::UpdateMarks()
{
    if (m_updateCount == 0) {
        CalcDrawMode();
    }
}

void TDateScalerCore::Resize()
{
    RangeChanged();
}

void TDateScalerCore::SetHorizontal(bool horizontal)
{
    if (horizontal != m_horizontal) {
        m_horizontal = horizontal;
        RangeChanged();
    }
}

void TDateScalerCore::SetPixelsForModeSwitch(int pixels)
{
    if (pixels != m_pixelsForModeSwitch) {
        m_pixelsForModeSwitch = pixels;
        LabelsChanged();
    }
}

void TDateScalerCore::SetIndicatorOn(bool on)
{
    if (on != m_indicatorOn) {
        m_indicatorOn = on;
        m_host.Refresh();
    }
}

void TDateScalerCore::SetIndicatorStyle(TIndicatorStyle style)
{
    if (style != m_indicatorStyle) {
        m_indicatorStyle = style;
        m_host.Refresh();
    }
}

void TDateScalerCore::SetIndicatorPixel(int pixel)
{
    const int valid = std::max(pixel, kNoIndicator);
    if (valid != m_indicatorPixel) {
        m_indicatorPixel = valid;
        m_host.Refresh();
    }
}

int TDateScalerCore::GetScaleLen() const
{
    const TSize size = m_host.ClientSize();
    return m_horizontal ? size.Width : size.Height;
}

int TDateScalerCore::DateToPixel(TDateTime date) const
{
    const TDateTime span = m_stop - m_start;
    if (m_hiddenSpan == 0) {
        return span == 0 ? -1 : RoundToPixel(GetScaleLen() * (date - m_start) / span);
    }
    if (span + m_hiddenSpan == 0) {
        return 0;
    }
    UpdatePixels();
    const TScaleMarkPair marks = FindScaleMarksFromDate(date);
    // One-sided: after the last mark on the line from date 0 through that mark, before the first
    // one on the line from it to the axis' end.
    TAxisPoint lower{0, -10};
    TAxisPoint upper{m_stop + m_hiddenSpan, GetScaleLen()};
    if (marks.A != nullptr && marks.B != nullptr) {
        lower = TAxisPoint::Of(*marks.A);
        upper = TAxisPoint::Of(*marks.B);
    } else if (marks.A != nullptr) {
        upper = TAxisPoint::Of(*marks.A);
    } else if (marks.B != nullptr) {
        lower = TAxisPoint::Of(*marks.B);
    }
    if (upper.Date == lower.Date) {
        return -1;
    }
    const double pixels = static_cast<double>(upper.Pixel) - lower.Pixel;
    const double offset = (date - lower.Date) * pixels / (upper.Date - lower.Date);
    return RoundToPixel(std::nearbyint(offset) + lower.Pixel);
}

TDateTime TDateScalerCore::PixelToDate(int pixel) const
{
    const TScaleMarkPair marks = FindScaleMarksFromPixel(pixel);
    const TAxisPoint lower = marks.A == nullptr ? TAxisPoint{m_start, 0} : TAxisPoint::Of(*marks.A);
    const TAxisPoint upper = marks.B == nullptr ? TAxisPoint{m_stop + m_hiddenSpan, GetScaleLen()}
                                                : TAxisPoint::Of(*marks.B);
    if (upper.Pixel == lower.Pixel) {
        return upper.Pixel < 1 ? m_start : m_stop;
    }
    const double pixels = static_cast<double>(upper.Pixel) - lower.Pixel;
    return (static_cast<double>(pixel) - lower.Pixel) * (upper.Date - lower.Date) / pixels
           + lower.Date;
}

int TDateScalerCore::TimeToPixel(TDateTime time) const
{
    const TDateTime span = m_stop - m_start;
    return span == 0 ? 0 : RoundToPixel((TimeOf(time) - TimeOf(m_start)) * GetScaleLen() / span);
}

TDateTime TDateScalerCore::Snap(TDateTime step, TDateTime date)
{
    try {
        return korvane::Snap(step, date, FirstDayOfWeek());
    } catch (const std::range_error &) {
        SetStop(m_start + kDay);
        throw;
    }
}

void TDateScalerCore::BeginUpdate()
{
    ++m_updateCount;
}

void TDateScalerCore::EndUpdate()
{
    m_updateCount = std::max(m_updateCount - 1, 0);
    if (m_updateCount == 0) {
        m_host.Refresh();
        CalcDrawMode();
    }
}

void TDateScalerCore::EndInteraction()
{
    m_interaction = {};
    m_host.Refresh();
}

void TDateScalerCore::AnnounceChange()
{
    if (m_changePending && HasChangeListener() && !m_interaction.Interacting) {
        m_changePending = false;
        m_host.PostChange();
    }
}

void TDateScalerCore::CallChange()
{
    // The handler may destroy the scaler: nothing of it is touched afterwards.
    OnChange(this);
}

} // namespace korvane
