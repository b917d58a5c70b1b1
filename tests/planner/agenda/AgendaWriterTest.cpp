#include "AgendaText.h"
#include "agenda/AgendaEdit.h"
#include "agenda/AgendaWriter.h"

#include <QFile>

namespace korvane::planner::test {
namespace {

const QDateTime kNow = QDateTime(QDate(2026, 4, 1), QTime(12, 0), Qt::UTC);

/// Moves the occurrence that starts at a moment; why not, where that fails.
QString Move(Agenda &agenda, const QString &from, const QString &to, AgendaScope scope,
             std::optional<AgendaLength> length = {})
{
    const AgendaSeconds wall = Wall(from);
    const auto found = AgendaOccurrences(agenda).StartingIn({wall, wall + 1});
    if (found.empty()) {
        return u"no such occurrence"_s;
    }
    auto edit = ChangeOccurrence(agenda, found[0],
                                 {Wall(to), length.value_or(found[0].Length), {}, {}}, scope);
    if (auto *reason = std::get_if<QString>(&edit)) {
        return *reason;
    }
    std::get<AgendaEdit>(edit).SwapWith(agenda);
    return {};
}

QByteArray Stamped(int sequence)
{
    return "\nSEQUENCE:" + QByteArray::number(sequence) + "\nDTSTAMP:20260401T120000Z";
}

TEST(AgendaWriter, SplicesWhatHasChanged)
{
    struct Case
    {
        QByteArray Name;
        QByteArray Before;
        QString From;
        QString To;
        AgendaScope Scope;
        std::optional<AgendaLength> Length;
        QByteArray After;
    };
    using enum AgendaScope;
    const QByteArray event = "BEGIN:VEVENT\nUID:a";
    const QByteArray end = "\nEND:VEVENT";
    const QByteArray zone = "TZID=Europe/Berlin";
    const Case cases[] = {
        {"a single event, its odd properties kept",
         event
             + "\nX-odd;p=\"a:b\":1\nDTSTART:20260301T090000\nDTEND:20260301T100000\nSEQUENCE:4\n"
               "DTSTAMP:20200101T000000Z\nLAST-MODIFIED:20200101T000000Z\nBEGIN:VALARM\n"
               "DTSTART:x\nEND:VALARM"
             + end,
         u"2026-03-01T09:00:00"_s,
         u"2026-03-02T08:15:00"_s,
         Occurrence,
         {},
         event
             + "\nX-odd;p=\"a:b\":1\nDTSTART:20260302T081500\nDTEND:20260302T091500\nSEQUENCE:5\n"
               "DTSTAMP:20260401T120000Z\nLAST-MODIFIED:20260401T120000Z\nBEGIN:VALARM\n"
               "DTSTART:x\nEND:VALARM"
             + end},
        {"stretched, with a duration", event + "\nDTSTART:20260301T090000Z\nDURATION:PT1H" + end,
         u"2026-03-01T09:00:00"_s, u"2026-03-01T09:00:00"_s, Occurrence, AgendaLength{1, 5400},
         event + Stamped(1) + "\nDTSTART:20260301T090000Z\nDURATION:P1DT1H30M" + end},
        {"stretched, without an end", event + "\nDTSTART;" + zone + ":20260301T090000" + end,
         u"2026-03-01T09:00:00"_s, u"2026-03-01T09:00:00"_s, Occurrence, AgendaLength{0, 1800},
         event + Stamped(1) + "\nDTSTART;" + zone + ":20260301T090000\nDTEND;" + zone
             + ":20260301T093000" + end},
        {"the end in another zone",
         event + "\nDTSTART;" + zone + ":20260301T090000\nDTEND:20260301T083000Z" + end,
         u"2026-03-01T09:00:00"_s,
         u"2026-03-30T09:00:00"_s,
         Occurrence,
         {},
         event + Stamped(1) + "\nDTSTART;" + zone + ":20260330T090000\nDTEND:20260330T073000Z"
             + end},
        {"an all-day event stays on days",
         event + "\nDTSTART;VALUE=DATE:20260301\nDTEND;VALUE=DATE:20260303" + end,
         u"2026-03-01T00:00:00"_s, u"2026-03-04T13:00:00"_s, Occurrence, AgendaLength{3, 0},
         event + Stamped(1) + "\nDTSTART;VALUE=DATE:20260304\nDTEND;VALUE=DATE:20260307" + end},
        {"an occurrence",
         event + "\nDTSTART;" + zone
             + ":20260301T090000\nRRULE:FREQ=DAILY;COUNT=3\nEXDATE:20260303T080000Z\nSUMMARY:S"
             + end,
         u"2026-03-02T09:00:00"_s, u"2026-03-02T11:00:00"_s, Occurrence, AgendaLength{0, 0},
         event + "\nDTSTART;" + zone
             + ":20260301T090000\nRRULE:FREQ=DAILY;COUNT=3\nEXDATE:20260303T080000Z\nSUMMARY:S"
             + end + "\n" + event + Stamped(1) + "\nDTSTART;" + zone
             + ":20260302T110000\nRECURRENCE-ID;" + zone + ":20260302T090000\nSUMMARY:S" + end},
        {"a series, with all it names",
         event + "\nDTSTART;" + zone
             + ":20260302T090000\nRRULE:FREQ=WEEKLY;UNTIL=20260330T070000Z;BYDAY=MO,FR\n"
               "EXDATE;"
             + zone + ":20260306T090000\nEXDATE:20260330T070000Z" + end + "\n" + event
             + "\nRECURRENCE-ID;" + zone + ":20260309T090000\nDTSTART;" + zone + ":20260310T150000"
             + end,
         u"2026-03-13T09:00:00"_s,
         u"2026-03-15T10:00:00"_s,
         Series,
         {},
         event + Stamped(1) + "\nDTSTART;" + zone
             + ":20260304T100000\nRRULE:FREQ=WEEKLY;UNTIL=20260401T080000Z;BYDAY=WE,SU\n"
               "EXDATE;"
             + zone + ":20260308T100000\nEXDATE:20260401T080000Z" + end + "\n" + event + Stamped(1)
             + "\nRECURRENCE-ID;" + zone + ":20260311T100000\nDTSTART;" + zone + ":20260310T150000"
             + end},
        {"extra dates of a series",
         event
             + "\nDTSTART:20260301T090000\nRDATE:20260305T090000,20260306T090000\n"
               "RDATE;VALUE=PERIOD:20260307T090000/PT2H"
             + end,
         u"2026-03-05T09:00:00"_s,
         u"2026-03-05T09:30:00"_s,
         Series,
         {},
         event + Stamped(1)
             + "\nDTSTART:20260301T093000\nRDATE:20260305T093000\n"
               "RDATE:20260306T093000\nRDATE;VALUE=PERIOD:20260307T093000/PT2H"
             + end},
    };
    for (const Case &one : cases) {
        for (const QByteArray &lineEnd : {QByteArray("\n"), QByteArray("\r\n")}) {
            const QByteArray before = CalendarOf(one.Before).replace("\n", lineEnd);
            Agenda agenda = Read(before);
            EXPECT_EQ(Move(agenda, one.From, one.To, one.Scope, one.Length), u""_s)
                << one.Name.data();
            const QByteArray after = WriteAgenda(agenda, before, kNow);
            EXPECT_EQ(after.toStdString(),
                      CalendarOf(one.After).replace("\n", lineEnd).toStdString())
                << one.Name.data();
            EXPECT_EQ(Starts(Read(after)), Starts(agenda)) << one.Name.data();
        }
    }
}

TEST(AgendaWriter, RulesThatNameTheirDaysKeepTheSeriesThere)
{
    struct Case
    {
        QByteArray Rule;
        QString To;
        bool IsMoved;
    };
    const Case cases[] = {
        {"FREQ=MONTHLY;BYDAY=1MO", u"2026-03-02T10:00:00"_s, true},
        {"FREQ=MONTHLY;BYDAY=1MO", u"2026-03-03T09:00:00"_s, false},
        {"FREQ=MONTHLY;BYMONTHDAY=2", u"2026-03-03T09:00:00"_s, false},
        {"FREQ=MONTHLY", u"2026-03-03T09:00:00"_s, true},
        {"FREQ=DAILY;BYHOUR=9,12", u"2026-03-02T10:00:00"_s, false},
        {"FREQ=DAILY;BYHOUR=9,12", u"2026-03-03T09:00:00"_s, true},
        {"FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,FR", u"2026-03-04T09:00:00"_s, true},
        {"FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,FR", u"2026-03-05T09:00:00"_s, true},
        {"FREQ=WEEKLY;BYDAY=MO,FR", u"2026-02-28T09:00:00"_s, true},
    };
    for (const Case &one : cases) {
        Agenda agenda =
            Read(CalendarOf(EventOf("DTSTART:20260302T090000\nRRULE:" + one.Rule
                                    + (one.Rule.contains("BYHOUR") ? ";COUNT=4" : ";COUNT=6"))));
        const auto before = AgendaOccurrences(agenda).StartingIn(kWholeAgenda);
        const QString from = u"2026-03-02T09:00:00"_s;
        const bool isMoved = Move(agenda, from, one.To, AgendaScope::Series).isEmpty();
        EXPECT_EQ(isMoved, one.IsMoved) << one.Rule.data();
        const auto after = AgendaOccurrences(agenda).StartingIn(kWholeAgenda);
        const AgendaSeconds shift = isMoved ? Wall(one.To) - Wall(from) : 0;
        ASSERT_EQ(before.size(), after.size()) << one.Rule.data();
        for (std::size_t i = 0; i < after.size(); ++i) {
            EXPECT_EQ(after[i].Start.Wall, before[i].Start.Wall + shift) << one.Rule.data();
        }
    }
    Agenda nameless = Read(CalendarOf("BEGIN:VEVENT\nDTSTART:20260302T090000\n"
                                      "RRULE:FREQ=DAILY\nEND:VEVENT"));
    EXPECT_TRUE(
        Move(nameless, u"2026-03-04T09:00:00"_s, u"2026-03-04T10:00:00"_s, AgendaScope::Occurrence)
            .contains(u"no UID"));
}

TEST(AgendaWriter, LongLinesAreFoldedBetweenCharacters)
{
    const QByteArray zone = "Zone" + QByteArray("\xC3\xA4").repeated(40);
    const QByteArray source = CalendarOf(EventOf("DTSTART;X-ZONE=" + zone + ":20260301T090000"));
    Agenda agenda = Read(source);
    EXPECT_EQ(
        Move(agenda, u"2026-03-01T09:00:00"_s, u"2026-03-02T09:00:00"_s, AgendaScope::Occurrence),
        u""_s);
    const QByteArray written = WriteAgenda(agenda, source, kNow);
    for (const QByteArray &line : written.split('\n')) {
        EXPECT_LE(line.size(), 75);
        EXPECT_TRUE(QString::fromUtf8(line).toUtf8() == line);
    }
    EXPECT_EQ(Starts(Read(written)), QStringList(u"2026-03-02T09:00"_s));
}

std::vector<AgendaSeconds> Walls(const Agenda &agenda, const AgendaRange &range)
{
    std::vector<AgendaSeconds> walls;
    for (const AgendaOccurrence &occurrence : AgendaOccurrences(agenda).StartingIn(range)) {
        walls.push_back(occurrence.Start.Wall);
    }
    std::ranges::sort(walls);
    return walls;
}

/// Every file stays as it is to the byte; after changes of one kind it differs in the events that
/// changed only, and reads as what was to be written.
TEST(AgendaWriter, FilesSurviveARoundTrip)
{
    const QStringList paths = DataFiles(u"icalendar"_s) + DataFiles(u"icalendar/rfc2445-rules"_s);
    if (paths.isEmpty()) {
        GTEST_SKIP() << "KORVANE_DATA names no folder with calendars";
    }
    for (const QString &path : paths) {
        const bool isLarge = path.endsWith(u"large.ics");
        const AgendaRange range{
            Wall(u"1997-01-01T00:00:00"_s),
            Wall(isLarge ? u"1999-01-01T00:00:00"_s : u"2027-01-01T00:00:00"_s)};
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray source = file.readAll();
        Agenda agenda = Read(source);
        EXPECT_EQ(WriteAgenda(agenda, source, kNow), source) << path.toStdString();
        std::vector<AgendaEdit> edits;
        for (std::size_t i = 0; i < 4; ++i) {
            const auto occurrences = AgendaOccurrences(agenda).StartingIn(range);
            const AgendaOccurrence &one = occurrences.at(i * (occurrences.size() - 1) / 3);
            auto edit = ChangeOccurrence(
                agenda, one, {one.Start.Wall + kSecondsPerDay + 900, one.Length, {}, {}},
                static_cast<AgendaScope>(i % 3));
            if (std::holds_alternative<AgendaEdit>(edit)) {
                edits.push_back(std::get<AgendaEdit>(edit));
                edits.back().SwapWith(agenda);
            }
        }
        const QByteArray written = WriteAgenda(agenda, source, kNow);
        EXPECT_EQ(edits.empty(), written == source) << path.toStdString();
        EXPECT_LT(std::abs(written.size() - source.size()), 20'000) << path.toStdString();
        EXPECT_TRUE(Walls(Read(written), range) == Walls(agenda, range)) << path.toStdString();
        for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit) {
            edit->SwapWith(agenda);
        }
        EXPECT_EQ(WriteAgenda(agenda, source, kNow), source) << path.toStdString();
    }
}

} // namespace
} // namespace korvane::planner::test
