#include "foundation/zuDateUtils.h"
#include "printing/zuPrintFields.h"
#include "printing/zuPrintLayout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

namespace korvane {
namespace {

using testing::ElementsAre;

std::vector<double> Ends(const std::vector<TPageSpan> &pages)
{
    std::vector<double> ends;
    for (const TPageSpan &page : pages) {
        ends.push_back(page.To);
    }
    return ends;
}

// Four groups of three: heading, sub-heading, row.
TPrintRows Outline(int maxHeadings)
{
    return {{-1, 0, 1, -1, 3, 4, -1, 6, 7, -1, 9, 10}, 10, maxHeadings};
}

TEST(PageBreaks, FallBetweenRowsAndLeaveRoomForHeadings)
{
    EXPECT_THAT(Ends(SplitIntoPages(Outline(0), 39)), ElementsAre(30, 60, 90, 120));
    // A heading goes to the page of the first row below it.
    EXPECT_THAT(Ends(SplitIntoPages(Outline(0), 45)), ElementsAre(30, 60, 90, 120));
    EXPECT_THAT(Ends(SplitIntoPages(Outline(0), 75)), ElementsAre(60, 120));
    EXPECT_THAT(Ends(SplitIntoPages(Outline(0), 120)), ElementsAre(120));
    // Pages 2, 4 and 6 go on with a group.
    const TPrintRows groups({-1, 0, 0, 0, -1, 4, 4, 4, -1, 8, 8, 8}, 10, 4);
    EXPECT_THAT(SplitIntoPages(groups, 35),
                ElementsAre(TPageSpan{0, 30, 0}, TPageSpan{30, 40, 10}, TPageSpan{40, 70, 0},
                            TPageSpan{70, 80, 10}, TPageSpan{80, 110, 0}, TPageSpan{110, 120, 10}));
    EXPECT_THAT(Outline(4).HeadingsAt(5), ElementsAre(3, 4));
    EXPECT_THAT(Outline(1).HeadingsAt(5), ElementsAre(4));
    EXPECT_TRUE(SplitIntoPages(TPrintRows({}, 10, 1), 50).empty());
}

TEST(PageBreaks, CutThroughARowOnlyWhereItIsHigherThanThePage)
{
    const TPrintRows high({-1, -1}, 100, 0);
    EXPECT_THAT(Ends(SplitIntoPages(high, 70)), ElementsAre(70, 100, 170, 200));
    EXPECT_THROW(SplitIntoPages(Outline(4), 20.5), std::invalid_argument);
    EXPECT_THROW(TPrintRows({-1}, 0, 0), std::invalid_argument);
}

/// 2026-11-02, a Monday, on; so many pixels a day.
TPrintTime Days(int days, double perDay)
{
    const TDateTime start = EncodeDate(2026, 11, 2);
    return {{[=](TDateTime date) { return static_cast<int>((date - start) * perDay + 0.5); },
             [=](int pixel) { return start + pixel / perDay; }},
            static_cast<int>(days * perDay),
            2};
}

TEST(PageBreaks, FallOnTheLongestCalendarUnitThatFillsThePageWell)
{
    struct TCase
    {
        const char *What;
        int Days;
        double PerDay;
        double Capacity;
        std::vector<double> Ends;
    };
    const TCase cases[] = {
        {"weeks", 28, 10, 80, {70, 140, 210, 280}},
        {"the first of December rather than a Monday", 60, 10, 330, {290, 600}},
        {"days, where a week does not fit", 5, 10, 45, {40, 50}},
        {"a week would leave half the page empty", 20, 10, 130, {130, 200}},
        {"hours", 1, 240, 105, {100, 200, 240}},
        {"below a minute nothing fits",
         1,
         14'400'000,
         6'000'000,
         {6'000'000, 12'000'000, 14'400'000}},
    };
    for (const TCase &each : cases) {
        EXPECT_EQ(Ends(SplitIntoPages(Days(each.Days, each.PerDay), each.Capacity)), each.Ends)
            << each.What;
    }
}

TEST(PrintLayout, FitsToPagesWithoutWastingRoom)
{
    const TPrintTime time = Days(100, 10);
    const TPrintRows rows(std::vector<int>(100, -1), 10, 0);
    const TPrintContent content{time, rows, 50, 40};
    const TPrintRoom room{500, 700};
    struct TCase
    {
        TPrintScaling Scaling;
        double Scale;
        int Columns;
        int Rows;
    };
    using enum TPrintFit;
    const TCase cases[] = {
        {{}, 1, 3, 2},
        {{.Percent = 50}, 0.5, 2, 1},
        {{.Fit = pfWidth}, 500.0 / 1050, 1, 1},
        {{.Fit = pfHeight}, 700.0 / 1040, 2, 1},
        {{.Fit = pfPages, .PagesAcross = 1, .PagesDown = 1}, 500.0 / 1050, 1, 1},
        {{.Fit = pfPages, .PagesAcross = 9, .PagesDown = 9}, 1, 3, 2},
        {{.Fit = pfPages, .PagesAcross = 0, .PagesDown = 0}, 1, 3, 2},
    };
    for (const TCase &each : cases) {
        const TPrintLayout layout(content, room, each.Scaling);
        EXPECT_NEAR(layout.Scale(), each.Scale, 1e-3);
        EXPECT_EQ(layout.Columns(), each.Columns) << each.Scale;
        EXPECT_EQ(layout.Rows(), each.Rows) << each.Scale;
    }
    // However many pages are allowed, never more are used, and one tenth larger would need more.
    for (int across = 1; across < 12; ++across) {
        const TPrintScaling fit{.Fit = pfPages, .PagesAcross = across, .Enlarge = true};
        const TPrintLayout layout(content, room, fit);
        EXPECT_LE(layout.Columns(), across);
        const TPrintScaling larger{.Percent = layout.Scale() * 110};
        EXPECT_GT(TPrintLayout(content, room, larger).Columns(), across);
    }
}

TEST(PrintLayout, LabelsGetHalfOfAPageAtMost)
{
    const TPrintTime time = Days(100, 10);
    const TPrintRows rows(std::vector<int>(100, -1), 10, 0);
    const TPrintRoom room{500, 700};
    using enum TPrintFit;
    const TPrintScaling scalings[] = {{},
                                      {.Percent = 40},
                                      {.Fit = pfWidth},
                                      {.Fit = pfHeight},
                                      {.Fit = pfPages, .PagesAcross = 3, .PagesDown = 1},
                                      {.Fit = pfWidth, .Enlarge = true}};
    for (const TPrintScaling &scaling : scalings) {
        const double labels = RoomForLabels({time, rows, 0, 40}, room, scaling);
        const TPrintLayout layout({time, rows, labels, 40}, room, scaling);
        EXPECT_NEAR(labels * layout.Scale(), room.Width / 2, 1) << static_cast<int>(scaling.Fit);
    }
}

TEST(PrintLayout, CountsPagesDownThenAcrossAndRefusesWhatCannotBePrinted)
{
    const TPrintTime time = Days(100, 10);
    const TPrintRows rows(std::vector<int>(100, -1), 10, 0);
    const TPrintRows none({}, 10, 0);
    const TPrintLayout layout({time, rows, 50, 40}, {500, 700}, {});
    const TPrintPage page = layout.Page(3);
    EXPECT_EQ(page.Column, 1);
    EXPECT_EQ(page.Row, 1);
    EXPECT_EQ(layout.PageIndex(1, 1), 3);
    EXPECT_EQ(page.Down.From, layout.Page(0).Down.To);
    EXPECT_EQ(page.Across.From, layout.Page(0).Across.To);
    EXPECT_THROW((void)layout.Page(6), std::out_of_range);
    EXPECT_THROW(TPrintLayout({time, none, 0, 0}, {500, 700}, {}), std::runtime_error);
    EXPECT_THROW(TPrintLayout({Days(0, 10), rows, 0, 0}, {500, 700}, {}), std::runtime_error);
    EXPECT_THROW(TPrintLayout({time, rows, 0, 0}, {0, 700}, {}), std::runtime_error);
    EXPECT_THROW(TPrintLayout({time, rows, 500, 0}, {500, 700}, {}), std::runtime_error);
}

TEST(PrintFields, AreReplacedInHeadersAndFooters)
{
    TPrintFields fields;
    fields.Title = "Plan {page}";
    fields.File = "a.xml";
    fields.Page = 2;
    fields.Pages = 9;
    EXPECT_EQ(ExpandPrintFields("{page}/{pages} {title}{file}", fields), "2/9 Plan {page}a.xml");
    EXPECT_EQ(ExpandPrintFields("{{page} {none} {", fields), "{page} {none} {");
    EXPECT_EQ(ExpandPrintFields("", fields), "");
}

} // namespace
} // namespace korvane
