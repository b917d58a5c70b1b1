#include "ScheduleWindowFixture.h"

namespace korvane::planner::test {
namespace {

TEST_F(ScheduleWindowTest, WhatIsDraggedIsAStepThatIsSaved)
{
    Drag(u"Single"_s, 10, 1, 1);
    EXPECT_EQ(StartsOf(u"Single"_s), QStringList(u"Wed 11:00"_s));
    EXPECT_EQ(History().undoText(), u"Move “Single”"_s);
    EXPECT_TRUE(m_window->isWindowModified());
    Drag(u"Single"_s, 1, 0, -1);
    EXPECT_EQ(StartsOf(u"Single"_s), QStringList(u"Wed 10:00"_s));
    EXPECT_EQ(History().undoText(), u"Stretch “Single”"_s);
    DragInStrip(u"Whole"_s, 30, -2);
    EXPECT_EQ(StartsOf(u"Whole"_s), QStringList(u"Tue 00:00"_s));
    EXPECT_TRUE(StripTimeOf(u"Whole"_s)->GetSelected()) << "the change leaves the selection";

    m_window->Save();
    EXPECT_FALSE(m_window->isWindowModified());
    EXPECT_TRUE(Text().contains("X-Keep:1\nDTSTART:20260304T100000\nDTEND:20260304T130000\n"))
        << Text().data();
    EXPECT_TRUE(Text().contains("DTSTART;VALUE=DATE:20260303\n"));
    for (int i = 0; i < 3; ++i) {
        History().undo();
    }
    EXPECT_EQ(StartsOf(u"Single"_s), QStringList(u"Tue 10:00"_s));
    EXPECT_TRUE(m_window->isWindowModified());
    History().setClean();
    Open();
    EXPECT_EQ(StartsOf(u"Single"_s), QStringList(u"Wed 10:00"_s));
}

TEST_F(ScheduleWindowTest, OfARepeatedEventTheUserSaysWhichOnes)
{
    struct Case
    {
        QString Button;
        QString Starts;
        QString Text;
    };
    const Case cases[] = {
        {u"Cancel"_s, u"Mon 13:00,Tue 13:00,Wed 13:00,Thu 13:00,Fri 13:00"_s, u""_s},
        {u"This occurrence"_s, u"Mon 14:00,Tue 13:00,Wed 13:00,Thu 13:00,Fri 13:00"_s,
         u"Move “Daily”"_s},
        {u"The whole series"_s, u"Mon 14:00,Tue 14:00,Wed 14:00,Thu 14:00,Fri 14:00"_s,
         u"Move all of “Daily”"_s},
    };
    for (const Case &one : cases) {
        Drag(u"Daily"_s, 10, 0, 1);
        Answer(one.Button);
        EXPECT_EQ(StartsOf(u"Daily"_s).join(u','), one.Starts);
        EXPECT_EQ(History().undoText(), one.Text);
        History().undo();
    }
    Drag(u"Daily"_s, 10, 0, 1);
    ASSERT_NE(Box(), nullptr);
    QTest::keyClick(Box(), Qt::Key_Escape);
    EXPECT_EQ(StartsOf(u"Daily"_s).front(), u"Mon 13:00"_s);
    EXPECT_FALSE(m_window->isWindowModified());
}

TEST_F(ScheduleWindowTest, ChangesAreNotLostUnasked)
{
    Drag(u"Single"_s, 10, 1, 0);
    m_window->close();
    EXPECT_TRUE(m_window->isVisible());
    Answer(u"Cancel"_s);
    EXPECT_TRUE(m_window->isVisible());
    Write("BEGIN:VCALENDAR\nX-OTHER:1\nEND:VCALENDAR\n");
    m_window->close();
    Answer(u"Save"_s);
    ASSERT_NE(Box(), nullptr);
    EXPECT_TRUE(Box()->text().contains(u"another program"));
    Answer(u"Overwrite"_s);
    EXPECT_FALSE(m_window->isVisible());
    EXPECT_TRUE(Text().contains("DTSTART:20260304T100000"));

    Open();
    Drag(u"Single"_s, 10, 1, 0);
    m_window->SaveTo(m_folder.Path(u"none/week.ics"_s));
    ASSERT_NE(Box(), nullptr);
    EXPECT_TRUE(Box()->text().contains(u"cannot be saved"));
    EXPECT_TRUE(m_window->isWindowModified());
    Answer(u"OK"_s);
    m_window->close();
    Answer(u"Discard"_s);
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(ScheduleWindowTest, OddFilesAreRemarkedOnAndBadOnesReported)
{
    Write("BEGIN:VCALENDAR\nBEGIN:VEVENT\nUID:a\nDTSTART;TZID=Nowhere/At All:20260303T100000\n"
          "END:VEVENT\nEND:VCALENDAR\n");
    Open();
    EXPECT_EQ(m_window->findChild<RemarksPanel *>()->CountText(), u"1 remark"_s);
    Write("BEGIN:VCALENDAR\nBEGIN:VEVENT\n");
    m_window = std::make_unique<ScheduleWindow>();
    m_window->show();
    m_window->Open(Path());
    ASSERT_TRUE(QTest::qWaitFor([this] { return Box() != nullptr; }, 60'000));
    EXPECT_TRUE(Box()->informativeText().contains(u"ends within"));
    Answer(u"OK"_s);
    EXPECT_FALSE(m_window->isVisible());
}

} // namespace
} // namespace korvane::planner::test
