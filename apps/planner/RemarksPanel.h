// The list of what was odd about a plan's file.
#pragma once

#include "plan/PlanRemarks.h"

#include <QDockWidget>

class QListWidget;

namespace korvane::planner {

class RemarksPanel : public QDockWidget
{
    Q_OBJECT

public:
    explicit RemarksPanel(QWidget *parent = nullptr);

    void SetRemarks(const PlanRemarks &remarks);
    /// "1 remark", "3 remarks"; empty without any.
    const QString &CountText() const { return m_countText; }

private:
    QListWidget *m_list;
    QString m_countText;
};

} // namespace korvane::planner
