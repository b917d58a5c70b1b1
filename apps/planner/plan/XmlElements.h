// Elements of an XML text as the stretches of bytes that they are.
#pragma once

#include <QByteArray>
#include <QString>

#include <string_view>
#include <vector>

namespace korvane::planner {

/// Views into the text.
struct XmlElement
{
    std::string_view Name;    ///< with its prefix
    std::string_view Raw;     ///< all of it
    std::string_view OpenTag; ///< "<a b='c'>"; the whole element when that is "<a/>"
    std::string_view Content; ///< between its tags

    bool IsClosedAtOnce() const { return OpenTag.size() == Raw.size(); }
    /// "a:" of "a:b", else empty.
    std::string_view Prefix() const { return Name.substr(0, Name.find(':') + 1); }
};

/// The elements that lie directly in the content, in their order. For text that an XML parser has
/// accepted; of any other it makes something harmless.
std::vector<XmlElement> ChildrenOf(std::string_view content);
/// The first element; what precedes and follows it may be anything. Views are empty without one.
XmlElement RootElement(std::string_view document);

/// Text of an element's content, without that of its children.
QString TextOf(std::string_view content);
/// Text as content or attribute: escaped, and without the characters that XML does not have.
QByteArray Escaped(const QString &text);

/// The document in UTF-8, whatever encoding it has, without a byte order mark.
QByteArray InUtf8(QByteArray document);

} // namespace korvane::planner
