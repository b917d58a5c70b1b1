// A form about one event of a calendar.
#pragma once

#include "agenda/SchedulePage.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QDateTimeEdit;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;
class QToolButton;

namespace korvane::planner {

/// Shows an event and lets the user change what is said of it. What he leaves alone is given back
/// as it was, also where the form cannot show all of it, as with rules that are more than simple.
class EventDialog : public QDialog
{
    Q_OBJECT

public:
    /// Calendars are those to choose from.
    EventDialog(const ScheduleDraft &draft, const std::vector<std::pair<int, QString>> &calendars,
                QWidget *parent);

    /// One occurrence that goes its own way has neither a rule nor a calendar of its own.
    void SetPartOfSeries();
    ScheduleDraft Draft() const;

private:
    void MakeTimes(QFormLayout &form);
    void MakeRule(QFormLayout &form);
    QDateTimeEdit *NewTimeEdit(AgendaSeconds time);
    void ShowAllDay();
    void StartChanged();
    void Check();
    void ShowRule();
    void CheckDays(unsigned days);
    unsigned Weekdays() const;
    AgendaRange Times() const;
    AgendaSimpleRule Rule() const;

    ScheduleDraft m_former;
    QLineEdit *m_title;
    QCheckBox *m_allDay;
    QDateTimeEdit *m_start = nullptr;
    QDateTimeEdit *m_stop = nullptr;
    QLineEdit *m_place;
    QComboBox *m_calendar;
    QComboBox *m_repeat = nullptr;
    QSpinBox *m_interval = nullptr;
    QLabel *m_unit = nullptr;
    QWidget *m_weekdays = nullptr;
    std::vector<QToolButton *> m_days; ///< from Monday on
    QComboBox *m_end = nullptr;
    QSpinBox *m_count = nullptr;
    QDateEdit *m_until = nullptr;
    QPlainTextEdit *m_notes;
    QLabel *m_reason;
    QPushButton *m_ok = nullptr;
    qint64 m_shownStart = 0; ///< from which the end is moved along
};

} // namespace korvane::planner
