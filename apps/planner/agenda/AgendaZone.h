// Time zones of calendar files.
#pragma once

#include <QByteArray>
#include <QHash>

#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace korvane::planner {

/// Seconds from 1970-01-01T00:00:00 on, of a clock on a wall or of UTC.
using AgendaSeconds = qint64;

inline constexpr AgendaSeconds kSecondsPerDay = 86'400;

/// Whole days from 1970-01-01 on, rounded down.
constexpr AgendaSeconds DayOf(AgendaSeconds seconds)
{
    return (seconds - (seconds % kSecondsPerDay + kSecondsPerDay) % kSecondsPerDay)
           / kSecondsPerDay;
}

/// The library that knows the rules of calendars keeps state for the whole process, and fills it in
/// on the way; who calls it holds this meanwhile.
std::unique_lock<std::recursive_mutex> LockIcal();

/// What clocks on the wall show somewhere. May be asked from any thread.
class AgendaZone
{
public:
    struct Rules; ///< those of the library

    AgendaZone(QByteArray id, std::shared_ptr<Rules> rules);

    /// As the file calls it.
    const QByteArray &Id() const { return m_id; }
    AgendaSeconds ToUtc(AgendaSeconds wall) const;
    AgendaSeconds ToWall(AgendaSeconds utc) const;
    const Rules &GetRules() const { return *m_rules; }
    /// A VTIMEZONE component with that id, lines ended by "\r\n".
    QByteArray Definition() const;

private:
    QByteArray m_id;
    std::shared_ptr<Rules> m_rules;
};

/// No zone: the wall clock of whoever looks.
inline constexpr int kFloating = -1;
inline constexpr int kUtc = 0;

/// The zones of a file. A zone's index is what times refer to; 0 is UTC.
class AgendaZones
{
public:
    AgendaZones();

    /// Takes up a VTIMEZONE component; false when it is of no use.
    bool Define(const QByteArray &component, int calendar);
    /// The zone that a calendar's times mean by a TZID: the one that the calendar defines, else one
    /// that any calendar of the file defines, a zone of the system, by its name, by the name that
    /// Windows gives it, or by the last parts of a path, or the offset that stands in "(UTC+01:00)
    /// Somewhere". Nothing when none of these fits.
    std::optional<int> Find(const QByteArray &id, int calendar);

    const AgendaZone &At(int zone) const { return m_zones.at(static_cast<std::size_t>(zone)); }
    AgendaSeconds ToUtc(AgendaSeconds wall, int zone) const;
    AgendaSeconds ToWall(AgendaSeconds utc, int zone) const;

private:
    int Add(const QByteArray &id, std::shared_ptr<AgendaZone::Rules> rules);

    std::vector<AgendaZone> m_zones;
    QHash<std::pair<QByteArray, int>, int> m_own; ///< by TZID and calendar
    QHash<QByteArray, std::optional<int>> m_others;
};

} // namespace korvane::planner
