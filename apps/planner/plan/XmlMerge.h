// Puts new values into an element and leaves everything else in it as it stands.
#pragma once

#include "plan/XmlElements.h"

#include <QIODevice>

#include <span>

namespace korvane::planner {

/// Text gathered on its way into a device. After a failure nothing more is written.
class XmlOutput
{
public:
    /// Without a device everything stays in Pending().
    explicit XmlOutput(QIODevice *device = nullptr)
        : m_device(device)
    {
    }

    void Write(std::string_view text);
    /// To be called at the end; false when something could not be written.
    bool Flush();
    const QByteArray &Pending() const { return m_pending; }

private:
    QIODevice *m_device;
    QByteArray m_pending;
    bool m_hasFailed = false;
};

/// What an element's children of one name are to be, in place of those that it has.
struct XmlField
{
    std::string_view Name; ///< without a prefix
    /// Complete elements; none takes the field away.
    std::vector<QByteArray> Elements;
};

/// White space between the parts of an element, taken over from its neighbours.
struct XmlSpacing
{
    QByteArray BeforeChild;
    QByteArray BeforeEnd;
};

/// Of an element with children; `fallback` of one without.
XmlSpacing SpacingOf(const XmlElement &element, const std::vector<XmlElement> &children,
                     const XmlSpacing &fallback);

/// What lies between the end of the child (or the beginning of the element, for the first one) and
/// the child `index`; with index == children.size(), up to the element's end.
std::string_view GapBefore(const XmlElement &element, const std::vector<XmlElement> &children,
                           std::size_t index);

/// Where a child is written or left out: `Child` is null for the fields that are new there.
struct XmlPart
{
    std::string_view Gap; ///< before the child
    const XmlElement *Child = nullptr;
    const XmlField *Field = nullptr;
};

/// The parts of the merged element in order. A child that no field names stays; a field stands
/// where its first child stood, else where `order` (all names of the schema in sequence) puts it.
std::vector<XmlPart> MergedParts(const XmlElement &element, const std::vector<XmlElement> &children,
                                 std::span<const XmlField> fields,
                                 std::span<const std::string_view> order);

/// The whole element with the fields in it.
void WriteMerged(XmlOutput &output, const XmlElement &element, std::span<const XmlField> fields,
                 std::span<const std::string_view> order, const XmlSpacing &fallback);

/// "<a>" and "</a>", also of an element that is "<a/>".
void WriteOpenTag(XmlOutput &output, const XmlElement &element);
void WriteCloseTag(XmlOutput &output, const XmlElement &element);

} // namespace korvane::planner
