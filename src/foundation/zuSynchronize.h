// Calls from worker threads that run on the main thread.
#pragma once

#include "foundation/zuExport.h"

#include <functional>

namespace korvane {

/// The hand-back from workers: calls wait here until the main thread runs them.
class KORVANE_CORE_API TSynchronize
{
public:
    TSynchronize() = delete;

    /// Queues a call. From any thread; returns at once. Whoever the call is about must be asked
    /// within it whether he still exists.
    static void Post(std::function<void()> call);
    /// Runs every queued call in the order of posting, those posted meanwhile included. Main thread
    /// only. When a call throws, the others stay queued and are announced again.
    static void RunPosted();
};

/// Arranges for RunPosted to run on the main thread soon. Called from any thread, once for all
/// calls that wait. The toolkit half installs it; without one calls run through RunPosted only.
KORVANE_CORE_API void SetSynchronizeTransport(std::function<void()> wake);

} // namespace korvane
