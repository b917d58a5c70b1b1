#include "AgendaText.h"
#include "agenda/AgendaWriter.h"
#include "agenda/SchedulePage.h"

namespace korvane::planner::test {
namespace {

using enum AgendaScope;

const QDateTime kNow = QDateTime(QDate(2026, 4, 1), QTime(12, 0), Qt::UTC);
const AgendaSeconds kMonday = Wall(u"2026-03-02T00:00:00"_s);

/// A calendar that a form changes.
class Form
{
public:
    explicit Form(const QByteArray &source)
        : m_source(source)
        , m_agenda(Read(source))
        , m_pages(m_agenda)
    {
    }

    AgendaOccurrence At(const QString &from) const
    {
        const AgendaSeconds wall = Wall(from);
        return AgendaOccurrences(m_agenda).StartingIn({wall, wall + 1}).at(0);
    }
    ScheduleDraft Draft(const QString &from) const { return m_pages.DraftOf(At(from)); }
    QString Edit(const QString &from, const ScheduleDraft &draft, AgendaScope scope)
    {
        auto edit = m_pages.Edited(At(from), draft, scope);
        if (auto *reason = std::get_if<QString>(&edit)) {
            return *reason;
        }
        std::get<AgendaEdit>(edit).SwapWith(m_agenda);
        return {};
    }
    void Add(const ScheduleDraft &draft) { m_pages.Added(draft).SwapWith(m_agenda); }
    void Paste(const QByteArray &text, const ScheduleColumn &target)
    {
        m_pages.Pasted(text, Read(text), target, 0).SwapWith(m_agenda);
    }
    /// What is written reads as what is there.
    QByteArray Written() const
    {
        const QByteArray text = WriteAgenda(m_agenda, m_source, kNow);
        EXPECT_EQ(Starts(Read(text)), Starts(m_agenda)) << text.data();
        return text;
    }
    const Agenda &GetAgenda() const { return m_agenda; }

private:
    QByteArray m_source;
    Agenda m_agenda;
    AgendaPages m_pages;
};

QString Days(const Agenda &agenda)
{
    QStringList days;
    for (const QString &start : Starts(agenda, {kMonday, kMonday + 40 * kSecondsPerDay})) {
        days.append(start.mid(5));
    }
    return days.join(u' ');
}

TEST(AgendaForm, RulesAreShownAndMade)
{
    using enum AgendaRepeat;
    struct Case
    {
        QByteArray Start;
        QByteArray Rule;
        AgendaSimpleRule Shown;
        QByteArray Made; ///< where it is not the same
    };
    const AgendaSeconds last = Wall(u"2026-03-20T00:00:00"_s);
    const QByteArray floating = "DTSTART:20260302T090000\n";
    const QByteArray zone = "DTSTART;TZID=Europe/Berlin:20260302T090000\n";
    const Case cases[] = {
        {floating, "FREQ=DAILY", {Daily}, {}},
        {floating, "FREQ=DAILY;INTERVAL=3;COUNT=5", {Daily, 3, 0, 5}, {}},
        {floating, "FREQ=WEEKLY;BYDAY=MO", {Weekly}, "FREQ=WEEKLY"},
        {floating,
         "FREQ=WEEKLY;BYDAY=MO,WE,SU;WKST=MO",
         {Weekly, 1, 0b1000101},
         "FREQ=WEEKLY;BYDAY=MO,WE,SU"},
        {floating, "FREQ=WEEKLY;UNTIL=20260320T235959", {Weekly, 1, 0, 0, last}, {}},
        {zone, "FREQ=DAILY;UNTIL=20260320T225959Z", {Daily, 1, 0, 0, last}, {}},
        {"DTSTART;VALUE=DATE:20260302\n", "FREQ=DAILY;UNTIL=20260320", {Daily, 1, 0, 0, last}, {}},
        {floating, "FREQ=MONTHLY;BYMONTHDAY=2", {Monthly}, "FREQ=MONTHLY"},
        {floating, "FREQ=YEARLY;BYMONTH=3;BYMONTHDAY=2", {Yearly}, "FREQ=YEARLY"},
        {floating, "FREQ=WEEKLY;INTERVAL=2;WKST=SU", {Other}, {}},
        {floating, "FREQ=MONTHLY;BYDAY=1MO", {Other}, {}},
        {floating, "FREQ=YEARLY;BYMONTHDAY=2", {Other}, {}},
        {floating, "FREQ=DAILY;BYHOUR=9,12", {Other}, {}},
        {floating, "FREQ=HOURLY", {Other}, {}},
    };
    for (const Case &one : cases) {
        const Agenda agenda = Read(CalendarOf(EventOf(one.Start + "RRULE:" + one.Rule)));
        const AgendaSimpleRule rule = SimpleRuleOf(agenda, agenda.At(0));
        EXPECT_EQ(rule, one.Shown) << one.Rule.data();
        if (rule.Repeat != Other) {
            EXPECT_EQ(RuleText(agenda, rule, *agenda.At(0).Start),
                      one.Made.isEmpty() ? one.Rule : one.Made);
        }
    }
}

TEST(AgendaForm, AFormThatChangesNothingLeavesTheFileAsItIs)
{
    const QByteArray source = CalendarOf(EventOf(
        "SUMMARY;LANGUAGE=de:Wort\\, zwei\nDESCRIPTION:a\\nb\nRRULE:FREQ=MONTHLY;BYDAY=1MO\n"
        "DTSTART;TZID=Europe/Berlin:20260302T090017\nDURATION:PT61S"));
    Form form(source);
    const QString from = u"2026-03-02T09:00:17"_s;
    EXPECT_EQ(form.Draft(from).Title, u"Wort, zwei"_s);
    EXPECT_EQ(form.Edit(from, form.Draft(from), Series), u""_s);
    EXPECT_EQ(form.Written(), source);
}

TEST(AgendaForm, TextsAreWrittenAndReachTheOccurrencesThatHadThem)
{
    Form form(CalendarOf(
        EventOf("SUMMARY:Old\nDESCRIPTION;ALTREP=\"x:y\":d\nX-ALT-DESC:<d>\n"
                "DTSTART:20260302T090000\nRRULE:FREQ=DAILY;COUNT=3")
        + "\n" + EventOf("SUMMARY:Old\nRECURRENCE-ID:20260303T090000\nDTSTART:20260303T120000")
        + "\n" + EventOf("SUMMARY:Own\nRECURRENCE-ID:20260304T090000\nDTSTART:20260304T120000")));
    const QString from = u"2026-03-02T09:00:00"_s;
    ScheduleDraft draft = form.Draft(from);
    draft.Title = u"New; \u00e4"_s;
    draft.Notes = u"one\ntwo, three"_s;
    EXPECT_EQ(form.Edit(from, draft, Series), u""_s);
    const QByteArray text = form.Written();
    EXPECT_EQ(text.count("SUMMARY:New\\; \xc3\xa4\n"), 2) << text.data();
    EXPECT_TRUE(text.contains("SUMMARY:Own\n"));
    EXPECT_TRUE(text.contains("DESCRIPTION:one\\ntwo\\, three\n"));
    EXPECT_FALSE(text.contains("X-ALT-DESC"));
    EXPECT_EQ(Read(text).At(0).Notes, draft.Notes);
}

TEST(AgendaForm, RulesComeGoAndChange)
{
    struct Case
    {
        QByteArray Lines;
        QString From;
        AgendaSimpleRule Rule;
        AgendaScope Scope;
        QString Days;
        QByteArray Written;
    };
    using enum AgendaRepeat;
    const QByteArray single = "DTSTART:20260302T090000\nDTEND:20260302T100000";
    const QByteArray daily = single + "\nRRULE:FREQ=DAILY;COUNT=3\nEXDATE:20260303T090000";
    const QByteArray moved = EventOf("RECURRENCE-ID:20260304T090000\nDTSTART:20260304T120000");
    const Case cases[] = {
        {EventOf(single),
         u"2026-03-02T09:00:00"_s,
         {Weekly, 1, 0, 2},
         Occurrence,
         u"03-02T09:00 03-09T09:00"_s,
         "RRULE:FREQ=WEEKLY;COUNT=2\n"},
        // The rule does not give the day of the start.
        {EventOf(single),
         u"2026-03-02T09:00:00"_s,
         {Weekly, 1, 0b1010, 3},
         Occurrence,
         u"03-03T09:00 03-05T09:00 03-10T09:00"_s,
         "DTSTART:20260303T090000\n"},
        {EventOf(daily) + "\n" + moved,
         u"2026-03-02T09:00:00"_s,
         {},
         Series,
         u"03-02T09:00"_s,
         "DTEND:20260302T100000\n"},
        {EventOf(daily),
         u"2026-03-04T09:00:00"_s,
         {Daily, 2, 0, 2},
         Series,
         u"03-02T09:00 03-04T09:00"_s,
         "RRULE:FREQ=DAILY;INTERVAL=2;COUNT=2\n"},
        {EventOf(daily),
         u"2026-03-04T09:00:00"_s,
         {Weekly, 1, 0, 2},
         Following,
         u"03-02T09:00 03-04T09:00 03-11T09:00"_s,
         "RRULE:FREQ=DAILY;UNTIL=20260304T085959\n"},
        {EventOf(daily),
         u"2026-03-04T09:00:00"_s,
         {},
         Following,
         u"03-02T09:00 03-04T09:00"_s,
         "RRULE:FREQ=DAILY;UNTIL=20260304T085959\n"},
    };
    for (const Case &one : cases) {
        Form form(CalendarOf(one.Lines));
        ScheduleDraft draft = form.Draft(one.From);
        draft.Rule = one.Rule;
        EXPECT_EQ(form.Edit(one.From, draft, one.Scope), u""_s) << one.Lines.data();
        EXPECT_EQ(Days(form.GetAgenda()), one.Days);
        const QByteArray text = form.Written();
        EXPECT_TRUE(text.contains(one.Written)) << text.data();
    }
}

TEST(AgendaForm, WholeDaysBecomeTimesAndTimesWholeDays)
{
    struct Case
    {
        QByteArray Lines;
        QString From;
        AgendaScope Scope;
        QString Days;
        QByteArrayList Written;
    };
    const QByteArray zone = "X-A:1\nDTSTART;TZID=Europe/Berlin:20260302T090000\n";
    const QByteArray day = "DTSTART;VALUE=DATE:20260302\nDTEND;VALUE=DATE:20260303\n";
    const Case cases[] = {
        {zone + "DTEND;TZID=Europe/Berlin:20260302T100000",
         u"2026-03-02T09:00:00"_s,
         Occurrence,
         u"03-02"_s,
         {"DTSTART;VALUE=DATE:20260302\n", "DTEND;VALUE=DATE:20260303\n"}},
        {zone
             + "DURATION:PT1H\nRRULE:FREQ=DAILY;UNTIL=20260304T080000Z\n"
               "EXDATE;TZID=Europe/Berlin:20260303T090000",
         u"2026-03-02T09:00:00"_s,
         Series,
         u"03-02 03-04"_s,
         {"RRULE:FREQ=DAILY;UNTIL=20260304\n", "EXDATE;VALUE=DATE:20260303\n", "DURATION:P1D\n"}},
        {zone + "DURATION:PT1H\nRRULE:FREQ=DAILY;COUNT=3",
         u"2026-03-03T09:00:00"_s,
         Occurrence,
         u"03-02T09:00 03-03 03-04T09:00"_s,
         {"RECURRENCE-ID;TZID=Europe/Berlin:20260303T090000\n", "DTSTART;VALUE=DATE:20260303\n"}},
        {day, u"2026-03-02T00:00:00"_s, Occurrence, u"03-02T09:00"_s, {"DTSTART", "DTEND"}},
        {day + "RRULE:FREQ=DAILY;UNTIL=20260304\nEXDATE;VALUE=DATE:20260303",
         u"2026-03-02T00:00:00"_s,
         Series,
         u"03-02T09:00 03-04T09:00"_s,
         {"UNTIL=20260304T"}},
    };
    for (const Case &one : cases) {
        Form form(CalendarOf("X-WR-TIMEZONE:Europe/Berlin\n" + EventOf(one.Lines)));
        ScheduleDraft draft = form.Draft(one.From);
        draft.IsAllDay = !draft.IsAllDay;
        const AgendaSeconds first = DayOf(draft.Times.From) * kSecondsPerDay;
        draft.Times = draft.IsAllDay ? AgendaRange{first, first + kSecondsPerDay}
                                     : AgendaRange{first + 9 * 3600, first + 10 * 3600};
        EXPECT_EQ(form.Edit(one.From, draft, one.Scope), u""_s) << one.Lines.data();
        const QByteArray text = form.Written();
        EXPECT_EQ(Days(form.GetAgenda()), one.Days) << text.data();
        for (const QByteArray &line : one.Written) {
            EXPECT_TRUE(text.contains(line)) << line.data() << text.data();
        }
    }
}

TEST(AgendaForm, NewEventsAreWholeComponentsAndBringTheirZone)
{
    const QByteArray source =
        CalendarOf("X-WR-TIMEZONE:Asia/Tokyo\n" + EventOf("X-Keep:1")).replace("\n", "\r\n");
    Form form(source);
    ScheduleDraft draft;
    draft.Title = u"Tea, and more"_s;
    draft.Place = u"Hall"_s;
    draft.Notes = QString(100, u'x');
    draft.Times = {kMonday + 9 * 3600, kMonday + 10 * 3600};
    draft.Rule = {AgendaRepeat::Weekly, 2, 0, 3};
    form.Add(draft);
    draft.IsAllDay = true;
    draft.Rule = {};
    draft.Times = {kMonday, kMonday + 2 * kSecondsPerDay};
    form.Add(draft);
    const QByteArray text = form.Written();
    EXPECT_EQ(text.count("\r\n"), text.count('\n'));
    EXPECT_EQ(text.count("BEGIN:VTIMEZONE\r\nTZID:Asia/Tokyo\r\n"), 1) << text.data();
    const Agenda reread = Read(text);
    ASSERT_EQ(reread.Events.size(), 3U);
    const AgendaEvent &series = reread.At(1);
    EXPECT_EQ(series.Title, draft.Title);
    EXPECT_EQ(series.Place, draft.Place);
    EXPECT_EQ(series.Notes, draft.Notes);
    EXPECT_EQ(series.Length, (AgendaLength{0, 3600}));
    EXPECT_EQ(reread.UtcOf(*series.Start), kMonday);
    EXPECT_TRUE(text.contains("\r\nRRULE:FREQ=WEEKLY;INTERVAL=2;COUNT=3\r\n"));
    EXPECT_EQ(reread.At(2).Length, (AgendaLength{2, 0}));
    EXPECT_TRUE(reread.Remarks.Lines().empty());

    // One occurrence of what has never been in a file.
    ScheduleDraft other = form.Draft(u"2026-03-16T09:00:00"_s);
    other.Title = u"Other"_s;
    EXPECT_EQ(form.Edit(u"2026-03-16T09:00:00"_s, other, Occurrence), u""_s);
    EXPECT_TRUE(form.Written().contains("RECURRENCE-ID;TZID=Asia/Tokyo:20260316T090000\r\n"));
}

TEST(AgendaForm, SeriesGoIntoAnotherCalendarWithAllThatBelongsToThem)
{
    const QByteArray series =
        EventOf("DTSTART:20260302T090000\nRRULE:FREQ=DAILY;COUNT=3") + "\n"
        + EventOf("RECURRENCE-ID:20260303T090000\nDTSTART:20260303T120000\nX-Keep:1");
    const QByteArray other = "BEGIN:VEVENT\nUID:b\nDTSTART:20260601T000000\nEND:VEVENT";
    struct Case
    {
        AgendaScope Scope;
        bool IsPossible;
        int Left; ///< events in the first calendar
    };
    for (const Case &one : {Case{Series, true, 0}, {Following, true, 2}, {Occurrence, false, 2}}) {
        Form form(CalendarOf(series) + CalendarOf(other));
        const QString from = u"2026-03-04T09:00:00"_s;
        ScheduleDraft draft = form.Draft(from);
        draft.Calendar = 1;
        EXPECT_EQ(form.Edit(from, draft, one.Scope).isEmpty(), one.IsPossible);
        const Agenda reread = Read(form.Written());
        EXPECT_EQ(std::ranges::count(reread.Events, 0, &AgendaEvent::Calendar), one.Left);
        EXPECT_EQ(Days(reread), u"03-02T09:00 03-03T12:00 03-04T09:00"_s);
    }
}

TEST(AgendaForm, WhatIsPastedComesFromAnywhere)
{
    const QByteArray zone = "BEGIN:VTIMEZONE\nTZID:Odd\nBEGIN:STANDARD\nDTSTART:19700101T000000\n"
                            "TZOFFSETFROM:+0500\nTZOFFSETTO:+0500\nEND:STANDARD\nEND:VTIMEZONE\n";
    const QByteArray clip = CalendarOf(
        zone
        + EventOf("SUMMARY:Two\nX-Keep:1\nDTSTART;TZID=Odd:20200105T090000\nDURATION:PT1H\n"
                  "BEGIN:VALARM\nACTION:AUDIO\nEND:VALARM")
        + "\nBEGIN:VEVENT\nUID:z\nSUMMARY:One\nDTSTART;VALUE=DATE:20200104\nEND:VEVENT");
    const QByteArray source = CalendarOf("X-WR-TIMEZONE:UTC\n" + EventOf("X-Keep:2"));
    Form form(source);
    form.Paste(clip, {u"Monday"_s, kMonday, u"Hall"_s, {}});
    const QByteArray text = form.Written();
    EXPECT_EQ(Days(form.GetAgenda()), u"03-02 03-03T09:00"_s);
    const Agenda reread = Read(text);
    ASSERT_EQ(reread.Events.size(), 3U);
    EXPECT_EQ(reread.UtcOf(*reread.At(1).Start), Wall(u"2026-03-03T04:00:00"_s));
    EXPECT_EQ(reread.At(1).Place, u"Hall"_s);
    EXPECT_NE(reread.At(1).Uid, "a");
    EXPECT_TRUE(text.contains("X-Keep:1\n"));
    EXPECT_TRUE(text.contains("BEGIN:VALARM\n"));
    EXPECT_TRUE(text.contains("TZID:Odd\n"));

    // What is copied is what is pasted.
    const std::vector<AgendaEvent> copies{
        SingleEventLike(form.GetAgenda(), form.At(u"2026-03-03T09:00:00"_s))};
    Form another(CalendarOf(""));
    another.Paste(WriteClip(form.GetAgenda(), source, copies), {u"Monday"_s, kMonday});
    EXPECT_EQ(Days(another.GetAgenda()), u"03-02T09:00"_s);
    EXPECT_TRUE(another.Written().contains("X-Keep:1\n"));
}

} // namespace
} // namespace korvane::planner::test
