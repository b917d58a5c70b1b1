#include "cellgrid/zuCellText.h"

#include <algorithm>

namespace korvane {

namespace {

constexpr std::string_view kEllipsis = "\xE2\x80\xA6";

/// The nearest end of a UTF-8 sequence at or before the length.
std::size_t WholeCharacters(std::string_view text, std::size_t length)
{
    while (length > 0 && length < text.size()
           && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) {
        --length;
    }
    return length;
}

/// Length of the longest beginning that is at most `width` wide.
std::size_t FittingLength(const TCanvas &canvas, std::string_view text, int width)
{
    std::size_t fits = 0;
    std::size_t tooLong = text.size() + 1;
    while (fits + 1 < tooLong) {
        const std::size_t middle = (fits + tooLong) / 2;
        const std::size_t length = WholeCharacters(text, middle);
        if (canvas.TextExtent(text.substr(0, length)).Width <= width) {
            fits = middle;
        } else {
            tooLong = middle;
        }
    }
    return WholeCharacters(text, fits);
}

/// Length of the first line, of one character at least.
std::size_t LineLength(const TCanvas &canvas, std::string_view text, int width)
{
    if (canvas.TextExtent(text).Width <= width) {
        return text.size();
    }
    const std::size_t fits = FittingLength(canvas, text, width);
    const std::size_t space = text.rfind(' ', fits);
    if (space != std::string_view::npos && space > 0) {
        return space;
    }
    std::size_t first = 1;
    while (first < text.size() && (static_cast<unsigned char>(text[first]) & 0xC0U) == 0x80U) {
        ++first;
    }
    return std::max(fits, first);
}

} // namespace

std::size_t FindCaseless(std::string_view text, std::string_view part, std::size_t from)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    const std::string_view rest = text.substr(std::min(from, text.size()));
    const auto found = std::search(rest.begin(), rest.end(), part.begin(), part.end(),
                                   [lower](char a, char b) { return lower(a) == lower(b); });
    return found == rest.end() && !part.empty()
               ? std::string_view::npos
               : text.size() - static_cast<std::size_t>(rest.end() - found);
}

std::string_view FirstLine(std::string_view text)
{
    return text.substr(0, text.find('\n'));
}

std::vector<std::string_view> WrappedText(const TCanvas &canvas, std::string_view text, int width)
{
    std::vector<std::string_view> lines;
    while (true) {
        std::string_view line = FirstLine(text);
        const bool last = line.size() == text.size();
        text.remove_prefix(last ? line.size() : line.size() + 1);
        do {
            const std::size_t length = LineLength(canvas, line, width);
            lines.push_back(line.substr(0, length));
            line.remove_prefix(length);
            line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        } while (!line.empty());
        if (last) {
            return lines;
        }
    }
}

std::string EllipsizedText(const TCanvas &canvas, std::string_view text, int width)
{
    if (canvas.TextExtent(text).Width <= width) {
        return std::string(text);
    }
    const int room = width - canvas.TextExtent(kEllipsis).Width;
    std::string result(text.substr(0, room > 0 ? FittingLength(canvas, text, room) : 0));
    result.erase(result.find_last_not_of(' ') + 1);
    return result.append(kEllipsis);
}

} // namespace korvane
