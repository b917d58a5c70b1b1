#include "plan/XmlElements.h"

#include <QStringDecoder>
#include <QXmlStreamReader>

#include <algorithm>
#include <optional>

namespace korvane::planner {

namespace {

constexpr auto kNowhere = std::string_view::npos;

/// Finds tags, passing by texts, comments, CDATA, instructions and the document type.
class TagScanner
{
public:
    enum class Kind : std::uint8_t { Open, Close, OpenAndClosed };
    struct Tag
    {
        Kind Type = Kind::Open;
        std::size_t Begin = 0;
        std::size_t End = 0;
    };

    explicit TagScanner(std::string_view text)
        : m_text(text)
    {
    }

    std::optional<Tag> Next();

private:
    bool At(std::string_view mark) const { return m_text.substr(m_pos).starts_with(mark); }
    void SkipPast(std::string_view mark)
    {
        const auto found = m_text.find(mark, m_pos);
        m_pos = found == kNowhere ? m_text.size() : found + mark.size();
    }
    void SkipDocumentType();
    void SkipTag();

    std::string_view m_text;
    std::size_t m_pos = 0;
};

std::optional<TagScanner::Tag> TagScanner::Next()
{
    for (;;) {
        m_pos = m_text.find('<', m_pos);
        if (m_pos == kNowhere) {
            m_pos = m_text.size();
            return std::nullopt;
        }
        if (At("<!--")) {
            SkipPast("-->");
        } else if (At("<![CDATA[")) {
            SkipPast("]]>");
        } else if (At("<?")) {
            SkipPast("?>");
        } else if (At("<!")) {
            SkipDocumentType();
        } else {
            break;
        }
    }
    const std::size_t begin = m_pos;
    const bool isClose = At("</");
    SkipTag();
    const bool isClosed = m_pos >= begin + 3 && m_text[m_pos - 2] == '/';
    return Tag{isClose ? Kind::Close : isClosed ? Kind::OpenAndClosed : Kind::Open, begin, m_pos};
}

void TagScanner::SkipTag()
{
    m_pos = m_text.find_first_of("'\">", m_pos);
    while (m_pos != kNowhere && m_text[m_pos] != '>') {
        m_pos = m_text.find(m_text[m_pos], m_pos + 1);
        m_pos = m_pos == kNowhere ? kNowhere : m_text.find_first_of("'\">", m_pos + 1);
    }
    m_pos = m_pos == kNowhere ? m_text.size() : m_pos + 1;
}

void TagScanner::SkipDocumentType()
{
    const auto mark = m_text.find_first_of("[>", m_pos);
    if (mark != kNowhere && m_text[mark] == '[') {
        SkipPast("]");
    }
    SkipPast(">");
}

std::string_view NameIn(std::string_view tag)
{
    const std::size_t end = tag.find_first_of(" \t\r\n/>", 1);
    return tag.substr(1, end == kNowhere ? kNowhere : end - 1);
}

bool IsXmlCharacter(char32_t character)
{
    return character >= U' ' ? character != 0xFFFE && character != 0xFFFF
                             : character == U'\t' || character == U'\n' || character == U'\r';
}

/// From the XML declaration; empty without one.
QByteArray DeclaredEncoding(const QByteArray &document)
{
    if (!document.startsWith("<?xml")) {
        return {};
    }
    const QByteArray declaration = document.left(document.indexOf("?>"));
    const qsizetype name = declaration.indexOf("encoding");
    const qsizetype from = name < 0 ? -1 : declaration.indexOf('=', name);
    QByteArray value = from < 0 ? QByteArray() : declaration.mid(from + 1).trimmed();
    if (value.isEmpty()) {
        return {};
    }
    return value.mid(1, value.indexOf(value.front(), 1) - 1);
}

/// The document with "UTF-8" as its declared encoding.
QByteArray Redeclared(const QString &text)
{
    const qsizetype end = text.startsWith(u"<?xml") ? text.indexOf(u"?>") + 2 : 0;
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + QStringView(text).mid(end).toUtf8();
}

} // namespace

std::vector<XmlElement> ChildrenOf(std::string_view content)
{
    using Kind = TagScanner::Kind;
    std::vector<XmlElement> children;
    TagScanner scanner(content);
    TagScanner::Tag open;
    int depth = 0;
    while (const auto tag = scanner.Next()) {
        if (tag->Type == Kind::Close) {
            if (--depth < 0) {
                break;
            }
        } else if (depth == 0) {
            open = *tag;
        }
        depth += tag->Type == Kind::Open ? 1 : 0;
        if (depth == 0) {
            const auto opening = content.substr(open.Begin, open.End - open.Begin);
            const bool isClose = tag->Type == Kind::Close;
            children.push_back({NameIn(opening), content.substr(open.Begin, tag->End - open.Begin),
                                opening,
                                content.substr(open.End, isClose ? tag->Begin - open.End : 0)});
        }
    }
    return children;
}

XmlElement RootElement(std::string_view document)
{
    using Kind = TagScanner::Kind;
    TagScanner scanner(document);
    std::optional<TagScanner::Tag> open;
    int depth = 0;
    while (const auto tag = scanner.Next()) {
        open = open ? open : tag;
        depth += tag->Type == Kind::Open ? 1 : tag->Type == Kind::Close ? -1 : 0;
        if (depth <= 0) {
            const auto opening = document.substr(open->Begin, open->End - open->Begin);
            const bool isClose = tag->Type == Kind::Close;
            return {NameIn(opening), document.substr(open->Begin, tag->End - open->Begin), opening,
                    document.substr(open->End, isClose ? tag->Begin - open->End : 0)};
        }
    }
    return {};
}

QString TextOf(std::string_view content)
{
    if (content.find_first_of("<&\r") == kNowhere) {
        return QString::fromUtf8(content.data(), static_cast<qsizetype>(content.size()));
    }
    QXmlStreamReader reader;
    reader.setNamespaceProcessing(false);
    reader.addData("<a>");
    reader.addData(QByteArray(content.data(), static_cast<qsizetype>(content.size())));
    reader.addData("</a>");
    reader.readNextStartElement();
    return reader.readElementText(QXmlStreamReader::SkipChildElements);
}

QByteArray Escaped(const QString &text)
{
    QString kept;
    kept.reserve(text.size());
    // Lone surrogates become replacement characters here.
    for (const uint character : text.toUcs4()) {
        if (IsXmlCharacter(character)) {
            kept += QChar::fromUcs4(character);
        }
    }
    // A plain carriage return would be read as a line break.
    return kept.toHtmlEscaped().replace(u'\r', QStringLiteral("&#13;")).toUtf8();
}

QByteArray InUtf8(QByteArray document)
{
    const QByteArray mark("\xEF\xBB\xBF");
    if (document.startsWith(mark)) {
        document.remove(0, mark.size());
        return document;
    }
    if (const auto encoding = QStringConverter::encodingForData(document, u'<');
        encoding && *encoding != QStringConverter::Utf8) {
        return Redeclared(QStringDecoder(*encoding).decode(document));
    }
    const QByteArray name = DeclaredEncoding(document);
    const auto encoding = QStringConverter::encodingForName(name.constData());
    if (name.isEmpty() || encoding == QStringConverter::Utf8) {
        return document;
    }
    QStringDecoder decoder(name.constData());
    return decoder.isValid() ? Redeclared(decoder.decode(document)) : document;
}

} // namespace korvane::planner
