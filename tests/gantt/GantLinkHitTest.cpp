#include "support/NamedItems.h"

#include <gmock/gmock.h>

using namespace korvane;
using namespace korvane::test;
using testing::ElementsAre;

namespace {

/// Two rows: a at 20..60 above b at 100..140, joined by a link that leaves a at (60, 9), turns at
/// 92 and enters b at (100, 27).
struct GantLinkHit : NamedItems
{
    TzuDataEntity_Link *Link = nullptr;

    GantLinkHit()
    {
        Add('a', Chart.AddRow(), 20, 60);
        Add('b', Chart.AddRow(), 100, 140);
        Link = &Chart.Link(Items.at('a'), Items.at('b'));
        Chart.Paint();
    }

    std::vector<TCanvasCall> WideLines() const
    {
        std::vector<TCanvasCall> lines = Chart.Host->Canvas.CallsOf(TCanvasOp::Polyline);
        std::erase_if(lines, [](const TCanvasCall &call) { return call.Pen.Width < 2; });
        return lines;
    }
};

TEST(DistanceToLine, IsThatToTheNearestPointOfAnySegment)
{
    const std::vector<TPoint> bent{{0, 0}, {10, 0}, {10, 10}};
    struct TCase
    {
        TPoint Point;
        double Distance;
    };
    const TCase cases[] = {{{5, 0}, 0}, {{5, 3}, 3}, {{-3, -4}, 5}, {{13, 14}, 5}, {{12, 5}, 2}};
    for (const TCase &c : cases) {
        EXPECT_DOUBLE_EQ(DistanceToLine(bent, c.Point), c.Distance);
    }
    EXPECT_GT(DistanceToLine({}, {}), 1e9);
    const std::vector<TPoint> far{{-2'000'000'000, 0}, {2'000'000'000, 0}};
    EXPECT_DOUBLE_EQ(DistanceToLine(far, {17, 2}), 2);
}

TEST_F(GantLinkHit, EveryStyleIsHitWithinThreePixelsOfWhereItIsDrawn)
{
    struct TCase
    {
        TLinkStyle Style;
        TPoint Point;
        bool Hit;
    };
    const TCase cases[] = {
        {TLinkStyle::tlsDefault, {75, 9}, true},     {TLinkStyle::tlsDefault, {75, 12}, true},
        {TLinkStyle::tlsDefault, {75, 13}, false},   {TLinkStyle::tlsDefault, {92, 18}, true},
        {TLinkStyle::tlsDefault, {96, 18}, false},   {TLinkStyle::tlsMSProject, {92, 9}, true},
        {TLinkStyle::tlsMSProject, {92, 15}, false}, {TLinkStyle::tlsMSProject, {100, 15}, true},
        {TLinkStyle::tlsUserDraw, {75, 9}, false},
    };
    for (const TCase &c : cases) {
        SCOPED_TRACE(&c - cases);
        Link->SetStyle(c.Style);
        Chart.Paint();
        EXPECT_EQ(Gant.GetLinkFromXY(c.Point.X, c.Point.Y), c.Hit ? Link : nullptr);
    }

    Gant.OnLinkRoute = [](auto, auto, TPoint start, TPoint end, std::vector<TPoint> &route) {
        route = {start, end};
    };
    Chart.Paint();
    EXPECT_EQ(Gant.GetLinkFromXY(80, 18), Link) << "where the application says";
    Chart.Host->PrintScale = {2, 2};
    Chart.Paint();
    EXPECT_EQ(Gant.GetLinkFromXY(80, 18), Link) << "a print changes nothing on screen";
}

TEST_F(GantLinkHit, TheClosestLinkIsHitAndOfEqualOnesTheTopmost)
{
    TzuDataEntity_Spanbar *c = Add('c', Chart.AddRow(), 100, 140);
    TzuDataEntity_Link &second = Chart.Link(Items.at('a'), c);
    Chart.Paint();
    EXPECT_EQ(Gant.GetLinkFromXY(75, 9), &second);
    EXPECT_EQ(Gant.GetLinkFromXY(97, 27), Link);
    Gant.GetLinks().Remove(&second);
    EXPECT_EQ(Gant.GetLinkFromXY(75, 9), nullptr) << "nothing is known until the next paint";
    Chart.Paint();
    EXPECT_EQ(Gant.GetLinkFromXY(75, 9), Link);
    Items.at('a')->SetVisible(true);
    Gant.GetLinks().Unload(0, TBlockEnd::Back);
    EXPECT_EQ(Gant.GetLinkFromXY(75, 9), nullptr);
}

TEST_F(GantLinkHit, PointedAtAndSelectedLinksAreMarked)
{
    EXPECT_TRUE(WideLines().empty());
    Gant.PointAt(75, 9);
    EXPECT_EQ(Gant.HoverLink(), Link);
    Chart.Paint();
    ASSERT_EQ(WideLines().size(), 1U);
    EXPECT_EQ(WideLines()[0].Pen.Color, Link->GetColor());

    Link->SetSelected(true);
    Chart.Paint();
    ASSERT_EQ(WideLines().size(), 1U);
    EXPECT_EQ(WideLines()[0].Pen.Color, clHighlight);

    Gant.PointAt(60, 9);
    EXPECT_EQ(Gant.HoverLink(), Link) << "beside the item";
    Gant.PointAt(59, 9);
    EXPECT_EQ(Gant.HoverLink(), nullptr) << "the item comes first";
    Gant.PointAt(75, 9);
    Gant.GetLinks().Remove(Link);
    EXPECT_EQ(Gant.HoverLink(), nullptr);
}

TEST_F(GantLinkHit, AClickSelectsALinkAndBeginsNoRubberBand)
{
    const auto press = [this](int x) { Gant.GantAreaMouseDown(TMouseButton::mbLeft, {}, x, 9); };
    const auto release = [this](int x) { Gant.GantAreaMouseUp(TMouseButton::mbLeft, {}, x, 9); };
    Select("a");
    press(75);
    EXPECT_TRUE(Link->GetSelected());
    EXPECT_EQ(Selected(), "");
    Gant.GantAreaMouseMove({}, 20, 9);
    release(20);
    EXPECT_TRUE(Link->GetSelected());
    EXPECT_EQ(Selected(), "");
    press(30);
    release(30);
    EXPECT_FALSE(Link->GetSelected());
    EXPECT_EQ(Selected(), "a");
    press(75);
    Gant.GetLinks().Remove(Link);
    release(75);
    EXPECT_TRUE(Gant.SelectedLinks().empty());
}

TEST_F(GantLinkHit, HintsNameItemsAndTheEndsOfLinksUnlessTheApplicationSaysOtherwise)
{
    Items.at('a')->Texts().AddText("Dig", 0, 0, 1);
    Items.at('b')->GetRow()->TreeNode()->SetText("Build");
    EXPECT_EQ(Gant.HintAt(30, 9).Text, "Dig\n2009-07-06 20:00 \u2013 2009-07-08 12:00");
    EXPECT_EQ(Gant.HintAt(30, 9).Rect, (TRect{20, 1, 60, 17}));
    EXPECT_EQ(Gant.HintAt(75, 9).Text, "Dig \u2192 Build");
    EXPECT_EQ(Gant.HintAt(300, 9).Text, "");

    Gant.OnItemHint = [](auto, auto, std::string &text) { text.clear(); };
    Gant.OnLinkHint = [this](auto, TzuDataEntity_Link *link, std::string &text) {
        EXPECT_EQ(link, Link);
        text += "!";
    };
    EXPECT_EQ(Gant.HintAt(30, 9).Text, "");
    EXPECT_EQ(Gant.HintAt(75, 9).Text, "Dig \u2192 Build!");
}

} // namespace
