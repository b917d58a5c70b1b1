#include "SchedulePrint.h"
#include "ScheduleWindowFixture.h"
#include "StripEdge.h"

#include <QAccessible>

namespace korvane::planner::test {
namespace {

class ScheduleStripTest : public ScheduleWindowTest
{
protected:
    /// Three at a time on Wednesday, the first of them for three days.
    ScheduleStripTest()
    {
        QByteArray events;
        const QByteArray days[] = {"0303", "0304", "0304", "0304", "0308"};
        for (std::size_t i = 0; i < std::size(days); ++i) {
            events += "BEGIN:VEVENT\nUID:" + QByteArray::number(int(i))
                      + "\nSUMMARY:" + static_cast<char>('A' + int(i)) + "\nDTSTART;VALUE=DATE:2026"
                      + days[i] + (i == 0 ? "\nDURATION:P3D" : "") + "\nEND:VEVENT\n";
        }
        Write("BEGIN:VCALENDAR\nVERSION:2.0\n" + events + "END:VCALENDAR\n");
        Open();
    }
    ScheduleView &View() { return m_window->View(); }
    int RowOf(const QString &title)
    {
        const TRect rect = Strip().RectFromDataEntity(*StripTimeOf(title)).value_or(TRect{});
        return rect.Top / rect.Height();
    }
    void DragEdge(int pixels, bool escape = false)
    {
        auto *edge = View().findChild<StripEdge *>();
        const QPoint at(50, 1);
        QTest::mousePress(edge, Qt::LeftButton, {}, at);
        const QPoint to = edge->mapToGlobal(at + QPoint(0, pixels));
        QTest::mouseMove(edge, edge->mapFromGlobal(to));
        if (escape) {
            QTest::keyClick(edge, Qt::Key_Escape);
        }
        QTest::mouseRelease(edge, Qt::LeftButton, {}, edge->mapFromGlobal(to));
    }
};

TEST_F(ScheduleStripTest, WhatComesFirstLiesOnTop)
{
    const std::vector<int> rows{RowOf(u"A"_s), RowOf(u"B"_s), RowOf(u"C"_s), RowOf(u"D"_s),
                                RowOf(u"E"_s)};
    EXPECT_EQ(rows, (std::vector{0, 1, 2, 3, 0}));
}

TEST_F(ScheduleStripTest, ItsHeightIsTheUsersAndItsRowsScroll)
{
    const int usual = Strip().height();
    EXPECT_EQ(usual, Strip().HeightOfRows());
    DragEdge(-40, true);
    EXPECT_EQ(Strip().height(), usual);
    DragEdge(-40);
    EXPECT_EQ(Strip().height(), usual - 40);
    DragInStrip(u"B"_s, 10, 1);
    EXPECT_EQ(StartsOf(u"B"_s), QStringList(u"Thu 00:00"_s));
    EXPECT_EQ(Strip().height(), usual - 40) << "a change leaves it";
    const auto isSeen = [this](const QString &title) {
        const auto rect = Strip().RectFromDataEntity(*StripTimeOf(title));
        return rect && rect->Top >= 0 && rect->Bottom <= Strip().height();
    };
    for (const QString &title : {u"D"_s, u"A"_s}) {
        Strip().SetActiveDataEntity(StripTimeOf(title));
        Strip().SelectOnly(*StripTimeOf(title));
        EXPECT_TRUE(isSeen(title)) << title.toStdString();
    }
    EXPECT_FALSE(isSeen(u"D"_s));
    DragEdge(-1000);
    EXPECT_EQ(Strip().height(), Strip().LeastHeight());
    QTest::mouseDClick(View().findChild<StripEdge *>(), Qt::LeftButton);
    EXPECT_EQ(Strip().height(), Strip().HeightOfRows());
}

TEST_F(ScheduleStripTest, DaysAreThoseOfTheColumnsHoweverWideTheseAre)
{
    View().Columns().SetColumnSize(false, 2, 330); // Wednesday
    View().Columns().SetColumnSize(false, 4, 60);
    QCoreApplication::processEvents();
    const auto middleOf = [this](int day) {
        const TPixelSpan pixels = View().Columns().VirtualSpan(false, day);
        return QPoint((pixels.From + pixels.To) / 2, 8);
    };
    for (int day = 0; day < 7; ++day) {
        EXPECT_NEAR(Strip().PixelToDate(middleOf(day).x()), Strip().PixelToDate(0) + day + 0.5,
                    0.02);
        EXPECT_NEAR(Strip().DateToPixel(Strip().PixelToDate(0) + day + 0.5), middleOf(day).x(), 2);
    }
    QWidget &area = Strip().SchemaArea();
    for (const auto &[from, to, starts] :
         {std::tuple(2, 3, u"Thu 00:00"_s), {3, 1, u"Tue 00:00"_s}, {1, 4, u"Fri 00:00"_s}}) {
        const TRect rect = Strip().RectFromDataEntity(*StripTimeOf(u"B"_s)).value_or(TRect{});
        const QPoint press(middleOf(from).x(), rect.Top + 5);
        const QPoint release(middleOf(to).x(), rect.Top + 5);
        QTest::mousePress(&area, Qt::LeftButton, {}, press);
        QTest::mouseMove(&area, (press + release) / 2);
        QTest::mouseMove(&area, release);
        QTest::mouseRelease(&area, Qt::LeftButton, {}, release);
        QCoreApplication::processEvents();
        EXPECT_EQ(StartsOf(u"B"_s), QStringList(starts)) << from;
    }
}

TEST_F(ScheduleStripTest, AssistiveToolsCallEventsByTheirTitles)
{
    QAccessibleInterface *days = QAccessible::queryAccessibleInterface(&Strip().SchemaArea());
    ASSERT_NE(days, nullptr);
    QStringList names;
    for (int i = 0; i < days->child(0)->childCount(); ++i) {
        names.append(days->child(0)->child(i)->text(QAccessible::Name));
    }
    EXPECT_EQ(names, (QStringList{u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s}));
}

/// As high as its rows on every page, whatever of it is in view on screen.
TEST_F(ScheduleStripTest, PagesHaveItAboveTheTimes)
{
    const auto headOf = [](const SchedulePage &page) {
        SchedulePrint print(page, u"Week"_s, {});
        print.Apply(print.StandardOptions());
        TzuPrinting &printing = print.Printing();
        printing.LayOut();
        const TPrintPage first = printing.Layout().Page(0);
        return int(printing.ContentSize(first).height() - (first.Down.To - first.Down.From));
    };
    SchedulePage page = View().Page();
    const int head = headOf(page);
    std::erase_if(page.Blocks, &ScheduleBlock::IsAllDay);
    EXPECT_EQ(head - headOf(page), Strip().HeightOfRows());
}

} // namespace
} // namespace korvane::planner::test
