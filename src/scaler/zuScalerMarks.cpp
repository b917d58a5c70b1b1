// Passes and marks.
#include "foundation/zuDateUtils.h"
#include "foundation/zuRound.h"
#include "scaler/zuScaleWalk.h"
#include "scaler/zuScaler.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace korvane {

namespace {

/// Far more marks than any screen or page shows; keeps an absurdly long axis affordable.
constexpr std::size_t kMostMarks = 100'000;
/// How often label handlers that change the scaler get the marks computed anew.
constexpr int kMostRounds = 3;

/// Sets a flag for the lifetime of the object.
class TFlagScope
{
public:
    explicit TFlagScope(bool &flag)
        : m_flag(flag)
    {
        m_flag = true;
    }
    TFlagScope(const TFlagScope &) = delete;
    TFlagScope &operator=(const TFlagScope &) = delete;
    ~TFlagScope() { m_flag = false; }

private:
    bool &m_flag;
};

/// Index of the last position that a walk over the span visits.
std::int64_t LastPosition(TDateTime span, TDateTime step)
{
    return Round(span / step + 1.0);
}

} // namespace

TPassInfo TDateScalerCore::GetPassInfoFromDateTime(TDateTime date) const
{
    return PassInfoAt(m_passes, MinorStep(), MillisecondOfDay(date));
}

void TDateScalerCore::CalcDrawMode()
{
    if (m_computing) { // a label handler has changed the scaler
        m_computeAgain = true;
        return;
    }
    const TFlagScope computing(m_computing);
    std::string message;
    try {
        ComputeMarks();
        return;
    } catch (const std::exception &error) {
        message = error.what();
    } catch (...) {
        message = "unknown error";
    }
    RecoverFromScaleError();
    throw std::runtime_error("Scale error:" + message);
}

void TDateScalerCore::RecoverFromScaleError()
{
    m_changePending = true;
    m_stop = std::min(m_start + kDay, LatestStop());
    try {
        ComputeMarks();
    } catch (...) {
        // A label handler that keeps failing: this time the labels are made without it.
        const TFlagScope ignoring(m_ignoreOverrides);
        ComputeMarks();
    }
    EndInteraction();
}

void TDateScalerCore::ComputeMarks()
{
    for (int round = 0; round < kMostRounds; ++round) {
        m_computeAgain = false;
        ComputeOnce();
        if (!m_computeAgain) {
            return;
        }
    }
}

void TDateScalerCore::ComputeOnce()
{
    m_primaryMarks.clear();
    m_secondaryMarks.clear();
    m_hiddenSpan = 0;
    m_oddEvenStart = 0;
    const TDateTime spacing = PixelLenToDate(m_pixelsForModeSwitch);
    if (spacing <= 0) {
        return;
    }
    m_minorStep = StepFork(spacing);
    m_majorStep = StepFork(m_minorStep.Length);
    m_scrollStep = PixelLenToDate(10);
    const TDayPattern pattern(m_passes, MinorStep());
    TDateTime hiddenSpan = 0;
    TScaleMarkList minor = MinorMarks(pattern, hiddenSpan);
    TScaleMarkList major = MajorMarks(pattern, hiddenSpan);
    m_primaryMarks = std::move(minor);
    m_secondaryMarks = std::move(major);
    m_hiddenSpan = hiddenSpan;
    m_pixelsLength = -1;
    UpdatePixels();
    CalcOddOrEventStartForVerticalBack();
}

TScaleMarkList TDateScalerCore::MinorMarks(const TDayPattern &pattern, TDateTime &hiddenSpan)
{
    const TDateTime step = MinorStep();
    const TDateTime span = m_stop - m_start;
    TScaleMarkList marks;
    TScaleWalk walk(step, m_start, FirstDayOfWeek(), pattern);
    bool afterHidden = false;
    std::int64_t position = 0;
    while (position <= LastPosition(span + hiddenSpan, step) && marks.size() < kMostMarks) {
        if (walk.Info().Hide) {
            const auto hidden = walk.SkipHidden();
            if (hidden) {
                position += *hidden;
                hiddenSpan += static_cast<double>(*hidden) * step;
            }
            if (!hidden || hiddenSpan > kYear) {
                DropOutError();
            }
            afterHidden = true;
            if (!marks.empty()) {
                marks.back().HiddenAfter = true;
            }
            continue;
        }
        TScaleLabel label = GetApprioateStringShort(step, walk.Date());
        marks.push_back({.Date = walk.Date(),
                         .Text = std::move(label.Text),
                         .Font = label.Font,
                         .Color = walk.Info().Color,
                         .HiddenBefore = hiddenSpan,
                         .AfterHidden = afterHidden});
        afterHidden = false;
        ++position;
        walk.Next();
    }
    return marks;
}

TScaleMarkList TDateScalerCore::MajorMarks(const TDayPattern &pattern, TDateTime hiddenSpan) const
{
    const TDateTime step = MajorStep();
    const std::int64_t last = LastPosition(m_stop - m_start + hiddenSpan, step);
    TScaleMarkList marks;
    TScaleWalk walk(step, m_start, FirstDayOfWeek(), pattern);
    TDateTime previous = 0;
    std::int64_t position = 0;
    while (position <= last && marks.size() < kMostMarks) {
        if (walk.Info().Hide) {
            const auto hidden = walk.SkipHidden();
            if (!hidden) {
                break;
            }
            position += *hidden;
            continue;
        }
        if (walk.Date() != previous) {
            TScaleLabel label = GetApprioateStringLong(step, walk.Date());
            marks.push_back({.IsMajor = true,
                             .Date = walk.Date(),
                             .Text = std::move(label.Text),
                             .Font = label.Font,
                             .Color = walk.Info().Color});
            previous = walk.Date();
        }
        ++position;
        walk.Next();
    }
    return marks;
}

void TDateScalerCore::DropOutError()
{
    for (TDateScalePass &pass : m_passes) {
        pass.Hide = false;
    }
    throw std::runtime_error("Verkar som alla tider ska d\u00f6ljas?, "
                             "Sl\u00e5r av d\u00f6lj p\u00e5 samtliga pass.");
}

TScaleMarkPair TDateScalerCore::FindScaleMarksFromDate(TDateTime date) const
{
    return PairAround(std::ranges::upper_bound(m_primaryMarks, date, {}, &TScaleMark::Date));
}

TScaleMarkPair TDateScalerCore::FindScaleMarksFromPixel(int pixel) const
{
    UpdatePixels();
    return PairAround(std::ranges::upper_bound(m_primaryMarks, pixel, {}, &TScaleMark::Pixel));
}

TScaleMarkPair TDateScalerCore::PairAround(TScaleMarkList::const_iterator after) const
{
    return {after == m_primaryMarks.begin() ? nullptr : &*(after - 1),
            after == m_primaryMarks.end() ? nullptr : &*after};
}

int TDateScalerCore::GetPixelFromScaleMark(const TScaleMark &mark) const
{
    const double length = GetScaleLen();
    const TDateTime span = m_stop - m_start;
    if (span == 0) {
        return -1;
    }
    return RoundToPixel(std::nearbyint(length * (mark.Date - m_start) / span)
                        - std::nearbyint(length * mark.HiddenBefore / span));
}

int TDateScalerCore::MarkPixel(const TScaleMark &mark) const
{
    return mark.IsMajor ? DateToPixel(mark.Date) : GetPixelFromScaleMark(mark);
}

void TDateScalerCore::UpdatePixels() const
{
    const int length = GetScaleLen();
    if (length == m_pixelsLength) {
        return;
    }
    m_pixelsLength = length;
    for (TScaleMarkList *const marks : {&m_primaryMarks, &m_secondaryMarks}) {
        for (TScaleMark &mark : *marks) {
            mark.Pixel = MarkPixel(mark);
        }
    }
}

void TDateScalerCore::CalcOddOrEventStartForVerticalBack()
{
    m_oddEvenStart =
        m_secondaryMarks.empty() ? 0 : PeriodNumber(MajorStep(), m_secondaryMarks.front().Date);
}

int TDateScalerCore::PeriodNumber(TDateTime step, TDateTime date) const
{
    const auto [day, time] = DecodeDateTime(date);
    if (step == kScale1Sec || step == kScale10Sec) {
        return time.Second / (step == kScale10Sec ? 10 : 1);
    }
    if (step == kScale1Min || step == kScale10Min) {
        return time.Minute / (step == kScale10Min ? 10 : 1);
    }
    if (step == kScale1Hour) {
        return time.Hour;
    }
    if (step == kScale1Day) {
        return static_cast<int>(DateOf(date));
    }
    if (step == kScale1Week) {
        return GetWeekNum(date).Number;
    }
    if (step == kScale1Month) {
        return day.Month;
    }
    if (step == kScale3Month) {
        return DateToQuarter(date);
    }
    return day.Year / std::max(MonthsOfStep(step) / 12, 1);
}

} // namespace korvane
