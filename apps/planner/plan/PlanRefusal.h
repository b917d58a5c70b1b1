// How a reader's inner parts end a load.
#pragma once

#include "plan/PlanReader.h"
#include "plan/PlannerText.h"

#include <exception>

namespace korvane::planner {

/// The file cannot be used. Never leaves IPlanReader::Read.
class PlanRefusal final : public std::exception
{
public:
    PlanRefusal(qint64 line, QString reason)
        : m_error{line, std::move(reason)}
    {
    }

    const PlanError &Error() const { return m_error; }
    const char *what() const noexcept override { return "plan refused"; }

private:
    PlanError m_error;
};

/// The watcher of the load does not want it any more. Never leaves IPlanReader::Read.
class PlanCanceled final : public std::exception
{
public:
    const char *what() const noexcept override { return "load canceled"; }
};

/// Runs what returns a plan, and turns what it throws into a result.
template <typename ReadFunction>
PlanResult ResultOf(ReadFunction read)
{
    try {
        return {PlanStatus::Loaded, read(), {}};
    } catch (const PlanRefusal &refusal) {
        return {PlanStatus::Refused, {}, refusal.Error()};
    } catch (const PlanCanceled &) {
        return {PlanStatus::Canceled, {}, {}};
    } catch (const std::bad_alloc &) {
        return {PlanStatus::Refused, {}, {0, PlannerText::tr("not enough memory for this file")}};
    }
}

} // namespace korvane::planner
