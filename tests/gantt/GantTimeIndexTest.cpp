// Long layers: what is painted and hit is found by time.
#include "data/zuTimeIndex.h"
#include "support/FakeGantHost.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <random>
#include <vector>

namespace korvane {
namespace {

using test::kDayZero;
using test::kHourLength;
using test::TestChart;

using TItems = std::vector<TzuDataEntity_Spanbar *>;

TItems Sorted(TItems items)
{
    std::ranges::sort(items);
    return items;
}

TEST(GantTimeIndex, FindsWhatAWalkFinds)
{
    std::mt19937 random(3);
    const auto pick = [&random](int to) { return std::uniform_int_distribution(0, to)(random); };
    const auto time = [&]() -> TDateTime {
        constexpr double kOdd[]{std::numeric_limits<double>::infinity(),
                                -std::numeric_limits<double>::infinity(), 1e300, -1e300};
        return pick(200) == 0 ? kOdd[pick(3)] : pick(400) * 0.25;
    };
    std::vector<std::unique_ptr<TzuDataEntity_Spanbar>> owned;
    TItems in;
    TTimeIndex<TzuDataEntity_Spanbar> index({});
    for (int step = 0; step < 12'000; ++step) {
        if (in.empty() || pick(99) < (step < 6000 ? 70 : 30)) {
            owned.push_back(std::make_unique<TzuDataEntity_Spanbar>());
            TzuDataEntity_Spanbar &item = *owned.back();
            item.SetStartDateTime(time());
            item.SetStopDateTime(pick(9) == 0 ? time() : item.GetStartDateTime() + pick(20));
            index.Add(item);
            in.push_back(&item);
        } else {
            const auto at = in.begin() + pick(static_cast<int>(in.size()) - 1);
            index.Remove(**at);
            in.erase(at);
        }
        if (step % 50 != 0) {
            continue;
        }
        ASSERT_EQ(index.Count(), in.size());
        const TDateTime from = time();
        const TDateTime to = time();
        TItems expected;
        std::ranges::copy_if(in, std::back_inserter(expected), [&](auto *item) {
            const TDateTime start = item->GetStartDateTime();
            return start <= to && std::max(start, item->GetStopDateTime()) >= from && from <= to;
        });
        TItems found;
        if (from <= to) {
            index.Find(from, to, found);
        }
        ASSERT_EQ(Sorted(found), Sorted(expected)) << step;
        ASSERT_EQ(Sorted(TTimeIndex<TzuDataEntity_Spanbar>(in).Items()), Sorted(in));
    }
}

/// What a walk over all items hits, topmost first.
TzuDataEntity_Spanbar *HitPlainly(TGantRow &row, int x, int y)
{
    TzuDataEntity_Spanbar *hit = nullptr;
    row.ForEachShown([&](TzuDataEntity_Spanbar &item) {
        const auto rect = row.RectFromDataEntity(item);
        hit = rect && rect->Contains({x, y}) ? &item : hit;
    });
    return hit;
}

TEST(GantLongLayer, PaintsAndHitsWhatAWalkOverAllWould)
{
    TestChart chart;
    TGantRow &row = *chart.AddRow();
    chart.AddRow();
    std::mt19937 random(5);
    const auto pick = [&random](int to) { return std::uniform_int_distribution(0, to)(random); };
    TItems items;
    const auto change = [&](TzuDataEntity_Spanbar &item) {
        item.SetStartDateTime(kDayZero + (pick(4000) - 2000) * kHourLength);
        item.SetStopDateTime(item.GetStartDateTime() + (pick(60) - 5) * kHourLength);
        item.SetFixedSize(pick(20) == 0 ? pick(60) : 0);
        item.SetColor(static_cast<TColor>(pick(0xFFFFFF)));
        item.SetVisible(pick(30) > 0);
    };
    for (int i = 0; i < 700; ++i) {
        items.push_back(chart.Gant->AddSpanbarToGantRow(&row, pick(1)));
        change(*items.back());
    }
    chart.Paint();
    const auto plainRects = [&] {
        std::vector<TRect> rects;
        row.ForEachShown([&](TzuDataEntity_Spanbar &item) {
            const auto rect = row.RectFromDataEntity(item);
            if (rect && rect->Left < 480 && rect->Right > 0) {
                rects.push_back(*rect);
            }
        });
        return rects;
    };
    std::vector<TRect> painted;
    chart.Gant->OnUserDrawTime = [&](TzuGant_ComBasic *, TzuDataEntity_Spanbar *, TCanvas &,
                                     const TRect &rect) { painted.push_back(rect); };
    for (TzuDataEntity_Spanbar *item : items) {
        item->SetStyle(TSpanbarStyle::sbsUser);
    }
    for (int step = 0; step < 300; ++step) {
        const auto at = items.begin() + pick(static_cast<int>(items.size()) - 1);
        switch (pick(5)) {
        case 0:
            chart.Gant->RemoveSpanbar(*at);
            items.erase(at);
            break;
        case 1:
            items.push_back(chart.Gant->AddSpanbarToGantRow(&row, pick(1)));
            items.back()->SetStyle(TSpanbarStyle::sbsUser);
            change(*items.back());
            break;
        case 2:
            chart.Axis->SetCenterScale((1 + pick(50)) * kHourLength / 10, kDayZero + pick(20), 240);
            break;
        case 3:
            (*at)->Move(pick((*at)->ListIndex()));
            break;
        default:
            change(**at);
            break;
        }
        painted.clear();
        chart.Paint();
        ASSERT_EQ(painted, plainRects()) << step;
        for (int i = 0; i < 20; ++i) {
            const int x = pick(479);
            ASSERT_EQ(row.FindDataEntityFromXY(x, 9), HitPlainly(row, x, 9)) << step << ' ' << x;
        }
    }
}

} // namespace
} // namespace korvane
