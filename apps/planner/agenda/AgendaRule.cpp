#include "agenda/AgendaRule.h"

#include "agenda/AgendaOccurrences.h"
#include "agenda/IcalLibrary.h"
#include "plan/PlannerText.h"

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
    QByteArrayList Names() const
    {
        QByteArrayList names;
        for (const TPart &part : m_parts) {
            names.append(part.first);
        }
        return names;
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

QByteArray DayAfter(int day, qint64 days)
{
    const auto place = ((day + days) % kDaysPerWeek + kDaysPerWeek) % kDaysPerWeek;
    return kDays[place].toByteArray();
}

/// Moves "MO,WE" by a number of days. In a rule that leaves out weeks, these begin on another day
/// then, if need be. False, and nothing is changed, where a day is counted within a month.
bool MoveDays(RuleParts &rule, qint64 days)
{
    const int first = std::max(0, IndexOfDay(rule.Has("WKST") ? rule.Value("WKST") : "MO"));
    bool isInOtherWeek = false;
    QByteArrayList moved;
    for (const QByteArray &day : rule.Value("BYDAY").split(',')) {
        const int index = IndexOfDay(day.trimmed().toUpper());
        if (index < 0) {
            return false;
        }
        const qint64 inWeek = (index - first + kDaysPerWeek) % kDaysPerWeek + days;
        isInOtherWeek = isInOtherWeek || inWeek < 0 || inWeek >= kDaysPerWeek;
        moved.append(DayAfter(index, days));
    }
    rule.Set("BYDAY", moved.join(','));
    if (isInOtherWeek && rule.Value("INTERVAL").toInt() > 1 && rule.Value("FREQ") == "WEEKLY") {
        rule.Set("WKST", DayAfter(first, days));
    }
    return true;
}

/// The moment of an UNTIL value by the wall clock of a start. Nothing where it cannot be read.
std::optional<AgendaTime> UntilAt(const Agenda &agenda, const QByteArray &text,
                                  const AgendaTime &start)
{
    const icaltimetype until = icaltime_from_string(text.constData());
    if (icaltime_is_null_time(until) != 0) {
        return std::nullopt;
    }
    const bool isUtc = until.is_date == 0 && icaltime_is_utc(until) != 0;
    const AgendaSeconds seconds = SecondsOf(until);
    return AgendaTime{isUtc ? agenda.Zones->ToWall(seconds, start.Zone) : seconds, start.Zone,
                      until.is_date != 0};
}

/// The same as text, in UTC where the start has a zone.
QByteArray UntilText(const Agenda &agenda, const AgendaTime &until)
{
    return IcalText(until.IsDate || until.Zone == kFloating
                        ? until
                        : AgendaTime{agenda.UtcOf(until), kUtc, false});
}

QByteArray MovedUntil(const Agenda &agenda, const QByteArray &text, const AgendaTime &from,
                      const AgendaTime &to)
{
    auto until = UntilAt(agenda, text, from);
    if (!until) {
        return text;
    }
    const AgendaSeconds days = (DayOf(to.Wall) - DayOf(from.Wall)) * kSecondsPerDay;
    if (from.IsDate != to.IsDate) { // the last day stays the last one
        const AgendaSeconds day = DayOf(until->Wall) * kSecondsPerDay + days;
        until = {to.IsDate ? day : day + kSecondsPerDay - 1, to.Zone, to.IsDate};
    } else {
        until->Wall += until->IsDate ? days : to.Wall - from.Wall;
    }
    const bool wasUtc = text.trimmed().endsWith('Z');
    return from.IsDate != to.IsDate || wasUtc ? UntilText(agenda, *until) : IcalText(*until);
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
    const bool isOtherTime =
        from.IsDate != to.IsDate || to.Wall - from.Wall != days * kSecondsPerDay;
    if (isOtherTime && has({"BYHOUR", "BYMINUTE", "BYSECOND"})) {
        return PlannerText::tr("The rule of this series names the times of day. Single occurrences "
                               "can be moved.");
    }
    const QString named = PlannerText::tr("The rule of this series names the days. Single "
                                          "occurrences can be moved to others.");
    if (days != 0) {
        if (has({"BYMONTHDAY", "BYYEARDAY", "BYWEEKNO", "BYMONTH", "BYSETPOS"})) {
            return named;
        }
        if (parts.Has("BYDAY")) {
            const QByteArray frequency = parts.Value("FREQ").toUpper();
            if (frequency == "MONTHLY" || frequency == "YEARLY" || !MoveDays(parts, days)) {
                return named;
            }
        }
    }
    return RuleWithMovedEnd(agenda, parts.Text(), from, to);
}

QByteArray RuleWithMovedEnd(const Agenda &agenda, const QByteArray &rule, const AgendaTime &from,
                            const AgendaTime &to)
{
    const auto lock = LockIcal();
    RuleParts parts(rule);
    if (parts.Has("UNTIL")) {
        parts.Set("UNTIL", MovedUntil(agenda, parts.Value("UNTIL"), from, to));
    }
    return parts.Text();
}

QByteArray RuleBefore(const Agenda &agenda, const QByteArray &rule, const AgendaTime &start,
                      const AgendaTime &of)
{
    const auto lock = LockIcal();
    RuleParts parts(rule);
    if (parts.Has("COUNT")
        && PlaceInRule(agenda, rule, start, of.Wall).Before >= parts.Value("COUNT").toInt()) {
        return rule;
    }
    if (const auto until = UntilAt(agenda, parts.Value("UNTIL"), start);
        until && until->Wall + (until->IsDate ? kSecondsPerDay - 1 : 0) < of.Wall) {
        return rule;
    }
    AgendaTime last = of;
    if (of.IsDate) {
        last.Wall -= kSecondsPerDay;
    } else if (of.Zone == kFloating) {
        last.Wall -= 1;
    } else {
        last = {agenda.UtcOf(of) - 1, kUtc, false};
    }
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

// --- simple rules --------------------------------------------------------------------------------

namespace {

constexpr std::pair<AgendaRepeat, QByteArrayView> kFrequencies[] = {
    {AgendaRepeat::Daily, "DAILY"},
    {AgendaRepeat::Weekly, "WEEKLY"},
    {AgendaRepeat::Monthly, "MONTHLY"},
    {AgendaRepeat::Yearly, "YEARLY"},
};

/// 0 is Monday.
int WeekdayOf(AgendaSeconds wall)
{
    return static_cast<int>((DayOf(wall) % kDaysPerWeek + kDaysPerWeek + 3) % kDaysPerWeek);
}

/// The days of "MO,WE" as bits, 0 for the start's alone; nothing for others.
std::optional<unsigned> WeekdaysOf(const QByteArray &text, const AgendaTime &start)
{
    unsigned days = 0;
    for (const QByteArray &day : text.split(',')) {
        const int index = IndexOfDay(day.trimmed().toUpper());
        if (index < 0) {
            return std::nullopt;
        }
        days |= 1U << static_cast<unsigned>((index + kDaysPerWeek - 1) % kDaysPerWeek);
    }
    return days == 1U << static_cast<unsigned>(WeekdayOf(start.Wall)) ? 0 : days;
}

/// Whether a part says what a simple rule says as well, or what goes without saying.
bool IsSimplePart(const RuleParts &parts, const QByteArray &name, const AgendaTime &start)
{
    const QByteArray frequency = parts.Value("FREQ").toUpper();
    const QDate day = QDateTime::fromSecsSinceEpoch(start.Wall, Qt::UTC).date();
    if (name == "BYDAY") {
        return frequency == "WEEKLY";
    }
    if (name == "WKST") {
        return frequency != "WEEKLY" || parts.Value("INTERVAL").toInt() <= 1
               || parts.Value(name).toUpper() == "MO";
    }
    if (name == "BYMONTHDAY") {
        return (frequency == "MONTHLY" || (frequency == "YEARLY" && parts.Has("BYMONTH")))
               && parts.Value(name) == QByteArray::number(day.day());
    }
    if (name == "BYMONTH") {
        return frequency == "YEARLY" && parts.Value(name) == QByteArray::number(day.month());
    }
    constexpr QByteArrayView kSaid[] = {"FREQ", "INTERVAL", "COUNT", "UNTIL"};
    return std::ranges::find(kSaid, QByteArrayView(name)) != std::end(kSaid);
}

} // namespace

AgendaSimpleRule SimpleRuleOf(const Agenda &agenda, const AgendaEvent &event)
{
    const AgendaSimpleRule other{AgendaRepeat::Other};
    if (event.Series == nullptr || !event.Start) {
        return {};
    }
    if (event.Series->Rules.size() != 1 || !event.Series->ExceptRules.empty()) {
        return other;
    }
    const auto lock = LockIcal();
    const RuleParts parts(event.Series->Rules.front());
    const auto frequency =
        std::ranges::find(kFrequencies, QByteArrayView(parts.Value("FREQ").toUpper()),
                          [](auto &one) { return one.second; });
    const bool isSimple = frequency != std::end(kFrequencies)
                          && std::ranges::all_of(parts.Names(), [&](const QByteArray &name) {
                                 return IsSimplePart(parts, name, *event.Start);
                             });
    if (!isSimple) {
        return other;
    }
    AgendaSimpleRule rule{frequency->first};
    rule.Interval = std::max(1, parts.Value("INTERVAL").toInt());
    rule.Count = parts.Value("COUNT").toInt();
    if (parts.Has("BYDAY")) {
        const auto days = WeekdaysOf(parts.Value("BYDAY"), *event.Start);
        if (!days) {
            return other;
        }
        rule.Weekdays = *days;
    }
    if (const auto until = UntilAt(agenda, parts.Value("UNTIL"), *event.Start)) {
        rule.Until = DayOf(until->Wall) * kSecondsPerDay;
    }
    return rule;
}

QByteArray RuleText(const Agenda &agenda, const AgendaSimpleRule &rule, const AgendaTime &start)
{
    const auto frequency =
        std::ranges::find(kFrequencies, rule.Repeat, [](auto &one) { return one.first; });
    if (frequency == std::end(kFrequencies)) {
        return {};
    }
    QByteArray text = "FREQ=" + frequency->second.toByteArray();
    if (rule.Interval > 1) {
        text += ";INTERVAL=" + QByteArray::number(rule.Interval);
    }
    if (rule.Repeat == AgendaRepeat::Weekly && rule.Weekdays != 0) {
        QByteArrayList days;
        for (unsigned day = 0; day < kDaysPerWeek; ++day) {
            if ((rule.Weekdays >> day & 1U) != 0) {
                days.append(kDays[(day + 1) % kDaysPerWeek].toByteArray());
            }
        }
        text += ";BYDAY=" + days.join(',');
    }
    if (rule.Count > 0) {
        text += ";COUNT=" + QByteArray::number(rule.Count);
    } else if (rule.Until) {
        AgendaTime last{*rule.Until, start.Zone, start.IsDate};
        last.Wall += start.IsDate ? 0 : kSecondsPerDay - 1;
        text += ";UNTIL=" + UntilText(agenda, last);
    }
    return text;
}

void StartOnRule(const Agenda &agenda, AgendaEvent &series)
{
    if (SimpleRuleOf(agenda, series).Repeat != AgendaRepeat::Weekly) {
        return;
    }
    AgendaTime start = *series.Start;
    for (int days = 0; days < kDaysPerWeek; ++days, start.Wall += kSecondsPerDay) {
        if (PlaceInRule(agenda, series.Series->Rules.front(), start, start.Wall).IsGiven) {
            series.Start = start;
            return;
        }
    }
}

} // namespace korvane::planner
