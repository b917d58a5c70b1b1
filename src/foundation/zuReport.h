// Reports meant for a message box.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuMethod.h"

#include <string_view>

namespace korvane {

/// What shows a report. Called on the thread that reports, which may be a worker.
using TReportHook = TMethod<void(std::string_view text)>;

/// Shows a text to the user without blocking: through the hook when one is set, else on standard
/// error.
KORVANE_CORE_API void Report(std::string_view text);
/// Replaces the hook and returns the one that was set.
KORVANE_CORE_API TReportHook SetReportHook(TReportHook hook);

} // namespace korvane
