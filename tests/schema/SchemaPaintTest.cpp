#include "SchemaFixture.h"
#include "support/WaitUntil.h"

namespace korvane {
namespace {

using test::TCanvasCall;
using test::TCanvasOp;
using testing::ElementsAre;

struct SchemaPaint : test::TSchemaFixture
{
    std::vector<TRect> Filled(const std::vector<TCanvasCall> &calls, TBrush brush)
    {
        std::vector<TRect> rects;
        for (const TCanvasCall &call : calls) {
            if (call.Op == TCanvasOp::FillRect && call.Brush == brush) {
                rects.push_back(call.Rect);
            }
        }
        return rects;
    }
};

const TBrush kChecker{clGreen, TBrushStyle::bsPattern, {clGreen, clOlive, clOlive, clGreen}};

TEST_F(SchemaPaint, EveryOtherColumnIsAChecker)
{
    Host.Area = {500, 300};
    EXPECT_THAT(Filled(Paint(), kChecker),
                ElementsAre(TRect{120, 0, 240, 300}, TRect{360, 0, 480, 300}))
        << "and so are the stripes behind the last column";
    Schema.Columns().SetTopLeftCol(1);
    EXPECT_THAT(
        Filled(Paint(), kChecker),
        ElementsAre(TRect{0, 0, 120, 300}, TRect{240, 0, 360, 300}, TRect{480, 0, 500, 300}))
        << "the pattern stays with the columns";
    Schema.SetFlipView(true);
    Host.Area = {300, 60};
    EXPECT_THAT(Filled(Paint(), kChecker),
                ElementsAre(TRect{0, 1, 300, 19}, TRect{0, 39, 300, 57}));
    Host.Printing = true;
    EXPECT_THAT(Filled(Paint(), {clOlive, TBrushStyle::bsSolid, {}}), testing::SizeIs(2));
    EXPECT_THAT(Filled(Paint(), {clGreen, TBrushStyle::bsSolid, {}}), testing::SizeIs(0))
        << "the paper stays white";
}

TEST_F(SchemaPaint, LinesFollowMarksAndColumns)
{
    Host.Area = {400, 1440};
    const auto lines = [this](TColor color) {
        Paint();
        return Host.Canvas.Where([color](const TCanvasCall &call) {
            return call.Op == TCanvasOp::Polyline && call.Pen.Color == color;
        });
    };
    const auto uprights = [&] {
        std::vector<int> at;
        for (const TCanvasCall &line : lines(clBackground)) {
            if (line.Points[0].X == line.Points[1].X) {
                at.push_back(line.Points[0].X);
            }
        }
        return at;
    };
    EXPECT_THAT(uprights(), ElementsAre(120, 240, 360));
    EXPECT_EQ(lines(clSilver).size(), 0U);
    Schema.SetDrawShortLines(true);
    const auto &marks = Day.Axis->PrimaryMarks();
    const bool dense = marks[1].Pixel - marks[0].Pixel < 30;
    std::vector<int> expected;
    for (std::size_t i = 0; i < marks.size(); i += dense ? 2 : 1) {
        if (marks[i].Pixel >= 0 && marks[i].Pixel < 1440) {
            expected.push_back(marks[i].Pixel);
        }
    }
    std::vector<int> drawn;
    for (const TCanvasCall &line : lines(clSilver)) {
        drawn.push_back(line.Points[0].Y);
    }
    EXPECT_EQ(drawn, expected);
    EXPECT_GT(drawn.size(), 3U);
}

TEST_F(SchemaPaint, ATimeIsABlockWithAFrameAndItsTexts)
{
    auto *time = AddTime(0, 100, 150);
    time->SetColor(clRed);
    time->SetFrameColor(clBlue);
    time->AddText("first", 4, 6, 2);
    time->AddText("", 0, 0, 0);
    time->AddText("below", 4, 60, 0);
    time->AddText("own", 10, 20, 7);
    TFont font;
    font.Size = 17;
    Schema.SetTextFont(2, font);
    Paint();
    const auto texts = Host.Canvas.CallsOf(TCanvasOp::Text);
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts[0].Font.Size, 17);
    EXPECT_EQ(texts[0].Rect.Left, 5);
    EXPECT_EQ(texts[0].Rect.Top, 106);
    EXPECT_EQ(texts[0].Clip, (TRect{5, 106, 119, 149}));
    EXPECT_EQ(texts[1].Font.Name, "Own");
    EXPECT_EQ(Filled(Host.Canvas.Calls(), {clRed, TBrushStyle::bsSolid, {}}),
              std::vector<TRect>{RectOf(time)});
    ASSERT_EQ(Host.Canvas.CallsOf(TCanvasOp::FrameRect).size(), 1U);
    EXPECT_EQ(Host.Canvas.CallsOf(TCanvasOp::FrameRect)[0].Brush.Color, clBlue);
}

TEST_F(SchemaPaint, TheFirstTimeLiesOnTop)
{
    AddTime(0, 100, 200)->SetColor(1);
    AddTime(0, 100, 200)->SetColor(2);
    AddTime(0, 100, 200, 1)->SetColor(3);
    std::vector<TColor> order;
    Schema.OnDrawTimeContent = [&](TzuSchema_ComBasic *, TzuDataEntity_SchemaTime *time,
                                   const TRect &, TCanvas &) { order.push_back(time->Color()); };
    Paint();
    EXPECT_THAT(order, ElementsAre(3U, 2U, 1U));
    Schema.SetDrawLayers({1, 0});
    order.clear();
    Paint();
    EXPECT_THAT(order, ElementsAre(2U, 1U, 3U));
}

TEST_F(SchemaPaint, OverlappingTimesShareTheirColumn)
{
    auto *first = AddTime(0, 540, 600);
    auto *second = AddTime(0, 570, 660);
    auto *other = AddTime(0, 560, 580, 1);
    const auto done = [&] { return first->InSubCol(); };
    TDoLater::DoAllNow();
    ASSERT_TRUE(test::WaitUntil(done));
    // The time added last is placed first.
    EXPECT_EQ(second->SubCol(), 0);
    EXPECT_EQ(first->SubCol(), 1);
    EXPECT_EQ(Schema.Columns().GetCol(0).SubColCount(), 2);
    EXPECT_EQ(RectOf(second), (TRect{1, 570, 60, 660}));
    EXPECT_EQ(RectOf(first), (TRect{61, 540, 120, 600}));
    EXPECT_FALSE(other->InSubCol());

    Schema.SetCollisionDetectBetweenDataList(true);
    TDoLater::DoAllNow();
    ASSERT_TRUE(test::WaitUntil([&] { return other->InSubCol(); }));
    EXPECT_EQ(Schema.Columns().GetCol(0).SubColCount(), 3);
    Schema.SetLeastSubColWidth(50);
    EXPECT_EQ(Schema.Columns().GetCol(0).GetWidth(), 150);
    EXPECT_EQ(Schema.Columns().GetCol(1).GetWidth(), 120);

    Schema.SetCollisionDetect(false);
    EXPECT_FALSE(first->InSubCol() || second->InSubCol() || other->InSubCol());
    EXPECT_EQ(Schema.Columns().GetCol(0).SubColCount(), 3);
    EXPECT_EQ(RectOf(first), (TRect{1, 540, 150, 600}));
}

} // namespace
} // namespace korvane
