#include "SchemaFixture.h"

#include <cmath>

namespace korvane {
namespace {

using test::kMinuteLength;

struct SchemaShortTimes : test::TSchemaFixture
{
    static int MinuteOf(TDateTime date)
    {
        return static_cast<int>(std::lround(date / kMinuteLength));
    }
};

TEST_F(SchemaShortTimes, AreAsLongAsTheApplicationWantsWhereverTheyCount)
{
    struct TCase
    {
        int Least; ///< pixels, which are minutes
        int To;    ///< of a time from 600 on
        int Next;  ///< start of another one, of an hour
        bool Flip;
        int Length;
        bool Collides;
    };
    const TCase cases[] = {
        {0, 601, 602, false, 5, false},  {20, 601, 602, false, 20, true},
        {20, 601, 619, false, 20, true}, {20, 601, 620, false, 20, false},
        {20, 600, 619, true, 20, true},  {20, 601, 621, true, 20, false},
        {20, 619, 619, false, 20, true}, {20, 625, 625, false, 25, false},
        {20, 580, 610, false, 20, true},
    };
    for (const TCase &one : cases) {
        Schema.SetFlipView(one.Flip);
        Schema.SetLeastTimeLength(one.Least);
        auto *time = AddTime(0, 600, one.To);
        auto *next = AddTime(0, one.Next, one.Next + 60);
        Schema.UpdateSubColumnsNow();
        const TRect rect = RectOf(time);
        const TPixelSpan along = Schema.AlongTime(rect);
        EXPECT_EQ(along.Length(), one.Length) << one.Least << ' ' << one.To;
        EXPECT_EQ(time->InSubCol(), one.Collides) << one.Least << ' ' << one.To << ' ' << one.Next;
        EXPECT_EQ(Schema.GetDataEntityFromXY(rect.Left, rect.Top), time);
        EXPECT_EQ(Schema.GetDataEntityFromXY(rect.Right - 1, rect.Bottom - 1), time);
        Schema.RemoveSchemaTime(time);
        Schema.RemoveSchemaTime(next);
    }
}

TEST_F(SchemaShortTimes, ThatAreStretchedStopWhereTheyAreDrawn)
{
    Schema.SetLeastTimeLength(20);
    for (const auto &[end, pixels, from, to] : {std::tuple(TSchemaEnd::Stop, 10, 600, 630),
                                                {TSchemaEnd::Stop, -8, 600, 612},
                                                {TSchemaEnd::Start, -10, 590, 601}}) {
        auto *time = AddTime(0, 600, 601);
        Schema.HandleGrow(*time, end, pixels);
        EXPECT_EQ(MinuteOf(time->GetStartDateTime()), from) << pixels;
        EXPECT_EQ(MinuteOf(time->GetStopDateTime()), to) << pixels;
        Schema.RemoveSchemaTime(time);
    }
}

/// A quarter of an hour is the grid; the time is 10:05 to 10:55.
TEST_F(SchemaShortTimes, OnlyEndsThatMoveAreSnappedWhereThatIsWanted)
{
    struct TCase
    {
        int Move; ///< pixels that all of it moves by, which are minutes
        int Start;
        int Stop;
        std::pair<int, int> Usually;
        std::pair<int, int> MovedOnly;
    };
    const TCase cases[] = {
        {20, 0, 0, {630, 675}, {630, 680}}, {0, 17, 0, {615, 645}, {615, 655}},
        {0, 0, 21, {600, 675}, {605, 675}}, {0, 0, -49, {600, 600}, {605, 605}},
        {0, 60, 0, {660, 660}, {655, 655}},
    };
    Schema.SetStartSnap(15 * kMinuteLength);
    Schema.SetLengthSnap(15 * kMinuteLength);
    for (const bool movedOnly : {false, true}) {
        Schema.SetSnapMovedEndsOnly(movedOnly);
        for (const TCase &one : cases) {
            auto *time = AddTime(0, 605, 655);
            Schema.SelectOnly(*time);
            Schema.HandleMoveOfSelected({0, one.Move});
            Schema.HandleGrow(*time, TSchemaEnd::Start, one.Start);
            Schema.HandleGrow(*time, TSchemaEnd::Stop, one.Stop);
            const std::pair times(MinuteOf(time->GetStartDateTime()),
                                  MinuteOf(time->GetStopDateTime()));
            EXPECT_EQ(times, movedOnly ? one.MovedOnly : one.Usually)
                << movedOnly << ' ' << one.Move << ' ' << one.Start << ' ' << one.Stop;
            Schema.RemoveSchemaTime(time);
        }
    }
}

} // namespace
} // namespace korvane
