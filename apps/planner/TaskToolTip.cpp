#include "TaskToolTip.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/zuFormat.h"
#include "plan/LinkText.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>

namespace korvane::planner {

namespace {

constexpr qsizetype kNotesLength = 300;
constexpr qsizetype kMostResources = 8;

QString DateText(TDateTime instant)
{
    return ToQt(FormatDateTime("ddd d mmm yyyy, hh:nn", instant));
}

/// In days as the calendar's fullest weekday has hours.
QString DurationText(const Plan &plan, const PlanSpan &span)
{
    const WorkCalendar &calendar = plan.ProjectCalendar();
    const double minutes = calendar.MinutesBetween(span.Start, span.Finish);
    const double days = minutes / std::max(calendar.DayMinutes(), 1);
    if (minutes <= 0) {
        return QLocale().toString((span.Finish - span.Start) * 24, 'g', 3)
               + QStringLiteral(" hours, none of them working time");
    }
    return QLocale().toString(days, 'g', 4)
           + (days == 1 ? QStringLiteral(" working day") : QStringLiteral(" working days"));
}

QString ResourcesText(const Plan &plan, int task)
{
    QStringList names;
    const auto assignments = plan.AssignmentsOf(task);
    for (const PlanAssignment &assignment : assignments) {
        if (names.size() == kMostResources) {
            names.append(QStringLiteral("and %1 more")
                             .arg(static_cast<qsizetype>(assignments.size()) - kMostResources));
            break;
        }
        const QString &name = plan.Resources.at(static_cast<std::size_t>(assignment.Resource)).Name;
        names.append(
            assignment.Units == 1
                ? name
                : QStringLiteral("%1 (%2 %)").arg(name, QString::number(assignment.Units * 100)));
    }
    return names.join(QStringLiteral(", "));
}

QString Row(const QString &label, const QString &text)
{
    return text.isEmpty() ? QString()
                          : QStringLiteral("<tr><td>%1&nbsp;&nbsp;</td><td>%2</td></tr>")
                                .arg(label, text.toHtmlEscaped());
}

QString NotesText(const QString &notes)
{
    QString text = notes.trimmed();
    if (text.size() > kNotesLength) {
        text.truncate(kNotesLength);
        text.append(QChar(0x2026));
    }
    return text.isEmpty() ? text
                          : QStringLiteral("<p>%1</p>")
                                .arg(text.toHtmlEscaped().replace(u'\n', QStringLiteral("<br/>")));
}

} // namespace

QString TaskToolTip(const Plan &plan, int index)
{
    const PlanTask &task = plan.Tasks.at(static_cast<std::size_t>(index));
    const PlanSpan &dates = task.Dates.value();
    QString rows;
    if (dates.Start == dates.Finish) {
        rows += Row(QStringLiteral("On"), DateText(dates.Start));
    } else {
        rows += Row(QStringLiteral("Start"), DateText(dates.Start));
        rows += Row(QStringLiteral("Finish"), DateText(dates.Finish));
        rows += Row(QStringLiteral("Duration"), DurationText(plan, dates));
    }
    if (task.Baseline) {
        rows +=
            Row(QStringLiteral("Baseline"), DateText(task.Baseline->Start) + QStringLiteral(" – ")
                                                + DateText(task.Baseline->Finish));
    }
    if (task.Deadline) {
        rows += Row(QStringLiteral("Deadline"), DateText(*task.Deadline));
    }
    rows += Row(QStringLiteral("Complete"),
                QStringLiteral("%1 %").arg(QLocale().toString(task.PercentComplete, 'g', 3)));
    rows += Row(QStringLiteral("Resources"), ResourcesText(plan, index));
    return QStringLiteral("<p style='white-space:pre-wrap'><b>%1</b></p><table>%2</table>%3")
        .arg(task.Name.toHtmlEscaped(), rows, NotesText(task.Notes));
}

QString LinkToolTip(const Plan &plan, int index)
{
    const PlanLink &link = plan.Links.at(static_cast<std::size_t>(index));
    const auto nameOf = [&](int task) {
        return plan.Tasks.at(static_cast<std::size_t>(task)).Name.toHtmlEscaped();
    };
    const QString text = LinkText(link, plan.ProjectCalendar().DayMinutes());
    return QStringLiteral("<p style='white-space:pre-wrap'><b>%1</b> \u2192 <b>%2</b></p><p>%3</p>")
        .arg(nameOf(link.Predecessor), nameOf(link.Successor), text.toHtmlEscaped());
}

} // namespace korvane::planner
