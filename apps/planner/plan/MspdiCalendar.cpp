#include "plan/MspdiCalendar.h"

#include "plan/PlanFields.h"

#include <cmath>

namespace korvane::planner {

namespace {

/// One `WeekDay` or `Exception` element.
struct DayRule
{
    int DayType = 0; ///< 1 = Sunday ... 7 = Saturday, 0 = exception
    bool IsWorking = false;
    int RecurrenceType = 1; ///< 1 = every day of the period
    std::vector<DayStretch> Times;
    std::optional<TDateTime> From;
    std::optional<TDateTime> To;
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
    void ReadDays();
    DayRule ReadRule();
    void ReadPeriod(DayRule &rule);
    std::vector<DayStretch> ReadTimes();
    DayStretch ReadStretch();
    void Apply(const DayRule &rule);
    FieldReader Fields() { return {m_builder, m_xml.Line()}; }

    PlanXml &m_xml;
    PlanBuilder &m_builder;
    WorkCalendar::Week m_week = WorkCalendar::OfficeWeek();
    std::vector<CalendarException> m_exceptions;
};

void CalendarParser::Read()
{
    PlanCalendar calendar;
    std::int64_t base = kNoUid;
    bool isBase = false;
    while (m_xml.NextChild()) {
        if (m_xml.Is(u"UID")) {
            calendar.Uid = Fields().Uid(m_xml.Text());
        } else if (m_xml.Is(u"Name")) {
            calendar.Name = m_xml.Text().left(PlanBuilder::kMaxNameLength);
        } else if (m_xml.Is(u"IsBaseCalendar")) {
            isBase = ParseFlag(m_xml.Text());
        } else if (m_xml.Is(u"BaseCalendarUID")) {
            base = ParseInteger(m_xml.Text()).value_or(kNoUid);
        } else if (m_xml.Is(u"WeekDays") || m_xml.Is(u"Exceptions")) {
            ReadDays();
        } else {
            m_xml.Skip();
        }
    }
    if (isBase) {
        calendar.Times = WorkCalendar(std::move(m_week), std::move(m_exceptions));
        m_builder.AddCalendar(std::move(calendar));
    } else {
        m_builder.AddDerivedCalendar(calendar.Uid, base);
    }
}

void CalendarParser::ReadDays()
{
    while (m_xml.NextChild()) {
        if (m_xml.Is(u"WeekDay") || m_xml.Is(u"Exception")) {
            Apply(ReadRule());
        } else {
            m_xml.Skip();
        }
    }
}

DayRule CalendarParser::ReadRule()
{
    DayRule rule;
    while (m_xml.NextChild()) {
        if (m_xml.Is(u"DayType")) {
            rule.DayType = Fields()
                               .Integer(m_xml.Text(),
                                        QT_TRANSLATE_NOOP("Planner", "\"%1\" is not a day type."))
                               .value_or(-1);
        } else if (m_xml.Is(u"DayWorking")) {
            rule.IsWorking = ParseFlag(m_xml.Text());
        } else if (m_xml.Is(u"Type")) {
            rule.RecurrenceType =
                Fields()
                    .Integer(m_xml.Text(),
                             QT_TRANSLATE_NOOP("Planner", "\"%1\" is not a recurrence."))
                    .value_or(0);
        } else if (m_xml.Is(u"TimePeriod")) {
            ReadPeriod(rule);
        } else if (m_xml.Is(u"WorkingTimes")) {
            rule.Times = ReadTimes();
        } else {
            m_xml.Skip();
        }
    }
    return rule;
}

void CalendarParser::ReadPeriod(DayRule &rule)
{
    while (m_xml.NextChild()) {
        if (m_xml.Is(u"FromDate")) {
            rule.From = Fields().Date(m_xml.Text());
        } else if (m_xml.Is(u"ToDate")) {
            rule.To = Fields().Date(m_xml.Text());
        } else {
            m_xml.Skip();
        }
    }
}

std::vector<DayStretch> CalendarParser::ReadTimes()
{
    std::vector<DayStretch> times;
    while (m_xml.NextChild()) {
        if (m_xml.Is(u"WorkingTime")) {
            times.push_back(ReadStretch());
        } else {
            m_xml.Skip();
        }
    }
    return times;
}

DayStretch CalendarParser::ReadStretch()
{
    DayStretch stretch;
    while (m_xml.NextChild()) {
        const bool isFrom = m_xml.Is(u"FromTime");
        if (!isFrom && !m_xml.Is(u"ToTime")) {
            m_xml.Skip();
            continue;
        }
        const int minute = static_cast<int>(std::lround(ParseIsoTime(m_xml.Text()).value_or(0)));
        (isFrom ? stretch.From : stretch.To) = minute;
    }
    // Up to midnight is written as 00:00.
    if (stretch.To == 0) {
        stretch.To = kMinutesPerDay;
    }
    return stretch;
}

void CalendarParser::Apply(const DayRule &rule)
{
    DayTimes times(rule.IsWorking ? rule.Times : std::vector<DayStretch>());
    if (rule.DayType >= 1 && rule.DayType <= 7) {
        m_week[rule.DayType - 1] = std::move(times);
        return;
    }
    // Exceptions that recur are written out day by day under WeekDays as well.
    if (rule.RecurrenceType == 1 && rule.From && rule.To) {
        m_exceptions.push_back({static_cast<int>(std::floor(*rule.From)),
                                static_cast<int>(std::floor(*rule.To)), std::move(times)});
    }
}

} // namespace

void ReadMspdiCalendar(PlanXml &xml, PlanBuilder &builder)
{
    CalendarParser(xml, builder).Read();
}

} // namespace korvane::planner
