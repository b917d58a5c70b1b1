#include "EventDialog.h"
#include "ScheduleWindowFixture.h"
#include "support/SmallDisk.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDir>
#include <QLineEdit>
#include <QMimeData>
#include <QStatusBar>

namespace korvane::planner::test {
namespace {

class ScheduleEditTest : public ScheduleWindowTest
{
protected:
    QWidget &Area() { return m_window->View().SchemaArea(); }
    void Key(Qt::Key key, Qt::KeyboardModifiers keys = {})
    {
        m_window->activateWindow(); // a form had the keyboard
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get(), 60'000));
        Area().setFocus();
        QTest::keyClick(&Area(), key, keys);
        QCoreApplication::processEvents();
    }
    void Select(const QString &title)
    {
        m_window->View().SetActiveDataEntity(TimeOf(title));
        m_window->View().SelectOnly(*TimeOf(title));
    }
    EventDialog *Dialog() { return m_window->findChild<EventDialog *>(); }
    void Type(const QString &text) { QTest::keyClicks(Dialog()->focusWidget(), text); }
    void Accept()
    {
        ASSERT_NE(Dialog(), nullptr);
        QTest::keyClick(Dialog(), Qt::Key_Return);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QPoint EmptyPlace(int column, int hour)
    {
        ScheduleView &view = m_window->View();
        return {view.ColumnToPixels(column).From + 20,
                view.DateScaler().DateToPixel(Start(hour)) + 2};
    }
    QString Steps() { return History().undoText(); }
};

TEST_F(ScheduleEditTest, EventsAreMadeChangedAndRemovedByKeysAlone)
{
    Select(u"Single"_s);
    Key(Qt::Key_Insert);
    ASSERT_NE(Dialog(), nullptr);
    Type(u"Fresh"_s);
    Accept();
    EXPECT_EQ(StartsOf(u"Fresh"_s), QStringList(u"Tue 12:00"_s)) << "behind the active one";
    EXPECT_EQ(Steps(), u"New event “Fresh”"_s);
    EXPECT_TRUE(TimeOf(u"Fresh"_s)->GetSelected());
    Key(Qt::Key_Return);
    ASSERT_NE(Dialog(), nullptr);
    Type(u"Renamed"_s);
    Accept();
    EXPECT_EQ(StartsOf(u"Renamed"_s), QStringList(u"Tue 12:00"_s));
    EXPECT_EQ(Steps(), u"Change “Fresh”"_s);
    Key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(StartsOf(u"Renamed"_s).size(), 2);
    Key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(StartsOf(u"Renamed"_s), (QStringList{u"Tue 12:00"_s, u"Wed 12:00"_s}));
    Key(Qt::Key_Delete);
    EXPECT_EQ(StartsOf(u"Renamed"_s), QStringList(u"Tue 12:00"_s));
    EXPECT_EQ(Steps(), u"Delete “Renamed”"_s);
    m_window->Save();
    EXPECT_EQ(Text().count("BEGIN:VEVENT"), 4);
    EXPECT_TRUE(Text().contains("SUMMARY:Renamed\n")) << Text().data();
    while (History().canUndo()) {
        History().undo();
    }
    m_window->Save();
    EXPECT_EQ(Text().count("BEGIN:VEVENT"), 3);
    Open();
    EXPECT_EQ(StartsOf(u"Single"_s), QStringList(u"Tue 10:00"_s));
}

TEST_F(ScheduleEditTest, OfARepeatedEventTheUserSaysWhichOnesGo)
{
    struct Case
    {
        QString Button;
        QString Starts;
        QString Text;
    };
    for (const Case &one :
         {Case{u"Cancel"_s, u"Mon,Tue,Wed,Thu,Fri"_s, u""_s},
          {u"This occurrence"_s, u"Mon,Tue,Thu,Fri"_s, u"Delete “Daily”"_s},
          {u"This and following"_s, u"Mon,Tue"_s, u"Delete “Daily” and those that follow"_s},
          {u"The whole series"_s, u""_s, u"Delete all of “Daily”"_s}}) {
        const auto &blocks = m_window->View().Page().Blocks;
        const auto wednesday = std::ranges::find_if(blocks, [](const ScheduleBlock &block) {
            return block.Title == u"Daily"_s && block.Column == 2;
        });
        auto *time = m_window->View().FindSchemaTimeObjectFromUserReference(
            reinterpret_cast<void *>(wednesday - blocks.begin() + 1));
        m_window->View().SelectOnly(*time);
        Key(Qt::Key_Delete);
        Answer(one.Button);
        QStringList days;
        for (const QString &start : StartsOf(u"Daily"_s)) {
            days.append(start.left(3));
        }
        EXPECT_EQ(days.join(u','), one.Starts);
        EXPECT_EQ(Steps(), one.Text);
        History().undo();
    }
}

TEST_F(ScheduleEditTest, TheMouseMakesEventsOnEmptyTimeAndCopies)
{
    QTest::mouseDClick(&Area(), Qt::LeftButton, {}, EmptyPlace(3, 16));
    QCoreApplication::processEvents();
    ASSERT_NE(Dialog(), nullptr);
    Type(u"Clicked"_s);
    Accept();
    EXPECT_EQ(StartsOf(u"Clicked"_s), QStringList(u"Thu 16:00"_s));

    const auto band = [this](bool escape) {
        QTest::mousePress(&Area(), Qt::LeftButton, {}, EmptyPlace(2, 15));
        QTest::mouseMove(&Area(), EmptyPlace(2, 16));
        QTest::mouseMove(&Area(), EmptyPlace(2, 17));
        if (escape) {
            QTest::keyClick(&Area(), Qt::Key_Escape);
        }
        QTest::mouseRelease(&Area(), Qt::LeftButton, {}, EmptyPlace(2, 17));
        QCoreApplication::processEvents();
    };
    band(true);
    EXPECT_EQ(Dialog(), nullptr);
    band(false);
    ASSERT_NE(Dialog(), nullptr);
    Type(u"Drawn"_s);
    Accept();
    EXPECT_EQ(StartsOf(u"Drawn"_s), QStringList(u"Wed 15:00"_s));
    const ScheduleBlock &drawn =
        *std::ranges::find(m_window->View().Page().Blocks, u"Drawn"_s, &ScheduleBlock::Title);
    EXPECT_EQ(drawn.Stop - drawn.Start, 2 * 3600);

    m_window->View().ClearSelection();
    Drag(u"Single"_s, 10, 1, 1, Qt::ControlModifier);
    EXPECT_EQ(StartsOf(u"Single"_s), (QStringList{u"Tue 10:00"_s, u"Wed 11:00"_s}));
    EXPECT_EQ(Steps(), u"Copy “Single”"_s);
    // A copy of one occurrence is a single event.
    m_window->View().ClearSelection();
    Drag(u"Daily"_s, 10, 0, 2, Qt::ControlModifier);
    EXPECT_EQ(StartsOf(u"Daily"_s).size(), 6);
    EXPECT_EQ(Box(), nullptr);
    QTest::mouseDClick(&Area(), Qt::LeftButton, {}, EmptyPlace(1, 11));
    QCoreApplication::processEvents();
    ASSERT_NE(Dialog(), nullptr);
    EXPECT_EQ(Dialog()->Draft().Title, u"Single"_s);
}

TEST_F(ScheduleEditTest, AllDayEventsAreStretchedOverDaysInTheirStrip)
{
    const auto daysOf = [this](const QString &title) {
        QStringList days;
        for (const QString &start : StartsOf(title)) {
            days.append(start.left(3));
        }
        return days.join(u',');
    };
    EXPECT_EQ(TimeOf(u"Whole"_s), nullptr) << "it hides no hour";
    DragInStrip(u"Whole"_s, -1, 2);
    EXPECT_EQ(daysOf(u"Whole"_s), u"Thu,Fri,Sat"_s);
    EXPECT_EQ(Steps(), u"Stretch “Whole”"_s);
    DragInStrip(u"Whole"_s, 1, -1);
    EXPECT_EQ(daysOf(u"Whole"_s), u"Wed,Thu,Fri,Sat"_s);
    DragInStrip(u"Whole"_s, -1, -9);
    EXPECT_EQ(daysOf(u"Whole"_s), u"Wed"_s) << "a day at least";
    DragInStrip(u"Whole"_s, 30, 2, Qt::ControlModifier);
    EXPECT_EQ(daysOf(u"Whole"_s), u"Wed,Fri"_s);
    History().undo();
    const auto key = [this](Qt::Key code, Qt::KeyboardModifiers keys) {
        Strip().SchemaArea().setFocus();
        QTest::keyClick(&Strip().SchemaArea(), code, keys);
        QCoreApplication::processEvents();
    };
    m_window->activateWindow();
    Strip().SelectOnly(*StripTimeOf(u"Whole"_s));
    key(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(daysOf(u"Whole"_s), u"Tue"_s);
    key(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(daysOf(u"Whole"_s), u"Tue,Wed"_s);
    key(Qt::Key_Left, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(daysOf(u"Whole"_s), u"Mon,Tue,Wed"_s);
    key(Qt::Key_PageDown, {});
    EXPECT_EQ(std::floor(Strip().ScalerStart()), std::floor(m_window->View().ScalerStart()))
        << "the days stay those of the columns";
    EXPECT_GT(m_window->View().ScalerStart(), Start(8)) << "and these turn";
    key(Qt::Key_Delete, {});
    EXPECT_EQ(daysOf(u"Whole"_s), u""_s);
    // On an empty day.
    QTest::mouseDClick(&Strip().SchemaArea(), Qt::LeftButton, {}, {EmptyPlace(4, 9).x(), 5});
    QCoreApplication::processEvents();
    ASSERT_NE(Dialog(), nullptr);
    Type(u"Day"_s);
    Accept();
    EXPECT_EQ(daysOf(u"Day"_s), u"Fri"_s);
    EXPECT_TRUE(Strip().SelectedCount() == 1 && StripTimeOf(u"Day"_s)->GetSelected());
}

TEST_F(ScheduleEditTest, APlaceStaysWhenItsLastEventLeavesIt)
{
    Select(u"Single"_s); // its day is shown
    Key(Qt::Key_4, Qt::AltModifier);
    ScheduleView &view = m_window->View();
    const auto captions = [&] {
        QStringList texts;
        for (const ScheduleColumn &column : view.Page().Columns) {
            texts.append(column.Caption);
        }
        return texts.join(u',');
    };
    EXPECT_EQ(captions(), u"Hall,(no place)"_s);
    Select(u"Single"_s);
    Key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(captions(), u"Hall,(no place)"_s);
    EXPECT_TRUE(TimeOf(u"Single"_s)->GetSelected());
    EXPECT_EQ(TimeOf(u"Single"_s)->Col(), 1);
    Key(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(TimeOf(u"Single"_s)->Col(), 0);
}

TEST_F(ScheduleEditTest, TheFormChangesASeriesAfterAsking)
{
    Select(u"Daily"_s);
    Key(Qt::Key_Return);
    ASSERT_NE(Dialog(), nullptr);
    const auto edits = Dialog()->findChildren<QDateTimeEdit *>();
    edits.at(0)->setDateTime(edits.at(0)->dateTime().addSecs(3600));
    EXPECT_EQ(edits.at(1)->dateTime().time(), QTime(15, 0)) << "the end goes along";
    Type(u"Later"_s);
    Accept();
    Answer(u"The whole series"_s);
    EXPECT_EQ(StartsOf(u"Later"_s).size(), 5);
    EXPECT_EQ(StartsOf(u"Later"_s).front(), u"Mon 14:00"_s);
    History().undo();
    EXPECT_EQ(StartsOf(u"Daily"_s).front(), u"Mon 13:00"_s);
    // A form that changes nothing asks nothing.
    Select(u"Daily"_s);
    Key(Qt::Key_Return);
    Accept();
    EXPECT_EQ(Box(), nullptr);
    EXPECT_FALSE(m_window->isWindowModified());
}

TEST_F(ScheduleEditTest, EventsGoOverTheClipboardToTheDayClickedLast)
{
    Select(u"Single"_s);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().contains(u"Single"));
    QTest::mouseClick(&Area(), Qt::LeftButton, {}, EmptyPlace(4, 17));
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(StartsOf(u"Single"_s), (QStringList{u"Tue 10:00"_s, u"Fri 10:00"_s}));
    EXPECT_EQ(Steps(), u"Paste “Single”"_s);
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(StartsOf(u"Single"_s), QStringList(u"Tue 10:00"_s));
    QApplication::clipboard()->setText(u"no event"_s);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(m_window->statusBar()->currentMessage().contains(u"no events"));
    auto *broken = new QMimeData;
    broken->setData(u"text/calendar"_s, "BEGIN:VCALENDAR\nBEGIN:VEVENT\n");
    QApplication::clipboard()->setMimeData(broken);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(m_window->statusBar()->currentMessage().contains(u"ends within"));
}

#ifdef Q_OS_UNIX
TEST_F(ScheduleEditTest, WhatCannotBeSavedIsSaidAndNothingIsLost)
{
    const QByteArray former = Text();
    Drag(u"Single"_s, 10, 1, 1);
    QFile::setPermissions(Path(), QFile::ReadOwner);
    m_window->Save();
    ASSERT_NE(Box(), nullptr);
    EXPECT_TRUE(Box()->text().contains(u"week.ics cannot be saved"));
    EXPECT_TRUE(Box()->informativeText().contains(u"write-protected"));
    Answer(u"OK"_s);
    QFile::setPermissions(Path(), QFile::ReadOwner | QFile::WriteOwner);
    {
        const SmallDisk disk(200);
        m_window->Save();
    }
    ASSERT_NE(Box(), nullptr);
    EXPECT_TRUE(Box()->informativeText().contains(u"disk may be full"));
    Answer(u"OK"_s);
    EXPECT_EQ(Text(), former);
    EXPECT_EQ(QDir(m_folder.Path()).entryList({u"week*"_s}, QDir::Files).size(), 1)
        << "nothing is left over";
    EXPECT_TRUE(m_window->isWindowModified());
    EXPECT_EQ(StartsOf(u"Single"_s), QStringList(u"Wed 11:00"_s));
    // Closing asks, and a save that fails then keeps the window.
    QFile::setPermissions(Path(), QFile::ReadOwner);
    m_window->close();
    Answer(u"Save"_s);
    Answer(u"OK"_s);
    EXPECT_TRUE(m_window->isVisible());
    QFile::setPermissions(Path(), QFile::ReadOwner | QFile::WriteOwner);
    m_window->Save();
    EXPECT_FALSE(m_window->isWindowModified());
    EXPECT_TRUE(Text().contains("DTSTART:20260304T110000"));
}
#endif

} // namespace
} // namespace korvane::planner::test
