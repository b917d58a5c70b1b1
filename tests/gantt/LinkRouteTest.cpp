#include "gantt/zuGantLinks.h"

#include <gmock/gmock.h>

using namespace korvane;
using testing::ElementsAre;

namespace korvane {

void PrintTo(const TPoint &point, std::ostream *out)
{
    *out << '(' << point.X << ", " << point.Y << ')';
}

} // namespace korvane

namespace {

constexpr TRect kLeftItem{10, 20, 50, 36};
constexpr TRect kRightItem{100, 60, 140, 76};

TLinkEnd OnScreen(const TRect &rect)
{
    return {rect, true, true};
}

TEST(LinkShow, AsksForTheEndsThatEachSettingNames)
{
    struct TCase
    {
        TLinkEnd First;
        TLinkEnd Second;
        bool OneEnd;
        bool BothEnds;
        bool Always;
    };
    const TLinkEnd inView{kLeftItem, true, true};
    const TLinkEnd otherTime{kRightItem, true, false};
    const TLinkEnd scrolledAway{};
    const TCase cases[] = {
        {inView, inView, true, true, true},
        {inView, otherTime, true, false, true},
        {scrolledAway, inView, true, false, true},
        {otherTime, otherTime, false, false, true},
        {otherTime, scrolledAway, false, false, true},
        {scrolledAway, scrolledAway, false, false, false},
    };
    for (const TCase &c : cases) {
        SCOPED_TRACE(&c - cases);
        EXPECT_EQ(IsLinkShown(c.First, c.Second, TLinkShow::lsOneEndVisible), c.OneEnd);
        EXPECT_EQ(IsLinkShown(c.First, c.Second, TLinkShow::lsBothEndsVisible), c.BothEnds);
        EXPECT_EQ(IsLinkShown(c.First, c.Second, TLinkShow::lsAlways), c.Always);
    }
}

TEST(LinkPoints, LeaveAndEnterAtTheSidesThatFaceEachOther)
{
    const TLinkPoints right = LinkPoints(OnScreen(kLeftItem), OnScreen(kRightItem), {});
    EXPECT_EQ(right.Start, (TPoint{50, 28}));
    EXPECT_EQ(right.End, (TPoint{100, 68}));
    EXPECT_EQ(right.Heading, 1);

    const TLinkPoints left = LinkPoints(OnScreen(kRightItem), OnScreen(kLeftItem), {});
    EXPECT_EQ(left.Start, (TPoint{100, 68}));
    EXPECT_EQ(left.End, (TPoint{50, 28}));
    EXPECT_EQ(left.Heading, -1);

    // With the same middle the first item counts as the later one.
    const TLinkPoints same = LinkPoints(OnScreen(kLeftItem), OnScreen(kLeftItem), {});
    EXPECT_EQ(same.Start.X, kLeftItem.Left);
    EXPECT_EQ(same.End.X, kLeftItem.Right);
}

TEST(LinkPoints, OfTwoSegmentsEnterFromAboveOrBelow)
{
    constexpr auto kStyle = TLinkStyle::tlsMSProject;
    EXPECT_EQ(LinkPoints(OnScreen(kLeftItem), OnScreen(kRightItem), kStyle).End.Y, kRightItem.Top);
    EXPECT_EQ(LinkPoints(OnScreen(kRightItem), OnScreen(kLeftItem), kStyle).End.Y,
              kLeftItem.Bottom);
    // At the same height from below.
    EXPECT_EQ(LinkPoints(OnScreen(kLeftItem), OnScreen(kLeftItem), kStyle).End.Y, kLeftItem.Bottom);
}

TEST(LinkPoints, PutAStubBesideTheItemWhoseOtherEndIsScrolledAway)
{
    // The second item stands in at 10 pixels left of the first, as wide as the first.
    const TLinkPoints secondAway = LinkPoints(OnScreen(kLeftItem), TLinkEnd{}, {});
    EXPECT_EQ(secondAway.Start, (TPoint{10, 28}));
    EXPECT_EQ(secondAway.End, (TPoint{0, 28}));

    // The first item stands in at 10 pixels right of the second.
    const TLinkPoints firstAway = LinkPoints(TLinkEnd{}, OnScreen(kRightItem), {});
    EXPECT_EQ(firstAway.Start, (TPoint{150, 68}));
    EXPECT_EQ(firstAway.End, (TPoint{140, 68}));
}

TEST(LinkRoute, DefaultStyleIsOutAcrossAndInWithTheHeadOutsideTheItem)
{
    struct TCase
    {
        const char *Name;
        TLinkPoints Points;
    };
    const TCase cases[] = {
        {"room between", {{50, 28}, {100, 68}, 1}},
        {"touching", {{100, 28}, {100, 68}, 1}},
        {"overlapping", {{130, 28}, {100, 68}, 1}},
        {"leftwards", {{100, 68}, {50, 28}, -1}},
        {"leftwards, overlapping", {{40, 68}, {50, 28}, -1}},
    };
    for (const TCase &c : cases) {
        SCOPED_TRACE(c.Name);
        const TLinkRoute route(c.Points, TLinkStyle::tlsDefault);
        const auto line = route.Line();
        ASSERT_EQ(line.size(), 4U);
        EXPECT_EQ(line[0], c.Points.Start);
        EXPECT_EQ(line[1].Y, line[0].Y);
        EXPECT_EQ(line[2].X, line[1].X);
        EXPECT_EQ(line[2].Y, line[3].Y);
        EXPECT_EQ(line[3], c.Points.End);
        const auto head = route.ArrowHead();
        EXPECT_EQ(head[0], c.Points.End);
        EXPECT_EQ(head[1], (TPoint{c.Points.End.X - 3 * c.Points.Heading, c.Points.End.Y - 3}));
        EXPECT_EQ(head[2], (TPoint{c.Points.End.X - 3 * c.Points.Heading, c.Points.End.Y + 3}));
    }
}

TEST(LinkRoute, OfTwoSegmentsPointsDownOrUp)
{
    const TLinkRoute down({{50, 28}, {100, 60}}, TLinkStyle::tlsMSProject);
    EXPECT_THAT(down.Line(), ElementsAre(TPoint{50, 28}, TPoint{100, 28}, TPoint{100, 60}));
    EXPECT_THAT(down.ArrowHead(), ElementsAre(TPoint{100, 60}, TPoint{97, 57}, TPoint{103, 57}));

    const TLinkRoute up({{100, 68}, {50, 36}, -1}, TLinkStyle::tlsMSProject);
    EXPECT_THAT(up.ArrowHead(), ElementsAre(TPoint{50, 36}, TPoint{47, 39}, TPoint{53, 39}));
}

TEST(LinkRoute, PassesThroughAWindowOnlyWhereASegmentRuns)
{
    const TLinkRoute route({{50, 28}, {100, 68}, 1}, TLinkStyle::tlsDefault); // turns at x = 92
    struct TCase
    {
        TRect Window;
        bool Passes;
    };
    const TCase cases[] = {
        {{0, 0, 200, 100}, true},    {{60, 28, 61, 29}, true},  {{60, 29, 80, 60}, false},
        {{92, 40, 93, 41}, true},    {{91, 40, 92, 41}, false}, {{100, 68, 101, 69}, true},
        {{101, 60, 120, 80}, false}, {{0, 0, 50, 100}, false},
    };
    for (const TCase &c : cases) {
        EXPECT_EQ(route.LinePassesThroughWindow(c.Window), c.Passes)
            << c.Window.Left << ' ' << c.Window.Top;
    }
}

} // namespace
