#include "AgendaText.h"
#include "agenda/AgendaEdit.h"
#include "agenda/AgendaWriter.h"

namespace korvane::planner::test {
namespace {

using enum AgendaScope;

const QDateTime kNow = QDateTime(QDate(2026, 4, 1), QTime(12, 0), Qt::UTC);

QString Short(const QStringList &starts)
{
    QStringList texts;
    for (const QString &start : starts) {
        texts.append(start.mid(8, 5));
    }
    return texts.join(u' ');
}

/// Removes the occurrence that starts at a moment. What is written reads as what is left, and
/// undone it is the source again.
struct Outcome
{
    QString Starts; ///< days and hours
    QByteArray Text;
};
Outcome Remove(const QByteArray &lines, const QString &from, AgendaScope scope)
{
    const QByteArray source = CalendarOf(lines);
    Agenda agenda = Read(source);
    const AgendaSeconds wall = Wall(from);
    const auto found = AgendaOccurrences(agenda).StartingIn({wall, wall + 1});
    AgendaEdit edit = RemoveOccurrence(agenda, found.at(0), scope);
    edit.SwapWith(agenda);
    const Outcome outcome{Short(Starts(agenda)), WriteAgenda(agenda, source, kNow)};
    EXPECT_EQ(Short(Starts(Read(outcome.Text))), outcome.Starts) << outcome.Text.data();
    edit.SwapWith(agenda);
    EXPECT_EQ(WriteAgenda(agenda, source, kNow), source);
    return outcome;
}

TEST(AgendaRemove, WhatIsMeantGoesAndTheRestStays)
{
    struct Case
    {
        QByteArray Lines;
        QString From;
        AgendaScope Scope;
        QString Starts;
        QByteArray Written;
    };
    const QByteArray zone = "DTSTART;TZID=Europe/Berlin:20260302T090000\n";
    const QByteArray floating = "DTSTART:20260302T090000\n";
    const QByteArray moved = "RECURRENCE-ID:20260303T090000\nDTSTART:20260303T120000";
    const QByteArray later = "RECURRENCE-ID;RANGE=THISANDFUTURE:20260303T090000\n"
                             "DTSTART:20260303T100000";
    const QByteArray four = EventOf(floating + "RRULE:FREQ=DAILY;COUNT=4");
    const Case cases[] = {
        {EventOf(floating + "X-Gone:1"), u"2026-03-02T09:00:00"_s, Occurrence, u""_s, ""},
        {EventOf(zone + "RRULE:FREQ=DAILY;COUNT=3\nX-Keep:1"), u"2026-03-03T09:00:00"_s, Occurrence,
         u"02T09 04T09"_s,
         "RRULE:FREQ=DAILY;COUNT=3\nEXDATE;TZID=Europe/Berlin:20260303T090000\nX-Keep:1\n"},
        {EventOf("DTSTART;VALUE=DATE:20260302\nRRULE:FREQ=DAILY;COUNT=3\n"
                 "EXDATE;X-A=1;VALUE=DATE:20260304"),
         u"2026-03-02T00:00:00"_s, Occurrence, u"03"_s,
         "EXDATE;X-A=1;VALUE=DATE:20260304\nEXDATE;VALUE=DATE:20260302\n"},
        {EventOf(zone + "RRULE:FREQ=DAILY;COUNT=4"), u"2026-03-04T09:00:00"_s, Following,
         u"02T09 03T09"_s, "RRULE:FREQ=DAILY;UNTIL=20260304T075959Z\n"},
        {EventOf("DTSTART;VALUE=DATE:20260302\nRRULE:FREQ=DAILY"), u"2026-03-04T00:00:00"_s,
         Following, u"02 03"_s, "RRULE:FREQ=DAILY;UNTIL=20260303\n"},
        // Rules that end earlier on their own stay as they are.
        {EventOf(floating
                 + "RRULE:FREQ=WEEKLY;COUNT=2\nRRULE:FREQ=DAILY;UNTIL=20260303T090000\n"
                   "RRULE:FREQ=DAILY;INTERVAL=5;COUNT=3\nRDATE:20260320T120000"),
         u"2026-03-12T09:00:00"_s, Following, u"02T09 03T09 07T09 09T09"_s,
         "RRULE:FREQ=WEEKLY;COUNT=2\nRRULE:FREQ=DAILY;UNTIL=20260303T090000\n"},
        {four, u"2026-03-02T09:00:00"_s, Following, u""_s, ""},
        {EventOf(floating + "RRULE:FREQ=DAILY;COUNT=4\nRDATE:20260301T120000"),
         u"2026-03-02T09:00:00"_s, Following, u"01T12"_s, "EXDATE:20260302T090000\n"},
        {four, u"2026-03-04T09:00:00"_s, Series, u""_s, ""},
        // Overrides.
        {four + "\n" + EventOf(moved), u"2026-03-03T12:00:00"_s, Occurrence, u"02T09 04T09 05T09"_s,
         "EXDATE:20260303T090000\n"},
        {four + "\n" + EventOf(moved), u"2026-03-03T12:00:00"_s, Following, u"02T09"_s, ""},
        {four + "\n" + EventOf(moved), u"2026-03-04T09:00:00"_s, Following, u"02T09 03T12"_s,
         "RECURRENCE-ID:20260303T090000\n"},
        {four + "\n" + EventOf(moved), u"2026-03-03T12:00:00"_s, Series, u""_s, ""},
        {four + "\n" + EventOf(later), u"2026-03-03T10:00:00"_s, Occurrence, u"02T09 04T10 05T10"_s,
         "RECURRENCE-ID;RANGE=THISANDFUTURE:20260304T090000\n"},
        {four + "\n" + EventOf(later), u"2026-03-04T10:00:00"_s, Following, u"02T09 03T10"_s, ""},
        // One whose series is elsewhere.
        {EventOf(moved), u"2026-03-03T12:00:00"_s, Series, u""_s, ""},
    };
    for (const Case &one : cases) {
        const Outcome outcome = Remove(one.Lines, one.From, one.Scope);
        EXPECT_EQ(outcome.Starts, one.Starts) << one.Lines.data();
        EXPECT_TRUE(outcome.Text.contains(one.Written)) << outcome.Text.data();
        EXPECT_EQ(outcome.Text.contains("BEGIN:VEVENT"), !one.Starts.isEmpty());
    }
}

TEST(AgendaRemove, SeriesWithoutAUidLoseSingleOccurrencesAsWell)
{
    const QByteArray nameless = "BEGIN:VEVENT\nDTSTART:20260302T090000\nRRULE:FREQ=DAILY;COUNT=2\n"
                                "END:VEVENT";
    EXPECT_EQ(Remove(nameless, u"2026-03-02T09:00:00"_s, Occurrence).Starts, u"03T09"_s);
    const QByteArray twice = nameless + "\n" + nameless;
    EXPECT_EQ(Remove(twice, u"2026-03-02T09:00:00"_s, Series).Starts, u"02T09 03T09"_s);
}

TEST(AgendaRemove, WhatWasAddedIsRemovedAndComesBack)
{
    const QByteArray source = CalendarOf(EventOf("DTSTART:20260302T090000\nX-Keep:1"));
    Agenda agenda = Read(source);
    const auto first = AgendaOccurrences(agenda).StartingIn(kWholeAgenda);
    AgendaEdit copy =
        CopyOccurrence(agenda, first.at(0), {Wall(u"2026-03-05T10:00:00"_s), {0, 7200}, {}, {}});
    copy.SwapWith(agenda);
    QByteArray written = WriteAgenda(agenda, source, kNow);
    EXPECT_EQ(written.count("X-Keep:1"), 2) << "all that was said of it";
    const Agenda reread = Read(written);
    EXPECT_EQ(Short(Starts(reread)), u"02T09 05T10"_s);
    EXPECT_NE(reread.At(0).Uid, reread.At(1).Uid);
    EXPECT_EQ(reread.At(1).Length, (AgendaLength{0, 7200}));

    const AgendaSeconds wall = Wall(u"2026-03-05T10:00:00"_s);
    AgendaEdit removal = RemoveOccurrence(
        agenda, AgendaOccurrences(agenda).StartingIn({wall, wall + 1}).at(0), Occurrence);
    removal.SwapWith(agenda);
    EXPECT_EQ(WriteAgenda(agenda, source, kNow), source);
    EXPECT_EQ(agenda.EventCount(), 1U);
    removal.SwapWith(agenda);
    EXPECT_EQ(WriteAgenda(agenda, source, kNow), written);
}

} // namespace
} // namespace korvane::planner::test
