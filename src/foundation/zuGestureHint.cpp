#include "foundation/zuGestureHint.h"

#include "foundation/zuFormat.h"
#include "foundation/zuRound.h"
#include "foundation/zuTranslate.h"

#include <cstdint>

namespace korvane {

namespace {

constexpr std::int64_t kMinutesPerDay = 24 * 60;
constexpr std::int64_t kSecondsPerDay = kMinutesPerDay * 60;
constexpr std::string_view kDateAndTime = "ddddd t";
constexpr std::string_view kIsoDateTime = "yyyy'-'mm'-'dd'T'hh':'nn':'ss'.'zzz";

void AppendCount(std::string &text, std::int64_t count, const std::string &counted)
{
    if (count == 0) {
        return;
    }
    if (!text.empty()) {
        text += ' ';
    }
    text += WithArguments(counted, {std::to_string(count)});
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

} // namespace

std::string HintLine(std::string_view label, const std::string &value)
{
    return value.empty() ? std::string() : std::string(label) + '\t' + value;
}

std::string OnOneLine(std::string text)
{
    for (char &c : text) {
        c = c == '\t' || c == '\n' || c == '\r' ? ' ' : c;
    }
    return text;
}

std::string LengthText(TDateTime length)
{
    std::string text;
    const std::int64_t minutes = Round(length * static_cast<double>(kMinutesPerDay));
    if (minutes <= 0) {
        AppendCount(text, Round(length * static_cast<double>(kSecondsPerDay)),
                    Translate("TGestureHint", "%1 s", "seconds"));
        return text.empty() ? WithArguments(Translate("TGestureHint", "%1 min"), {"0"}) : text;
    }
    AppendCount(text, minutes / kMinutesPerDay, Translate("TGestureHint", "%1 d", "days"));
    AppendCount(text, minutes % kMinutesPerDay / 60, Translate("TGestureHint", "%1 h"));
    AppendCount(text, minutes % 60, Translate("TGestureHint", "%1 min"));
    return text;
}

TGestureHint HintOfTimes(TDateTime start, TDateTime stop)
{
    return {HintLine(Translate("TGestureHint", "Start"), FormatDateTime(kDateAndTime, start)),
            HintLine(Translate("TGestureHint", "Stop"), FormatDateTime(kDateAndTime, stop)),
            HintLine(Translate("TGestureHint", "Length"), LengthText(stop - start))};
}

void TItemDragData::Add(const std::string &caption, TDateTime start, TDateTime stop)
{
    Text += OnOneLine(caption) + '\t' + FormatDateTime(kDateAndTime, start) + '\t'
            + FormatDateTime(kDateAndTime, stop) + '\n';
    Json.pop_back();
    Json += Json.size() > 1 ? ",\n {\"caption\": " : "{\"caption\": ";
    AppendJsonText(Json, caption);
    Json += ", \"start\": ";
    AppendJsonText(Json, FormatDateTime(kIsoDateTime, start));
    Json += ", \"stop\": ";
    AppendJsonText(Json, FormatDateTime(kIsoDateTime, stop));
    Json += "}]";
}

} // namespace korvane
