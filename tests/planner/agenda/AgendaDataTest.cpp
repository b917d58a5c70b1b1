// Real calendars, where a folder of them is at hand: its path stands in the variable KORVANE_DATA.
#include "AgendaText.h"
#include "agenda/AgendaSummary.h"

#include <QFile>
#include <QFileInfo>

namespace korvane::planner::test {
namespace {

QByteArray ContentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

class AgendaData : public testing::Test
{
protected:
    void SetUp() override
    {
        if (DataFiles(u"icalendar"_s).isEmpty()) {
            GTEST_SKIP() << "KORVANE_DATA names no folder with calendars";
        }
    }
};

/// "1997-09-02T09:00:00". The lists go on with an offset that does not follow the zones of their
/// files.
QByteArray PublishedForm(const AgendaTime &start)
{
    return Clock(start.Wall)
        .toString(start.IsDate ? u"yyyy-MM-dd"_s : u"yyyy-MM-ddTHH:mm:ss"_s)
        .toUtf8();
}

TEST_F(AgendaData, RulesGiveTheirPublishedOccurrences)
{
    const QStringList paths = DataFiles(u"icalendar/rfc2445-rules"_s);
    EXPECT_GE(paths.size(), 28);
    for (const QString &path : paths) {
        const Agenda agenda = Read(ContentOf(path));
        QByteArrayList expected = ContentOf(path + u".next.ref"_s).split('\n');
        expected.removeAll(QByteArray());
        AgendaRange range = kWholeAgenda;
        if (expected.size() >= 500) { // the list of an endless rule is cut
            range.To = Wall(QString::fromUtf8(expected.back().left(19))) + 1;
        }
        const auto found = AgendaOccurrences(agenda).StartingIn(range);
        ASSERT_EQ(qsizetype(found.size()), expected.size()) << path.toStdString();
        for (qsizetype i = 0; i < expected.size(); ++i) {
            const AgendaTime start = found[std::size_t(i)].Start;
            EXPECT_TRUE(expected[i].startsWith(PublishedForm(start)))
                << path.toStdString() << ": " << expected[i].data() << ", not "
                << PublishedForm(start).data();
        }
    }
}

TEST_F(AgendaData, EventsAreCountedAsTheyStandInTheFile)
{
    for (const QString &path : DataFiles(u"icalendar"_s)) {
        NoProgress progress;
        const AgendaResult result = LoadAgenda(path, progress);
        ASSERT_EQ(result.Status, PlanStatus::Loaded) << path.toStdString();
        const QJsonObject summary =
            Summarize(result.Value, Wall(u"1900-01-01T00:00:00"_s), Wall(u"2040-01-01T00:00:00"_s));
        EXPECT_EQ(summary[u"events"].toInt(), result.Text.count("BEGIN:VEVENT"));
        EXPECT_EQ(summary[u"calendars"].toInt(), result.Text.count("BEGIN:VCALENDAR"));
    }
}

/// Endless rules are entered where a range begins; that has to make no difference.
TEST_F(AgendaData, PartsOfTheTimeMakeUpTheWhole)
{
    const AgendaRange whole{Wall(u"2003-12-20T00:00:00"_s), Wall(u"2018-02-10T00:00:00"_s)};
    QStringList paths = DataFiles(u"icalendar"_s) + DataFiles(u"icalendar/rfc2445-rules"_s);
    paths.removeIf([](const QString &path) { return path.endsWith(u"large.ics"); });
    for (const QString &path : paths) {
        const Agenda agenda = Read(ContentOf(path));
        QStringList parts;
        constexpr AgendaSeconds kStep = 397 * kSecondsPerDay + 12'345;
        for (AgendaRange part{whole.From, whole.From}; part.To < whole.To; part.From = part.To) {
            part.To = std::min(part.From + kStep, whole.To);
            parts += Starts(agenda, part);
        }
        const QStringList expected = Starts(agenda, whole);
        EXPECT_EQ(parts.size(), expected.size()) << path.toStdString();
        const auto [part, one] = std::ranges::mismatch(parts, expected);
        EXPECT_TRUE(part == parts.end()) << path.toStdString() << ": " << part->toStdString();
    }
}

} // namespace
} // namespace korvane::planner::test
