// Small calendars as texts, and what takes place in them.
#pragma once

#include "agenda/AgendaOccurrences.h"
#include "agenda/AgendaReader.h"
#include "plan/PlanRefusal.h"

#include <QDateTime>
#include <QDir>

#include <gtest/gtest.h>

namespace korvane::planner::test {

using namespace Qt::StringLiterals;

/// The lines as one calendar.
inline QByteArray CalendarOf(const QByteArray &lines)
{
    return "BEGIN:VCALENDAR\nVERSION:2.0\n" + lines + "\nEND:VCALENDAR\n";
}

/// The lines as an event of a calendar.
inline QByteArray EventOf(const QByteArray &lines)
{
    return "BEGIN:VEVENT\nUID:a\n" + lines + "\nEND:VEVENT";
}

inline Agenda Read(const QByteArray &text)
{
    NoProgress progress;
    try {
        return ReadAgenda(text, progress);
    } catch (const PlanRefusal &refusal) {
        ADD_FAILURE() << refusal.Error().Line << ": " << refusal.Error().Reason.toStdString();
        throw;
    }
}

inline QDateTime Clock(AgendaSeconds wall)
{
    return QDateTime::fromSecsSinceEpoch(wall, Qt::UTC);
}

inline AgendaSeconds Wall(const QString &iso)
{
    return QDateTime::fromString(iso + u'Z', Qt::ISODate).toSecsSinceEpoch();
}

/// "2026-11-02T08:00", of days "2026-11-02".
inline QString TextOf(const AgendaTime &time)
{
    return Clock(time.Wall).toString(time.IsDate ? u"yyyy-MM-dd"_s : u"yyyy-MM-ddTHH:mm"_s);
}

/// The starts in a range, in order.
inline QStringList Starts(const Agenda &agenda, const AgendaRange &range = kWholeAgenda)
{
    std::vector<AgendaOccurrence> found = AgendaOccurrences(agenda).StartingIn(range);
    std::ranges::stable_sort(found, {}, [](auto &occurrence) { return occurrence.Start.Wall; });
    QStringList starts;
    for (const AgendaOccurrence &occurrence : found) {
        starts.append(TextOf(occurrence.Start));
    }
    return starts;
}

/// The calendars among the test data; none where there is no such folder.
inline QStringList DataFiles(const QString &folder, const QString &pattern = u"*.ics"_s)
{
    const QDir dir(qEnvironmentVariable("KORVANE_DATA", u"/nowhere"_s) + u'/' + folder);
    QStringList paths;
    for (const QString &name : dir.entryList({pattern}, QDir::Files)) {
        paths.append(dir.filePath(name));
    }
    return paths;
}

} // namespace korvane::planner::test
