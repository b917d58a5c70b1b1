#include "AgendaText.h"
#include "agenda/AgendaSummary.h"

namespace korvane::planner::test {
namespace {

QString Joined(const QByteArray &lines, const AgendaRange &range = kWholeAgenda)
{
    return Starts(Read(CalendarOf(lines)), range).join(u' ');
}

TEST(Agenda, SeriesTakePlaceAsTheirPropertiesSay)
{
    struct Case
    {
        QByteArray Name;
        QByteArray Lines;
        QString Starts;
    };
    const QByteArray daily = "DTSTART:20260301T090000\nRRULE:FREQ=DAILY;COUNT=4\n";
    const QByteArray moved = EventOf(daily) + "\n";
    const Case cases[] = {
        {"single", EventOf("DTSTART:20260301T090000"), u"2026-03-01T09:00"_s},
        {"rule", EventOf(daily),
         u"2026-03-01T09:00 2026-03-02T09:00 2026-03-03T09:00 2026-03-04T09:00"_s},
        {"exceptions, one of them unknown",
         EventOf(daily + "EXDATE:20260302T090000,20260303T090000,20260303T100000"),
         u"2026-03-01T09:00 2026-03-04T09:00"_s},
        {"an exception that names a day", EventOf(daily + "EXDATE;VALUE=DATE:20260302"),
         u"2026-03-01T09:00 2026-03-03T09:00 2026-03-04T09:00"_s},
        {"extra dates, one of them twice",
         EventOf("DTSTART:20260301T090000\nRDATE:20260305T100000,20260301T090000"),
         u"2026-03-01T09:00 2026-03-05T10:00"_s},
        {"a start that the rule does not name",
         EventOf("DTSTART:20260303T090000\nRRULE:FREQ=WEEKLY;COUNT=2;BYDAY=MO"),
         u"2026-03-03T09:00 2026-03-09T09:00 2026-03-16T09:00"_s},
        {"a day as the end of a rule of moments",
         EventOf("DTSTART:20260301T090000\nRRULE:FREQ=DAILY;UNTIL=20260302"),
         u"2026-03-01T09:00 2026-03-02T09:00"_s},
        {"all-day",
         EventOf("DTSTART;VALUE=DATE:20260228\nRRULE:FREQ=DAILY;COUNT=2\nDTEND;VALUE=DATE:"
                 "20260301"),
         u"2026-02-28 2026-03-01"_s},
        {"moved", moved + EventOf("RECURRENCE-ID:20260302T090000\nDTSTART:20260309T120000"),
         u"2026-03-01T09:00 2026-03-03T09:00 2026-03-04T09:00 2026-03-09T12:00"_s},
        {"moved twice, the later revision first",
         moved + EventOf("RECURRENCE-ID:20260302T090000\nSEQUENCE:2\nDTSTART:20260309T120000")
             + "\n" + EventOf("RECURRENCE-ID:20260302T090000\nSEQUENCE:1\nDTSTART:20260310T120000"),
         u"2026-03-01T09:00 2026-03-03T09:00 2026-03-04T09:00 2026-03-09T12:00"_s},
        {"moved with all that follow",
         moved
             + EventOf("RECURRENCE-ID;RANGE=THISANDFUTURE:20260303T090000\nDTSTART:"
                       "20260303T113000"),
         u"2026-03-01T09:00 2026-03-02T09:00 2026-03-03T11:30 2026-03-04T11:30"_s},
        {"an override alone", EventOf("RECURRENCE-ID:20260302T090000\nDTSTART:20260309T120000"),
         u"2026-03-09T12:00"_s},
        {"a rule that never comes true",
         EventOf("DTSTART:20260301T090000\nRRULE:FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30"),
         u"2026-03-01T09:00"_s},
        {"a rule that is none", EventOf("DTSTART:20260301T090000\nRRULE:FREQ=SOMETIMES"),
         u"2026-03-01T09:00"_s},
        {"the end in UTC",
         EventOf("DTSTART;TZID=Europe/Berlin:20260328T003000\n"
                 "RRULE:FREQ=DAILY;UNTIL=20260328T233000Z"),
         u"2026-03-28T00:30 2026-03-29T00:30"_s},
        {"an exception in UTC over a change of the clocks",
         EventOf("DTSTART;TZID=Europe/Berlin:20260328T090000\nRRULE:FREQ=DAILY;COUNT=3\n"
                 "EXDATE:20260329T070000Z"),
         u"2026-03-28T09:00 2026-03-30T09:00"_s},
        {"no start", EventOf("SUMMARY:called off"), u""_s},
    };
    for (const Case &one : cases) {
        EXPECT_EQ(Joined(one.Lines), one.Starts) << one.Name.data();
    }
}

TEST(Agenda, RulesEndWithTheRangeAskedFor)
{
    const AgendaRange march{Wall(u"2026-03-01T00:00:00"_s), Wall(u"2026-03-01T12:00:00"_s)};
    const auto starts = [&](const QByteArray &rule) {
        return Joined(EventOf("DTSTART:20200229T090000\nRRULE:" + rule), march);
    };
    EXPECT_EQ(starts("FREQ=HOURLY;INTERVAL=6"), u"2026-03-01T03:00 2026-03-01T09:00"_s);
    EXPECT_EQ(starts("FREQ=SECONDLY;BYMONTH=2;BYMONTHDAY=30"), u""_s);
    EXPECT_EQ(starts("FREQ=SECONDLY;COUNT=2000000000;BYMONTH=2;BYMONTHDAY=30"), u""_s);
    EXPECT_EQ(starts("FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=29"), u""_s);
    const Agenda endless = Read(CalendarOf(EventOf("DTSTART:20260301T000000\nRRULE:FREQ=HOURLY")));
    EXPECT_TRUE(Summarize(endless)[u"occurrences"].isNull());
    EXPECT_EQ(Summarize(endless, {}, march.To)[u"occurrences"].toInt(), 12);
    EXPECT_EQ(Summarize(endless, march.From + 1, march.To)[u"occurrences"].toInt(), 11);
}

TEST(Agenda, ZonesAreFoundByOddNames)
{
    const QByteArray fixed = "BEGIN:VTIMEZONE\nTZID:Here/There\nBEGIN:STANDARD\n"
                             "DTSTART:19700101T000000\nTZOFFSETFROM:+0200\nTZOFFSETTO:+0200\n"
                             "END:STANDARD\nEND:VTIMEZONE\n";
    const std::pair<QByteArray, int> cases[] = {
        {"TZID=Here/There", 2},
        {"TZID=Europe/Berlin", 1},
        {"TZID=W. Europe Standard Time", 1},
        {"TZID=\"W. Europe Standard Time\"", 1},
        {"TZID=/example.org/20070101_1/Europe/Berlin", 1},
        {"TZID=\"(UTC-05:00) Eastern Time (US & Canada)\"", -5},
        {"TZID=\"GMT+0530\"", 5},
        {"X-NONE=1", 0},
    };
    for (const auto &[parameter, hours] : cases) {
        const Agenda agenda =
            Read(CalendarOf(fixed + EventOf("DTSTART;" + parameter + ":20260115T120000")));
        const AgendaTime start = *agenda.Events.at(0).Start;
        EXPECT_EQ((start.Wall - agenda.UtcOf(start)) / 3600, hours) << parameter.data();
        EXPECT_TRUE(agenda.Remarks.IsEmpty()) << parameter.data();
    }
    const Agenda unknown = Read(CalendarOf(EventOf("DTSTART;TZID=Atlantis:20260115T120000")));
    EXPECT_EQ(unknown.Events.at(0).Start->Zone, kFloating);
    EXPECT_EQ(unknown.Remarks.Items().size(), 1U);
}

TEST(Agenda, LengthsComeFromEndsAndDurations)
{
    struct Case
    {
        QByteArray Lines;
        AgendaLength Length;
    };
    const Case cases[] = {
        {"DTSTART:20260301T090000", {0, 0}},
        {"DTSTART:20260301T090000\nDTEND:20260301T103000", {0, 5400}},
        {"DTSTART:20260301T090000\nDTEND:20260301T083000", {0, 0}},
        {"DTSTART:20260301T090000\nDURATION:P1DT2H", {1, 7200}},
        {"DTSTART:20260301T090000\nDURATION:-PT2H", {0, 0}},
        {"DTSTART:20260301T090000\nDURATION:PT", {0, 0}},
        {"DTSTART:20260301T090000Z\nDTEND;TZID=Europe/Berlin:20260301T110000", {0, 3600}},
        {"DTSTART;TZID=Europe/Berlin:20260329T013000\nDTEND;TZID=Europe/Berlin:20260329T033000",
         {0, 3600}},
        {"DTSTART;VALUE=DATE:20260301", {1, 0}},
        {"DTSTART:20260301\nDTEND:20260303", {2, 0}},
        {"DTSTART;VALUE=DATE:20260301\nDTEND;VALUE=DATE:20260301", {1, 0}},
        {"DTSTART;VALUE=DATE:20260301T120000\nDTEND;VALUE=DATE:20260302T120000", {0, 86400}},
        {"DTSTART:10260301T090000\nDTEND:20260301T083000", {36600, 0}},
    };
    for (const Case &one : cases) {
        EXPECT_EQ(Read(CalendarOf(EventOf(one.Lines))).Events.at(0).Length, one.Length)
            << one.Lines.data();
    }
}

TEST(Agenda, TextsAreUnfoldedAndUnescaped)
{
    const Agenda agenda =
        Read("\xEF\xBB\xBF"
             "BEGIN:VCALENDAR\r\nX-WR-CALNAME:Work\\, mostly\r\nbegin:vevent\r\n"
             "SUMMARY;LANGUAGE=de:Gr\xC3\r\n \xBC\xC3\x9F\r\n e\\, \\n\r\nDESCRI\r\n "
             "PTION:END:VEVENT\r\n"
             "LOCATION:here\r\nBEGIN:VALARM\r\nDESCRIPTION:ring\r\nEND:VALARM\r\nend:vevent\r\n"
             "END:VCALENDAR");
    EXPECT_EQ(agenda.Name, u"Work, mostly"_s);
    ASSERT_EQ(agenda.Events.size(), 1U);
    EXPECT_EQ(agenda.Events[0].Title, u"Gr\u00fc\u00dfe, \n"_s);
    EXPECT_EQ(agenda.Events[0].Place, u"here"_s);
    EXPECT_EQ(agenda.Events[0].Notes, u"END:VEVENT"_s);
    EXPECT_TRUE(agenda.Remarks.IsEmpty());
}

TEST(Agenda, TextsThatAreNoCalendarAreRefused)
{
    const std::tuple<QByteArray, qint64, QString> cases[] = {
        {"hello\nthere\n", 1, u"no calendar"_s},
        {"BEGIN:VCALENDAR\nBEGIN:VEVENT\nUID:1\n", 3, u"ends within VEVENT"_s},
        {"BEGIN:VCALENDAR\nVERSION:2.0", 2, u"ends within VCALENDAR"_s},
        {"BEGIN:VCALENDAR\nBEGIN:VCALENDAR\nEND:VCALENDAR\n", 2, u"within a calendar"_s},
        {QByteArray("BEGIN:VCALENDAR\n\0\nEND:VCALENDAR\n", 32), 2, u"is text"_s},
        {"BEGIN:VCALENDAR\n" + QByteArray("BEGIN:VEVENT\n").repeated(1000), 21, u"too deep"_s},
    };
    for (const auto &[text, line, reason] : cases) {
        NoProgress progress;
        try {
            ReadAgenda(text, progress);
            ADD_FAILURE() << text.left(60).data();
        } catch (const PlanRefusal &refusal) {
            EXPECT_EQ(refusal.Error().Line, line) << text.left(60).data();
            EXPECT_TRUE(refusal.Error().Reason.contains(reason)) << text.left(60).data();
        }
    }
}

TEST(Agenda, OdditiesAreRemarkedOn)
{
    const std::tuple<QByteArray, qint64, std::size_t> cases[] = {
        {CalendarOf("END:VEVENT\n" + EventOf("DTSTART:20260301T090000")), 3, 1},
        {"hi\n" + CalendarOf(EventOf("DTSTART:20260301T090000")), 1, 1},
        {CalendarOf("BEGIN:VEVENT\nDTSTART:20260301T090000"), 5, 1},
        {CalendarOf(EventOf("DTSTART:20261301T090000")), 3, 1},
        {CalendarOf(EventOf("DTSTART:20260301T090000\nRRULE:FREQ=NEVER\nno property")), 3, 1},
        {CalendarOf(EventOf("DTSTART:20260301T090000\nDTSTART:20260302T090000")), 3, 1},
        {EventOf("DTSTART:20260301T090000") + "\n" + CalendarOf(""), 1, 1},
    };
    for (const auto &[text, line, events] : cases) {
        const Agenda agenda = Read(text);
        EXPECT_EQ(agenda.Events.size(), events) << text.data();
        ASSERT_FALSE(agenda.Remarks.IsEmpty()) << text.data();
        EXPECT_EQ(agenda.Remarks.Items()[0].Line, line) << text.data();
    }
}

} // namespace
} // namespace korvane::planner::test
