#include "TaskDialog.h"

#include "PlanEdits.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuDateUtils.h"
#include "plan/PlanBuilder.h"
#include "plan/PlanDates.h"

#include <QCheckBox>
#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QVBoxLayout>

#include <cmath>

namespace korvane::planner {

namespace {

constexpr int kMillisecondsPerDay = 86'400'000;

QDate DayZero()
{
    return {1899, 12, 30};
}

/// Wall clocks: without summer time, every time of every day exists.
QDateTime ToQt(TDateTime instant)
{
    const auto milliseconds = static_cast<qint64>(std::llround(instant * kMillisecondsPerDay));
    return QDateTime(DayZero(), QTime(0, 0), Qt::UTC).addMSecs(milliseconds);
}

TDateTime FromQt(const QDateTime &instant)
{
    const QDateTime zero(DayZero(), QTime(0, 0), Qt::UTC);
    return double(zero.msecsTo(instant)) / kMillisecondsPerDay;
}

/// What is shown to the minute and was not touched stays as it was.
TDateTime Entered(const QDateTimeEdit &edit, TDateTime former)
{
    const QDateTime shown = ToQt(former);
    return edit.dateTime() == shown ? former : FromQt(edit.dateTime());
}

} // namespace

TaskDialog::TaskDialog(PlanEdits &edits, int task, QWidget *parent)
    : QDialog(parent)
    , m_edits(edits)
    , m_task(task)
    , m_name(new QLineEdit(Task().Name))
    , m_percent(new QSpinBox)
    , m_notes(new QPlainTextEdit(Task().Notes))
    , m_reason(new QLabel)
{
    constexpr int kWidth = 420;
    constexpr int kNoteLines = 6;
    setWindowTitle(tr("Task properties"));
    auto *form = new QFormLayout;
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    m_name->setMaxLength(PlanBuilder::kMaxNameLength);
    form->addRow(tr("&Name"), m_name);
    MakeDates();
    if (m_isDated != nullptr) {
        form->addRow({}, m_isDated);
    }
    form->addRow(m_finish != nullptr ? tr("&Start") : tr("&Date"), m_start);
    if (m_finish != nullptr) {
        form->addRow(tr("&Finish"), m_finish);
    }
    m_percent->setRange(0, 100);
    m_percent->setSuffix(QStringLiteral(" %"));
    m_percent->setValue(static_cast<int>(std::lround(Task().PercentComplete)));
    form->addRow(tr("&Complete"), m_percent);
    m_notes->setTabChangesFocus(true);
    m_notes->setFixedHeight(kNoteLines * m_notes->fontMetrics().lineSpacing());
    form->addRow(tr("N&otes"), m_notes);
    m_reason->setWordWrap(true);
    m_reason->setTextFormat(Qt::PlainText);
    m_reason->hide();
    layout->addWidget(m_reason);
    layout->addWidget(buttons); // behind the fields for the Tab key, too
    m_name->selectAll();
    connect(buttons, &QDialogButtonBox::accepted, this, &TaskDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &TaskDialog::reject);
    resize(kWidth, sizeHint().height());
}

const PlanTask &TaskDialog::Task() const
{
    return m_edits.GetPlan().Tasks.at(static_cast<std::size_t>(m_task));
}

QDateTimeEdit *TaskDialog::NewDateEdit(TDateTime instant)
{
    auto *edit = new QDateTimeEdit;
    edit->setTimeSpec(Qt::UTC);
    edit->setCalendarPopup(true);
    edit->setDisplayFormat(tr("ddd d MMM yyyy  HH:mm"));
    edit->setDateTimeRange(ToQt(kFirstPlanDate), ToQt(kLastPlanDate));
    edit->setDateTime(ToQt(instant));
    return edit;
}

void TaskDialog::MakeDates()
{
    const PlanTask &task = Task();
    const PlanSpan dates = task.Dates.value_or(PlanSpan{DateOf(Now()), DateOf(Now()) + 1});
    const bool isOneInstant = task.Milestone && !task.HasChildren;
    m_start = NewDateEdit(isOneInstant ? dates.Finish : dates.Start);
    m_finish = isOneInstant ? nullptr : NewDateEdit(dates.Finish);
    if (!task.Dates) {
        m_isDated = new QCheckBox(tr("Has &dates"));
        connect(m_isDated, &QCheckBox::toggled, m_start, &QWidget::setEnabled);
        if (m_finish != nullptr) {
            connect(m_isDated, &QCheckBox::toggled, m_finish, &QWidget::setEnabled);
        }
    }
    for (QDateTimeEdit *edit : {m_start, m_finish}) {
        if (edit != nullptr) {
            edit->setEnabled(task.Dates && !task.HasChildren);
            edit->setToolTip(task.HasChildren ? tr("The subtasks make the dates.") : QString());
        }
    }
}

std::optional<PlanSpan> TaskDialog::EnteredDates() const
{
    const auto &former = Task().Dates;
    if (Task().HasChildren || (m_isDated != nullptr && !m_isDated->isChecked())) {
        return std::nullopt;
    }
    if (m_finish == nullptr) {
        const TDateTime instant =
            former ? Entered(*m_start, former->Finish) : FromQt(m_start->dateTime());
        return former ? PlanSpan{former->Start + (instant - former->Finish), instant}
                      : PlanSpan{instant, instant};
    }
    return former ? PlanSpan{Entered(*m_start, former->Start), Entered(*m_finish, former->Finish)}
                  : PlanSpan{FromQt(m_start->dateTime()), FromQt(m_finish->dateTime())};
}

void TaskDialog::accept()
{
    const PlanTask &task = Task();
    const bool samePercent = m_percent->value() == std::lround(task.PercentComplete);
    const TaskDetails details{m_name->text(), m_notes->toPlainText(), EnteredDates(),
                              samePercent ? task.PercentComplete
                                          : static_cast<float>(m_percent->value())};
    QString reason;
    const auto refused = connect(&m_edits, &PlanEdits::refused, this,
                                 [&reason](const QString &text) { reason = text; });
    m_edits.SetDetails(m_task, details);
    disconnect(refused);
    m_reason->setText(reason);
    m_reason->setVisible(!reason.isEmpty());
    if (reason.isEmpty()) {
        QDialog::accept();
    }
}

} // namespace korvane::planner
