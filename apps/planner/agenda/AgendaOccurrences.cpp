#include "agenda/AgendaOccurrences.h"

#include "agenda/IcalLibrary.h"

#include <algorithm>

namespace korvane::planner {

namespace {

constexpr AgendaSeconds kMostSteps = 500'000;

/// The least time that a rule moves on by; 0 for those that move by days at least.
AgendaSeconds StepOf(const icalrecurrencetype &rule)
{
    const AgendaSeconds interval = std::max<short>(1, rule.interval);
    switch (rule.freq) {
    case ICAL_SECONDLY_RECURRENCE:
        return interval;
    case ICAL_MINUTELY_RECURRENCE:
        return interval * 60;
    case ICAL_HOURLY_RECURRENCE:
        return interval * 3600;
    default:
        return 0;
    }
}

icalrecurrencetype ParsedRule(const QByteArray &text)
{
    return icalrecurrencetype_from_string(text.constData());
}

/// The last moment of a rule by the wall clock of its event.
AgendaSeconds UntilOf(const Agenda &agenda, const icalrecurrencetype &rule, const AgendaTime &start)
{
    const icaltimetype &until = rule.until;
    if (icaltime_is_null_time(until) != 0) {
        return kWholeAgenda.To;
    }
    if (until.is_date != 0 && !start.IsDate) {
        return SecondsOf(until) + kSecondsPerDay - 1;
    }
    const int zone = icaltime_is_utc(until) != 0 ? kUtc : start.Zone;
    return WallOf(agenda, {SecondsOf(until), zone, false}, start);
}

/// Follows one rule, from one start on.
class RuleWalk
{
public:
    RuleWalk(const icalrecurrencetype &rule, bool isDate)
        : m_rule(rule)
        , m_isDate(isDate)
    {
    }

    /// Calls `visit` with the starts in the range, in ascending order; a range that begins later
    /// than the start is entered there, if the rule allows for that. The library ends in the year
    /// 2582; but the calendar is the same every 400 years, and a rule goes on from any of its
    /// occurrences as it would from its start.
    template <typename Visit>
    void Run(AgendaSeconds start, const AgendaRange &range, Visit visit)
    {
        AgendaSeconds shift = 0;
        bool isRepeated = false;
        while (m_steps < kMostSteps) {
            const AgendaSeconds last = std::min(range.To - 1 - shift, kLastOfEra);
            const AgendaSeconds from = std::max(start, range.From) - shift;
            std::optional<AgendaSeconds> latest;
            int count = 0;
            Walk(start - shift, {from, last + 1}, [&](AgendaSeconds wall) {
                latest = wall + shift;
                if (count++ > 0 || !isRepeated) {
                    visit(*latest);
                }
            });
            if (last < kLastOfEra || !latest || (isRepeated && count < 2)) {
                return;
            }
            m_rule.count -= m_rule.count > 0 ? m_counted - 1 : 0;
            start = *latest;
            shift += kEra;
            isRepeated = true;
        }
    }

private:
    static constexpr AgendaSeconds kEra = 146'097 * kSecondsPerDay; // 400 years
    static constexpr AgendaSeconds kLastOfEra = 16'725'225'600 - 1; // end of 2499

    template <typename Visit>
    void Walk(AgendaSeconds start, const AgendaRange &range, Visit visit)
    {
        const bool canSkip = m_rule.count == 0 && range.From > start && range.From <= kLastOfEra;
        icalrecurrencetype rule = m_rule;
        rule.until = IcalTimeOf(range.To - 1, m_isDate);
        m_counted = 0;
        const IcalIteratorPtr iterator(icalrecur_iterator_new(rule, IcalTimeOf(start, m_isDate)));
        if (iterator == nullptr || range.To <= start) {
            return; // one that never comes true
        }
        if (canSkip) {
            icalrecur_iterator_set_start(iterator.get(),
                                         IcalTimeOf(EntryFor(start, range.From), m_isDate));
        }
        for (; m_steps < kMostSteps; ++m_steps) {
            const icaltimetype next = icalrecur_iterator_next(iterator.get());
            if (icaltime_is_null_time(next) != 0) {
                return;
            }
            const AgendaSeconds wall = SecondsOf(next);
            if (wall >= range.To) {
                return;
            }
            ++m_counted;
            if (wall >= range.From) {
                visit(wall);
            }
        }
    }

    /// Rules that move by less than a day are entered at one of their own steps, and a day before:
    /// the library may leave out the first ones.
    AgendaSeconds EntryFor(AgendaSeconds start, AgendaSeconds from) const
    {
        const AgendaSeconds step = StepOf(m_rule);
        return step == 0
                   ? from
                   : start
                         + std::max<AgendaSeconds>(0, from - start - kSecondsPerDay) / step * step;
    }

    icalrecurrencetype m_rule;
    bool m_isDate = false;
    int m_counted = 0;
    AgendaSeconds m_steps = 0;
};

/// Calls `visit` with the starts that a rule gives in the range, in ascending order.
template <typename Visit>
void FollowRule(const Agenda &agenda, const QByteArray &text, const AgendaTime &start,
                const AgendaRange &range, Visit visit)
{
    const icalrecurrencetype rule = ParsedRule(text);
    if (rule.freq == ICAL_NO_RECURRENCE) {
        return;
    }
    AgendaSeconds end = std::min(range.To, UntilOf(agenda, rule, start) + 1);
    if (const AgendaSeconds step = StepOf(rule); step > 0) {
        const AgendaSeconds begin = rule.count == 0 ? std::max(range.From, start.Wall) : start.Wall;
        end = std::min(end, begin + kMostSteps * step);
    }
    RuleWalk(rule, start.IsDate).Run(start.Wall, {range.From, end}, visit);
}

bool IsIn(const AgendaRange &range, AgendaSeconds wall)
{
    return range.From <= wall && wall < range.To;
}

/// Moments that something is said about, by the wall clock of a series.
class Moments
{
public:
    Moments(const Agenda &agenda, const AgendaTime &start)
        : m_agenda(agenda)
        , m_start(start)
    {
    }

    void Add(const AgendaTime &time)
    {
        if (time.IsDate && !m_start.IsDate) {
            m_days.insert(DayOf(time.Wall));
        } else {
            m_walls.insert(WallOf(m_agenda, time, m_start));
        }
    }
    void AddWall(AgendaSeconds wall) { m_walls.insert(wall); }
    bool Contain(AgendaSeconds wall) const
    {
        return m_walls.contains(wall) || (!m_days.isEmpty() && m_days.contains(DayOf(wall)));
    }

private:
    const Agenda &m_agenda;
    const AgendaTime &m_start;
    QSet<AgendaSeconds> m_walls;
    QSet<AgendaSeconds> m_days;
};

} // namespace

AgendaRulePlace PlaceInRule(const Agenda &agenda, const QByteArray &rule, const AgendaTime &start,
                            AgendaSeconds wall)
{
    const auto lock = LockIcal();
    AgendaRulePlace place;
    FollowRule(agenda, rule, start, {start.Wall, wall + 1}, [&](AgendaSeconds given) {
        place.IsGiven = given == wall;
        place.Before += given < wall ? 1 : 0;
    });
    return place;
}

AgendaSeconds WallOf(const Agenda &agenda, const AgendaTime &time, const AgendaTime &start)
{
    if (start.IsDate) {
        return DayOf(time.Wall) * kSecondsPerDay;
    }
    if (time.IsDate || time.Zone == start.Zone || time.Zone == kFloating
        || start.Zone == kFloating) {
        return time.Wall;
    }
    return agenda.Zones->ToWall(agenda.UtcOf(time), start.Zone);
}

AgendaSeconds EndOf(const Agenda &agenda, const AgendaTime &start, const AgendaLength &length)
{
    return agenda.Zones->ToUtc(start.Wall + length.Days * kSecondsPerDay, start.Zone)
           + length.Seconds;
}

/// One event that is repeated, and what is known of its occurrences.
class AgendaOccurrences::Series
{
public:
    Series(const Agenda &agenda, int event, const std::vector<int> &overrides)
        : m_agenda(agenda)
        , m_index(event)
        , m_start(*agenda.Events[static_cast<std::size_t>(event)].Start)
        , m_left(agenda, m_start)
    {
        for (const int index : overrides) {
            const AgendaEvent &other = agenda.Events[static_cast<std::size_t>(index)];
            m_left.Add(other.Override->Of);
            if (other.Override->AndFollowing && other.Start) {
                const AgendaSeconds of = WallOf(agenda, other.Override->Of, m_start);
                m_following.push_back({of, other.Start->Wall - of, index});
                m_reach = std::max(m_reach, std::abs(m_following.back().Shift) + kSecondsPerDay);
            }
        }
        std::ranges::sort(m_following, {}, &Following::From);
    }

    void Find(const AgendaRange &range, std::vector<AgendaOccurrence> &found)
    {
        const AgendaEvent &event = Event(m_index);
        const AgendaRange reach{range.From - m_reach, range.To + m_reach};
        FindStarts(*event.Series, reach);
        for (const AgendaTime &time : event.Series->ExceptDates) {
            m_left.Add(time);
        }
        for (const QByteArray &rule : event.Series->ExceptRules) {
            FollowRule(m_agenda, rule, m_start, reach,
                       [&](AgendaSeconds wall) { m_left.AddWall(wall); });
        }
        for (const auto &[wall, length] : m_starts) {
            if (!m_left.Contain(wall)) {
                Add(range, wall, length, found);
            }
        }
    }

private:
    /// From an occurrence on, another event stands for the series.
    struct Following
    {
        AgendaSeconds From = 0;
        AgendaSeconds Shift = 0;
        int Event = 0;
    };

    const AgendaEvent &Event(int index) const
    {
        return m_agenda.Events[static_cast<std::size_t>(index)];
    }

    void FindStarts(const AgendaSeries &series, const AgendaRange &range)
    {
        const auto add = [&](AgendaSeconds wall, const std::optional<AgendaLength> &length) {
            if (IsIn(range, wall)) {
                m_starts.emplace_back(wall, length);
            }
        };
        for (const AgendaExtraDate &date : series.ExtraDates) {
            add(WallOf(m_agenda, date.Start, m_start), date.Length);
        }
        add(m_start.Wall, {});
        for (const QByteArray &rule : series.Rules) {
            FollowRule(m_agenda, rule, m_start, range, [&](AgendaSeconds wall) { add(wall, {}); });
        }
        std::ranges::stable_sort(m_starts, {}, &Start::first);
        const auto doubles = std::ranges::unique(m_starts, {}, &Start::first);
        m_starts.erase(doubles.begin(), doubles.end());
    }

    void Add(const AgendaRange &range, AgendaSeconds wall,
             const std::optional<AgendaLength> &length, std::vector<AgendaOccurrence> &found) const
    {
        AgendaOccurrence occurrence{m_index, m_start, {}, m_start, m_index};
        occurrence.Of->Wall = wall;
        occurrence.Start.Wall = wall;
        auto after = std::ranges::upper_bound(m_following, wall, {}, &Following::From);
        if (after != m_following.begin()) {
            const Following &following = *--after;
            occurrence.Event = following.Event;
            occurrence.Start = *Event(following.Event).Start;
            occurrence.Start.Wall = wall + following.Shift;
        }
        occurrence.Length = length.value_or(Event(occurrence.Event).Length);
        if (IsIn(range, occurrence.Start.Wall)) {
            found.push_back(occurrence);
        }
    }

    using Start = std::pair<AgendaSeconds, std::optional<AgendaLength>>;

    const Agenda &m_agenda;
    int m_index = 0;
    const AgendaTime &m_start;
    Moments m_left; ///< what does not take place, or elsewhere
    std::vector<Following> m_following;
    std::vector<Start> m_starts;
    AgendaSeconds m_reach = 0;
};

AgendaOccurrences::AgendaOccurrences(const Agenda &agenda)
    : m_agenda(agenda)
{
    for (std::size_t i = 0; i < agenda.Events.size(); ++i) {
        const AgendaEvent &event = agenda.Events[i];
        const int index = static_cast<int>(i);
        if (event.IsRemoved) {
            continue;
        }
        if (!event.Override) {
            if (event.Series != nullptr && event.Start && !event.Uid.isEmpty()) {
                const std::pair key(event.Calendar, event.Uid);
                if (m_masters.contains(key)) {
                    m_ambiguous.insert(key);
                }
                m_masters.insert(key, index);
            }
            continue;
        }
        m_overrides[{event.Calendar, event.Uid}].push_back(index);
    }
    for (std::vector<int> &events : m_overrides) {
        RemoveSuperseded(events);
    }
}

void AgendaOccurrences::RemoveSuperseded(std::vector<int> &overrides)
{
    struct Revision
    {
        AgendaSeconds Of = 0;
        int Sequence = 0;
        int Event = 0;
    };
    std::vector<Revision> revisions;
    revisions.reserve(overrides.size());
    for (const int index : overrides) {
        const AgendaEvent &event = m_agenda.Events[static_cast<std::size_t>(index)];
        revisions.push_back({m_agenda.UtcOf(event.Override->Of), event.Sequence, index});
    }
    std::ranges::sort(revisions, std::ranges::greater(), [](const Revision &revision) {
        return std::make_tuple(revision.Of, revision.Sequence, revision.Event);
    });
    overrides.clear();
    std::optional<AgendaSeconds> of;
    for (const Revision &revision : revisions) {
        if (revision.Of == of) {
            m_superseded.insert(revision.Event);
        } else {
            overrides.push_back(revision.Event);
        }
        of = revision.Of;
    }
}

void AgendaOccurrences::Add(const AgendaRange &range, int event,
                            std::vector<AgendaOccurrence> &found) const
{
    const AgendaEvent &one = m_agenda.Events[static_cast<std::size_t>(event)];
    if (!one.Start || one.IsRemoved) {
        return;
    }
    const std::pair key(one.Calendar, one.Uid);
    if (one.Series != nullptr && !one.Override) {
        const auto lock = LockIcal();
        const bool hasOverrides = m_masters.value(key, -1) == event;
        Series(m_agenda, event, hasOverrides ? m_overrides.value(key) : std::vector<int>())
            .Find(range, found);
    } else if (IsIn(range, one.Start->Wall) && !m_superseded.contains(event)) {
        const bool isPart = one.Override && m_masters.contains(key);
        found.push_back({event, *one.Start, one.Length,
                         one.Override ? std::optional(one.Override->Of) : std::nullopt,
                         isPart ? m_masters.value(key) : -1});
    }
}

std::vector<AgendaOccurrence> AgendaOccurrences::StartingIn(const AgendaRange &range) const
{
    std::vector<AgendaOccurrence> found;
    for (int event = 0; event < static_cast<int>(m_agenda.Events.size()); ++event) {
        Add(range, event, found);
    }
    return found;
}

std::vector<AgendaOccurrence> AgendaOccurrences::StartingIn(const AgendaRange &range,
                                                            int event) const
{
    std::vector<AgendaOccurrence> found;
    Add(range, event, found);
    return found;
}

bool AgendaOccurrences::CanBeOverridden(int series) const
{
    const AgendaEvent &event = m_agenda.Events[static_cast<std::size_t>(series)];
    return m_masters.value({event.Calendar, event.Uid}, -1) == series
           && !m_ambiguous.contains({event.Calendar, event.Uid});
}

bool AgendaOccurrences::IsEndless() const
{
    const auto lock = LockIcal();
    return std::ranges::any_of(m_agenda.Events, [](const AgendaEvent &event) {
        return event.Start && !event.IsRemoved && !event.Override && event.Series != nullptr
               && std::ranges::any_of(event.Series->Rules, [](const QByteArray &text) {
                      const icalrecurrencetype rule = ParsedRule(text);
                      return rule.freq != ICAL_NO_RECURRENCE && rule.count == 0
                             && icaltime_is_null_time(rule.until) != 0;
                  });
    });
}

} // namespace korvane::planner
