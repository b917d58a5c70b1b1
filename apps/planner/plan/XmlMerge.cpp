#include "plan/XmlMerge.h"

#include <algorithm>

namespace korvane::planner {

namespace {

std::string_view LocalName(std::string_view name, std::string_view prefix)
{
    return name.starts_with(prefix) ? name.substr(prefix.size()) : std::string_view();
}

bool IsBlank(std::string_view text)
{
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

QByteArray Copy(std::string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

std::string_view View(const QByteArray &text)
{
    return {text.constData(), static_cast<std::size_t>(text.size())};
}

/// Place in the schema's sequence; that of the child before for a name that is not in it.
std::vector<std::size_t> RanksOf(const std::vector<XmlElement> &children, std::string_view prefix,
                                 std::span<const std::string_view> order)
{
    std::vector<std::size_t> ranks;
    std::size_t rank = 0;
    for (const XmlElement &child : children) {
        const auto found = std::ranges::find(order, LocalName(child.Name, prefix));
        rank = found == order.end() ? rank : static_cast<std::size_t>(found - order.begin());
        ranks.push_back(rank);
    }
    return ranks;
}

} // namespace

void XmlOutput::Write(std::string_view text)
{
    constexpr qsizetype kChunk = 1 << 18;
    m_pending.append(text.data(), static_cast<qsizetype>(text.size()));
    if (m_device != nullptr && m_pending.size() >= kChunk) {
        Flush();
    }
}

bool XmlOutput::Flush()
{
    if (!m_hasFailed && m_device->write(m_pending) != m_pending.size()) {
        m_hasFailed = true;
    }
    m_pending.resize(0);
    return !m_hasFailed;
}

XmlSpacing SpacingOf(const XmlElement &element, const std::vector<XmlElement> &children,
                     const XmlSpacing &fallback)
{
    if (children.empty()) {
        return fallback;
    }
    const auto first = GapBefore(element, children, 0);
    const auto last = GapBefore(element, children, children.size());
    return {IsBlank(first) ? Copy(first) : QByteArray(), IsBlank(last) ? Copy(last) : QByteArray()};
}

std::string_view GapBefore(const XmlElement &element, const std::vector<XmlElement> &children,
                           std::size_t index)
{
    const char *from = index == 0 ? element.Content.data()
                                  : children[index - 1].Raw.data() + children[index - 1].Raw.size();
    const char *to = index == children.size() ? element.Content.data() + element.Content.size()
                                              : children[index].Raw.data();
    return {from, static_cast<std::size_t>(to - from)};
}

std::vector<XmlPart> MergedParts(const XmlElement &element, const std::vector<XmlElement> &children,
                                 std::span<const XmlField> fields,
                                 std::span<const std::string_view> order)
{
    const std::string_view prefix = element.Prefix();
    const auto rankOf = [order](const XmlField *field) {
        return std::ranges::find(order, field->Name) - order.begin();
    };
    std::vector<const XmlField *> fresh;
    for (const XmlField &field : fields) {
        const bool exists = std::ranges::any_of(children, [&](const XmlElement &child) {
            return LocalName(child.Name, prefix) == field.Name;
        });
        if (!exists && !field.Elements.empty()) {
            fresh.push_back(&field);
        }
    }
    std::ranges::stable_sort(fresh, {}, rankOf);

    const auto ranks =
        fresh.empty() ? std::vector<std::size_t>() : RanksOf(children, prefix, order);
    std::vector<const XmlField *> written;
    std::vector<XmlPart> parts;
    auto next = fresh.begin();
    for (std::size_t i = 0; i < children.size(); ++i) {
        while (next != fresh.end() && static_cast<std::ptrdiff_t>(ranks[i]) > rankOf(*next)) {
            parts.push_back({{}, nullptr, *next++});
        }
        const auto gap = GapBefore(element, children, i);
        const auto name = LocalName(children[i].Name, prefix);
        const auto field = std::ranges::find(fields, name, &XmlField::Name);
        if (field == fields.end()) {
            parts.push_back({gap, &children[i], nullptr});
        } else if (std::ranges::find(written, &*field) == written.end()) {
            written.push_back(&*field);
            parts.push_back({gap, &children[i], &*field});
        } else if (!IsBlank(gap)) {
            parts.push_back({gap, nullptr, nullptr});
        }
    }
    while (next != fresh.end()) {
        parts.push_back({{}, nullptr, *next++});
    }
    return parts;
}

void WriteMerged(XmlOutput &output, const XmlElement &element, std::span<const XmlField> fields,
                 std::span<const std::string_view> order, const XmlSpacing &fallback)
{
    const auto children = ChildrenOf(element.Content);
    const XmlSpacing spacing = SpacingOf(element, children, fallback);
    WriteOpenTag(output, element);
    for (const XmlPart &part : MergedParts(element, children, fields, order)) {
        if (part.Field == nullptr) {
            output.Write(part.Gap);
            output.Write(part.Child != nullptr ? part.Child->Raw : std::string_view());
            continue;
        }
        std::string_view gap = part.Child != nullptr ? part.Gap : View(spacing.BeforeChild);
        if (part.Field->Elements.empty() && !IsBlank(gap)) {
            output.Write(gap); // a comment
        }
        for (const QByteArray &text : part.Field->Elements) {
            output.Write(gap);
            output.Write(View(text));
            gap = View(spacing.BeforeChild);
        }
    }
    output.Write(children.empty() ? View(spacing.BeforeEnd)
                                  : GapBefore(element, children, children.size()));
    WriteCloseTag(output, element);
}

void WriteOpenTag(XmlOutput &output, const XmlElement &element)
{
    if (element.IsClosedAtOnce()) {
        output.Write(element.OpenTag.substr(0, element.OpenTag.size() - 2));
        output.Write(">");
    } else {
        output.Write(element.OpenTag);
    }
}

void WriteCloseTag(XmlOutput &output, const XmlElement &element)
{
    output.Write("</");
    output.Write(element.Name);
    output.Write(">");
}

} // namespace korvane::planner
