// The outline of a plan beside its chart.
#pragma once

#include "gantt/qt/zuGantTree.h"

#include <QColor>

namespace korvane::planner {

/// A row tree whose rows have a line between them, as those of the chart, and whose expanders are
/// drawn with lines, so that they stay sharp in documents. The wheel scrolls it as any other list.
class PlanTree : public TGantTree
{
    Q_OBJECT

public:
    using TGantTree::TGantTree;

    void SetRowLineColor(const QColor &color);
    /// Scrolls by so many eighths of a degree of the wheel, down when positive; the current row
    /// stays. What is less than a row is kept for the next turn.
    void Scroll(int delta) override;

protected:
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                 const QModelIndex &index) const override;
    void drawBranches(QPainter *painter, const QRect &rect,
                      const QModelIndex &index) const override;

private:
    QColor m_rowLineColor;
    int m_wheelRest = 0;
};

} // namespace korvane::planner
