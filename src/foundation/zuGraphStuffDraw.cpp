#include "foundation/zuGraphStuffDraw.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace korvane {

namespace {

/// More steps of colour are not told apart.
constexpr int kRadiatedSteps = 48;
/// How far a rectangle may reach beyond the clip: more than any outline, mark or wave is wide.
constexpr int kSafeMargin = 64;

unsigned Between(unsigned from, unsigned to, int step, int steps)
{
    const int distance = static_cast<int>(to) - static_cast<int>(from);
    return static_cast<unsigned>(static_cast<int>(from) + distance * step / steps);
}

TRect Shrunk(const TRect &rect, int byX, int byY)
{
    return {rect.Left + byX, rect.Top + byY, rect.Right - byX, rect.Bottom - byY};
}

} // namespace

TRect GStuff::W95Safe(const TRect &rect, const TCanvas &canvas)
{
    const TRect clip = canvas.ClipRect();
    const auto pull = [](int value, int low, int high) {
        return std::clamp(value, low - kSafeMargin, high + kSafeMargin);
    };
    return {pull(rect.Left, clip.Left, clip.Right), pull(rect.Top, clip.Top, clip.Bottom),
            pull(rect.Right, clip.Left, clip.Right), pull(rect.Bottom, clip.Top, clip.Bottom)};
}

TColor GStuff::TintColor(TColor color, int percent)
{
    const int target = percent < 0 ? 0 : 255;
    const int share = std::min(std::abs(percent), 100);
    const auto mix = [target, share](unsigned component) {
        return static_cast<unsigned>((static_cast<int>(component) * (100 - share) + target * share)
                                     / 100);
    };
    return Rgb(mix(RedOf(color)), mix(GreenOf(color)), mix(BlueOf(color)));
}

bool GStuff::BigEnough(const TRect &rect, TSize least)
{
    return rect.Width() >= least.Width && rect.Height() >= least.Height;
}

TRect GStuff::Fixrect(const TRect &rect)
{
    return {std::min(rect.Left, rect.Right), std::min(rect.Top, rect.Bottom),
            std::max(rect.Left, rect.Right), std::max(rect.Top, rect.Bottom)};
}

void GStuff::DoSelectContent(const TRect &rect, TCanvas &canvas)
{
    constexpr int kGrip = 4;
    canvas.SetBrushColor(clHighlight);
    canvas.FrameRect(rect);
    canvas.FrameRect(Shrunk(rect, 1, 1));
    if (!BigEnough(rect, {3 * kGrip, 2 * kGrip})) {
        return;
    }
    for (const int left : {rect.Left, rect.Right - kGrip}) {
        canvas.FillRect({left, rect.Top, left + kGrip, rect.Top + kGrip});
        canvas.FillRect({left, rect.Bottom - kGrip, left + kGrip, rect.Bottom});
    }
}

void GStuff::BevelRect(const TRect &rect, TCanvas &canvas, TBevel bevel)
{
    if (!BigEnough(rect, {2, 2})) {
        return;
    }
    const bool raised = bevel == TBevel::bvRaised;
    const int right = rect.Right - 1;
    const int bottom = rect.Bottom - 1;
    canvas.SetPen({raised ? clBtnHighlight : clBtnShadow, 1, TPenStyle::psSolid});
    const std::array nearEdges{TPoint{rect.Left, bottom}, TPoint{rect.Left, rect.Top},
                               TPoint{right, rect.Top}};
    canvas.Polyline(nearEdges);
    canvas.SetPenColor(raised ? clBtnShadow : clBtnHighlight);
    const std::array farEdges{TPoint{rect.Left, bottom}, TPoint{right, bottom},
                              TPoint{right, rect.Top}};
    canvas.Polyline(farEdges);
}

void GStuff::FillRadiated(const TRect &rect, TColor middle, TColor edge, TCanvas &canvas)
{
    const TColor from = canvas.ResolveColor(edge);
    const TColor to = canvas.ResolveColor(middle);
    const int steps = std::clamp(std::min(rect.Width(), rect.Height()) / 2, 1, kRadiatedSteps);
    for (int step = 0; step < steps; ++step) {
        const int last = std::max(steps - 1, 1);
        const TColor color = Rgb(Between(RedOf(from), RedOf(to), step, last),
                                 Between(GreenOf(from), GreenOf(to), step, last),
                                 Between(BlueOf(from), BlueOf(to), step, last));
        const auto inset = [step, steps](int extent) {
            return static_cast<int>(static_cast<long long>(extent) * step / (2LL * steps));
        };
        canvas.FillRect(Shrunk(rect, inset(rect.Width()), inset(rect.Height())), color);
    }
}

} // namespace korvane
