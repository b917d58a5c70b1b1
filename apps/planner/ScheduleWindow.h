// The window of a calendar or a conference programme.
#pragma once

#include "agenda/SchedulePage.h"
#include "plan/PlanReader.h"

#include <QMainWindow>

#include <memory>

class QLabel;
class QTabBar;

namespace korvane::planner {

class ScheduleView;

/// What a schedule window turns the pages of.
class ISchedulePages
{
public:
    ISchedulePages() = default;
    ISchedulePages(const ISchedulePages &) = delete;
    ISchedulePages &operator=(const ISchedulePages &) = delete;
    virtual ~ISchedulePages() = default;

    virtual QString Name() const = 0;
    virtual const PlanRemarks &Remarks() const = 0;
    /// Captions of the arrangements to choose from.
    virtual QStringList Arrangements() const = 0;
    /// Captions of all pages where they are few; none where a date chooses the page.
    virtual QStringList Tabs() const { return {}; }
    virtual SchedulePage Page(int arrangement, AgendaSeconds day) const = 0;
    /// So many days from a day on; where a page is a day, that one.
    virtual SchedulePage DaysFrom(AgendaSeconds day, int days) const = 0;
    /// The day to begin with when `day` is asked for.
    virtual AgendaSeconds FirstDay(AgendaSeconds day) const = 0;
    /// The day of a page so many pages on.
    virtual AgendaSeconds Step(int arrangement, AgendaSeconds day, int pages) const = 0;
};

/// Reads a calendar or a programme. Null when it cannot be used; `error` says why then.
std::unique_ptr<ISchedulePages> LoadSchedule(const QString &fileName, PlanError &error);

class ScheduleWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit ScheduleWindow(std::unique_ptr<ISchedulePages> pages, QWidget *parent = nullptr);
    ~ScheduleWindow() override;

    ScheduleView &View() { return *m_view; }

private:
    void CreateActions();
    void CreateTabs();
    AgendaSeconds DayOfTab(int tab) const;
    void GoTo(AgendaSeconds day);
    void AskForDate();

    std::unique_ptr<ISchedulePages> m_pages;
    ScheduleView *m_view = nullptr;
    QLabel *m_title = nullptr;
    QTabBar *m_tabs = nullptr;
    int m_arrangement = 0;
    AgendaSeconds m_day = 0;
};

} // namespace korvane::planner
