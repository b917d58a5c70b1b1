#include "foundation/zuDateUtils.h"
#include "plan/PlanDates.h"
#include "plan/PlanFields.h"

#include <gtest/gtest.h>
#include <random>

namespace korvane::planner {
namespace {

std::string Canonical(QStringView text)
{
    const auto instant = ParseIsoDateTime(text);
    return instant ? IsoText(*instant).toStdString() : "nothing";
}

TEST(PlanDates, ReadsIsoDateTimesAndNothingElse)
{
    const std::pair<QStringView, std::string> cases[] = {
        {u"2026-11-02T08:00:00", "2026-11-02T08:00:00"},
        {u"2026-11-02T08:00", "2026-11-02T08:00:00"},
        {u"2026-11-02 08:00:30", "2026-11-02T08:00:30"},
        {u"2026-11-02", "2026-11-02T00:00:00"},
        {u" \n2026-11-02\t", "2026-11-02T00:00:00"},
        {u"2026-11-02T08:00:00.5", "2026-11-02T08:00:00.500"},
        {u"2026-11-02T08:00:59.9999", "2026-11-02T08:01:00"},
        {u"2026-12-31T24:00:00", "2027-01-01T00:00:00"},
        {u"2026-11-02T08:00:00Z", "2026-11-02T08:00:00"},
        {u"2026-11-02T08:00:00+01:00", "2026-11-02T08:00:00"},
        {u"2026-11-02T08:00:00-0530", "2026-11-02T08:00:00"},
        {u"2024-02-29", "2024-02-29T00:00:00"},
        {u"2026-02-29", "nothing"},
        {u"2026-13-01", "nothing"},
        {u"2026-00-10", "nothing"},
        {u"2026-04-31", "nothing"},
        {u"0000-01-01", "nothing"},
        {u"12026-01-01", "nothing"},
        {u"2026-1-1", "nothing"},
        {u"2026-11-02T", "nothing"},
        {u"2026-11-02T8:00", "nothing"},
        {u"2026-11-02T25:00:00", "nothing"},
        {u"2026-11-02T24:00:01", "nothing"},
        {u"2026-11-02T08:60:00", "nothing"},
        {u"2026-11-02T08:00:00.", "2026-11-02T08:00:00"},
        {u"2026-11-02T08:00:00+", "nothing"},
        {u"2026-11-02T08:00:00Zulu", "nothing"},
        {u"2026-11-02T08:00:1.2.3", "nothing"},
        {u"٢٠٢٦-11-02", "nothing"},
        {u"", "nothing"},
    };
    for (const auto &[text, expected] : cases) {
        EXPECT_EQ(Canonical(text), expected) << text.toUtf8().toStdString();
    }
}

TEST(PlanDates, WritesWhatItReadsForAnySecondOfTheAxis)
{
    std::mt19937 random(20261102);
    std::uniform_int_distribution<std::int64_t> seconds(0, static_cast<std::int64_t>(kLastPlanDate)
                                                               * 86'400);
    for (int i = 0; i < 2000; ++i) {
        const auto second = seconds(random);
        const QString text = IsoText(double(second) / 86'400);
        const auto parsed = ParseIsoDateTime(text);
        ASSERT_TRUE(parsed) << text.toStdString();
        EXPECT_EQ(IsoText(*parsed), text);
        EXPECT_NEAR(*parsed * 86'400, double(second), 1e-4);
    }
    EXPECT_EQ(IsoText(kLastPlanDate), u"4000-01-01T00:00:00");
}

TEST(PlanDates, ReadsDurationsInMinutes)
{
    const std::pair<QStringView, std::optional<double>> cases[] = {
        {u"PT8H0M0S", 480},     {u"PT0H0M0S", 0},        {u"PT8H30M30S", 510.5},
        {u"P1DT2H", 1560},      {u"P2W", 20'160},        {u"-PT4H", -240},
        {u" PT1.5H ", 90},      {u"PT100000H0M0S", 6e6}, {u"P1M", std::nullopt},
        {u"P1Y", std::nullopt}, {u"PT1D", std::nullopt}, {u"P8H", std::nullopt},
        {u"PT8", std::nullopt}, {u"PTH", std::nullopt},  {u"8H", std::nullopt},
        {u"P", std::nullopt},   {u"", std::nullopt},     {u"PT1..5H", std::nullopt},
    };
    for (const auto &[text, expected] : cases) {
        EXPECT_EQ(ParseIsoDuration(text), expected) << text.toUtf8().toStdString();
    }
}

TEST(PlanDates, ReadsColorsOfSixHexadecimalDigits)
{
    EXPECT_EQ(ParseColor(u"#99ccff"), Rgb(0x99, 0xCC, 0xFF));
    EXPECT_EQ(ParseColor(u"#FF0000"), clRed);
    for (const QStringView text : {u"", u"#", u"#fff", u"99ccff", u"#99ccfg", u"#99ccff0"}) {
        EXPECT_FALSE(ParseColor(text)) << text.toUtf8().toStdString();
    }
}

} // namespace
} // namespace korvane::planner
