#include "TaskToolTip.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/zuFormat.h"
#include "foundation/zuTranslate.h"
#include "plan/LinkText.h"
#include "plan/PlannerText.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>

namespace korvane::planner {

namespace {

constexpr qsizetype kNotesLength = 300;
constexpr qsizetype kMostResources = 8;

QString DateText(TDateTime instant)
{
    return ToQt(FormatDateTime(Translate("Planner", "ddd d mmm yyyy, hh:nn"), instant));
}

/// In days as the calendar's fullest weekday has hours.
QString DurationText(const Plan &plan, const PlanSpan &span)
{
    const WorkCalendar &calendar = plan.ProjectCalendar();
    const double minutes = calendar.MinutesBetween(span.Start, span.Finish);
    const double days = minutes / std::max(calendar.DayMinutes(), 1);
    if (minutes <= 0) {
        return PlannerText::tr("%1 hours, none of them working time")
            .arg(QLocale().toString((span.Finish - span.Start) * 24, 'g', 3));
    }
    const QString number = QLocale().toString(days, 'g', 4);
    return days == 1 ? PlannerText::tr("%1 working day").arg(number)
                     : PlannerText::tr("%1 working days").arg(number);
}

QString ResourcesText(const Plan &plan, int task)
{
    QStringList names;
    const auto assignments = plan.AssignmentsOf(task);
    for (const PlanAssignment &assignment : assignments) {
        if (names.size() == kMostResources) {
            names.append(
                PlannerText::tr("and %n more", nullptr,
                                static_cast<int>(assignments.size()) - int{kMostResources}));
            break;
        }
        const QString &name = plan.Resources.at(static_cast<std::size_t>(assignment.Resource)).Name;
        names.append(assignment.Units == 1
                         ? name
                         : PlannerText::tr("%1 (%2 %)")
                               .arg(name, QLocale().toString(assignment.Units * 100)));
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
        rows += Row(PlannerText::tr("On", "date of a milestone"), DateText(dates.Start));
    } else {
        rows += Row(PlannerText::tr("Start"), DateText(dates.Start));
        rows += Row(PlannerText::tr("Finish"), DateText(dates.Finish));
        rows += Row(PlannerText::tr("Duration"), DurationText(plan, dates));
    }
    if (task.Baseline) {
        rows +=
            Row(PlannerText::tr("Baseline"), DateText(task.Baseline->Start) + QStringLiteral(" – ")
                                                 + DateText(task.Baseline->Finish));
    }
    if (task.Deadline) {
        rows += Row(PlannerText::tr("Deadline"), DateText(*task.Deadline));
    }
    rows += Row(PlannerText::tr("Complete"),
                PlannerText::tr("%1 %").arg(QLocale().toString(task.PercentComplete, 'g', 3)));
    rows += Row(PlannerText::tr("Resources"), ResourcesText(plan, index));
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
