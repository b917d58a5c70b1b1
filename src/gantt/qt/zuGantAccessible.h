// The Gantt area as assistive tools see it.
#pragma once

#include "foundation/zuExport.h"

namespace korvane {

class TzuGant_ComBasic;

/// Makes the areas of all charts known to assistive tools. Called once per process is enough.
///
/// An area's children are its rows, as many as the row tree shows, whether scrolled away or not; a
/// row's children are the items of its layers as far as they are loaded. An item is named by its
/// caption, has its times for a value, and is described by its links; it can be focused, selected
/// and edited. What is asked for is made when it is asked for, and costs nothing for the rest of
/// the chart. Interfaces of rows and items that are deleted turn invalid at once and go a little
/// later.
KORVANE_WIDGETS_API void InstallGantAccessibility();

/// Tells assistive tools that another item is active.
KORVANE_WIDGETS_API void TellActiveItem(TzuGant_ComBasic &gant);
/// Tells assistive tools that other items are selected.
KORVANE_WIDGETS_API void TellSelection(TzuGant_ComBasic &gant);

} // namespace korvane
