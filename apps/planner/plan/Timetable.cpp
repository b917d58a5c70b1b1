#include "plan/Timetable.h"

#include "plan/CsvReader.h"
#include "plan/PlanFields.h"
#include "plan/PlanRefusal.h"
#include "plan/PlannerText.h"

#include <QHash>

#include <algorithm>
#include <charconv>
#include <string>
#include <utility>

namespace korvane::planner {

namespace {

constexpr int kMostHours = 240;

/// Numbers texts in the order in which they come.
class Numbering
{
public:
    int Number(std::string_view text)
    {
        const QByteArray key(text.data(), static_cast<qsizetype>(text.size()));
        const auto found = m_numbers.constFind(key);
        return found != m_numbers.cend() ? *found : *m_numbers.insert(key, int(m_numbers.size()));
    }
    /// kNoIndex for a new text.
    int Find(std::string_view text) const
    {
        return m_numbers.value(
            QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())), kNoIndex);
    }
    int Count() const { return static_cast<int>(m_numbers.size()); }

private:
    QHash<QByteArray, int> m_numbers;
};

/// Seconds of "9:05:00" and "25:10:00".
std::optional<int> ParseSeconds(std::string_view text)
{
    int parts[3]{};
    const char *at = text.data();
    const char *const end = at + text.size();
    for (int i = 0; i < 3; ++i) {
        const auto [next, error] = std::from_chars(at, end, parts[i]);
        if (error != std::errc() || parts[i] < 0 || (i < 2 && (next == end || *next != ':'))) {
            return std::nullopt;
        }
        at = i < 2 ? next + 1 : next;
    }
    constexpr int kSixty = 60;
    if (at != end || parts[0] > kMostHours || parts[1] >= kSixty || parts[2] >= kSixty) {
        return std::nullopt;
    }
    return (parts[0] * kSixty + parts[1]) * kSixty + parts[2];
}

/// Of "20210705".
std::optional<int> ParseDay(const QString &text)
{
    const bool fits = text.size() == 8;
    const auto date =
        fits ? ParseIsoDateTime(text.left(4) + u'-' + text.mid(4, 2) + u'-' + text.right(2))
             : std::nullopt;
    return date && IsPlanDate(*date) ? std::optional(static_cast<int>(*date)) : std::nullopt;
}

class TableParser
{
public:
    TableParser(const OpenTable &openTable, PlanBuilder &builder, IProgress &progress)
        : m_openTable(openTable)
        , m_builder(builder)
        , m_progress(progress)
    {
    }

    Timetable Read();

private:
    enum class Need : std::uint8_t { Required, Optional };

    /// Calls read(table, next) when there is such a table; next() goes to the next record.
    template <typename ReadTable>
    void ForTable(const QString &name, Need need, ReadTable read);
    void Remark(const CsvReader &table, const QString &text);
    void ReadRoutes();
    void DistinguishRoutes();
    void ReadTrips();
    void ReadStops();
    void ReadStopTimes();
    std::optional<int> Second(const CsvReader &table, int column);
    static void AddStop(TimetableTrip &trip, int stop, int sequence, std::pair<int, int> times);
    void ReadCalendar();
    void ReadSingleDays();

    const OpenTable &m_openTable;
    PlanBuilder &m_builder;
    IProgress &m_progress;
    Timetable m_table;
    Numbering m_routeIds;
    Numbering m_blockIds;
    Numbering m_tripIds;
    Numbering m_stopIds;
    Numbering m_services;
};

template <typename ReadTable>
void TableParser::ForTable(const QString &name, Need need, ReadTable read)
{
    const auto file = m_openTable(name);
    if (file == nullptr) {
        if (need == Need::Required) {
            throw PlanRefusal(0, PlannerText::tr("there is no %1").arg(name));
        }
        return;
    }
    CsvReader table(*file, name);
    constexpr int kCheckInterval = 1000;
    int left = kCheckInterval;
    read(table, [&] {
        if (--left == 0) {
            left = kCheckInterval;
            m_progress.Report(file->pos(), file->isSequential() ? 0 : file->size());
            if (m_progress.IsCanceled()) {
                throw PlanCanceled();
            }
        }
        return table.Next();
    });
}

void TableParser::Remark(const CsvReader &table, const QString &text)
{
    m_builder.Remark(
        0, PlannerText::tr("%1, line %2: %3").arg(table.Name()).arg(table.Line()).arg(text));
}

Timetable TableParser::Read()
{
    ReadRoutes();
    ReadTrips();
    ReadStops();
    ReadStopTimes();
    ReadCalendar();
    ReadSingleDays();
    if (m_openTable(QStringLiteral("frequencies.txt")) != nullptr) {
        m_builder.Remark(0, PlannerText::tr("frequencies.txt is not used: trips that are repeated "
                                            "are shown once."));
    }
    m_table.Services = m_services.Count();
    return std::move(m_table);
}

void TableParser::ReadRoutes()
{
    ForTable(QStringLiteral("routes.txt"), Need::Required, [this](CsvReader &table, auto next) {
        const int id = table.Column("route_id");
        const int shortName = table.FindColumn("route_short_name");
        const int longName = table.FindColumn("route_long_name");
        const int color = table.FindColumn("route_color");
        while (next()) {
            const int route = m_routeIds.Number(table.Field(id));
            if (route < std::ssize(m_table.Routes)) {
                Remark(table, PlannerText::tr("The route is there already; this line is ignored."));
                continue;
            }
            const QString name = (table.Text(shortName) + u' ' + table.Text(longName)).simplified();
            auto known = ParseColor(QString(u'#' + table.Text(color)));
            if (known == Rgb(0xFF, 0xFF, 0xFF)) { // what the format takes for none
                known.reset();
            }
            m_table.Routes.push_back(
                {table.Text(id), name.isEmpty() ? table.Text(id) : name, known});
        }
    });
    DistinguishRoutes();
}

/// Routes of the same name show their identifiers.
void TableParser::DistinguishRoutes()
{
    QHash<QString, int> counts;
    for (const TimetableRow &route : m_table.Routes) {
        ++counts[route.Name];
    }
    for (TimetableRow &route : m_table.Routes) {
        if (counts.value(route.Name) > 1) {
            route.Name += QStringLiteral(" (%1)").arg(route.Id);
        }
    }
}

void TableParser::ReadTrips()
{
    ForTable(QStringLiteral("trips.txt"), Need::Required, [this](CsvReader &table, auto next) {
        const int id = table.Column("trip_id");
        const int route = table.Column("route_id");
        const int service = table.Column("service_id");
        const int block = table.FindColumn("block_id");
        const int head = table.FindColumn("trip_headsign");
        while (next()) {
            if (m_tripIds.Count() >= static_cast<int>(PlanBuilder::kMaxItems)) {
                table.Refuse(PlannerText::tr("more than %1 trips").arg(PlanBuilder::kMaxItems));
            }
            TimetableTrip trip{table.Text(id), table.Text(head)};
            trip.Route = m_routeIds.Find(table.Field(route));
            if (trip.Route == kNoIndex) {
                Remark(table, PlannerText::tr("The trip's route is unknown; it is left out."));
                continue;
            }
            if (m_tripIds.Find(table.Field(id)) != kNoIndex) {
                Remark(table, PlannerText::tr("The trip is there already; this line is ignored."));
                continue;
            }
            m_tripIds.Number(table.Field(id));
            trip.Service = m_services.Number(table.Field(service));
            if (!table.Field(block).empty()) {
                trip.Block = m_blockIds.Number(table.Field(block));
                if (trip.Block == std::ssize(m_table.Blocks)) {
                    m_table.Blocks.push_back({table.Text(block),
                                              PlannerText::tr("Block %1").arg(table.Text(block)),
                                              {}});
                }
            }
            m_table.Trips.push_back(std::move(trip));
        }
    });
}

void TableParser::ReadStops()
{
    ForTable(QStringLiteral("stops.txt"), Need::Optional, [this](CsvReader &table, auto next) {
        const int id = table.Column("stop_id");
        const int name = table.FindColumn("stop_name");
        while (next()) {
            if (m_stopIds.Number(table.Field(id)) == std::ssize(m_table.Stops)) {
                m_table.Stops.push_back(table.Field(name).empty() ? table.Text(id)
                                                                  : table.Text(name));
            }
        }
    });
}

void TableParser::ReadStopTimes()
{
    ForTable(QStringLiteral("stop_times.txt"), Need::Required, [this](CsvReader &table, auto next) {
        const int id = table.Column("trip_id");
        const int arrival = table.Column("arrival_time");
        const int departure = table.Column("departure_time");
        const int sequence = table.Column("stop_sequence");
        const int stop = table.FindColumn("stop_id");
        std::string lastId;
        int trip = kNoIndex;
        while (next()) {
            if (table.Field(id) != lastId || trip == kNoIndex) {
                lastId = table.Field(id);
                trip = m_tripIds.Find(lastId);
            }
            if (trip == kNoIndex) {
                Remark(table, PlannerText::tr("The time is of an unknown trip."));
                continue;
            }
            const auto arrived = Second(table, arrival);
            const auto departed = Second(table, departure);
            if (arrived || departed) {
                AddStop(m_table.Trips.at(std::size_t(trip)), m_stopIds.Find(table.Field(stop)),
                        int(ParseInteger(table.Text(sequence)).value_or(0)),
                        {arrived ? *arrived : *departed, departed ? *departed : *arrived});
            }
        }
    });
}

/// Stops between those with a time have none.
std::optional<int> TableParser::Second(const CsvReader &table, int column)
{
    const auto second = ParseSeconds(table.Field(column));
    if (!second && !table.Field(column).empty()) {
        Remark(table, PlannerText::tr("\"%1\" is no time; it is ignored.").arg(table.Text(column)));
    }
    return second;
}

/// `times` are in any order; so are the stops of a trip.
void TableParser::AddStop(TimetableTrip &trip, int stop, int sequence, std::pair<int, int> times)
{
    const auto [first, last] = std::minmax(times.first, times.second);
    const bool isFirst = trip.Stops++ == 0;
    trip.Start = isFirst ? first : std::min(trip.Start, first);
    trip.Finish = isFirst ? last : std::max(trip.Finish, last);
    if (isFirst || sequence < trip.FirstSequence) {
        trip.FirstSequence = sequence;
        trip.FirstStop = stop;
    }
    if (isFirst || sequence >= trip.LastSequence) {
        trip.LastSequence = sequence;
        trip.LastStop = stop;
    }
}

void TableParser::ReadCalendar()
{
    ForTable(QStringLiteral("calendar.txt"), Need::Optional, [this](CsvReader &table, auto next) {
        constexpr const char *kWeekDays[] = {"monday", "tuesday",  "wednesday", "thursday",
                                             "friday", "saturday", "sunday"};
        const int id = table.Column("service_id");
        const int from = table.Column("start_date");
        const int to = table.Column("end_date");
        while (next()) {
            const auto firstDay = ParseDay(table.Text(from));
            const auto lastDay = ParseDay(table.Text(to));
            if (!firstDay || !lastDay) {
                Remark(table, PlannerText::tr("The dates make no sense; this line is ignored."));
                continue;
            }
            ServiceDays::WeekDays weekDays{};
            for (std::size_t day = 0; day < weekDays.size(); ++day) {
                weekDays[day] = table.Field(table.Column(kWeekDays[day])) == "1";
            }
            m_table.Days.AddWeekDays(m_services.Number(table.Field(id)), weekDays, *firstDay,
                                     *lastDay);
        }
    });
}

void TableParser::ReadSingleDays()
{
    const auto read = [this](CsvReader &table, auto next) {
        const int id = table.Column("service_id");
        const int date = table.Column("date");
        const int kind = table.Column("exception_type");
        while (next()) {
            const auto day = ParseDay(table.Text(date));
            const std::string_view type = table.Field(kind);
            if (day && (type == "1" || type == "2")) {
                m_table.Days.AddDay(m_services.Number(table.Field(id)), *day, type == "1");
            } else {
                Remark(table, PlannerText::tr("The exception makes no sense; it is ignored."));
            }
        }
    };
    ForTable(QStringLiteral("calendar_dates.txt"), Need::Optional, read);
}

} // namespace

Timetable ReadTimetable(const OpenTable &openTable, PlanBuilder &builder, IProgress &progress)
{
    return TableParser(openTable, builder, progress).Read();
}

} // namespace korvane::planner
