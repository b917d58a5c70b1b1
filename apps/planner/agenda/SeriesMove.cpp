#include "agenda/SeriesMove.h"

#include "agenda/AgendaOccurrences.h"
#include "agenda/AgendaRule.h"

#include <algorithm>

namespace korvane::planner {

AgendaTime SeriesMove::Moved(const AgendaTime &time) const
{
    AgendaTime moved = time;
    if (m_from.IsDate != m_to.IsDate) {
        const AgendaSeconds day = DayOf(WallOf(m_agenda, time, m_from)) - DayOf(m_from.Wall);
        moved = m_to;
        moved.Wall += day * kSecondsPerDay;
    } else if (time.IsDate || m_from.IsDate) {
        moved.Wall += (DayOf(m_to.Wall) - DayOf(m_from.Wall)) * kSecondsPerDay;
    } else if (time.Zone == m_from.Zone || time.Zone == kFloating || m_from.Zone == kFloating) {
        moved.Wall += m_to.Wall - m_from.Wall;
    } else {
        const AgendaSeconds wall = WallOf(m_agenda, time, m_from) + m_to.Wall - m_from.Wall;
        moved.Wall = m_agenda.Zones->ToWall(m_agenda.Zones->ToUtc(wall, m_from.Zone), time.Zone);
    }
    return moved;
}

std::variant<std::shared_ptr<const AgendaSeries>, QString>
SeriesMove::Moved(const AgendaSeries &series) const
{
    auto moved = std::make_shared<AgendaSeries>(series);
    for (std::vector<QByteArray> *rules : {&moved->Rules, &moved->ExceptRules}) {
        for (QByteArray &rule : *rules) {
            auto text = MovedRule(m_agenda, rule, m_from, m_to);
            if (auto *reason = std::get_if<QString>(&text)) {
                return *reason;
            }
            rule = std::get<QByteArray>(text);
        }
    }
    for (AgendaTime &time : moved->ExceptDates) {
        time = Moved(time);
    }
    for (AgendaExtraDate &date : moved->ExtraDates) {
        date.Start = Moved(date.Start);
    }
    return std::shared_ptr<const AgendaSeries>(std::move(moved));
}

namespace {

AgendaTime DaysLater(AgendaTime time, qint64 days)
{
    time.Wall += days * kSecondsPerDay;
    return time;
}

/// The first start from there on that one of the rules gives.
std::optional<AgendaTime> StartOnRules(const Agenda &agenda, const std::vector<QByteArray> &rules,
                                       AgendaTime start)
{
    constexpr int kReach = 8 * 366; // from one leap day to the next
    for (int days = 0; days < kReach; ++days, start.Wall += kSecondsPerDay) {
        if (std::ranges::any_of(rules, [&](const QByteArray &rule) {
                return PlaceInRule(agenda, rule, start, start.Wall).IsGiven;
            })) {
            return start;
        }
    }
    return std::nullopt;
}

/// Whether the series keeps the days that its rules name. Else it stays as it is.
bool BeginOnItsDays(const Agenda &agenda, AgendaEvent &event, qint64 days)
{
    AgendaSeries series = *event.Series;
    const auto start = StartOnRules(agenda, series.Rules, DaysLater(*event.Start, days));
    if (!start) {
        return false;
    }
    for (std::vector<QByteArray> *rules : {&series.Rules, &series.ExceptRules}) {
        for (QByteArray &rule : *rules) {
            rule = RuleWithMovedEnd(agenda, rule, *event.Start, *start);
        }
    }
    const auto isEarlier = [&](const AgendaTime &time) {
        return WallOf(agenda, time, *start) < start->Wall;
    };
    std::erase_if(series.ExceptDates, isEarlier);
    std::erase_if(series.ExtraDates, [&](const auto &date) { return isEarlier(date.Start); });
    event.Start = start;
    event.Series = std::make_shared<const AgendaSeries>(std::move(series));
    return true;
}

} // namespace

void MoveByDays(const Agenda &agenda, std::vector<AgendaEvent> &events, qint64 days)
{
    for (AgendaEvent &event : events) {
        if (event.Series == nullptr) {
            continue;
        }
        const AgendaTime from = *event.Start;
        const SeriesMove move(agenda, from, DaysLater(from, days));
        auto moved = move.Moved(*event.Series);
        const auto *series = std::get_if<std::shared_ptr<const AgendaSeries>>(&moved);
        if (series != nullptr) {
            event.Start = DaysLater(from, days);
            event.Series = *series;
        }
        const bool hasBegun = series != nullptr || BeginOnItsDays(agenda, event, days);
        for (AgendaEvent &other : events) {
            if (!IsOverrideOf(other, event)) {
                continue;
            }
            if (series != nullptr) {
                other.Override->Of = move.Moved(other.Override->Of);
                other.Start = DaysLater(*other.Start, days);
            } else if (hasBegun) {
                other.IsRemoved =
                    WallOf(agenda, other.Override->Of, *event.Start) < event.Start->Wall;
            }
        }
    }
    std::erase_if(events, &AgendaEvent::IsRemoved);
    for (AgendaEvent &event : events) {
        if (event.Series == nullptr && !event.Override) {
            event.Start = DaysLater(*event.Start, days);
        }
    }
}

} // namespace korvane::planner
