#include "plan/MspdiMarkup.h"

#include "plan/PlanDates.h"
#include "plan/PlanFields.h"

#include <algorithm>
#include <cmath>

namespace korvane::planner {

namespace {

QByteArray Copy(std::string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

} // namespace

MspdiMarkup::MspdiMarkup(const XmlElement &root)
    : m_prefix(Copy(root.Prefix()))
    , m_lineBreak("\n")
    , m_indent("  ")
{
    const auto end = root.Content.find('<');
    if (end == std::string_view::npos) {
        return;
    }
    const auto gap = root.Content.substr(0, end);
    const auto lineBreak = gap.find_last_of('\n');
    m_lineBreak = lineBreak == std::string_view::npos ? QByteArray()
                  : gap.starts_with("\r\n")           ? QByteArray("\r\n")
                                                      : QByteArray("\n");
    m_indent = lineBreak == std::string_view::npos ? QByteArray() : Copy(gap.substr(lineBreak + 1));
    if (!m_indent.trimmed().isEmpty()) {
        m_indent.clear();
    }
}

bool MspdiMarkup::Is(const XmlElement &element, std::string_view name) const
{
    return element.Name.size() == name.size() + static_cast<std::size_t>(m_prefix.size())
           && element.Name.starts_with(m_prefix.toStdString()) && element.Name.ends_with(name);
}

std::optional<QString> MspdiMarkup::Text(const std::vector<XmlElement> &children,
                                         std::string_view name) const
{
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
        if (Is(*child, name)) {
            return TextOf(child->Content);
        }
    }
    return std::nullopt;
}

std::optional<std::int64_t> MspdiMarkup::Number(const std::vector<XmlElement> &children,
                                                std::string_view name) const
{
    return ParseInteger(Text(children, name).value_or(QString()));
}

QByteArray MspdiMarkup::Simple(std::string_view name, const QByteArray &content) const
{
    const QByteArray qualified = m_prefix + Copy(name);
    return '<' + qualified + '>' + content + "</" + qualified + '>';
}

XmlField MspdiMarkup::Field(std::string_view name, const QString &text) const
{
    return {name, {Simple(name, Escaped(text))}};
}

XmlField MspdiMarkup::Field(std::string_view name, std::int64_t number) const
{
    return {name, {Simple(name, QByteArray::number(static_cast<qlonglong>(number)))}};
}

XmlField MspdiMarkup::Date(std::string_view name, TDateTime instant) const
{
    return Field(name, IsoText(instant));
}

XmlField MspdiMarkup::Duration(std::string_view name, double minutes) const
{
    constexpr std::int64_t kSeconds = 60;
    const std::int64_t seconds = std::llround(std::max(0.0, minutes) * kSeconds);
    return Field(name, QStringLiteral("PT%1H%2M%3S")
                           .arg(seconds / kSeconds / kSeconds)
                           .arg(seconds / kSeconds % kSeconds)
                           .arg(seconds % kSeconds));
}

QByteArray MspdiMarkup::Element(std::string_view name, const XmlFields &fields, mspdi::Names order,
                                int depth) const
{
    const QByteArray empty = Simple(name, {});
    return Merged(RootElement({empty.constData(), static_cast<std::size_t>(empty.size())}), fields,
                  order, depth);
}

QByteArray MspdiMarkup::Merged(const XmlElement &element, const XmlFields &fields,
                               mspdi::Names order, int depth) const
{
    XmlOutput output;
    WriteMerged(output, element, fields, order, SpacingAt(depth + 1));
    return output.Pending();
}

QByteArray MspdiMarkup::List(std::string_view name, const std::vector<QByteArray> &items,
                             int depth) const
{
    const XmlSpacing spacing = SpacingAt(depth + 1);
    QByteArray content;
    for (const QByteArray &item : items) {
        content += spacing.BeforeChild + item;
    }
    return Simple(name, content + (items.empty() ? QByteArray() : spacing.BeforeEnd));
}

XmlSpacing MspdiMarkup::SpacingAt(int depth) const
{
    return {m_lineBreak + m_indent.repeated(depth), m_lineBreak + m_indent.repeated(depth - 1)};
}

} // namespace korvane::planner
