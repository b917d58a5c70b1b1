#include "plan/LinkText.h"

#include <gtest/gtest.h>

namespace korvane::planner {
namespace {

using enum LagMeasure;
using Unit = PlanLagUnit;

constexpr int kDay = 450; // minutes

TEST(LinkText, ShowsLagsInTheLargestRoundMeasureAndTakesThemBackExactly)
{
    struct Case
    {
        PlanLag Lag;
        double Number;
        LagMeasure Measure;
        QString Text;
    };
    const QString minus = QStringLiteral("Start to start \u2212 ");
    const QString plus = QStringLiteral("Start to start + ");
    for (const Case &each : std::initializer_list<Case>{
             {{}, 0, Days, QStringLiteral("Start to start")},
             {{kDay}, 1, Days, plus + QStringLiteral("1 day")},
             {{-3.5 * kDay}, -3.5, Days, minus + QStringLiteral("3.5 days")},
             {{kDay / 4.0}, 112.5, Minutes, plus + QStringLiteral("112.5 minutes")},
             {{105}, 1.75, Hours, plus + QStringLiteral("1.75 hours")},
             {{kDay, Unit::ElapsedMinutes},
              7.5,
              ElapsedHours,
              plus + QStringLiteral("7.5 elapsed hours")},
             {{-1440, Unit::ElapsedMinutes},
              -1,
              ElapsedDays,
              minus + QStringLiteral("1 elapsed day")},
             {{0.1, Unit::ElapsedMinutes},
              0.1,
              ElapsedMinutes,
              plus + QStringLiteral("0.1 elapsed minutes")},
             {{-25, Unit::Percent}, -25, Percent, minus + QStringLiteral("25 %")},
             {{300, Unit::ElapsedPercent},
              300,
              ElapsedPercent,
              plus + QStringLiteral("300 elapsed %")},
         }) {
        const ShownLag shown = ShownLagOf(each.Lag, kDay);
        EXPECT_EQ(shown.Measure, each.Measure) << each.Lag.Amount;
        EXPECT_DOUBLE_EQ(shown.Number, each.Number);
        EXPECT_EQ(LagOf(shown, kDay), each.Lag);
        EXPECT_EQ(LinkText({0, 1, each.Lag, PlanLinkType::StartToStart}, kDay), each.Text);
    }
    EXPECT_EQ(LagOf({0.333, Hours}, kDay), PlanLag{20}) << "as files keep it";
    EXPECT_EQ(LagOf({12.4, Percent}, kDay).Amount, 12);
}

} // namespace
} // namespace korvane::planner
