// Items that crowd on the same pixels: what is drawn and hit is what drawing one by one would show.
#include "support/FakeGantHost.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace korvane {
namespace {

using test::kDayZero;
using test::kHourLength;
using test::TCanvasCall;
using test::TCanvasOp;
using test::TestChart;

constexpr int kWidth = 480;
constexpr int kMiddle = 9; ///< of the first row
constexpr TColor kHidden = Rgb(1, 2, 3);

/// One row of many items in a chart without stripes.
struct TCrowd : TestChart
{
    TGantRow &Row = *AddRow();
    std::vector<TzuDataEntity_Spanbar *> Items;
    std::mt19937 Random{11};

    TCrowd() { Gant->SetGantPyjamasColor(Gant->GantBackColor()); }

    int Pick(int to) { return std::uniform_int_distribution(0, to)(Random); }
    /// Begins so many hundredths of a pixel after the axis does.
    TzuDataEntity_Spanbar &Add(int start, int length, int layer = 0)
    {
        TzuDataEntity_Spanbar &item = *Gant->AddSpanbarToGantRow(&Row, layer);
        SetTimes(item, start, length);
        Items.push_back(&item);
        return item;
    }
    static void SetTimes(TzuDataEntity_Spanbar &item, int start, int length)
    {
        item.SetStartDateTime(kDayZero + start * kHourLength / 100);
        item.SetStopDateTime(item.GetStartDateTime() + length * kHourLength / 100);
    }
    /// What a plain walk over all items says of each pixel column: the topmost item at the middle.
    std::vector<TzuDataEntity_Spanbar *> TopPlainly()
    {
        std::vector<TzuDataEntity_Spanbar *> top(kWidth);
        Row.ForEachShown([&](TzuDataEntity_Spanbar &item) {
            const TRect rect = Row.RectFromDataEntity(item).value();
            for (int x = std::max(rect.Left, 0); x < std::min(rect.Right, kWidth); ++x) {
                if (rect.Top <= kMiddle && rect.Bottom > kMiddle) {
                    top[static_cast<std::size_t>(x)] = &item;
                }
            }
        });
        return top;
    }
    /// The fill that shows in each column at the middle of the row; the background is kHidden.
    std::vector<TColor> Painted()
    {
        Paint();
        std::vector<TColor> colors(kWidth, kHidden);
        for (const TCanvasCall &call : Host->Canvas.CallsOf(TCanvasOp::FillRect)) {
            const bool background = call.Rect.Bottom - call.Rect.Top > 18;
            for (int x = std::max(call.Rect.Left, 0); x < std::min(call.Rect.Right, kWidth); ++x) {
                if (!background && call.Rect.Contains({x, kMiddle}) && call.Rect.Width() > 0) {
                    colors[static_cast<std::size_t>(x)] = call.Brush.Color;
                }
            }
        }
        return colors;
    }
    void Zoom(double hoursPerPixel, int pan)
    {
        Axis->SetCenterScale(hoursPerPixel * kHourLength, kDayZero + pan * kHourLength, 240);
    }
};

TEST(GantDensity, CoversAndHitsTheColumnsThatPlainDrawingDoes)
{
    TCrowd crowd;
    crowd.AddRow();
    const auto change = [&](TzuDataEntity_Spanbar &item) {
        // Clusters, long items among short ones, instants and inverted times.
        const int cluster = crowd.Pick(5) * 8000;
        const int length = crowd.Pick(30) == 0 ? crowd.Pick(9000) : crowd.Pick(120) - 10;
        TCrowd::SetTimes(item, cluster + crowd.Pick(2500), length);
        item.SetVisible(crowd.Pick(20) > 0);
    };
    for (int i = 0; i < 3000; ++i) {
        change(crowd.Add(0, 0, crowd.Pick(9) == 0 ? 1 : 0));
    }
    const auto check = [&](const std::string &what) {
        crowd.Paint();
        const auto top = crowd.TopPlainly();
        const auto painted = crowd.Painted();
        for (int x = 0; x < kWidth; ++x) {
            const auto column = static_cast<std::size_t>(x);
            ASSERT_EQ(crowd.Row.FindDataEntityFromXY(x, kMiddle), top[column]) << what << ' ' << x;
            ASSERT_EQ(painted[column] != kHidden, top[column] != nullptr) << what << ' ' << x;
        }
    };
    int step = 0;
    for (const double hours : {0.05, 0.4, 1.0, 3.0, 20.0, 200.0}) {
        for (const int pan : {0, 150, 400}) {
            crowd.Zoom(hours, pan);
            check("hours " + std::to_string(hours));
            // What is kept about groups follows every change.
            for (int i = 0; i < 30; ++i, ++step) {
                const auto at =
                    static_cast<std::size_t>(crowd.Pick(static_cast<int>(crowd.Items.size()) - 1));
                TzuDataEntity_Spanbar &item = *crowd.Items[at];
                switch (step % 6) {
                case 0:
                    change(item);
                    break;
                case 1:
                    crowd.Gant->RemoveSpanbar(&item);
                    crowd.Items.erase(crowd.Items.begin() + static_cast<std::ptrdiff_t>(at));
                    break;
                case 2:
                    change(crowd.Add(0, 0));
                    break;
                case 3:
                    item.Move(0);
                    break;
                case 4:
                    item.SetSelected(!item.GetSelected());
                    break;
                default:
                    item.SetFixedSize(crowd.Pick(1) * 12);
                    break;
                }
            }
            check("changed at " + std::to_string(step));
        }
    }
    crowd.Row.SetCollisionDetection(true);
    crowd.Row.SetUseSubCols(3);
    for (TzuDataEntity_Spanbar *item : crowd.Items) {
        item->SetSubCol(crowd.Pick(3));
    }
    check("sub-rows");
}

TEST(GantDensity, StrengthTellsHowMuchOfTheTimeIsTakenAndColourWhatIsOnTop)
{
    TCrowd crowd;
    // Pixels 0..99 are hardly taken, 100..199 half, 200..299 wholly, 300..399 sixteen times over.
    struct TCase
    {
        int Length;
        int Times;
    };
    const TCase cases[]{{2, 1}, {50, 1}, {100, 1}, {100, 16}};
    for (int part = 0; part < 4; ++part) {
        for (int i = 0; i < 100 * cases[part].Times; ++i) {
            crowd.Add(100 * (100 * part + i % 100), cases[part].Length).SetColor(clRed);
        }
    }
    const auto redness = [](TColor color) {
        const auto channel = [color](int shift) {
            return static_cast<int>(color >> shift & 0xFFU);
        };
        return channel(0) - (channel(8) + channel(16)) / 2;
    };
    const auto painted = crowd.Painted();
    EXPECT_GT(redness(painted[50]), 0);
    EXPECT_LT(redness(painted[50]), redness(painted[150]));
    EXPECT_LT(redness(painted[150]), redness(painted[250]));
    EXPECT_EQ(painted[250], clRed);
    EXPECT_LT(painted[350], painted[250]); // darker

    for (TzuDataEntity_Spanbar *item : crowd.Items) {
        item->SetColor(clBlue);
    }
    EXPECT_EQ(crowd.Painted()[250], clBlue);
    TzuDataEntity_Spanbar &top = crowd.Add(25'000, 100);
    top.SetColor(clGreen);
    EXPECT_EQ(crowd.Painted()[250], clGreen);
    top.SetSelected(true);
    const std::size_t marks = crowd.Host->Canvas.CallsOf(TCanvasOp::FrameRect).size();
    crowd.Paint();
    EXPECT_GT(crowd.Host->Canvas.CallsOf(TCanvasOp::FrameRect).size(), marks);
    top.Move(0);
    EXPECT_EQ(crowd.Painted()[250], clBlue);
}

TEST(GantDensity, SymbolsStayVisibleAndEqualOnesAreDrawnOnce)
{
    TCrowd crowd;
    for (int i = 0; i < 2000; ++i) {
        TzuDataEntity_Spanbar &symbol = crowd.Add(20'000 + i % 5, 0);
        symbol.SetStyle(TSpanbarStyle::sbsRomb);
        symbol.SetFixedSize(12);
    }
    for (int i = 0; i < 2000; ++i) {
        crowd.Add(19'000 + i, 30);
    }
    crowd.Paint();
    const auto &calls = crowd.Host->Canvas.Calls();
    const auto symbols = crowd.Host->Canvas.CallsOf(TCanvasOp::Polygon);
    EXPECT_EQ(symbols.size(), 1U);
    EXPECT_LT(calls.size(), 200U);
    const auto isSymbol = [](const TCanvasCall &call) { return call.Op == TCanvasOp::Polygon; };
    const auto isOver = [&](const TCanvasCall &call) {
        return call.Op == TCanvasOp::FillRect && call.Rect.Height() < 18
               && call.Rect.Intersects(symbols.front().Rect);
    };
    EXPECT_EQ(std::find_if(std::ranges::find_if(calls, isSymbol), calls.end(), isOver),
              calls.end());
}

TEST(GantDensity, LinksOfLongRowsAreFoundByTime)
{
    TCrowd crowd;
    for (int i = 0; i < 1000; ++i) {
        crowd.Add(1000 * i, 500);
    }
    auto &near = crowd.Link(crowd.Items[2], crowd.Items[5]);
    crowd.Link(crowd.Items[700], crowd.Items[900]);
    auto &across = crowd.Link(crowd.Items[1], crowd.Items[999]);
    const auto linksAt = [&crowd](TLinkShow show, int pan) {
        crowd.Gant->SetLinkShow(show);
        crowd.Zoom(1, pan);
        crowd.Paint();
        return crowd.Host->Canvas.CallsOf(TCanvasOp::Polyline).size();
    };
    const std::size_t perLink = linksAt(TLinkShow::lsBothEndsVisible, 240);
    EXPECT_GT(perLink, 0U);
    EXPECT_EQ(linksAt(TLinkShow::lsOneEndVisible, 240), 2 * perLink);
    EXPECT_EQ(linksAt(TLinkShow::lsOneEndVisible, 4000), 0U);
    EXPECT_EQ(linksAt(TLinkShow::lsAlways, 4000), perLink); // the one across
    crowd.Gant->GetLinks().Remove(&across);
    EXPECT_EQ(linksAt(TLinkShow::lsAlways, 4000), 0U);
    near.SetSecond(crowd.Items[400]);
    EXPECT_EQ(linksAt(TLinkShow::lsOneEndVisible, 4000), perLink);
}

} // namespace
} // namespace korvane
