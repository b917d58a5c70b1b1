#include "EventDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

namespace korvane::planner {

namespace {

enum RuleEnd { kNever, kAfter, kOnDay };

QDateTime Clock(AgendaSeconds wall)
{
    return QDateTime::fromSecsSinceEpoch(wall, Qt::UTC);
}

/// 0 is Monday.
unsigned WeekdayOf(AgendaSeconds wall)
{
    return static_cast<unsigned>(Clock(wall).date().dayOfWeek() - 1);
}

AgendaSeconds Midnight(const QDateTime &time)
{
    return DayOf(time.toSecsSinceEpoch()) * kSecondsPerDay;
}

QHBoxLayout *Row(std::initializer_list<QWidget *> widgets)
{
    auto *row = new QHBoxLayout;
    for (QWidget *widget : widgets) {
        row->addWidget(widget);
    }
    row->addStretch(1);
    return row;
}

} // namespace

EventDialog::EventDialog(const ScheduleDraft &draft,
                         const std::vector<std::pair<int, QString>> &calendars, QWidget *parent)
    : QDialog(parent)
    , m_former(draft)
    , m_title(new QLineEdit(draft.Title))
    , m_allDay(new QCheckBox(tr("&All day")))
    , m_place(new QLineEdit(draft.Place))
    , m_calendar(new QComboBox)
    , m_notes(new QPlainTextEdit(draft.Notes))
    , m_reason(new QLabel)
{
    constexpr int kWidth = 460;
    constexpr int kNoteLines = 6;
    setWindowTitle(tr("Event"));
    auto *form = new QFormLayout;
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    form->addRow(tr("&Title"), m_title);
    MakeTimes(*form);
    form->addRow(tr("&Location"), m_place);
    for (const auto &[number, name] : calendars) {
        m_calendar->addItem(name, number);
    }
    m_calendar->setCurrentIndex(m_calendar->findData(draft.Calendar));
    m_calendar->setVisible(calendars.size() > 1);
    if (calendars.size() > 1) {
        form->addRow(tr("&Calendar"), m_calendar);
    } else {
        m_calendar->setParent(this);
    }
    MakeRule(*form);
    m_notes->setTabChangesFocus(true);
    m_notes->setFixedHeight(kNoteLines * m_notes->fontMetrics().lineSpacing());
    m_notes->document()->setModified(false);
    form->addRow(tr("&Description"), m_notes);
    m_reason->setWordWrap(true);
    m_reason->hide();
    layout->addWidget(m_reason);
    layout->addWidget(buttons); // behind the fields for the Tab key, too
    m_title->selectAll();
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    ShowAllDay();
    ShowRule();
    Check();
    resize(kWidth, sizeHint().height());
}

void EventDialog::SetPartOfSeries()
{
    for (QWidget *widget :
         {static_cast<QWidget *>(m_calendar), static_cast<QWidget *>(m_repeat),
          static_cast<QWidget *>(m_interval), m_weekdays, static_cast<QWidget *>(m_end),
          static_cast<QWidget *>(m_count), static_cast<QWidget *>(m_until)}) {
        widget->setEnabled(false);
        widget->setToolTip(tr("Those of the series"));
    }
}

// --- times ---------------------------------------------------------------------------------------

QDateTimeEdit *EventDialog::NewTimeEdit(AgendaSeconds time)
{
    auto *edit = new QDateTimeEdit;
    edit->setTimeSpec(Qt::UTC);
    edit->setCalendarPopup(true);
    edit->setDateTimeRange(Clock(kWholeAgenda.From), Clock(kWholeAgenda.To));
    edit->setDateTime(Clock(time));
    return edit;
}

void EventDialog::MakeTimes(QFormLayout &form)
{
    m_allDay->setChecked(m_former.IsAllDay);
    m_start = NewTimeEdit(m_former.Times.From);
    m_stop = NewTimeEdit(m_former.Times.To - (m_former.IsAllDay ? kSecondsPerDay : 0));
    m_shownStart = m_start->dateTime().toSecsSinceEpoch();
    form.addRow(tr("&Start"), m_start);
    form.addRow(tr("&End"), m_stop);
    form.addRow({}, m_allDay);
    connect(m_allDay, &QCheckBox::toggled, this, &EventDialog::ShowAllDay);
    connect(m_start, &QDateTimeEdit::dateTimeChanged, this, &EventDialog::StartChanged);
    connect(m_stop, &QDateTimeEdit::dateTimeChanged, this, &EventDialog::Check);
}

void EventDialog::ShowAllDay()
{
    const bool isAllDay = m_allDay->isChecked();
    const QString format = isAllDay ? tr("ddd d MMM yyyy") : tr("ddd d MMM yyyy  HH:mm");
    m_start->setDisplayFormat(format);
    m_stop->setDisplayFormat(format);
    if (!isAllDay && m_start->dateTime() == m_stop->dateTime() && m_former.IsAllDay) {
        constexpr int kUsualStart = 9 * 3600;
        m_start->setDateTime(m_start->dateTime().addSecs(kUsualStart));
        m_stop->setDateTime(m_start->dateTime().addSecs(3600));
    }
    Check();
}

/// The end goes along, so that the event lasts as long as before.
void EventDialog::StartChanged()
{
    const qint64 start = m_start->dateTime().toSecsSinceEpoch();
    const unsigned former = 1U << WeekdayOf(m_shownStart);
    if (Weekdays() == former) { // so does a series on that day of the week
        CheckDays(1U << WeekdayOf(start));
    }
    const qint64 shift = start - std::exchange(m_shownStart, start);
    m_stop->setDateTime(m_stop->dateTime().addSecs(shift));
    ShowRule();
    Check();
}

AgendaRange EventDialog::Times() const
{
    if (m_allDay->isChecked()) {
        return {Midnight(m_start->dateTime()), Midnight(m_stop->dateTime()) + kSecondsPerDay};
    }
    return {m_start->dateTime().toSecsSinceEpoch(), m_stop->dateTime().toSecsSinceEpoch()};
}

void EventDialog::Check()
{
    const AgendaRange times = Times();
    const bool isValid =
        times.From <= times.To && (times.From < times.To || !m_allDay->isChecked());
    m_reason->setText(isValid ? QString() : tr("The event ends before it starts."));
    m_reason->setVisible(!isValid);
    m_ok->setEnabled(isValid);
}

// --- repeating -----------------------------------------------------------------------------------

void EventDialog::MakeRule(QFormLayout &form)
{
    m_repeat = new QComboBox;
    m_repeat->addItems({tr("Never"), tr("Daily"), tr("Weekly"), tr("Monthly"), tr("Yearly")});
    if (m_former.Rule.Repeat == AgendaRepeat::Other) {
        m_repeat->addItem(tr("By a rule of its own"));
    }
    m_interval = new QSpinBox;
    m_interval->setRange(1, 999);
    m_interval->setPrefix(tr("every "));
    m_unit = new QLabel;
    m_weekdays = new QWidget;
    auto *days = new QHBoxLayout(m_weekdays);
    days->setContentsMargins(0, 0, 0, 0);
    days->setSpacing(2);
    for (int day = 1; day <= 7; ++day) {
        auto *button = new QToolButton;
        button->setText(QLocale().dayName(day, QLocale::ShortFormat));
        button->setAccessibleName(QLocale().dayName(day));
        button->setCheckable(true);
        button->setFocusPolicy(Qt::StrongFocus);
        m_days.push_back(button);
        days->addWidget(button);
    }
    days->addStretch(1);
    m_end = new QComboBox;
    m_end->addItems({tr("for ever"), tr("so many times:"), tr("until:")});
    m_count = new QSpinBox;
    m_count->setRange(1, 9999);
    m_count->setValue(10);
    m_until = new QDateEdit(Clock(m_former.Times.From).date().addMonths(3));
    m_until->setCalendarPopup(true);
    m_until->setDisplayFormat(tr("ddd d MMM yyyy"));

    const AgendaSimpleRule &rule = m_former.Rule;
    m_repeat->setCurrentIndex(static_cast<int>(rule.Repeat));
    m_interval->setValue(rule.Interval);
    CheckDays(rule.Weekdays != 0 ? rule.Weekdays : 1U << WeekdayOf(m_former.Times.From));
    m_end->setCurrentIndex(rule.Count > 0 ? kAfter : rule.Until ? kOnDay : kNever);
    m_count->setValue(rule.Count > 0 ? rule.Count : m_count->value());
    if (rule.Until) {
        m_until->setDate(Clock(*rule.Until).date());
    }
    auto *repeats = new QLabel(tr("&Repeats"));
    repeats->setBuddy(m_repeat);
    form.addRow(repeats, Row({m_repeat, m_interval, m_unit}));
    form.addRow({}, m_weekdays);
    form.addRow({}, Row({m_end, m_count, m_until}));
    connect(m_repeat, &QComboBox::currentIndexChanged, this, &EventDialog::ShowRule);
    connect(m_end, &QComboBox::currentIndexChanged, this, &EventDialog::ShowRule);
}

void EventDialog::ShowRule()
{
    const auto repeat = static_cast<AgendaRepeat>(m_repeat->currentIndex());
    const bool isSimple = repeat != AgendaRepeat::Never && repeat != AgendaRepeat::Other;
    const QString units[] = {{}, tr("days"), tr("weeks"), tr("months"), tr("years"), {}};
    m_unit->setText(units[m_repeat->currentIndex()]);
    m_interval->setVisible(isSimple);
    m_unit->setVisible(isSimple);
    m_weekdays->setVisible(repeat == AgendaRepeat::Weekly);
    m_end->setVisible(isSimple);
    m_count->setVisible(isSimple && m_end->currentIndex() == kAfter);
    m_until->setVisible(isSimple && m_end->currentIndex() == kOnDay);
}

void EventDialog::CheckDays(unsigned days)
{
    for (unsigned day = 0; day < m_days.size(); ++day) {
        m_days[day]->setChecked((days >> day & 1U) != 0);
    }
}

unsigned EventDialog::Weekdays() const
{
    unsigned days = 0;
    for (unsigned day = 0; day < m_days.size(); ++day) {
        days |= m_days[day]->isChecked() ? 1U << day : 0;
    }
    return days;
}

AgendaSimpleRule EventDialog::Rule() const
{
    AgendaSimpleRule rule{static_cast<AgendaRepeat>(m_repeat->currentIndex())};
    if (rule.Repeat == AgendaRepeat::Never) {
        return rule;
    }
    if (rule.Repeat == AgendaRepeat::Other) {
        return m_former.Rule;
    }
    rule.Interval = m_interval->value();
    if (rule.Repeat == AgendaRepeat::Weekly) {
        const unsigned days = Weekdays();
        rule.Weekdays = days == 1U << WeekdayOf(m_shownStart) ? 0 : days;
    }
    if (m_end->currentIndex() == kAfter) {
        rule.Count = m_count->value();
    } else if (m_end->currentIndex() == kOnDay) {
        rule.Until =
            Clock(0).daysTo(QDateTime(m_until->date(), QTime(0, 0), Qt::UTC)) * kSecondsPerDay;
    }
    return rule;
}

ScheduleDraft EventDialog::Draft() const
{
    ScheduleDraft draft = m_former;
    draft.Title = m_title->isModified() ? m_title->text() : draft.Title;
    draft.Place = m_place->isModified() ? m_place->text() : draft.Place;
    draft.Notes = m_notes->document()->isModified() ? m_notes->toPlainText() : draft.Notes;
    draft.Times = Times();
    draft.IsAllDay = m_allDay->isChecked();
    if (m_calendar->currentIndex() >= 0) {
        draft.Calendar = m_calendar->currentData().toInt();
    }
    draft.Rule = Rule();
    return draft;
}

} // namespace korvane::planner
