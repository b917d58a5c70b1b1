#include "ScheduleWindow.h"

#include "ScheduleView.h"
#include "agenda/AgendaReader.h"
#include "agenda/ProgrammeReader.h"

#include <QActionGroup>
#include <QCalendarWidget>
#include <QDateTime>
#include <QLabel>
#include <QMenu>
#include <QTabBar>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWidgetAction>

#include <algorithm>

namespace korvane::planner {

namespace {

AgendaSeconds SecondsOf(const QDate &date)
{
    return QDateTime(date, QTime(0, 0), Qt::UTC).toSecsSinceEpoch();
}

QDate DateOf(AgendaSeconds day)
{
    return QDateTime::fromSecsSinceEpoch(day, Qt::UTC).date();
}

/// A calendar file: weeks, days and single days by place or calendar.
class AgendaSchedule final : public ISchedulePages
{
public:
    explicit AgendaSchedule(Agenda agenda)
        : m_agenda(std::move(agenda))
        , m_pages(m_agenda)
    {
    }

    QString Name() const override { return m_agenda.Name; }
    const PlanRemarks &Remarks() const override { return m_agenda.Remarks; }
    QStringList Arrangements() const override
    {
        QStringList texts;
        for (const Arrangement &one : kArrangements) {
            texts.append(QString::fromLatin1(one.Caption));
        }
        return texts;
    }
    SchedulePage Page(int arrangement, AgendaSeconds day) const override
    {
        const Arrangement &one = kArrangements[arrangement];
        return m_pages.Page(one.Columns, BeginOf(one, day), one.Days);
    }
    SchedulePage DaysFrom(AgendaSeconds day, int days) const override
    {
        return m_pages.Page(AgendaColumns::Days, day, days);
    }
    AgendaSeconds FirstDay(AgendaSeconds day) const override { return m_pages.DayNear(day); }
    AgendaSeconds Step(int arrangement, AgendaSeconds day, int pages) const override
    {
        const Arrangement &one = kArrangements[arrangement];
        const int days = one.FromMonday ? 7 : one.Days;
        return BeginOf(one, day) + pages * days * kSecondsPerDay;
    }

private:
    struct Arrangement
    {
        const char *Caption;
        AgendaColumns Columns;
        int Days;
        bool FromMonday;
    };
    static constexpr Arrangement kArrangements[] = {
        {"Week", AgendaColumns::Days, 7, true},
        {"Work week", AgendaColumns::Days, 5, true},
        {"Day", AgendaColumns::Days, 1, false},
        {"Day by place", AgendaColumns::Places, 1, false},
        {"Day by calendar", AgendaColumns::Calendars, 1, false},
    };

    static AgendaSeconds BeginOf(const Arrangement &arrangement, AgendaSeconds day)
    {
        const int behind = arrangement.FromMonday ? DateOf(day).dayOfWeek() - 1 : 0;
        return (DayOf(day) - behind) * kSecondsPerDay;
    }

    Agenda m_agenda;
    AgendaPages m_pages;
};

/// A conference programme: a page for every day.
class ProgrammeSchedule final : public ISchedulePages
{
public:
    explicit ProgrammeSchedule(Programme programme)
        : m_programme(std::move(programme))
    {
    }

    QString Name() const override { return m_programme.Name; }
    const PlanRemarks &Remarks() const override { return m_programme.Remarks; }
    QStringList Arrangements() const override { return {}; }
    QStringList Tabs() const override
    {
        QStringList texts;
        for (const ProgrammeDay &day : m_programme.Days) {
            texts.append(QLocale().toString(DateOf(day.Date), QStringLiteral("ddd d MMM")));
        }
        return texts;
    }
    SchedulePage Page(int /*arrangement*/, AgendaSeconds day) const override
    {
        return PageOf(m_programme, IndexOf(day));
    }
    SchedulePage DaysFrom(AgendaSeconds day, int /*days*/) const override { return Page(0, day); }
    AgendaSeconds FirstDay(AgendaSeconds day) const override { return DateAt(IndexOf(day)); }
    AgendaSeconds Step(int /*arrangement*/, AgendaSeconds day, int pages) const override
    {
        const int last = static_cast<int>(m_programme.Days.size()) - 1;
        return DateAt(std::clamp(IndexOf(day) + pages, 0, last));
    }

private:
    AgendaSeconds DateAt(int index) const
    {
        return m_programme.Days[static_cast<std::size_t>(index)].Date;
    }
    /// The day of the conference that is it, or else the first one.
    int IndexOf(AgendaSeconds day) const
    {
        const auto found =
            std::ranges::find(m_programme.Days, DayOf(day) * kSecondsPerDay, &ProgrammeDay::Date);
        return found != m_programme.Days.end() ? static_cast<int>(found - m_programme.Days.begin())
                                               : 0;
    }

    Programme m_programme;
};

template <typename Schedule, typename Result>
std::unique_ptr<ISchedulePages> Opened(Result result, PlanError &error)
{
    if (result.Status != PlanStatus::Loaded) {
        error = result.Error;
        return nullptr;
    }
    return std::make_unique<Schedule>(std::move(result.Value));
}

} // namespace

std::unique_ptr<ISchedulePages> LoadSchedule(const QString &fileName, PlanError &error)
{
    NoProgress progress;
    if (IsProgrammeFile(fileName)) {
        return Opened<ProgrammeSchedule>(LoadProgramme(fileName, progress), error);
    }
    return Opened<AgendaSchedule>(LoadAgenda(fileName, progress), error);
}

ScheduleWindow::ScheduleWindow(std::unique_ptr<ISchedulePages> pages, QWidget *parent)
    : QMainWindow(parent)
    , m_pages(std::move(pages))
{
    setWindowTitle(tr("%1 – Planner").arg(m_pages->Name()));
    auto *central = new QWidget;
    auto *layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_tabs = new QTabBar;
    m_tabs->setExpanding(false);
    m_view = new ScheduleView;
    layout->addWidget(m_tabs);
    layout->addWidget(m_view, 1);
    setCentralWidget(central);
    CreateActions();
    CreateTabs();
    resize(1200, 800);
    GoTo(m_pages->FirstDay(SecondsOf(QDate::currentDate())));
    m_view->SchemaArea().setFocus();
}

ScheduleWindow::~ScheduleWindow() = default;

void ScheduleWindow::CreateActions()
{
    QToolBar *bar = addToolBar(tr("Pages"));
    bar->setMovable(false);
    const auto add = [&](const QString &text, const QString &tip, const QKeySequence &keys,
                         auto handler) {
        QAction *action = bar->addAction(text, this, handler);
        action->setToolTip(tip);
        action->setShortcut(keys);
        return action;
    };
    add(QStringLiteral("‹"), tr("Page before (Alt+Left)"), Qt::ALT | Qt::Key_Left,
        [this] { GoTo(m_pages->Step(m_arrangement, m_day, -1)); });
    add(QStringLiteral("›"), tr("Next page (Alt+Right)"), Qt::ALT | Qt::Key_Right,
        [this] { GoTo(m_pages->Step(m_arrangement, m_day, 1)); });
    if (m_pages->Tabs().isEmpty()) {
        add(tr("Today"), tr("Go to today (Ctrl+T)"), Qt::CTRL | Qt::Key_T,
            [this] { GoTo(SecondsOf(QDate::currentDate())); });
        add(tr("Go to date…"), tr("Choose a day (Ctrl+G)"), Qt::CTRL | Qt::Key_G,
            [this] { AskForDate(); });
        bar->addSeparator();
    }
    auto *group = new QActionGroup(this);
    const QStringList arrangements = m_pages->Arrangements();
    for (int i = 0; i < static_cast<int>(arrangements.size()); ++i) {
        QAction *action = bar->addAction(arrangements[i], this, [this, i] {
            m_arrangement = i;
            GoTo(m_day);
        });
        action->setCheckable(true);
        action->setChecked(i == m_arrangement);
        group->addAction(action);
    }
    m_title = new QLabel;
    m_title->setContentsMargins(12, 0, 12, 0);
    bar->addSeparator();
    bar->addWidget(m_title);
}

void ScheduleWindow::CreateTabs()
{
    const QStringList tabs = m_pages->Tabs();
    for (const QString &tab : tabs) {
        m_tabs->addTab(tab);
    }
    m_tabs->setVisible(!tabs.isEmpty());
    connect(m_tabs, &QTabBar::currentChanged, this, [this](int index) {
        if (const AgendaSeconds day = DayOfTab(index); day != m_day) {
            GoTo(day);
        }
    });
}

/// Pages with tabs begin with the first day and end with the last.
AgendaSeconds ScheduleWindow::DayOfTab(int tab) const
{
    const AgendaSeconds first = m_pages->Step(0, m_day, -m_tabs->count());
    return m_pages->Step(0, first, tab);
}

void ScheduleWindow::GoTo(AgendaSeconds day)
{
    m_day = day;
    SchedulePage page = m_pages->Page(m_arrangement, day);
    m_title->setText(page.Title);
    m_view->Show(std::move(page));
    for (int i = 0; i < m_tabs->count(); ++i) {
        if (DayOfTab(i) == day) {
            m_tabs->setCurrentIndex(i);
        }
    }
}

void ScheduleWindow::AskForDate()
{
    QMenu menu;
    auto *calendar = new QCalendarWidget;
    calendar->setSelectedDate(DateOf(m_day));
    auto *item = new QWidgetAction(&menu);
    item->setDefaultWidget(calendar);
    menu.addAction(item);
    const auto choose = [&](const QDate &date) {
        menu.close();
        GoTo(SecondsOf(date));
    };
    connect(calendar, &QCalendarWidget::clicked, &menu, choose);
    connect(calendar, &QCalendarWidget::activated, &menu, choose);
    menu.exec(mapToGlobal(QPoint(120, 40)));
}

} // namespace korvane::planner
