// How the values of a task are shown in the cells of a table, and how they are typed there.
#pragma once

#include "plan/Plan.h"
#include "plan/PlanLinks.h"

#include <QDate>
#include <QLocale>
#include <QStringList>
#include <QStringView>

#include <array>
#include <span>
#include <string_view>

namespace korvane::planner {

/// In the order of the table.
enum class TaskColumn : std::uint8_t {
    Number, ///< place in the plan from 1 on, by which predecessors are named
    Name,
    Start,
    Finish,
    Duration, ///< working time
    Predecessors,
    Resources,
    PercentComplete,
};
inline constexpr int kTaskColumns = 8;

/// "Duration".
QString TaskColumnTitle(TaskColumn column);
/// As it stands within a sentence.
QString TaskColumnName(TaskColumn column);
/// Of settings and of the command line: "duration".
std::string_view TaskColumnKey(TaskColumn column);

/// Shows and reads values as the user's language writes them. Texts that were shown read as what
/// they show; Parse functions throw PlanEditRefusal with a sentence for the user.
class TaskCells
{
public:
    explicit TaskCells(QLocale locale = QLocale())
        : m_locale(std::move(locale))
    {
    }

    /// Empty for what the task does not have.
    QString Text(const Plan &plan, int task, TaskColumn column, PredecessorIndex &links) const;

    /// The day, and the time unless it is midnight or, as given, what goes without saying.
    QString DateText(TDateTime instant, double usualMinute) const;
    /// A day keeps the time of day of `former`. The name of a weekday is skipped; a missing year is
    /// that of `former`.
    TDateTime ParseDate(QStringView text, TDateTime former) const;

    /// "3d", "4h", "30m": in the largest unit that gives a round number.
    QString DurationText(double workingMinutes, int dayMinutes) const;
    /// Numbers with or without a unit: m(in), h(ours), d(ays), w(eeks of five days); a number alone
    /// counts days. With e before the unit they are elapsed ones: "2ed".
    struct Duration
    {
        double Minutes = 0;
        bool IsElapsed = false;
    };
    Duration ParseDuration(QStringView text, int dayMinutes) const;

    /// "4, 7SS, 9FS+2d".
    QString PredecessorsText(const Plan &plan, std::span<const int> links) const;
    /// The links in the order of the text.
    std::vector<PlanLink> ParsePredecessors(const Plan &plan, int task, QStringView text) const;

    /// "Anna; Ben [50%]".
    QString ResourcesText(const Plan &plan, int task) const;
    /// Resources by their names, whatever the case.
    std::vector<PlanAssignment> ParseResources(const Plan &plan, int task, QStringView text) const;

    float ParsePercent(QStringView text) const;

private:
    /// Stands between the items of a list: a semicolon where commas separate decimals.
    QChar Separator() const;
    QStringList Items(QStringView text) const;
    std::optional<QDate> ParseDay(const QString &text, int year) const;
    std::optional<double> ParseNumber(QStringView text) const;
    QString NumberText(double number) const;
    PlanLink ParsePredecessor(const Plan &plan, int task, QStringView text) const;
    PlanLag ParseLag(const Plan &plan, QStringView text) const;

    QLocale m_locale;
};

} // namespace korvane::planner
