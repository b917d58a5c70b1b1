#include "scaler/zuScalePass.h"

#include "foundation/zuDateUtils.h"
#include "foundation/zuRound.h"

#include <algorithm>

namespace korvane {

namespace {

/// The bounds of a pass in milliseconds of the day; what lies outside a day lies just outside it.
struct TWindow
{
    int From = 0;
    int To = 0;

    explicit TWindow(const TDateScalePass &pass)
        : From(ToMillisecond(pass.FromTime))
        , To(ToMillisecond(pass.ToTime))
    {
    }

    bool Contains(int millisecond) const
    {
        if (From < To) {
            return millisecond >= From && millisecond <= To;
        }
        return From > To && (millisecond >= From || millisecond <= To);
    }

private:
    static int ToMillisecond(TDateTime time)
    {
        const std::int64_t millisecond = Round(time * kMillisecondsPerDay);
        return static_cast<int>(
            std::clamp<std::int64_t>(millisecond, -1, std::int64_t{kMillisecondsPerDay} + 1));
    }
};

} // namespace

int MillisecondOfDay(TDateTime date)
{
    const TTimeParts time = DecodeTime(date);
    return ((time.Hour * 60 + time.Minute) * 60 + time.Second) * 1000 + time.Millisecond;
}

TPassInfo PassInfoAt(std::span<const TDateScalePass> passes, TDateTime minorStep, int millisecond)
{
    const auto applies = [=](const TDateScalePass &pass) {
        return pass.Active && pass.MaxStep >= minorStep && TWindow(pass).Contains(millisecond);
    };
    const auto pass = std::ranges::find_if(passes, applies);
    return pass == passes.end() ? TPassInfo() : TPassInfo{pass->Hide, pass->Color};
}

TDayPattern::TDayPattern(std::span<const TDateScalePass> passes, TDateTime minorStep)
{
    std::vector<int> bounds{0};
    for (const TDateScalePass &pass : passes) {
        if (pass.Active) {
            const TWindow window(pass);
            bounds.push_back(window.From);
            bounds.push_back(window.To + 1);
        }
    }
    std::ranges::sort(bounds);
    for (const int bound : bounds) {
        if (bound < 0 || bound >= kMillisecondsPerDay) {
            continue;
        }
        const TPassInfo info = PassInfoAt(passes, minorStep, bound);
        if (m_segments.empty() || m_segments.back().Info != info) {
            m_segments.push_back({bound, info});
        }
    }
}

std::size_t TDayPattern::IndexAt(int millisecond) const
{
    const auto after = std::ranges::upper_bound(m_segments, millisecond, {}, &Segment::From);
    return static_cast<std::size_t>(after - m_segments.begin()) - 1;
}

TPassInfo TDayPattern::At(int millisecond) const
{
    return m_segments[IndexAt(millisecond)].Info;
}

int TDayPattern::HiddenFor(int millisecond) const
{
    const std::size_t first = IndexAt(millisecond);
    if (!m_segments[first].Info.Hide) {
        return 0;
    }
    const std::size_t count = m_segments.size();
    for (std::size_t ahead = 1; ahead < count; ++ahead) {
        const std::size_t index = first + ahead;
        const Segment &segment = m_segments[index % count];
        if (!segment.Info.Hide) {
            return segment.From - millisecond + (index >= count ? kMillisecondsPerDay : 0);
        }
    }
    return kForever;
}

int TDayPattern::HiddenSince(int millisecond) const
{
    const std::size_t first = IndexAt(millisecond);
    if (!m_segments[first].Info.Hide) {
        return 0;
    }
    const std::size_t count = m_segments.size();
    for (std::size_t back = 1; back < count; ++back) {
        const std::size_t index = (first + count - back) % count;
        if (!m_segments[index].Info.Hide) {
            const int last =
                (index + 1 < count ? m_segments[index + 1].From : kMillisecondsPerDay) - 1;
            return millisecond - last + (index > first ? kMillisecondsPerDay : 0);
        }
    }
    return kForever;
}

} // namespace korvane
