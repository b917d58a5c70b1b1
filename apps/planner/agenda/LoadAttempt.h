// How loads of calendars and programmes end.
#pragma once

#include "plan/PlanReader.h"
#include "plan/PlanRefusal.h"
#include "plan/PlannerText.h"

#include <exception>
#include <new>

namespace korvane::planner {

/// Runs a load, which fills the result it is given, and notes there how it ended.
template <typename Result, typename Load>
Result AttemptLoad(const Load &load)
{
    Result result;
    try {
        load(result);
        result.Status = PlanStatus::Loaded;
    } catch (const PlanRefusal &refusal) {
        result.Error = refusal.Error();
    } catch (const PlanCanceled &) {
        result.Status = PlanStatus::Canceled;
    } catch (const std::bad_alloc &) {
        result.Error = {0, PlannerText::tr("not enough memory for this file")};
    } catch (const std::exception &error) { // a thread of its own cannot pass it on
        result.Error = {0, QString::fromUtf8(error.what())};
    }
    return result;
}

} // namespace korvane::planner
