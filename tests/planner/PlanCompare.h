// Tells how two plans differ.
#pragma once

#include "plan/PlanDates.h"
#include "plan/PlanFile.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <tuple>

namespace korvane::planner::test {

/// The first difference in words; empty when there is none. Instants are equal to the millisecond,
/// which is what files hold. Remarks do not count, nor does the order of links with different
/// successors and of assignments of different tasks.
class PlanComparison
{
public:
    std::string operator()(const Plan &a, const Plan &b)
    {
        m_difference.clear();
        Check("name", a.Name, b.Name);
        Check("start", a.Start, b.Start);
        Check("finish", a.Finish, b.Finish);
        Check("least start", a.LeastStart, b.LeastStart);
        Check("greatest finish", a.GreatestFinish, b.GreatestFinish);
        Check("calendar", a.Calendar, b.Calendar);
        Compare("task", a.Tasks, b.Tasks, &PlanComparison::CheckTask);
        Compare("link", Sorted(a.Links), Sorted(b.Links), &PlanComparison::CheckLink);
        Compare("resource", a.Resources, b.Resources, &PlanComparison::CheckResource);
        Compare("assignment", a.Assignments, b.Assignments, &PlanComparison::CheckAssignment);
        Compare("calendar", a.Calendars, b.Calendars, &PlanComparison::CheckCalendar);
        return m_difference;
    }

private:
    static std::vector<PlanLink> Sorted(std::vector<PlanLink> links)
    {
        std::ranges::stable_sort(links, {}, &PlanLink::Successor);
        return links;
    }

    static bool Same(double a, double b) { return std::abs(a - b) < 1e-8; }
    static bool Same(const PlanSpan &a, const PlanSpan &b)
    {
        return Same(a.Start, b.Start) && Same(a.Finish, b.Finish);
    }
    template <typename T>
    static bool Same(const T &a, const T &b)
    {
        return a == b;
    }
    template <typename T>
    static bool Same(const std::optional<T> &a, const std::optional<T> &b)
    {
        return a.has_value() == b.has_value() && (!a || Same(*a, *b));
    }
    template <typename T>
    static bool Same(const std::vector<T> &a, const std::vector<T> &b)
    {
        return std::ranges::equal(a, b, [](const T &x, const T &y) { return Same(x, y); });
    }

    static std::string Text(const QString &text) { return '"' + text.toStdString() + '"'; }
    static std::string Text(const PlanSpan &span)
    {
        return (IsoText(span.Start) + u'/' + IsoText(span.Finish)).toStdString();
    }
    template <typename T>
    static std::string Text(const T &value)
    {
        std::ostringstream text;
        text << value;
        return text.str();
    }
    static std::string Text(PlanConstraint value) { return Text(static_cast<int>(value)); }
    static std::string Text(PlanLinkType value) { return Text(static_cast<int>(value)); }
    static std::string Text(PlanLagUnit value) { return Text(static_cast<int>(value)); }
    template <typename T>
    static std::string Text(const std::optional<T> &value)
    {
        return value ? Text(*value) : "nothing";
    }
    static std::string Text(const std::vector<PlanSpan> &parts)
    {
        std::string text;
        for (const PlanSpan &part : parts) {
            text += Text(part) + ' ';
        }
        return text;
    }

    template <typename T>
    void Check(const char *what, const T &a, const T &b)
    {
        if (m_difference.empty() && !Same(a, b)) {
            m_difference = m_item + what + ": " + Text(a) + " and " + Text(b);
        }
    }

    template <typename T>
    void Compare(const char *what, const std::vector<T> &a, const std::vector<T> &b,
                 void (PlanComparison::*check)(const T &, const T &))
    {
        m_item = std::string(what) + "s, ";
        Check("number", a.size(), b.size());
        for (std::size_t i = 0; i < std::min(a.size(), b.size()) && m_difference.empty(); ++i) {
            m_item = std::string(what) + ' ' + std::to_string(i) + ", ";
            (this->*check)(a[i], b[i]);
        }
    }

    void CheckTask(const PlanTask &a, const PlanTask &b)
    {
        Check("UID", a.Uid, b.Uid);
        Check("name", a.Name, b.Name);
        Check("notes", a.Notes, b.Notes);
        Check("dates", a.Dates, b.Dates);
        Check("baseline", a.Baseline, b.Baseline);
        Check("deadline", a.Deadline, b.Deadline);
        Check("constraint date", a.ConstraintDate, b.ConstraintDate);
        Check("color", a.Color, b.Color);
        Check("parts", a.Parts, b.Parts);
        Check("parent", a.Parent, b.Parent);
        Check("percentage", a.PercentComplete, b.PercentComplete);
        Check("level", a.Level, b.Level);
        Check("constraint", a.Constraint, b.Constraint);
        Check("milestone", bool(a.Milestone), bool(b.Milestone));
        Check("summary", bool(a.MarkedSummary), bool(b.MarkedSummary));
        Check("children", bool(a.HasChildren), bool(b.HasChildren));
        Check("manual", bool(a.Manual), bool(b.Manual));
        Check("collapsed", bool(a.Collapsed), bool(b.Collapsed));
    }
    void CheckLink(const PlanLink &a, const PlanLink &b)
    {
        Check("predecessor", a.Predecessor, b.Predecessor);
        Check("successor", a.Successor, b.Successor);
        Check("type", a.Type, b.Type);
        Check("lag", a.Lag.Amount, b.Lag.Amount);
        Check("unit of lag", a.Lag.Unit, b.Lag.Unit);
    }
    void CheckResource(const PlanResource &a, const PlanResource &b)
    {
        Check("UID", a.Uid, b.Uid);
        Check("name", a.Name, b.Name);
    }
    void CheckAssignment(const PlanAssignment &a, const PlanAssignment &b)
    {
        Check("task", a.Task, b.Task);
        Check("resource", a.Resource, b.Resource);
        Check("units", a.Units, b.Units);
    }
    void CheckCalendar(const PlanCalendar &a, const PlanCalendar &b)
    {
        Check("UID", a.Uid, b.Uid);
        Check("name", a.Name, b.Name);
        const bool isWeekSame = a.Times.WeekDays() == b.Times.WeekDays();
        Check("week", isWeekSame, true);
        const auto &first = a.Times.Exceptions();
        const auto &second = b.Times.Exceptions();
        Check("exceptions", first.size(), second.size());
        for (std::size_t i = 0; i < std::min(first.size(), second.size()); ++i) {
            Check("exception's first day", first[i].FirstDay, second[i].FirstDay);
            Check("exception's last day", first[i].LastDay, second[i].LastDay);
            Check("exception's times", first[i].Times == second[i].Times, true);
        }
    }

    std::string m_item;
    std::string m_difference;
};

inline std::string Difference(const Plan &a, const Plan &b)
{
    return PlanComparison()(a, b);
}

} // namespace korvane::planner::test
