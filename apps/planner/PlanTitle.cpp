#include "PlanTitle.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/zuFormat.h"

#include <QPainter>

namespace korvane::planner {

PlanTitle::PlanTitle(QWidget *parent)
    : QWidget(parent)
{
}

void PlanTitle::SetPlan(const Plan &plan)
{
    constexpr char kPattern[] = "d mmm yyyy";
    const auto range = plan.Range();
    m_name = plan.Name.simplified();
    m_dates = range ? ToQt(FormatDateTime(kPattern, range->Start)) + QStringLiteral(" – ")
                          + ToQt(FormatDateTime(kPattern, range->Finish))
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
    PaintLine(painter, 0, m_name);
    color.setAlphaF(kMuted);
    painter.setPen(color);
    painter.setFont(this->font());
    PaintLine(painter, 1, m_dates);
}

/// Two lines side by side with the two rows of the axis.
void PlanTitle::PaintLine(QPainter &painter, int line, const QString &text) const
{
    constexpr int kMargin = 8;
    const QRect half(kMargin, line * height() / 2, width() - 2 * kMargin, height() / 2);
    painter.drawText(half, Qt::AlignLeft | (line == 0 ? Qt::AlignBottom : Qt::AlignVCenter),
                     painter.fontMetrics().elidedText(text, Qt::ElideRight, half.width()));
}

} // namespace korvane::planner
