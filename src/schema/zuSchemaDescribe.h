// Times of a schedule in words, for hints and for assistive technology.
#pragma once

#include "foundation/zuExport.h"
#include "schema/zuSchemaData.h"

#include <string>

namespace korvane {

/// The time's first text that is not empty; else empty.
KORVANE_CORE_API std::string CaptionOf(const TzuDataEntity_SchemaTime &time);
/// When the time starts and stops, in the locale's short forms; one time when both are the same,
/// one date when both are on the same day.
KORVANE_CORE_API std::string TimesOf(const TzuDataEntity_SchemaTime &time);

} // namespace korvane
