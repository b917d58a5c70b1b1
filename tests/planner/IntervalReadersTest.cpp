// Timetables and job traces, and what reads their tables and archives.
#include "CommandLine.h"
#include "PlanText.h"
#include "plan/ClusterTraceReader.h"
#include "plan/CsvReader.h"
#include "plan/NodeAllocation.h"
#include "plan/PlanRefusal.h"
#include "plan/PlanSummary.h"
#include "plan/TimetableReader.h"
#include "plan/ZipArchive.h"

#include <QDir>

#include <map>
#include <numeric>
#include <random>

namespace korvane::planner::test {
namespace {

// Tables.

std::string AllRecords(QByteArray text)
{
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    try {
        CsvReader table(buffer, u"t.txt"_s);
        std::string all;
        while (table.Next()) {
            all += std::to_string(table.Line()) + ":";
            for (int column = table.Column("a"); column <= table.FindColumn("b"); ++column) {
                all += "[" + std::string(table.Field(column)) + "]";
            }
        }
        return all;
    } catch (const PlanRefusal &refusal) {
        return refusal.Error().Reason.toStdString();
    }
}

TEST(CsvReader, ReadsQuotesLineEndsAndOddRecords)
{
    const std::pair<QByteArray, std::string> cases[] = {
        {"a,b\n1,2\n", "2:[1][2]"},
        {"\xEF\xBB\xBF\"a\",b\r\n1,2\r\n\r\n3,4", "2:[1][2]4:[3][4]"},
        {"a,b\n\"x, \"\"y\"\"\n z\",w\n5,6", "2:[x, \"y\"\n z][w]4:[5][6]"},
        {"a,b\n \t1 ,\n2\n3,4,5\n", "2:[1][]3:[2][]4:[3][4]"},
        {"a,b\n\"x\"y,\"\"\n\"open", "2:[xy][]3:[open][]"},
        {"a,b\n,\n", "2:[][]"},
        {"b\n1\n", "t.txt:2: there is no column a"},
        {"", "t.txt:1: the table is empty"},
        {"a,b\n\"" + QByteArray(2 << 20, 'x'),
         "t.txt:2: the record is longer than 1048576 bytes; is a quote missing?"},
    };
    for (const auto &[text, records] : cases) {
        EXPECT_EQ(AllRecords(text), records) << text.left(40).toStdString();
    }
}

// Archives.

QByteArray Bytes(std::initializer_list<std::pair<quint32, int>> numbers)
{
    QByteArray bytes;
    for (auto [value, size] : numbers) {
        for (; size > 0; --size, value >>= 8) {
            bytes.append(static_cast<char>(value));
        }
    }
    return bytes;
}

QByteArray Zip(const std::map<QByteArray, QByteArray> &files, bool deflated)
{
    QByteArray content;
    QByteArray list;
    for (const auto &[name, text] : files) {
        const QByteArray gzip = Gzip(text);
        const QByteArray data = deflated ? gzip.sliced(10).chopped(8) : text;
        const quint32 checksum =
            crc32(0, reinterpret_cast<const Bytef *>(text.data()), text.size());
        const QByteArray sizes = Bytes({{deflated ? 8U : 0U, 2}, {0, 4}, {checksum, 4}})
                                 + Bytes({{data.size(), 4}, {text.size(), 4}, {name.size(), 2}});
        list += "PK\1\2" + Bytes({{20, 2}, {20, 2}, {0, 2}}) + sizes
                + Bytes({{0, 2}, {0, 2}, {0, 4}}) + Bytes({{0, 4}, {content.size(), 4}}) + name;
        content += "PK\3\4" + Bytes({{20, 2}, {0, 2}}) + sizes + Bytes({{0, 2}}) + name + data;
    }
    const quint32 count = files.size();
    return content + list + "PK\5\6"
           + Bytes({{0, 4}, {count, 2}, {count, 2}, {list.size(), 4}, {content.size(), 4}, {0, 2}});
}

TEST(ZipArchive, GivesFilesStoredAndDeflated)
{
    const QByteArray text = QByteArray("some text ").repeated(30'000);
    for (const bool deflated : {false, true}) {
        const QByteArray zip = Zip({{"feed/a.txt", text}, {"b.txt", "b"}}, deflated);
        const ZipArchive archive(zip);
        EXPECT_EQ(archive.Open(u"a.txt"_s)->readAll(), text);
        EXPECT_EQ(archive.Open(u"b.txt"_s)->readAll(), "b");
        EXPECT_EQ(archive.Open(u"c.txt"_s), nullptr);
        EXPECT_THROW(ZipArchive(zip.chopped(10)), PlanRefusal);
    }
    QByteArray damaged = Zip({{"a.txt", text}}, true);
    damaged[60] = static_cast<char>(~damaged[60]);
    EXPECT_NE(ZipArchive(damaged).Open(u"a.txt"_s)->readAll(), text);
}

// Timetables.

/// Monday to Friday service W and Saturday service S in 2026, with W off on Monday 2 March.
std::map<QByteArray, QByteArray> Feed()
{
    return {
        {"routes.txt", "route_id,route_short_name,route_long_name,route_color\n"
                       "r10,10,North,FF0000\nr9,9,South,\nr9b,9,South,FFFFFF\n"},
        {"stops.txt", "stop_id,stop_name\ns1,\"Market, west\"\ns2,Station\n"},
        {"calendar.txt", "service_id,monday,tuesday,wednesday,thursday,friday,saturday,sunday,"
                         "start_date,end_date\nW,1,1,1,1,1,0,0,20260302,20260331\n"
                         "S,0,0,0,0,0,1,0,20260307,20260331\n"},
        {"calendar_dates.txt", "service_id,date,exception_type\nW,20260302,2\nX,20260415,1\n"},
        {"trips.txt", "route_id,service_id,trip_id,trip_headsign,block_id\n"
                      "r9,W,t1,,b1\nr10,W,t2,Harbour,b1\nr9b,S,t3,,\nr9,X,t4,,b2\n"},
        {"stop_times.txt", "trip_id,arrival_time,departure_time,stop_id,stop_sequence\n"
                           "t1,8:10:00,8:11:00,s2,7\nt1,7:59:00,8:00:00,s1,3\nt1,,,s1,5\n"
                           "t2,23:50:00,23:50:00,s2,1\nt2,25:10:30,25:10:30,s1,2\n"
                           "t3,09:00:00,09:00:00,s1,1\nt4,10:00:00,10:30:00,s1,1\n"},
    };
}

PlanResult ReadFeed(const std::map<QByteArray, QByteArray> &files, const ReadOptions &options = {})
{
    const PlanFolder folder;
    for (const auto &[name, text] : files) {
        folder.Write(QString::fromLatin1(name), text);
    }
    NoProgress progress;
    return LoadPlan(folder.Path(), PlanReaders::Builtin(options), progress);
}

std::string Items(const PlanResult &result)
{
    if (result.Status != PlanStatus::Loaded) {
        return result.Error.Reason.toStdString();
    }
    QString all;
    for (const PlanAssignment &place : result.Value.Assignments) {
        const PlanTask &task = result.Value.Tasks.at(std::size_t(place.Task));
        all += u"%1|%2|%3|%4\n"_s.arg(result.Value.Resources.at(std::size_t(place.Resource)).Name,
                                      task.Name, IsoText(task.Dates->Start).mid(5),
                                      IsoText(task.Dates->Finish).mid(5));
    }
    return all.toStdString();
}

TEST(Timetable, ShowsTheBusiestWeekOrADay)
{
    const std::string byRoute = "9 South (r9)|Station|03-03T07:59:00|03-03T08:11:00\n"
                                "9 South (r9b)|Market, west|03-07T09:00:00|03-07T09:00:00\n"
                                "10 North|Harbour|03-03T23:50:00|03-04T01:10:30\n";
    const int tuesday = 46084; // 2026-03-03
    struct Case
    {
        ReadOptions Options;
        std::string Items;
    };
    const Case cases[] = {
        {{u"route"_s, {}}, byRoute},
        {{},
         "Block b1|Station|03-03T07:59:00|03-03T08:11:00\n"
         "Block b1|Harbour|03-03T23:50:00|03-04T01:10:30\n"
         "Without a block|Market, west|03-07T09:00:00|03-07T09:00:00\n"},
        {{u"route"_s, tuesday + 1},
         "9 South (r9)|Station|03-04T07:59:00|03-04T08:11:00\n"
         "10 North|Harbour|03-04T23:50:00|03-05T01:10:30\n"},
        {{u"route"_s, tuesday - 1}, "no trip runs on that day"},
        {{u"node"_s, {}}, "a row of a timetable is a block or a route, not a node"},
    };
    for (const Case &each : cases) {
        EXPECT_EQ(Items(ReadFeed(Feed(), each.Options)), each.Items);
    }
    for (const bool deflated : {false, true}) {
        const PlanFolder folder;
        const QString path = folder.Write(u"feed.zip"_s, Zip(Feed(), deflated));
        NoProgress progress;
        const ReadOptions options{u"route"_s, {}};
        EXPECT_EQ(Items(LoadPlan(path, PlanReaders::Builtin(options), progress)), byRoute);
    }
    const Plan plan = ReadFeed(Feed()).Value;
    EXPECT_EQ(plan.Tasks.at(1).Color, Rgb(0xFF, 0, 0));
    EXPECT_EQ(plan.Tasks.at(0).Notes,
              u"Route 9 South (r9), trip t1\nMarket, west 7:59 – Station 8:11, 2 stops\nBlock b1");
    EXPECT_EQ(plan.Resources.at(0).MaxUnits, 1);
    EXPECT_EQ(plan.Resources.at(1).MaxUnits, std::nullopt);
    EXPECT_TRUE(HasRemark(plan, u"1 trip not in the week"_s));
}

TEST(Timetable, DamageIsRemarkedOnOrRefused)
{
    struct Case
    {
        QByteArray Table;
        QByteArray Before;
        QByteArray After;
        QString Remark; ///< or the reason of the refusal
        bool IsRefused = false;
    };
    const Case cases[] = {
        {"stop_times.txt", "8:10:00", "8:60:00", u"stop_times.txt, line 2: \"8:60:00\" is no"_s},
        {"stop_times.txt", "t3,", "t9,", u"stop_times.txt, line 7: The time is of an unknown"_s},
        {"stop_times.txt", "t3,", "t9,", u"1 trip without times"_s},
        {"stop_times.txt", "25:10", "49:10", u"1 trip longer than a day"_s},
        {"trips.txt", "r9b,S", "r7,S", u"trips.txt, line 4: The trip's route is unknown"_s},
        {"trips.txt", "t3", "t2", u"trips.txt, line 4: The trip is there already"_s},
        {"calendar.txt", "20260307", "20261307", u"calendar.txt, line 3: The dates"_s},
        {"calendar_dates.txt", "0415,1", "0415,3", u"calendar_dates.txt, line 3: The exc"_s},
        {"routes.txt", "r9b", "r9", u"routes.txt, line 4: The route is there already"_s},
        {"trips.txt", "service_id", "service", u"trips.txt:1: there is no column service_id"_s,
         true},
        {"calendar.txt", "20260331", "2026033", u"no trip runs on any day"_s, true},
    };
    for (const Case &each : cases) {
        auto files = Feed();
        if (each.IsRefused) {
            files.erase("calendar_dates.txt");
        }
        files[each.Table].replace(each.Before, each.After);
        const PlanResult result = ReadFeed(files);
        if (each.IsRefused) {
            EXPECT_EQ(result.Error.Reason, each.Remark);
        } else {
            EXPECT_TRUE(HasRemark(result.Value, each.Remark)) << AllRemarks(result.Value);
        }
    }
    auto files = Feed();
    files.erase("stop_times.txt");
    EXPECT_EQ(Items(ReadFeed(files)), "there is no stop_times.txt");
}

// Job traces.

const QByteArray kTrace = "; Computer: Toy\n; MaxNodes: 4\n; UnixStartTime: 86400\n"
                          "1 0 -1 100 2 -1 -1 -1 -1 -1 1 7 -1 -1 1 3 -1 -1\n"
                          "2 10 5 100 2 -1 -1 2 -1 -1 1 8 -1 -1 1 3 -1 -1\n"
                          "3 20 -1 10 3 -1 -1 -1 -1 -1 1 7 -1 -1 2 -1 -1 -1\n"
                          "4 100 -1 0 -1 -1 -1 1 -1 -1 1 7 -1 -1 2 -1 -1 -1";

PlanResult ReadTrace(const QByteArray &text, const QString &rows = {})
{
    return ReadText(ClusterTraceReader({rows, {}}), text);
}

std::string RowsOf(const PlanResult &result)
{
    QString rows;
    for (std::size_t row = 0; row < result.Value.Resources.size(); ++row) {
        rows += result.Value.Resources[row].Name + u':';
        for (const PlanAssignment &place : result.Value.Assignments) {
            if (std::size_t(place.Resource) == row) {
                rows += u' ' + result.Value.Tasks.at(std::size_t(place.Task)).Name.section(u' ', 1);
            }
        }
        rows += u'\n';
    }
    return (result.Error.Reason + rows).toStdString();
}

TEST(ClusterTrace, JobsStandOnNodesOrWhatTheyNameThemselves)
{
    // The third job finds no free node; those of the first become free before those of the second.
    EXPECT_EQ(RowsOf(ReadTrace(kTrace)), "Node 1: 1 3 4\nNode 2: 1 3\nNode 3: 2 3\nNode 4: 2\n");
    EXPECT_EQ(RowsOf(ReadTrace(kTrace, u"partition"_s)), "No partition: 3 4\nPartition 3: 1 2\n");
    EXPECT_EQ(RowsOf(ReadTrace(kTrace, u"user"_s)), "User 7: 1 3 4\nUser 8: 2\n");
    EXPECT_EQ(RowsOf(ReadTrace(kTrace, u"queue"_s)), "Queue 1: 1 2\nQueue 2: 3 4\n");
    EXPECT_EQ(RowsOf(ReadTrace(kTrace, u"group"_s)), "No group: 1 2 3 4\n");
    const Plan plan = Loaded<ClusterTraceReader>(kTrace);
    EXPECT_EQ(plan.Name, u"Toy");
    EXPECT_EQ(IsoText(plan.Tasks.at(1).Dates->Start), u"1970-01-02T00:00:15");
    EXPECT_EQ(Summarize(plan), (QJsonObject{{u"rows"_s, 4},
                                            {u"items"_s, 4},
                                            {u"start"_s, u"1970-01-02T00:00:00"_s},
                                            {u"finish"_s, u"1970-01-02T00:01:55"_s}}));
    // Two processors per node.
    QByteArray shared = kTrace;
    shared.replace("MaxNodes: 4", "MaxNodes: 2\n; MaxProcs: 4");
    EXPECT_EQ(RowsOf(ReadTrace(shared)), "Node 1: 1 3 4\nNode 2: 2 3\n");
}

TEST(ClusterTrace, DamageIsRemarkedOnOrRefused)
{
    const Plan plan = Loaded<ClusterTraceReader>(
        kTrace + "\n5 x 1 1 1\n6 1 1 -1 1\n7 -5 1 1 1\n8 1 1 1e300 1\n9 1 1\n10 1 1 1 1 1\n");
    EXPECT_EQ(plan.Tasks.size(), 5U);
    EXPECT_TRUE(HasRemark(plan, u"not one of 18 numbers"_s, 8));
    EXPECT_TRUE(HasRemark(plan, u"no run time"_s, 9));
    EXPECT_TRUE(HasRemark(plan, u"times make no sense"_s, 10));
    EXPECT_TRUE(HasRemark(plan, u"times make no sense"_s, 11));
    EXPECT_TRUE(HasRemark(plan, u"not one of 18 numbers"_s, 12));
    EXPECT_EQ(RowsOf(ReadTrace("; MaxJobs: 1\n")), "the trace has no jobs that can be shown");
    EXPECT_EQ(RowsOf(ReadTrace(QByteArray(100'000, '1'))), "the line is too long for a job trace");
    QByteArray large = kTrace;
    large.replace("MaxNodes: 4", "MaxNodes: 999999999999");
    EXPECT_EQ(RowsOf(ReadTrace(large)), "No partition: 3 4\nPartition 3: 1 2\n");
    EXPECT_EQ(RowsOf(ReadTrace(large, u"node"_s)), "too many nodes to have a row each");
    EXPECT_EQ(RowsOf(ReadTrace(kTrace, u"block"_s)),
              "a row of a job trace is a node, partition, queue, user or group, not a block");
}

/// Against a plain search for the free nodes, and for those that become free soonest.
TEST(NodeAllocation, TakesTheLowestFreeNodesThenTheSoonestFree)
{
    std::mt19937 random(5);
    constexpr int kNodes = 9;
    NodeAllocation allocation(kNodes);
    std::vector<double> busyUntil(kNodes, 0);
    double start = 0;
    for (int job = 0; job < 2000; ++job) {
        start += random() % 4;
        const double finish = start + random() % 12;
        const int count = 1 + int(random() % kNodes);
        std::vector<int> expected(kNodes);
        std::iota(expected.begin(), expected.end(), 0);
        std::ranges::stable_sort(expected, {}, [&](int node) {
            return busyUntil[node] <= start ? -1 : busyUntil[node];
        });
        expected.resize(count);
        std::ranges::sort(expected);
        for (const int node : expected) {
            busyUntil[node] = std::max(busyUntil[node], finish);
        }
        ASSERT_EQ(allocation.Take(count, start, finish), expected) << "job " << job;
    }
}

// All of them.

TEST(IntervalReaders, ChangedFilesAreLoadedOrRefused)
{
    std::mt19937 random(7);
    const QByteArray texts[] = {kTrace, Zip(Feed(), false)};
    const ClusterTraceReader traces;
    const TimetableReader timetables;
    const IPlanReader *readers[] = {&traces, &timetables};
    for (int i = 0; i < 10'000; ++i) {
        QByteArray text = texts[i % 2];
        for (auto left = 1 + random() % 4; left > 0; --left) {
            text[qsizetype(random() % text.size())] = "0123456789-,\":;\n \xFF"[random() % 19];
        }
        const PlanResult result = ReadText(*readers[i % 2], text);
        ASSERT_NE(result.Status, PlanStatus::Canceled);
        ASSERT_EQ(result.Status == PlanStatus::Refused, !result.Error.Reason.isEmpty());
        for (const PlanTask &task : result.Value.Tasks) {
            ASSERT_LE(task.Dates->Start, task.Dates->Finish);
        }
    }
}

TEST(IntervalReaders, TheCommandLineChoosesRowsAndDay)
{
    const auto parsed = [](const QString &option) {
        return CommandLine({u"planner"_s, option, u"--summary"_s, u"a.swf"_s});
    };
    EXPECT_EQ(parsed(u"--rows=user"_s).Reading().Rows, u"user");
    EXPECT_EQ(parsed(u"--day=2026-03-03"_s).Reading().Day, 46084);
    EXPECT_EQ(parsed(u"--rows=user"_s).GetAction(), CommandLine::Action::PrintSummary);
    EXPECT_EQ(parsed(u"--rows=users"_s).GetAction(), CommandLine::Action::ReportError);
    EXPECT_EQ(parsed(u"--day=tuesday"_s).GetAction(), CommandLine::Action::ReportError);
}

/// Plain counts that share nothing with the readers.
TEST(IntervalReaders, RealSetsAreCountedAsTheirLinesAre)
{
    const QString folder = qEnvironmentVariable("KORVANE_DATA", u"/nowhere"_s) + u"/intervals"_s;
    if (!QDir(folder).exists()) {
        GTEST_SKIP() << "KORVANE_DATA names no folder";
    }
    const auto lines = [&](const QString &name) {
        QFile file(folder + u'/' + name);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    };
    NoProgress progress;
    const auto summary = [&](const QString &name, const ReadOptions &options = {}) {
        return Summarize(
            LoadPlan(folder + u'/' + name, PlanReaders::Builtin(options), progress).Value);
    };
    qint64 jobs = 0;
    double last = 0;
    for (const QString &line : lines(u"cluster-jobs-lublin-256.swf"_s)) {
        const QStringList fields = line.simplified().split(u' ');
        jobs += line.startsWith(u';') ? 0 : 1;
        last = std::max(last, fields.value(1).toDouble() + fields.value(3).toDouble());
    }
    const QJsonObject trace = summary(u"cluster-jobs-lublin-256.swf"_s);
    EXPECT_EQ(trace.value(u"items"), jobs);
    EXPECT_EQ(trace.value(u"rows"), 256);
    EXPECT_EQ(trace.value(u"finish"), IsoText(25569 + last / 86'400));

    std::map<QString, int> seconds; // the last one of each trip
    for (const QString &line : lines(u"gtfs-chisinau/stop_times.txt"_s).sliced(1)) {
        const QStringList fields = line.split(u',');
        const QStringList clock = fields.at(1).split(u':');
        int &second = seconds[fields.at(0)];
        second = std::max(second, clock.at(0).toInt() * 3600 + clock.at(1).toInt() * 60);
    }
    // On Monday 5 July 2021, on which nothing is out of the ordinary.
    QSet<QString> services;
    for (const QString &line : lines(u"gtfs-chisinau/calendar.txt"_s)) {
        const QStringList fields = line.split(u',');
        if (fields.at(1) == u"1" && fields.at(8) < u"20210705" && fields.at(9) > u"20210705") {
            services.insert(fields.at(0));
        }
    }
    qint64 trips = 0;
    int latest = 0;
    for (const QString &line : lines(u"gtfs-chisinau/trips.txt"_s)) {
        if (services.contains(line.split(u',').at(1))) {
            ++trips;
            latest = std::max(latest, seconds.at(line.split(u',').at(2)));
        }
    }
    const QJsonObject day = summary(u"gtfs-chisinau"_s, {{}, 44382});
    EXPECT_EQ(day.value(u"items"), trips);
    EXPECT_EQ(day.value(u"finish"), IsoText(44382 + latest / 86'400.0));
    const QJsonObject week = summary(u"gtfs-chisinau/trips.txt"_s);
    EXPECT_EQ(week.value(u"items"), qint64(seconds.size()));
    EXPECT_EQ(week.value(u"rows"), lines(u"gtfs-chisinau/routes.txt"_s).size() - 1);
}

} // namespace
} // namespace korvane::planner::test
