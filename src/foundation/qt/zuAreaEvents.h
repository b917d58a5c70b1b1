// What the drawn areas of the controls share in handling events.
#pragma once

#include "foundation/zuExport.h"

class QEvent;
class QWidget;

namespace korvane {

/// Whether the event tells that a gesture with the left button in the area cannot go on: the button
/// turns out to be up (its release went elsewhere, as to a dialog that a handler has opened), the
/// window is deactivated, a menu opens, or the area is hidden or disabled.
KORVANE_WIDGETS_API bool TakesMouseAway(const QEvent &event, const QWidget &area);

} // namespace korvane
