#include "ChartLooks.h"

#include "foundation/qt/zuConvert.h"

#include <algorithm>
#include <cmath>

namespace korvane::planner {

namespace {

/// `share` of `color`, the rest `base`.
QColor Mix(const QColor &color, const QColor &base, double share)
{
    const auto mix = [share](int a, int b) { return qRound(a * share + b * (1 - share)); };
    return {mix(color.red(), base.red()), mix(color.green(), base.green()),
            mix(color.blue(), base.blue())};
}

QColor WithAlpha(QColor color, double alpha)
{
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

/// Relative luminance, 0 = black to 1 = white.
double Luminance(const QColor &color)
{
    const auto linear = [](double component) {
        return component <= 0.03928 ? component / 12.92
                                    : std::pow((component + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
           + 0.0722 * linear(color.blueF());
}

} // namespace

ChartLooks::ChartLooks(const QPalette &palette)
{
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    const QColor text = palette.color(QPalette::Active, QPalette::Text);
    const QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
    const QColor amber(0xE0, 0x8A, 0x1E);
    m_dark = Luminance(base) < Luminance(text);

    Back = FromQt(base);
    Header = FromQt(palette.color(QPalette::Active, QPalette::Window));
    Text = FromQt(text);
    MutedText = FromQt(Mix(text, base, 0.66));
    Task = FromQt(Mix(accent, base, m_dark ? 0.62 : 0.5));
    Summary = FromQt(Mix(text, base, m_dark ? 0.3 : 0.24)); // names stay legible when it is done
    Milestone = FromQt(Mix(amber, base, 0.9));
    Link = FromQt(Mix(text, base, m_dark ? 0.55 : 0.5));
    Baseline = FromQt(Mix(text, base, 0.45));
    Deadline = FromQt(m_dark ? QColor(0x4C, 0xC3, 0x8A) : QColor(0x1F, 0x8A, 0x55));
    MissedDeadline = FromQt(m_dark ? QColor(0xFF, 0x6B, 0x6B) : QColor(0xD0, 0x2B, 0x2B));
    Grid = WithAlpha(text, m_dark ? 0.13 : 0.09);
    FineGrid = WithAlpha(text, m_dark ? 0.05 : 0.04);
    DayOff = WithAlpha(text, m_dark ? 0.06 : 0.045);
    Now = QColor(0xD9, 0x3A, 0x3A);
    Overload = m_dark ? QColor(0xFF, 0x6B, 0x5E) : QColor(0xD1, 0x2B, 0x1F);
}

TColor ChartLooks::Seen(TColor color) const
{
    constexpr double kLeastContrast = 1.4;
    constexpr double kShareOfText = 0.5;
    const QColor own = ToQt(color, {});
    const auto [dark, light] = std::minmax({Luminance(own), Luminance(ToQt(Back, {}))});
    return (light + 0.05) / (dark + 0.05) < kLeastContrast
               ? FromQt(Mix(ToQt(Text, {}), own, kShareOfText))
               : color;
}

TColor ChartLooks::Done(TColor color) const
{
    constexpr float kLightest = 0.9F;
    constexpr float kDarkest = 0.15F;
    const QColor open = ToQt(color, {}).toHsl();
    const float lighter = std::max(open.lightnessF() * 1.25F, kDarkest);
    const float darker = open.lightnessF() * 0.78F;
    const bool isLighter = m_dark ? lighter <= kLightest : darker < kDarkest;
    return FromQt(QColor::fromHslF(std::max(open.hslHueF(), 0.0F), open.hslSaturationF(),
                                   isLighter ? lighter : darker));
}

bool NeedsLightText(std::initializer_list<TColor> colors)
{
    double darkest = 1;
    double lightest = 0;
    for (const TColor color : colors) {
        const double luminance = Luminance(ToQt(color, {}));
        darkest = std::min(darkest, luminance);
        lightest = std::max(lightest, luminance);
    }
    // The contrast of white text on the lightest colour, of black text on the darkest.
    return 1.05 / (lightest + 0.05) > (darkest + 0.05) / 0.05;
}

} // namespace korvane::planner
