#include "foundation/zuFormat.h"

#include "foundation/zuDateUtils.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace korvane {

namespace {

/// Forms of the settings may name each other; deeper than this they are left out.
constexpr int kMaxDepth = 2;

TFormatSettings &CurrentSettings()
{
    static TFormatSettings settings = TFormatSettings::Invariant();
    return settings;
}

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool StartsWithNoCase(std::string_view text, std::string_view lowerPrefix)
{
    return text.size() >= lowerPrefix.size()
           && std::equal(lowerPrefix.begin(), lowerPrefix.end(), text.begin(),
                         [](char a, char b) { return a == Lower(b); });
}

/// Length of the half-day token at the start of the text, 0 when there is none.
std::size_t HalfDayTokenLength(std::string_view text)
{
    for (const std::string_view token : {"am/pm", "ampm", "a/p"}) {
        if (StartsWithNoCase(text, token)) {
            return token.size();
        }
    }
    return 0;
}

/// Length of the quoted text at the start, quotes included. An open quote runs to the end.
std::size_t QuotedLength(std::string_view text)
{
    const std::size_t end = text.find(text.front(), 1);
    return end == std::string_view::npos ? text.size() : end + 1;
}

bool IsQuote(char c)
{
    return c == '\'' || c == '"';
}

bool HasHalfDayToken(std::string_view format)
{
    while (!format.empty()) {
        if (HalfDayTokenLength(format) > 0) {
            return true;
        }
        format.remove_prefix(IsQuote(format.front()) ? QuotedLength(format) : 1);
    }
    return false;
}

void AppendNumber(std::string &out, int number, std::size_t digits)
{
    std::array<char, 12> text{};
    const auto *end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    const auto length = static_cast<std::size_t>(end - text.data());
    out.append(digits - std::min(digits, length), '0');
    out.append(text.data(), length);
}

/// Appends the text of one instant by patterns.
class TFormatter
{
public:
    explicit TFormatter(TDateTime value)
        : m_parts(DecodeDateTime(value))
        , m_dayOfWeek(DayOfWeek(value))
    {
    }

    std::string Result() && { return std::move(m_out); }

    void Append(std::string_view format)
    {
        if (m_depth == kMaxDepth) {
            return;
        }
        ++m_depth;
        const bool halfDays = std::exchange(m_halfDays, HasHalfDayToken(format));
        const char lastToken = std::exchange(m_lastToken, ' ');
        while (!format.empty()) {
            format.remove_prefix(AppendNext(format));
        }
        m_lastToken = lastToken;
        m_halfDays = halfDays;
        --m_depth;
    }

private:
    /// Appends the token at the start of the pattern and returns its length.
    std::size_t AppendNext(std::string_view format)
    {
        const char first = format.front();
        if (IsQuote(first)) {
            return AppendQuoted(format);
        }
        if (const std::size_t length = HalfDayTokenLength(format); length > 0) {
            m_lastToken = 'a';
            AppendHalfDay(format.substr(0, length));
            return length;
        }
        char token = Lower(first);
        std::size_t count = 1;
        while (count < format.size() && Lower(format[count]) == token) {
            ++count;
        }
        if (token == 'm' && m_lastToken == 'h' && count <= 2) {
            token = 'n';
        }
        if (token >= 'a' && token <= 'z') {
            m_lastToken = token;
        }
        if (!AppendDateToken(token, count) && !AppendTimeToken(token, count)) {
            AppendOther(format.substr(0, count));
        }
        return count;
    }

    std::size_t AppendQuoted(std::string_view format)
    {
        const std::size_t length = QuotedLength(format);
        const bool closed = length > 1 && format[length - 1] == format.front();
        m_out.append(format.substr(1, length - (closed ? 2 : 1)));
        return length;
    }

    bool AppendDateToken(char token, std::size_t count)
    {
        const TDateParts &date = m_parts.Date;
        switch (token) {
        case 'y':
            count <= 2 ? AppendNumber(m_out, date.Year % 100, 2)
                       : AppendNumber(m_out, date.Year, 4);
            return true;
        case 'm':
            AppendMonth(count);
            return true;
        case 'd':
            AppendDay(count);
            return true;
        case 'c':
            AppendShort();
            return true;
        default:
            return false;
        }
    }

    bool AppendTimeToken(char token, std::size_t count)
    {
        const TTimeParts &time = m_parts.Time;
        const std::size_t digits = std::min<std::size_t>(count, 2);
        switch (token) {
        case 'h':
            AppendNumber(m_out, m_halfDays ? (time.Hour + 11) % 12 + 1 : time.Hour, digits);
            return true;
        case 'n':
            AppendNumber(m_out, time.Minute, digits);
            return true;
        case 's':
            AppendNumber(m_out, time.Second, digits);
            return true;
        case 'z':
            AppendNumber(m_out, time.Millisecond, count == 1 ? 1 : 3);
            return true;
        case 't':
            Append(count == 1 ? FormatSettings().ShortTimeFormat : FormatSettings().LongTimeFormat);
            return true;
        default:
            return false;
        }
    }

    void AppendOther(std::string_view text)
    {
        const char separator = text.front() == '/'   ? FormatSettings().DateSeparator
                               : text.front() == ':' ? FormatSettings().TimeSeparator
                                                     : '\0';
        if (separator == '\0') {
            m_out.append(text);
        } else {
            m_out.append(text.size(), separator);
        }
    }

    void AppendMonth(std::size_t count)
    {
        const auto index = static_cast<std::size_t>(m_parts.Date.Month) - 1;
        if (count <= 2) {
            AppendNumber(m_out, m_parts.Date.Month, count);
        } else {
            m_out += count == 3 ? FormatSettings().ShortMonthNames.at(index)
                                : FormatSettings().LongMonthNames.at(index);
        }
    }

    void AppendDay(std::size_t count)
    {
        const auto index = static_cast<std::size_t>(m_dayOfWeek) - 1;
        switch (count) {
        case 1:
        case 2:
            AppendNumber(m_out, m_parts.Date.Day, count);
            break;
        case 3:
            m_out += FormatSettings().ShortDayNames.at(index);
            break;
        case 4:
            m_out += FormatSettings().LongDayNames.at(index);
            break;
        case 5:
            Append(FormatSettings().ShortDateFormat);
            break;
        default:
            Append(FormatSettings().LongDateFormat);
        }
    }

    void AppendShort()
    {
        Append(FormatSettings().ShortDateFormat);
        if (m_parts.Time != TTimeParts()) {
            m_out += ' ';
            Append(FormatSettings().ShortTimeFormat);
        }
    }

    /// `am/pm` and `a/p` show the half that the pattern itself spells, `ampm` that of the settings.
    void AppendHalfDay(std::string_view token)
    {
        const bool morning = m_parts.Time.Hour < 12;
        const std::size_t slash = token.find('/');
        if (slash == std::string_view::npos) {
            m_out += morning ? FormatSettings().AmText : FormatSettings().PmText;
        } else {
            m_out.append(morning ? token.substr(0, slash) : token.substr(slash + 1));
        }
    }

    TDateTimeParts m_parts;
    int m_dayOfWeek;
    std::string m_out;
    char m_lastToken = ' ';
    bool m_halfDays = false;
    int m_depth = 0;
};

} // namespace

TFormatSettings TFormatSettings::Invariant()
{
    return {
        .ShortDayNames = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"},
        .LongDayNames = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday",
                         "Saturday"},
        .ShortMonthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct",
                            "Nov", "Dec"},
        .LongMonthNames = {"January", "February", "March", "April", "May", "June", "July", "August",
                           "September", "October", "November", "December"},
        .ShortDateFormat = "yyyy/mm/dd",
        .LongDateFormat = "dddd, d mmmm yyyy",
        .ShortTimeFormat = "hh:nn",
        .LongTimeFormat = "hh:nn:ss",
        .AmText = "AM",
        .PmText = "PM",
    };
}

const TFormatSettings &FormatSettings()
{
    return CurrentSettings();
}

void SetFormatSettings(TFormatSettings settings)
{
    CurrentSettings() = std::move(settings);
}

std::string FormatDateTime(std::string_view format, TDateTime value)
{
    TFormatter formatter(value);
    formatter.Append(format.empty() ? "c" : format);
    return std::move(formatter).Result();
}

std::string FormatDate(std::string_view format, TDateTime value)
{
    TFormatter formatter(value);
    formatter.Append(format.empty() ? "ddddd" : format);
    return std::move(formatter).Result();
}

std::string FormatTime(std::string_view format, TDateTime value)
{
    TFormatter formatter(value);
    formatter.Append(format.empty() ? "t" : format);
    return std::move(formatter).Result();
}

} // namespace korvane
