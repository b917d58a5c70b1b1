#include "plan/MspdiCalendarFields.h"

namespace korvane::planner {

namespace {

constexpr int kDayDepth = 4; ///< Project, Calendars, Calendar, WeekDays

class CalendarFields
{
public:
    explicit CalendarFields(const MspdiMarkup &markup)
        : m_markup(markup)
    {
    }

    QByteArray WeekDay(int number, const DayTimes &times) const;
    QByteArray Exception(const CalendarException &exception) const;

private:
    static QString TimeText(int minute);
    /// DayWorking and WorkingTimes.
    XmlFields Times(const DayTimes &times) const;

    const MspdiMarkup &m_markup;
};

/// The end of the day is 00:00.
QString CalendarFields::TimeText(int minute)
{
    constexpr int kMinutesPerHour = 60;
    return QStringLiteral("%1:%2:00")
        .arg(minute / kMinutesPerHour % 24, 2, 10, QChar(u'0'))
        .arg(minute % kMinutesPerHour, 2, 10, QChar(u'0'));
}

XmlFields CalendarFields::Times(const DayTimes &times) const
{
    static constexpr std::string_view kOrder[] = {"FromTime", "ToTime"};
    XmlFields fields{m_markup.Flag("DayWorking", times.IsWorking())};
    if (times.IsWorking()) {
        std::vector<QByteArray> stretches;
        for (const DayStretch &stretch : times.Stretches()) {
            stretches.push_back(
                m_markup.Element("WorkingTime",
                                 {m_markup.Field("FromTime", TimeText(stretch.From)),
                                  m_markup.Field("ToTime", TimeText(stretch.To))},
                                 kOrder, kDayDepth + 2));
        }
        fields.push_back(
            {"WorkingTimes", {m_markup.List("WorkingTimes", stretches, kDayDepth + 1)}});
    }
    return fields;
}

QByteArray CalendarFields::WeekDay(int number, const DayTimes &times) const
{
    static constexpr std::string_view kOrder[] = {"DayType", "DayWorking", "WorkingTimes"};
    XmlFields fields = Times(times);
    fields.push_back(m_markup.Field("DayType", number));
    return m_markup.Element("WeekDay", fields, kOrder, kDayDepth);
}

QByteArray CalendarFields::Exception(const CalendarException &exception) const
{
    static constexpr std::string_view kPeriodOrder[] = {"FromDate", "ToDate"};
    static constexpr std::string_view kOrder[] = {
        "EnteredByOccurrences", "TimePeriod", "Occurrences", "Type", "DayWorking", "WorkingTimes"};
    constexpr double kLastMinute = 1 - 1.0 / kMinutesPerDay;
    XmlFields fields = Times(exception.Times);
    fields.push_back(m_markup.Flag("EnteredByOccurrences", false));
    fields.push_back({"TimePeriod",
                      {m_markup.Element("TimePeriod",
                                        {m_markup.Date("FromDate", exception.FirstDay),
                                         m_markup.Date("ToDate", exception.LastDay + kLastMinute)},
                                        kPeriodOrder, kDayDepth + 1)}});
    fields.push_back(m_markup.Field("Occurrences", exception.LastDay - exception.FirstDay + 1));
    fields.push_back(m_markup.Field("Type", 1));
    return m_markup.Element("Exception", fields, kOrder, kDayDepth);
}

} // namespace

XmlFields MspdiCalendarFields(const PlanCalendar &calendar, const MspdiMarkup &markup)
{
    const CalendarFields make(markup);
    std::vector<QByteArray> days;
    for (const DayTimes &times : calendar.Times.WeekDays()) {
        days.push_back(make.WeekDay(static_cast<int>(days.size()) + 1, times));
    }
    std::vector<QByteArray> exceptions;
    for (const CalendarException &exception : calendar.Times.Exceptions()) {
        exceptions.push_back(make.Exception(exception));
    }
    XmlFields fields{
        markup.Field("UID", calendar.Uid),
        markup.Field("Name", calendar.Name.isEmpty() ? QStringLiteral("Standard") : calendar.Name),
        markup.Flag("IsBaseCalendar", true),
        {"WeekDays", {markup.List("WeekDays", days, kDayDepth - 1)}}};
    if (!exceptions.empty()) {
        fields.push_back({"Exceptions", {markup.List("Exceptions", exceptions, kDayDepth - 1)}});
    }
    return fields;
}

} // namespace korvane::planner
