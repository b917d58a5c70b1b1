// The services of the toolkit that the core reaches through hooks.
#pragma once

#include "foundation/zuExport.h"

namespace korvane {

/// Connects the core to Qt: deferred calls to the event loop, reports to a message box, date and
/// time texts to the system's locale. Every control calls it; once is enough and more do nothing.
///
/// What the application has set itself stays: a report hook, and format settings other than the
/// invariant ones. Reports go to standard error when there is no screen to show a box on.
KORVANE_WIDGETS_API void InstallToolkitServices();

} // namespace korvane
