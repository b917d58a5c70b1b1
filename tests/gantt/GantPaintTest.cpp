#include "gantt/zuTimeDraw.h"
#include "support/FakeGantHost.h"

#include <gmock/gmock.h>

using namespace korvane;
using namespace korvane::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr TColor kItemColor = 0x123456;

struct GantPaint : testing::Test
{
    TestChart Chart;
    TestGant &Gant = *Chart.Gant;

    TzuDataEntity_Spanbar *AddColored(TGantRow *row, int from, int to)
    {
        TzuDataEntity_Spanbar *item = Chart.AddItem(row, from, to);
        item->SetColor(kItemColor);
        return item;
    }
    /// Rectangles filled in the items' colour.
    std::vector<TRect> ItemFills() const
    {
        std::vector<TRect> rects;
        for (const TCanvasCall &call : Chart.Host->Canvas.CallsOf(TCanvasOp::FillRect)) {
            if (call.Brush.Color == kItemColor) {
                rects.push_back(call.Rect);
            }
        }
        return rects;
    }
    /// The lines in a link's colour, without arrow heads.
    std::vector<std::vector<TPoint>> LinkLines(TColor color = clBlue) const
    {
        std::vector<std::vector<TPoint>> lines;
        for (const TCanvasCall &call : Chart.Host->Canvas.CallsOf(TCanvasOp::Polyline)) {
            if (call.Pen.Color == color && call.Points.size() > 2) {
                lines.push_back(call.Points);
            }
        }
        return lines;
    }
};

TEST_F(GantPaint, EveryStyleDrawsWithinItsRectangleInItsColor)
{
    constexpr TRect kRect{100, 20, 160, 36};
    const TSpanbarStyle styles[] = {
        TSpanbarStyle::sbsSquare,   TSpanbarStyle::sbsSpan, TSpanbarStyle::sbsLine,
        TSpanbarStyle::sbsLineWEnd, TSpanbarStyle::sbsWave, TSpanbarStyle::sbsRomb,
        TSpanbarStyle::sbsPipe,
    };
    TzuDataEntity_Spanbar *item = AddColored(Chart.AddRow(), 0, 10);
    for (const TSpanbarStyle style : styles) {
        SCOPED_TRACE(static_cast<int>(style));
        Chart.Host->Canvas.Clear();
        item->SetStyle(style);
        Gant.DrawContent(*item, kRect);
        ASSERT_FALSE(Chart.Host->Canvas.Calls().empty());
        for (const TCanvasCall &call : Chart.Host->Canvas.Calls()) {
            EXPECT_GE(call.Rect.Left, kRect.Left) << call;
            EXPECT_GE(call.Rect.Top, kRect.Top) << call;
            EXPECT_LE(call.Rect.Right, kRect.Right + 1) << call;
            EXPECT_LE(call.Rect.Bottom, kRect.Bottom + 1) << call;
        }
    }
}

TEST_F(GantPaint, ItemsFarLongerThanTheAreaCostAndReachNoMoreThanTheArea)
{
    constexpr TRect kHuge{-2'000'000'000, 20, 2'000'000'000, 36};
    TzuDataEntity_Spanbar *item = AddColored(Chart.AddRow(), 0, 10);
    item->SetSelected(true);
    for (int style = 0; style <= static_cast<int>(TSpanbarStyle::sbsPipe); ++style) {
        SCOPED_TRACE(style);
        Chart.Host->Canvas.Clear();
        item->SetStyle(static_cast<TSpanbarStyle>(style));
        Gant.DrawContent(*item, kHuge);
        for (const TCanvasCall &call : Chart.Host->Canvas.Calls()) {
            EXPECT_GT(call.Rect.Left, -1000) << call;
            EXPECT_LT(call.Rect.Right, 2000) << call;
            EXPECT_LT(call.Points.size(), 1000U);
        }
    }
}

TEST_F(GantPaint, WavesKeepTheirPlaceOnTheItemWhileTheAxisScrolls)
{
    TRecordingCanvas canvas({0, 0, 480, 180});
    TzuTimeDraw::WaveOutline(kItemColor, {-500, 0, 400, 16}, canvas);
    TzuTimeDraw::WaveOutline(kItemColor, {-507, 0, 393, 16}, canvas);
    const auto heightAt = [&](std::size_t call, int x) {
        const auto &points = canvas.Calls().at(call).Points;
        return std::ranges::find(points, x, &TPoint::X)->Y;
    };
    for (int x = 100; x < 130; ++x) {
        EXPECT_EQ(heightAt(0, x), heightAt(1, x - 7)) << x;
    }
}

TEST_F(GantPaint, UserDrawnItemsAreHandedToTheApplication)
{
    TzuDataEntity_Spanbar *item = AddColored(Chart.AddRow(), 10, 60);
    item->SetStyle(TSpanbarStyle::sbsUser);
    std::vector<TRect> rects;
    Gant.OnUserDrawTime = [&](TzuGant_ComBasic *, TzuDataEntity_Spanbar *drawn, TCanvas &,
                              const TRect &rect) {
        EXPECT_EQ(drawn, item);
        rects.push_back(rect);
    };
    Chart.Paint();
    EXPECT_THAT(rects, ElementsAre(TRect{10, 1, 60, 17}));
    EXPECT_THAT(ItemFills(), IsEmpty());
}

TEST_F(GantPaint, InsetsShrinkItemsUnlessSubRowsLieNextToThem)
{
    struct TCase
    {
        int UseSubCols;
        int SubCol;
        TRect Drawn;
    };
    const TCase cases[] = {
        {0, 0, {10, 4, 60, 12}},  // both insets
        {3, 1, {10, 4, 60, 6}},   // flush with the sub-row below
        {3, 2, {10, 6, 60, 11}},  // flush with both
        {3, 3, {10, 11, 60, 11}}, // flush with the sub-row above
        {3, 0, {10, 4, 60, 12}},  // spans the row
    };
    TGantRow *row = Chart.AddRow();
    TzuDataEntity_Spanbar *item = AddColored(row, 10, 60);
    item->SetInsetTop(3);
    item->SetInsetBottom(5);
    row->SetCollisionDetection(true);
    for (const TCase &c : cases) {
        SCOPED_TRACE(&c - cases);
        row->SetUseSubCols(c.UseSubCols);
        item->SetSubCol(c.SubCol);
        Chart.Paint();
        EXPECT_THAT(ItemFills(), ElementsAre(c.Drawn));
    }
}

TEST_F(GantPaint, OnlyVisibleItemsWithinTheVisibleTimeAreDrawnInLayerOrder)
{
    TGantRow *row = Chart.AddRow();
    TzuDataEntity_Spanbar *above = Chart.AddItem(row, 100, 110, 1);
    above->SetColor(kItemColor);
    AddColored(row, 90, 120);
    AddColored(row, -50, -10);
    AddColored(row, 480, 500);
    AddColored(row, -50, 2);
    AddColored(row, 10, 60)->SetVisible(false);
    Chart.Paint();
    EXPECT_THAT(ItemFills(),
                ElementsAre(TRect{90, 1, 120, 17}, TRect{-50, 1, 2, 17}, TRect{100, 1, 110, 17}));
    row->SetDrawLayerStart(1);
    Chart.Paint();
    EXPECT_THAT(ItemFills(), ElementsAre(TRect{100, 1, 110, 17}));
}

TEST_F(GantPaint, SelectedAndActiveItemsAreMarked)
{
    TGantRow *row = Chart.AddRow();
    TzuDataEntity_Spanbar *item = AddColored(row, 10, 60);
    Chart.Paint();
    const std::size_t plain = Chart.Host->Canvas.Calls().size();
    Gant.SetActiveDataEntity(item);
    Chart.Paint();
    const auto focus = Chart.Host->Canvas.CallsOf(TCanvasOp::FocusRect);
    ASSERT_EQ(focus.size(), 1U);
    EXPECT_EQ(focus[0].Rect, (TRect{10, 1, 60, 17}));
    EXPECT_EQ(Chart.Host->Canvas.Calls().size(), plain + 1);
    item->SetSelected(true);
    Chart.Paint();
    const auto marks = Chart.Host->Canvas.Where(
        [](const TCanvasCall &call) { return call.Brush.Color == clHighlight; });
    EXPECT_FALSE(marks.empty());
}

TEST_F(GantPaint, TextsUseTheFontOfTheirStyle)
{
    TFont second;
    second.Size = 20;
    Gant.SetFontTimeItemStyle(2, second);
    TzuTimeItemTextCollection &texts = AddColored(Chart.AddRow(), 10, 100)->Texts();
    texts.AddText("plain", 2, 1, 1);
    texts.AddText("large", 2, 1, 2);
    texts.AddText("other", 2, 1, 7);
    Chart.Paint();
    const auto drawn = Chart.Host->Canvas.CallsOf(TCanvasOp::Text);
    ASSERT_EQ(drawn.size(), 3U);
    EXPECT_EQ(drawn[0].Font, TFont{});
    EXPECT_EQ(drawn[1].Font, second);
    EXPECT_EQ(drawn[2].Font, TFont{});
    EXPECT_EQ(drawn[0].Clip, (TRect{12, 2, 99, 16}));
    EXPECT_EQ(Chart.Host->ResizedFonts, 3);
}

TEST_F(GantPaint, LinksAreDrawnInListOrderByTheirStyleAndColor)
{
    TGantRow *upper = Chart.AddRow();
    TGantRow *lower = Chart.AddRow();
    TzuDataEntity_Spanbar *a = Chart.AddItem(upper, 10, 60);
    TzuDataEntity_Spanbar *b = Chart.AddItem(lower, 100, 150);
    TzuDataEntity_Spanbar *sameRow = Chart.AddItem(upper, 200, 250);
    Chart.Link(a, b);
    Chart.Link(b, a).SetStyle(TLinkStyle::tlsMSProject);
    Chart.Link(a, sameRow).SetStyle(TLinkStyle::tlsMSProject);
    Chart.Link(a, nullptr);
    Chart.Link(nullptr, b);
    Chart.Paint();
    EXPECT_THAT(
        LinkLines(),
        ElementsAre(ElementsAre(TPoint{60, 9}, TPoint{92, 9}, TPoint{92, 27}, TPoint{100, 27}),
                    ElementsAre(TPoint{100, 27}, TPoint{60, 27}, TPoint{60, 17}),
                    // On one row always in the default style.
                    ElementsAre(TPoint{60, 9}, TPoint{192, 9}, TPoint{192, 9}, TPoint{200, 9})));
    EXPECT_EQ(Chart.Host->Canvas.CallsOf(TCanvasOp::Polygon).size(), 1U) << "one filled head";
}

TEST_F(GantPaint, LinksAreShownAsLinkShowAsks)
{
    TGantRow *upper = Chart.AddRow();
    TGantRow *lower = Chart.AddRow();
    TzuDataEntity_Spanbar *visible = Chart.AddItem(upper, 10, 60);
    TzuDataEntity_Spanbar *later = Chart.AddItem(lower, 500, 550);
    TzuDataEntity_Spanbar *later2 = Chart.AddItem(upper, 600, 650);
    Chart.Link(visible, later);
    Chart.Link(later, later2);
    struct TCase
    {
        TLinkShow Show;
        std::size_t Lines; ///< of those that pass through the area
    };
    const TCase cases[] = {{TLinkShow::lsOneEndVisible, 1},
                           {TLinkShow::lsBothEndsVisible, 0},
                           {TLinkShow::lsAlways, 1}};
    for (const TCase &c : cases) {
        Gant.SetLinkShow(c.Show);
        Chart.Paint();
        EXPECT_EQ(LinkLines().size(), c.Lines) << static_cast<int>(c.Show);
    }
}

TEST_F(GantPaint, ALinkToARowScrolledAwayIsAStubAndOneToACollapsedRowIsNotDrawn)
{
    TzuDataEntity_Tree *parent = Chart.AddNode();
    TzuDataEntity_Spanbar *inside = Gant.AddSpanbar(Chart.AddNode(parent), 0);
    TzuDataEntity_Spanbar *top = Chart.AddItem(Gant.GantRows().FindRowFromTreeNode(parent), 10, 60);
    TzuDataEntity_Spanbar *last = Chart.AddItem(Chart.AddRow(), 100, 150);
    Chart.Link(last, top);
    Chart.Link(last, inside);
    Gant.SetLinkShow(TLinkShow::lsAlways);
    Chart.View.Shown.TopRow = 1; // the parent's line is above the window
    Chart.Paint();
    EXPECT_THAT(LinkLines(), ElementsAre(ElementsAre(TPoint{100, 9}, TPoint{98, 9}, TPoint{98, 9},
                                                     TPoint{90, 9})));
}

TEST_F(GantPaint, UserDrawnLinksAreHandedToTheApplicationAlsoOnOneRow)
{
    TGantRow *row = Chart.AddRow();
    TzuDataEntity_Link &link = Chart.Link(Chart.AddItem(row, 10, 60), Chart.AddItem(row, 100, 150));
    link.SetStyle(TLinkStyle::tlsUserDraw);
    std::vector<TPoint> points;
    Gant.OnUserDrawLinks = [&](TzuGant_ComBasic *, TzuDataEntity_Link *drawn, TCanvas &,
                               TPoint start, TPoint end) {
        EXPECT_EQ(drawn, &link);
        points = {start, end};
    };
    Chart.Paint();
    EXPECT_THAT(points, ElementsAre(TPoint{60, 9}, TPoint{100, 9}));
    EXPECT_THAT(LinkLines(), IsEmpty());
}

TEST_F(GantPaint, BackgroundIsACheckerboardOrStripesOrTheApplications)
{
    Chart.AddRow();
    Chart.Paint();
    const auto &calls = Chart.Host->Canvas.Calls();
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls[0].Rect, (TRect{0, 0, 480, 180}));
    EXPECT_EQ(calls[0].Brush.Pattern, (std::array<TColor, 4>{clSilver, clGray, clGray, clSilver}));

    // The axis shows three weeks from a Monday, as one major period each.
    Gant.SetVerticalPyjamas(true);
    Chart.Paint();
    std::vector<std::pair<int, TBrushStyle>> stripes;
    for (const TCanvasCall &call : Chart.Host->Canvas.CallsOf(TCanvasOp::FillRect)) {
        if (call.Rect.Height() == 180 && call.Rect.Width() > 1) {
            stripes.emplace_back(call.Rect.Left, call.Brush.Style);
        }
    }
    ASSERT_EQ(stripes.size(), 3U);
    EXPECT_EQ(stripes[1].first, 168);
    EXPECT_NE(stripes[0].second, stripes[1].second);
    EXPECT_EQ(stripes[0].second, stripes[2].second);

    int drawn = 0;
    Gant.OnUserDrawBackground = [&](TzuGant_ComBasic *, const TRect &rect, TCanvas &) {
        EXPECT_EQ(rect, (TRect{0, 0, 480, 180}));
        ++drawn;
    };
    Chart.Paint();
    EXPECT_EQ(drawn, 1);
    EXPECT_THAT(Chart.Host->Canvas.Calls(), IsEmpty());
}

} // namespace
