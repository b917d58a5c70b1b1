// Texts of page headers and footers.
#pragma once

#include "foundation/zuExport.h"

#include <string>
#include <string_view>

namespace korvane {

/// What the fields of a header or footer stand for, ready to be shown.
struct TPrintFields
{
    /// Of the document; the file that it is kept in.
    std::string Title;
    std::string File;
    std::string Date;  ///< of the print
    std::string Time;  ///< of the print
    std::string Range; ///< what the page shows
    /// Of the page, from 1, and of the last one.
    int Page = 1;
    int Pages = 1;
};

/// The text with "{title}", "{file}", "{date}", "{time}", "{range}", "{page}" and "{pages}"
/// replaced. "{{" is a brace; any other brace stays as it stands.
KORVANE_CORE_API std::string ExpandPrintFields(std::string_view text, const TPrintFields &fields);

/// The three texts of a header or footer.
struct TPrintLine
{
    /// At the left, in the middle and at the right; with fields, see ExpandPrintFields.
    std::string Left;
    std::string Center;
    std::string Right;

    /// Whether there is nothing to show.
    bool IsEmpty() const { return Left.empty() && Center.empty() && Right.empty(); }
};

} // namespace korvane
