#include "agenda/AgendaRule.h"

#include "agenda/AgendaOccurrences.h"
#include "agenda/IcalLibrary.h"

#include <QDateTime>

#include <algorithm>

namespace korvane::planner {

namespace {

constexpr QByteArrayView kDays[] = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
constexpr int kDaysPerWeek = 7;

/// The parts of a rule by their names, "FREQ" and so on, in their order.
class RuleParts
{
public:
    explicit RuleParts(const QByteArray &rule)
    {
        for (const QByteArray &part : rule.split(';')) {
            const qsizetype at = part.indexOf('=');
            m_parts.emplace_back(part.left(at).trimmed().toUpper(), part.mid(at + 1));
        }
    }

    bool Has(QByteArrayView name) const { return Find(name) != nullptr; }
    QByteArray Value(QByteArrayView name) const
    {
        const QByteArray *value = Find(name);
        return value != nullptr ? *value : QByteArray();
    }
    void Set(const QByteArray &name, const QByteArray &value)
    {
        const auto part = std::ranges::find(m_parts, name, &TPart::first);
        if (part != m_parts.end()) {
            part->second = value;
        } else {
            m_parts.emplace_back(name, value);
        }
    }
    void Drop(const QByteArray &name)
    {
        std::erase_if(m_parts, [&](const TPart &part) { return part.first == name; });
    }
    QByteArray Text() const
    {
        QByteArrayList texts;
        for (const auto &[name, value] : m_parts) {
            texts.append(name + '=' + value);
        }
        return texts.join(';');
    }

private:
    using TPart = std::pair<QByteArray, QByteArray>;

    const QByteArray *Find(QByteArrayView name) const
    {
        const auto part =
            std::ranges::find_if(m_parts, [&](const auto &entry) { return entry.first == name; });
        return part != m_parts.end() ? &part->second : nullptr;
    }

    std::vector<TPart> m_parts;
};

int IndexOfDay(const QByteArray &day)
{
    const auto found = std::ranges::find(kDays, QByteArrayView(day));
    return found != std::end(kDays) ? static_cast<int>(found - std::begin(kDays)) : -1;
}

/// "MO,WE" a number of days later. Nothing where a day is counted within a month, or where the move
/// takes one of them into another week of a rule that leaves out weeks.
std::optional<QByteArray> MovedDays(const RuleParts &rule, qint64 days)
{
    const int first = std::max(0, IndexOfDay(rule.Has("WKST") ? rule.Value("WKST") : "MO"));
    const bool skipsWeeks = rule.Has("INTERVAL") && rule.Value("INTERVAL").toInt() > 1
                            && rule.Value("FREQ") == "WEEKLY";
    QByteArrayList moved;
    for (const QByteArray &day : rule.Value("BYDAY").split(',')) {
        const int index = IndexOfDay(day.trimmed().toUpper());
        if (index < 0) {
            return std::nullopt;
        }
        const qint64 inWeek = (index - first + kDaysPerWeek) % kDaysPerWeek + days;
        if (skipsWeeks && (inWeek < 0 || inWeek >= kDaysPerWeek)) {
            return std::nullopt;
        }
        const auto place = ((index + days) % kDaysPerWeek + kDaysPerWeek) % kDaysPerWeek;
        moved.append(kDays[place].toByteArray());
    }
    return moved.join(',');
}

QByteArray MovedUntil(const Agenda &agenda, const QByteArray &text, const AgendaTime &from,
                      const AgendaTime &to)
{
    const icaltimetype until = icaltime_from_string(text.constData());
    if (icaltime_is_null_time(until) != 0) {
        return text;
    }
    AgendaTime time{SecondsOf(until), kFloating, until.is_date != 0};
    if (time.IsDate) {
        time.Wall += (DayOf(to.Wall) - DayOf(from.Wall)) * kSecondsPerDay;
    } else if (icaltime_is_utc(until) != 0) {
        time.Zone = kUtc;
        time.Wall = agenda.Zones->ToUtc(
            agenda.Zones->ToWall(time.Wall, from.Zone) + to.Wall - from.Wall, from.Zone);
    } else {
        time.Wall += to.Wall - from.Wall;
    }
    return IcalText(time);
}

} // namespace

QByteArray IcalText(const AgendaTime &time)
{
    const QDateTime wall = QDateTime::fromSecsSinceEpoch(time.Wall, Qt::UTC);
    return wall.toString(time.IsDate ? QStringLiteral("yyyyMMdd")
                                     : QStringLiteral("yyyyMMdd'T'HHmmss"))
               .toLatin1()
           + (!time.IsDate && time.Zone == kUtc ? "Z" : "");
}

std::variant<QByteArray, QString> MovedRule(const Agenda &agenda, const QByteArray &rule,
                                            const AgendaTime &from, const AgendaTime &to)
{
    const auto lock = LockIcal();
    RuleParts parts(rule);
    const qint64 days = DayOf(to.Wall) - DayOf(from.Wall);
    const auto has = [&](std::initializer_list<QByteArrayView> names) {
        return std::ranges::any_of(names, [&](auto name) { return parts.Has(name); });
    };
    if (to.Wall - from.Wall != days * kSecondsPerDay && has({"BYHOUR", "BYMINUTE", "BYSECOND"})) {
        return QStringLiteral("The rule of this series names the times of day. Single occurrences "
                              "can be moved.");
    }
    const QString named = QStringLiteral("The rule of this series names the days. Single "
                                         "occurrences can be moved to others.");
    if (days != 0) {
        if (has({"BYMONTHDAY", "BYYEARDAY", "BYWEEKNO", "BYMONTH", "BYSETPOS"})) {
            return named;
        }
        if (parts.Has("BYDAY")) {
            const QByteArray frequency = parts.Value("FREQ").toUpper();
            const auto moved = MovedDays(parts, days);
            if (!moved || frequency == "MONTHLY" || frequency == "YEARLY") {
                return named;
            }
            parts.Set("BYDAY", *moved);
        }
    }
    if (parts.Has("UNTIL")) {
        parts.Set("UNTIL", MovedUntil(agenda, parts.Value("UNTIL"), from, to));
    }
    return parts.Text();
}

QByteArray RuleBefore(const Agenda &agenda, const QByteArray &rule, const AgendaTime &of)
{
    AgendaTime last = of;
    if (of.IsDate) {
        last.Wall -= kSecondsPerDay;
    } else if (of.Zone == kFloating) {
        last.Wall -= 1;
    } else {
        last = {agenda.UtcOf(of) - 1, kUtc, false};
    }
    RuleParts parts(rule);
    parts.Drop("COUNT");
    parts.Set("UNTIL", IcalText(last));
    return parts.Text();
}

QByteArray RuleFrom(const QByteArray &rule, int before)
{
    RuleParts parts(rule);
    if (parts.Has("COUNT")) {
        parts.Set("COUNT", QByteArray::number(std::max(1, parts.Value("COUNT").toInt() - before)));
    }
    return parts.Text();
}

QByteArray RuleOfLine(const QByteArray &line)
{
    const auto lock = LockIcal();
    const IcalPropertyPtr property(icalproperty_new_from_string(line.constData()));
    const bool isRule = property != nullptr
                        && (icalproperty_isa(property.get()) == ICAL_RRULE_PROPERTY
                            || icalproperty_isa(property.get()) == ICAL_EXRULE_PROPERTY);
    return isRule ? ValueTextOf(property.get()) : QByteArray();
}

} // namespace korvane::planner
