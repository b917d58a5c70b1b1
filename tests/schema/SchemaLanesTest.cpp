#include "SchemaFixture.h"

namespace korvane {
namespace {

struct SchemaLanes : test::TSchemaFixture
{
    /// Lane and number of lanes: "0/2"; "-" for the whole column.
    std::string LaneOf(TzuDataEntity_SchemaTime *time)
    {
        return time->InSubCol() ? std::to_string(time->SubCol()) + '/'
                                      + std::to_string(Schema.Columns().GetCol(0).SubColCount())
                                : "-";
    }
};

TEST_F(SchemaLanes, ATimeWithoutLengthTakesItsLaneForAsLongAsItIsDrawn)
{
    struct Case
    {
        int From; ///< of a time of an hour, in minutes, which are pixels; the other is at 600
        bool Flip;
        int Drawn; ///< pixels that a handler draws the other one at; 0 for no handler
        bool Collides;
    };
    const Case cases[] = {
        {606, false, 0, false}, // two hours later would do it no harm before
        {604, false, 0, true},   {599, false, 0, true}, {540, false, 0, false},
        {604, true, 0, true},    {607, true, 0, false}, {615, false, 20, true},
        {621, false, 20, false}, {615, true, 20, true}, {621, true, 20, false},
    };
    for (const Case &one : cases) {
        Schema.SetFlipView(one.Flip);
        Schema.OnGetDrawingRect = {};
        if (one.Drawn > 0) {
            Schema.OnGetDrawingRect = [&one](auto *, TzuDataEntity_SchemaTime *time, TRect &rect) {
                if (time->GetStopDateTime() == time->GetStartDateTime()) {
                    (one.Flip ? rect.Right : rect.Bottom) =
                        (one.Flip ? rect.Left - 1 : rect.Top) + one.Drawn;
                }
                return true;
            };
        }
        auto *moment = AddTime(0, 600, 600);
        auto *hour = AddTime(0, one.From, one.From + 60);
        Schema.UpdateSubColumnsNow();
        const std::string lanes = LaneOf(moment) + LaneOf(hour);
        EXPECT_EQ(lanes.find("/2") != std::string::npos, one.Collides)
            << one.From << ' ' << one.Flip << ' ' << one.Drawn << ' ' << lanes;
        Schema.RemoveSchemaTime(moment);
        Schema.RemoveSchemaTime(hour);
    }
    Schema.OnGetDrawingRect = {};
    // Two of the same moment stand beside each other.
    AddTime(0, 600, 600);
    AddTime(0, 600, 600);
    Schema.UpdateSubColumnsNow();
    EXPECT_EQ(Schema.Columns().GetCol(0).SubColCount(), 2);
}

TEST_F(SchemaLanes, OrderIsThatOfTheListsOrItsReverse)
{
    auto *first = AddTime(0, 540, 600);
    auto *second = AddTime(0, 570, 660);
    for (const bool inListOrder : {false, true}) {
        Schema.SetSubColsInListOrder(inListOrder);
        Schema.UpdateSubColumnsNow();
        EXPECT_EQ(LaneOf(first) + ' ' + LaneOf(second), inListOrder ? "0/2 1/2" : "1/2 0/2");
    }
}

TEST_F(SchemaLanes, WhatIsNotDrawnStaysWhereItIs)
{
    auto *drawn = AddTime(0, 60, 120);
    auto *hidden = AddTime(0, 180, 240);
    Schema.OnGetDrawingRect = [hidden](auto *, TzuDataEntity_SchemaTime *time, TRect &) {
        return time != hidden;
    };
    Schema.SelectAll();
    Schema.HandleMoveOfSelected({0, 30});
    Schema.HandleMoveOfSelectedFromTimeDiff(0, 1);
    EXPECT_EQ(drawn->Col(), 1);
    EXPECT_NEAR(drawn->GetStartDateTime(), 90 * test::kMinuteLength, 1e-9);
    EXPECT_EQ(hidden->Col(), 0);
    EXPECT_EQ(hidden->GetStartDateTime(), 180 * test::kMinuteLength);
    Schema.OnGetDrawingRect = {};
}

} // namespace
} // namespace korvane
