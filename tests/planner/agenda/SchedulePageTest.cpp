#include "AgendaText.h"
#include "agenda/SchedulePage.h"

namespace korvane::planner::test {
namespace {

/// The blocks as "column start-stop title", days marked by a star.
QStringList BlocksOf(const SchedulePage &page)
{
    QStringList texts;
    for (const ScheduleBlock &block : page.Blocks) {
        texts.append(QStringLiteral("%1 %2-%3 %4%5")
                         .arg(QString::number(block.Column),
                              Clock(block.Start).toString(u"ddHH:mm"_s),
                              Clock(block.Stop).toString(u"ddHH:mm"_s), block.Title,
                              block.IsAllDay ? u"*"_s : QString()));
    }
    return texts;
}

QByteArray Event(const QByteArray &title, const QByteArray &lines)
{
    return "BEGIN:VEVENT\nUID:" + title + "\nSUMMARY:" + title + "\n" + lines + "\nEND:VEVENT\n";
}

const QByteArray kLines =
    "X-WR-CALNAME:Work\nX-WR-TIMEZONE:Europe/Berlin\n"
    + Event("utc", "DTSTART:20260302T080000Z\nDURATION:PT1H\nLOCATION:Hall")
    + Event("night", "DTSTART;TZID=Europe/Berlin:20260303T220000\nDURATION:PT4H")
    + Event("exact", "DTSTART:20260304T230000\nDURATION:PT1H\nLOCATION:Hall")
    + Event("trip", "DTSTART;VALUE=DATE:20260228\nDTEND;VALUE=DATE:20260304")
    + Event("mark", "DTSTART:20260305T000000")
    + Event("before", "DTSTART:20260301T120000\nDURATION:PT12H");

TEST(SchedulePage, DaysHoldWhatTakesPlaceOnThem)
{
    const Agenda agenda = Read(CalendarOf(kLines));
    const AgendaPages pages(agenda);
    const SchedulePage week = pages.Page(AgendaColumns::Days, Wall(u"2026-03-02T15:00:00"_s), 7);
    EXPECT_EQ(BlocksOf(week),
              (QStringList{u"0 0200:00-0300:00 trip*"_s, u"1 0300:00-0400:00 trip*"_s,
                           u"0 0209:00-0210:00 utc"_s, u"1 0322:00-0400:00 night"_s,
                           u"2 0400:00-0402:00 night"_s, u"2 0423:00-0500:00 exact"_s,
                           u"3 0500:00-0500:00 mark"_s}));
    EXPECT_EQ(week.Columns.size(), 7U);
    EXPECT_EQ(week.Axis, (AgendaRange{0, kSecondsPerDay}));
    EXPECT_EQ(pages.DayNear(Wall(u"2026-07-01T00:00:00"_s)), Wall(u"2026-03-05T00:00:00"_s));
}

TEST(SchedulePage, PlacesAndCalendarsAreColumnsOfOneDay)
{
    const Agenda agenda = Read(CalendarOf(kLines));
    const AgendaPages pages(agenda);
    const SchedulePage places =
        pages.Page(AgendaColumns::Places, Wall(u"2026-03-04T00:00:00"_s), 1);
    EXPECT_EQ(BlocksOf(places),
              (QStringList{u"0 0400:00-0402:00 night"_s, u"1 0423:00-0500:00 exact"_s}));
    EXPECT_EQ(places.Columns.at(1).Caption, u"Hall"_s);
    const SchedulePage calendars =
        pages.Page(AgendaColumns::Calendars, Wall(u"2026-03-02T00:00:00"_s), 1);
    EXPECT_EQ(calendars.Columns.at(0).Caption, u"Work"_s);
    EXPECT_EQ(calendars.Axis, (AgendaRange{8 * 3600, 18 * 3600}));
    EXPECT_EQ(pages.Page(AgendaColumns::Places, Wall(u"2026-06-04T00:00:00"_s), 1).Columns.size(),
              1U);

    // Calendars of one name stay apart, and each is there, whether it has events or not.
    const Agenda twins = Read(
        CalendarOf("X-WR-CALNAME:Work\n" + Event("one", "DTSTART:20260302T080000\nDURATION:PT1H"))
        + CalendarOf("X-WR-CALNAME:Work\n" + Event("two", "DTSTART:20260303T090000\nDURATION:PT1H"))
        + CalendarOf(Event("three", "DTSTART:20260305T090000\nDURATION:PT1H")));
    const SchedulePage second =
        AgendaPages(twins).Page(AgendaColumns::Calendars, Wall(u"2026-03-03T00:00:00"_s), 1);
    EXPECT_EQ(BlocksOf(second), QStringList(u"1 0309:00-0310:00 two"_s));
    ASSERT_EQ(second.Columns.size(), 3U);
    EXPECT_EQ(second.Columns.at(1).Caption, u"Work"_s);
    EXPECT_EQ(second.Columns.at(2).Caption, u"Calendar 3"_s);
}

TEST(SchedulePage, BlocksAreMovedAndStretched)
{
    struct Case
    {
        int Block;
        qint64 StartShift; // minutes
        qint64 StopShift;
        QString Start;
        AgendaLength Length;
    };
    constexpr qint64 kDay = 24 * 60;
    const Case cases[] = {
        {2, 30, 30, u"2026-03-02T08:30"_s, {0, 3600}}, // utc, shown an hour later
        {2, 0, 30, u"2026-03-02T08:00"_s, {0, 5400}},
        {2, 30 * kDay, 30 * kDay, u"2026-04-01T07:00"_s, {0, 3600}}, // beyond the summer time
        {4, kDay, kDay, u"2026-03-04T22:00"_s, {0, 4 * 3600}}, // night, taken by its second day
        {4, 0, 60, u"2026-03-03T22:00"_s, {0, 5 * 3600}},
        {4, 60, 0, u"2026-03-03T22:00"_s, {0, 4 * 3600}}, // its start is not there
        {0, kDay, kDay, u"2026-03-01"_s, {4, 0}},         // trip
        {1, 0, kDay, u"2026-02-28"_s, {5, 0}},
        {6, 0, 45, u"2026-03-05T00:00"_s, {0, 2700}},
    };
    for (const Case &one : cases) {
        Agenda agenda = Read(CalendarOf(kLines));
        const AgendaPages pages(agenda);
        const SchedulePage page =
            pages.Page(AgendaColumns::Days, Wall(u"2026-03-02T00:00:00"_s), 7);
        const ScheduleBlock &block = page.Blocks.at(std::size_t(one.Block));
        auto edit =
            pages.Moved(page,
                        {one.Block,
                         {block.Start + one.StartShift * 60, block.Stop + one.StopShift * 60},
                         block.Column},
                        AgendaScope::Occurrence);
        ASSERT_TRUE(std::holds_alternative<AgendaEdit>(edit));
        std::get<AgendaEdit>(edit).SwapWith(agenda);
        const int index = page.Occurrences.at(std::size_t(block.Occurrence)).Event;
        const AgendaEvent &event = agenda.Events.at(std::size_t(index));
        EXPECT_EQ(TextOf(*event.Start), one.Start) << event.Title.toStdString();
        EXPECT_EQ(event.Length, one.Length) << event.Title.toStdString();
    }
}

TEST(SchedulePage, RoomsOfADayAreThoseInUse)
{
    Programme programme;
    programme.Rooms = {u"A"_s, u"B"_s, u"C"_s};
    programme.Days = {{Wall(u"2026-03-02T00:00:00"_s), 0, 0},
                      {Wall(u"2026-03-03T00:00:00"_s), 0, 0}};
    const auto add = [&](int day, int room, const QString &start, int minutes) {
        ProgrammeTalk talk;
        talk.Title = u"talk"_s;
        talk.Day = day;
        talk.Room = room;
        talk.Start = Wall(start);
        talk.Length = minutes * 60;
        programme.Talks.push_back(talk);
    };
    add(0, 2, u"2026-03-03T01:30:00"_s, 45);
    add(0, 0, u"2026-03-02T10:15:00"_s, 30);
    add(1, 1, u"2026-03-03T10:00:00"_s, 30);
    const SchedulePage page = PageOf(programme, 0);
    ASSERT_EQ(page.Columns.size(), 2U);
    EXPECT_EQ(page.Columns[1].Caption, u"C"_s);
    EXPECT_EQ(BlocksOf(page),
              (QStringList{u"0 0210:15-0210:45 talk"_s, u"1 0301:30-0302:15 talk"_s}));
    EXPECT_EQ(page.Axis, (AgendaRange{10 * 3600, 27 * 3600}));
}

} // namespace
} // namespace korvane::planner::test
