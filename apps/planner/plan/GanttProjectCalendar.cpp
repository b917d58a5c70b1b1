#include "plan/GanttProjectCalendar.h"

#include "foundation/zuDateUtils.h"
#include "plan/PlanFields.h"

#include <algorithm>

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

class CalendarParser
{
public:
    CalendarParser(PlanXml &xml, PlanBuilder &builder)
        : m_xml(xml)
        , m_builder(builder)
    {
    }

    void Read();

private:
    void ReadWeek();
    void ReadDate();
    WorkCalendar::Week Week() const;
    std::vector<CalendarException> Exceptions() const;

    PlanXml &m_xml;
    PlanBuilder &m_builder;
    std::array<bool, 7> m_isDayOff{true, false, false, false, false, false, true};
    bool m_hasWorkingWeekends = false;
    std::vector<DayOfYear> m_dates;
    std::array<std::array<bool, 32>, 13> m_isYearlyKnown{};
};

void CalendarParser::Read()
{
    // What matters lies at different depths in the versions of the format.
    int depth = 0;
    while (depth >= 0) {
        if (!m_xml.NextChild()) {
            --depth;
        } else if (m_xml.Is(u"day-types") || m_xml.Is(u"calendar")) {
            ++depth;
        } else if (m_xml.Is(u"default-week")) {
            ReadWeek();
        } else if (m_xml.Is(u"only-show-weekends")) {
            m_hasWorkingWeekends = ParseFlag(m_xml.Attribute(u"value"));
            m_xml.Skip();
        } else if (m_xml.Is(u"date")) {
            ReadDate();
        } else {
            m_xml.Skip();
        }
    }
    m_builder.AddCalendar({0, QString(), WorkCalendar(Week(), Exceptions())});
    m_builder.UseCalendar(0);
}

void CalendarParser::ReadWeek()
{
    constexpr std::array<QStringView, 7> kDays{u"sun", u"mon", u"tue", u"wed",
                                               u"thu", u"fri", u"sat"};
    for (std::size_t day = 0; day < kDays.size(); ++day) {
        const QStringView flag = m_xml.Attribute(kDays[day]);
        m_isDayOff[day] = flag.isEmpty() ? m_isDayOff[day] : ParseFlag(flag);
    }
    m_xml.Skip();
}

void CalendarParser::ReadDate()
{
    const FieldReader fields(m_builder, m_xml.Line());
    const QStringView type = m_xml.Attribute(u"type");
    const bool isHoliday = type != u"WORKING_DAY" && type != u"NEUTRAL";
    DayOfYear date;
    if (!m_xml.Attribute(u"year").isEmpty()) {
        date.Year = fields.Integer(m_xml.Attribute(u"year"), u"a year").value_or(-1);
    }
    date.Month = fields.Integer(m_xml.Attribute(u"month"), u"a month").value_or(0);
    date.Day = fields.Integer(m_xml.Attribute(u"date"), u"a day").value_or(0);
    date.Times = isHoliday ? DayTimes() : DayTimes::WholeDay();
    m_xml.Skip();
    constexpr int kLeapYear = 2000;
    const int year = date.Year == kEveryYear ? kLeapYear : date.Year;
    if (year < 1 || year > 9999 || date.Month < 1 || date.Month > 12 || date.Day < 1
        || date.Day > DaysInMonth(year, date.Month) || type == u"NEUTRAL") {
        return;
    }
    if (date.Year == kEveryYear && std::exchange(m_isYearlyKnown[date.Month][date.Day], true)) {
        return;
    }
    m_dates.push_back(std::move(date));
}

WorkCalendar::Week CalendarParser::Week() const
{
    WorkCalendar::Week week;
    const bool hasWorkingDay = std::ranges::find(m_isDayOff, false) != m_isDayOff.end();
    for (std::size_t day = 0; day < week.size(); ++day) {
        if (m_hasWorkingWeekends || !m_isDayOff[day] || !hasWorkingDay) {
            week[day] = DayTimes::WholeDay();
        }
    }
    if (!hasWorkingDay && !m_hasWorkingWeekends) {
        m_builder.Remark(0, QStringLiteral("The calendar has no working day; all days count."));
    }
    return week;
}

/// Dates of a certain year stand before those of every year, so that they win.
std::vector<CalendarException> CalendarParser::Exceptions() const
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

} // namespace

void ReadGanttProjectCalendar(PlanXml &xml, PlanBuilder &builder)
{
    CalendarParser(xml, builder).Read();
}

} // namespace korvane::planner
