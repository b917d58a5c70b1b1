#include "plan/LinkText.h"

#include "plan/PlannerText.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace korvane::planner {

namespace {

struct Measure
{
    const char *Name;
    const char *Single; ///< beside the number 1
    PlanLagUnit Unit;
    int Factor;       ///< minutes or percent; 0 for a working day
    double Roundness; ///< of which the number should be a multiple
};

constexpr std::array<Measure, kLagMeasures> kMeasures{{
    {QT_TRANSLATE_NOOP("Planner", "days"), QT_TRANSLATE_NOOP("Planner", "day"),
     PlanLagUnit::WorkingMinutes, 0, 0.5},
    {QT_TRANSLATE_NOOP("Planner", "hours"), QT_TRANSLATE_NOOP("Planner", "hour"),
     PlanLagUnit::WorkingMinutes, 60, 0.25},
    {QT_TRANSLATE_NOOP("Planner", "minutes"), QT_TRANSLATE_NOOP("Planner", "minute"),
     PlanLagUnit::WorkingMinutes, 1, 0},
    {QT_TRANSLATE_NOOP("Planner", "elapsed days"), QT_TRANSLATE_NOOP("Planner", "elapsed day"),
     PlanLagUnit::ElapsedMinutes, kMinutesPerDay, 0.5},
    {QT_TRANSLATE_NOOP("Planner", "elapsed hours"), QT_TRANSLATE_NOOP("Planner", "elapsed hour"),
     PlanLagUnit::ElapsedMinutes, 60, 0.25},
    {QT_TRANSLATE_NOOP("Planner", "elapsed minutes"),
     QT_TRANSLATE_NOOP("Planner", "elapsed minute"), PlanLagUnit::ElapsedMinutes, 1, 0},
    {"%", "%", PlanLagUnit::Percent, 1, 0},
    {QT_TRANSLATE_NOOP("Planner", "elapsed %"), QT_TRANSLATE_NOOP("Planner", "elapsed %"),
     PlanLagUnit::ElapsedPercent, 1, 0},
}};

const Measure &Of(LagMeasure measure)
{
    return kMeasures.at(static_cast<std::size_t>(measure));
}

double FactorOf(const Measure &measure, int dayMinutes)
{
    return measure.Factor > 0 ? measure.Factor : std::max(dayMinutes, 1);
}

} // namespace

QString LinkTypeName(PlanLinkType type)
{
    switch (type) {
    case PlanLinkType::FinishToStart:
        return PlannerText::tr("Finish to start");
    case PlanLinkType::StartToStart:
        return PlannerText::tr("Start to start");
    case PlanLinkType::FinishToFinish:
        return PlannerText::tr("Finish to finish");
    case PlanLinkType::StartToFinish:
        return PlannerText::tr("Start to finish");
    }
    return {};
}

QString LagMeasureName(LagMeasure measure)
{
    return PlannerText::tr(Of(measure).Name);
}

ShownLag ShownLagOf(const PlanLag &lag, int dayMinutes)
{
    constexpr double kRounding = 1e-6;
    const auto found = std::ranges::find_if(kMeasures, [&](const Measure &measure) {
        const double steps = lag.Amount / FactorOf(measure, dayMinutes) / measure.Roundness;
        return measure.Unit == lag.Unit
               && (measure.Roundness == 0 || std::abs(steps - std::round(steps)) < kRounding);
    });
    return {lag.Amount / FactorOf(*found, dayMinutes),
            static_cast<LagMeasure>(found - kMeasures.begin())};
}

PlanLag LagOf(const ShownLag &shown, int dayMinutes)
{
    const Measure &measure = Of(shown.Measure);
    const double amount = shown.Number * FactorOf(measure, dayMinutes);
    const bool isTime =
        measure.Unit == PlanLagUnit::WorkingMinutes || measure.Unit == PlanLagUnit::ElapsedMinutes;
    return {isTime ? std::round(amount * 10) / 10 : std::round(amount), measure.Unit};
}

QString LinkText(const PlanLink &link, int dayMinutes)
{
    const QString type = LinkTypeName(link.Type);
    if (link.Lag.Amount == 0) {
        return type;
    }
    const ShownLag lag = ShownLagOf(link.Lag, dayMinutes);
    const Measure &measure = Of(lag.Measure);
    const QString name = PlannerText::tr(std::abs(lag.Number) == 1 ? measure.Single : measure.Name);
    return QStringLiteral("%1 %2 %3 %4")
        .arg(type, lag.Number < 0 ? QStringLiteral("\u2212") : QStringLiteral("+"),
             QLocale().toString(std::abs(lag.Number), 'g', 6), name);
}

} // namespace korvane::planner
