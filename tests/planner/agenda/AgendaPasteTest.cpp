#include "AgendaText.h"
#include "agenda/AgendaWriter.h"
#include "agenda/SchedulePage.h"

namespace korvane::planner::test {
namespace {

/// Pasted onto a day, a series goes there with all that it names; one whose rule counts days within
/// a month begins on the first of these.
TEST(AgendaPaste, SeriesComeToTheDayThatTheyArePastedOnto)
{
    struct Case
    {
        QByteArray Events;
        QString Day;
        QString Starts; ///< the first five
        QByteArray Written;
    };
    const QByteArray start = "DTSTART:20260302T090000\nRRULE:"; // a Monday
    const auto override = [](const QByteArray &lines) {
        return "\nBEGIN:VEVENT\nUID:a\n" + lines + "\nEND:VEVENT";
    };
    const Case cases[] = {
        {EventOf(start + "FREQ=WEEKLY;BYDAY=MO,WE;COUNT=4"), u"2026-04-02"_s,
         u"04-02 04-04 04-09 04-11"_s, "BYDAY=TH,SA"},
        {EventOf(start + "FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,FR;COUNT=4"), u"2026-03-05"_s,
         u"03-05 03-09 03-19 03-23"_s, "WKST=TH"},
        {EventOf(start
                 + "FREQ=DAILY;UNTIL=20260305T090000\nEXDATE:20260303T090000\n"
                   "RDATE:20260310T090000")
             + override("RECURRENCE-ID:20260304T090000\nDTSTART:20260304T110000"),
         u"2026-02-28"_s, u"02-28 03-02T11 03-03 03-08"_s, "RECURRENCE-ID:20260302T090000"},
        {EventOf(start + "FREQ=MONTHLY;BYDAY=-1FR;UNTIL=20260601T000000\nEXDATE:20260327T090000")
             + override("RECURRENCE-ID:20260302T090000\nDTSTART:20260303T110000"),
         u"2026-05-04"_s, u"05-29 06-26 07-31"_s, "UNTIL=20260828T000000"},
        {EventOf(start + "FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=29;COUNT=1"), u"2026-03-03"_s,
         u"02-29"_s, "DTSTART:20280229T090000"},
        // What stands for an occurrence of a series that is not there is an event of its own.
        {"BEGIN:VEVENT\nUID:a\nRECURRENCE-ID:20260302T090000\nDTSTART:20260303T110000\nEND:VEVENT",
         u"2026-05-04"_s, u"05-04T11"_s, "DTSTART:20260504T110000"},
        {EventOf("DTSTART:20260302T090000") + "\n" + EventOf("DTSTART;VALUE=DATE:20260310"),
         u"2026-05-04"_s, u"05-04 05-12"_s, "DTSTART;VALUE=DATE:20260512"},
    };
    for (const Case &one : cases) {
        const QByteArray clip = CalendarOf(one.Events);
        const QByteArray source = CalendarOf("X-WR-TIMEZONE:UTC");
        Agenda agenda = Read(source);
        const AgendaPages pages(agenda);
        pages.Pasted(clip, Read(clip), {{}, Wall(one.Day + u"T00:00:00"_s)}, 0).SwapWith(agenda);
        QStringList starts;
        for (const QString &moment : Starts(agenda).mid(0, 5)) {
            starts.append(moment.mid(5).remove(u":00"_s).remove(u"T09"_s));
        }
        const QByteArray text =
            WriteAgenda(agenda, source, QDateTime(QDate(2026, 4, 1), {}, Qt::UTC));
        EXPECT_EQ(starts.join(u' '), one.Starts) << text.data();
        EXPECT_TRUE(text.contains(one.Written)) << one.Written.data() << text.data();
        EXPECT_EQ(Starts(Read(text)), Starts(agenda)) << text.data();
        EXPECT_FALSE(text.contains("UID:a\n"));
    }
}

} // namespace
} // namespace korvane::planner::test
