#include "plan/GanttProjectCalendar.h"

#include "foundation/zuDateUtils.h"
#include "plan/PlanFields.h"
#include "plan/PlannerText.h"

#include <algorithm>
#include <utility>

namespace korvane::planner {

namespace {

/// A holiday without a year returns every year; these are the ones that count.
constexpr int kFirstHolidayYear = 1950;
constexpr int kLastHolidayYear = 2150;
constexpr int kEveryYear = 0;

/// One `date` element.
struct DayOfYear
{
    int Year = kEveryYear;
    int Month = 1;
    int Day = 1;
    DayTimes Times;
};

/// What a file says about working days.
class DayRules
{
public:
    void Add(const DayOfYear &date);
    void SetDayOff(std::size_t weekDay, bool isDayOff) { m_isDayOff[weekDay] = isDayOff; }
    void SetWorkingWeekends(bool isSet) { m_hasWorkingWeekends = isSet; }
    void AddTo(PlanBuilder &builder) const;

private:
    WorkCalendar::Week Week() const;
    std::vector<CalendarException> Exceptions() const;
    bool HasWorkingDay() const
    {
        return m_hasWorkingWeekends || std::ranges::find(m_isDayOff, false) != m_isDayOff.end();
    }

    std::array<bool, 7> m_isDayOff{true, false, false, false, false, false, true}; // from Sunday
    bool m_hasWorkingWeekends = false;
    std::vector<DayOfYear> m_dates;
    std::array<std::array<bool, 32>, 13> m_isYearlyKnown{};
};

void DayRules::Add(const DayOfYear &date)
{
    constexpr int kLeapYear = 2000;
    const int year = date.Year == kEveryYear ? kLeapYear : date.Year;
    if (year < 1 || year > 9999 || date.Month < 1 || date.Month > 12 || date.Day < 1
        || date.Day > DaysInMonth(year, date.Month)) {
        return;
    }
    if (date.Year != kEveryYear || !std::exchange(m_isYearlyKnown[date.Month][date.Day], true)) {
        m_dates.push_back(date);
    }
}

void DayRules::AddTo(PlanBuilder &builder) const
{
    if (!HasWorkingDay()) {
        builder.Remark(0, PlannerText::tr("The calendar has no working day; all days count."));
    }
    builder.AddCalendar({0, QString(), WorkCalendar(Week(), Exceptions())});
    builder.UseCalendar(0);
}

WorkCalendar::Week DayRules::Week() const
{
    WorkCalendar::Week week;
    for (std::size_t day = 0; day < week.size(); ++day) {
        if (m_hasWorkingWeekends || !m_isDayOff[day] || !HasWorkingDay()) {
            week[day] = DayTimes::WholeDay();
        }
    }
    return week;
}

/// Dates of a certain year stand before those of every year, so that they win.
std::vector<CalendarException> DayRules::Exceptions() const
{
    std::vector<CalendarException> exceptions;
    const auto add = [&](int year, const DayOfYear &date) {
        if (date.Day <= DaysInMonth(year, date.Month)) {
            const int day = static_cast<int>(EncodeDate(year, date.Month, date.Day));
            exceptions.push_back({day, day, date.Times});
        }
    };
    for (const DayOfYear &date : m_dates) {
        if (date.Year != kEveryYear) {
            add(date.Year, date);
        }
    }
    for (const DayOfYear &date : m_dates) {
        for (int year = kFirstHolidayYear; date.Year == kEveryYear && year <= kLastHolidayYear;
             ++year) {
            add(year, date);
        }
    }
    return exceptions;
}

void ReadWeek(PlanXml &xml, DayRules &rules)
{
    constexpr std::array<QStringView, 7> kDays{u"sun", u"mon", u"tue", u"wed",
                                               u"thu", u"fri", u"sat"};
    for (std::size_t day = 0; day < kDays.size(); ++day) {
        const QStringView flag = xml.Attribute(kDays[day]);
        if (!flag.isEmpty()) {
            rules.SetDayOff(day, ParseFlag(flag));
        }
    }
}

void ReadDate(PlanXml &xml, PlanBuilder &builder, DayRules &rules)
{
    const QStringView type = xml.Attribute(u"type");
    if (type == u"NEUTRAL") {
        return;
    }
    const FieldReader fields(builder, xml.Line());
    DayOfYear date;
    if (const QStringView year = xml.Attribute(u"year"); !year.isEmpty()) {
        date.Year = fields.Integer(year, QT_TRANSLATE_NOOP("Planner", "\"%1\" is not a year."))
                        .value_or(-1);
    }
    date.Month = fields
                     .Integer(xml.Attribute(u"month"),
                              QT_TRANSLATE_NOOP("Planner", "\"%1\" is not a month."))
                     .value_or(0);
    date.Day =
        fields.Integer(xml.Attribute(u"date"), QT_TRANSLATE_NOOP("Planner", "\"%1\" is not a day."))
            .value_or(0);
    date.Times = type == u"WORKING_DAY" ? DayTimes::WholeDay() : DayTimes();
    rules.Add(date);
}

} // namespace

void ReadGanttProjectCalendar(PlanXml &xml, PlanBuilder &builder)
{
    DayRules rules;
    // What matters lies at different depths in the versions of the format.
    int depth = 0;
    while (depth >= 0) {
        if (!xml.NextChild()) {
            --depth;
            continue;
        }
        if (xml.Is(u"day-types") || xml.Is(u"calendar")) {
            ++depth;
            continue;
        }
        if (xml.Is(u"default-week")) {
            ReadWeek(xml, rules);
        } else if (xml.Is(u"only-show-weekends")) {
            rules.SetWorkingWeekends(ParseFlag(xml.Attribute(u"value")));
        } else if (xml.Is(u"date")) {
            ReadDate(xml, builder, rules);
        }
        xml.Skip();
    }
    rules.AddTo(builder);
}

void AddGanttProjectCalendar(PlanBuilder &builder)
{
    DayRules().AddTo(builder);
}

} // namespace korvane::planner
