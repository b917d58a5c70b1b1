// Tables of texts as clipboards and files hold them.
#pragma once

#include "foundation/zuExport.h"

#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// Rows of texts; they may differ in length.
using TCellTable = std::vector<std::vector<std::string>>;

/// Lines of tab-separated texts. A text that begins with a quotation mark goes up to the next
/// single one and may hold tabs and line ends; a line end behind the last line is none.
KORVANE_CORE_API TCellTable ParseTabbed(std::string_view text);
/// The text as one of a tab-separated line.
KORVANE_CORE_API std::string TabbedField(std::string_view text);

/// The text as a field of comma-separated values: quoted where it has to be.
KORVANE_CORE_API std::string CsvField(std::string_view text);
/// The text, behind an apostrophe when spreadsheets would take it for a formula. Numbers with a
/// sign stay.
KORVANE_CORE_API std::string WithoutFormula(std::string text);

/// The text between tags; line ends become breaks.
KORVANE_CORE_API std::string HtmlField(std::string_view text);

} // namespace korvane
