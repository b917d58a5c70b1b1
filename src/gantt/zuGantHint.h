// What a gesture tells in words: the lines of its hint, and items carried out of the chart.
#pragma once

#include "gantt/zuGantData.h"

#include <array>
#include <span>
#include <string>

namespace korvane {

/// Lines of a hint: label, tab, value. UTF-8; an empty line takes no room.
using TGantHint = std::array<std::string, 3>;

/// Start, stop and length in the user's date and time format.
TGantHint HintOfTimes(TDateTime start, TDateTime stop);
/// The captions of the item a link starts at and of the one it would end at, which may be null.
TGantHint HintOfDependency(const TzuDataEntity_Spanbar *first, const TzuDataEntity_Spanbar *second);
/// A length as "2 d 3 h 15 min", to the nearest minute; below a minute in seconds.
std::string LengthText(TDateTime length);
/// The item's first text that is not empty; else empty.
std::string CaptionOf(const TzuDataEntity_Spanbar &item);

/// Items on their way to another window.
struct TGantDragData
{
    /// Type of Json; the plain text is text/plain.
    static constexpr const char *kMimeType = "application/x-korvane-timeitems";

    std::string Text;  ///< a line per item: caption, start and stop, with tabs between
    std::string Json;  ///< [{"caption": text, "start": ISO 8601, "stop": ISO 8601}, ...]
    bool Copy = false; ///< copies are offered, not the items
};

TGantDragData DragDataOf(std::span<TzuDataEntity_Spanbar *const> items, bool copy);

} // namespace korvane
