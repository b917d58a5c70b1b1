#include "agenda/AgendaSummary.h"

#include <algorithm>

namespace korvane::planner {

QJsonObject Summarize(const Agenda &agenda, const std::optional<AgendaSeconds> &from,
                      const std::optional<AgendaSeconds> &to)
{
    const AgendaOccurrences occurrences(agenda);
    const AgendaRange range{from.value_or(kWholeAgenda.From), to.value_or(kWholeAgenda.To)};
    const QJsonValue count =
        !to && occurrences.IsEndless()
            ? QJsonValue(QJsonValue::Null)
            : QJsonValue(static_cast<qint64>(occurrences.StartingIn(range).size()));
    const auto calendars = std::ranges::count(agenda.Calendars, false, &AgendaCalendar::IsImplied);
    return {{QStringLiteral("calendars"), static_cast<qint64>(calendars)},
            {QStringLiteral("events"), static_cast<qint64>(agenda.Events.size())},
            {QStringLiteral("occurrences"), count}};
}

QJsonObject Summarize(const Programme &programme)
{
    return {{QStringLiteral("rooms"), static_cast<qint64>(programme.Rooms.size())},
            {QStringLiteral("days"), static_cast<qint64>(programme.Days.size())},
            {QStringLiteral("events"), static_cast<qint64>(programme.Talks.size())}};
}

} // namespace korvane::planner
