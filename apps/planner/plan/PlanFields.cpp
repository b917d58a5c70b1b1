#include "plan/PlanFields.h"

#include "plan/PlannerText.h"

#include <algorithm>
#include <cmath>

namespace korvane::planner {

std::optional<std::int64_t> ParseInteger(QStringView text)
{
    bool ok = false;
    const qlonglong value = text.trimmed().toLongLong(&ok);
    return ok && value != kNoUid ? std::optional<std::int64_t>(value) : std::nullopt;
}

std::optional<double> ParseNumber(QStringView text)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    return ok && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

bool ParseFlag(QStringView text)
{
    text = text.trimmed();
    return text == u"1" || text == u"true";
}

std::optional<TColor> ParseColor(QStringView text)
{
    constexpr qsizetype kLength = 7;
    text = text.trimmed();
    bool ok = false;
    const uint value = text.mid(1).toUInt(&ok, 16);
    if (!ok || text.size() != kLength || text.front() != u'#') {
        return std::nullopt;
    }
    return Rgb(value >> 16U, value >> 8U, value);
}

std::optional<TDateTime> FieldReader::Date(QStringView text) const
{
    text = text.trimmed();
    if (text.isEmpty() || text == u"NA") {
        return std::nullopt;
    }
    const auto date = ParseIsoDateTime(text);
    if (!date) {
        Remark(text, QT_TRANSLATE_NOOP("Planner", "\"%1\" is not a date."));
        return std::nullopt;
    }
    if (!IsPlanDate(*date)) {
        Remark(text, QT_TRANSLATE_NOOP("Planner",
                                       "\"%1\" is not a date between 1899-12-30 and 4000-01-01."));
        return std::nullopt;
    }
    return date;
}

std::int64_t FieldReader::Uid(QStringView text) const
{
    const auto uid = ParseInteger(text);
    if (!uid) {
        Remark(text, QT_TRANSLATE_NOOP("Planner", "\"%1\" is not a UID."));
    }
    return uid.value_or(kNoUid);
}

std::optional<int> FieldReader::Integer(QStringView text, const char *remark) const
{
    constexpr std::int64_t kLimit = 1'000'000'000;
    const auto value = ParseInteger(text);
    if (!value || *value < -kLimit || *value > kLimit) {
        Remark(text, remark);
        return std::nullopt;
    }
    return static_cast<int>(*value);
}

std::optional<double> FieldReader::Number(QStringView text, const char *remark) const
{
    const auto value = ParseNumber(text);
    if (!value) {
        Remark(text, remark);
    }
    return value;
}

std::optional<double> FieldReader::Duration(QStringView text) const
{
    const auto minutes = ParseIsoDuration(text);
    if (!minutes && !text.trimmed().isEmpty()) {
        Remark(text, QT_TRANSLATE_NOOP("Planner", "\"%1\" is not a duration."));
    }
    return minutes;
}

float FieldReader::Percent(QStringView text) const
{
    const double value =
        Number(text, QT_TRANSLATE_NOOP("Planner", "\"%1\" is not a percentage.")).value_or(0);
    const double cut = std::clamp(value, 0.0, 100.0);
    if (cut != value) {
        Remark(text, QT_TRANSLATE_NOOP("Planner", "\"%1\" is not a percentage between 0 and 100."));
    }
    return static_cast<float>(cut);
}

void FieldReader::Remark(QStringView text, const char *remark) const
{
    constexpr qsizetype kShown = 40;
    m_builder.Remark(m_line, PlannerText::tr(remark).arg(text.left(kShown)));
}

} // namespace korvane::planner
