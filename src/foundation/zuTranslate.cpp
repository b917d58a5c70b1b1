#include "foundation/zuTranslate.h"

#include <atomic>

namespace korvane {

namespace {

std::atomic<TTranslator> s_translator = nullptr;

void ReplaceAll(std::string &text, std::string_view what, std::string_view with)
{
    for (std::size_t at = text.find(what); at != std::string::npos;
         at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
}

} // namespace

std::string Translate(const char *context, const char *text, const char *comment, int n)
{
    const TTranslator translator = s_translator;
    return translator != nullptr ? translator(context, text, comment, n) : Untranslated(text, n);
}

std::string Untranslated(std::string_view text, int n)
{
    std::string result(text);
    if (n >= 0) {
        ReplaceAll(result, "(s)", n == 1 ? "" : "s");
        ReplaceAll(result, "%n", std::to_string(n));
        ReplaceAll(result, "%Ln", std::to_string(n));
    }
    return result;
}

TTranslator SetTranslator(TTranslator translator)
{
    return s_translator.exchange(translator);
}

std::string WithArguments(std::string_view text, std::initializer_list<std::string_view> arguments)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t index =
            text[i] == '%' && i + 1 < text.size() ? static_cast<std::size_t>(text[i + 1] - '1') : 9;
        if (index < arguments.size() && index < 9) {
            result += arguments.begin()[index];
            ++i;
        } else {
            result += text[i];
        }
    }
    return result;
}

} // namespace korvane
