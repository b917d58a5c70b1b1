#include "gantt/zuSpanbarItemTexts.h"
#include "support/RecordingCanvas.h"

#include <gmock/gmock.h>

using namespace korvane;
using test::TRecordingCanvas;
using testing::ElementsAre;

namespace {

TEST(TimeItemTexts, AreClippedToTheItemFromTheirOffsetToTheLastPixelButOne)
{
    struct TCase
    {
        TPoint Offset;
        TRect Clip; ///< empty: not drawn
    };
    const TCase cases[] = {
        {{2, 1}, {102, 21, 149, 37}},
        {{0, 0}, {100, 20, 149, 37}},
        {{48, 0}, {148, 20, 149, 37}},
        {{49, 0}, {}},
        {{60, 0}, {}},
        {{0, 17}, {}},
        {{-3, -2}, {97, 18, 149, 37}},
    };
    for (const TCase &c : cases) {
        SCOPED_TRACE(&c - cases);
        TRecordingCanvas canvas;
        TzuTimeItemTextCollection texts;
        texts.AddText("text", c.Offset.X, c.Offset.Y, 1);
        texts.DrawToCanvasInsideRect({100, 20, 150, 38}, canvas, {});
        if (c.Clip == TRect{}) {
            EXPECT_TRUE(canvas.Calls().empty());
        } else {
            ASSERT_EQ(canvas.Calls().size(), 1U);
            EXPECT_EQ(canvas.Calls()[0].Clip, c.Clip);
            EXPECT_EQ(canvas.Calls()[0].Rect.Left, c.Clip.Left);
            EXPECT_EQ(canvas.Calls()[0].Rect.Top, c.Clip.Top);
        }
    }
}

TEST(TimeItemTexts, AskForTheirFontBeforeEveryTextButNotForEmptyOnes)
{
    TRecordingCanvas canvas;
    TzuTimeItemTextCollection texts;
    texts.AddText("one", 0, 0, 2);
    texts.AddText("", 0, 0, 3);
    texts.AddText("two", 0, 0, 2);
    texts.AddText("dropped", 0, 0, 1);
    texts.AddText("three", 200, 0, 7); // beyond the item: asked for, not drawn
    texts.DropText(3);
    std::vector<int> styles;
    texts.DrawToCanvasInsideRect({0, 0, 100, 18}, canvas, [&](const auto &, TCanvas &, int style) {
        styles.push_back(style);
    });
    EXPECT_THAT(styles, ElementsAre(2, 2, 7));
    EXPECT_THAT(canvas.Texts(), ElementsAre("one", "two"));
    EXPECT_THROW(texts.DropText(4), std::out_of_range);
    EXPECT_THROW(texts.GetTimeItemText(-1), std::out_of_range);
}

} // namespace
