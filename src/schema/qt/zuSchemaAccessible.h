// The schema area as assistive tools see it.
#pragma once

#include "foundation/zuExport.h"

namespace korvane {

class TzuDataEntity;
class TzuSchema_ComBasic;

/// Makes the areas of all schedules known to assistive tools. Called once per process is enough.
///
/// An area's children are its columns, whether scrolled away or not; a column's children are its
/// times within the visible time, topmost first. A column is named by its caption, a time by its
/// first text or else by its column's caption, and it has its times for a value; it can be focused,
/// selected and edited. What is asked for is made when it is asked for, and costs nothing for the
/// rest of the schedule. Interfaces of what is deleted turn invalid at once and go a little later.
KORVANE_WIDGETS_API void InstallSchemaAccessibility();

/// Tells assistive tools that another time is active.
KORVANE_WIDGETS_API void TellActiveTime(TzuSchema_ComBasic &schema);
/// Tells assistive tools that other times are selected.
KORVANE_WIDGETS_API void TellTimeSelection(TzuSchema_ComBasic &schema);
/// A time or a column is gone; its address alone is used.
KORVANE_WIDGETS_API void TellEntityLeft(TzuSchema_ComBasic &schema, const TzuDataEntity *entity);

} // namespace korvane
