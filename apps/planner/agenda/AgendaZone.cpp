#include "agenda/AgendaZone.h"

#include "agenda/IcalLibrary.h"

#include <QDate>
#include <QRegularExpression>
#include <QTimeZone>

#include <cmath>

namespace korvane::planner {

namespace {

constexpr qint64 kJulianDayOfEpoch = 2'440'588; // 1970-01-01

using RulesPtr = std::shared_ptr<AgendaZone::Rules>;

RulesPtr OwnRules(IcalComponentPtr component)
{
    icaltimezone *zone = icaltimezone_new();
    auto rules = std::make_shared<AgendaZone::Rules>(zone, true);
    return icaltimezone_set_component(zone, component.get()) != 0
               ? (static_cast<void>(component.release()), rules)
               : nullptr;
}

RulesPtr SystemRules(const QByteArray &name)
{
    icaltimezone *zone =
        name.isEmpty() ? nullptr : icaltimezone_get_builtin_timezone(name.constData());
    return zone != nullptr ? std::make_shared<AgendaZone::Rules>(zone, false) : nullptr;
}

RulesPtr FixedRules(int minutes)
{
    const QByteArray offset =
        (minutes < 0 ? "-" : "+")
        + QByteArray::number(10'000 + std::abs(minutes) / 60 * 100 + std::abs(minutes) % 60).mid(1);
    const QByteArray text =
        "BEGIN:VTIMEZONE\r\nTZID:" + offset
        + "\r\nBEGIN:STANDARD\r\nDTSTART:19700101T000000\r\nTZOFFSETFROM:" + offset
        + "\r\nTZOFFSETTO:" + offset + "\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n";
    return OwnRules(IcalComponentPtr(icalcomponent_new_from_string(text.constData())));
}

/// "(UTC-05:00) Eastern Time (US & Canada)", "GMT+1".
RulesPtr RulesFromOffset(const QByteArray &id)
{
    static const QRegularExpression pattern(
        QStringLiteral("^\\W*(?:UTC|GMT)\\s*([+-])(\\d{1,2})(?::?(\\d{2}))?"));
    const auto match = pattern.match(QString::fromUtf8(id));
    if (!match.hasMatch()) {
        return nullptr;
    }
    const int minutes = match.captured(2).toInt() * 60 + match.captured(3).toInt();
    return minutes < 24 * 60 ? FixedRules(match.captured(1) == u"-" ? -minutes : minutes) : nullptr;
}

/// "/example.org/20070101_1/Europe/Berlin".
RulesPtr RulesFromPath(const QByteArray &id)
{
    const QByteArrayList parts = id.split('/');
    for (const qsizetype count : {3, 2}) {
        if (parts.size() > count) {
            if (RulesPtr rules = SystemRules(parts.mid(parts.size() - count).join('/'))) {
                return rules;
            }
        }
    }
    return nullptr;
}

RulesPtr RulesFor(const QByteArray &id)
{
    const auto lock = LockIcal();
    if (RulesPtr rules = SystemRules(id)) {
        return rules;
    }
    if (RulesPtr rules = SystemRules(QTimeZone::windowsIdToDefaultIanaId(id))) {
        return rules;
    }
    if (RulesPtr rules = RulesFromPath(id)) {
        return rules;
    }
    return RulesFromOffset(id);
}

/// Some files quote the name itself.
QByteArray Cleaned(const QByteArray &id)
{
    QByteArray cleaned = id.trimmed();
    if (cleaned.size() >= 2 && cleaned.startsWith('"') && cleaned.endsWith('"')) {
        cleaned = cleaned.mid(1, cleaned.size() - 2);
    }
    return cleaned;
}

} // namespace

std::unique_lock<std::recursive_mutex> LockIcal()
{
    static std::recursive_mutex mutex;
    static const bool isPrepared = [] {
        icalerror_set_errors_are_fatal(0);
        ical_set_unknown_token_handling_setting(ICAL_ASSUME_IANA_TOKEN);
        return true;
    }();
    static_cast<void>(isPrepared);
    return std::unique_lock(mutex);
}

AgendaSeconds SecondsOf(const icaltimetype &time)
{
    const qint64 days = QDate(time.year, time.month, time.day).toJulianDay() - kJulianDayOfEpoch;
    return days * kSecondsPerDay + time.hour * 3600LL + time.minute * 60LL + time.second;
}

QByteArray ValueTextOf(icalproperty *property)
{
    const icalvalue *value = icalproperty_get_value(property);
    char *text = value != nullptr ? icalvalue_as_ical_string_r(value) : nullptr;
    QByteArray result(text);
    if (text != nullptr) {
        icalmemory_free_buffer(text);
    }
    return result;
}

icaltimetype IcalTimeOf(AgendaSeconds seconds, bool isDate)
{
    const AgendaSeconds days = DayOf(seconds);
    const QDate date = QDate::fromJulianDay(days + kJulianDayOfEpoch);
    const int second = static_cast<int>(seconds - days * kSecondsPerDay);
    icaltimetype time = icaltime_null_time();
    time.year = date.year();
    time.month = date.month();
    time.day = date.day();
    time.is_date = isDate ? 1 : 0;
    if (!isDate) {
        time.hour = second / 3600;
        time.minute = second / 60 % 60;
        time.second = second % 60;
    }
    return time;
}

AgendaZone::AgendaZone(QByteArray id, std::shared_ptr<Rules> rules)
    : m_id(std::move(id))
    , m_rules(std::move(rules))
{
}

AgendaSeconds AgendaZone::ToUtc(AgendaSeconds wall) const
{
    const auto lock = LockIcal();
    icaltimetype time = IcalTimeOf(wall, false);
    return wall - icaltimezone_get_utc_offset(m_rules->Zone, &time, nullptr);
}

AgendaSeconds AgendaZone::ToWall(AgendaSeconds utc) const
{
    const auto lock = LockIcal();
    icaltimetype time = IcalTimeOf(utc, false);
    return utc + icaltimezone_get_utc_offset_of_utc_time(m_rules->Zone, &time, nullptr);
}

QByteArray AgendaZone::Definition() const
{
    const auto lock = LockIcal();
    const IcalComponentPtr copy(icalcomponent_new_clone(icaltimezone_get_component(m_rules->Zone)));
    if (copy == nullptr) {
        return {};
    }
    if (icalproperty *id = icalcomponent_get_first_property(copy.get(), ICAL_TZID_PROPERTY)) {
        icalproperty_set_tzid(id, m_id.constData());
    }
    char *text = icalcomponent_as_ical_string_r(copy.get());
    const QByteArray result(text);
    icalmemory_free_buffer(text);
    return result;
}

AgendaZones::AgendaZones()
{
    const auto lock = LockIcal();
    Add("UTC", std::make_shared<AgendaZone::Rules>(icaltimezone_get_utc_timezone(), false));
}

int AgendaZones::Add(const QByteArray &id, std::shared_ptr<AgendaZone::Rules> rules)
{
    m_zones.emplace_back(id, std::move(rules));
    return static_cast<int>(m_zones.size()) - 1;
}

bool AgendaZones::Define(const QByteArray &component, int calendar)
{
    const auto lock = LockIcal();
    IcalComponentPtr parsed(icalcomponent_new_from_string(component.constData()));
    if (parsed == nullptr
        || icalcomponent_get_first_component(parsed.get(), ICAL_ANY_COMPONENT) == nullptr) {
        return false;
    }
    auto rules = OwnRules(std::move(parsed));
    if (rules == nullptr) {
        return false;
    }
    const QByteArray id = Cleaned(icaltimezone_get_tzid(rules->Zone));
    const int zone = Add(id, std::move(rules));
    m_own[{id, calendar}] = zone;
    if (!m_others.contains(id)) {
        m_others[id] = zone;
    }
    return true;
}

std::optional<int> AgendaZones::Find(const QByteArray &id, int calendar)
{
    const QByteArray cleaned = Cleaned(id);
    if (const auto own = m_own.constFind({cleaned, calendar}); own != m_own.cend()) {
        return *own;
    }
    if (!m_others.contains(cleaned)) {
        RulesPtr rules = RulesFor(cleaned);
        m_others[cleaned] =
            rules != nullptr ? std::optional(Add(cleaned, std::move(rules))) : std::nullopt;
    }
    return m_others.value(cleaned);
}

AgendaSeconds AgendaZones::ToUtc(AgendaSeconds wall, int zone) const
{
    return zone <= kUtc ? wall : At(zone).ToUtc(wall);
}

AgendaSeconds AgendaZones::ToWall(AgendaSeconds utc, int zone) const
{
    return zone <= kUtc ? utc : At(zone).ToWall(utc);
}

} // namespace korvane::planner
