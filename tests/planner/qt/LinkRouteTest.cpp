#include "LinkRoute.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace korvane::planner {
namespace {

/// Bars of 40 by 16 pixels in rows 24 pixels apart.
LinkEnd Bar(int left, int row)
{
    return {{left, row * 24 + 4, left + 40, row * 24 + 20}, false};
}

LinkEnd Diamond(int middle, int row)
{
    return {{middle - 8, row * 24 + 4, middle + 8, row * 24 + 20}, true};
}

std::string Text(const LinkRoute &route)
{
    std::string text;
    for (const TPoint &point : route.Line()) {
        text += (text.empty() ? "" : " ") + std::to_string(point.X) + ',' + std::to_string(point.Y);
    }
    const auto head = route.ArrowHead();
    const bool flat = head[1].X == head[2].X;
    const int base = flat ? head[1].X - head[0].X : head[1].Y - head[0].Y;
    return text + (flat ? (base < 0 ? " >" : " <") : (base < 0 ? " v" : " ^"));
}

TEST(LinkRoute, JoinsTheEndsThatTheTypeNames)
{
    using enum PlanLinkType;
    struct Case
    {
        const char *What;
        PlanLinkType Type;
        LinkEnd From;
        LinkEnd To;
        const char *Route;
    };
    const Case cases[] = {
        {"room before the successor", FinishToStart, Bar(0, 0), Bar(100, 2),
         "35,20 35,60 100,60 >"},
        {"the successor above", FinishToStart, Bar(0, 2), Bar(100, 0), "35,51 35,12 100,12 >"},
        {"the successor begins at once", FinishToStart, Bar(0, 0), Bar(40, 1),
         "35,20 35,21 44,21 44,27 v"},
        {"the successor begins earlier", FinishToStart, Bar(200, 1), Bar(0, 0),
         "235,27 235,26 4,26 4,20 ^"},
        {"from a milestone", FinishToStart, Diamond(50, 0), Bar(100, 1), "50,20 50,36 100,36 >"},
        {"to a milestone right below", FinishToStart, Bar(0, 0), Diamond(35, 1),
         "35,20 35,21 35,21 35,27 v"},
        {"start to finish", StartToFinish, Bar(200, 0), Bar(0, 1), "204,20 204,36 39,36 <"},
        {"start to start", StartToStart, Bar(50, 0), Bar(20, 1), "50,12 10,12 10,36 20,36 >"},
        {"finish to finish", FinishToFinish, Bar(0, 0), Bar(20, 1), "39,12 69,12 69,36 59,36 <"},
    };
    for (const Case &route : cases) {
        EXPECT_EQ(Text(LinkRoute(route.Type, route.From, route.To)), route.Route) << route.What;
    }
}

} // namespace
} // namespace korvane::planner
