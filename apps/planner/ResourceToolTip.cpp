#include "ResourceToolTip.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/zuFormat.h"
#include "foundation/zuTranslate.h"
#include "plan/PlannerText.h"

#include <algorithm>

namespace korvane::planner {

namespace {

constexpr std::size_t kMostStretches = 6;

QString DateText(TDateTime instant)
{
    return ToQt(FormatDateTime(Translate("Planner", "ddd d mmm yyyy, hh:nn"), instant));
}

QString PercentText(double units)
{
    return PlannerText::tr("%1 %")
        .arg(QLocale().toString(qRound(units * 100)))
        .replace(u' ', QStringLiteral("&nbsp;"));
}

/// Neighbours as one, with what is most.
std::vector<LoadStretch> Joined(std::span<const LoadStretch> over)
{
    std::vector<LoadStretch> joined;
    for (const LoadStretch &stretch : over) {
        if (!joined.empty() && joined.back().To == stretch.From) {
            joined.back().To = stretch.To;
            joined.back().Units = std::max(joined.back().Units, stretch.Units);
        } else {
            joined.push_back(stretch);
        }
    }
    return joined;
}

} // namespace

QString ResourceToolTip(const PlanResource &resource, std::span<const LoadStretch> over)
{
    QString text = QStringLiteral("<p style='white-space:pre-wrap'><b>%1</b></p>")
                       .arg(resource.Name.toHtmlEscaped());
    if (over.empty()) {
        return text;
    }
    const std::vector<LoadStretch> joined = Joined(over);
    QString rows;
    for (const LoadStretch &stretch :
         std::span(joined).first(std::min(joined.size(), kMostStretches))) {
        rows +=
            QStringLiteral("<tr><td>%1 &ndash; %2&nbsp;&nbsp;</td><td align='right'>%3</td></tr>")
                .arg(DateText(stretch.From), DateText(stretch.To), PercentText(stretch.Units));
    }
    if (joined.size() > kMostStretches) {
        rows += QStringLiteral("<tr><td>%1</td></tr>")
                    .arg(PlannerText::tr("and %n more", nullptr,
                                         static_cast<int>(joined.size() - kMostStretches)));
    }
    return text
           + QStringLiteral("<p>%1</p><table>%2</table>")
                 .arg(PlannerText::tr("Assigned beyond its limit of %1:")
                          .arg(PercentText(resource.MaxUnits.value_or(1))),
                      rows);
}

} // namespace korvane::planner
