// Items and links in words, for hints and for assistive technology.
#pragma once

#include "foundation/zuExport.h"
#include "gantt/zuGantData.h"

#include <string>

namespace korvane {

/// The item's first text that is not empty, or else the caption of its row.
KORVANE_CORE_API std::string CaptionOf(const TzuDataEntity_Spanbar &item);
/// Caption of the row's node; empty when it has none.
KORVANE_CORE_API std::string CaptionOf(const TGantRow &row);
/// Captions of both ends.
KORVANE_CORE_API std::string CaptionOf(const TzuDataEntity_Link &link);
/// When the item starts and stops, in the locale's short forms; one time when both are the same.
KORVANE_CORE_API std::string TimesOf(const TzuDataEntity_Spanbar &item);

} // namespace korvane
