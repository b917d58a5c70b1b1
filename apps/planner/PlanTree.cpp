#include "PlanTree.h"

#include <QApplication>
#include <QPainter>
#include <QWheelEvent>

#include <array>

namespace korvane::planner {

void PlanTree::SetRowLineColor(const QColor &color)
{
    m_rowLineColor = color;
    viewport()->update();
}

void PlanTree::Scroll(int delta)
{
    if ((delta < 0) != (m_wheelRest < 0)) {
        m_wheelRest = 0;
    }
    m_wheelRest += delta * QApplication::wheelScrollLines();
    TzuTree_ComBasic::Scroll(m_wheelRest / QWheelEvent::DefaultDeltasPerStep);
    m_wheelRest %= QWheelEvent::DefaultDeltasPerStep;
}

void PlanTree::drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                       const QModelIndex &index) const
{
    TGantTree::drawRow(painter, option, index);
    painter->fillRect(0, option.rect.bottom(), viewport()->width(), 1, m_rowLineColor);
}

void PlanTree::drawBranches(QPainter *painter, const QRect &rect, const QModelIndex &index) const
{
    constexpr double kReach = 3.5;
    constexpr double kDepth = 2;
    constexpr double kStrength = 1.4;
    if (!model()->hasChildren(index)) {
        return;
    }
    const QPointF middle(rect.right() + 1 - indentation() / 2.0, rect.center().y() + 0.5);
    const bool expanded = isExpanded(index);
    const auto corner = [&](double along, double across) {
        return middle + (expanded ? QPointF(along, across) : QPointF(across, along));
    };
    const std::array line{corner(-kReach, -kDepth), corner(0, kDepth), corner(kReach, -kDepth)};
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(palette().color(QPalette::Text), kStrength, Qt::SolidLine, Qt::RoundCap,
                         Qt::RoundJoin));
    painter->drawPolyline(line.data(), static_cast<int>(line.size()));
    painter->restore();
}

} // namespace korvane::planner
