#include "PlanTitle.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/zuFormat.h"
#include "foundation/zuTranslate.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace korvane::planner {

PlanTitle::PlanTitle(QWidget *parent)
    : QWidget(parent)
{
}

void PlanTitle::SetPlan(const Plan &plan)
{
    const std::string pattern = Translate("Planner", "d mmm yyyy");
    const auto range = plan.Range();
    m_name = plan.Name.simplified();
    m_dates = range ? ToQt(FormatDateTime(pattern, range->Start)) + QStringLiteral(" – ")
                          + ToQt(FormatDateTime(pattern, range->Finish))
                    : QString();
    update();
}

void PlanTitle::paintEvent(QPaintEvent * /*event*/)
{
    constexpr float kMuted = 0.66F;
    QPainter painter(this);
    QColor color = palette().color(QPalette::WindowText);
    painter.setPen(color);
    QFont font = this->font();
    font.setBold(true);
    painter.setFont(font);
    // Two lines side by side with the two rows of the axis, or above the head of a table one.
    constexpr int kMargin = 8;
    const QRect all = rect().adjusted(kMargin, 0, -kMargin, 0);
    const bool inTwo = all.height() >= 2 * painter.fontMetrics().height();
    const int split = inTwo ? all.height() / 2 : 0;
    const QRect name = inTwo ? all.adjusted(0, 0, 0, -split) : all;
    const int used = PaintLine(painter, name, inTwo ? Qt::AlignBottom : Qt::AlignVCenter, m_name);
    color.setAlphaF(kMuted);
    painter.setPen(color);
    painter.setFont(this->font());
    const QRect dates = all.adjusted(inTwo ? 0 : used + kMargin, split, 0, 0);
    PaintLine(painter, QStyle::visualRect(layoutDirection(), all, dates), Qt::AlignVCenter,
              m_dates);
}

/// Pixels that the text takes.
int PlanTitle::PaintLine(QPainter &painter, const QRect &rect, Qt::AlignmentFlag place,
                         const QString &text)
{
    const QString shown =
        painter.fontMetrics().elidedText(text, Qt::ElideRight, std::max(rect.width(), 0));
    painter.drawText(rect, Qt::AlignLeft | place, shown);
    return painter.fontMetrics().horizontalAdvance(shown);
}

} // namespace korvane::planner
