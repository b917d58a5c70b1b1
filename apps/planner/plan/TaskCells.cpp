#include "plan/TaskCells.h"

#include "plan/LinkText.h"
#include "plan/PlanBuilder.h"
#include "plan/PlanEditor.h"
#include "plan/PlannerText.h"

#include <QRegularExpression>
#include <QTime>

#include <algorithm>
#include <cmath>
#include <set>

namespace korvane::planner {

namespace {

constexpr double kMinutesPerHour = 60;
constexpr double kWorkingDaysPerWeek = 5;
constexpr double kDaysPerWeek = 7;
constexpr double kMostMinutes = 1e9;
constexpr int kDigits = 6; // of numbers that are not round

struct ColumnInfo
{
    const char *Title;
    std::string_view Key;
};

constexpr std::array<ColumnInfo, kTaskColumns> kColumns{
    {{QT_TRANSLATE_NOOP("Planner", "No."), QT_TRANSLATE_NOOP("Planner", "number")},
     {QT_TRANSLATE_NOOP("Planner", "Name"), QT_TRANSLATE_NOOP("Planner", "name")},
     {QT_TRANSLATE_NOOP("Planner", "Start"), QT_TRANSLATE_NOOP("Planner", "start")},
     {QT_TRANSLATE_NOOP("Planner", "Finish"), QT_TRANSLATE_NOOP("Planner", "finish")},
     {QT_TRANSLATE_NOOP("Planner", "Duration"), QT_TRANSLATE_NOOP("Planner", "duration")},
     {QT_TRANSLATE_NOOP("Planner", "Predecessors"), QT_TRANSLATE_NOOP("Planner", "predecessors")},
     {QT_TRANSLATE_NOOP("Planner", "Resources"), QT_TRANSLATE_NOOP("Planner", "resources")},
     {QT_TRANSLATE_NOOP("Planner", "Complete"), QT_TRANSLATE_NOOP("Planner", "complete")}}};

constexpr std::array<const char *, 4> kTypeCodes{"FS", "SS", "FF", "SF"}; // as PlanLinkType

const ColumnInfo &Of(TaskColumn column)
{
    return kColumns.at(static_cast<std::size_t>(column));
}

double MinuteOfDay(TDateTime instant)
{
    return std::round((instant - std::floor(instant)) * kMinutesPerDay * 1000) / 1000;
}

[[noreturn]] void Refuse(const QString &reason)
{
    throw PlanEditRefusal(reason);
}

QString Quoted(QStringView text)
{
    return u'\'' + text.trimmed().toString() + u'\'';
}

bool IsRound(double number, double step)
{
    constexpr double kRounding = 1e-6;
    return std::abs(number / step - std::round(number / step)) < kRounding;
}

/// Of "+2ed": the number, and the unit in lower case.
struct Amount
{
    QString Number;
    QString Unit;
};

Amount SplitAmount(QStringView text)
{
    static const QRegularExpression form(
        QStringLiteral(R"(^\s*([-+\x{2212}]?\s*[\d.,]+)\s*([^\d\s]*)\s*$)"));
    const QRegularExpressionMatch match = form.match(text.toString());
    QString number = match.captured(1).remove(u' ').replace(QChar(0x2212), u'-');
    return {number.startsWith(u'+') ? number.mid(1) : number, match.captured(2).toLower()};
}

} // namespace

QString TaskColumnName(TaskColumn column)
{
    return PlannerText::tr(Of(column).Key.data());
}

QString TaskColumnTitle(TaskColumn column)
{
    return PlannerText::tr(Of(column).Title);
}

std::string_view TaskColumnKey(TaskColumn column)
{
    return Of(column).Key;
}

// --- texts ---------------------------------------------------------------------------------------

QString TaskCells::Text(const Plan &plan, int task, TaskColumn column,
                        PredecessorIndex &links) const
{
    const PlanTask &value = plan.Tasks.at(static_cast<std::size_t>(task));
    const WorkCalendar &calendar = plan.ProjectCalendar();
    // Where a day's work begins and ends goes without saying.
    const auto date = [&](TDateTime instant) {
        const auto &day = calendar.TimesOf(static_cast<int>(std::floor(instant))).Stretches();
        const double minute = MinuteOfDay(instant);
        return DateText(instant, !day.empty() && minute == day.front().From ? day.front().From
                                 : day.empty()                              ? 0
                                                                            : day.back().To);
    };
    switch (column) {
    case TaskColumn::Number:
        return QString::number(task + 1);
    case TaskColumn::Name:
        return value.Name;
    case TaskColumn::Start:
        return value.Dates ? date(value.Dates->Start) : QString();
    case TaskColumn::Finish:
        return value.Dates ? date(value.Dates->Finish) : QString();
    case TaskColumn::Duration:
        if (value.Dates) {
            return DurationText(calendar.MinutesBetween(value.Dates->Start, value.Dates->Finish),
                                calendar.DayMinutes());
        }
        break;
    case TaskColumn::Predecessors:
        return PredecessorsText(plan, links.LinksTo(plan, task));
    case TaskColumn::Resources:
        return ResourcesText(plan, task);
    case TaskColumn::PercentComplete:
        return NumberText(value.PercentComplete) + QStringLiteral(" %");
    }
    return {};
}

QString TaskCells::NumberText(double number) const
{
    return m_locale.toString(number, 'g', kDigits);
}

QString TaskCells::DateText(TDateTime instant, double usualMinute) const
{
    const QDate day = QDate(1899, 12, 30).addDays(static_cast<qint64>(std::floor(instant)));
    const QString text = m_locale.toString(day, QLocale::ShortFormat);
    const double minute = MinuteOfDay(instant);
    if (minute == 0 || minute == usualMinute) {
        return text;
    }
    const auto milliseconds = static_cast<int>(minute * 60'000);
    return text + u' '
           + m_locale.toString(QTime::fromMSecsSinceStartOfDay(milliseconds), QLocale::ShortFormat);
}

QString TaskCells::DurationText(double workingMinutes, int dayMinutes) const
{
    const double perDay = std::max(dayMinutes, 1);
    if (IsRound(workingMinutes / perDay, 0.5)) {
        return NumberText(workingMinutes / perDay) + u'd';
    }
    if (IsRound(workingMinutes / kMinutesPerHour, 0.25)) {
        return NumberText(workingMinutes / kMinutesPerHour) + u'h';
    }
    return NumberText(workingMinutes) + u'm';
}

QString TaskCells::PredecessorsText(const Plan &plan, std::span<const int> links) const
{
    const int dayMinutes = plan.ProjectCalendar().DayMinutes();
    constexpr std::array<const char *, kLagMeasures> kUnits{"d",  "h",  "m", "ed",
                                                            "eh", "em", "%", "e%"};
    QStringList items;
    for (const int index : links) {
        const PlanLink &link = plan.Links.at(static_cast<std::size_t>(index));
        QString item = QString::number(link.Predecessor + 1);
        if (link.Type != PlanLinkType::FinishToStart || link.Lag.Amount != 0) {
            item += QString::fromLatin1(kTypeCodes.at(static_cast<std::size_t>(link.Type)));
        }
        if (link.Lag.Amount != 0) {
            const ShownLag lag = ShownLagOf(link.Lag, dayMinutes);
            item += (lag.Number < 0 ? QString() : QStringLiteral("+")) + NumberText(lag.Number)
                    + QString::fromLatin1(kUnits.at(static_cast<std::size_t>(lag.Measure)));
        }
        items += item;
    }
    return items.join(Separator() + QStringLiteral(" "));
}

QString TaskCells::ResourcesText(const Plan &plan, int task) const
{
    QStringList items;
    for (const PlanAssignment &assignment : plan.AssignmentsOf(task)) {
        QString item = plan.Resources.at(static_cast<std::size_t>(assignment.Resource)).Name;
        if (assignment.Units != 1) {
            item += QStringLiteral(" [%1%]").arg(NumberText(assignment.Units * 100));
        }
        items += item;
    }
    return items.join(QStringLiteral("; "));
}

// --- what was typed ------------------------------------------------------------------------------

QChar TaskCells::Separator() const
{
    return m_locale.decimalPoint() == QStringLiteral(",") ? u';' : u',';
}

/// The items of a list, without empty ones.
QStringList TaskCells::Items(QStringView text) const
{
    QString list = text.toString();
    if (Separator() == u',') {
        list.replace(u',', u';');
    }
    QStringList items;
    for (const QString &item : list.split(u';')) {
        if (!item.trimmed().isEmpty()) {
            items += item.trimmed();
        }
    }
    return items;
}

std::optional<double> TaskCells::ParseNumber(QStringView text) const
{
    bool isNumber = false;
    double number = m_locale.toDouble(text, &isNumber);
    if (!isNumber) {
        number = QLocale::c().toDouble(text, &isNumber);
    }
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<QDate> TaskCells::ParseDay(const QString &text, int year) const
{
    constexpr int kPivot = 1950; // two digits mean a year from here on
    // A leading zero may be left out.
    static const QRegularExpression twice(QStringLiteral(R"((?<![dM])([dM])\1(?![dM]))"));
    const QString local =
        m_locale.dateFormat(QLocale::ShortFormat).replace(twice, QStringLiteral(R"(\1)"));
    QString fourDigits = local;
    static const QRegularExpression anyYear(QStringLiteral("y+"));
    fourDigits.replace(anyYear, QStringLiteral("yyyy"));
    QString twoDigits = local;
    twoDigits.replace(anyYear, QStringLiteral("yy"));
    for (const QString &format :
         {fourDigits, twoDigits, QStringLiteral("yyyy-MM-dd"),
          m_locale.dateFormat(QLocale::LongFormat), QStringLiteral("d MMM yyyy")}) {
        constexpr int kLeastYear = 1000; // of those with four digits
        QDate day = m_locale.toDate(text, format);
        if (format.contains(QStringLiteral("yyyy")) && day.year() < kLeastYear) {
            continue;
        }
        if (day.isValid() && !format.contains(QStringLiteral("yyyy")) && day.year() < kPivot) {
            day = day.addYears(100);
        }
        if (day.isValid()) {
            return day;
        }
    }
    // Without a year: the order of day and month is the language's.
    static const QRegularExpression yearAround(QStringLiteral(R"([^\w]*y+[^\w]*)"));
    QString noYear = local;
    noYear.replace(yearAround, QString());
    QString bare = text;
    while (!bare.isEmpty() && !bare.back().isLetterOrNumber()) {
        bare.chop(1);
    }
    const QDate day =
        m_locale.toDate(bare + u' ' + QString::number(year), noYear + QStringLiteral(" yyyy"));
    return day.isValid() ? std::optional(day) : std::nullopt;
}

TDateTime TaskCells::ParseDate(QStringView text, TDateTime former) const
{
    QStringList words = text.toString().simplified().split(u' ');
    const QDate formerDay = QDate(1899, 12, 30).addDays(static_cast<qint64>(std::floor(former)));
    for (int day = 1; day <= kDaysPerWeek && words.size() > 1; ++day) {
        const QString word = QString(words.front()).remove(u'.').remove(u',');
        for (const auto format : {QLocale::ShortFormat, QLocale::LongFormat}) {
            if (word.compare(m_locale.dayName(day, format).remove(u'.'), Qt::CaseInsensitive)
                == 0) {
                words.removeFirst();
                day = kDaysPerWeek;
                break;
            }
        }
    }
    double minutes = MinuteOfDay(former);
    for (qsizetype from = words.size() - 1; from > 0; --from) {
        const QString tail = words.mid(from).join(u' ');
        QTime time = m_locale.toTime(tail, QLocale::ShortFormat);
        time = time.isValid() ? time : QTime::fromString(tail, QStringLiteral("H:mm"));
        if (time.isValid()) {
            minutes = time.msecsSinceStartOfDay() / 60'000.0;
            words = words.first(from);
            break;
        }
    }
    const auto day = ParseDay(words.join(u' '), formerDay.year());
    const TDateTime instant =
        day ? static_cast<double>(QDate(1899, 12, 30).daysTo(*day)) + minutes / kMinutesPerDay : 0;
    if (!day || !IsPlanDate(instant)) {
        Refuse(PlannerText::tr("%1 is no date. Type it like %2.")
                   .arg(Quoted(text), m_locale.toString(formerDay, QLocale::ShortFormat)));
    }
    return instant;
}

TaskCells::Duration TaskCells::ParseDuration(QStringView text, int dayMinutes) const
{
    Amount amount = SplitAmount(text);
    const auto number = ParseNumber(amount.Number);
    const bool isElapsed = amount.Unit.startsWith(u'e');
    const QString unit = isElapsed ? amount.Unit.mid(1) : amount.Unit;
    const double day = isElapsed ? kMinutesPerDay : std::max(dayMinutes, 1);
    double perUnit = 0;
    if (unit.isEmpty() || QStringLiteral("days").startsWith(unit)) {
        perUnit = isElapsed && unit.isEmpty() ? 0 : day;
    } else if (unit == QStringLiteral("w") || unit.startsWith(QStringLiteral("wk"))
               || unit.startsWith(QStringLiteral("week"))) {
        perUnit = day * (isElapsed ? kDaysPerWeek : kWorkingDaysPerWeek);
    } else if (QStringLiteral("hours").startsWith(unit) || QStringLiteral("hrs").startsWith(unit)) {
        perUnit = kMinutesPerHour;
    } else if (QStringLiteral("minutes").startsWith(unit)) {
        perUnit = 1;
    }
    if (!number || *number < 0 || perUnit == 0 || *number * perUnit > kMostMinutes) {
        Refuse(PlannerText::tr("%1 is no duration. Type it like 3d, 4h or 30m.").arg(Quoted(text)));
    }
    return {*number * perUnit, isElapsed};
}

PlanLag TaskCells::ParseLag(const Plan &plan, QStringView text) const
{
    const int dayMinutes = plan.ProjectCalendar().DayMinutes();
    const Amount amount = SplitAmount(text);
    const auto number = ParseNumber(amount.Number);
    if (number && (amount.Unit == QStringLiteral("%") || amount.Unit == QStringLiteral("e%"))) {
        return LagOf(
            {*number, amount.Unit.size() == 1 ? LagMeasure::Percent : LagMeasure::ElapsedPercent},
            dayMinutes);
    }
    if (!number) {
        Refuse(PlannerText::tr("%1 is no lag. Type it like +2d, -4h or +50%.").arg(Quoted(text)));
    }
    const QString length =
        (amount.Number.startsWith(u'-') ? amount.Number.mid(1) : amount.Number) + amount.Unit;
    const Duration lag = ParseDuration(length, dayMinutes);
    return LagOf({*number < 0 ? -lag.Minutes : lag.Minutes,
                  lag.IsElapsed ? LagMeasure::ElapsedMinutes : LagMeasure::Minutes},
                 dayMinutes);
}

PlanLink TaskCells::ParsePredecessor(const Plan &plan, int task, QStringView text) const
{
    static const QRegularExpression form(
        QStringLiteral(R"(^(\d{1,9})\s*(FS|SS|FF|SF)?\s*([-+\x{2212}].*)?$)"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = form.match(text.toString());
    if (!match.hasMatch()) {
        Refuse(
            PlannerText::tr("%1 is no predecessor. Type the number of the task, as in 4 or 4FS+2d.")
                .arg(Quoted(text)));
    }
    PlanLink link{match.captured(1).toInt() - 1, task, {}};
    if (link.Predecessor < 0 || link.Predecessor >= std::ssize(plan.Tasks)) {
        Refuse(PlannerText::tr("There is no task %1.").arg(match.captured(1)));
    }
    const auto type = std::ranges::find(kTypeCodes, match.captured(2).toUpper());
    if (type != kTypeCodes.end()) {
        link.Type = static_cast<PlanLinkType>(type - kTypeCodes.begin());
    }
    if (!match.captured(3).isEmpty()) {
        link.Lag = ParseLag(plan, match.captured(3));
    }
    return link;
}

std::vector<PlanLink> TaskCells::ParsePredecessors(const Plan &plan, int task,
                                                   QStringView text) const
{
    std::vector<PlanLink> links;
    std::set<int> known;
    for (const QString &item : Items(text)) {
        links.push_back(ParsePredecessor(plan, task, item));
        if (!known.insert(links.back().Predecessor).second) {
            Refuse(PlannerText::tr("Task %1 is named twice.").arg(links.back().Predecessor + 1));
        }
    }
    return links;
}

std::vector<PlanAssignment> TaskCells::ParseResources(const Plan &plan, int task,
                                                      QStringView text) const
{
    static const QRegularExpression units(QStringLiteral(R"(^(.*?)\s*\[\s*([\d.,]+)\s*%?\s*\]$)"));
    std::vector<PlanAssignment> assignments;
    // Names may hold commas: only semicolons separate.
    for (const QString &part : text.toString().split(u';')) {
        QString name = part.simplified();
        PlanAssignment assignment{task, kNoIndex, 1};
        const QRegularExpressionMatch match = units.match(name);
        if (match.hasMatch()) {
            name = match.captured(1);
            assignment.Units = ParseNumber(match.captured(2)).value_or(0) / 100;
            if (assignment.Units <= 0) {
                Refuse(PlannerText::tr("%1 is no part of a resource. Type it like [50%].")
                           .arg(Quoted(match.captured(2))));
            }
        }
        if (name.isEmpty()) {
            continue;
        }
        const auto found = std::ranges::find_if(plan.Resources, [&](const PlanResource &resource) {
            return resource.Name.simplified().compare(name, Qt::CaseInsensitive) == 0;
        });
        if (found == plan.Resources.end()) {
            Refuse(PlannerText::tr("There is no resource %1.").arg(Quoted(name)));
        }
        assignment.Resource = static_cast<int>(found - plan.Resources.begin());
        if (std::ranges::find(assignments, assignment.Resource, &PlanAssignment::Resource)
            != assignments.end()) {
            Refuse(PlannerText::tr("%1 is named twice.").arg(Quoted(name)));
        }
        assignments.push_back(assignment);
    }
    return assignments;
}

float TaskCells::ParsePercent(QStringView text) const
{
    QString number = text.toString().remove(u'%').trimmed();
    const auto percent = number.isEmpty() ? 0.0 : ParseNumber(number).value_or(-1);
    if (percent < 0 || percent > 100) {
        Refuse(PlannerText::tr("%1 is no percentage from 0 to 100.").arg(Quoted(text)));
    }
    return static_cast<float>(percent);
}

} // namespace korvane::planner
