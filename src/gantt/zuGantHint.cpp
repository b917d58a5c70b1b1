#include "gantt/zuGantHint.h"

#include "foundation/zuFormat.h"
#include "foundation/zuRound.h"

#include <cmath>
#include <cstdint>
#include <string_view>

namespace korvane {

namespace {

constexpr std::int64_t kMinutesPerDay = 24 * 60;
constexpr std::int64_t kSecondsPerDay = kMinutesPerDay * 60;
constexpr std::string_view kDateAndTime = "ddddd t";
constexpr std::string_view kIsoDateTime = "yyyy'-'mm'-'dd'T'hh':'nn':'ss'.'zzz";

void AppendUnit(std::string &text, std::int64_t count, std::string_view unit)
{
    if (count == 0) {
        return;
    }
    if (!text.empty()) {
        text += ' ';
    }
    text += std::to_string(count);
    text += ' ';
    text += unit;
}

std::string Line(std::string_view label, const std::string &value)
{
    return value.empty() ? std::string() : std::string(label) + '\t' + value;
}

void AppendJsonText(std::string &json, std::string_view text)
{
    constexpr std::string_view kHex = "0123456789abcdef";
    json += '"';
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            json += '\\';
            json += c;
        } else if (code < 0x20) {
            json += "\\u00";
            json += kHex[code >> 4U];
            json += kHex[code & 0xFU];
        } else {
            json += c;
        }
    }
    json += '"';
}

/// The text on one line, without the separators of plain text.
std::string OnOneLine(std::string text)
{
    for (char &c : text) {
        c = c == '\t' || c == '\n' || c == '\r' ? ' ' : c;
    }
    return text;
}

} // namespace

std::string LengthText(TDateTime length)
{
    std::string text;
    const std::int64_t minutes = Round(length * static_cast<double>(kMinutesPerDay));
    if (minutes <= 0) {
        AppendUnit(text, Round(length * static_cast<double>(kSecondsPerDay)), "s");
        return text.empty() ? "0 min" : text;
    }
    AppendUnit(text, minutes / kMinutesPerDay, "d");
    AppendUnit(text, minutes % kMinutesPerDay / 60, "h");
    AppendUnit(text, minutes % 60, "min");
    return text;
}

TGantHint HintOfTimes(TDateTime start, TDateTime stop)
{
    return {Line("Start", FormatDateTime(kDateAndTime, start)),
            Line("Stop", FormatDateTime(kDateAndTime, stop)),
            Line("Length", LengthText(stop - start))};
}

std::string CaptionOf(const TzuDataEntity_Spanbar &item)
{
    const TzuTimeItemTextCollection *texts = item.TextsIfAny();
    for (int i = 0; texts != nullptr && i < texts->GetCount(); ++i) {
        if (const std::string &text = texts->GetTimeItemText(i).Text(); !text.empty()) {
            return text;
        }
    }
    return {};
}

TGantHint HintOfDependency(const TzuDataEntity_Spanbar *first, const TzuDataEntity_Spanbar *second)
{
    const auto caption = [](const TzuDataEntity_Spanbar *item) {
        return item != nullptr ? OnOneLine(CaptionOf(*item)) : std::string();
    };
    return {Line("From", caption(first)), Line("To", caption(second)), {}};
}

TGantDragData DragDataOf(std::span<TzuDataEntity_Spanbar *const> items, bool copy)
{
    TGantDragData data;
    data.Copy = copy;
    data.Json = "[";
    for (const TzuDataEntity_Spanbar *item : items) {
        const std::string caption = CaptionOf(*item);
        const TDateTime start = item->GetStartDateTime();
        const TDateTime stop = item->GetStopDateTime();
        data.Text += OnOneLine(caption) + '\t' + FormatDateTime(kDateAndTime, start) + '\t'
                     + FormatDateTime(kDateAndTime, stop) + '\n';
        data.Json += data.Json.size() > 1 ? ",\n {\"caption\": " : "{\"caption\": ";
        AppendJsonText(data.Json, caption);
        data.Json += ", \"start\": ";
        AppendJsonText(data.Json, FormatDateTime(kIsoDateTime, start));
        data.Json += ", \"stop\": ";
        AppendJsonText(data.Json, FormatDateTime(kIsoDateTime, stop));
        data.Json += '}';
    }
    data.Json += "]";
    return data;
}

} // namespace korvane
