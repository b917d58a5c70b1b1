// What the tests of the schedule's core share.
#pragma once

#include "support/FakeSchemaHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korvane::test {

/// Three columns of 120 pixels (18 when flipped) under an axis of a minute per pixel.
struct TSchemaFixture : testing::Test
{
    TDayAxis Day;
    FakeSchemaHost Host{*Day.Axis};
    TestSchema Schema{Host};

    TSchemaFixture() { AddColumns(3); }

    void AddColumns(int count)
    {
        for (int i = 0; i < count; ++i) {
            Schema.AddColumn()->SetText("Column " + std::to_string(Schema.Columns().Count() - 1));
        }
    }
    /// A time from one minute of the day to another.
    TzuDataEntity_SchemaTime *AddTime(int col, int from, int to, int list = 0)
    {
        auto *time = Schema.AddSchemaTime(list);
        time->SetCol(col);
        time->SetStartDateTime(from * kMinuteLength);
        time->SetStopDateTime(to * kMinuteLength);
        return time;
    }
    TRect RectOf(TzuDataEntity_SchemaTime *time)
    {
        return Schema.RectFromDataEntity(*time).value_or(TRect{});
    }
    std::vector<TCanvasCall> Paint()
    {
        Host.Canvas.Clear();
        Schema.SchemaPaint();
        return Host.Canvas.Calls();
    }
};

} // namespace korvane::test
