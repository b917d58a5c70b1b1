#include "plan/TimetableReader.h"

#include "foundation/zuTranslate.h"
#include "plan/PlanRefusal.h"
#include "plan/PlannerText.h"
#include "plan/Timetable.h"
#include "plan/ZipArchive.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <numeric>
#include <tuple>
#include <utility>

namespace korvane::planner {

namespace {

constexpr double kSecondsPerDay = 86'400;

QString ClockText(int second)
{
    return QStringLiteral("%1:%2").arg(second / 3600).arg(second / 60 % 60, 2, 10, QChar(u'0'));
}

/// The trips of a day or a week, row by row.
class Arrangement
{
public:
    Arrangement(const Timetable &table, const ReadOptions &options, PlanBuilder &builder)
        : m_table(table)
        , m_options(options)
        , m_builder(builder)
        , m_byBlock(IsByBlock())
        , m_rows(m_byBlock ? table.Blocks : table.Routes)
        , m_withoutBlock(static_cast<int>(m_rows.size()))
    {
        m_rows.push_back({{}, PlannerText::tr("Without a block"), {}});
    }

    void AddTo();

private:
    struct Item
    {
        int Row = 0;
        int Day = 0;
        const TimetableTrip *Trip = nullptr;
    };

    bool IsByBlock() const;
    int BusiestWeek() const;
    int RowOf(const TimetableTrip &trip) const;
    std::vector<int> PlacesOfRows() const;
    std::vector<Item> Items();
    void Remark(int count, const char *text);
    void AddTrip(const Item &item, std::int64_t uid);
    QString NotesOf(const TimetableTrip &trip) const;
    QString StopText(int stop, int second) const;

    const Timetable &m_table;
    const ReadOptions &m_options;
    PlanBuilder &m_builder;
    bool m_byBlock;
    std::vector<TimetableRow> m_rows;
    int m_withoutBlock; ///< index of that row
};

bool Arrangement::IsByBlock() const
{
    const QString &rows = m_options.Rows;
    if (rows == u"block" && m_table.Blocks.empty()) {
        throw PlanRefusal(0,
                          PlannerText::tr("the trips name no vehicle blocks; a row can only be a "
                                          "route"));
    }
    if (!rows.isEmpty() && rows != u"block" && rows != u"route") {
        throw PlanRefusal(
            0, PlannerText::tr("a row of a timetable is a block or a route, not a %1").arg(rows));
    }
    return rows.isEmpty() ? !m_table.Blocks.empty() : rows == u"block";
}

/// Its Monday.
int Arrangement::BusiestWeek() const
{
    std::vector<std::int64_t> weights(std::size_t(m_table.Services));
    for (const TimetableTrip &trip : m_table.Trips) {
        weights.at(std::size_t(trip.Service)) += trip.Stops > 0 ? 1 : 0;
    }
    const auto week = m_table.Days.BusiestWeek(weights);
    if (!week) {
        throw PlanRefusal(0, PlannerText::tr("no trip runs on any day"));
    }
    return *week;
}

int Arrangement::RowOf(const TimetableTrip &trip) const
{
    return !m_byBlock ? trip.Route : trip.Block != kNoIndex ? trip.Block : m_withoutBlock;
}

/// By what the names begin with, then by the first number in them.
std::vector<int> Arrangement::PlacesOfRows() const
{
    const auto key = [this](int row) {
        const QString &name = m_rows[row].Name;
        const auto isDigit = [](QChar character) { return character.isDigit(); };
        const auto from = std::ranges::find_if(name, isDigit);
        const auto to = std::find_if_not(from, name.end(), isDigit);
        return std::tuple(row == m_withoutBlock, QString(name.begin(), from - name.begin()),
                          QString(from, to - from).toInt(), name);
    };
    std::vector<int> order(m_rows.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, {}, key);
    std::vector<int> places(order.size());
    for (std::size_t place = 0; place < order.size(); ++place) {
        places[order[place]] = static_cast<int>(place);
    }
    return places;
}

std::vector<Arrangement::Item> Arrangement::Items()
{
    const int week = m_options.Day ? 0 : BusiestWeek();
    std::vector<Item> items;
    int timeless = 0;
    int notInWeek = 0;
    for (const TimetableTrip &trip : m_table.Trips) {
        const ServiceDays &days = m_table.Days;
        const auto day = !m_options.Day ? days.FirstDayInWeek(trip.Service, week)
                         : days.RunsOn(trip.Service, *m_options.Day) ? m_options.Day
                                                                     : std::nullopt;
        if (trip.Stops == 0) {
            ++timeless;
        } else if (day) {
            items.push_back({RowOf(trip), *day, &trip});
        } else if (!m_options.Day) {
            ++notInWeek;
        }
    }
    const auto veryLong = std::ranges::count_if(items, [](const Item &item) {
        return item.Trip->Finish - item.Trip->Start > kSecondsPerDay;
    });
    Remark(static_cast<int>(veryLong),
           QT_TRANSLATE_N_NOOP("Planner", "%n trip(s) longer than a day."));
    Remark(timeless, QT_TRANSLATE_N_NOOP("Planner", "%n trip(s) without times left out."));
    Remark(notInWeek, QT_TRANSLATE_N_NOOP("Planner", "%n trip(s) not in the week that is shown."));
    const std::vector<int> places = PlacesOfRows();
    std::ranges::stable_sort(items, {}, [&](const Item &item) {
        return std::tuple(places[item.Row], item.Day, item.Trip->Start);
    });
    return items;
}

void Arrangement::Remark(int count, const char *text)
{
    if (count > 0) {
        m_builder.Remark(0, QString::fromStdString(Translate("Planner", text, nullptr, count)));
    }
}

void Arrangement::AddTo()
{
    const std::vector<Item> items = Items();
    if (items.empty()) {
        throw PlanRefusal(0, PlannerText::tr("no trip runs on that day"));
    }
    int row = kNoIndex;
    std::int64_t uid = 0;
    for (const Item &item : items) {
        if (item.Row != row) {
            row = item.Row;
            // A vehicle makes one trip at a time; on a route any number of vehicles may run.
            const bool isVehicle = m_byBlock && row != m_withoutBlock;
            m_builder.AddResource(
                {row, m_rows[row].Name, isVehicle ? std::optional(1.0) : std::nullopt}, 0);
        }
        AddTrip(item, ++uid);
        m_builder.AddAssignment(uid, row, 1, 0);
    }
}

void Arrangement::AddTrip(const Item &item, std::int64_t uid)
{
    const TimetableTrip &trip = *item.Trip;
    PlanTask task;
    task.Uid = uid;
    task.Name = !trip.Head.isEmpty()        ? trip.Head
                : trip.LastStop != kNoIndex ? m_table.Stops.at(std::size_t(trip.LastStop))
                                            : trip.Id;
    task.Color = m_table.Routes.at(std::size_t(trip.Route)).Color;
    TaskTimes times;
    times.Start = item.Day + trip.Start / kSecondsPerDay;
    times.Finish = item.Day + trip.Finish / kSecondsPerDay;
    m_builder.SetNotes(m_builder.AddTask(std::move(task), 1, times, 0), NotesOf(trip), 0);
}

QString Arrangement::StopText(int stop, int second) const
{
    return stop == kNoIndex ? ClockText(second)
                            : m_table.Stops.at(std::size_t(stop)) + u' ' + ClockText(second);
}

QString Arrangement::NotesOf(const TimetableTrip &trip) const
{
    QString notes =
        PlannerText::tr("Route %1, trip %2\n%3 \u2013 %4, %5 stops")
            .arg(m_table.Routes.at(std::size_t(trip.Route)).Name, trip.Id,
                 StopText(trip.FirstStop, trip.Start), StopText(trip.LastStop, trip.Finish))
            .arg(trip.Stops);
    if (trip.Block != kNoIndex) {
        notes += u'\n' + m_table.Blocks.at(std::size_t(trip.Block)).Name;
    }
    return notes;
}

Plan ReadWith(const OpenTable &openTable, const ReadOptions &options, IProgress &progress)
{
    PlanBuilder builder;
    builder.SetIntervals();
    const Timetable table = ReadTimetable(openTable, builder, progress);
    Arrangement(table, options, builder).AddTo();
    return builder.Finish();
}

} // namespace

TimetableReader::TimetableReader(ReadOptions options)
    : m_options(std::move(options))
{
}

QString TimetableReader::Name() const
{
    return PlannerText::tr("Timetable");
}

QStringList TimetableReader::FilePatterns() const
{
    return {QStringLiteral("*.zip"), QStringLiteral("trips.txt")};
}

bool TimetableReader::CanRead(const QByteArray &head) const
{
    return ZipArchive::IsZip(head);
}

PlanResult TimetableReader::Read(QIODevice &source, IProgress &progress) const
{
    return ResultOf([&] {
        const QByteArray content = source.readAll();
        if (progress.IsCanceled()) {
            throw PlanCanceled();
        }
        const ZipArchive archive(content);
        return ReadWith([&](const QString &name) { return archive.Open(name); }, m_options,
                        progress);
    });
}

bool TimetableReader::CanReadFolder(const QString &path) const
{
    return QFile::exists(QDir(path).filePath(QStringLiteral("stop_times.txt")))
           || QFile::exists(QDir(path).filePath(QStringLiteral("trips.txt")));
}

PlanResult TimetableReader::ReadFolder(const QString &path, IProgress &progress) const
{
    return ResultOf([&] {
        const auto open = [&](const QString &name) -> std::unique_ptr<QIODevice> {
            auto file = std::make_unique<QFile>(QDir(path).filePath(name));
            if (!file->exists()) {
                return nullptr;
            }
            if (!file->open(QIODevice::ReadOnly)) {
                throw PlanRefusal(0, name + QStringLiteral(": ") + file->errorString());
            }
            return file;
        };
        return ReadWith(open, m_options, progress);
    });
}

} // namespace korvane::planner
