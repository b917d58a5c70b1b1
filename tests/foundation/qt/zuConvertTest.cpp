#include "foundation/qt/zuConvert.h"
#include "foundation/zuDateUtils.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

TEST(Convert, GeometryColorsAndTextsSurviveTheRoundTrip)
{
    for (const TRect &rect : {TRect{1, 2, 30, 40}, TRect{-5, -6, -5, -6}, TRect{0, 0, 1, 1}}) {
        EXPECT_EQ(FromQt(ToQt(rect)), rect);
        EXPECT_EQ(ToQt(rect).width(), rect.Width());
    }
    for (const TColor color : {clBlack, clWhite, clRed, clBlue, Rgb(1, 128, 254)}) {
        EXPECT_EQ(FromQt(ToQt(color, {})), color);
    }
    EXPECT_EQ(ToQt(Rgb(1, 2, 3), {}), QColor(1, 2, 3));
    EXPECT_EQ(FromQt(ToQt("Zeit – 時間 🕐")), "Zeit – 時間 🕐");
}

TEST(Convert, FontsKeepEverythingThatAQFontHas)
{
    const TFont font{.Name = "Sans", .Size = 11, .Color = clRed, .Bold = true, .StrikeOut = true};
    EXPECT_EQ(FromQt(ToQt(font), font), font);
    QFont inPixels("Sans");
    inPixels.setPixelSize(20);
    EXPECT_EQ(FromQt(inPixels, {.Size = 7}).Size, 7);
}

TEST(Convert, InstantsSurviveTheRoundTripToTheMillisecond)
{
    for (const TDateTime value :
         {0.0, -1.25, EncodeDate(2024, 2, 29) + EncodeTime(13, 59, 59, 999), EncodeDate(1, 1, 1),
          EncodeDate(9999, 12, 31) + EncodeTime(23, 59, 59, 999)}) {
        EXPECT_DOUBLE_EQ(FromQt(ToQDateTime(value)), value);
    }
    const double ms = EncodeTime(0, 0, 0, 1);
    EXPECT_EQ(ToQDateTime(EncodeDate(2024, 1, 1) - 0.3 * ms),
              QDateTime(QDate(2024, 1, 1), QTime(0, 0)));
}

TEST(Convert, OddDateTimesGiveTheNearestInstant)
{
    EXPECT_EQ(FromQt(QDateTime()), 0);
    EXPECT_EQ(DecodeDate(FromQt(QDateTime(QDate(12000, 5, 5), QTime(1, 0)))),
              (TDateParts{9999, 12, 31}));
    EXPECT_EQ(DecodeDate(FromQt(QDateTime(QDate(-44, 3, 15), QTime(1, 0)))), (TDateParts{1, 1, 1}));
    const QDateTime utc(QDate(2024, 7, 1), QTime(12, 0), Qt::UTC);
    EXPECT_EQ(FromQt(utc), FromQt(utc.toLocalTime())) << "instants are in local time";
}

} // namespace
} // namespace korvane
