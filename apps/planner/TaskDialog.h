// A form about one task.
#pragma once

#include "plan/Plan.h"

#include <QDialog>

class QCheckBox;
class QDateTimeEdit;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QSpinBox;

namespace korvane::planner {

class PlanEdits;

/// Shows what there is to say of a task, and changes it in one step. Stays open, with the reason,
/// when the change is refused.
class TaskDialog : public QDialog
{
    Q_OBJECT

public:
    /// `edits` is observed. Modal: the plan must not change while the form is open.
    TaskDialog(PlanEdits &edits, int task, QWidget *parent);

    void accept() override;

private:
    QDateTimeEdit *NewDateEdit(TDateTime instant);
    void MakeDates();
    std::optional<PlanSpan> EnteredDates() const;
    const PlanTask &Task() const;

    PlanEdits &m_edits;
    int m_task;
    QLineEdit *m_name;
    QCheckBox *m_isDated = nullptr;
    QDateTimeEdit *m_start = nullptr;
    QDateTimeEdit *m_finish = nullptr;
    QSpinBox *m_percent;
    QPlainTextEdit *m_notes;
    QLabel *m_reason;
};

} // namespace korvane::planner
