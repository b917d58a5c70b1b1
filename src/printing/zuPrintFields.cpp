#include "printing/zuPrintFields.h"

#include <array>
#include <utility>

namespace korvane {

std::string ExpandPrintFields(std::string_view text, const TPrintFields &fields)
{
    const std::array<std::pair<std::string_view, std::string>, 8> values{{
        {"{{", "{"},
        {"{title}", fields.Title},
        {"{file}", fields.File},
        {"{date}", fields.Date},
        {"{time}", fields.Time},
        {"{range}", fields.Range},
        {"{page}", std::to_string(fields.Page)},
        {"{pages}", std::to_string(fields.Pages)},
    }};
    std::string result;
    while (!text.empty()) {
        const std::size_t plain = text.find('{');
        result += text.substr(0, plain);
        text.remove_prefix(plain == std::string_view::npos ? text.size() : plain);
        bool known = false;
        for (const auto &[field, value] : values) {
            if (text.starts_with(field)) {
                result += value;
                text.remove_prefix(field.size());
                known = true;
                break;
            }
        }
        if (!known && !text.empty()) {
            result += text.front();
            text.remove_prefix(1);
        }
    }
    return result;
}

} // namespace korvane
