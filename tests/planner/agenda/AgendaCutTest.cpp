#include "AgendaText.h"
#include "agenda/AgendaEdit.h"
#include "agenda/AgendaWriter.h"

namespace korvane::planner::test {
namespace {

const QDateTime kNow = QDateTime(QDate(2026, 4, 1), QTime(12, 0), Qt::UTC);

/// Changes the occurrence that starts at a moment; why not, where that fails.
QString Change(Agenda &agenda, const QString &from, const AgendaChange &change, AgendaScope scope)
{
    const AgendaSeconds wall = Wall(from);
    const auto found = AgendaOccurrences(agenda).StartingIn({wall, wall + 1});
    auto edit = ChangeOccurrence(agenda, found.at(0), change, scope);
    if (auto *reason = std::get_if<QString>(&edit)) {
        return *reason;
    }
    std::get<AgendaEdit>(edit).SwapWith(agenda);
    return {};
}

/// What is written reads as what was to be written, and an undone change as what was there.
struct Outcome
{
    QStringList Starts;
    QByteArray Text;
};
Outcome Following(const QByteArray &lines, const QString &from, const QString &to)
{
    const QByteArray source = CalendarOf(lines);
    Agenda agenda = Read(source);
    const AgendaSeconds wall = Wall(from);
    const auto found = AgendaOccurrences(agenda).StartingIn({wall, wall + 1});
    auto edit = ChangeOccurrence(agenda, found.at(0), {Wall(to), found[0].Length, {}, {}},
                                 AgendaScope::Following);
    EXPECT_TRUE(std::holds_alternative<AgendaEdit>(edit)) << lines.data();
    std::get<AgendaEdit>(edit).SwapWith(agenda);
    const Outcome outcome{Starts(agenda), WriteAgenda(agenda, source, kNow)};
    EXPECT_EQ(Starts(Read(outcome.Text)), outcome.Starts) << outcome.Text.data();
    std::get<AgendaEdit>(edit).SwapWith(agenda);
    EXPECT_EQ(WriteAgenda(agenda, source, kNow), source);
    return outcome;
}

TEST(AgendaCut, ASeriesGoesOnElsewhereFromAnOccurrenceOn)
{
    struct Case
    {
        QByteArray Lines;
        QString From;
        QString To;
        QString Starts; ///< days, and hours where they matter
        QByteArray Written;
    };
    const QByteArray zone = "DTSTART;TZID=Europe/Berlin:20260302T090000\n";
    const QByteArray floating = "DTSTART:20260302T090000\n";
    const Case cases[] = {
        {zone + "RRULE:FREQ=DAILY;COUNT=4", u"2026-03-04T09:00:00"_s, u"2026-03-04T11:00:00"_s,
         u"02T09 03T09 04T11 05T11"_s, "RRULE:FREQ=DAILY;UNTIL=20260304T075959Z\n"},
        {zone + "RRULE:FREQ=DAILY;COUNT=4", u"2026-03-04T09:00:00"_s, u"2026-03-04T11:00:00"_s,
         u"02T09 03T09 04T11 05T11"_s, "RRULE:FREQ=DAILY;COUNT=2\n"},
        {floating + "RRULE:FREQ=WEEKLY;UNTIL=20260320T090000;BYDAY=MO,FR", u"2026-03-09T09:00:00"_s,
         u"2026-03-10T09:00:00"_s, u"02T09 06T09 10T09 14T09 17T09 21T09"_s,
         "RRULE:FREQ=WEEKLY;UNTIL=20260309T085959;BYDAY=MO,FR\n"},
        {"DTSTART;VALUE=DATE:20260302\nRRULE:FREQ=DAILY;INTERVAL=2;COUNT=3",
         u"2026-03-04T00:00:00"_s, u"2026-03-05T00:00:00"_s, u"02 05 07"_s,
         "RRULE:FREQ=DAILY;INTERVAL=2;UNTIL=20260303\n"},
        {floating
             + "RRULE:FREQ=DAILY;COUNT=5\nEXDATE:20260303T090000\nEXDATE:20260305T090000\n"
               "RDATE:20260301T120000\nRDATE:20260310T090000",
         u"2026-03-04T09:00:00"_s, u"2026-03-04T10:00:00"_s, u"01T12 02T09 04T10 06T10 10T10"_s,
         "EXDATE:20260305T100000\n"},
        // From the first one on it is the whole series.
        {floating + "RRULE:FREQ=DAILY;COUNT=2", u"2026-03-02T09:00:00"_s, u"2026-03-02T10:00:00"_s,
         u"02T10 03T10"_s, "SEQUENCE:1"},
        // Rules that cannot be cut, or moved: an override holds from there on.
        {floating + "RRULE:FREQ=DAILY;COUNT=2\nRRULE:FREQ=WEEKLY;COUNT=2", u"2026-03-03T09:00:00"_s,
         u"2026-03-03T10:00:00"_s, u"02T09 03T10 09T10"_s,
         "RECURRENCE-ID;RANGE=THISANDFUTURE:20260303T090000\n"},
        {floating + "RRULE:FREQ=MONTHLY;BYDAY=1MO;COUNT=3", u"2026-04-06T09:00:00"_s,
         u"2026-04-07T09:00:00"_s, u"02T09 07T09 05T09"_s, ";RANGE=THISANDFUTURE:"},
    };
    for (const Case &one : cases) {
        const Outcome outcome = Following(EventOf("X-Keep;a=b:c\n" + one.Lines), one.From, one.To);
        QStringList starts;
        for (const QString &start : outcome.Starts) {
            starts.append(start.mid(8, 5));
        }
        EXPECT_EQ(starts.join(u' '), one.Starts) << one.Lines.data();
        EXPECT_TRUE(outcome.Text.contains(one.Written)) << outcome.Text.data();
        EXPECT_GE(outcome.Text.count("X-Keep;a=b:c\n"), outcome.Text.count("BEGIN:VEVENT"));
    }
}

TEST(AgendaCut, OverridesFollowTheirPartOfTheSeries)
{
    const QByteArray lines = EventOf("DTSTART:20260302T090000\nRRULE:FREQ=DAILY;COUNT=4") + "\n"
                             + EventOf("RECURRENCE-ID:20260303T090000\nDTSTART:20260303T120000")
                             + "\n"
                             + EventOf("RECURRENCE-ID:20260305T090000\nDTSTART:20260305T150000");
    const Outcome outcome = Following(lines, u"2026-03-04T09:00:00"_s, u"2026-03-04T08:00:00"_s);
    EXPECT_EQ(outcome.Starts, (QStringList{u"2026-03-02T09:00"_s, u"2026-03-03T12:00"_s,
                                           u"2026-03-04T08:00"_s, u"2026-03-05T15:00"_s}));
    EXPECT_TRUE(outcome.Text.contains("RECURRENCE-ID:20260305T080000\n"));
    EXPECT_EQ(outcome.Text.count("UID:a\n"), 2);
}

TEST(AgendaCut, RulesThatCannotBeReadStayAsTheyAre)
{
    const QByteArray source = CalendarOf(
        EventOf("DTSTART:20260302T090000\nRRULE:FREQ=NEVER\nRRULE:FREQ=WEEKLY;COUNT=2;BYDAY=MO"));
    Agenda agenda = Read(source);
    EXPECT_EQ(Change(agenda, u"2026-03-02T09:00:00"_s,
                     {Wall(u"2026-03-03T09:00:00"_s), {0, 3600}, {}, {}}, AgendaScope::Series),
              u""_s);
    const QByteArray written = WriteAgenda(agenda, source, kNow);
    EXPECT_TRUE(written.contains("RRULE:FREQ=NEVER\nRRULE:FREQ=WEEKLY;COUNT=2;BYDAY=TU\n"))
        << written.data();
}

TEST(AgendaCut, PlacesAndCalendarsAreTakenOn)
{
    const QByteArray zone = "BEGIN:VTIMEZONE\nTZID:Own\nBEGIN:STANDARD\nDTSTART:19700101T000000\n"
                            "TZOFFSETFROM:+0300\nTZOFFSETTO:+0300\nEND:STANDARD\nEND:VTIMEZONE\n";
    const QByteArray single = "BEGIN:VEVENT\nUID:s\nSUMMARY:One\nLOCATION;ALTREP=\"x:y\":Hall\n"
                              "DTSTART;TZID=Own:20260302T090000\nDURATION:PT1H\nEND:VEVENT\n";
    const QByteArray source = CalendarOf(zone + single) + CalendarOf(EventOf("DTSTART:20260401"));
    Agenda agenda = Read(source);
    const AgendaSeconds start = Wall(u"2026-03-02T09:00:00"_s);
    const auto change = [&](std::optional<QString> place, std::optional<int> calendar) {
        return Change(agenda, u"2026-03-02T09:00:00"_s, {start, {0, 3600}, place, calendar},
                      AgendaScope::Occurrence);
    };
    EXPECT_EQ(change(u"Room 1; left, up\\"_s, {}), u""_s);
    QByteArray written = WriteAgenda(agenda, source, kNow);
    EXPECT_TRUE(written.contains("\nLOCATION:Room 1\\; left\\, up\\\\\n")) << written.data();
    EXPECT_EQ(Read(written).Events.at(0).Place, u"Room 1; left, up\\"_s);
    EXPECT_EQ(change(u""_s, 1), u""_s);
    written = WriteAgenda(agenda, source, kNow);
    const Agenda after = Read(written);
    EXPECT_FALSE(written.contains("LOCATION"));
    ASSERT_EQ(after.Events.size(), 2U);
    EXPECT_EQ(after.Events.at(1).Uid, "s");
    EXPECT_EQ(after.Events.at(1).Calendar, 1);
    EXPECT_EQ(after.UtcOf(*after.Events.at(1).Start), agenda.UtcOf(*agenda.Events.at(0).Start));
    EXPECT_EQ(written.count("TZID:Own\n"), 2) << "it takes its zone along";

    Agenda series = Read(CalendarOf(EventOf("DTSTART:20260302T090000\nRRULE:FREQ=DAILY"))
                         + CalendarOf(EventOf("DTSTART:20260302T120000")));
    for (const char *from : {"2026-03-02T09:00:00", "2026-03-02T12:00:00"}) {
        const AgendaSeconds wall = Wall(QString::fromLatin1(from));
        const int target = from[12] == '9' ? 1 : 0; // the other one has a series, or the same UID
        EXPECT_NE(Change(series, QString::fromLatin1(from), {wall, {0, 0}, {}, target},
                         AgendaScope::Occurrence),
                  u""_s);
    }
}

} // namespace
} // namespace korvane::planner::test
