#include "cellgrid/zuCellTable.h"

#include <algorithm>
#include <cctype>

namespace korvane {

namespace {

/// The text in quotation marks, those in it doubled.
std::string Quoted(std::string_view text)
{
    std::string quoted = "\"";
    for (const char c : text) {
        quoted.append(c == '"' ? 2 : 1, c);
    }
    return quoted + '"';
}

bool IsNumber(std::string_view text)
{
    const auto isPart = [](char c) {
        return (c >= '0' && c <= '9') || c == '.' || c == ',' || c == ' ' || c == '%';
    };
    return text.size() > 1 && text[1] != ' ' && std::all_of(text.begin() + 1, text.end(), isPart);
}

/// Takes a quoted text off the front, of which `rest` begins behind the first mark.
std::string TakeQuoted(std::string_view &rest)
{
    std::string text;
    while (!rest.empty()) {
        const char c = rest.front();
        rest.remove_prefix(1);
        if (c == '"') {
            if (rest.empty() || rest.front() != '"') {
                return text;
            }
            rest.remove_prefix(1);
        }
        text += c;
    }
    return text;
}

} // namespace

TCellTable ParseTabbed(std::string_view text)
{
    TCellTable table;
    std::string field;
    bool fieldBegins = true;
    bool lineBegins = true;
    const auto endField = [&] {
        if (lineBegins) {
            table.emplace_back();
        }
        table.back().push_back(std::move(field));
        field.clear();
        fieldBegins = true;
        lineBegins = false;
    };
    while (!text.empty()) {
        const char c = text.front();
        text.remove_prefix(1);
        // A mark that is never closed is an ordinary one.
        if (c == '"' && fieldBegins && text.find('"') != std::string_view::npos) {
            field = TakeQuoted(text);
        } else if (c == '\t') {
            endField();
            continue;
        } else if (c == '\n' || c == '\r') {
            if (c == '\r' && !text.empty() && text.front() == '\n') {
                text.remove_prefix(1);
            }
            endField();
            lineBegins = true;
            continue;
        } else {
            field += c;
        }
        fieldBegins = false;
    }
    if (!lineBegins || !fieldBegins) {
        endField();
    }
    return table;
}

std::string TabbedField(std::string_view text)
{
    return text.find_first_of("\t\n\r\"") == std::string_view::npos ? std::string(text)
                                                                    : Quoted(text);
}

std::string CsvField(std::string_view text)
{
    return text.find_first_of(",\"\r\n") == std::string_view::npos ? std::string(text)
                                                                   : Quoted(text);
}

std::string WithoutFormula(std::string text)
{
    const char first = text.empty() ? ' ' : text.front();
    const bool sign = first == '-' || first == '+';
    const bool formula =
        first == '=' || first == '@' || first == '\t' || first == '\r' || (sign && !IsNumber(text));
    return formula ? '\'' + text : text;
}

std::string HtmlField(std::string_view text)
{
    std::string html;
    for (const char c : text) {
        switch (c) {
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        case '&':
            html += "&amp;";
            break;
        case '\n':
            html += "<br>";
            break;
        default:
            html += c;
        }
    }
    return html;
}

} // namespace korvane
