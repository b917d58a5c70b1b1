// Puts a conference programme together from the texts of a file.
#pragma once

#include "agenda/Programme.h"

#include <QHash>

namespace korvane::planner {

/// An event as a file writes it.
struct TalkTexts
{
    QString Date;     ///< ISO 8601 with the offset of the venue; empty in older files
    QString Start;    ///< "10:30"
    QString Duration; ///< "00:45", "1:02:30:00"
    QString Room;
    QString Track;
};

class ProgrammeBuilder
{
public:
    void SetName(const QString &name) { m_programme.Name = name; }
    /// When a day of the conference begins, "09:00:00"; talks before that belong to the day before.
    void SetDayChange(const QString &text);
    void AddRoom(const QString &name) { RoomOf(name); }
    void AddTrack(const QString &name, const QString &color);
    /// Days follow each other; talks belong to the last one.
    void AddDay(const QString &date, qint64 line);
    /// `talk` has the texts that need no reading. A talk without a usable start is left out.
    void AddTalk(const TalkTexts &texts, ProgrammeTalk talk, qint64 line);
    void Remark(qint64 line, const QString &text) { m_programme.Remarks.Add(line, text); }

    bool HasDays() const { return !m_programme.Days.empty(); }
    Programme Finish();

private:
    int RoomOf(const QString &name);
    int TrackOf(const QString &name);
    std::optional<AgendaSeconds> StartOf(const TalkTexts &texts) const;

    Programme m_programme;
    QHash<QString, int> m_rooms;
    QHash<QString, int> m_tracks;
    AgendaSeconds m_dayChange = 6 * 3600;
};

} // namespace korvane::planner
