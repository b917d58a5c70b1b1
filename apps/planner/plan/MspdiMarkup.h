// Makes elements of project XML that look like those of the document around them.
#pragma once

#include "plan/MspdiFormat.h"
#include "plan/XmlMerge.h"

#include <optional>

namespace korvane::planner {

using XmlFields = std::vector<XmlField>;

/// Prefix, line breaks and indentation are those of the root element.
class MspdiMarkup
{
public:
    explicit MspdiMarkup(const XmlElement &root);

    /// Whether the element has that local name and the root's prefix.
    bool Is(const XmlElement &element, std::string_view name) const;
    /// Text of the last child of that name; nothing without one.
    std::optional<QString> Text(const std::vector<XmlElement> &children,
                                std::string_view name) const;
    /// The number in it; nothing for what is none.
    std::optional<std::int64_t> Number(const std::vector<XmlElement> &children,
                                       std::string_view name) const;

    static XmlField NoField(std::string_view name) { return {name, {}}; }
    XmlField Field(std::string_view name, const QString &text) const;
    XmlField Field(std::string_view name, std::int64_t number) const;
    XmlField Flag(std::string_view name, bool flag) const { return Field(name, flag ? 1 : 0); }
    /// "2026-11-02T08:00:00"
    XmlField Date(std::string_view name, TDateTime instant) const;
    /// "PT8H30M0S"
    XmlField Duration(std::string_view name, double minutes) const;

    /// `depth`: 1 for the children of the root.
    QByteArray Element(std::string_view name, const XmlFields &fields, mspdi::Names order,
                       int depth) const;
    QByteArray Merged(const XmlElement &element, const XmlFields &fields, mspdi::Names order,
                      int depth) const;
    /// An element that has other elements in it, one below the other.
    QByteArray List(std::string_view name, const std::vector<QByteArray> &items, int depth) const;
    XmlSpacing SpacingAt(int depth) const;

private:
    QByteArray Simple(std::string_view name, const QByteArray &content) const;

    QByteArray m_prefix; ///< with its colon
    QByteArray m_lineBreak;
    QByteArray m_indent;
};

} // namespace korvane::planner
