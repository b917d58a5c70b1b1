// What a gesture tells in words: the lines of its hint, and entities carried out of a component.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

#include <array>
#include <string>
#include <string_view>

namespace korvane {

/// Lines of a hint: label, tab, value. UTF-8; an empty line takes no room.
using TGestureHint = std::array<std::string, 3>;

/// A line of a hint; empty when the value is.
KORVANE_CORE_API std::string HintLine(std::string_view label, const std::string &value);
/// Start, stop and length in the user's date and time format.
KORVANE_CORE_API TGestureHint HintOfTimes(TDateTime start, TDateTime stop);
/// A length as "2 d 3 h 15 min", to the nearest minute; below a minute in seconds.
KORVANE_CORE_API std::string LengthText(TDateTime length);
/// The text on one line, without the separators of plain text.
KORVANE_CORE_API std::string OnOneLine(std::string text);

/// Time items on their way to another window.
struct KORVANE_CORE_API TItemDragData
{
    /// Type of Json; the plain text is text/plain.
    static constexpr const char *kMimeType = "application/x-korvane-timeitems";

    std::string Text;        ///< a line per item: caption, start and stop, with tabs between
    std::string Json = "[]"; ///< [{"caption": text, "start": ISO 8601, "stop": ISO 8601}, ...]
    bool Copy = false;       ///< copies are offered, not the items

    /// Appends an item to both texts.
    void Add(const std::string &caption, TDateTime start, TDateTime stop);
};

} // namespace korvane
