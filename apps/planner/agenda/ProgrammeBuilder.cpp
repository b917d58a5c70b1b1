#include "agenda/ProgrammeBuilder.h"

#include "plan/PlannerText.h"

#include <QDateTime>

#include <algorithm>

namespace korvane::planner {

namespace {

/// Seconds of "10:30", "10:30:00" or "1:10:30:00", the last one with days.
std::optional<AgendaSeconds> ParseClock(const QString &text)
{
    QStringList parts = text.trimmed().split(u':');
    if (parts.size() == 2) {
        parts.append(QStringLiteral("0"));
    }
    if (parts.size() == 3) {
        parts.prepend(QStringLiteral("0"));
    }
    if (parts.size() != 4) {
        return std::nullopt;
    }
    constexpr std::pair<int, AgendaSeconds> kUnits[] = {
        {99, kSecondsPerDay}, {99, 3600}, {59, 60}, {59, 1}};
    AgendaSeconds seconds = 0;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        bool isNumber = false;
        const uint value = parts[i].toUInt(&isNumber);
        if (!isNumber || value > uint(kUnits[i].first)) {
            return std::nullopt;
        }
        seconds += value * kUnits[i].second;
    }
    return seconds;
}

/// What the clock shows that an ISO 8601 text speaks of, whatever its offset.
std::optional<AgendaSeconds> ParseWall(const QString &text)
{
    QDateTime time = QDateTime::fromString(text.trimmed(), Qt::ISODate);
    if (!time.isValid()) {
        return std::nullopt;
    }
    return QDateTime(time.date(), time.time(), Qt::UTC).toSecsSinceEpoch();
}

bool IsReasonable(AgendaSeconds wall)
{
    constexpr AgendaSeconds kFirst = -2'208'988'800; // 1900
    constexpr AgendaSeconds kLast = 64'060'588'800;  // 4000
    return wall >= kFirst && wall < kLast;
}

} // namespace

void ProgrammeBuilder::SetDayChange(const QString &text)
{
    m_dayChange = ParseClock(text).value_or(m_dayChange) % kSecondsPerDay;
}

int ProgrammeBuilder::RoomOf(const QString &name)
{
    const auto known = m_rooms.constFind(name);
    if (known != m_rooms.cend()) {
        return *known;
    }
    m_programme.Rooms.push_back(name);
    return *m_rooms.insert(name, static_cast<int>(m_programme.Rooms.size()) - 1);
}

int ProgrammeBuilder::TrackOf(const QString &name)
{
    const auto known = m_tracks.constFind(name);
    if (name.isEmpty() || known != m_tracks.cend()) {
        return name.isEmpty() ? -1 : *known;
    }
    m_programme.Tracks.push_back({name, {}});
    return *m_tracks.insert(name, static_cast<int>(m_programme.Tracks.size()) - 1);
}

void ProgrammeBuilder::AddTrack(const QString &name, const QString &color)
{
    const int track = TrackOf(name);
    const auto isHex = [](QChar digit) {
        return QStringView(u"0123456789abcdefABCDEF").contains(digit);
    };
    const bool isColor = color.size() == 7 && color.startsWith(u'#')
                         && std::all_of(color.begin() + 1, color.end(), isHex);
    if (track >= 0 && isColor) {
        const uint rgb = color.mid(1).toUInt(nullptr, 16);
        m_programme.Tracks[static_cast<std::size_t>(track)].Color =
            (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
    }
}

void ProgrammeBuilder::AddDay(const QString &date, qint64 line)
{
    auto midnight = ParseWall(date);
    if (!midnight || !IsReasonable(*midnight)) {
        Remark(line, PlannerText::tr("a day without a date"));
        midnight = HasDays() ? m_programme.Days.back().Date + kSecondsPerDay : 0;
    }
    m_programme.Days.push_back({DayOf(*midnight) * kSecondsPerDay, 0, 0});
}

std::optional<AgendaSeconds> ProgrammeBuilder::StartOf(const TalkTexts &texts) const
{
    const auto clock = ParseClock(texts.Start);
    if (const auto wall = ParseWall(texts.Date)) {
        if (!clock) {
            return wall;
        }
        // Some files give the date in UTC; the start is that of the venue in any case.
        const AgendaSeconds half = kSecondsPerDay / 2;
        const AgendaSeconds off = *clock - (*wall - DayOf(*wall) * kSecondsPerDay);
        return *wall + off + (off > half ? -kSecondsPerDay : off < -half ? kSecondsPerDay : 0);
    }
    if (!clock) {
        return std::nullopt;
    }
    return m_programme.Days.back().Date + *clock + (*clock < m_dayChange ? kSecondsPerDay : 0);
}

void ProgrammeBuilder::AddTalk(const TalkTexts &texts, ProgrammeTalk talk, qint64 line)
{
    const auto start = StartOf(texts);
    if (!start || !IsReasonable(*start)) {
        Remark(line, PlannerText::tr("\"%1\" has no start and is left out").arg(talk.Title));
        return;
    }
    const auto length = ParseClock(texts.Duration);
    if (!length) {
        Remark(line, PlannerText::tr("\"%1\" has no duration").arg(talk.Title));
    }
    talk.Start = *start;
    talk.Length = length.value_or(0);
    talk.Day = static_cast<int>(m_programme.Days.size()) - 1;
    talk.Room = RoomOf(texts.Room);
    talk.Track = TrackOf(texts.Track);
    m_programme.Talks.push_back(std::move(talk));
}

Programme ProgrammeBuilder::Finish()
{
    for (const ProgrammeTalk &talk : m_programme.Talks) {
        ProgrammeDay &day = m_programme.Days[static_cast<std::size_t>(talk.Day)];
        const bool isFirst = day.Stop == 0;
        day.Start = isFirst ? talk.Start : std::min(day.Start, talk.Start);
        day.Stop = isFirst ? talk.Stop() : std::max(day.Stop, talk.Stop());
    }
    return std::move(m_programme);
}

} // namespace korvane::planner
