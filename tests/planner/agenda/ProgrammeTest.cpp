#include "AgendaText.h"
#include "agenda/AgendaSummary.h"
#include "agenda/ProgrammeReader.h"

namespace korvane::planner::test {
namespace {

QByteArray XmlOf(const QByteArray &talks, const QByteArray &head = "")
{
    return "<schedule><conference><title> A  day </title>" + head
           + "</conference><day date='2026-03-01'><room name='Hall'>" + talks
           + "</room></day></schedule>";
}

/// The talk as "day room start length".
QString TextOf(const Programme &programme, std::size_t index = 0)
{
    const ProgrammeTalk &talk = programme.Talks.at(index);
    return QStringLiteral("%1 %2 %3 %4")
        .arg(QString::number(talk.Day), programme.Rooms.at(std::size_t(talk.Room)),
             Clock(talk.Start).toString(u"yyyy-MM-ddTHH:mm"_s), QString::number(talk.Length / 60));
}

TEST(Programme, TalksTakePlaceOnTheirConferenceDay)
{
    struct Case
    {
        QByteArray Fields;
        QString Talk;
    };
    const Case cases[] = {
        {"<start>10:30</start><duration>00:45</duration>", u"0 Hall 2026-03-01T10:30 45"_s},
        {"<start>01:15</start><duration>01:00:00</duration>", u"0 Hall 2026-03-02T01:15 60"_s},
        {"<start>23:30</start><duration>1:00:00:00</duration>", u"0 Hall 2026-03-01T23:30 1440"_s},
        {"<date>2026-03-02T01:15:00+01:00</date><start>01:15</start><duration>0:30</duration>",
         u"0 Hall 2026-03-02T01:15 30"_s},
        {"<date>2026-03-02T00:15:00Z</date><start>01:15</start><duration>0:30</duration>",
         u"0 Hall 2026-03-02T01:15 30"_s},
        {"<date>2026-03-01T23:15:00Z</date><start>00:15</start><duration>0:30</duration>",
         u"0 Hall 2026-03-02T00:15 30"_s},
        {"<date>2026-03-01T10:00:00+01:00</date>", u"0 Hall 2026-03-01T10:00 0"_s},
    };
    NoProgress progress;
    for (const Case &one : cases) {
        const Programme programme =
            ReadProgrammeXml(XmlOf("<event>" + one.Fields + "</event>"), progress);
        EXPECT_EQ(TextOf(programme), one.Talk) << one.Fields.data();
    }
    const QByteArray late = "<event><start>08:00</start><duration>00:10</duration></event>";
    EXPECT_EQ(TextOf(ReadProgrammeXml(XmlOf(late, "<day_change>09:00:00</day_change>"), progress)),
              u"0 Hall 2026-03-02T08:00 10"_s);
    const Programme odd = ReadProgrammeXml(
        XmlOf("<event><title>x</title></event><event><start>25:99</start></event>"), progress);
    EXPECT_TRUE(odd.Talks.empty());
    EXPECT_EQ(odd.Remarks.Items().size(), 2U);
    EXPECT_EQ(odd.Name, u"A day"_s);
}

TEST(Programme, JsonSaysTheSame)
{
    NoProgress progress;
    const Programme programme = ReadProgrammeJson(
        R"({"schedule": {"conference": {"title": "A day", "tracks": [{"name": "Art",
            "color": "#123456"}], "days": [{"date": "2026-03-01", "rooms": {
            "Zoo": [{"title": "One", "start": "10:30", "duration": "00:45", "track": "Art",
                     "persons": [{"public_name": "A"}, {"name": "B"}]}],
            "Attic": [{"title": "Two", "start": "02:00", "duration": "00:15"}]}}]}}})",
        progress);
    EXPECT_EQ(TextOf(programme), u"0 Zoo 2026-03-01T10:30 45"_s);
    EXPECT_EQ(TextOf(programme, 1), u"0 Attic 2026-03-02T02:00 15"_s);
    EXPECT_EQ(programme.Talks[0].Persons, (QStringList{u"A"_s, u"B"_s}));
    EXPECT_EQ(programme.Tracks.at(0).Color, TColor(0x563412));
    EXPECT_EQ(programme.Days.at(0).Stop, Wall(u"2026-03-02T02:15:00"_s));
}

TEST(Programme, OtherTextsAreRefused)
{
    const std::pair<QByteArray, qint64> cases[] = {
        {"<schedule>\n<day date='2026-03-01'>", 2},
        {"<schedule><conference/>\n</schedule>", 2},
        {"<timetable/>", 1},
        {"{\"schedule\":\n{", 2},
        {"{\"schedule\": {}}", 0},
        {"{\"schedule\": {\"conference\": {\"days\": []}}}", 0},
    };
    for (const auto &[text, line] : cases) {
        NoProgress progress;
        try {
            text.startsWith('{') ? ReadProgrammeJson(text, progress)
                                 : ReadProgrammeXml(text, progress);
            ADD_FAILURE() << text.data();
        } catch (const PlanRefusal &refusal) {
            EXPECT_EQ(refusal.Error().Line, line) << text.data();
        }
    }
}

TEST(Programme, PublishedOnesAreReadWhole)
{
    struct Case
    {
        QString File;
        QByteArray Summary; // rooms, days, events
        AgendaSeconds Longest;
    };
    const Case cases[] = {
        {u"congress-38c3.xml"_s, "72 4 1007", 12 * 60},
        {u"fosdem-2019.xml"_s, "34 2 775", 8 * 60},
        {u"camp-2019.json"_s, "2 5 79", 4 * 60},
    };
    for (const Case &one : cases) {
        const QStringList paths = DataFiles(u"conference"_s, one.File);
        if (paths.isEmpty()) {
            GTEST_SKIP() << "KORVANE_DATA names no folder with programmes";
        }
        NoProgress progress;
        EXPECT_TRUE(IsProgrammeFile(paths[0]));
        const ProgrammeResult result = LoadProgramme(paths[0], progress);
        ASSERT_EQ(result.Status, PlanStatus::Loaded) << one.File.toStdString();
        const QJsonObject summary = Summarize(result.Value);
        EXPECT_EQ(QStringLiteral("%1 %2 %3")
                      .arg(summary[u"rooms"].toInt())
                      .arg(summary[u"days"].toInt())
                      .arg(summary[u"events"].toInt()),
                  one.Summary);
        EXPECT_TRUE(result.Value.Remarks.IsEmpty());
        for (const ProgrammeTalk &talk : result.Value.Talks) {
            const AgendaSeconds midnight = result.Value.Days.at(std::size_t(talk.Day)).Date;
            EXPECT_GE(talk.Start, midnight) << talk.Title.toStdString();
            EXPECT_LT(talk.Start, midnight + 30 * 3600) << talk.Title.toStdString();
            EXPECT_LE(talk.Length, one.Longest * 60) << talk.Title.toStdString();
        }
    }
}

} // namespace
} // namespace korvane::planner::test
