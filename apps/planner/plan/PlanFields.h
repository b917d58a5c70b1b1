// Values of single fields of a plan file, with remarks on those that make no sense.
#pragma once

#include "plan/PlanBuilder.h"

#include <QStringView>

namespace korvane::planner {

std::optional<std::int64_t> ParseInteger(QStringView text);
std::optional<double> ParseNumber(QStringView text);
/// "1" and "true".
bool ParseFlag(QStringView text);
/// "#99ccff".
std::optional<TColor> ParseColor(QStringView text);

/// Remarks go to the builder with the given line.
class FieldReader
{
public:
    FieldReader(PlanBuilder &builder, qint64 line)
        : m_builder(builder)
        , m_line(line)
    {
    }

    /// A date that a plan may use. Nothing, and no remark, for "" and "NA".
    std::optional<TDateTime> Date(QStringView text) const;
    /// kNoUid where there is none.
    std::int64_t Uid(QStringView text) const;
    /// `remark` is made of the text, `%1`, where it is none.
    std::optional<int> Integer(QStringView text, const char *remark) const;
    std::optional<double> Number(QStringView text, const char *remark) const;
    /// Minutes.
    std::optional<double> Duration(QStringView text) const;
    /// 0..100, cut to that range.
    float Percent(QStringView text) const;

private:
    void Remark(QStringView text, const char *remark) const;

    PlanBuilder &m_builder;
    qint64 m_line = 0;
};

} // namespace korvane::planner
