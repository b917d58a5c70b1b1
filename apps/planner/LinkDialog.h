// A form about one link.
#pragma once

#include "plan/LinkText.h"

#include <QDialog>

class QComboBox;
class QDoubleSpinBox;

namespace korvane::planner {

class PlanEdits;

/// Changes the type and the lag of a link in one step, or removes the link. A lag that was not
/// touched stays as exact as it was.
class LinkDialog : public QDialog
{
    Q_OBJECT

public:
    /// `edits` is observed. Modal: the plan must not change while the form is open.
    LinkDialog(PlanEdits &edits, int link, QWidget *parent);

    void accept() override;

private:
    void MakeLag();
    void FitDecimals();
    const PlanLink &Link() const;
    int DayMinutes() const;

    PlanEdits &m_edits;
    int m_link;
    QComboBox *m_type;
    QDoubleSpinBox *m_lag;
    QComboBox *m_measure;
};

} // namespace korvane::planner
