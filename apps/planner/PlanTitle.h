// Name and dates of a plan, above its outline.
#pragma once

#include "plan/Plan.h"

#include <QString>
#include <QWidget>

namespace korvane::planner {

class PlanTitle : public QWidget
{
    Q_OBJECT

public:
    explicit PlanTitle(QWidget *parent = nullptr);

    void SetPlan(const Plan &plan);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    static int PaintLine(QPainter &painter, const QRect &rect, Qt::AlignmentFlag place,
                         const QString &text);

    QString m_name;
    QString m_dates;
};

} // namespace korvane::planner
