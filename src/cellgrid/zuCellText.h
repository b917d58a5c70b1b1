// Fitting text into cells.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"

#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// The text in lines of at most `width` pixels in the canvas' font, broken at spaces and at line
/// ends, within words only when a word alone is too long.
KORVANE_CORE_API std::vector<std::string_view> WrappedText(const TCanvas &canvas,
                                                           std::string_view text, int width);
/// The text, or its longest beginning that fits into the width with an ellipsis behind it.
KORVANE_CORE_API std::string EllipsizedText(const TCanvas &canvas, std::string_view text,
                                            int width);
/// Where the part stands in the text from an index on, whatever the case of ASCII letters; npos for
/// nowhere.
KORVANE_CORE_API std::size_t FindCaseless(std::string_view text, std::string_view part,
                                          std::size_t from = 0);
/// The text up to its first line end.
KORVANE_CORE_API std::string_view FirstLine(std::string_view text);

} // namespace korvane
