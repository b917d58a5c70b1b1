// Times of a schedule in words, for hints and for assistive technology.
#pragma once

#include "schema/zuSchemaData.h"

#include <string>

namespace korvane {

/// The time's first text that is not empty; else empty.
std::string CaptionOf(const TzuDataEntity_SchemaTime &time);
/// When the time starts and stops, in the locale's short forms; one time when both are the same,
/// one date when both are on the same day.
std::string TimesOf(const TzuDataEntity_SchemaTime &time);

} // namespace korvane
